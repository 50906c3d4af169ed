// The seed-array generators of the g05k family: the basic generator and
// the 273 Wichmann-Hill generators, whose whole state is the caller's
// iseed[4], and their exported routines.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>

#include "frame/core_record.hpp"
#include "frame/report.hpp"
#include "stats/random.hpp"
#include "zem/g05.h"
#include "zem/x02.h"

namespace zem::rng {

const WichmannHillRow kWichmannHill[kWichmannHillCount] = {
#include "stats/wichmann_hill_table.inc"
};

namespace {

std::int32_t fold_seed(std::int32_t s) {
  if (s >= 1 && s <= kSeedBound) return s;
  const std::int64_t m = std::llabs(static_cast<std::int64_t>(s));
  return static_cast<std::int32_t>((m + 1) % kSeedBound + 1);
}

// x = a x mod m; the seeds a normalised state holds keep a x below 2^31,
// and the 64-bit product serves any other value too.
inline std::int32_t lcg(std::int32_t a, std::int32_t x, std::int32_t m) {
  std::int64_t r = static_cast<std::int64_t>(a) * x % m;
  if (r < 0) r += m;
  return static_cast<std::int32_t>(r);
}

inline double one_minus_eps() { return 1.0 - x02ajc(); }

}  // namespace

double basic_step(std::int32_t iseed[4]) noexcept {
  const std::uint64_t x = (pack(iseed[0], iseed[1], iseed[2], iseed[3]) * kMultiplier) & kMask60;
  unpack(x, iseed[0], iseed[1], iseed[2], iseed[3]);
  return to_value(x, one_minus_eps());
}

double wichmann_hill_step(std::int32_t igen, std::int32_t iseed[4]) noexcept {
  const WichmannHillRow& r = kWichmannHill[wichmann_hill_row(igen) - 1];
  for (int i = 0; i < 4; ++i) iseed[i] = lcg(r.a[i], iseed[i], r.m[i]);
  double s = static_cast<double>(iseed[0]) / r.m[0];
  s += static_cast<double>(iseed[2]) / r.m[2];
  s += static_cast<double>(iseed[1]) / r.m[1];
  s += static_cast<double>(iseed[3]) / r.m[3];
  return s - std::floor(s);
}

void fill_uniform(std::int32_t igen, std::int32_t iseed[4], std::int64_t n, double x[]) noexcept {
  if (igen <= 0) {
    const double clip = one_minus_eps();
    std::uint64_t v = pack(iseed[0], iseed[1], iseed[2], iseed[3]);
    for (std::int64_t i = 0; i < n; ++i) {
      v = (v * kMultiplier) & kMask60;
      x[i] = to_value(v, clip);
    }
    unpack(v, iseed[0], iseed[1], iseed[2], iseed[3]);
    return;
  }
  const WichmannHillRow& r = kWichmannHill[wichmann_hill_row(igen) - 1];
  const double offset = x02ajc() / 4.0;
  std::int32_t s[4] = {iseed[0], iseed[1], iseed[2], iseed[3]};
  for (std::int64_t i = 0; i < n; ++i) {
    for (int j = 0; j < 4; ++j) s[j] = lcg(r.a[j], s[j], r.m[j]);
    double t = static_cast<double>(s[3]) / r.m[3];
    t += static_cast<double>(s[2]) / r.m[2];
    t += static_cast<double>(s[1]) / r.m[1];
    t += static_cast<double>(s[0]) / r.m[0];
    x[i] = (t - std::floor(t)) + offset;
  }
  for (int j = 0; j < 4; ++j) iseed[j] = s[j];
}

void normalise_seeds(std::int32_t& igen, std::int32_t iseed[4]) noexcept {
  if (igen > 0) {
    for (int i = 0; i < 4; ++i) iseed[i] = fold_seed(iseed[i]);
    igen = wichmann_hill_row(igen);
    return;
  }
  igen = 0;
  seed_digits(iseed[0], iseed);
  basic_step(iseed);
}

void clock_seeds(std::int32_t& igen, std::int32_t iseed[4]) noexcept {
  if (igen > 0) {
    igen = wichmann_hill_row(igen);
    for (int i = 0; i < 4; ++i) iseed[i] = clock_seed(4 * igen + i);
    wichmann_hill_step(igen, iseed);
    return;
  }
  igen = 0;
  iseed[0] = clock_seed(0);
  seed_digits(iseed[0], iseed);
  basic_step(iseed);
}

std::int32_t clock_seed_from(const ClockReading& t, std::int32_t k) noexcept {
  const std::int64_t secs =
      t.second +
      60ll * (t.minute + 60ll * (t.hour + 24ll * (t.day + 31ll * (t.month + 12ll * (t.year % 10)))));
  const std::int64_t t4 = secs % 10000;
  const std::int64_t v =
      static_cast<std::int64_t>(std::fmod(std::fabs(t.cpu_seconds * 1000000.0), 2147483647.0));
  const std::int64_t w = (v / 10000) % 10000 + v % 10000;
  const std::int64_t hundreds = w / 100, r = w % 100;
  const std::int64_t u = 100 * (r % 10) + 10 * (r / 10) + hundreds;
  // 32-bit arithmetic with wrap-around.
  const std::uint32_t y32 =
      static_cast<std::uint32_t>(u * 10000 + t4) * (static_cast<std::uint32_t>(k) + 1u) * 2u + 1u;
  const std::int32_t y = static_cast<std::int32_t>(y32);
  if (y >= 1 && y <= kSeedBound) return y;
  return static_cast<std::int32_t>((std::llabs(static_cast<std::int64_t>(y)) + 1) % kSeedBound);
}

std::int32_t clock_seed(std::int32_t k) noexcept {
  const std::time_t now = std::time(nullptr);
  std::tm tm{};
  localtime_r(&now, &tm);
  ClockReading t{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec,
                 static_cast<double>(std::clock()) / CLOCKS_PER_SEC};
  return clock_seed_from(t, k);
}

// The Bernoulli draw of g05kec as a core: a failure record for p outside
// [0, 1] (message 99999, the value of p), else the draw.
int bernoulli_core(double p, std::int32_t igen, std::int32_t iseed[4], std::int32_t* result,
                   char rec[core::kRecordLen]) noexcept {
  core::record_none(rec);
  *result = 0;
  if (!(p >= 0.0 && p <= 1.0)) {
    core::record_failure(rec, "G05KEC", 1, 99999, {core::real_field(p)});
    return 1;
  }
  *result = scalar_step(igen, iseed) < p ? 1 : 0;
  return 0;
}

}  // namespace zem::rng

// ---------------------------------------------------------------------------
// Exported routines.

namespace rng = zem::rng;

namespace {

const zem::core::Message kBernoulliMessages[] = {
    {99999, NE_REAL, 1, "NE_REAL:\n    On entry, p < 0.0 or p > 1.0: p = %s."},
};

}  // namespace

extern "C" {

ZEM_API double g05kac(int32_t igen, int32_t iseed[]) {
  if (!iseed) return 0.0;
  return rng::scalar_step(igen, iseed);
}

ZEM_API void g05kbc(int32_t* igen, int32_t iseed[]) {
  if (!igen || !iseed) return;
  rng::normalise_seeds(*igen, iseed);
}

ZEM_API void g05kcc(int32_t* igen, int32_t iseed[]) {
  if (!igen || !iseed) return;
  rng::clock_seeds(*igen, iseed);
}

ZEM_API int32_t g05kec(double p, int32_t igen, int32_t iseed[], ZemError* fail) {
  zem::Call call("g05kec", fail);
  if (call.null("iseed", iseed)) return 0;
  char rec[zem::core::kRecordLen];
  int32_t result = 0;
  const int ifail = rng::bernoulli_core(p, igen, iseed, &result, rec);
  if (ifail != 0) {
    zem::core::report_failure(call, ifail, rec, kBernoulliMessages);
    return 0;
  }
  call.success();
  return result;
}

ZEM_API int32_t clock_seed(int32_t k) { return rng::clock_seed(k); }

}  // extern "C"
