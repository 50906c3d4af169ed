// Jacobian elliptic functions (real and complex argument), the Jacobian
// theta functions and the general elliptic integral of the second kind.
#include <cmath>
#include <limits>

#include "special/elliptic.hpp"
#include "special/poly.hpp"

namespace zem::sf {
namespace {

constexpr double kPi = 3.141592653589793238462643383279502884;

// sn, cn, dn for 0 <= m <= 1 by the arithmetic-geometric mean and the
// descending Landen transformation.
void sncndn_unit(double u, double m, double& sn, double& cn, double& dn) {
  if (m == 0.0) {
    sn = std::sin(u);
    cn = std::cos(u);
    dn = 1.0;
    return;
  }
  if (m == 1.0) {
    sn = std::tanh(u);
    cn = dn = 1.0 / std::cosh(u);
    return;
  }
  constexpr int kMax = 16;
  double a[kMax + 1], b[kMax + 1], c[kMax + 1];
  a[0] = 1.0;
  b[0] = std::sqrt(1.0 - m);
  c[0] = std::sqrt(m);
  int n = 0;
  while (std::fabs(c[n]) > 1e-16 * a[n] && n < kMax) {
    a[n + 1] = 0.5 * (a[n] + b[n]);
    c[n + 1] = 0.5 * (a[n] - b[n]);
    b[n + 1] = std::sqrt(a[n] * b[n]);
    ++n;
  }
  double phi = std::ldexp(a[n] * u, n);
  for (int i = n; i > 0; --i) {
    // phi_(i-1) = (phi_i + psi) / 2 with sin(psi) = r sin(phi_i), r = c_i / a_i.
    // When r sin(phi_i) is near +-1 (m near 1) asin is ill-conditioned, so
    // psi comes from atan2 with cos(psi) = sqrt((1 - r s)(1 + r s)), the
    // factor near 0 formed from 1 - r = b_(i-1) / a_i and
    // 1 - |s| = cos^2 / (1 + |s|) without cancellation.
    const double s = std::sin(phi), co = std::cos(phi);
    const double r = c[i] / a[i];
    const double near0 = (b[i - 1] + c[i] * co * co / (1.0 + std::fabs(s))) / a[i];
    const double far = 1.0 + r * std::fabs(s);
    const double psi = std::atan2(r * s, std::sqrt(near0 * far));
    phi = 0.5 * (phi + psi);
  }
  sn = std::sin(phi);
  cn = std::cos(phi);
  // dn^2 = 1 - m sn^2 = (1 - m) + m cn^2, a sum of non-negative terms.
  dn = std::sqrt((1.0 - m) + m * cn * cn);
}

}  // namespace

void jacobi_sncndn(double u, double m, double& sn, double& cn, double& dn) noexcept {
  if (m >= 0.0 && m <= 1.0) {
    sncndn_unit(u, m, sn, cn, dn);
  } else if (m > 1.0) {
    // Reciprocal parameter: sn(u|m) = sn(u sqrt(m) | 1/m) / sqrt(m),
    // cn(u|m) = dn(u sqrt(m) | 1/m), dn(u|m) = cn(u sqrt(m) | 1/m).
    const double r = std::sqrt(m);
    double s, c, d;
    sncndn_unit(u * r, 1.0 / m, s, c, d);
    sn = s / r;
    cn = d;
    dn = c;
  } else {
    // Negative parameter: with mu = -m/(1-m) and v = u sqrt(1-m),
    // sn = sd(v|mu)/sqrt(1-m), cn = cd(v|mu), dn = nd(v|mu).
    const double r = std::sqrt(1.0 - m);
    double s, c, d;
    sncndn_unit(u * r, -m / (1.0 - m), s, c, d);
    sn = s / (d * r);
    cn = c / d;
    dn = 1.0 / d;
  }
}

void jacobi_sncndn(cplx z, double m, cplx& sn, cplx& cn, cplx& dn) noexcept {
  // Addition theorem with Jacobi's imaginary transformation:
  // the functions of x with parameter m and of y with parameter 1 - m.
  double s, c, d, s1, c1, d1;
  sncndn_unit(z.real(), m, s, c, d);
  sncndn_unit(z.imag(), 1.0 - m, s1, c1, d1);
  const double delta = c1 * c1 + m * s * s * s1 * s1;
  sn = cplx(s * d1, c * d * s1 * c1) / delta;
  cn = cplx(c * c1, -s * d * s1 * d1) / delta;
  dn = cplx(d * c1 * d1, -m * s * c * s1) / delta;
}

double jacobi_theta(int k, double x, double q) noexcept {
  if (k == 0) k = 4;
  if (q == 0.0) return k >= 3 ? 1.0 : 0.0;
  // Odd functions have period 2 and change sign over 1; reduce to [-1, 1].
  const double r = std::remainder(x, 2.0);
  // q = exp(-pi t); q - 1 is exact for q >= 1/2.
  const double t = -(q >= 0.5 ? std::log1p(q - 1.0) : std::log(q)) / kPi;
  if (t >= 1.0) {
    // q <= exp(-pi): the defining series converge fast.
    //   theta1 = 2 sum (-1)^n q^((n+1/2)^2) sin((2n+1) pi x)
    //   theta2 = 2 sum q^((n+1/2)^2) cos((2n+1) pi x)
    //   theta3 = 1 + 2 sum q^(n^2) cos(2 n pi x)
    //   theta4 = 1 + 2 sum (-1)^n q^(n^2) cos(2 n pi x)
    const double lq = -kPi * t;
    double sum = 0.0;
    for (int n = 12; n >= 0; --n) {  // smallest terms first
      if (k <= 2) {
        const double h = n + 0.5;
        const double w = std::exp(lq * h * h);
        const double arg = (2.0 * n + 1.0) * r;
        sum += (k == 1 ? ((n & 1) ? -w : w) * sinpi(arg) : w * sinpi(arg + 0.5));
      } else if (n > 0) {
        const double w = std::exp(lq * n * static_cast<double>(n));
        const double term = w * sinpi(2.0 * n * r + 0.5);
        sum += (k == 4 && (n & 1)) ? -term : term;
      }
    }
    return k <= 2 ? 2.0 * sum : 1.0 + 2.0 * sum;
  }
  // q near 1: Jacobi's imaginary transformation turns each function into
  // a sum of Gaussians, t^(-1/2) sum_n (+-1)^n exp(-pi (x - c + n)^2 / t),
  // with c = 0 for theta2, theta3 and c = 1/2 for theta1, theta4, the
  // signs alternating for theta1 and theta2.
  const double c = (k == 1 || k == 4) ? 0.5 : 0.0;
  const bool alternate = k <= 2;
  const double y = r - c;  // in [-3/2, 1]
  const int n0 = static_cast<int>(std::lround(-y));
  if (t == 0.0) {  // q = 1: the limit is 0 except on the peaks
    if (y + n0 != 0.0) return 0.0;
    const double inf = std::numeric_limits<double>::infinity();
    return (alternate && (n0 & 1)) ? -inf : inf;
  }
  double sum = 0.0;
  for (int j = 6; j >= 0; --j) {  // outer terms first
    for (int sgn = (j == 0 ? 1 : -1); sgn <= 1; sgn += 2) {
      const int n = n0 + sgn * j;
      const double d = y + n;
      const double w = std::exp(-kPi * d * d / t);
      sum += (alternate && (n & 1)) ? -w : w;
    }
  }
  return sum / std::sqrt(t);
}

cplx elliptic_el2(cplx z, double kc, double a, double b, int& status) noexcept {
  // With x = tan(phi):
  //   integral of (a cos^2 + b sin^2) / sqrt(cos^2 + kc^2 sin^2)
  //     = a z RF(1, 1 + kc^2 z^2, 1 + z^2) + (b - a) z^3 RD(1, 1 + kc^2 z^2, 1 + z^2) / 3.
  status = 0;
  if (z == cplx(0.0, 0.0)) return 0.0;
  const cplx z2 = z * z;
  const cplx u = 1.0 + kc * kc * z2, v = 1.0 + z2;
  const bool u0 = u == cplx(0.0, 0.0), v0 = v == cplx(0.0, 0.0);
  if ((u0 && v0) || (v0 && b != a)) {
    status = 1;
    return 0.0;
  }
  bool ok = true;
  cplx r = a * z * carlson_rf(cplx(1.0, 0.0), u, v, ok);
  if (b != a) {
    bool ok2 = true;
    r += (b - a) * z * z2 * carlson_rd(cplx(1.0, 0.0), u, v, ok2) / 3.0;
    ok = ok && ok2;
  }
  if (!ok) status = 2;
  return r;
}

}  // namespace zem::sf
