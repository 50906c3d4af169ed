// The log-gamma and polygamma functions of complex argument (s14agc,
// s14afc).
//
// ln Gamma(z): Taylor series about 1 and 2 (|z-1| or |z-2| <= 1/2, where
// the function has its zeros), Stirling's series for Re z >= 0.1 with
// |z| large, the recurrence ln Gamma(z) = ln Gamma(z+n) - sum ln(z+k) in
// between, and the reflection formula for Re z < 0.1.  The result is the
// analytic continuation of ln Gamma from the positive real axis, so its
// imaginary part is not reduced to (-pi, pi].
//
// psi^(k)(z), k = 0..4: the recurrence up to |z| >= 15, the asymptotic
// series there, and for Re z < -1 the reflection formula
//   psi^(k)(z) = (-1)^k psi^(k)(1-z) - pi^(k+1) d^k/dw^k cot(w) at w = pi z.
#include <cfloat>
#include <cmath>
#include <complex>

#include "frame/report.hpp"
#include "special/complex/bessel.hpp"
#include "special/complex/gamma_complex.hpp"
#include "zem/s.h"

namespace zem::sf::cgamma {
namespace {

using cplx = std::complex<double>;
using cbessel::cos_pi;
using cbessel::sin_pi;

constexpr double kPi = 3.14159265358979323846;
constexpr double kLogPi = 1.14472988584940017414;
constexpr double kHalfLog2Pi = 0.918938533204672741780;
constexpr double kEuler = 0.577215664901532860607;

// zeta(k) - 1, k = 2..61.
constexpr double kZetaM1[] = {
    6.44934066848226406e-01, 2.02056903159594292e-01, 8.23232337111381857e-02,
    3.69277551433699266e-02, 1.73430619844491402e-02, 8.34927738192282713e-03,
    4.07735619794433960e-03, 2.00839282608221426e-03, 9.94575127818085256e-04,
    4.94188604119464529e-04, 2.46086553308048320e-04, 1.22713347578489145e-04,
    6.12481350587048277e-05, 3.05882363070204933e-05, 1.52822594086518710e-05,
    7.63719763789976257e-06, 3.81729326499984022e-06, 1.90821271655393897e-06,
    9.53962033872796212e-07, 4.76932986787806447e-07, 2.38450502727733004e-07,
    1.19219925965311064e-07, 5.96081890512594801e-08, 2.98035035146522793e-08,
    1.49015548283650427e-08, 7.45071178983543006e-09, 3.72533402478845728e-09,
    1.86265972351304914e-09, 9.31327432419668166e-10, 4.65662906503378366e-10,
    2.32831183367650534e-10, 1.16415501727005193e-10, 5.82077208790270145e-11,
    2.91038504449710001e-11, 1.45519218910419849e-11, 7.27595983505748180e-12,
    3.63797954737865086e-12, 1.81898965030706607e-12, 9.09494784026388841e-13,
    4.54747378304215422e-13, 2.27373684582465244e-13, 1.13686840768022791e-13,
    5.68434198762758542e-14, 2.84217097688930200e-14, 1.42108548280316052e-14,
    7.10542739521085271e-15, 3.55271369133711393e-15, 1.77635684357912041e-15,
    8.88178421093081619e-16, 4.44089210314381412e-16, 2.22044605079804240e-16,
    1.11022302514106566e-16, 5.55111512484547975e-17, 2.77555756213611713e-17,
    1.38777878097252751e-17, 6.93889390454423356e-18, 3.46944695216601499e-18,
    1.73472347604760736e-18, 8.67361738012069374e-19, 4.33680869002090383e-19};
constexpr int kZetaLen = sizeof kZetaM1 / sizeof kZetaM1[0];

// B_2k / (2k (2k-1)), k = 1..15.
constexpr double kStirling[] = {
    1.0 / 12.0, -1.0 / 360.0, 1.0 / 1260.0, -1.0 / 1680.0, 1.0 / 1188.0,
    -691.0 / 360360.0, 1.0 / 156.0, -3617.0 / 122400.0, 43867.0 / 244188.0,
    -174611.0 / 125400.0, 77683.0 / 5796.0, -236364091.0 / 1506960.0,
    657931.0 / 300.0, -3392780147.0 / 93960.0, 1723168255201.0 / 2492028.0};

// B_2j, j = 1..15.
constexpr double kBernoulli[] = {
    1.0 / 6.0, -1.0 / 30.0, 1.0 / 42.0, -1.0 / 30.0, 5.0 / 66.0, -691.0 / 2730.0, 7.0 / 6.0,
    -3617.0 / 510.0, 43867.0 / 798.0, -174611.0 / 330.0, 854513.0 / 138.0,
    -236364091.0 / 2730.0, 8553103.0 / 6.0, -23749461029.0 / 870.0, 8615841276005.0 / 14322.0};

// Stirling's series, |z| >= 7 with Re z > 0: the number of terms keeps the
// first one left out below 1e-17 of the result.
cplx stirling(cplx z) noexcept {
  const double a2 = std::norm(z);
  const int terms = a2 >= 1600.0 ? 4 : a2 >= 225.0 ? 6 : 10;
  const cplx r = 1.0 / z, r2 = r * r;
  cplx sum = 0.0;
  for (int k = terms - 1; k >= 0; --k) sum = sum * r2 + kStirling[k];
  return (z - 0.5) * std::log(z) - z + kHalfLog2Pi + sum * r;
}

// ln Gamma(1+x) (second false) or ln Gamma(2+x), |x| <= 1/2.
cplx taylor(cplx x, bool second) noexcept {
  // Terms up to the power where |x|^j falls below 1e-17.
  const double ax = std::abs(x);
  int last = kZetaLen - 1;
  if (ax < 0.5) last = ax < 1e-17 ? 0 : std::min(last, static_cast<int>(-39.1 / std::log(ax)));
  cplx sum = 0.0;
  for (int k = last; k >= 0; --k) {
    const int j = k + 2;  // power
    const double c = (second ? kZetaM1[k] : 1.0 + kZetaM1[k]) / j;
    sum = sum * x + (j % 2 ? -c : c);
  }
  // sum now holds sum_j (-1)^j c_j x^(j-2)
  const cplx lin = second ? (1.0 - kEuler) * x : -kEuler * x;
  return lin + sum * x * x;
}

// log sin(pi z), principal imaginary part.
cplx log_sin_pi(cplx z) noexcept {
  const double x = z.real(), y = z.imag();
  if (std::fabs(y) < 20.0) {
    const cplx s(sin_pi(x) * std::cosh(kPi * y), cos_pi(x) * std::sinh(kPi * y));
    return std::log(s);
  }
  // sin(pi z) = (i/2) e^{-i pi z} (1 - e^{2 i pi z}) for y > 0, and the
  // conjugate form below the axis.
  const double sg = y > 0.0 ? 1.0 : -1.0;
  const cplx q = std::exp(-2.0 * kPi * std::fabs(y)) * cplx(cos_pi(2.0 * x), sg * sin_pi(2.0 * x));
  double im = sg * (0.5 * kPi) - sg * kPi * std::fmod(x, 2.0) + std::arg(1.0 - q);
  im = std::remainder(im, 2.0 * kPi);
  if (im <= -kPi) im += 2.0 * kPi;
  const double re = kPi * std::fabs(y) - std::log(2.0) + std::log(std::abs(1.0 - q));
  return {re, im};
}

}  // namespace

cplx log_gamma(cplx z) noexcept {
  const double x = z.real(), y = z.imag();
  if (std::norm(z - 1.0) <= 0.25) return taylor(z - 1.0, false);
  if (std::norm(z - 2.0) <= 0.25) return taylor(z - 2.0, true);
  if (x < 0.1) {
    // Reflection; the multiple of 2 pi i keeps the branch continuous.
    const double turn = std::copysign(2.0 * kPi, y) * std::floor(0.5 * x + 0.25);
    return kLogPi - log_sin_pi(z) - log_gamma(1.0 - z) + cplx(0.0, turn);
  }
  if (x >= 7.0 || std::fabs(y) >= 7.0) return stirling(z);
  // ln Gamma(z) = ln Gamma(z+n) - ln(z (z+1) ... (z+n-1)): one logarithm of
  // the product, with the turns of its argument counted (each factor turns
  // it by less than pi, in the sense of Im z).
  const int n = static_cast<int>(std::ceil(7.0 - x));
  cplx p = z;
  int turns = 0;
  for (int k = 1; k < n; ++k) {
    const cplx q = p * (z + static_cast<double>(k));
    if (y > 0.0 && p.imag() >= 0.0 && q.imag() < 0.0) ++turns;
    if (y < 0.0 && p.imag() <= 0.0 && q.imag() > 0.0) --turns;
    p = q;
  }
  return stirling(z + static_cast<double>(n)) - std::log(p) - cplx(0.0, 2.0 * kPi * turns);
}

// d^k/dw^k cot(w), k = 0..4, from c = cot w and u = 1 + c^2 = 1/sin^2 w
// (u is passed separately: 1 + c^2 cancels where c is near +-i).
cplx cot_derivative(cplx c, cplx u, int k) noexcept {
  switch (k) {
    case 0: return c;
    case 1: return -u;
    case 2: return 2.0 * c * u;
    case 3: return -2.0 * u * (3.0 * u - 2.0);
    default: return 8.0 * c * u * (3.0 * u - 1.0);
  }
}

// cot(pi z) and 1/sin^2(pi z), stable for large |Im z|.
void cot_pi(cplx z, cplx& c, cplx& u) noexcept {
  const double x = z.real(), y = z.imag();
  if (std::fabs(y) < 1.0) {
    const double ch = std::cosh(kPi * y), sh = std::sinh(kPi * y);
    const cplx s(sin_pi(x) * ch, cos_pi(x) * sh), co(cos_pi(x) * ch, -sin_pi(x) * sh);
    c = co / s;
    u = 1.0 / (s * s);
    return;
  }
  const double sg = y > 0.0 ? 1.0 : -1.0;
  // q = e^{2 i pi z} above the axis, e^{-2 i pi z} below: |q| < 1;
  // cot = i (q+1)/(q-1) or i (1+q)/(1-q), 1 + cot^2 = -4q/(q-1)^2.
  const cplx q = std::exp(-2.0 * kPi * std::fabs(y)) * cplx(cos_pi(2.0 * x), sg * sin_pi(2.0 * x));
  c = sg * cplx(0.0, 1.0) * (q + 1.0) / (q - 1.0);
  u = -4.0 * q / ((q - 1.0) * (q - 1.0));
}

cplx polygamma(cplx z, int k) noexcept {
  if (z.real() < -1.0) {
    cplx c, u;
    cot_pi(z, c, u);
    const double pk = std::pow(kPi, k + 1);
    const cplx refl = polygamma(1.0 - z, k);
    return (k % 2 ? -refl : refl) - pk * cot_derivative(c, u, k);
  }
  double fact = 1.0;  // k!
  for (int j = 2; j <= k; ++j) fact *= j;
  const double sign = k % 2 ? 1.0 : -1.0;  // (-1)^(k+1)
  cplx acc = 0.0;
  while (std::abs(z) < 15.0) {
    // psi^(k)(z) = psi^(k)(z+1) + (-1)^(k+1) k!/z^(k+1)
    acc += sign * fact / std::pow(z, k + 1);
    z += 1.0;
  }
  const cplx r = 1.0 / z, r2 = r * r;
  cplx asym;
  if (k == 0) {
    cplx s = 0.0, p = r2;
    for (int j = 1; j <= 15; ++j) {
      const cplx t = kBernoulli[j - 1] / (2.0 * j) * p;
      s += t;
      if (std::abs(t) < 1e-18 * std::abs(s)) break;
      p *= r2;
    }
    asym = std::log(z) - 0.5 * r - s;
  } else {
    // (-1)^(k+1) [ (k-1)!/z^k + k!/(2 z^(k+1)) + sum_j B_2j (2j+k-1)!/(2j)! / z^(2j+k) ]
    const double fm1 = fact / k;
    const cplx rk = std::pow(r, k);
    cplx s = fm1 + 0.5 * fact * r;
    cplx p = r2;
    double ratio = 1.0;  // (2j+k-1)!/(2j)!
    for (int j = 1; j <= 15; ++j) {
      // update (2j+k-1)!/(2j)! from j-1
      ratio = 1.0;
      for (int i = 2 * j + 1; i <= 2 * j + k - 1; ++i) ratio *= i;
      const cplx t = kBernoulli[j - 1] * ratio * p;
      s += t;
      if (std::abs(t) < 1e-18 * std::abs(s)) break;
      p *= r2;
    }
    asym = sign * s * rk;
  }
  return asym + acc;
}

}  // namespace zem::sf::cgamma

namespace cg = zem::sf::cgamma;

namespace {

// True when z is a non-positive integer or within tol of one.
bool near_pole(std::complex<double> z, double tol) {
  if (z.real() > 0.5) return false;
  const double n = std::nearbyint(z.real());
  return n <= 0.0 && std::abs(z - n) <= tol;
}

}  // namespace

extern "C" {

ZEM_API ZemComplex s14agc(ZemComplex z, ZemError* fail) {
  zem::Call call("s14agc", fail);
  const std::complex<double> zc(z.re, z.im);
  if (near_pole(zc, 0.0)) {
    call.report_null(NE_TOO_CLOSE_INTEGER);
    return ZemComplex{DBL_MAX, 0.0};
  }
  const std::complex<double> r = cg::log_gamma(zc);
  if (!std::isfinite(r.real()) || !std::isfinite(r.imag())) {
    if (near_pole(zc, 1e-300)) call.report_null(NE_TOO_CLOSE_INTEGER);
    else call.report_null(NE_OVERFLOW_LIKELY);
    return ZemComplex{DBL_MAX, 0.0};
  }
  call.success();
  return ZemComplex{r.real(), r.imag()};
}

ZEM_API ZemComplex s14afc(ZemComplex z, int32_t k, ZemError* fail) {
  zem::Call call("s14afc", fail);
  if (call.int_cons(k < 0 || k > 4, "k", k, "0 <= k <= 4")) return ZemComplex{0.0, 0.0};
  const std::complex<double> zc(z.re, z.im);
  if (near_pole(zc, 0.0)) {
    call.report_null(NE_TOO_CLOSE_INTEGER);
    return ZemComplex{0.0, 0.0};
  }
  const std::complex<double> r = cg::polygamma(zc, k);
  if (!std::isfinite(r.real()) || !std::isfinite(r.imag())) {
    if (near_pole(zc, 1e-3)) call.report_null(NE_TOO_CLOSE_INTEGER);
    else call.report_null(NE_OVERFLOW_LIKELY);
    return ZemComplex{0.0, 0.0};
  }
  call.success();
  return ZemComplex{r.real(), r.imag()};
}

}  // extern "C"
