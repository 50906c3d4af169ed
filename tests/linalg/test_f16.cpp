// The f16 chapter and the f06 matrix helpers: norms in every storage scheme
// against dense loops, copies and loads, triangular solves by their
// residuals, the vector routines, and the error rows with the routine's long
// and short name.  Storage positions that a routine must not read hold NaN
// (a read would spoil the result); positions that it must not write hold a
// sentinel that is checked afterwards.  Every test runs in both orders.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "linalg/f16_core.hpp"
#include "zem/f06.h"
#include "zem/f16.h"

namespace {

using C = std::complex<double>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kEps = std::numeric_limits<double>::epsilon();
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
ZemComplex zc(C v) { return ZemComplex{v.real(), v.imag()}; }
template <class T>
auto* api(std::vector<T>& v) {
  if constexpr (std::is_same_v<T, C>) return reinterpret_cast<ZemComplex*>(v.data());
  else return v.data();
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

// Where element (i, j) lives in each storage scheme of either order.
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

// The four norms of a dense matrix, by kind 'M', '1', 'I', 'F'.
struct Norms {
  double max = 0, one = 0, inf = 0, frob = 0;
  double operator[](char kind) const { return kind == 'M' ? max : kind == '1' ? one : kind == 'I' ? inf : frob; }
};
template <class T>
Norms dense_norms(const Dense<T>& a) {
  Norms r;
  std::vector<double> cols(a.c, 0.0);
  double f = 0;
  for (int i = 0; i < a.r; ++i) {
    double row = 0;
    for (int j = 0; j < a.c; ++j) {
      const double m = std::abs(a(i, j));
      r.max = std::max(r.max, m);
      row += m;
      cols[j] += m;
      f += m * m;
    }
    r.inf = std::max(r.inf, row);
  }
  for (double c : cols) r.one = std::max(r.one, c);
  r.frob = std::sqrt(f);
  return r;
}

// Element (i, j) of op(A).
template <class T>
T op_elem(const Dense<T>& a, int32_t trans, int i, int j) {
  return trans == Zem_NoTrans ? a(i, j) : trans == Zem_Trans ? a(j, i) : conj_if(a(j, i));
}

const std::pair<int32_t, char> kNorms[] = {
    {Zem_OneNorm, '1'}, {Zem_InfNorm, 'I'}, {Zem_FrobeniusNorm, 'F'}, {Zem_MaxNorm, 'M'}};

class F16Orders : public testing::TestWithParam<bool> {
 protected:
  std::mt19937_64 g{1601};
  bool row() const { return GetParam(); }
  int32_t order() const { return row() ? Zem_RowMajor : Zem_ColMajor; }
  // The part (G, U, L) of a random m by n matrix in general storage with
  // two extra leading-dimension positions; the rest of the array is NaN.
  template <class T>
  std::vector<T> general(const Dense<T>& a, char part, int* ld) {
    *ld = (row() ? a.c : a.r) + 2;
    std::vector<T> s(static_cast<std::size_t>(*ld) * std::max(1, row() ? a.r : a.c), T(kNaN));
    const Layout L{row(), *ld};
    for (int i = 0; i < a.r; ++i)
      for (int j = 0; j < a.c; ++j)
        if (part == 'G' || (part == 'U' ? i <= j : i >= j)) s[L.general(i, j)] = a(i, j);
    return s;
  }
  // Random, with the largest row sum in the last row.
  template <class T>
  Dense<T> random(int m, int n) {
    Dense<T> a(m, n);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) a(i, j) = rnd<T>(g) * (i == m - 1 ? 4.0 : 1.0);
    return a;
  }
};

TEST_P(F16Orders, GeneralBandAndTrapezoidNorms) {
  ZemError e{};
  // More than 1024 rows take the row sums from the heap.
  for (auto [m, n] : {std::pair{5, 3}, std::pair{3, 6}, std::pair{1100, 7}, std::pair{0, 4}}) {
    SCOPED_TRACE(std::to_string(m) + "x" + std::to_string(n));
    const Dense<double> a = random<double>(m, n);
    const Dense<C> ca = random<C>(m, n);
    int ld;
    const std::vector<double> s = general(a, 'G', &ld);
    const std::vector<C> cs = general(ca, 'G', &ld);
    // The trapezoids, as dense references (zero outside) and stored.
    std::vector<Dense<double>> t(2, a);
    std::vector<Dense<C>> ct(2, ca);
    std::vector<std::vector<double>> ts;
    std::vector<std::vector<C>> cts;
    for (int p = 0; p < 2; ++p) {
      for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j)
          if (p == 0 ? i > j : i < j) t[p](i, j) = 0, ct[p](i, j) = 0;
      ts.push_back(general(a, p == 0 ? 'U' : 'L', &ld));
      cts.push_back(general(ca, p == 0 ? 'U' : 'L', &ld));
    }
    // The band part, kl = 2 and ku = 1, NaN outside it.
    const int kl = 2, ku = 1;
    Dense<double> b(m, n);
    const Layout B{row(), kl + ku + 2};
    std::vector<double> bs(static_cast<std::size_t>(B.ld) * std::max(1, row() ? m : n), kNaN);
    for (int i = 0; i < m; ++i)
      for (int j = std::max(0, i - kl); j <= std::min(n - 1, i + ku); ++j) bs[B.band(i, j, kl, ku)] = b(i, j) = a(i, j);
    const double tol = (8 + m + n) * kEps;  // the references' own rounding
    const Norms ref = dense_norms(a), cref = dense_norms(ca), bref = dense_norms(b);
    const Norms tref[2] = {dense_norms(t[0]), dense_norms(t[1])}, ctref[2] = {dense_norms(ct[0]), dense_norms(ct[1])};
    for (auto [norm, kind] : kNorms) {
      SCOPED_TRACE(kind);
      const double want = ref[kind], cwant = cref[kind];
      double r = -1;
      f16rac(order(), norm, m, n, s.data(), ld, &r, &e);
      EXPECT_NEAR(r, want, tol * want) << e.message;
      f06rac(order(), norm, m, n, s.data(), ld, &r, &e);
      EXPECT_NEAR(r, want, tol * want) << e.message;
      f16uac(order(), norm, m, n, reinterpret_cast<const ZemComplex*>(cs.data()), ld, &r, &e);
      EXPECT_NEAR(r, cwant, tol * cwant) << e.message;
      for (int p = 0; p < 2; ++p) {
        const int32_t matrix = p == 0 ? Zem_UpperMatrix : Zem_LowerMatrix;
        f06qgc(order(), norm, matrix, m, n, ts[p].data(), ld, &r, &e);
        EXPECT_NEAR(r, tref[p][kind], tol * want) << e.message;
        f06vgc(order(), norm, matrix, m, n, api(cts[p]), ld, &r, &e);
        EXPECT_NEAR(r, ctref[p][kind], tol * cwant) << e.message;
      }
      f16rbc(order(), norm, m, n, kl, ku, bs.data(), B.ld, &r, &e);
      EXPECT_NEAR(r, bref[kind], tol * want) << e.message;
    }
  }
}

// Symmetric, Hermitian and complex symmetric matrices from one triangle in
// full, packed and band storage.  A Hermitian diagonal carries imaginary
// parts that the norms must ignore.
template <class T>
void check_sym_norms(bool row, int32_t order, std::mt19937_64& g, bool hermitian, int big) {
  ZemError e{};
  for (int n : {6, big})
    for (bool upper : {true, false})
      for (auto [norm, kind] : kNorms) {
        if (n > 6 && kind != '1') continue;  // row sums from the heap
        SCOPED_TRACE(std::string(1, kind) + (upper ? " upper " : " lower ") + std::to_string(n));
        const int k = 2, ldf = n + 1, ldb = k + 2;
        Dense<T> a(n, n), band(n, n);
        std::vector<T> full(static_cast<std::size_t>(ldf) * n, T(kNaN)), packed(n * (n + 1) / 2, T(kNaN)),
            bs(static_cast<std::size_t>(ldb) * n, T(kNaN));
        const Layout F{row, ldf}, B{row, ldb};
        for (int i = 0; i < n; ++i)
          for (int j = 0; j <= i; ++j) {
            // The last row has the largest sum, in the last block of row sums.
            T v = rnd<T>(g) * (i == n - 1 ? 4.0 : 1.0), stored = v;
            if (i == j && hermitian) v = std::real(v);
            a(i, j) = v;
            a(j, i) = hermitian ? conj_if(v) : v;
            if (std::abs(i - j) <= k) band(i, j) = a(i, j), band(j, i) = a(j, i);
            const int p = upper ? j : i, q = upper ? i : j;  // (p, q) in the stored triangle
            if (i != j) stored = a(p, q);
            full[F.general(p, q)] = stored;
            packed[Layout::packed(row, upper, n, p, q)] = stored;
            if (i - j <= k) bs[B.band(p, q, upper ? 0 : k, upper ? k : 0)] = stored;
          }
        const double want = dense_norms(a)[kind], bwant = dense_norms(band)[kind];
        double r = -1, rp = -1, rb = -1;
        if constexpr (std::is_same_v<T, double>) {
          f16rcc(order, norm, upper ? Zem_Upper : Zem_Lower, n, full.data(), ldf, &r, &e);
          f16rdc(order, norm, upper ? Zem_Upper : Zem_Lower, n, packed.data(), &rp, &e);
          f16rec(order, norm, upper ? Zem_Upper : Zem_Lower, n, k, bs.data(), ldb, &rb, &e);
        } else if (hermitian) {
          f16ucc(order, norm, upper ? Zem_Upper : Zem_Lower, n, api(full), ldf, &r, &e);
          f16udc(order, norm, upper ? Zem_Upper : Zem_Lower, n, api(packed), &rp, &e);
          f16uec(order, norm, upper ? Zem_Upper : Zem_Lower, n, k, api(bs), ldb, &rb, &e);
        } else {
          f16ufc(order, norm, upper ? Zem_Upper : Zem_Lower, n, api(full), ldf, &r, &e);
          f16ugc(order, norm, upper ? Zem_Upper : Zem_Lower, n, api(packed), &rp, &e);
          rb = bwant;  // complex symmetric band storage has no norm routine
        }
        EXPECT_NEAR(r, want, (16 + n) * kEps * want) << e.message;
        EXPECT_NEAR(rp, want, (16 + n) * kEps * want) << e.message;
        EXPECT_NEAR(rb, bwant, (16 + n) * kEps * bwant) << e.message;
      }
}

TEST_P(F16Orders, SymmetricAndHermitianNormsInEveryStorage) {
  check_sym_norms<double>(row(), order(), g, false, 1100);
  check_sym_norms<C>(row(), order(), g, true, 40);
  check_sym_norms<C>(row(), order(), g, false, 40);
}

TEST_P(F16Orders, NormsNeitherOverflowNorUnderflowAndKeepNaNs) {
  ZemError e{};
  for (double s : {std::ldexp(1.0, 1000), std::ldexp(1.0, -1000)}) {  // squares out of range
    std::vector<double> a(9, s);  // 3 by 3, every element s
    double r;
    f16rac(order(), Zem_FrobeniusNorm, 3, 3, a.data(), 3, &r, &e);
    EXPECT_DOUBLE_EQ(r, 3 * s);
    f16rcc(order(), Zem_FrobeniusNorm, Zem_Upper, 3, a.data(), 3, &r, &e);
    EXPECT_DOUBLE_EQ(r, 3 * s);
    std::vector<C> ca(9, C(0, s));
    f16ucc(order(), Zem_FrobeniusNorm, Zem_Lower, 3, api(ca), 3, &r, &e);  // diagonal taken as 0
    EXPECT_DOUBLE_EQ(r, std::sqrt(6.0) * s);
  }
  for (auto [norm, kind] : kNorms) {
    std::vector<double> a{1, 2, kNaN, 4};
    double r = 0;
    f16rac(order(), norm, 2, 2, a.data(), 2, &r, &e);
    EXPECT_TRUE(std::isnan(r)) << kind;
    f16rdc(order(), norm, Zem_Upper, 2, a.data(), &r, &e);
    EXPECT_TRUE(std::isnan(r)) << kind;
  }
}

TEST_P(F16Orders, CopiesWriteOnlyTheirPart) {
  ZemError e{};
  const int m = 4, n = 6;
  for (int32_t trans : {Zem_NoTrans, Zem_Trans, Zem_ConjTrans}) {
    const bool t = trans != Zem_NoTrans;
    const Dense<C> a = random<C>(t ? n : m, t ? m : n);
    const Dense<double> ra = random<double>(t ? n : m, t ? m : n);
    int lda, ldb = (row() ? n : m) + 1;
    std::vector<C> as = general(a, 'G', &lda), bs(static_cast<std::size_t>(ldb) * (row() ? m : n), C(kSentinel));
    std::vector<double> ras = general(ra, 'G', &lda), rbs(bs.size(), kSentinel);
    f16tfc(order(), trans, m, n, api(as), lda, api(bs), ldb, &e);
    f16qfc(order(), trans, m, n, ras.data(), lda, rbs.data(), ldb, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    const Layout L{row(), ldb};
    std::vector<bool> written(bs.size(), false);
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) {
        written[L.general(i, j)] = true;
        const C want = !t ? a(i, j) : trans == Zem_Trans ? a(j, i) : std::conj(a(j, i));
        EXPECT_EQ(bs[L.general(i, j)], want);
        EXPECT_EQ(rbs[L.general(i, j)], t ? ra(j, i) : ra(i, j));
      }
    for (std::size_t p = 0; p < bs.size(); ++p)
      EXPECT_TRUE(written[p] || (bs[p] == C(kSentinel) && rbs[p] == kSentinel));
  }
  // Triangles: the other triangle of A, and its diagonal when unit, are NaN.
  const int k = 5;
  for (bool upper : {true, false})
    for (int32_t trans : {Zem_NoTrans, Zem_Trans, Zem_ConjTrans})
      for (bool unit : {false, true}) {
        const Dense<C> a = random<C>(k, k);
        const char part = upper ? 'U' : 'L';
        int ld;
        std::vector<C> as = general(a, part, &ld), bs(as.size(), C(kSentinel));
        const Layout L{row(), ld};
        if (unit)
          for (int i = 0; i < k; ++i) as[L.general(i, i)] = C(kNaN);
        f16tec(order(), upper ? Zem_Upper : Zem_Lower, trans, unit ? Zem_UnitDiag : Zem_NonUnitDiag, k, api(as), ld,
               api(bs), ld, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        const bool b_upper = upper == (trans == Zem_NoTrans);
        for (int i = 0; i < k; ++i)
          for (int j = 0; j < k; ++j) {
            const C got = bs[L.general(i, j)];
            const C want = (b_upper ? i > j : i < j) ? C(kSentinel)
                           : (i == j && unit)         ? C(1.0)
                                                      : op_elem(a, trans, i, j);
            EXPECT_EQ(got, want);
          }
        std::vector<double> ras(as.size()), rbs(as.size(), kSentinel);
        for (std::size_t p = 0; p < as.size(); ++p) ras[p] = as[p].real();
        f16qec(order(), upper ? Zem_Upper : Zem_Lower, trans, unit ? Zem_UnitDiag : Zem_NonUnitDiag, k, ras.data(),
               ld, rbs.data(), ld, &e);
        for (std::size_t p = 0; p < as.size(); ++p) EXPECT_EQ(rbs[p], bs[p].real());
      }
  // Trapezoids of rectangular matrices, no transposition.
  for (auto [tm, tn] : {std::pair{3, 5}, std::pair{5, 3}})
    for (auto [matrix, part] : {std::pair{Zem_GeneralMatrix, 'G'}, std::pair{Zem_UpperMatrix, 'U'},
                                std::pair{Zem_LowerMatrix, 'L'}}) {
      const Dense<C> a = random<C>(tm, tn);
      int ld;
      std::vector<C> as = general(a, part, &ld), bs(as.size(), C(kSentinel)), want(as.size(), C(kSentinel));
      const Layout L{row(), ld};
      for (int i = 0; i < tm; ++i)
        for (int j = 0; j < tn; ++j)
          if (part == 'G' || (part == 'U' ? i <= j : i >= j)) want[L.general(i, j)] = a(i, j);
      f06tfc(order(), matrix, tm, tn, api(as), ld, api(bs), ld, &e);
      EXPECT_EQ(bs, want) << e.message;
      std::vector<double> ras(as.size()), rbs(as.size(), kSentinel);
      for (std::size_t p = 0; p < as.size(); ++p) ras[p] = as[p].real();
      f06qfc(order(), matrix, tm, tn, ras.data(), ld, rbs.data(), ld, &e);
      for (std::size_t p = 0; p < as.size(); ++p) EXPECT_EQ(rbs[p], want[p].real());
    }
}

TEST_P(F16Orders, LoadsWriteOnlyTheirPart) {
  ZemError e{};
  const C alpha(1.5, -2.0), beta(-0.5, 3.0);
  for (auto [m, n] : {std::pair{3, 5}, std::pair{5, 3}, std::pair{4, 4}})
    for (char part : {'G', 'U', 'L'}) {
      const int ld = (row() ? n : m) + 1;
      std::vector<C> a(static_cast<std::size_t>(ld) * (row() ? m : n), C(kSentinel)), want = a;
      std::vector<double> ra(a.size(), kSentinel);
      const Layout L{row(), ld};
      for (int i = 0; i < m; ++i)
        for (int j = 0; j < n; ++j)
          if (part == 'G' || (part == 'U' ? i <= j : i >= j)) want[L.general(i, j)] = i == j ? beta : alpha;
      const int32_t matrix = part == 'G' ? Zem_GeneralMatrix : part == 'U' ? Zem_UpperMatrix : Zem_LowerMatrix;
      f06thc(order(), matrix, m, n, zc(alpha), zc(beta), api(a), ld, &e);
      EXPECT_EQ(a, want) << e.message;
      f06qhc(order(), matrix, m, n, 1.5, -0.5, ra.data(), ld, &e);
      for (std::size_t p = 0; p < a.size(); ++p) EXPECT_EQ(ra[p], want[p].real());
      std::fill(a.begin(), a.end(), C(kSentinel));
      std::fill(ra.begin(), ra.end(), kSentinel);
      if (part == 'G') {
        f16thc(order(), m, n, zc(alpha), zc(beta), api(a), ld, &e);
        f16qhc(order(), m, n, 1.5, -0.5, ra.data(), ld, &e);
      } else if (m == n) {
        f16tgc(order(), part == 'U' ? Zem_Upper : Zem_Lower, n, zc(alpha), zc(beta), api(a), ld, &e);
        f16qgc(order(), part == 'U' ? Zem_Upper : Zem_Lower, n, 1.5, -0.5, ra.data(), ld, &e);
      } else {
        continue;
      }
      EXPECT_EQ(a, want) << e.message;
      for (std::size_t p = 0; p < a.size(); ++p) EXPECT_EQ(ra[p], want[p].real());
    }
}

template <class T>
void check_solves(bool row, int32_t order, std::mt19937_64& g) {
  ZemError e{};
  const int n = 5, m = 4;
  const T alpha = T(-1.5);
  for (bool upper : {true, false})
    for (int32_t trans : {Zem_NoTrans, Zem_Trans, Zem_ConjTrans})
      for (bool unit : {false, true}) {
        // A well-conditioned triangle; the other one is NaN in storage.
        Dense<T> a(n, n);
        for (int i = 0; i < n; ++i)
          for (int j = 0; j < n; ++j)
            if (upper ? i <= j : i >= j) a(i, j) = i == j ? (unit ? T(1) : T(4) + rnd<T>(g)) : rnd<T>(g);
        const int ld = n + 1;
        std::vector<T> as(static_cast<std::size_t>(ld) * n, T(kNaN));
        const Layout L{row, ld};
        for (int i = 0; i < n; ++i)
          for (int j = 0; j < n; ++j)
            if (upper ? i <= j : i >= j) as[L.general(i, j)] = (unit && i == j) ? T(kNaN) : a(i, j);
        const int32_t u = upper ? Zem_Upper : Zem_Lower, d = unit ? Zem_UnitDiag : Zem_NonUnitDiag;
        // trsv with increment -2: op(A) x_out = alpha x_in.
        std::vector<T> x0(n), x(2 * n - 1, T(kSentinel));
        for (int i = 0; i < n; ++i) x[2 * (n - 1 - i)] = x0[i] = rnd<T>(g);
        if constexpr (std::is_same_v<T, double>) f16pjc(order, u, trans, d, n, alpha, as.data(), ld, x.data(), -2, &e);
        else f16sjc(order, u, trans, d, n, zc(alpha), api(as), ld, api(x), -2, &e);
        ASSERT_EQ(e.code, 0) << e.message;
        for (int i = 0; i < n; ++i) {
          T s = 0;
          for (int j = 0; j < n; ++j) s += op_elem(a, trans, i, j) * x[2 * (n - 1 - j)];
          EXPECT_LT(std::abs(s - alpha * x0[i]), 1e-12 * (1 + std::abs(x0[i])));
          if (i < n - 1) {
            EXPECT_EQ(x[2 * i + 1], T(kSentinel));
          }
        }
        // trsm on both sides: op(A) X = alpha B or X op(A) = alpha B, B m by n or n by m.
        for (int32_t side : {Zem_LeftSide, Zem_RightSide}) {
          const bool left = side == Zem_LeftSide;
          const int bm = left ? n : m, bn = left ? m : n, ldb = (row ? bn : bm) + 1;
          Dense<T> b0(bm, bn);
          std::vector<T> bs(static_cast<std::size_t>(ldb) * (row ? bm : bn), T(kSentinel));
          const Layout LB{row, ldb};
          for (int i = 0; i < bm; ++i)
            for (int j = 0; j < bn; ++j) bs[LB.general(i, j)] = b0(i, j) = rnd<T>(g);
          if constexpr (std::is_same_v<T, double>)
            f16yjc(order, side, u, trans, d, bm, bn, alpha, as.data(), ld, bs.data(), ldb, &e);
          else f16zjc(order, side, u, trans, d, bm, bn, zc(alpha), api(as), ld, api(bs), ldb, &e);
          ASSERT_EQ(e.code, 0) << e.message;
          for (int i = 0; i < bm; ++i)
            for (int j = 0; j < bn; ++j) {
              T s = 0;
              for (int l = 0; l < n; ++l)
                s += left ? op_elem(a, trans, i, l) * bs[LB.general(l, j)] : bs[LB.general(i, l)] * op_elem(a, trans, l, j);
              EXPECT_LT(std::abs(s - alpha * b0(i, j)), 1e-12 * (1 + std::abs(b0(i, j))));
            }
        }
      }
  // alpha = 0 gives x = 0 without a solve, even with an unusable A.
  std::vector<T> nan_a(4, T(kNaN)), x{T(1), T(kNaN)};
  if constexpr (std::is_same_v<T, double>) f16pjc(order, Zem_Upper, Zem_NoTrans, Zem_NonUnitDiag, 2, 0.0, nan_a.data(), 2, x.data(), 1, &e);
  else f16sjc(order, Zem_Upper, Zem_NoTrans, Zem_NonUnitDiag, 2, zc(0.0), api(nan_a), 2, api(x), 1, &e);
  EXPECT_EQ(x, std::vector<T>(2, T(0)));
}

TEST_P(F16Orders, TriangularSolvesByTheirResiduals) {
  check_solves<double>(row(), order(), g);
  check_solves<C>(row(), order(), g);
}

INSTANTIATE_TEST_SUITE_P(BothOrders, F16Orders, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& p) { return p.param ? "RowMajor" : "ColMajor"; });

// Row sums a block of rows at a time (when the heap refuses the whole
// height) agree with one pass, in every storage scheme.
TEST(F16Core, BlockedRowSumsAgreeWithOnePass) {
  namespace mat = zem::la::mat;
  std::mt19937_64 g(7);
  const long m = 13, n = 9, k = 2, kl = 2, ku = 3;
  std::vector<double> a(m * n), band((kl + ku + 1) * n), sym(n * n), packed(n * (n + 1) / 2), sband((k + 1) * n);
  for (auto* v : {&a, &band, &sym, &packed, &sband})
    for (double& x : *v) x = rnd<double>(g);
  for (long block : {1L, 4L, 5L}) {
    for (auto part : {mat::Part::General, mat::Part::Upper, mat::Part::Lower})
      EXPECT_NEAR(mat::norm_general('I', part, m, n, a.data(), m, block),
                  mat::norm_general('I', part, m, n, a.data(), m), 1e-14);
    EXPECT_NEAR(mat::norm_band('I', m, n, kl, ku, band.data(), kl + ku + 1, block),
                mat::norm_band('I', m, n, kl, ku, band.data(), kl + ku + 1), 1e-14);
    for (bool upper : {true, false}) {
      const mat::Sym sy = mat::Sym::Symmetric;
      EXPECT_NEAR(mat::norm_sym('1', sy, upper, n, sym.data(), n, block), mat::norm_sym('1', sy, upper, n, sym.data(), n),
                  1e-14);
      EXPECT_NEAR(mat::norm_sym_packed('1', sy, upper, n, packed.data(), block),
                  mat::norm_sym_packed('1', sy, upper, n, packed.data()), 1e-14);
      EXPECT_NEAR(mat::norm_sym_band('1', sy, upper, n, k, sband.data(), k + 1, block),
                  mat::norm_sym_band('1', sy, upper, n, k, sband.data(), k + 1), 1e-14);
    }
  }
}

TEST(F16Vectors, LoadsAndAxpby) {
  ZemError e{};
  std::vector<int32_t> iv(7, 5);
  f16dbc(3, -2, iv.data(), -3, &e);
  EXPECT_EQ(iv, (std::vector<int32_t>{-2, 5, 5, -2, 5, 5, -2}));
  std::vector<double> dv(5, 5.0);
  f16fbc(2, 0.25, dv.data(), 4, &e);
  EXPECT_EQ(dv, (std::vector<double>{0.25, 5, 5, 5, 0.25}));
  std::vector<C> cv(3, C(5.0));
  f16hbc(2, zc(C(1, -1)), api(cv), 1, &e);
  EXPECT_EQ(cv, (std::vector<C>{C(1, -1), C(1, -1), C(5.0)}));
  ASSERT_EQ(e.code, 0);
  // y = alpha x + beta y, x with increment -1; beta = 0 ignores what y held
  // and alpha = 0 what x held.
  std::vector<double> x{1, 2, 3}, y{10, 20, 30};
  f16ecc(3, 2.0, x.data(), -1, -1.0, y.data(), 1, &e);
  EXPECT_EQ(y, (std::vector<double>{-4, -16, -28}));
  y = {kNaN, INFINITY, 1};
  f16ecc(3, 2.0, x.data(), 1, 0.0, y.data(), 1, &e);
  EXPECT_EQ(y, (std::vector<double>{2, 4, 6}));
  x = {kNaN, kNaN, kNaN};
  f16ecc(3, 0.0, x.data(), 1, 0.5, y.data(), 1, &e);
  EXPECT_EQ(y, (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(e.code, 0);
}

TEST(F06KernelForms, MatrixCopyAndComplexNorm) {
  const int32_t m = 3, n = 4, lda = 4, ldb = 5;
  std::vector<double> a(lda * n), b(ldb * n, kSentinel);
  for (std::size_t p = 0; p < a.size(); ++p) a[p] = double(p);
  f06qff_f("u", &m, &n, a.data(), &lda, b.data(), &ldb);
  for (int i = 0; i < ldb; ++i)
    for (int j = 0; j < n; ++j) EXPECT_EQ(b[i + j * ldb], i < m && i <= j ? a[i + j * lda] : kSentinel);
  std::vector<C> ca{C(3, 4), C(0, 1), C(kNaN), C(-6, 8), C(1, 0), C(kNaN)};  // 2 by 2, lda 3
  EXPECT_DOUBLE_EQ(f06uaf('O', 2, 2, api(ca), 3), 11.0);
  EXPECT_DOUBLE_EQ(f06uaf('i', 2, 2, api(ca), 3), 15.0);
  EXPECT_DOUBLE_EQ(f06uaf('E', 2, 2, api(ca), 3), std::sqrt(127.0));
  EXPECT_DOUBLE_EQ(f06uaf('M', 2, 2, api(ca), 3), 10.0);
  testing::internal::CaptureStderr();
  EXPECT_EQ(f06uaf('M', 2, 2, api(ca), 1), 0.0);
  const int32_t bad = -1;
  f06qff_f("G", &m, &bad, a.data(), &lda, b.data(), &ldb);
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("F06UAF/ZLANGE:\nNE_F06_BAD_PARAM:\n  On entry, parameter number 5 "), std::string::npos) << err;
  EXPECT_NE(err.find("F06QFF/DMCOPY:\nNE_F06_BAD_PARAM:\n  On entry, parameter number 3 "), std::string::npos) << err;
}

// ---- Error rows: each bad argument in turn, with the routine's name as
// the handler receives it.
std::string g_routine;
void remember(const char*, int32_t, const char* routine) { g_routine = routine; }

struct Bad {
  const char* routine;
  std::function<void(ZemError*)> call;
  int code;
  const char* text;  // a part of the message
  int errnum;        // 0: not set by the report
};

TEST(F16Errors, EveryCheckReportsItsRowUnderTheLongAndShortName) {
  double d[64] = {};
  C c[64] = {};
  ZemComplex* zp = reinterpret_cast<ZemComplex*>(c);
  const ZemComplex one{1, 0};
  double r;
  const int32_t R = Zem_RowMajor, K = Zem_ColMajor, U = Zem_Upper, N = Zem_NoTrans, D = Zem_NonUnitDiag;
  const std::vector<Bad> cases = {
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(R, Zem_TwoNorm, 3, 3, d, 3, &r, e); }, NE_BAD_PARAM, "norm", 0},
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(R, Zem_OneNorm, -1, 3, d, 3, &r, e); }, NE_INT, "m >= 0", -3},
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(R, Zem_OneNorm, 3, 4, d, 3, &r, e); }, NE_INT_2, "pda >= MAX(1,n)", -6},
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(K, Zem_OneNorm, 4, 3, d, 3, &r, e); }, NE_INT_2, "pda >= MAX(1,m)", -6},
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(R, Zem_OneNorm, 3, 3, d, 0, &r, e); }, NE_INT, "pda > 0", -6},
      {"zem_dge_norm (f16rac)", [&](ZemError* e) { f16rac(R, Zem_OneNorm, 3, 3, d, 3, nullptr, e); }, NE_BAD_PARAM, "argument r ", 0},
      {"zem_zge_norm (f16uac)", [&](ZemError* e) { f16uac(77, Zem_MaxNorm, 3, 3, zp, 3, &r, e); }, NE_BAD_PARAM, "order", 0},
      {"zem_dgb_norm (f16rbc)", [&](ZemError* e) { f16rbc(R, Zem_MaxNorm, 3, 3, 1, -1, d, 3, &r, e); }, NE_INT, "ku >= 0", -6},
      {"zem_dgb_norm (f16rbc)", [&](ZemError* e) { f16rbc(K, Zem_MaxNorm, 3, 3, 1, 2, d, 3, &r, e); }, NE_INT, "pda >= kl+ku+1", -8},
      {"zem_dsy_norm (f16rcc)", [&](ZemError* e) { f16rcc(R, Zem_MaxNorm, 0, 3, d, 3, &r, e); }, NE_BAD_PARAM, "uplo", 0},
      {"zem_dsp_norm (f16rdc)", [&](ZemError* e) { f16rdc(K, Zem_MaxNorm, U, -2, d, &r, e); }, NE_INT, "n >= 0", -4},
      {"zem_dsb_norm (f16rec)", [&](ZemError* e) { f16rec(R, Zem_MaxNorm, U, 3, -1, d, 3, &r, e); }, NE_INT, "k >= 0", -5},
      {"zem_zhb_norm (f16uec)", [&](ZemError* e) { f16uec(R, Zem_MaxNorm, U, 3, 2, zp, 2, &r, e); }, NE_INT, "pda >= k+1", -7},
      {"zem_zhe_norm (f16ucc)", [&](ZemError* e) { f16ucc(K, Zem_MaxNorm, U, 3, zp, 2, &r, e); }, NE_INT_2, "pda >= MAX(1,n)", -6},
      {"zem_zsy_norm (f16ufc)", [&](ZemError* e) { f16ufc(K, Zem_FrobeniusNorm, U, 3, nullptr, 3, &r, e); }, NE_BAD_PARAM, "argument a ", 0},
      {"zem_zhp_norm (f16udc)", [&](ZemError* e) { f16udc(K, 999, U, 3, zp, &r, e); }, NE_BAD_PARAM, "norm", 0},
      {"zem_zsp_norm (f16ugc)", [&](ZemError* e) { f16ugc(K, Zem_InfNorm, U, 3, zp, nullptr, e); }, NE_BAD_PARAM, "argument r ", 0},
      {"zem_iload (f16dbc)", [&](ZemError* e) { int32_t i[4]; f16dbc(3, 1, i, 0, e); }, NE_INT, "incx != 0", -4},
      {"zem_dload (f16fbc)", [&](ZemError* e) { f16fbc(-1, 1.0, d, 1, e); }, NE_INT, "n >= 0", -1},
      {"zem_zload (f16hbc)", [&](ZemError* e) { f16hbc(3, one, nullptr, 1, e); }, NE_BAD_PARAM, "argument x ", 0},
      {"zem_daxpby (f16ecc)", [&](ZemError* e) { f16ecc(3, 1.0, d, 1, 1.0, d + 8, 0, e); }, NE_INT, "incy != 0", -7},
      {"zem_dtrsv (f16pjc)", [&](ZemError* e) { f16pjc(R, U, N, 5, 3, 1.0, d, 3, d + 20, 1, e); }, NE_BAD_PARAM, "diag", 0},
      {"zem_ztrsv (f16sjc)", [&](ZemError* e) { f16sjc(R, U, N, D, 3, one, zp, 3, zp + 20, 0, e); }, NE_INT, "incx != 0", -10},
      {"zem_ztrsv (f16sjc)", [&](ZemError* e) { f16sjc(K, U, N, D, 3, one, zp, 2, zp + 20, 1, e); }, NE_INT_2, "pda >= MAX(1,n)", -8},
      {"zem_dtrsm (f16yjc)", [&](ZemError* e) { f16yjc(R, 0, U, N, D, 3, 3, 1.0, d, 3, d + 20, 3, e); }, NE_BAD_PARAM, "side", 0},
      {"zem_dtrsm (f16yjc)", [&](ZemError* e) { f16yjc(R, Zem_RightSide, U, N, D, 2, 4, 1.0, d, 3, d + 20, 4, e); }, NE_INT_2, "pda >= MAX(1,n)", -10},
      {"zem_ztrsm (f16zjc)", [&](ZemError* e) { f16zjc(K, Zem_LeftSide, U, N, D, 3, 2, one, zp, 3, zp + 20, 2, e); }, NE_INT_2, "pdb >= MAX(1,m)", -12},
      {"zem_dtr_copy (f16qec)", [&](ZemError* e) { f16qec(K, U, 0, D, 3, d, 3, d + 20, 3, e); }, NE_BAD_PARAM, "trans", 0},
      {"zem_ztr_copy (f16tec)", [&](ZemError* e) { f16tec(R, U, N, D, 3, zp, 3, zp + 20, 2, e); }, NE_INT_2, "pdb >= MAX(1,n)", -9},
      {"zem_dge_copy (f16qfc)", [&](ZemError* e) { f16qfc(R, Zem_Trans, 2, 4, d, 1, d + 20, 4, e); }, NE_INT_2, "pda >= MAX(1,m)", -6},
      {"zem_zge_copy (f16tfc)", [&](ZemError* e) { f16tfc(R, N, 2, -4, zp, 4, zp + 20, 4, e); }, NE_INT, "n >= 0", -4},
      {"zem_dtr_load (f16qgc)", [&](ZemError* e) { f16qgc(R, U, -3, 1.0, 1.0, d, 3, e); }, NE_INT, "n >= 0", -3},
      {"zem_ztr_load (f16tgc)", [&](ZemError* e) { f16tgc(R, 3, 3, one, one, zp, 3, e); }, NE_BAD_PARAM, "uplo", 0},
      {"zem_dge_load (f16qhc)", [&](ZemError* e) { f16qhc(K, -1, 3, 1.0, 1.0, d, 3, e); }, NE_INT, "m >= 0", -2},
      {"zem_zge_load (f16thc)", [&](ZemError* e) { f16thc(K, 4, 3, one, one, zp, 3, e); }, NE_INT_2, "pda >= MAX(1,m)", -7},
      {"f06qgc", [&](ZemError* e) { f06qgc(R, Zem_MaxNorm, 0, 3, 3, d, 3, &r, e); }, NE_BAD_PARAM, "matrix", 0},
      {"f06qgc", [&](ZemError* e) { f06qgc(R, Zem_MaxNorm, Zem_UpperMatrix, 3, 4, d, 3, &r, e); }, NE_INT_2, "pda >= MAX(1,n)", -7},
      {"f06vgc", [&](ZemError* e) { f06vgc(R, Zem_MaxNorm, Zem_LowerMatrix, 3, -4, zp, 3, &r, e); }, NE_INT, "n >= 0", -5},
      {"f06rac", [&](ZemError* e) { f06rac(R, Zem_TwoNorm, 3, 3, d, 3, &r, e); }, NE_BAD_PARAM, "norm", 0},
      {"f06qfc", [&](ZemError* e) { f06qfc(K, Zem_GeneralMatrix, 3, 3, d, 3, d + 20, 2, e); }, NE_INT_2, "pdb >= MAX(1,m)", -8},
      {"f06tfc", [&](ZemError* e) { f06tfc(K, Zem_GeneralMatrix, 3, 3, zp, 3, nullptr, 3, e); }, NE_BAD_PARAM, "argument b ", 0},
      {"f06qhc", [&](ZemError* e) { f06qhc(R, Zem_UpperMatrix, 3, 3, 1.0, 1.0, d, 2, e); }, NE_INT_2, "pda >= MAX(1,n)", -8},
      {"f06thc", [&](ZemError* e) { f06thc(R, Zem_UpperMatrix, -1, 3, one, one, zp, 3, e); }, NE_INT, "m >= 0", -3},
  };
  for (const Bad& b : cases) {
    SCOPED_TRACE(b.routine + std::string(" ") + b.text);
    const std::vector<double> d0(d, d + 64);
    ZemError e{};
    e.handler = remember;
    e.errnum = 12345;
    g_routine.clear();
    b.call(&e);
    EXPECT_EQ(e.code, b.code) << e.message;
    EXPECT_NE(std::string(e.message).find(b.text), std::string::npos) << e.message;
    EXPECT_EQ(g_routine, b.routine);
    EXPECT_EQ(e.errnum, b.errnum ? b.errnum : 12345);
    EXPECT_TRUE(std::equal(d0.begin(), d0.end(), d));
  }
  // A good call makes no report: the record's message stays as it was.
  ZemError e{};
  e.code = 99;
  std::strcpy(e.message, "untouched");
  f16rac(R, Zem_OneNorm, 2, 2, d, 2, &r, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_STREQ(e.message, "untouched");
}

}  // namespace
