// Elliptic integrals and functions, Legendre functions and zeta: sweeps
// against 50-digit references, identities between the routines, and the
// argument checks.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <string>
#include <vector>

#include "special/sweep.hpp"
#include "zem/s.h"
#include "zem/x02.h"

using zem::test::load_table;
using zem::test::rel_error;
using zem::test::Sweep;

namespace {

ZemError quiet() {
  ZemError e{};
  return e;
}

// Each sweep: one row per case, the error measured relative to the value,
// or absolutely where |value| is below floor.
struct Scalar {
  const char* routine;
  int nargs;
  double floor;
  double bound;
};

double call_scalar(const std::string& r, const zem::test::Case& c, ZemError* f) {
  if (r == "s21bac") return s21bac(c[0], c[1], f);
  if (r == "s21bbc") return s21bbc(c[0], c[1], c[2], f);
  if (r == "s21bcc") return s21bcc(c[0], c[1], c[2], f);
  if (r == "s21bdc") return s21bdc(c[0], c[1], c[2], c[3], f);
  if (r == "s21ccc") return s21ccc(c[1], c[2], static_cast<int32_t>(c[0]), f);
  return s23aac(c[0], f);
}

TEST(S21Sweep, ScalarFunctions) {
  // RJ's principal values pass through zero; theta functions for q near 1
  // are sums of Gaussians whose exponents are known to a relative eps, so
  // their error is measured on the scale of the function's peak.
  const Scalar sweeps[] = {
      {"s21bac", 2, 0.0, 1e-14}, {"s21bbc", 3, 0.0, 1e-14}, {"s21bcc", 3, 0.0, 1e-14},
      {"s21bdc", 4, 1e-2, 1e-14}, {"s21ccc", 3, 1.0, 1e-14}, {"s23aac", 1, 0.0, 1e-14},
  };
  for (const Scalar& s : sweeps) {
    const auto rows = load_table(std::string("s_") + s.routine + ".txt");
    ASSERT_GT(rows.size(), 100u) << s.routine;
    Sweep sw(s.routine, "rel");
    for (const auto& c : rows) {
      ZemError f = quiet();
      const double got = call_scalar(s.routine, c, &f);
      EXPECT_EQ(f.code, 0) << s.routine << " at " << c[0] << ": " << f.message;
      sw.add(rel_error(got, c[s.nargs], s.floor), c[0]);
    }
    sw.print();
    EXPECT_LE(sw.worst, s.bound) << s.routine << " worst at " << sw.at;
  }
}

TEST(S21Sweep, JacobianFunctionsOfRealArgument) {
  // sn and cn have zeros: absolute error below 1.  The phase of the
  // arithmetic-geometric mean grows with the argument (u sqrt(m) for m > 1,
  // u sqrt(1 - m) for m < 0, which reach 170 here); its rounding costs
  // about eps per unit of phase, and the error is counted per 4 units.
  Sweep sw("s21cac", "abs");
  for (const auto& c : load_table("s_s21cac.txt")) {
    ZemError f = quiet();
    double sn, cn, dn;
    s21cac(c[0], c[1], &sn, &cn, &dn, &f);
    ASSERT_EQ(f.code, 0);
    const double e = std::max({rel_error(sn, c[2], 1.0), rel_error(cn, c[3], 1.0), rel_error(dn, c[4], 1.0)});
    const double phase = std::fabs(c[0]) * std::sqrt(std::max({1.0, c[1], 1.0 - c[1]}));
    sw.add(e / std::max(1.0, phase / 4.0), c[0]);
  }
  sw.print();
  EXPECT_LE(sw.worst, 1e-14);
}

double cerr(ZemComplex got, double re, double im) {
  const std::complex<double> g(got.re, got.im), w(re, im);
  return std::abs(g - w) / std::max(1.0, std::abs(w));
}

TEST(S21Sweep, ComplexArgument) {
  Sweep sn_sweep("s21cbc", "rel");
  for (const auto& c : load_table("s_s21cbc.txt")) {
    ZemError f = quiet();
    ZemComplex sn, cn, dn;
    s21cbc(ZemComplex{c[0], c[1]}, c[2], &sn, &cn, &dn, &f);
    ASSERT_EQ(f.code, 0);
    // Near a pole the denominator cn(y|1-m)^2 + m sn(x|m)^2 sn(y|1-m)^2 is
    // small; for m below 1e-8, cn(y|1-m) is near sech(y) and carries an
    // absolute, not relative, error of eps, which near a pole costs up to
    // 1e-12 relative.
    const double e = std::max({cerr(sn, c[3], c[4]), cerr(cn, c[5], c[6]), cerr(dn, c[7], c[8])});
    sn_sweep.add(e, c[0]);
  }
  sn_sweep.print();
  EXPECT_LE(sn_sweep.worst, 1e-12);

  Sweep el("s21dac", "rel");
  for (const auto& c : load_table("s_s21dac.txt")) {
    ZemError f = quiet();
    const ZemComplex v = s21dac(ZemComplex{c[0], c[1]}, c[2], c[3], c[4], &f);
    ASSERT_EQ(f.code, 0) << f.message;
    el.add(cerr(v, c[5], c[6]), c[0]);
  }
  el.print();
  EXPECT_LE(el.worst, 1e-13);
}

TEST(S22Sweep, LegendreBothNormalisations) {
  // Errors on the scale of the normalised function (absolute below 1), the
  // unnormalised values converted through the ratio of the references.
  Sweep sw("s22aac", "rel");
  for (const auto& c : load_table("s_s22aac.txt")) {
    const int32_t m = static_cast<int32_t>(c[0]), nl = static_cast<int32_t>(c[1]);
    const double x = c[2], want1 = c[3], want2 = c[4];
    std::vector<double> p1(nl + 1), p2(nl + 1);
    ZemError f = quiet();
    s22aac(1, x, m, nl, p1.data(), &f);
    ASSERT_EQ(f.code, 0) << f.message;
    s22aac(2, x, m, nl, p2.data(), &f);
    ASSERT_EQ(f.code, 0);
    double e = rel_error(p2[nl], want2, 1.0);
    if (want1 != 0.0) {
      const double norm = std::fabs(want2 / want1);
      e = std::max(e, rel_error(p1[nl] * norm, want2, 1.0));
    } else {
      e = std::max(e, std::fabs(p1[nl]));
    }
    sw.add(e, x);
  }
  sw.print();
  EXPECT_LE(sw.worst, 1e-13);
}

TEST(S21Identities, IntegralsAndFunctionsAgree) {
  ZemError f = quiet();
  // RF(x,x,x) = x^-1/2, RD(x,x,x) = x^-3/2, RC(x,x) = x^-1/2 at the ends of
  // the double range, where the internal scaling is needed.
  for (double x : {1e-300, 0x1p-1000, 1.0, 3e200, 1e300}) {
    EXPECT_NEAR(s21bbc(x, x, x, &f) * std::sqrt(x), 1.0, 4e-16) << x;
    EXPECT_NEAR(s21bac(x, x, &f) * std::sqrt(x), 1.0, 4e-16) << x;
  }
  for (double x : {1e-200, 0x1p-600, 1.0, 3e200}) {
    EXPECT_NEAR(s21bcc(x, x, x, &f) * x * std::sqrt(x), 1.0, 4e-16) << x;
    EXPECT_NEAR(s21bdc(x, x, x, x, &f) * x * std::sqrt(x), 1.0, 4e-16) << x;
  }
  // Legendre's relation with RF and RD: E K' + E' K - K K' = pi/2 at m = 1/2
  // reduces to 2 E K - K^2 = pi/2 with K = RF(0,1/2,1), E = K - RD(0,1/2,1)/6.
  const double K = s21bbc(0.0, 0.5, 1.0, &f), E = K - s21bcc(0.0, 0.5, 1.0, &f) / 6.0;
  EXPECT_NEAR(2 * E * K - K * K, M_PI / 2, 1e-15);
  // sn(K) = 1 and the quarter period of theta: dn(K) = sqrt(1 - m).
  double sn, cn, dn;
  s21cac(K, 0.5, &sn, &cn, &dn, &f);
  EXPECT_NEAR(sn, 1.0, 1e-15);
  EXPECT_NEAR(cn, 0.0, 1e-15);
  EXPECT_NEAR(dn, std::sqrt(0.5), 1e-15);
  // Jacobi's quartic identity theta3^4 = theta2^4 + theta4^4 at x = 0, on
  // both sides of the switch between the series and the transformed sums.
  for (double q : {0.01, 0.04321, 0.04322, 0.3, 0.9, 0.999999}) {
    const double t2 = s21ccc(0.0, q, 2, &f), t3 = s21ccc(0.0, q, 3, &f), t4 = s21ccc(0.0, q, 4, &f);
    EXPECT_NEAR(std::pow(t2, 4) + std::pow(t4, 4), std::pow(t3, 4), 4e-15 * std::pow(t3, 4)) << q;
    EXPECT_EQ(s21ccc(0.3, q, 0, &f), s21ccc(0.3, q, 4, &f));
  }
  // The complex functions on the real axis are the real ones.
  ZemComplex csn, ccn, cdn;
  s21cbc(ZemComplex{1.3, 0.0}, 0.7, &csn, &ccn, &cdn, &f);
  s21cac(1.3, 0.7, &sn, &cn, &dn, &f);
  EXPECT_NEAR(csn.re, sn, 1e-16);
  EXPECT_NEAR(ccn.re, cn, 1e-16);
  EXPECT_NEAR(cdn.re, dn, 1e-16);
  EXPECT_EQ(csn.im, 0.0);
  // el2 with a = b = 1, kc = 1 is arctan z.
  const ZemComplex at = s21dac(ZemComplex{0.4, 0.3}, 1.0, 1.0, 1.0, &f);
  const std::complex<double> ref = std::atan(std::complex<double>(0.4, 0.3));
  EXPECT_NEAR(at.re, ref.real(), 2e-16);
  EXPECT_NEAR(at.im, ref.imag(), 2e-16);
  // zeta at the trivial zeros and at even positive integers.
  EXPECT_EQ(s23aac(-4.0, &f), 0.0);
  EXPECT_NEAR(s23aac(2.0, &f), M_PI * M_PI / 6, 5e-16);
  EXPECT_NEAR(s23aac(0.0, &f), -0.5, 1e-16);
  EXPECT_EQ(f.code, 0);
}

TEST(S21Errors, ArgumentChecksAndLimits) {
  ZemError f = quiet();
  struct Expect {
    double value;
    int code;
  };
  auto check = [&](double got, Expect e, const char* text) {
    EXPECT_EQ(f.code, e.code) << text;
    EXPECT_EQ(got, e.value) << text;
    if (text[0]) {
      EXPECT_NE(std::string(f.message).find(text), std::string::npos) << f.message;
    }
  };
  check(s21bac(-1.0, 1.0, &f), {0.0, NE_REAL_ARG_LT}, "x must not be less than 0.0: x = -1");
  check(s21bac(1.0, 0.0, &f), {0.0, NE_REAL_ARG_EQ}, "y must not be equal to 0.0");
  check(s21bbc(0.0, 0.0, 1.0, &f), {0.0, NE_3_REAL_ARG_CONS}, "at most one of x, y and z is 0.0");
  check(s21bbc(1.0, -2.0, 1.0, &f), {0.0, NE_REAL_ARG_LT}, "y must not be less than 0.0");
  check(s21bcc(1.0, 1.0, 0.0, &f), {0.0, NE_REAL_ARG_LE}, "z must not be less than or equal to 0.0");
  check(s21bcc(0.0, 0.0, 1.0, &f), {0.0, NE_2_REAL_ARG_CONS}, "at most one of x and y is 0.0");
  check(s21bdc(1.0, 1.0, 1.0, 0.0, &f), {0.0, NE_REAL_ARG_EQ}, "r must not be equal to 0.0");
  check(s21bdc(0.0, 1.0, 0.0, 1.0, &f), {0.0, NE_3_REAL_ARG_CONS}, "");
  check(s21ccc(0.5, 1.5, 3, &f), {0.0, NE_REAL}, "0.0 <= q <= 1.0");
  check(s21ccc(0.5, 0.5, 5, &f), {0.0, NE_INT}, "0 <= k <= 4");
  check(s21ccc(0.5, 1.0, 1, &f), {x02alc(), NE_OVERFLOW_LIKELY}, "");
  check(s21ccc(1.0, 1.0, 2, &f), {-x02alc(), NE_OVERFLOW_LIKELY}, "");
  check(s21ccc(0.25, 1.0, 3, &f), {0.0, 0}, "");
  check(s23aac(1.0, &f), {x02alc(), NE_REAL_ARG_EQ}, "sig must not be equal to 1.0");
  // zeta(-263.5) is about +1e313 and zeta(-265.5) about -1e317.
  check(s23aac(-263.5, &f), {x02alc(), NE_OVERFLOW_LIKELY}, "");
  check(s23aac(-265.5, &f), {-x02alc(), NE_OVERFLOW_LIKELY}, "");
  double p[4];
  s22aac(3, 0.5, 0, 2, p, &f);
  EXPECT_EQ(f.code, NE_INT);
  EXPECT_NE(std::string(f.message).find("mode = 1 or 2"), std::string::npos);
  s22aac(1, 1.5, 0, 2, p, &f);
  EXPECT_NE(std::string(f.message).find("abs(x) <= 1.0"), std::string::npos);
  s22aac(1, 0.5, 0, -1, p, &f);
  EXPECT_NE(std::string(f.message).find("nl >= 0"), std::string::npos);
  s22aac(1, 0.5, 0, 2, nullptr, &f);
  EXPECT_EQ(f.code, NE_BAD_PARAM);
  // Overflow of the unnormalised functions: P_200^150(0) is about 1e430.
  std::vector<double> big(51);
  s22aac(1, 0.0, 150, 50, big.data(), &f);
  EXPECT_EQ(f.code, NE_OVERFLOW_LIKELY);
  s22aac(2, 0.0, 150, 50, big.data(), &f);
  EXPECT_EQ(f.code, 0);
  EXPECT_TRUE(std::isfinite(big[50]));
  ZemComplex sn, cn, dn;
  s21cbc(ZemComplex{1.0, 0.0}, 1.5, &sn, &cn, &dn, &f);
  EXPECT_EQ(f.code, NE_REAL);
  const ZemComplex z = s21dac(ZemComplex{1e60, 0.0}, 0.5, 1.0, 1.0, &f);
  EXPECT_EQ(f.code, NE_COMPLEX);
  EXPECT_EQ(z.re, 0.0);
  s21dac(ZemComplex{0.0, 1.0}, 0.5, 1.0, 2.0, &f);
  EXPECT_EQ(f.code, NE_INFINITE);
}

}  // namespace
