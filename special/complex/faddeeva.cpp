// The scaled complementary error function of complex argument (s15ddc):
// w(z) = exp(-z^2) erfc(-iz).
//
// For Im z >= 0:
//   |z| <= 8: w(z) = (i/pi) int exp(-t^2)/(z-t) dt by the trapezoidal rule
//     with step h = 1/2 on the grid t = nh or t = (n+1/2)h, whichever keeps
//     Re z at least h/4 from the nodes, plus the pole term that makes the
//     rule exact up to O(exp(-pi^2/h^2)) (about 1e-17):
//       w = T_0 - 2 exp(-z^2) q/(1-q),  w = T_1/2 + 2 exp(-z^2) q/(1+q),
//     q = exp(2 pi i z/h);
//   |z| > 8: Laplace's continued fraction
//     w(z) = (i/sqrt(pi)) / (z - (1/2)/(z - 1/(z - (3/2)/(z - ...)))).
// Below the axis, w(z) = 2 exp(-z^2) - w(-z).
#include <cfloat>
#include <cmath>
#include <complex>

#include "frame/report.hpp"
#include "special/complex/bessel.hpp"
#include "special/complex/faddeeva.hpp"
#include "zem/s.h"

namespace zem::sf::faddeeva {

using cplx = std::complex<double>;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kStep = 0.5;
constexpr int kNodes = 14;  // nodes |t| <= 7: exp(-49) is below the rounding

// exp(-z^2) without the rounding of forming z^2 first in the phase.
cplx exp_minus_square(cplx z) noexcept {
  const double x = z.real(), y = z.imag();
  const double mag = std::exp((y - x) * (y + x));
  const double ph = -2.0 * x * y;
  return mag * cplx(std::cos(ph), std::sin(ph));
}

cplx upper_half(cplx z) noexcept {
  const double x = z.real(), y = z.imag();
  if (std::abs(z) > 8.0) {
    // Number of levels: enough at |z| = 8 on the real axis, fewer further out.
    const double a = std::abs(z);
    const int levels = a > 60.0 ? 12 : a > 20.0 ? 24 : 64;
    cplx f = z;
    for (int k = levels; k >= 1; --k) f = z - (0.5 * k) / f;
    return cplx(0.0, 1.0 / std::sqrt(kPi)) / f;
  }
  const double frac = x / kStep - std::floor(x / kStep);
  const bool on_integers = frac >= 0.25 && frac <= 0.75;
  const double shift = on_integers ? 0.0 : 0.5;
  cplx sum = 0.0;
  for (int n = -kNodes; n <= kNodes; ++n) {
    const double t = (n + shift) * kStep;
    if (std::fabs(t) > kNodes * kStep) continue;
    sum += std::exp(-t * t) / (z - t);
  }
  sum *= cplx(0.0, kStep / kPi);
  // q = exp(2 pi i z/h) = exp(-2 pi y/h) e^{2 pi i x/h}, |q| <= 1.
  const double qm = std::exp(-2.0 * kPi * y / kStep);
  const cplx q = qm * cplx(cbessel::cos_pi(2.0 * x / kStep), cbessel::sin_pi(2.0 * x / kStep));
  const cplx e = exp_minus_square(z);
  if (on_integers) return sum - 2.0 * e * q / (1.0 - q);
  return sum + 2.0 * e * q / (1.0 + q);
}

}  // namespace

cplx w(cplx z) noexcept {
  if (z.imag() >= 0.0) return upper_half(z);
  return 2.0 * exp_minus_square(z) - upper_half(-z);
}

}  // namespace zem::sf::faddeeva

extern "C" {

ZEM_API ZemComplex s15ddc(ZemComplex z, ZemError* fail) {
  zem::Call call("s15ddc", fail);
  const double x = z.re, y = z.im;
  bool half = false;
  if (y < 0.0) {
    // Below the axis the term 2 exp(-z^2) carries the result where it is
    // large: its size is exp(y^2 - x^2), its phase -2xy.
    const double lg = (y - x) * (y + x);
    if (lg > std::log(DBL_MAX) - 1.0) {
      call.report_null(NE_RESULT_OVERFLOW);
      return ZemComplex{0.0, 0.0};
    }
    const double phase = std::fabs(2.0 * x * y);
    if (lg > -40.0) {
      if (phase >= 1.0 / DBL_EPSILON) {
        call.report_null(NE_RESULT_NO_PRECISION);
        return ZemComplex{0.0, 0.0};
      }
      half = phase >= 1.0 / std::sqrt(DBL_EPSILON);
    }
  }
  const std::complex<double> r = zem::sf::faddeeva::w({x, y});
  if (half) {
    call.report_null(NE_RESULT_HALF_PRECISION);
  } else {
    call.success();
  }
  return ZemComplex{r.real(), r.imag()};
}

}  // extern "C"
