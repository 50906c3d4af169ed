// Zeros of the Bessel functions of real order a >= 0 and of their
// derivatives (s17alc): the first n positive zeros of J_a, Y_a, J'_a or Y'_a.
//
// Each zero starts from an asymptotic approximation and is refined by
// Newton's method on the function, evaluated with the cores of bessel.hpp:
//   a < 2:  McMahon's expansion in beta = (k + a/2 -+ 1/4) pi;
//   a >= 2: Olver's uniform approximation a z(zeta), zeta = a^(-2/3) c_k with
//           c_k the k-th zero of Ai, Bi, Ai' or Bi' and z(zeta) the root of
//           (2/3)(-zeta)^(3/2) = sqrt(z^2 - 1) - arcsec z.
// For the derivative J'_a with a small the first zero is near
// sqrt(2a(a+1)); for a = 0 it is 0 itself (J'_0(0) = 0), which is returned
// as the first zero, so that j'_{a,1} is continuous in a.
#include <cfloat>
#include <cmath>

#include "frame/report.hpp"
#include "special/complex/bessel.hpp"
#include "zem/s.h"

namespace zem::sf::cbessel {
namespace {

constexpr double kPi = 3.14159265358979323846;

// C_a(x) and C'_a(x), C = J or Y, x > 0 real.
bool eval(double a, double x, bool y, double& c, double& cp) noexcept {
  Big v[2];
  const Status st = y ? bessel_y(a, x, 2, v) : bessel_j(a, x, 2, v);
  if (st != Status::Ok) return false;
  cplx c0, c1;
  if (to_complex(v[0], 0.0, c0) == 2 || to_complex(v[1], 0.0, c1) == 2) return false;
  c = c0.real();
  cp = a / x * c - c1.real();  // C'_a = (a/x) C_a - C_{a+1}
  return true;
}

// The k-th zero of Ai (mode 1), Bi (2), Ai' (3), Bi' (4).
double airy_zero(int mode, int k) noexcept {
  static const double first[] = {-2.338107410459767, -1.173713222709128, -1.018792971647471,
                                 -2.294439682614123};
  if (k == 1) return first[mode - 1];
  const bool fn = mode <= 2;
  const double q = (mode == 1 || mode == 4) ? 4.0 * k - 1.0 : 4.0 * k - 3.0;
  const double t = 3.0 * kPi * q / 8.0, t2 = 1.0 / (t * t);
  const double s = fn ? 1.0 + t2 * (5.0 / 48.0 + t2 * (-5.0 / 36.0 + t2 * 77125.0 / 82944.0))
                      : 1.0 + t2 * (-7.0 / 48.0 + t2 * (35.0 / 288.0 - t2 * 181223.0 / 207360.0));
  return -std::cbrt(t * t) * s;
}

// z > 1 with sqrt(z^2-1) - arcsec z = s > 0: Newton from the right on an
// increasing convex function.
double olver_z(double s) noexcept {
  double z = s + kPi / 2.0 + 1.0;
  for (int i = 0; i < 100; ++i) {
    const double r = std::sqrt((z - 1.0) * (z + 1.0));
    const double h = r - std::acos(1.0 / z) - s;
    const double dz = h * z / r;
    z -= dz;
    if (std::fabs(dz) <= 1e-15 * z) break;
  }
  return z;
}

double first_guess(double a, int mode, int k) noexcept {
  if (a >= 2.0) {
    const double zeta = airy_zero(mode, k) / std::cbrt(a * a);
    return a * olver_z(2.0 / 3.0 * std::pow(-zeta, 1.5));
  }
  if (mode == 3 && k == 1) return std::sqrt(2.0 * a * (a + 1.0));
  const double mu = 4.0 * a * a;
  const double shift = (mode == 1 || mode == 4) ? 0.25 : 0.75;
  const double beta = (k + 0.5 * a - shift) * kPi;
  const double b8 = 8.0 * beta;
  if (mode <= 2) return beta - (mu - 1.0) / b8 - 4.0 * (mu - 1.0) * (7.0 * mu - 31.0) / (3.0 * b8 * b8 * b8);
  return beta - (mu + 3.0) / b8 - 4.0 * (7.0 * mu * mu + 82.0 * mu - 9.0) / (3.0 * b8 * b8 * b8);
}

}  // namespace

// The first n zeros into x; false when an iteration fails.
bool bessel_zeros(double a, int n, int mode, double rel, double x[]) noexcept {
  const bool y = mode == 2 || mode == 4;
  const bool deriv = mode >= 3;
  double prev = 0.0;
  for (int k = 1; k <= n; ++k) {
    if (deriv && !y && a == 0.0 && k == 1) {
      x[0] = 0.0;
      continue;
    }
    double t = first_guess(a, mode, k);
    if (!(t > prev)) t = prev + 0.5 * kPi;
    bool done = false;
    double last = HUGE_VAL;
    for (int it = 0; it < 100 && !done; ++it) {
      double c, cp;
      if (!eval(a, t, y, c, cp)) return false;
      double g = c, gp = cp;
      if (deriv) {
        g = cp;
        gp = -cp / t - (1.0 - (a / t) * (a / t)) * c;  // from Bessel's equation
      }
      if (g == 0.0) {
        done = true;
        break;
      }
      double dt = g / gp;
      // Keep the iterate above the previous zero.
      if (t - dt <= prev) dt = 0.5 * (t - prev);
      t -= dt;
      const double step = std::fabs(dt);
      // Converged to the tolerance, or the steps stopped shrinking at the
      // level of the rounding of the function.
      done = step <= std::max(rel, 16.0 * DBL_EPSILON) * t || (step < 1e-8 * t && step >= 0.5 * last);
      last = step;
    }
    if (!done || !(t > prev)) return false;
    x[k - 1] = t;
    prev = t;
  }
  return true;
}

}  // namespace zem::sf::cbessel

extern "C" {

ZEM_API void s17alc(double a, int32_t n, int32_t mode, double rel, double x[], ZemError* fail) {
  zem::Call call("s17alc", fail);
  if (call.real_lt("a", a, 0.0, "0.0")) return;
  if (a > 100000.0) {
    call.report(NE_REAL_ARG_GT, "a", "100000.0", "a", a);
    return;
  }
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.not_in("mode", mode, {1, 2, 3, 4}, "1, 2, 3, 4")) return;
  if (call.real_le("rel", rel, 0.0, "0.0")) return;
  if (call.null("x", x)) return;
  if (!zem::sf::cbessel::bessel_zeros(a, n, mode, rel, x)) {
    call.report_null(NE_TERMINATION_FAILURE);
    return;
  }
  call.success();
}

}  // extern "C"
