#!/usr/bin/env python3
"""Reference tables of the Bessel, Hankel and Airy functions of complex
argument and of the real-order Bessel families, computed with mpmath.

Each value is computed at 50 digits and again at 90; where the two disagree
(mpmath's own cancellation, as in Y or H for large imaginary parts) the
value is recomputed at 400 digits.  Values are written with 17 significant
digits.  A condition number kappa = |z f'/f| + |nu df/dnu / f| goes with
each complex case: no algorithm working in double precision can promise a
relative error much below eps * kappa.

Writes tests/data/s_c_bessel.txt, s_c_airy.txt, s_c_real.txt, s_c_gk.txt,
s_c_gamma.txt (ln Gamma and polygamma), s_c_faddeeva.txt and s_c_zeros.txt.
Run from the repository root: python3 tools/s_complex_refs.py [table names]
"""
import math
import random

import mpmath as mp

OUT = "tests/data/"


def stable(f, dps=50):
    mp.mp.dps = dps
    a = f()
    mp.mp.dps = dps + 40
    b = f()
    if b == 0 or abs(a - b) > mp.mpf(10) ** -40 * abs(b):
        mp.mp.dps = dps + 400
        b = f()
    mp.mp.dps = 50
    return b


def fn_value(fn, nu, z):
    if fn == 0:
        return mp.besseli(nu, z)
    if fn == 1:
        return mp.besselj(nu, z)
    if fn == 2:
        return mp.besselk(nu, z)
    if fn == 3:
        return mp.bessely(nu, z)
    # Where H is exponentially small, J + iY cancels: there it comes from K,
    # H1(z) = 2/(pi i) e^{-i pi nu/2} K(-iz), H2(z) = -2/(pi i) e^{i pi nu/2} K(iz).
    if fn == 4:
        if mp.im(z) > 0:
            return 2 / (mp.pi * 1j) * mp.exp(-1j * mp.pi * nu / 2) * mp.besselk(nu, -1j * z)
        return mp.hankel1(nu, z)
    if mp.im(z) < 0:
        return -2 / (mp.pi * 1j) * mp.exp(1j * mp.pi * nu / 2) * mp.besselk(nu, 1j * z)
    return mp.hankel2(nu, z)


def scale_factor(fn, z):
    if fn == 0:
        return mp.exp(-abs(mp.re(z)))
    if fn in (1, 3):
        return mp.exp(-abs(mp.im(z)))
    if fn == 2:
        return mp.exp(z)
    if fn == 4:
        return mp.exp(-1j * z)
    return mp.exp(1j * z)


def fmt(x):
    return "%.17g" % float(x)


def in_range(v):
    a = abs(v)
    return a == 0 or (1e-290 < a < 1e290)


def kappa(f, nu, z, dps=60):
    """|z f_z / f| + |nu f_nu / f| by numerical differentiation."""
    mp.mp.dps = dps
    v = f(nu, z)
    if v == 0:
        return 0.0
    dz = mp.diff(lambda t: f(nu, t), z)
    k = abs(z * dz / v)
    if nu != 0:
        dn = mp.diff(lambda t: f(t, z), nu)
        k += abs(nu * dn / v)
    mp.mp.dps = 50
    return float(k)


def bessel_table(rng):
    lines = ["# fn fnu zr zi n k scaled want_re want_im kappa",
             "# fn: 0 I, 1 J, 2 K, 3 Y, 4 H1, 5 H2; scaled 1 for the scaled function"]
    orders = [0.0, 0.25, 0.5, 1.0, 1.5, 2.7, 10.3, 40.6, 99.5, 250.0]
    for fn in range(6):
        for case in range(130):
            r = 10 ** rng.uniform(-3, 3.2)
            if case % 10 == 0:
                th = rng.choice([0.0, math.pi, math.pi / 2, -math.pi / 2])
            else:
                th = rng.uniform(-math.pi, math.pi)
            zr, zi = r * math.cos(th), r * math.sin(th)
            if th == math.pi:
                zi = 0.0
            if abs(th) == math.pi / 2:
                zr = 0.0
            nu = rng.choice(orders) if case % 3 else rng.uniform(0, 20)
            n = rng.choice([1, 1, 3])
            scaled = case % 2
            z = mp.mpc(zr, zi)
            if fn in (2, 3, 4, 5) and z == 0:
                continue
            for k in range(n):
                extra = 0
                v = stable(lambda: fn_value(fn, nu + k, z) * (scale_factor(fn, z) if scaled else 1))
                if not in_range(v):
                    continue
                kap = kappa(lambda a, b: fn_value(fn, a, b), mp.mpf(nu + k), z, 60 + extra)
                lines.append("%d %s %s %s %d %d %d %s %s %.3g" % (
                    fn, fmt(nu), fmt(zr), fmt(zi), n, k, scaled, fmt(mp.re(v)), fmt(mp.im(v)), kap))
    return lines


def airy_value(bi, deriv, z):
    return (mp.airybi if bi else mp.airyai)(z, derivative=deriv)


def airy_table(rng):
    lines = ["# bi deriv zr zi scaled want_re want_im kappa",
             "# bi 0: Ai (scaled e^zeta Ai), 1: Bi (scaled e^-|Re zeta| Bi), zeta = 2/3 z^1.5"]
    for case in range(400):
        r = 10 ** rng.uniform(-3, 2.7)
        th = rng.uniform(-math.pi, math.pi) if case % 8 else rng.choice([0.0, math.pi, 2 * math.pi / 3, -math.pi / 2])
        zr, zi = r * math.cos(th), (0.0 if th == math.pi else r * math.sin(th))
        bi, deriv, scaled = case % 2, (case // 2) % 2, (case // 4) % 2
        z = mp.mpc(zr, zi)

        def val():
            v = airy_value(bi, deriv, z)
            if scaled:
                zeta = mp.mpf(2) / 3 * z * mp.sqrt(z)
                v *= mp.exp(-abs(mp.re(zeta))) if bi else mp.exp(zeta)
            return v
        v = stable(val)
        if not in_range(v):
            continue
        mp.mp.dps = 60
        f0 = airy_value(bi, deriv, z)
        f1 = airy_value(bi, 1, z) if deriv == 0 else z * airy_value(bi, 0, z)  # Ai'' = z Ai
        kap = float(abs(z * f1 / f0)) if f0 != 0 else 0.0
        mp.mp.dps = 50
        lines.append("%d %d %s %s %d %s %s %.3g" % (bi, deriv, fmt(zr), fmt(zi), scaled,
                                                     fmt(mp.re(v)), fmt(mp.im(v)), kap))
    return lines


def real_table(rng):
    lines = ["# routine x a nl then the values for n = 0..|nl|",
             "# routine: 0 s18egc K_{a+n}, 1 s18ehc e^x K_{a+n}, 2 s18ejc I_{a+-n}, 3 s18ekc J_{a+-n},",
             "#          4 s18ecc, 5 s18edc, 6 s18eec, 7 s18efc (a holds nu; one value)"]
    for case in range(360):
        routine = case % 8
        x = 10 ** rng.uniform(-3, 2.6)
        if routine < 4:
            a = rng.choice([0.0, 0.5, rng.random()])
            nl = rng.choice([0, 1, 5, 20, 60, 100])
            if routine >= 2 and case % 3 == 0:
                nl = -rng.choice([1, 4, 30, 101])
            vals = []
            for n in range(abs(nl) + 1):
                order = a + n if nl >= 0 else a - n
                x_ = mp.mpf(x)
                if routine == 0:
                    f = lambda: mp.besselk(order, x_)
                elif routine == 1:
                    f = lambda: mp.exp(x_) * mp.besselk(order, x_)
                elif routine == 2:
                    f = lambda: mp.besseli(order, x_)
                else:
                    f = lambda: mp.besselj(order, x_)
                vals.append(stable(f))
            if not all(abs(v) < 1e300 for v in vals):
                continue
            lines.append("%d %s %s %d %s" % (routine, fmt(x), fmt(a), nl, " ".join(fmt(v) for v in vals)))
        else:
            nu = rng.choice([-3, -2, -1, 1, 2, 3])
            x_ = mp.mpf(x)
            o = mp.mpf(nu) / 4
            if routine == 4:
                f = lambda: mp.exp(x_) * mp.besselk(o, x_)
            elif routine == 5:
                f = lambda: mp.besselk(o, x_)
            elif routine == 6:
                f = lambda: mp.exp(-x_) * mp.besseli(o, x_)
            else:
                f = lambda: mp.besseli(o, x_)
            v = stable(f)
            if not abs(v) < 1e300:
                continue
            lines.append("%d %s %d 0 %s" % (routine, fmt(x), nu, fmt(v)))
    return lines


def gk_table(rng):
    lines = ["# zr zi a nl then re im of J_{a+n}(z), n = 0..nl"]
    for case in range(80):
        r = 10 ** rng.uniform(-3, 2.3)
        th = rng.uniform(-math.pi, math.pi)
        zr, zi = r * math.cos(th), r * math.sin(th)
        if abs(zi) > 600:
            continue
        a = rng.choice([0.0, 0.5, rng.random()])
        nl = rng.choice([0, 2, 10, 50])
        z = mp.mpc(zr, zi)
        vals = [stable(lambda: mp.besselj(a + n, z)) for n in range(nl + 1)]
        if not all(abs(v) < 1e300 for v in vals):
            continue
        lines.append("%s %s %s %d %s" % (fmt(zr), fmt(zi), fmt(a), nl,
                                         " ".join("%s %s" % (fmt(mp.re(v)), fmt(mp.im(v))) for v in vals)))
    return lines


def random_z(rng, lo, hi):
    r = 10 ** rng.uniform(lo, hi)
    th = rng.uniform(-math.pi, math.pi)
    if rng.random() < 0.1:
        th = rng.choice([0.0, math.pi, math.pi / 2, -math.pi / 2])
    zr, zi = r * math.cos(th), r * math.sin(th)
    if th == math.pi or th == 0.0:
        zi = 0.0
    if abs(th) == math.pi / 2:
        zr = 0.0
    return zr, zi


def gamma_table(rng):
    lines = ["# k zr zi want_re want_im: k = -1 for ln Gamma(z), else psi^(k)(z)"]
    for case in range(700):
        k = case % 6 - 1
        zr, zi = random_z(rng, -3, 3)
        if case % 7 == 0:  # near the poles and zeros
            zr, zi = rng.choice([-1.0, -2.0, -7.0, 1.0, 2.0, -30.0]) + rng.uniform(-0.3, 0.3), rng.uniform(-0.2, 0.2)
        if zi == 0.0 and zr <= 0.0 and zr == math.floor(zr):
            continue
        z = mp.mpc(zr, zi)
        v = stable(lambda: mp.loggamma(z) if k < 0 else mp.polygamma(k, z))
        if not in_range(v):
            continue
        lines.append("%d %s %s %s %s" % (k, fmt(zr), fmt(zi), fmt(mp.re(v)), fmt(mp.im(v))))
    return lines


def faddeeva_table(rng):
    lines = ["# zr zi want_re want_im kappa  of w(z) = exp(-z^2) erfc(-iz)"]
    for case in range(600):
        zr, zi = random_z(rng, -3, 3)
        if zi < 0 and zi * zi - zr * zr > 650:
            continue
        z = mp.mpc(zr, zi)
        v = stable(lambda: mp.exp(-z * z) * mp.erfc(-1j * z))
        if not in_range(v):
            continue
        # w' = -2 z w + 2i/sqrt(pi)
        kap = float(abs(z * (-2 * z * v + 2j / mp.sqrt(mp.pi)) / v))
        lines.append("%s %s %s %s %.3g" % (fmt(zr), fmt(zi), fmt(mp.re(v)), fmt(mp.im(v)), kap))
    return lines


def zeros_table(rng):
    lines = ["# a mode n then the first n zeros: mode 1 J_a, 2 Y_a, 3 J'_a, 4 Y'_a"]
    for a in [0.0, 0.3, 0.5, 1.0, 1.7, 2.0, 2.5, 5.0, 10.3, 27.0, 50.0]:
        for mode in (1, 2, 3, 4):
            n = 10
            mp.mp.dps = 30
            zs = []
            for k in range(1, n + 1):
                if mode == 3 and a == 0:
                    # j'_{0,1} = 0, then the zeros of J_1
                    zs.append(mp.mpf(0) if k == 1 else mp.besseljzero(1, k - 1))
                elif mode in (1, 3):
                    zs.append(mp.besseljzero(a, k, mode == 3))
                else:
                    zs.append(mp.besselyzero(a, k, mode == 4))
            lines.append("%s %d %d %s" % (fmt(a), mode, n, " ".join(fmt(z) for z in zs)))
    return lines


def main():
    import sys
    only = sys.argv[1:]
    for name, make in (("s_c_bessel.txt", bessel_table), ("s_c_airy.txt", airy_table),
                       ("s_c_real.txt", real_table), ("s_c_gk.txt", gk_table),
                       ("s_c_gamma.txt", gamma_table), ("s_c_faddeeva.txt", faddeeva_table),
                       ("s_c_zeros.txt", zeros_table)):
        if only and name not in only:
            continue
        rng = random.Random(name)
        lines = make(rng)
        with open(OUT + name, "w") as f:
            f.write("\n".join(lines) + "\n")
        print(name, len(lines))


if __name__ == "__main__":
    main()
