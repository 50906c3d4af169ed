// Complex arithmetic on ZemComplex.
#include <cmath>

#include "zem/a02.h"

namespace {

inline ZemComplex cx(double re, double im) { return ZemComplex{re, im}; }

double modulus(double x, double y) {
  double ax = std::fabs(x), ay = std::fabs(y);
  double big = ax > ay ? ax : ay, small = ax > ay ? ay : ax;
  if (small == 0.0) return big;
  double r = small / big;
  return big * std::sqrt(1.0 + r * r);
}

ZemComplex mul(ZemComplex a, ZemComplex b) { return cx(a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re); }

ZemComplex div(ZemComplex a, ZemComplex b) {
  // Smith's rule.
  if (std::fabs(b.im) >= std::fabs(b.re)) {
    const double r = b.re / b.im, d = b.im + r * b.re;
    return cx((a.re * r + a.im) / d, (a.im * r - a.re) / d);
  }
  const double r = b.im / b.re, d = b.re + r * b.im;
  return cx((a.re + a.im * r) / d, (a.im - a.re * r) / d);
}

ZemComplex log_(ZemComplex z) { return cx(std::log(modulus(z.re, z.im)), std::atan2(z.im, z.re)); }

ZemComplex exp_(ZemComplex z) {
  const double m = std::exp(z.re);
  return cx(m * std::cos(z.im), m * std::sin(z.im));
}

}  // namespace

extern "C" {

ZEM_API ZemComplex a02bac(double x, double y) { return cx(x, y); }
ZEM_API double a02bbc(ZemComplex z) { return z.re; }
ZEM_API double a02bcc(ZemComplex z) { return z.im; }
ZEM_API ZemComplex a02cac(ZemComplex a, ZemComplex b) { return cx(a.re + b.re, a.im + b.im); }
ZEM_API ZemComplex a02cbc(ZemComplex a, ZemComplex b) { return cx(a.re - b.re, a.im - b.im); }
ZEM_API ZemComplex a02ccc(ZemComplex a, ZemComplex b) { return mul(a, b); }
ZEM_API ZemComplex a02cdc(ZemComplex a, ZemComplex b) { return div(a, b); }
ZEM_API ZemComplex a02cec(ZemComplex a) { return cx(-a.re, -a.im); }
ZEM_API ZemComplex a02cfc(ZemComplex a) { return cx(a.re, -a.im); }
ZEM_API int32_t a02cgc(ZemComplex a, ZemComplex b) { return a.re == b.re && a.im == b.im; }
ZEM_API int32_t a02chc(ZemComplex a, ZemComplex b) { return a.re != b.re || a.im != b.im; }
ZEM_API double a02dac(ZemComplex z) { return std::atan2(z.im, z.re); }
ZEM_API double a02dbc(ZemComplex z) { return modulus(z.re, z.im); }

ZEM_API ZemComplex a02dcc(ZemComplex z) {
  const double x = z.re, y = z.im;
  double t;
  if (std::fabs(x) <= 1.0) t = std::sqrt(std::fabs(x) + modulus(x, y)) * std::sqrt(0.5);
  else t = std::sqrt(std::fabs(x) / 2.0 + modulus(x / 2.0, y / 2.0));
  const double u = y != 0.0 ? y / (2.0 * t) : y;
  if (x >= 0.0) return cx(t, u);
  if (u >= 0.0) return cx(u, t);
  return cx(-u, -t);
}

ZEM_API ZemComplex a02ddc(ZemComplex z, int32_t n) {
  // Repeated squaring on |n|; a negative exponent inverts the result.
  long long k = n < 0 ? -static_cast<long long>(n) : n;
  ZemComplex result = cx(1.0, 0.0), base = z;
  while (k > 0) {
    if (k & 1) result = mul(result, base);
    k >>= 1;
    if (k > 0) base = mul(base, base);
  }
  return n < 0 ? div(cx(1.0, 0.0), result) : result;
}

ZEM_API ZemComplex a02dec(ZemComplex z, double r) {
  const ZemComplex l = log_(z);
  return exp_(cx(r * l.re, r * l.im));
}

ZEM_API ZemComplex a02dfc(ZemComplex z, ZemComplex w) { return exp_(mul(w, log_(z))); }
ZEM_API ZemComplex a02dgc(ZemComplex z) { return log_(z); }
ZEM_API ZemComplex a02dhc(ZemComplex z) { return exp_(z); }

ZEM_API ZemComplex a02djc(ZemComplex z) {
  return cx(std::sin(z.re) * std::cosh(z.im), std::cos(z.re) * std::sinh(z.im));
}

ZEM_API ZemComplex a02dkc(ZemComplex z) {
  return cx(std::cos(z.re) * std::cosh(z.im), -std::sin(z.re) * std::sinh(z.im));
}

ZEM_API ZemComplex a02dlc(ZemComplex z) {
  const double d = std::cosh(2.0 * z.im) + std::cos(2.0 * z.re);
  return cx(std::sin(2.0 * z.re) / d, std::sinh(2.0 * z.im) / d);
}

ZEM_API ZemComplex a02eic(ZemComplex z, double r, double) { return cx(r * z.re, r * z.im); }
ZEM_API ZemComplex a02ejc(ZemComplex z, double r) { return cx(r * z.re, r * z.im); }

}  // extern "C"
