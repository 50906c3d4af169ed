// The f06 level-1 and scalar helpers against plain loops over the logical
// elements of each vector, for positive, negative and zero increments; the
// scaled norms at the ends of the exponent range; rotations and
// reflections by their defining properties; the kernel forms; and the
// reports of bad arguments on the standard error stream.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "zem/f06.h"

namespace {

using C = std::complex<double>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kEps = std::numeric_limits<double>::epsilon();

template <class T>
T rnd(std::mt19937_64& g) {
  std::uniform_real_distribution<double> u(-1, 1);
  if constexpr (std::is_same_v<T, C>) return C(u(g), u(g));
  else if constexpr (std::is_same_v<T, int32_t>) return static_cast<int32_t>(100 * u(g));
  else return u(g);
}

ZemComplex* z(C* p) { return reinterpret_cast<ZemComplex*>(p); }
ZemComplex zc(C v) { return ZemComplex{v.real(), v.imag()}; }
C cz(ZemComplex v) { return C(v.re, v.im); }

// A vector of n elements with increment inc in a buffer whose other
// positions, and one position on each side, hold a sentinel.
template <class T>
struct Strided {
  long n, inc;
  std::vector<T> buf;
  static constexpr double kSentinel = 4321.0;
  Strided(long n_, long inc_, std::mt19937_64& g)
      : n(n_), inc(inc_), buf(static_cast<std::size_t>(std::max(0L, (n_ - 1) * std::abs(inc_)) + 3), T(kSentinel)) {
    for (long i = 0; i < n; ++i) at(i) = rnd<T>(g);
  }
  T* data() { return buf.data() + 1; }
  long pos(long i) const { return inc >= 0 ? i * inc : (n - 1 - i) * -inc; }
  T& at(long i) { return data()[pos(i)]; }
  std::vector<T> logical() {
    std::vector<T> v(static_cast<std::size_t>(n));
    for (long i = 0; i < n; ++i) v[i] = at(i);
    return v;
  }
  bool sentinels_intact() const {
    std::vector<bool> element(buf.size(), false);
    for (long i = 0; i < n; ++i) element[static_cast<std::size_t>(pos(i) + 1)] = true;
    for (std::size_t k = 0; k < buf.size(); ++k)
      if (!element[k] && buf[k] != T(kSentinel)) return false;
    return true;
  }
};

template <class T>
double max_diff(const std::vector<T>& a, const std::vector<T>& b) {
  double d = 0;
  for (std::size_t i = 0; i < a.size(); ++i) d = std::max(d, std::abs(a[i] - b[i]));
  return d;
}

const long kSizes[] = {0, 1, 7};
const long kIncs[] = {-3, -1, 1, 2};

TEST(F06Level1, RealVectorOperationsMatchLoopsForEveryIncrement) {
  std::mt19937_64 g(11);
  for (long n : kSizes)
    for (long ix : kIncs)
      for (long iy : kIncs) {
        SCOPED_TRACE("n=" + std::to_string(n) + " incx=" + std::to_string(ix) + " incy=" + std::to_string(iy));
        Strided<double> x(n, ix, g), y(n, iy, g);
        const std::vector<double> x0 = x.logical(), y0 = y.logical();
        double dot = 0, mag = 0;
        for (long i = 0; i < n; ++i) dot += x0[i] * y0[i], mag += std::abs(x0[i] * y0[i]);
        EXPECT_NEAR(f06eac(n, x.data(), ix, y.data(), iy), dot, 4 * kEps * mag);
        const int32_t n32 = n, ix32 = ix, iy32 = iy;
        EXPECT_NEAR(f06eaf_f(&n32, x.data(), &ix32, y.data(), &iy32), dot, 4 * kEps * mag);

        std::vector<double> want(y0), want_x(x0);
        f06ecc(n, -0.75, x.data(), ix, y.data(), iy);  // axpy
        for (long i = 0; i < n; ++i) want[i] += -0.75 * x0[i];
        EXPECT_LT(max_diff(y.logical(), want), 4 * kEps);
        f06efc(n, x.data(), ix, y.data(), iy);  // copy
        EXPECT_EQ(y.logical(), x0);
        f06fdc(n, 3.0, x.data(), ix, y.data(), iy);  // y = 3 x
        for (long i = 0; i < n; ++i) want[i] = 3.0 * x0[i];
        EXPECT_EQ(y.logical(), want);
        f06egc(n, x.data(), ix, y.data(), iy);  // swap
        EXPECT_EQ(x.logical(), want);
        EXPECT_EQ(y.logical(), x0);
        // Rotation: x = c x + s y, y = c y - s x.
        const std::vector<double> xr = x.logical(), yr = y.logical();
        f06epc(n, x.data(), ix, y.data(), iy, 0.6, 0.8);
        for (long i = 0; i < n; ++i) want_x[i] = 0.6 * xr[i] + 0.8 * yr[i], want[i] = 0.6 * yr[i] - 0.8 * xr[i];
        EXPECT_LT(max_diff(x.logical(), want_x), 8 * kEps);
        EXPECT_LT(max_diff(y.logical(), want), 8 * kEps);
        EXPECT_TRUE(x.sentinels_intact());
        EXPECT_TRUE(y.sentinels_intact());
      }
}

TEST(F06Level1, RealSingleVectorOperations) {
  std::mt19937_64 g(12);
  for (long n : kSizes)
    for (long inc : kIncs) {
      SCOPED_TRACE("n=" + std::to_string(n) + " inc=" + std::to_string(inc));
      Strided<double> x(n, inc, g);
      std::vector<double> v = x.logical();
      double ssq = 0, asum = 0;
      long imax = n ? 0 : -1;
      for (long i = 0; i < n; ++i) {
        ssq += v[i] * v[i];
        asum += std::abs(v[i]);
        if (std::abs(v[i]) > std::abs(v[imax])) imax = i;
      }
      EXPECT_NEAR(f06ejc(n, x.data(), inc), std::sqrt(ssq), 4 * kEps);
      EXPECT_NEAR(f06ekc(n, x.data(), inc), asum, 8 * kEps);
      EXPECT_EQ(f06jlc(n, x.data(), inc), imax);
      f06edc(n, -2.0, x.data(), inc);
      for (auto& e : v) e *= -2.0;
      EXPECT_EQ(x.logical(), v);
      const int32_t n32 = n, inc32 = inc;
      const double half = 0.5;
      f06edf_f(&n32, &half, x.data(), &inc32);
      for (auto& e : v) e *= 0.5;
      EXPECT_EQ(x.logical(), v);
      f06fgc(n, x.data(), inc);
      for (auto& e : v) e = -e;
      EXPECT_EQ(x.logical(), v);
      f06fbc(n, 2.5, x.data(), inc);
      EXPECT_EQ(x.logical(), std::vector<double>(n, 2.5));
      EXPECT_TRUE(x.sentinels_intact());
      // Integer vectors.
      Strided<int32_t> p(n, inc, g), q(n, -inc, g);
      f06dfc(n, p.data(), inc, q.data(), -inc);
      EXPECT_EQ(q.logical(), p.logical());
      f06dbc(n, -7, p.data(), inc);
      EXPECT_EQ(p.logical(), std::vector<int32_t>(n, -7));
      EXPECT_TRUE(p.sentinels_intact());
      EXPECT_TRUE(q.sentinels_intact());
    }
}

TEST(F06Level1, ComplexVectorOperationsMatchLoopsForEveryIncrement) {
  std::mt19937_64 g(13);
  const C alpha(0.25, -1.5);
  for (long n : kSizes)
    for (long ix : kIncs)
      for (long iy : {-2L, 1L}) {
        SCOPED_TRACE("n=" + std::to_string(n) + " incx=" + std::to_string(ix) + " incy=" + std::to_string(iy));
        Strided<C> x(n, ix, g), y(n, iy, g);
        const std::vector<C> x0 = x.logical(), y0 = y.logical();
        C dot = 0;
        double ssq = 0, asum = 0;
        long imax = n ? 0 : -1;
        auto abs1 = [](C v) { return std::abs(v.real()) + std::abs(v.imag()); };
        for (long i = 0; i < n; ++i) {
          dot += std::conj(x0[i]) * y0[i];
          ssq += std::norm(x0[i]);
          asum += abs1(x0[i]);
          if (abs1(x0[i]) > abs1(x0[imax])) imax = i;
        }
        EXPECT_LT(std::abs(cz(f06gbc(n, z(x.data()), ix, z(y.data()), iy)) - dot), 8 * kEps * (n + 1));
        EXPECT_NEAR(f06jjc(n, z(x.data()), ix), std::sqrt(ssq), 4 * kEps * (n + 1));
        EXPECT_NEAR(f06jkc(n, z(x.data()), ix), asum, 4 * kEps * (n + 1));
        EXPECT_EQ(f06jmc(n, z(x.data()), ix), imax);

        std::vector<C> want(y0);
        f06gcc(n, zc(alpha), z(x.data()), ix, z(y.data()), iy);
        for (long i = 0; i < n; ++i) want[i] += alpha * x0[i];
        EXPECT_LT(max_diff(y.logical(), want), 8 * kEps);
        f06gfc(n, z(x.data()), ix, z(y.data()), iy);
        EXPECT_EQ(y.logical(), x0);
        f06gdc(n, zc(alpha), z(y.data()), iy);
        for (long i = 0; i < n; ++i) want[i] = alpha * x0[i];
        EXPECT_LT(max_diff(y.logical(), want), 8 * kEps);
        f06ggc(n, z(x.data()), ix, z(y.data()), iy);
        EXPECT_EQ(y.logical(), x0);
        EXPECT_LT(max_diff(x.logical(), want), 8 * kEps);
        f06jdc(n, -4.0, z(y.data()), iy);
        for (long i = 0; i < n; ++i) want[i] = -4.0 * x0[i];
        EXPECT_EQ(y.logical(), want);
        f06hbc(n, zc(alpha), z(x.data()), ix);
        EXPECT_EQ(x.logical(), std::vector<C>(n, alpha));
        EXPECT_TRUE(x.sentinels_intact());
        EXPECT_TRUE(y.sentinels_intact());
      }
}

TEST(F06Level1, AZeroIncrementMakesAReadOnlyVectorOfOneElement) {
  std::mt19937_64 g(14);
  const long n = 5;
  Strided<double> x(n, 1, g), y(n, 2, g);
  const double c = -1.25;
  const std::vector<double> x0 = x.logical(), y0 = y.logical();
  double sum = 0;
  for (double v : x0) sum += v;
  EXPECT_NEAR(f06eac(n, x.data(), 1, &c, 0), c * sum, 8 * kEps);
  f06ecc(n, 2.0, &c, 0, y.data(), 2);
  for (long i = 0; i < n; ++i) EXPECT_DOUBLE_EQ(y.at(i), y0[i] + 2.0 * c);
  f06efc(n, &c, 0, y.data(), 2);
  EXPECT_EQ(y.logical(), std::vector<double>(n, c));
  EXPECT_DOUBLE_EQ(f06ejc(4, &c, 0), 2.0 * std::abs(c));
  EXPECT_DOUBLE_EQ(f06ekc(4, &c, 0), 4.0 * std::abs(c));
  EXPECT_EQ(f06jlc(4, &c, 0), 0);
  const C w(3.0, -4.0);
  std::vector<C> cy(n, C(1.0, 1.0));
  f06gcc(n, zc(C(0.0, 1.0)), z(const_cast<C*>(&w)), 0, z(cy.data()), 1);
  EXPECT_EQ(cy, std::vector<C>(n, C(1.0, 1.0) + C(0.0, 1.0) * w));
  EXPECT_DOUBLE_EQ(f06jjc(9, z(const_cast<C*>(&w)), 0), 15.0);
  const int32_t k = 9;
  std::vector<int32_t> iv(n, 0);
  f06dfc(n, &k, 0, iv.data(), 1);
  EXPECT_EQ(iv, std::vector<int32_t>(n, 9));
}

// Exact powers of two so that the references are exact.
TEST(F06Level1, ScaledNormsNeitherOverflowNorUnderflow) {
  const double big = std::ldexp(1.0, 1000), tiny = std::ldexp(1.0, -1060);  // tiny is subnormal
  for (double s : {big, tiny, 1.0}) {
    const double v[3] = {3 * s, 0.0, -4 * s};
    EXPECT_DOUBLE_EQ(f06ejc(3, v, 1), 5 * s);
    EXPECT_DOUBLE_EQ(f06bnc(3 * s, -4 * s), 5 * s);
    const C w[2] = {C(3 * s, 0), C(0, -4 * s)};
    EXPECT_DOUBLE_EQ(f06jjc(2, z(const_cast<C*>(w)), 1), 5 * s);
    // Two updates of a scaled sum of squares make the same norm.
    double scale = 0.0, ssq = 1.0;
    f06fjc(1, v, 1, &scale, &ssq);
    f06fjc(2, v + 1, 1, &scale, &ssq);
    EXPECT_DOUBLE_EQ(f06bmc(scale, ssq), 5 * s);
  }
  // sqrt(2) 2^1023 is representable, though the squares are not; twice the
  // largest number is not.
  const double h = std::ldexp(1.0, 1023), top = std::numeric_limits<double>::max();
  const double two[2] = {h, -h};
  EXPECT_NEAR(f06ejc(2, two, 1), std::sqrt(2.0) * h, 4 * kEps * h);
  EXPECT_NEAR(f06bnc(h, h), std::sqrt(2.0) * h, 4 * kEps * h);
  EXPECT_TRUE(std::isinf(f06bnc(top, top)));
  EXPECT_TRUE(std::isinf(f06bnc(1.0, -INFINITY)));
  EXPECT_EQ(f06bmc(0.0, 7.0), 0.0);
  // NaNs are not lost.
  const double with_nan[3] = {1.0, kNaN, 2.0};
  EXPECT_TRUE(std::isnan(f06ejc(3, with_nan, 1)));
  EXPECT_EQ(f06jlc(3, with_nan, 1), 1);
  const double late_nan[4] = {5.0, 9.0, 1.0, kNaN};
  EXPECT_EQ(f06jlc(4, late_nan, -1), 0);  // element 0 is the last in memory
  double scale = 1.0, ssq = 2.0;
  f06fjc(3, with_nan, 1, &scale, &ssq);
  EXPECT_TRUE(std::isnan(f06bmc(scale, ssq)));
  // Scaling by zero clears a NaN (documented).
  double cleared[2] = {kNaN, INFINITY};
  f06edc(2, 0.0, cleared, 1);
  EXPECT_EQ(cleared[0], 0.0);
  EXPECT_EQ(cleared[1], 0.0);
}

TEST(F06Level1, PlaneRotationFromItsTangentZeroesTheSecondComponent) {
  const double inf = std::numeric_limits<double>::infinity();
  for (double t : {0.0, 1e-200, -0.5, 1.0, 3.0, -7e8, 1e300, -inf}) {
    SCOPED_TRACE(t);
    double c = -1, s = -1;
    f06bcc(t, &c, &s);
    EXPECT_NEAR(c * c + s * s, 1.0, 2 * kEps);
    EXPECT_GE(c, 0.0);
    if (std::isfinite(t)) {
      EXPECT_NEAR(s / c, t, 2 * kEps * std::abs(t));
    }
    // The rotation of tangent t = b/a zeroes b (a = 0 for an infinite t).
    double x = std::isfinite(t) ? 2.0 : 0.0, y = std::isfinite(t) ? 2.0 * t : std::copysign(1.0, t);
    const double r = std::hypot(x, y);
    f06epc(1, &x, 1, &y, 1, c, s);
    EXPECT_NEAR(std::abs(x), r, 4 * kEps * r);
    EXPECT_NEAR(y, 0.0, 4 * kEps * r);
  }
}

TEST(F06Level1, HouseholderReflectionMapsTheVectorOntoTheFirstAxis) {
  std::mt19937_64 g(15);
  for (long inc : {1L, -2L}) {
    const long n = 6;
    Strided<double> x(n - 1, inc, g);
    const std::vector<double> x0 = x.logical();
    const double alpha0 = 0.3;
    double alpha = alpha0, tau = -1;
    f06frc(n, &alpha, x.data(), inc, &tau);
    // H w = w - tau v (v^T w), v = (1, x_out), w = (alpha0, x0).
    std::vector<double> v{1.0}, w{alpha0};
    for (long i = 0; i < n - 1; ++i) v.push_back(x.at(i)), w.push_back(x0[i]);
    double vw = 0, norm = 0;
    for (long i = 0; i < n; ++i) vw += v[i] * w[i], norm += w[i] * w[i];
    EXPECT_NEAR(std::abs(alpha), std::sqrt(norm), 4 * kEps);
    EXPECT_NEAR(w[0] - tau * vw, alpha, 8 * kEps);
    for (long i = 1; i < n; ++i) EXPECT_NEAR(w[i] - tau * v[i] * vw, 0.0, 8 * kEps);
    EXPECT_GE(tau, 1.0);
    EXPECT_LE(tau, 2.0);
    EXPECT_TRUE(x.sentinels_intact());
  }
  double zero[3] = {0, 0, 0}, alpha = -2.0, tau = -1;
  f06frc(4, &alpha, zero, 1, &tau);
  EXPECT_EQ(tau, 0.0);
  EXPECT_EQ(alpha, -2.0);
  f06frc(1, &alpha, nullptr, 0, &tau);
  EXPECT_EQ(tau, 0.0);
}

// A report goes to stderr whatever the caller does, and the call does
// nothing else.
TEST(F06Level1, BadArgumentsAreReportedOnStderrWithTheirPosition) {
  struct Case {
    const char* name;
    int position;
    std::function<void(double*)> call;
  };
  double y0[4] = {1, 2, 3, 4};
  const std::vector<Case> cases = {
      {"f06edc/dscal", 1, [](double* y) { f06edc(-1, 2.0, y, 1); }},
      {"f06edc/dscal", 4, [](double* y) { f06edc(3, 2.0, y, 0); }},
      {"f06ecc/daxpy", 6, [](double* y) { f06ecc(3, 2.0, y, 1, y + 1, 0); }},
      {"f06efc/dcopy", 2, [](double* y) { f06efc(3, nullptr, 1, y, 1); }},
      {"f06fjc/dssq", 4, [](double* y) { double s = -1, q = 1; f06fjc(3, y, 1, &s, &q); }},
      {"f06bmc/dnorm", 2, [](double*) { EXPECT_TRUE(std::isnan(f06bmc(1.0, -1.0))); }},
      {"F06EDF/DSCAL", 1, [](double* y) { const double a = 2; const int32_t inc = 1; f06edf_f(nullptr, &a, y, &inc); }},
      {"F06PAF/DGEMV", 1, [](double* y) {
         const int32_t m = 2, n = 2, one = 1;
         const double a = 1;
         f06paf_f("X", &m, &n, &a, y, &m, y, &one, &a, y, &one);
       }},
      {"F06PAF/DGEMV", 6, [](double* y) {
         const int32_t m = 2, n = 2, one = 1;
         const double a = 1;
         f06paf_f("n", &m, &n, &a, y, &one, y, &one, &a, y, &one);
       }},
      {"F06PHF/DTPMV", 3, [](double* y) { f06phf('U', 'N', 'Q', 2, y, y, 1); }},
      {"F06PHF/DTPMV", 7, [](double* y) { f06phf('l', 't', 'u', 2, y, y, 0); }},
      {"my kernel", 9, [](double*) { f06aaz("my kernel", 9); }},
      {"f06pac/dgemv", 4, [](double*) { const int32_t p = 4; f06aaz_d("f06pac/dgemv", &p); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    double y[4] = {1, 2, 3, 4};
    testing::internal::CaptureStderr();
    c.call(y);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find(std::string("ZEM routine ") + c.name + ":"), std::string::npos) << err;
    EXPECT_NE(err.find("NE_F06_BAD_PARAM"), std::string::npos) << err;
    EXPECT_NE(err.find("parameter number " + std::to_string(c.position) + " "), std::string::npos) << err;
    EXPECT_TRUE(std::equal(y, y + 4, y0));
  }
}

// The kernel forms against loops over column-major storage.
TEST(F06KernelForms, GemvAndPackedTriangularProduct) {
  std::mt19937_64 g(16);
  const int32_t m = 5, n = 3, lda = 7, one = 1, minus2 = -2;
  std::vector<double> a(static_cast<std::size_t>(lda) * n);
  for (auto& v : a) v = rnd<double>(g);
  for (const char* trans : {"N", "t", "C"}) {
    const bool t = *trans != 'N';
    const int32_t lx = t ? m : n, ly = t ? n : m;
    std::vector<double> x(lx), y(2 * ly), want(ly);
    for (auto& v : x) v = rnd<double>(g);
    for (auto& v : y) v = rnd<double>(g);
    for (int32_t i = 0; i < ly; ++i) {
      double s = 0;
      for (int32_t k = 0; k < lx; ++k) s += (t ? a[k + i * lda] : a[i + k * lda]) * x[k];
      want[i] = 1.5 * s - 0.5 * y[2 * (ly - 1 - i)];  // y with increment -2
    }
    const double alpha = 1.5, beta = -0.5;
    f06paf_f(trans, &m, &n, &alpha, a.data(), &lda, x.data(), &one, &beta, y.data(), &minus2);
    for (int32_t i = 0; i < ly; ++i) EXPECT_NEAR(y[2 * (ly - 1 - i)], want[i], 8 * kEps) << trans;
  }
  // An empty product leaves y = beta y.
  std::vector<double> y{2.0, 4.0};
  const int32_t zero = 0, two = 2;
  const double alpha = 1.0, beta = 0.5;
  f06paf_f("T", &zero, &two, &alpha, nullptr, &one, nullptr, &one, &beta, y.data(), &one);
  EXPECT_EQ(y, (std::vector<double>{1.0, 2.0}));

  const int32_t k = 4;
  for (char uplo : {'U', 'l'})
    for (char trans : {'N', 'T'})
      for (char diag : {'N', 'U'}) {
        std::vector<double> ap(k * (k + 1) / 2), x(k), want(k, 0.0);
        for (auto& v : ap) v = rnd<double>(g);
        for (auto& v : x) v = rnd<double>(g);
        const bool up = uplo == 'U';
        auto elem = [&](int i, int j) -> double {  // A(i, j), column-major packed
          if (up ? i > j : i < j) return 0.0;
          if (i == j && diag == 'U') return 1.0;
          return up ? ap[i + j * (j + 1) / 2] : ap[i - j + j * (2 * k - j + 1) / 2];
        };
        for (int i = 0; i < k; ++i)
          for (int j = 0; j < k; ++j) want[i] += (trans == 'N' ? elem(i, j) : elem(j, i)) * x[j];
        std::vector<double> got = x;
        f06phf(uplo, trans, diag, k, ap.data(), got.data(), 1);
        EXPECT_LT(max_diff(got, want), 8 * kEps);
        got = x;
        f06phf_f(&uplo, &trans, &diag, &k, ap.data(), got.data(), &one);
        EXPECT_LT(max_diff(got, want), 8 * kEps);
      }
}

}  // namespace
