// The transform engine against direct sums in long double, in every layout
// it serves, with both instruction sets; the roots it uses; its plans.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/transforms/c06_direct.hpp"
#include "transforms/engine_api.hpp"
#include "transforms/plan.hpp"
#include "transforms/roots.hpp"

namespace {

using namespace c06test;
namespace fft = zem::fft;

std::vector<const fft::EngineOps*> engines() {
  std::vector<const fft::EngineOps*> e{&fft::engine_baseline()};
  if (fft::engine_avx2()) e.push_back(fft::engine_avx2());
  return e;
}

// Every length up to 64, and mixed lengths with each radix, squares and
// several middle digits (1001 = 7 11 13, 210 = 2 3 5 7), primes 17 and 19
// squared, and a prime beyond the dedicated radices (67).
std::vector<long> lengths() {
  std::vector<long> n;
  for (long i = 1; i <= 64; ++i) n.push_back(i);
  for (long i : {67L, 77L, 81L, 100L, 121L, 125L, 128L, 169L, 210L, 243L, 256L, 289L, 361L, 500L, 1001L, 1024L})
    n.push_back(i);
  return n;
}

// m sequences of length n in one of the layouts of a batch: side by side
// (across: element j of sequence c at j*m + c), or one after another with
// elements `stride` apart.
struct Layout {
  const char* name;
  long m;
  bool interleaved;
  bool across;
  long stride;
  long es() const { return across ? m : stride; }
  long cs(long n) const { return across ? 1 : n * stride; }
};

const Layout kComplexLayouts[] = {
    {"one split", 1, false, false, 1},          {"one interleaved", 1, true, false, 1},
    {"three across split", 3, false, true, 1},  {"five across interleaved", 5, true, true, 1},
    {"two in a row", 2, false, false, 1},       {"one strided", 1, false, false, 3},
};

void check_complex(const fft::EngineOps& ops, long n, const Layout& lay, bool inverse, bool table) {
  const long m = lay.m, es = lay.es(), cs = lay.cs(n);
  const long span = (n - 1) * es + (m - 1) * cs + 1;
  const auto re0 = random_values(span, 7 * n + m), im0 = random_values(span, 11 * n + m);
  std::vector<double> re = re0, im = im0, il(2 * span);
  for (long i = 0; i < span; ++i) {
    il[2 * i] = re0[i];
    il[2 * i + 1] = im0[i];
  }
  const fft::Plan plan = fft::make_plan(n);
  std::vector<double> trig(2 * n), scratch(fft::scratch_doubles(plan, 2 * m) + 1);
  if (table) fft::fill_trig(plan, trig.data());
  const fft::CBatch b = lay.interleaved ? fft::CBatch{il.data(), nullptr, es, m, cs} : fft::CBatch{re.data(), im.data(), es, m, cs};
  const double scale = 1.0 / std::sqrt(static_cast<double>(n));
  ops.complex(plan, b, inverse, table ? trig.data() : nullptr, scale, scratch.data());
  for (long c = 0; c < m; ++c) {
    std::vector<LC> x(n), got(n);
    for (long j = 0; j < n; ++j) {
      const long i = j * es + c * cs;
      x[j] = LC(re0[i], im0[i]);
      got[j] = lay.interleaved ? LC(il[2 * i], il[2 * i + 1]) : LC(re[i], im[i]);
    }
    const auto want = dft(x, inverse ? 1 : -1, 1.0L / std::sqrt(static_cast<long double>(n)));
    ASSERT_LT(rel_rms(got, want), tolerance(n))
        << ops.name << " n=" << n << " " << lay.name << (inverse ? " inverse" : " forward") << (table ? " table" : "");
  }
}

TEST(C06Engine, ComplexTransformsMatchDirectSums) {
  for (const auto* ops : engines())
    for (long n : lengths())
      for (const auto& lay : kComplexLayouts)
        for (bool inverse : {false, true}) check_complex(*ops, n, lay, inverse, (n + lay.m) % 2 == 0);
}

const Layout kRealLayouts[] = {
    {"one", 1, false, false, 1},
    {"four across", 4, false, true, 1},
    {"three in a row", 3, false, false, 1},
    {"one strided", 1, false, false, 2},
};

TEST(C06Engine, RealTransformsMatchDirectSums) {
  for (const auto* ops : engines())
    for (long n : lengths())
      for (const auto& lay : kRealLayouts)
        for (bool table : {false, true}) {
          const long m = lay.m, es = lay.es(), cs = lay.cs(n);
          const long span = (n - 1) * es + (m - 1) * cs + 1;
          const auto x0 = random_values(span, 3 * n + m);
          std::vector<double> x = x0;
          const fft::Plan plan = fft::make_plan(n);
          std::vector<double> trig(2 * n), scratch(fft::scratch_doubles(plan, m) + 1);
          if (table) fft::fill_trig(plan, trig.data());
          ops->real(plan, fft::RBatch{x.data(), es, m, cs}, table ? trig.data() : nullptr,
                    1.0 / std::sqrt(static_cast<double>(n)), scratch.data());
          for (long c = 0; c < m; ++c) {
            std::vector<LC> in(n);
            for (long j = 0; j < n; ++j) in[j] = x0[j * es + c * cs];
            const auto want = dft(in, -1, 1.0L / std::sqrt(static_cast<long double>(n)));
            const auto got = unpack_hermitian(x.data() + c * cs, n, es);
            ASSERT_LT(rel_rms(got, want), tolerance(n)) << ops->name << " n=" << n << " " << lay.name;
          }
        }
}

// A length whose general-radix passes need the caller's scratch (a prime
// beyond the stack's buffers), and one whose middle digits are too large to
// exchange in place (37 and 41).
TEST(C06Engine, LargePrimesUseScratch) {
  for (long n : {257L, 37L * 41L})
    for (const auto* ops : engines()) {
      const fft::Plan plan = fft::make_plan(n);
      ASSERT_GT(fft::scratch_doubles(plan, 2), 0u);
      check_complex(*ops, n, kComplexLayouts[0], false, false);
      check_complex(*ops, n, kComplexLayouts[2], true, true);
    }
}

TEST(C06Roots, WithinAboutOneRoundingOfTheTrueValue) {
  // Orders dividing 8192 come from the table exactly; the others are
  // rotated table roots.
  for (long L : {2L, 3L, 5L, 8L, 12L, 1000L, 8192L, 10935L, 17017L, 1L << 20, 1L << 30, 2147483647L}) {
    const fft::Roots w(L);
    for (long t = 0; t < 2000; ++t) {
      const long j = static_cast<long>((static_cast<unsigned long>(t) * 2654435761UL) % static_cast<unsigned long>(L));
      const auto z = w(j);
      const long double a = -2 * kPi * static_cast<long double>(j) / L;
      EXPECT_LE(std::abs(LC(z.re, z.im) - LC(std::cos(a), std::sin(a))), 3e-16L) << L << " " << j;
    }
  }
}

TEST(C06Plan, DigitsMultiplyToTheLengthAndMirror) {
  for (long n = 1; n <= 20000; ++n) {
    const fft::Plan p = fft::make_plan(n);
    long prod = 1;
    for (int i = 0; i < p.ndig; ++i) {
      prod *= p.dig[i];
      EXPECT_GE(p.dig[i], 2);
    }
    ASSERT_EQ(prod, n);
    for (int i = 0; i < p.nleft; ++i) ASSERT_EQ(p.dig[i], p.dig[p.ndig - 1 - i]) << n;
    ASSERT_EQ(p.ndig, 2 * p.nleft + p.nmid);
    // Lengths that the single-sequence routines accept need no scratch.
    if (fft::check_single(n) == fft::SingleStatus::Ok) {
      ASSERT_EQ(fft::scratch_doubles(p, 2), 0u) << n;
    }
  }
}

TEST(C06Plan, SingleSequenceRules) {
  using S = fft::SingleStatus;
  EXPECT_EQ(fft::check_single(19), S::Ok);
  EXPECT_EQ(fft::check_single(23), S::PrimeTooLarge);
  EXPECT_EQ(fft::check_single(2 * 23), S::PrimeTooLarge);
  EXPECT_EQ(fft::check_single(1L << 20), S::Ok);               // ten squares
  EXPECT_EQ(fft::check_single(1L << 21), S::TooManyFactors);   // ten squares and a single
  EXPECT_EQ(fft::check_single((1L << 18) * 9), S::Ok);         // 20 exactly
  EXPECT_EQ(fft::check_single((1L << 18) * 27), S::TooManyFactors);
  EXPECT_EQ(fft::check_single(9699690), S::Ok);                // 2 3 5 7 11 13 17 19
}

TEST(C06Plan, TrialFactorLists) {
  const std::vector<std::pair<long, std::vector<int32_t>>> cases = {
      {1, {1}},       {2, {2}},       {8, {4, 2}},          {12, {4, 3}},     {18, {2, 3, 3}},
      {30, {2, 3, 5}}, {49, {7, 7}},  {396, {4, 3, 3, 11}}, {1024, {4, 4, 4, 4, 4}},
      {2147483647, {2147483647}},     {2 * 3 * 25 * 121, {2, 3, 5, 5, 11, 11}},
  };
  for (const auto& [n, want] : cases) {
    int32_t out[32];
    const int count = fft::trial_factors(n, out);
    ASSERT_EQ(count, static_cast<int>(want.size())) << n;
    for (int i = 0; i < count; ++i) EXPECT_EQ(out[i], want[i]) << n;
    EXPECT_EQ(out[count], 0);
  }
}

}  // namespace
