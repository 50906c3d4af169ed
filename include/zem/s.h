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
