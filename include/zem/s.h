/* s: special functions. */
#ifndef ZEM_S_H
#define ZEM_S_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* ---- Functions of real argument ---- */

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
