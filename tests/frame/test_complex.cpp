// Complex arithmetic against std::complex and against its own identities.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <random>

#include "zem/a02.h"

namespace {

using C = std::complex<double>;
C std_of(ZemComplex z) { return {z.re, z.im}; }
ZemComplex zem_of(C z) { return a02bac(z.real(), z.imag()); }

double rel(C got, C want) { return std::abs(got - want) / std::max(std::abs(want), 1e-300); }

class Values : public testing::Test {
 protected:
  std::mt19937_64 rng{2026};
  std::uniform_real_distribution<double> u{-4.0, 4.0};
  C any() { return {u(rng), u(rng)}; }
};

TEST_F(Values, FieldOperationsAgreeWithStdComplex) {
  for (int i = 0; i < 2000; ++i) {
    const C a = any(), b = any();
    const ZemComplex za = zem_of(a), zb = zem_of(b);
    EXPECT_EQ(a02bbc(za), a.real());
    EXPECT_EQ(a02bcc(za), a.imag());
    EXPECT_EQ(std_of(a02cac(za, zb)), a + b);
    EXPECT_EQ(std_of(a02cbc(za, zb)), a - b);
    EXPECT_LT(rel(std_of(a02ccc(za, zb)), a * b), 4e-16);
    EXPECT_LT(rel(std_of(a02cdc(za, zb)), a / b), 4e-16);
    EXPECT_EQ(std_of(a02cec(za)), -a);
    EXPECT_EQ(std_of(a02cfc(za)), std::conj(a));
    EXPECT_EQ(std_of(a02ejc(za, 2.5)), 2.5 * a);
    EXPECT_EQ(std_of(a02eic(za, -3.0, 99.0)), -3.0 * a);
  }
}

TEST_F(Values, ElementaryFunctionsAgreeWithStdComplex) {
  for (int i = 0; i < 2000; ++i) {
    const C a = any(), b = any();
    const ZemComplex za = zem_of(a);
    EXPECT_NEAR(a02dac(za), std::arg(a), 1e-15);
    EXPECT_LT(std::fabs(a02dbc(za) - std::abs(a)) / std::abs(a), 3e-16);
    EXPECT_LT(rel(std_of(a02dcc(za)), std::sqrt(a)), 4e-16);
    EXPECT_LT(rel(std_of(a02dgc(za)), std::log(a)), 1e-15);
    EXPECT_LT(rel(std_of(a02dhc(za)), std::exp(a)), 1e-15);
    EXPECT_LT(rel(std_of(a02djc(za)), std::sin(a)), 1e-15);
    EXPECT_LT(rel(std_of(a02dkc(za)), std::cos(a)), 1e-15);
    EXPECT_LT(rel(std_of(a02dlc(za)), std::tan(a)), 1e-14);
    EXPECT_LT(rel(std_of(a02dec(za, 1.7)), std::pow(a, 1.7)), 1e-14);
    EXPECT_LT(rel(std_of(a02dfc(za, zem_of(b))), std::pow(a, b)), 1e-13);
  }
}

TEST(Complex, IntegerPowers) {
  const ZemComplex z = a02bac(0.6, -0.8);
  C want = 1.0;
  for (int n = 0; n <= 40; ++n) {
    EXPECT_LT(rel(std_of(a02ddc(z, n)), want), 1e-14) << n;
    EXPECT_LT(rel(std_of(a02ddc(z, -n)), 1.0 / want), 1e-14) << n;
    want *= C(0.6, -0.8);
  }
  const ZemComplex i = a02bac(0.0, 1.0);
  EXPECT_EQ(std_of(a02ddc(i, 2)), C(-1.0, 0.0));
  EXPECT_EQ(std_of(a02ddc(i, -1)), C(0.0, -1.0));
}

TEST(Complex, EdgeCases) {
  // The modulus neither overflows nor underflows where its square would.
  EXPECT_DOUBLE_EQ(a02dbc(a02bac(3e300, 4e300)), 5e300);
  EXPECT_DOUBLE_EQ(a02dbc(a02bac(3e-300, -4e-300)), 5e-300);
  EXPECT_EQ(a02dbc(a02bac(0.0, 0.0)), 0.0);
  EXPECT_EQ(a02dbc(a02bac(-7.0, 0.0)), 7.0);
  // Square roots on and near the branch cut, and of large values.
  EXPECT_EQ(std_of(a02dcc(a02bac(-4.0, 0.0))), C(0.0, 2.0));
  EXPECT_EQ(std_of(a02dcc(a02bac(-4.0, -0.0))), C(0.0, 2.0));
  EXPECT_LT(rel(std_of(a02dcc(a02bac(-4.0, -1e-20))), C(5e-21, -2.0)), 1e-15);
  EXPECT_LT(rel(std_of(a02dcc(a02bac(1e308, 1e308))), std::sqrt(C(1e308, 1e308))), 1e-15);
  EXPECT_EQ(std_of(a02dcc(a02bac(0.0, 0.0))), C(0.0, 0.0));
  // Division by zero is not checked: IEEE arithmetic gives its result.
  const ZemComplex q = a02cdc(a02bac(1.0, 1.0), a02bac(0.0, 0.0));
  EXPECT_FALSE(std::isfinite(q.re) && std::isfinite(q.im));
  // Smith's rule keeps quotients of large values finite.
  EXPECT_LT(rel(std_of(a02cdc(a02bac(1e300, 1e300), a02bac(2e300, 2e300))), C(0.5, 0.0)), 1e-15);
  EXPECT_TRUE(a02cgc(a02bac(1, 2), a02bac(1, 2)));
  EXPECT_FALSE(a02cgc(a02bac(1, 2), a02bac(1, -2)));
  EXPECT_TRUE(a02chc(a02bac(1, 2), a02bac(2, 2)));
  EXPECT_FALSE(a02chc(a02bac(1, 2), a02bac(1, 2)));
}

}  // namespace
