// The exponential integral E1, the sine and cosine integrals Si, Ci and the
// Fresnel integrals S, C.
//
// Each is summed from its power series near the origin, where the terms
// are of one sign or cancel only mildly, and beyond from a continued
// fraction (E1 of real and of imaginary argument, erfc of complex argument)
// evaluated by the modified Lentz method.
#include <cmath>
#include <complex>

#include "special/dd.hpp"
#include "special/real.hpp"

namespace zem::sf {

namespace {

using cplx = std::complex<double>;

constexpr double kEuler = 0.57721566490153286061;
constexpr double kPi = 3.14159265358979323846;
constexpr double kHalfPi = 1.57079632679489661923;
constexpr double kTiny = 1e-300;
constexpr double kEps = 1.1e-16;

// Ei(t) for t > 0 (the exponential function at its largest beyond 709 is
// taken in two halves).
double ei_positive(double t) {
  if (t <= 40.0) {
    // gamma + ln t + sum t^k / (k k!): positive terms, formed and summed in
    // double-double so that the rounding of the ~100 recurrence steps does
    // not accumulate.
    dd::DD term{1.0, 0.0}, sum{0.0, 0.0};
    for (int k = 1; k < 500; ++k) {
      term = dd::div(dd::mul(term, t), static_cast<double>(k));
      dd::DD d = dd::div(term, static_cast<double>(k));
      sum = dd::add(sum, d);
      if (d.hi < 1e-17 * sum.hi) break;
    }
    dd::DD lt = dd::log_dd(t);
    constexpr dd::DD kEulerDD{0.5772156649015329, -4.942915152430645e-18};
    dd::DD r = dd::add(sum, dd::add(lt, kEulerDD));
    return r.hi + r.lo;
  }
  // e^t / t sum k! / t^k while the terms decrease, summed in double-double.
  dd::DD term{1.0, 0.0}, sum{1.0, 0.0};
  for (int k = 1; k < 100; ++k) {
    dd::DD next = dd::div(dd::mul(term, static_cast<double>(k)), t);
    if (next.hi > term.hi) break;
    term = next;
    sum = dd::add(sum, term);
    if (term.hi < 1e-17 * sum.hi) break;
  }
  double v = dd::div(sum, t).hi;
  if (t < 700.0) return v * std::exp(t);
  double h = std::exp(0.5 * t);
  return (v * h) * h;
}

// E1(ix) = -Ci(x) + i (Si(x) - pi/2) for x > 0 from its continued fraction
//   E1(ix) = e^(-ix) / (1+ix - 1/(3+ix - 4/(5+ix - ...))),
// summed backward from a fixed depth (10 + 300/x levels reach the last bit
// for x >= 3; the backward sum keeps rounding errors from accumulating).
cplx e1_imag(double x) {
  int n = 10 + static_cast<int>(300.0 / x);
  cplx t(0.0, 0.0);
  for (int i = n; i >= 2; --i) {
    double a = -(i - 1.0) * (i - 1.0);
    t = a / (cplx(2.0 * i - 1.0, x) + t);
  }
  cplx h = 1.0 / (cplx(1.0, x) + t);
  return cplx(std::cos(x), -std::sin(x)) * h;
}

// sin and cos of pi/2 * x^2, reduced exactly: x^2 = hi + lo, hi/2 mod 2 is
// exact.
void sincos_half_pi_sq(double x, double& s, double& c) {
  dd::DD sq = dd::two_prod(x, x);
  double t = std::fmod(0.5 * sq.hi, 2.0) + 0.5 * sq.lo;  // phase pi t, period 2
  if (t > 1.0) t -= 2.0;
  double sign = 1.0;  // a half turn changes both signs
  if (t > 0.5) {
    t -= 1.0;
    sign = -1.0;
  } else if (t < -0.5) {
    t += 1.0;
    sign = -1.0;
  }
  s = sign * std::sin(kPi * t);
  c = sign * std::cos(kPi * t);
}

// Fresnel integrals for x > 0 (both computed together).
void fresnel(double x, double& fs, double& fc) {
  if (x < 1e-9) {  // C = x, S = pi x^3 / 6 to the last bit
    fc = x;
    fs = (kPi / 6.0) * x * x * x;
    return;
  }
  if (x < 1.2) {
    // C = sum (-1)^k (pi/2)^2k x^(4k+1) / ((4k+1)(2k)!)
    // S = sum (-1)^k (pi/2)^(2k+1) x^(4k+3) / ((4k+3)(2k+1)!)
    double hx2 = kHalfPi * x * x;
    double term = x;  // (pi/2 x^2)^n x / n!
    double sum_c = 0.0, sum_s = 0.0;
    for (int n = 0; n < 100; ++n) {
      double sign = ((n / 2) % 2 == 0) ? 1.0 : -1.0;
      double d = sign * term / (2 * n + 1);
      if (n % 2 == 0)
        sum_c += d;
      else
        sum_s += d;
      term *= hx2 / (n + 1);
      if (n >= 1 && term < 1e-17 * std::fabs(sum_s)) break;
    }
    fs = sum_s;
    fc = sum_c;
    return;
  }
  if (std::isinf(x)) {
    fs = fc = 0.5;
    return;
  }
  // (C + iS)(x) = (1+i)/2 [1 - exp(i pi x^2/2) h], h from the continued
  // fraction of erfc((1-i) sqrt(pi)/2 x).
  double pix2 = kPi * x * x;
  cplx b(1.0, -pix2);
  cplx c(1.0 / kTiny, 0.0);
  cplx d = 1.0 / b;
  cplx h = d;
  double n = -1.0;
  for (int k = 2; k < 1000; ++k) {
    n += 2.0;
    double a = -n * (n + 1.0);
    b += 4.0;
    d = 1.0 / (a * d + b);
    c = b + a / c;
    cplx del = c * d;
    h *= del;
    if (std::fabs(del.real() - 1.0) + std::fabs(del.imag()) < kEps) break;
  }
  h *= cplx(x, -x);
  double sn, cs;
  sincos_half_pi_sq(x, sn, cs);
  cplx v = cplx(0.5, 0.5) * (1.0 - cplx(cs, sn) * h);
  fc = v.real();
  fs = v.imag();
}

}  // namespace

double expint_e1(double x) {
  if (x < 0) return -ei_positive(-x);
  if (x <= 0.6) {
    // -gamma - ln x - sum (-x)^k / (k k!)
    double term = 1.0, sum = 0.0;
    for (int k = 1; k < 100; ++k) {
      term *= -x / k;
      double d = term / k;
      sum += d;
      if (std::fabs(d) < 1e-17 * std::fabs(sum)) break;
    }
    return (-kEuler - std::log(x)) - sum;
  }
  if (x > 745.2) return 0.0;
  // e^-x / (x+1- 1/(x+3- 4/(x+5- ...))), summed from a fixed depth back to
  // the front: the backward sum damps rounding errors that the forward
  // (Lentz) evaluation lets accumulate.  8 + 130/x levels reach the last
  // bit for x >= 0.6.
  int n = 8 + static_cast<int>(130.0 / x);
  double t = 0.0;
  for (int i = n; i >= 1; --i) t = static_cast<double>(i) * i / (x + 2.0 * i + 1.0 - t);
  return std::exp(-x) / (x + 1.0 - t);
}

double sine_integral(double x) {
  double ax = std::fabs(x);
  double r;
  if (ax <= 3.0) {
    // sum (-1)^k x^(2k+1) / ((2k+1)(2k+1)!)
    double z = ax * ax;
    double term = ax, sum = ax;
    for (int k = 1; k < 100; ++k) {
      term *= -z / ((2.0 * k) * (2.0 * k + 1));
      double d = term / (2 * k + 1);
      sum += d;
      if (std::fabs(d) < 1e-17 * std::fabs(sum)) break;
    }
    r = sum;
  } else {
    r = std::isinf(ax) ? kHalfPi : kHalfPi + e1_imag(ax).imag();
  }
  return x < 0 ? -r : r;
}

double cosine_integral(double x) {
  if (x <= 3.0) {
    // gamma + ln x + sum (-1)^k x^2k / (2k (2k)!): the sum cancels against
    // gamma + ln x up to Ci's zeros, so it is formed in double-double.
    dd::DD z = dd::two_prod(x, x);
    dd::DD term{1.0, 0.0}, sum{0.0, 0.0};
    for (int k = 1; k < 100; ++k) {
      term = dd::neg(dd::div(dd::mul(term, z), (2.0 * k - 1) * (2.0 * k)));
      dd::DD d = dd::div(term, 2.0 * k);
      sum = dd::add(sum, d);
      if (std::fabs(d.hi) < 1e-34 * std::fabs(sum.hi) + 1e-300) break;
    }
    constexpr dd::DD kEulerDD{0.5772156649015329, -4.942915152430645e-18};
    dd::DD r = dd::add(sum, dd::add(dd::log_dd(x), kEulerDD));
    return r.hi + r.lo;
  }
  if (std::isinf(x)) return 0.0;
  return -e1_imag(x).real();
}

double fresnel_s(double x) {
  double s, c;
  fresnel(std::fabs(x), s, c);
  return x < 0 ? -s : s;
}

double fresnel_c(double x) {
  double s, c;
  fresnel(std::fabs(x), s, c);
  return x < 0 ? -c : c;
}

}  // namespace zem::sf
