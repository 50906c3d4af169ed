// Quasi-random sequences (Sobol, Niederreiter base 2, Faure) on the
// caller's record of 2,013 32-bit words.
//
// Sobol and Niederreiter share one layout: direction numbers as 30 rows of
// 40 integers (row b, dimension d, both from 1, at word 1 + 40 (b-1) +
// (d-1)), the integer vector at 1201..1240, the count at 1241, the scale
// 2^30 at 1242, and the dimension of the Init at 1243.  Faure keeps idim,
// the base and the digit count at 2001..2003 and its heap tables behind
// pointers stored from word 2004; words 0..1 point at the last integer
// vector.  Word 1999 is the tag of the sequence that set the record up.
#pragma once
#include <cstdint>

namespace zem::quasi {

inline constexpr int kRecordWords = 2013;
inline constexpr int kMaxDim = 40;
inline constexpr int kBits = 30;
inline constexpr int kTagWord = 1999;
inline constexpr std::int32_t kTagSobol = 1890;
inline constexpr std::int32_t kTagNiederreiter = 1888;
inline constexpr std::int32_t kTagFaure = 2001;
inline constexpr std::int32_t kTagFaureReleased = 12001;
inline constexpr int kVectorWord = 1201;
inline constexpr int kCountWord = 1241;
inline constexpr int kScaleWord = 1242;
inline constexpr int kDimWord = 1243;
inline constexpr std::int32_t kNiederreiterCountBound = 0x1fffffff;

inline constexpr int row_word(int b, int d) { return 1 + 40 * (b - 1) + (d - 1); }

// Statuses of the cores.
enum Status : int {
  kOk = 0,
  kNotInitialised = 2,  // the record's tag is not the sequence's
  kSkipTooLarge = 3,
  kTooManyCalls = 4,
  kInternal = 5,  // Faure's counter ran out of digits, or no memory
};

// The primitive polynomials of dimensions 2..40 of the Sobol sequence and
// the irreducible polynomials over GF(2) of the Niederreiter sequence, bit
// k the coefficient of x^k.
extern const std::int32_t kSobolPolynomials[kMaxDim - 1];
extern const std::int32_t kNiederreiterPolynomials[kMaxDim];

// The product of two polynomials over GF(2), bit k the coefficient of x^k.
std::uint64_t gf2_multiply(std::uint64_t a, std::uint64_t b) noexcept;

int sobol_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept;
int sobol_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept;
int niederreiter_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept;
int niederreiter_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept;
// The smallest prime >= idim.
std::int32_t faure_base(std::int32_t idim) noexcept;
int faure_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept;
int faure_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept;
// Frees the tables of an initialised Faure record; nothing otherwise.
void faure_finish(std::int32_t gf[]) noexcept;

}  // namespace zem::quasi
