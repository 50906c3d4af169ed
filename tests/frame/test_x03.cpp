// The accurate inner product against exact sums, and the control-word pair.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <random>
#include <vector>

#include "zem/x03.h"

namespace {

ZemError quiet() { return ZemError{}; }

TEST(X03aac, CancellationThatPlainSumsLose) {
  ZemError e = quiet();
  double d1, d2;
  // 2^60 + 1 - 2^60 = 1.
  const double a[] = {std::ldexp(1.0, 60), 1.0, -std::ldexp(1.0, 60)};
  const double b[] = {1.0, 1.0, 1.0};
  x03aac(a, 3, b, 3, 3, 1, 1, 0.0, 0.0, &d1, &d2, 0, &e);
  EXPECT_EQ(d1, 0.0);
  EXPECT_EQ(d2, 0.0);
  x03aac(a, 3, b, 3, 3, 1, 1, 0.0, 0.0, &d1, &d2, 1, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_EQ(d1 + d2, 1.0);
  // (1+2^-30)^2 - (1+2^-29) = 2^-60: only the low part of the product survives.
  const double u = 1.0 + std::ldexp(1.0, -30);
  const double c[] = {u, 1.0 + std::ldexp(1.0, -29)};
  const double d[] = {u, -1.0};
  x03aac(c, 2, d, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, 0, &e);
  EXPECT_EQ(d1, 0.0);
  x03aac(c, 2, d, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, 1, &e);
  EXPECT_EQ(d1, std::ldexp(1.0, -60));
  EXPECT_EQ(d2, 0.0);
}

// Terms m * 2^e with 26-bit m, so that every product is an exact double and
// every value is a multiple of 2^-40 below 2^80: the exact sum fits __int128.
TEST(X03aac, DoubleLengthResultAgainstExactIntegerSums) {
  std::mt19937_64 rng(12345);
  std::uniform_int_distribution<long> mant(-(1L << 26), 1L << 26);
  std::uniform_int_distribution<int> expo(-10, 12);
  ZemError e = quiet();
  for (int trial = 0; trial < 200; ++trial) {
    const int n = 1 + trial % 60;
    const int stepa = 1 + trial % 3, stepb = 1 + trial % 2;
    std::vector<double> a(n * stepa), b(n * stepb);
    __int128 exact = 0;
    long double magnitude = 0;
    for (int i = 0; i < n; ++i) {
      const long ma = mant(rng), mb = mant(rng);
      const int ea = expo(rng), eb = expo(rng);
      a[i * stepa] = std::ldexp(static_cast<double>(ma), ea);
      b[i * stepb] = std::ldexp(static_cast<double>(mb), eb);
      exact += static_cast<__int128>(ma) * mb << (ea + eb + 40);
      magnitude += std::fabs(static_cast<long double>(a[i * stepa]) * b[i * stepb]);
    }
    // Half the trials start from a value that cancels the sum almost
    // completely.
    double c1 = 0.0;
    if (trial % 2) {
      c1 = -static_cast<double>(exact >> 40);
      exact += static_cast<__int128>(c1) * (static_cast<__int128>(1) << 40);
    }
    double d1, d2;
    x03aac(a.data(), n * stepa, b.data(), n * stepb, n, stepa, stepb, c1, 0.0, &d1, &d2, 1, &e);
    ASSERT_EQ(e.code, 0);
    // The error of d1 + d2 in units of 2^-40, computed exactly enough.
    const long double d1u = std::ldexp(static_cast<long double>(d1), 40);
    const __int128 hi = static_cast<__int128>(std::floor(d1u));
    const long double err = static_cast<long double>(exact - hi) - (d1u - static_cast<long double>(hi)) -
                            std::ldexp(static_cast<long double>(d2), 40);
    const long double bound = std::ldexp(4.0L * n * (magnitude + std::fabs(c1)), 40 - 104);
    EXPECT_LE(std::fabs(err), bound) << trial;
  }
}

TEST(X03aac, EmptySumsAndStartingValues) {
  ZemError e = quiet();
  double d1 = -1, d2 = -1;
  x03aac(nullptr, 0, nullptr, 0, 0, 1, 1, 2.5, 7.0, &d1, &d2, 0, &e);
  EXPECT_EQ(d1, 2.5);
  EXPECT_EQ(d2, 0.0);
  x03aac(nullptr, 0, nullptr, 0, 0, 1, 1, 1.0, std::ldexp(1.0, -70), &d1, &d2, 1, &e);
  EXPECT_EQ(d1, 1.0);
  EXPECT_EQ(d2, std::ldexp(1.0, -70));
  const double a[] = {3.0};
  x03aac(a, 1, a, 1, 1, 1, 1, 1.0, std::ldexp(1.0, -70), &d1, &d2, 1, &e);
  EXPECT_EQ(d1, 10.0);
  EXPECT_EQ(d2, std::ldexp(1.0, -70));
}

TEST(X03aac, StepsMustBePositive) {
  ZemError e = quiet();
  double d1, d2;
  const double a[] = {1.0};
  x03aac(a, 1, a, 1, 1, 0, 1, 0.0, 0.0, &d1, &d2, 1, &e);
  EXPECT_EQ(e.code, NE_INT_ARG_LE);
  EXPECT_NE(std::string(e.message).find("stepa"), std::string::npos);
  x03aac(a, 1, a, 1, 1, 1, -2, 0.0, 0.0, &d1, &d2, 1, &e);
  EXPECT_EQ(e.code, NE_INT_ARG_LE);
  EXPECT_NE(std::string(e.message).find("stepb"), std::string::npos);
}

TEST(X03aaw, NearestAnd53BitsStayInForce) {
  const int saved = std::fegetround();
  std::fesetround(FE_UPWARD);
  uint32_t word = 0;
  x03aaw(&word);
  EXPECT_EQ(word & 0x30300u, 0x10000u);
  EXPECT_EQ(std::fegetround(), FE_TONEAREST);
  x03aax(&word);
  EXPECT_EQ(std::fegetround(), FE_TONEAREST);
  // The pair writes whatever word it is given, with the full mask.
  const uint32_t up = (word & ~0x300u) | 0x200u;
  x03aax_(&up);
  EXPECT_EQ(std::fegetround(), FE_UPWARD);
  uint32_t again = 0;
  x03aaw_(&again);
  EXPECT_EQ(again, word);
  std::fesetround(saved);
}

}  // namespace
