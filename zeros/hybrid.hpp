// Zero of a system of n nonlinear functions in n unknowns by Powell's
// hybrid method, in the arrangement of MINPACK's hybrd/hybrj (More, Garbow
// and Hillstrom, "User guide for MINPACK-1", Argonne ANL-80-74, 1980):
// a dogleg step in a trust region, a QR factorisation of the Jacobian kept
// up to date by Broyden rank-one updates, and a fresh Jacobian (by forward
// differences or from the user) when progress stalls.
//
// Matrices are row-major: J(i,j) = fjac[i*ld + j].  The triangular factor r
// is packed by rows (see linalg/level1.hpp).
#pragma once
#include <cstdint>

namespace zem::hybrid {

// Final status of a run.  kNotRun is the running value; it is returned only
// when the input was refused before any evaluation.  A negative status is
// the user's flag that stopped the run.
enum Status : int {
  kSuccess = 0,        // relative change of x within xtol, or f(x) = 0
  kNotRun = 1,
  kTooManyEvals = 2,   // the evaluation limit was reached
  kXtolTooSmall = 3,   // the step bound fell to rounding level
  kSlowJacobian = 4,   // no progress over five fresh Jacobians
  kSlowIterations = 5, // no progress over ten iterations
};

// The user's system.  eval(ctx, n, x, fvec, fjac, ld, flag): with *flag 1
// fill fvec = f(x); with *flag 2 (analytic Jacobian only) fill
// fjac(i,j) = df_i/dx_j; with *flag 0 (print calls) look at x and fvec.
// Setting *flag negative stops the run.
struct System {
  void (*eval)(void* ctx, long n, const double* x, double* fvec, double* fjac, long ld,
               int32_t* flag);
  void* ctx;
  bool analytic_jacobian;
};

struct Options {
  double xtol = 0.0;
  long maxfev = 0;       // evaluations of f (flag 1) allowed
  int mode = 2;          // 1: scale by column norms of the Jacobian; 2: use diag as given
  double factor = 100.0; // initial step bound factor
  long nprint = 0;       // > 0: a flag-0 call every nprint iterations and at the end
  long ml = 0, mu = 0;   // band widths of a difference Jacobian
  double epsfcn = 0.0;   // relative error of f for the difference step
};

// Work arrays, each of length n unless stated.
struct Work {
  double* diag;  // scale factors (input in mode 2, output in mode 1)
  double* qtf;   // Q' f
  double* wa1;
  double* wa2;
  double* wa3;
  double* wa4;
  double* r;     // n*(n+1)/2: the triangular factor, packed by rows
};

struct Counts {
  long nfev = 0;  // evaluations of f, differences included
  long njev = 0;  // analytic Jacobians
};

// Runs the method from x.  On return x holds the final estimate, fvec f(x),
// fjac (n by n, leading dimension ld >= n) the orthogonal factor Q of the
// last Jacobian approximation, w.r its triangular factor and w.qtf Q'f.
int solve(const System& sys, long n, double* x, double* fvec, double* fjac, long ld,
          const Options& opt, const Work& w, Counts& counts) noexcept;

// Forward-difference Jacobian of a banded or dense system (ml, mu band
// widths; dense when ml+mu+1 >= n).  fvec holds f(x); x is restored on
// return, also after a user stop.  wa1, wa2 are work arrays of length n.
// Returns the user's flag (negative on a stop) and counts the evaluations.
int32_t fdjac(const System& sys, long n, double* x, const double* fvec, double* fjac, long ld,
              long ml, long mu, double epsfcn, double* wa1, double* wa2, long& nfev) noexcept;

}  // namespace zem::hybrid
