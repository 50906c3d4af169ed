// Eigenproblems, orthogonal factorisations and the singular value
// decomposition in both storage orders, real and complex, grouped by family.
// Each factorisation is checked by the identity it promises (Q R = A,
// Q T Q^H = A, A V = V diag(w), U S V^T = A, Z T Z^H = H, ...) with
// residuals scaled by norm, size and precision below 30 as in LAPACK's own
// tests, by the orthonormality of its factors, and against LAPACKE on the
// same data where the storage is the same (then to the last bit: both end in
// the same kernel on the same column-major data).  Elements outside the
// stored part keep their sentinels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numeric>
#include <string>
#include <vector>

#include "f07_test_util.hpp"
#include "zem/f08.h"

namespace {

using namespace f07test;

constexpr double kBound = 30.0;  // scaled residuals, as LAPACK's tests

// Calls the real or the complex export of a pair with the same arguments.
#define PICK(dname, zname, ...)                \
  do {                                         \
    if constexpr (kComplex<T>) zname(__VA_ARGS__); \
    else dname(__VA_ARGS__);                   \
  } while (0)

template <class T>
Mat<T> identity(int n) {
  Mat<T> m = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) m(i, i) = T(1);
  return m;
}

template <class T>
Mat<T> adjoint(const Mat<T>& a) {
  return op_of(a, Zem_ConjTrans);
}

template <class T>
Mat<T> product(const Mat<T>& a, const Mat<T>& b) {
  return multiply(a, b);
}

template <class T>
Mat<T> product(const Mat<T>& a, const Mat<T>& b, const Mat<T>& c) {
  return multiply(multiply(a, b), c);
}

// The dense (column-major, unpadded) copy of the r by c leading block.
template <class T>
Mat<T> block(const Mat<T>& a, int r, int c) {
  Mat<T> d = zeros<T>(r, c);
  for (int i = 0; i < r; ++i)
    for (int j = 0; j < c; ++j) d(i, j) = a.value(i, j);
  return d;
}

template <class T>
double diff1(const Mat<T>& x, const Mat<T>& y) {
  double best = 0;
  for (int j = 0; j < x.cols; ++j) {
    double s = 0;
    for (int i = 0; i < x.rows; ++i) s += std::abs(x.value(i, j) - y.value(i, j));
    best = std::max(best, s);
  }
  return best;
}

// ||X - Y||_1 / (max(n,1) ||A||_1 eps): how well a factorisation X
// reproduces Y, scaled by the size n and the norm of the problem.
template <class T>
double resid(const Mat<T>& x, const Mat<T>& y, double anorm, int n) {
  const double d = diff1(x, y);
  if (d == 0) return 0;
  return d / (std::max(n, 1) * std::max(anorm, 1e-300) * kEps);
}

// ||Q^H Q - I||_1 / (n eps) for orthonormal columns (or rows, by rows).
template <class T>
double orthonormality(const Mat<T>& q, bool rows = false) {
  const Mat<T> g = rows ? product(q, adjoint(q)) : product(adjoint(q), q);
  return resid(g, identity<T>(g.rows), 1.0, std::max(q.rows, q.cols));
}

// A general matrix in order rm holding the dense matrix d.
template <class T>
Mat<T> general(const Mat<T>& d, bool rm, int pad = 3) {
  Mat<T> m(d.rows, d.cols, rm, pad);
  store(d, m);
  return m;
}

template <class T>
Mat<T> random_dense(int r, int c, std::mt19937_64& rng) {
  Mat<T> m = zeros<T>(r, c);
  for (int i = 0; i < r; ++i)
    for (int j = 0; j < c; ++j) m(i, j) = random_value<T>(rng);
  return m;
}

// A random Hermitian (real symmetric) matrix.
template <class T>
Mat<T> hermitian(int n, std::mt19937_64& rng) {
  Mat<T> a = random_dense<T>(n, n, rng);
  for (int i = 0; i < n; ++i) {
    a(i, i) = std::real(a(i, i));
    for (int j = 0; j < i; ++j) a(i, j) = conj_of(a(j, i));
  }
  return a;
}

// The dense Hermitian matrix whose triangle uplo a holds.
template <class T>
Mat<T> from_triangle(const Mat<T>& a, bool upper) {
  const int n = a.rows;
  Mat<T> d = zeros<T>(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      const bool mine = upper ? i <= j : i >= j;
      d(i, j) = mine ? a(i, j) : conj_of(a(j, i));
    }
  return d;
}

// The n by n tridiagonal (bidiagonal when lower_e or upper_e only) matrix.
template <class T>
Mat<T> tridiagonal(const std::vector<double>& d, const std::vector<double>& e, int n, bool sub = true,
                   bool super = true) {
  Mat<T> t = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) t(i, i) = d[i];
  for (int i = 0; i + 1 < n; ++i) {
    if (sub) t(i + 1, i) = e[i];
    if (super) t(i, i + 1) = e[i];
  }
  return t;
}

template <class T>
Mat<T> diagonal(const std::vector<double>& w, int n) {
  Mat<T> d = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) d(i, i) = w[i];
  return d;
}

template <class T>
Mat<C> to_complex(const Mat<T>& a) {
  Mat<C> c = zeros<C>(a.rows, a.cols);
  for (int i = 0; i < a.rows; ++i)
    for (int j = 0; j < a.cols; ++j) c(i, j) = a.value(i, j);
  return c;
}

// The eigenvectors in the columns of v as complex vectors: a real
// eigenvalue's vector is one column, a complex pair (wi[j] > 0) takes two,
// the real and the imaginary part of the vector of wr[j] + i wi[j].  For
// complex data the columns are the vectors.  cols: the columns to read.
template <class T>
Mat<C> eigenvectors(const Mat<T>& v, const std::vector<double>& wi, int cols) {
  Mat<C> x = zeros<C>(v.rows, cols);
  for (int j = 0; j < cols; ++j) {
    if constexpr (kComplex<T>) {
      for (int i = 0; i < v.rows; ++i) x(i, j) = v(i, j);
    } else if (wi[j] > 0) {
      for (int i = 0; i < v.rows; ++i) {
        x(i, j) = C(v(i, j), v(i, j + 1));
        x(i, j + 1) = C(v(i, j), -v(i, j + 1));
      }
      ++j;
    } else {
      for (int i = 0; i < v.rows; ++i) x(i, j) = v(i, j);
    }
  }
  return x;
}

// max_j ||A x_j - lambda_j B x_j||_1 / (n (||A||_1 + |lambda_j| ||B||_1) ||x_j||_1 eps)
// over the columns of x (B the identity when absent); left: y^H A = lambda y^H B.
double eigen_residual(const Mat<C>& a, const Mat<C>& x, const std::vector<C>& lambda, bool left = false,
                      const Mat<C>* b = nullptr) {
  const int n = a.rows;
  const Mat<C> aa = left ? adjoint(a) : a;
  Mat<C> bb = b ? (left ? adjoint(*b) : *b) : identity<C>(n);
  const Mat<C> ax = product(aa, x), bx = product(bb, x);
  const double an = norm1(a), bn = b ? norm1(*b) : 1.0;
  double worst = 0;
  for (int j = 0; j < x.cols; ++j) {
    const C l = left ? std::conj(lambda[j]) : lambda[j];
    double r = 0, xn = 0;
    for (int i = 0; i < n; ++i) {
      r += std::abs(ax(i, j) - l * bx(i, j));
      xn += std::abs(x(i, j));
    }
    if (r == 0) continue;
    worst = std::max(worst, r / (std::max(n, 1) * (an + std::abs(l) * bn) * std::max(xn, 1e-300) * kEps));
  }
  return worst;
}

// The upper trapezoid (upper) or lower trapezoid of a's leading r by c block.
template <class T>
Mat<T> trapezoid(const Mat<T>& a, int r, int c, bool upper) {
  Mat<T> d = zeros<T>(r, c);
  for (int i = 0; i < r; ++i)
    for (int j = 0; j < c; ++j)
      if (upper ? i <= j : i >= j) d(i, j) = a(i, j);
  return d;
}

template <class T>
std::vector<T> sentinels(int n) {
  return std::vector<T>(static_cast<std::size_t>(std::max(n, 1)), T(kSentinel));
}

class F08Orders : public testing::TestWithParam<bool> {
 protected:
  std::mt19937_64 rng{20260311};
  bool rm() const { return GetParam(); }
};

// ---------------------------------------------------------------------------
// QR and LQ factorisations and their orthogonal factors.

template <class T>
void qr_family(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int tr = kComplex<T> ? Zem_ConjTrans : Zem_Trans;
  for (auto [m, n] : {std::pair{0, 0}, {1, 1}, {6, 4}, {4, 6}, {37, 23}, {23, 37}}) {
    const int k = std::min(m, n);
    const Mat<T> a0 = random_dense<T>(m, n, rng);
    const double an = norm1(a0);
    // A = Q R.
    Mat<T> f = general(a0, rm), ref = f;
    std::vector<T> tau = sentinels<T>(k), tau_ref = tau;
    PICK(f08aec, f08asc, f.order(), m, n, zp(f.data()), f.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if constexpr (kComplex<T>) LAPACKE_zgeqrf(ref.layout(), m, n, ref.data(), ref.ld, tau_ref.data());
    else LAPACKE_dgeqrf(ref.layout(), m, n, ref.data(), ref.ld, tau_ref.data());
    EXPECT_TRUE(same_as(f, ref)) << m << "x" << n;
    EXPECT_EQ(tau, tau_ref);
    EXPECT_TRUE(f.padding_intact());
    Mat<T> q = general(block(f, m, k), rm);
    PICK(f08afc, f08atc, q.order(), m, k, k, zp(q.data()), q.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_LT(orthonormality(block(q, m, k)), kBound);
    EXPECT_LT(resid(product(block(q, m, k), trapezoid(f, k, n, true)), a0, an, std::max(m, n)), kBound);
    // Multiplying by Q equals forming it: the full m by m Q against C.
    if (m > 0) {
      Mat<T> qf = general(block(f, m, m), rm);
      PICK(f08afc, f08atc, qf.order(), m, m, k, zp(qf.data()), qf.ld, zp(tau.data()), &e);
      ASSERT_EQ(e.code, 0);
      const Mat<T> full = block(qf, m, m);
      EXPECT_LT(orthonormality(full), kBound);
      for (int side : {Zem_LeftSide, Zem_RightSide})
        for (int trans : {static_cast<int>(Zem_NoTrans), tr}) {
          const bool left = side == Zem_LeftSide;
          const Mat<T> c0 = random_dense<T>(left ? m : 3, left ? 3 : m, rng);
          Mat<T> c = general(c0, rm);
          const Mat<T> op = trans == Zem_NoTrans ? full : adjoint(full);
          PICK(f08agc, f08auc, c.order(), side, trans, c.rows, c.cols, k, zp(f.data()), f.ld, zp(tau.data()),
               zp(c.data()), c.ld, &e);
          ASSERT_EQ(e.code, 0) << e.message;
          EXPECT_LT(resid(block(c, c.rows, c.cols), left ? product(op, c0) : product(c0, op), norm1(c0), m),
                    kBound);
          EXPECT_TRUE(c.padding_intact());
        }
    }
    // A = L Q.
    Mat<T> g = general(a0, rm), gref = g;
    PICK(f08ahc, f08avc, g.order(), m, n, zp(g.data()), g.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0);
    // (LAPACKE gives the kernel no workspace at all for an empty matrix,
    // which it refuses.)
    if (k == 0) {
    } else if constexpr (kComplex<T>) {
      LAPACKE_zgelqf(gref.layout(), m, n, gref.data(), gref.ld, tau_ref.data());
    } else {
      LAPACKE_dgelqf(gref.layout(), m, n, gref.data(), gref.ld, tau_ref.data());
    }
    EXPECT_TRUE(same_as(g, gref));
    EXPECT_EQ(tau, tau_ref);
    Mat<T> p = general(block(g, k, n), rm);
    PICK(f08ajc, f08awc, p.order(), k, n, k, zp(p.data()), p.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_LT(orthonormality(block(p, k, n), true), kBound);
    EXPECT_LT(resid(product(trapezoid(g, m, k, false), block(p, k, n)), a0, an, std::max(m, n)), kBound);
    if (n > 0) {
      Mat<T> pf = general(block(g, n, n), rm);
      PICK(f08ajc, f08awc, pf.order(), n, n, k, zp(pf.data()), pf.ld, zp(tau.data()), &e);
      ASSERT_EQ(e.code, 0);
      const Mat<T> full = block(pf, n, n);
      for (int side : {Zem_LeftSide, Zem_RightSide})
        for (int trans : {static_cast<int>(Zem_NoTrans), tr}) {
          const bool left = side == Zem_LeftSide;
          const Mat<T> c0 = random_dense<T>(left ? n : 2, left ? 2 : n, rng);
          Mat<T> c = general(c0, rm);
          const Mat<T> op = trans == Zem_NoTrans ? full : adjoint(full);
          PICK(f08akc, f08axc, c.order(), side, trans, c.rows, c.cols, k, zp(g.data()), g.ld, zp(tau.data()),
               zp(c.data()), c.ld, &e);
          ASSERT_EQ(e.code, 0) << e.message;
          EXPECT_LT(resid(block(c, c.rows, c.cols), left ? product(op, c0) : product(c0, op), norm1(c0), n),
                    kBound);
        }
    }
  }
}

TEST_P(F08Orders, QrAndLqReal) { qr_family<double>(rm(), rng); }
TEST_P(F08Orders, QrAndLqComplex) { qr_family<C>(rm(), rng); }

template <class T>
void pivoted_qr(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int m = 30, n = 20;
  // Rank 12: the pivoting must find the 12 independent columns first.
  const Mat<T> a0 = product(random_dense<T>(m, 12, rng), random_dense<T>(12, n, rng));
  Mat<T> f = general(a0, rm), ref = f;
  std::vector<int32_t> jpvt(n, 0), jpvt_ref(n, 0);
  jpvt[5] = jpvt_ref[5] = 1;  // column 5 leads
  std::vector<T> tau = sentinels<T>(n), tau_ref = tau;
  PICK(f08bec, f08bsc, f.order(), m, n, zp(f.data()), f.ld, jpvt.data(), zp(tau.data()), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  if constexpr (kComplex<T>) LAPACKE_zgeqp3(ref.layout(), m, n, ref.data(), ref.ld, jpvt_ref.data(), tau_ref.data());
  else LAPACKE_dgeqp3(ref.layout(), m, n, ref.data(), ref.ld, jpvt_ref.data(), tau_ref.data());
  EXPECT_TRUE(same_as(f, ref));
  EXPECT_EQ(jpvt, jpvt_ref);
  EXPECT_EQ(jpvt[0], 6);
  std::vector<int32_t> sorted = jpvt;
  std::sort(sorted.begin(), sorted.end());
  for (int j = 0; j < n; ++j) EXPECT_EQ(sorted[j], j + 1);
  // A P = Q R, and the diagonal of R falls after the leading column.
  Mat<T> q = general(block(f, m, n), rm);
  PICK(f08afc, f08atc, q.order(), m, n, n, zp(q.data()), q.ld, zp(tau.data()), &e);
  ASSERT_EQ(e.code, 0);
  Mat<T> ap = zeros<T>(m, n);
  for (int j = 0; j < n; ++j)
    for (int i = 0; i < m; ++i) ap(i, j) = a0(i, jpvt[j] - 1);
  EXPECT_LT(resid(product(block(q, m, n), trapezoid(f, n, n, true)), ap, norm1(a0), m), kBound);
  for (int j = 2; j < n; ++j) EXPECT_LE(std::abs(f(j, j)), std::abs(f(j - 1, j - 1)) * (1 + 1e-12));
  EXPECT_LT(std::abs(f(12, 12)), 1e-12 * norm1(a0));
}

TEST_P(F08Orders, PivotedQrReal) { pivoted_qr<double>(rm(), rng); }
TEST_P(F08Orders, PivotedQrComplex) { pivoted_qr<C>(rm(), rng); }


// ---------------------------------------------------------------------------
// Symmetric and Hermitian eigenproblems: full, packed and band storage.

// The band of a dense Hermitian matrix: elements beyond kd off the diagonal
// become 0.
template <class T>
Mat<T> band_part(const Mat<T>& a, int kd) {
  Mat<T> b = a;
  for (int i = 0; i < a.rows; ++i)
    for (int j = 0; j < a.cols; ++j)
      if (std::abs(i - j) > kd) b(i, j) = T(0);
  return b;
}

// Eigenvalues of a dense Hermitian matrix from LAPACKE's QR-based solver: a
// reference by another algorithm than the divide and conquer under test.
template <class T>
std::vector<double> reference_eigenvalues(const Mat<T>& a) {
  Mat<T> c = a;
  std::vector<double> w(static_cast<std::size_t>(std::max(1, a.rows)));
  if (a.rows == 0) return w;
  if constexpr (kComplex<T>) LAPACKE_zheev(LAPACK_COL_MAJOR, 'N', 'U', a.rows, c.data(), c.ld, w.data());
  else LAPACKE_dsyev(LAPACK_COL_MAJOR, 'N', 'U', a.rows, c.data(), c.ld, w.data());
  return w;
}

// The eigenvalues agree with the reference to 30 n eps ||A||_1, and the
// eigenvectors in v satisfy A V = V diag(w) with V orthonormal.
template <class T>
void expect_eigensystem(const Mat<T>& a, const std::vector<double>& w, const Mat<T>* v) {
  const int n = a.rows;
  const double an = norm1(a);
  const std::vector<double> ref = reference_eigenvalues(a);
  for (int i = 0; i < n; ++i) {
    EXPECT_LE(std::abs(w[i] - ref[i]), kBound * n * kEps * std::max(an, 1.0)) << i;
    if (i) {
      EXPECT_LE(w[i - 1], w[i]);
    }
  }
  if (v) {
    const Mat<T> vv = block(*v, n, n);
    EXPECT_LT(resid(product(a, vv), product(vv, diagonal<T>(w, n)), an, n), kBound);
    EXPECT_LT(orthonormality(vv), kBound);
  }
}

template <class T>
void symmetric_family(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int tr = kComplex<T> ? Zem_ConjTrans : Zem_Trans;
  for (int uplo : {Zem_Upper, Zem_Lower})
    for (int n : {0, 1, 5, 40}) {
      const bool up = uplo == Zem_Upper;
      const Mat<T> a0 = hermitian<T>(n, rng);
      const double an = norm1(a0);
      std::vector<double> w(std::max(n, 1)), wv = w, wref = w;
      // Eigenvalues only: the triangle is the whole input, the rest untouched.
      Mat<T> t = Mat<T>::triangle(n, up, rm);
      store(a0, t);
      PICK(f08fcc, f08fqc, t.order(), Zem_EigVals, uplo, n, zp(t.data()), t.ld, w.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(t.padding_intact());
      expect_eigensystem(a0, w, static_cast<const Mat<T>*>(nullptr));
      // Eigenvectors overwrite the whole array: equal to LAPACKE's.
      Mat<T> v = general(a0, rm), ref = v;
      PICK(f08fcc, f08fqc, v.order(), Zem_DoBoth, uplo, n, zp(v.data()), v.ld, wv.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      if constexpr (kComplex<T>) LAPACKE_zheevd(ref.layout(), 'V', uplo_char(uplo), n, ref.data(), ref.ld, wref.data());
      else LAPACKE_dsyevd(ref.layout(), 'V', uplo_char(uplo), n, ref.data(), ref.ld, wref.data());
      EXPECT_TRUE(same_as(v, ref));
      EXPECT_EQ(wv, wref);
      expect_eigensystem(a0, wv, &v);

      // Packed storage: the eigenvectors in z; without them z may be null.
      Mat<T> ap = Mat<T>::packed(n, up, rm), z(n, n, rm);
      store(a0, ap);
      Mat<T> ap2 = ap;
      PICK(f08gcc, f08gqc, ap.order(), Zem_DoBoth, uplo, n, zp(ap.data()), w.data(), zp(z.data()), z.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      expect_eigensystem(a0, w, &z);
      EXPECT_TRUE(z.padding_intact());
      PICK(f08gcc, f08gqc, ap2.order(), Zem_EigVals, uplo, n, zp(ap2.data()), wv.data(),
           zp(static_cast<T*>(nullptr)), 1, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      expect_eigensystem(a0, wv, static_cast<const Mat<T>*>(nullptr));

      // Band storage, kd = 2.
      const int kd = std::min(2, std::max(n - 1, 0));
      const Mat<T> b0 = band_part(a0, kd);
      Mat<T> ab = Mat<T>::band(n, n, up ? 0 : kd, up ? kd : 0, 0, rm), zb(n, n, rm);
      store(b0, ab);
      const Mat<T> ab0 = ab;
      PICK(f08hcc, f08hqc, ab.order(), Zem_DoBoth, uplo, n, kd, zp(ab.data()), ab.ld, w.data(), zp(zb.data()),
           zb.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      expect_eigensystem(b0, w, &zb);
      EXPECT_TRUE(ab.padding_intact());

      // Tridiagonal reduction of each storage, A = Q T Q^H, and the
      // multiplication by Q against the formed Q.
      std::vector<double> d(std::max(n, 1)), ee(std::max(n, 1));
      std::vector<T> tau = sentinels<T>(n);
      Mat<T> f = Mat<T>::triangle(n, up, rm);
      store(a0, f);
      PICK(f08fec, f08fsc, f.order(), uplo, n, zp(f.data()), f.ld, d.data(), ee.data(), zp(tau.data()), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(f.padding_intact());
      Mat<T> q = general(block(f, n, n), rm);
      PICK(f08ffc, f08ftc, q.order(), uplo, n, zp(q.data()), q.ld, zp(tau.data()), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Mat<T> qd = block(q, n, n), td = tridiagonal<T>(d, ee, n);
      EXPECT_LT(orthonormality(qd), kBound);
      EXPECT_LT(resid(product(qd, td, adjoint(qd)), a0, an, n), kBound);
      for (int side : {Zem_LeftSide, Zem_RightSide})
        for (int trans : {static_cast<int>(Zem_NoTrans), tr}) {
          const bool left = side == Zem_LeftSide;
          const Mat<T> c0 = random_dense<T>(left ? n : 3, left ? 3 : n, rng);
          Mat<T> c = general(c0, rm);
          const Mat<T> op = trans == Zem_NoTrans ? qd : adjoint(qd);
          PICK(f08fgc, f08fuc, c.order(), side, uplo, trans, c.rows, c.cols, zp(f.data()), f.ld, zp(tau.data()),
               zp(c.data()), c.ld, &e);
          ASSERT_EQ(e.code, 0) << e.message;
          EXPECT_LT(resid(block(c, c.rows, c.cols), left ? product(op, c0) : product(c0, op), norm1(c0), n + 1),
                    kBound);
        }
      Mat<T> pk = Mat<T>::packed(n, up, rm), qp(n, n, rm);
      store(a0, pk);
      PICK(f08gec, f08gsc, pk.order(), uplo, n, zp(pk.data()), d.data(), ee.data(), zp(tau.data()), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(pk.padding_intact());
      PICK(f08gfc, f08gtc, qp.order(), uplo, n, zp(pk.data()), zp(tau.data()), zp(qp.data()), qp.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Mat<T> qpd = block(qp, n, n);
      EXPECT_LT(orthonormality(qpd), kBound);
      EXPECT_LT(resid(product(qpd, tridiagonal<T>(d, ee, n), adjoint(qpd)), a0, an, n), kBound);
      for (int side : {Zem_LeftSide, Zem_RightSide}) {
        const bool left = side == Zem_LeftSide;
        const Mat<T> c0 = random_dense<T>(left ? n : 2, left ? 2 : n, rng);
        Mat<T> c = general(c0, rm);
        PICK(f08ggc, f08guc, c.order(), side, uplo, tr, c.rows, c.cols, zp(pk.data()), zp(tau.data()),
             zp(c.data()), c.ld, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_LT(resid(block(c, c.rows, c.cols), left ? product(adjoint(qpd), c0) : product(c0, adjoint(qpd)),
                        norm1(c0), n + 1),
                  kBound);
      }
      // Band reduction: Q formed from scratch, Q applied to the identity,
      // and no Q at all (q null).
      for (int vect : {Zem_InitQ, Zem_UpdateQ, Zem_NotQ}) {
        Mat<T> abr = ab0, qb = general(identity<T>(n), rm);
        PICK(f08hec, f08hsc, abr.order(), vect, uplo, n, kd, zp(abr.data()), abr.ld, d.data(), ee.data(),
             zp(vect == Zem_NotQ ? static_cast<T*>(nullptr) : qb.data()), vect == Zem_NotQ ? 1 : qb.ld, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        expect_eigensystem(tridiagonal<T>(d, ee, n), w, static_cast<const Mat<T>*>(nullptr));
        if (vect != Zem_NotQ) {
          const Mat<T> qbd = block(qb, n, n);
          EXPECT_LT(orthonormality(qbd), kBound);
          EXPECT_LT(resid(product(qbd, tridiagonal<T>(d, ee, n), adjoint(qbd)), b0, norm1(b0), n), kBound);
        }
      }
    }
}

TEST_P(F08Orders, SymmetricEigenproblemsReal) { symmetric_family<double>(rm(), rng); }
TEST_P(F08Orders, HermitianEigenproblems) { symmetric_family<C>(rm(), rng); }


// ---------------------------------------------------------------------------
// Symmetric tridiagonal eigenproblems.

std::vector<double> random_vector(int n, std::mt19937_64& rng, double lo = -1, double hi = 1) {
  std::uniform_real_distribution<double> u(lo, hi);
  std::vector<double> v(static_cast<std::size_t>(std::max(n, 1)));
  for (double& x : v) x = u(rng);
  return v;
}

// A V = V diag(w) for the m columns of v, and V orthonormal.
template <class T>
void expect_eigenvectors(const Mat<T>& a, const std::vector<double>& w, const Mat<T>& v, int m) {
  const int n = a.rows;
  const Mat<T> vv = block(v, n, m);
  EXPECT_LT(resid(product(a, vv), product(vv, diagonal<T>(w, m)), norm1(a), n), kBound);
  EXPECT_LT(orthonormality(vv), kBound);
}

TEST_P(F08Orders, TridiagonalEigenproblems) {
  ZemError e = record();
  for (int n : {0, 1, 6, 40}) {
    const std::vector<double> d0 = random_vector(n, rng), e0 = random_vector(n, rng);
    const Mat<double> t0 = tridiagonal<double>(d0, e0, n);
    // Divide and conquer with and without eigenvectors.
    std::vector<double> d = d0, ee = e0;
    Mat<double> z(n, n, rm());
    f08jcc(z.order(), Zem_DoBoth, n, d.data(), ee.data(), z.data(), z.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(t0, d, &z);
    EXPECT_TRUE(z.padding_intact());
    d = d0, ee = e0;
    f08jcc(z.order(), Zem_EigVals, n, d.data(), ee.data(), nullptr, 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(t0, d, static_cast<const Mat<double>*>(nullptr));
    // Square-root-free QL/QR: eigenvalues only.
    d = d0, ee = e0;
    f08jfc(Zem_ColMajor, n, d.data(), ee.data(), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(t0, d, static_cast<const Mat<double>*>(nullptr));
    // Implicit QL/QR: the eigenvectors of T (Zem_InitZ), and those of a full
    // matrix from Q of its reduction (Zem_UpdateZ).
    d = d0, ee = e0;
    Mat<double> zi(n, n, rm());
    f08jec(zi.order(), Zem_InitZ, n, d.data(), ee.data(), zi.data(), zi.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(t0, d, &zi);
    const Mat<double> a0 = hermitian<double>(n, rng);
    Mat<double> f = Mat<double>::triangle(n, false, rm());
    store(a0, f);
    std::vector<double> tau(std::max(n, 1));
    f08fec(f.order(), Zem_Lower, n, f.data(), f.ld, d.data(), ee.data(), tau.data(), &e);
    Mat<double> q = general(block(f, n, n), rm());
    f08ffc(q.order(), Zem_Lower, n, q.data(), q.ld, tau.data(), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    f08jec(q.order(), Zem_UpdateZ, n, d.data(), ee.data(), q.data(), q.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(a0, d, &q);
    // A positive definite tridiagonal matrix: eigenvalues in descending order.
    std::vector<double> dp = random_vector(n, rng, 3, 4), ep = random_vector(n, rng);
    const Mat<double> tp = tridiagonal<double>(dp, ep, n);
    Mat<double> zp8(n, n, rm());
    f08jgc(zp8.order(), Zem_InitZ, n, dp.data(), ep.data(), zp8.data(), zp8.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    std::vector<double> asc(dp.begin(), dp.begin() + n);
    std::reverse(asc.begin(), asc.end());
    expect_eigensystem(tp, asc, static_cast<const Mat<double>*>(nullptr));
    expect_eigenvectors(tp, dp, zp8, n);
  }
}

TEST_P(F08Orders, BisectionAndInverseIteration) {
  ZemError e = record();
  const int n = 30;
  const std::vector<double> d0 = random_vector(n, rng), e0 = random_vector(n, rng);
  const Mat<double> t0 = tridiagonal<double>(d0, e0, n);
  const std::vector<double> ref = reference_eigenvalues(t0);
  const double abstol = 2 * 0x1p-1022;  // the most accurate bisection
  std::vector<double> w(n), d = d0, ee = e0;
  std::vector<int32_t> iblock(n), isplit(n);
  int32_t m = -1, nsplit = -1;
  // All of them, over the whole matrix, ascending.
  f08jjc(rm() ? Zem_RowMajor : Zem_ColMajor, Zem_AllValues, Zem_Entire, n, 0.0, 0.0, 0, 0, abstol, d.data(),
         ee.data(), &m, &nsplit, w.data(), iblock.data(), isplit.data(), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  ASSERT_EQ(m, n);
  EXPECT_EQ(nsplit, 1);
  for (int i = 0; i < n; ++i) EXPECT_NEAR(w[i], ref[i], kBound * n * kEps * norm1(t0));
  // Those in (vl, vu], and the il-th to the iu-th.
  const double vl = (ref[1] + ref[2]) / 2, vu = (ref[n - 3] + ref[n - 2]) / 2;
  f08jjc(Zem_ColMajor, Zem_Interval, Zem_Entire, n, vl, vu, 0, 0, abstol, d.data(), ee.data(), &m, &nsplit,
         w.data(), iblock.data(), isplit.data(), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  ASSERT_EQ(m, n - 4);
  for (int i = 0; i < m; ++i) EXPECT_NEAR(w[i], ref[i + 2], kBound * n * kEps * norm1(t0));
  f08jjc(Zem_ColMajor, Zem_Indices, Zem_ByBlock, n, 0.0, 0.0, 3, 9, abstol, d.data(), ee.data(), &m, &nsplit,
         w.data(), iblock.data(), isplit.data(), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  ASSERT_EQ(m, 7);
  for (int i = 0; i < m; ++i) EXPECT_NEAR(w[i], ref[i + 2], kBound * n * kEps * norm1(t0));
  // Their eigenvectors by inverse iteration, real and complex.
  Mat<double> z(n, m, rm());
  std::vector<int32_t> ifail(m, -1);
  f08jkc(z.order(), n, d.data(), ee.data(), m, w.data(), iblock.data(), isplit.data(), z.data(), z.ld,
         ifail.data(), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  expect_eigenvectors(t0, w, z, m);
  EXPECT_TRUE(z.padding_intact());
  for (int i = 0; i < m; ++i) EXPECT_EQ(ifail[i], 0);
  Mat<C> zc(n, m, rm());
  f08jxc(zc.order(), n, d.data(), ee.data(), m, w.data(), iblock.data(), isplit.data(), zp(zc.data()), zc.ld,
         ifail.data(), &e);
  ASSERT_EQ(e.code, 0) << e.message;
  expect_eigenvectors(to_complex(t0), w, zc, m);
  // Eigenvalues out of order within a block: the kernel names w.
  std::swap(w[0], w[1]);
  f08jkc(z.order(), n, d.data(), ee.data(), m, w.data(), iblock.data(), isplit.data(), z.data(), z.ld,
         ifail.data(), &e);
  EXPECT_EQ(e.code, NE_BAD_PARAM);
  EXPECT_NE(std::string(e.message).find("w"), std::string::npos) << e.message;
  EXPECT_EQ(e.errnum, -5);
}

TEST_P(F08Orders, TridiagonalEigenvectorsOfHermitianMatrices) {
  ZemError e = record();
  for (int n : {0, 1, 7, 33}) {
    const Mat<C> a0 = hermitian<C>(n, rng);
    std::vector<double> d(std::max(n, 1)), ee(std::max(n, 1));
    std::vector<C> tau(std::max(n, 1));
    Mat<C> f = Mat<C>::triangle(n, true, rm());
    store(a0, f);
    f08fsc(f.order(), Zem_Upper, n, zp(f.data()), f.ld, d.data(), ee.data(), zp(tau.data()), &e);
    Mat<C> q = general(block(f, n, n), rm());
    f08ftc(q.order(), Zem_Upper, n, zp(q.data()), q.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const std::vector<double> d0 = d, e0 = ee;
    f08jsc(q.order(), Zem_UpdateZ, n, d.data(), ee.data(), zp(q.data()), q.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(a0, d, &q);
    d = d0, ee = e0;
    f08jsc(q.order(), Zem_NotZ, n, d.data(), ee.data(), nullptr, 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    expect_eigensystem(a0, d, static_cast<const Mat<C>*>(nullptr));
    // Positive definite tridiagonal, complex eigenvectors.
    std::vector<double> dp = random_vector(n, rng, 3, 4), ep = random_vector(n, rng);
    const Mat<C> tp = tridiagonal<C>(dp, ep, n);
    Mat<C> z(n, n, rm());
    f08juc(z.order(), Zem_InitZ, n, dp.data(), ep.data(), zp(z.data()), z.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    for (int i = 1; i < n; ++i) EXPECT_GE(dp[i - 1], dp[i]);
    expect_eigenvectors(tp, dp, z, n);
  }
}

// ---------------------------------------------------------------------------
// Bidiagonal reduction and the singular value decomposition.

// The k by k bidiagonal matrix of d and e, upper or lower.
template <class T>
Mat<T> bidiagonal(const std::vector<double>& d, const std::vector<double>& e, int k, bool upper) {
  return tridiagonal<T>(d, e, k, !upper, upper);
}

template <class T>
std::vector<double> reference_singular_values(const Mat<T>& a) {
  const int k = std::min(a.rows, a.cols);
  std::vector<double> s(std::max(k, 1)), superb(std::max(k, 1));
  if (k == 0) return s;
  Mat<T> c = a;
  if constexpr (kComplex<T>)
    LAPACKE_zgesvd(LAPACK_COL_MAJOR, 'N', 'N', a.rows, a.cols, c.data(), c.ld, s.data(), nullptr, 1, nullptr, 1,
                   superb.data());
  else
    LAPACKE_dgesvd(LAPACK_COL_MAJOR, 'N', 'N', a.rows, a.cols, c.data(), c.ld, s.data(), nullptr, 1, nullptr, 1,
                   superb.data());
  return s;
}

// Eigenvalues of a general matrix from LAPACKE's driver.
template <class T>
std::vector<C> reference_spectrum(const Mat<T>& a) {
  const int n = a.rows;
  Mat<T> c = a;
  std::vector<C> v(n);
  if constexpr (kComplex<T>) {
    LAPACKE_zgeev(LAPACK_COL_MAJOR, 'N', 'N', n, c.data(), c.ld, v.data(), nullptr, 1, nullptr, 1);
  } else {
    std::vector<double> wr(n), wi(n);
    LAPACKE_dgeev(LAPACK_COL_MAJOR, 'N', 'N', n, c.data(), c.ld, wr.data(), wi.data(), nullptr, 1, nullptr, 1);
    for (int i = 0; i < n; ++i) v[i] = C(wr[i], wi[i]);
  }
  return v;
}

template <class T>
void bidiagonal_family(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int tr = kComplex<T> ? Zem_ConjTrans : Zem_Trans;
  for (auto [m, n] : {std::pair{0, 0}, {1, 1}, {9, 6}, {6, 9}, {31, 31}}) {
    const int k = std::min(m, n);
    const bool upper = m >= n;
    const Mat<T> a0 = random_dense<T>(m, n, rng);
    const double an = norm1(a0);
    Mat<T> f = general(a0, rm), ref = f;
    std::vector<double> d(std::max(k, 1)), ee(std::max(k, 1)), dr = d, er = ee;
    std::vector<T> tq = sentinels<T>(k), tp = tq, tqr = tq, tpr = tq;
    PICK(f08kec, f08ksc, f.order(), m, n, zp(f.data()), f.ld, d.data(), ee.data(), zp(tq.data()), zp(tp.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if (k == 0) continue;
    if constexpr (kComplex<T>)
      LAPACKE_zgebrd(ref.layout(), m, n, ref.data(), ref.ld, dr.data(), er.data(), tqr.data(), tpr.data());
    else
      LAPACKE_dgebrd(ref.layout(), m, n, ref.data(), ref.ld, dr.data(), er.data(), tqr.data(), tpr.data());
    EXPECT_TRUE(same_as(f, ref));
    EXPECT_EQ(d, dr);
    // A = Q B P^H with Q m by k and P^H k by n.
    Mat<T> q = general(block(f, m, upper ? n : m), rm), pt = general(block(f, upper ? n : m, n), rm);
    PICK(f08kfc, f08ktc, q.order(), Zem_FormQ, m, k, n, zp(q.data()), q.ld, zp(tq.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    PICK(f08kfc, f08ktc, pt.order(), Zem_FormP, k, n, m, zp(pt.data()), pt.ld, zp(tp.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<T> qd = block(q, m, k), ptd = block(pt, k, n), b = bidiagonal<T>(d, ee, k, upper);
    EXPECT_LT(orthonormality(qd), kBound);
    EXPECT_LT(orthonormality(ptd, true), kBound);
    EXPECT_LT(resid(product(qd, b, ptd), a0, an, std::max(m, n)), kBound);
    // Applying Q and P equals forming them in full.
    Mat<T> qf = general(block(f, m, m), rm), pf = general(block(f, n, n), rm);
    PICK(f08kfc, f08ktc, qf.order(), Zem_FormQ, m, m, n, zp(qf.data()), qf.ld, zp(tq.data()), &e);
    PICK(f08kfc, f08ktc, pf.order(), Zem_FormP, n, n, m, zp(pf.data()), pf.ld, zp(tp.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<T> qfull = block(qf, m, m), pfull = adjoint(block(pf, n, n));
    for (int trans : {static_cast<int>(Zem_NoTrans), tr}) {
      const Mat<T> c0 = random_dense<T>(m, 3, rng), c1 = random_dense<T>(3, n, rng);
      Mat<T> c = general(c0, rm), cp = general(c1, rm);
      PICK(f08kgc, f08kuc, c.order(), Zem_ApplyQ, Zem_LeftSide, trans, m, 3, n, zp(f.data()), f.ld, zp(tq.data()),
           zp(c.data()), c.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_LT(resid(block(c, m, 3), product(trans == Zem_NoTrans ? qfull : adjoint(qfull), c0), norm1(c0), m),
                kBound);
      PICK(f08kgc, f08kuc, cp.order(), Zem_ApplyP, Zem_RightSide, trans, 3, n, m, zp(f.data()), f.ld,
           zp(tp.data()), zp(cp.data()), cp.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_LT(resid(block(cp, 3, n), product(c1, trans == Zem_NoTrans ? pfull : adjoint(pfull)), norm1(c1), n),
                kBound);
    }
    // B = U S V^T by the bidiagonal QR algorithm, with U and V^T applied to
    // identities and c <- U^H c: the same as LAPACKE, and A's singular values.
    std::vector<double> s = d, se = ee, s2 = d, se2 = ee;
    Mat<T> vt = general(identity<T>(k), rm), u = vt, cc = vt, vt2 = vt, u2 = vt, cc2 = vt;
    const int up = upper ? Zem_Upper : Zem_Lower;
    PICK(f08mec, f08msc, vt.order(), up, k, k, k, k, s.data(), se.data(), zp(vt.data()), vt.ld, zp(u.data()), u.ld,
         zp(cc.data()), cc.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if constexpr (kComplex<T>)
      LAPACKE_zbdsqr(vt2.layout(), upper ? 'U' : 'L', k, k, k, k, s2.data(), se2.data(), vt2.data(), vt2.ld,
                     u2.data(), u2.ld, cc2.data(), cc2.ld);
    else
      LAPACKE_dbdsqr(vt2.layout(), upper ? 'U' : 'L', k, k, k, k, s2.data(), se2.data(), vt2.data(), vt2.ld,
                     u2.data(), u2.ld, cc2.data(), cc2.ld);
    EXPECT_EQ(s, s2);
    EXPECT_TRUE(same_as(vt, vt2));
    EXPECT_TRUE(same_as(u, u2));
    const Mat<T> ud = block(u, k, k), vd = block(vt, k, k);
    EXPECT_LT(resid(product(ud, diagonal<T>(s, k), vd), b, norm1(b), k), kBound);
    EXPECT_LT(resid(block(cc, k, k), adjoint(ud), 1.0, k), kBound);
    const std::vector<double> sref = reference_singular_values(a0);
    for (int i = 0; i < k; ++i) {
      EXPECT_NEAR(s[i], sref[i], kBound * std::max(m, n) * kEps * an);
      if (i) {
        EXPECT_GE(s[i - 1], s[i]);
      }
    }
    // The SVD of A itself: (Q U) S (V^T P^H).
    EXPECT_LT(resid(product(product(qd, ud), diagonal<T>(s, k), product(vd, ptd)), a0, an, std::max(m, n)), kBound);
    // Singular values only: no vectors referenced.
    s = d, se = ee;
    PICK(f08mec, f08msc, vt.order(), up, k, 0, 0, 0, s.data(), se.data(), zp(static_cast<T*>(nullptr)), 1,
         zp(static_cast<T*>(nullptr)), 1, zp(static_cast<T*>(nullptr)), 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    for (int i = 0; i < k; ++i) EXPECT_NEAR(s[i], sref[i], kBound * std::max(m, n) * kEps * an);
  }
}

TEST_P(F08Orders, BidiagonalReductionAndSvdReal) { bidiagonal_family<double>(rm(), rng); }
TEST_P(F08Orders, BidiagonalReductionAndSvdComplex) { bidiagonal_family<C>(rm(), rng); }

template <class T>
void band_bidiagonal(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  for (auto [m, n] : {std::pair{1, 1}, {12, 9}, {9, 12}, {20, 20}}) {
    const int kl = 2, ku = 1, k = std::min(m, n);
    Mat<T> a0 = random_dense<T>(m, n, rng);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j)
        if (i - j > kl || j - i > ku) a0(i, j) = T(0);
    Mat<T> ab = Mat<T>::band(m, n, kl, ku, 0, rm), q(m, m, rm), pt(n, n, rm);
    store(a0, ab);
    Mat<T> c = general(identity<T>(m), rm);
    std::vector<double> d(k), ee(std::max(k, 1));
    PICK(f08lec, f08lsc, ab.order(), Zem_FormBoth, m, n, m, kl, ku, zp(ab.data()), ab.ld, d.data(), ee.data(),
         zp(q.data()), q.ld, zp(pt.data()), pt.ld, zp(c.data()), c.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_TRUE(ab.padding_intact());
    EXPECT_TRUE(q.padding_intact());
    // A = Q B P^H, B m by n upper bidiagonal; c <- Q^H c.
    Mat<T> b = zeros<T>(m, n);
    for (int i = 0; i < k; ++i) {
      b(i, i) = d[i];
      if (i + 1 < k) b(i, i + 1) = ee[i];
    }
    const Mat<T> qd = block(q, m, m), ptd = block(pt, n, n);
    EXPECT_LT(orthonormality(qd), kBound);
    EXPECT_LT(orthonormality(ptd), kBound);
    EXPECT_LT(resid(product(qd, b, ptd), a0, norm1(a0), std::max(m, n)), kBound);
    EXPECT_LT(resid(block(c, m, m), adjoint(qd), 1.0, m), kBound);
    // Only Q, only P^H, neither: the others may be null.
    for (int vect : {Zem_FormQ, Zem_FormP, Zem_DoNotForm}) {
      Mat<T> ab2 = Mat<T>::band(m, n, kl, ku, 0, rm), q2(m, m, rm), p2(n, n, rm);
      store(a0, ab2);
      std::vector<double> d2(k), e2(std::max(k, 1));
      const bool wq = vect == Zem_FormQ, wp = vect == Zem_FormP;
      PICK(f08lec, f08lsc, ab2.order(), vect, m, n, 0, kl, ku, zp(ab2.data()), ab2.ld, d2.data(), e2.data(),
           zp(wq ? q2.data() : static_cast<T*>(nullptr)), wq ? q2.ld : 1,
           zp(wp ? p2.data() : static_cast<T*>(nullptr)), wp ? p2.ld : 1, zp(static_cast<T*>(nullptr)), 1, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      for (int i = 0; i < k; ++i) EXPECT_NEAR(std::abs(d2[i]), std::abs(d[i]), 1e-13 * norm1(a0));
      if (wq) {
        EXPECT_LT(resid(block(q2, m, m), qd, 1.0, m), kBound);
      }
      if (wp) {
        EXPECT_LT(resid(block(p2, n, n), ptd, 1.0, n), kBound);
      }
    }
  }
}

TEST_P(F08Orders, BandBidiagonalReductionReal) { band_bidiagonal<double>(rm(), rng); }
TEST_P(F08Orders, BandBidiagonalReductionComplex) { band_bidiagonal<C>(rm(), rng); }


// ---------------------------------------------------------------------------
// Nonsymmetric eigenproblems: Hessenberg reduction, balancing, the QR
// algorithm, eigenvectors, reordering, Sylvester equations and condition
// numbers.

// Eigenvalues as the real routines return them (wr, wi) or the complex
// ones (w), with their common complex form.
template <class T>
struct Spectrum {
  explicit Spectrum(int n) : wr(std::max(n, 1)), wi(std::max(n, 1)), w(std::max(n, 1)), n(n) {}
  std::vector<double> wr, wi;
  std::vector<C> w;
  int n;
  std::vector<C> values() const {
    std::vector<C> v(n);
    for (int i = 0; i < n; ++i) v[i] = kComplex<T> ? w[i] : C(wr[i], wi[i]);
    return v;
  }
  std::vector<double> imag_parts() const {
    if constexpr (kComplex<T>) return std::vector<double>(std::max(n, 1), 0.0);
    else return wi;
  }
};

// The same eigenvalues in any order: each of a within tol of one of b.
testing::AssertionResult same_spectrum(std::vector<C> a, std::vector<C> b, double tol) {
  if (a.size() != b.size()) return testing::AssertionFailure() << "sizes differ";
  for (const C& x : a) {
    auto best = std::min_element(b.begin(), b.end(),
                                 [&](const C& p, const C& q) { return std::abs(p - x) < std::abs(q - x); });
    if (std::abs(*best - x) > tol) return testing::AssertionFailure() << x << " has no match";
    b.erase(best);
  }
  return testing::AssertionSuccess();
}

template <class T>
void hseqr(int job, int compz, int ilo, int ihi, Mat<T>& h, Spectrum<T>& s, T* z, int ldz, ZemError* e) {
  if constexpr (kComplex<T>)
    f08psc(h.order(), job, compz, h.rows, ilo, ihi, zp(h.data()), h.ld, zp(s.w.data()), zp(z), ldz, e);
  else
    f08pec(h.order(), job, compz, h.rows, ilo, ihi, h.data(), h.ld, s.wr.data(), s.wi.data(), z, ldz, e);
}

// The upper Hessenberg part of a (dense).
template <class T>
Mat<T> hessenberg_part(const Mat<T>& a) {
  Mat<T> h = block(a, a.rows, a.cols);
  for (int i = 0; i < a.rows; ++i)
    for (int j = 0; j + 1 < i; ++j) h(i, j) = T(0);
  return h;
}

// True when t is upper triangular, or quasi-triangular with 2 by 2 blocks
// (each for a complex pair) for real data.
template <class T>
bool schur_shape(const Mat<T>& t) {
  const int n = t.rows;
  for (int i = 0; i < n; ++i)
    for (int j = 0; j + 1 < i; ++j)
      if (t.value(i, j) != T(0)) return false;
  for (int i = 0; i + 1 < n; ++i)
    if (t.value(i + 1, i) != T(0)) {
      if (kComplex<T> || (i + 2 < n && t.value(i + 2, i + 1) != T(0))) return false;
    }
  return true;
}

// A real Schur form's eigenvalues from its diagonal blocks.
template <class T>
std::vector<C> schur_values(const Mat<T>& t) {
  const int n = t.rows;
  std::vector<C> v;
  for (int i = 0; i < n; ++i) {
    if (!kComplex<T> && i + 1 < n && t.value(i + 1, i) != T(0)) {
      const double a = std::real(t.value(i, i)), b = std::real(t.value(i, i + 1)),
                   c = std::real(t.value(i + 1, i)), d = std::real(t.value(i + 1, i + 1));
      const C disc = std::sqrt(C((a - d) * (a - d) / 4 + b * c));
      v.push_back((a + d) / 2 + disc);
      v.push_back((a + d) / 2 - disc);
      ++i;
    } else {
      v.push_back(t.value(i, i));
    }
  }
  return v;
}

template <class T>
void nonsymmetric_family(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int tr = kComplex<T> ? Zem_ConjTrans : Zem_Trans;
  for (int n : {0, 1, 6, 30}) {
    const Mat<T> a0 = random_dense<T>(n, n, rng);
    const double an = norm1(a0);
    // A = Q H Q^H.
    Mat<T> f = general(a0, rm), ref = f;
    std::vector<T> tau = sentinels<T>(n), tau_ref = tau;
    const int ilo = 1, ihi = n;
    PICK(f08nec, f08nsc, f.order(), n, ilo, ihi, zp(f.data()), f.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if (n > 0) {
      if constexpr (kComplex<T>) LAPACKE_zgehrd(ref.layout(), n, ilo, ihi, ref.data(), ref.ld, tau_ref.data());
      else LAPACKE_dgehrd(ref.layout(), n, ilo, ihi, ref.data(), ref.ld, tau_ref.data());
      EXPECT_TRUE(same_as(f, ref));
    }
    Mat<T> q = f;
    PICK(f08nfc, f08ntc, q.order(), n, ilo, ihi, zp(q.data()), q.ld, zp(tau.data()), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<T> qd = block(q, n, n), hd = hessenberg_part(f);
    EXPECT_LT(orthonormality(qd), kBound);
    EXPECT_LT(resid(product(qd, hd, adjoint(qd)), a0, an, n), kBound);
    for (int side : {Zem_LeftSide, Zem_RightSide})
      for (int trans : {static_cast<int>(Zem_NoTrans), tr}) {
        const bool left = side == Zem_LeftSide;
        const Mat<T> c0 = random_dense<T>(left ? n : 2, left ? 2 : n, rng);
        Mat<T> c = general(c0, rm);
        const Mat<T> op = trans == Zem_NoTrans ? qd : adjoint(qd);
        PICK(f08ngc, f08nuc, c.order(), side, trans, c.rows, c.cols, ilo, ihi, zp(f.data()), f.ld, zp(tau.data()),
             zp(c.data()), c.ld, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_LT(resid(block(c, c.rows, c.cols), left ? product(op, c0) : product(c0, op), norm1(c0), n + 1),
                  kBound);
      }
    // The Schur factorisation A = Z T Z^H, starting from Q: equal to LAPACKE.
    Mat<T> t = general(hd, rm), z = q, tref = t, zref = q;
    Spectrum<T> s(n), sref(n), se(n);
    hseqr(Zem_Schur, Zem_UpdateZ, ilo, ihi, t, s, z.data(), z.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if (n > 0) {
      if constexpr (kComplex<T>)
        LAPACKE_zhseqr(tref.layout(), 'S', 'V', n, ilo, ihi, tref.data(), tref.ld, sref.w.data(), zref.data(),
                       zref.ld);
      else
        LAPACKE_dhseqr(tref.layout(), 'S', 'V', n, ilo, ihi, tref.data(), tref.ld, sref.wr.data(), sref.wi.data(),
                       zref.data(), zref.ld);
      EXPECT_TRUE(same_as(t, tref));
      EXPECT_TRUE(same_as(z, zref));
    }
    const Mat<T> td = block(t, n, n), zd = block(z, n, n);
    EXPECT_TRUE(schur_shape(td));
    EXPECT_LT(orthonormality(zd), kBound);
    EXPECT_LT(resid(product(zd, td, adjoint(zd)), a0, an, n), kBound);
    const double tol = 1e-10 * std::max(an, 1.0);
    EXPECT_TRUE(same_spectrum(s.values(), schur_values(td), tol));
    // Eigenvalues only, no Schur vectors (z null).
    Mat<T> h2 = general(hd, rm);
    hseqr(Zem_EigVals, Zem_NotZ, ilo, ihi, h2, se, static_cast<T*>(nullptr), 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_TRUE(same_spectrum(se.values(), s.values(), tol));
    if (n == 0) continue;
    const Mat<C> ac = to_complex(a0), tc = to_complex(td), hc = to_complex(hd);
    const std::vector<C> lambda = s.values();

    // Eigenvectors of T, and of A by back-transformation with Z.
    Mat<T> vl = z, vr = z, tl(n, n, rm), tr2(n, n, rm);
    int32_t m = -1;
    PICK(f08qkc, f08qxc, t.order(), Zem_BothSides, Zem_BackTransform, static_cast<int32_t*>(nullptr), n,
         zp(t.data()), t.ld, zp(vl.data()), vl.ld, zp(vr.data()), vr.ld, n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    ASSERT_EQ(m, n);
    EXPECT_LT(eigen_residual(ac, eigenvectors(vr, s.imag_parts(), n), lambda), kBound);
    EXPECT_LT(eigen_residual(ac, eigenvectors(vl, s.imag_parts(), n), lambda, true), kBound);
    PICK(f08qkc, f08qxc, t.order(), Zem_BothSides, Zem_ComputeAll, static_cast<int32_t*>(nullptr), n,
         zp(t.data()), t.ld, zp(tl.data()), tl.ld, zp(tr2.data()), tr2.ld, n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_LT(eigen_residual(tc, eigenvectors(tr2, s.imag_parts(), n), lambda), kBound);
    EXPECT_LT(eigen_residual(tc, eigenvectors(tl, s.imag_parts(), n), lambda, true), kBound);
    EXPECT_TRUE(t.padding_intact());
    // Selected right eigenvectors only (vl null): the first eigenvalue's.
    std::vector<int32_t> select(n, 0);
    select[0] = 1;
    Mat<T> vs(n, 2, rm);
    PICK(f08qkc, f08qxc, t.order(), Zem_RightSide, Zem_ComputeSelected, select.data(), n, zp(t.data()), t.ld,
         zp(static_cast<T*>(nullptr)), 1, zp(vs.data()), vs.ld, 2, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const int cols = (!kComplex<T> && s.imag_parts()[0] != 0) ? 2 : 1;
    EXPECT_EQ(m, cols);
    EXPECT_LT(resid(block(vs, n, cols), block(tr2, n, cols), norm1(block(tr2, n, cols)), n), kBound);
    // Too few columns for the selection: the kernel names mm.
    PICK(f08qkc, f08qxc, t.order(), Zem_RightSide, Zem_ComputeAll, static_cast<int32_t*>(nullptr), n, zp(t.data()),
         t.ld, zp(static_cast<T*>(nullptr)), 1, zp(vs.data()), vs.ld, n > 2 ? 2 : 0, &m, &e);
    EXPECT_EQ(e.code, NE_BAD_PARAM);
    EXPECT_NE(std::string(e.message).find("mm"), std::string::npos) << e.message;

    // Condition numbers of the eigenvalues and eigenvectors: equal to LAPACKE.
    std::vector<double> sc(n), sep(n), scr(n), sepr(n);
    int32_t mr = -1;
    PICK(f08qlc, f08qyc, t.order(), Zem_DoBoth, Zem_ComputeAll, static_cast<int32_t*>(nullptr), n, zp(t.data()),
         t.ld, zp(tl.data()), tl.ld, zp(tr2.data()), tr2.ld, sc.data(), sep.data(), n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    std::vector<int32_t> none(n, 0);
    if constexpr (kComplex<T>)
      LAPACKE_ztrsna(t.layout(), 'B', 'A', none.data(), n, t.data(), t.ld, tl.data(), tl.ld, tr2.data(), tr2.ld,
                     scr.data(), sepr.data(), n, &mr);
    else
      LAPACKE_dtrsna(t.layout(), 'B', 'A', none.data(), n, t.data(), t.ld, tl.data(), tl.ld, tr2.data(), tr2.ld,
                     scr.data(), sepr.data(), n, &mr);
    EXPECT_EQ(m, mr);
    EXPECT_EQ(sc, scr);
    EXPECT_EQ(sep, sepr);
    for (int i = 0; i < n; ++i) EXPECT_TRUE(sc[i] > 0 && sc[i] <= 1) << sc[i];
    // Eigenvector condition only: vl, vr and s are not referenced.
    std::vector<double> sep2(n);
    PICK(f08qlc, f08qyc, t.order(), Zem_EigVecs, Zem_ComputeAll, static_cast<int32_t*>(nullptr), n, zp(t.data()),
         t.ld, zp(static_cast<T*>(nullptr)), 1, zp(static_cast<T*>(nullptr)), 1, static_cast<double*>(nullptr),
         sep2.data(), n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_EQ(sep2, sep);

    // Inverse iteration on H for every eigenvalue: residuals against H.
    if (n > 1) {
      Mat<T> hl(n, n, rm), hr(n, n, rm);
      const Mat<T> hh = general(hd, rm);
      std::vector<int32_t> all(n, 1), ifl(n, -1), ifr(n, -1);
      Spectrum<T> sh = s;
      if constexpr (kComplex<T>)
        f08pxc(hl.order(), Zem_BothSides, Zem_HSEQRSource, Zem_NoVec, all.data(), n, zp(hh.data()), hh.ld,
               zp(sh.w.data()), zp(hl.data()), hl.ld, zp(hr.data()), hr.ld, n, &m, ifl.data(), ifr.data(), &e);
      else
        f08pkc(hl.order(), Zem_BothSides, Zem_HSEQRSource, Zem_NoVec, all.data(), n, hh.data(), hh.ld,
               sh.wr.data(), sh.wi.data(), hl.data(), hl.ld, hr.data(), hr.ld, n, &m, ifl.data(), ifr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_EQ(m, n);
      for (int i = 0; i < n; ++i) EXPECT_EQ(ifl[i] + ifr[i], 0);
      EXPECT_LT(eigen_residual(hc, eigenvectors(hr, sh.imag_parts(), n), sh.values()), kBound);
      EXPECT_LT(eigen_residual(hc, eigenvectors(hl, sh.imag_parts(), n), sh.values(), true), kBound);
    }

    // Reordering: the last diagonal block moves to the top.
    {
      Mat<T> t2 = t, q2 = general(identity<T>(n), rm);
      int32_t ifst = n, ilst = 1;
      if constexpr (kComplex<T>) {
        f08qtc(t2.order(), Zem_UpdateQ, n, zp(t2.data()), t2.ld, zp(q2.data()), q2.ld, ifst, ilst, &e);
      } else {
        f08qfc(t2.order(), Zem_UpdateQ, n, t2.data(), t2.ld, q2.data(), q2.ld, &ifst, &ilst, &e);
        EXPECT_EQ(ilst, 1);
      }
      ASSERT_EQ(e.code, 0) << e.message;
      const Mat<T> t2d = block(t2, n, n), q2d = block(q2, n, n);
      EXPECT_TRUE(schur_shape(t2d));
      EXPECT_LT(resid(product(q2d, t2d, adjoint(q2d)), td, norm1(td), n), kBound);
      // (a complex pair may come back in either order)
      const C moved = schur_values(t2d)[0], last = schur_values(td)[n - 1];
      EXPECT_LT(std::min(std::abs(moved - last), std::abs(moved - std::conj(last))), tol);
      EXPECT_TRUE(same_spectrum(schur_values(t2d), schur_values(td), tol));
    }
    // Reordering a cluster to the top with condition numbers: as LAPACKE.
    {
      std::vector<int32_t> sel(n);
      for (int i = 0; i < n; ++i) sel[i] = std::real(lambda[i]) > 0;
      Mat<T> t3 = t, q3 = z, t3r = t, q3r = z;
      Spectrum<T> s3(n), s3r(n);
      int32_t m3 = -1, m3r = -2;
      double sc3 = -1, sep3 = -1, sc3r = -2, sep3r = -2;
      if constexpr (kComplex<T>) {
        f08quc(t3.order(), Zem_DoBoth, Zem_UpdateQ, sel.data(), n, zp(t3.data()), t3.ld, zp(q3.data()), q3.ld,
               zp(s3.w.data()), &m3, &sc3, &sep3, &e);
        LAPACKE_ztrsen(t3r.layout(), 'B', 'V', sel.data(), n, t3r.data(), t3r.ld, q3r.data(), q3r.ld, s3r.w.data(),
                       &m3r, &sc3r, &sep3r);
      } else {
        f08qgc(t3.order(), Zem_DoBoth, Zem_UpdateQ, sel.data(), n, t3.data(), t3.ld, q3.data(), q3.ld,
               s3.wr.data(), s3.wi.data(), &m3, &sc3, &sep3, &e);
        LAPACKE_dtrsen(t3r.layout(), 'B', 'V', sel.data(), n, t3r.data(), t3r.ld, q3r.data(), q3r.ld,
                       s3r.wr.data(), s3r.wi.data(), &m3r, &sc3r, &sep3r);
      }
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_EQ(m3, m3r);
      EXPECT_EQ(sc3, sc3r);
      EXPECT_EQ(sep3, sep3r);
      EXPECT_TRUE(same_as(t3, t3r));
      const Mat<T> t3d = block(t3, n, n), q3d = block(q3, n, n);
      EXPECT_LT(resid(product(q3d, t3d, adjoint(q3d)), a0, an, n), kBound);
      const std::vector<C> v3 = s3.values();
      for (int i = 0; i < n; ++i) EXPECT_EQ(std::real(v3[i]) > 0, i < m3) << i;
      // Neither condition number: s and sep are not referenced.
      Mat<T> t4 = t;
      if constexpr (kComplex<T>)
        f08quc(t4.order(), Zem_DoNothing, Zem_NotQ, sel.data(), n, zp(t4.data()), t4.ld, nullptr, 1,
               zp(s3.w.data()), &m3, nullptr, nullptr, &e);
      else
        f08qgc(t4.order(), Zem_DoNothing, Zem_NotQ, sel.data(), n, t4.data(), t4.ld, nullptr, 1, s3.wr.data(),
               s3.wi.data(), &m3, nullptr, nullptr, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(same_as(t4, t3));
    }
  }
}

TEST_P(F08Orders, NonsymmetricEigenproblemsReal) { nonsymmetric_family<double>(rm(), rng); }
TEST_P(F08Orders, NonsymmetricEigenproblemsComplex) { nonsymmetric_family<C>(rm(), rng); }

// Balancing a badly scaled matrix with an isolated eigenvalue, then the
// eigenvectors of the balanced matrix taken back to the original.
template <class T>
void balancing(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int n = 12;
  Mat<T> a0 = random_dense<T>(n, n, rng);
  for (int j = 0; j < n; ++j)
    if (j != 3) a0(3, j) = T(0);  // row 3 isolates the eigenvalue a(3,3)
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) a0(i, j) *= std::pow(10.0, (i % 4) - (j % 4));
  const double an = norm1(a0);
  for (int job : {Zem_DoBoth, Zem_Permute, Zem_Scale, Zem_DoNothing}) {
    Mat<T> b = general(a0, rm), bref = b;
    int32_t ilo = -1, ihi = -1, ilor = -2, ihir = -2;
    std::vector<double> scale(n), scaler(n);
    PICK(f08nhc, f08nvc, b.order(), job, n, zp(b.data()), b.ld, &ilo, &ihi, scale.data(), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const char letter = job == Zem_DoBoth ? 'B' : job == Zem_Permute ? 'P' : job == Zem_Scale ? 'S' : 'N';
    if constexpr (kComplex<T>)
      LAPACKE_zgebal(bref.layout(), letter, n, bref.data(), bref.ld, &ilor, &ihir, scaler.data());
    else
      LAPACKE_dgebal(bref.layout(), letter, n, bref.data(), bref.ld, &ilor, &ihir, scaler.data());
    EXPECT_TRUE(same_as(b, bref));
    EXPECT_EQ(ilo, ilor);
    EXPECT_EQ(ihi, ihir);
    EXPECT_EQ(scale, scaler);
    if (job == Zem_DoBoth || job == Zem_Permute) {
      EXPECT_TRUE(ilo > 1 || ihi < n);
    }
    // Schur form of the balanced matrix from ilo to ihi, its eigenvectors,
    // and back-transformation to those of A, right and left.
    std::vector<T> tau = sentinels<T>(n);
    Mat<T> q = b;
    PICK(f08nec, f08nsc, q.order(), n, ilo, ihi, zp(q.data()), q.ld, zp(tau.data()), &e);
    Mat<T> t = general(hessenberg_part(q), rm);
    PICK(f08nfc, f08ntc, q.order(), n, ilo, ihi, zp(q.data()), q.ld, zp(tau.data()), &e);
    Spectrum<T> s(n);
    hseqr(Zem_Schur, Zem_UpdateZ, ilo, ihi, t, s, q.data(), q.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    Mat<T> vl = q, vr = q;
    int32_t m = -1;
    PICK(f08qkc, f08qxc, t.order(), Zem_BothSides, Zem_BackTransform, static_cast<int32_t*>(nullptr), n,
         zp(t.data()), t.ld, zp(vl.data()), vl.ld, zp(vr.data()), vr.ld, n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    PICK(f08njc, f08nwc, vr.order(), job, Zem_RightSide, n, ilo, ihi, scale.data(), n, zp(vr.data()), vr.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    PICK(f08njc, f08nwc, vl.order(), job, Zem_LeftSide, n, ilo, ihi, scale.data(), n, zp(vl.data()), vl.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<C> ac = to_complex(a0);
    EXPECT_LT(eigen_residual(ac, eigenvectors(vr, s.imag_parts(), n), s.values()), kBound);
    EXPECT_LT(eigen_residual(ac, eigenvectors(vl, s.imag_parts(), n), s.values(), true), kBound);
    EXPECT_TRUE(same_spectrum(s.values(), reference_spectrum(a0), 1e-8 * an));
  }
}

TEST_P(F08Orders, BalancingAndBackTransformationReal) { balancing<double>(rm(), rng); }
TEST_P(F08Orders, BalancingAndBackTransformationComplex) { balancing<C>(rm(), rng); }

template <class T>
void sylvester(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int tr = kComplex<T> ? Zem_ConjTrans : Zem_Trans;
  // Schur forms of random matrices as A (m by m) and B (n by n).
  auto schur_of = [&](int k) {
    Mat<T> h = general(hessenberg_part(random_dense<T>(k, k, rng)), rm);
    Spectrum<T> s(k);
    hseqr(Zem_Schur, Zem_NotZ, 1, k, h, s, static_cast<T*>(nullptr), 1, &e);
    return h;
  };
  const int m = 7, n = 5;
  const Mat<T> a = schur_of(m), b = schur_of(n);
  ASSERT_EQ(e.code, 0) << e.message;
  const Mat<T> ad = block(a, m, m), bd = block(b, n, n);
  for (int trana : {static_cast<int>(Zem_NoTrans), tr})
    for (int tranb : {static_cast<int>(Zem_NoTrans), tr})
      for (int isgn : {1, -1}) {
        const Mat<T> c0 = random_dense<T>(m, n, rng);
        Mat<T> c = general(c0, rm);
        double scale = -1;
        PICK(f08qhc, f08qvc, c.order(), trana, tranb, isgn, m, n, zp(a.data()), a.ld, zp(b.data()), b.ld,
             zp(c.data()), c.ld, &scale, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_GT(scale, 0.0);
        EXPECT_LE(scale, 1.0);
        const Mat<T> x = block(c, m, n);
        const Mat<T> opa = trana == Zem_NoTrans ? ad : adjoint(ad), opb = tranb == Zem_NoTrans ? bd : adjoint(bd);
        Mat<T> lhs = product(opa, x), xb = product(x, opb), rhs = c0;
        for (int i = 0; i < m; ++i)
          for (int j = 0; j < n; ++j) {
            lhs(i, j) += double(isgn) * xb(i, j);
            rhs(i, j) *= scale;
          }
        const double size = (norm1(ad) + norm1(bd)) * norm1(x) + norm1(c0);
        EXPECT_LT(diff1(lhs, rhs) / (std::max(m, n) * size * kEps), kBound);
        EXPECT_TRUE(c.padding_intact());
      }
}

TEST_P(F08Orders, SylvesterEquationReal) { sylvester<double>(rm(), rng); }
TEST_P(F08Orders, SylvesterEquationComplex) { sylvester<C>(rm(), rng); }


// ---------------------------------------------------------------------------
// Generalised eigenproblems.

// A Hermitian positive definite matrix, diagonally dominant within its band
// of kd off-diagonals (kd = n - 1: a full matrix B^H B + n I).
template <class T>
Mat<T> positive_definite(int n, int kd, std::mt19937_64& rng) {
  if (kd >= n - 1) {
    const Mat<T> b = random_dense<T>(n, n, rng);
    Mat<T> a = product(adjoint(b), b);
    for (int i = 0; i < n; ++i) a(i, i) = std::real(a(i, i)) + n;
    return a;
  }
  Mat<T> a = band_part(hermitian<T>(n, rng), kd);
  for (int i = 0; i < n; ++i) a(i, i) = 3.0 * (kd + 1);
  return a;
}

// The dense Hermitian matrix whose band triangle uplo (kd off-diagonals) ab holds.
template <class T>
Mat<T> from_band(const Mat<T>& ab, bool upper, int kd) {
  const int n = ab.rows;
  Mat<T> d = zeros<T>(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      if (std::abs(i - j) > kd) continue;
      const bool mine = upper ? i <= j : i >= j;
      d(i, j) = mine ? ab(i, j) : conj_of(ab(j, i));
    }
  return d;
}

template <class T>
void definite_reductions(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  for (int uplo : {Zem_Upper, Zem_Lower})
    for (int n : {0, 1, 17}) {
      const bool up = uplo == Zem_Upper;
      const Mat<T> a0 = hermitian<T>(n, rng), b0 = positive_definite<T>(n, n - 1, rng);
      Mat<T> bt = Mat<T>::triangle(n, up, rm);
      store(b0, bt);
      PICK(f07fdc, f07frc, bt.order(), uplo, n, zp(bt.data()), bt.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Mat<T> f = trapezoid(bt, n, n, up);  // B = U^H U or L L^H
      Mat<T> bp = Mat<T>::packed(n, up, rm);
      store(f, bp);
      for (int itype : {1, 2, 3}) {
        Mat<T> a = Mat<T>::triangle(n, up, rm), ref = a;
        store(a0, a);
        store(a0, ref);
        PICK(f08sec, f08ssc, a.order(), itype, uplo, n, zp(a.data()), a.ld, zp(bt.data()), bt.ld, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        if (n > 0) {
          if constexpr (kComplex<T>)
            LAPACKE_zhegst(ref.layout(), itype, uplo_char(uplo), n, ref.data(), ref.ld, bt.data(), bt.ld);
          else
            LAPACKE_dsygst(ref.layout(), itype, uplo_char(uplo), n, ref.data(), ref.ld, bt.data(), bt.ld);
        }
        EXPECT_TRUE(same_as(a, ref));
        EXPECT_TRUE(a.padding_intact());
        const Mat<T> c = from_triangle(a, up);
        // itype 1: A = U^H C U (L C L^H); itype 2, 3: C = U A U^H (L^H A L).
        const Mat<T> l = up ? adjoint(f) : f;
        if (itype == 1) {
          EXPECT_LT(resid(product(l, c, adjoint(l)), a0, norm1(a0), n), kBound);
        } else {
          EXPECT_LT(resid(c, product(adjoint(l), a0, l), norm1(c), n), kBound);
        }
        Mat<T> ap = Mat<T>::packed(n, up, rm);
        store(a0, ap);
        PICK(f08tec, f08tsc, ap.order(), itype, uplo, n, zp(ap.data()), zp(bp.data()), &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_LT(resid(from_triangle(ap, up), c, norm1(c), n), kBound);
        EXPECT_TRUE(ap.padding_intact());
      }
      // Banded: the split Cholesky factor of B, then C = X^H A X with
      // X^H B X = I.
      const int ka = std::min(3, std::max(n - 1, 0)), kb = std::min(2, ka);
      const Mat<T> ab0 = band_part(a0, ka), bb0 = positive_definite<T>(n, kb, rng);
      Mat<T> bb = Mat<T>::band(n, n, up ? 0 : kb, up ? kb : 0, 0, rm);
      store(bb0, bb);
      PICK(f08ufc, f08utc, bb.order(), uplo, n, kb, zp(bb.data()), bb.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(bb.padding_intact());
      Mat<T> ab = Mat<T>::band(n, n, up ? 0 : ka, up ? ka : 0, 0, rm), x(n, n, rm);
      store(ab0, ab);
      Mat<T> ab2 = ab;
      PICK(f08uec, f08usc, ab.order(), Zem_FormX, uplo, n, ka, kb, zp(ab.data()), ab.ld, zp(bb.data()), bb.ld,
           zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Mat<T> xd = block(x, n, n), cb = from_band(ab, up, ka);
      EXPECT_LT(resid(product(adjoint(xd), ab0, xd), cb, norm1(cb), n), kBound);
      EXPECT_LT(resid(product(adjoint(xd), bb0, xd), identity<T>(n), 1.0, n), kBound);
      PICK(f08uec, f08usc, ab2.order(), Zem_DoNotForm, uplo, n, ka, kb, zp(ab2.data()), ab2.ld, zp(bb.data()),
           bb.ld, zp(static_cast<T*>(nullptr)), 1, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_LT(resid(from_band(ab2, up, ka), cb, norm1(cb), n), kBound);
    }
}

TEST_P(F08Orders, DefiniteGeneralisedReductionsReal) { definite_reductions<double>(rm(), rng); }
TEST_P(F08Orders, DefiniteGeneralisedReductionsComplex) { definite_reductions<C>(rm(), rng); }

template <class T>
void hgeqz(int job, int compq, int compz, Mat<T>& h, Mat<T>& t, Spectrum<T>& alpha, std::vector<T>& beta, T* q,
           int ldq, T* z, int ldz, ZemError* e) {
  const int n = h.rows;
  if constexpr (kComplex<T>)
    f08xsc(h.order(), job, compq, compz, n, 1, n, zp(h.data()), h.ld, zp(t.data()), t.ld, zp(alpha.w.data()),
           zp(beta.data()), zp(q), ldq, zp(z), ldz, e);
  else
    f08xec(h.order(), job, compq, compz, n, 1, n, h.data(), h.ld, t.data(), t.ld, alpha.wr.data(), alpha.wi.data(),
           beta.data(), q, ldq, z, ldz, e);
}

template <class T>
std::vector<C> ratios(const Spectrum<T>& alpha, const std::vector<T>& beta) {
  std::vector<C> v = alpha.values();
  for (std::size_t i = 0; i < v.size(); ++i) v[i] /= C(beta[i]);
  return v;
}

template <class T>
void qz_family(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  for (int n : {1, 8, 25}) {
    const Mat<T> a0 = random_dense<T>(n, n, rng);
    Mat<T> b0 = trapezoid(random_dense<T>(n, n, rng), n, n, true);
    for (int i = 0; i < n; ++i) b0(i, i) += 3.0;
    const Mat<C> ac = to_complex(a0), bc = to_complex(b0);
    // (A, B) = (Q H Z^H, Q T Z^H), H Hessenberg and T triangular.
    Mat<T> h = general(a0, rm), t = general(b0, rm), q(n, n, rm), z(n, n, rm);
    PICK(f08wec, f08wsc, h.order(), Zem_InitQ, Zem_InitZ, n, 1, n, zp(h.data()), h.ld, zp(t.data()), t.ld,
         zp(q.data()), q.ld, zp(z.data()), z.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<T> hd = block(h, n, n), td = block(t, n, n), qd = block(q, n, n), zd = block(z, n, n);
    EXPECT_TRUE(same_as(hd, hessenberg_part(hd)));
    EXPECT_TRUE(same_as(td, trapezoid(td, n, n, true)));
    EXPECT_LT(orthonormality(qd), kBound);
    EXPECT_LT(orthonormality(zd), kBound);
    EXPECT_LT(resid(product(qd, hd, adjoint(zd)), a0, norm1(a0), n), kBound);
    EXPECT_LT(resid(product(qd, td, adjoint(zd)), b0, norm1(b0), n), kBound);
    {  // Updating identities gives the same; Q and Z not wanted may be null.
      Mat<T> h2 = general(a0, rm), t2 = general(b0, rm), q2 = general(identity<T>(n), rm);
      PICK(f08wec, f08wsc, h2.order(), Zem_UpdateQ, Zem_NotZ, n, 1, n, zp(h2.data()), h2.ld, zp(t2.data()), t2.ld,
           zp(q2.data()), q2.ld, zp(static_cast<T*>(nullptr)), 1, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(same_as(h2, h));
      EXPECT_TRUE(same_as(q2, q));
    }
    // The generalised Schur form (S, P) = (Q^H A Z, Q^H B Z): as LAPACKE.
    Mat<T> s = h, p = t, qs = q, zs = z, sr = h, pr = t, qr = q, zr = z;
    Spectrum<T> alpha(n), alphar(n);
    std::vector<T> beta(n), betar(n);
    hgeqz(Zem_Schur, Zem_UpdateQ, Zem_UpdateZ, s, p, alpha, beta, qs.data(), qs.ld, zs.data(), zs.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if constexpr (kComplex<T>)
      LAPACKE_zhgeqz(sr.layout(), 'S', 'V', 'V', n, 1, n, sr.data(), sr.ld, pr.data(), pr.ld, alphar.w.data(),
                     betar.data(), qr.data(), qr.ld, zr.data(), zr.ld);
    else
      LAPACKE_dhgeqz(sr.layout(), 'S', 'V', 'V', n, 1, n, sr.data(), sr.ld, pr.data(), pr.ld, alphar.wr.data(),
                     alphar.wi.data(), betar.data(), qr.data(), qr.ld, zr.data(), zr.ld);
    EXPECT_TRUE(same_as(s, sr));
    EXPECT_TRUE(same_as(p, pr));
    EXPECT_TRUE(same_as(zs, zr));
    EXPECT_EQ(beta, betar);
    const Mat<T> sd = block(s, n, n), pd = block(p, n, n), qsd = block(qs, n, n), zsd = block(zs, n, n);
    EXPECT_TRUE(schur_shape(sd));
    EXPECT_TRUE(same_as(pd, trapezoid(pd, n, n, true)));
    EXPECT_LT(resid(product(qsd, sd, adjoint(zsd)), a0, norm1(a0), n), kBound);
    EXPECT_LT(resid(product(qsd, pd, adjoint(zsd)), b0, norm1(b0), n), kBound);
    const std::vector<C> lambda = ratios(alpha, beta);
    EXPECT_TRUE(same_spectrum(lambda, reference_spectrum(product(inverse(b0), a0)), 1e-8 * norm1(a0)));
    {  // Eigenvalues only.
      Mat<T> h3 = h, t3 = t;
      Spectrum<T> a3(n);
      std::vector<T> b3(n);
      hgeqz(Zem_EigVals, Zem_NotQ, Zem_NotZ, h3, t3, a3, b3, static_cast<T*>(nullptr), 1, static_cast<T*>(nullptr),
            1, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      EXPECT_TRUE(same_spectrum(ratios(a3, b3), lambda, 1e-9 * norm1(a0)));
    }
    // Generalised eigenvectors of (S, P), and of (A, B) by back-transforming
    // with Q and Z: beta A x = alpha B x, beta y^H A = alpha y^H B.
    Mat<T> vl = qs, vr = zs, wl(n, n, rm), wr(n, n, rm);
    int32_t m = -1;
    PICK(f08ykc, f08yxc, s.order(), Zem_BothSides, Zem_BackTransform, static_cast<int32_t*>(nullptr), n,
         zp(s.data()), s.ld, zp(p.data()), p.ld, zp(vl.data()), vl.ld, zp(vr.data()), vr.ld, n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    ASSERT_EQ(m, n);
    const std::vector<double> im = alpha.imag_parts();
    EXPECT_LT(eigen_residual(ac, eigenvectors(vr, im, n), lambda, false, &bc), kBound);
    EXPECT_LT(eigen_residual(ac, eigenvectors(vl, im, n), lambda, true, &bc), kBound);
    PICK(f08ykc, f08yxc, s.order(), Zem_RightSide, Zem_ComputeAll, static_cast<int32_t*>(nullptr), n, zp(s.data()),
         s.ld, zp(p.data()), p.ld, zp(static_cast<T*>(nullptr)), 1, zp(wr.data()), wr.ld, n, &m, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<C> pc = to_complex(pd);
    EXPECT_LT(eigen_residual(to_complex(sd), eigenvectors(wr, im, n), lambda, false, &pc), kBound);
    EXPECT_TRUE(s.padding_intact());
  }
}

TEST_P(F08Orders, QzReductionSchurFormAndEigenvectorsReal) { qz_family<double>(rm(), rng); }
TEST_P(F08Orders, QzReductionSchurFormAndEigenvectorsComplex) { qz_family<C>(rm(), rng); }

// Balancing a pair, and the transformations that ggbak applies: with V the
// identity they are the right and left balancing matrices X and Y, so that
// the balanced pair is (Y^H A X, Y^H B X).
template <class T>
void pair_balancing(bool rm, std::mt19937_64& rng) {
  ZemError e = record();
  const int n = 10;
  Mat<T> a0 = random_dense<T>(n, n, rng), b0 = random_dense<T>(n, n, rng);
  for (int j = 0; j < n; ++j)
    if (j != 2) a0(2, j) = b0(2, j) = T(0);  // row 2 isolates an eigenvalue
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      const double f = std::pow(10.0, (i % 3) - 2 * (j % 3));
      a0(i, j) *= f;
      b0(i, j) *= f;
    }
  for (int job : {Zem_DoBoth, Zem_Permute, Zem_Scale, Zem_DoNothing}) {
    const char letter = job == Zem_DoBoth ? 'B' : job == Zem_Permute ? 'P' : job == Zem_Scale ? 'S' : 'N';
    Mat<T> a = general(a0, rm), b = general(b0, rm), ar = a, br = b;
    int32_t ilo = -1, ihi = -1, ilor = -2, ihir = -2;
    std::vector<double> ls(n), rs(n), lsr(n), rsr(n);
    PICK(f08whc, f08wvc, a.order(), job, n, zp(a.data()), a.ld, zp(b.data()), b.ld, &ilo, &ihi, ls.data(), rs.data(),
         &e);
    ASSERT_EQ(e.code, 0) << e.message;
    if constexpr (kComplex<T>)
      LAPACKE_zggbal(ar.layout(), letter, n, ar.data(), ar.ld, br.data(), br.ld, &ilor, &ihir, lsr.data(), rsr.data());
    else
      LAPACKE_dggbal(ar.layout(), letter, n, ar.data(), ar.ld, br.data(), br.ld, &ilor, &ihir, lsr.data(), rsr.data());
    EXPECT_TRUE(same_as(a, ar));
    EXPECT_TRUE(same_as(b, br));
    EXPECT_EQ(ilo, ilor);
    EXPECT_EQ(ihi, ihir);
    EXPECT_EQ(ls, lsr);
    EXPECT_EQ(rs, rsr);
    Mat<T> x = general(identity<T>(n), rm), y = x;
    PICK(f08wjc, f08wwc, x.order(), job, Zem_RightSide, n, ilo, ihi, ls.data(), rs.data(), n, zp(x.data()), x.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    PICK(f08wjc, f08wwc, y.order(), job, Zem_LeftSide, n, ilo, ihi, ls.data(), rs.data(), n, zp(y.data()), y.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Mat<T> xd = block(x, n, n), yd = block(y, n, n);
    EXPECT_LT(resid(product(adjoint(yd), a0, xd), block(a, n, n), norm1(block(a, n, n)), n), kBound);
    EXPECT_LT(resid(product(adjoint(yd), b0, xd), block(b, n, n), norm1(block(b, n, n)), n), kBound);
  }
}

TEST_P(F08Orders, PairBalancingReal) { pair_balancing<double>(rm(), rng); }
TEST_P(F08Orders, PairBalancingComplex) { pair_balancing<C>(rm(), rng); }


// ---------------------------------------------------------------------------
// Reports.

bool names(const ZemError& e, const char* what) { return std::string(e.message).find(what) != std::string::npos; }

TEST(F08Reports, PositiveInfoIsTheRoutinesOwnWarningWithInfo) {
  // B with a negative diagonal element cannot be split-factorised.
  const int n = 6, kd = 1;
  Mat<double> bb = Mat<double>::band(n, n, 0, kd, 0, true);
  for (int i = 0; i < n; ++i) {
    bb(i, i) = i == 4 ? -1.0 : 4.0;
    if (i + 1 < n) bb(i, i + 1) = 0.5;
  }
  ZemError e = record();
  f08ufc(Zem_RowMajor, Zem_Upper, n, kd, bb.data(), bb.ld, &e);
  EXPECT_EQ(e.code, NE_NOT_POS_DEF);
  EXPECT_GT(e.errnum, 0);
  // Untagged, four blanks first: printed under the heading of a warning.
  EXPECT_EQ(std::string(e.message).rfind("    The factorization", 0), 0u) << e.message;
  EXPECT_TRUE(names(e, std::to_string(e.errnum).c_str())) << e.message;
}

TEST(F08Reports, ValuesOnlyTheKernelChecksAreNamed) {
  ZemError e = record();
  std::vector<double> a(16, 1.0), tau(4), d(4, 1.0), ee(4, 0.5), w(4);
  std::vector<int32_t> iblock(4), isplit(4);
  int32_t m = 0, nsplit = 0;
  // ilo out of range, and ihi below ilo.
  f08nec(Zem_ColMajor, 4, 0, 4, a.data(), 4, tau.data(), &e);
  EXPECT_EQ(e.code, NE_BAD_PARAM);
  EXPECT_TRUE(names(e, "argument ilo")) << e.message;
  EXPECT_EQ(e.errnum, -2);
  f08nec(Zem_RowMajor, 4, 3, 2, a.data(), 4, tau.data(), &e);
  EXPECT_TRUE(names(e, "argument ihi")) << e.message;
  EXPECT_EQ(e.errnum, -3);
  // An empty interval, and an index below 1.
  f08jjc(Zem_ColMajor, Zem_Interval, Zem_Entire, 4, 2.0, 1.0, 0, 0, 0.0, d.data(), ee.data(), &m, &nsplit, w.data(),
         iblock.data(), isplit.data(), &e);
  EXPECT_TRUE(names(e, "argument vu")) << e.message;
  EXPECT_EQ(e.errnum, -5);
  f08jjc(Zem_ColMajor, Zem_Indices, Zem_Entire, 4, 0.0, 0.0, 0, 2, 0.0, d.data(), ee.data(), &m, &nsplit, w.data(),
         iblock.data(), isplit.data(), &e);
  EXPECT_TRUE(names(e, "argument il")) << e.message;
  EXPECT_EQ(e.errnum, -6);
  // An exchange index outside the matrix, passed by address.
  int32_t ifst = 9, ilst = 1;
  f08qfc(Zem_RowMajor, Zem_NotQ, 4, a.data(), 4, nullptr, 1, &ifst, &ilst, &e);
  EXPECT_TRUE(names(e, "argument ifst")) << e.message;
  EXPECT_EQ(e.errnum, -7);
  // A negative norm given to a condition estimator of the linear-equation
  // chapter: named, not an internal error.
  double rcond = 0;
  f07agc(Zem_ColMajor, Zem_OneNorm, 4, a.data(), 4, -1.0, &rcond, &e);
  EXPECT_EQ(e.code, NE_BAD_PARAM);
  EXPECT_TRUE(names(e, "argument anorm")) << e.message;
  EXPECT_EQ(e.errnum, -5);
}

TEST(F08Reports, BoundedDimensionsNameTheirBound) {
  ZemError e = record();
  std::vector<double> a(64), tau(8);
  // Q with more columns than rows.
  f08afc(Zem_RowMajor, 3, 4, 2, a.data(), 8, tau.data(), &e);
  EXPECT_EQ(e.code, NE_INT_2);
  EXPECT_TRUE(names(e, "n = 4, m = 3")) << e.message;
  EXPECT_TRUE(names(e, "Constraint: n <= m")) << e.message;
  EXPECT_EQ(e.errnum, -2);
  // More reflectors than the side's order.
  std::vector<double> c(64);
  f08agc(Zem_ColMajor, Zem_RightSide, Zem_NoTrans, 6, 3, 4, a.data(), 8, tau.data(), c.data(), 8, &e);
  EXPECT_TRUE(names(e, "k = 4, n = 3")) << e.message;
  EXPECT_EQ(e.errnum, -5);
  // Fewer columns than rows for Q of an LQ factorisation.
  f08ajc(Zem_ColMajor, 4, 3, 2, a.data(), 8, tau.data(), &e);
  EXPECT_TRUE(names(e, "Constraint: n >= m")) << e.message;
}

TEST(F08Reports, UnreferencedArraysMayBeNullButReferencedOnesMayNot) {
  ZemError e = record();
  std::vector<double> d{2, 1, 3}, ee{0.5, 0.5, 0}, z(9);
  f08jcc(Zem_RowMajor, Zem_DoBoth, 3, d.data(), ee.data(), nullptr, 3, &e);
  EXPECT_EQ(e.code, NE_BAD_PARAM);
  EXPECT_TRUE(names(e, "argument z")) << e.message;
  // Not referenced: the leading dimension need only be 1, but not 0.
  f08jcc(Zem_ColMajor, Zem_EigVals, 3, d.data(), ee.data(), nullptr, 0, &e);
  EXPECT_EQ(e.code, NE_INT);
  EXPECT_TRUE(names(e, "pdz >= 1")) << e.message;
  f08jcc(Zem_ColMajor, Zem_EigVals, 3, d.data(), ee.data(), nullptr, 1, &e);
  EXPECT_EQ(e.code, 0) << e.message;
  EXPECT_LT(d[0], d[1]);
  // Referenced: the leading dimension must hold the matrix.
  f08jcc(Zem_RowMajor, Zem_DoBoth, 3, d.data(), ee.data(), z.data(), 2, &e);
  EXPECT_EQ(e.code, NE_INT_2);
  EXPECT_TRUE(names(e, "pdz >= MAX(1,n)")) << e.message;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Orders, F08Orders, testing::Values(true, false),
                         [](const testing::TestParamInfo<bool>& i) { return i.param ? "RowMajor" : "ColMajor"; });
