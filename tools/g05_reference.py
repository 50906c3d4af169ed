#!/usr/bin/env python3
"""Reference sequences of the g05 uniform generators, computed on 15-bit
digits with schoolbook products and carries as the generators are defined
(no 60-bit shortcuts), written as hexadecimal doubles to
tests/data/g05_sequences.txt.

Run:  python3 tools/g05_reference.py > tests/data/g05_sequences.txt

Records, one per line:
  <name> <count> <values...>
values are float.hex() for doubles and decimal for integers."""
import math

A = [17917, 13895, 19930, 8]          # 13^13
A63 = [85, 3703, 6070, 6822]          # 13^(13*63) mod 2^59
DEFAULT = [6698, 7535, 26792, 30140]
EPS = 2.0**-53 + 2.0**-105            # the machine precision of the library
ONE_MINUS_EPS = 1.0 - EPS
TWO_M60 = 0.5**60
TWO_M30 = 0.5**30
INT_MAX = 2**31 - 1


def i32(v):
    """Checks that an intermediate fits a signed 32-bit integer."""
    assert -2**31 <= v < 2**31, v
    return v


def mul_masked(x, a):
    """Digits of x*a mod 2^60: carry by arithmetic shift, digits masked."""
    out = []
    carry = 0
    for i in range(4):
        s = carry
        for j in range(i + 1):
            s = i32(s + i32(x[j] * a[i - j]))
        out.append(s & 0x7fff)
        carry = s >> 15
    return out


def mul_divmod(x, a):
    """The same product with signed division and remainder by 32768."""
    out = []
    carry = 0
    for i in range(4):
        s = carry
        for j in range(i + 1):
            s = i32(s + i32(x[j] * a[i - j]))
        q = int(s / 32768)            # truncating division, as in C
        out.append(s - 32768 * q)
        carry = q
    return out


def value(d):
    hi = d[3] * 32768 + d[2]
    lo = d[1] * 32768 + d[0]
    v = lo * TWO_M60 + hi * TWO_M30
    return ONE_MINUS_EPS if v > ONE_MINUS_EPS else v


def seed_digits(seed):
    m = abs(seed)
    d0 = (m % 8192) * 4 + 2
    t = m // 8192
    d = [d0]
    for _ in range(3):
        d.append(t % 32768)
        t //= 32768
    return d


class Stored:
    """The per-thread stored generator."""

    def __init__(self):
        self.members = [[0, 0, 0, 0] for _ in range(64)]
        self.first_refill = True
        self.reserved = 0
        self.pending = [1.0, -1.0, 256.0]   # uniform, gamma half, normal
        self.batch = [0.0] * 63
        self.pos = 0
        self.reset()

    def refill(self, force):
        if not self.first_refill and not force:
            for k in range(1, 64):
                self.members[k] = mul_masked(self.members[k], A63)
        else:
            self.first_refill = False
            for k in range(63):
                self.members[k + 1] = mul_masked(self.members[k], A)
        for k in range(1, 64):
            self.batch[k - 1] = value(self.members[k])
        self.pos = 0

    def reset(self):
        self.members[0] = list(DEFAULT)
        self.reserved = 0
        self.pending = [1.0, -1.0, 256.0]
        self.refill(True)

    def seed(self, s):
        self.members[0] = seed_digits(s)
        self.pending = [1.0, -1.0, 256.0]
        self.refill(True)
        self.pos += 1

    def draw(self):
        if self.pos >= 63:
            self.refill(False)
        v = self.batch[self.pos]
        self.pos += 1
        return v

    def save(self):
        d = self.members[self.pos]
        # Drop the lowest bit: the 59 bits of x/2, most significant first.
        bits = []
        for k in range(3, -1, -1):
            for b in range(14, -1, -1):
                bits.append((d[k] >> b) & 1)
        bits = bits[:-1]
        words = []
        at = 0
        for width in (11, 12, 12, 12, 12):
            w = 0
            for _ in range(width):
                w = 2 * w + bits[at]
                at += 1
            words.append(w)
        r = self.reserved
        words += [r // 4096 // 4096 % 4096, r // 4096 % 4096, r % 4096]
        istate = [sum(words)] + words
        x1, x2, x3 = self.pending[2], self.pending[0], self.pending[1]
        xstate = [istate[0] * 2.0**-12 + x1 + x2 + x3, x1, x2, x3]
        return istate, xstate


def stored_records(out):
    g = Stored()
    out.append(("fresh", [g.draw() for _ in range(200)]))
    for s in (0, 7, -7, 1762543, 123456789, INT_MAX, -2**31):
        g = Stored()
        g.seed(s)
        out.append((f"seed_{s}", [g.draw() for _ in range(130)]))
    # A save in the middle of a batch, and what follows it.
    g = Stored()
    g.seed(271828)
    for _ in range(100):
        g.draw()
    istate, xstate = g.save()
    out.append(("save_istate_271828_100", istate))
    out.append(("save_xstate_271828_100", xstate))
    out.append(("after_save_271828_100", [g.draw() for _ in range(100)]))
    # Right after a reset the member at the position is the default x0.
    g = Stored()
    istate, xstate = g.save()
    out.append(("save_istate_default", istate))


# ---- Seed-array family.

def wh_table():
    import os
    here = os.path.dirname(os.path.abspath(__file__))
    rows = []
    with open(os.path.join(here, "..", "stats", "wichmann_hill_table.inc")) as f:
        for line in f:
            if line.startswith("{"):
                rows.append([int(t) for t in line[1:line.index("}")].split(",")])
    assert len(rows) == 273
    return rows


def basic_step(d):
    d[:] = mul_divmod(d, A)
    hi = d[3] * 32768 + d[2]
    lo = d[1] * 32768 + d[0]
    v = hi * TWO_M30 + lo * TWO_M60
    return ONE_MINUS_EPS if v > ONE_MINUS_EPS else v


def wh_scalar(row, s):
    for i in range(4):
        s[i] = i32(row[i] * s[i]) % row[4 + i]
    v = s[0] / row[4]
    v += s[2] / row[6]
    v += s[1] / row[5]
    v += s[3] / row[7]
    return v - math.floor(v)


def wh_vector(row, s):
    for i in range(4):
        s[i] = i32(row[i] * s[i]) % row[4 + i]
    v = s[3] / row[7]
    v += s[2] / row[6]
    v += s[1] / row[5]
    v += s[0] / row[4]
    return (v - math.floor(v)) + EPS / 4


def fold(s):
    return s if 1 <= s <= 16909320 else (abs(s) + 1) % 16909320 + 1


def seed_array_records(out):
    rows = wh_table()
    for seed in (1762543, 0, -99):
        d = seed_digits(seed)
        basic_step(d)            # g05kbc's discarded step
        out.append((f"kbc_basic_{seed}", list(d)))
        out.append((f"kac_basic_{seed}", [basic_step(d) for _ in range(100)]))
    seeds = [1762543, 9324783, 42344, 742355]
    for igen in (1, 2, 137, 273):
        s = [fold(x) for x in seeds]
        out.append((f"kac_wh_{igen}", [wh_scalar(rows[igen - 1], s) for _ in range(100)]))
        s = [fold(x) for x in seeds]
        out.append((f"vec_wh_{igen}", [wh_vector(rows[igen - 1], s) for _ in range(100)]))
        out.append((f"vec_wh_{igen}_state", s))
    s = [fold(x) for x in (0, -5, 16909321, 2147483647)]
    out.append(("kbc_fold", s))


def clock_seed(year, month, day, hour, minute, second, cpu, k):
    t = second + 60 * (minute + 60 * (hour + 24 * (day + 31 * (month + 12 * (year % 10)))))
    t4 = t % 10000
    v = int(math.fmod(abs(cpu * 1000000.0), 2147483647.0))
    w = (v // 10000) % 10000 + v % 10000
    hundreds, r = w // 100, w % 100
    u = 100 * (r % 10) + 10 * (r // 10) + hundreds
    y = (((u * 10000 + t4) * (k + 1) * 2) + 1) & 0xffffffff
    if y >= 2**31:
        y -= 2**32
    if 1 <= y < 16909321:
        return y
    return (abs(y) + 1) % 16909320


def clock_records(out):
    cases = [(2026, 11, 21, 13, 45, 7, 0.123456, 0), (2019, 1, 1, 0, 0, 0, 0.0, 0),
             (2031, 12, 31, 23, 59, 59, 12.987654, 5), (2026, 6, 15, 8, 30, 0, 3.5, 1095),
             (2024, 2, 29, 12, 0, 1, 1234.000001, 17)]
    vals = []
    for c in cases:
        vals += list(c[:6]) + [c[6].hex(), c[7], clock_seed(*c)]
    out.append(("clock_seed", vals))


def main():
    # The two digit products agree, and the 60-bit shortcut with them.
    x = seed_digits(987654321)
    for _ in range(1000):
        y = mul_masked(x, A)
        assert y == mul_divmod(x, A)
        xi = sum(x[i] << (15 * i) for i in range(4))
        assert sum(y[i] << (15 * i) for i in range(4)) == xi * 302875106592253 % 2**60
        x = y
    out = []
    stored_records(out)
    seed_array_records(out)
    clock_records(out)
    print("# Generated by tools/g05_reference.py (15-bit digit arithmetic): do not edit.")
    for name, vals in out:
        text = " ".join(v.hex() if isinstance(v, float) else str(v) for v in vals)
        print(f"{name} {len(vals)} {text}")


if __name__ == "__main__":
    main()
