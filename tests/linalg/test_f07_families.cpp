// Linear equations in band, packed, symmetric indefinite and triangular
// storage, real and complex, in both orders.  Each family is driven from one
// table of its routines and their LAPACKE counterparts: the matrix is built
// densely, written into the family's storage scheme (every element outside
// the stored part holding a sentinel), and each routine is checked against
// LAPACKE on the same data to the last bit, against the dense matrix
// (scaled residuals, true condition numbers, honest error bounds, inverses),
// and for the sentinels after every call.  LAPACKE's row-major band layout
// is not the library's, so band routines in row-major order are compared
// with LAPACKE in column-major order on a copy of the same matrix.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "f07_test_util.hpp"

namespace {

using namespace f07test;

constexpr double kResidualBound = 30.0;  // scaled residuals, as LAPACK's tests
template <class T>
constexpr double kBerrBound = (kComplex<T> ? 8 : 4) * kEps;
// Workspace elements on entry (the fill of a band LU, an unreferenced unit
// diagonal) hold values that would spoil the result if they were read.
constexpr double kJunk = 1.0e3;

// ---------------------------------------------------------------------------
// Test matrices.

// A random m by n band matrix (kl sub-, ku super-diagonals), dense.  Each
// row is diagonally dominant and then scaled by a factor between 1/10 and
// 10: well conditioned, yet the partial pivoting interchanges rows wherever
// a row of large scale meets one of small scale.
template <class T>
Mat<T> band_matrix(int m, int n, int kl, int ku, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> u(0.0, 1.0);
  Mat<T> a = zeros<T>(m, n);
  for (int i = 0; i < m; ++i) {
    double off = 0;
    for (int j = std::max(0, i - kl); j <= std::min(n - 1, i + ku); ++j)
      if (j != i) {
        a(i, j) = random_value<T>(rng);
        off += std::abs(a(i, j));
      }
    if (i < n) a(i, i) = (u(rng) < 0.5 ? -1.0 : 1.0) * (off + 0.5 + u(rng));
    const double scale = std::pow(10.0, 2 * u(rng) - 1);
    for (int j = 0; j < n; ++j) a(i, j) *= scale;
  }
  return a;
}

// A Hermitian positive definite band matrix with kd off-diagonals on each
// side: a real diagonal that dominates each row.
template <class T>
Mat<T> hpd_band(int n, int kd, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> u(0.0, 1.0);
  Mat<T> a = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) {
    a(i, i) = 3.0 * kd + 1.0 + u(rng);
    for (int j = i + 1; j <= std::min(n - 1, i + kd); ++j) {
      a(i, j) = random_value<T>(rng);
      a(j, i) = conj_of(a(i, j));
    }
  }
  return a;
}

// Orthonormal columns by modified Gram-Schmidt on a random matrix, twice.
template <class T>
Mat<T> orthonormal(int n, std::mt19937_64& rng) {
  Mat<T> q = zeros<T>(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) q(i, j) = random_value<T>(rng);
  for (int pass = 0; pass < 2; ++pass)
    for (int j = 0; j < n; ++j) {
      for (int k = 0; k < j; ++k) {
        T d = 0;
        for (int i = 0; i < n; ++i) d += conj_of(q(i, k)) * q(i, j);
        for (int i = 0; i < n; ++i) q(i, j) -= d * q(i, k);
      }
      double s = 0;
      for (int i = 0; i < n; ++i) s += std::norm(q(i, j));
      for (int i = 0; i < n; ++i) q(i, j) /= std::sqrt(s);
    }
  return q;
}

enum class Sym { Symmetric, Hermitian };

// A well-conditioned indefinite matrix Q D Q^H (Hermitian, Q unitary, D
// real) or Q D Q^T (symmetric, Q real orthogonal, D of the element type),
// with eigen- or singular values of modulus in [1, 2], half of them negative
// (or of random phase), so that the Bunch-Kaufman pivoting takes 2 by 2
// blocks as well as 1 by 1.
template <class T>
Mat<T> indefinite_matrix(int n, Sym kind, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> u(0.0, 1.0);
  Mat<T> q = zeros<T>(n, n);
  if (kind == Sym::Hermitian) {
    q = orthonormal<T>(n, rng);
  } else {
    const Mat<double> r = orthonormal<double>(n, rng);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) q(i, j) = r(i, j);
  }
  std::vector<T> d(static_cast<std::size_t>(n));
  for (int k = 0; k < n; ++k) {
    const double mag = 1.0 + u(rng);
    if constexpr (kComplex<T>) {
      if (kind == Sym::Symmetric) {
        d[static_cast<std::size_t>(k)] = std::polar(mag, 2 * M_PI * u(rng));
        continue;
      }
    }
    d[static_cast<std::size_t>(k)] = k % 2 ? -mag : mag;
  }
  Mat<T> a = zeros<T>(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = i; j < n; ++j) {
      T s = 0;
      for (int k = 0; k < n; ++k) s += q(i, k) * d[static_cast<std::size_t>(k)] * conj_of(q(j, k));
      a(i, j) = s;
      a(j, i) = kind == Sym::Hermitian ? conj_of(s) : s;
    }
  if (kind == Sym::Hermitian)
    for (int i = 0; i < n; ++i) a(i, i) = std::real(a(i, i));
  return a;
}

// A triangular matrix (band when kd >= 0) whose diagonal dominates each row
// and each column by a margin of half, so that it is well conditioned in
// both norms and for every op.
template <class T>
Mat<T> triangular_matrix(int n, bool upper, bool unit, int kd, std::mt19937_64& rng) {
  std::uniform_real_distribution<double> u(1.0, 2.0);
  const int width = kd >= 0 ? std::max(1, kd) : std::max(1, n - 1);
  Mat<T> t = zeros<T>(n, n);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      if (upper ? j < i : j > i) continue;
      if (kd >= 0 && std::abs(i - j) > kd) continue;
      if (i != j) {
        t(i, j) = random_value<T>(rng) * (0.5 / (std::sqrt(2.0) * width));
      } else if (unit) {
        t(i, i) = 1.0;
      } else {
        const T r = random_value<T>(rng);
        t(i, i) = u(rng) * (std::abs(r) > 0 ? r / std::abs(r) : T(1));
      }
    }
  return t;
}

// The full matrix of which s holds one triangle (full, packed or band).
template <class T>
Mat<T> complete(const Mat<T>& s, Sym kind) {
  Mat<T> a = zeros<T>(s.rows, s.cols);
  for (int i = 0; i < s.rows; ++i)
    for (int j = 0; j < s.cols; ++j) {
      if (s.held(i, j)) a(i, j) = s(i, j);
      else if (s.held(j, i)) a(i, j) = kind == Sym::Hermitian ? conj_of(s(j, i)) : s(j, i);
    }
  return a;
}

// xt with each element moved by a relative amount rel, in order rm.
template <class T>
Mat<T> perturbed(const Mat<T>& xt, bool rm, double rel, std::mt19937_64& rng) {
  Mat<T> x(xt.rows, xt.cols, rm);
  for (int i = 0; i < xt.rows; ++i)
    for (int j = 0; j < xt.cols; ++j) x(i, j) = xt(i, j) * (T(1) + rel * random_value<T>(rng));
  return x;
}

// A general matrix in order rm holding the elements of dense.
template <class T>
Mat<T> in_order_dense(const Mat<T>& dense, bool rm) {
  Mat<T> m(dense.rows, dense.cols, rm);
  store(dense, m);
  return m;
}

// ---------------------------------------------------------------------------
// Checks shared by the families.

// ferr bounds the true error of x, the refined solution is accurate, and the
// backward error is a few units of roundoff.
template <class T>
void expect_refined(const Mat<T>& x, const Mat<T>& xt, const std::vector<double>& ferr,
                    const std::vector<double>& berr, double berr_bound = kBerrBound<T>) {
  const std::vector<double> err = column_errors(x, xt);
  for (std::size_t j = 0; j < err.size(); ++j) {
    EXPECT_LE(err[j], ferr[j]) << "column " << j;
    EXPECT_LT(ferr[j], 1e-9) << "column " << j;
    EXPECT_LT(berr[j], berr_bound) << "column " << j;
  }
}

// An estimate of the reciprocal condition number within a factor 10 of the truth.
void expect_rcond_near(double rcond, double truth) {
  EXPECT_GT(rcond, truth / 10) << "true " << truth;
  EXPECT_LT(rcond, truth * 10) << "true " << truth;
}

// A record with a recognisable message, to show that a call made no report.
ZemError quiet_record() {
  ZemError e = record();
  std::strcpy(e.message, "untouched");
  return e;
}

void expect_quiet(const ZemError& e) {
  EXPECT_EQ(e.code, 0) << e.message;
  EXPECT_STREQ(e.message, "untouched");
}

bool begins_with(const char* text, const std::string& head) { return std::string(text).rfind(head, 0) == 0; }

class F07Families : public testing::TestWithParam<bool> {
 protected:
  std::mt19937_64 rng{20260407};
  bool rm() const { return GetParam(); }
};

// ---------------------------------------------------------------------------
// f07b: general band matrices, LU with partial pivoting.

template <class T>
struct GbTab;
template <>
struct GbTab<double> {
  static constexpr auto trf = f07bdc;
  static constexpr auto trs = f07bec;
  static constexpr auto con = f07bgc;
  static constexpr auto rfs = f07bhc;
  static constexpr auto ref_trf = LAPACKE_dgbtrf;
  static constexpr auto ref_trs = LAPACKE_dgbtrs;
  static constexpr auto ref_con = LAPACKE_dgbcon;
  static constexpr auto ref_rfs = LAPACKE_dgbrfs;
};
template <>
struct GbTab<C> {
  static constexpr auto trf = f07brc;
  static constexpr auto trs = f07bsc;
  static constexpr auto con = f07buc;
  static constexpr auto rfs = f07bvc;
  static constexpr auto ref_trf = LAPACKE_zgbtrf;
  static constexpr auto ref_trs = LAPACKE_zgbtrs;
  static constexpr auto ref_con = LAPACKE_zgbcon;
  static constexpr auto ref_rfs = LAPACKE_zgbrfs;
};

// The band LU input: A in band storage with kl rows of fill, the fill junk.
template <class T>
Mat<T> band_lu_input(const Mat<T>& a, int kl, int ku, bool rm) {
  Mat<T> f = Mat<T>::band(a.rows, a.cols, kl, ku, kl, rm);
  for (int i = 0; i < a.rows; ++i)
    for (int j = 0; j < a.cols; ++j)
      if (f.held(i, j)) f(i, j) = j - i > ku ? T(kJunk) : a(i, j);
  return f;
}

template <class T>
void general_band_family(bool rm, std::mt19937_64& rng) {
  using Tab = GbTab<T>;
  const int n = 31, nrhs = 3;
  for (auto [kl, ku] : {std::pair{2, 3}, {0, 2}, {4, 0}, {1, 1}}) {
    SCOPED_TRACE("kl " + std::to_string(kl) + ", ku " + std::to_string(ku));
    const Mat<T> A = band_matrix<T>(n, n, kl, ku, rng);
    Mat<T> ab = Mat<T>::band(n, n, kl, ku, 0, rm);
    store(A, ab);
    Mat<T> f = band_lu_input(A, kl, ku, rm), fr = in_order(f, false);
    std::vector<int32_t> ipiv(n), ipiv_r(n);
    ZemError e = record();
    Tab::trf(f.order(), n, n, kl, ku, zp(f.data()), f.ld, ipiv.data(), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    ASSERT_EQ(Tab::ref_trf(LAPACK_COL_MAJOR, n, n, kl, ku, fr.data(), fr.ld, ipiv_r.data()), 0);
    EXPECT_TRUE(same_as(f, fr));
    EXPECT_EQ(ipiv, ipiv_r);
    EXPECT_TRUE(f.padding_intact());
    if (kl > 0) {
      bool interchanged = false;
      for (int k = 0; k < n; ++k) interchanged |= ipiv[k] != k + 1;
      EXPECT_TRUE(interchanged) << "the test matrix should make the factorisation pivot";
    }
    const Mat<T> f0 = f, ab0 = ab;

    const Mat<T> xt = random_matrix<T>(n, nrhs, false, rng);
    for (int trans : {Zem_NoTrans, Zem_Trans, Zem_ConjTrans}) {
      SCOPED_TRACE("trans " + std::to_string(trans));
      const Mat<T> b = in_order_dense(multiply(A, xt, trans), rm);
      Mat<T> x = b, xr = in_order(b, false);
      Tab::trs(x.order(), trans, n, kl, ku, nrhs, zp(f.data()), f.ld, ipiv.data(), zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_trs(LAPACK_COL_MAJOR, trans_char(trans), n, kl, ku, nrhs, fr.data(), fr.ld, ipiv.data(), xr.data(),
                   xr.ld);
      EXPECT_TRUE(same_as(x, xr));
      EXPECT_LT(solve_residual(A, x, b, trans), kResidualBound);
      EXPECT_TRUE(x.padding_intact());

      // Refinement of a solution spoilt in its sixth digit.
      Mat<T> xp = perturbed(xt, rm, 1e-6, rng), xpr = in_order(xp, false);
      const Mat<T> abr = in_order(ab, false), br = in_order(b, false);
      std::vector<double> ferr(nrhs), berr(nrhs), ferr_r(nrhs), berr_r(nrhs);
      Tab::rfs(xp.order(), trans, n, kl, ku, nrhs, zp(ab.data()), ab.ld, zp(f.data()), f.ld, ipiv.data(),
               zp(b.data()), b.ld, zp(xp.data()), xp.ld, ferr.data(), berr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_rfs(LAPACK_COL_MAJOR, trans_char(trans), n, kl, ku, nrhs, abr.data(), abr.ld, fr.data(), fr.ld,
                   ipiv.data(), br.data(), br.ld, xpr.data(), xpr.ld, ferr_r.data(), berr_r.data());
      EXPECT_TRUE(same_as(xp, xpr));
      EXPECT_EQ(ferr, ferr_r);
      EXPECT_EQ(berr, berr_r);
      expect_refined(xp, xt, ferr, berr);
      EXPECT_TRUE(xp.padding_intact());
    }

    for (int norm : {Zem_OneNorm, Zem_InfNorm}) {
      const double anorm = norm == Zem_OneNorm ? norm1(A) : norm_inf(A);
      double rcond = -1, rcond_r = -2;
      Tab::con(f.order(), norm, n, kl, ku, zp(f.data()), f.ld, ipiv.data(), anorm, &rcond, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_con(LAPACK_COL_MAJOR, norm_char(norm), n, kl, ku, fr.data(), fr.ld, ipiv.data(), anorm, &rcond_r);
      EXPECT_EQ(rcond, rcond_r);
      expect_rcond_near(rcond, true_rcond(A, norm));
    }
    // The inputs of the solve, the refinement and the estimate are as they were.
    EXPECT_EQ(f.a, f0.a);
    EXPECT_EQ(ab.a, ab0.a);
  }

  // Rectangular factorisations, taller and wider.
  for (auto [m, nn] : {std::pair{40, 29}, {23, 35}}) {
    const int kl = 3, ku = 2;
    const Mat<T> A = band_matrix<T>(m, nn, kl, ku, rng);
    Mat<T> f = band_lu_input(A, kl, ku, rm), fr = in_order(f, false);
    std::vector<int32_t> ipiv(std::min(m, nn)), ipiv_r(ipiv.size());
    ZemError e = record();
    Tab::trf(f.order(), m, nn, kl, ku, zp(f.data()), f.ld, ipiv.data(), &e);
    EXPECT_EQ(e.code, 0) << e.message;
    Tab::ref_trf(LAPACK_COL_MAJOR, m, nn, kl, ku, fr.data(), fr.ld, ipiv_r.data());
    EXPECT_TRUE(same_as(f, fr)) << m << " by " << nn;
    EXPECT_EQ(ipiv, ipiv_r);
    EXPECT_TRUE(f.padding_intact());
  }

  // Empty problems return without a report; an empty condition estimate is 1.
  {
    const int kl = 1, ku = 2;
    Mat<T> f = Mat<T>::band(0, 0, kl, ku, kl, rm), b0(0, 2, rm), x0 = b0;
    Mat<T> ab = Mat<T>::band(4, 4, kl, ku, 0, rm), fn = Mat<T>::band(4, 4, kl, ku, kl, rm), bn(4, 0, rm), xn = bn;
    int32_t ipiv[4] = {1, 2, 3, 4};
    double ferr[1] = {-1}, berr[1] = {-1}, rcond = -1;
    ZemError e = quiet_record();
    Tab::trf(f.order(), 0, 0, kl, ku, zp(f.data()), f.ld, ipiv, &e);
    expect_quiet(e);
    Tab::trs(f.order(), Zem_NoTrans, 0, kl, ku, 2, zp(f.data()), f.ld, ipiv, zp(x0.data()), x0.ld, &e);
    expect_quiet(e);
    Tab::con(f.order(), Zem_OneNorm, 0, kl, ku, zp(f.data()), f.ld, ipiv, 0.0, &rcond, &e);
    expect_quiet(e);
    EXPECT_EQ(rcond, 1.0);
    Tab::trs(fn.order(), Zem_Trans, 4, kl, ku, 0, zp(fn.data()), fn.ld, ipiv, zp(xn.data()), xn.ld, &e);
    expect_quiet(e);
    Tab::rfs(fn.order(), Zem_NoTrans, 4, kl, ku, 0, zp(ab.data()), ab.ld, zp(fn.data()), fn.ld, ipiv,
             zp(bn.data()), bn.ld, zp(xn.data()), xn.ld, ferr, berr, &e);
    expect_quiet(e);
    EXPECT_TRUE(fn.padding_intact());
    EXPECT_TRUE(xn.padding_intact());
  }
}

TEST_P(F07Families, GeneralBandReal) { general_band_family<double>(rm(), rng); }
TEST_P(F07Families, GeneralBandComplex) { general_band_family<C>(rm(), rng); }

// A zero column stops the elimination at its pivot: NE_SINGULAR with the
// pivot's position, and the factors are still returned.
template <class T>
void singular_band(bool rm, std::mt19937_64& rng) {
  using Tab = GbTab<T>;
  const int n = 9, kl = 2, ku = 1;
  Mat<T> A = band_matrix<T>(n, n, kl, ku, rng);
  for (int i = 0; i < n; ++i) A(i, 4) = 0;
  Mat<T> f = band_lu_input(A, kl, ku, rm), fr = in_order(f, false);
  std::vector<int32_t> ipiv(n), ipiv_r(n);
  ZemError e = record();
  Tab::trf(f.order(), n, n, kl, ku, zp(f.data()), f.ld, ipiv.data(), &e);
  EXPECT_EQ(Tab::ref_trf(LAPACK_COL_MAJOR, n, n, kl, ku, fr.data(), fr.ld, ipiv_r.data()), 5);
  EXPECT_EQ(e.code, NE_SINGULAR);
  EXPECT_EQ(e.errnum, 5);
  EXPECT_TRUE(begins_with(e.message, "    u(5,5) is exactly zero.\n    The factorization has been completed"))
      << e.message;
  EXPECT_TRUE(same_as(f, fr));
  EXPECT_EQ(ipiv, ipiv_r);
  EXPECT_TRUE(f.padding_intact());
}

TEST_P(F07Families, SingularBandLuReportsThePivot) {
  singular_band<double>(rm(), rng);
  singular_band<C>(rm(), rng);
}

// ---------------------------------------------------------------------------
// f07g, f07h: positive definite matrices, packed and band (kd diagonals on
// the side of uplo).

template <class T>
struct PpTab;
template <>
struct PpTab<double> {
  using T = double;
  static constexpr bool band = false;
  static constexpr auto trf = f07gdc;
  static constexpr auto trs = f07gec;
  static constexpr auto con = f07ggc;
  static constexpr auto rfs = f07ghc;
  static constexpr auto tri = f07gjc;
  static constexpr auto ref_trf = LAPACKE_dpptrf;
  static constexpr auto ref_trs = LAPACKE_dpptrs;
  static constexpr auto ref_con = LAPACKE_dppcon;
  static constexpr auto ref_rfs = LAPACKE_dpprfs;
  static constexpr auto ref_tri = LAPACKE_dpptri;
};
template <>
struct PpTab<C> {
  using T = C;
  static constexpr bool band = false;
  static constexpr auto trf = f07grc;
  static constexpr auto trs = f07gsc;
  static constexpr auto con = f07guc;
  static constexpr auto rfs = f07gvc;
  static constexpr auto tri = f07gwc;
  static constexpr auto ref_trf = LAPACKE_zpptrf;
  static constexpr auto ref_trs = LAPACKE_zpptrs;
  static constexpr auto ref_con = LAPACKE_zppcon;
  static constexpr auto ref_rfs = LAPACKE_zpprfs;
  static constexpr auto ref_tri = LAPACKE_zpptri;
};
template <class T>
struct PbTab;
template <>
struct PbTab<double> {
  using T = double;
  static constexpr bool band = true;
  static constexpr auto trf = f07hdc;
  static constexpr auto trs = f07hec;
  static constexpr auto con = f07hgc;
  static constexpr auto rfs = f07hhc;
  static constexpr auto ref_trf = LAPACKE_dpbtrf;
  static constexpr auto ref_trs = LAPACKE_dpbtrs;
  static constexpr auto ref_con = LAPACKE_dpbcon;
  static constexpr auto ref_rfs = LAPACKE_dpbrfs;
};
template <>
struct PbTab<C> {
  using T = C;
  static constexpr bool band = true;
  static constexpr auto trf = f07hrc;
  static constexpr auto trs = f07hsc;
  static constexpr auto con = f07huc;
  static constexpr auto rfs = f07hvc;
  static constexpr auto ref_trf = LAPACKE_zpbtrf;
  static constexpr auto ref_trs = LAPACKE_zpbtrs;
  static constexpr auto ref_con = LAPACKE_zpbcon;
  static constexpr auto ref_rfs = LAPACKE_zpbrfs;
};

// The triangle uplo of an order n matrix in the family's storage.
template <class Tab>
Mat<typename Tab::T> pd_storage(int n, int kd, int uplo, bool rm) {
  using T = typename Tab::T;
  const bool up = uplo == Zem_Upper;
  if constexpr (Tab::band) return Mat<T>::band(n, n, up ? 0 : kd, up ? kd : 0, 0, rm);
  else return Mat<T>::packed(n, up, rm);
}

// Factorises f in place (ours) and fr (LAPACKE); returns LAPACKE's info.
template <class Tab>
int pd_factorise(int uplo, int n, int kd, Mat<typename Tab::T>& f, Mat<typename Tab::T>& fr, ZemError* e) {
  if constexpr (Tab::band) {
    Tab::trf(f.order(), uplo, n, kd, zp(f.data()), f.ld, e);
    return Tab::ref_trf(fr.layout(), uplo_char(uplo), n, kd, fr.data(), fr.ld);
  } else {
    Tab::trf(f.order(), uplo, n, zp(f.data()), e);
    return Tab::ref_trf(fr.layout(), uplo_char(uplo), n, fr.data());
  }
}

template <class Tab>
void positive_definite_family(bool rm, std::mt19937_64& rng) {
  using T = typename Tab::T;
  constexpr bool band = Tab::band;
  const int n = band ? 33 : 27, kd = band ? 4 : 0, nrhs = 3;
  const bool ref_rm = rm && !band;  // LAPACKE's row-major band layout is another
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    SCOPED_TRACE(uplo == Zem_Upper ? "upper" : "lower");
    const char u = uplo_char(uplo);
    const Mat<T> A = band ? hpd_band<T>(n, kd, rng) : spd_matrix<T>(n, false, rng);
    Mat<T> a = pd_storage<Tab>(n, kd, uplo, rm);
    store(A, a);
    Mat<T> f = a, fr = in_order(a, ref_rm);
    ZemError e = record();
    ASSERT_EQ(pd_factorise<Tab>(uplo, n, kd, f, fr, &e), 0);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_TRUE(same_as(f, fr));
    EXPECT_TRUE(f.padding_intact());
    const Mat<T> a0 = a, f0 = f;

    const Mat<T> xt = random_matrix<T>(n, nrhs, false, rng);
    const Mat<T> b = in_order_dense(multiply(A, xt), rm), br = in_order(b, ref_rm);
    Mat<T> x = b, xr = br;
    Mat<T> xp = perturbed(xt, rm, 1e-6, rng), xpr = in_order(xp, ref_rm);
    const Mat<T> ar = in_order(a, ref_rm);
    std::vector<double> ferr(nrhs), berr(nrhs), ferr_r(nrhs), berr_r(nrhs);
    double rcond = -1, rcond_r = -2;
    const double anorm = norm1(A);
    if constexpr (band) {
      Tab::trs(x.order(), uplo, n, kd, nrhs, zp(f.data()), f.ld, zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_trs(xr.layout(), u, n, kd, nrhs, fr.data(), fr.ld, xr.data(), xr.ld);
      Tab::rfs(xp.order(), uplo, n, kd, nrhs, zp(a.data()), a.ld, zp(f.data()), f.ld, zp(b.data()), b.ld,
               zp(xp.data()), xp.ld, ferr.data(), berr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_rfs(xpr.layout(), u, n, kd, nrhs, ar.data(), ar.ld, fr.data(), fr.ld, br.data(), br.ld, xpr.data(),
                   xpr.ld, ferr_r.data(), berr_r.data());
      Tab::con(f.order(), uplo, n, kd, zp(f.data()), f.ld, anorm, &rcond, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_con(fr.layout(), u, n, kd, fr.data(), fr.ld, anorm, &rcond_r);
    } else {
      Tab::trs(x.order(), uplo, n, nrhs, zp(f.data()), zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_trs(xr.layout(), u, n, nrhs, fr.data(), xr.data(), xr.ld);
      Tab::rfs(xp.order(), uplo, n, nrhs, zp(a.data()), zp(f.data()), zp(b.data()), b.ld, zp(xp.data()), xp.ld,
               ferr.data(), berr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_rfs(xpr.layout(), u, n, nrhs, ar.data(), fr.data(), br.data(), br.ld, xpr.data(), xpr.ld,
                   ferr_r.data(), berr_r.data());
      Tab::con(f.order(), uplo, n, zp(f.data()), anorm, &rcond, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_con(fr.layout(), u, n, fr.data(), anorm, &rcond_r);
    }
    EXPECT_TRUE(same_as(x, xr));
    EXPECT_LT(solve_residual(A, x, b), kResidualBound);
    EXPECT_TRUE(x.padding_intact());
    EXPECT_TRUE(same_as(xp, xpr));
    EXPECT_EQ(ferr, ferr_r);
    EXPECT_EQ(berr, berr_r);
    expect_refined(xp, xt, ferr, berr);
    EXPECT_TRUE(xp.padding_intact());
    EXPECT_EQ(rcond, rcond_r);
    expect_rcond_near(rcond, true_rcond(A));
    EXPECT_EQ(a.a, a0.a);
    EXPECT_EQ(f.a, f0.a);

    if constexpr (!band) {
      Mat<T> inv = f, invr = fr;
      Tab::tri(inv.order(), uplo, n, zp(inv.data()), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_tri(invr.layout(), u, n, invr.data());
      EXPECT_TRUE(same_as(inv, invr));
      EXPECT_TRUE(inv.padding_intact());
      EXPECT_LT(inverse_residual(A, complete(inv, Sym::Hermitian)), kResidualBound);
    }

    // Empty problems return without a report.
    ZemError q = quiet_record();
    Mat<T> e0 = pd_storage<Tab>(0, kd, uplo, rm), b0(0, 2, rm), bn(n, 0, rm), xn = bn;
    double r0 = -1;
    if constexpr (band) {
      Tab::trf(e0.order(), uplo, 0, kd, zp(e0.data()), e0.ld, &q);
      expect_quiet(q);
      Tab::trs(e0.order(), uplo, 0, kd, 2, zp(e0.data()), e0.ld, zp(b0.data()), b0.ld, &q);
      expect_quiet(q);
      Tab::con(e0.order(), uplo, 0, kd, zp(e0.data()), e0.ld, 0.0, &r0, &q);
      expect_quiet(q);
      Tab::rfs(bn.order(), uplo, n, kd, 0, zp(a.data()), a.ld, zp(f.data()), f.ld, zp(bn.data()), bn.ld,
               zp(xn.data()), xn.ld, ferr.data(), berr.data(), &q);
      expect_quiet(q);
    } else {
      Tab::trf(e0.order(), uplo, 0, zp(e0.data()), &q);
      expect_quiet(q);
      Tab::trs(e0.order(), uplo, 0, 2, zp(e0.data()), zp(b0.data()), b0.ld, &q);
      expect_quiet(q);
      Tab::con(e0.order(), uplo, 0, zp(e0.data()), 0.0, &r0, &q);
      expect_quiet(q);
      Tab::tri(e0.order(), uplo, 0, zp(e0.data()), &q);
      expect_quiet(q);
      Tab::rfs(bn.order(), uplo, n, 0, zp(a.data()), zp(f.data()), zp(bn.data()), bn.ld, zp(xn.data()), xn.ld,
               ferr.data(), berr.data(), &q);
      expect_quiet(q);
    }
    EXPECT_EQ(r0, 1.0);
    EXPECT_TRUE(e0.padding_intact());
  }
}

TEST_P(F07Families, PackedPositiveDefiniteReal) { positive_definite_family<PpTab<double>>(rm(), rng); }
TEST_P(F07Families, PackedPositiveDefiniteComplex) { positive_definite_family<PpTab<C>>(rm(), rng); }
TEST_P(F07Families, BandPositiveDefiniteReal) { positive_definite_family<PbTab<double>>(rm(), rng); }
TEST_P(F07Families, BandPositiveDefiniteComplex) { positive_definite_family<PbTab<C>>(rm(), rng); }

// A diagonal that turns negative in row 3 stops the Cholesky factorisation
// at the leading minor of order 3.
template <class Tab>
void not_positive_definite(bool rm, std::mt19937_64& rng) {
  using T = typename Tab::T;
  const int n = 7, kd = 2;
  Mat<T> A = hpd_band<T>(n, kd, rng);
  A(2, 2) = -1.0;
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    Mat<T> f = pd_storage<Tab>(n, kd, uplo, rm);
    store(A, f);
    Mat<T> fr = in_order(f, rm && !Tab::band);
    ZemError e = record();
    EXPECT_EQ(pd_factorise<Tab>(uplo, n, kd, f, fr, &e), 3);
    EXPECT_EQ(e.code, NE_NOT_POS_DEF);
    EXPECT_EQ(e.errnum, 3);
    EXPECT_TRUE(begins_with(e.message, "    The leading minor of order 3 is not positive definite")) << e.message;
    EXPECT_TRUE(same_as(f, fr));
    EXPECT_TRUE(f.padding_intact());
    if constexpr (!Tab::band) {
      // A Cholesky factor with a zero third diagonal element has no inverse.
      Mat<T> r = pd_storage<Tab>(n, kd, uplo, rm);
      store(hpd_band<T>(n, kd, rng), r);
      r(2, 2) = 0;
      Tab::tri(r.order(), uplo, n, zp(r.data()), &e);
      EXPECT_EQ(e.code, NE_SINGULAR);
      EXPECT_EQ(e.errnum, 3);
      EXPECT_TRUE(begins_with(e.message, "    The diagonal element 3 of the Cholesky factor is zero;")) << e.message;
      EXPECT_TRUE(r.padding_intact());
    }
  }
}

TEST_P(F07Families, NotPositiveDefiniteGivesTheMinor) {
  not_positive_definite<PpTab<double>>(rm(), rng);
  not_positive_definite<PpTab<C>>(rm(), rng);
  not_positive_definite<PbTab<double>>(rm(), rng);
  not_positive_definite<PbTab<C>>(rm(), rng);
}

// f07fdc_0 is f07fdc under a second name: the same factors, the same
// reports, made in its own name.
std::string g_reporter;
void remember_reporter(const char*, int32_t, const char* routine) { g_reporter = routine ? routine : ""; }

TEST_P(F07Families, CholeskySecondNameIsTheSameRoutine) {
  const int n = 40, nrhs = 2;
  const Mat<double> A = spd_matrix<double>(n, false, rng);
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    Mat<double> f0 = Mat<double>::triangle(n, uplo == Zem_Upper, rm());
    store(A, f0);
    Mat<double> f1 = f0;
    ZemError e0 = record(), e1 = record();
    f07fdc(f0.order(), uplo, n, f0.data(), f0.ld, &e0);
    f07fdc_0(f1.order(), uplo, n, f1.data(), f1.ld, &e1);
    ASSERT_EQ(e1.code, 0) << e1.message;
    EXPECT_EQ(f1.a, f0.a);
    EXPECT_TRUE(f1.padding_intact());
    const Mat<double> xt = random_matrix<double>(n, nrhs, false, rng);
    const Mat<double> b = in_order_dense(multiply(A, xt), rm());
    Mat<double> x = b;
    f07fec(x.order(), uplo, n, nrhs, f1.data(), f1.ld, x.data(), x.ld, &e1);
    ASSERT_EQ(e1.code, 0) << e1.message;
    EXPECT_LT(solve_residual(A, x, b), kResidualBound);
  }
  Mat<double> bad = A;
  bad(3, 3) = -1.0;
  Mat<double> g0 = in_order(bad, rm()), g1 = g0;
  ZemError e0 = record(), e1 = record();
  e1.handler = remember_reporter;
  f07fdc(g0.order(), Zem_Lower, n, g0.data(), g0.ld, &e0);
  f07fdc_0(g1.order(), Zem_Lower, n, g1.data(), g1.ld, &e1);
  EXPECT_EQ(e1.code, NE_NOT_POS_DEF);
  EXPECT_EQ(e1.errnum, 4);
  EXPECT_EQ(e1.errnum, e0.errnum);
  EXPECT_STREQ(e1.message, e0.message);
  EXPECT_EQ(g_reporter, "f07fdc_0");
  EXPECT_EQ(g1.a, g0.a);
}

// ---------------------------------------------------------------------------
// f07m, f07n, f07p, f07q: symmetric, Hermitian and complex symmetric
// indefinite matrices, Bunch-Kaufman, in full and packed storage.

template <class T, bool Packed, Sym Kind>
struct IndefTab;
template <>
struct IndefTab<double, false, Sym::Symmetric> {
  static constexpr auto trf = f07mdc;
  static constexpr auto trs = f07mec;
  static constexpr auto con = f07mgc;
  static constexpr auto rfs = f07mhc;
  static constexpr auto tri = f07mjc;
  static constexpr auto ref_trf = LAPACKE_dsytrf;
  static constexpr auto ref_trs = LAPACKE_dsytrs;
  static constexpr auto ref_con = LAPACKE_dsycon;
  static constexpr auto ref_rfs = LAPACKE_dsyrfs;
  static constexpr auto ref_tri = LAPACKE_dsytri;
};
template <>
struct IndefTab<C, false, Sym::Hermitian> {
  static constexpr auto trf = f07mrc;
  static constexpr auto trs = f07msc;
  static constexpr auto con = f07muc;
  static constexpr auto rfs = f07mvc;
  static constexpr auto tri = f07mwc;
  static constexpr auto ref_trf = LAPACKE_zhetrf;
  static constexpr auto ref_trs = LAPACKE_zhetrs;
  static constexpr auto ref_con = LAPACKE_zhecon;
  static constexpr auto ref_rfs = LAPACKE_zherfs;
  static constexpr auto ref_tri = LAPACKE_zhetri;
};
template <>
struct IndefTab<C, false, Sym::Symmetric> {
  static constexpr auto trf = f07nrc;
  static constexpr auto trs = f07nsc;
  static constexpr auto con = f07nuc;
  static constexpr auto rfs = f07nvc;
  static constexpr auto tri = f07nwc;
  static constexpr auto ref_trf = LAPACKE_zsytrf;
  static constexpr auto ref_trs = LAPACKE_zsytrs;
  static constexpr auto ref_con = LAPACKE_zsycon;
  static constexpr auto ref_rfs = LAPACKE_zsyrfs;
  static constexpr auto ref_tri = LAPACKE_zsytri;
};
template <>
struct IndefTab<double, true, Sym::Symmetric> {
  static constexpr auto trf = f07pdc;
  static constexpr auto trs = f07pec;
  static constexpr auto con = f07pgc;
  static constexpr auto rfs = f07phc;
  static constexpr auto tri = f07pjc;
  static constexpr auto ref_trf = LAPACKE_dsptrf;
  static constexpr auto ref_trs = LAPACKE_dsptrs;
  static constexpr auto ref_con = LAPACKE_dspcon;
  static constexpr auto ref_rfs = LAPACKE_dsprfs;
  static constexpr auto ref_tri = LAPACKE_dsptri;
};
template <>
struct IndefTab<C, true, Sym::Hermitian> {
  static constexpr auto trf = f07prc;
  static constexpr auto trs = f07psc;
  static constexpr auto con = f07puc;
  static constexpr auto rfs = f07pvc;
  static constexpr auto tri = f07pwc;
  static constexpr auto ref_trf = LAPACKE_zhptrf;
  static constexpr auto ref_trs = LAPACKE_zhptrs;
  static constexpr auto ref_con = LAPACKE_zhpcon;
  static constexpr auto ref_rfs = LAPACKE_zhprfs;
  static constexpr auto ref_tri = LAPACKE_zhptri;
};
template <>
struct IndefTab<C, true, Sym::Symmetric> {
  static constexpr auto trf = f07qrc;
  static constexpr auto trs = f07qsc;
  static constexpr auto con = f07quc;
  static constexpr auto rfs = f07qvc;
  static constexpr auto tri = f07qwc;
  static constexpr auto ref_trf = LAPACKE_zsptrf;
  static constexpr auto ref_trs = LAPACKE_zsptrs;
  static constexpr auto ref_con = LAPACKE_zspcon;
  static constexpr auto ref_rfs = LAPACKE_zsprfs;
  static constexpr auto ref_tri = LAPACKE_zsptri;
};

template <class T, bool Packed>
Mat<T> triangle_storage(int n, int uplo, bool rm) {
  if constexpr (Packed) return Mat<T>::packed(n, uplo == Zem_Upper, rm);
  else return Mat<T>::triangle(n, uplo == Zem_Upper, rm);
}

// The indefinite family's calls, with and without the leading dimension.
template <class T, bool Packed, Sym Kind>
struct Indef {
  using Tab = IndefTab<T, Packed, Kind>;
  // LAPACKE's factorisations are called only when fr is given: for n = 0
  // they ask the kernel for a workspace of 0 elements, which it refuses.
  static int trf(int uplo, Mat<T>& f, int32_t* ipiv, Mat<T>* fr, int32_t* ipiv_r, ZemError* e) {
    const int n = f.rows;
    if constexpr (Packed) {
      Tab::trf(f.order(), uplo, n, zp(f.data()), ipiv, e);
      return fr ? Tab::ref_trf(fr->layout(), uplo_char(uplo), n, fr->data(), ipiv_r) : 0;
    } else {
      Tab::trf(f.order(), uplo, n, zp(f.data()), f.ld, ipiv, e);
      return fr ? Tab::ref_trf(fr->layout(), uplo_char(uplo), n, fr->data(), fr->ld, ipiv_r) : 0;
    }
  }
  static int tri(int uplo, Mat<T>& f, const int32_t* ipiv, Mat<T>& fr, ZemError* e) {
    const int n = f.rows;
    if constexpr (Packed) {
      Tab::tri(f.order(), uplo, n, zp(f.data()), ipiv, e);
      return Tab::ref_tri(fr.layout(), uplo_char(uplo), n, fr.data(), ipiv);
    } else {
      Tab::tri(f.order(), uplo, n, zp(f.data()), f.ld, ipiv, e);
      return Tab::ref_tri(fr.layout(), uplo_char(uplo), n, fr.data(), fr.ld, ipiv);
    }
  }
};

template <class T, bool Packed, Sym Kind>
void indefinite_family(bool rm, std::mt19937_64& rng) {
  using Ops = Indef<T, Packed, Kind>;
  using Tab = typename Ops::Tab;
  // Past the block size of the full-storage factorisation, so that its
  // blocked code and workspace query are exercised.
  const int n = Packed ? 40 : 70, nrhs = 3;
  const Mat<T> A = indefinite_matrix<T>(n, Kind, rng);
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    SCOPED_TRACE(uplo == Zem_Upper ? "upper" : "lower");
    const char u = uplo_char(uplo);
    Mat<T> a = triangle_storage<T, Packed>(n, uplo, rm);
    store(A, a);
    Mat<T> f = a, fr = a;  // LAPACKE takes full and packed storage in both orders
    std::vector<int32_t> ipiv(n), ipiv_r(n);
    ZemError e = record();
    ASSERT_EQ(Ops::trf(uplo, f, ipiv.data(), &fr, ipiv_r.data(), &e), 0);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_TRUE(same_as(f, fr));
    EXPECT_EQ(ipiv, ipiv_r);
    EXPECT_TRUE(f.padding_intact());
    EXPECT_TRUE(std::any_of(ipiv.begin(), ipiv.end(), [](int32_t p) { return p < 0; }))
        << "the test matrix should give 2 by 2 pivots";
    const Mat<T> a0 = a, f0 = f;

    const Mat<T> xt = random_matrix<T>(n, nrhs, false, rng);
    const Mat<T> b = in_order_dense(multiply(A, xt), rm);
    Mat<T> x = b, xr = b, xp = perturbed(xt, rm, 1e-6, rng), xpr = xp;
    std::vector<double> ferr(nrhs), berr(nrhs), ferr_r(nrhs), berr_r(nrhs);
    double rcond = -1, rcond_r = -2;
    const double anorm = norm1(A);
    if constexpr (Packed) {
      Tab::trs(x.order(), uplo, n, nrhs, zp(f.data()), ipiv.data(), zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_trs(xr.layout(), u, n, nrhs, fr.data(), ipiv.data(), xr.data(), xr.ld);
      Tab::rfs(xp.order(), uplo, n, nrhs, zp(a.data()), zp(f.data()), ipiv.data(), zp(b.data()), b.ld,
               zp(xp.data()), xp.ld, ferr.data(), berr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_rfs(xpr.layout(), u, n, nrhs, a.data(), fr.data(), ipiv.data(), b.data(), b.ld, xpr.data(), xpr.ld,
                   ferr_r.data(), berr_r.data());
      Tab::con(f.order(), uplo, n, zp(f.data()), ipiv.data(), anorm, &rcond, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_con(fr.layout(), u, n, fr.data(), ipiv.data(), anorm, &rcond_r);
    } else {
      Tab::trs(x.order(), uplo, n, nrhs, zp(f.data()), f.ld, ipiv.data(), zp(x.data()), x.ld, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_trs(xr.layout(), u, n, nrhs, fr.data(), fr.ld, ipiv.data(), xr.data(), xr.ld);
      Tab::rfs(xp.order(), uplo, n, nrhs, zp(a.data()), a.ld, zp(f.data()), f.ld, ipiv.data(), zp(b.data()), b.ld,
               zp(xp.data()), xp.ld, ferr.data(), berr.data(), &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_rfs(xpr.layout(), u, n, nrhs, a.data(), a.ld, fr.data(), fr.ld, ipiv.data(), b.data(), b.ld,
                   xpr.data(), xpr.ld, ferr_r.data(), berr_r.data());
      Tab::con(f.order(), uplo, n, zp(f.data()), f.ld, ipiv.data(), anorm, &rcond, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      Tab::ref_con(fr.layout(), u, n, fr.data(), fr.ld, ipiv.data(), anorm, &rcond_r);
    }
    EXPECT_TRUE(same_as(x, xr));
    EXPECT_LT(solve_residual(A, x, b), kResidualBound);
    EXPECT_TRUE(x.padding_intact());
    EXPECT_TRUE(same_as(xp, xpr));
    EXPECT_EQ(ferr, ferr_r);
    EXPECT_EQ(berr, berr_r);
    expect_refined(xp, xt, ferr, berr);
    EXPECT_TRUE(xp.padding_intact());
    EXPECT_EQ(rcond, rcond_r);
    expect_rcond_near(rcond, true_rcond(A));
    EXPECT_EQ(a.a, a0.a);
    EXPECT_EQ(f.a, f0.a);

    Mat<T> inv = f, invr = fr;
    ASSERT_EQ(Ops::tri(uplo, inv, ipiv.data(), invr, &e), 0);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_TRUE(same_as(inv, invr));
    EXPECT_TRUE(inv.padding_intact());
    EXPECT_LT(inverse_residual(A, complete(inv, Kind)), kResidualBound);

    // Empty problems return without a report.
    ZemError q = quiet_record();
    Mat<T> e0 = triangle_storage<T, Packed>(0, uplo, rm), e0r = e0, b0(0, 2, rm), bn(n, 0, rm), xn = bn;
    int32_t ip0[1] = {1};
    double r0 = -1;
    Ops::trf(uplo, e0, ip0, nullptr, nullptr, &q);
    expect_quiet(q);
    Ops::tri(uplo, e0, ip0, e0r, &q);
    expect_quiet(q);
    if constexpr (Packed) {
      Tab::trs(e0.order(), uplo, 0, 2, zp(e0.data()), ip0, zp(b0.data()), b0.ld, &q);
      expect_quiet(q);
      Tab::con(e0.order(), uplo, 0, zp(e0.data()), ip0, 0.0, &r0, &q);
      expect_quiet(q);
      Tab::rfs(bn.order(), uplo, n, 0, zp(a.data()), zp(f.data()), ipiv.data(), zp(bn.data()), bn.ld,
               zp(xn.data()), xn.ld, ferr.data(), berr.data(), &q);
      expect_quiet(q);
    } else {
      Tab::trs(e0.order(), uplo, 0, 2, zp(e0.data()), e0.ld, ip0, zp(b0.data()), b0.ld, &q);
      expect_quiet(q);
      Tab::con(e0.order(), uplo, 0, zp(e0.data()), e0.ld, ip0, 0.0, &r0, &q);
      expect_quiet(q);
      Tab::rfs(bn.order(), uplo, n, 0, zp(a.data()), a.ld, zp(f.data()), f.ld, ipiv.data(), zp(bn.data()), bn.ld,
               zp(xn.data()), xn.ld, ferr.data(), berr.data(), &q);
      expect_quiet(q);
    }
    EXPECT_EQ(r0, 1.0);
  }
}

TEST_P(F07Families, SymmetricIndefiniteReal) { indefinite_family<double, false, Sym::Symmetric>(rm(), rng); }
TEST_P(F07Families, HermitianIndefinite) { indefinite_family<C, false, Sym::Hermitian>(rm(), rng); }
TEST_P(F07Families, ComplexSymmetric) { indefinite_family<C, false, Sym::Symmetric>(rm(), rng); }
TEST_P(F07Families, PackedSymmetricIndefiniteReal) { indefinite_family<double, true, Sym::Symmetric>(rm(), rng); }
TEST_P(F07Families, PackedHermitianIndefinite) { indefinite_family<C, true, Sym::Hermitian>(rm(), rng); }
TEST_P(F07Families, PackedComplexSymmetric) { indefinite_family<C, true, Sym::Symmetric>(rm(), rng); }

// A matrix whose second row and column are zero gives a zero 1 by 1 block
// of D at step 2 whichever triangle is factorised: the factorisation reports
// it and completes (the factors differ from A and must come back), and the
// inverse refuses.
template <class T, bool Packed, Sym Kind>
void singular_indefinite(bool rm) {
  using Ops = Indef<T, Packed, Kind>;
  const int n = 5;
  const double diagonal[n] = {1, 0, 2, -1, 3};
  Mat<T> A = zeros<T>(n, n);
  for (int i = 0; i < n; ++i) A(i, i) = diagonal[i];
  T c02 = 0.5, c34 = 0.25;
  if constexpr (kComplex<T>) {
    c02 = T(0.5, 0.25);
    c34 = T(0.25, -0.5);
  }
  A(0, 2) = c02;
  A(3, 4) = c34;
  A(2, 0) = Kind == Sym::Hermitian ? conj_of(c02) : c02;
  A(4, 3) = Kind == Sym::Hermitian ? conj_of(c34) : c34;
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    SCOPED_TRACE(uplo == Zem_Upper ? "upper" : "lower");
    Mat<T> f = triangle_storage<T, Packed>(n, uplo, rm);
    store(A, f);
    Mat<T> fr = f;
    const Mat<T> f0 = f;
    std::vector<int32_t> ipiv(n), ipiv_r(n);
    ZemError e = record();
    EXPECT_EQ(Ops::trf(uplo, f, ipiv.data(), &fr, ipiv_r.data(), &e), 2);
    EXPECT_EQ(e.code, NE_SINGULAR);
    EXPECT_EQ(e.errnum, 2);
    EXPECT_TRUE(begins_with(e.message, "    d(2,2) is exactly zero.\n    The factorization has been completed"))
        << e.message;
    EXPECT_TRUE(same_as(f, fr));
    EXPECT_NE(f.a, f0.a);
    EXPECT_EQ(ipiv, ipiv_r);
    EXPECT_EQ(Ops::tri(uplo, f, ipiv.data(), fr, &e), 2);
    EXPECT_EQ(e.code, NE_SINGULAR);
    EXPECT_EQ(e.errnum, 2);
    EXPECT_TRUE(begins_with(e.message, "    d(2,2) is exactly zero; D is singular")) << e.message;
    EXPECT_TRUE(f.padding_intact());
  }
}

TEST_P(F07Families, SingularIndefiniteReportsTheZeroBlock) {
  singular_indefinite<double, false, Sym::Symmetric>(rm());
  singular_indefinite<C, false, Sym::Hermitian>(rm());
  singular_indefinite<C, false, Sym::Symmetric>(rm());
  singular_indefinite<double, true, Sym::Symmetric>(rm());
  singular_indefinite<C, true, Sym::Hermitian>(rm());
  singular_indefinite<C, true, Sym::Symmetric>(rm());
}

// ---------------------------------------------------------------------------
// f07t, f07u, f07v: triangular matrices in full, packed and band storage.

enum class Tri { Full, Packed, Band };

template <class T, Tri S>
struct TriTab;
template <>
struct TriTab<double, Tri::Full> {
  static constexpr auto trs = f07tec;
  static constexpr auto con = f07tgc;
  static constexpr auto rfs = f07thc;
  static constexpr auto tri = f07tjc;
  static constexpr auto ref_trs = LAPACKE_dtrtrs;
  static constexpr auto ref_con = LAPACKE_dtrcon;
  static constexpr auto ref_rfs = LAPACKE_dtrrfs;
  static constexpr auto ref_tri = LAPACKE_dtrtri;
};
template <>
struct TriTab<C, Tri::Full> {
  static constexpr auto trs = f07tsc;
  static constexpr auto con = f07tuc;
  static constexpr auto rfs = f07tvc;
  static constexpr auto tri = f07twc;
  static constexpr auto ref_trs = LAPACKE_ztrtrs;
  static constexpr auto ref_con = LAPACKE_ztrcon;
  static constexpr auto ref_rfs = LAPACKE_ztrrfs;
  static constexpr auto ref_tri = LAPACKE_ztrtri;
};
template <>
struct TriTab<double, Tri::Packed> {
  static constexpr auto trs = f07uec;
  static constexpr auto con = f07ugc;
  static constexpr auto rfs = f07uhc;
  static constexpr auto tri = f07ujc;
  static constexpr auto ref_trs = LAPACKE_dtptrs;
  static constexpr auto ref_con = LAPACKE_dtpcon;
  static constexpr auto ref_rfs = LAPACKE_dtprfs;
  static constexpr auto ref_tri = LAPACKE_dtptri;
};
template <>
struct TriTab<C, Tri::Packed> {
  static constexpr auto trs = f07usc;
  static constexpr auto con = f07uuc;
  static constexpr auto rfs = f07uvc;
  static constexpr auto tri = f07uwc;
  static constexpr auto ref_trs = LAPACKE_ztptrs;
  static constexpr auto ref_con = LAPACKE_ztpcon;
  static constexpr auto ref_rfs = LAPACKE_ztprfs;
  static constexpr auto ref_tri = LAPACKE_ztptri;
};
template <>
struct TriTab<double, Tri::Band> {
  static constexpr auto trs = f07vec;
  static constexpr auto con = f07vgc;
  static constexpr auto rfs = f07vhc;
  static constexpr auto ref_trs = LAPACKE_dtbtrs;
  static constexpr auto ref_con = LAPACKE_dtbcon;
  static constexpr auto ref_rfs = LAPACKE_dtbrfs;
};
template <>
struct TriTab<C, Tri::Band> {
  static constexpr auto trs = f07vsc;
  static constexpr auto con = f07vuc;
  static constexpr auto rfs = f07vvc;
  static constexpr auto ref_trs = LAPACKE_ztbtrs;
  static constexpr auto ref_con = LAPACKE_ztbcon;
  static constexpr auto ref_rfs = LAPACKE_ztbrfs;
};

// The triangular family's calls, each made by the library on the matrix of
// the test's order and by LAPACKE on its reference copy; LAPACKE's info is
// returned.  kd is the band width (band storage only).
template <class T, Tri S>
struct TriOps {
  using Tab = TriTab<T, S>;
  int uplo, diag, kd;

  Mat<T> storage(int n, bool rm) const {
    const bool up = uplo == Zem_Upper;
    if constexpr (S == Tri::Full) return Mat<T>::triangle(n, up, rm);
    else if constexpr (S == Tri::Packed) return Mat<T>::packed(n, up, rm);
    else return Mat<T>::band(n, n, up ? 0 : kd, up ? kd : 0, 0, rm);
  }
  int trs(int trans, const Mat<T>& a, Mat<T>& x, const Mat<T>& ar, Mat<T>& xr, ZemError* e) const {
    const char u = uplo_char(uplo), t = trans_char(trans), d = diag_char(diag);
    const int n = a.rows, nrhs = x.cols;
    if constexpr (S == Tri::Full) {
      Tab::trs(x.order(), uplo, trans, diag, n, nrhs, zp(a.data()), a.ld, zp(x.data()), x.ld, e);
      return Tab::ref_trs(xr.layout(), u, t, d, n, nrhs, ar.data(), ar.ld, xr.data(), xr.ld);
    } else if constexpr (S == Tri::Packed) {
      Tab::trs(x.order(), uplo, trans, diag, n, nrhs, zp(a.data()), zp(x.data()), x.ld, e);
      return Tab::ref_trs(xr.layout(), u, t, d, n, nrhs, ar.data(), xr.data(), xr.ld);
    } else {
      Tab::trs(x.order(), uplo, trans, diag, n, kd, nrhs, zp(a.data()), a.ld, zp(x.data()), x.ld, e);
      return Tab::ref_trs(xr.layout(), u, t, d, n, kd, nrhs, ar.data(), ar.ld, xr.data(), xr.ld);
    }
  }
  void con(int norm, const Mat<T>& a, const Mat<T>& ar, double* rcond, double* rcond_r, ZemError* e) const {
    const char u = uplo_char(uplo), d = diag_char(diag), nc = norm_char(norm);
    const int n = a.rows;
    if constexpr (S == Tri::Full) {
      Tab::con(a.order(), norm, uplo, diag, n, zp(a.data()), a.ld, rcond, e);
      Tab::ref_con(ar.layout(), nc, u, d, n, ar.data(), ar.ld, rcond_r);
    } else if constexpr (S == Tri::Packed) {
      Tab::con(a.order(), norm, uplo, diag, n, zp(a.data()), rcond, e);
      Tab::ref_con(ar.layout(), nc, u, d, n, ar.data(), rcond_r);
    } else {
      Tab::con(a.order(), norm, uplo, diag, n, kd, zp(a.data()), a.ld, rcond, e);
      Tab::ref_con(ar.layout(), nc, u, d, n, kd, ar.data(), ar.ld, rcond_r);
    }
  }
  void rfs(int trans, const Mat<T>& a, const Mat<T>& b, const Mat<T>& x, double* ferr, double* berr,
           const Mat<T>& ar, const Mat<T>& br, const Mat<T>& xr, double* ferr_r, double* berr_r, ZemError* e) const {
    const char u = uplo_char(uplo), t = trans_char(trans), d = diag_char(diag);
    const int n = a.rows, nrhs = x.cols;
    if constexpr (S == Tri::Full) {
      Tab::rfs(x.order(), uplo, trans, diag, n, nrhs, zp(a.data()), a.ld, zp(b.data()), b.ld, zp(x.data()), x.ld,
               ferr, berr, e);
      Tab::ref_rfs(xr.layout(), u, t, d, n, nrhs, ar.data(), ar.ld, br.data(), br.ld, xr.data(), xr.ld, ferr_r,
                   berr_r);
    } else if constexpr (S == Tri::Packed) {
      Tab::rfs(x.order(), uplo, trans, diag, n, nrhs, zp(a.data()), zp(b.data()), b.ld, zp(x.data()), x.ld, ferr,
               berr, e);
      Tab::ref_rfs(xr.layout(), u, t, d, n, nrhs, ar.data(), br.data(), br.ld, xr.data(), xr.ld, ferr_r, berr_r);
    } else {
      Tab::rfs(x.order(), uplo, trans, diag, n, kd, nrhs, zp(a.data()), a.ld, zp(b.data()), b.ld, zp(x.data()),
               x.ld, ferr, berr, e);
      Tab::ref_rfs(xr.layout(), u, t, d, n, kd, nrhs, ar.data(), ar.ld, br.data(), br.ld, xr.data(), xr.ld, ferr_r,
                   berr_r);
    }
  }
  int tri(Mat<T>& a, Mat<T>& ar, ZemError* e) const {
    static_assert(S != Tri::Band, "no inverse in band storage");
    const int n = a.rows;
    if constexpr (S == Tri::Full) {
      Tab::tri(a.order(), uplo, diag, n, zp(a.data()), a.ld, e);
      return Tab::ref_tri(ar.layout(), uplo_char(uplo), diag_char(diag), n, ar.data(), ar.ld);
    } else {
      Tab::tri(a.order(), uplo, diag, n, zp(a.data()), e);
      return Tab::ref_tri(ar.layout(), uplo_char(uplo), diag_char(diag), n, ar.data());
    }
  }
};

// The dense triangular matrix that s holds, with a unit diagonal when diag says so.
template <class T>
Mat<T> triangle_of(const Mat<T>& s, int diag) {
  Mat<T> t = zeros<T>(s.rows, s.cols);
  for (int i = 0; i < s.rows; ++i)
    for (int j = 0; j < s.cols; ++j)
      if (s.held(i, j)) t(i, j) = i == j && diag == Zem_UnitDiag ? T(1) : s(i, j);
  return t;
}

template <class T, Tri S>
void triangular_family(bool rm, std::mt19937_64& rng) {
  constexpr bool band = S == Tri::Band;
  const int n = 27, nrhs = 3;
  const bool ref_rm = rm && !band;  // LAPACKE's row-major band layout is another
  for (int uplo : {Zem_Upper, Zem_Lower})
    for (int diag : {Zem_NonUnitDiag, Zem_UnitDiag}) {
      SCOPED_TRACE(std::string(uplo == Zem_Upper ? "upper" : "lower") + (diag == Zem_UnitDiag ? ", unit" : ""));
      const TriOps<T, S> ops{uplo, diag, band ? 5 : 0};
      const Mat<T> A = triangular_matrix<T>(n, uplo == Zem_Upper, diag == Zem_UnitDiag, band ? ops.kd : -1, rng);
      Mat<T> a = ops.storage(n, rm);
      store(A, a);
      // An implicit unit diagonal is never read: junk in its place must not matter.
      if (diag == Zem_UnitDiag)
        for (int i = 0; i < n; ++i) a(i, i) = kJunk;
      const Mat<T> a0 = a, ar = in_order(a, ref_rm);
      const Mat<T> xt = random_matrix<T>(n, nrhs, false, rng);
      ZemError e = record();
      for (int trans : {Zem_NoTrans, Zem_Trans, Zem_ConjTrans}) {
        SCOPED_TRACE("trans " + std::to_string(trans));
        const Mat<T> b = in_order_dense(multiply(A, xt, trans), rm), br = in_order(b, ref_rm);
        Mat<T> x = b, xr = br;
        ASSERT_EQ(ops.trs(trans, a, x, ar, xr, &e), 0);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_TRUE(same_as(x, xr));
        EXPECT_LT(solve_residual(A, x, b, trans), kResidualBound);
        EXPECT_TRUE(x.padding_intact());

        // Bounds for the computed solution, and for one spoilt in its sixth digit.
        std::vector<double> ferr(nrhs), berr(nrhs), ferr_r(nrhs), berr_r(nrhs);
        ops.rfs(trans, a, b, x, ferr.data(), berr.data(), ar, br, xr, ferr_r.data(), berr_r.data(), &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_EQ(ferr, ferr_r);
        EXPECT_EQ(berr, berr_r);
        // A triangular solve is backward stable componentwise, with a
        // backward error that may reach a few more units than refinement's.
        expect_refined(x, xt, ferr, berr, 2 * kBerrBound<T>);
        const Mat<T> xp = perturbed(xt, rm, 1e-6, rng), xpr = in_order(xp, ref_rm), xp0 = xp;
        ops.rfs(trans, a, b, xp, ferr.data(), berr.data(), ar, br, xpr, ferr_r.data(), berr_r.data(), &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_EQ(ferr, ferr_r);
        EXPECT_EQ(berr, berr_r);
        const std::vector<double> err = column_errors(xp, xt);
        for (int j = 0; j < nrhs; ++j) {
          EXPECT_LE(err[j], ferr[j]);
          EXPECT_LT(ferr[j], 1e3 * err[j]);
        }
        EXPECT_EQ(xp.a, xp0.a);
      }

      for (int norm : {Zem_OneNorm, Zem_InfNorm}) {
        double rcond = -1, rcond_r = -2;
        ops.con(norm, a, ar, &rcond, &rcond_r, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_EQ(rcond, rcond_r);
        expect_rcond_near(rcond, true_rcond(A, norm));
      }
      EXPECT_EQ(a.a, a0.a);

      if constexpr (!band) {
        Mat<T> inv = a, invr = ar;
        ASSERT_EQ(ops.tri(inv, invr, &e), 0);
        ASSERT_EQ(e.code, 0) << e.message;
        EXPECT_TRUE(same_as(inv, invr));
        EXPECT_TRUE(inv.padding_intact());
        if (diag == Zem_UnitDiag) {
          for (int i = 0; i < n; ++i) EXPECT_EQ(inv(i, i), T(kJunk));
        }
        EXPECT_LT(inverse_residual(A, triangle_of(inv, diag)), kResidualBound);
      }

      // Empty problems return without a report.
      ZemError q = quiet_record();
      Mat<T> e0 = ops.storage(0, rm), e0r = in_order(e0, ref_rm), b0(0, 2, rm), b0r = in_order(b0, ref_rm);
      Mat<T> bn(n, 0, rm), bnr = in_order(bn, ref_rm);
      double r0 = -1, r0r = -1, ferr[1] = {-1}, berr[1] = {-1};
      ops.trs(Zem_NoTrans, e0, b0, e0r, b0r, &q);
      expect_quiet(q);
      ops.trs(Zem_Trans, a, bn, ar, bnr, &q);
      expect_quiet(q);
      ops.con(Zem_OneNorm, e0, e0r, &r0, &r0r, &q);
      expect_quiet(q);
      EXPECT_EQ(r0, 1.0);
      ops.rfs(Zem_NoTrans, a, bn, bn, ferr, berr, ar, bnr, bnr, ferr, berr, &q);
      expect_quiet(q);
      if constexpr (!band) {
        ops.tri(e0, e0r, &q);
        expect_quiet(q);
      }
    }
}

TEST_P(F07Families, TriangularReal) { triangular_family<double, Tri::Full>(rm(), rng); }
TEST_P(F07Families, TriangularComplex) { triangular_family<C, Tri::Full>(rm(), rng); }
TEST_P(F07Families, TriangularPackedReal) { triangular_family<double, Tri::Packed>(rm(), rng); }
TEST_P(F07Families, TriangularPackedComplex) { triangular_family<C, Tri::Packed>(rm(), rng); }
TEST_P(F07Families, TriangularBandReal) { triangular_family<double, Tri::Band>(rm(), rng); }
TEST_P(F07Families, TriangularBandComplex) { triangular_family<C, Tri::Band>(rm(), rng); }

// A zero on a non-unit diagonal: the solve reports it and leaves the right
// hand side alone, the inverse refuses; with a unit diagonal the same array
// is a regular matrix.
template <class T, Tri S>
void singular_triangular(bool rm, std::mt19937_64& rng) {
  const int n = 6;
  const bool ref_rm = rm && S != Tri::Band;
  for (int uplo : {Zem_Upper, Zem_Lower})
    for (int diag : {Zem_NonUnitDiag, Zem_UnitDiag}) {
      SCOPED_TRACE(std::string(uplo == Zem_Upper ? "upper" : "lower") + (diag == Zem_UnitDiag ? ", unit" : ""));
      const TriOps<T, S> ops{uplo, diag, S == Tri::Band ? 2 : 0};
      Mat<T> A = triangular_matrix<T>(n, uplo == Zem_Upper, false, S == Tri::Band ? ops.kd : -1, rng);
      A(2, 2) = 0;
      Mat<T> a = ops.storage(n, rm);
      store(A, a);
      const Mat<T> ar = in_order(a, ref_rm);
      const Mat<T> b = random_matrix<T>(n, 2, rm, rng), br = in_order(b, ref_rm);
      Mat<T> x = b, xr = br;
      ZemError e = record();
      const int info = ops.trs(Zem_NoTrans, a, x, ar, xr, &e);
      if (diag == Zem_UnitDiag) {
        EXPECT_EQ(info, 0);
        EXPECT_EQ(e.code, 0) << e.message;
        EXPECT_TRUE(same_as(x, xr));
        continue;
      }
      EXPECT_EQ(info, 3);
      EXPECT_EQ(e.code, NE_SINGULAR);
      EXPECT_EQ(e.errnum, 3);
      EXPECT_STREQ(e.message,
                   "    a(3,3) is exactly zero; the triangular matrix is singular and the\n"
                   "    system cannot be solved.");
      EXPECT_EQ(x.a, b.a);
      if constexpr (S != Tri::Band) {
        Mat<T> inv = a, invr = ar;
        EXPECT_EQ(ops.tri(inv, invr, &e), 3);
        EXPECT_EQ(e.code, NE_SINGULAR);
        EXPECT_EQ(e.errnum, 3);
        EXPECT_STREQ(e.message,
                     "    a(3,3) is exactly zero; the triangular matrix is singular and its\n"
                     "    inverse cannot be computed.");
        EXPECT_TRUE(inv.padding_intact());
      }
    }
}

TEST_P(F07Families, SingularTriangularReportsTheZeroDiagonal) {
  singular_triangular<double, Tri::Full>(rm(), rng);
  singular_triangular<C, Tri::Full>(rm(), rng);
  singular_triangular<double, Tri::Packed>(rm(), rng);
  singular_triangular<C, Tri::Packed>(rm(), rng);
  singular_triangular<double, Tri::Band>(rm(), rng);
  singular_triangular<C, Tri::Band>(rm(), rng);
}

INSTANTIATE_TEST_SUITE_P(Orders, F07Families, testing::Values(true, false),
                         [](const testing::TestParamInfo<bool>& p) { return p.param ? "RowMajor" : "ColMajor"; });

}  // namespace
