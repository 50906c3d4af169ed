#!/usr/bin/python3
"""Reference zeros of polynomials for the c02 tests and benchmark.

Run by hand with /usr/bin/python3 (mpmath and numpy); writes
  tests/data/c02_zeros.txt        polynomials of c02afc / c02agc
  tests/data/c02_cubic_quartic.txt cubics and quartics of c02akc / c02alc
  tests/data/c02_bench_zeros.txt  random polynomials of the benchmark

Every coefficient is a double, written as a C99 hex float, and the
reference zeros are those of the polynomial with exactly these
coefficients, computed with mpmath at DPS digits (polyroots with extra
precision and steps, started from numpy's zeros), or taken from their
closed form where the coefficients are exact.  Zeros are written with 36
significant digits.

For each zero z the file also gives its rounding radius
    r = min over k = 1..K of (n u S(z) / |p^(k)(z)/k!|)^(1/k),
S(z) = sum |a_j| |z|^(n-j), u = 2^-53: the distance a zero moves when the
coefficients are perturbed by n rounding errors, for a simple zero (k = 1)
as well as a multiple zero or a tight cluster (k up to K = 8).

Format, one record per line:
  case <name> <real|complex> <n>
  a <re> <im>                 n+1 lines, highest power first
  z <re> <im> <radius>        n lines
  end
"""
import math
import os
import random

import mpmath as mp
import numpy as np

DPS = 60
U = 2.0 ** -53
HERE = os.path.dirname(os.path.abspath(__file__))
DATA = os.path.join(HERE, '..', 'tests', 'data')


def hexf(x):
    return float(x).hex()


def dec(x):
    return mp.nstr(mp.mpf(x), 36, min_fixed=-5, max_fixed=5, strip_zeros=False) if x != 0 else '0'


def poly_from_roots(roots):
    """Coefficients (highest first) of prod (x - r), exactly in mp."""
    c = [mp.mpc(1)]
    for r in roots:
        c = [c[0]] + [c[i] - r * c[i - 1] for i in range(1, len(c))] + [-r * c[-1]]
    return c


def to_double(c, real):
    """Rounds mp coefficients to doubles; returns (doubles, exact?)."""
    out, exact = [], True
    for v in c:
        v = mp.mpc(v)
        re, im = float(v.real), float(v.imag)
        if mp.mpf(re) != v.real or mp.mpf(im) != v.imag:
            exact = False
        out.append(complex(re, 0.0) if real else complex(re, im))
        if real and im != 0.0:
            raise ValueError('complex coefficient in a real case')
    return out, exact


def radius(a, z, kmax=8):
    n = len(a) - 1
    az = abs(z)
    s = mp.fsum(abs(mp.mpc(a[j])) * az ** (n - j) for j in range(n + 1))
    # Taylor coefficients c_k = p^(k)(z)/k! by repeated synthetic division.
    b = [mp.mpc(v) for v in a]
    best = mp.inf
    for k in range(0, min(kmax, n) + 1):
        # divide b by (x - z): remainder is the k-th Taylor coefficient
        q = [b[0]]
        for i in range(1, len(b)):
            q.append(b[i] + z * q[-1])
        ck = q[-1]
        b = q[:-1]
        if k == 0:
            continue
        if ck != 0:
            best = min(best, (n * U * s / abs(ck)) ** (mp.mpf(1) / k))
    return best


def reference_zeros(a, known=None):
    if known is not None:
        return [mp.mpc(r) for r in known]
    n = len(a) - 1
    init = [mp.mpc(complex(r)) for r in np.roots(np.array(a, dtype=complex))]
    with mp.workdps(DPS):
        roots, err = mp.polyroots([mp.mpc(v) for v in a], maxsteps=4000, extraprec=256,
                                  error=True, roots_init=init)
    if err > mp.mpf(10) ** (-DPS // 2):
        raise RuntimeError('polyroots did not converge: err %s' % err)
    return roots


def write_case(f, name, real, a, zeros):
    n = len(a) - 1
    f.write('case %s %s %d\n' % (name, 'real' if real else 'complex', n))
    for v in a:
        f.write('a %s %s\n' % (hexf(v.real), hexf(v.imag)))
    for z in zeros:
        f.write('z %s %s %s\n' % (dec(z.real), dec(z.imag), mp.nstr(radius(a, z), 6)))
    f.write('end\n')


def case_from_roots(f, name, real, roots, exact_roots=True):
    c = poly_from_roots([mp.mpc(r) for r in roots])
    a, exact = to_double(c, real)
    zeros = reference_zeros(a, roots if (exact and exact_roots) else None)
    write_case(f, name, real, a, zeros)


def case_from_coefficients(f, name, real, a, known=None):
    a = [complex(v) for v in a]
    write_case(f, name, real, a, reference_zeros(a, known))


def laguerre_cases(f):
    mp.mp.dps = DPS
    # Wilkinson's polynomials: zeros 1..n (exact coefficients for n = 10,
    # rounded for n = 20), and the well-conditioned zeros 2^-1 .. 2^-n.
    case_from_roots(f, 'wilkinson10', True, range(1, 11))
    case_from_roots(f, 'wilkinson20', True, range(1, 21))
    case_from_roots(f, 'wilkinson10_pow2', True, [mp.mpf(2) ** -k for k in range(1, 11)])
    case_from_roots(f, 'wilkinson20_pow2', True, [mp.mpf(2) ** -k for k in range(1, 21)])
    # Roots of unity z^n - 1, and z^n - i for complex coefficients.
    for n in (5, 8, 13, 16, 32, 64):
        a = [1.0] + [0.0] * (n - 1) + [-1.0]
        zeros = [mp.expjpi(mp.mpf(2 * k) / n) for k in range(n)]
        write_case(f, 'unity%d' % n, True, [complex(v) for v in a], zeros)
    for n in (5, 12, 33):
        a = [1.0] + [0.0] * (n - 1) + [-1j]
        zeros = [mp.expjpi((mp.mpf(1) / 2 + 2 * k) / n) for k in range(n)]
        write_case(f, 'unity_i%d' % n, False, [complex(v) for v in a], zeros)
    # Multiple zeros (exact integer coefficients).
    case_from_roots(f, 'multiple_real', True, [1] * 4 + [-2] * 3 + [1j, -1j] * 2)
    case_from_roots(f, 'multiple_five', True, [mp.mpf(3) / 4] * 5 + [-1.5])
    case_from_roots(f, 'multiple_complex', False, [1 + 1j] * 3 + [-2] * 2 + [1j])
    # Clusters: zeros 1 + k 1e-3 and a complex cluster, coefficients rounded.
    case_from_roots(f, 'cluster_real', True,
                    [1 + mp.mpf(k) / 1000 for k in range(5)] + [-3, 2, 0.5], exact_roots=False)
    case_from_roots(f, 'cluster_complex', False,
                    [mp.mpc(0.5, 0.5) + mp.mpc(0, k) / 10000 for k in range(4)] + [2, -1j],
                    exact_roots=False)
    # Zeros of very different sizes; zeros at the origin (trailing zeros).
    case_from_roots(f, 'spread', True, [mp.mpf(10) ** k for k in (-60, -20, 0, 20, 60)] + [-7],
                    exact_roots=False)
    case_from_roots(f, 'trailing', True, [0, 0, 0, 2, -1, 1j, -1j])
    case_from_roots(f, 'trailing_complex', False, [0, 0, 1 + 2j, -3, 0.5j])
    # Degree 1 and 2.
    case_from_coefficients(f, 'linear', True, [3.0, -1.0])
    case_from_coefficients(f, 'linear_complex', False, [2 + 1j, 1 - 3j])
    case_from_coefficients(f, 'quadratic_real_zeros', True, [1.0, -1e8, 1.0])
    case_from_coefficients(f, 'quadratic_pair', True, [2.0, 3.0, 5.0])
    case_from_coefficients(f, 'quadratic_complex', False, [1j, 2 - 1j, -3 + 0.5j])
    # Random polynomials, coefficients uniform in (-1, 1).
    rng = random.Random(20240611)
    for n in (10, 20, 50, 100):
        case_from_coefficients(f, 'random_real%d' % n, True, [rng.uniform(-1, 1) for _ in range(n + 1)])
        case_from_coefficients(f, 'random_complex%d' % n, False,
                               [complex(rng.uniform(-1, 1), rng.uniform(-1, 1)) for _ in range(n + 1)])


def companion_cases(f):
    mp.mp.dps = DPS
    rng = random.Random(7)
    cubics = [
        ('vdw_co2', [1.0, -1.0553346548080917, 0.16823519925101356, -0.0055296225512497214]),
        ('three_real', [2.0, -12.0, 22.0, -12.0]),
        ('pair', [1.0, 1.0, 1.0, 1.0]),
        ('triple', [1.0, -3.0, 3.0, -1.0], [1, 1, 1]),
        ('double', [1.0, -4.0, 5.0, -2.0], [1, 1, 2]),
        ('zero_at_origin', [1.0, -1.0, -2.0, 0.0]),
        ('wide', [1e-8, 1.0, 1e3, 1.0]),
    ]
    quartics = [
        ('torus', [1.0, -10.0, 34.5, -45.0, 18.5625]),
        ('two_pairs', [1.0, 0.0, 0.0, 0.0, 4.0]),
        ('double_pair', [1.0, 0.0, 2.0, 0.0, 1.0], [1j, 1j, -1j, -1j]),
        ('four_real', [1.0, -10.0, 35.0, -50.0, 24.0]),
        ('quadruple', [1.0, -4.0, 6.0, -4.0, 1.0], [1, 1, 1, 1]),
        ('wide', [1.0, 1e4, -1.0, 1e-4, 1e-8]),
    ]
    for i in range(6):
        cubics.append(('random%d' % i, [rng.uniform(-1, 1) for _ in range(4)]))
        quartics.append(('random%d' % i, [rng.uniform(-1, 1) for _ in range(5)]))
    for name, a, *known in cubics:
        case_from_coefficients(f, 'cubic_' + name, True, a, *known)
    for name, a, *known in quartics:
        case_from_coefficients(f, 'quartic_' + name, True, a, *known)


def bench_cases(f):
    mp.mp.dps = 40
    rng = random.Random(99)
    for n in (10, 20, 50, 100, 200):
        case_from_coefficients(f, 'bench%d' % n, True, [rng.uniform(-1, 1) for _ in range(n + 1)])


def main():
    header = ('# generated by tools/gen_c02_data.py: mpmath %s, %d digits; do not edit.\n'
              % (mp.__version__, DPS))
    for name, fn in (('c02_zeros.txt', laguerre_cases), ('c02_cubic_quartic.txt', companion_cases),
                     ('c02_bench_zeros.txt', bench_cases)):
        with open(os.path.join(DATA, name), 'w') as f:
            f.write(header)
            fn(f)


if __name__ == '__main__':
    main()
