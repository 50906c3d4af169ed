// The exported routines of the d01 chapter: argument checks, the progress
// record and its arrays, and the reports around the adaptive engine
// (quadrature/adaptive.hpp) and the fixed rules (quadrature/gauss.hpp).
// Every d01a routine and its d01s twin share one driver, templated on the
// integrand's type.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "quadrature/adaptive.hpp"
#include "quadrature/gauss.hpp"
#include "quadrature/rules.hpp"
#include "zem/d01.h"
#include "zem/m01.h"
#include "zem/x02.h"
#include "zem/x04.h"

namespace {

using zem::Call;
namespace q = zem::quad;

// ---------------------------------------------------------------------------
// The integrand: the caller's function (with comm where its type takes it)
// and a count of its evaluations.
template <class Fn>
struct Integrand {
  Fn f;
  void* comm;
  long count = 0;
  double operator()(double x) {
    ++count;
    if constexpr (std::is_same_v<Fn, Zem_D01_Fun>)
      return f(x);
    else
      return f(x, comm);
  }
};

// ---------------------------------------------------------------------------
// The progress record's arrays: allocated for the caller with x04bbc and
// handed over at the end, or freed on any road that does not hand them
// over.

template <class T>
T* take(std::size_t n) {
  if (n == 0) n = 1;
  if (n > static_cast<std::size_t>(-1) / sizeof(T)) return nullptr;
  return static_cast<T*>(x04bbc(n * sizeof(T)));
}
template <class T>
void give_back(T*& p) {
  void* v = p;
  x04bdc(&v);
  p = nullptr;
}

class Arrays {
 public:
  // The four arrays of n doubles and the index array, in this order; a
  // failure frees what stands.
  bool allocate(std::size_t n) {
    n_ = n;
    if ((left = take<double>(n)) && (right = take<double>(n)) && (integral = take<double>(n)) &&
        (error = take<double>(n)) && (index = take<std::int32_t>(n)))
      return true;
    release();
    return false;
  }
  ~Arrays() { release(); }
  Arrays() = default;
  Arrays(const Arrays&) = delete;
  Arrays& operator=(const Arrays&) = delete;

  q::Subintervals view(std::int32_t* level) const {
    return q::Subintervals{left, right, integral, error, index, level, static_cast<int>(n_)};
  }

  // Zeroes the unused entries, sorts the used ones by left end (ranks of
  // the left ends, inverted into an index vector, then every array
  // reordered by it), frees the index array and hands the others over.
  // Returns false when the sorting could not get its workspace (the
  // arrays are then handed over unsorted).
  bool hand_over(int used, Zem_QuadProgress* qp) {
    const std::size_t k = used > 0 ? static_cast<std::size_t>(used) : 0;
    for (std::size_t i = k; i < n_; ++i) left[i] = right[i] = integral[i] = error[i] = 0.0;
    bool sorted = true;
    if (k > 1) {
      ZemError local{};
      m01dsc(left, k, sizeof(double), compare_doubles, Zem_Ascending, index, &local);
      if (local.code == 0) m01zac(index, k, &local);
      for (double* a : {left, right, integral, error})
        if (local.code == 0) m01esc(a, k, sizeof(double), sizeof(double), index, &local);
      sorted = local.code == 0;
    }
    give_back(index);
    qp->subintervals = used;
    qp->left = left;
    qp->right = right;
    qp->integral = integral;
    qp->error = error;
    left = right = integral = error = nullptr;
    return sorted;
  }

  void release() {
    give_back(left);
    give_back(right);
    give_back(integral);
    give_back(error);
    give_back(index);
  }

  double* left = nullptr;
  double* right = nullptr;
  double* integral = nullptr;
  double* error = nullptr;
  std::int32_t* index = nullptr;

 private:
  // The order of the left ends: -1, 0 or 1 on the sign of the difference,
  // a NaN difference counting as -1.
  static std::int32_t compare_doubles(const void* a, const void* b) {
    const double d = *static_cast<const double*>(a) - *static_cast<const double*>(b);
    if (d > 0.0) return 1;
    if (d == 0.0) return 0;
    return -1;
  }
  std::size_t n_ = 0;
};

void clear(Zem_QuadProgress* qp) {
  if (!qp) return;
  std::memset(qp, 0, sizeof *qp);
}

long clamp_count(long n) { return n > INT32_MAX ? INT32_MAX : n; }

// The rows of a finished run over one range.
void report_status(Call& call, q::Status s, std::int32_t limit, double epsabs, double epsrel) {
  switch (s) {
    case q::Status::kOk:
      call.success();
      break;
    case q::Status::kMaxSubdiv:
      call.report(NE_QUAD_MAX_SUBDIV, static_cast<long>(limit));
      break;
    case q::Status::kRoundoff:
      call.report(NE_QUAD_ROUNDOFF_TOL, epsabs, epsrel);
      break;
    case q::Status::kBadSubdiv:
      call.report_null(NE_QUAD_BAD_SUBDIV);
      break;
    case q::Status::kRoundoffExtrap:
      call.report_null(NE_QUAD_ROUNDOFF_EXTRAPL);
      break;
    case q::Status::kDivergent:
      call.report_null(NE_QUAD_NO_CONV);
      break;
  }
}

template <class Fn>
bool null_outputs(Call& call, Fn f, const char* fname, double* result, double* abserr,
                  Zem_QuadProgress* qp) {
  return call.null(fname, reinterpret_cast<const void*>(f)) || call.null("result", result) ||
         call.null("abserr", abserr) || call.null("progress", qp);
}

// The frame of a run over one range: the arrays (and a level per
// subinterval when the method keeps one), the run itself, the hand-over of
// the arrays and the report.  run(subintervals, integrand) returns the
// outcome.
template <class Fn, class Run>
void run_range(Call& call, Fn f, void* comm, std::int32_t limit, bool levels, double epsabs,
               double epsrel, double* result, double* abserr, Zem_QuadProgress* qp, Run run) {
  Arrays arr;
  if (!arr.allocate(static_cast<std::size_t>(limit))) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  struct Levels {
    std::int32_t* p = nullptr;
    ~Levels() { give_back(p); }
  } level;
  if (levels && !(level.p = take<std::int32_t>(static_cast<std::size_t>(limit)))) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  Integrand<Fn> g{f, comm};
  q::Subintervals w = arr.view(level.p);
  const q::Outcome out = run(w, g);
  *result = out.result;
  *abserr = out.abserr;
  qp->evaluations = static_cast<std::int32_t>(clamp_count(g.count));
  if (!arr.hand_over(w.last, qp)) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  report_status(call, out.status, limit, epsabs, epsrel);
}

// A range of zero length: one subinterval, a zero integral with zero error,
// and no evaluation of the integrand (which may be singular there).
q::Outcome zero_range(q::Subintervals& w, double a) {
  w.put(0, a, a, 0.0, 0.0, 0);
  w.last = 1;
  return q::Outcome{};
}

// ---------------------------------------------------------------------------
// d01ajc, d01akc: a finite range, with or without extrapolation.

enum class Method { Extrapolated21, Plain61 };

template <class Fn>
void finite_range(const char* routine, Method method, Fn f, double a, double b, double epsabs,
                  double epsrel, std::int32_t limit, double* result, double* abserr,
                  Zem_QuadProgress* qp, void* comm, ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("max_num_subint", limit, 1, "1")) return;
  if (null_outputs(call, f, "f", result, abserr, qp)) return;
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, f, comm, limit, false, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& g) {
              if (a == b) return zero_range(w, a);
              if (method == Method::Extrapolated21) {
                q::KronrodRule<Integrand<Fn>> rule{g, q::kKronrod21};
                const double pts[2] = {a, b};
                return q::extrapolating_adaptive(rule, w, pts, 1, ea, er);
              }
              q::KronrodRule<Integrand<Fn>> rule{g, q::kKronrod61};
              const q::Estimate e = rule(a, b, 0);
              w.put(0, a, b, e.result, e.abserr, 0);
              w.last = 1;
              const double errbnd = std::fmax(ea, er * std::fabs(e.result));
              const bool accept = (e.abserr <= errbnd && e.abserr != e.resasc) || e.abserr == 0.0;
              const bool roundoff = e.abserr <= 50.0 * x02ajc() * e.resabs && e.abserr > errbnd;
              return q::plain_adaptive(rule, w, ea, er, e.result, e.abserr, accept, roundoff);
            });
}

// ---------------------------------------------------------------------------
// d01alc: break points.

template <class Fn>
void break_points(const char* routine, Fn f, double a, double b, std::int32_t nbrkpts,
                  const double* brkpts, double epsabs, double epsrel, std::int32_t limit,
                  double* result, double* abserr, Zem_QuadProgress* qp, void* comm,
                  ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("nbrkpts", nbrkpts, 0, "0")) return;
  if (limit <= nbrkpts) {
    call.report(NE_2_INT_ARG_LE, "max_num_subint", static_cast<long>(limit), "nbrkpts",
                static_cast<long>(nbrkpts), "max_num_subint", "nbrkpts");
    return;
  }
  if (null_outputs(call, f, "f", result, abserr, qp)) return;
  if (nbrkpts > 0 && call.null("brkpts", brkpts)) return;
  const double lo = std::fmin(a, b), hi = std::fmax(a, b);
  for (std::int32_t i = 0; i < nbrkpts; ++i)
    if (!(brkpts[i] >= lo && brkpts[i] <= hi)) {
      call.report_null(NE_QUAD_BRKPTS_INVAL);
      return;
    }
  // The range split at the break points, in increasing order.
  const int npts = nbrkpts + 1;
  zem::Workspace<double> pts(static_cast<std::size_t>(npts) + 1);
  if (!pts) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  pts[0] = lo;
  for (int i = 0; i < nbrkpts; ++i) pts[i + 1] = brkpts[i];
  pts[npts] = hi;
  if (nbrkpts > 1) {
    ZemError local{};
    m01cac(pts.get() + 1, static_cast<size_t>(nbrkpts), Zem_Ascending, &local);
  }
  const double sign = a > b ? -1.0 : 1.0;
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, f, comm, limit, true, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& g) {
              if (a == b) return zero_range(w, a);
              q::KronrodRule<Integrand<Fn>> rule{g, q::kKronrod21};
              q::Outcome o = q::extrapolating_adaptive(rule, w, pts.get(), npts, ea, er);
              o.result *= sign;
              return o;
            });
}

// ---------------------------------------------------------------------------
// d01amc: infinite and semi-infinite ranges, mapped onto (0, 1].

template <class Fn>
void infinite_range(const char* routine, Fn f, double bound, std::int32_t boundinf,
                    double epsabs, double epsrel, std::int32_t limit, double* result,
                    double* abserr, Zem_QuadProgress* qp, void* comm, ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("max_num_subint", limit, 1, "1")) return;
  if (call.enum_in("boundinf", boundinf,
                   {Zem_UpperSemiInfinite, Zem_LowerSemiInfinite, Zem_Infinite}))
    return;
  if (null_outputs(call, f, "f", result, abserr, qp)) return;
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, f, comm, limit, false, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& g) {
              auto t = [&](double s) {
                const double x = (1.0 - s) / s;
                double y;
                if (boundinf == Zem_Infinite)
                  y = g(x) + g(-x);
                else if (boundinf == Zem_UpperSemiInfinite)
                  y = g(bound + x);
                else
                  y = g(bound - x);
                return (y / s) / s;
              };
              q::KronrodRule<decltype(t)> rule{t, q::kKronrod15};
              const double pts[2] = {0.0, 1.0};
              return q::extrapolating_adaptive(rule, w, pts, 1, ea, er);
            });
}

// ---------------------------------------------------------------------------
// d01anc: a trigonometric weight over a finite range.

constexpr int kMomentLevels = 64;

// The moments cache of the Fourier rule, one set per level of bisection.
struct MomentCache {
  zem::Workspace<double> values{static_cast<std::size_t>(kMomentLevels) * 25};
  zem::Workspace<bool> cached{kMomentLevels};
  explicit operator bool() const { return values && cached; }
  void reset() {
    for (int i = 0; i < kMomentLevels; ++i) cached[i] = false;
  }
  double (*table() const)[25] { return reinterpret_cast<double(*)[25]>(values.get()); }
};

bool bad_trig(Call& call, std::int32_t wt_func) {
  return call.enum_in("wt_func", wt_func, {Zem_Cosine, Zem_Sine});
}

template <class Fn>
void trig_weight(const char* routine, Fn g, double a, double b, double omega,
                 std::int32_t wt_func, double epsabs, double epsrel, std::int32_t limit,
                 double* result, double* abserr, Zem_QuadProgress* qp, void* comm,
                 ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("max_num_subint", limit, 1, "1")) return;
  if (bad_trig(call, wt_func)) return;
  if (null_outputs(call, g, "g", result, abserr, qp)) return;
  MomentCache cache;
  if (!cache) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  cache.reset();
  const bool sine = wt_func == Zem_Sine;
  const double om = std::fabs(omega);
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, g, comm, limit, true, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& f) {
              if (a == b) return zero_range(w, a);
              q::FourierRule<Integrand<Fn>> rule{f, om, sine, cache.table(), cache.cached.get(),
                                                kMomentLevels};
              const double pts[2] = {a, b};
              q::ExtrapolationOptions opt;
              opt.omega = om;
              q::Outcome o = q::extrapolating_adaptive(rule, w, pts, 1, ea, er, opt);
              // sin(omega x) = -sin(|omega| x) for omega < 0.
              if (sine && omega < 0.0) o.result = -o.result;
              return o;
            });
}

// ---------------------------------------------------------------------------
// d01apc: algebraic-logarithmic end-point weights.

template <class Fn>
void end_point_weights(const char* routine, Fn g, double a, double b, double alfa, double beta,
                       std::int32_t wt_func, double epsabs, double epsrel, std::int32_t limit,
                       double* result, double* abserr, Zem_QuadProgress* qp, void* comm,
                       ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("max_num_subint", limit, 2, "2")) return;
  if (!(b > a)) {
    call.report(NE_2_REAL_ARG_LE, "b", b, "a", a, "b", "a");
    return;
  }
  if (call.real_le("alfa", alfa, -1.0, "-1.0")) return;
  if (call.real_le("beta", beta, -1.0, "-1.0")) return;
  if (call.enum_in("wt_func", wt_func, {Zem_Alg, Zem_Alg_loga, Zem_Alg_logb, Zem_Alg_loga_logb}))
    return;
  if (null_outputs(call, g, "g", result, abserr, qp)) return;
  const int kind = wt_func == Zem_Alg ? 1 : wt_func == Zem_Alg_loga ? 2 : wt_func == Zem_Alg_logb ? 3 : 4;
  q::AlgLogMoments mom;
  mom.compute(alfa, beta);
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, g, comm, limit, false, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& f) {
              q::AlgLogRule<Integrand<Fn>> rule{f, a, b, alfa, beta, kind, mom};
              // The range is halved at once, so that each end has its own
              // subinterval.
              const double c = 0.5 * (a + b);
              const q::Estimate e1 = rule(a, c, 0), e2 = rule(c, b, 0);
              w.put(0, a, c, e1.result, e1.abserr, 0);
              w.put(1, c, b, e2.result, e2.abserr, 0);
              w.last = 2;
              const double res = e1.result + e2.result, err = e1.abserr + e2.abserr;
              const double errbnd = std::fmax(ea, er * std::fabs(res));
              const bool accept = err <= errbnd && err < 0.01 * std::fabs(res);
              return q::plain_adaptive(rule, w, ea, er, res, err, accept, false);
            });
}

// ---------------------------------------------------------------------------
// d01aqc: Cauchy principal value.

template <class Fn>
void cauchy(const char* routine, Fn g, double a, double b, double c, double epsabs,
            double epsrel, std::int32_t limit, double* result, double* abserr,
            Zem_QuadProgress* qp, void* comm, ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("max_num_subint", limit, 1, "1")) return;
  if (c == a || c == b) {
    call.report(NE_3_REAL_ARG_CONS, "a", a, "b", b, "c", c, "c != a and c != b");
    return;
  }
  if (null_outputs(call, g, "g", result, abserr, qp)) return;
  const double lo = std::fmin(a, b), hi = std::fmax(a, b);
  const double sign = a > b ? -1.0 : 1.0;
  const double ea = std::fabs(epsabs), er = std::fabs(epsrel);
  run_range(call, g, comm, limit, false, epsabs, epsrel, result, abserr, qp,
            [&](q::Subintervals& w, Integrand<Fn>& f) {
              if (a == b) return zero_range(w, a);
              q::CauchyRule<Integrand<Fn>> rule{f, c};
              const q::Estimate e = rule(lo, hi, 0);
              w.put(0, lo, hi, e.result, e.abserr, 0);
              w.last = 1;
              const double errbnd = std::fmax(ea, er * std::fabs(e.result));
              const bool accept = e.abserr < std::fmin(0.01 * std::fabs(e.result), errbnd);
              q::Outcome o = q::plain_adaptive(rule, w, ea, er, e.result, e.abserr, accept, false);
              o.result *= sign;
              return o;
            });
}

// ---------------------------------------------------------------------------
// d01asc: Fourier integrals over [a, inf), interval by interval.

enum class CycleStatus { kOk, kMaxIntervals, kExtrapolation, kInInterval };

template <class Fn>
void fourier_semi_infinite(const char* routine, Fn g, double a, double omega,
                           std::int32_t wt_func, std::int32_t limlst, std::int32_t limit,
                           double epsabs, double* result, double* abserr, Zem_QuadProgress* qp,
                           void* comm, ZemError* fail) {
  Call call(routine, fail);
  clear(qp);
  if (call.int_lt("maxsubint_per_int", limit, 1, "1")) return;
  if (call.int_lt("maxintervals", limlst, 3, "3")) return;
  if (bad_trig(call, wt_func)) return;
  if (epsabs == 0.0) {
    call.report(NE_REAL_ARG_EQ, "epsabs", "0.0", "epsabs", epsabs);
    return;
  }
  if (null_outputs(call, g, "g", result, abserr, qp)) return;

  // The arrays handed to the caller, one entry per interval.
  Arrays out;
  std::int32_t* flags = nullptr;
  if (!out.allocate(static_cast<std::size_t>(limlst)) ||
      !(flags = take<std::int32_t>(static_cast<std::size_t>(limlst)))) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  // The working arrays of one interval, and the moments shared by all the
  // intervals (they have the same length).
  Arrays inner;
  zem::Workspace<std::int32_t> level(static_cast<std::size_t>(limit));
  MomentCache cache;
  if (!inner.allocate(static_cast<std::size_t>(limit)) || !level || !cache) {
    give_back(flags);
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  cache.reset();
  for (std::int32_t i = 0; i < limlst; ++i) flags[i] = 0;

  Integrand<Fn> f{g, comm};
  const double eps_abs = std::fabs(epsabs);
  const bool sine = wt_func == Zem_Sine;
  double res = 0.0, err = 0.0;
  int lst = 0;
  CycleStatus cstat = CycleStatus::kOk;

  if (omega == 0.0) {
    // cos(0 x) g(x) = g(x) over [a, inf); sin(0 x) g(x) = 0.
    lst = 1;
    out.left[0] = a;
    out.right[0] = HUGE_VAL;
    if (!sine) {
      auto t = [&](double s) { return (f(a + (1.0 - s) / s) / s) / s; };
      q::KronrodRule<decltype(t)> rule{t, q::kKronrod15};
      q::Subintervals w = inner.view(nullptr);
      const double pts[2] = {0.0, 1.0};
      const q::Outcome o = q::extrapolating_adaptive(rule, w, pts, 1, eps_abs, 0.0);
      res = o.result;
      err = o.abserr;
      flags[0] = static_cast<std::int32_t>(o.status);
      if (o.status != q::Status::kOk) cstat = CycleStatus::kInInterval;
    }
    out.integral[0] = res;
    out.error[0] = err;
  } else {
    // QUADPACK's QAWF: intervals of an odd number of half periods, each to
    // a tolerance that shrinks by p, and extrapolation of the partial sums.
    const double om = std::fabs(omega);
    const double cycle = (2.0 * std::floor(om) + 1.0) * 3.14159265358979323846 / om;
    const double p = 0.9, p1 = 1.0 - p;
    double eps = eps_abs > x02akc() / p1 ? eps_abs * p1 : eps_abs;
    const double ep = eps;
    double fact = 1.0, correc = 0.0, errsum = 0.0, partial = 0.0, drl = 0.0;
    double res_ext = 0.0, err_ext = 0.0;
    int ktmin = 0;
    bool any_failed = false, use_partial = false;
    q::EpsilonTable psum;
    double c1 = a, c2 = a + cycle;
    for (lst = 1; lst <= limlst; ++lst) {
      q::FourierRule<Integrand<Fn>> rule{f, om, sine, cache.table(), cache.cached.get(),
                                         kMomentLevels};
      q::Subintervals w = inner.view(level.get());
      const double pts[2] = {c1, c2};
      q::ExtrapolationOptions opt;
      opt.omega = om;
      q::Outcome o = q::extrapolating_adaptive(rule, w, pts, 1, eps * fact, 0.0, opt);
      if (sine && omega < 0.0) o.result = -o.result;
      const int k = lst - 1;
      out.left[k] = c1;
      out.right[k] = c2;
      out.integral[k] = o.result;
      out.error[k] = o.abserr;
      flags[k] = static_cast<std::int32_t>(o.status);
      fact *= p;
      errsum += o.abserr;
      partial += o.result;
      drl = 50.0 * std::fabs(o.result);
      // The partial sum is accurate enough: its error and the size of the
      // last term (standing for the tail) are within the tolerance.
      if (errsum + drl <= eps_abs && lst >= 6) {
        use_partial = true;
        break;
      }
      correc = std::fmax(correc, o.abserr);
      if (o.status != q::Status::kOk) {
        eps = std::fmax(ep, correc * p1);
        any_failed = true;
      }
      if (any_failed && errsum + drl <= 10.0 * correc && lst > 5) {
        use_partial = true;
        break;
      }
      psum.append(partial);
      if (lst >= 3) {
        if (lst == limlst) cstat = CycleStatus::kMaxIntervals;
        double reseps = 0.0, abseps = 0.0;
        psum.extrapolate(reseps, abseps);
        ++ktmin;
        if (ktmin >= 15 && err_ext <= 1.0e-3 * (errsum + drl)) cstat = CycleStatus::kExtrapolation;
        if (abseps <= err_ext || lst == 3) {
          err_ext = abseps;
          res_ext = reseps;
          ktmin = 0;
          if (err_ext + 10.0 * correc <= eps_abs ||
              (err_ext <= eps_abs && 10.0 * correc >= eps_abs))
            break;
        }
        if (cstat != CycleStatus::kOk) break;
      }
      c1 = c2;
      c2 += cycle;
    }
    if (lst > limlst) lst = limlst;
    if (cstat == CycleStatus::kOk && any_failed) cstat = CycleStatus::kInInterval;
    if (use_partial) {
      res = partial;
      err = errsum + drl;
    } else {
      res = res_ext;
      err = err_ext + 10.0 * correc;
      if (cstat != CycleStatus::kOk) {
        // Keep the partial sum when it is the better estimate.
        bool take_partial = false, add_tail = true;
        if (res_ext != 0.0 && partial != 0.0)
          take_partial = err / std::fabs(res_ext) > (errsum + drl) / std::fabs(partial);
        else if (err > errsum)
          take_partial = true;
        else if (partial == 0.0)
          add_tail = false;
        else
          take_partial = true;
        if (take_partial) {
          res = partial;
          err = errsum + drl;
        } else if (add_tail && cstat != CycleStatus::kInInterval) {
          err += drl;
        }
      }
    }
  }

  *result = res;
  *abserr = err;
  qp->evaluations = static_cast<std::int32_t>(clamp_count(f.count));
  // The intervals are in increasing order already: hand them over as they
  // are, with the per-interval flags.
  for (std::int32_t i = lst; i < limlst; ++i) {
    out.left[i] = out.right[i] = out.integral[i] = out.error[i] = 0.0;
    flags[i] = 0;
  }
  qp->subintervals = lst;
  qp->left = out.left;
  qp->right = out.right;
  qp->integral = out.integral;
  qp->error = out.error;
  qp->interval_status = flags;
  out.left = out.right = out.integral = out.error = nullptr;

  switch (cstat) {
    case CycleStatus::kOk:
      call.success();
      break;
    case CycleStatus::kMaxIntervals:
      call.report_null(NE_QUAD_MAX_INT);
      break;
    case CycleStatus::kExtrapolation:
      call.report_null(NE_QUAD_EXTRAPL_INT);
      break;
    case CycleStatus::kInInterval: {
      int first = 0;
      for (int i = 0; i < lst; ++i)
        if (flags[i] != 0) {
          first = flags[i];
          break;
        }
      switch (static_cast<q::Status>(first)) {
        case q::Status::kMaxSubdiv:
          call.report_null(NE_QUAD_MAX_SUBDIV_SPEC_INT);
          break;
        case q::Status::kBadSubdiv:
          call.report_null(NE_QUAD_BAD_SUBDIV_INTS);
          break;
        case q::Status::kDivergent:
          call.report_null(NE_QUAD_NO_CONV_SPEC_INT);
          break;
        default:
          call.report_null(NE_QUAD_ROUNDOFF_TOL_SPEC_INT);
          break;
      }
      break;
    }
  }
}

// ---------------------------------------------------------------------------
// Fixed rules.

bool rule_kind(Call& call, std::int32_t quadrule, q::GaussKind* kind) {
  if (call.enum_in("quadrule", quadrule, {Zem_Legendre, Zem_Rational, Zem_Laguerre, Zem_Hermite}))
    return false;
  *kind = quadrule == Zem_Legendre   ? q::GaussKind::Legendre
          : quadrule == Zem_Rational ? q::GaussKind::Rational
          : quadrule == Zem_Laguerre ? q::GaussKind::Laguerre
                                     : q::GaussKind::Hermite;
  return true;
}

// Checks of the fixed rules after quadrule, in this order: npts, then a
// and b for the chosen rule.
bool bad_rule_args(Call& call, q::GaussKind kind, double a, double b, std::int32_t npts) {
  if (call.int_lt("npts", npts, 1, "1")) return true;
  if (npts > q::kMaxGaussPoints) {
    call.report_null(NE_QUAD_GAUSS_NPTS_RULE);
    return true;
  }
  const char* broken = nullptr;
  switch (kind) {
    case q::GaussKind::Legendre:
      break;
    case q::GaussKind::Rational:
      if (b == 0.0)
        broken = "b != 0";
      else if (a + b == 0.0)
        broken = "a+b != 0";
      break;
    case q::GaussKind::Laguerre:
      if (b == 0.0) broken = "b != 0";
      break;
    case q::GaussKind::Hermite:
      if (!(b > 0.0)) broken = "b > 0";
      break;
  }
  if (broken) {
    call.report(NE_QUAD_GAUSS_CONS, broken);
    return true;
  }
  return false;
}

}  // namespace

extern "C" {

ZEM_API void d01ajc(Zem_D01_Fun f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, ZemError* fail) {
  finite_range("d01ajc", Method::Extrapolated21, f, a, b, epsabs, epsrel, max_num_subint, result,
               abserr, progress, nullptr, fail);
}
ZEM_API void d01sjc(Zem_D01_FunComm f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  finite_range("d01sjc", Method::Extrapolated21, f, a, b, epsabs, epsrel, max_num_subint, result,
               abserr, progress, comm, fail);
}

ZEM_API void d01akc(Zem_D01_Fun f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, ZemError* fail) {
  finite_range("d01akc", Method::Plain61, f, a, b, epsabs, epsrel, max_num_subint, result, abserr,
               progress, nullptr, fail);
}
ZEM_API void d01skc(Zem_D01_FunComm f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  finite_range("d01skc", Method::Plain61, f, a, b, epsabs, epsrel, max_num_subint, result, abserr,
               progress, comm, fail);
}

ZEM_API void d01alc(Zem_D01_Fun f, double a, double b, int32_t nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, int32_t max_num_subint, double* result,
                    double* abserr, Zem_QuadProgress* progress, ZemError* fail) {
  break_points("d01alc", f, a, b, nbrkpts, brkpts, epsabs, epsrel, max_num_subint, result, abserr,
               progress, nullptr, fail);
}
ZEM_API void d01slc(Zem_D01_FunComm f, double a, double b, int32_t nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, int32_t max_num_subint, double* result,
                    double* abserr, Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  break_points("d01slc", f, a, b, nbrkpts, brkpts, epsabs, epsrel, max_num_subint, result, abserr,
               progress, comm, fail);
}

ZEM_API void d01amc(Zem_D01_Fun f, double bound, Zem_QuadBound boundinf, double epsabs,
                    double epsrel, int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, ZemError* fail) {
  infinite_range("d01amc", f, bound, boundinf, epsabs, epsrel, max_num_subint, result, abserr,
                 progress, nullptr, fail);
}
ZEM_API void d01smc(Zem_D01_FunComm f, double bound, Zem_QuadBound boundinf, double epsabs,
                    double epsrel, int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  infinite_range("d01smc", f, bound, boundinf, epsabs, epsrel, max_num_subint, result, abserr,
                 progress, comm, fail);
}

ZEM_API void d01anc(Zem_D01_Fun g, double a, double b, double omega, Zem_TrigTransform wt_func,
                    double epsabs, double epsrel, int32_t max_num_subint, double* result,
                    double* abserr, Zem_QuadProgress* progress, ZemError* fail) {
  trig_weight("d01anc", g, a, b, omega, wt_func, epsabs, epsrel, max_num_subint, result, abserr,
              progress, nullptr, fail);
}
ZEM_API void d01snc(Zem_D01_FunComm g, double a, double b, double omega,
                    Zem_TrigTransform wt_func, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  trig_weight("d01snc", g, a, b, omega, wt_func, epsabs, epsrel, max_num_subint, result, abserr,
              progress, comm, fail);
}

ZEM_API void d01apc(Zem_D01_Fun g, double a, double b, double alfa, double beta,
                    Zem_QuadWeight wt_func, double epsabs, double epsrel, int32_t max_num_subint,
                    double* result, double* abserr, Zem_QuadProgress* progress, ZemError* fail) {
  end_point_weights("d01apc", g, a, b, alfa, beta, wt_func, epsabs, epsrel, max_num_subint,
                    result, abserr, progress, nullptr, fail);
}
ZEM_API void d01spc(Zem_D01_FunComm g, double a, double b, double alfa, double beta,
                    Zem_QuadWeight wt_func, double epsabs, double epsrel, int32_t max_num_subint,
                    double* result, double* abserr, Zem_QuadProgress* progress, void* comm,
                    ZemError* fail) {
  end_point_weights("d01spc", g, a, b, alfa, beta, wt_func, epsabs, epsrel, max_num_subint,
                    result, abserr, progress, comm, fail);
}

ZEM_API void d01aqc(Zem_D01_Fun g, double a, double b, double c, double epsabs, double epsrel,
                    int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, ZemError* fail) {
  cauchy("d01aqc", g, a, b, c, epsabs, epsrel, max_num_subint, result, abserr, progress, nullptr,
         fail);
}
ZEM_API void d01sqc(Zem_D01_FunComm g, double a, double b, double c, double epsabs,
                    double epsrel, int32_t max_num_subint, double* result, double* abserr,
                    Zem_QuadProgress* progress, void* comm, ZemError* fail) {
  cauchy("d01sqc", g, a, b, c, epsabs, epsrel, max_num_subint, result, abserr, progress, comm,
         fail);
}

ZEM_API void d01asc(Zem_D01_Fun g, double a, double omega, Zem_TrigTransform wt_func,
                    int32_t maxintervals, int32_t maxsubint_per_int, double epsabs,
                    double* result, double* abserr, Zem_QuadProgress* progress, ZemError* fail) {
  fourier_semi_infinite("d01asc", g, a, omega, wt_func, maxintervals, maxsubint_per_int, epsabs,
                        result, abserr, progress, nullptr, fail);
}
ZEM_API void d01ssc(Zem_D01_FunComm g, double a, double omega, Zem_TrigTransform wt_func,
                    int32_t maxintervals, int32_t maxsubint_per_int, double epsabs,
                    double* result, double* abserr, Zem_QuadProgress* progress, void* comm,
                    ZemError* fail) {
  fourier_semi_infinite("d01ssc", g, a, omega, wt_func, maxintervals, maxsubint_per_int, epsabs,
                        result, abserr, progress, comm, fail);
}

ZEM_API void d01bbc(Zem_QuadRule quadrule, double a, double b, int32_t npts, double weight[],
                    double abscis[], ZemError* fail) {
  Call call("d01bbc", fail);
  q::GaussKind kind;
  if (!rule_kind(call, quadrule, &kind)) return;
  if (bad_rule_args(call, kind, a, b, npts)) return;
  if (call.null("weight", weight) || call.null("abscis", abscis)) return;
  if (!q::gauss_rule(kind, a, b, npts, weight, abscis)) {
    call.report_null(NE_QUAD_GAUSS_LAG_HER_WTS);
    return;
  }
  call.success();
}

ZEM_API double d01bac(Zem_QuadRule quadrule, double a, double b, int32_t npts, Zem_D01_Fun f,
                      ZemError* fail) {
  Call call("d01bac", fail);
  q::GaussKind kind;
  if (!rule_kind(call, quadrule, &kind)) return 0.0;
  if (bad_rule_args(call, kind, a, b, npts)) return 0.0;
  if (call.null("f", reinterpret_cast<const void*>(f))) return 0.0;
  zem::Workspace<double> w(static_cast<std::size_t>(npts)), x(static_cast<std::size_t>(npts));
  if (!w || !x) {
    call.report_null(NE_ALLOC_FAIL);
    return 0.0;
  }
  const bool ok = q::gauss_rule(kind, a, b, npts, w.get(), x.get());
  double sum = 0.0;
  for (int32_t i = 0; i < npts; ++i)
    if (w[i] != 0.0) sum += w[i] * f(x[i]);
  if (!ok)
    call.report_null(NE_QUAD_GAUSS_LAG_HER_WTS);
  else
    call.success();
  return sum;
}

ZEM_API void d01tac(Zem_QuadRule quadrule, double a, double b, int32_t npts, Zem_D01_VecFun f,
                    void* comm, double* dinest, ZemError* fail) {
  Call call("d01tac", fail);
  q::GaussKind kind;
  if (!rule_kind(call, quadrule, &kind)) return;
  if (bad_rule_args(call, kind, a, b, npts)) return;
  if (call.null("f", reinterpret_cast<const void*>(f)) || call.null("dinest", dinest)) return;
  *dinest = 0.0;
  zem::Workspace<double> w(static_cast<std::size_t>(npts)), x(static_cast<std::size_t>(npts)),
      fv(static_cast<std::size_t>(npts));
  if (!w || !x || !fv) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  const bool ok = q::gauss_rule(kind, a, b, npts, w.get(), x.get());
  int32_t iflag = 0;
  f(x.get(), npts, fv.get(), &iflag, comm);
  if (iflag < 0) {
    call.report(NE_USER_STOP, static_cast<long>(iflag));
    call.set_errnum(iflag);
    return;
  }
  double sum = 0.0;
  for (int32_t i = 0; i < npts; ++i)
    if (w[i] != 0.0) sum += w[i] * fv[i];
  *dinest = sum;
  if (!ok)
    call.report_null(NE_QUAD_GAUSS_LAG_HER_WTS);
  else
    call.success();
}

}  // extern "C"
