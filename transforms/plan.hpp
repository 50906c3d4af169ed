// Factorisations of a transform length.
//
// Three views of the same length n:
//   * the acceptance rules of the single-sequence routines (prime factors up
//     to 19; the singles plus twice the squares at most 20);
//   * the public factor list of c06fpz (trial factors 4, 2, 3, 5, 7, 9, ...);
//   * the pass plan that the engine runs.
//
// The pass plan is a list of digits (radices) whose product is n, in the
// order of the decimation-in-time passes (least significant digit first).
// It is laid out as  left | middle | mirror(left):  the squared prime factors
// are split evenly between the two outer halves, so that the digit-reversal
// permutation of the outer digits is an involution (pairs of swaps), and the
// factors left over (the square-free kernel, and one power of 2 when that
// saves a pass) form the middle, whose digits are reversed separately by
// adjacent-digit transposes.
#pragma once
#include <cstddef>
#include <cstdint>

namespace zem::fft {

// At most 31 prime factors below 2^31; the plan never has more digits.
inline constexpr int kMaxDigits = 32;
// The largest radix with a dedicated butterfly or a stack-sized general pass.
inline constexpr int kStackRadix = 64;

enum class SingleStatus { Ok, PrimeTooLarge, TooManyFactors };

// The single-sequence acceptance rules, by trial division up to 19: a prime
// that divides twice is a square factor, once a single; more than 20 factors
// (counting squares twice) is refused.
SingleStatus check_single(long n) noexcept;
inline constexpr int kSingleMaxPrime = 19;
inline constexpr int kSingleMaxFactors = 20;

// The factor list of c06fpz: trial factors 4, 2, 3, 5 and then the odd
// numbers from 7 on, each divided out while it divides.  Writes the factors
// and a terminating 0 into out (at least 32 elements); a length of 1 gives
// the single factor 1.  Returns the number of factors.
int trial_factors(long n, int32_t out[]) noexcept;

// Number of prime factors of n counted with multiplicity.
int prime_factor_count(long n) noexcept;

struct Plan {
  long n = 1;
  int ndig = 0;   // number of digits (passes)
  int nleft = 0;  // digits of the left half; the last nleft digits mirror them
  int nmid = 0;   // digits of the middle
  int dig[kMaxDigits] = {};
  int max_radix = 1;

  // Product of the first i digits (the span of the sub-transforms that pass
  // i combines).
  long span(int i) const noexcept {
    long p = 1;
    for (int j = 0; j < i; ++j) p *= dig[j];
    return p;
  }
  // Offset of pass i's twiddles in the trigonometric table: pass i holds
  // (r-1)*p complex roots, r its radix and p = span(i).
  long twiddle_offset(int i) const noexcept {
    long off = 0, p = 1;
    for (int j = 0; j < i; ++j) {
      off += (dig[j] - 1) * p;
      p *= dig[j];
    }
    return off;
  }
  // True when the middle digits can be reversed in place with a small
  // buffer (every adjacent pair has a product of at most kStackRadix^2/4).
  bool middle_in_place() const noexcept;
};

// Builds the pass plan of n >= 1.
Plan make_plan(long n) noexcept;

}  // namespace zem::fft
