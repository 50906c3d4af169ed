// The globally adaptive engine of the d01 chapter, written once over the
// basic rule: bisect the subinterval with the largest error estimate until
// the total error meets the tolerance, either plainly (QUADPACK's QAG
// family: the rules of QAG, QAWS, QAWC) or with extrapolation of the
// running area by the epsilon algorithm (QAGS, and with it QAGI, QAGP and
// QAWO).  The methods and their round-off and divergence tests are those of
// QUADPACK (Piessens, de Doncker-Kapenga, Ueberhuber and Kahaner, 1983).
//
// A rule is a callable object `Estimate rule(double a, double b, int level)`
// (level: the number of bisections that made [a, b]; only the Fourier rule
// uses it) with a member `double split(double a, double b)` giving the point
// at which [a, b] is bisected.
#pragma once
#include <cmath>
#include <cstdint>

#include "quadrature/kronrod.hpp"
#include "zem/x02.h"

namespace zem::quad {

// How a run ended.
enum class Status : int {
  kOk = 0,
  kMaxSubdiv = 1,       // the limit of subintervals was reached
  kRoundoff = 2,        // round-off prevents the tolerance
  kBadSubdiv = 3,       // a subinterval became too small to bisect
  kRoundoffExtrap = 4,  // round-off in the extrapolation table
  kDivergent = 5,       // divergent or slowly convergent
};

// The subintervals: ends, results and errors (arrays of `limit` entries that
// the caller owns), the list of their indices by decreasing error, and an
// optional level per subinterval.
struct Subintervals {
  double* alist;
  double* blist;
  double* rlist;
  double* elist;
  std::int32_t* iord;
  std::int32_t* level;  // may be null
  int limit;
  int last = 0;  // subintervals in use
  // The subinterval to bisect next, its error, and its place in iord.
  int maxerr = 0;
  double errmax = 0.0;
  int nrmax = 0;

  void put(int i, double a, double b, double r, double e, int lev) {
    alist[i] = a;
    blist[i] = b;
    rlist[i] = r;
    elist[i] = e;
    if (level) level[i] = lev;
  }
  // Stores the two halves of subinterval maxerr, the one with the larger
  // error in its place and the other as the new last one, and keeps iord in
  // order of decreasing error (QUADPACK's dqpsrt).
  void store_halves(double a1, double b1, double area1, double error1, double a2, double b2,
                    double area2, double error2, int lev);
  void sort_by_error();
  double sum() const {
    double s = 0.0;
    for (int k = 0; k < last; ++k) s += rlist[k];
    return s;
  }
};

// The epsilon algorithm of Wynn on a table of partial results (QUADPACK's
// dqelg): keeps at most 50 elements, and estimates its error from the last
// three results.
struct EpsilonTable {
  double tab[52];
  double res3la[3];
  int n = 0;
  int nres = 0;
  void append(double v) { tab[n++] = v; }
  void extrapolate(double& result, double& abserr);
};

// Outcome of a run: the result, its estimated absolute error, how it ended.
struct Outcome {
  double result = 0.0;
  double abserr = 0.0;
  Status status = Status::kOk;
};

namespace detail {
// QUADPACK's test for a subinterval too small to be bisected further: its
// ends are equal to within a few units of the rounding of its midpoint
// (eps = x02ajc, tiny = x02akc).
inline bool too_small(double a1, double a2, double b2, double eps, double tiny) {
  const double bound = (1.0 + 1000.0 * eps) * (std::fabs(a2) + 1000.0 * tiny);
  return dmax(std::fabs(a1), std::fabs(b2)) <= bound;
}
}  // namespace detail

// ---------------------------------------------------------------------------
// The plain engine (QAG): no extrapolation.  The run starts from `start`
// rule applications already stored in w (one for QAG and QAWC, the two
// halves for QAWS), whose sum is `result` with error `abserr`; `accept` says
// whether that first estimate already meets the tolerance.
template <class Rule>
Outcome plain_adaptive(Rule& rule, Subintervals& w, double epsabs, double epsrel,
                       double result, double abserr, bool accept, bool roundoff_first) {
  const double eps = x02ajc(), tiny = x02akc();
  Outcome out{result, abserr, Status::kOk};
  if (roundoff_first) out.status = Status::kRoundoff;
  if (w.limit <= w.last) out.status = Status::kMaxSubdiv;
  if (out.status != Status::kOk || accept) return out;

  w.sort_by_error();
  double area = result, errsum = abserr;
  int iroff1 = 0, iroff2 = 0;
  Status status = Status::kOk;
  double errbnd = dmax(epsabs, epsrel * std::fabs(area));
  while (w.last < w.limit) {
    const int i = w.maxerr;
    const double a = w.alist[i], b = w.blist[i];
    const double a1 = a, b1 = rule.split(a, b), a2 = b1, b2 = b;
    const int lev = w.level ? w.level[i] + 1 : 0;
    const Estimate e1 = rule(a1, b1, lev), e2 = rule(a2, b2, lev);
    const double area12 = e1.result + e2.result, error12 = e1.abserr + e2.abserr;
    errsum = errsum + error12 - w.errmax;  // evaluated left to right, as in QUADPACK
    area = area + area12 - w.rlist[i];
    if (e1.reliable && e2.reliable) {
      if (std::fabs(w.rlist[i] - area12) <= 1.0e-5 * std::fabs(area12) &&
          error12 >= 0.99 * w.errmax)
        ++iroff1;
      if (w.last + 1 > 10 && error12 > w.errmax) ++iroff2;
    }
    errbnd = dmax(epsabs, epsrel * std::fabs(area));
    // Written so that a NaN error never counts as converged.
    const bool converged = errsum <= errbnd;
    if (!converged) {
      if (iroff1 >= 6 || iroff2 >= 20) status = Status::kRoundoff;
      if (w.last + 1 == w.limit) status = Status::kMaxSubdiv;
      if (detail::too_small(a1, a2, b2, eps, tiny)) status = Status::kBadSubdiv;
    }
    w.store_halves(a1, b1, e1.result, e1.abserr, a2, b2, e2.result, e2.abserr, lev);
    if (converged || status != Status::kOk) break;
  }
  out.result = w.sum();
  out.abserr = errsum;
  out.status = status;
  return out;
}

// ---------------------------------------------------------------------------
// The extrapolating engine (QAGS).  The range is first split at the
// `npts` + 1 points pts[0] < ... < pts[npts] (two points for QAGS, QAGI and
// QAWO; the break points for QAGP).  `omega` > 0 marks the Fourier
// integrals of QAWO: extrapolation then starts only once the subintervals
// are short enough for the Gauss-Kronrod rule (a quarter of the interval
// times omega at most 2).
struct ExtrapolationOptions {
  double omega = 0.0;
};

template <class Rule>
Outcome extrapolating_adaptive(Rule& rule, Subintervals& w, const double* pts, int npts,
                               double epsabs, double epsrel, ExtrapolationOptions opt = {}) {
  const double eps = x02ajc(), tiny = x02akc();
  const double big = x02alc();
  const bool oscillatory = opt.omega > 0.0;

  // First approximation, one rule per initial interval.
  const int nint = npts;
  // Several initial intervals need w.level, which also marks (with -1) an
  // interval whose error estimate is only its integral of |f - mean|: it is
  // given the whole error, so that it is bisected first.
  double result = 0.0, abserr = 0.0, resabs = 0.0, resasc = 0.0;
  for (int i = 0; i < nint; ++i) {
    const Estimate e = rule(pts[i], pts[i + 1], 0);
    const bool unreliable = nint > 1 && e.abserr == e.resasc && e.abserr != 0.0;
    w.put(i, pts[i], pts[i + 1], e.result, e.abserr, unreliable ? -1 : 0);
    result += e.result;
    abserr += e.abserr;
    resabs += e.resabs;
    resasc = e.resasc;
  }
  w.last = nint;
  double errsum = 0.0;
  for (int i = 0; i < nint; ++i) {
    if (w.level && w.level[i] < 0) {
      w.elist[i] = abserr;
      w.level[i] = 0;
    }
    errsum += w.elist[i];
  }
  const double dres = std::fabs(result);
  double errbnd = dmax(epsabs, epsrel * dres);
  Outcome out{result, abserr, Status::kOk};
  if (abserr <= 100.0 * eps * resabs && abserr > errbnd) out.status = Status::kRoundoff;
  if (w.limit <= nint) out.status = Status::kMaxSubdiv;
  bool done;
  if (nint == 1 && !oscillatory)
    done = (abserr <= errbnd && abserr != resasc) || abserr == 0.0;
  else
    done = abserr <= errbnd;
  // A limit of one subinterval ends as "maximum reached" even when the
  // first estimate is good enough: the caller allowed no subdivision.
  if (out.status != Status::kOk || done) return out;
  w.sort_by_error();

  // Initialisation.  Subintervals are "large" while their level is below
  // levmax; extrapolation works on the small ones.
  EpsilonTable table;
  double area = result;
  double res_ext = result, err_ext = big;
  double correc = 0.0, erlarg = errsum, ertest = errbnd;
  int ktmin = 0, iroff1 = 0, iroff2 = 0, iroff3 = 0;
  bool extrap = false, noext = false, roundoff_extrap = false;
  int levmax = 1;
  // Level of each subinterval: from w.level when kept, else from lengths
  // (bisection halves them exactly enough for a test against 3/4 of a
  // power of two).
  const double length0 = std::fabs(pts[nint] - pts[0]);
  auto large = [&](int i) {
    if (w.level) return w.level[i] + 1 <= levmax;
    return std::fabs(w.blist[i] - w.alist[i]) > 0.75 * length0 * std::ldexp(1.0, -levmax + 1);
  };
  auto large_length = [&](double len, int lev) {
    if (w.level) return lev + 1 <= levmax;
    return len > 0.75 * length0 * std::ldexp(1.0, -levmax + 1);
  };
  // A single starting interval is treated as QUADPACK's QAGS treats it: the
  // first bisection only sets up the table.  QAWO starts extrapolating only
  // when the whole interval is short for omega.
  bool extall = true;
  bool first_is_setup = nint == 1;
  if (oscillatory) {
    const double len = std::fabs(pts[1] - pts[0]);
    extall = 0.25 * len * opt.omega <= 2.0;
    if (0.5 * len * opt.omega <= 2.0) table.append(result);
  } else {
    table.append(result);
  }
  const int ksgn = dres >= (1.0 - 50.0 * eps) * resabs ? 1 : -1;
  Status status = Status::kOk;
  bool converged = false;

  while (w.last < w.limit) {
    const int i = w.maxerr;
    const int lev = (w.level ? w.level[i] : 0) + 1;
    const double a1 = w.alist[i], b2 = w.blist[i];
    const double b1 = rule.split(a1, b2), a2 = b1;
    const double erlast = w.errmax;
    const Estimate e1 = rule(a1, b1, lev), e2 = rule(a2, b2, lev);
    const double area12 = e1.result + e2.result, error12 = e1.abserr + e2.abserr;
    errsum = errsum + error12 - w.errmax;  // evaluated left to right, as in QUADPACK
    area = area + area12 - w.rlist[i];
    if (e1.reliable && e2.reliable) {
      if (std::fabs(w.rlist[i] - area12) <= 1.0e-5 * std::fabs(area12) &&
          error12 >= 0.99 * w.errmax) {
        if (extrap)
          ++iroff2;
        else
          ++iroff1;
      }
      if (w.last + 1 > 10 && error12 > w.errmax) ++iroff3;
    }
    errbnd = dmax(epsabs, epsrel * std::fabs(area));
    if (iroff1 + iroff2 >= 10 || iroff3 >= 20) status = Status::kRoundoff;
    if (iroff2 >= 5) roundoff_extrap = true;
    if (w.last + 1 == w.limit) status = Status::kMaxSubdiv;
    if (detail::too_small(a1, a2, b2, eps, tiny)) status = Status::kBadSubdiv;
    w.store_halves(a1, b1, e1.result, e1.abserr, a2, b2, e2.result, e2.abserr, lev);
    if (errsum <= errbnd) {
      converged = true;
      break;
    }
    if (status != Status::kOk) break;
    if (first_is_setup) {
      first_is_setup = false;
      if (extall) {
        ++levmax;
        table.append(area);
        ertest = errbnd;
        erlarg = errsum;
        continue;
      }
    }
    if (noext) continue;
    if (extall) {
      erlarg -= erlast;
      if (large_length(std::fabs(b1 - a1), lev)) erlarg += error12;
    }
    if (!(extall && extrap)) {
      // Is the subinterval to be bisected next among the small ones?
      if (large(w.maxerr)) continue;
      if (!extall) {
        // QAWO: extrapolation begins once the next subinterval is short
        // enough for the Gauss-Kronrod rule.
        ++levmax;
        const double width = std::fabs(w.blist[w.maxerr] - w.alist[w.maxerr]);
        if (0.25 * width * opt.omega > 2.0) continue;
        extall = true;
        ertest = errbnd;
        erlarg = errsum;
        continue;
      }
      extrap = true;
      w.nrmax = 1;
    }
    if (!roundoff_extrap && erlarg > ertest) {
      // The smallest subintervals do not yet carry the largest errors:
      // bisect the large ones first.
      int jupbnd = w.last;
      if (w.last > 2 + w.limit / 2) jupbnd = w.limit + 3 - w.last;
      bool found_large = false;
      for (int k = w.nrmax; k < jupbnd; ++k) {
        w.maxerr = w.iord[w.nrmax];
        w.errmax = w.elist[w.maxerr];
        if (large(w.maxerr)) {
          found_large = true;
          break;
        }
        ++w.nrmax;
      }
      if (found_large) continue;
    }
    // Extrapolate.
    table.append(area);
    if (table.n >= 3) {
      double reseps = 0.0, abseps = 0.0;
      table.extrapolate(reseps, abseps);
      ++ktmin;
      if (ktmin > 5 && err_ext < 1.0e-3 * errsum) status = Status::kDivergent;
      if (abseps < err_ext) {
        ktmin = 0;
        err_ext = abseps;
        res_ext = reseps;
        correc = erlarg;
        ertest = dmax(epsabs, epsrel * std::fabs(reseps));
        if (err_ext <= ertest) break;
      }
      if (table.n == 1) noext = true;
      if (status == Status::kDivergent) break;
    }
    // Back to the subinterval of largest error.
    w.nrmax = 0;
    w.maxerr = w.iord[0];
    w.errmax = w.elist[w.maxerr];
    extrap = false;
    ++levmax;
    erlarg = errsum;
  }

  // Final result: the extrapolated value unless the plain sum is better.
  bool use_sum = converged || err_ext == big;
  if (!use_sum) {
    if (status != Status::kOk || roundoff_extrap) {
      if (roundoff_extrap) err_ext += correc;
      if (status == Status::kOk) status = Status::kRoundoffExtrap;
      if (res_ext != 0.0 && area != 0.0) {
        if (err_ext / std::fabs(res_ext) > errsum / std::fabs(area)) use_sum = true;
      } else if (err_ext > errsum) {
        use_sum = true;
      } else if (area == 0.0) {
        return Outcome{res_ext, err_ext, status};
      }
    }
    if (!use_sum) {
      // Divergence test.
      if (!(ksgn == -1 && dmax(std::fabs(res_ext), std::fabs(area)) <= 0.01 * resabs)) {
        const double ratio = res_ext / area;
        if (ratio < 0.01 || ratio > 100.0 || errsum > std::fabs(area))
          status = Status::kDivergent;
      }
      return Outcome{res_ext, err_ext, status};
    }
  }
  return Outcome{w.sum(), errsum, converged ? Status::kOk : status};
}

}  // namespace zem::quad
