// The error function family: erf, erfc, the normal distribution function and
// its complement, and Dawson's integral.
//
// erf and erfc use rational approximations on [0, 0.84375), [0.84375, 1.25)
// and, for erfc, exp(-x^2 - 0.5625 + R(1/x^2)) / x beyond (coefficients of
// the Sun Microsystems fdlibm s_erf.c approximations, freely distributable).  The factor exp(-x^2)
// is formed from a shortened x whose square is exact, so that the error of x^2 does not reach the
// result.
#include <cmath>
#include <cstdint>
#include <cstring>

#include "special/dd.hpp"
#include "special/real.hpp"

namespace zem::sf {

namespace {

constexpr double erx = 8.45062911510467529297e-01;
constexpr double efx = 1.28379167095512586316e-01;
constexpr double pp[5] = {1.28379167095512558561e-01, -3.25042107247001499370e-01,
                          -2.84817495755985104766e-02, -5.77027029648944159157e-03,
                          -2.37630166566501626084e-05};
constexpr double qq[6] = {1.0,
                          3.97917223959155352819e-01,
                          6.50222499887672944485e-02,
                          5.08130628187576562776e-03,
                          1.32494738004321644526e-04,
                          -3.96022827877536812320e-06};
constexpr double pa[7] = {-2.36211856075265944077e-03, 4.14856118683748331666e-01,
                          -3.72207876035701323847e-01, 3.18346619901161753674e-01,
                          -1.10894694282396677476e-01, 3.54783043256182359371e-02,
                          -2.16637559486879084300e-03};
constexpr double qa[7] = {1.0,
                          1.06420880400844228286e-01,
                          5.40397917702171048937e-01,
                          7.18286544141962662868e-02,
                          1.26171219808761642112e-01,
                          1.36370839120290507362e-02,
                          1.19844998467991074170e-02};
constexpr double ra[8] = {-9.86494403484714822705e-03, -6.93858572707181764372e-01,
                          -1.05586262253232909814e+01, -6.23753324503260060396e+01,
                          -1.62396669462573470355e+02, -1.84605092906711035994e+02,
                          -8.12874355063065934246e+01, -9.81432934416914548592e+00};
constexpr double sa[9] = {1.0,
                          1.96512716674392571292e+01,
                          1.37657754143519042600e+02,
                          4.34565877475229228821e+02,
                          6.45387271733267880336e+02,
                          4.29008140027567833386e+02,
                          1.08635005541779435134e+02,
                          6.57024977031928170135e+00,
                          -6.04244152148580987438e-02};
constexpr double rb[7] = {-9.86494292470009928597e-03, -7.99283237680523006574e-01,
                          -1.77579549177547519889e+01, -1.60636384855821916062e+02,
                          -6.37566443368389627722e+02, -1.02509513161107724954e+03,
                          -4.83519191608651397019e+02};
constexpr double sb[8] = {1.0,
                          3.03380607434824582924e+01,
                          3.25792512996573918826e+02,
                          1.53672958608443695994e+03,
                          3.19985821950859553908e+03,
                          2.55305040643316442583e+03,
                          4.74528541206955367215e+02,
                          -2.24409524465858183362e+01};

template <int N>
inline double horner(const double (&c)[N], double x) {
  double r = c[N - 1];
  for (int i = N - 2; i >= 0; --i) r = r * x + c[i];
  return r;
}

// x with the low 32 bits of its significand cleared: its square is exact.
inline double shorten(double x) {
  std::uint64_t b;
  std::memcpy(&b, &x, sizeof b);
  b &= 0xffffffff00000000ULL;
  std::memcpy(&x, &b, sizeof b);
  return x;
}

// x * erfc(x) * exp(x^2) pieces: for 1.25 <= x < 28, erfc(x) = r / x.
inline double erfc_tail(double x) {
  double s = 1.0 / (x * x);
  double rs = x < 1.0 / 0.35 ? horner(ra, s) / horner(sa, s) : horner(rb, s) / horner(sb, s);
  double z = shorten(x);
  return std::exp(-z * z - 0.5625) * std::exp((z - x) * (z + x) + rs);
}

// 2/sqrt(pi)
constexpr double kTwoOverSqrtPi = 1.12837916709551257390;

}  // namespace

double erf(double x) {
  double ax = std::fabs(x);
  if (std::isnan(x)) return x;
  if (ax < 0.84375) {
    if (ax < 0x1p-28) return x + efx * x;
    double z = x * x;
    return x + x * (horner(pp, z) / horner(qq, z));
  }
  if (ax < 1.25) {
    double s = ax - 1.0;
    double r = erx + horner(pa, s) / horner(qa, s);
    return x < 0 ? -r : r;
  }
  if (ax >= 6.0) return x < 0 ? -1.0 : 1.0;
  double r = 1.0 - erfc_tail(ax) / ax;
  return x < 0 ? -r : r;
}

double erfc(double x) {
  double ax = std::fabs(x);
  if (std::isnan(x)) return x;
  if (ax < 0.84375) {
    if (ax < 0x1p-56) return 1.0 - x;
    double z = x * x;
    double y = horner(pp, z) / horner(qq, z);
    if (x < 0.25) return 1.0 - (x + x * y);
    return 0.5 - (x * y + (x - 0.5));
  }
  if (ax < 1.25) {
    double s = ax - 1.0;
    double pq = horner(pa, s) / horner(qa, s);
    if (x > 0) return (1.0 - erx) - pq;
    return 1.0 + (erx + pq);
  }
  if (x < -6.0) return 2.0;
  if (ax < 28.0) {
    double r = erfc_tail(ax) / ax;
    return x > 0 ? r : 2.0 - r;
  }
  return x > 0 ? 0.0 : 2.0;
}

double erfc2(double zh, double zl) {
  // erfc(zh + zl) = erfc(zh) - zl * 2/sqrt(pi) exp(-zh^2) + O(zl^2)
  double v = erfc(zh);
  if (zl == 0.0 || std::fabs(zh) > 27.5) return v;
  return v - zl * kTwoOverSqrtPi * std::exp(-zh * zh);
}

namespace {

// x / sqrt(2) as a double-double.
inline dd::DD over_sqrt2(double x) {
  constexpr dd::DD r{0.7071067811865476, -4.833646656726457e-17};
  if (!std::isfinite(x)) return {x, 0.0};  // the sign is all that matters
  return dd::mul(r, x);
}

}  // namespace

double normal_p(double x) {
  // P(x) = erfc(-x / sqrt 2) / 2
  dd::DD z = over_sqrt2(-x);
  return 0.5 * erfc2(z.hi, z.lo);
}

double normal_q(double x) {
  dd::DD z = over_sqrt2(x);
  return 0.5 * erfc2(z.hi, z.lo);
}

double dawson(double x) {
  double ax = std::fabs(x);
  double r;
  if (ax < 1e-9) {
    r = ax;  // x - 2x^3/3 + ...
  } else if (ax < 0.2) {
    // F(x) = sum (-1)^k 2^k x^(2k+1) / (1.3.5...(2k+1)), quickly convergent here.
    double z = x * x;
    double term = ax, sum = ax;
    for (int k = 1; k < 30; ++k) {
      term *= -2.0 * z / (2 * k + 1);
      sum += term;
      if (std::fabs(term) < 1e-17 * sum) break;
    }
    r = sum;
  } else if (ax < 6.25) {
    // F(x) = x exp(-z) G(z), z = x^2, G(z) = sum_{k>=0} z^k / (k! (2k+1)):
    // positive terms.  z = hi + lo exactly; G is summed at hi, and the
    // first-order change of exp(-z) G(z) over lo is lo exp(-z) (G' - G) =
    // -2 lo exp(-z) H(z), H(z) = sum z^k / (k! (2k+1)(2k+3)).
    dd::DD z = dd::two_prod(ax, ax);
    double t = 1.0, g = 1.0, h = 1.0 / 3.0;
    for (int k = 1; k < 400; ++k) {
      t *= z.hi / k;
      double term = t / (2 * k + 1);
      g += term;
      h += term / (2 * k + 3);
      if (term < 1e-17 * g) break;
    }
    r = ax * std::exp(-z.hi) * (g - 2.0 * z.lo * h);
  } else {
    // Asymptotic series F(x) ~ 1/(2x) sum (2k-1)!! / (2x^2)^k.
    double w = 1.0 / (2.0 * ax * ax);
    double term = 1.0, sum = 1.0;
    for (int k = 1; k < 200; ++k) {
      double next = term * (2 * k - 1) * w;
      if (next > term) break;
      term = next;
      sum += term;
      if (term < 1e-17 * sum) break;
    }
    r = sum / (2.0 * ax);
  }
  return x < 0 ? -r : r;
}

}  // namespace zem::sf
