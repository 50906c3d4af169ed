// Test problems of the c05 chapter, shared by the tests and the benchmarks.
//
// Scalar: the fifteen families of Alefeld, Potra and Shi, "Algorithm 748:
// Enclosing zeros of continuous functions", ACM TOMS 21(3), 1995, and a few
// simple ones; the cases and their reference zeros are in
// tests/data/c05_bracket_roots.txt (tools/c05_bracket_refs.py).
//
// Systems: the fourteen nonlinear systems of More, Garbow and Hillstrom,
// "Testing unconstrained optimization software", ACM TOMS 7(1), 1981, in
// their equation form (Wood and Watson as the gradient of their sums of
// squares), with their Jacobians and standard starting points.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace c05test {

// ---------------------------------------------------------------- scalar
inline double scalar_f(int fam, int n, double x) {
  switch (fam) {
    case 1: return std::sin(x) - x / 2;
    case 2: {
      double s = 0.0;
      for (int i = 1; i <= 20; ++i) {
        const double d = x - i * i;
        s += (2 * i - 5) * (2 * i - 5) / (d * d * d);
      }
      return -2.0 * s;
    }
    case 3: {
      const double a[] = {0, -40, -100, -200}, b[] = {0, -1, -2, -3};
      return a[n] * x * std::exp(b[n] * x);
    }
    case 4: return std::pow(x, n / 10) - ((n % 10 == 1) ? 0.2 : 1.0);
    case 5: return std::sin(x) - 0.5;
    case 6: return 2 * x * std::exp(-n) - 2 * std::exp(-n * x) + 1;
    case 7: return (1.0 + (1 - n) * (1 - n)) * x - (1 - n * x) * (1 - n * x);
    case 8: return x * x - std::pow(1 - x, n);
    case 9: return (1.0 + std::pow(1 - n, 4)) * x - std::pow(1 - n * x, 4);
    case 10: return std::exp(-n * x) * (x - 1) + std::pow(x, n);
    case 11: return (n * x - 1) / ((n - 1) * x);
    case 12: return std::pow(x, 1.0 / n) - std::pow(double(n), 1.0 / n);
    case 13: return x == 0.0 ? 0.0 : x * std::exp(-1.0 / (x * x));
    case 14: return x >= 0 ? n / 20.0 * (x / 1.5 + std::sin(x) - 1) : -n / 20.0;
    case 15: {
      const double lim = 2e-3 / (1 + n);
      if (x > lim) return std::exp(1.0) - 1.859;
      if (x >= 0) return std::exp((n + 1) * x / 2 * 1000) - 1.859;
      return -0.859;
    }
    case 16: return std::cos(x) - x;
    case 17: return x * x * x - 2 * x - 5;
    case 18: return x - 0.8 * std::sin(x) - 1;
    case 19: return std::exp(x) - 2;
    case 20: return 1 / std::sqrt(x) + 2 * std::log10(1e-4 / 3.7 + 2.51 / (1e5 * std::sqrt(x)));
  }
  return NAN;
}

struct ScalarCase {
  int fam, n;
  double a, b;
  double root;  // rounded reference
  std::string root_text;
};

inline std::vector<ScalarCase> load_scalar_cases(const std::string& path) {
  std::vector<ScalarCase> out;
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream is(line);
    ScalarCase c;
    std::string a, b;
    is >> c.fam >> c.n >> a >> b >> c.root_text;
    c.a = std::strtod(a.c_str(), nullptr);
    c.b = std::strtod(b.c_str(), nullptr);
    c.root = std::strtod(c.root_text.c_str(), nullptr);
    out.push_back(c);
  }
  return out;
}

// ---------------------------------------------------------------- systems
struct SystemCase {
  int prob;       // 1..14
  int n;
  double factor;  // multiple of the standard starting point
  const char* name;
};

inline const char* system_name(int prob) {
  static const char* names[] = {"",
                                "Rosenbrock",
                                "Powell singular",
                                "Powell badly scaled",
                                "Wood",
                                "helical valley",
                                "Watson",
                                "Chebyquad",
                                "Brown almost-linear",
                                "discrete boundary value",
                                "discrete integral equation",
                                "trigonometric",
                                "variably dimensioned",
                                "Broyden tridiagonal",
                                "Broyden banded"};
  return names[prob];
}

// The standard cases: the dimensions of the MINPACK test driver, started at
// 1 and 10 times the standard point.
inline std::vector<SystemCase> system_cases() {
  const int dims[][2] = {{1, 2}, {2, 4}, {3, 2}, {4, 4}, {5, 3}, {6, 6}, {6, 9}, {7, 5},
                         {7, 6}, {7, 7}, {7, 8}, {7, 9}, {8, 10}, {8, 30}, {9, 10}, {10, 1},
                         {10, 10}, {11, 10}, {12, 10}, {13, 10}, {14, 10}};
  std::vector<SystemCase> out;
  for (auto& d : dims)
    for (double factor : {1.0, 10.0}) out.push_back({d[0], d[1], factor, system_name(d[0])});
  return out;
}

inline void start_point(int prob, int n, double factor, double* x) {
  const double h = 1.0 / (n + 1);
  for (int j = 0; j < n; ++j) {
    double v = 0.0;
    switch (prob) {
      case 1: v = (j == 0) ? -1.2 : 1.0; break;
      case 2: { const double s[] = {3, -1, 0, 1}; v = s[j]; break; }
      case 3: v = (j == 0) ? 0.0 : 1.0; break;
      case 4: { const double s[] = {-3, -1, -3, -1}; v = s[j]; break; }
      case 5: v = (j == 0) ? -1.0 : 0.0; break;
      case 6: v = 0.0; break;
      case 7: v = (j + 1) * h; break;
      case 8: v = 0.5; break;
      case 9:
      case 10: { const double t = (j + 1) * h; v = t * (t - 1); break; }
      case 11: v = 1.0 / n; break;
      case 12: v = 1.0 - double(j + 1) / n; break;
      case 13:
      case 14: v = -1.0; break;
    }
    x[j] = factor * v;
  }
  // Watson's start is zero: its multiples are the factor itself.
  if (factor != 1.0 && prob == 6)
    for (int j = 0; j < n; ++j) x[j] = factor;
}

// f(x) into fvec.
inline void system_f(int prob, int n, const double* x, double* f) {
  const double pi2 = 8.0 * std::atan(1.0);
  switch (prob) {
    case 1:
      f[0] = 1.0 - x[0];
      f[1] = 10.0 * (x[1] - x[0] * x[0]);
      return;
    case 2:
      f[0] = x[0] + 10.0 * x[1];
      f[1] = std::sqrt(5.0) * (x[2] - x[3]);
      f[2] = (x[1] - 2 * x[2]) * (x[1] - 2 * x[2]);
      f[3] = std::sqrt(10.0) * (x[0] - x[3]) * (x[0] - x[3]);
      return;
    case 3:
      f[0] = 1e4 * x[0] * x[1] - 1.0;
      f[1] = std::exp(-x[0]) + std::exp(-x[1]) - 1.0001;
      return;
    case 4: {
      const double t1 = x[1] - x[0] * x[0], t2 = x[3] - x[2] * x[2];
      f[0] = -200.0 * x[0] * t1 - (1.0 - x[0]);
      f[1] = 200.0 * t1 + 20.2 * (x[1] - 1.0) + 19.8 * (x[3] - 1.0);
      f[2] = -180.0 * x[2] * t2 - (1.0 - x[2]);
      f[3] = 180.0 * t2 + 20.2 * (x[3] - 1.0) + 19.8 * (x[1] - 1.0);
      return;
    }
    case 5: {
      double th = std::copysign(0.25, x[1]);
      if (x[0] > 0) th = std::atan(x[1] / x[0]) / pi2;
      if (x[0] < 0) th = std::atan(x[1] / x[0]) / pi2 + 0.5;
      f[0] = 10.0 * (x[2] - 10.0 * th);
      f[1] = 10.0 * (std::hypot(x[0], x[1]) - 1.0);
      f[2] = x[2];
      return;
    }
    case 6: {
      for (int k = 0; k < n; ++k) f[k] = 0.0;
      for (int i = 1; i <= 29; ++i) {
        const double ti = i / 29.0;
        double s1 = 0.0, s2 = 0.0, p = 1.0;
        for (int j = 1; j < n; ++j) { s1 += j * p * x[j]; p *= ti; }
        p = 1.0;
        for (int j = 0; j < n; ++j) { s2 += p * x[j]; p *= ti; }
        const double r = s1 - s2 * s2 - 1.0;
        const double t2 = 2.0 * ti * s2;
        p = 1.0 / ti;
        for (int k = 0; k < n; ++k) { f[k] += p * (k - t2) * r; p *= ti; }
      }
      const double t = x[1] - x[0] * x[0] - 1.0;
      f[0] += x[0] * (1.0 - 2.0 * t);
      f[1] += t;
      return;
    }
    case 7: {
      for (int k = 0; k < n; ++k) f[k] = 0.0;
      for (int j = 0; j < n; ++j) {
        double t1 = 1.0, t2 = 2.0 * x[j] - 1.0;
        const double t = 2.0 * t2;
        for (int i = 0; i < n; ++i) {
          f[i] += t2;
          const double ti = t * t2 - t1;
          t1 = t2;
          t2 = ti;
        }
      }
      for (int k = 0; k < n; ++k) {
        f[k] /= n;
        if ((k + 1) % 2 == 0) f[k] += 1.0 / ((k + 1.0) * (k + 1.0) - 1.0);
      }
      return;
    }
    case 8: {
      double sum = -(n + 1.0), prod = 1.0;
      for (int j = 0; j < n; ++j) { sum += x[j]; prod *= x[j]; }
      for (int k = 0; k < n; ++k) f[k] = x[k] + sum;
      f[n - 1] = prod - 1.0;
      return;
    }
    case 9: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double u = x[k] + (k + 1) * h + 1.0;
        const double xl = k > 0 ? x[k - 1] : 0.0, xr = k < n - 1 ? x[k + 1] : 0.0;
        f[k] = 2.0 * x[k] - xl - xr + u * u * u * h * h / 2.0;
      }
      return;
    }
    case 10: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double tk = (k + 1) * h;
        double s1 = 0.0, s2 = 0.0;
        for (int j = 0; j <= k; ++j) {
          const double tj = (j + 1) * h, u = x[j] + tj + 1.0;
          s1 += tj * u * u * u;
        }
        for (int j = k + 1; j < n; ++j) {
          const double tj = (j + 1) * h, u = x[j] + tj + 1.0;
          s2 += (1.0 - tj) * u * u * u;
        }
        f[k] = x[k] + h * ((1.0 - tk) * s1 + tk * s2) / 2.0;
      }
      return;
    }
    case 11: {
      double sum = 0.0;
      for (int j = 0; j < n; ++j) sum += std::cos(x[j]);
      for (int k = 0; k < n; ++k)
        f[k] = (n + k + 1.0) - std::sin(x[k]) - sum - (k + 1.0) * std::cos(x[k]);
      return;
    }
    case 12: {
      double s = 0.0;
      for (int j = 0; j < n; ++j) s += (j + 1.0) * (x[j] - 1.0);
      const double t = s * (1.0 + 2.0 * s * s);
      for (int k = 0; k < n; ++k) f[k] = x[k] - 1.0 + (k + 1.0) * t;
      return;
    }
    case 13:
      for (int k = 0; k < n; ++k) {
        const double xl = k > 0 ? x[k - 1] : 0.0, xr = k < n - 1 ? x[k + 1] : 0.0;
        f[k] = (3.0 - 2.0 * x[k]) * x[k] - xl - 2.0 * xr + 1.0;
      }
      return;
    case 14:
      for (int k = 0; k < n; ++k) {
        double t = 0.0;
        for (int j = std::max(0, k - 5); j <= std::min(k + 1, n - 1); ++j)
          if (j != k) t += x[j] * (1.0 + x[j]);
        f[k] = x[k] * (2.0 + 5.0 * x[k] * x[k]) + 1.0 - t;
      }
      return;
  }
}

// Jacobian, J(i,j) = df_i/dx_j at fjac[i*ld + j].
inline void system_jac(int prob, int n, const double* x, double* fjac, int ld) {
  auto J = [&](int i, int j) -> double& { return fjac[i * ld + j]; };
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) J(i, j) = 0.0;
  const double pi2 = 8.0 * std::atan(1.0);
  switch (prob) {
    case 1:
      J(0, 0) = -1.0;
      J(1, 0) = -20.0 * x[0];
      J(1, 1) = 10.0;
      return;
    case 2: {
      const double s5 = std::sqrt(5.0), s10 = std::sqrt(10.0);
      J(0, 0) = 1.0; J(0, 1) = 10.0;
      J(1, 2) = s5; J(1, 3) = -s5;
      J(2, 1) = 2.0 * (x[1] - 2 * x[2]); J(2, 2) = -4.0 * (x[1] - 2 * x[2]);
      J(3, 0) = 2.0 * s10 * (x[0] - x[3]); J(3, 3) = -2.0 * s10 * (x[0] - x[3]);
      return;
    }
    case 3:
      J(0, 0) = 1e4 * x[1]; J(0, 1) = 1e4 * x[0];
      J(1, 0) = -std::exp(-x[0]); J(1, 1) = -std::exp(-x[1]);
      return;
    case 4: {
      const double t1 = x[1] - x[0] * x[0], t2 = x[3] - x[2] * x[2];
      J(0, 0) = -200.0 * t1 + 400.0 * x[0] * x[0] + 1.0; J(0, 1) = -200.0 * x[0];
      J(1, 0) = -400.0 * x[0]; J(1, 1) = 220.2; J(1, 3) = 19.8;
      J(2, 2) = -180.0 * t2 + 360.0 * x[2] * x[2] + 1.0; J(2, 3) = -180.0 * x[2];
      J(3, 1) = 19.8; J(3, 2) = -360.0 * x[2]; J(3, 3) = 200.2;
      return;
    }
    case 5: {
      const double r2 = x[0] * x[0] + x[1] * x[1], r = std::sqrt(r2);
      J(0, 0) = 100.0 * x[1] / (pi2 * r2); J(0, 1) = -100.0 * x[0] / (pi2 * r2); J(0, 2) = 10.0;
      J(1, 0) = 10.0 * x[0] / r; J(1, 1) = 10.0 * x[1] / r;
      J(2, 2) = 1.0;
      return;
    }
    case 6: {
      std::vector<double> a(n), p(n);
      for (int i = 1; i <= 29; ++i) {
        const double ti = i / 29.0;
        double s1 = 0.0, s2 = 0.0, q = 1.0;
        for (int j = 0; j < n; ++j) { p[j] = q; q *= ti; }  // p[j] = ti^j
        for (int j = 1; j < n; ++j) s1 += j * p[j - 1] * x[j];
        for (int j = 0; j < n; ++j) s2 += p[j] * x[j];
        const double r = s1 - s2 * s2 - 1.0;
        for (int k = 0; k < n; ++k) a[k] = (k > 0 ? k * p[k - 1] : 0.0) - 2.0 * s2 * p[k];
        for (int k = 0; k < n; ++k)
          for (int l = 0; l < n; ++l) J(k, l) += a[k] * a[l] - 2.0 * r * p[k] * p[l];
      }
      const double t = x[1] - x[0] * x[0] - 1.0;
      J(0, 0) += 1.0 + 4.0 * x[0] * x[0] - 2.0 * t;
      J(0, 1) += -2.0 * x[0];
      J(1, 0) += -2.0 * x[0];
      J(1, 1) += 1.0;
      return;
    }
    case 7:
      for (int j = 0; j < n; ++j) {
        const double y = 2.0 * x[j] - 1.0;
        double t0 = 1.0, t1 = y, d0 = 0.0, d1 = 1.0;  // T_k, T'_k
        for (int i = 0; i < n; ++i) {
          J(i, j) = 2.0 * d1 / n;
          const double t2 = 2.0 * y * t1 - t0, d2 = 2.0 * t1 + 2.0 * y * d1 - d0;
          t0 = t1; t1 = t2; d0 = d1; d1 = d2;
        }
      }
      return;
    case 8:
      for (int k = 0; k < n - 1; ++k)
        for (int j = 0; j < n; ++j) J(k, j) = (j == k) ? 2.0 : 1.0;
      for (int j = 0; j < n; ++j) {
        double p = 1.0;
        for (int i = 0; i < n; ++i)
          if (i != j) p *= x[i];
        J(n - 1, j) = p;
      }
      return;
    case 9: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double u = x[k] + (k + 1) * h + 1.0;
        J(k, k) = 2.0 + 1.5 * h * h * u * u;
        if (k > 0) J(k, k - 1) = -1.0;
        if (k < n - 1) J(k, k + 1) = -1.0;
      }
      return;
    }
    case 10: {
      const double h = 1.0 / (n + 1);
      for (int k = 0; k < n; ++k) {
        const double tk = (k + 1) * h;
        for (int j = 0; j < n; ++j) {
          const double tj = (j + 1) * h, u = x[j] + tj + 1.0;
          const double w = (j <= k) ? (1.0 - tk) * tj : tk * (1.0 - tj);
          J(k, j) = h * w * 3.0 * u * u / 2.0 + (j == k ? 1.0 : 0.0);
        }
      }
      return;
    }
    case 11:
      for (int k = 0; k < n; ++k) {
        for (int j = 0; j < n; ++j) J(k, j) = std::sin(x[j]);
        J(k, k) += -std::cos(x[k]) + (k + 1.0) * std::sin(x[k]);
      }
      return;
    case 12: {
      double s = 0.0;
      for (int j = 0; j < n; ++j) s += (j + 1.0) * (x[j] - 1.0);
      const double dt = 1.0 + 6.0 * s * s;
      for (int k = 0; k < n; ++k)
        for (int j = 0; j < n; ++j) J(k, j) = (k + 1.0) * (j + 1.0) * dt + (j == k ? 1.0 : 0.0);
      return;
    }
    case 13:
      for (int k = 0; k < n; ++k) {
        J(k, k) = 3.0 - 4.0 * x[k];
        if (k > 0) J(k, k - 1) = -1.0;
        if (k < n - 1) J(k, k + 1) = -2.0;
      }
      return;
    case 14:
      for (int k = 0; k < n; ++k) {
        for (int j = std::max(0, k - 5); j <= std::min(k + 1, n - 1); ++j)
          if (j != k) J(k, j) = -(1.0 + 2.0 * x[j]);
        J(k, k) = 2.0 + 15.0 * x[k] * x[k];
      }
      return;
  }
}

}  // namespace c05test
