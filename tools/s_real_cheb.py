#!/usr/bin/env python3
"""Chebyshev coefficients for special/bessel_real.cpp.

  g(x) = exp(x) sqrt(x) K0(x) on [1, 2] in t = 2x - 3, on [2, 8] in
         t = (16/x - 5)/3 and on [8, inf) in t = 16/x - 1;
  Y0(x) / (x - y0,2) and Y1(x) / ((x - y1,1)(x - y1,2)) on [2, 5] in
         t = (2x - 7)/3, with the zeros of Y0 near 3.96 and of Y1 near 2.20
         and 5.43 divided out (the zeros themselves are printed as
         double-double pairs), so that the product keeps its relative
         accuracy up to and near the zeros.
Coefficients come from the values at N Chebyshev nodes at 40 digits and are
kept while above 1e-17 of the leading one.  Prints C++ arrays, highest
order first, for the Clenshaw sum sum' c_k T_k(t) (c_0 halved).

Run: python3 tools/s_real_cheb.py
"""
import mpmath as mp

mp.mp.dps = 40


def cheb(f, n=48):
    nodes = [mp.cos(mp.pi * (j + 0.5) / n) for j in range(n)]
    fv = [f(t) for t in nodes]
    return [2 * mp.fsum(fv[j] * mp.cos(mp.pi * k * (j + 0.5) / n) for j in range(n)) / n
            for k in range(n)]


def g(x):
    return mp.exp(x) * mp.sqrt(x) * mp.besselk(0, x)


def emit(name, c, comment):
    keep = 0
    for k, v in enumerate(c):
        if abs(v) > 1e-17 * abs(c[0]) / 2:
            keep = k + 1
    coeffs = list(reversed(c[:keep]))
    print('// %s' % comment)
    print('constexpr double %s[%d] = {' % (name, keep))
    for i in range(0, keep, 3):
        print('    ' + ', '.join('%.17e' % float(v) for v in coeffs[i:i + 3]) + ',')
    print('};')


emit('CK0_1_2', cheb(lambda t: g((t + 3) / 2)), 'exp(x) sqrt(x) K0(x) on [1, 2], t = 2x - 3')
emit('CK0_2_8', cheb(lambda t: g(16 / (3 * t + 5))),
     'exp(x) sqrt(x) K0(x) on [2, 8], t = (16/x - 5)/3')
emit('CK0_8_INF', cheb(lambda t: g(16 / (t + 1))),
     'exp(x) sqrt(x) K0(x) on [8, inf), t = 16/x - 1')

y02 = mp.besselyzero(0, 2)
y11 = mp.besselyzero(1, 1)
for name, z in (('kY0Zero2', y02), ('kY1Zero1', y11)):
    hi = float(z)
    print('constexpr double %s[2] = {%.17e, %.17e};' % (name, hi, float(z - hi)))
emit('CY0_2_5', cheb(lambda t: mp.bessely(0, (3 * t + 7) / 2) / ((3 * t + 7) / 2 - y02)),
     'Y0(x) / (x - y0,2) on [2, 5], t = (2x - 7)/3')
y12 = mp.besselyzero(1, 2)
hi = float(y12)
print('constexpr double kY1Zero2[2] = {%.17e, %.17e};' % (hi, float(y12 - hi)))
emit('CY1_2_5', cheb(lambda t: mp.bessely(1, (3 * t + 7) / 2) /
                     (((3 * t + 7) / 2 - y11) * ((3 * t + 7) / 2 - y12))),
     'Y1(x) / ((x - y1,1)(x - y1,2)) on [2, 5], t = (2x - 7)/3')
