// Exported layer of the elliptic integrals and functions (s21), the
// associated Legendre functions (s22) and the zeta function (s23).
#include <cmath>
#include <cstdio>

#include "frame/report.hpp"
#include "special/elliptic.hpp"
#include "zem/s.h"
#include "zem/x02.h"

using zem::Call;
using zem::sf::cplx;

namespace {

bool real_cons(Call& call, bool bad, const char* name, double v, const char* constraint) {
  if (bad) call.report(NE_REAL, name, v, constraint);
  return bad;
}

// "name must not be equal to text".
bool real_ne(Call& call, const char* name, double v, double bound, const char* btext) {
  const bool bad = v == bound;
  if (bad) call.report(NE_REAL_ARG_EQ, name, btext, name, v);
  return bad;
}

int zeros(std::initializer_list<double> v) {
  int n = 0;
  for (double x : v) n += x == 0.0;
  return n;
}

ZemComplex to_c(cplx z) { return ZemComplex{z.real(), z.imag()}; }

}  // namespace

ZEM_API double s21bac(double x, double y, ZemError* fail) {
  Call call("s21bac", fail);
  if (call.real_lt("x", x, 0.0, "0.0")) return 0.0;
  if (real_ne(call, "y", y, 0.0, "0.0")) return 0.0;
  const double r = zem::sf::carlson_rc(x, y);
  call.success();
  return r;
}

ZEM_API double s21bbc(double x, double y, double z, ZemError* fail) {
  Call call("s21bbc", fail);
  if (call.real_lt("x", x, 0.0, "0.0") || call.real_lt("y", y, 0.0, "0.0") || call.real_lt("z", z, 0.0, "0.0"))
    return 0.0;
  if (zeros({x, y, z}) > 1) {
    call.report(NE_3_REAL_ARG_CONS, "x", x, "y", y, "z", z, "at most one of x, y and z is 0.0");
    return 0.0;
  }
  const double r = zem::sf::carlson_rf(x, y, z);
  call.success();
  return r;
}

ZEM_API double s21bcc(double x, double y, double z, ZemError* fail) {
  Call call("s21bcc", fail);
  if (call.real_lt("x", x, 0.0, "0.0") || call.real_lt("y", y, 0.0, "0.0") || call.real_le("z", z, 0.0, "0.0"))
    return 0.0;
  if (x == 0.0 && y == 0.0) {
    call.report(NE_2_REAL_ARG_CONS, "x", x, "y", y, "at most one of x and y is 0.0");
    return 0.0;
  }
  const double r = zem::sf::carlson_rd(x, y, z);
  call.success();
  return r;
}

ZEM_API double s21bdc(double x, double y, double z, double r, ZemError* fail) {
  Call call("s21bdc", fail);
  if (call.real_lt("x", x, 0.0, "0.0") || call.real_lt("y", y, 0.0, "0.0") || call.real_lt("z", z, 0.0, "0.0"))
    return 0.0;
  if (real_ne(call, "r", r, 0.0, "0.0")) return 0.0;
  if (zeros({x, y, z}) > 1) {
    call.report(NE_3_REAL_ARG_CONS, "x", x, "y", y, "z", z, "at most one of x, y and z is 0.0");
    return 0.0;
  }
  const double v = zem::sf::carlson_rj(x, y, z, r);
  call.success();
  return v;
}

ZEM_API void s21cac(double u, double m, double* sn, double* cn, double* dn, ZemError* fail) {
  Call call("s21cac", fail);
  if (call.null("sn", sn) || call.null("cn", cn) || call.null("dn", dn)) return;
  zem::sf::jacobi_sncndn(u, m, *sn, *cn, *dn);
  call.success();
}

ZEM_API void s21cbc(ZemComplex z, double ak2, ZemComplex* sn, ZemComplex* cn, ZemComplex* dn, ZemError* fail) {
  Call call("s21cbc", fail);
  if (real_cons(call, !(ak2 >= 0.0 && ak2 <= 1.0), "ak2", ak2, "0.0 <= ak2 <= 1.0")) return;
  if (call.null("sn", sn) || call.null("cn", cn) || call.null("dn", dn)) return;
  cplx s, c, d;
  zem::sf::jacobi_sncndn(cplx(z.re, z.im), ak2, s, c, d);
  *sn = to_c(s);
  *cn = to_c(c);
  *dn = to_c(d);
  call.success();
}

ZEM_API double s21ccc(double x, double q, int32_t k, ZemError* fail) {
  Call call("s21ccc", fail);
  if (real_cons(call, !(q >= 0.0 && q <= 1.0), "q", q, "0.0 <= q <= 1.0")) return 0.0;
  if (call.int_cons(k < 0 || k > 4, "k", k, "0 <= k <= 4")) return 0.0;
  const double v = zem::sf::jacobi_theta(k, x, q);
  if (std::isinf(v)) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return std::copysign(x02alc(), v);
  }
  call.success();
  return v;
}

ZEM_API ZemComplex s21dac(ZemComplex z, double akp, double a, double b, ZemError* fail) {
  Call call("s21dac", fail);
  const ZemComplex zero{0.0, 0.0};
  // z^6 appears in the duplication: beyond this modulus it overflows.
  const double limit = std::pow(1.0 / x02amc(), 1.0 / 6.0);
  if (std::hypot(z.re, z.im) > limit) {
    char text[64];
    std::snprintf(text, sizeof text, "abs(z) <= %.4g", limit);
    call.report(NE_COMPLEX, "z", z.re, z.im, text);
    return zero;
  }
  int status = 0;
  const cplx r = zem::sf::elliptic_el2(cplx(z.re, z.im), akp, a, b, status);
  if (status == 1) {
    call.report_null(NE_INFINITE);
    return zero;
  }
  if (status == 2) {
    call.report_null(NE_S21_CONV);
    return zero;
  }
  call.success();
  return to_c(r);
}

ZEM_API void s22aac(int32_t mode, double x, int32_t m, int32_t nl, double p[], ZemError* fail) {
  Call call("s22aac", fail);
  if (call.int_cons(mode != 1 && mode != 2, "mode", mode, "mode = 1 or 2")) return;
  if (real_cons(call, !(std::fabs(x) <= 1.0), "x", x, "abs(x) <= 1.0")) return;
  if (call.int_cons(nl < 0, "nl", nl, "nl >= 0")) return;
  if (call.null("p", p)) return;
  if (!zem::sf::legendre_p(mode, x, m, nl, p)) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return;
  }
  call.success();
}

ZEM_API double s23aac(double sig, ZemError* fail) {
  Call call("s23aac", fail);
  if (real_ne(call, "sig", sig, 1.0, "1.0")) return x02alc();
  bool overflow = false;
  const double v = zem::sf::riemann_zeta(sig, overflow);
  if (overflow) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return std::copysign(x02alc(), v);
  }
  call.success();
  return v;
}
