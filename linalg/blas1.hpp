// Vector loops of the level-1 helpers that have no BLAS counterpart, or
// whose BLAS counterpart does not cover every increment, for real and
// complex elements alike.
//
// A vector of n elements with increment inc holds element i (0-based) at
// x[i*inc] when inc >= 0 and at x[(n-1-i)*|inc|] when inc < 0, as in the
// reference BLAS; an increment of 0 makes every element the one x[0].  The
// loops visit i = 0, 1, ..., n-1 in order, so that a result is defined for
// every increment.
#pragma once
#include <cmath>
#include <complex>
#include <cstdint>
#include <type_traits>

#include "linalg/level1.hpp"

namespace zem::blas1 {

using Complex = std::complex<double>;

// The address of element 0.
template <class T>
inline T* first(T* x, long n, long inc) noexcept {
  return inc < 0 ? x + (1 - n) * inc : x;
}

inline double magnitude(double v) noexcept { return std::fabs(v); }
inline double magnitude(const Complex& v) noexcept { return cabs(v.real(), v.imag()); }
// The BLAS measure of a complex element for its index of the largest one.
inline double abs1(double v) noexcept { return std::fabs(v); }
inline double abs1(const Complex& v) noexcept { return std::fabs(v.real()) + std::fabs(v.imag()); }

template <class T>
inline T conj_if(const T& v) noexcept {
  if constexpr (std::is_same_v<T, Complex>) return std::conj(v);
  else return v;
}

// x = alpha.
template <class T>
inline void fill(long n, T alpha, T* x, long inc) noexcept {
  if (inc == 1) {
    for (long i = 0; i < n; ++i) x[i] = alpha;
    return;
  }
  x = first(x, n, inc);
  for (long i = 0; i < n; ++i) x[i * inc] = alpha;
}

// x = alpha x; alpha = 0 sets every element to 0, whatever it held.
template <class T>
inline void scale(long n, T alpha, T* x, long inc) noexcept {
  if (alpha == T(0)) {
    fill(n, T(0), x, inc);
    return;
  }
  x = first(x, n, inc);
  for (long i = 0; i < n; ++i) x[i * inc] *= alpha;
}

// y = alpha x.
template <class T>
inline void scale_copy(long n, T alpha, const T* x, long incx, T* y, long incy) noexcept {
  if (incx == 1 && incy == 1) {
    for (long i = 0; i < n; ++i) y[i] = alpha * x[i];
    return;
  }
  x = first(x, n, incx);
  y = first(y, n, incy);
  for (long i = 0; i < n; ++i) y[i * incy] = alpha * x[i * incx];
}

// y = alpha x + beta y; beta = 0 does not read y, alpha = 0 does not read x.
template <class T>
inline void axpby(long n, T alpha, const T* x, long incx, T beta, T* y, long incy) noexcept {
  if (beta == T(0)) {
    if (alpha == T(0)) fill(n, T(0), y, incy);
    else scale_copy(n, alpha, x, incx, y, incy);
    return;
  }
  if (alpha == T(0)) {
    scale(n, beta, y, incy);
    return;
  }
  if (incx == 1 && incy == 1) {
    for (long i = 0; i < n; ++i) y[i] = alpha * x[i] + beta * y[i];
    return;
  }
  x = first(x, n, incx);
  y = first(y, n, incy);
  for (long i = 0; i < n; ++i) y[i * incy] = alpha * x[i * incx] + beta * y[i * incy];
}

// op(x_i, y_i) for i = 0, 1, ..., n-1 in order, y_i written: the loop for
// increments that the BLAS does not define (an increment of 0 for x).
template <class T, class Op>
inline void each2(long n, const T* x, long incx, T* y, long incy, Op op) noexcept {
  x = first(x, n, incx);
  y = first(y, n, incy);
  for (long i = 0; i < n; ++i) op(x[i * incx], y[i * incy]);
}

// sum x_i y_i, or conj(x_i) y_i with Conj.
template <bool Conj, class T>
inline T dot_any(long n, const T* x, long incx, const T* y, long incy) noexcept {
  x = first(x, n, incx);
  y = first(y, n, incy);
  T s(0);
  for (long i = 0; i < n; ++i) s += (Conj ? conj_if(x[i * incx]) : x[i * incx]) * y[i * incy];
  return s;
}

// The index i of the first element of largest measure (abs1); a NaN counts
// as larger than any number, so that the first NaN is found.  -1 for n = 0.
template <class T>
inline long amax_index(long n, const T* x, long inc) noexcept {
  if (n <= 0) return -1;
  x = first(x, n, inc);
  long best = 0;
  double m = abs1(x[0]);
  if (std::isnan(m)) return 0;
  for (long i = 1; i < n; ++i) {
    const double a = abs1(x[i * inc]);
    if (a > m) {
      m = a;
      best = i;
    } else if (std::isnan(a)) {
      return i;
    }
  }
  return best;
}

}  // namespace zem::blas1
