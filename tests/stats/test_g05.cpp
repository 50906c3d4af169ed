// The g05 uniform generators: the stored-state family against reference
// sequences computed on 15-bit digits (tools/g05_reference.py), its
// per-thread behaviour, save and restore; the seed-array family; the
// quasi-random sequences against GSL, against the net properties of their
// constructions, and on every failure row.
#include <gsl/gsl_qrng.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "stats/quasi.hpp"
#include "stats/random.hpp"
#include "zem/g05.h"
#include "zem/x02.h"

namespace {

// ---------------------------------------------------------------------------
// Reference data: name count values..., doubles in hexadecimal.

struct Reference {
  std::map<std::string, std::vector<std::string>> records;
  std::vector<double> doubles(const std::string& name) const {
    std::vector<double> v;
    for (const auto& t : at(name)) v.push_back(std::strtod(t.c_str(), nullptr));
    return v;
  }
  std::vector<std::int64_t> ints(const std::string& name) const {
    std::vector<std::int64_t> v;
    for (const auto& t : at(name)) v.push_back(std::strtoll(t.c_str(), nullptr, 10));
    return v;
  }
  const std::vector<std::string>& at(const std::string& name) const {
    static const std::vector<std::string> empty;
    auto it = records.find(name);
    EXPECT_NE(it, records.end()) << "no reference record " << name;
    return it == records.end() ? empty : it->second;
  }
};

const Reference& reference() {
  static const Reference ref = [] {
    Reference r;
    std::ifstream in(std::string(ZEM_TEST_DATA) + "/g05_sequences.txt");
    std::string line;
    while (std::getline(in, line)) {
      if (line.empty() || line[0] == '#') continue;
      std::istringstream ss(line);
      std::string name;
      std::size_t n = 0;
      ss >> name >> n;
      std::vector<std::string> vals(n);
      for (auto& v : vals) ss >> v;
      r.records[name] = vals;
    }
    return r;
  }();
  return ref;
}

ZemError quiet() {
  ZemError e;
  std::memset(&e, 0, sizeof e);
  return e;
}

// Runs f on a thread of its own, which starts with a fresh stored state.
template <class F>
void on_fresh_thread(F f) {
  std::thread t(f);
  t.join();
}

std::vector<double> draws(int n) {
  std::vector<double> v(n);
  for (auto& x : v) x = g05cac();
  return v;
}

void expect_same_bits(const std::vector<double>& got, const std::vector<double>& want,
                      const std::string& what) {
  ASSERT_EQ(got.size(), want.size()) << what;
  for (std::size_t i = 0; i < got.size(); ++i)
    ASSERT_EQ(std::memcmp(&got[i], &want[i], sizeof(double)), 0)
        << what << " value " << i << ": " << got[i] << " vs " << want[i];
}

// ---------------------------------------------------------------------------
// The digit arithmetic: the schoolbook product on 15-bit digits in 32-bit
// integers, carries by arithmetic shift, as the state's storage format
// defines it.

void mul_digits(std::int32_t x[4], const std::int32_t a[4]) {
  std::int32_t out[4];
  std::int32_t carry = 0;
  for (int i = 0; i < 4; ++i) {
    std::int32_t s = carry;
    for (int j = 0; j <= i; ++j) s += x[j] * a[i - j];
    out[i] = s & 0x7fff;
    carry = s >> 15;
  }
  std::memcpy(x, out, sizeof out);
}

double digit_value(const std::int32_t d[4]) {
  const double hi = d[3] * 32768.0 + d[2], lo = d[1] * 32768.0 + d[0];
  const double v = lo * std::ldexp(1.0, -60) + hi * std::ldexp(1.0, -30);
  return std::min(v, 1.0 - x02ajc());
}

// A refill done wholly on digits, on a copy of the state.
void digit_refill(zem::rng::GeneratorThreadState& s, bool rebuild) {
  for (int k = 1; k <= 63; ++k) {
    std::int32_t x[4];
    const int from = rebuild ? k - 1 : k;
    for (int d = 0; d < 4; ++d) x[d] = s.digits[d][from];
    mul_digits(x, rebuild ? zem::rng::kMultiplierDigits : zem::rng::kBatchMultiplierDigits);
    for (int d = 0; d < 4; ++d) s.digits[d][k] = x[d];
    s.batch[k - 1] = digit_value(x);
  }
  s.batch_position = 0;
}

TEST(G05Digits, IntegerPathMatchesDigitArithmetic) {
  // Every reachable state (x = 2 mod 4) along several orbits, both
  // multipliers, including states with every digit at its maximum.
  std::vector<std::uint64_t> starts = {2, 6, (zem::rng::kMask60 & ~std::uint64_t{1}) - 0,
                                       0x7fff7fff7fff7ffeull & zem::rng::kMask60, 0x123456789abcdeull};
  for (std::uint64_t x : starts) {
    x = (x & ~std::uint64_t{3}) | 2;
    for (int step = 0; step < 20000; ++step) {
      std::int32_t d[4];
      zem::rng::unpack(x, d[0], d[1], d[2], d[3]);
      std::int32_t e[4];
      std::memcpy(e, d, sizeof d);
      mul_digits(d, zem::rng::kMultiplierDigits);
      mul_digits(e, zem::rng::kBatchMultiplierDigits);
      const std::uint64_t y = (x * zem::rng::kMultiplier) & zem::rng::kMask60;
      const std::uint64_t z = (x * zem::rng::kBatchMultiplier) & zem::rng::kMask60;
      ASSERT_EQ(zem::rng::pack(d[0], d[1], d[2], d[3]), y);
      ASSERT_EQ(zem::rng::pack(e[0], e[1], e[2], e[3]), z);
      ASSERT_EQ(digit_value(d), zem::rng::to_value(y, 1.0 - x02ajc()));
      ASSERT_EQ(y & 3, 2u);
      x = step % 2 ? y : z;
    }
  }
  // a^63 mod 2^59 is what 63 single steps give.
  std::uint64_t x = 2;
  for (int i = 0; i < 63; ++i) x = (x * zem::rng::kMultiplier) & zem::rng::kMask60;
  EXPECT_EQ(x, (2 * zem::rng::kBatchMultiplier) & zem::rng::kMask60);
}

TEST(G05Digits, RefillMatchesDigitRefill) {
  on_fresh_thread([] {
    g05cbc(99991);
    zem::rng::GeneratorThreadState& s = zem::rng::thread_state();
    for (int round = 0; round < 50; ++round) {
      zem::rng::GeneratorThreadState copy = s;
      const bool rebuild = round % 7 == 0;
      zem::rng::refill(s, rebuild);
      digit_refill(copy, rebuild);
      ASSERT_EQ(std::memcmp(s.digits, copy.digits, sizeof s.digits), 0) << round;
      ASSERT_EQ(std::memcmp(s.batch, copy.batch, sizeof s.batch), 0) << round;
    }
  });
}

// ---------------------------------------------------------------------------
// The stored family against the reference.

TEST(G05Stored, FreshThreadAndResetFollowTheReference) {
  const auto want = reference().doubles("fresh");
  on_fresh_thread([&] { expect_same_bits(draws(200), want, "fresh thread"); });
  on_fresh_thread([&] {
    g05cbc(5);
    draws(17);
    g05cxc();
    expect_same_bits(draws(200), want, "after g05cxc");
  });
}

TEST(G05Stored, BatchReadsForSamplers) {
  const auto want = reference().doubles("fresh");
  on_fresh_thread([&] {
    // A run read straight from the batch continues the stream of g05cac
    // and leaves the position where the next call expects it.
    std::vector<double> got(150);
    got[0] = g05cac();
    zem::rng::fill_stored(120, got.data() + 1);
    for (int i = 121; i < 150; ++i) got[i] = g05cac();
    got.resize(150);
    expect_same_bits(got, std::vector<double>(want.begin(), want.begin() + 150), "batch reads");
    int32_t status = -1;
    double* batch = nullptr;
    g05caz(&status, nullptr, nullptr, &batch, nullptr);
    EXPECT_EQ(status, 0);
    int32_t position = -1;
    std::memcpy(&position, batch + 63, sizeof position);  // the batch's 64th slot
    EXPECT_EQ(position, 150 % 63);
    EXPECT_EQ(batch[position], want[150]);
  });
}

TEST(G05Stored, SeedsFollowTheReference) {
  for (std::int64_t seed : {0ll, 7ll, -7ll, 1762543ll, 123456789ll, 2147483647ll, -2147483648ll}) {
    const auto want = reference().doubles("seed_" + std::to_string(seed));
    on_fresh_thread([&] {
      g05cbc(static_cast<int32_t>(seed));
      expect_same_bits(draws(130), want, "seed " + std::to_string(seed));
    });
  }
  // The sign of a seed does not matter; 0 starts from x0 = 2.
  expect_same_bits(reference().doubles("seed_7"), reference().doubles("seed_-7"), "seed -7");
  on_fresh_thread([] {
    g05cbc(0);
    std::int32_t* digits = nullptr;
    g05caz(nullptr, &digits, nullptr, nullptr, nullptr);
    EXPECT_EQ(digits[0], 2);
    EXPECT_EQ(digits[64] + digits[128] + digits[192], 0);
  });
}

TEST(G05Stored, SaveMidBatchAndRestore) {
  const auto& ref = reference();
  on_fresh_thread([&] {
    g05cbc(271828);
    draws(100);
    int32_t istate[9];
    double xstate[4];
    g05cfc(istate, xstate);
    const auto want_i = ref.ints("save_istate_271828_100");
    const auto want_x = ref.doubles("save_xstate_271828_100");
    for (int i = 0; i < 9; ++i) EXPECT_EQ(istate[i], want_i[i]) << i;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(xstate[i], want_x[i]) << i;
    const auto after = draws(100);
    expect_same_bits(after, ref.doubles("after_save_271828_100"), "after save");
    ZemError fail = quiet();
    g05cgc(istate, xstate, &fail);
    ASSERT_EQ(fail.code, 0);
    expect_same_bits(draws(100), after, "after restore");
  });
  on_fresh_thread([&] {
    int32_t istate[9];
    double xstate[4];
    g05cfc(istate, xstate);
    const auto want = ref.ints("save_istate_default");
    for (int i = 0; i < 9; ++i) EXPECT_EQ(istate[i], want[i]) << i;
  });
}

TEST(G05Stored, RestoreBringsBackThePendingValues) {
  on_fresh_thread([] {
    g05cbc(42);
    double* pending = nullptr;
    double* normal = nullptr;
    g05caz(nullptr, nullptr, &pending, nullptr, &normal);
    pending[0] = 0.625;
    pending[1] = 0.75;
    *normal = -1.25;
    int32_t istate[9];
    double xstate[4];
    g05cfc(istate, xstate);
    EXPECT_EQ(xstate[1], -1.25);
    const auto after = draws(100);
    g05cbc(42);  // a seed clears the pending values
    double got[2];
    get_bg05ca(got);
    EXPECT_EQ(got[0], 1.0);
    EXPECT_EQ(got[1], -1.0);
    EXPECT_EQ(get_dg05ca(), 256.0);
    ZemError fail = quiet();
    g05cgc(istate, xstate, &fail);
    ASSERT_EQ(fail.code, 0);
    get_bg05ca(got);
    EXPECT_EQ(got[0], 0.625);
    EXPECT_EQ(got[1], 0.75);
    EXPECT_EQ(get_dg05ca(), -1.25);
    expect_same_bits(draws(100), after, "after restore");
  });
}

TEST(G05Stored, AlteredSavedStateIsCorrupt) {
  on_fresh_thread([] {
    g05cbc(1234);
    draws(10);
    int32_t istate[9];
    double xstate[4];
    g05cfc(istate, xstate);
    const auto after = draws(5);
    for (int i = 1; i <= 8; ++i) {
      int32_t bad[9];
      std::memcpy(bad, istate, sizeof bad);
      bad[i] += 1;
      ZemError fail = quiet();
      g05cgc(bad, xstate, &fail);
      EXPECT_EQ(fail.code, NE_STATE_CORRUPT) << "istate " << i;
    }
    for (int i = 1; i <= 3; ++i) {
      double bad[4];
      std::memcpy(bad, xstate, sizeof bad);
      bad[i] += 0.5;
      ZemError fail = quiet();
      g05cgc(istate, bad, &fail);
      EXPECT_EQ(fail.code, NE_STATE_CORRUPT) << "xstate " << i;
      bad[i] = NAN;
      g05cgc(istate, bad, &fail);
      EXPECT_EQ(fail.code, NE_STATE_CORRUPT) << "xstate NaN " << i;
    }
    // The failed restores left the state alone; a good one still works.
    ZemError fail = quiet();
    g05cgc(istate, xstate, &fail);
    EXPECT_EQ(fail.code, 0);
    expect_same_bits(draws(5), after, "after good restore");
    g05cgc(nullptr, xstate, &fail);
    EXPECT_EQ(fail.code, NE_BAD_PARAM);
  });
}

TEST(G05Stored, ThreadsKeepTheirOwnStreams) {
  const auto want = reference().doubles("fresh");
  std::vector<double> a, b, c;
  std::thread t1([&] { a = draws(200); });
  std::thread t2([&] {
    b = draws(100);
    g05cbc(77);
    draws(1000);
  });
  std::thread t3([&] {
    for (int i = 0; i < 200; ++i) {
      c.push_back(g05cac());
      std::this_thread::yield();
    }
  });
  t1.join();
  t2.join();
  t3.join();
  expect_same_bits(a, want, "thread 1");
  expect_same_bits(c, want, "thread 3, beside a seeding thread");
  b.resize(200);
  for (int i = 100; i < 200; ++i) b[i] = want[i];
  expect_same_bits(b, want, "thread 2 before its seed");
}

TEST(G05Stored, ClockSeedsDifferWithinOneSecond) {
  on_fresh_thread([] {
    g05ccc();
    const auto first = draws(10);
    g05ccc();
    const auto second = draws(10);
    EXPECT_NE(first, second);
    for (double v : first) EXPECT_TRUE(v > 0.0 && v < 1.0);
  });
}

TEST(G05Stored, ValuesStayInsideTheOpenInterval) {
  on_fresh_thread([] {
    g05cbc(31337);
    double lo = 1.0, hi = 0.0, sum = 0.0;
    const int n = 1 << 20;
    for (int i = 0; i < n; ++i) {
      const double v = g05cac();
      lo = std::min(lo, v);
      hi = std::max(hi, v);
      sum += v;
    }
    EXPECT_GT(lo, 0.0);
    EXPECT_LE(hi, 1.0 - x02ajc());
    EXPECT_NEAR(sum / n, 0.5, 5.0 * std::sqrt(1.0 / 12.0 / n));
  });
  // The largest state value is clipped below 1.
  EXPECT_EQ(zem::rng::to_value(zem::rng::kMask60 - 1, 1.0 - x02ajc()), 1.0 - x02ajc());
}

// ---------------------------------------------------------------------------
// The seed-array family.

TEST(G05SeedArray, BasicGeneratorFollowsTheReference) {
  const auto& ref = reference();
  for (int seed : {1762543, 0, -99}) {
    const std::string s = std::to_string(seed);
    int32_t igen = -3, iseed[4] = {seed, 11, 22, 33};
    g05kbc(&igen, iseed);
    EXPECT_EQ(igen, 0);
    const auto digits = ref.ints("kbc_basic_" + s);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(iseed[i], digits[i]) << s;
    int32_t copy[4];
    std::memcpy(copy, iseed, sizeof copy);
    std::vector<double> got(100);
    for (auto& v : got) v = g05kac(0, iseed);
    const auto want = ref.doubles("kac_basic_" + s);
    expect_same_bits(got, want, "g05kac basic " + s);
    // The vector form of the basic generator is the scalar step repeated.
    std::vector<double> vec(100);
    zem::rng::fill_uniform(0, copy, 100, vec.data());
    expect_same_bits(vec, want, "vector basic " + s);
    EXPECT_EQ(std::memcmp(copy, iseed, sizeof copy), 0);
  }
}

TEST(G05SeedArray, WichmannHillScalarAndVectorForms) {
  const auto& ref = reference();
  for (int g : {1, 2, 137, 273}) {
    const std::string s = std::to_string(g);
    int32_t igen = g, iseed[4] = {1762543, 9324783, 42344, 742355};
    g05kbc(&igen, iseed);
    EXPECT_EQ(igen, g);
    int32_t copy[4];
    std::memcpy(copy, iseed, sizeof copy);
    std::vector<double> got(100), vec(100);
    for (auto& v : got) v = g05kac(igen, iseed);
    expect_same_bits(got, ref.doubles("kac_wh_" + s), "g05kac igen " + s);
    zem::rng::fill_uniform(igen, copy, 100, vec.data());
    expect_same_bits(vec, ref.doubles("vec_wh_" + s), "vector igen " + s);
    const auto state = ref.ints("vec_wh_" + s + "_state");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(copy[i], state[i]);
    // Same states, different summation order and offset: close, not equal.
    for (int i = 0; i < 100; ++i) EXPECT_NEAR(vec[i], got[i], 16 * x02ajc()) << i;
  }
}

TEST(G05SeedArray, NormalisationOfIgenAndSeeds) {
  struct Case {
    int32_t igen_in, igen_out;
  };
  for (const Case& c : {Case{274, 1}, Case{273, 273}, Case{1, 1}, Case{547, 1}, Case{-4, 0},
                        Case{0, 0}}) {
    int32_t igen = c.igen_in, iseed[4] = {5, 6, 7, 8};
    g05kbc(&igen, iseed);
    EXPECT_EQ(igen, c.igen_out) << c.igen_in;
  }
  int32_t igen = 5, iseed[4] = {0, -5, 16909321, 2147483647};
  g05kbc(&igen, iseed);
  const auto want = reference().ints("kbc_fold");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(iseed[i], want[i]) << i;
  EXPECT_EQ(iseed[0], 2);
}

TEST(G05SeedArray, ClockSeeds) {
  const auto v = reference().ints("clock_seed");
  const auto& raw = reference().at("clock_seed");
  for (std::size_t i = 0; i + 9 <= v.size(); i += 9) {
    zem::rng::ClockReading t{static_cast<int>(v[i]),     static_cast<int>(v[i + 1]),
                             static_cast<int>(v[i + 2]), static_cast<int>(v[i + 3]),
                             static_cast<int>(v[i + 4]), static_cast<int>(v[i + 5]),
                             std::strtod(raw[i + 6].c_str(), nullptr)};
    EXPECT_EQ(zem::rng::clock_seed_from(t, static_cast<int32_t>(v[i + 7])), v[i + 8]) << i / 9;
  }
  for (int k = 0; k < 1100; k += 37) {
    const int32_t s = clock_seed(k);
    EXPECT_TRUE(s >= 0 && s <= 16909320) << s;
  }
  for (int32_t g : {0, 1, 300}) {
    int32_t igen = g, iseed[4] = {0, 0, 0, 0};
    g05kcc(&igen, iseed);
    if (g == 0) {
      EXPECT_EQ(igen, 0);
      for (int i = 0; i < 4; ++i) EXPECT_TRUE(iseed[i] >= 0 && iseed[i] < 32768);
    } else {
      EXPECT_EQ(igen, zem::rng::wichmann_hill_row(g));
    }
    const double u = g05kac(igen, iseed);
    EXPECT_TRUE(u >= 0.0 && u < 1.0);
  }
}

TEST(G05SeedArray, WichmannHillTableFollowsItsRules) {
  auto prime = [](std::int64_t n) {
    for (std::int64_t f = 2; f * f <= n; ++f)
      if (n % f == 0) return false;
    return true;
  };
  const zem::rng::WichmannHillRow& first = zem::rng::kWichmannHill[0];
  const zem::rng::WichmannHillRow& last = zem::rng::kWichmannHill[272];
  EXPECT_EQ(first.a[0], 125);
  EXPECT_EQ(first.m[3], 16770617);
  EXPECT_EQ(zem::rng::kWichmannHill[1].m[0], 16770311);
  EXPECT_EQ(zem::rng::kWichmannHill[2].a[1], 119);
  EXPECT_EQ(last.a[3], 124);
  EXPECT_EQ(last.m[3], 16766231);
  std::vector<std::int32_t> moduli;
  for (const auto& r : zem::rng::kWichmannHill)
    for (int i = 0; i < 4; ++i) {
      EXPECT_TRUE(r.a[i] >= 112 && r.a[i] <= 127);
      EXPECT_TRUE(r.m[i] >= 16718909 && r.m[i] <= 16776971 && prime(r.m[i])) << r.m[i];
      EXPECT_LT(static_cast<std::int64_t>(r.a[i]) * (r.m[i] - 1), std::int64_t{1} << 31);
      moduli.push_back(r.m[i]);
    }
  std::sort(moduli.begin(), moduli.end());
  EXPECT_EQ(std::adjacent_find(moduli.begin(), moduli.end()), moduli.end());
}

TEST(G05SeedArray, BernoulliDraws) {
  int32_t igen = 3, iseed[4] = {11, 22, 33, 44};
  g05kbc(&igen, iseed);
  ZemError fail = quiet();
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(g05kec(0.0, igen, iseed, &fail), 0);
    EXPECT_EQ(g05kec(1.0, igen, iseed, &fail), 1);
  }
  for (int32_t g : {0, igen}) {
    int32_t s[4] = {12345, 2, 3, 4};
    g05kbc(&g, s);
    int hits = 0;
    const int n = 100000;
    for (int i = 0; i < n; ++i) hits += g05kec(0.3, g, s, &fail);
    EXPECT_NEAR(hits / double(n), 0.3, 5.0 * std::sqrt(0.21 / n)) << g;
  }
  // A refused p draws nothing.
  int32_t before[4];
  std::memcpy(before, iseed, sizeof before);
  for (double p : {-0.5, 1.5, double(NAN)}) {
    fail = quiet();
    EXPECT_EQ(g05kec(p, igen, iseed, &fail), 0);
    EXPECT_EQ(fail.code, NE_REAL);
    EXPECT_NE(std::strstr(fail.message, "On entry, p < 0.0 or p > 1.0: p ="), nullptr) << fail.message;
    EXPECT_EQ(std::memcmp(before, iseed, sizeof before), 0);
  }
  fail = quiet();
  g05kec(0.5, igen, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "iseed"), nullptr);
}

// ---------------------------------------------------------------------------
// Quasi-random sequences.

using Record = std::vector<int32_t>;

struct Quasi {
  int32_t seq, idim;
  Record gf = Record(zem::quasi::kRecordWords, 0);
  std::vector<double> x;
  Quasi(int32_t s, int32_t d, int32_t iskip = 0) : seq(s), idim(d), x(d) {
    ZemError fail = quiet();
    g05yac(Zem_QuasiRandom_Init, seq, iskip, idim, x.data(), gf.data(), &fail);
    EXPECT_EQ(fail.code, 0) << fail.message;
  }
  ~Quasi() {
    ZemError fail = quiet();
    g05yac(Zem_QuasiRandom_Finish, seq, 0, idim, x.data(), gf.data(), &fail);
  }
  const std::vector<double>& next() {
    ZemError fail = quiet();
    g05yac(Zem_QuasiRandom_Cont, seq, 0, idim, x.data(), gf.data(), &fail);
    EXPECT_EQ(fail.code, 0) << fail.message;
    return x;
  }
};

TEST(G05Quasi, SobolMatchesGslInAllDimensions) {
  Quasi q(Zem_QuasiRandom_Sobol, 40);
  gsl_qrng* g = gsl_qrng_alloc(gsl_qrng_sobol, 40);
  std::vector<double> want(40);
  for (int n = 0; n < 20000; ++n) {
    gsl_qrng_get(g, want.data());
    const auto& got = q.next();
    for (int d = 0; d < 40; ++d) ASSERT_EQ(got[d], want[d]) << "point " << n << " dim " << d;
  }
  gsl_qrng_free(g);
}

TEST(G05Quasi, NiederreiterMatchesGslToThirtyBits) {
  // GSL carries 31 bits; the leading 30 of its generator matrices are ours.
  Quasi q(Zem_QuasiRandom_Nied, 12);
  gsl_qrng* g = gsl_qrng_alloc(gsl_qrng_niederreiter_2, 12);
  std::vector<double> want(12);
  for (int n = 0; n < 20000; ++n) {
    gsl_qrng_get(g, want.data());
    const auto& got = q.next();
    for (int d = 0; d < 12; ++d)
      ASSERT_EQ(got[d], std::floor(std::ldexp(want[d], 30)) * 0x1p-30) << "point " << n << " dim " << d;
  }
  gsl_qrng_free(g);
}

TEST(G05Quasi, VanDerCorputAndSkips) {
  Quasi q(Zem_QuasiRandom_Sobol, 1);
  for (double want : {0.5, 0.75, 0.25, 0.375, 0.875, 0.625, 0.125}) EXPECT_EQ(q.next()[0], want);
  Quasi n(Zem_QuasiRandom_Nied, 1);
  for (double want : {0.0, 0.5, 0.75, 0.25}) EXPECT_EQ(n.next()[0], want);
  // Init with a skip lands where stepping does.
  for (int32_t seq : {Zem_QuasiRandom_Sobol, Zem_QuasiRandom_Nied, Zem_QuasiRandom_Faure}) {
    for (int32_t skip : {1, 5, 64, 1000, 4097}) {
      Quasi stepped(seq, 7), skipped(seq, 7, skip);
      for (int i = 0; i < skip; ++i) stepped.next();
      for (int i = 0; i < 3; ++i) EXPECT_EQ(stepped.next(), skipped.next()) << seq << " " << skip;
    }
  }
}

// Counts of the first 2^m points (from the origin) in each elementary
// dyadic box with side exponents k (sum k = m - t): each box must hold 2^t.
void expect_net(const std::vector<std::vector<double>>& pts, int m, int t, int dims) {
  std::vector<int> k(dims, 0);
  const int target = m - t;
  std::function<void(int, int)> each = [&](int d, int left) {
    if (d == dims - 1) {
      k[d] = left;
      std::map<std::int64_t, int> count;
      for (const auto& p : pts) {
        std::int64_t key = 0;
        for (int i = 0; i < dims; ++i)
          key = (key << k[i]) | static_cast<std::int64_t>(std::ldexp(p[i], k[i]));
        ++count[key];
      }
      ASSERT_EQ(count.size(), std::size_t{1} << target);
      for (const auto& [key, c] : count) ASSERT_EQ(c, 1 << t) << "box " << key;
      return;
    }
    for (int j = 0; j <= left; ++j) {
      k[d] = j;
      each(d + 1, left - j);
    }
  };
  each(0, target);
}

TEST(G05Quasi, DyadicBoxesOfSobolAndNiederreiter) {
  const int m = 12;
  for (int32_t seq : {Zem_QuasiRandom_Sobol, Zem_QuasiRandom_Nied}) {
    Quasi q(seq, 40);
    std::vector<std::vector<double>> pts;
    if (seq == Zem_QuasiRandom_Sobol) pts.push_back(std::vector<double>(40, 0.0));
    while (pts.size() < (1u << m)) pts.push_back(q.next());
    // Dimensions 1..4 have polynomial degrees 1, 1, 2, 3 in both: t = 3.
    expect_net(pts, m, 3, 4);
    expect_net(pts, m, 0, 2);
    // Every Sobol coordinate alone is a (0, m, 1)-net; a Niederreiter
    // coordinate with a polynomial of degree e a (e-1, m, 1)-net.
    for (int d = 0; d < 40; ++d) {
      int t = 0;
      if (seq == Zem_QuasiRandom_Nied)
        while ((zem::quasi::kNiederreiterPolynomials[d] >> (t + 2)) != 0) ++t;
      std::vector<int> bins(1 << (m - t), 0);
      for (const auto& p : pts) ++bins[static_cast<int>(std::ldexp(p[d], m - t))];
      for (int b : bins) ASSERT_EQ(b, 1 << t) << seq << " dim " << d;
    }
  }
}

TEST(G05Quasi, FaureDigitStructure) {
  // Hand-worked points in base 2: n = 1, 2, 3.
  {
    Quasi q(Zem_QuasiRandom_Faure, 2);
    const double want[3][2] = {{0.5, 0.5}, {0.25, 0.75}, {0.75, 0.25}};
    for (const auto& w : want) {
      const auto& p = q.next();
      EXPECT_EQ(p[0], w[0]);
      EXPECT_EQ(p[1], w[1]);
    }
  }
  EXPECT_EQ(zem::quasi::faure_base(2), 2);
  EXPECT_EQ(zem::quasi::faure_base(3), 3);
  EXPECT_EQ(zem::quasi::faure_base(4), 5);
  EXPECT_EQ(zem::quasi::faure_base(8), 11);
  EXPECT_EQ(zem::quasi::faure_base(24), 29);
  EXPECT_EQ(zem::quasi::faure_base(40), 41);
  // A (0, s)-sequence in base b: the block n = b^m .. 2 b^m - 1 puts exactly
  // one point in every elementary b-adic box of volume b^-m.
  for (int idim : {3, 5, 7}) {
    const int b = zem::quasi::faure_base(idim);
    const int m = 3;
    int bm = 1;
    for (int i = 0; i < m; ++i) bm *= b;
    Quasi q(Zem_QuasiRandom_Faure, idim, bm - 1);
    std::vector<std::vector<double>> pts;
    for (int i = 0; i < bm; ++i) pts.push_back(q.next());
    for (int d1 = 0; d1 < idim; ++d1)
      for (int d2 = d1 + 1; d2 < idim; ++d2)
        for (int k1 = 0; k1 <= m; ++k1) {
          const int k2 = m - k1;
          int s1 = 1, s2 = 1;
          for (int i = 0; i < k1; ++i) s1 *= b;
          for (int i = 0; i < k2; ++i) s2 *= b;
          std::vector<int> count(s1 * s2, 0);
          for (const auto& p : pts) {
            const int i1 = static_cast<int>(p[d1] * s1 + 1e-9), i2 = static_cast<int>(p[d2] * s2 + 1e-9);
            ++count[i1 * s2 + i2];
          }
          for (int c : count) ASSERT_EQ(c, 1) << idim << " " << d1 << " " << d2 << " " << k1;
        }
  }
}

TEST(G05Quasi, NormalPointsHaveTheirMoments) {
  const int idim = 4, n = 1 << 14;
  const double xmean[4] = {1.0, -2.0, 0.5, 3.0}, sd[4] = {2.0, 0.5, 1.0, 0.25};
  for (int32_t seq : {Zem_QuasiRandom_Sobol, Zem_QuasiRandom_Nied, Zem_QuasiRandom_Faure}) {
    for (int32_t lnorm : {0, 1}) {
      Record gf(zem::quasi::kRecordWords, 0);
      double x[4];
      ZemError fail = quiet();
      g05ybc(Zem_QuasiRandom_Init, seq, lnorm, xmean, sd, 1, idim, x, gf.data(), &fail);
      ASSERT_EQ(fail.code, 0) << fail.message;
      double s1[4] = {}, s2[4] = {};
      for (int i = 0; i < n; ++i) {
        g05ybc(Zem_QuasiRandom_Cont, seq, lnorm, xmean, sd, 0, idim, x, gf.data(), &fail);
        ASSERT_EQ(fail.code, 0) << fail.message;
        for (int d = 0; d < idim; ++d) {
          const double y = lnorm ? std::log(x[d]) : x[d];
          s1[d] += y;
          s2[d] += y * y;
        }
      }
      g05ybc(Zem_QuasiRandom_Finish, seq, lnorm, xmean, sd, 0, idim, x, gf.data(), &fail);
      for (int d = 0; d < idim; ++d) {
        const double mean = s1[d] / n, var = s2[d] / n - mean * mean;
        EXPECT_NEAR(mean, xmean[d], 0.01 * sd[d]) << seq << " " << d;
        EXPECT_NEAR(std::sqrt(var), sd[d], 0.01 * sd[d]) << seq << " " << d;
      }
    }
  }
}

// ---- Failure rows.

struct Failure {
  const char* what;
  int32_t state, seq, iskip, idim;
  bool null_quasi, null_gf;
  int code;  // 0: the row looked up by name below
  const char* text;
};

TEST(G05Quasi, EveryFailureRowOfG05yac) {
  const Failure cases[] = {
      {"null quasi", Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, 2, true, false, NE_BAD_PARAM, "quasi"},
      {"null gf", Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, 2, false, true, NE_BAD_PARAM, "gf"},
      {"idim 0", Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, 0, false, false, NE_INT,
       "On entry, idim < 1: idim = 0."},
      {"idim 41", Zem_QuasiRandom_Init, Zem_QuasiRandom_Nied, 0, 41, false, false, NE_INT,
       "On entry, idim > 40: idim = 41."},
      {"Faure idim 1", Zem_QuasiRandom_Init, Zem_QuasiRandom_Faure, 0, 1, false, false, NE_INT,
       "On entry, idim < 2: idim = 1."},
      {"state", 1620, Zem_QuasiRandom_Sobol, 0, 2, false, false, NE_BAD_PARAM, "state"},
      {"seq", Zem_QuasiRandom_Init, 1627, 0, 2, false, false, NE_BAD_PARAM, "seq"},
      {"iskip < 0", Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, -1, 2, false, false, NE_INT,
       "On entry, iskip < 0: iskip = -1."},
      {"Sobol skip", Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 1 << 30, 2, false, false, NE_INT,
       "On entry, value of skip too large: iskip = 1073741824."},
      {"Niederreiter skip", Zem_QuasiRandom_Init, Zem_QuasiRandom_Nied, 0x1fffffff, 2, false, false,
       NE_INT, "On entry, value of skip too large: iskip = 536870911."},
      {"Faure skip", Zem_QuasiRandom_Init, Zem_QuasiRandom_Faure, 2147483647, 2, false, false, NE_INT,
       "On entry, value of skip too large: iskip = 2147483647."},
      {"Cont before Init", Zem_QuasiRandom_Cont, Zem_QuasiRandom_Sobol, 0, 2, false, false, NE_PREV_CALL,
       "NE_INITIALISATION:\n    Incorrect initialisation."},
  };
  for (const Failure& c : cases) {
    Record gf(zem::quasi::kRecordWords, 0);
    double x[41];
    ZemError fail = quiet();
    g05yac(c.state, c.seq, c.iskip, c.idim, c.null_quasi ? nullptr : x,
           c.null_gf ? nullptr : gf.data(), &fail);
    EXPECT_EQ(fail.code, c.code) << c.what;
    EXPECT_NE(std::strstr(fail.message, c.text), nullptr) << c.what << ": " << fail.message;
    EXPECT_EQ(gf[zem::quasi::kTagWord], 0) << c.what;  // nothing set up
  }
}

// The code a Faure/Sobol failure after a good Init reports, and its text.
void expect_cont_failure(int32_t seq, int32_t iskip, int conts_ok, const char* text) {
  Record gf(zem::quasi::kRecordWords, 0);
  double x[40];
  ZemError fail = quiet();
  const int32_t idim = 40;
  g05yac(Zem_QuasiRandom_Init, seq, iskip, idim, x, gf.data(), &fail);
  ASSERT_EQ(fail.code, 0) << fail.message;
  for (int i = 0; i < conts_ok; ++i) {
    g05yac(Zem_QuasiRandom_Cont, seq, 0, idim, x, gf.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
  }
  g05yac(Zem_QuasiRandom_Cont, seq, 0, idim, x, gf.data(), &fail);
  EXPECT_NE(fail.code, 0);
  EXPECT_NE(std::strstr(fail.message, text), nullptr) << fail.message;
  EXPECT_EQ(fail.code, seq == Zem_QuasiRandom_Faure ? NE_INTERNAL_ERROR : NE_TOO_MANY);
  // The count stays: the next call fails alike.
  g05yac(Zem_QuasiRandom_Cont, seq, 0, idim, x, gf.data(), &fail);
  EXPECT_NE(std::strstr(fail.message, text), nullptr) << fail.message;
  g05yac(Zem_QuasiRandom_Finish, seq, 0, idim, x, gf.data(), &fail);
}

TEST(G05Quasi, ExhaustionAndRecordMisuse) {
  expect_cont_failure(Zem_QuasiRandom_Sobol, (1 << 30) - 2, 1, "NE_TOO_MANY_CALLS:\n    Too many calls to generator.");
  expect_cont_failure(Zem_QuasiRandom_Nied, 0x1fffffff - 2, 2, "NE_TOO_MANY_CALLS:\n    Too many calls to generator.");
  // Base 41 with 5 digits: 41^5 - 1 is the last point.
  expect_cont_failure(Zem_QuasiRandom_Faure, 115856201 - 2, 1, "Unexpected error - Please contact ZEM.");

  Record gf(zem::quasi::kRecordWords, 0);
  double x[40];
  ZemError fail = quiet();
  // A record of one sequence is refused by another, and a larger idim.
  g05yac(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, 5, x, gf.data(), &fail);
  ASSERT_EQ(fail.code, 0);
  for (int32_t seq : {Zem_QuasiRandom_Nied, Zem_QuasiRandom_Faure}) {
    g05yac(Zem_QuasiRandom_Cont, seq, 0, 5, x, gf.data(), &fail);
    EXPECT_NE(std::strstr(fail.message, "Incorrect initialisation."), nullptr) << fail.message;
  }
  g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Sobol, 0, 6, x, gf.data(), &fail);
  EXPECT_NE(std::strstr(fail.message, "Incorrect initialisation."), nullptr);
  // A Finish of Sobol does nothing.
  g05yac(Zem_QuasiRandom_Finish, Zem_QuasiRandom_Sobol, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Sobol, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  // Faure: Cont after Finish is refused, a second Finish does nothing.
  g05yac(Zem_QuasiRandom_Init, Zem_QuasiRandom_Faure, 0, 5, x, gf.data(), &fail);
  g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Faure, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  g05yac(Zem_QuasiRandom_Finish, Zem_QuasiRandom_Faure, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(gf[zem::quasi::kTagWord], zem::quasi::kTagFaureReleased);
  g05yac(Zem_QuasiRandom_Finish, Zem_QuasiRandom_Faure, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Faure, 0, 5, x, gf.data(), &fail);
  EXPECT_NE(std::strstr(fail.message, "Incorrect initialisation."), nullptr);
}

TEST(G05Quasi, FailureRowsOfG05ybc) {
  Record gf(zem::quasi::kRecordWords, 0);
  double x[6];
  const double mean[6] = {0, 0, 0, 0, 0, 0};
  double sd[6] = {1, 1, 1, 1, 1, 1};
  ZemError fail = quiet();
  g05ybc(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, mean, sd, 0, 5, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, NE_INT);
  EXPECT_NE(std::strstr(fail.message, "On entry, idim is not an even number: idim = 5."), nullptr);
  g05ybc(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, mean, sd, 0, 0, x, gf.data(), &fail);
  EXPECT_NE(std::strstr(fail.message, "idim < 2: idim = 0"), nullptr) << fail.message;
  g05ybc(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, mean, sd, 0, 42, x, gf.data(), &fail);
  EXPECT_NE(std::strstr(fail.message, "idim > 40: idim = 42"), nullptr) << fail.message;
  g05ybc(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, nullptr, sd, 0, 6, x, gf.data(), &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "xmean"), nullptr);
  for (double bad : {0.0, -1.0}) {
    sd[3] = bad;
    g05ybc(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, mean, sd, 0, 6, x, gf.data(), &fail);
    EXPECT_EQ(fail.code, NE_BAD_PARAM);
    EXPECT_NE(std::strstr(fail.message, "std"), nullptr);
  }
}

}  // namespace
