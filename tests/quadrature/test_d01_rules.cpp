// The building blocks of the quadrature routines against independent
// references (tests/data/d01_rules.txt, from tools/d01_rule_refs.py): the
// Gauss-Kronrod tables, the fixed Gauss rules, the Chebyshev expansion and
// the moments of the weights.  The fixed rules must also integrate
// polynomials of degree 2n-1 exactly.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "quadrature/kronrod.hpp"
#include "quadrature/rules.hpp"
#include "zem/d01.h"

namespace {

std::vector<std::vector<double>> section(const std::string& head, int rows) {
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/d01_rules.txt");
  std::string line;
  std::vector<std::vector<double>> out;
  while (std::getline(in, line))
    if (line == head) break;
  for (int r = 0; r < rows && std::getline(in, line); ++r) {
    std::istringstream s(line);
    std::vector<double> v;
    double x;
    while (s >> x) v.push_back(x);
    out.push_back(v);
  }
  EXPECT_EQ(static_cast<int>(out.size()), rows) << "section " << head << " missing";
  return out;
}

ZemError quiet() {
  ZemError e;
  std::memset(&e, 0, sizeof e);
  return e;
}

TEST(D01Rules, KronrodTablesMatchThePublishedValues) {
  const struct {
    const zem::quad::KronrodTable* t;
    const char* head;
  } tables[] = {{&zem::quad::kKronrod15, "kronrod 15 8"},
                {&zem::quad::kKronrod21, "kronrod 21 11"},
                {&zem::quad::kKronrod61, "kronrod 61 31"}};
  for (const auto& tb : tables) {
    const auto ref = section(tb.head, tb.t->n);
    int g = 0;
    for (int i = 0; i < tb.t->n && i < static_cast<int>(ref.size()); ++i) {
      EXPECT_NEAR(tb.t->xgk[i], ref[i][0], 1e-16) << tb.head << " node " << i;
      EXPECT_NEAR(tb.t->wgk[i], ref[i][1], 2e-17) << tb.head << " weight " << i;
      if (ref[i][2] != 0.0) {
        EXPECT_NEAR(tb.t->wg[g++], ref[i][2], 2e-17) << tb.head;
      }
    }
    // The rule is exact for polynomials of degree 3m+1 (m Gauss points):
    // x^k on [0, 1] for every even and odd k up to that degree.
    const int m = (tb.t->points() - 1) / 2;
    for (int k = 0; k <= 3 * m + 1; ++k) {
      auto f = [k](double x) { return std::pow(x, k); };
      const auto e = zem::quad::gauss_kronrod(*tb.t, f, 0.0, 1.0);
      EXPECT_NEAR(e.result, 1.0 / (k + 1), 4e-16) << tb.head << " degree " << k;
    }
  }
}

TEST(D01Rules, GaussRulesMatchReferenceNodesAndWeights) {
  const struct {
    int32_t rule;
    const char* name;
    int n;
  } cases[] = {{Zem_Legendre, "legendre", 5},  {Zem_Legendre, "legendre", 20},
               {Zem_Legendre, "legendre", 64}, {Zem_Laguerre, "laguerre", 5},
               {Zem_Laguerre, "laguerre", 20}, {Zem_Hermite, "hermite", 6},
               {Zem_Hermite, "hermite", 20}};
  for (const auto& c : cases) {
    const auto ref = section(std::string("gauss ") + c.name + " " + std::to_string(c.n), c.n);
    std::vector<double> w(c.n), x(c.n);
    ZemError fail = quiet();
    // The canonical forms: [-1, 1]; exp(-x) on [0, inf); exp(-x^2).
    const double a = c.rule == Zem_Legendre ? -1.0 : 0.0;
    d01bbc(c.rule, a, 1.0, c.n, w.data(), x.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
    for (int i = 0; i < c.n && i < static_cast<int>(ref.size()); ++i) {
      EXPECT_NEAR(x[i], ref[i][0], 4e-15 * std::fmax(1.0, std::fabs(ref[i][0])))
          << c.name << c.n << " node " << i;
      EXPECT_NEAR(w[i], ref[i][1], 4e-13 * ref[i][1]) << c.name << c.n << " weight " << i;
    }
  }
}

// Each rule integrates the polynomials of degree up to 2n-1 exactly, on
// mapped ranges; the rational rule integrates (x+b)^-k, k = 2..2n+1.  The
// tolerance is relative to the sum of the magnitudes of the terms, the
// rounding level of the sum.
TEST(D01Rules, FixedRulesArePolynomialExact) {
  for (int n : {1, 2, 7, 16, 40}) {
    std::vector<double> w(n), x(n);
    ZemError fail = quiet();
    auto check = [&](int32_t rule, double a, double b, int k, auto term, double ref,
                     const char* what) {
      d01bbc(rule, a, b, n, w.data(), x.data(), &fail);
      ASSERT_EQ(fail.code, 0) << what;
      double s = 0.0, mag = 0.0;
      for (int i = 0; i < n; ++i) {
        s += w[i] * term(x[i]);
        mag += std::fabs(w[i] * term(x[i]));
      }
      EXPECT_NEAR(s, ref, 1e-13 * mag) << what << " n=" << n << " k=" << k;
    };
    for (int k = 0; k < 2 * n; ++k) {
      auto pk = [k](double y) { return std::pow(y, k); };
      // Legendre on [-0.5, 2]: int x^k = (2^(k+1) - (-0.5)^(k+1)) / (k+1).
      check(Zem_Legendre, -0.5, 2.0, k, pk,
            (std::pow(2.0, k + 1) - std::pow(-0.5, k + 1)) / (k + 1), "Legendre");
      // Laguerre, exp(-2 (x-1)) on [1, inf) with (x-1)^k: k! / 2^(k+1);
      // b < 0 integrates over (-inf, 1] with (1-x)^k.
      const double lref = std::tgamma(k + 1.0) / std::pow(2.0, k + 1);
      check(Zem_Laguerre, 1.0, 2.0, k, [&](double y) { return pk(y - 1.0); }, lref, "Laguerre");
      check(Zem_Laguerre, 1.0, -2.0, k, [&](double y) { return pk(1.0 - y); }, lref,
            "Laguerre b<0");
      // Hermite, exp(-4 (x-0.5)^2) with (x-0.5)^k: Gamma((k+1)/2) / 2^(k+1)
      // for even k, 0 for odd.
      const double href = k % 2 ? 0.0 : std::tgamma((k + 1) / 2.0) / std::pow(2.0, k + 1);
      check(Zem_Hermite, 0.5, 4.0, k, [&](double y) { return pk(y - 0.5); }, href, "Hermite");
      // Rational, over [1, inf) with b = 2: int (x+2)^-(k+2) = 3^-(k+1) / (k+1);
      // and over (-inf, -3] with b = 2: int |x+2|^-(k+2) = 1 / (k+1).
      check(Zem_Rational, 1.0, 2.0, k, [&](double y) { return std::pow(y + 2.0, -(k + 2)); },
            std::pow(3.0, -(k + 1)) / (k + 1), "Rational");
      check(Zem_Rational, -3.0, 2.0, k,
            [&](double y) { return std::pow(std::fabs(y + 2.0), -(k + 2)); }, 1.0 / (k + 1),
            "Rational a+b<0");
    }
  }
}

// Large rules: weights that would underflow are reported and set to zero,
// and what remains still integrates exp(-x) correctly.
TEST(D01Rules, LargeLaguerreAndHermiteRules) {
  const int n = 1000;
  std::vector<double> w(n), x(n);
  ZemError fail = quiet();
  d01bbc(Zem_Hermite, 0.0, 1.0, 200, w.data(), x.data(), &fail);
  EXPECT_EQ(fail.code, 0);
  double s = 0.0;
  for (int i = 0; i < 200; ++i) s += w[i];
  EXPECT_NEAR(s, std::sqrt(3.14159265358979323846), 1e-13);
  d01bbc(Zem_Laguerre, 0.0, 1.0, n, w.data(), x.data(), &fail);
  EXPECT_EQ(fail.code, NE_QUAD_GAUSS_LAG_HER_WTS);
  s = 0.0;
  double s1 = 0.0;
  for (int i = 0; i < n; ++i) {
    s += w[i];
    s1 += w[i] * x[i];
    if (i > 0) {
      EXPECT_LT(x[i - 1], x[i]);
    }
  }
  // The recurrence loses about n rounding units in the weights.
  EXPECT_NEAR(s, 1.0, 1e-10);
  EXPECT_NEAR(s1, 1.0, 1e-10);
  EXPECT_EQ(w[n - 1], 0.0);
  d01bbc(Zem_Hermite, 0.0, 1.0, n, w.data(), x.data(), &fail);
  EXPECT_EQ(fail.code, NE_QUAD_GAUSS_LAG_HER_WTS);
}

TEST(D01Rules, FourierMomentsAgainstQuadrature) {
  for (const char* par : {"3", "10", "23.5", "30", "-7"}) {
    const auto ref = section(std::string("fourier ") + par, 1);
    double m[25];
    zem::quad::fourier_moments(std::atof(par), m);
    for (int k = 0; k < 25 && ref.size() == 1; ++k)
      EXPECT_NEAR(m[k], ref[0][k], 2e-14) << "par " << par << " k " << k;
  }
}

TEST(D01Rules, AlgebraicLogarithmicMoments) {
  for (const auto& ab : {std::pair<const char*, const char*>{"-0.5", "0.3"}, {"0", "0"}, {"2.5", "-0.7"}}) {
    const auto ref = section(std::string("alglog ") + ab.first + " " + ab.second, 4);
    zem::quad::AlgLogMoments m;
    m.compute(std::atof(ab.first), std::atof(ab.second));
    const double* got[4] = {m.ri, m.rj, m.rg, m.rh};
    for (int r = 0; r < 4 && ref.size() == 4; ++r)
      for (int k = 0; k < 25; ++k)
        EXPECT_NEAR(got[r][k], ref[r][k], 1e-13 * std::fmax(1.0, std::fabs(ref[r][k])))
            << ab.first << " " << ab.second << " row " << r << " k " << k;
  }
}

// The Chebyshev expansion reproduces T_j exactly, and the two degrees agree
// on polynomials of degree 12.
TEST(D01Rules, ChebyshevExpansionOfChebyshevPolynomials) {
  for (int j = 0; j <= 24; ++j) {
    auto t = [j](double x) { return std::cos(j * std::acos(std::fmax(-1.0, std::fmin(1.0, x)))); };
    double fval[25], c12[13], c24[25];
    zem::quad::sample25(t, -1.0, 1.0, fval);
    zem::quad::chebyshev_expand(fval, c12, c24);
    for (int k = 0; k <= 24; ++k) EXPECT_NEAR(c24[k], k == j ? 1.0 : 0.0, 1e-14) << j << " " << k;
    if (j <= 11) {
      for (int k = 0; k <= 12; ++k) EXPECT_NEAR(c12[k], k == j ? 1.0 : 0.0, 1e-14) << j << " " << k;
    }
  }
}

}  // namespace
