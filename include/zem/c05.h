/* c05: zeros of a function of one variable and of systems of nonlinear
 * equations, and a check of a user's Jacobian. */
#ifndef ZEM_C05_H
#define ZEM_C05_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* Callbacks.  comm is the caller's pointer, passed on untouched.
 * A system callback stops the run by setting *userflag negative; the run
 * then ends with NE_USER_STOP and fail->errnum holds the flag. */
typedef double (*Zem_C05_Fun)(double x);
typedef double (*Zem_C05_FunComm)(double x, void *comm);
/* Fills fvec[i] = f_i(x), i = 0..n-1.  *userflag is 1 on entry. */
typedef void (*Zem_C05_SysFun)(int32_t n, const double x[], double fvec[], int32_t *userflag);
typedef void (*Zem_C05_SysFunComm)(int32_t n, const double x[], double fvec[], int32_t *userflag,
                                   void *comm);
/* With *userflag 1: fill fvec[i] = f_i(x) and leave fjac unchanged (it may
 * hold the solver's working data).  With *userflag 2: fill the Jacobian,
 * fjac[i*tdfjac + j] = d f_i / d x_j, and leave fvec unchanged. */
typedef void (*Zem_C05_SysJac)(int32_t n, const double x[], double fvec[], double fjac[],
                               int32_t tdfjac, int32_t *userflag);
typedef void (*Zem_C05_SysJacComm)(int32_t n, const double x[], double fvec[], double fjac[],
                                   int32_t tdfjac, int32_t *userflag, void *comm);

/* c05adc: a zero of a continuous function f on the interval [a, b] with
 * f(a), f(b) of opposite signs, by the Bus and Dekker method (a
 * combination of secant, inverse quadratic interpolation and bisection
 * that keeps the zero bracketed).
 *   a, b   in   ends of the interval, a != b.
 *   x      out  the zero found; after any exit past the first evaluation,
 *               the last point tried (the best one at convergence).
 *   f      in   the function.
 *   xtol   in   absolute tolerance on the bracket, xtol > 0.0.
 *   ftol   in   the search also ends at a point with |f(x)| < ftol
 *               (0.0: only at an exact zero or by xtol).
 *   fail   in/out  error record.
 * Reports: NE_REAL_ARG_LE (xtol <= 0.0), NE_2_REAL_ARG_EQ (a == b),
 * NE_BAD_PARAM (null x or f), NE_FUNC_END_VAL (f(a), f(b) of the same
 * sign), NE_PROBABLE_POLE (the bracket closed on a probable pole; x holds
 * the final point; the message is the row's text with its slot unfilled),
 * NE_XTOL_TOO_SMALL (xtol cannot be reached in this precision). */
ZEM_API void c05adc(double a, double b, double *x, Zem_C05_Fun f, double xtol, double ftol,
                    ZemError *fail);

/* c05sdc: c05adc with a comm pointer that every call of f receives. */
ZEM_API void c05sdc(double a, double b, double *x, Zem_C05_FunComm f, double xtol, double ftol,
                    void *comm, ZemError *fail);

/* c05azc: one step of the bracketing search of c05adc by reverse
 * communication.  Call with *ind = 1 and the ends in *x and *y (or with
 * *ind = -1, f(*x) in *fx and f(*y) in c[0]); while *ind comes back
 * nonzero, put f(*x) in *fx and call again without touching *ind or c.
 *   x, y   in/out  on exit with *ind = 0, x is the zero and [x, y] the
 *                  final bracket (y is left as it was after a pole).
 *   fx     in   f at the point the previous call asked for.
 *   xtol   in   tolerance, xtol > 0.0, used as selected by ir.
 *   ir     in   0: 0.5*xtol*max(1,|x|), 1: 0.5*xtol (absolute),
 *               2: 0.5*xtol*|x| (relative).
 *   c      in/out  the state, 17 doubles, kept by the caller.
 *   ind    in/out  1, 2, 3, 4 or -1 on entry (see above); 0 at the end.
 *   fail   in/out  error record.
 * Reports: NE_BAD_PARAM (a null pointer), NE_ARG_INVALID (ind not one of
 * -1, 1, 2, 3, 4, or ir not one of 0, 1, 2; *ind is set to 0 for ir),
 * NE_REAL_ARG_LE (xtol <= 0.0; *ind set to 0), NE_FUNC_END_VAL (f has the
 * same sign at both ends), NE_PROBABLE_POLE, NE_XTOL_TOO_SMALL. */
ZEM_API void c05azc(double *x, double *y, double *fx, double xtol, int32_t ir, double c[],
                    int32_t *ind, ZemError *fail);

/* c05nbc: a zero of n nonlinear functions in n unknowns by Powell's hybrid
 * method, with the Jacobian by forward differences.
 *   n      in   number of equations and unknowns, n >= 1.
 *   x      in/out  starting point; on exit the final estimate.
 *   fvec   out  the functions at the final x.
 *   f      in   the system (n calls per difference Jacobian).
 *   xtol   in   relative accuracy wanted in x, xtol >= 0.0.  The search
 *               ends when the step bound is within xtol*|x|.
 *   fail   in/out  error record.
 * At most 200*(n+1) evaluations are made.
 * Reports: NE_INT_ARG_LE (n <= 0), NE_REAL_ARG_LT (xtol < 0.0),
 * NE_BAD_PARAM (a null pointer), NE_ALLOC_FAIL, NE_USER_STOP (errnum holds
 * the flag), NE_TOO_MANY_FUNC_EVAL, NE_XTOL_TOO_SMALL (no further
 * improvement possible), NE_NO_IMPROVEMENT (iteration not making progress).
 * After any failure x and fvec hold the latest accepted point. */
ZEM_API void c05nbc(int32_t n, double x[], double fvec[], Zem_C05_SysFun f, double xtol,
                    ZemError *fail);

/* c05tbc: c05nbc with a comm pointer that every call of f receives. */
ZEM_API void c05tbc(int32_t n, double x[], double fvec[], Zem_C05_SysFunComm f, double xtol,
                    void *comm, ZemError *fail);

/* c05pbc: as c05nbc with the Jacobian from the user.
 *   fjac   out  n by n, row-major with row length tdfjac >= n: on exit the
 *               orthogonal factor Q of the QR factorisation of the final
 *               Jacobian approximation.
 * At most 100*(n+1) evaluations of the functions are made.
 * Reports: as c05nbc, and NE_2_INT_ARG_LT (tdfjac < n). */
ZEM_API void c05pbc(int32_t n, double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJac f, double xtol, ZemError *fail);

/* c05ubc: c05pbc with a comm pointer that every call of f receives. */
ZEM_API void c05ubc(int32_t n, double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJacComm f, double xtol, void *comm, ZemError *fail);

/* c05zbc: checks the user's Jacobian of a system at x.  The gradient of
 * the sum of squares of f that the Jacobian implies is compared with
 * differences of the sum of squares along two fixed directions.
 *   n      in   n >= 1.
 *   x      in   the point.
 *   fvec   out  f(x).
 *   fjac   out  the user's Jacobian at x (row-major, row length tdfjac).
 *   f      in   the system, called with *userflag 2 and then 1 at each
 *               point (x and two points a step sqrt(eps) away).
 * Reports: NE_INT_ARG_LT (n < 1; its message is the text of NE_INT_ARG_LE),
 * NE_2_INT_ARG_LT (tdfjac < n),
 * NE_BAD_PARAM (a null pointer), NE_ALLOC_FAIL, NE_USER_STOP,
 * NE_DERIV_ERRORS (the Jacobian is probably wrong). */
ZEM_API void c05zbc(int32_t n, const double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJac f, ZemError *fail);

/* c05zcc: c05zbc with a comm pointer that every call of f receives. */
ZEM_API void c05zcc(int32_t n, const double x[], double fvec[], double fjac[], int32_t tdfjac,
                    Zem_C05_SysJacComm f, void *comm, ZemError *fail);

/* c05nct: the Euclidean norm of x[0..n-1], with guards against overflow and
 * underflow.  Returns 0.0 for n < 1 and NaN for a null x. */
ZEM_API double c05nct(int32_t n, const double x[]);

ZEM_END_DECLS
#endif
