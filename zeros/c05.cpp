// The exported routines of the c05 chapter: argument checks, workspace and
// reports around the bracketing engine (zeros/bracket) and the hybrid core
// (zeros/hybrid).
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <type_traits>

#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "linalg/level1.hpp"
#include "zem/c05.h"
#include "zem/x02.h"
#include "zeros/bracket.hpp"
#include "zeros/hybrid.hpp"

namespace {

// ---------------------------------------------------------------------------
// Callbacks.  Each callback type is paired with the caller's comm pointer;
// call_user passes comm on where the type takes it.

template <class Fn>
struct Callback {
  Fn f;
  void* comm;
};

inline double call_user(const Callback<Zem_C05_Fun>& c, double x) { return c.f(x); }
inline double call_user(const Callback<Zem_C05_FunComm>& c, double x) { return c.f(x, c.comm); }

inline void call_user(const Callback<Zem_C05_SysFun>& c, int32_t n, const double* x, double* fvec,
                      double*, int32_t, int32_t* flag) {
  c.f(n, x, fvec, flag);
}
inline void call_user(const Callback<Zem_C05_SysFunComm>& c, int32_t n, const double* x,
                      double* fvec, double*, int32_t, int32_t* flag) {
  c.f(n, x, fvec, flag, c.comm);
}
inline void call_user(const Callback<Zem_C05_SysJac>& c, int32_t n, const double* x, double* fvec,
                      double* fjac, int32_t ld, int32_t* flag) {
  c.f(n, x, fvec, fjac, ld, flag);
}
inline void call_user(const Callback<Zem_C05_SysJacComm>& c, int32_t n, const double* x,
                      double* fvec, double* fjac, int32_t ld, int32_t* flag) {
  c.f(n, x, fvec, fjac, ld, flag, c.comm);
}

template <class Fn>
inline constexpr bool kAnalytic =
    std::is_same_v<Fn, Zem_C05_SysJac> || std::is_same_v<Fn, Zem_C05_SysJacComm>;

// The hybrid core sees every system callback through this one signature.
template <class Fn>
void trampoline(void* ctx, long n, const double* x, double* fvec, double* fjac, long ld,
                int32_t* flag) {
  call_user(*static_cast<const Callback<Fn>*>(ctx), static_cast<int32_t>(n), x, fvec, fjac,
            static_cast<int32_t>(ld), flag);
}

template <class Fn>
bool null_callback(zem::Call& call, Fn f) {
  if (f) return false;
  call.report(NE_BAD_PARAM, "f");
  return true;
}

// ---------------------------------------------------------------------------
// Zero of a function of one variable.

// The pole row is stored with its interval slot unfilled: the text is
// formatted with the interval's name, and the row itself is reported.
void report_pole(zem::Call& call) {
  char text[zem::kMessageLen];
  const char* fmt = zem::catalogue_format(NE_PROBABLE_POLE);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  if (fmt) std::snprintf(text, sizeof text, fmt, "[a,b]");
#pragma GCC diagnostic pop
  call.report_null(NE_PROBABLE_POLE);
}

template <class Fn>
void bracket_search(const char* routine, double a, double b, double* x, Fn f, double xtol,
                    double ftol, void* comm, ZemError* fail) {
  zem::Call call(routine, fail);
  if (call.real_le("xtol", xtol, 0.0, "0.0")) return;
  if (call.real2_eq("a", a, "b", b)) return;
  if (call.null("x", x)) return;
  if (null_callback(call, f)) return;

  const Callback<Fn> cb{f, comm};
  using zem::bracket::Status;
  const Status s = zem::bracket::find_zero(
      a, b, *x, [&cb](double t) { return call_user(cb, t); }, xtol, ftol);
  switch (s) {
    case Status::kOk:
      call.success();
      break;
    case Status::kSameSign:
      call.report(NE_FUNC_END_VAL, "a", "b", "a");
      break;
    case Status::kPole:
      report_pole(call);
      break;
    case Status::kXtolTooSmall:
      call.report(NE_XTOL_TOO_SMALL, xtol);
      break;
  }
}

// ---------------------------------------------------------------------------
// Systems of equations.

template <class Fn>
void system_solver(const char* routine, int32_t n, double* x, double* fvec, double* fjac,
                   int32_t tdfjac, Fn f, double xtol, void* comm, ZemError* fail) {
  constexpr bool analytic = kAnalytic<Fn>;
  zem::Call call(routine, fail);
  if (call.int_le("n", n, 0, "0")) return;
  if (analytic && call.int2_lt("tdfjac", tdfjac, "n", n)) return;
  if (call.real_lt("xtol", xtol, 0.0, "0.0")) return;
  if (call.null("x", x) || call.null("fvec", fvec)) return;
  if (analytic && call.null("fjac", fjac)) return;
  if (null_callback(call, f)) return;

  const std::size_t nn = static_cast<std::size_t>(n);
  const std::size_t nr = nn * (nn + 1) / 2;
  int status;
  {
    // diag, qtf, wa1..wa4, r, and for differences the Jacobian (ld n).
    zem::Workspace<double> w(analytic ? nn * (nn + 13) / 2 : nn * (3 * nn + 13) / 2);
    if (!w) {
      call.report_null(NE_ALLOC_FAIL);
      return;
    }
    double* p = w.get();
    const zem::hybrid::Work work{p, p + nn, p + 2 * nn, p + 3 * nn, p + 4 * nn, p + 5 * nn, p + 6 * nn};
    for (std::size_t j = 0; j < nn; ++j) work.diag[j] = 1.0;
    double* jac = analytic ? fjac : p + 6 * nn + nr;
    const long ld = analytic ? tdfjac : n;

    zem::hybrid::Options opt;
    opt.xtol = xtol;
    opt.maxfev = (analytic ? 100L : 200L) * (static_cast<long>(n) + 1);
    opt.mode = 2;
    opt.factor = 100.0;
    opt.nprint = 0;
    opt.ml = n - 1;
    opt.mu = n - 1;
    opt.epsfcn = 0.0;
    Callback<Fn> cb{f, comm};
    const zem::hybrid::System sys{&trampoline<Fn>, &cb, analytic};
    zem::hybrid::Counts counts;
    status = zem::hybrid::solve(sys, n, x, fvec, jac, ld, opt, work, counts);
  }

  call.set_errnum(status < 0 ? status : 0);
  if (status < 0) {
    call.report(NE_USER_STOP, static_cast<long>(status));
    call.set_errnum(status);
    return;
  }
  switch (status) {
    case zem::hybrid::kTooManyEvals:
      call.report(NE_TOO_MANY_FUNC_EVAL, analytic ? "100*(n+1)" : "200*(n+1)");
      break;
    case zem::hybrid::kXtolTooSmall:
      call.report(NE_XTOL_TOO_SMALL, xtol);
      break;
    case zem::hybrid::kSlowJacobian:
    case zem::hybrid::kSlowIterations:
      call.report_null(NE_NO_IMPROVEMENT);
      break;
    default:
      call.success();
      break;
  }
}

// ---------------------------------------------------------------------------
// Check of a user's Jacobian.

// The two fixed directions of the check: w2 from the sequence t <- t^2
// (+0.88 when below 0.1) started at 0.5726, and w1 made orthogonal to w2.
void check_directions(long n, double* w1, double* w2) {
  double t = 0.5726;
  w2[0] = t;
  w1[0] = (1.0 - t) * (1.0 - t);
  double s1 = t * t;
  double s2 = w1[0] * t;
  for (long i = 1; i < n; ++i) {
    t = t * t;
    if (t < 0.1) t += 0.88;
    const double u = 1.0 - t;
    w1[i] = u * u;
    w2[i] = t;
    s1 += t * t;
    s2 += u * u * t;
  }
  const double r = s1 / s2;
  const double s = 1.0 / (r + 1.0);
  for (long i = 0; i < n; ++i) w1[i] = (w2[i] - r * w1[i]) * s;
  if (n == 1) w1[0] = 0.0;
}

template <class Fn>
void jacobian_check(const char* routine, int32_t n, const double* x, double* fvec, double* fjac,
                    int32_t tdfjac, Fn f, void* comm, ZemError* fail) {
  zem::Call call(routine, fail);
  if (n < 1) {
    // Reported under NE_INT_ARG_LT with the text of NE_INT_ARG_LE.
    const char* fmt = zem::catalogue_format(NE_INT_ARG_LE);
    call.report_own(NE_INT_ARG_LT, fmt ? fmt : "", "n", "0", "n", static_cast<long>(n));
    return;
  }
  if (call.int2_lt("tdfjac", tdfjac, "n", n)) return;
  if (call.null("x", x) || call.null("fvec", fvec) || call.null("fjac", fjac)) return;
  if (null_callback(call, f)) return;

  const std::size_t nn = static_cast<std::size_t>(n);
  // Two directions, the gradient (later the trial point), a second fvec and
  // a second Jacobian (ld n).
  zem::Workspace<double> w(nn * (nn + 4));
  if (!w) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  double* w1 = w.get();
  double* w2 = w1 + nn;
  double* g = w2 + nn;
  double* fvec2 = g + nn;
  double* fjac2 = fvec2 + nn;

  const Callback<Fn> cb{f, comm};
  auto eval = [&](const double* xx, double* fv, double* fj, int32_t ld, int32_t flag) {
    call_user(cb, n, xx, fv, fj, ld, &flag);
    return flag;
  };
  auto stop = [&](int32_t flag) {
    call.set_errnum(flag);
    call.report(NE_USER_STOP, static_cast<long>(flag));
    call.set_errnum(flag);
  };

  int32_t flag = eval(x, fvec, fjac, tdfjac, 2);
  if (flag < 0) return stop(flag);
  flag = eval(x, fvec, fjac, tdfjac, 1);
  if (flag < 0) return stop(flag);

  const double h = std::sqrt(x02ajc());
  // Gradient of the sum of squares: g = 2 J' f.
  for (std::size_t j = 0; j < nn; ++j) g[j] = 0.0;
  for (std::size_t i = 0; i < nn; ++i) zem::blas1::axpy(n, 2.0 * fvec[i], fjac + i * tdfjac, g);
  const double f0 = zem::blas1::dot(n, fvec, fvec);
  check_directions(n, w1, w2);
  const double gw1 = zem::blas1::dot(n, g, w1);
  const double gw2 = zem::blas1::dot(n, g, w2);

  // Sum of squares at x + h*dir; the gradient's storage holds the point.
  double* xt = g;
  auto sumsq_at = [&](const double* dir, double& fs) {
    for (std::size_t j = 0; j < nn; ++j) xt[j] = x[j] + h * dir[j];
    int32_t fl = eval(xt, fvec2, fjac2, n, 2);
    if (fl < 0) return fl;
    fl = eval(xt, fvec2, fjac2, n, 1);
    if (fl < 0) return fl;
    fs = zem::blas1::dot(n, fvec2, fvec2);
    return fl;
  };
  double d1 = -gw1;
  if (n > 1) {
    double f1 = 0.0;
    flag = sumsq_at(w1, f1);
    if (flag < 0) return stop(flag);
    d1 = (f1 - f0) / h - gw1;
  }
  double f2 = 0.0;
  flag = sumsq_at(w2, f2);
  if (flag < 0) return stop(flag);
  const double d2 = (f2 - f0) / h - gw2;

  if (!(d1 * d1 < h * (1.0 + gw1 * gw1) && d2 * d2 < h * (1.0 + gw2 * gw2))) {
    call.report(NE_DERIV_ERRORS, "");
    return;
  }
  call.success();
}

}  // namespace

extern "C" {

ZEM_API void c05azc(double* x, double* y, double* fx, double xtol, int32_t ir, double c[],
                    int32_t* ind, ZemError* fail) {
  zem::Call call("c05azc", fail);
  if (call.null("ind", ind)) return;
  if (call.not_in("ind", *ind, {-1, 1, 2, 3, 4}, "-1, 1, 2, 3, 4")) return;
  if (call.real_le("xtol", xtol, 0.0, "0.0") || call.not_in("ir", ir, {0, 1, 2}, "0, 1, 2") ||
      call.null("x", x) || call.null("y", y) || call.null("fx", fx) || call.null("c", c)) {
    *ind = 0;
    return;
  }
  int state = *ind;
  using zem::bracket::Status;
  const Status s = zem::bracket::step(*x, *y, *fx, xtol, ir, c, state);
  *ind = state;
  switch (s) {
    case Status::kOk:
      break;
    case Status::kSameSign:
      call.report(NE_FUNC_END_VAL, "x", "y", "x");
      break;
    case Status::kPole:
      call.report_null(NE_PROBABLE_POLE);
      break;
    case Status::kXtolTooSmall:
      call.report(NE_XTOL_TOO_SMALL, xtol);
      break;
  }
}

ZEM_API void c05adc(double a, double b, double* x, Zem_C05_Fun f, double xtol, double ftol,
                    ZemError* fail) {
  bracket_search("c05adc", a, b, x, f, xtol, ftol, nullptr, fail);
}

ZEM_API void c05sdc(double a, double b, double* x, Zem_C05_FunComm f, double xtol, double ftol,
                    void* comm, ZemError* fail) {
  bracket_search("c05sdc", a, b, x, f, xtol, ftol, comm, fail);
}

ZEM_API void c05nbc(int32_t n, double x[], double fvec[], Zem_C05_SysFun f, double xtol,
                    ZemError* fail) {
  system_solver("c05nbc", n, x, fvec, nullptr, n, f, xtol, nullptr, fail);
}

ZEM_API void c05tbc(int32_t n, double x[], double fvec[], Zem_C05_SysFunComm f, double xtol,
                    void* comm, ZemError* fail) {
  system_solver("c05tbc", n, x, fvec, nullptr, n, f, xtol, comm, fail);
}

ZEM_API void c05pbc(int32_t n, double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJac f, double xtol, ZemError* fail) {
  system_solver("c05pbc", n, x, fvec, fjac, tdfjac, f, xtol, nullptr, fail);
}

ZEM_API void c05ubc(int32_t n, double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJacComm f, double xtol, void* comm, ZemError* fail) {
  system_solver("c05ubc", n, x, fvec, fjac, tdfjac, f, xtol, comm, fail);
}

ZEM_API void c05zbc(int32_t n, const double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJac f, ZemError* fail) {
  jacobian_check("c05zbc", n, x, fvec, fjac, tdfjac, f, nullptr, fail);
}

ZEM_API void c05zcc(int32_t n, const double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJacComm f, void* comm, ZemError* fail) {
  jacobian_check("c05zcc", n, x, fvec, fjac, tdfjac, f, comm, fail);
}

ZEM_API double c05nct(int32_t n, const double x[]) {
  if (n < 1) return 0.0;
  if (!x) return std::numeric_limits<double>::quiet_NaN();
  return zem::blas1::nrm2_3acc(n, x);
}

}  // extern "C"
