// The uniform generators behind the g05 chapter, as seen by the samplers.
//
// Two pseudo-random families share one recurrence, x(k+1) = a x(k) mod 2^60
// with a = 13^13, whose state is kept as four 15-bit digits, least
// significant first.  The low two bits of x are always binary 10.
//
//  * The stored family keeps one GeneratorThreadState per thread.  It
//    advances 63 members at a time (a refill) and converts them into a batch
//    of 63 doubles; a draw is an index increment.  Samplers read the batch
//    directly and must leave batch_position correct.
//  * The seed-array family keeps its whole state in the caller's iseed[4]:
//    the four digits for the basic generator (igen 0), or the four
//    congruential states of one of the 273 Wichmann-Hill generators.
//
// The digits are the storage format.  The arithmetic runs on the 60-bit
// integer they spell: the schoolbook product on 15-bit digits never
// overflows 32 bits for these two multipliers, so it is the exact product
// modulo 2^60 and the two agree bit for bit (tests/stats checks both).
#pragma once
#include <cstddef>
#include <cstdint>

namespace zem::rng {

inline constexpr int kBatch = 63;
inline constexpr std::uint64_t kMask60 = (std::uint64_t{1} << 60) - 1;
inline constexpr std::uint64_t kMask30 = (std::uint64_t{1} << 30) - 1;
// a = 13^13 and a^63 mod 2^59, as digits and as integers.
inline constexpr std::int32_t kMultiplierDigits[4] = {17917, 13895, 19930, 8};
inline constexpr std::int32_t kBatchMultiplierDigits[4] = {85, 3703, 6070, 6822};
inline constexpr std::uint64_t kMultiplier = 302875106592253ull;
inline constexpr std::uint64_t kBatchMultiplier =
    85ull | (3703ull << 15) | (6070ull << 30) | (6822ull << 45);
// The state of a thread that never seeds.
inline constexpr std::int32_t kDefaultDigits[4] = {6698, 7535, 26792, 30140};
inline constexpr double kEmptyUniform = 1.0;
inline constexpr double kEmptyGammaHalf = -1.0;  // negative means empty
inline constexpr double kEmptyNormal = 256.0;    // exactly 256.0 means empty

// One 1576-byte block per thread, in this word order (32-bit words):
//   0 uninitialised, 1..256 digits (digit d of member k at 1 + 64 d + k),
//   257 reserved_word, 258..259 spare, 260..263 the pending uniform and
//   gamma half, 264..389 the batch (values of members 1..63), 390
//   batch_position, 392..393 the pending normal.
struct GeneratorThreadState {
  std::int32_t uninitialised;
  std::int32_t digits[4][64];
  std::int32_t reserved_word;
  std::int32_t spare[2];
  double pending_uniform;     // fraction recycled by the normal sampler of Brent's method
  double pending_gamma_half;  // second half of a polar pair (gamma with half-integer shape)
  double batch[kBatch];
  std::int32_t batch_position;  // 0..63: batch values already consumed
  std::int32_t pad;
  double pending_normal;  // spare Box-Muller normal, unscaled
};
static_assert(sizeof(GeneratorThreadState) == 1576);
static_assert(offsetof(GeneratorThreadState, reserved_word) == 4 * 257);
static_assert(offsetof(GeneratorThreadState, pending_uniform) == 4 * 260);
static_assert(offsetof(GeneratorThreadState, batch) == 4 * 264);
static_assert(offsetof(GeneratorThreadState, batch_position) == 4 * 390);
static_assert(offsetof(GeneratorThreadState, pending_normal) == 4 * 392);

// ---- Digits and integers.
inline std::uint64_t pack(std::int32_t d0, std::int32_t d1, std::int32_t d2, std::int32_t d3) {
  return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(d0)) +
          (static_cast<std::uint64_t>(static_cast<std::uint32_t>(d1)) << 15) +
          (static_cast<std::uint64_t>(static_cast<std::uint32_t>(d2)) << 30) +
          (static_cast<std::uint64_t>(static_cast<std::uint32_t>(d3)) << 45)) &
         kMask60;
}
inline void unpack(std::uint64_t x, std::int32_t& d0, std::int32_t& d1, std::int32_t& d2,
                   std::int32_t& d3) {
  d0 = static_cast<std::int32_t>(x & 0x7fff);
  d1 = static_cast<std::int32_t>((x >> 15) & 0x7fff);
  d2 = static_cast<std::int32_t>((x >> 30) & 0x7fff);
  d3 = static_cast<std::int32_t>((x >> 45) & 0x7fff);
}
inline std::uint64_t member(const GeneratorThreadState& s, int k) {
  return pack(s.digits[0][k], s.digits[1][k], s.digits[2][k], s.digits[3][k]);
}
inline void set_member(GeneratorThreadState& s, int k, std::uint64_t x) {
  unpack(x, s.digits[0][k], s.digits[1][k], s.digits[2][k], s.digits[3][k]);
}
// The value of a member: lo 2^-60 + hi 2^-30 with hi, lo its upper and
// lower 30 bits, clipped to one_minus_eps (1 - x02ajc).  Never 0.
inline double to_value(std::uint64_t x, double one_minus_eps) {
  const double v = static_cast<double>(x & kMask30) * 0x1p-60 +
                   static_cast<double>(x >> 30) * 0x1p-30;
  return v > one_minus_eps ? one_minus_eps : v;
}
// The four digits a seed gives: digit0 = (m mod 8192) 4 + 2, then the rest
// of m in 15-bit digits, m = |seed|.
void seed_digits(std::int64_t seed, std::int32_t digits[4]);

// ---- The stored family.
// The calling thread's state, created and put in the default state on
// first use.
GeneratorThreadState& thread_state() noexcept;
// Advances the 63 members by a^63 (or, with force or on the thread's first
// refill, rebuilds members 1..63 from member 0), converts them into the
// batch and sets batch_position to 0.
void refill(GeneratorThreadState& s, bool force) noexcept;
// The next uniform of the calling thread, in (0, 1).
inline double next_uniform() noexcept {
  GeneratorThreadState& s = thread_state();
  if (s.batch_position >= kBatch) refill(s, false);
  return s.batch[s.batch_position++];
}
// n values of the calling thread's stream into x, copied from the batch
// run by run: the same values as n calls of next_uniform.
void fill_stored(std::int64_t n, double x[]) noexcept;
void set_default(GeneratorThreadState& s) noexcept;
void set_seed(GeneratorThreadState& s, std::int64_t seed) noexcept;
// Seeds from the calendar clock (seconds), each call with a seed above the
// previous one's.
void set_clock_seed(GeneratorThreadState& s, double seconds) noexcept;
void save(const GeneratorThreadState& s, std::int32_t istate[9], double xstate[4]) noexcept;
// False (state unchanged) when either checksum disagrees.
bool restore(GeneratorThreadState& s, const std::int32_t istate[9], const double xstate[4]) noexcept;

// ---- The seed-array family.
inline constexpr int kWichmannHillCount = 273;
inline constexpr std::int32_t kSeedBound = 16909320;  // seeds 1..16909320 are accepted
struct WichmannHillRow {
  std::int32_t a[4];
  std::int32_t m[4];
};
extern const WichmannHillRow kWichmannHill[kWichmannHillCount];  // rows 1..273 at 0..272

// igen as a table row 1..273 (a value outside is folded in as g05kbc does).
inline int wichmann_hill_row(std::int32_t igen) {
  return static_cast<int>((static_cast<std::int64_t>(igen) + 272) % 273 + 1);
}
// One step of the basic generator on the digits in iseed[0..3].
double basic_step(std::int32_t iseed[4]) noexcept;
// One step of Wichmann-Hill generator igen (1..273): the fractional part of
// x1/m1 + x3/m3 + x2/m2 + x4/m4, added in that order.
double wichmann_hill_step(std::int32_t igen, std::int32_t iseed[4]) noexcept;
// The scalar step: igen <= 0 is the basic generator.
inline double scalar_step(std::int32_t igen, std::int32_t iseed[4]) noexcept {
  return igen <= 0 ? basic_step(iseed) : wichmann_hill_step(igen, iseed);
}
// The vector form used by the seed-array samplers: n values into x.  The
// basic generator gives the values of n scalar steps; Wichmann-Hill adds
// x4/m4 + x3/m3 + x2/m2 + x1/m1 in that order and then x02ajc/4, so that no
// value is exactly 0 (and so differs from the scalar step in the last bits).
void fill_uniform(std::int32_t igen, std::int32_t iseed[4], std::int64_t n, double x[]) noexcept;
// g05kbc and g05kcc.
void normalise_seeds(std::int32_t& igen, std::int32_t iseed[4]) noexcept;
void clock_seeds(std::int32_t& igen, std::int32_t iseed[4]) noexcept;

// clock_seed(k) from given clock readings: the calendar time and the
// processor time c (seconds).  clock_seed(k) reads the clocks itself.
struct ClockReading {
  int year, month, day, hour, minute, second;
  double cpu_seconds;
};
std::int32_t clock_seed_from(const ClockReading& t, std::int32_t k) noexcept;
std::int32_t clock_seed(std::int32_t k) noexcept;

}  // namespace zem::rng
