// Machine constants against their IEEE definitions.
#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>

#include "zem/x01.h"
#include "zem/x02.h"

namespace {

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

TEST(Constants, BitPatterns) {
  EXPECT_EQ(bits(x02ahc()), 0x43F0000000000000ull);
  EXPECT_EQ(bits(x02ajc()), 0x3CA0000000000001ull);
  EXPECT_EQ(bits(x02akc()), 0x0010000000000000ull);
  EXPECT_EQ(bits(x02alc()), 0x7FEFFFFFFFFFFFFFull);
  EXPECT_EQ(x02amc(), x02akc());
  EXPECT_EQ(x02anc(), x02akc());
  EXPECT_EQ(x01aaf_f(nullptr), M_PI);
}

TEST(Constants, MeaningOfTheValues) {
  EXPECT_EQ(x02ahc(), std::ldexp(1.0, 64));
  EXPECT_EQ(x02akc(), DBL_MIN);
  EXPECT_EQ(x02alc(), DBL_MAX);
  // The rounding unit is the smallest value that rounds 1 + u up.
  EXPECT_GT(1.0 + x02ajc(), 1.0);
  EXPECT_EQ(1.0 + std::ldexp(1.0, -53), 1.0);
  EXPECT_EQ(std::nextafter(std::ldexp(1.0, -53), 1.0), x02ajc());
}

TEST(Constants, TableOfDerivedValues) {
  double t[9];
  x02zaz(t);
  EXPECT_EQ(t[0], 2.0);
  EXPECT_EQ(t[1], 53.0);
  EXPECT_EQ(t[2], x02ajc());
  EXPECT_EQ(t[3], std::sqrt(x02ajc()));
  EXPECT_EQ(t[4], x02akc());
  EXPECT_EQ(t[5], std::sqrt(x02akc()));
  EXPECT_EQ(t[6], 1.0 / x02akc());
  EXPECT_EQ(t[7], std::sqrt(1.0 / x02akc()));
  EXPECT_EQ(t[8], 0.0);
}

}  // namespace
