// c02akc and c02alc: zeros of cubics and quartics from the companion matrix
// against high-precision references, the honesty of the error estimates,
// the core's failure record and its mapping to reports.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frame/core_record.hpp"
#include "test_c02_data.hpp"
#include "zem/c02.h"
#include "zem/x02.h"
#include "zeros/c02.hpp"
#include "zeros/poly_companion.hpp"

namespace {

using c02test::Case;
using c02test::cplx;

struct Result {
  double zr[4], zi[4], err[4];
  ZemError fail;
};

Result solve(const std::vector<double>& a) {
  Result r{};
  if (a.size() == 4)
    c02akc(a[0], a[1], a[2], a[3], r.zr, r.zi, r.err, &r.fail);
  else
    c02alc(a[0], a[1], a[2], a[3], a[4], r.zr, r.zi, r.err, &r.fail);
  return r;
}

// Each zero lies within a small multiple of its error estimate of the
// nearest reference zero, and the estimate, u |H|_1 / s_i, is not far above
// the rounding radius that the conditioning of the polynomial allows (a
// multiple zero has both large).  The estimate is normwise, so it can be
// far above the radius of a small zero of a polynomial whose coefficients
// differ greatly in size (the "wide" cases); it is only honest there.
// The zeros sum to -a[1]/a[0] within the sum of the estimates.
TEST(C02Companion, ReferenceZerosAndHonestEstimates) {
  const std::vector<Case> cases = c02test::read_cases("c02_cubic_quartic.txt");
  ASSERT_GE(cases.size(), 20u);
  for (const Case& c : cases) {
    std::vector<double> a;
    for (const cplx& v : c.a) a.push_back(v.real());
    const Result r = solve(a);
    ASSERT_EQ(r.fail.code, 0) << c.name << ": " << r.fail.message;
    EXPECT_EQ(r.fail.errnum, 0);
    const bool wide = c.name.find("wide") != std::string::npos;
    cplx sum = 0.0;
    double sum_err = 0.0;
    for (int i = 0; i < c.n; ++i) {
      const cplx z(r.zr[i], r.zi[i]);
      long double dist = INFINITY;
      double radius = 0.0;
      for (std::size_t j = 0; j < c.zeros.size(); ++j) {
        const long double d = std::abs(c02test::lcplx(z.real(), z.imag()) - c.zeros[j]);
        if (d < dist) {
          dist = d;
          radius = c.radius[j];
        }
      }
      EXPECT_GT(r.err[i], 0.0) << c.name;
      EXPECT_LE(static_cast<double>(dist), 8.0 * r.err[i]) << c.name << " zero " << i;
      if (!wide) {
        EXPECT_LE(r.err[i], 16.0 * radius + 8.0 * x02ajc() * std::max(1.0, std::abs(z)))
            << c.name << " zero " << i;
      }
      sum += z;
      sum_err += r.err[i];
    }
    EXPECT_LE(std::abs(sum + a[1] / a[0]), 8.0 * sum_err + 4.0 * x02ajc() * std::abs(a[1] / a[0]))
        << c.name;
  }
}

TEST(C02Companion, LeadingCoefficientZero) {
  Result r{};
  c02akc(0.0, 1.0, 2.0, 3.0, r.zr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_REAL);
  EXPECT_EQ(r.fail.errnum, 1);
  EXPECT_NE(std::strstr(r.fail.message, "u = 0"), nullptr) << r.fail.message;
  EXPECT_NE(std::strstr(r.fail.message, "u != 0.0"), nullptr) << r.fail.message;

  c02alc(-0.0, 1.0, 2.0, 3.0, 4.0, r.zr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_REAL);
  EXPECT_EQ(r.fail.errnum, 1);
  EXPECT_NE(std::strstr(r.fail.message, "e = 0"), nullptr) << r.fail.message;
  EXPECT_NE(std::strstr(r.fail.message, "e != 0.0"), nullptr) << r.fail.message;
}

// The companion matrix holds the lower coefficients over the leading one.
TEST(C02Companion, CompanionOverflow) {
  Result r{};
  c02akc(1e-300, 0.0, 0.0, 1e300, r.zr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_C02_OVERFLOW);
  EXPECT_EQ(r.fail.errnum, 2);
  c02alc(1.0, 2.0, NAN, 1.0, 1.0, r.zr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_C02_OVERFLOW);
  c02alc(INFINITY, 2.0, 1.0, 1.0, 1.0, r.zr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_C02_OVERFLOW);
}

TEST(C02Companion, NullOutputArrays) {
  Result r{};
  c02akc(1.0, 1.0, 1.0, 1.0, nullptr, r.zi, r.err, &r.fail);
  EXPECT_EQ(r.fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(r.fail.message, "zeror"), nullptr);
  c02alc(1.0, 1.0, 1.0, 1.0, 1.0, r.zr, r.zi, nullptr, &r.fail);
  EXPECT_EQ(r.fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(r.fail.message, "errest"), nullptr);
}

// The core writes "NONE" on entry and, on a failure, its name, the failure
// number, the message number and no values.
TEST(C02Companion, CoreRecord) {
  char rec[zem::core::kRecordLen];
  double zr[3], zi[3], err[3];
  const double ok[] = {1.0, -6.0, 11.0, -6.0};
  EXPECT_EQ(zem::poly::companion_zeros(3, ok, "C02AKF", 'U', zr, zi, err, 1, rec), 0);
  EXPECT_EQ(std::strncmp(rec, "NONE ", 5), 0);
  const double lead0[] = {0.0, -6.0, 11.0, -6.0};
  EXPECT_EQ(zem::poly::companion_zeros(3, lead0, "C02AKF", 'U', zr, zi, err, 1, rec), 1);
  char name[7];
  int ifail = 0, msgno = 0, nvalues = -1;
  ASSERT_EQ(std::sscanf(rec, "%6s %d %d %d", name, &ifail, &msgno, &nvalues), 4);
  EXPECT_STREQ(name, "C02AKF");
  EXPECT_EQ(ifail, 1);
  EXPECT_EQ(msgno, 99999);
  EXPECT_EQ(nvalues, 0);
  const double big[] = {1e-300, 0.0, 0.0, 1e300};
  EXPECT_EQ(zem::poly::companion_zeros(3, big, "C02AKF", 'U', zr, zi, err, 1, rec), 2);
  ASSERT_EQ(std::sscanf(rec, "%6s %d %d", name, &ifail, &msgno), 3);
  EXPECT_EQ(msgno, 99998);
}

// The wrapper's table: each message number of the core to its row, and
// anything it cannot read or does not know to NE_INTERNAL_ERROR, with the
// failure number in errnum in every case.
TEST(C02Companion, RecordMapping) {
  const zem::c02::Leading lead{"u", "u != 0.0"};
  struct Row {
    int ifail;
    int msgno;  // 0: leave the record "NONE"
    int code;
  };
  const Row rows[] = {
      {1, 99999, NE_REAL},           {2, 99998, NE_C02_OVERFLOW}, {3, 99997, NE_C02_NOT_CONV},
      {4, 99996, NE_INTERNAL_ERROR}, {7, 12345, NE_INTERNAL_ERROR}, {3, 0, NE_INTERNAL_ERROR},
  };
  for (const Row& row : rows) {
    char rec[zem::core::kRecordLen];
    zem::core::record_none(rec);
    if (row.msgno) zem::core::record_failure(rec, "C02AKF", row.ifail, row.msgno, {});
    ZemError fail{};
    zem::Call call("c02akc", &fail);
    zem::c02::report_companion(call, row.ifail, rec, lead);
    EXPECT_EQ(fail.code, row.code) << row.msgno;
    EXPECT_EQ(fail.errnum, row.ifail) << row.msgno;
    const char* name = zem::catalogue_name(row.code);
    EXPECT_EQ(std::strncmp(fail.message, name, std::strlen(name)), 0) << fail.message;
  }
  char rec[zem::core::kRecordLen];
  zem::core::record_none(rec);
  ZemError fail{};
  fail.code = 99;
  zem::Call call("c02akc", &fail);
  zem::c02::report_companion(call, 0, rec, lead);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(std::strncmp(fail.message, "NE_NOERROR", 10), 0);
}

// Without a record a failure ends the process through p01acc's abort, and
// a success passes silently.
TEST(C02CompanionDeathTest, NullRecord) {
  double zr[4], zi[4], err[4];
  EXPECT_DEATH(c02akc(0.0, 1.0, 1.0, 1.0, zr, zi, err, nullptr), "Program Aborted");
  EXPECT_DEATH(c02alc(0.0, 1.0, 1.0, 1.0, 1.0, zr, zi, err, nullptr), "NE_REAL");
  c02akc(1.0, -6.0, 11.0, -6.0, zr, zi, err, nullptr);
  double s = zr[0] + zr[1] + zr[2];
  EXPECT_NEAR(s, 6.0, 1e-13);
}

}  // namespace
