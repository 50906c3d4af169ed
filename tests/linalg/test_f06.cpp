// BLAS-level operations against plain dense references, in both storage
// orders, with every matrix written in the library's storage scheme for that
// order (general, triangle, band, packed).  This checks the conventions that
// the f06 and f07 chapters share, not only the arithmetic.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <functional>
#include <random>
#include <vector>

#include "zem/f06.h"

namespace {

using C = std::complex<double>;
constexpr double kSentinel = -9999.0;

template <class T>
T rnd(std::mt19937_64& g) {
  std::uniform_real_distribution<double> u(-1, 1);
  if constexpr (std::is_same_v<T, C>) return C(u(g), u(g));
  else return u(g);
}

template <class T>
T conj_if(T v) {
  if constexpr (std::is_same_v<T, C>) return std::conj(v);
  else return v;
}

// A dense matrix, row-major, for the references.
template <class T>
struct Dense {
  int r, c;
  std::vector<T> v;
  Dense(int r_, int c_) : r(r_), c(c_), v(static_cast<std::size_t>(r_) * c_, T(0)) {}
  T& operator()(int i, int j) { return v[static_cast<std::size_t>(i) * c + j]; }
  T operator()(int i, int j) const { return v[static_cast<std::size_t>(i) * c + j]; }
};

// Where element (i, j) lives in each storage scheme (dense.hpp documents them).
struct Layout {
  bool row;
  int ld;
  long general(int i, int j) const { return row ? long(i) * ld + j : i + long(j) * ld; }
  long band(int i, int j, int kl, int ku) const { return row ? long(i) * ld + kl + j - i : (ku + i - j) + long(j) * ld; }
  static long packed(bool row, bool upper, int n, int i, int j) {
    if (upper) return row ? long(i) * (2 * n - i + 1) / 2 + j - i : i + long(j) * (j + 1) / 2;
    return row ? long(i) * (i + 1) / 2 + j : i - j + long(j) * (2 * n - j + 1) / 2;
  }
};

template <class T>
double max_diff(const std::vector<T>& a, const std::vector<T>& b) {
  double d = 0;
  for (std::size_t i = 0; i < a.size(); ++i) d = std::max(d, std::abs(a[i] - b[i]));
  return d;
}

// op(A) x for a dense A, op by the trans enumerator.
template <class T>
std::vector<T> apply(const Dense<T>& a, int trans, const std::vector<T>& x) {
  const bool t = trans != Zem_NoTrans, h = trans == Zem_ConjTrans;
  std::vector<T> y(t ? a.c : a.r, T(0));
  for (int i = 0; i < a.r; ++i)
    for (int j = 0; j < a.c; ++j) {
      if (t) y[j] += (h ? conj_if(a(i, j)) : a(i, j)) * x[i];
      else y[i] += a(i, j) * x[j];
    }
  return y;
}

class Orders : public testing::TestWithParam<bool> {
 protected:
  std::mt19937_64 g{97};
  bool row() const { return GetParam(); }
  int order() const { return row() ? Zem_RowMajor : Zem_ColMajor; }
};

TEST_P(Orders, GeneralAndBandMatrixVector) {
  ZemError e{};
  const int m = 7, n = 5, kl = 2, ku = 1;
  for (int trans : {Zem_NoTrans, Zem_Trans}) {
    Dense<double> a(m, n), band(m, n);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) {
        a(i, j) = rnd<double>(g);
        if (j - i <= ku && i - j <= kl) band(i, j) = a(i, j);
      }
    const int lx = trans == Zem_NoTrans ? n : m, ly = trans == Zem_NoTrans ? m : n;
    std::vector<double> x(lx), y(ly);
    for (auto& v : x) v = rnd<double>(g);
    for (auto& v : y) v = rnd<double>(g);
    std::vector<double> want = apply(a, trans, x);
    for (int i = 0; i < ly; ++i) want[i] = 2.0 * want[i] + 0.5 * y[i];
    // General storage with padding.
    const Layout L{row(), (row() ? n : m) + 2};
    std::vector<double> s(static_cast<std::size_t>(L.ld) * (row() ? m : n), kSentinel);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) s[L.general(i, j)] = a(i, j);
    std::vector<double> got = y;
    f06pac(order(), trans, m, n, 2.0, s.data(), L.ld, x.data(), 1, 0.5, got.data(), 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_LT(max_diff(got, want), 1e-14);
    // Band storage of the band part.
    want = apply(band, trans, x);
    for (int i = 0; i < ly; ++i) want[i] = 2.0 * want[i] + 0.5 * y[i];
    const Layout B{row(), kl + ku + 1};
    std::vector<double> bs(static_cast<std::size_t>(B.ld) * (row() ? m : n), kSentinel);
    for (int i = 0; i < m; ++i)
      for (int j = std::max(0, i - kl); j <= std::min(n - 1, i + ku); ++j) bs[B.band(i, j, kl, ku)] = band(i, j);
    got = y;
    f06pbc(order(), trans, m, n, kl, ku, 2.0, bs.data(), B.ld, x.data(), 1, 0.5, got.data(), 1, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    EXPECT_LT(max_diff(got, want), 1e-14);
  }
}

// Symmetric (Hermitian) and triangular operands in full, band and packed
// storage: writes only the stored part, the rest is a sentinel that must
// not be read (it would spoil the result) nor written.
template <class T>
struct Stored {
  std::vector<T> full, band, packed;
  int ldf, ldb;
};

template <class T>
Stored<T> store(const Dense<T>& a, bool row, bool upper, int k) {
  const int n = a.r;
  Stored<T> s;
  s.ldf = n + 1;
  s.ldb = k + 1;
  s.full.assign(static_cast<std::size_t>(s.ldf) * n, T(kSentinel));
  s.band.assign(static_cast<std::size_t>(s.ldb) * n, T(kSentinel));
  s.packed.assign(static_cast<std::size_t>(n) * (n + 1) / 2, T(kSentinel));
  const Layout F{row, s.ldf}, B{row, s.ldb};
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      if (upper ? i > j : i < j) continue;
      s.full[F.general(i, j)] = a(i, j);
      s.packed[Layout::packed(row, upper, n, i, j)] = a(i, j);
      if (std::abs(i - j) <= k) s.band[B.band(i, j, upper ? 0 : k, upper ? k : 0)] = a(i, j);
    }
  return s;
}

TEST_P(Orders, SymmetricAndHermitianMatrixVectorInEveryStorage) {
  ZemError e{};
  const int n = 6, k = 2;
  for (bool upper : {true, false}) {
    const int uplo = upper ? Zem_Upper : Zem_Lower;
    // Real symmetric band matrix (its band is the whole stored part).
    Dense<double> a(n, n);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j) a(i, j) = a(j, i) = std::abs(i - j) <= k ? rnd<double>(g) : 0.0;
    Stored<double> s = store(a, row(), upper, k);
    std::vector<double> x(n), y0(n);
    for (auto& v : x) v = rnd<double>(g);
    for (auto& v : y0) v = rnd<double>(g);
    std::vector<double> want = apply(a, Zem_NoTrans, x);
    for (int i = 0; i < n; ++i) want[i] = -1.5 * want[i] + 2.0 * y0[i];
    std::vector<double> y = y0;
    f06pcc(order(), uplo, n, -1.5, s.full.data(), s.ldf, x.data(), 1, 2.0, y.data(), 1, &e);
    EXPECT_LT(max_diff(y, want), 1e-14) << e.message;
    y = y0;
    f06pdc(order(), uplo, n, k, -1.5, s.band.data(), s.ldb, x.data(), 1, 2.0, y.data(), 1, &e);
    EXPECT_LT(max_diff(y, want), 1e-14) << e.message;
    y = y0;
    f06pec(order(), uplo, n, -1.5, s.packed.data(), x.data(), 1, 2.0, y.data(), 1, &e);
    EXPECT_LT(max_diff(y, want), 1e-14) << e.message;

    // Complex Hermitian, with a real diagonal.
    Dense<C> h(n, n);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j) {
        const C v = std::abs(i - j) <= k ? rnd<C>(g) : C(0);
        h(i, j) = i == j ? C(v.real(), 0) : v;
        h(j, i) = std::conj(h(i, j));
      }
    Stored<C> hs = store(h, row(), upper, k);
    std::vector<C> cx(n), cy0(n);
    for (auto& v : cx) v = rnd<C>(g);
    for (auto& v : cy0) v = rnd<C>(g);
    const C alpha(0.5, -1.0), beta(1.0, 2.0);
    std::vector<C> cwant = apply(h, Zem_NoTrans, cx);
    for (int i = 0; i < n; ++i) cwant[i] = alpha * cwant[i] + beta * cy0[i];
    const ZemComplex za{alpha.real(), alpha.imag()}, zb{beta.real(), beta.imag()};
    auto z = [](std::vector<C>& v) { return reinterpret_cast<ZemComplex*>(v.data()); };
    std::vector<C> cy = cy0;
    f06scc(order(), uplo, n, za, z(hs.full), hs.ldf, z(cx), 1, zb, z(cy), 1, &e);
    EXPECT_LT(max_diff(cy, cwant), 1e-14) << e.message;
    cy = cy0;
    f06sdc(order(), uplo, n, k, za, z(hs.band), hs.ldb, z(cx), 1, zb, z(cy), 1, &e);
    EXPECT_LT(max_diff(cy, cwant), 1e-14) << e.message;
    cy = cy0;
    f06sec(order(), uplo, n, za, z(hs.packed), z(cx), 1, zb, z(cy), 1, &e);
    EXPECT_LT(max_diff(cy, cwant), 1e-14) << e.message;
  }
}

TEST_P(Orders, TriangularProductsAndSolvesInEveryStorage) {
  ZemError e{};
  const int n = 6, k = 2;
  for (bool upper : {true, false})
    for (int trans : {Zem_NoTrans, Zem_Trans})
      for (int diag : {Zem_NonUnitDiag, Zem_UnitDiag}) {
        const int uplo = upper ? Zem_Upper : Zem_Lower;
        Dense<double> t(n, n);
        for (int i = 0; i < n; ++i)
          for (int j = 0; j < n; ++j)
            if ((upper ? j >= i : j <= i) && std::abs(i - j) <= k) t(i, j) = i == j ? 2.0 + rnd<double>(g) : rnd<double>(g);
        Stored<double> s = store(t, row(), upper, k);
        Dense<double> eff = t;
        if (diag == Zem_UnitDiag)
          for (int i = 0; i < n; ++i) eff(i, i) = 1.0;
        std::vector<double> x0(n);
        for (auto& v : x0) v = rnd<double>(g);
        const std::vector<double> want = apply(eff, trans, x0);
        std::vector<double> x = x0;
        f06pfc(order(), uplo, trans, diag, n, s.full.data(), s.ldf, x.data(), 1, &e);
        EXPECT_LT(max_diff(x, want), 1e-14) << e.message;
        x = x0;
        f06pgc(order(), uplo, trans, diag, n, k, s.band.data(), s.ldb, x.data(), 1, &e);
        EXPECT_LT(max_diff(x, want), 1e-14) << e.message;
        x = x0;
        f06phc(order(), uplo, trans, diag, n, s.packed.data(), x.data(), 1, &e);
        EXPECT_LT(max_diff(x, want), 1e-14) << e.message;
        // The solves undo the products.
        x = want;
        f06pjc(order(), uplo, trans, diag, n, s.full.data(), s.ldf, x.data(), 1, &e);
        EXPECT_LT(max_diff(x, x0), 1e-12) << e.message;
        x = want;
        f06pkc(order(), uplo, trans, diag, n, k, s.band.data(), s.ldb, x.data(), 1, &e);
        EXPECT_LT(max_diff(x, x0), 1e-12) << e.message;
        x = want;
        f06plc(order(), uplo, trans, diag, n, s.packed.data(), x.data(), 1, &e);
        EXPECT_LT(max_diff(x, x0), 1e-12) << e.message;
      }
}

TEST_P(Orders, RankUpdatesTouchOnlyTheStoredTriangle) {
  ZemError e{};
  const int n = 5;
  std::vector<double> x(n), y(n);
  for (auto& v : x) v = rnd<double>(g);
  for (auto& v : y) v = rnd<double>(g);
  for (bool upper : {true, false}) {
    const int uplo = upper ? Zem_Upper : Zem_Lower;
    Dense<double> a(n, n);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j <= i; ++j) a(i, j) = a(j, i) = rnd<double>(g);
    Dense<double> want1 = a, want2 = a;
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) {
        want1(i, j) += 3.0 * x[i] * x[j];
        want2(i, j) += 3.0 * (x[i] * y[j] + y[i] * x[j]);
      }
    Stored<double> s1 = store(a, row(), upper, n), s2 = s1;
    f06ppc(order(), uplo, n, 3.0, x.data(), 1, s1.full.data(), s1.ldf, &e);
    f06pqc(order(), uplo, n, 3.0, x.data(), 1, s1.packed.data(), &e);
    f06prc(order(), uplo, n, 3.0, x.data(), 1, y.data(), 1, s2.full.data(), s2.ldf, &e);
    f06psc(order(), uplo, n, 3.0, x.data(), 1, y.data(), 1, s2.packed.data(), &e);
    ASSERT_EQ(e.code, 0);
    const Stored<double> w1 = store(want1, row(), upper, n), w2 = store(want2, row(), upper, n);
    EXPECT_LT(max_diff(s1.full, w1.full), 1e-14);
    EXPECT_LT(max_diff(s1.packed, w1.packed), 1e-14);
    EXPECT_LT(max_diff(s2.full, w2.full), 1e-14);
    EXPECT_LT(max_diff(s2.packed, w2.packed), 1e-14);
  }
  // General rank one, and its complex forms.
  const int m = 4;
  const Layout L{row(), (row() ? n : m) + 1};
  std::vector<double> a(static_cast<std::size_t>(L.ld) * (row() ? m : n), kSentinel), want = a;
  for (int i = 0; i < m; ++i)
    for (int j = 0; j < n; ++j) {
      a[L.general(i, j)] = rnd<double>(g);
      want[L.general(i, j)] = a[L.general(i, j)] - x[i] * y[j];
    }
  f06pmc(order(), m, n, -1.0, x.data(), 1, y.data(), 1, a.data(), L.ld, &e);
  EXPECT_LT(max_diff(a, want), 1e-14);
  std::vector<C> cx(m), cy(n), ca(static_cast<std::size_t>(L.ld) * (row() ? m : n), C(kSentinel));
  for (auto& v : cx) v = rnd<C>(g);
  for (auto& v : cy) v = rnd<C>(g);
  // The m by n block starts at zero and the padding must stay as it is.
  std::vector<C> u = ca, c = ca, gu = ca, gc = ca;
  for (int i = 0; i < m; ++i)
    for (int j = 0; j < n; ++j) {
      gu[L.general(i, j)] = gc[L.general(i, j)] = C(0);
      u[L.general(i, j)] = cx[i] * cy[j];
      c[L.general(i, j)] = cx[i] * std::conj(cy[j]);
    }
  const ZemComplex one{1.0, 0.0};
  f06smc(order(), m, n, one, reinterpret_cast<ZemComplex*>(cx.data()), 1, reinterpret_cast<ZemComplex*>(cy.data()),
         1, reinterpret_cast<ZemComplex*>(gu.data()), L.ld, &e);
  f06snc(order(), m, n, one, reinterpret_cast<ZemComplex*>(cx.data()), 1, reinterpret_cast<ZemComplex*>(cy.data()),
         1, reinterpret_cast<ZemComplex*>(gc.data()), L.ld, &e);
  EXPECT_LT(max_diff(gu, u), 1e-14);
  EXPECT_LT(max_diff(gc, c), 1e-14);
}

// Matrix products against the triple loop, for every transposition.
TEST_P(Orders, MatrixMatrixOperations) {
  ZemError e{};
  const int m = 5, n = 4, k = 3;
  auto fill = [&](int r, int c) {
    Dense<double> d(r, c);
    for (auto& v : d.v) v = rnd<double>(g);
    return d;
  };
  auto store_general = [&](const Dense<double>& d, int* ld) {
    *ld = (row() ? d.c : d.r) + 1;
    const Layout L{row(), *ld};
    std::vector<double> s(static_cast<std::size_t>(*ld) * (row() ? d.r : d.c), kSentinel);
    for (int i = 0; i < d.r; ++i)
      for (int j = 0; j < d.c; ++j) s[L.general(i, j)] = d(i, j);
    return s;
  };
  auto read_general = [&](const std::vector<double>& s, int ld, int r, int c) {
    const Layout L{row(), ld};
    Dense<double> d(r, c);
    for (int i = 0; i < r; ++i)
      for (int j = 0; j < c; ++j) d(i, j) = s[L.general(i, j)];
    return d;
  };
  auto product = [](const Dense<double>& a, bool ta, const Dense<double>& b, bool tb) {
    const int r = ta ? a.c : a.r, c = tb ? b.r : b.c, kk = ta ? a.r : a.c;
    Dense<double> p(r, c);
    for (int i = 0; i < r; ++i)
      for (int j = 0; j < c; ++j)
        for (int l = 0; l < kk; ++l) p(i, j) += (ta ? a(l, i) : a(i, l)) * (tb ? b(j, l) : b(l, j));
    return p;
  };
  for (int ta : {Zem_NoTrans, Zem_Trans})
    for (int tb : {Zem_NoTrans, Zem_Trans}) {
      const Dense<double> a = ta == Zem_NoTrans ? fill(m, k) : fill(k, m);
      const Dense<double> b = tb == Zem_NoTrans ? fill(k, n) : fill(n, k);
      const Dense<double> c = fill(m, n);
      int lda, ldb, ldc;
      auto sa = store_general(a, &lda), sb = store_general(b, &ldb), sc = store_general(c, &ldc);
      f06yac(order(), ta, tb, m, n, k, 2.0, sa.data(), lda, sb.data(), ldb, -1.0, sc.data(), ldc, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Dense<double> p = product(a, ta != Zem_NoTrans, b, tb != Zem_NoTrans), got = read_general(sc, ldc, m, n);
      for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j) EXPECT_NEAR(got(i, j), 2.0 * p(i, j) - c(i, j), 1e-14);
    }
  // Triangular solve with several right-hand sides undoes the product.
  for (int side : {Zem_LeftSide, Zem_RightSide})
    for (bool upper : {true, false}) {
      const int na = side == Zem_LeftSide ? m : n;
      Dense<double> t(na, na);
      for (int i = 0; i < na; ++i)
        for (int j = 0; j < na; ++j)
          if (upper ? j >= i : j <= i) t(i, j) = i == j ? 3.0 : rnd<double>(g);
      const Stored<double> st = store(t, row(), upper, na);
      const Dense<double> b = fill(m, n);
      int ldb;
      auto sb = store_general(b, &ldb);
      const int uplo = upper ? Zem_Upper : Zem_Lower;
      f06yfc(order(), side, uplo, Zem_NoTrans, Zem_NonUnitDiag, m, n, 1.0, st.full.data(), st.ldf, sb.data(), ldb, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Dense<double> tb = side == Zem_LeftSide ? product(t, false, b, false) : product(b, false, t, false);
      const Dense<double> got = read_general(sb, ldb, m, n);
      for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j) EXPECT_NEAR(got(i, j), tb(i, j), 1e-13);
      f06yjc(order(), side, uplo, Zem_NoTrans, Zem_NonUnitDiag, m, n, 1.0, st.full.data(), st.ldf, sb.data(), ldb, &e);
      const Dense<double> back = read_general(sb, ldb, m, n);
      for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j) EXPECT_NEAR(back(i, j), b(i, j), 1e-13);
    }
  // Symmetric rank-k update writes only its triangle.
  for (int trans : {Zem_NoTrans, Zem_Trans})
    for (bool upper : {true, false}) {
      const Dense<double> a = trans == Zem_NoTrans ? fill(n, k) : fill(k, n);
      Dense<double> c(n, n);
      for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) c(i, j) = c(j, i) = rnd<double>(g);
      int lda;
      auto sa = store_general(a, &lda);
      Stored<double> sc = store(c, row(), upper, n);
      f06ypc(order(), upper ? Zem_Upper : Zem_Lower, trans, n, k, 1.0, sa.data(), lda, 0.5, sc.full.data(), sc.ldf, &e);
      ASSERT_EQ(e.code, 0) << e.message;
      const Dense<double> aat = product(a, trans != Zem_NoTrans, a, trans == Zem_NoTrans);
      Dense<double> want(n, n);
      for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) want(i, j) = aat(i, j) + 0.5 * c(i, j);
      const Stored<double> ws = store(want, row(), upper, n);
      EXPECT_LT(max_diff(sc.full, ws.full), 1e-14);
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, Orders, testing::Values(true, false),
                         [](const testing::TestParamInfo<bool>& p) { return p.param ? "RowMajor" : "ColMajor"; });

TEST(F06Reports, BadArgumentsNameTheirArgument) {
  ZemError e{};
  double a[4] = {1, 2, 3, 4}, x[2] = {1, 1}, y[2] = {0, 0};
  f06pac(Zem_RowMajor, Zem_NoTrans, 2, 2, 1.0, a, 1, x, 1, 0.0, y, 1, &e);
  EXPECT_EQ(e.code, NE_INT_2);
  EXPECT_NE(std::string(e.message).find("pda >= MAX(1,n)"), std::string::npos);
  f06pac(Zem_RowMajor, Zem_NoTrans, 2, 2, 1.0, a, 2, x, 0, 0.0, y, 1, &e);
  EXPECT_EQ(e.code, NE_INT);
  EXPECT_NE(std::string(e.message).find("incx != 0"), std::string::npos);
  // A failed call leaves the output alone.
  EXPECT_EQ(y[0], 0.0);
}

}  // namespace
