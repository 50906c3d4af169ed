// c02afc and c02agc: zeros of polynomials against high-precision references,
// backward errors, scaling, the mark of unset places, and argument errors.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "test_c02_data.hpp"
#include "zem/c02.h"
#include "zem/x02.h"

namespace {

using c02test::Case;
using c02test::cplx;

const std::vector<Case>& cases() {
  static const std::vector<Case> all = c02test::read_cases("c02_zeros.txt");
  return all;
}

std::vector<ZemComplex> complex_coefficients(const Case& c, int shift = 0) {
  std::vector<ZemComplex> a;
  for (const cplx& v : c.a) a.push_back({std::ldexp(v.real(), shift), std::ldexp(v.imag(), shift)});
  return a;
}

std::vector<double> real_coefficients(const Case& c, int shift = 0) {
  std::vector<double> a;
  for (const cplx& v : c.a) a.push_back(std::ldexp(v.real(), shift));
  return a;
}

std::vector<cplx> as_cplx(const std::vector<ZemComplex>& z) {
  std::vector<cplx> out;
  for (const ZemComplex& v : z) out.emplace_back(v.re, v.im);
  return out;
}

// Runs c02afc (and c02agc for real coefficients) on a case with its
// coefficients multiplied by 2^shift, and returns the zeros of each.
struct Zeros {
  std::vector<cplx> complex_zeros, real_zeros;
};
Zeros run_both(const Case& c, int32_t scale, int shift = 0) {
  Zeros r;
  ZemError fail{};
  std::vector<ZemComplex> z(c.n);
  const std::vector<ZemComplex> ac = complex_coefficients(c, shift);
  c02afc(c.n, ac.data(), scale, z.data(), &fail);
  EXPECT_EQ(fail.code, 0) << c.name << " c02afc: " << fail.message;
  r.complex_zeros = as_cplx(z);
  if (c.real) {
    const std::vector<double> ar = real_coefficients(c, shift);
    c02agc(c.n, ar.data(), scale, z.data(), &fail);
    EXPECT_EQ(fail.code, 0) << c.name << " c02agc: " << fail.message;
    EXPECT_EQ(std::strncmp(fail.message, "NE_NOERROR", 10), 0);
    r.real_zeros = as_cplx(z);
  }
  return r;
}

// Each zero is a zero of the polynomial as given to within the rounding
// bound of its evaluation: |p(z)| at most a few times (n+1) u sum |a_j| |z|^(n-j)
// (Horner's rule in complex arithmetic), so that it lies within about 12
// rounding radii of the reference.
constexpr double kRadii = 16.0;
double backward_limit(int n) { return 16.0 * (n + 1); }

void check(const Case& c, const std::vector<cplx>& z, const std::string& what) {
  c02test::expect_zeros_near(c, z, kRadii, what);
  for (const cplx& x : z)
    EXPECT_LE(c02test::backward_error(c.a, x), backward_limit(c.n))
        << what << " zero (" << x.real() << ", " << x.imag() << ")";
}

// The zeros of a real polynomial come in exact conjugate pairs, stored next
// to each other with the positive imaginary part first.
void check_pairs(const std::vector<cplx>& z, const std::string& what) {
  for (std::size_t i = 0; i < z.size(); ++i) {
    if (z[i].imag() == 0.0) continue;
    ASSERT_LT(i + 1, z.size()) << what;
    EXPECT_GT(z[i].imag(), 0.0) << what;
    EXPECT_EQ(z[i + 1], std::conj(z[i])) << what;
    ++i;
  }
}

TEST(C02Laguerre, ReferenceZeros) {
  ASSERT_GE(cases().size(), 30u);
  for (const Case& c : cases()) {
    for (int32_t scale : {0, 1}) {
      const std::string what = c.name + (scale ? " scaled" : " unscaled");
      const Zeros r = run_both(c, scale);
      check(c, r.complex_zeros, what + " c02afc");
      if (c.real) {
        check(c, r.real_zeros, what + " c02agc");
        check_pairs(r.real_zeros, what + " c02agc");
      }
    }
  }
}

// Multiplying the coefficients by a power of 2 leaves the zeros.  With the
// largest coefficient moved to 2^1022, or the smallest to 2^-1021, both
// settings of scale give them to the same accuracy.
TEST(C02Laguerre, HugeAndTinyCoefficients) {
  for (const char* name : {"random_real20", "random_complex20", "wilkinson10_pow2", "multiple_real",
                           "unity13", "spread", "cluster_complex"}) {
    const Case& c = c02test::find_case(cases(), name);
    int emin = 10000, emax = -10000;
    for (const cplx& v : c.a)
      for (double part : {v.real(), v.imag()})
        if (part != 0.0) {
          emin = std::min(emin, std::ilogb(part));
          emax = std::max(emax, std::ilogb(part));
        }
    for (int shift : {1022 - emax, -1021 - emin}) {
      for (int32_t scale : {0, 1}) {
        const std::string what = std::string(name) + " times 2^" + std::to_string(shift) +
                                 (scale ? " scaled" : " unscaled");
        const Zeros r = run_both(c, scale, shift);
        c02test::expect_zeros_near(c, r.complex_zeros, kRadii, what + " c02afc");
        if (c.real) c02test::expect_zeros_near(c, r.real_zeros, kRadii, what + " c02agc");
      }
    }
  }
}

// Random polynomials of degree up to 300 (no references): every zero has a
// small backward error, and the zeros of a real polynomial pair up.
TEST(C02Laguerre, RandomBackwardErrors) {
  unsigned state = 12345u;
  auto uniform = [&state] {
    state = state * 1664525u + 1013904223u;
    return (state >> 8) * 0x1p-23 - 1.0;
  };
  for (int n : {3, 4, 7, 31, 150, 300}) {
    for (int rep = 0; rep < 4; ++rep) {
      std::vector<double> ar(n + 1);
      std::vector<ZemComplex> ac(n + 1);
      std::vector<cplx> pr(n + 1), pc(n + 1);
      for (int k = 0; k <= n; ++k) {
        ar[k] = uniform();
        ac[k] = {uniform(), uniform()};
        pr[k] = ar[k];
        pc[k] = {ac[k].re, ac[k].im};
      }
      std::vector<ZemComplex> z(n);
      ZemError fail{};
      c02agc(n, ar.data(), 1, z.data(), &fail);
      ASSERT_EQ(fail.code, 0) << fail.message;
      check_pairs(as_cplx(z), "random real");
      for (const ZemComplex& x : z) EXPECT_LE(c02test::backward_error(pr, {x.re, x.im}), backward_limit(n));
      c02afc(n, ac.data(), 1, z.data(), &fail);
      ASSERT_EQ(fail.code, 0) << fail.message;
      for (const ZemComplex& x : z) EXPECT_LE(c02test::backward_error(pc, {x.re, x.im}), backward_limit(n));
    }
  }
}

// A leading coefficient that vanishes when the coefficients are scaled
// gives a zero at infinity, 1/x02akc; trailing zeros give exact zeros.
TEST(C02Laguerre, ZerosAtInfinityAndAtTheOrigin) {
  const double a[] = {0x1p-1074, 0x1p+1000, 0.0, -0x1p+1000, 0.0};
  ZemError fail{};
  ZemComplex z[4];
  c02agc(4, a, 1, z, &fail);
  ASSERT_EQ(fail.code, 0) << fail.message;
  std::vector<double> re;
  for (const ZemComplex& v : z) {
    EXPECT_EQ(v.im, 0.0);
    re.push_back(v.re);
  }
  std::sort(re.begin(), re.end());
  EXPECT_EQ(re[0], -1.0);
  EXPECT_EQ(re[1], 0.0);
  EXPECT_EQ(re[2], 1.0);
  EXPECT_EQ(re[3], 1.0 / x02akc());

  const ZemComplex ac[] = {{0x1p-1074, 0.0}, {0.0, 0x1p+1000}, {0.0, 0.0}};
  ZemComplex zc[2];
  c02afc(2, ac, 1, zc, &fail);
  ASSERT_EQ(fail.code, 0) << fail.message;
  EXPECT_EQ(zc[0].re, 1.0 / x02akc());
  EXPECT_EQ(zc[1].re, 0.0);
  EXPECT_EQ(zc[1].im, 0.0);
}

// A coefficient that is not finite stops the computation with an overflow;
// every place of z keeps the mark -1/(x02akc sqrt 2).
TEST(C02Laguerre, NonFiniteCoefficientKeepsMark) {
  const double mark = -1.0 / (x02akc() * std::sqrt(2.0));
  const double a[] = {1.0, 2.0, NAN, 4.0, 5.0};
  ZemComplex z[4] = {};
  ZemError fail{};
  c02agc(4, a, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_POLY_OVFLOW);
  EXPECT_EQ(std::strncmp(fail.message, "NE_POLY_OVFLOW", 14), 0);
  for (const ZemComplex& v : z) {
    EXPECT_EQ(v.re, mark);
    EXPECT_EQ(v.im, mark);
  }
  const ZemComplex ac[] = {{1.0, 0.0}, {INFINITY, 0.0}, {1.0, 1.0}};
  ZemComplex zc[2] = {};
  c02afc(2, ac, 0, zc, &fail);
  EXPECT_EQ(fail.code, NE_POLY_OVFLOW);
  EXPECT_EQ(zc[1].im, mark);
}

TEST(C02Laguerre, ArgumentErrors) {
  ZemError fail{};
  ZemComplex z[3] = {{7.0, 7.0}, {7.0, 7.0}, {7.0, 7.0}};
  const double a[] = {0.0, 1.0, 2.0, 3.0};
  const ZemComplex ac[] = {{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}, {3.0, 0.0}};

  c02agc(0, a, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_INT_ARG_LT);
  EXPECT_NE(std::strstr(fail.message, "n = 0"), nullptr) << fail.message;
  c02afc(-3, ac, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_INT_ARG_LT);
  EXPECT_NE(std::strstr(fail.message, "n = -3"), nullptr) << fail.message;

  c02agc(3, a, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_REAL_ARG_EQ);
  EXPECT_NE(std::strstr(fail.message, "a[0]"), nullptr) << fail.message;
  c02afc(3, ac, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_COMPLEX_ZERO);
  EXPECT_NE(std::strstr(fail.message, "a[0]"), nullptr) << fail.message;

  c02agc(3, nullptr, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "argument a "), nullptr) << fail.message;
  const double good[] = {1.0, 1.0, 1.0, 1.0};
  c02agc(3, good, 1, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "argument z "), nullptr) << fail.message;
  c02afc(3, nullptr, 1, z, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);

  // The checks come before z is touched.
  for (const ZemComplex& v : z) EXPECT_EQ(v.re, 7.0);
}

TEST(C02LaguerreDeathTest, NullRecordAbortsOnError) {
  const double a[] = {0.0, 1.0};
  ZemComplex z[1];
  EXPECT_DEATH(c02agc(1, a, 1, z, nullptr), "Program Aborted");
  // No report at all on success.
  const double b[] = {2.0, 1.0};
  c02agc(1, b, 1, z, nullptr);
  EXPECT_EQ(z[0].re, -0.5);
}

}  // namespace
