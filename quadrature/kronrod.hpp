// Gauss-Kronrod pairs and their application to one interval.
#pragma once
#include <cmath>
#include <limits>

#include "zem/x02.h"

namespace zem::quad {

// What a basic rule returns for one interval: the integral, its error
// estimate, the integral of |f| and of |f - mean|, whether the error
// estimate can be used in the round-off tests, and the evaluations spent.
struct Estimate {
  double result = 0.0;
  double abserr = 0.0;
  double resabs = 0.0;
  double resasc = 0.0;
  bool reliable = true;
  int nevals = 0;
};

// A (2m+1)-point Kronrod extension of an m-point Gauss rule, stored by
// halves as in QUADPACK: xgk[0..n-1] are the non-negative Kronrod nodes in
// decreasing order, ending with 0; xgk[1], xgk[3], ... are the Gauss nodes;
// wg holds the Gauss weights of those (and of the centre when m is odd).
struct KronrodTable {
  int n;
  const double* xgk;
  const double* wgk;
  const double* wg;
  int points() const { return 2 * n - 1; }
};

extern const KronrodTable kKronrod15;
extern const KronrodTable kKronrod21;
extern const KronrodTable kKronrod61;

// The largest relative spacing of doubles, 2^-52: the machine accuracy of
// the published rules and of the epsilon algorithm (QUADPACK's d1mach(4)),
// kept so that their error estimates are those of the published method.
inline constexpr double kRelativeSpacing = std::numeric_limits<double>::epsilon();

// The larger of two numbers, as QUADPACK's dmax1 (and without the call
// that std::fmax costs in the inner loops).
inline double dmax(double a, double b) { return a > b ? a : b; }

// The smallest normal double (x02akc), for the inline rule.
inline constexpr double kTiny = std::numeric_limits<double>::min();

// QUADPACK's error estimate: the difference of the two rules, scaled by
// (200 |difference| / resasc)^1.5 when that is below one, and never below
// the rounding level of the integral of |f|.
inline double rescale_error(double err, double resabs, double resasc) {
  constexpr double eps = kRelativeSpacing;
  err = std::fabs(err);
  if (resasc != 0.0 && err != 0.0) {
    const double scale = std::pow(200.0 * err / resasc, 1.5);
    err = scale < 1.0 ? resasc * scale : resasc;
  }
  if (resabs > kTiny / (50.0 * eps)) {
    const double floor = 50.0 * eps * resabs;
    if (floor > err) err = floor;
  }
  return err;
}

namespace detail {

// The rule with the table's length n known at compile time, so that its
// loops unroll.
template <int n, class F>
Estimate gauss_kronrod_n(const KronrodTable& t, F& f, double a, double b) {
  double fv1[n], fv2[n];
  const double center = 0.5 * (a + b);
  const double half = 0.5 * (b - a);
  const double abs_half = std::fabs(half);
  const double fc = f(center);
  double res_gauss = (n % 2 == 0) ? fc * t.wg[n / 2 - 1] : 0.0;
  double res_kronrod = fc * t.wgk[n - 1];
  double res_abs = std::fabs(res_kronrod);
  for (int j = 0; j < (n - 1) / 2; ++j) {
    const int jtw = 2 * j + 1;
    const double dx = half * t.xgk[jtw];
    const double f1 = f(center - dx), f2 = f(center + dx);
    fv1[jtw] = f1;
    fv2[jtw] = f2;
    res_gauss += t.wg[j] * (f1 + f2);
    res_kronrod += t.wgk[jtw] * (f1 + f2);
    res_abs += t.wgk[jtw] * (std::fabs(f1) + std::fabs(f2));
  }
  for (int j = 0; j < n / 2; ++j) {
    const int jtwm1 = 2 * j;
    const double dx = half * t.xgk[jtwm1];
    const double f1 = f(center - dx), f2 = f(center + dx);
    fv1[jtwm1] = f1;
    fv2[jtwm1] = f2;
    res_kronrod += t.wgk[jtwm1] * (f1 + f2);
    res_abs += t.wgk[jtwm1] * (std::fabs(f1) + std::fabs(f2));
  }
  const double mean = 0.5 * res_kronrod;
  double res_asc = t.wgk[n - 1] * std::fabs(fc - mean);
  for (int j = 0; j < n - 1; ++j)
    res_asc += t.wgk[j] * (std::fabs(fv1[j] - mean) + std::fabs(fv2[j] - mean));
  Estimate e;
  const double err = (res_kronrod - res_gauss) * half;
  e.result = res_kronrod * half;
  e.resabs = res_abs * abs_half;
  e.resasc = res_asc * abs_half;
  e.abserr = rescale_error(err, e.resabs, e.resasc);
  e.reliable = e.resasc != e.abserr;
  e.nevals = 2 * n - 1;
  return e;
}

}  // namespace detail

// Applies the pair to f on [a, b] (b < a is allowed and changes the sign).
template <class F>
Estimate gauss_kronrod(const KronrodTable& t, F& f, double a, double b) {
  switch (t.n) {
    case 8:
      return detail::gauss_kronrod_n<8>(t, f, a, b);
    case 11:
      return detail::gauss_kronrod_n<11>(t, f, a, b);
    default:
      return detail::gauss_kronrod_n<31>(t, f, a, b);
  }
}

}  // namespace zem::quad
