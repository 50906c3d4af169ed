// Helpers of the linear-equation tests: matrices in every storage scheme of
// both orders with a sentinel in each element the scheme does not hold,
// dense reference arithmetic (products, norms, inverses by Gauss-Jordan
// elimination), and generators of well-conditioned test matrices.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#define lapack_complex_double std::complex<double>
#define lapack_complex_float std::complex<float>
#include <lapacke.h>

#include "zem/f07.h"

namespace f07test {

using C = std::complex<double>;
constexpr double kSentinel = -7777.0;
constexpr double kEps = 0x1p-53;  // the unit roundoff that LAPACK calls eps

template <class T>
constexpr bool kComplex = std::is_same_v<T, C>;

inline ZemError record() { return ZemError{}; }

// The library's element pointer for an array of T.
inline double* zp(double* p) { return p; }
inline const double* zp(const double* p) { return p; }
inline ZemComplex* zp(C* p) { return reinterpret_cast<ZemComplex*>(p); }
inline const ZemComplex* zp(const C* p) { return reinterpret_cast<const ZemComplex*>(p); }

// The kernels' letters of the enumerators, for the LAPACKE calls.
inline char trans_char(int t) { return t == Zem_NoTrans ? 'N' : t == Zem_Trans ? 'T' : 'C'; }
inline char uplo_char(int u) { return u == Zem_Upper ? 'U' : 'L'; }
inline char diag_char(int d) { return d == Zem_UnitDiag ? 'U' : 'N'; }
inline char norm_char(int n) { return n == Zem_InfNorm ? 'I' : '1'; }

template <class T>
T conj_of(T v) {
  if constexpr (kComplex<T>) return std::conj(v);
  else return v;
}

template <class T>
T random_value(std::mt19937_64& rng) {
  std::uniform_real_distribution<double> u(-1.0, 1.0);
  if constexpr (kComplex<T>) return C(u(rng), u(rng));
  else return u(rng);
}

enum class Scheme { General, Upper, Lower, Band, PackedUpper, PackedLower };

// A matrix in one storage scheme and order.  Every element of the array that
// the scheme does not hold (the padding beyond each row or column, the other
// triangle, the corners outside the band, the guard after a packed array)
// starts as the sentinel.
template <class T>
struct Mat {
  int rows = 0, cols = 0, ld = 1;
  bool row_major = false;
  Scheme scheme = Scheme::General;
  int kl = 0, ku = 0, fill = 0;  // band only
  std::vector<T> a;

  Mat() = default;
  // A general r by c matrix with pad spare elements after each row
  // (row-major) or column (column-major).
  Mat(int r, int c, bool rm, int pad = 3) : rows(r), cols(c), ld((rm ? c : r) + pad), row_major(rm) {
    a.assign(static_cast<std::size_t>(ld) * std::max(1, rm ? r : c), T(kSentinel));
  }
  // The triangle upper or lower of an order n matrix in full storage.
  static Mat triangle(int n, bool upper, bool rm, int pad = 3) {
    Mat m(n, n, rm, pad);
    m.scheme = upper ? Scheme::Upper : Scheme::Lower;
    return m;
  }
  // An r by c band matrix with kl sub- and ku super-diagonals, and fill more
  // super-diagonals of workspace: row-major row i holds (i, j) at
  // i*ld + kl + j - i, column-major column j at (ku+fill) + i - j + j*ld.
  static Mat band(int r, int c, int kl, int ku, int fill, bool rm, int pad = 2) {
    Mat m;
    m.rows = r;
    m.cols = c;
    m.kl = kl;
    m.ku = ku;
    m.fill = fill;
    m.row_major = rm;
    m.scheme = Scheme::Band;
    m.ld = kl + ku + fill + 1 + pad;
    m.a.assign(static_cast<std::size_t>(m.ld) * std::max(1, rm ? r : c), T(kSentinel));
    return m;
  }
  // The triangle of an order n matrix, packed, followed by guard elements.
  static Mat packed(int n, bool upper, bool rm, int guard = 4) {
    Mat m;
    m.rows = m.cols = n;
    m.row_major = rm;
    m.scheme = upper ? Scheme::PackedUpper : Scheme::PackedLower;
    m.a.assign(static_cast<std::size_t>(n) * (n + 1) / 2 + guard, T(kSentinel));
    return m;
  }
  // The same scheme and shape in the order rm, holding the same elements.
  Mat like(bool rm) const {
    Mat m = *this;
    m.row_major = rm;
    if (scheme == Scheme::General || scheme == Scheme::Upper || scheme == Scheme::Lower) {
      const int pad = ld - (row_major ? cols : rows);
      m.ld = (rm ? cols : rows) + pad;
      m.a.assign(static_cast<std::size_t>(m.ld) * std::max(1, rm ? rows : cols), T(kSentinel));
    } else {
      std::fill(m.a.begin(), m.a.end(), T(kSentinel));
      if (scheme == Scheme::Band) m.a.resize(static_cast<std::size_t>(ld) * std::max(1, rm ? rows : cols), T(kSentinel));
    }
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j)
        if (held(i, j)) m(i, j) = (*this)(i, j);
    return m;
  }

  // Where element (i, j) lives in a, or -1 when the scheme does not hold it.
  long pos(int i, int j) const {
    if (i < 0 || j < 0 || i >= rows || j >= cols) return -1;
    const long I = i, J = j, L = ld, n = rows;
    switch (scheme) {
      case Scheme::Upper:
        if (i > j) return -1;
        break;
      case Scheme::Lower:
        if (i < j) return -1;
        break;
      case Scheme::Band:
        if (J - I > ku + fill || I - J > kl) return -1;
        return row_major ? I * L + kl + J - I : (ku + fill) + I - J + J * L;
      case Scheme::PackedUpper:
        if (i > j) return -1;
        return row_major ? I * (2 * n - I + 1) / 2 + J - I : I + J * (J + 1) / 2;
      case Scheme::PackedLower:
        if (i < j) return -1;
        return row_major ? I * (I + 1) / 2 + J : I - J + J * (2 * n - J + 1) / 2;
      case Scheme::General:
        break;
    }
    return row_major ? I * L + J : I + J * L;
  }
  bool held(int i, int j) const { return pos(i, j) >= 0; }
  T& operator()(int i, int j) {
    const long p = pos(i, j);
    if (p < 0) throw std::out_of_range("element (" + std::to_string(i) + "," + std::to_string(j) + ") is not stored");
    return a[static_cast<std::size_t>(p)];
  }
  T operator()(int i, int j) const { return const_cast<Mat&>(*this)(i, j); }
  // The element, or 0 where the scheme holds none.
  T value(int i, int j) const {
    const long p = pos(i, j);
    return p < 0 ? T(0) : a[static_cast<std::size_t>(p)];
  }

  int order() const { return row_major ? Zem_RowMajor : Zem_ColMajor; }
  int layout() const { return row_major ? LAPACK_ROW_MAJOR : LAPACK_COL_MAJOR; }
  T* data() { return a.data(); }
  const T* data() const { return a.data(); }

  // True when every element that the scheme does not hold is still the
  // sentinel.  In column-major band storage the fill rows at the top of
  // every column are the kernel's workspace, also where they lie beyond the
  // last row of the matrix, and are not checked.
  bool padding_intact() const {
    std::vector<char> mine(a.size(), 0);
    if (scheme == Scheme::Band && !row_major)
      for (int j = 0; j < cols; ++j)
        for (int r = 0; r < fill; ++r) mine[static_cast<std::size_t>(r) + static_cast<std::size_t>(j) * ld] = 1;
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j) {
        const long p = pos(i, j);
        if (p >= 0) mine[static_cast<std::size_t>(p)] = 1;
      }
    for (std::size_t k = 0; k < a.size(); ++k)
      if (!mine[k] && a[k] != T(kSentinel)) return false;
    return true;
  }
};

// A dense r by c matrix of zeros (column-major, no padding): the reference
// arithmetic works on these.
template <class T>
Mat<T> zeros(int r, int c) {
  Mat<T> m(r, c, false, 0);
  std::fill(m.a.begin(), m.a.end(), T(0));
  return m;
}

// Writes the elements of dense that s holds into s.
template <class T>
void store(const Mat<T>& dense, Mat<T>& s) {
  for (int i = 0; i < s.rows; ++i)
    for (int j = 0; j < s.cols; ++j)
      if (s.held(i, j)) s(i, j) = dense(i, j);
}

// A copy of s in storage order rm (s itself when it is in that order).
template <class T>
Mat<T> in_order(const Mat<T>& s, bool rm) {
  return s.row_major == rm ? s : s.like(rm);
}

template <class T>
Mat<T> random_matrix(int r, int c, bool rm, std::mt19937_64& rng) {
  Mat<T> m(r, c, rm);
  for (int i = 0; i < r; ++i)
    for (int j = 0; j < c; ++j) m(i, j) = random_value<T>(rng);
  return m;
}

// A Hermitian (symmetric) positive definite matrix, B^H B + n I.
template <class T>
Mat<T> spd_matrix(int n, bool rm, std::mt19937_64& rng) {
  Mat<T> b = random_matrix<T>(n, n, rm, rng), a(n, n, rm);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      T s = i == j ? T(n) : T(0);
      for (int k = 0; k < n; ++k) s += conj_of(b(k, i)) * b(k, j);
      a(i, j) = s;
    }
  for (int i = 0; i < n; ++i) a(i, i) = std::real(a(i, i));
  return a;
}

// op(A) as a dense matrix: A, A^T or A^H (the elements A does not hold are 0).
template <class T>
Mat<T> op_of(const Mat<T>& a, int trans = Zem_NoTrans) {
  const bool t = trans != Zem_NoTrans;
  Mat<T> r = zeros<T>(t ? a.cols : a.rows, t ? a.rows : a.cols);
  for (int i = 0; i < a.rows; ++i)
    for (int j = 0; j < a.cols; ++j) {
      const T v = a.value(i, j);
      if (!t) r(i, j) = v;
      else r(j, i) = trans == Zem_ConjTrans ? conj_of(v) : v;
    }
  return r;
}

// The dense product op(A) X.
template <class T>
Mat<T> multiply(const Mat<T>& a, const Mat<T>& x, int trans = Zem_NoTrans) {
  const Mat<T> op = op_of(a, trans);
  Mat<T> r = zeros<T>(op.rows, x.cols);
  for (int j = 0; j < x.cols; ++j)
    for (int k = 0; k < op.cols; ++k) {
      const T xv = x.value(k, j);
      for (int i = 0; i < op.rows; ++i) r(i, j) += op(i, k) * xv;
    }
  return r;
}

template <class T>
double norm1(const Mat<T>& a) {
  double best = 0;
  for (int j = 0; j < a.cols; ++j) {
    double s = 0;
    for (int i = 0; i < a.rows; ++i) s += std::abs(a.value(i, j));
    best = std::max(best, s);
  }
  return best;
}

template <class T>
double norm_inf(const Mat<T>& a) {
  return norm1(op_of(a, Zem_Trans));
}

// The inverse of a dense square matrix by Gauss-Jordan elimination with
// partial pivoting: a reference independent of the library and of LAPACK.
template <class T>
Mat<T> inverse(const Mat<T>& a) {
  const int n = a.rows;
  Mat<T> w = op_of(a), inv = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) inv(i, i) = T(1);
  for (int k = 0; k < n; ++k) {
    int p = k;
    for (int i = k + 1; i < n; ++i)
      if (std::abs(w(i, k)) > std::abs(w(p, k))) p = i;
    if (w(p, k) == T(0)) throw std::domain_error("singular reference matrix");
    for (int j = 0; j < n; ++j) {
      std::swap(w(k, j), w(p, j));
      std::swap(inv(k, j), inv(p, j));
    }
    const T d = T(1) / w(k, k);
    for (int j = 0; j < n; ++j) {
      w(k, j) *= d;
      inv(k, j) *= d;
    }
    for (int i = 0; i < n; ++i) {
      if (i == k || w(i, k) == T(0)) continue;
      const T f = w(i, k);
      for (int j = 0; j < n; ++j) {
        w(i, j) -= f * w(k, j);
        inv(i, j) -= f * inv(k, j);
      }
    }
  }
  return inv;
}

// The true reciprocal condition number 1 / (||A|| ||A^-1||) in the 1-norm
// (norm Zem_OneNorm) or the infinity-norm.
template <class T>
double true_rcond(const Mat<T>& a, int norm = Zem_OneNorm) {
  const Mat<T> inv = inverse(a);
  if (norm == Zem_InfNorm) return 1.0 / (norm_inf(a) * norm_inf(inv));
  return 1.0 / (norm1(a) * norm1(inv));
}

// max_j ||B_j - op(A) X_j||_1 / (n ||op(A)||_1 ||X_j||_1 eps): the scaled
// residual of a solve, as LAPACK's own tests measure it.
template <class T>
double solve_residual(const Mat<T>& a, const Mat<T>& x, const Mat<T>& b, int trans = Zem_NoTrans) {
  const Mat<T> ax = multiply(a, x, trans);
  const double an = norm1(op_of(a, trans));
  double worst = 0;
  for (int j = 0; j < x.cols; ++j) {
    double r = 0, xn = 0;
    for (int i = 0; i < ax.rows; ++i) r += std::abs(b(i, j) - ax(i, j));
    for (int i = 0; i < x.rows; ++i) xn += std::abs(x(i, j));
    if (r == 0) continue;
    worst = std::max(worst, r / (std::max(1, a.rows) * an * std::max(xn, 1e-300) * kEps));
  }
  return worst;
}

// ||A B - I||_1 / (n ||A||_1 ||B||_1 eps): how well B inverts A.
template <class T>
double inverse_residual(const Mat<T>& a, const Mat<T>& b) {
  Mat<T> r = multiply(a, b);
  for (int i = 0; i < r.rows; ++i) r(i, i) -= T(1);
  return norm1(r) / (std::max(1, a.rows) * norm1(a) * norm1(b) * kEps);
}

// Per column, max_i |x_ij - t_ij| / max_i |x_ij|: the measure that LAPACK's
// forward error bounds ferr bound.  Its complex routines scale by the
// largest |re| + |im| of the column of x, so the complex measure does too.
template <class T>
std::vector<double> column_errors(const Mat<T>& x, const Mat<T>& t) {
  std::vector<double> e(static_cast<std::size_t>(x.cols));
  for (int j = 0; j < x.cols; ++j) {
    double d = 0, m = 0;
    for (int i = 0; i < x.rows; ++i) {
      d = std::max(d, std::abs(x(i, j) - t(i, j)));
      m = std::max(m, std::abs(std::real(x(i, j))) + std::abs(std::imag(x(i, j))));
    }
    e[static_cast<std::size_t>(j)] = m > 0 ? d / m : d;
  }
  return e;
}

// The elements of ours and ref agree to the last bit: the whole arrays (the
// sentinels included) when both are in the same order, else every element
// the scheme holds.
template <class T>
testing::AssertionResult same_as(const Mat<T>& ours, const Mat<T>& ref) {
  if (ours.row_major == ref.row_major && ours.ld == ref.ld) {
    if (ours.a.size() != ref.a.size()) return testing::AssertionFailure() << "array sizes differ";
    for (std::size_t k = 0; k < ours.a.size(); ++k)
      if (ours.a[k] != ref.a[k])
        return testing::AssertionFailure() << "element " << k << ": " << ours.a[k] << " != " << ref.a[k];
    return testing::AssertionSuccess();
  }
  for (int i = 0; i < ours.rows; ++i)
    for (int j = 0; j < ours.cols; ++j)
      if (ours.held(i, j) && ours(i, j) != ref(i, j))
        return testing::AssertionFailure() << "(" << i << "," << j << "): " << ours(i, j) << " != " << ref(i, j);
  return testing::AssertionSuccess();
}

}  // namespace f07test
