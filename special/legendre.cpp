// Ferrers' associated Legendre functions on [-1, 1] by the three-term
// recurrence in the degree, and the Riemann zeta function of real argument.
#include <cmath>
#include <limits>

#include "special/elliptic.hpp"
#include "special/poly.hpp"

namespace zem::sf {
namespace {

// A value held as mantissa * 2^exp, so that the factorial-sized starting
// values and the powers of sqrt(1 - x^2) never overflow or underflow on
// the way to a representable result.
struct Scaled {
  double v = 1.0;
  long e = 0;
  void norm() {
    if (v == 0.0 || !std::isfinite(v)) return;
    int k;
    v = std::frexp(v, &k);
    e += k;
  }
  void mul(double f) {
    v *= f;
    norm();
  }
};

double unscale(double v, long e) {
  if (v == 0.0) return 0.0;
  if (e > 4096) return std::copysign(std::numeric_limits<double>::infinity(), v);
  if (e < -4096) return std::copysign(0.0, v);
  return std::ldexp(v, static_cast<int>(e));
}

}  // namespace

bool legendre_p(int mode, double x, int32_t m_in, int32_t nl, double p[]) noexcept {
  const long m = m_in < 0 ? -static_cast<long>(m_in) : m_in;
  const double s = std::sqrt((1.0 - x) * (1.0 + x));
  // Start P_m^m.  Unnormalised: (-1)^m (2m-1)!! s^m.  Normalised:
  // (-1)^m sqrt((2m+1)/2) sqrt(prod (2i-1)/(2i)) s^m.
  Scaled start;
  for (long i = 1; i <= m; ++i) {
    if (mode == 1)
      start.mul(-static_cast<double>(2 * i - 1) * s);
    else
      start.mul(-std::sqrt(static_cast<double>(2 * i - 1) / static_cast<double>(2 * i)) * s);
  }
  if (mode == 2) start.mul(std::sqrt((2.0 * m + 1.0) / 2.0));
  // The recurrence runs on mantissas with one common exponent e, which is
  // moved when the values grow or shrink too far.
  long e = start.e;
  double prev = 0.0, cur = start.v;
  // For negative order, P_n^{-m} = (-1)^m (n-m)!/(n+m)! P_n^m (mode 1) and
  // (-1)^m times the normalised function (mode 2).  ratio holds
  // (n-m)!/(n+m)! as a scaled value.
  Scaled ratio;
  if (m_in < 0 && mode == 1)
    for (long i = 1; i <= 2 * m; ++i) ratio.mul(1.0 / static_cast<double>(i));
  const double sign = (m_in < 0 && (m & 1)) ? -1.0 : 1.0;
  bool ok = true;
  for (long j = 0; j <= nl; ++j) {
    const long n = m + j;
    double value = cur;
    long ve = e;
    if (m_in < 0 && mode == 1) {
      value *= ratio.v;
      ve += ratio.e;
    }
    double out = sign * unscale(value, ve);
    if (!std::isfinite(out)) {
      ok = false;
      out = std::copysign(std::numeric_limits<double>::max(), out);
    }
    p[j] = out;
    if (j == nl) break;
    // Next degree n + 1 from n and n - 1.
    double next;
    const double dn = static_cast<double>(n), dm = static_cast<double>(m);
    if (mode == 1) {
      next = ((2.0 * dn + 1.0) * x * cur - (dn + dm) * prev) / (dn - dm + 1.0);
    } else {
      const double a = std::sqrt((2.0 * dn + 3.0) * (2.0 * dn + 1.0) / ((dn + 1.0 - dm) * (dn + 1.0 + dm)));
      const double b = j == 0 ? 0.0
                              : std::sqrt((2.0 * dn + 3.0) * (dn + dm) * (dn - dm) /
                                          ((2.0 * dn - 1.0) * (dn + 1.0 - dm) * (dn + 1.0 + dm)));
      next = a * x * cur - b * prev;
    }
    prev = cur;
    cur = next;
    if (m_in < 0 && mode == 1)
      ratio.mul((dn + 1.0 - dm) / (dn + 1.0 + dm));
    // Keep the mantissas in a safe range.
    const double big = std::fmax(std::fabs(cur), std::fabs(prev));
    if (big > 0x1p400 || (big < 0x1p-400 && big > 0.0)) {
      int k;
      std::frexp(big, &k);
      cur = std::ldexp(cur, -k);
      prev = std::ldexp(prev, -k);
      e += k;
    }
  }
  return ok;
}

namespace {

constexpr double kPi = 3.141592653589793238462643383279502884;
// ln(2 pi) and ln(pi) as unevaluated sums of two doubles.
constexpr double kLn2PiHi = 1.8378770664093456, kLn2PiLo = -7.756588316134483e-17;
constexpr double kLnPiHi = 1.1447298858494002, kLnPiLo = 1.0265951162707826e-17;

// exp(y * L) for L = hi + lo, with the product kept to twice the working
// precision: pow(2 pi, y) would carry the rounding of 2 pi times |y|.
double exp_mul(double y, double hi, double lo) {
  const double h = y * hi;
  const double l = std::fma(y, hi, -h) + y * lo;
  return std::exp(h) * (1.0 + l);
}

// B_2k / (2k)!, k = 1 .. 12.
constexpr double kBernoulli[] = {
    8.3333333333333333e-2,   -1.3888888888888889e-3,  3.3068783068783069e-5,  -8.2671957671957672e-7,
    2.0876756987868099e-8,   -5.2841901386874932e-10, 1.3382536530684679e-11, -3.3896802963225829e-13,
    8.5860620562778446e-15,  -2.1748686985580619e-16, 5.5090028283602295e-18, -1.3954464685812523e-19,
};

// Euler-Maclaurin summation with N = 12 and twelve correction terms: for
// s >= 1/2 the remainder is below 1e-20 relative.  sm1 is s - 1, passed
// exactly by a caller that knows it better than s - 1 in floating point.
double zeta_em(double s, double sm1) {
  constexpr int N = 12;
  double sum = 0.0;
  for (int n = N - 1; n >= 2; --n) sum += std::pow(static_cast<double>(n), -s);
  const double lnN = std::log(static_cast<double>(N));
  const double nms = std::exp(-s * lnN);  // N^-s
  double corr = 0.0;
  // term_k = B_2k/(2k)! s (s+1) ... (s+2k-2) N^(-s-2k+1)
  double rising = s, power = nms / N;
  double terms[12];
  for (int k = 0; k < 12; ++k) {
    terms[k] = kBernoulli[k] * rising * power;
    rising *= (s + 2 * k + 1) * (s + 2 * k + 2);
    power /= static_cast<double>(N) * N;
  }
  for (int k = 11; k >= 0; --k) corr += terms[k];
  const double tail = std::exp(-sm1 * lnN) / sm1 + 0.5 * nms + corr;
  return 1.0 + (sum + tail);
}

}  // namespace

// psi(x) to a few digits, x >= 1/2: enough for the first-order correction
// of Gamma at a point known to twice the working precision.
double digamma_rough(double x) {
  double r = 0.0;
  while (x < 10.0) r -= 1.0 / x++;
  const double x2 = 1.0 / (x * x);
  return r + std::log(x) - 0.5 / x - x2 * (1.0 / 12.0 - x2 / 120.0);
}

double riemann_zeta(double s, bool& overflow) noexcept {
  overflow = false;
  if (std::isnan(s)) return s;
  if (s >= 0.5) return zeta_em(s, s - 1.0);
  // Near 0, zeta(s) = -1/2 - s ln(2 pi) / 2 + O(s^2).
  if (std::fabs(s) < 0x1p-60) return -0.5 - 0.5 * s * kLn2PiHi;
  // Functional equation with w = 1 - s > 1/2:
  //   zeta(s) = 2 (2 pi)^(-w) sin(pi s / 2) Gamma(w) zeta(w).
  // w is held as wh + wl exactly (1 - s rounds); Gamma and the power are
  // evaluated at wh and corrected to first order in wl.
  const double wh = 1.0 - s;
  const double wl = (1.0 - wh) - s;
  const double sn = sinpi(0.5 * s);
  if (sn == 0.0) return 0.0;  // the trivial zeros s = -2, -4, ...
  const double zw = wh > 60.0 ? 1.0 : zeta_em(wh, -s);
  const double corr = 1.0 + wl * (digamma_rough(wh) - kLn2PiHi);
  double r;
  if (wh <= 170.0) {
    r = 2.0 * sn * std::tgamma(wh) * exp_mul(-wh, kLn2PiHi, kLn2PiLo) * zw * corr;
  } else {
    // Gamma(w) (2 pi)^-w = Gamma(w/2) Gamma(w/2 + 1/2) pi^-w / (2 sqrt(pi))
    // by the duplication formula, multiplied in an order that stays in range.
    r = std::tgamma(0.5 * wh) * exp_mul(-wh, kLnPiHi, kLnPiLo);
    r *= std::tgamma(0.5 * wh + 0.5);
    r *= sn * zw * corr / std::sqrt(kPi);
  }
  if (!std::isfinite(r)) overflow = true;
  return r;
}

}  // namespace zem::sf
