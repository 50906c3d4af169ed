// Nodes and weights of the Gauss rules by Newton's method on the three-term
// recurrences.  The Legendre nodes start from the classical asymptotic
// values (Press, Teukolsky, Vetterling and Flannery, Numerical Recipes,
// section 4.5); the Laguerre and Hermite nodes start from the eigenvalues
// of the Jacobi matrix of the recurrence (Golub and Welsch, Math. Comp. 23,
// 1969), which stay reliable for large rules where the classical starting
// values fail.  Those recurrences are rescaled as they grow and the weights
// formed from logarithms, so that large rules neither overflow nor lose
// their small weights before the final underflow test.
#include "quadrature/gauss.hpp"

#include <cmath>
#include <vector>

#include "zem/x02.h"

extern "C" void dsterf_(const int* n, double* d, double* e, int* info);

namespace zem::quad {
namespace {

constexpr double kPi = 3.141592653589793238462643383279502884;
constexpr double kBig = 1e150;
const double kLogBig = std::log(kBig);

// Gauss-Legendre on [-1, 1]: nodes increasing.
void legendre(int n, double* w, double* x) {
  const int m = (n + 1) / 2;
  for (int i = 0; i < m; ++i) {
    double z = std::cos(kPi * (i + 0.75) / (n + 0.5)), pp = 1.0;
    for (int it = 0; it < 100; ++it) {
      double p1 = 1.0, p2 = 0.0;
      for (int j = 1; j <= n; ++j) {
        const double p3 = p2;
        p2 = p1;
        p1 = ((2.0 * j - 1.0) * z * p2 - (j - 1.0) * p3) / j;
      }
      pp = n * (z * p1 - p2) / (z * z - 1.0);
      const double z1 = z;
      z = z1 - p1 / pp;
      if (std::fabs(z - z1) <= 1e-16) {
        if (it > 0) break;
      }
    }
    if (n % 2 == 1 && i == m - 1) z = 0.0;
    x[i] = -z;
    x[n - 1 - i] = z;
    w[i] = w[n - 1 - i] = 2.0 / ((1.0 - z * z) * pp * pp);
  }
}

// The eigenvalues, in increasing order, of the symmetric tridiagonal
// matrix with diagonal d[0..n-1] and off-diagonal e[0..n-2] (LAPACK's
// dsterf); d is overwritten.
bool eigenvalues(int n, double* d, std::vector<double>& e) {
  int info = 0;
  if (n > 1) dsterf_(&n, d, e.data(), &info);
  return info == 0;
}

// Gauss-Laguerre for exp(-t) on [0, inf): nodes increasing, weights as
// logarithms.
void laguerre(int n, double* logw, double* x) {
  std::vector<double> e(n > 1 ? n - 1 : 1);
  for (int k = 0; k < n; ++k) x[k] = 2.0 * k + 1.0;
  for (int k = 1; k < n; ++k) e[k - 1] = k;
  eigenvalues(n, x, e);
  for (int i = 0; i < n; ++i) {
    double z = x[i], pp = 1.0, p2 = 0.0, scale = 0.0;
    for (int it = 0; it < 20; ++it) {
      double p1 = 1.0;
      p2 = 0.0;
      scale = 0.0;
      for (int j = 0; j < n; ++j) {
        const double p3 = p2;
        p2 = p1;
        p1 = ((2.0 * j + 1.0 - z) * p2 - j * p3) / (j + 1.0);
        if (std::fabs(p1) > kBig) {
          p1 /= kBig;
          p2 /= kBig;
          scale += kLogBig;
        }
      }
      pp = (n * p1 - n * p2) / z;
      const double z1 = z;
      z = z1 - p1 / pp;
      if (std::fabs(z - z1) <= 1e-15 * std::fabs(z)) break;
    }
    x[i] = z;
    // w = -1 / (n L_n'(z) L_{n-1}(z)).
    logw[i] = -std::log(n * std::fabs(pp * p2)) - 2.0 * scale;
  }
}

// Gauss-Hermite for exp(-t^2) on (-inf, inf): nodes increasing, weights as
// logarithms.  Orthonormal recurrence.
void hermite(int n, double* logw, double* x) {
  const double pim4 = 0.7511255444649425;  // pi^(-1/4)
  std::vector<double> e(n > 1 ? n - 1 : 1);
  for (int k = 0; k < n; ++k) x[k] = 0.0;
  for (int k = 1; k < n; ++k) e[k - 1] = std::sqrt(0.5 * k);
  eigenvalues(n, x, e);
  for (int i = n / 2; i < n; ++i) {
    double z = (n % 2 == 1 && i == n / 2) ? 0.0 : x[i], pp = 1.0, scale = 0.0;
    for (int it = 0; it < 20; ++it) {
      double p1 = pim4, p2 = 0.0;
      scale = 0.0;
      for (int j = 1; j <= n; ++j) {
        const double p3 = p2;
        p2 = p1;
        p1 = z * std::sqrt(2.0 / j) * p2 - std::sqrt((j - 1.0) / j) * p3;
        if (std::fabs(p1) > kBig) {
          p1 /= kBig;
          p2 /= kBig;
          scale += kLogBig;
        }
      }
      pp = std::sqrt(2.0 * n) * p2;
      if (n % 2 == 1 && i == n / 2) break;  // the middle node is 0
      const double z1 = z;
      z = z1 - p1 / pp;
      if (std::fabs(z - z1) <= 1e-15 * std::fmax(1.0, std::fabs(z))) break;
    }
    // Symmetric: the node and its mirror image share the weight
    // 2 / p_n'(z)^2.
    x[i] = z;
    x[n - 1 - i] = -z;
    logw[i] = logw[n - 1 - i] = std::log(2.0) - 2.0 * std::log(std::fabs(pp)) - 2.0 * scale;
  }
}

}  // namespace

bool gauss_rule(GaussKind kind, double a, double b, int n, double* weight, double* abscis) {
  const double log_tiny = std::log(x02akc());
  bool ok = true;
  auto from_log = [&](double logw) {
    if (logw < log_tiny) {
      ok = false;
      return 0.0;
    }
    return std::exp(logw);
  };
  switch (kind) {
    case GaussKind::Legendre: {
      legendre(n, weight, abscis);
      const double c = 0.5 * (a + b), h = 0.5 * (b - a);
      for (int i = 0; i < n; ++i) {
        abscis[i] = c + h * abscis[i];
        weight[i] *= h;
      }
      break;
    }
    case GaussKind::Rational: {
      // y = (a+b)/(x+b) in (0, 1]: x = -b + (a+b)/y, dx = |a+b|/y^2 dy.
      legendre(n, weight, abscis);
      const double s = a + b;
      for (int i = 0; i < n; ++i) {
        const double y = 0.5 * (1.0 + abscis[i]);
        abscis[i] = -b + s / y;
        weight[i] = 0.5 * weight[i] * std::fabs(s) / (y * y);
      }
      break;
    }
    case GaussKind::Laguerre: {
      laguerre(n, weight, abscis);
      const double logb = std::log(std::fabs(b));
      for (int i = 0; i < n; ++i) {
        abscis[i] = a + abscis[i] / b;
        weight[i] = from_log(weight[i] - logb);
      }
      break;
    }
    case GaussKind::Hermite: {
      hermite(n, weight, abscis);
      const double r = std::sqrt(b), logr = std::log(r);
      for (int i = 0; i < n; ++i) {
        abscis[i] = a + abscis[i] / r;
        weight[i] = from_log(weight[i] - logr);
      }
      break;
    }
  }
  return ok;
}

}  // namespace zem::quad
