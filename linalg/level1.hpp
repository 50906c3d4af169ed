// Level-1 vector kernels and operations on packed triangular matrices, as
// inline functions for the library's own cores.  Vectors are addressed with
// a stride (inc >= 1); packed triangles are stored row by row:
//   R(i,j), 0 <= i <= j < n, at r[i*n - i*(i-1)/2 + (j-i)].
#pragma once
#include <cmath>
#include <cstddef>

namespace zem::blas1 {

// Euclidean norm by a running scale and scaled sum of squares: no overflow
// or destructive underflow for any finite data.  A NaN element gives NaN.
inline double nrm2(long n, const double* x, long inc = 1) noexcept {
  double scale = 0.0, ssq = 1.0;
  for (long i = 0; i < n; ++i, x += inc) {
    const double v = *x;
    if (v == 0.0) continue;
    const double a = std::fabs(v);
    if (scale < a) {
      const double t = scale / a;
      ssq = 1.0 + ssq * t * t;
      scale = a;
    } else {
      const double t = a / scale;
      ssq += t * t;
    }
  }
  return scale * std::sqrt(ssq);
}

// Euclidean norm with three accumulators: magnitudes strictly between
// `small` (1e-19) and `large` (1.304e19 / n) are summed as plain squares,
// the others in sums scaled by the largest magnitude seen in their range.
// Only data outside the middle range pays for a division.
inline double nrm2_3acc(long n, const double* x) noexcept {
  if (n < 1) return 0.0;
  const double small = 1e-19;
  const double large = 1.304e19 / static_cast<double>(n);
  double s1 = 0.0, s2 = 0.0, s3 = 0.0, x1max = 0.0, x3max = 0.0;
  for (long i = 0; i < n; ++i) {
    const double a = std::fabs(x[i]);
    if (a > small && a < large) {
      s2 += a * a;
    } else if (a <= small) {
      if (a > x3max) {
        const double t = x3max / a;
        s3 = 1.0 + s3 * t * t;
        x3max = a;
      } else if (a != 0.0) {
        const double t = a / x3max;
        s3 += t * t;
      }
    } else {  // large magnitudes, infinities and NaNs
      if (a > x1max) {
        const double t = x1max / a;
        s1 = 1.0 + s1 * t * t;
        x1max = a;
      } else {
        const double t = a / x1max;
        s1 += t * t;
      }
    }
  }
  if (s1 != 0.0) return x1max * std::sqrt(s1 + (s2 / x1max) / x1max);
  if (s2 != 0.0) {
    if (s2 >= x3max) return std::sqrt(s2 * (1.0 + (x3max / s2) * (x3max * s3)));
    return std::sqrt(x3max * ((s2 / x3max) + (x3max * s3)));
  }
  return x3max * std::sqrt(s3);
}

// A Euclidean norm held as scale * sqrt(ssq), scale being the largest
// partial norm added so far: partial norms (of vectors, columns, segments)
// combine without overflow or destructive underflow wherever the total is
// representable.  An infinite part makes the total infinite, a NaN makes it
// NaN.
struct ScaledSsq {
  double scale = 0.0;
  double ssq = 1.0;

  // Adds `times` copies of t*t, t >= 0 a partial norm.
  void add(double t, double times = 1.0) noexcept {
    if (t == 0.0 || std::isnan(scale)) return;
    if (std::isnan(t) || std::isinf(t)) {
      scale = t;
      ssq = 1.0;
      return;
    }
    if (scale < t) {
      const double r = scale / t;
      ssq = scale == 0.0 ? times : times + ssq * r * r;
      scale = t;
    } else {
      const double r = t / scale;
      ssq += times * r * r;
    }
  }
  double value() const noexcept { return scale * std::sqrt(ssq); }
};

// |re + i im| without overflow or destructive underflow: the plain square
// root where the sum of squares is a normal number, hypot otherwise.
inline double cabs(double re, double im) noexcept {
  const double s = re * re + im * im;
  if (s >= 2.2250738585072014e-308 && s <= 1.7976931348623157e308) return std::sqrt(s);
  if (re == 0.0 && im == 0.0) return 0.0;
  return std::hypot(re, im);
}

inline double dot(long n, const double* x, long incx, const double* y, long incy) noexcept {
  double s = 0.0;
  for (long i = 0; i < n; ++i, x += incx, y += incy) s += *x * *y;
  return s;
}
inline double dot(long n, const double* x, const double* y) noexcept { return dot(n, x, 1, y, 1); }

// y += a*x
inline void axpy(long n, double a, const double* x, long incx, double* y, long incy) noexcept {
  for (long i = 0; i < n; ++i, x += incx, y += incy) *y += a * *x;
}
inline void axpy(long n, double a, const double* x, double* y) noexcept { axpy(n, a, x, 1, y, 1); }

inline void scal(long n, double a, double* x, long inc = 1) noexcept {
  for (long i = 0; i < n; ++i, x += inc) *x *= a;
}

// Index of R(i,i) in row-packed upper triangular storage of order n.
inline std::size_t packed_diag(long n, long i) noexcept {
  return static_cast<std::size_t>(i) * static_cast<std::size_t>(n) -
         static_cast<std::size_t>(i) * static_cast<std::size_t>(i - 1) / 2;
}

// y = R*x, R upper triangular packed by rows.  y must not alias x.
inline void tpmv_upper(long n, const double* r, const double* x, double* y) noexcept {
  for (long i = 0; i < n; ++i) {
    y[i] = dot(n - i, r, x + i);
    r += n - i;
  }
}

// y = R'*x, R upper triangular packed by rows.  y must not alias x.
inline void tpmv_upper_trans(long n, const double* r, const double* x, double* y) noexcept {
  for (long j = 0; j < n; ++j) y[j] = 0.0;
  for (long i = 0; i < n; ++i) {
    axpy(n - i, x[i], r, y + i);
    r += n - i;
  }
}

// Solves R*x = b in place (x holds b on entry), R upper triangular packed by
// rows, by back substitution.  `pivot(j, rjj)` returns the divisor used for
// row j, so that a caller can replace a zero diagonal element.
template <class Pivot>
inline void tpsv_upper(long n, const double* r, double* x, Pivot pivot) noexcept {
  for (long j = n - 1; j >= 0; --j) {
    const double* row = r + packed_diag(n, j);
    const double s = dot(n - 1 - j, row + 1, x + j + 1);
    x[j] = (x[j] - s) / pivot(j, row[0]);
  }
}

// max |R(i,j)| over i <= j: the column j of R down to the diagonal.
inline double packed_column_amax(long n, const double* r, long j) noexcept {
  double m = 0.0;
  std::size_t l = static_cast<std::size_t>(j);
  for (long i = 0; i <= j; ++i) {
    m = std::fmax(m, std::fabs(r[l]));
    l += static_cast<std::size_t>(n - i - 1);
  }
  return m;
}

}  // namespace zem::blas1
