// Carlson's symmetric elliptic integrals by the duplication theorem
// (B. C. Carlson, Numerical computation of real or complex elliptic
// integrals, Numer. Algorithms 10, 1995).  One template serves real and
// complex arguments.  The iteration stops once 4^-n Q < |A_n|, with Q taken
// from the tolerance r so that the truncated series below leaves a relative
// error of about r.
#include <algorithm>
#include <cmath>
#include <limits>

#include "special/elliptic.hpp"

namespace zem::sf {
namespace {

constexpr double kTol = 2e-16;     // r
constexpr int kMaxSteps = 120;     // far beyond what any argument needs

using std::abs;
using std::sqrt;

template <class T>
T rc_core(T x, T y, bool& ok) {
  const T a0 = (x + 2.0 * y) / 3.0;
  const double q = std::pow(3.0 * kTol, -1.0 / 8.0) * abs(a0 - x);
  T a = a0;
  double f = 1.0;  // 4^-n
  int n = 0;
  while (q * f >= abs(a)) {
    if (++n > kMaxSteps) {
      ok = false;
      break;
    }
    const T lam = 2.0 * sqrt(x) * sqrt(y) + y;
    a = (a + lam) * 0.25;
    x = (x + lam) * 0.25;
    y = (y + lam) * 0.25;
    f *= 0.25;
  }
  // s = (y0 - A0) 4^-n / A_n, and 1 + 3s^2/10 + s^3/7 + ... in Horner form.
  const T s = (y - x) / (3.0 * a);
  const T poly = 1.0 + s * s * (0.3 + s * (1.0 / 7.0 + s * (0.375 + s * (9.0 / 22.0 + s * (159.0 / 208.0 + s * 1.125)))));
  return poly / sqrt(a);
}

template <class T>
T rf_core(T x, T y, T z, bool& ok) {
  const T a0 = (x + y + z) / 3.0;
  const double q = std::pow(3.0 * kTol, -1.0 / 6.0) * std::max({abs(a0 - x), abs(a0 - y), abs(a0 - z)});
  const T x0 = x, y0 = y;
  T a = a0;
  double f = 1.0;
  int n = 0;
  while (q * f >= abs(a)) {
    if (++n > kMaxSteps) {
      ok = false;
      break;
    }
    const T sx = sqrt(x), sy = sqrt(y), sz = sqrt(z);
    const T lam = sx * sy + sx * sz + sy * sz;
    a = (a + lam) * 0.25;
    x = (x + lam) * 0.25;
    y = (y + lam) * 0.25;
    z = (z + lam) * 0.25;
    f *= 0.25;
  }
  const T X = (a0 - x0) * f / a, Y = (a0 - y0) * f / a, Z = -(X + Y);
  const T e2 = X * Y - Z * Z, e3 = X * Y * Z;
  return (1.0 - e2 / 10.0 + e3 / 14.0 + e2 * e2 / 24.0 - 3.0 * e2 * e3 / 44.0) / sqrt(a);
}

// The series closing RD and RJ, in their elementary symmetric functions.
template <class T>
T rd_series(T e2, T e3, T e4, T e5) {
  return 1.0 - 3.0 * e2 / 14.0 + e3 / 6.0 + 9.0 * e2 * e2 / 88.0 - 3.0 * e4 / 22.0 - 9.0 * e2 * e3 / 52.0 +
         3.0 * e5 / 26.0;
}

template <class T>
T rd_core(T x, T y, T z, bool& ok) {
  const T a0 = (x + y + 3.0 * z) / 5.0;
  const double q = std::pow(kTol / 4.0, -1.0 / 6.0) * std::max({abs(a0 - x), abs(a0 - y), abs(a0 - z)});
  const T x0 = x, y0 = y;
  T a = a0, sum = 0.0;
  double f = 1.0;
  int n = 0;
  while (q * f >= abs(a)) {
    if (++n > kMaxSteps) {
      ok = false;
      break;
    }
    const T sx = sqrt(x), sy = sqrt(y), sz = sqrt(z);
    const T lam = sx * sy + sx * sz + sy * sz;
    sum += f / (sz * (z + lam));
    a = (a + lam) * 0.25;
    x = (x + lam) * 0.25;
    y = (y + lam) * 0.25;
    z = (z + lam) * 0.25;
    f *= 0.25;
  }
  const T X = (a0 - x0) * f / a, Y = (a0 - y0) * f / a, Z = -(X + Y) / 3.0;
  const T xy = X * Y, z2 = Z * Z;
  const T e2 = xy - 6.0 * z2, e3 = (3.0 * xy - 8.0 * z2) * Z, e4 = 3.0 * (xy - z2) * z2, e5 = xy * z2 * Z;
  return f / (a * sqrt(a)) * rd_series(e2, e3, e4, e5) + 3.0 * sum;
}

// RJ for p > 0.  The term RC(1, 1 + e) of each step has
//   e = (p-x)(p-y)(p-z) / d^2 = prod (sqrt(p) - sqrt(v)) / (sqrt(p) + sqrt(v)),
// which tends to -1 when p is small beside the others; 1 + e is formed
// without that cancellation as 2 sqrt(p) (p + lambda) / d.
double rj_core(double x, double y, double z, double p, bool& ok) {
  const double a0 = (x + y + z + 2.0 * p) / 5.0;
  const double q =
      std::pow(kTol / 4.0, -1.0 / 6.0) * std::max({std::fabs(a0 - x), std::fabs(a0 - y), std::fabs(a0 - z), std::fabs(a0 - p)});
  const double x0 = x, y0 = y, z0 = z;
  double a = a0, sum = 0.0, f = 1.0;
  int n = 0;
  while (q * f >= std::fabs(a)) {
    if (++n > kMaxSteps) {
      ok = false;
      break;
    }
    const double sx = std::sqrt(x), sy = std::sqrt(y), sz = std::sqrt(z), sp = std::sqrt(p);
    const double lam = sx * sy + sx * sz + sy * sz;
    const double d = (sp + sx) * (sp + sy) * (sp + sz);
    const double one_plus_e = 2.0 * sp * (p + lam) / d;
    sum += f * rc_core(1.0, one_plus_e, ok) / d;
    a = (a + lam) * 0.25;
    x = (x + lam) * 0.25;
    y = (y + lam) * 0.25;
    z = (z + lam) * 0.25;
    p = (p + lam) * 0.25;
    f *= 0.25;
  }
  const double X = (a0 - x0) * f / a, Y = (a0 - y0) * f / a, Z = (a0 - z0) * f / a;
  const double P = -(X + Y + Z) / 2.0, p2 = P * P;
  const double e2 = X * Y + X * Z + Y * Z - 3.0 * p2;
  const double e3 = X * Y * Z + 2.0 * e2 * P + 4.0 * p2 * P;
  const double e4 = (2.0 * X * Y * Z + e2 * P + 3.0 * p2 * P) * P;
  const double e5 = X * Y * Z * p2;
  return f / (a * std::sqrt(a)) * rd_series(e2, e3, e4, e5) + 6.0 * sum;
}

// Scaling by 4^-k keeps the iteration inside the double range: the
// integrals are homogeneous (degree -1/2 for RC and RF, -3/2 for RD and
// RJ), and powers of four keep the square roots exact.  Arguments whose
// largest exponent exceeds hi are brought down just to 2^hi, which loses
// as little as possible of the smaller ones; when the largest is below
// 2^lo all are brought up near 1.  Returns k.
int scale_args(std::initializer_list<double*> args, int hi, int lo) {
  double big = 0.0;
  for (double* v : args) big = std::max(big, std::fabs(*v));
  if (big == 0.0 || !std::isfinite(big)) return 0;
  const int e = std::ilogb(big);
  int k = 0;
  if (e > hi)
    k = (e - hi + 1) / 2;
  else if (e < lo)
    k = e / 2;
  if (k != 0)
    for (double* v : args) *v = std::ldexp(*v, -2 * k);
  return k;
}

}  // namespace

double carlson_rc(double x, double y) noexcept {
  const int k = scale_args({&x, &y}, 1000, -1000);
  bool ok = true;
  if (y < 0.0) {
    // Cauchy principal value: RC(x, y) = sqrt(x / (x - y)) RC(x - y, -y).
    return std::ldexp(std::sqrt(x / (x - y)) * rc_core(x - y, -y, ok), -k);
  }
  return std::ldexp(rc_core(x, y, ok), -k);
}

double carlson_rf(double x, double y, double z) noexcept {
  const int k = scale_args({&x, &y, &z}, 1000, -1000);
  bool ok = true;
  return std::ldexp(rf_core(x, y, z, ok), -k);
}

double carlson_rd(double x, double y, double z) noexcept {
  const int k = scale_args({&x, &y, &z}, 600, -600);
  bool ok = true;
  return std::ldexp(rd_core(x, y, z, ok), -3 * k);
}

double carlson_rj(double x, double y, double z, double p) noexcept {
  const int k = scale_args({&x, &y, &z, &p}, 300, -300);
  bool ok = true;
  if (p > 0.0) return std::ldexp(rj_core(x, y, z, p, ok), -3 * k);
  // Cauchy principal value for p < 0: with x <= y <= z, a = 1/(y - p),
  // b = a (z - y)(y - x) and q = y + b > 0,
  //   RJ(x,y,z,p) = a (b RJ(x,y,z,q) + 3 (RC(xz/y, pq/y) - RF(x,y,z))).
  double v[3] = {x, y, z};
  std::sort(v, v + 3);
  const double a = 1.0 / (v[1] - p);
  const double b = a * (v[2] - v[1]) * (v[1] - v[0]);
  const double q = v[1] + b;
  const double rho = v[0] * v[2] / v[1], tau = p * q / v[1];
  const double rc = std::sqrt(rho / (rho - tau)) * rc_core(rho - tau, -tau, ok);
  const double r = a * (b * rj_core(v[0], v[1], v[2], q, ok) + 3.0 * (rc - rf_core(v[0], v[1], v[2], ok)));
  return std::ldexp(r, -3 * k);
}

cplx carlson_rf(cplx x, cplx y, cplx z, bool& ok) noexcept {
  ok = true;
  return rf_core(x, y, z, ok);
}

cplx carlson_rd(cplx x, cplx y, cplx z, bool& ok) noexcept {
  ok = true;
  return rd_core(x, y, z, ok);
}

}  // namespace zem::sf
