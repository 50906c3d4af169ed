/* s: special functions. */
#ifndef ZEM_S_H
#define ZEM_S_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* ---- Functions of real argument ---- */

/* Scalar functions of one real argument.  Each returns the value and
 * reports through fail (the last argument).  Outside its range a routine
 * returns the fixed value stated and reports the row given; elsewhere it
 * closes with success.  Limits are where the result leaves the range of
 * doubles or the argument carries no information. */

/* s01bac: ln(1+x), accurate for small x.  x <= -1.0: NE_REAL_ARG_LE, 0.0. */
ZEM_API double s01bac(double x, ZemError *fail);
/* s07aac: tan x.  |x| > fl1 = 2^52 (about 4.5e+15, where neighbouring
 * arguments are a unit apart): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s07aac(double x, ZemError *fail);
/* s10aac: tanh x. */
ZEM_API double s10aac(double x, ZemError *fail);
/* s10abc: sinh x.  |x| > 710.47 (overflow): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s10abc(double x, ZemError *fail);
/* s10acc: cosh x.  |x| > 710.47 (overflow): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s10acc(double x, ZemError *fail);
/* s11aac: artanh x.  |x| >= 1.0: NE_REAL_ARG_GE, 0.0. */
ZEM_API double s11aac(double x, ZemError *fail);
/* s11abc: arsinh x. */
ZEM_API double s11abc(double x, ZemError *fail);
/* s11acc: arcosh x.  x < 1.0: NE_REAL_ARG_LT, 0.0. */
ZEM_API double s11acc(double x, ZemError *fail);

/* s13aac: the exponential integral E1(x) = int_x^inf e^-t / t dt for x > 0;
 * for x < 0 its principal real part -Ei(-x).  x = 0.0: NE_REAL_ARG_EQ, 0.0;
 * x < -716.3 (overflow): NE_REAL_ARG_LT, 0.0.  Underflows to 0 beyond 745. */
ZEM_API double s13aac(double x, ZemError *fail);
/* s13acc: the cosine integral Ci(x) = gamma + ln x + int_0^x (cos t - 1)/t dt.
 * x <= 0.0: NE_REAL_ARG_LE, 0.0. */
ZEM_API double s13acc(double x, ZemError *fail);
/* s13adc: the sine integral Si(x) = int_0^x sin t / t dt. */
ZEM_API double s13adc(double x, ZemError *fail);

/* s14aac: the gamma function by a fixed polynomial for gamma(1+f), f in
 * [0,1], and the recurrence.  x > 170.0: NE_REAL_ARG_GT, 4.3e+304;
 * x < -170.0: NE_REAL_ARG_LT, 0.0; x a negative integer:
 * NE_REAL_ARG_NEG_INT, 4.3e+304; |x| < 2.23e-308: NE_REAL_ARG_TOO_SMALL,
 * +-4.4843049327354256e+307 (the signed reciprocal of 2.23e-308; + for 0). */
ZEM_API double s14aac(double x, ZemError *fail);
/* s14abc: ln |Gamma(x)|.  x = 0.0: NE_REAL_ARG_EQ; x a negative integer:
 * NE_REAL_ARG_NEG_INT; x > 2.55e+305 (overflow): NE_REAL_ARG_GT; each 0.0. */
ZEM_API double s14abc(double x, ZemError *fail);
/* s14acc: psi(x) - ln x, psi the logarithmic derivative of gamma.
 * x <= 0.0: NE_REAL_ARG_LE; x < 1/DBL_MAX: NE_OVERFLOW_LIKELY;
 * x > 0.5/DBL_MIN: NE_UNDERFLOW_LIKELY; each 0.0. */
ZEM_API double s14acc(double x, ZemError *fail);
/* s14adc: the scaled derivatives of psi,
 *   ans[i] = (-1)^(k+1) psi^(k)(x) / k!,  k = n + i,  i = 0..m-1
 * (for k >= 1 the Hurwitz zeta function zeta(k+1, x); for k = 0, -psi(x)).
 *   x    in   the argument, x > 0.0.
 *   n    in   the first order, n >= 0.
 *   m    in   the number of orders, m >= 1.
 *   ans  out  m values.
 * x <= 0.0: NE_REAL_ARG_LE; n < 0, m < 1: NE_INT_ARG_LT; ans null:
 * NE_BAD_PARAM; a term whose leading part x^-(k+1) overflows:
 * NE_OVERFLOW_LIKELY (that and later elements 0.0); a term below DBL_MIN:
 * NE_UNDERFLOW_LIKELY (all elements stand). */
ZEM_API void s14adc(double x, int32_t n, int32_t m, double ans[], ZemError *fail);
/* s14aec: the k-th derivative psi^(k)(x) of psi, 0 <= k <= 6, for x not 0
 * or a negative integer (negative x by the reflection formula).
 * x = 0.0: NE_REAL_ARG_EQ; x a negative integer: NE_REAL_ARG_NEG_INT;
 * k outside 0..6: NE_INT; result overflows: NE_OVERFLOW_LIKELY;
 * each 0.0. */
ZEM_API double s14aec(double x, int32_t k, ZemError *fail);
/* s14bac: the regularised incomplete gamma functions
 *   P(a,x) = int_0^x t^(a-1) e^-t dt / Gamma(a),  Q(a,x) = 1 - P(a,x)
 * to the relative tolerance tol (machine precision if smaller), by the
 * power series for x < a+1 and the continued fraction for Q beyond; the
 * smaller of P and Q is computed directly.
 *   a     in   a > 0.0.
 *   x     in   x >= 0.0.
 *   tol   in   relative tolerance.
 *   p, q  out  P(a,x) and Q(a,x).
 * a <= 0.0: NE_REAL_ARG_LE; x < 0.0: NE_REAL_ARG_LT; p or q null:
 * NE_BAD_PARAM; no convergence: NE_ALG_NOT_CONV. */
ZEM_API void s14bac(double a, double x, double tol, double *p, double *q, ZemError *fail);

/* s15abc: the normal distribution function P(x) = erfc(-x/sqrt 2)/2. */
ZEM_API double s15abc(double x, ZemError *fail);
/* s15acc: its complement Q(x) = erfc(x/sqrt 2)/2. */
ZEM_API double s15acc(double x, ZemError *fail);
/* s15adc: erfc x = 2/sqrt(pi) int_x^inf exp(-t^2) dt. */
ZEM_API double s15adc(double x, ZemError *fail);
/* s15aec: erf x = 1 - erfc x. */
ZEM_API double s15aec(double x, ZemError *fail);
/* s15afc: Dawson's integral F(x) = exp(-x^2) int_0^x exp(t^2) dt. */
ZEM_API double s15afc(double x, ZemError *fail);

/* s17acc, s17adc: Bessel functions Y0(x), Y1(x).  x <= 0.0:
 * NE_REAL_ARG_LE, 0.0; s17adc also x < 3.6e-308 (overflow):
 * NE_REAL_ARG_TOO_SMALL, 0.0. */
ZEM_API double s17acc(double x, ZemError *fail);
ZEM_API double s17adc(double x, ZemError *fail);
/* s17aec, s17afc: Bessel functions J0(x), J1(x). */
ZEM_API double s17aec(double x, ZemError *fail);
ZEM_API double s17afc(double x, ZemError *fail);
/* s17agc, s17ajc: Airy functions Ai(x), Ai'(x) (0 beyond their underflow
 * near x = 104). */
ZEM_API double s17agc(double x, ZemError *fail);
ZEM_API double s17ajc(double x, ZemError *fail);
/* s17ahc: Airy Bi(x).  x > 104.4 (overflow): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s17ahc(double x, ZemError *fail);
/* s17akc: Airy Bi'(x).  x > 104.2 (overflow): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s17akc(double x, ZemError *fail);

/* s18acc, s18adc: modified Bessel functions K0(x), K1(x); s18ccc, s18cdc:
 * e^x K0(x), e^x K1(x).  x <= 0.0: NE_REAL_ARG_LE, 0.0; s18adc, s18cdc also
 * x < 5.6e-309 (overflow): NE_REAL_ARG_TOO_SMALL, 0.0. */
ZEM_API double s18acc(double x, ZemError *fail);
ZEM_API double s18adc(double x, ZemError *fail);
ZEM_API double s18ccc(double x, ZemError *fail);
ZEM_API double s18cdc(double x, ZemError *fail);
/* s18aec, s18afc: modified Bessel functions I0(x), I1(x).  |x| > 713.98
 * (overflow): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s18aec(double x, ZemError *fail);
ZEM_API double s18afc(double x, ZemError *fail);

/* s19aac, s19abc: Kelvin functions ber x, bei x (ber x + i bei x =
 * I0(x e^(i pi/4))).  |x| > 1000.0 (overflow near 1010): NE_REAL_ARG_GT, 0.0. */
ZEM_API double s19aac(double x, ZemError *fail);
ZEM_API double s19abc(double x, ZemError *fail);
/* s19acc, s19adc: Kelvin functions ker x, kei x (ker x + i kei x =
 * K0(x e^(i pi/4))).  x <= 0.0: NE_REAL_ARG_LE, 0.0.  Underflow to 0 beyond
 * about x = 1054. */
ZEM_API double s19acc(double x, ZemError *fail);
ZEM_API double s19adc(double x, ZemError *fail);

/* s20acc, s20adc: Fresnel integrals S(x) = int_0^x sin(pi t^2/2) dt and
 * C(x) = int_0^x cos(pi t^2/2) dt. */
ZEM_API double s20acc(double x, ZemError *fail);
ZEM_API double s20adc(double x, ZemError *fail);


/* ---- end of functions of real argument ---- */

/* ---- Functions of complex argument and Bessel families of real order ---- */

/* Bessel and Hankel functions of complex argument z and real order: the
 * sequence f_{fnu+k}(z), k = 0..n-1, into cy[0..n-1].
 *   fnu >= 0 (NE_REAL_ARG_LT); n >= 1 (NE_INT_ARG_LT); scal is
 *   Zem_UnscaleRes or Zem_ScaleRes (NE_BAD_PARAM), the latter asking for
 *   the scaled functions named below; cy, nz not null (NE_BAD_PARAM).
 *   z = (0.0, 0.0) is NE_COMPLEX_ZERO where the function has a pole (K, Y, H).
 *   nz: the number of members set to zero because they underflow.
 * Rows after the computation: NW_SOME_PRECISION_LOSS when abs(z) or fnu+n-1
 * exceeds 32768 (results returned, with fewer correct digits),
 * NE_TOTAL_PRECISION_LOSS above 2^30 (no computation), NE_OVERFLOW_LIKELY
 * (no results), NE_TERMINATION_FAILURE (a continued fraction or recurrence
 * would need more than 2e7 steps; no results: this happens only past the
 * first limit, for I near the imaginary axis (J, Y, H near the real axis)
 * with abs(z) above 2e7 and fnu+n-1 above sqrt(2 abs(z)), or for orders
 * above 2e7 within a few times fnu^(1/3) of abs(z) = fnu).
 *   s17dcc: Y_{fnu+k}(z); scaled e^{-|Im z|} Y.
 *   s17dec: J_{fnu+k}(z); scaled e^{-|Im z|} J.
 *   s18dcc: K_{fnu+k}(z); scaled e^{z} K.
 *   s18dec: I_{fnu+k}(z); scaled e^{-|Re z|} I.
 *   s17dlc: the Hankel function H^(m)_{fnu+k}(z), m = 1 or 2 (NE_ARG_INVALID,
 *           checked first); scaled e^{-iz} H^(1), e^{iz} H^(2).
 * The branch cut of the non-integer orders is the negative real axis; on it
 * the functions take the values from above (arg z = pi). */
ZEM_API void s17dcc(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t *nz, ZemError *fail);
ZEM_API void s17dec(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t *nz, ZemError *fail);
ZEM_API void s18dcc(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t *nz, ZemError *fail);
ZEM_API void s18dec(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t *nz, ZemError *fail);
ZEM_API void s17dlc(int32_t m, double fnu, ZemComplex z, int32_t n, int32_t scal,
                    ZemComplex cy[], int32_t *nz, ZemError *fail);

/* Airy functions of complex argument.  deriv is Zem_Function or Zem_Deriv
 * (NE_BAD_PARAM), scal Zem_UnscaleRes or Zem_ScaleRes.
 *   s17dgc: Ai(z) or Ai'(z) into *ai; scaled e^{zeta} Ai with
 *           zeta = (2/3) z^{3/2}; *nz is 1 when the result underflowed.
 *   s17dhc: Bi(z) or Bi'(z) into *bi; scaled e^{-|Re zeta|} Bi.
 * NW_SOME_PRECISION_LOSS for abs(z) > (2^30)^(1/3), about 1024,
 * NE_TOTAL_PRECISION_LOSS above (2^30)^(2/3), about 1.05e6;
 * NE_OVERFLOW_LIKELY; NE_TERMINATION_FAILURE. */
ZEM_API void s17dgc(int32_t deriv, ZemComplex z, int32_t scal, ZemComplex *ai, int32_t *nz,
                    ZemError *fail);
ZEM_API void s17dhc(int32_t deriv, ZemComplex z, int32_t scal, ZemComplex *bi, ZemError *fail);

/* By-address forms of s17dcc (Y) and s17dec (J) in the style of the core
 * layer.  scale is one letter, 'U' (unscaled) or 'S' (scaled), either case;
 * scale_len is its hidden length and is unused.  ifail is the mode word on
 * entry (see p01abf_f) and on exit 0 or the failure: 1 a bad argument (a null
 * pointer, fnu < 0, z = 0 for Y, n < 1, scale), 2 overflow, 3 precision
 * partly lost (results returned), 4 total loss of precision, 5 termination
 * failure.  The explanation goes through p01abf_f. */
ZEM_API void s17dcf_f(const double *fnu, const ZemComplex *z, const int32_t *n,
                      const char *scale, ZemComplex cy[], int32_t *nz, int32_t *ifail,
                      size_t scale_len);
ZEM_API void s17def_f(const double *fnu, const ZemComplex *z, const int32_t *n,
                      const char *scale, ZemComplex cy[], int32_t *nz, int32_t *ifail,
                      size_t scale_len);

/* Modified Bessel functions of order nu/4, nu = +-1, +-2, +-3
 * ("1 <= abs(nu) <= 3", NE_INT), of real x:
 *   s18ecc: e^x K_{nu/4}(x), s18edc: K_{nu/4}(x), x > 0.0 (NE_REAL_ARG_LE);
 *   s18eec: e^-x I_{nu/4}(x), s18efc: I_{nu/4}(x), x >= 0.0
 *   (NE_REAL_ARG_LT), and x > 0.0 when nu < 0 (NE_REAL_INT).
 * NE_OVERFLOW_LIKELY (s18efc for x above about 713) returns the largest
 * double. */
ZEM_API double s18ecc(double x, int32_t nu, ZemError *fail);
ZEM_API double s18edc(double x, int32_t nu, ZemError *fail);
ZEM_API double s18eec(double x, int32_t nu, ZemError *fail);
ZEM_API double s18efc(double x, int32_t nu, ZemError *fail);

/* Sequences of real order a + n, 0.0 <= a < 1.0 (NE_REAL), of real x:
 *   s18egc: K_{a+n}(x), s18ehc: e^x K_{a+n}(x), n = 0..nl into bk[0..nl];
 *           x > 0.0 (NE_REAL_ARG_LE), "0 <= nl <= 100" (NE_INT).
 *   s18ejc: I_{a+n}(x) (nl >= 0) or I_{a-n}(x) (nl < 0), n = 0..|nl|;
 *   s18ekc: J_{a+n}(x) or J_{a-n}(x) likewise; x >= 0.0 (NE_REAL_ARG_LT),
 *           "abs(nl) <= 101" (NE_INT).
 * NE_OVERFLOW_LIKELY when a member would overflow (K of small x, I of
 * large x, negative non-integer orders at x = 0). */
ZEM_API void s18egc(double x, double a, int32_t nl, double bk[], ZemError *fail);
ZEM_API void s18ehc(double x, double a, int32_t nl, double bk[], ZemError *fail);
ZEM_API void s18ejc(double x, double a, int32_t nl, double bi[], ZemError *fail);
ZEM_API void s18ekc(double x, double a, int32_t nl, double bj[], ZemError *fail);

/* s18gkc: J_{a+n}(z), n = 0..nl, of complex z into b[0..nl];
 * 0.0 <= a < 1.0 (NE_REAL), "0 <= nl <= 100" (NE_INT); NE_OVERFLOW_LIKELY,
 * NW_SOME_PRECISION_LOSS and NE_TOTAL_PRECISION_LOSS as for s17dec. */
ZEM_API void s18gkc(ZemComplex z, double a, int32_t nl, ZemComplex b[], ZemError *fail);

/* s14agc: ln Gamma(z) for complex z, the analytic continuation from the
 * positive real axis (imaginary part not reduced to (-pi, pi]; on the
 * negative real axis the value from above).  NE_TOO_CLOSE_INTEGER at a
 * non-positive integer (returns (DBL_MAX, 0)); NE_OVERFLOW_LIKELY when
 * |z ln z| overflows. */
ZEM_API ZemComplex s14agc(ZemComplex z, ZemError *fail);

/* s14afc: the polygamma function psi^(k)(z) = d^(k+1)/dz^(k+1) ln Gamma(z)
 * of complex z, "0 <= k <= 4" (NE_INT).  NE_TOO_CLOSE_INTEGER at or so near a
 * non-positive integer that the result overflows; NE_OVERFLOW_LIKELY when it
 * overflows elsewhere.  Returns (0, 0) after a failure. */
ZEM_API ZemComplex s14afc(ZemComplex z, int32_t k, ZemError *fail);

/* s15ddc: w(z) = exp(-z^2) erfc(-iz), the scaled complement of the error
 * function of complex z (the Faddeeva function).  Below the real axis the
 * term 2 exp(-z^2) enters: NE_RESULT_OVERFLOW when Im(z)^2 - Re(z)^2 is so
 * large that it overflows (returns 0); NE_RESULT_NO_PRECISION when its phase
 * |2 Re(z) Im(z)| >= 1/eps (returns 0); NE_RESULT_HALF_PRECISION, a warning
 * with the result returned, when the phase >= 1/sqrt(eps). */
ZEM_API ZemComplex s15ddc(ZemComplex z, ZemError *fail);

/* s17alc: the first n positive zeros of J_a (mode 1), Y_a (2), J'_a (3) or
 * Y'_a (4) into x[0..n-1], each to the relative accuracy rel (or to the
 * rounding of the function where rel is smaller).  The first zero of J'_0 is
 * taken as 0, where J'_0 vanishes, so that the first zero of J'_a is
 * continuous in a.  a >= 0.0 (NE_REAL_ARG_LT), a <= 100000.0
 * (NE_REAL_ARG_GT), n >= 1 (NE_INT_ARG_LT), mode 1, 2, 3 or 4
 * (NE_ARG_INVALID), rel > 0.0 (NE_REAL_ARG_LE); NE_TERMINATION_FAILURE when
 * Newton's iteration does not settle. */
ZEM_API void s17alc(double a, int32_t n, int32_t mode, double rel, double x[], ZemError *fail);

/* ---- end of complex argument ---- */

/* ---- Elliptic integrals and functions, Legendre functions ---- */

/* Carlson's symmetric elliptic integrals, by the duplication theorem.
 * Arguments are scaled internally, so every finite argument is accepted;
 * the result may still overflow where the integral is near a singularity.
 *   s21bac  RC(x, y) = 1/2 int_0^inf (t + x)^(-1/2) (t + y)^(-1) dt,
 *           x >= 0.0, y != 0.0; for y < 0.0 the Cauchy principal value.
 *   s21bbc  RF(x, y, z) = 1/2 int_0^inf ((t+x)(t+y)(t+z))^(-1/2) dt,
 *           x, y, z >= 0.0, at most one of them 0.0.
 *   s21bcc  RD(x, y, z) = 3/2 int_0^inf ((t+x)(t+y))^(-1/2) (t+z)^(-3/2) dt,
 *           x, y >= 0.0, at most one of them 0.0, z > 0.0.
 *   s21bdc  RJ(x, y, z, r) = 3/2 int_0^inf ((t+x)(t+y)(t+z))^(-1/2) (t+r)^(-1) dt,
 *           x, y, z >= 0.0, at most one of them 0.0, r != 0.0; for r < 0.0
 *           the Cauchy principal value.
 * Reports (the result is then 0.0): NE_REAL_ARG_LT (a negative argument),
 * NE_REAL_ARG_LE (z <= 0.0 in s21bcc), NE_REAL_ARG_EQ (y or r equal to
 * 0.0), NE_2_REAL_ARG_CONS / NE_3_REAL_ARG_CONS (too many zeros). */
ZEM_API double s21bac(double x, double y, ZemError *fail);
ZEM_API double s21bbc(double x, double y, double z, ZemError *fail);
ZEM_API double s21bcc(double x, double y, double z, ZemError *fail);
ZEM_API double s21bdc(double x, double y, double z, double r, ZemError *fail);

/* s21cac: the Jacobian elliptic functions sn(u|m), cn(u|m), dn(u|m) for
 * real u and any real parameter m (m = k^2): by the arithmetic-geometric
 * mean for 0 <= m <= 1, and by the reciprocal-parameter (m > 1) and
 * imaginary-modulus (m < 0) transformations otherwise.  m = 0 gives
 * sin, cos, 1 and m = 1 gives tanh, sech, sech.
 * Reports: NE_BAD_PARAM (a null output). */
ZEM_API void s21cac(double u, double m, double *sn, double *cn, double *dn, ZemError *fail);

/* s21cbc: sn, cn, dn of complex argument z with parameter ak2 = m,
 * 0 <= m <= 1, by the addition theorem on the real and imaginary parts.
 * At a pole the results are infinite.
 * Reports: NE_REAL (ak2 outside [0, 1]), NE_BAD_PARAM (a null output). */
ZEM_API void s21cbc(ZemComplex z, double ak2, ZemComplex *sn, ZemComplex *cn, ZemComplex *dn,
                    ZemError *fail);

/* s21ccc: the Jacobian theta function theta_k(x, q) of real x and nome q,
 * 0 <= q <= 1:
 *   theta_1(x,q) = 2 sum_{n>=0} (-1)^n q^((n+1/2)^2) sin((2n+1) pi x)
 *   theta_2(x,q) = 2 sum_{n>=0} q^((n+1/2)^2) cos((2n+1) pi x)
 *   theta_3(x,q) = 1 + 2 sum_{n>=1} q^(n^2) cos(2 n pi x)
 *   theta_4(x,q) = 1 + 2 sum_{n>=1} (-1)^n q^(n^2) cos(2 n pi x)
 * and theta_0 = theta_4, Jacobi's own name for it.  For q near 1 the
 * functions are evaluated through Jacobi's imaginary transformation; at
 * q = 1 they take their limits, 0 except on the peaks (x an integer for
 * theta_2, theta_3; an integer plus 1/2 for theta_1, theta_4), where the
 * limit is infinite: NE_OVERFLOW_LIKELY and the largest double, signed.
 * Reports: NE_REAL (q outside [0, 1]), NE_INT (k outside 0..4). */
ZEM_API double s21ccc(double x, double q, int32_t k, ZemError *fail);

/* s21dac: the general elliptic integral of the second kind of complex
 * argument,
 *   int_0^z (a + b t^2) / ((1 + t^2) sqrt((1 + t^2)(1 + akp^2 t^2))) dt,
 * computed as a z RF(1, 1 + akp^2 z^2, 1 + z^2)
 *            + (b - a) z^3 RD(1, 1 + akp^2 z^2, 1 + z^2) / 3
 * on the principal branches (cuts where 1 + z^2 or 1 + akp^2 z^2 is real
 * and negative).  |z| must not exceed (1/x02amc())^(1/6), about 2.8e51.
 * Reports (result 0): NE_COMPLEX (|z| too large), NE_INFINITE (z at a
 * singularity, 1 + z^2 = 0 with b != a), NE_S21_CONV (no convergence). */
ZEM_API ZemComplex s21dac(ZemComplex z, double akp, double a, double b, ZemError *fail);

/* s22aac: associated Legendre functions of the first kind on the cut
 * (Ferrers' functions, with the Condon-Shortley phase (-1)^m),
 *   P_n^m(x) = (-1)^m (1 - x^2)^(m/2) d^m P_n(x) / dx^m,
 * for n = |m|, |m|+1, ..., |m|+nl into p[0..nl]; m may be negative,
 * P_n^(-m) = (-1)^m (n-m)!/(n+m)! P_n^m.  mode 1: unnormalised; mode 2:
 * normalised to unit norm on [-1, 1], sqrt((2n+1)/2 (n-m)!/(n+m)!) P_n^m.
 * By the three-term recurrence in n, with scaled starting values so that
 * no intermediate overflows.
 * Reports: NE_INT (mode not 1 or 2; nl < 0), NE_REAL (|x| > 1.0),
 * NE_BAD_PARAM (null p), NE_OVERFLOW_LIKELY (mode 1 values beyond the
 * double range, returned as the largest double, signed). */
ZEM_API void s22aac(int32_t mode, double x, int32_t m, int32_t nl, double p[], ZemError *fail);

/* s23aac: the Riemann zeta function zeta(sig) of real argument sig,
 * sig != 1.  The argument carries the name of the real part of the usual
 * complex variable s = sig + i t.  By Euler-Maclaurin summation for
 * sig >= 1/2 and by the functional equation
 *   zeta(sig) = 2 (2 pi)^(sig-1) sin(pi sig / 2) Gamma(1 - sig) zeta(1 - sig)
 * below; zeta(-2n) = 0 exactly.
 * Reports: NE_REAL_ARG_EQ (sig = 1.0, the pole; returns the largest
 * double), NE_OVERFLOW_LIKELY (sig below about -260, where |zeta|
 * overflows; returns the largest double with the sign of zeta). */
ZEM_API double s23aac(double sig, ZemError *fail);


/* ---- end of elliptic and Legendre ---- */

ZEM_END_DECLS
#endif /* ZEM_S_H */
