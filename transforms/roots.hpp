// Roots of unity and the trigonometric table of the multiple-sequence
// routines.
//
// root(j, L) = exp(-2 pi i j / L).  A table of the 8192nd roots, computed
// once, gives it exactly when L divides 8192; otherwise the nearest table
// root is rotated by the small remaining angle, whose numerator is formed
// exactly in integers and whose sine and cosine are short Taylor sums, so
// that every root is within about one rounding of the true value.
#pragma once
#include <cstddef>
#include <cstdint>

#include "transforms/plan.hpp"

namespace zem::fft {

struct Cplx {
  double re, im;
};

inline constexpr int kRootBits = 13;
inline constexpr long kRootCount = 1L << kRootBits;

struct RootTable {
  double re[kRootCount];
  double im[kRootCount];
};
// The 8192nd roots of unity, exp(-2 pi i m / 8192), built on first use.
const RootTable& root_table() noexcept;

// exp(-2 pi i j / L) for 0 <= j < L <= 2^40.
Cplx root(int64_t j, int64_t L) noexcept;

// Roots of one fixed order L: a table lookup when L divides 8192.
class Roots {
 public:
  explicit Roots(int64_t L) noexcept
      : t_(root_table()), L_(L), stride_(kRootCount % L == 0 ? kRootCount / L : 0) {}
  Cplx operator()(int64_t j) const noexcept {
    if (stride_) {
      const int64_t m = (j * stride_) & (kRootCount - 1);
      return {t_.re[m], t_.im[m]};
    }
    return root(j, L_);
  }

 private:
  const RootTable& t_;
  int64_t L_;
  int64_t stride_;
};

// The trigonometric table of a length-n transform: 2n doubles.  The real
// parts of the passes' twiddles fill trig[0 .. n-2] and their imaginary
// parts trig[n .. 2n-2], pass after pass in the order of the plan: pass i
// holds exp(-2 pi i s k / L) for s = 1 .. r-1 and k = 0 .. p-1, with r its
// radix, p the span before it and L = p r, in chunks of four k (chunk c
// holds k = 4c .. 4c + w - 1, w = min(4, p - 4c), for each s in turn), so
// that the twiddles of neighbouring k come together.  trig[n-1] and
// trig[2n-1] hold n itself, which marks the table as made for n.
void fill_trig(const Plan& plan, double* trig) noexcept;
bool trig_matches(const double* trig, long n) noexcept;

}  // namespace zem::fft
