// The Laguerre driver of zeros/poly_laguerre.hpp.
//
// Leading zero coefficients give zeros at infinity and trailing ones zeros
// at the origin; each further zero of the working polynomial (degree
// m >= 3) is found as follows.
//
// Bounds on the nearest zero.  An upper bound R is the smaller of the
// geometric mean of the moduli of the zeros, |a_m/a_0|^(1/m) (times e^0.001),
// and sqrt(m) times the length of the Laguerre step at the origin, since the
// disc of that radius about the origin holds a zero (W. Kahan, "Laguerre's
// method and a circle which contains at least one zero of a polynomial",
// SIAM J. Numer. Anal. 4, 1967).  The positive zero rho of the polynomial of
// moduli |a_0| x^m + ... + |a_(m-1)| x - |a_m| bounds every zero from below
// (Cauchy); Newton's method, started at R and run on the logarithm of the
// moduli sum (which is convex in log x, so the iterates fall monotonically
// onto rho), finds it in a few steps.  The nearest zero lies within
// rho / (2^(1/m) - 1) < 1.445 m rho, which gives the upper limit of the
// first step.
//
// The iteration starts at the origin.  A Laguerre step L is compared with
// the allowed length: a ratio |L|/allowed of at most 2 is taken, shortened
// to the allowed length when the ratio exceeds 1, and the allowed length
// becomes the length of a full Laguerre step taken.  A ratio above 2 before
// any step was taken, or a first step that does not lower |p|, starts a
// spiral search on the circle of the lower bound (first point in the
// Laguerre direction, each further point the last turned by the angle of
// (-1.25/m, 1), a little over a quarter turn, so that the points fall into
// every arc of the circle where |p| is below |p(0)|; by the minimum modulus
// principle such arcs exist inside the zero-free disc).  The search ends at
// a point that lowers |p| and from which the Laguerre step is within twice
// the upper limit.  After a step was taken, a ratio above 2 halves the last
// step from the point it started from, once; a step that raised |p| is
// halved until |p| falls.  When halving no longer moves the iterate, the
// point is accepted if |p| is within m^2 times its rounding bound;
// otherwise the iteration has failed (status 2).  A value of |p| at or below
// its rounding bound, which Horner's rule gives in the same pass as the
// value and the two derivatives, ends the iteration.
//
// Evaluation at a point beyond the unit circle uses the reversed polynomial
// at 1/z, so that no power of z can overflow; the Laguerre step is formed
// from quantities that are homogeneous in p, p', p'' and scaled before they
// are squared.  The working polynomial is kept with its largest coefficient
// at a safe exponent by exact shifts by powers of 2; an evaluation that
// still overflows shifts it down by 27 bits, and a second shift in one
// search (54 bits, the precision) gives status 3.  A deflation that
// overflows, or a coefficient that is not finite, gives status 4.
//
// Each zero found is polished on the polynomial as given (see polish) and
// the working polynomial is divided by it.  Deflation is forward (from the
// leading coefficient), which is stable for zeros found in increasing order
// of modulus, as the iteration from the origin finds them; polishing takes
// out what error the deflations still leave, also for multiple zeros.
// Degree 2 is solved by the quadratic formula in its cancellation-free form
// and degree 1 directly, and their zeros are polished too.
#include "zeros/poly_laguerre.hpp"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <type_traits>

#include "frame/workspace.hpp"
#include "zem/x02.h"

namespace zem::poly {

double unset_mark() noexcept { return -1.0 / (x02akc() * std::sqrt(2.0)); }
double infinite_zero() noexcept { return 1.0 / x02akc(); }

namespace {

using cplx = std::complex<double>;

constexpr int kTargetExponent = 970;  // largest coefficient after scaling
constexpr int kShiftBits = 27;        // one shift of scale after an overflow
constexpr int kShiftLimit = 54;       // digits of precision: the shifts allowed in one search

inline double re(double x) { return x; }
inline double im(double) { return 0.0; }
inline double re(const cplx& x) { return x.real(); }
inline double im(const cplx& x) { return x.imag(); }
inline double norm_inf(double x) { return std::fabs(x); }
inline double norm_inf(const cplx& x) { return std::max(std::fabs(x.real()), std::fabs(x.imag())); }
inline double modulus(double x) { return std::fabs(x); }
inline double modulus(const cplx& x) { return std::abs(x); }
inline double modulus_above(double x) { return std::fabs(x); }
inline double modulus_above(const cplx& x) { return std::fabs(x.real()) + std::fabs(x.imag()); }
inline bool finite(double x) { return std::isfinite(x); }
inline bool finite(const cplx& x) { return std::isfinite(x.real()) && std::isfinite(x.imag()); }
inline double scaled(double x, int k) { return std::ldexp(x, k); }
inline cplx scaled(const cplx& x, int k) { return {std::ldexp(x.real(), k), std::ldexp(x.imag(), k)}; }

// Horner's rule with the first derivative, half the second derivative and
// the running sum of the moduli of the partial values (the rounding-error
// bound of the value is a small multiple of u times mu).
struct Sums {
  cplx v, d1, d2h;
  double mu;
};

// Real coefficients at a real point.  c points at the first coefficient in
// the order of evaluation and step is +1 or -1.
inline Sums horner_real(const double* c, std::ptrdiff_t step, int m, double x) {
  double v = *c, d1 = 0.0, d2 = 0.0, mu = std::fabs(v);
  const double ax = std::fabs(x);
  for (int k = 0; k < m; ++k) {
    c += step;
    d2 = d2 * x + d1;
    d1 = d1 * x + v;
    v = v * x + *c;
    mu = mu * ax + std::fabs(v);
  }
  return {v, d1, d2, mu};
}

// Real or complex coefficients at a complex point, in real arithmetic; mu
// takes |re| + |im| of the partial values, an upper bound of the modulus.
template <class T>
inline Sums horner_complex(const T* c, std::ptrdiff_t step, int m, cplx z) {
  const double x = z.real(), y = z.imag(), az = std::abs(z);
  double vr = re(*c), vi = im(*c), ar = 0.0, ai = 0.0, br = 0.0, bi = 0.0;
  double mu = std::fabs(vr) + std::fabs(vi);
  for (int k = 0; k < m; ++k) {
    c += step;
    double t = br * x - bi * y + ar;
    bi = br * y + bi * x + ai;
    br = t;
    t = ar * x - ai * y + vr;
    ai = ar * y + ai * x + vi;
    ar = t;
    t = vr * x - vi * y + re(*c);
    vi = vr * y + vi * x + im(*c);
    vr = t;
    mu = mu * az + std::fabs(vr) + std::fabs(vi);
  }
  return {{vr, vi}, {ar, ai}, {br, bi}, mu};
}

// Quotient that becomes the value of a zero at infinity when it overflows.
inline cplx guarded_div(cplx num, cplx den) {
  cplx q = num / den;
  if (!finite(q)) return {infinite_zero(), 0.0};
  return q;
}

template <class T>
class Driver {
 public:
  // b: the coefficients on entry, then the working polynomial; orig: room
  // for n+1 coefficients, the polynomial as given (after scaling).
  Driver(T* b, T* orig, int n, ZemComplex* out) noexcept
      : b_(b), orig_(orig), m_(n), n0_(n), out_(out), u_(x02ajc()) {}

  Status run(bool scale) noexcept;

 private:
  // One evaluation.  The Laguerre step is lam * F(a, a1, a2) with F
  // homogeneous of degree 0 in (a, a1, a2), and the Newton step is
  // -lam * a / a1; absp and bound are the modulus of the value and its
  // rounding bound in the frame of evaluation; logp is log|p(z)|.
  struct Point {
    cplx z, lam, a, a1, a2;
    double absp = 0.0, bound = 0.0, logp = 0.0;
    bool converged() const noexcept { return absp <= bound; }
  };

  static bool eval_at(const T* c, int m, cplx z, double u, Point& p) noexcept;
  Status eval(cplx z, Point& p) noexcept;
  bool laguerre(const Point& p, cplx& step) const noexcept;
  Status search(Point& zero) noexcept;
  void polish(Point& zero) const noexcept;
  double cauchy_root(double x) const noexcept;
  Status stall(const Point& p, Point& zero) const noexcept;
  void shift(int k) noexcept {
    for (int i = 0; i <= m_; ++i) b_[i] = scaled(b_[i], k);
  }
  void normalize() noexcept;
  bool deflated_finite() const noexcept {
    for (int i = 0; i <= m_; ++i)
      if (!finite(b_[i])) return false;
    return true;
  }
  void put(cplx z) noexcept {
    out_[count_].re = z.real();
    out_[count_].im = z.imag();
    ++count_;
  }
  Status take(const Point& zero) noexcept;
  void finish(cplx z, bool pair = false) noexcept;
  void linear() noexcept { finish(guarded_div(-cplx(b_[1]), cplx(b_[0]))); }
  void quadratic() noexcept;

  T* b_;     // working coefficients b_[0..m_], highest power first
  T* orig_;  // the polynomial as given, orig_[0..n0_], for polishing
  int m_;    // current degree
  const int n0_;
  ZemComplex* out_;
  int count_ = 0;
  const double u_;
  double logscale_ = 0.0;  // log of the factor applied by shifts in this search
  int shifted_ = 0;        // bits shifted down in this search
};

// Evaluates the polynomial c[0..m] at z: directly inside the unit circle,
// as the reversed polynomial at 1/z outside it.  False when a sum is not
// finite.
template <class T>
bool Driver<T>::eval_at(const T* c, int m, cplx z, double u, Point& p) noexcept {
  const bool reversed = std::abs(z) > 1.0;
  const cplx w = reversed ? 1.0 / z : z;
  const T* first = reversed ? c + m : c;
  const std::ptrdiff_t step = reversed ? -1 : 1;
  Sums s;
  double kappa = 4.0;
  if constexpr (std::is_same_v<T, double>) {
    if (z.imag() == 0.0) {
      s = horner_real(first, step, m, w.real());
      kappa = 2.0;
    } else {
      s = horner_complex(first, step, m, w);
    }
  } else {
    s = horner_complex(first, step, m, w);
  }
  if (!finite(s.v) || !finite(s.d1) || !finite(s.d2h) || !std::isfinite(s.mu)) return false;
  p.z = z;
  p.absp = std::abs(s.v);
  p.bound = kappa * u * s.mu + 4.0 * (m + 1) * std::numeric_limits<double>::denorm_min();
  const double dm = m;
  if (reversed) {
    // p(z) = z^m q(w), and p, p', p'' are z^(m-2) times z^2 q,
    // z (m q - w q'), m(m-1) q - 2(m-1) w q' + w^2 q''.
    p.lam = z;
    p.a = s.v;
    p.a1 = dm * s.v - w * s.d1;
    p.a2 = dm * (dm - 1.0) * s.v - 2.0 * (dm - 1.0) * w * s.d1 + 2.0 * w * w * s.d2h;
    p.logp = std::log(p.absp) + dm * std::log(std::abs(z));
  } else {
    p.lam = 1.0;
    p.a = s.v;
    p.a1 = s.d1;
    p.a2 = 2.0 * s.d2h;
    p.logp = std::log(p.absp);
  }
  return true;
}

// Evaluation of the working polynomial; an overflow shifts its scale down.
template <class T>
Status Driver<T>::eval(cplx z, Point& p) noexcept {
  while (!eval_at(b_, m_, z, u_, p)) {
    if (!finite(z) || shifted_ >= kShiftLimit) return Status::Underflow;
    shift(-kShiftBits);
    shifted_ += kShiftBits;
    logscale_ -= kShiftBits * std::log(2.0);
  }
  p.logp -= logscale_;
  return Status::Ok;
}

// The Laguerre step -m p / (p' +- sqrt((m-1)((m-1) p'^2 - m p p''))), the
// sign chosen for the larger denominator; false when it is undefined.
template <class T>
bool Driver<T>::laguerre(const Point& p, cplx& step) const noexcept {
  const double dm = m_;
  const double big = std::max({norm_inf(p.a), norm_inf(p.a1), norm_inf(p.a2)});
  if (!(big > 0.0) || !std::isfinite(big)) return false;
  const int e = std::ilogb(big);
  const cplx a = scaled(p.a, -e), a1 = scaled(p.a1, -e), a2 = scaled(p.a2, -e);
  const cplx root = std::sqrt((dm - 1.0) * ((dm - 1.0) * a1 * a1 - dm * a * a2));
  cplx den = a1 + root;
  const cplx other = a1 - root;
  if (std::norm(other) > std::norm(den)) den = other;
  if (den == 0.0) return false;
  step = p.lam * (-dm * a / den);
  return finite(step);
}

// Steps on the polynomial as given, from a zero of the deflated one, while
// they lower |p| and |p| is above its rounding bound: this removes the
// error that the deflations have put into the working polynomial.  The
// step is Newton's on p/p', -p p' / (p'^2 - p p''), which converges
// quadratically to a multiple zero as well as to a simple one; when it
// does not lower |p|, Newton's step on p, a direction of descent; each is
// halved up to 8 times.  zero becomes the evaluation of the given
// polynomial at the polished point.
template <class T>
void Driver<T>::polish(Point& zero) const noexcept {
  Point q, r;
  if (!eval_at(orig_, n0_, zero.z, u_, q)) return;
  for (int k = 0; k < 10 && !q.converged(); ++k) {
    const double big = std::max({norm_inf(q.a), norm_inf(q.a1), norm_inf(q.a2)});
    if (!(big > 0.0)) break;
    const int e = std::ilogb(big);
    const cplx a = scaled(q.a, -e), a1 = scaled(q.a1, -e), a2 = scaled(q.a2, -e);
    const cplx den = a1 * a1 - a * a2;
    bool better = false;
    for (const cplx& step : {den == 0.0 ? cplx(0.0) : -q.lam * (a * a1 / den),
                             a1 == 0.0 ? cplx(0.0) : -q.lam * (a / a1)}) {
      cplx d = step;
      for (int h = 0; h < 9 && !better; ++h, d *= 0.5) {
        const cplx z = q.z + d;
        if (!finite(z) || z == q.z) break;
        better = eval_at(orig_, n0_, z, u_, r) && r.logp < q.logp;
      }
      if (better) break;
    }
    if (!better) break;
    q = r;
  }
  zero = q;
}

// The positive zero of the polynomial of moduli, from a point x above it.
// Upper bounds of the moduli stand for the coefficients of the powers and a
// lower bound for the constant term, so that the result stays a lower bound.
// Newton's method runs on phi(log x) = log S(x) - log|b_m|, where
// S(x) = sum over k < m of |b_k| x^(m-k); phi is convex and increasing, and
// its slope x S'(x) / S(x) lies between 1 and m.
template <class T>
double Driver<T>::cauchy_root(double x) const noexcept {
  const int m = m_;
  const double last = std::log(norm_inf(b_[m]));
  for (int it = 0; it < 100; ++it) {
    double s = modulus_above(b_[0]), d = m * s;
    for (int k = 1; k < m; ++k) {
      const double c = modulus_above(b_[k]);
      s = s * x + c;
      d = d * x + (m - k) * c;
    }
    double log_s, slope;
    if (std::isfinite(d) && s > 0.0) {
      log_s = std::log(s) + std::log(x);
      slope = d / s;
    } else {
      // Out of range: the same sums from the logarithms of their terms.
      const double lx = std::log(x);
      double top = -std::numeric_limits<double>::infinity();
      for (int k = 0; k < m; ++k) {
        const double c = modulus_above(b_[k]);
        if (c > 0.0) top = std::max(top, std::log(c) + (m - k) * lx);
      }
      double sum = 0.0, dsum = 0.0;
      for (int k = 0; k < m; ++k) {
        const double c = modulus_above(b_[k]);
        if (c == 0.0) continue;
        const double t = std::exp(std::log(c) + (m - k) * lx - top);
        sum += t;
        dsum += (m - k) * t;
      }
      log_s = top + std::log(sum);
      slope = dsum / sum;
    }
    const double next = x * std::exp(-(log_s - last) / slope);
    if (!(next < x) || x - next <= u_ * x) return std::min(x, next);
    x = next;
  }
  return x;
}

template <class T>
Status Driver<T>::stall(const Point& p, Point& zero) const noexcept {
  const double dm = m_;
  if (p.absp <= dm * dm * p.bound) {
    zero = p;
    return Status::Ok;
  }
  return Status::NotConverged;
}

template <class T>
Status Driver<T>::search(Point& zero) noexcept {
  const int m = m_;
  const double dm = m;
  logscale_ = 0.0;
  shifted_ = 0;

  Point origin;
  Status st = eval(0.0, origin);
  if (st != Status::Ok) return st;
  if (origin.converged()) {
    zero = origin;
    return Status::Ok;
  }

  // Bounds on the modulus of the nearest zero.
  const double geometric = std::exp((std::log(modulus(b_[m])) - std::log(modulus(b_[0]))) / dm + 0.001);
  cplx l0;
  const bool have_l0 = laguerre(origin, l0);
  const double kahan = have_l0 ? std::sqrt(dm) * std::abs(l0) : geometric;
  const double upper = std::min(geometric, kahan) * 1.0001;
  const double lower = 0.99999 * cauchy_root(upper);
  const double limit = std::min(upper, dm * lower * 1.445);

  Point cur = origin, base = origin, trial;
  cplx step = 0.0;          // the last step, taken from base
  double allowed = limit;   // the allowed step length
  bool accepted = false;    // a step has lowered |p|
  bool backtrack = false;   // the last step raised |p|: halve it
  bool halved = false;      // cur was reached by halving the last step
  bool spiral_now = false;  // the first step raised |p|
  // The spiral search about the origin.
  const cplx turn = cplx(-1.25 / dm, 1.0) / std::abs(cplx(-1.25 / dm, 1.0));
  cplx spiral = lower * (have_l0 && std::abs(l0) > 0.0 ? l0 / std::abs(l0) : cplx(1.0, 0.0));
  int spiral_points = 0;
  const int spiral_cap = 8 * m + 64;
  constexpr double kInf = std::numeric_limits<double>::infinity();

  const int cap = 500 + 10 * m;
  for (int it = 0; it < cap; ++it) {
    if (cur.converged()) {
      zero = cur;
      return Status::Ok;
    }
    double ratio = 2.0002;
    cplx lag = 0.0;
    if (spiral_now) {
      ratio = kInf;
    } else if (!backtrack) {
      ratio = laguerre(cur, lag) ? std::abs(lag) / allowed : kInf;
      if (std::isnan(ratio)) ratio = kInf;
    }

    if (ratio > 2.0 && !accepted) {
      // Spiral: look for a point that lowers |p| and from which the
      // Laguerre step is within twice the upper limit.
      spiral_now = false;
      for (;;) {
        if (spiral_points++ >= spiral_cap) return Status::NotConverged;
        st = eval(spiral, trial);
        if (st != Status::Ok) return st;
        if (trial.converged()) {
          zero = trial;
          return Status::Ok;
        }
        const cplx here = spiral;
        spiral *= turn;
        cplx lw;
        if (trial.logp < origin.logp && laguerre(trial, lw) && std::abs(lw) <= 2.0 * limit) {
          base = origin;
          step = here;
          cur = trial;
          accepted = true;
          allowed = limit;
          break;
        }
      }
      continue;
    }

    if (ratio > 2.0 && (backtrack || !halved)) {
      // Halve the last step from the point it started from.
      step *= 0.5;
      const cplx z = base.z + step;
      if (z == base.z || std::abs(step) <= u_ * lower) return stall(base, zero);
      st = eval(z, cur);
      if (st != Status::Ok) return st;
      halved = true;
      backtrack = cur.logp > base.logp && !cur.converged();
      continue;
    }

    // A step in the Laguerre direction, at most the allowed length (also
    // after a halving that left the Laguerre step long).
    if (ratio > 1.0) lag *= allowed / std::abs(lag);
    const cplx z = cur.z + lag;
    if (z == cur.z) return stall(cur, zero);
    st = finite(z) ? eval(z, trial) : Status::Ok;
    if (st != Status::Ok) return st;
    if (finite(z) && trial.converged()) {
      zero = trial;
      return Status::Ok;
    }
    if (!finite(z) || trial.logp > cur.logp) {
      if (accepted) {
        base = cur;
        step = lag;
        backtrack = true;
      } else {
        spiral_now = true;
      }
      continue;
    }
    base = cur;
    step = lag;
    cur = trial;
    accepted = true;
    halved = false;
    allowed = std::abs(lag);
  }
  return stall(cur, zero);
}

// Stores the zero found by search and divides the polynomial by it.  For
// real coefficients a complex zero is taken with its conjugate, and the
// polynomial divided by their real quadratic factor, unless the zero is
// real to working accuracy: its imaginary part y is within the rounding
// uncertainty of the zero (y |p'| at most the bound of p), or p at its
// real part is within its rounding bound.
template <class T>
Status Driver<T>::take(const Point& zero) noexcept {
  if constexpr (std::is_same_v<T, double>) {
    const double x = zero.z.real();
    const double y = std::fabs(zero.z.imag());
    bool real = y == 0.0 || y * std::abs(zero.a1) <= zero.bound * std::abs(zero.lam);
    if (!real) {
      const bool reversed = std::fabs(x) > 1.0;
      const Sums s = reversed ? horner_real(b_ + m_, -1, m_, 1.0 / x) : horner_real(b_, 1, m_, x);
      real = std::abs(s.v) <= 2.0 * u_ * s.mu;
    }
    if (real) {
      put({x, 0.0});
      for (int k = 1; k < m_; ++k) b_[k] += x * b_[k - 1];
      m_ -= 1;
    } else {
      put({x, y});
      put({x, -y});
      const double t = 2.0 * x, s = x * x + y * y;
      b_[1] += t * b_[0];
      for (int k = 2; k < m_ - 1; ++k) b_[k] += t * b_[k - 1] - s * b_[k - 2];
      m_ -= 2;
    }
  } else {
    put(zero.z);
    for (int k = 1; k < m_; ++k) b_[k] += zero.z * b_[k - 1];
    m_ -= 1;
  }
  return deflated_finite() ? Status::Ok : Status::Overflow;
}

// Stores a zero of the last linear or quadratic factor after polishing it
// on the polynomial as given (a zero at infinity as it is); with pair, the
// zero and its conjugate.
template <class T>
void Driver<T>::finish(cplx z, bool pair) noexcept {
  if (z.real() != infinite_zero()) {
    Point p;
    p.z = z;
    polish(p);
    z = p.z;
  }
  if (!pair) {
    // A zero of a real polynomial that is not one of a pair is real.
    put(std::is_same_v<T, double> ? cplx(z.real(), 0.0) : z);
    return;
  }
  put({z.real(), std::fabs(z.imag())});
  put({z.real(), -std::fabs(z.imag())});
}

template <class T>
void Driver<T>::quadratic() noexcept {
  const double big = std::max({norm_inf(b_[0]), norm_inf(b_[1]), norm_inf(b_[2])});
  const int e = std::ilogb(big);
  const T a = scaled(b_[0], -e), b = scaled(b_[1], -e), c = scaled(b_[2], -e);
  if constexpr (std::is_same_v<T, double>) {
    const double disc = b * b - 4.0 * a * c;
    if (disc >= 0.0) {
      const double q = -0.5 * (b + std::copysign(std::sqrt(disc), b));
      finish(guarded_div(q, a));
      finish(q == 0.0 ? cplx(0.0) : guarded_div(c, q));
    } else {
      finish({guarded_div(-b, 2.0 * a).real(), guarded_div(std::sqrt(-disc), 2.0 * std::fabs(a)).real()},
             true);
    }
  } else {
    cplx root = std::sqrt(b * b - 4.0 * a * c);
    if (std::norm(b - root) > std::norm(b + root)) root = -root;
    const cplx q = -0.5 * (b + root);
    finish(guarded_div(q, a));
    finish(q == 0.0 ? cplx(0.0) : guarded_div(c, q));
  }
}

// Brings the largest coefficient back to a safe exponent when it has left
// the range in which evaluation can neither overflow nor lose digits to
// underflow: the largest value of the sums of Horner's rule is below
// (m+1)^3 times the largest coefficient.
template <class T>
void Driver<T>::normalize() noexcept {
  double big = 0.0;
  for (int i = 0; i <= m_; ++i) big = std::max(big, norm_inf(b_[i]));
  if (!(big > 0.0)) return;
  int growth = 0;
  for (long v = m_ + 1; v > 0; v >>= 1) ++growth;
  const int high = 1000 - 3 * growth;
  const int e = std::ilogb(big);
  if (e > high || e < -900) shift(std::min(kTargetExponent, high) - e);
}

template <class T>
Status Driver<T>::run(bool scale) noexcept {
  double big = 0.0;
  for (int i = 0; i <= m_; ++i) {
    if (!finite(b_[i])) return Status::Overflow;
    big = std::max(big, norm_inf(b_[i]));
  }
  if (big == 0.0) {
    while (count_ < m_) put({infinite_zero(), 0.0});
    return Status::Ok;
  }
  if (scale) {
    // One power of 2 that brings the largest coefficient to exponent 970;
    // when it is out of the exponent range, no scaling.
    const int k = kTargetExponent - std::ilogb(big);
    if (k >= -1022 && k <= 1023) shift(k);
  }
  normalize();
  std::copy(b_, b_ + n0_ + 1, orig_);
  while (m_ >= 1) {
    if (b_[0] == T(0)) {
      put({infinite_zero(), 0.0});
      ++b_;
      --m_;
      continue;
    }
    if (b_[m_] == T(0)) {
      put(0.0);
      --m_;
      continue;
    }
    if (m_ == 1) {
      linear();
      break;
    }
    if (m_ == 2) {
      quadratic();
      break;
    }
    Point zero;
    Status st = search(zero);
    if (st != Status::Ok) return st;
    polish(zero);
    st = take(zero);
    if (st != Status::Ok) return st;
    normalize();
  }
  return Status::Ok;
}

}  // namespace

Status complex_zeros(int n, const ZemComplex* a, bool scale, ZemComplex* z, double* work) noexcept {
  // work: the working polynomial, then the polynomial as given.
  auto* b = reinterpret_cast<cplx*>(work);
  for (int i = 0; i <= n; ++i) b[i] = cplx(a[i].re, a[i].im);
  return Driver<cplx>(b, b + n + 1, n, z).run(scale);
}

Status real_zeros(int n, const double* a, bool scale, ZemComplex* z) noexcept {
  Workspace<double> w(2 * (static_cast<std::size_t>(n) + 1));
  if (!w) return Status::AllocFail;
  double* b = w.get();
  std::copy(a, a + n + 1, b);
  return Driver<double>(b, b + n + 1, n, z).run(scale);
}

}  // namespace zem::poly
