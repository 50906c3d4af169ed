// The exported routines of the s chapter for functions of real argument:
// each clears the error record, checks its argument against the range where
// the function is defined and representable, returns the fixed value with
// its row outside it, and otherwise evaluates the core (special/real.hpp).
#include <cfloat>
#include <cmath>
#include <cstdio>

#include "frame/report.hpp"
#include "special/real.hpp"
#include "zem/s.h"

namespace {

// x beyond a limit: row `code` names the argument, the limit as text and the
// value.
inline double refuse(zem::Call& call, int code, const char* name, const char* limit, double v,
                     double ret) {
  call.report(code, name, limit, name, v);
  return ret;
}

inline double done(zem::Call& call, double v) {
  call.success();
  return v;
}

// Function of x with no restriction on x.
template <double (*F)(double)>
inline double plain(const char* name, double x, ZemError* fail) {
  zem::Call call(name, fail);
  return done(call, F(x));
}

// The s17 routines state their range limits as "%7.1g" (large) or "%9.1g"
// (small) renderings of the limit.
inline double refuse_g(zem::Call& call, int code, const char* name, const char* fmt, double limit,
                       double v) {
  char text[32];
  std::snprintf(text, sizeof text, fmt, limit);
  return refuse(call, code, name, text, v, 0.0);
}

inline bool nonpositive_integer(double x) { return x <= 0.0 && x == std::floor(x); }

double tanh_(double x) { return std::tanh(x); }
double asinh_(double x) { return std::asinh(x); }

}  // namespace

// ---- s01, s07, s10, s11: elementary functions

extern "C" ZEM_API double s01bac(double x, ZemError* fail) {
  zem::Call call("s01bac", fail);
  if (call.real_le("x", x, -1.0, "-1.0")) return 0.0;
  return done(call, std::log1p(x));
}

extern "C" ZEM_API double s07aac(double x, ZemError* fail) {
  zem::Call call("s07aac", fail);
  // fl1 = 2^52: beyond it neighbouring doubles are a unit or more apart and
  // tan x carries no information.
  if (std::fabs(x) > 0x1p52)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "fl1 = 4.5e+15", std::fabs(x), 0.0);
  return done(call, std::tan(x));
}

extern "C" ZEM_API double s10aac(double x, ZemError* fail) {
  return plain<tanh_>("s10aac", x, fail);
}

extern "C" ZEM_API double s10abc(double x, ZemError* fail) {
  zem::Call call("s10abc", fail);
  if (std::fabs(x) > 710.47)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "710.47", std::fabs(x), 0.0);
  return done(call, std::sinh(x));
}

extern "C" ZEM_API double s10acc(double x, ZemError* fail) {
  zem::Call call("s10acc", fail);
  if (std::fabs(x) > 710.47)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "710.47", std::fabs(x), 0.0);
  return done(call, std::cosh(x));
}

extern "C" ZEM_API double s11aac(double x, ZemError* fail) {
  zem::Call call("s11aac", fail);
  if (!(std::fabs(x) < 1.0))
    return refuse(call, NE_REAL_ARG_GE, "abs(x)", "1.0", std::fabs(x), 0.0);
  return done(call, std::atanh(x));
}

extern "C" ZEM_API double s11abc(double x, ZemError* fail) {
  return plain<asinh_>("s11abc", x, fail);
}

extern "C" ZEM_API double s11acc(double x, ZemError* fail) {
  zem::Call call("s11acc", fail);
  if (call.real_lt("x", x, 1.0, "1.0")) return 0.0;
  return done(call, std::acosh(x));
}

// ---- s13: exponential, sine and cosine integrals

extern "C" ZEM_API double s13aac(double x, ZemError* fail) {
  zem::Call call("s13aac", fail);
  if (x == 0.0) return refuse(call, NE_REAL_ARG_EQ, "x", "0.0", x, 0.0);
  if (x < -716.3) return refuse(call, NE_REAL_ARG_LT, "x", "-716.3", x, 0.0);
  return done(call, zem::sf::expint_e1(x));
}

extern "C" ZEM_API double s13acc(double x, ZemError* fail) {
  zem::Call call("s13acc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::cosine_integral(x));
}

extern "C" ZEM_API double s13adc(double x, ZemError* fail) {
  return plain<zem::sf::sine_integral>("s13adc", x, fail);
}

// ---- s14: gamma function and relatives

extern "C" ZEM_API double s14aac(double x, ZemError* fail) {
  zem::Call call("s14aac", fail);
  int status;
  double v = zem::sf::gamma_poly(x, status);
  char limit[32];
  switch (status) {
    case 1:
      std::snprintf(limit, sizeof limit, "%6.1g", 170.0);
      return refuse(call, NE_REAL_ARG_GT, "x", limit, x, v);
    case 2:
      std::snprintf(limit, sizeof limit, "%7.1g", -170.0);
      return refuse(call, NE_REAL_ARG_LT, "x", limit, x, v);
    case 3:
      call.report(NE_REAL_ARG_NEG_INT, "x", "x", x);
      return v;
    case 4:
      std::snprintf(limit, sizeof limit, "%9.1g", 2.23e-308);
      return refuse(call, NE_REAL_ARG_TOO_SMALL, "x", limit, x, v);
    default:
      return done(call, v);
  }
}

extern "C" ZEM_API double s14abc(double x, ZemError* fail) {
  zem::Call call("s14abc", fail);
  if (x == 0.0) return refuse(call, NE_REAL_ARG_EQ, "x", "0.0", x, 0.0);
  if (nonpositive_integer(x)) {
    call.report(NE_REAL_ARG_NEG_INT, "x", "x", x);
    return 0.0;
  }
  if (x > 2.55e305) return refuse(call, NE_REAL_ARG_GT, "x", "2.55e+305", x, 0.0);
  return done(call, zem::sf::lgamma(x));
}

extern "C" ZEM_API double s14acc(double x, ZemError* fail) {
  zem::Call call("s14acc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  if (x < 1.0 / DBL_MAX) {  // psi(x) - ln x ~ -1/x
    call.report(NE_OVERFLOW_LIKELY);
    return 0.0;
  }
  if (x > 0.5 / DBL_MIN) {  // psi(x) - ln x ~ -1/(2x)
    call.report(NE_UNDERFLOW_LIKELY);
    return 0.0;
  }
  return done(call, zem::sf::digamma_minus_log(x));
}

extern "C" ZEM_API void s14adc(double x, int32_t n, int32_t m, double ans[], ZemError* fail) {
  zem::Call call("s14adc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return;
  if (call.int_lt("n", n, 0, "0")) return;
  if (call.int_lt("m", m, 1, "1")) return;
  if (call.null("ans", ans)) return;
  bool under = false;
  for (int32_t i = 0; i < m; ++i) {
    long k = static_cast<long>(n) + i;
    double v;
    if (k == 0) {
      v = -zem::sf::digamma(x);
    } else {
      // (k+1) ln(1/x) bounds the log of the leading term x^-(k+1).
      if (x < 1.0 && (k + 1.0) * -std::log(x) > 709.0) {
        for (int32_t j = i; j < m; ++j) ans[j] = 0.0;
        call.report(NE_OVERFLOW_LIKELY);
        return;
      }
      v = zem::sf::hurwitz_zeta(k + 1.0, x);
      if (v < DBL_MIN) under = true;
    }
    ans[i] = v;
  }
  if (under) {
    call.report(NE_UNDERFLOW_LIKELY);
    return;
  }
  call.success();
}

extern "C" ZEM_API double s14aec(double x, int32_t k, ZemError* fail) {
  zem::Call call("s14aec", fail);
  if (x == 0.0) return refuse(call, NE_REAL_ARG_EQ, "x", "0.0", x, 0.0);
  if (nonpositive_integer(x)) {
    call.report(NE_REAL_ARG_NEG_INT, "x", "x", x);
    return 0.0;
  }
  if (call.int_cons(k < 0 || k > 6, "k", k, "0 <= k <= 6")) return 0.0;
  double v = zem::sf::polygamma(k, x);
  if (std::isinf(v)) {
    call.report(NE_OVERFLOW_LIKELY);
    return 0.0;
  }
  return done(call, v);
}

extern "C" ZEM_API void s14bac(double a, double x, double tol, double* p, double* q,
                               ZemError* fail) {
  zem::Call call("s14bac", fail);
  if (call.real_le("a", a, 0.0, "0.0")) return;
  if (call.real_lt("x", x, 0.0, "0.0")) return;
  if (call.null("p", p) || call.null("q", q)) return;
  bool ok = zem::sf::incomplete_gamma(a, x, tol, *p, *q);
  if (!ok) {
    call.report(NE_ALG_NOT_CONV);
    return;
  }
  call.success();
}

// ---- s15: error function family

extern "C" ZEM_API double s15abc(double x, ZemError* fail) {
  return plain<zem::sf::normal_p>("s15abc", x, fail);
}
extern "C" ZEM_API double s15acc(double x, ZemError* fail) {
  return plain<zem::sf::normal_q>("s15acc", x, fail);
}
extern "C" ZEM_API double s15adc(double x, ZemError* fail) {
  return plain<zem::sf::erfc>("s15adc", x, fail);
}
extern "C" ZEM_API double s15aec(double x, ZemError* fail) {
  return plain<zem::sf::erf>("s15aec", x, fail);
}
extern "C" ZEM_API double s15afc(double x, ZemError* fail) {
  return plain<zem::sf::dawson>("s15afc", x, fail);
}

// ---- s17: Bessel functions J, Y of order 0 and 1; Airy functions

extern "C" ZEM_API double s17acc(double x, ZemError* fail) {
  zem::Call call("s17acc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::bessel_y0(x));
}
extern "C" ZEM_API double s17adc(double x, ZemError* fail) {
  zem::Call call("s17adc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  // Y1(x) ~ -2/(pi x): overflows for x below 2/(pi DBL_MAX).
  if (x < 3.6e-308) return refuse_g(call, NE_REAL_ARG_TOO_SMALL, "x", "%9.1g", 3.6e-308, x);
  return done(call, zem::sf::bessel_y1(x));
}
extern "C" ZEM_API double s17aec(double x, ZemError* fail) {
  return plain<zem::sf::bessel_j0>("s17aec", x, fail);
}
extern "C" ZEM_API double s17afc(double x, ZemError* fail) {
  return plain<zem::sf::bessel_j1>("s17afc", x, fail);
}
extern "C" ZEM_API double s17agc(double x, ZemError* fail) {
  return plain<zem::sf::airy_ai>("s17agc", x, fail);
}
extern "C" ZEM_API double s17ajc(double x, ZemError* fail) {
  return plain<zem::sf::airy_aip>("s17ajc", x, fail);
}
extern "C" ZEM_API double s17ahc(double x, ZemError* fail) {
  zem::Call call("s17ahc", fail);
  if (x > 104.4) return refuse_g(call, NE_REAL_ARG_GT, "x", "%7.1g", 104.4, x);
  return done(call, zem::sf::airy_bi(x));
}
extern "C" ZEM_API double s17akc(double x, ZemError* fail) {
  zem::Call call("s17akc", fail);
  if (x > 104.2) return refuse_g(call, NE_REAL_ARG_GT, "x", "%7.1g", 104.2, x);
  return done(call, zem::sf::airy_bip(x));
}

// ---- s18: modified Bessel functions of order 0 and 1

extern "C" ZEM_API double s18acc(double x, ZemError* fail) {
  zem::Call call("s18acc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::bessel_k0(x));
}
extern "C" ZEM_API double s18adc(double x, ZemError* fail) {
  zem::Call call("s18adc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  // K1(x) ~ 1/x: overflows below 1/DBL_MAX.
  if (x < 5.6e-309) return refuse(call, NE_REAL_ARG_TOO_SMALL, "x", "5.6e-309", x, 0.0);
  return done(call, zem::sf::bessel_k1(x));
}
extern "C" ZEM_API double s18aec(double x, ZemError* fail) {
  zem::Call call("s18aec", fail);
  if (std::fabs(x) > 713.98)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "713.98", std::fabs(x), 0.0);
  return done(call, zem::sf::bessel_i0(x));
}
extern "C" ZEM_API double s18afc(double x, ZemError* fail) {
  zem::Call call("s18afc", fail);
  if (std::fabs(x) > 713.98)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "713.98", std::fabs(x), 0.0);
  return done(call, zem::sf::bessel_i1(x));
}
extern "C" ZEM_API double s18ccc(double x, ZemError* fail) {
  zem::Call call("s18ccc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::bessel_k0e(x));
}
extern "C" ZEM_API double s18cdc(double x, ZemError* fail) {
  zem::Call call("s18cdc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  if (x < 5.6e-309) return refuse(call, NE_REAL_ARG_TOO_SMALL, "x", "5.6e-309", x, 0.0);
  return done(call, zem::sf::bessel_k1e(x));
}

// ---- s19: Kelvin functions

extern "C" ZEM_API double s19aac(double x, ZemError* fail) {
  zem::Call call("s19aac", fail);
  if (std::fabs(x) > 1000.0)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "1000.0", std::fabs(x), 0.0);
  return done(call, zem::sf::kelvin_ber(x));
}
extern "C" ZEM_API double s19abc(double x, ZemError* fail) {
  zem::Call call("s19abc", fail);
  if (std::fabs(x) > 1000.0)
    return refuse(call, NE_REAL_ARG_GT, "abs(x)", "1000.0", std::fabs(x), 0.0);
  return done(call, zem::sf::kelvin_bei(x));
}
extern "C" ZEM_API double s19acc(double x, ZemError* fail) {
  zem::Call call("s19acc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::kelvin_ker(x));
}
extern "C" ZEM_API double s19adc(double x, ZemError* fail) {
  zem::Call call("s19adc", fail);
  if (call.real_le("x", x, 0.0, "0.0")) return 0.0;
  return done(call, zem::sf::kelvin_kei(x));
}

// ---- s20: Fresnel integrals

extern "C" ZEM_API double s20acc(double x, ZemError* fail) {
  return plain<zem::sf::fresnel_s>("s20acc", x, fail);
}
extern "C" ZEM_API double s20adc(double x, ZemError* fail) {
  return plain<zem::sf::fresnel_c>("s20adc", x, fail);
}
