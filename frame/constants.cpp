// Machine constants, formed from their bit patterns.
#include <bit>
#include <cstdint>

#include "zem/x01.h"
#include "zem/x02.h"

namespace {

constexpr double from_bits(std::uint32_t hi, std::uint32_t lo) {
  return std::bit_cast<double>((static_cast<std::uint64_t>(hi) << 32) | lo);
}

constexpr double kTrigMax = from_bits(0x43F00000u, 0u);      // 2^64
constexpr double kEps = from_bits(0x3CA00000u, 1u);          // 2^-53 plus one ulp
constexpr double kTiny = from_bits(0x00100000u, 0u);         // 2^-1022
constexpr double kHuge = from_bits(0x7FEFFFFFu, 0xFFFFFFFFu);
constexpr double kPi = from_bits(0x400921FBu, 0x54442D18u);
// sqrt(kEps), correctly rounded.
constexpr double kSqrtEps = from_bits(0x3E46A09Eu, 0x667F3BCDu);

}  // namespace

extern "C" {

ZEM_API double x01aaf_f(const double*) { return kPi; }
ZEM_API double x02ahc(void) { return kTrigMax; }
ZEM_API double x02ajc(void) { return kEps; }
ZEM_API double x02akc(void) { return kTiny; }
ZEM_API double x02amc(void) { return kTiny; }
ZEM_API double x02anc(void) { return kTiny; }
ZEM_API double x02alc(void) { return kHuge; }

ZEM_API void x02zaz(double table[9]) {
  if (!table) return;
  table[0] = 2.0;
  table[1] = 53.0;
  table[2] = kEps;
  table[3] = kSqrtEps;
  table[4] = kTiny;
  table[5] = from_bits(0x20000000u, 0u);  // 2^-511
  table[6] = from_bits(0x7FD00000u, 0u);  // 2^1022
  table[7] = from_bits(0x5FE00000u, 0u);  // 2^511
  table[8] = 0.0;
}

}  // extern "C"
