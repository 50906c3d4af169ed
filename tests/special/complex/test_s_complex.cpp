// Bessel, Hankel and Airy functions of complex argument, the real-order
// Bessel families, ln Gamma and polygamma of complex argument and the
// Faddeeva function: accuracy sweeps against mpmath tables
// (tools/s_complex_refs.py), identities, and the error rows.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <complex>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "special/sweep.hpp"
#include "zem.h"

namespace {

using cplx = std::complex<double>;
using zem::test::Case;
using zem::test::load_table;
using zem::test::Sweep;

constexpr double kEps = DBL_EPSILON;
// Target for complex arguments and sequences.
constexpr double kTarget = 1e-13;

ZemComplex zc(cplx c) { return ZemComplex{c.real(), c.imag()}; }
cplx cz(ZemComplex c) { return {c.re, c.im}; }

ZemError quiet() {
  ZemError e{};
  e.print = 0;
  return e;
}

double crel(cplx got, cplx want) {
  if (got == want) return 0.0;
  if (!std::isfinite(got.real()) || !std::isfinite(got.imag())) return INFINITY;
  return std::abs(got - want) / std::abs(want);
}

// No double-precision algorithm can promise better than about eps * kappa,
// kappa the condition number of the function at the argument; the bound is
// the target or a small multiple of that, whichever is larger.
double bound(double kappa) { return std::max(kTarget, 16.0 * kEps * kappa); }

// Two accuracy lines per routine: the plain relative error over the cases
// whose condition number keeps eps * kappa below the target, and the error
// over all cases measured against bound(kappa).
struct Pair {
  Sweep well, all, raw;
  explicit Pair(const std::string& name)
      : well(name, "rel"), all(name + "/b", "rel/bound"), raw(name + "/r", "rel") {}
  void add(double err, double kappa, double arg) {
    if (16.0 * kEps * kappa <= kTarget) well.add(err, arg);
    all.add(err / bound(kappa), arg);
    raw.add(err, arg);  // over every case, for the record
  }
  void check() {
    well.print();
    all.print();
    raw.print();
    EXPECT_LE(well.worst, kTarget) << well.name << " at " << well.at;
    EXPECT_LE(all.worst, 1.0) << all.name << " at " << all.at;
  }
};

using SeqFn = void (*)(double, ZemComplex, int32_t, int32_t, ZemComplex[], int32_t*, ZemError*);

void h1(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[], int32_t* nz,
        ZemError* f) {
  s17dlc(1, fnu, z, n, scal, cy, nz, f);
}
void h2(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[], int32_t* nz,
        ZemError* f) {
  s17dlc(2, fnu, z, n, scal, cy, nz, f);
}

TEST(SComplex, BesselSequencesAgainstReferences) {
  const auto rows = load_table("s_c_bessel.txt");
  ASSERT_GT(rows.size(), 600u);
  const char* names[] = {"s18dec", "s17dec", "s18dcc", "s17dcc", "s17dlc1", "s17dlc2"};
  const SeqFn fns[] = {s18dec, s17dec, s18dcc, s17dcc, h1, h2};
  std::vector<Pair> pairs;
  for (const char* n : names) pairs.emplace_back(n);
  for (const Case& c : rows) {
    const int fn = static_cast<int>(c[0]);
    const double fnu = c[1];
    const cplx z(c[2], c[3]);
    const int n = static_cast<int>(c[4]), k = static_cast<int>(c[5]);
    const int32_t scal = c[6] != 0.0 ? Zem_ScaleRes : Zem_UnscaleRes;
    const cplx want(c[7], c[8]);
    std::vector<ZemComplex> cy(static_cast<std::size_t>(n));
    int32_t nz = -1;
    ZemError fail = quiet();
    fns[fn](fnu, zc(z), n, scal, cy.data(), &nz, &fail);
    const double err =
        fail.code == NE_NOERROR ? crel(cz(cy[static_cast<std::size_t>(k)]), want) : INFINITY;
    pairs[static_cast<std::size_t>(fn)].add(err, c[9], std::abs(z));
  }
  for (Pair& p : pairs) p.check();
}

TEST(SComplex, AiryAgainstReferences) {
  const auto rows = load_table("s_c_airy.txt");
  ASSERT_GT(rows.size(), 300u);
  Pair ai("s17dgc"), bi("s17dhc");
  for (const Case& c : rows) {
    const bool is_bi = c[0] != 0.0;
    const int32_t deriv = c[1] != 0.0 ? Zem_Deriv : Zem_Function;
    const cplx z(c[2], c[3]);
    const int32_t scal = c[4] != 0.0 ? Zem_ScaleRes : Zem_UnscaleRes;
    ZemComplex got{};
    int32_t nz = 0;
    ZemError fail = quiet();
    if (is_bi) s17dhc(deriv, zc(z), scal, &got, &fail);
    else s17dgc(deriv, zc(z), scal, &got, &nz, &fail);
    const bool ok = fail.code == NE_NOERROR || fail.code == NW_SOME_PRECISION_LOSS;
    const double err = ok ? crel(cz(got), cplx(c[5], c[6])) : INFINITY;
    (is_bi ? bi : ai).add(err, c[7], std::abs(z));
  }
  ai.check();
  bi.check();
}

// The scale against which the error of I_order(x) or J_order(x) is taken
// where the function is near a zero: the sum of the magnitudes of the terms
// that make it up (I_{-v} = I_v + (2/pi) sin(v pi) K_v,
// J_{-v} = cos(v pi) J_v - sin(v pi) Y_v), and for J of positive order
// beyond its turning point, x > v, the modulus sqrt(J_v^2 + Y_v^2) of its
// oscillation.  Elsewhere the error is relative.
double term_scale(bool j, double order, double x) {
  const double v = std::fabs(order), pi = 3.14159265358979323846;
  if (x == 0.0 || (order >= 0.0 && (!j || x <= v))) return 0.0;
  ZemComplex p, q;
  int32_t nz;
  ZemError e = quiet();
  if (j) {
    s17dec(v, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &p, &nz, &e);
    s17dcc(v, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &q, &nz, &e);
    if (order >= 0.0) return std::hypot(p.re, q.re);
    return std::fabs(std::cos(pi * v) * p.re) + std::fabs(std::sin(pi * v) * q.re);
  }
  s18dec(v, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &p, &nz, &e);
  s18dcc(v, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &q, &nz, &e);
  return std::fabs(p.re) + 2.0 / pi * std::fabs(std::sin(pi * v) * q.re);
}

TEST(SComplex, RealOrderFamiliesAgainstReferences) {
  const auto rows = load_table("s_c_real.txt");
  ASSERT_GT(rows.size(), 250u);
  const char* names[] = {"s18egc", "s18ehc", "s18ejc", "s18ekc",
                         "s18ecc", "s18edc", "s18eec", "s18efc"};
  std::vector<Sweep> sweeps;
  for (const char* n : names) sweeps.emplace_back(n, "rel");
  for (const Case& c : rows) {
    const int r = static_cast<int>(c[0]);
    const double x = c[1];
    ZemError fail = quiet();
    if (r >= 4) {
      const int32_t nu = static_cast<int32_t>(c[2]);
      double (*f[])(double, int32_t, ZemError*) = {s18ecc, s18edc, s18eec, s18efc};
      const double got = f[r - 4](x, nu, &fail);
      sweeps[static_cast<std::size_t>(r)].add(
          fail.code == NE_NOERROR ? zem::test::rel_error(got, c[4]) : INFINITY, x);
      continue;
    }
    const double a = c[2];
    const int32_t nl = static_cast<int32_t>(c[3]);
    std::vector<double> out(static_cast<std::size_t>(std::abs(nl)) + 1, NAN);
    void (*f[])(double, double, int32_t, double[], ZemError*) = {s18egc, s18ehc, s18ejc, s18ekc};
    f[r](x, a, nl, out.data(), &fail);
    for (std::size_t k = 0; k < out.size(); ++k) {
      const double want = c[4 + k];
      const double order = nl >= 0 ? a + static_cast<double>(k) : a - static_cast<double>(k);
      // Below the normal range a relative error means nothing: the spacing
      // of subnormal numbers is fixed.
      const double scale = std::max(DBL_MIN, r >= 2 ? term_scale(r == 3, order, x) : 0.0);
      const double err = std::fabs(out[k] - want) / std::max(std::fabs(want), scale);
      sweeps[static_cast<std::size_t>(r)].add(fail.code == NE_NOERROR ? err : INFINITY, x);
    }
  }
  for (Sweep& s : sweeps) {
    s.print();
    EXPECT_LE(s.worst, kTarget) << s.name << " at " << s.at;
  }
}

TEST(SComplex, ComplexJSequenceAgainstReferences) {
  const auto rows = load_table("s_c_gk.txt");
  ASSERT_GT(rows.size(), 50u);
  Sweep s("s18gkc", "rel");
  for (const Case& c : rows) {
    const cplx z(c[0], c[1]);
    const double a = c[2];
    const int32_t nl = static_cast<int32_t>(c[3]);
    std::vector<ZemComplex> b(static_cast<std::size_t>(nl) + 1);
    ZemError fail = quiet();
    s18gkc(zc(z), a, nl, b.data(), &fail);
    // The envelope min(|H1|, |H2|)/2 of J is at least about the largest
    // member's size at high order and 1/sqrt(|z|) for |z| large.
    double env = 0.0;
    for (std::size_t k = 0; k < b.size(); ++k)
      env = std::max(env, std::abs(cplx(c[4 + 2 * k], c[5 + 2 * k])));
    for (std::size_t k = 0; k < b.size(); ++k) {
      const cplx want(c[4 + 2 * k], c[5 + 2 * k]);
      const double floor = 1e-3 * std::min(env, 1.0 / std::sqrt(std::abs(z)));
      const double err = fail.code == NE_NOERROR
                             ? std::abs(cz(b[k]) - want) / std::max(std::abs(want), floor)
                             : INFINITY;
      s.add(err, std::abs(z));
    }
  }
  s.print();
  EXPECT_LE(s.worst, kTarget) << "at " << s.at;
}

TEST(SComplex, GammaAndPolygammaAgainstReferences) {
  const auto rows = load_table("s_c_gamma.txt");
  ASSERT_GT(rows.size(), 500u);
  std::vector<Sweep> sweeps;
  sweeps.emplace_back("s14agc", "rel");
  for (int k = 0; k <= 4; ++k) sweeps.emplace_back("s14afc" + std::to_string(k), "rel");
  for (const Case& c : rows) {
    const int k = static_cast<int>(c[0]);
    const cplx z(c[1], c[2]), want(c[3], c[4]);
    ZemError fail = quiet();
    const cplx got = cz(k < 0 ? s14agc(zc(z), &fail) : s14afc(zc(z), k, &fail));
    // ln Gamma and psi have zeros: there the error is taken against 1.
    const double err = fail.code == NE_NOERROR
                           ? std::abs(got - want) / std::max(std::abs(want), 1.0)
                           : INFINITY;
    sweeps[static_cast<std::size_t>(k + 1)].add(err, std::abs(z));
  }
  for (Sweep& s : sweeps) {
    s.print();
    EXPECT_LE(s.worst, kTarget) << s.name << " at " << s.at;
  }
}

TEST(SComplex, FaddeevaAgainstReferences) {
  const auto rows = load_table("s_c_faddeeva.txt");
  ASSERT_GT(rows.size(), 500u);
  Pair p("s15ddc");
  for (const Case& c : rows) {
    const cplx z(c[0], c[1]), want(c[2], c[3]);
    ZemError fail = quiet();
    const cplx got = cz(s15ddc(zc(z), &fail));
    const bool ok = fail.code == NE_NOERROR || fail.code == NE_RESULT_HALF_PRECISION;
    p.add(ok ? crel(got, want) : INFINITY, c[4], std::abs(z));
  }
  p.check();
}

TEST(SComplex, BesselZerosAgainstReferences) {
  const auto rows = load_table("s_c_zeros.txt");
  ASSERT_GT(rows.size(), 40u);
  Sweep s("s17alc", "rel");
  for (const Case& c : rows) {
    const int mode = static_cast<int>(c[1]), n = static_cast<int>(c[2]);
    std::vector<double> x(static_cast<std::size_t>(n));
    ZemError fail = quiet();
    s17alc(c[0], n, mode, 1e-15, x.data(), &fail);
    for (int k = 0; k < n; ++k) {
      const double want = c[3 + static_cast<std::size_t>(k)];
      const double err = fail.code == NE_NOERROR ? std::fabs(x[static_cast<std::size_t>(k)] - want) /
                                                       std::max(want, 1.0)
                                                 : INFINITY;
      s.add(err, c[0]);
    }
  }
  s.print();
  EXPECT_LE(s.worst, 4 * kEps) << "at a = " << s.at;
}

// Large orders, beyond the reach of the reference tables: the zeros of J_a,
// Y_a, J'_a and Y'_a interlace, j'_1 < y_1 < y'_1 < j_1 < j'_2 < y_2 < ...,
// and at each zero the function is zero to the rounding of its evaluation.
TEST(SComplex, BesselZerosOfLargeOrder) {
  for (double a : {137.5, 1000.0, 12345.6, 100000.0}) {
    const int n = a > 2e4 ? 2 : 4;
    std::vector<double> z[4];
    for (int mode = 1; mode <= 4; ++mode) {
      z[mode - 1].resize(static_cast<std::size_t>(n));
      ZemError fail = quiet();
      s17alc(a, n, mode, 1e-14, z[mode - 1].data(), &fail);
      ASSERT_EQ(fail.code, NE_NOERROR) << a << " " << mode;
    }
    std::vector<double> merged;
    for (int k = 0; k < n; ++k)
      for (int mode : {3, 2, 4, 1}) merged.push_back(z[mode - 1][static_cast<std::size_t>(k)]);
    for (std::size_t i = 1; i < merged.size(); ++i) EXPECT_LT(merged[i - 1], merged[i]) << a << " " << i;
    for (int k = 0; k < n; ++k) {
      // J_a at its zero, against the size of the oscillation sqrt(J^2 + Y^2).
      const double x = z[0][static_cast<std::size_t>(k)];
      ZemComplex j, y;
      int32_t nz;
      ZemError e = quiet();
      s17dec(a, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &j, &nz, &e);
      s17dcc(a, ZemComplex{x, 0.0}, 1, Zem_UnscaleRes, &y, &nz, &e);
      EXPECT_LE(std::fabs(j.re), 1e-10 * std::hypot(j.re, y.re)) << a << " " << k;
    }
  }
}

// Identities between the routines, on arguments over the whole plane.
TEST(SComplex, Wronskians) {
  double worst = 0.0;
  const double pi = 3.14159265358979323846;
  for (int i = 0; i < 400; ++i) {
    const double r = std::pow(10.0, -1.5 + 3.5 * ((i * 37) % 100) / 100.0);
    const double th = -3.1 + 6.2 * ((i * 53) % 97) / 97.0;
    const cplx z = std::polar(r, th);
    const double fnu = 0.37 * (i % 23);
    ZemComplex j[2], y[2], in[2], kk[2], h[2], g[2];
    int32_t nz;
    ZemError f = quiet();
    s17dec(fnu, zc(z), 2, Zem_UnscaleRes, j, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    s17dcc(fnu, zc(z), 2, Zem_UnscaleRes, y, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    s18dec(fnu, zc(z), 2, Zem_UnscaleRes, in, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    s18dcc(fnu, zc(z), 2, Zem_UnscaleRes, kk, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    s17dlc(1, fnu, zc(z), 2, Zem_UnscaleRes, h, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    s17dlc(2, fnu, zc(z), 2, Zem_UnscaleRes, g, &nz, &f);
    ASSERT_EQ(f.code, NE_NOERROR);
    // J_{v+1} Y_v - J_v Y_{v+1} = 2/(pi z)
    const cplx w1 = cz(j[1]) * cz(y[0]) - cz(j[0]) * cz(y[1]);
    const double s1 = std::abs(cz(j[1]) * cz(y[0])) + std::abs(cz(j[0]) * cz(y[1]));
    worst = std::max(worst, std::abs(w1 - 2.0 / (pi * z)) / std::max(s1, std::abs(2.0 / (pi * z))));
    // I_v K_{v+1} + I_{v+1} K_v = 1/z
    const cplx w2 = cz(in[0]) * cz(kk[1]) + cz(in[1]) * cz(kk[0]);
    const double s2 = std::abs(cz(in[0]) * cz(kk[1])) + std::abs(cz(in[1]) * cz(kk[0]));
    worst = std::max(worst, std::abs(w2 - 1.0 / z) / std::max(s2, std::abs(1.0 / z)));
    // H1 + H2 = 2 J
    const cplx w3 = cz(h[0]) + cz(g[0]) - 2.0 * cz(j[0]);
    worst = std::max(worst, std::abs(w3) / (std::abs(cz(h[0])) + std::abs(cz(g[0]))));
    // Ai Bi' - Ai' Bi = 1/pi
    ZemComplex a, ap, b, bp;
    s17dgc(Zem_Function, zc(z), Zem_UnscaleRes, &a, &nz, &f);
    s17dgc(Zem_Deriv, zc(z), Zem_UnscaleRes, &ap, &nz, &f);
    s17dhc(Zem_Function, zc(z), Zem_UnscaleRes, &b, &f);
    s17dhc(Zem_Deriv, zc(z), Zem_UnscaleRes, &bp, &f);
    const cplx w4 = cz(a) * cz(bp) - cz(ap) * cz(b);
    const double s4 = std::abs(cz(a) * cz(bp)) + std::abs(cz(ap) * cz(b));
    worst = std::max(worst, std::abs(w4 - 1.0 / pi) / std::max(s4, 1.0 / pi));
  }
  std::printf("SWEEP %-8s %6d %10.3g rel at 0\n", "wronsk", 400, worst);
  EXPECT_LE(worst, 1e-14);
}

// The scaled forms are the unscaled ones times their factors, and the
// by-address forms return the same numbers.
TEST(SComplex, ScalingAndAddressForms) {
  const cplx z(3.7, -2.2);
  ZemComplex u[4], s[4], a[4];
  int32_t nz, ifail;
  ZemError f = quiet();
  s17dcc(1.3, zc(z), 4, Zem_UnscaleRes, u, &nz, &f);
  s17dcc(1.3, zc(z), 4, Zem_ScaleRes, s, &nz, &f);
  const double fnu = 1.3;
  const int32_t n = 4;
  const ZemComplex zz = zc(z);
  ifail = 1;
  s17dcf_f(&fnu, &zz, &n, "S", a, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 0);
  for (int k = 0; k < 4; ++k) {
    EXPECT_LE(crel(cz(s[k]), cz(u[k]) * std::exp(-std::fabs(z.imag()))), 1e-15);
    EXPECT_EQ(cz(a[k]), cz(s[k]));
  }
  s17dec(1.3, zc(z), 4, Zem_UnscaleRes, u, &nz, &f);
  ifail = 1;
  s17def_f(&fnu, &zz, &n, "u", a, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 0);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(cz(a[k]), cz(u[k]));
  // e^z K and e^-|Re z| I.
  s18dcc(0.6, zc(z), 2, Zem_UnscaleRes, u, &nz, &f);
  s18dcc(0.6, zc(z), 2, Zem_ScaleRes, s, &nz, &f);
  EXPECT_LE(crel(cz(s[1]), cz(u[1]) * std::exp(z)), 1e-15);
  s17dlc(1, 0.6, zc(z), 1, Zem_UnscaleRes, u, &nz, &f);
  s17dlc(1, 0.6, zc(z), 1, Zem_ScaleRes, s, &nz, &f);
  EXPECT_LE(crel(cz(s[0]), cz(u[0]) * std::exp(cplx(0, -1) * z)), 1e-15);
}

struct RowCase {
  const char* what;
  std::function<void(ZemError*)> call;
  int code;
  const char* text;  // a piece of the message, or null
};

TEST(SComplex, ErrorRows) {
  ZemComplex cy[3];
  int32_t nz = 0;
  const ZemComplex zero{0.0, 0.0}, one{1.0, 0.5};
  double out[200];
  const std::vector<RowCase> cases = {
      {"fnu < 0", [&](ZemError* f) { s17dec(-0.5, one, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_REAL_ARG_LT, "fnu"},
      {"K at 0", [&](ZemError* f) { s18dcc(0.5, zero, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_COMPLEX_ZERO, "z"},
      {"Y at 0", [&](ZemError* f) { s17dcc(0.5, zero, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_COMPLEX_ZERO, nullptr},
      {"n < 1", [&](ZemError* f) { s18dec(0.5, one, 0, Zem_UnscaleRes, cy, &nz, f); },
       NE_INT_ARG_LT, "n"},
      {"scal", [&](ZemError* f) { s18dec(0.5, one, 1, 12345, cy, &nz, f); }, NE_BAD_PARAM, "scal"},
      {"kind", [&](ZemError* f) { s17dlc(3, 0.5, one, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_ARG_INVALID, "m"},
      {"deriv", [&](ZemError* f) { s17dgc(77, one, Zem_UnscaleRes, cy, &nz, f); }, NE_BAD_PARAM,
       "deriv"},
      {"partial loss",
       [&](ZemError* f) { s17dec(0.0, ZemComplex{4.0e4, 0.0}, 1, Zem_UnscaleRes, cy, &nz, f); },
       NW_SOME_PRECISION_LOSS, "Results lack precision because abs(z) ="},
      {"partial loss order",
       [&](ZemError* f) { s17dec(4.0e4, ZemComplex{3.0e4, 1.0}, 1, Zem_ScaleRes, cy, &nz, f); },
       NW_SOME_PRECISION_LOSS, "fnu+n-1 ="},
      {"total loss",
       [&](ZemError* f) { s17dec(0.0, ZemComplex{2.0e9, 0.0}, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_TOTAL_PRECISION_LOSS, "No computation because abs(z) ="},
      {"total loss order",
       [&](ZemError* f) { s18dec(2.0e9, one, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_TOTAL_PRECISION_LOSS, "fnu+n-1 ="},
      {"overflow I", [&](ZemError* f) { s18dec(0.0, ZemComplex{800.0, 0.0}, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_OVERFLOW_LIKELY, nullptr},
      {"overflow K", [&](ZemError* f) { s18dcc(200.0, ZemComplex{1e-3, 0.0}, 1, Zem_UnscaleRes, cy, &nz, f); },
       NE_OVERFLOW_LIKELY, nullptr},
      {"Ai partial", [&](ZemError* f) { s17dgc(Zem_Function, ZemComplex{-2000.0, 0.0}, Zem_UnscaleRes, cy, &nz, f); },
       NW_SOME_PRECISION_LOSS, "abs(z)"},
      {"Bi total", [&](ZemError* f) { s17dhc(Zem_Function, ZemComplex{-2e6, 0.0}, Zem_UnscaleRes, cy, f); },
       NE_TOTAL_PRECISION_LOSS, nullptr},
      {"s18gkc a", [&](ZemError* f) { s18gkc(one, 1.0, 2, cy, f); }, NE_REAL, "0.0 <= a < 1.0"},
      {"s18gkc nl", [&](ZemError* f) { s18gkc(one, 0.5, 101, cy, f); }, NE_INT, "0 <= nl <= 100"},
      {"s18egc x", [&](ZemError* f) { s18egc(0.0, 0.5, 2, out, f); }, NE_REAL_ARG_LE, "x"},
      {"s18egc nl", [&](ZemError* f) { s18egc(1.0, 0.5, -1, out, f); }, NE_INT, "0 <= nl <= 100"},
      {"s18egc overflow", [&](ZemError* f) { s18egc(1e-5, 0.5, 100, out, f); }, NE_OVERFLOW_LIKELY, nullptr},
      {"s18ejc nl", [&](ZemError* f) { s18ejc(1.0, 0.5, 102, out, f); }, NE_INT, "abs(nl) <= 101"},
      {"s18ejc x", [&](ZemError* f) { s18ejc(-1.0, 0.5, 2, out, f); }, NE_REAL_ARG_LT, "x"},
      {"s18ekc a", [&](ZemError* f) { s18ekc(1.0, -0.1, 2, out, f); }, NE_REAL, "a"},
      {"s18ekc at 0", [&](ZemError* f) { s18ekc(0.0, 0.5, -2, out, f); }, NE_OVERFLOW_LIKELY, nullptr},
      {"s18efc overflow", [&](ZemError* f) { s18efc(800.0, 1, f); }, NE_OVERFLOW_LIKELY, nullptr},
      {"s18ecc nu", [&](ZemError* f) { s18ecc(1.0, 4, f); }, NE_INT, "1 <= abs(nu) <= 3"},
      {"s18ecc nu 0", [&](ZemError* f) { s18ecc(1.0, 0, f); }, NE_INT, nullptr},
      {"s18edc x", [&](ZemError* f) { s18edc(0.0, 1, f); }, NE_REAL_ARG_LE, nullptr},
      {"s18eec x", [&](ZemError* f) { s18eec(0.0, -2, f); }, NE_REAL_INT, nullptr},
      {"s14agc pole", [&](ZemError* f) { s14agc(ZemComplex{-3.0, 0.0}, f); }, NE_TOO_CLOSE_INTEGER, nullptr},
      {"s14afc k", [&](ZemError* f) { s14afc(one, 5, f); }, NE_INT, "0 <= k <= 4"},
      {"s14afc pole", [&](ZemError* f) { s14afc(ZemComplex{0.0, 0.0}, 1, f); }, NE_TOO_CLOSE_INTEGER, nullptr},
      {"s17alc a", [&](ZemError* f) { s17alc(-1.0, 2, 1, 1e-10, out, f); }, NE_REAL_ARG_LT, "a"},
      {"s17alc a big", [&](ZemError* f) { s17alc(2e5, 2, 1, 1e-10, out, f); }, NE_REAL_ARG_GT, "100000"},
      {"s17alc n", [&](ZemError* f) { s17alc(1.0, 0, 1, 1e-10, out, f); }, NE_INT_ARG_LT, "n"},
      {"s17alc mode", [&](ZemError* f) { s17alc(1.0, 2, 5, 1e-10, out, f); }, NE_ARG_INVALID, "mode"},
      {"s17alc rel", [&](ZemError* f) { s17alc(1.0, 2, 1, 0.0, out, f); }, NE_REAL_ARG_LE, "rel"},
      {"s15ddc overflow", [&](ZemError* f) { s15ddc(ZemComplex{1.0, -30.0}, f); }, NE_RESULT_OVERFLOW, nullptr},
      {"s15ddc half", [&](ZemError* f) { s15ddc(ZemComplex{1.0e4, -1.0e4}, f); }, NE_RESULT_HALF_PRECISION, nullptr},
      {"s15ddc none", [&](ZemError* f) { s15ddc(ZemComplex{1.0e8, -1.0e8}, f); }, NE_RESULT_NO_PRECISION, nullptr},
  };
  for (const RowCase& c : cases) {
    ZemError f = quiet();
    f.code = -1;
    c.call(&f);
    EXPECT_EQ(f.code, c.code) << c.what << ": " << f.message;
    if (c.text) {
      EXPECT_NE(std::strstr(f.message, c.text), nullptr) << c.what << ": " << f.message;
    }
  }
}

// Limits that are computed: values at and near them, and the underflow count.
TEST(SComplex, EdgeValues) {
  ZemComplex cy[3];
  int32_t nz = -1;
  ZemError f = quiet();
  // J_0(0) = 1, J_v(0) = 0 for v > 0; I likewise.
  s17dec(0.0, ZemComplex{0.0, 0.0}, 3, Zem_UnscaleRes, cy, &nz, &f);
  EXPECT_EQ(f.code, NE_NOERROR);
  EXPECT_EQ(cz(cy[0]), cplx(1.0, 0.0));
  EXPECT_EQ(cz(cy[2]), cplx(0.0, 0.0));
  // K of large argument underflows unscaled: all members set to zero and
  // counted; scaled, it is about sqrt(pi/(2z)).
  s18dcc(0.0, ZemComplex{1000.0, 0.0}, 3, Zem_UnscaleRes, cy, &nz, &f);
  EXPECT_EQ(f.code, NE_NOERROR);
  EXPECT_EQ(nz, 3);
  EXPECT_EQ(cz(cy[1]), cplx(0.0, 0.0));
  s18dcc(0.0, ZemComplex{1000.0, 0.0}, 1, Zem_ScaleRes, cy, &nz, &f);
  EXPECT_EQ(nz, 0);
  // Hankel's expansion: sqrt(pi/(2x)) (1 - 1/(8x) + 9/(2(8x)^2) - 225/(6(8x)^3) + ...).
  EXPECT_NEAR(cy[0].re,
              std::sqrt(3.14159265358979323846 / 2000.0) *
                  (1.0 - 1.0 / 8000.0 + 9.0 / 1.28e8 - 225.0 / 3.072e12),
              1e-14);
  // Ai of large positive z: unscaled underflow, nz = 1.
  s17dgc(Zem_Function, ZemComplex{200.0, 0.0}, Zem_UnscaleRes, cy, &nz, &f);
  EXPECT_EQ(nz, 1);
  // The precision warning leaves usable results:
  // J_0(x) ~ sqrt(2/(pi x)) (cos w + sin w/(8x)), w = x - pi/4.
  s17dec(0.0, ZemComplex{4.0e4, 0.0}, 1, Zem_UnscaleRes, cy, &nz, &f);
  EXPECT_EQ(f.code, NW_SOME_PRECISION_LOSS);
  const double x = 4.0e4, env = std::sqrt(2.0 / (3.14159265358979323846 * x));
  const double w = x - 0.78539816339744830962;
  EXPECT_NEAR(cy[0].re, env * (std::cos(w) + std::sin(w) / (8.0 * x)), 1e-11);
  // The by-address form reports through its mode word.
  const double fnu = -1.0;
  const int32_t n = 1;
  const ZemComplex z{1.0, 0.0};
  int32_t ifail = 1;
  s17def_f(&fnu, &z, &n, "U", cy, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 1);
  const double big = 0.0;
  const ZemComplex z0{0.0, 0.0};
  ifail = 1;
  s17dcf_f(&big, &z0, &n, "U", cy, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 1);
  const ZemComplex zbig{2e9, 0.0};
  ifail = 1;
  s17def_f(&big, &zbig, &n, "U", cy, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 4);
  ifail = 1;
  s17def_f(&big, &z, &n, "Q", cy, &nz, &ifail, 1);
  EXPECT_EQ(ifail, 1);
}

}  // namespace
