// Zero of a function of one variable on a bracket: the Bus and Dekker
// method (Bus, J.C.P. and Dekker, T.J., "Two efficient algorithms with
// guaranteed convergence for finding a zero of a function", ACM TOMS 1(4),
// 1975), driven by reverse communication, and a direct driver on top of it.
#pragma once
#include <cmath>

namespace zem::bracket {

// Length of the state array that the caller keeps between calls of step().
inline constexpr int kStateSize = 17;

enum class Status {
  kOk = 0,        // running, or finished normally
  kSameSign,      // f has the same sign at both ends: no bracket
  kPole,          // the bracket closed on a probable pole
  kXtolTooSmall,  // the bracket cannot be reduced to the tolerance
};

// One step of the search.  `ind` on entry: 1 start (x, y the ends, x to be
// evaluated), 2 fx = f at the first end, 3 fx = f at the second end,
// 4 fx = f at the point asked for, -1 start with f(x) in fx and f(y) in c[0].
// On return ind is 0 when the search is over, otherwise the value to come
// back with after evaluating f at x.  `ir` selects the tolerance: 0 mixed
// 0.5*xtol*max(1,|x|), 1 absolute 0.5*xtol, 2 relative 0.5*xtol*|x|.
// The arguments must be valid: ind in {-1,1,2,3,4}, xtol > 0, ir in {0,1,2}.
Status step(double& x, double& y, double& fx, double xtol, int ir, double* c, int& ind) noexcept;

// Sign convention of the method: zero counts as negative.
inline bool same_sign(double u, double v) noexcept { return (u <= 0.0) == (v <= 0.0); }

// Direct driver: a zero of f on [a, b] with the absolute tolerance xtol, or
// a point where |f| < ftol.  x holds the last point tried (the best point at
// convergence); nfev, when given, receives the number of evaluations.
template <class F>
Status find_zero(double a, double b, double& x, F&& f, double xtol, double ftol, long* nfev = nullptr) {
  long count = 0;
  auto done = [&](Status s) {
    if (nfev) *nfev = count;
    return s;
  };
  auto small = [ftol](double v) { return std::fabs(v) < ftol || v == 0.0; };
  double c[kStateSize] = {};
  x = a;
  double fx = f(x);
  ++count;
  if (small(fx)) return done(Status::kOk);
  double y = a;
  c[0] = fx;
  x = b;
  fx = f(x);
  ++count;
  if (small(fx)) return done(Status::kOk);
  if (same_sign(fx, c[0])) return done(Status::kSameSign);
  int ind = -1;
  for (;;) {
    if (small(fx)) return done(Status::kOk);
    const Status s = step(x, y, fx, xtol, 1, c, ind);
    if (ind == 0) return done(s);
    fx = f(x);
    ++count;
  }
}

}  // namespace zem::bracket
