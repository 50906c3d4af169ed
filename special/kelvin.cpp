// Kelvin functions ber, bei, ker, kei of real argument:
//   ber x + i bei x = I0(x e^(i pi/4)),  ker x + i kei x = K0(x e^(i pi/4)).
//
// Near the origin both pairs come from the power series in q = x^2/4,
//   ber + i bei = sum i^n q^n / (n!)^2,
//   ker + i kei = -(ln(x/2) + i pi/4)(ber + i bei) + sum i^n psi(n+1) q^n / (n!)^2,
// summed in double-double arithmetic: the terms grow like e^x while ber and
// bei grow like e^(x/sqrt 2) and ker, kei decay like e^(-x/sqrt 2).  Beyond,
// the Hankel asymptotic expansions of I0 and K0 at z = x e^(i pi/4), with the
// phase x/sqrt 2 carried in double-double.
#include <cmath>
#include <complex>

#include "special/dd.hpp"
#include "special/real.hpp"

namespace zem::sf {

namespace {

using dd::DD;
using cplx = std::complex<double>;

constexpr DD kEuler{0.5772156649015329, -4.942915152430645e-18};
constexpr DD kPi4{0.7853981633974483, 3.061616997868383e-17};
constexpr DD kInvSqrt2{0.7071067811865476, -4.833646656726457e-17};
constexpr double kCosPi8 = 0.9238795325112867;
constexpr double kSinPi8 = 0.3826834323650898;
constexpr double kPi = 3.14159265358979323846;

constexpr double kSeriesBerBei = 30.0;  // beyond: asymptotic form of I0
constexpr double kSeriesKerKei = 20.0;  // beyond: asymptotic form of K0

struct Pair {
  double re, im;
};

// The power series.  With log_part false only ber, bei; with it, also
// ker, kei.
void series(double x, bool log_part, Pair& b, Pair& k) {
  DD sq = dd::two_prod(x, x);
  DD q{0.25 * sq.hi, 0.25 * sq.lo};
  DD t{1.0, 0.0};
  DD h{0.0, 0.0};  // harmonic number H_n; psi(n+1) = H_n - gamma
  DD br{1.0, 0.0}, bi{0.0, 0.0};
  DD tr = dd::neg(kEuler), ti{0.0, 0.0};
  for (int n = 1; n < 400; ++n) {
    t = dd::div(dd::mul(t, q), static_cast<double>(n) * n);
    DD tt = t;
    if (n % 4 >= 2) tt = dd::neg(tt);
    if (n % 2 == 0)
      br = dd::add(br, tt);
    else
      bi = dd::add(bi, tt);
    if (log_part) {
      h = dd::add(h, dd::div(DD{1.0, 0.0}, static_cast<double>(n)));
      DD w = dd::mul(tt, dd::add(h, dd::neg(kEuler)));
      if (n % 2 == 0)
        tr = dd::add(tr, w);
      else
        ti = dd::add(ti, w);
    }
    if (t.hi < 1e-34 * (std::fabs(br.hi) + std::fabs(bi.hi)) && n > 2) {
      if (!log_part) break;
      // the psi-weighted sum converges with the same terms, but its value
      // (like ker, kei) may be far smaller than ber, bei
      if (t.hi * (h.hi + 1.0) < 1e-34 * (std::fabs(tr.hi) + std::fabs(ti.hi))) break;
    }
  }
  b = {br.hi + br.lo, bi.hi + bi.lo};
  if (!log_part) return;
  DD l = dd::log_dd(0.5 * x);
  // ker = -l ber + (pi/4) bei + T_re;  kei = -l bei - (pi/4) ber + T_im
  DD kr = dd::add(dd::add(dd::neg(dd::mul(l, br)), dd::mul(kPi4, bi)), tr);
  DD ki = dd::add(dd::add(dd::neg(dd::mul(l, bi)), dd::neg(dd::mul(kPi4, br))), ti);
  k = {kr.hi + kr.lo, ki.hi + ki.lo};
}

// sum_k (+-1)^k a_k w^k, a_k = ((2k-1)!!)^2 / (k! 8^k), with w = 1/z,
// z = x e^(i pi/4): the common sum of the Hankel expansions of I0 (sign +)
// and K0 (sign -).
cplx hankel_sum(double x, double sign) {
  cplx w = cplx(kInvSqrt2.hi, -kInvSqrt2.hi) / x;  // 1/z
  cplx term(1.0, 0.0), sum(1.0, 0.0);
  double prev = 1.0;
  for (int k = 1; k < 200; ++k) {
    double c = (2.0 * k - 1) * (2.0 * k - 1) / (8.0 * k);
    term *= sign * c * w;
    double m = std::abs(term);
    if (m > prev) break;
    prev = m;
    sum += term;
    if (m < 1e-17) break;
  }
  return sum;
}

// cos and sin of theta = x / sqrt 2, with theta carried in double-double
// (its low part applied to first order), and theta's two parts.
void phase(double x, double& c, double& s, double& mag_hi, double& mag_lo) {
  DD th = dd::mul(kInvSqrt2, x);
  double sh = std::sin(th.hi), ch = std::cos(th.hi);
  s = sh + th.lo * ch;
  c = ch - th.lo * sh;
  mag_hi = th.hi;
  mag_lo = th.lo;
}

// ber + i bei for x > kSeriesBerBei:
//   I0(z) ~ e^z / sqrt(2 pi z) sum a_k / z^k.
Pair ber_bei_large(double x) {
  double c, s, th, tl;
  phase(x, c, s, th, tl);
  // e^(i theta) e^(-i pi/8)
  cplx rot(c * kCosPi8 + s * kSinPi8, s * kCosPi8 - c * kSinPi8);
  double h = std::exp(0.5 * th);
  cplx v = rot * hankel_sum(x, 1.0) * ((h / std::sqrt(2.0 * kPi * x)) * h * (1.0 + tl));
  return {v.real(), v.imag()};
}

// ker + i kei for x > kSeriesKerKei:
//   K0(z) ~ sqrt(pi/(2z)) e^-z sum (-1)^k a_k / z^k.
Pair ker_kei_large(double x) {
  double c, s, th, tl;
  phase(x, c, s, th, tl);
  if (th > 745.0) return {0.0, 0.0};
  // e^(-i theta) e^(-i pi/8)
  cplx rot(c * kCosPi8 - s * kSinPi8, -(s * kCosPi8 + c * kSinPi8));
  cplx v = rot * hankel_sum(x, -1.0) * (std::sqrt(kPi / (2.0 * x)) * std::exp(-th) * (1.0 - tl));
  return {v.real(), v.imag()};
}

Pair ber_bei(double x) {
  x = std::fabs(x);
  if (x < 1e-9) return {1.0, x * 0.5 * x * 0.5};  // 1 - q^2/4, q
  if (x > kSeriesBerBei) return ber_bei_large(x);
  Pair b, k;
  series(x, false, b, k);
  return b;
}

Pair ker_kei(double x) {
  if (x < 1e-9) {
    // -ln(x/2) - gamma, -pi/4 (the next terms are O(x^2 ln x))
    return {-(std::log(0.5 * x) + kEuler.hi), -kPi4.hi};
  }
  if (x > kSeriesKerKei) return ker_kei_large(x);
  Pair b, k;
  series(x, true, b, k);
  return k;
}

}  // namespace

double kelvin_ber(double x) { return ber_bei(x).re; }
double kelvin_bei(double x) { return ber_bei(x).im; }
double kelvin_ker(double x) { return ker_kei(x).re; }
double kelvin_kei(double x) { return ker_kei(x).im; }

}  // namespace zem::sf
