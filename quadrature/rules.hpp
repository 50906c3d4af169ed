// The basic rules of the adaptive routines: Gauss-Kronrod on a plain or
// weighted integrand, and the modified Clenshaw-Curtis rules of QUADPACK
// for the trigonometric (QAWO), algebraic-logarithmic (QAWS) and Cauchy
// (QAWC) weights, which integrate the 12- and 24-term Chebyshev expansions
// of the integrand against moments of the weight and take their difference
// as the error.
#pragma once
#include <cmath>

#include "quadrature/kronrod.hpp"
#include "zem/x02.h"

namespace zem::quad {

// ---------------------------------------------------------------------------
// Chebyshev expansions.

extern const double kCos24[13];  // cos(k pi / 24), k = 0..12

// f at the 25 points center + half cos(k pi / 24), k = 0..24, with the two
// end values halved (the form the expansion below expects).
template <class F>
void sample25(F& f, double a, double b, double fval[25]) {
  const double center = 0.5 * (a + b), half = 0.5 * (b - a);
  fval[0] = 0.5 * f(center + half);
  fval[12] = f(center);
  fval[24] = 0.5 * f(center - half);
  for (int k = 1; k < 12; ++k) {
    const double u = half * kCos24[k];
    fval[k] = f(center + u);
    fval[24 - k] = f(center - u);
  }
}

// The coefficients of the Chebyshev interpolants of degrees 12 and 24 on
// those points (first and last coefficient halved), so that
// sum cheb[k] T_k(t) approximates f(center + half t).
void chebyshev_expand(const double fval[25], double cheb12[13], double cheb24[25]);

// ---------------------------------------------------------------------------
// Moments of the weights on [-1, 1].

// Moments of cos(par t) (even entries 0, 2, .., 24) and sin(par t) (odd
// entries 1, .., 23) against T_k(t), by the boundary-value method of
// QUADPACK's dqc25f for |par| <= 24 (an asymptotic end value and a
// tridiagonal system) and by forward recursion beyond.
void fourier_moments(double par, double moments[25]);

// Moments of (1+t)^alfa (ri), (1-t)^beta (rj), (1+t)^alfa log((1+t)/2)
// (rg) and (1-t)^beta log((1-t)/2) (rh) against T_k(t), k = 0..24, by
// QUADPACK's recurrences (dqmomo).
struct AlgLogMoments {
  double ri[25], rj[25], rg[25], rh[25];
  void compute(double alfa, double beta);
};

// ---------------------------------------------------------------------------
// Rules.  Each is called as rule(a, b, level) and bisects at split(a, b).

inline double midpoint(double a, double b) { return 0.5 * (a + b); }

// A Gauss-Kronrod pair on f.
template <class F>
struct KronrodRule {
  F& f;
  const KronrodTable& table;
  Estimate operator()(double a, double b, int) { return gauss_kronrod(table, f, a, b); }
  double split(double a, double b) const { return midpoint(a, b); }
};

// f(x) cos(omega x) or f(x) sin(omega x), omega >= 0 (QAWO).  The moments
// depend only on omega times the half-length, the same for every
// subinterval of one level; they are computed once per level and kept in
// cache[level] for levels below `levels`.
template <class F>
struct FourierRule {
  F& f;
  double omega;
  bool sine;
  double (*cache)[25];
  bool* cached;
  int levels;

  Estimate operator()(double a, double b, int level) {
    const double center = 0.5 * (a + b), half = 0.5 * (b - a);
    const double par = omega * half;
    if (std::fabs(par) <= 2.0) {
      auto g = [this](double x) {
        const double w = sine ? std::sin(omega * x) : std::cos(omega * x);
        return f(x) * w;
      };
      return gauss_kronrod(kKronrod15, g, a, b);
    }
    double local[25];
    const double* m;
    if (level < levels && cached[level]) {
      m = cache[level];
    } else {
      double* dst = level < levels ? cache[level] : local;
      fourier_moments(par, dst);
      if (level < levels) cached[level] = true;
      m = dst;
    }
    double fval[25], c12[13], c24[25];
    sample25(f, a, b, fval);
    chebyshev_expand(fval, c12, c24);
    double resc12 = c12[12] * m[12], ress12 = 0.0;
    for (int k = 10; k >= 0; k -= 2) {
      resc12 += c12[k] * m[k];
      ress12 += c12[k + 1] * m[k + 1];
    }
    double resc24 = c24[24] * m[24], ress24 = 0.0, resabs = std::fabs(c24[24]);
    for (int k = 22; k >= 0; k -= 2) {
      resc24 += c24[k] * m[k];
      ress24 += c24[k + 1] * m[k + 1];
      resabs += std::fabs(c24[k]) + std::fabs(c24[k + 1]);
    }
    const double estc = std::fabs(resc24 - resc12), ests = std::fabs(ress24 - ress12);
    const double conc = half * std::cos(center * omega), cons = half * std::sin(center * omega);
    Estimate e;
    if (sine) {
      e.result = conc * ress24 + cons * resc24;
      e.abserr = std::fabs(conc * ests) + std::fabs(cons * estc);
    } else {
      e.result = conc * resc24 - cons * ress24;
      e.abserr = std::fabs(conc * estc) + std::fabs(cons * ests);
    }
    e.resabs = resabs * std::fabs(half);
    e.resasc = x02alc();
    e.reliable = true;
    e.nevals = 25;
    return e;
  }
  double split(double a, double b) const { return midpoint(a, b); }
};

// f(x) (x-a)^alfa (b-x)^beta [log(x-a)] [log(b-x)] on [a, b] (QAWS); kind
// 1 to 4: no logarithm, log(x-a), log(b-x), both.  Subintervals that touch
// an end where the weight is singular use the moments; their error
// estimates are kept out of the round-off tests.
template <class F>
struct AlgLogRule {
  F& f;
  double a, b, alfa, beta;
  int kind;
  const AlgLogMoments& mom;

  double weight(double x) const {
    const double xma = x - a, bmx = b - x;
    double w = std::pow(xma, alfa) * std::pow(bmx, beta);
    if (kind == 2 || kind == 4) w *= std::log(xma);
    if (kind == 3 || kind == 4) w *= std::log(bmx);
    return w;
  }

  // The Chebyshev part at one end: g is f times the weight's factors from
  // the other end, r0 and rl the moments of the singular factor without and
  // with its logarithm, `with_log` whether that logarithm is present.
  template <class G>
  Estimate at_end(G& g, double a1, double b1, double expo, const double* r0, const double* rl,
                  bool with_log) {
    double fval[25], c12[13], c24[25];
    sample25(g, a1, b1, fval);
    chebyshev_expand(fval, c12, c24);
    const double factor = std::pow(0.5 * (b1 - a1), expo + 1.0);
    auto sums = [&](const double* r, double& s12, double& s24) {
      s12 = s24 = 0.0;
      for (int k = 0; k < 13; ++k) s12 += r[k] * c12[k];
      for (int k = 0; k < 25; ++k) s24 += r[k] * c24[k];
    };
    double a12, a24;
    sums(r0, a12, a24);
    Estimate e;
    if (!with_log) {
      e.result = factor * a24;
      e.abserr = std::fabs(factor * (a24 - a12));
    } else {
      double b12, b24;
      sums(rl, b12, b24);
      const double u = factor * std::log(b1 - a1), v = factor;
      e.result = u * a24 + v * b24;
      e.abserr = std::fabs(u * (a24 - a12)) + std::fabs(v * (b24 - b12));
    }
    e.reliable = false;
    e.nevals = 25;
    return e;
  }

  Estimate operator()(double a1, double b1, int) {
    const bool log_a = kind == 2 || kind == 4, log_b = kind == 3 || kind == 4;
    if (a1 == a && (alfa != 0.0 || log_a)) {
      auto g = [this, log_b](double x) {
        const double bmx = b - x;
        double w = std::pow(bmx, beta);
        if (log_b) w *= std::log(bmx);
        return f(x) * w;
      };
      return at_end(g, a1, b1, alfa, mom.ri, mom.rg, log_a);
    }
    if (b1 == b && (beta != 0.0 || log_b)) {
      auto g = [this, log_a](double x) {
        const double xma = x - a;
        double w = std::pow(xma, alfa);
        if (log_a) w *= std::log(xma);
        return f(x) * w;
      };
      return at_end(g, a1, b1, beta, mom.rj, mom.rh, log_b);
    }
    auto g = [this](double x) { return f(x) * weight(x); };
    return gauss_kronrod(kKronrod15, g, a1, b1);
  }
  double split(double a1, double b1) const { return midpoint(a1, b1); }
};

// f(x) / (x - c) as a principal value (QAWC).  Subintervals near c use the
// moments of 1/(t - cc); bisection avoids making c an end.
template <class F>
struct CauchyRule {
  F& f;
  double c;

  Estimate operator()(double a, double b, int) {
    const double cc = (2.0 * c - b - a) / (b - a);
    if (std::fabs(cc) >= 1.1) {
      auto g = [this](double x) { return f(x) / (x - c); };
      return gauss_kronrod(kKronrod15, g, a, b);
    }
    double fval[25], c12[13], c24[25];
    sample25(f, a, b, fval);
    chebyshev_expand(fval, c12, c24);
    double amom0 = std::log(std::fabs((1.0 - cc) / (1.0 + cc)));
    double amom1 = 2.0 + cc * amom0;
    double res12 = c12[0] * amom0 + c12[1] * amom1;
    double res24 = c24[0] * amom0 + c24[1] * amom1;
    for (int k = 2; k < 25; ++k) {
      double amom2 = 2.0 * cc * amom1 - amom0;
      // T_{k-1} integrates to -2/((k-1)^2 - 1) when k - 1 is even.
      if (k % 2 == 1) amom2 -= 4.0 / ((k - 1.0) * (k - 1.0) - 1.0);
      if (k < 13) res12 += c12[k] * amom2;
      res24 += c24[k] * amom2;
      amom0 = amom1;
      amom1 = amom2;
    }
    Estimate e;
    e.result = res24;
    e.abserr = std::fabs(res24 - res12);
    e.reliable = false;
    e.nevals = 25;
    return e;
  }
  double split(double a1, double b2) const {
    double b1 = midpoint(a1, b2);
    if (c <= b1 && c > a1) b1 = 0.5 * (c + b2);
    if (c > b1 && c < b2) b1 = 0.5 * (a1 + c);
    return b1;
  }
};

}  // namespace zem::quad
