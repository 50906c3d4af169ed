// Every failure row of the chapter with its exact text: each routine is
// called with each bad argument in turn, in the order of its checks.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "zem/c06.h"

// Under AddressSanitizer, an allocation that cannot be met returns null (as
// the library expects of x04bbc) instead of ending the run, so that the
// NE_ALLOC_FAIL rows can be tested there too.
extern "C" const char* __asan_default_options() { return "allocator_may_return_null=1"; }

namespace {

struct Case {
  const char* what;
  std::function<void(ZemError*)> call;
  int code;
  const char* message;
  int errnum = 0;
};

const char* const kNotTrig =
    "NE_C06_NOT_TRIG:\n  The array trig has not been initialised, or it was initialised for a different value of n.";
const char* const kFactorGt = "NE_C06_FACTOR_GT:\n  At least one of the prime factors of n is greater than 19.";
const char* const kTooMany = "NE_C06_TOO_MANY_FACTORS:\n  n has more than 20 prime factors.";
std::string le1(const char* name, long v) {
  return "NE_INT_ARG_LE:\n  On entry, " + std::string(name) + " must not be less than or equal to 1: " + name + " = " +
         std::to_string(v) + ".";
}
std::string lt1(const char* name, long v) {
  return "NE_INT_ARG_LT:\n  On entry, " + std::string(name) + " must not be less than 1: " + name + " = " +
         std::to_string(v) + ".";
}
std::string bad(const char* name) { return "NE_BAD_PARAM:\n  On entry, argument " + std::string(name) + " had an illegal value."; }

// Storage for the calls: large enough for every length used below.
double g_x[64], g_y[64], g_trig8[16], g_trig5[10];
ZemComplex g_z[64];
const int32_t kNd[3] = {2, 3, 4};

std::vector<Case> cases() {
  const std::string s_le_n0 = le1("n", 0), s_le_n1 = le1("n", 1);
  double* x = g_x;
  double* y = g_y;
  const double* t8 = g_trig8;
  const double* t5 = g_trig5;
  ZemComplex* z = g_z;
  const auto F = Zem_ForwardTransform;
  static std::vector<std::string> keep;  // owns the texts built below
  auto txt = [](std::string s) {
    keep.push_back(std::move(s));
    return keep.back().c_str();
  };
  keep.reserve(64);
  return {
      // Single-sequence routines: n, the arrays, the length rules.
      {"c06eac n", [=](ZemError* f) { c06eac(1, x, f); }, NE_INT_ARG_LE, txt(le1("n", 1))},
      {"c06eac x", [=](ZemError* f) { c06eac(8, nullptr, f); }, NE_BAD_PARAM, txt(bad("x"))},
      {"c06eac 23", [=](ZemError* f) { c06eac(23, x, f); }, NE_C06_FACTOR_GT, kFactorGt},
      {"c06eac 2^21", [=](ZemError* f) { c06eac(1 << 21, x, f); }, NE_C06_TOO_MANY_FACTORS, kTooMany},
      {"c06ebc n", [=](ZemError* f) { c06ebc(-3, x, f); }, NE_INT_ARG_LE, txt(le1("n", -3))},
      {"c06ebc 46", [=](ZemError* f) { c06ebc(46, x, f); }, NE_C06_FACTOR_GT, kFactorGt},
      {"c06ecc y", [=](ZemError* f) { c06ecc(8, x, nullptr, f); }, NE_BAD_PARAM, txt(bad("y"))},
      {"c06ecc 2^21", [=](ZemError* f) { c06ecc(1 << 21, x, y, f); }, NE_C06_TOO_MANY_FACTORS, kTooMany},
      {"c06ekc operation", [=](ZemError* f) { c06ekc(Zem_ForwardTransform, 8, x, y, f); }, NE_BAD_PARAM,
       txt(bad("operation"))},
      {"c06ekc n", [=](ZemError* f) { c06ekc(Zem_Convolution, 1, x, y, f); }, NE_INT_ARG_LE, txt(le1("n", 1))},
      {"c06ekc 29", [=](ZemError* f) { c06ekc(Zem_Correlation, 29, x, y, f); }, NE_C06_FACTOR_GT, kFactorGt},
      // Multiple sequences: both counts (the last report stands), arrays, table.
      {"c06fpc m", [=](ZemError* f) { c06fpc(0, 8, x, t8, f); }, NE_INT_ARG_LT, txt(lt1("m", 0))},
      {"c06fpc m and n", [=](ZemError* f) { c06fpc(0, -1, x, t8, f); }, NE_INT_ARG_LT, txt(lt1("n", -1))},
      {"c06fpc trig null", [=](ZemError* f) { c06fpc(1, 8, x, nullptr, f); }, NE_BAD_PARAM, txt(bad("trig"))},
      {"c06fpc trig", [=](ZemError* f) { c06fpc(1, 5, x, t8, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06fqc n", [=](ZemError* f) { c06fqc(2, 0, x, t8, f); }, NE_INT_ARG_LT, txt(lt1("n", 0))},
      {"c06fqc trig", [=](ZemError* f) { c06fqc(2, 8, x, t5, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06frc y", [=](ZemError* f) { c06frc(2, 8, x, nullptr, t8, f); }, NE_BAD_PARAM, txt(bad("y"))},
      {"c06frc trig", [=](ZemError* f) { c06frc(2, 8, x, y, t5, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06fuc m", [=](ZemError* f) { c06fuc(0, 5, x, y, t8, t5, f); }, NE_INT_ARG_LT, txt(lt1("m", 0))},
      {"c06fuc trigm", [=](ZemError* f) { c06fuc(5, 8, x, y, t8, t8, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06fuc trign", [=](ZemError* f) { c06fuc(8, 8, x, y, t8, t5, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06fpz n", [=](ZemError* f) {
         int32_t fac[32];
         c06fpz(0, fac, f);
       }, NE_INT_ARG_LT, txt(lt1("n", 0))},
      {"c06fpz factors", [=](ZemError* f) { c06fpz(8, nullptr, f); }, NE_BAD_PARAM, txt(bad("factors"))},
      {"c06gbc n", [=](ZemError* f) { c06gbc(0, x, f); }, NE_INT_ARG_LT, txt(lt1("n", 0))},
      {"c06gcc y", [=](ZemError* f) { c06gcc(4, nullptr, f); }, NE_BAD_PARAM, txt(bad("y"))},
      {"c06gqc m", [=](ZemError* f) { c06gqc(-1, 4, x, f); }, NE_INT_ARG_LT, txt(lt1("m", -1))},
      {"c06gsc u", [=](ZemError* f) { c06gsc(2, 4, x, nullptr, y, f); }, NE_BAD_PARAM, txt(bad("u"))},
      {"c06gzc n", [=](ZemError* f) { c06gzc(0, g_trig8, f); }, NE_INT_ARG_LT, txt(lt1("n", 0))},
      {"c06hac trig", [=](ZemError* f) { c06hac(2, 5, x, t8, f); }, NE_C06_NOT_TRIG, kNotTrig},
      {"c06hac workspace", [=](ZemError* f) { c06hac(2147483647, 8, x, t8, f); }, NE_ALLOC_FAIL,
       "NE_ALLOC_FAIL:\n  Dynamic memory allocation failed."},
      {"c06hbc n", [=](ZemError* f) { c06hbc(2, 0, x, t8, f); }, NE_INT_ARG_LT, txt(lt1("n", 0))},
      {"c06hcc direct", [=](ZemError* f) { c06hcc(Zem_Convolution, 2, 8, x, t8, f); }, NE_BAD_PARAM, txt(bad("direct"))},
      {"c06hdc trig", [=](ZemError* f) { c06hdc(F, 2, 5, x, t8, f); }, NE_C06_NOT_TRIG, kNotTrig},
      // Multidimensional: direct and null arrays here, the dimensions
      // through the core's record (errnum: the core's failure number).
      {"c06pfc direct", [=](ZemError* f) { c06pfc(0, 3, 1, kNd, 24, z, f); }, NE_BAD_PARAM, txt(bad("direct"))},
      {"c06pfc nd", [=](ZemError* f) { c06pfc(F, 3, 1, nullptr, 24, z, f); }, NE_BAD_PARAM, txt(bad("nd"))},
      {"c06pfc ndim", [=](ZemError* f) { c06pfc(F, 0, 1, kNd, 24, z, f); }, NE_INT,
       "NE_INT:\n    On entry, ndim = 0.\nConstraint: ndim >= 1.", 1},
      {"c06pfc l", [=](ZemError* f) { c06pfc(F, 3, 4, kNd, 24, z, f); }, NE_INT_2,
       "NE_INT_2:\n    On entry, l = 4, ndim = 3.\nConstraint: 1 <= l <= ndim.", 2},
      {"c06pfc nd[i-1]", [=](ZemError* f) {
         const int32_t nd[3] = {2, -7, 4};
         c06pfc(F, 3, 1, nd, 24, z, f);
       }, NE_INT_2, "NE_INT_2:\n    On entry, nd[i-1] = -7 for i = 2.\nConstraint: nd[i-1] >= 1.", 4},
      {"c06pfc n", [=](ZemError* f) { c06pfc(F, 3, 2, kNd, 25, z, f); }, NE_INT_2,
       "NE_INT_2:\n    On entry, n = 25 and the product of the dimensions nd[i-1] is 24.\n"
       "Constraint: n = the product of nd[i-1], i = 1, 2, ..., ndim.", 5},
      {"c06pfc workspace", [=](ZemError* f) {
         const int32_t nd[1] = {2147483647};
         c06pfc(F, 1, 1, nd, 2147483647, z, f);
       }, NE_ALLOC_FAIL, "NE_ALLOC_FAIL:\n  Dynamic memory allocation failed."},
      {"c06pjc ndim", [=](ZemError* f) { c06pjc(F, -2, kNd, 24, z, f); }, NE_INT,
       "NE_INT:\n    On entry, ndim = -2.\nConstraint: ndim >= 1.", 1},
      {"c06pjc nd[i-1]", [=](ZemError* f) {
         const int32_t nd[3] = {2, 3, 0};
         c06pjc(F, 3, nd, 24, z, f);
       }, NE_INT_2, "NE_INT_2:\n    On entry, nd[i-1] = 0 for i = 3.\nConstraint: nd[i-1] >= 1.", 3},
      {"c06pjc n", [=](ZemError* f) { c06pjc(Zem_BackwardTransform, 3, kNd, 12, z, f); }, NE_INT_2,
       "NE_INT_2:\n    On entry, n = 12 and the product of the dimensions nd[i-1] is 24.\n"
       "Constraint: n = the product of nd[i-1], i = 1, 2, ..., ndim.", 4},
      {"c06pxc direct", [=](ZemError* f) { c06pxc(1069, 2, 3, 4, z, f); }, NE_BAD_PARAM, txt(bad("direct"))},
      {"c06pxc x", [=](ZemError* f) { c06pxc(F, 2, 3, 4, nullptr, f); }, NE_BAD_PARAM, txt(bad("x"))},
      {"c06pxc n1", [=](ZemError* f) { c06pxc(F, 0, 3, 4, z, f); }, NE_INT,
       "NE_INT:\n    On entry, n1 = 0.\nConstraint: n1 >= 1.", 1},
      {"c06pxc n2", [=](ZemError* f) { c06pxc(F, 2, -1, 4, z, f); }, NE_INT,
       "NE_INT:\n    On entry, n2 = -1.\nConstraint: n2 >= 1.", 2},
      {"c06pxc n3", [=](ZemError* f) { c06pxc(F, 2, 3, 0, z, f); }, NE_INT,
       "NE_INT:\n    On entry, n3 = 0.\nConstraint: n3 >= 1.", 3},
  };
}

TEST(C06Errors, EveryRowWithItsText) {
  ZemError fail{};
  c06gzc(8, g_trig8, &fail);
  c06gzc(5, g_trig5, &fail);
  for (const auto& c : cases()) {
    ZemError f{};
    f.errnum = 77;
    c.call(&f);
    EXPECT_EQ(f.code, c.code) << c.what;
    EXPECT_STREQ(f.message, c.message) << c.what;
    EXPECT_EQ(f.errnum, c.errnum) << c.what;
  }
}

TEST(C06Errors, RefusedCallsChangeNothing) {
  ZemError fail{};
  double trig5[10], x[40];
  c06gzc(5, trig5, &fail);
  for (int i = 0; i < 40; ++i) x[i] = i;
  c06fpc(5, 8, x, trig5, &fail);  // a table for another length
  EXPECT_EQ(fail.code, NE_C06_NOT_TRIG);
  for (int i = 0; i < 40; ++i) EXPECT_EQ(x[i], i);
  c06eac(23, x, &fail);
  for (int i = 0; i < 23; ++i) EXPECT_EQ(x[i], i);
  // A product of counts that wraps around in 32 bits: success, nothing done.
  c06gqc(65536, 65536, x, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_STREQ(fail.message, "NE_NOERROR:\n  No error.");
  for (int i = 0; i < 40; ++i) EXPECT_EQ(x[i], i);
  // Lengths of one: refused by the single-sequence routines, accepted by
  // the others.
  c06ecc(1, x, x + 1, &fail);
  EXPECT_EQ(fail.code, NE_INT_ARG_LE);
  double t1[2];
  c06gzc(1, t1, &fail);
  c06fpc(3, 1, x, t1, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(x[1], 1.0);
}

TEST(C06ErrorsDeathTest, NoRecordAborts) {
  double x[4] = {};
  EXPECT_DEATH(c06eac(1, x, nullptr), "Program Aborted");
}

}  // namespace
