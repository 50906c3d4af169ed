// Quasi-random sequences: Sobol, Niederreiter base 2 and Faure, and the
// exported g05yac (uniform points) and g05ybc (normal and log-normal
// points by Box-Muller on pairs).
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/catalogue.hpp"
#include "frame/report.hpp"
#include "stats/quasi.hpp"
#include "zem/g05.h"

namespace zem::quasi {

const std::int32_t kSobolPolynomials[kMaxDim - 1] = {
    3,   7,   11,  13,  19,  25,  37,  59,  47,  61,  55,  41,  67,  97,  91,  109, 103, 115, 131, 193,
    137, 145, 143, 241, 157, 185, 167, 229, 171, 213, 191, 253, 203, 211, 239, 247, 285, 369, 299};

// The irreducible polynomials over GF(2) in increasing order, x first.
const std::int32_t kNiederreiterPolynomials[kMaxDim] = {
    2,   3,   7,   11,  13,  19,  25,  31,  37,  41,  47,  55,  59,  61,  67,  73,  87,  91,  97,  103,
    109, 115, 117, 131, 137, 143, 145, 157, 167, 171, 185, 191, 193, 203, 211, 213, 229, 239, 241, 247};

namespace {

// Initial direction numbers of Bratley and Fox (1988) for dimensions
// 2..40: row j holds m_j of each dimension whose polynomial has degree > j
// (0 where the degree is smaller).
constexpr std::int32_t kSobolInit[8][kMaxDim - 1] = {
    {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
     1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
    {0, 1, 3, 1, 3, 1, 3, 3, 1, 3, 1, 3, 1, 3, 1, 1, 3, 1, 3, 1,
     3, 1, 3, 3, 1, 3, 1, 3, 1, 3, 1, 1, 3, 1, 3, 1, 3, 1, 3},
    {0, 0, 7, 5, 1, 3, 3, 7, 5, 5, 7, 7, 1, 3, 3, 7, 5, 1, 1, 5,
     3, 3, 1, 7, 5, 1, 3, 3, 7, 5, 1, 1, 5, 7, 7, 5, 1, 3, 3},
    {0, 0, 0, 0, 1, 7, 9, 13, 11, 1, 3, 7, 9, 5, 13, 13, 11, 3, 15, 5,
     3, 15, 7, 9, 13, 9, 1, 11, 7, 5, 15, 1, 15, 11, 5, 3, 1, 7, 9},
    {0, 0, 0, 0, 0, 0, 9, 3, 27, 15, 29, 21, 23, 19, 11, 25, 7, 13, 17, 1,
     25, 29, 3, 31, 11, 5, 23, 27, 19, 21, 5, 1, 17, 13, 7, 15, 9, 31, 9},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 37, 33, 7, 5, 11, 39, 63, 27,
     17, 15, 23, 29, 3, 21, 13, 31, 25, 9, 49, 33, 19, 29, 11, 19, 27, 15, 25},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 13, 33,
     115, 41, 79, 17, 29, 119, 75, 73, 105, 7, 59, 65, 21, 3, 113, 61, 89, 45, 107},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
     0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 23, 39}};

int degree(std::uint64_t p) {
  int d = -1;
  while (p) {
    ++d;
    p >>= 1;
  }
  return d;
}

// Position (from 1) of the lowest zero bit of n.
int lowest_zero_bit(std::int64_t n) {
  int l = 1;
  while (n & 1) {
    ++l;
    n >>= 1;
  }
  return l;
}

std::int32_t row(const std::int32_t gf[], int b, int d) { return gf[row_word(b, d)]; }

// Xors the rows of the set bits of the Gray code of n into the vector.
void gray_vector(std::int32_t gf[], int idim, std::int64_t n) {
  const std::int64_t g = n ^ (n >> 1);
  for (int d = 1; d <= idim; ++d) gf[kVectorWord + d - 1] = 0;
  for (int b = 1; b <= kBits; ++b)
    if ((g >> (b - 1)) & 1)
      for (int d = 1; d <= idim; ++d) gf[kVectorWord + d - 1] ^= row(gf, b, d);
}

// ---- Faure's heap tables, behind pointers kept in the record.
struct FaureTables {
  std::int32_t* add;     // q x q
  std::int32_t* mul;     // q x q
  std::int32_t* powers;  // (idim-1) matrices of ndig x ndig: P^k, P the Pascal matrix mod q
  std::int32_t* digits;  // ndig digits of the counter, then the count of digits in use,
                         // then the idim integers and the scale
};
constexpr int kFaurePointerWord = 2004;

void store_pointer(std::int32_t gf[], int word, const void* p) { std::memcpy(gf + word, &p, sizeof p); }
template <class T>
T* load_pointer(const std::int32_t gf[], int word) {
  T* p = nullptr;
  std::memcpy(&p, gf + word, sizeof p);
  return p;
}
constexpr int kPointerWords = static_cast<int>(sizeof(void*) / sizeof(std::int32_t));
static_assert(kFaurePointerWord + 4 * kPointerWords <= kRecordWords);

FaureTables faure_tables(const std::int32_t gf[]) {
  return {load_pointer<std::int32_t>(gf, kFaurePointerWord),
          load_pointer<std::int32_t>(gf, kFaurePointerWord + kPointerWords),
          load_pointer<std::int32_t>(gf, kFaurePointerWord + 2 * kPointerWords),
          load_pointer<std::int32_t>(gf, kFaurePointerWord + 3 * kPointerWords)};
}

}  // namespace

std::uint64_t gf2_multiply(std::uint64_t a, std::uint64_t b) noexcept {
  std::uint64_t r = 0;
  for (; b; b >>= 1, a <<= 1)
    if (b & 1) r ^= a;
  return r;
}

// ---------------------------------------------------------------------------
// Sobol.

int sobol_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept {
  gf[kTagWord] = 0;
  for (int b = 1; b <= kBits; ++b) gf[row_word(b, 1)] = 1;  // van der Corput
  for (int d = 2; d <= idim; ++d) {
    const std::int32_t poly = kSobolPolynomials[d - 2];
    const int m = degree(static_cast<std::uint64_t>(poly));
    for (int b = 1; b <= m; ++b) gf[row_word(b, d)] = kSobolInit[b - 1][d - 2];
    for (int b = m + 1; b <= kBits; ++b) {
      std::int32_t v = gf[row_word(b - m, d)];
      for (int k = 1; k <= m; ++k)
        if ((poly >> (m - k)) & 1) v ^= gf[row_word(b - k, d)] << k;
      gf[row_word(b, d)] = v;
    }
  }
  for (int b = 1; b <= kBits; ++b)
    for (int d = 1; d <= idim; ++d) gf[row_word(b, d)] <<= (kBits - b);
  gf[kScaleWord] = 1 << kBits;
  gf[kDimWord] = idim;
  // Stepping one point at a time from the count 0 meets a lowest zero bit
  // above 30 only at the count 2^30 - 1; the vector after n steps is the
  // xor of the rows picked by the Gray code of n.
  if (iskip >= (std::int64_t{1} << kBits)) return kSkipTooLarge;
  gray_vector(gf, idim, iskip);
  gf[kCountWord] = iskip;
  gf[kTagWord] = kTagSobol;
  return kOk;
}

int sobol_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept {
  if (gf[kTagWord] != kTagSobol || idim > gf[kDimWord]) return kNotInitialised;
  const int l = lowest_zero_bit(gf[kCountWord]);
  if (l > kBits) return kTooManyCalls;
  const int n = gf[kDimWord];
  const double scale = 1.0 / gf[kScaleWord];
  std::int32_t* v = gf + kVectorWord;
  const std::int32_t* r = gf + row_word(l, 1);
  for (int d = 0; d < n; ++d) v[d] ^= r[d];
  for (int d = 0; d < idim; ++d) quasi[d] = v[d] * scale;
  ++gf[kCountWord];
  return kOk;
}

// ---------------------------------------------------------------------------
// Niederreiter, base 2.  The generator matrix of a dimension with the
// irreducible polynomial p of degree e comes from the Laurent expansions
// of 1/p^i: column j of the matrix, for j = (i-1) e + u, takes the
// coefficients v(u), v(u+1), ... of the sequence that the i-th power
// defines.

namespace {

// The sequence v of the power pb = p^i (bigm the degree of p^(i-1)):
// zeros, a one at bigm, ones up to the degree of p^i, then the linear
// recurrence with the coefficients of p^i.
void laurent_values(std::uint64_t pb_prev, std::uint64_t pb, int maxv, int v[]) {
  const int bigm = degree(pb_prev);
  const int m = degree(pb);
  for (int r = 0; r < bigm; ++r) v[r] = 0;
  v[bigm] = 1;
  for (int r = bigm + 1; r < m; ++r) v[r] = 1;
  for (int r = 0; r + m <= maxv; ++r) {
    int term = 0;
    for (int k = 0; k < m; ++k) term ^= static_cast<int>((pb >> k) & 1) & v[r + k];
    v[r + m] = term;
  }
}

}  // namespace

int niederreiter_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept {
  gf[kTagWord] = 0;
  constexpr int kMaxV = kBits + 8;
  for (int d = 1; d <= idim; ++d) {
    const std::uint64_t px = static_cast<std::uint64_t>(kNiederreiterPolynomials[d - 1]);
    const int e = degree(px);
    int ci[kBits][kBits];
    int v[kMaxV + 2 * kBits] = {};
    std::uint64_t pb = 1;
    int u = 0;
    for (int j = 0; j < kBits; ++j) {
      if (u == 0) {
        const std::uint64_t prev = pb;
        pb = gf2_multiply(pb, px);
        laurent_values(prev, pb, kMaxV, v);
      }
      for (int r = 0; r < kBits; ++r) ci[r][j] = v[r + u];
      if (++u == e) u = 0;
    }
    for (int r = 0; r < kBits; ++r) {
      std::int32_t term = 0;
      for (int j = 0; j < kBits; ++j) term = 2 * term + ci[r][j];
      gf[row_word(r + 1, d)] = term;
    }
  }
  gf[kScaleWord] = 1 << kBits;
  gf[kDimWord] = idim;
  if (iskip >= kNiederreiterCountBound) return kSkipTooLarge;
  gray_vector(gf, idim, iskip);
  gf[kCountWord] = iskip;
  gf[kTagWord] = kTagNiederreiter;
  return kOk;
}

int niederreiter_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept {
  if (gf[kTagWord] != kTagNiederreiter || idim > gf[kDimWord]) return kNotInitialised;
  if (gf[kCountWord] >= kNiederreiterCountBound) return kTooManyCalls;
  const int n = gf[kDimWord];
  const double scale = 0x1p-30;
  std::int32_t* v = gf + kVectorWord;
  for (int d = 0; d < idim; ++d) quasi[d] = v[d] * scale;
  const int l = lowest_zero_bit(gf[kCountWord]);
  const std::int32_t* r = gf + row_word(l, 1);
  for (int d = 0; d < n; ++d) v[d] ^= r[d];
  ++gf[kCountWord];
  return kOk;
}

// ---------------------------------------------------------------------------
// Faure.  Point n in base q (the smallest prime >= idim): its digits a_j,
// least significant first, give the first coordinate as the radical
// inverse, and coordinate k+1 the radical inverse of P^k a mod q, P the
// upper triangular Pascal matrix (P^k)_{jl} = C(l, j) k^(l-j).

std::int32_t faure_base(std::int32_t idim) noexcept {
  if (idim < 4) return idim;
  std::int32_t q = idim % 2 == 0 ? idim + 1 : idim;
  for (;; q += 2) {
    bool prime = true;
    for (std::int32_t f = 3; f * f <= q; f += 2)
      if (q % f == 0) {
        prime = false;
        break;
      }
    if (prime) return q;
  }
}

int faure_init(std::int32_t idim, std::int32_t iskip, std::int32_t gf[]) noexcept {
  std::memset(gf, 0, sizeof(std::int32_t) * kRecordWords);
  const std::int32_t q = faure_base(idim);
  const int ndig = static_cast<int>(std::log(2147483647.0) / std::log(static_cast<double>(q)));
  gf[2001] = idim;
  gf[2002] = q;
  gf[2003] = ndig;
  if (ndig <= 4) return kTooManyCalls;
  std::int64_t scale = 1;
  for (int j = 0; j < ndig; ++j) scale *= q;
  if (iskip >= scale) return kSkipTooLarge;

  FaureTables t{};
  t.add = static_cast<std::int32_t*>(std::malloc(sizeof(std::int32_t) * q * q));
  t.mul = static_cast<std::int32_t*>(std::malloc(sizeof(std::int32_t) * q * q));
  t.powers = static_cast<std::int32_t*>(
      std::malloc(sizeof(std::int32_t) * static_cast<std::size_t>((idim - 1) * ndig * ndig)));
  t.digits = static_cast<std::int32_t*>(std::malloc(sizeof(std::int32_t) * (ndig + 1 + idim + 1)));
  if (!t.add || !t.mul || !t.powers || !t.digits) {
    std::free(t.add);
    std::free(t.mul);
    std::free(t.powers);
    std::free(t.digits);
    return kInternal;
  }
  for (int i = 0; i < q; ++i)
    for (int j = 0; j < q; ++j) {
      t.add[i * q + j] = (i + j) % q;
      t.mul[i * q + j] = (i * j) % q;
    }
  // Binomials mod q by Pascal's rule.
  int binom[32][32] = {};
  for (int l = 0; l < ndig; ++l) {
    binom[l][0] = 1;
    for (int j = 1; j <= l; ++j) binom[l][j] = t.add[binom[l - 1][j - 1] * q + binom[l - 1][j]];
  }
  for (int k = 1; k < idim; ++k) {
    std::int32_t* p = t.powers + static_cast<std::ptrdiff_t>(k - 1) * ndig * ndig;
    int kpow[32];
    kpow[0] = 1;
    for (int i = 1; i < ndig; ++i) kpow[i] = t.mul[kpow[i - 1] * q + k % q];
    for (int j = 0; j < ndig; ++j)
      for (int l = 0; l < ndig; ++l)
        p[j * ndig + l] = l < j ? 0 : t.mul[binom[l][j] * q + kpow[l - j]];
  }
  // The counter starts at iskip; each call moves it on before the point
  // is formed.
  std::int32_t* digits = t.digits;
  std::int64_t n = iskip;
  int used = 0;
  for (int j = 0; j < ndig; ++j) {
    digits[j] = static_cast<std::int32_t>(n % q);
    n /= q;
    if (digits[j] != 0) used = j + 1;
  }
  digits[ndig] = used;
  std::int32_t* vec = digits + ndig + 1;
  for (int d = 0; d < idim; ++d) vec[d] = 0;
  vec[idim] = static_cast<std::int32_t>(scale);

  store_pointer(gf, kFaurePointerWord, t.add);
  store_pointer(gf, kFaurePointerWord + kPointerWords, t.mul);
  store_pointer(gf, kFaurePointerWord + 2 * kPointerWords, t.powers);
  store_pointer(gf, kFaurePointerWord + 3 * kPointerWords, t.digits);
  store_pointer(gf, 0, vec);
  gf[kTagWord] = kTagFaure;
  return kOk;
}

int faure_next(std::int32_t idim, double quasi[], std::int32_t gf[]) noexcept {
  if (gf[kTagWord] != kTagFaure || idim > gf[2001]) return kNotInitialised;
  const int n = gf[2001], q = gf[2002], ndig = gf[2003];
  const FaureTables t = faure_tables(gf);
  std::int32_t* digits = t.digits;
  std::int32_t* vec = digits + ndig + 1;
  // Mixed-radix increment, up to the highest digit that changes.
  int j = 0;
  while (true) {
    if (j == ndig) {
      // The counter overflowed: no vector, and the counter stays at its end.
      for (int l = 0; l < ndig; ++l) digits[l] = q - 1;
      store_pointer(gf, 0, nullptr);
      return kInternal;
    }
    digits[j] = t.add[digits[j] * q + 1];
    if (digits[j] != 0) break;
    ++j;
  }
  if (j + 1 > digits[ndig]) digits[ndig] = j + 1;
  const int used = digits[ndig];
  // Coordinate 1: the radical inverse of the digits.
  std::int64_t acc = 0;
  for (int l = 0; l < ndig; ++l) acc = acc * q + (l < used ? digits[l] : 0);
  vec[0] = static_cast<std::int32_t>(acc);
  for (int k = 1; k < n; ++k) {
    const std::int32_t* p = t.powers + static_cast<std::ptrdiff_t>(k - 1) * ndig * ndig;
    acc = 0;
    for (int r = 0; r < ndig; ++r) {
      int y = 0;
      for (int l = r; l < used; ++l) y = t.add[y * q + t.mul[p[r * ndig + l] * q + digits[l]]];
      acc = acc * q + y;
    }
    vec[k] = static_cast<std::int32_t>(acc);
  }
  store_pointer(gf, 0, vec);
  const double scale = vec[n];
  for (int d = 0; d < idim; ++d) quasi[d] = vec[d] / scale;
  return kOk;
}

void faure_finish(std::int32_t gf[]) noexcept {
  if (gf[kTagWord] != kTagFaure) return;
  const FaureTables t = faure_tables(gf);
  std::free(t.add);
  std::free(t.mul);
  std::free(t.powers);
  std::free(t.digits);
  for (int w = 0; w < 4; ++w) store_pointer(gf, kFaurePointerWord + w * kPointerWords, nullptr);
  store_pointer(gf, 0, nullptr);
  gf[kTagWord] = kTagFaureReleased;
}

}  // namespace zem::quasi

// ---------------------------------------------------------------------------
// Exported routines.

namespace {

namespace q = zem::quasi;

// A row looked up by its name; the fallback serves a catalogue without it.
void report_text(zem::Call& call, int code, const char* text, const char* value = "",
                 const char* name = nullptr) {
  if (!name) name = zem::catalogue_name(code);
  char fmt[256];
  std::snprintf(fmt, sizeof fmt, "%s:\n    %s", name ? name : "NE_INTERNAL_ERROR", text);
  call.report_own(code, fmt, value);
}

void report_int(zem::Call& call, int code, const char* text, long v) {
  char value[24];
  std::snprintf(value, sizeof value, "%ld", v);
  report_text(call, code, text, value);
}

void report_status(zem::Call& call, int status, bool at_init, long iskip) {
  switch (status) {
    case q::kNotInitialised:
      // These two failures carry names of their own; the codes are those of
      // the catalogue rows with the same meaning.
      report_text(call, NE_PREV_CALL, "Incorrect initialisation.", "", "NE_INITIALISATION");
      break;
    case q::kSkipTooLarge:
      report_int(call, NE_INT, "On entry, value of skip too large: iskip = %s.", iskip);
      break;
    case q::kTooManyCalls:
      if (at_init)  // Faure's digit count: reported as a skip too large
        report_int(call, NE_INT, "On entry, value of skip too large: iskip = %s.", iskip);
      else
        report_text(call, NE_TOO_MANY, "Too many calls to generator.", "", "NE_TOO_MANY_CALLS");
      break;
    default:
      report_text(call, NE_INTERNAL_ERROR, "Unexpected error - Please contact ZEM.");
      break;
  }
}

// Checks shared by both routines after the null pointers and idim: the
// enumerators and, at Init, iskip.  True when one failed and was reported.
bool bad_state_seq_skip(zem::Call& call, int32_t state, int32_t seq, int32_t iskip) {
  if (call.enum_in("state", state,
                   {Zem_QuasiRandom_Init, Zem_QuasiRandom_Cont, Zem_QuasiRandom_Finish}))
    return true;
  if (call.enum_in("seq", seq, {Zem_QuasiRandom_Sobol, Zem_QuasiRandom_Nied, Zem_QuasiRandom_Faure}))
    return true;
  if (state == Zem_QuasiRandom_Init && iskip < 0) {
    report_int(call, NE_INT, "On entry, iskip < 0: iskip = %s.", iskip);
    return true;
  }
  return false;
}

// Init, Cont or Finish of the chosen sequence; the status of the core.
int run(int32_t state, int32_t seq, int32_t iskip, int32_t idim, double quasi[], int32_t gf[]) {
  switch (state) {
    case Zem_QuasiRandom_Init:
      if (seq == Zem_QuasiRandom_Sobol) return q::sobol_init(idim, iskip, gf);
      if (seq == Zem_QuasiRandom_Nied) return q::niederreiter_init(idim, iskip, gf);
      return q::faure_init(idim, iskip, gf);
    case Zem_QuasiRandom_Cont:
      if (seq == Zem_QuasiRandom_Sobol) return q::sobol_next(idim, quasi, gf);
      if (seq == Zem_QuasiRandom_Nied) return q::niederreiter_next(idim, quasi, gf);
      return q::faure_next(idim, quasi, gf);
    default:
      if (seq == Zem_QuasiRandom_Faure) q::faure_finish(gf);
      return q::kOk;
  }
}

}  // namespace

extern "C" {

ZEM_API void g05yac(Zem_QuasiRandom_State state, Zem_QuasiRandom_Seq seq, int32_t iskip,
                    int32_t idim, double quasi[], int32_t gf[], ZemError* fail) {
  zem::Call call("g05yac", fail);
  if (call.null("quasi", quasi) || call.null("gf", gf)) return;
  if (seq == Zem_QuasiRandom_Faure && idim < 2) {
    report_int(call, NE_INT, "On entry, idim < 2: idim = %s.", idim);
    return;
  }
  if (idim < 1) {
    report_int(call, NE_INT, "On entry, idim < 1: idim = %s.", idim);
    return;
  }
  if (idim > q::kMaxDim) {
    report_int(call, NE_INT, "On entry, idim > 40: idim = %s.", idim);
    return;
  }
  if (bad_state_seq_skip(call, state, seq, iskip)) return;
  const int status = run(state, seq, iskip, idim, quasi, gf);
  if (status != q::kOk) {
    report_status(call, status, state == Zem_QuasiRandom_Init, iskip);
    return;
  }
  call.success();
}

ZEM_API void g05ybc(Zem_QuasiRandom_State state, Zem_QuasiRandom_Seq seq, int32_t lnorm,
                    const double xmean[], const double std_dev[], int32_t iskip, int32_t idim,
                    double quasi[], int32_t gf[], ZemError* fail) {
  zem::Call call("g05ybc", fail);
  if (call.null("quasi", quasi) || call.null("gf", gf) || call.null("xmean", xmean) ||
      call.null("std", std_dev))
    return;
  if (idim < 2) {
    report_int(call, NE_INT, "On entry, idim < 2: idim = %s.", idim);
    return;
  }
  if (idim > q::kMaxDim) {
    report_int(call, NE_INT, "On entry, idim > 40: idim = %s.", idim);
    return;
  }
  if (idim % 2 != 0) {
    report_int(call, NE_INT, "On entry, idim is not an even number: idim = %s.", idim);
    return;
  }
  if (bad_state_seq_skip(call, state, seq, iskip)) return;
  if (state != Zem_QuasiRandom_Finish)
    for (int32_t i = 0; i < idim; ++i)
      if (!(std_dev[i] > 0.0)) {
        call.report(NE_BAD_PARAM, "std");
        return;
      }
  const int status = run(state, seq, iskip, idim, quasi, gf);
  if (status != q::kOk) {
    report_status(call, status, state == Zem_QuasiRandom_Init, iskip);
    return;
  }
  if (state == Zem_QuasiRandom_Cont) {
    const double two_pi = 8.0 * std::atan(1.0);
    for (int32_t j = 0; 2 * j + 1 < idim; ++j) {
      const double r = std::sqrt(-2.0 * std::log(quasi[2 * j + 1]));
      const double angle = two_pi * quasi[2 * j];
      quasi[2 * j + 1] = r * std::cos(angle) * std_dev[2 * j + 1] + xmean[2 * j + 1];
      quasi[2 * j] = r * std::sin(angle) * std_dev[2 * j] + xmean[2 * j];
    }
    if (lnorm)
      for (int32_t i = 0; i < idim; ++i) quasi[i] = std::exp(quasi[i]);
  }
  call.success();
}

}  // extern "C"
