// The stored-state generator of the g05c family: one state per thread,
// advanced 63 members at a time, and its exported routines.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "frame/report.hpp"
#include "stats/random.hpp"
#include "zem/g05.h"
#include "zem/x02.h"
#include "zem/x05.h"

namespace zem::rng {

namespace {

// The refill's conversion record: the first refill of a thread always
// rebuilds the members from member 0 and fills in the constants.
struct ConversionRecord {
  std::int32_t first_refill;
  double one_minus_eps;
  double two_to_minus_60;
  double two_to_minus_30;
};
static_assert(sizeof(ConversionRecord) == 32);

// Constant-initialised, so a thread's blocks cost nothing until first use
// and live as long as the thread.
thread_local GeneratorThreadState t_state = {1, {}, 0, {}, 1.0, -1.0, {}, 0, 0, 256.0};
thread_local ConversionRecord t_conversion = {1, 0.0, 0.0, 0.0};

// The one process-wide word of the family; a race between two threads in
// the same second may give both the same seed, which is accepted.
std::atomic<std::int64_t> g_last_clock_seed{0};

void reset_pending(GeneratorThreadState& s) {
  s.pending_uniform = kEmptyUniform;
  s.pending_gamma_half = kEmptyGammaHalf;
  s.pending_normal = kEmptyNormal;
}

void write_default(GeneratorThreadState& s) {
  set_member(s, 0, pack(kDefaultDigits[0], kDefaultDigits[1], kDefaultDigits[2], kDefaultDigits[3]));
  s.reserved_word = 0;
  s.spare[0] = s.spare[1] = 0;
  reset_pending(s);
}

double powers_of_half(int n) {
  double p = 1.0;
  for (int i = 0; i < n; ++i) p *= 0.5;
  return p;
}

}  // namespace

void seed_digits(std::int64_t seed, std::int32_t digits[4]) {
  const std::uint64_t m = seed < 0 ? 0 - static_cast<std::uint64_t>(seed) : static_cast<std::uint64_t>(seed);
  digits[0] = static_cast<std::int32_t>((m % 8192) * 4 + 2);
  std::uint64_t t = m / 8192;
  for (int d = 1; d < 4; ++d) {
    digits[d] = static_cast<std::int32_t>(t % 32768);
    t /= 32768;
  }
}

GeneratorThreadState& thread_state() noexcept {
  GeneratorThreadState& s = t_state;
  if (s.uninitialised) [[unlikely]] {
    write_default(s);
    s.uninitialised = 0;
    refill(s, true);
  }
  return s;
}

void refill(GeneratorThreadState& s, bool force) noexcept {
  ConversionRecord& c = t_conversion;
  std::uint64_t x[kBatch + 1];
  if (!force && !c.first_refill) {
    // Each member jumps 63 steps; member 0 is left as it was.
    for (int k = 1; k <= kBatch; ++k) x[k] = (member(s, k) * kBatchMultiplier) & kMask60;
  } else {
    c.first_refill = 0;
    c.one_minus_eps = 1.0 - x02ajc();
    c.two_to_minus_60 = powers_of_half(60);
    c.two_to_minus_30 = powers_of_half(30);
    x[0] = member(s, 0);
    for (int k = 0; k < kBatch; ++k) x[k + 1] = (x[k] * kMultiplier) & kMask60;
  }
  const double one_minus_eps = c.one_minus_eps;
  for (int k = 1; k <= kBatch; ++k) {
    unpack(x[k], s.digits[0][k], s.digits[1][k], s.digits[2][k], s.digits[3][k]);
    const double v = static_cast<double>(x[k] & kMask30) * c.two_to_minus_60 +
                     static_cast<double>(x[k] >> 30) * c.two_to_minus_30;
    s.batch[k - 1] = v > one_minus_eps ? one_minus_eps : v;
  }
  s.batch_position = 0;
}

void fill_stored(std::int64_t n, double x[]) noexcept {
  GeneratorThreadState& s = thread_state();
  std::int64_t done = 0;
  while (done < n) {
    if (s.batch_position >= kBatch) refill(s, false);
    const std::int64_t take = std::min<std::int64_t>(kBatch - s.batch_position, n - done);
    std::memcpy(x + done, s.batch + s.batch_position, sizeof(double) * static_cast<std::size_t>(take));
    s.batch_position += static_cast<std::int32_t>(take);
    done += take;
  }
}

void set_default(GeneratorThreadState& s) noexcept {
  write_default(s);
  s.uninitialised = 0;
  refill(s, true);
}

void set_seed(GeneratorThreadState& s, std::int64_t seed) noexcept {
  std::int32_t d[4];
  seed_digits(seed, d);
  set_member(s, 0, pack(d[0], d[1], d[2], d[3]));
  reset_pending(s);  // the reserved word keeps its value
  s.uninitialised = 0;
  refill(s, true);
  // The first value after a seed is that of member 2: part of the sequence.
  s.batch_position += 1;
}

void set_clock_seed(GeneratorThreadState& s, double seconds) noexcept {
  std::int64_t v = static_cast<std::int64_t>(seconds);
  const std::int64_t last = g_last_clock_seed.load(std::memory_order_relaxed);
  if (v <= last) v = last + 1;
  g_last_clock_seed.store(v, std::memory_order_relaxed);
  // The seed is a 32-bit integer, as a seed given by hand.
  set_seed(s, static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
}

void save(const GeneratorThreadState& s, std::int32_t istate[9], double xstate[4]) noexcept {
  // The member last consumed (member 0 directly after a reset), less its
  // always-zero lowest bit, in words of 11, 12, 12, 12, 12 bits.
  const int p = s.batch_position < 0 ? 0 : (s.batch_position > kBatch ? kBatch : s.batch_position);
  const std::uint64_t y = member(s, p) >> 1;
  istate[1] = static_cast<std::int32_t>(y >> 48);
  istate[2] = static_cast<std::int32_t>((y >> 36) & 0xfff);
  istate[3] = static_cast<std::int32_t>((y >> 24) & 0xfff);
  istate[4] = static_cast<std::int32_t>((y >> 12) & 0xfff);
  istate[5] = static_cast<std::int32_t>(y & 0xfff);
  const std::int32_t w = s.reserved_word;
  istate[6] = w / 4096 / 4096 % 4096;
  istate[7] = w / 4096 % 4096;
  istate[8] = w % 4096;
  std::uint32_t sum = 0;
  for (int i = 1; i <= 8; ++i) sum += static_cast<std::uint32_t>(istate[i]);
  istate[0] = static_cast<std::int32_t>(sum);
  xstate[1] = s.pending_normal;
  xstate[2] = s.pending_uniform;
  xstate[3] = s.pending_gamma_half;
  xstate[0] = istate[0] * 0x1p-12 + xstate[1] + xstate[2] + xstate[3];
}

bool restore(GeneratorThreadState& s, const std::int32_t istate[9], const double xstate[4]) noexcept {
  std::uint32_t sum = 0;
  for (int i = 1; i <= 8; ++i) sum += static_cast<std::uint32_t>(istate[i]);
  if (static_cast<std::int32_t>(sum) != istate[0]) return false;
  const double real_sum = istate[0] * 0x1p-12 + xstate[1] + xstate[2] + xstate[3];
  // Written so that a NaN anywhere fails too.
  if (!(std::fabs(xstate[0] - real_sum) < 4.0 * x02ajc() * std::fabs(xstate[0]))) return false;
  std::uint64_t y = 0;
  for (int i = 1; i <= 5; ++i) y = y * 4096 + static_cast<std::uint32_t>(istate[i]);
  set_member(s, 0, (y << 1) & kMask60);
  s.pending_normal = xstate[1];
  s.pending_uniform = xstate[2];
  s.pending_gamma_half = xstate[3];
  // The factor 64 does not invert the split of save; it only matters for a
  // reserved word other than 0, which this generator never writes.
  const std::int64_t w = (static_cast<std::int64_t>(istate[6]) * 64 + istate[7]) * 4096 + istate[8];
  s.reserved_word = static_cast<std::int32_t>(static_cast<std::uint32_t>(w));
  s.uninitialised = 0;
  refill(s, true);
  return true;
}

}  // namespace zem::rng

// ---------------------------------------------------------------------------
// Exported routines.

namespace rng = zem::rng;

extern "C" {

ZEM_API void g05caz(int32_t* status, int32_t** digits, double** pending, double** batch,
                    double** pending_normal) {
  rng::GeneratorThreadState& s = rng::thread_state();
  if (status) *status = 0;
  if (digits) *digits = &s.digits[0][0];
  if (pending) *pending = &s.pending_uniform;
  if (batch) *batch = s.batch;
  if (pending_normal) *pending_normal = &s.pending_normal;
}

ZEM_API double g05cac(void) { return rng::next_uniform(); }

ZEM_API void g05cbc(int32_t seed) { rng::set_seed(rng::thread_state(), seed); }

ZEM_API void g05ccc(void) {
  rng::GeneratorThreadState& s = rng::thread_state();
  rng::set_clock_seed(s, x05aac());
}

ZEM_API void g05cxc(void) { rng::set_default(rng::thread_state()); }

ZEM_API void g05cfc(int32_t istate[], double xstate[]) {
  if (!istate || !xstate) return;
  rng::save(rng::thread_state(), istate, xstate);
}

ZEM_API void g05cgc(const int32_t istate[], const double xstate[], ZemError* fail) {
  zem::Call call("g05cgc", fail);
  if (call.null("istate", istate) || call.null("xstate", xstate)) return;
  if (!rng::restore(rng::thread_state(), istate, xstate)) {
    call.report(NE_STATE_CORRUPT);
    return;
  }
  call.success();
}

ZEM_API void get_bg05ca(double pending[]) {
  const rng::GeneratorThreadState& s = rng::thread_state();
  if (!pending) return;
  pending[0] = s.pending_uniform;
  pending[1] = s.pending_gamma_half;
}

ZEM_API double get_dg05ca(void) { return rng::thread_state().pending_normal; }

}  // extern "C"
