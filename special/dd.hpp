// Double-double arithmetic for the few places where a special function
// needs more than 53 bits on the way: series with cancellation (Airy near
// its turning point) and phases such as 2/3 x^(3/2) whose rounding error
// would otherwise be multiplied by the size of the phase.
//
// Products are exact by Dekker's splitting, so the code does not depend on
// a fused multiply-add being available or on the compiler contracting.
#pragma once
#include <cmath>

namespace zem::sf::dd {

struct DD {
  double hi;
  double lo;
};

inline DD two_sum(double a, double b) {
  double s = a + b;
  double bb = s - a;
  double e = (a - (s - bb)) + (b - bb);
  return {s, e};
}

inline DD quick_two_sum(double a, double b) {
  double s = a + b;
  return {s, b - (s - a)};
}

inline void split(double a, double& h, double& l) {
  constexpr double kSplit = 134217729.0;  // 2^27 + 1
  double t = kSplit * a;
  h = t - (t - a);
  l = a - h;
}

// a * b exactly, as hi + lo (for |a|, |b| well inside the range).
inline DD two_prod(double a, double b) {
  double p = a * b;
  double ah, al, bh, bl;
  split(a, ah, al);
  split(b, bh, bl);
  double e = ((ah * bh - p) + ah * bl + al * bh) + al * bl;
  return {p, e};
}

inline DD add(DD a, DD b) {
  DD s = two_sum(a.hi, b.hi);
  DD t = two_sum(a.lo, b.lo);
  s.lo += t.hi;
  s = quick_two_sum(s.hi, s.lo);
  s.lo += t.lo;
  return quick_two_sum(s.hi, s.lo);
}

inline DD neg(DD a) { return {-a.hi, -a.lo}; }

inline DD mul(DD a, DD b) {
  DD p = two_prod(a.hi, b.hi);
  p.lo += a.hi * b.lo + a.lo * b.hi;
  return quick_two_sum(p.hi, p.lo);
}

inline DD mul(DD a, double b) {
  DD p = two_prod(a.hi, b);
  p.lo += a.lo * b;
  return quick_two_sum(p.hi, p.lo);
}

inline DD div(DD a, double b) {
  double q1 = a.hi / b;
  DD p = two_prod(q1, b);
  DD r = two_sum(a.hi, -p.hi);
  r.lo -= p.lo;
  r.lo += a.lo;
  double q2 = (r.hi + r.lo) / b;
  return quick_two_sum(q1, q2);
}

inline DD div(DD a, DD b) {
  double q1 = a.hi / b.hi;
  DD r = add(a, neg(mul(b, q1)));
  double q2 = r.hi / b.hi;
  r = add(r, neg(mul(b, q2)));
  double q3 = r.hi / b.hi;
  DD q = quick_two_sum(q1, q2);
  return add(q, DD{q3, 0.0});
}

// ln y for y > 0 (normal): y = 2^e f, f in [sqrt(1/2), sqrt 2), and
// ln f = 2 artanh u = 2 (u + u^3/3 + ...), u = (f-1)/(f+1), |u| < 0.172.
inline DD log_dd(double y) {
  constexpr DD kLn2{0.6931471805599453, 2.3190468138462996e-17};
  int e;
  double f = std::frexp(y, &e);
  if (f < 0.70710678118654752) {
    f *= 2.0;
    --e;
  }
  DD u = div(DD{f - 1.0, 0.0}, two_sum(f, 1.0));
  DD u2 = mul(u, u);
  DD term = u, sum = u;
  for (int k = 3; k < 80; k += 2) {
    term = mul(term, u2);
    DD t = div(term, static_cast<double>(k));
    sum = add(sum, t);
    if (std::fabs(t.hi) <= 1e-34 * std::fabs(sum.hi)) break;
  }
  return add(mul(sum, 2.0), mul(kLn2, static_cast<double>(e)));
}

// sqrt(x) as hi + lo for x > 0.
inline DD sqrt_dd(double x) {
  double s = std::sqrt(x);
  DD sq = two_prod(s, s);
  double r = (x - sq.hi) - sq.lo;
  return quick_two_sum(s, r / (2.0 * s));
}

}  // namespace zem::sf::dd
