/* c02: zeros of polynomials. */
#ifndef ZEM_C02_H
#define ZEM_C02_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* c02afc: all zeros of the complex polynomial
 *   a[0] z^n + a[1] z^(n-1) + ... + a[n-1] z + a[n]
 * by a modified Laguerre iteration: the zeros are found one at a time, in
 * roughly increasing order of modulus, each from the origin under a step
 * control derived from bounds on the nearest zero, refined on the given
 * polynomial, and divided out.  Each zero z is a zero of the given
 * polynomial to the rounding-error bound of its evaluation: |p(z)| is at
 * most a small multiple of (n+1) x02ajc() sum |a[j]| |z|^(n-j).
 *   n      in   the degree, n >= 1.
 *   a      in   the n+1 coefficients, highest power first; a[0] != 0.
 *   scale  in   Boolean: nonzero scales the coefficients by a power of 2
 *               that brings the largest to about 2^970 before the search
 *               (no scaling if that power is out of range).  The zeros do
 *               not depend on it; in rare cases of extreme coefficients it
 *               decides whether the computation stays in range.
 *   z      out  the n zeros in the order found.  Every place is first set
 *               to -1/(x02akc()*sqrt(2)) in both parts; after a failure
 *               the places of zeros not found keep that mark.  A zero at
 *               infinity (a coefficient a[0] that vanishes under scaling, or
 *               a zero beyond the range of doubles) is 1/x02akc().
 *   fail   in/out  error record.
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (a or z null),
 * NE_COMPLEX_ZERO (a[0] = (0, 0)), NE_ALLOC_FAIL, NE_POLY_NOT_CONV (the
 * iteration failed to converge), NE_POLY_OVFLOW (the computation left the
 * range of doubles, or a coefficient is not finite). */
ZEM_API void c02afc(int32_t n, const ZemComplex a[], int32_t scale, ZemComplex z[],
                    ZemError *fail);

/* c02agc: all zeros of the real polynomial
 *   a[0] x^n + a[1] x^(n-1) + ... + a[n-1] x + a[n]
 * by the method of c02afc in real arithmetic: a complex zero is found with
 * its conjugate, and the two are stored next to each other, the one with
 * positive imaginary part first, as exact conjugates.
 *   n      in   the degree, n >= 1.
 *   a      in   the n+1 coefficients, highest power first; a[0] != 0.0.
 *   scale  in   Boolean, as for c02afc.
 *   z      out  the n zeros, marked and ordered as for c02afc.
 *   fail   in/out  error record.
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (a or z null),
 * NE_REAL_ARG_EQ (a[0] = 0.0), NE_ALLOC_FAIL, NE_POLY_NOT_CONV,
 * NE_POLY_UNFLOW (the scale of the computation ran out of range),
 * NE_POLY_OVFLOW (the computation overflowed, or a coefficient is not
 * finite). */
ZEM_API void c02agc(int32_t n, const double a[], int32_t scale, ZemComplex z[], ZemError *fail);

/* c02akc: the three zeros of the real cubic u x^3 + r x^2 + s x + t, as the
 * eigenvalues of the balanced companion matrix H, with error estimates
 * errest[i] = x02ajc() * |H|_1 / s_i, where s_i is the reciprocal condition
 * number of the eigenvalue (x02ajc() for a zero exactly at the origin,
 * x02alc() when the quotient overflows).
 *   u, r, s, t   in   the coefficients; u != 0.0.
 *   zeror, zeroi out  real and imaginary parts of the zeros (3 each).
 *   errest       out  estimated absolute errors of the zeros (3).
 *   fail         in/out  error record.  fail->errnum holds the failure
 *                number of the underlying computation (0 on success).
 * Reports: NE_BAD_PARAM (a null output array), NE_REAL (u = 0.0),
 * NE_C02_OVERFLOW (the companion matrix overflows, or a coefficient is not
 * finite), NE_C02_NOT_CONV (the QR algorithm failed), NE_INTERNAL_ERROR. */
ZEM_API void c02akc(double u, double r, double s, double t, double zeror[], double zeroi[],
                    double errest[], ZemError *fail);

/* c02alc: the four zeros of the real quartic e x^4 + a x^3 + b x^2 + c x + d,
 * by the method of c02akc.
 *   e, a, b, c, d  in   the coefficients; e != 0.0.
 *   zeror, zeroi   out  real and imaginary parts of the zeros (4 each).
 *   errest         out  estimated absolute errors of the zeros (4).
 *   fail           in/out  error record; fail->errnum as for c02akc.
 * Reports: NE_BAD_PARAM (a null output array), NE_REAL (e = 0.0),
 * NE_C02_OVERFLOW, NE_C02_NOT_CONV, NE_INTERNAL_ERROR. */
ZEM_API void c02alc(double e, double a, double b, double c, double d, double zeror[],
                    double zeroi[], double errest[], ZemError *fail);

ZEM_END_DECLS
#endif /* ZEM_C02_H */
