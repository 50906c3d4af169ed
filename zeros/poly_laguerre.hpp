// All zeros of a polynomial by a modified Laguerre iteration with deflation.
//
// The zeros are found one at a time, each by an iteration that starts at
// the origin and is held to step lengths derived from bounds on the nearest
// zero, and the polynomial is divided by each zero as it is found.  One
// driver serves complex and real coefficients; for real coefficients a
// complex zero is taken with its conjugate and the polynomial is divided by
// the real quadratic factor, so that the arithmetic stays real and the
// zeros come in exact conjugate pairs.
//
// Coefficients are given highest power first: a[0] z^n + a[1] z^(n-1) + ...
// + a[n].  Zeros are written to z[0..n-1] in the order found; the caller
// presets z (see unset_mark), and places that no zero reaches keep what
// they held.
#pragma once
#include <cstddef>

#include "zem/types.h"

namespace zem::poly {

enum class Status : int {
  Ok = 0,
  NotConverged = 2,  // the iteration stalled away from a zero
  Underflow = 3,     // the scale of the working polynomial ran out of range
  Overflow = 4,      // a deflated polynomial or an evaluation overflowed
  AllocFail = 5,     // the workspace of the real driver could not be had
};

// The value in a place of z that no zero reached: -1/(x02akc * sqrt(2)) in
// both parts.
double unset_mark() noexcept;
// The value of a zero at infinity (a leading coefficient that is zero after
// scaling, or a quotient that overflows): 1/x02akc.
double infinite_zero() noexcept;

// Doubles of workspace that complex_zeros needs: two complex arrays of n+1.
constexpr std::size_t complex_workspace(int n) noexcept {
  return 4 * (static_cast<std::size_t>(n) + 1);
}

// n >= 1 and a[0] != 0 are the caller's to check.  With scale set, the
// coefficients are first multiplied by the power of 2 that brings the
// largest to exponent 970.
Status complex_zeros(int n, const ZemComplex* a, bool scale, ZemComplex* z, double* work) noexcept;
// Takes its own workspace of 2*(n+1) doubles.
Status real_zeros(int n, const double* a, bool scale, ZemComplex* z) noexcept;

}  // namespace zem::poly
