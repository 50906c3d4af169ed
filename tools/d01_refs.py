#!/usr/bin/python3
"""Reference values for the quadrature tests (tests/data/d01_battery.txt).

Each case names an integrand that tests/quadrature/test_d01_battery.cpp
defines in the same way, the routine that integrates it, the routine's
parameters, and the value of the integral computed here with mpmath at 40
significant digits (closed forms where they exist, otherwise mpmath's
tanh-sinh quadrature split at every difficulty, or quadosc for the Fourier
integrals).  Principal values are formed by subtracting the singularity:
PV int g(x)/(x-c) = int (g(x)-g(c))/(x-c) + g(c) log|(b-c)/(a-c)|.

Run by hand: /usr/bin/python3 tools/d01_refs.py > tests/data/d01_battery.txt
"""
import mpmath as mp

mp.mp.dps = 40
pi, inf = mp.pi, mp.inf


def q(f, pts):
    return mp.quad(f, pts, maxdegree=12)


def pv(g, a, b, c):
    gc = g(c)
    h = lambda x: (g(x) - gc) / (x - c) if x != c else mp.diff(g, c)
    return q(h, [a, c, b]) + gc * mp.log(abs((b - c) / (a - c)))


# name, routine, parameters (a, b, then the routine's own), reference.
# Parameters are written as exact short decimals that both sides read.
CASES = []


def case(name, routine, params, value):
    CASES.append((name, routine, params, value))


# d01ajc: end-point singularities of several strengths, interior
# singularities and peaks, a discontinuity, oscillation, a reversed range.
case("log_over_sqrt", "d01ajc", [0, 1], mp.mpf(-4))
case("x2.6_log", "d01ajc", [0, 1], 1 / mp.mpf("3.6") ** 2)
case("x^-0.9", "d01ajc", [0, 1], mp.mpf(10))
case("sqrt_log", "d01ajc", [0, 1], mp.mpf(-4) / 9)
case("lorentz_peak", "d01ajc", [0, 1],
     (mp.atan(mp.mpf("0.7") / mp.mpf("0.01")) + mp.atan(mp.mpf("0.3") / mp.mpf("0.01"))) / mp.mpf("0.01"))
case("gauss_peak", "d01ajc", [0, 1],
     mp.sqrt(pi) / 200 * (mp.erf(60) + mp.erf(40)))
case("abs_power_interior", "d01ajc", [0, 1],
     (mp.mpf("0.33") ** mp.mpf("0.6") + mp.mpf("0.67") ** mp.mpf("0.6")) / mp.mpf("0.6"))
case("log_abs_interior", "d01ajc", [0, 1],
     mp.mpf("0.3") * mp.log(mp.mpf("0.3")) + mp.mpf("0.7") * mp.log(mp.mpf("0.7")) - 1)
case("step", "d01ajc", [0, 1], mp.mpf(1) / 2 + (1 - mp.mpf(1) / 8) / 3)
case("exp_cos", "d01ajc", [0, "3.14159265358979311599796346854418516"],
     q(lambda x: mp.exp(x) * mp.cos(x), [0, mp.mpf("3.14159265358979311599796346854418516")]))
case("cos_100sin", "d01ajc", [0, "3.14159265358979311599796346854418516"],
     q(lambda x: mp.cos(100 * mp.sin(x)), mp.linspace(0, mp.mpf("3.14159265358979311599796346854418516"), 60)))
case("reversed_lorentz", "d01ajc", [1, 0], -pi / 4)

# d01akc: oscillating, smooth.
case("cos_100sin", "d01akc", [0, "3.14159265358979311599796346854418516"],
     q(lambda x: mp.cos(100 * mp.sin(x)), mp.linspace(0, mp.mpf("3.14159265358979311599796346854418516"), 60)))
case("x_sin30_cos50", "d01akc", [0, "6.28318530717958623199592693708837032"],
     q(lambda x: x * mp.sin(30 * x) * mp.cos(50 * x),
       mp.linspace(0, mp.mpf("6.28318530717958623199592693708837032"), 80)))

# d01alc: break points at the singularities and a discontinuity.
case("x3_log_poly", "d01alc", [0, 3, 2, 1, "1.41421356237309514547462185873882845"],
     q(lambda x: x ** 3 * mp.log(abs((x * x - 1) * (x * x - 2))),
       [0, 1, mp.mpf("1.41421356237309514547462185873882845"), 3]))
case("signed_exp", "d01alc", [0, 1, 1, "0.5"], (mp.e - mp.exp(mp.mpf("0.5"))) - (mp.exp(mp.mpf("0.5")) - 1))

# d01amc: semi-infinite and infinite ranges (bound, kind: 1 upper, 2 lower,
# 3 both ways).
case("log_over_1_100x2", "d01amc", [0, 1], -pi * mp.log(10) / 20)
case("exp_x2", "d01amc", [0, 2], mp.mpf(2))
case("lorentz_inf", "d01amc", [0, 3], pi)
case("inv_sqrt_1px", "d01amc", [0, 1], pi)
case("gauss_cos", "d01amc", [0, 3], mp.sqrt(pi) * mp.exp(-1))

# d01anc: trigonometric weights (a, b, omega, kind: 1 cosine, 2 sine).
case("log_sin10pi", "d01anc", [0, 1, "31.4159265358979311599796346854418516", 2],
     q(lambda x: mp.log(x) * mp.sin(mp.mpf("31.4159265358979311599796346854418516") * x),
       mp.linspace(0, 1, 12)))
case("expm_cos", "d01anc", [0, 10, 50, 1],
     q(lambda x: mp.exp(-x) * mp.cos(50 * x), mp.linspace(0, 10, 200)))
case("x_sin_neg", "d01anc", [0, 2, -20, 2],
     q(lambda x: x * mp.sin(-20 * x), mp.linspace(0, 2, 40)))

# d01apc: end-point weights (a, b, alfa, beta, kind 1..4).
case("cos_chebyshev", "d01apc", [0, 1, "-0.5", "-0.5", 1],
     pi * mp.cos(mp.mpf("0.5")) * mp.besselj(0, mp.mpf("0.5")))
case("inv_1plog2_sq", "d01apc", [0, 1, 0, 0, 2],
     q(lambda x: mp.log(x) / (1 + mp.log(x) ** 2) ** 2, [0, mp.mpf("1e-10"), mp.mpf("1e-3"), 1]))
case("exp_logb", "d01apc", [0, 1, 0, "0.3", 3],
     q(lambda x: (1 - x) ** mp.mpf("0.3") * mp.log(1 - x) * mp.exp(x), [0, 1]))
case("one_loga_logb", "d01apc", [0, 1, "-0.3", "-0.3", 4],
     q(lambda x: x ** mp.mpf("-0.3") * (1 - x) ** mp.mpf("-0.3") * mp.log(x) * mp.log(1 - x), [0, mp.mpf("0.5"), 1]))

# d01aqc: principal values (a, b, c).
case("cubic_pv", "d01aqc", [-1, 5, 0], mp.log(mp.mpf(125) / 631) / 18)
case("exp_pv", "d01aqc", [0, 1, "0.5"], pv(mp.exp, 0, 1, mp.mpf("0.5")))
case("outside_pv", "d01aqc", [0, 1, 2], mp.log(mp.mpf(1) / 2))
case("reversed_pv", "d01aqc", [1, 0, "0.5"], -pv(mp.exp, 0, 1, mp.mpf("0.5")))

# d01asc: Fourier integrals over [a, inf) (a, omega, kind).
case("inv_sqrt_cos", "d01asc", [0, "1.57079632679489655799898173427209258", 1],
     mp.sqrt(pi / (2 * mp.mpf("1.57079632679489655799898173427209258"))))
case("sin2_over_1px", "d01asc", [0, 2, 2],
     mp.quadosc(lambda x: mp.sin(2 * x) / (1 + x), [0, inf], omega=2))
case("cos_exp_decay", "d01asc", [1, 3, 1],
     mp.quadosc(lambda x: mp.exp(-x / 4) * mp.cos(3 * x), [1, inf], omega=3))


def main():
    print("# Reference integrals for the d01 tests.")
    print("# Generated by tools/d01_refs.py with mpmath %s at %d digits." % (mp.__version__, mp.mp.dps))
    print("# name routine nparams params... reference")
    for name, routine, params, value in CASES:
        ps = " ".join(str(p) for p in params)
        print("%s %s %d %s %s" % (name, routine, len(params), ps, mp.nstr(value, 34)))


if __name__ == "__main__":
    main()
