#!/usr/bin/python3
"""Reference tables for the elliptic integrals and functions, the associated
Legendre functions and the zeta function, computed with mpmath at 50 digits.

Writes tests/data/s_<routine>.txt: one case per line, the arguments then the
reference values, each rounded to the nearest double (17 digits).
Run from the repository root: /usr/bin/python3 tools/s21_refs.py
"""
import random
import mpmath as mp

mp.mp.dps = 50
random.seed(20261121)
OUT = "tests/data/"


def d(v):
    if isinstance(v, mp.mpc):
        assert abs(v.imag) <= 1e-40 * max(1, abs(v.real)), v
        v = v.real
    return repr(float(v))


def write(name, header, rows):
    with open(OUT + "s_" + name + ".txt", "w") as f:
        f.write("# " + header + " (mpmath, 50 digits)\n")
        for r in rows:
            f.write(" ".join(d(v) for v in r) + "\n")


def logu(lo, hi):
    return 10.0 ** random.uniform(lo, hi)


def mpf(x):
    return mp.mpf(float(x))


# RC(x, y), including the principal value for y < 0.
rows = []
for _ in range(300):
    x = random.choice([0.0, logu(-300, 300), logu(-3, 3), logu(-3, 3)])
    y = random.choice([1, 1, -1]) * random.choice([logu(-300, 300), logu(-3, 3), x * (1 + logu(-12, -1)) or 1.0])
    if y > 0:
        ref = mp.elliprc(mpf(x), mpf(y))
    else:  # Cauchy principal value (DLMF 19.2.20)
        ref = mp.sqrt(mpf(x) / (mpf(x) - mpf(y))) * mp.elliprc(mpf(x) - mpf(y), -mpf(y))
    rows.append((x, y, ref))
write("s21bac", "x y RC(x,y)", rows)

# RF(x, y, z): at most one zero.
rows = []
for _ in range(300):
    v = [random.choice([logu(-300, 300), logu(-3, 3), logu(-3, 3)]) for _ in range(3)]
    if random.random() < 0.2:  # nearly equal arguments
        v = [v[0], v[0] * (1 + logu(-14, -2)), v[0] * (1 - logu(-14, -2))]
    if random.random() < 0.2:
        v[random.randrange(3)] = 0.0
    rows.append((*v, mp.elliprf(*map(mpf, v))))
write("s21bbc", "x y z RF(x,y,z)", rows)

# RD(x, y, z): z > 0, at most one of x, y zero.
rows = []
for _ in range(300):
    v = [random.choice([logu(-200, 200), logu(-3, 3), logu(-3, 3)]) for _ in range(3)]
    if random.random() < 0.2:
        v[random.randrange(2)] = 0.0
    rows.append((*v, mp.elliprd(*map(mpf, v))))
write("s21bcc", "x y z RD(x,y,z)", rows)

# RJ(x, y, z, p), p < 0 gives the Cauchy principal value.
rows = []
for _ in range(300):
    v = [random.choice([logu(-100, 100), logu(-3, 3), logu(-3, 3)]) for _ in range(3)]
    if random.random() < 0.15:
        v[random.randrange(3)] = 0.0
    p = random.choice([1, 1, 1, -1]) * random.choice([logu(-100, 100), logu(-3, 3)])
    if p < 0:  # principal values with moderate arguments
        v = [logu(-3, 3) for _ in range(3)]
        p = -logu(-3, 3)
    mv = list(map(mpf, v))
    if p > 0:
        # mpmath's duplication forms 1 + e with cancellation when p is tiny
        # beside the others: 250 digits leave 50 after it.
        with mp.workdps(250):
            ref = +mp.elliprj(*mv, mpf(p))
    else:
        # Cauchy principal value by quadrature, folding the integrand
        # about its pole at t = -p.
        c = -mpf(p)
        f = lambda t: 1 / ((t - c) * mp.sqrt((t + mv[0]) * (t + mv[1]) * (t + mv[2])))
        ref = 1.5 * (mp.quad(lambda s: f(c - s) + f(c + s), [0, c]) + mp.quad(f, [2 * c, mp.inf]))
    rows.append((*v, p, ref))
write("s21bdc", "x y z r RJ(x,y,z,r)", rows)

# sn, cn, dn of real argument and any real parameter.
rows = []
for _ in range(400):
    u = random.choice([random.uniform(-8, 8), random.uniform(-60, 60), random.choice([1, -1]) * logu(-8, 0)])
    m = random.choice([random.uniform(0, 1), 1 - logu(-15, -1), logu(-15, -1), random.uniform(-20, 0),
                       random.uniform(1, 30), 0.0, 1.0])
    rows.append((u, m, mp.ellipfun("sn", mpf(u), m=mpf(m)), mp.ellipfun("cn", mpf(u), m=mpf(m)),
                 mp.ellipfun("dn", mpf(u), m=mpf(m))))
write("s21cac", "u m sn cn dn", rows)

# sn, cn, dn of complex argument, 0 <= m <= 1.
rows = []
for _ in range(300):
    z = mp.mpc(random.uniform(-6, 6), random.uniform(-6, 6))
    m = random.choice([random.uniform(0, 1), 1 - logu(-12, -1), logu(-12, -1), 0.5])
    vals = [mp.ellipfun(k, z, m=mpf(m)) for k in ("sn", "cn", "dn")]
    rows.append((float(z.real), float(z.imag), m, *[c for v in vals for c in (v.real, v.imag)]))
write("s21cbc", "re(z) im(z) m re/im of sn cn dn", rows)

# Theta functions theta_k(x, q), k = 1..4.  mpmath's series stop short of
# q = 1; there the Poisson-summed form (a sum of Gaussians) is used.
def theta(k, x, q):
    if q < 1 - mp.mpf(10) ** -6:
        return mp.jtheta(k, mp.pi * x, q)
    t = -mp.log(q) / mp.pi
    c = mp.mpf(0.5) if k in (1, 4) else 0
    alt = k in (1, 2)

    def term(n):
        g = mp.exp(-mp.pi * (x - c + n) ** 2 / t)
        return (-1) ** int(n) * g if alt else g

    n0 = int(mp.nint(c - x))
    return mp.fsum(term(n) for n in range(n0 - 40, n0 + 41)) / mp.sqrt(t)


rows = []
for _ in range(400):
    k = random.randint(1, 4)
    x = random.choice([random.uniform(-3, 3), random.uniform(-0.5, 0.5), random.uniform(-40, 40)])
    q = random.choice([random.uniform(0, 1), 1 - logu(-10, -1), logu(-6, -1), 0.0432, 0.0433])
    rows.append((k, x, q, theta(k, mpf(x), mpf(q))))
write("s21ccc", "k x q theta_k(x,q)", rows)

# The general complex elliptic integral of the second kind, by quadrature
# along the straight path from 0 to z.
rows = []
for _ in range(120):
    z = mp.mpc(random.uniform(-3, 3), random.uniform(-0.9, 0.9))
    if random.random() < 0.3:
        z = mp.mpc(random.uniform(-50, 50), random.uniform(-0.5, 0.5))
    kc = random.choice([random.uniform(0, 2), 1.0, 0.0, logu(-4, 0)])
    a = random.uniform(-2, 2)
    b = random.choice([a, random.uniform(-2, 2)])
    kz, az, bz = mpf(kc), mpf(a), mpf(b)

    def f(s):
        t = s * z
        return z * (az + bz * t * t) / ((1 + t * t) * mp.sqrt(1 + t * t) * mp.sqrt(1 + kz * kz * t * t))

    v = mp.quad(f, [0, 0.25, 0.5, 0.75, 1])
    rows.append((float(z.real), float(z.imag), kc, a, b, v.real, v.imag))
write("s21dac", "re(z) im(z) akp a b re im", rows)

# Associated Legendre functions, both normalisations, m of both signs:
#   P_n^m(x) = (-1)^m (1 - x^2)^(m/2) d^m P_n / dx^m from the exact integer
# coefficients of P_n, summed at 250 digits (the coefficients alternate and
# reach 2^n), and P_n^(-m) = (-1)^m (n-m)!/(n+m)! P_n^m.
def ferrers(n, m, x):
    from math import comb
    am = abs(m)
    with mp.workdps(250):
        # P_n(x) = 2^-n sum_k (-1)^k C(n,k) C(2n-2k, n) x^(n-2k)
        acc = mp.mpf(0)
        for k in range(n // 2 + 1):
            p = n - 2 * k
            if p < am:
                continue
            c = (-1) ** k * comb(n, k) * comb(2 * n - 2 * k, n)
            fall = 1
            for i in range(am):
                fall *= p - i
            acc += c * fall * x ** (p - am)
        v = (-1) ** am * (1 - x * x) ** (mp.mpf(am) / 2) * acc / mp.mpf(2) ** n
        if m < 0:
            v *= (-1) ** am * mp.factorial(n - am) / mp.factorial(n + am)
        return +v


rows = []
for _ in range(250):
    m = random.choice([random.randint(0, 5), random.randint(0, 40), -random.randint(1, 12)])
    n = abs(m) + random.choice([random.randint(0, 10), random.randint(0, 120)])
    x = random.choice([random.uniform(-1, 1), 1 - logu(-12, -1), -1 + logu(-12, -1), 0.0, 1.0])
    pm = ferrers(n, m, mpf(x))
    norm = mp.sqrt((2 * n + 1) / mp.mpf(2) * mp.factorial(n - m) / mp.factorial(n + m))
    rows.append((m, n - abs(m), x, pm, pm * norm))
write("s22aac", "m nl x P_{|m|+nl}^m(x) unnormalised normalised", rows)

# Riemann zeta of real argument.
rows = []
pts = [random.uniform(-30, 30) for _ in range(150)] + [random.uniform(-255, 300) for _ in range(100)]
pts += [1 + random.choice([1, -1]) * logu(-12, -1) for _ in range(40)]
pts += [random.uniform(0, 1) for _ in range(30)] + [-2 * random.randint(1, 100) + logu(-10, -1) for _ in range(20)]
for s in pts:
    rows.append((s, mp.zeta(mpf(s))))
write("s23aac", "sig zeta(sig)", rows)
