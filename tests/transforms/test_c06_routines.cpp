// The exported routines: against the mpmath references of
// tests/data/c06_reference.txt, against direct sums, and through the
// identities that tie them together (inverses, Parseval, conjugation).
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/transforms/c06_direct.hpp"
#include "zem/c06.h"

namespace {

using namespace c06test;

struct Reference {
  long n, m;
  std::vector<double> in, out;
};

std::multimap<std::string, Reference> load_references() {
  std::multimap<std::string, Reference> refs;
  std::ifstream f(std::string(ZEM_TEST_DATA) + "/c06_reference.txt");
  std::string line;
  while (std::getline(f, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream s(line);
    std::string kind;
    Reference r;
    std::size_t count;
    s >> kind >> r.n >> r.m >> count;
    r.in.resize(count);
    for (auto& v : r.in) s >> v;
    s >> count;
    r.out.resize(count);
    for (auto& v : r.out) s >> v;
    refs.emplace(kind, r);
  }
  return refs;
}

const std::multimap<std::string, Reference>& references() {
  static const auto refs = load_references();
  return refs;
}

// Largest difference relative to the largest reference value (absolute
// when the reference is all zeros).
double max_rel(const std::vector<double>& got, const std::vector<double>& want) {
  double scale = 0, err = 0;
  for (double v : want) scale = std::max(scale, std::fabs(v));
  for (std::size_t i = 0; i < want.size(); ++i) err = std::max(err, std::fabs(got[i] - want[i]));
  return scale > 0 ? err / scale : err;
}

std::vector<double> table(long n) {
  std::vector<double> t(2 * n);
  ZemError fail{};
  c06gzc(static_cast<int32_t>(n), t.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  return t;
}

void expect_ok(const ZemError& fail) { EXPECT_EQ(fail.code, 0) << fail.message; }

long largest_prime(long n) {
  long p = 1;
  for (long d = 2; d * d <= n; ++d)
    while (n % d == 0) {
      p = d;
      n /= d;
    }
  return n > 1 ? n : p;
}

// Largest difference over a pair of vectors, relative to their largest
// reference value.
double max_rel2(const std::vector<double>& a, const std::vector<double>& b, const std::vector<double>& wa,
                const std::vector<double>& wb) {
  std::vector<double> got = a, want = wa;
  got.insert(got.end(), b.begin(), b.end());
  want.insert(want.end(), wb.begin(), wb.end());
  return max_rel(got, want);
}

TEST(C06Routines, HighPrecisionReferences) {
  ASSERT_GE(references().size(), 12u);
  for (const auto& [kind, r] : references()) {
    ZemError fail{};
    std::vector<double> got = r.in;
    const auto n = static_cast<int32_t>(r.n), m = static_cast<int32_t>(r.m);
    if (kind == "complex") {
      c06ecc(n, got.data(), got.data() + n, &fail);
    } else if (kind == "real") {
      c06eac(n, got.data(), &fail);
    } else if (kind == "convolution" || kind == "correlation") {
      c06ekc(kind == "convolution" ? Zem_Convolution : Zem_Correlation, n, got.data(), got.data() + n, &fail);
      got.resize(n);
    } else if (kind == "two_dimensional") {
      const auto tm = table(r.n), tn = table(r.m);
      c06fuc(n, m, got.data(), got.data() + n * m, tm.data(), tn.data(), &fail);
    } else {
      const auto t = table(r.n);
      const bool backward = kind.find("backward") != std::string::npos;
      const auto dir = backward ? Zem_BackwardTransform : Zem_ForwardTransform;
      if (kind == "sine") c06hac(m, n, got.data(), t.data(), &fail);
      else if (kind == "cosine") c06hbc(m, n, got.data(), t.data(), &fail);
      else if (kind.rfind("quarter_sine", 0) == 0) c06hcc(dir, m, n, got.data(), t.data(), &fail);
      else c06hdc(dir, m, n, got.data(), t.data(), &fail);
    }
    expect_ok(fail);
    EXPECT_LT(max_rel(got, r.out), 1e-15) << kind << " n=" << r.n;
  }
}

// Every length of the single-sequence routines up to 120 (those refused
// aside), backward after forward and against direct sums; the conjugation
// routines make the backward complex transform.
TEST(C06Routines, SingleSequenceRoundTrips) {
  for (int32_t n = 2; n <= 120; ++n) {
    ZemError fail{};
    const auto x0 = random_values(n, n), y0 = random_values(n, n + 1);
    std::vector<double> x = x0, y = y0;
    c06ecc(n, x.data(), y.data(), &fail);
    if (largest_prime(n) > 19) {
      EXPECT_EQ(fail.code, NE_C06_FACTOR_GT) << n;
      EXPECT_EQ(x, x0);  // a refused call changes nothing
      continue;
    }
    expect_ok(fail);
    std::vector<LC> z(n), got(n);
    for (int j = 0; j < n; ++j) {
      z[j] = LC(x0[j], y0[j]);
      got[j] = LC(x[j], y[j]);
    }
    EXPECT_LT(rel_rms(got, dft(z, -1, 1 / std::sqrt(static_cast<long double>(n)))), tolerance(n)) << n;
    // Backward: conjugate, forward, conjugate.
    c06gcc(n, y.data(), &fail);
    c06ecc(n, x.data(), y.data(), &fail);
    c06gcc(n, y.data(), &fail);
    EXPECT_LT(max_rel(x, x0), tolerance(n)) << n;
    EXPECT_LT(max_rel(y, y0), tolerance(n)) << n;

    // Real: c06eac, then c06ebc; the Hermitian layout holds the complex
    // transform of the same data (the imaginary parts set to zero).
    std::vector<double> r = x0, zr = x0, zi(n, 0.0);
    c06eac(n, r.data(), &fail);
    c06ecc(n, zr.data(), zi.data(), &fail);
    for (int k = 0; 2 * k <= n; ++k) {
      EXPECT_NEAR(r[k], zr[k], 4 * tolerance(n)) << n << " " << k;
      if (k > 0 && 2 * k < n) {
        EXPECT_NEAR(r[n - k], zi[k], 4 * tolerance(n)) << n << " " << k;
      }
    }
    // c06gbc conjugates the Hermitian sequence: c06ebc of the conjugate is
    // the data reversed, x_{(n-j) mod n}.
    std::vector<double> rc = r;
    c06gbc(n, rc.data(), &fail);
    c06ebc(n, rc.data(), &fail);
    for (int j = 0; j < n; ++j) EXPECT_NEAR(rc[j], x0[(n - j) % n], 4 * tolerance(n)) << n;
    c06ebc(n, r.data(), &fail);
    expect_ok(fail);
    EXPECT_LT(max_rel(r, x0), tolerance(n)) << n;
  }
}

// Parseval: the transforms are unitary.
TEST(C06Routines, ParsevalHolds) {
  for (int32_t n : {17017, 4096, 1000, 19}) {
    const auto x0 = random_values(n, 5);
    std::vector<double> x = x0;
    ZemError fail{};
    c06eac(n, x.data(), &fail);
    expect_ok(fail);
    long double before = 0, after = x[0] * x[0];
    for (double v : x0) before += v * v;
    for (int k = 1; 2 * k < n; ++k) after += 2.0L * (x[k] * x[k] + x[n - k] * x[n - k]);
    if (n % 2 == 0) after += x[n / 2] * x[n / 2];
    EXPECT_NEAR(static_cast<double>(after / before), 1.0, 1e-14) << n;
  }
}

TEST(C06Routines, ConvolutionAndCorrelationMatchDirectSums) {
  for (int32_t n : {2, 3, 12, 45, 128, 361}) {
    const auto x0 = random_values(n, 21), y0 = random_values(n, 22);
    for (bool corr : {false, true}) {
      std::vector<double> x = x0, y = y0, want(n);
      for (int k = 0; k < n; ++k) {
        long double s = 0;
        for (int j = 0; j < n; ++j) s += static_cast<long double>(x0[j]) * y0[corr ? (k + j) % n : (k - j + n) % n];
        want[k] = static_cast<double>(s / n);
      }
      ZemError fail{};
      c06ekc(corr ? Zem_Correlation : Zem_Convolution, n, x.data(), y.data(), &fail);
      expect_ok(fail);
      EXPECT_LT(max_rel(x, want), 8 * tolerance(n)) << n << (corr ? " correlation" : " convolution");
      // y holds its own transform.
      std::vector<double> ty = y0;
      c06eac(n, ty.data(), &fail);
      EXPECT_EQ(y, ty);
    }
  }
}

// Multiple sequences, and the routines that expand and conjugate them.
TEST(C06Routines, MultipleSequences) {
  for (int32_t n : {1, 2, 6, 15, 64, 97, 1000}) {
    for (int32_t m : {1, 3, 8}) {
      const auto t = table(n);
      const auto x0 = random_values(static_cast<std::size_t>(m) * n, n * m);
      std::vector<double> x = x0, u(x0.size()), v(x0.size()), re = x0, im(x0.size(), 0.0);
      ZemError fail{};
      c06fpc(m, n, x.data(), t.data(), &fail);
      expect_ok(fail);
      c06frc(m, n, re.data(), im.data(), t.data(), &fail);
      expect_ok(fail);
      // c06gsc expands the Hermitian sequences to the complex transforms.
      c06gsc(m, n, x.data(), u.data(), v.data(), &fail);
      expect_ok(fail);
      EXPECT_LT(max_rel2(u, v, re, im), 4 * tolerance(n)) << n << " " << m;
      // c06gqc conjugates all of them: backward then gives the reversal.
      std::vector<double> c = x;
      c06gqc(m, n, c.data(), &fail);
      c06fqc(m, n, c.data(), t.data(), &fail);
      for (int j = 0; j < n; ++j)
        for (int p = 0; p < m; ++p) EXPECT_NEAR(c[j * m + p], x0[((n - j) % n) * m + p], 1e-14);
      c06fqc(m, n, x.data(), t.data(), &fail);
      expect_ok(fail);
      EXPECT_LT(max_rel(x, x0), tolerance(n)) << n << " " << m;
    }
  }
}

TEST(C06Routines, TrigonometricTransformsInvertThemselves) {
  for (int32_t n : {1, 2, 5, 16, 27, 100}) {
    const int32_t m = 3;
    const auto t = table(n);
    ZemError fail{};
    // Sine and cosine transforms of the first kind are their own inverses.
    auto x0 = random_values(static_cast<std::size_t>(m) * (n + 1), n);
    for (int p = 0; p < m; ++p) x0[p] = 0.0;  // term 0 of the sine transform
    std::vector<double> s(x0.begin(), x0.begin() + m * n), c = x0;
    c06hac(m, n, s.data(), t.data(), &fail);
    expect_ok(fail);
    c06hac(m, n, s.data(), t.data(), &fail);
    EXPECT_LT(max_rel(s, std::vector<double>(x0.begin(), x0.begin() + m * n)), 4 * tolerance(n)) << n;
    c06hbc(m, n, c.data(), t.data(), &fail);
    expect_ok(fail);
    c06hbc(m, n, c.data(), t.data(), &fail);
    EXPECT_LT(max_rel(c, x0), 4 * tolerance(n)) << n;
    // Quarter-wave transforms: backward undoes forward.
    std::vector<double> q = random_values(static_cast<std::size_t>(m) * n, n + 7), r = q;
    c06hcc(Zem_ForwardTransform, m, n, q.data(), t.data(), &fail);
    c06hcc(Zem_BackwardTransform, m, n, q.data(), t.data(), &fail);
    expect_ok(fail);
    EXPECT_LT(max_rel(q, r), 4 * tolerance(n)) << n;
    c06hdc(Zem_BackwardTransform, m, n, q.data(), t.data(), &fail);
    c06hdc(Zem_ForwardTransform, m, n, q.data(), t.data(), &fail);
    expect_ok(fail);
    EXPECT_LT(max_rel(q, r), 4 * tolerance(n)) << n;
  }
}

// Multidimensional: the transform along one dimension against direct sums;
// along all of them against the three-dimensional routine and c06fuc.
TEST(C06Routines, MultidimensionalTransforms) {
  const int32_t nd[3] = {4, 6, 5};
  const int32_t n = 120;
  const auto re = random_values(n, 1), im = random_values(n, 2);
  std::vector<ZemComplex> x0(n);
  for (int i = 0; i < n; ++i) x0[i] = {re[i], im[i]};
  ZemError fail{};
  for (int32_t l = 1; l <= 3; ++l) {
    for (auto dir : {Zem_ForwardTransform, Zem_BackwardTransform}) {
      std::vector<ZemComplex> x = x0;
      c06pfc(dir, 3, l, nd, n, x.data(), &fail);
      expect_ok(fail);
      const long stride = l == 1 ? 30 : l == 2 ? 5 : 1, len = nd[l - 1];
      for (int i = 0; i < n; ++i) {
        if ((i / stride) % len != 0) continue;  // the first element of each line
        std::vector<LC> line(len), got(len);
        for (long j = 0; j < len; ++j) {
          line[j] = LC(x0[i + j * stride].re, x0[i + j * stride].im);
          got[j] = LC(x[i + j * stride].re, x[i + j * stride].im);
        }
        const auto want = dft(line, dir == Zem_ForwardTransform ? -1 : 1, 1 / std::sqrt(static_cast<long double>(len)));
        EXPECT_LT(rel_rms(got, want), tolerance(len)) << l;
      }
    }
  }
  std::vector<ZemComplex> a = x0, b = x0;
  c06pjc(Zem_ForwardTransform, 3, nd, n, a.data(), &fail);
  expect_ok(fail);
  c06pxc(Zem_ForwardTransform, nd[0], nd[1], nd[2], b.data(), &fail);
  expect_ok(fail);
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(a[i].re, b[i].re, 1e-15);
    EXPECT_NEAR(a[i].im, b[i].im, 1e-15);
  }
  c06pxc(Zem_BackwardTransform, nd[0], nd[1], nd[2], b.data(), &fail);
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(b[i].re, x0[i].re, 1e-15);
    EXPECT_NEAR(b[i].im, x0[i].im, 1e-15);
  }
  // Two dimensions, 24 x 5: c06fuc in split arrays equals c06pjc.
  const int32_t nd2[2] = {24, 5};
  std::vector<ZemComplex> c = x0;
  std::vector<double> xr(re), xi(im);
  c06pjc(Zem_ForwardTransform, 2, nd2, n, c.data(), &fail);
  c06fuc(24, 5, xr.data(), xi.data(), table(24).data(), table(5).data(), &fail);
  expect_ok(fail);
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(xr[i], c[i].re, 1e-15);
    EXPECT_NEAR(xi[i], c[i].im, 1e-15);
  }
}

TEST(C06Routines, FactorListAndTable) {
  int32_t f[32];
  ZemError fail{};
  c06fpz(360, f, &fail);
  expect_ok(fail);
  EXPECT_EQ(std::vector<int32_t>(f, f + 5), (std::vector<int32_t>{4, 2, 3, 3, 5}));
  EXPECT_EQ(f[5], 0);
  c06fpz(1, f, &fail);
  EXPECT_EQ(f[0], 1);
  EXPECT_EQ(f[1], 0);
  // The table marks its length and holds roots of unity.
  const auto t = table(12);
  EXPECT_EQ(t[11], 12.0);
  EXPECT_EQ(t[23], 12.0);
  for (int i = 0; i < 11; ++i) EXPECT_NEAR(t[i] * t[i] + t[12 + i] * t[12 + i], 1.0, 1e-15);
}

}  // namespace
