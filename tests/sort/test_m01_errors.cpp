// Every refusal of the m01 routines: which row, naming which argument, in
// the documented order of the checks, and what the refused call leaves.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "zem/m01.h"

namespace {

int32_t cmp_double(const void* a, const void* b) {
  const double x = *static_cast<const double*>(a), y = *static_cast<const double*>(b);
  return x < y ? -1 : x > y;
}

struct Case {
  const char* what;
  std::function<void(ZemError*)> call;
  int code;
  const char* text;  // a piece of the expected message
};

TEST(M01Errors, EveryCheckReportsItsRow) {
  double v[4] = {3, 1, 2, 0};
  int32_t r[4] = {0, 1, 2, 3};
  const char* s[2] = {"b", nullptr};
  const std::size_t huge = 0x10000000;
  const std::vector<Case> cases = {
      {"m01cac order", [&](ZemError* f) { m01cac(v, 4, 7, f); }, NE_BAD_PARAM, "argument order"},
      {"m01cac order before n", [&](ZemError* f) { m01cac(v, 0, 7, f); }, NE_BAD_PARAM, "order"},
      {"m01cac n = 0", [&](ZemError* f) { m01cac(v, 0, Zem_Ascending, f); }, NE_INT_ARG_LT,
       "n must not be less than 1: n = 0"},
      {"m01cac n too large", [&](ZemError* f) { m01cac(v, huge, Zem_Ascending, f); },
       NE_INT_ARG_GT, "n must not be greater than 268435455: n = 268435456"},
      {"m01cac null vec", [&](ZemError* f) { m01cac(nullptr, 4, Zem_Descending, f); },
       NE_BAD_PARAM, "argument vec"},
      {"m01csc size 0", [&](ZemError* f) { m01csc(v, 4, 8, 0, cmp_double, Zem_Ascending, f); },
       NE_INT_ARG_LT, "size must not be less than 1"},
      {"m01csc |stride| < size",
       [&](ZemError* f) { m01csc(v, 4, -4, 8, cmp_double, Zem_Ascending, f); }, NE_2_INT_ARG_LT,
       "|stride| = 4 while size = 8"},
      {"m01csc null compare",
       [&](ZemError* f) { m01csc(v, 4, 8, 8, nullptr, Zem_Ascending, f); }, NE_BAD_PARAM,
       "argument compare"},
      {"m01ctc stride 0", [&](ZemError* f) { m01ctc(v, 4, 0, 8, cmp_double, Zem_Ascending, f); },
       NE_2_INT_ARG_LT, "|stride| >= size"},
      {"m01cuc null element", [&](ZemError* f) { m01cuc(s, 2, Zem_Ascending, f); }, NE_BAD_PARAM,
       "argument vec[1]"},
      {"m01dsc stride 0",
       [&](ZemError* f) { m01dsc(v, 4, 0, cmp_double, Zem_Ascending, r, f); }, NE_INT_ARG_EQ,
       "stride must not be equal to 0"},
      {"m01dsc null ranks",
       [&](ZemError* f) { m01dsc(v, 4, 8, cmp_double, Zem_Ascending, nullptr, f); },
       NE_BAD_PARAM, "argument ranks"},
      {"m01esc n = 0", [&](ZemError* f) { m01esc(v, 0, 8, 8, r, f); }, NE_INT_ARG_LT, "n"},
      {"m01esc null indices", [&](ZemError* f) { m01esc(v, 4, 8, 8, nullptr, f); }, NE_BAD_PARAM,
       "argument indices"},
      {"m01fsc final", [&](ZemError* f) { m01fsc(v, v, 4, 8, cmp_double, Zem_Ascending, 3, f); },
       NE_BAD_PARAM, "argument final"},
      {"m01fsc null key",
       [&](ZemError* f) { m01fsc(nullptr, v, 4, 8, cmp_double, Zem_Ascending, Zem_First, f); },
       NE_BAD_PARAM, "argument key"},
      {"m01zac null", [&](ZemError* f) { m01zac(nullptr, 4, f); }, NE_BAD_PARAM,
       "argument ranks"},
  };
  for (const auto& c : cases) {
    ZemError fail;
    std::memset(&fail, 0, sizeof fail);
    fail.errnum = 99;
    c.call(&fail);
    EXPECT_EQ(fail.code, c.code) << c.what << ": " << fail.message;
    EXPECT_NE(std::string(fail.message).find(c.text), std::string::npos)
        << c.what << ": " << fail.message;
    EXPECT_EQ(fail.errnum, 0) << c.what;
  }
  // Nothing was sorted by a refused call.
  EXPECT_EQ(v[0], 3.0);
  EXPECT_EQ(v[3], 0.0);
}

// m01zac: a rank equal to n is refused and the marks set before it stay;
// a repeated rank is refused too, and leaves no mark behind.
TEST(M01zac, BadRanksAndTheirMarks) {
  int32_t r[4] = {2, 0, 4, 1};
  ZemError fail;
  std::memset(&fail, 0, sizeof fail);
  m01zac(r, 4, &fail);
  EXPECT_EQ(fail.code, NE_BAD_RANK);
  EXPECT_EQ(r[0], 2 | 0x40000000);
  EXPECT_EQ(r[1], 0 | 0x40000000);
  EXPECT_EQ(r[2], 4);
  EXPECT_EQ(r[3], 1);

  int32_t d[5] = {1, 2, 0, 2, 3};
  m01zac(d, 5, &fail);
  EXPECT_EQ(fail.code, NE_BAD_RANK);
  EXPECT_NE(std::string(fail.message).find("more than once"), std::string::npos);
  for (int32_t x : d) {
    EXPECT_GE(x, 0);
    EXPECT_LT(x, 5);
  }
  int32_t neg[3] = {0, -1, 1};
  m01zac(neg, 3, &fail);
  EXPECT_EQ(fail.code, NE_BAD_RANK);
}

// m01esc refuses indices that are not a permutation and leaves the records
// and the indices as they were.
TEST(M01esc, BadIndicesLeaveTheRecords) {
  double v[4] = {10, 20, 30, 40};
  int32_t twice[4] = {3, 1, 3, 0};
  ZemError fail;
  std::memset(&fail, 0, sizeof fail);
  m01esc(v, 4, 8, 8, twice, &fail);
  EXPECT_EQ(fail.code, NE_BAD_RANK);
  EXPECT_NE(std::string(fail.message).find("the value 3 occurs more than once"), std::string::npos)
      << fail.message;
  EXPECT_EQ(twice[0], 3);
  EXPECT_EQ(twice[2], 3);
  int32_t out[4] = {0, 1, 2, 4};
  m01esc(v, 4, 8, 8, out, &fail);
  EXPECT_EQ(fail.code, NE_BAD_RANK);
  EXPECT_EQ(v[0], 10);
  EXPECT_EQ(v[3], 40);
}

// The by-address forms: failure numbers with a silent soft mode, and the
// vector untouched after a failure.
TEST(M01AddressForms, FailureNumbers) {
  double v[5] = {5, 4, 3, 2, 1};
  int32_t r[5] = {0, 1, 2, 3, 3};
  int32_t m1 = 1, m2 = 5, bad = 0, ifail = 1;
  m01caf_f(v, &m1, &bad, "A", &ifail, 1);
  EXPECT_EQ(ifail, 1);
  ifail = 1;
  m01caf_f(v, &m2, &m1, "A", &ifail, 1);
  EXPECT_EQ(ifail, 1);
  ifail = 1;
  m01caf_f(v, &m1, &m2, "X", &ifail, 1);
  EXPECT_EQ(ifail, 2);
  ifail = 1;
  m01daf_f(v, &m1, &m2, "b", r, &ifail, 1);
  EXPECT_EQ(ifail, 2);
  ifail = 1;
  m01eaf_f(v, &m1, &m2, r, &ifail);
  EXPECT_EQ(ifail, 2);
  EXPECT_EQ(v[0], 5.0);
  EXPECT_EQ(r[4], 3);
  ifail = 1;
  m01zaf_f(r, &m1, &m2, &ifail);
  EXPECT_EQ(ifail, 3);
  EXPECT_EQ(r[3], 3);
  r[4] = 9;
  ifail = 1;
  m01zaf_f(r, &m1, &m2, &ifail);
  EXPECT_EQ(ifail, 2);
  EXPECT_EQ(r[4], 9);
  ifail = 1;
  m01caf_f(nullptr, &m1, &m2, "A", &ifail, 1);
  EXPECT_EQ(ifail, 1);
}

// A refusal with no record ends the process; a success with no record is
// quiet.
TEST(M01ErrorsDeathTest, NullRecordAbortsOnlyOnFailure) {
  double v[3] = {2, 1, 0};
  m01cac(v, 3, Zem_Ascending, nullptr);
  EXPECT_EQ(v[0], 0.0);
  EXPECT_DEATH(m01cac(v, 0, Zem_Ascending, nullptr), "Program Aborted");
}

}  // namespace
