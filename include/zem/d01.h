/* d01: quadrature of a function of one variable.  Globally adaptive
 * integration over finite and infinite ranges (d01a, and their d01s twins
 * whose integrand receives the caller's comm pointer), and fixed Gaussian
 * rules (d01bac, d01bbc, d01tac). */
#ifndef ZEM_D01_H
#define ZEM_D01_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* Integrands.  comm is the caller's pointer, passed on untouched. */
typedef double (*Zem_D01_Fun)(double x);
typedef double (*Zem_D01_FunComm)(double x, void *comm);
/* d01tac's integrand: fills fv[i] = f(x[i]) for i = 0..nx-1.  *iflag is 0 on
 * entry; setting it negative stops the run (NE_USER_STOP, errnum = flag). */
typedef void (*Zem_D01_VecFun)(const double x[], int32_t nx, double fv[], int32_t *iflag,
                               void *comm);

typedef int32_t Zem_QuadBound;     /* Zem_UpperSemiInfinite, Zem_LowerSemiInfinite, Zem_Infinite */
typedef int32_t Zem_TrigTransform; /* Zem_Cosine, Zem_Sine */
typedef int32_t Zem_QuadWeight;    /* Zem_Alg, Zem_Alg_loga, Zem_Alg_logb, Zem_Alg_loga_logb */
typedef int32_t Zem_QuadRule;      /* Zem_Legendre, Zem_Rational, Zem_Laguerre, Zem_Hermite */

/* The progress record that every adaptive routine fills.  The routine
 * allocates the four arrays (and, for d01asc/d01ssc, interval_status) with
 * x04bbc for the caller, who frees each of them with x04bdc once done.  A
 * call clears the record on entry (null pointers, zero counts), so that a
 * refused call leaves nothing to free; a record reused without freeing its
 * arrays first leaks them.
 *   subintervals  the number of subintervals used (d01asc: of intervals).
 *   evaluations   the number of evaluations of the integrand.
 *   left, right   ends of each subinterval; the entries 0..subintervals-1
 *                 are sorted by increasing left end, the others are zero.
 *   integral      the integral over each subinterval.
 *   error         the error estimate of each subinterval.
 *   interval_status  d01asc/d01ssc only (null otherwise): for each interval,
 *                 0 when its integral met its tolerance, else 1 (maximum
 *                 subdivisions), 2 (round-off), 3 (bad integrand
 *                 behaviour), 4 (round-off in the extrapolation) or
 *                 5 (divergence or slow convergence).
 * The arrays have max_num_subint entries (d01asc: maxintervals). */
typedef struct {
  int32_t subintervals;
  int32_t evaluations;
  double *left;
  double *right;
  double *integral;
  double *error;
  int32_t *interval_status;
} Zem_QuadProgress;

/* d01ajc: the integral of f over the finite range [a, b] (b < a gives the
 * negative of the integral over [b, a]) to within
 * max(|epsabs|, |epsrel| * |integral|), by globally adaptive bisection with
 * the 21-point Gauss-Kronrod rule and extrapolation of the partial results
 * by the epsilon algorithm (the QAGS method of QUADPACK).  Suited to
 * integrands with end-point and interior singularities of algebraic or
 * logarithmic kind.
 *   f               in   the integrand.
 *   a, b            in   ends of the range.
 *   epsabs, epsrel  in   the absolute and relative accuracy wanted; only
 *                        their magnitudes are used.
 *   max_num_subint  in   the largest number of subintervals, >= 1.  With 1,
 *                        one application of the rule decides.
 * A range of zero length (a = b) gives 0 with error 0 and no evaluation of
 * f (also in d01akc, d01alc, d01anc and d01aqc).
 *   result          out  the approximation to the integral.
 *   abserr          out  an estimate of |integral - result|.
 *   progress        out  the progress record; its arrays are allocated for
 *                        the caller (see Zem_QuadProgress).
 *   fail            in/out  error record.
 * Reports: NE_INT_ARG_LT (max_num_subint < 1), NE_BAD_PARAM (a null
 * pointer), NE_ALLOC_FAIL, and after a run (result, abserr and progress
 * then hold the best estimates reached): NE_QUAD_MAX_SUBDIV, NE_QUAD_ROUNDOFF_TOL,
 * NE_QUAD_BAD_SUBDIV (a local difficulty: split the range there),
 * NE_QUAD_ROUNDOFF_EXTRAPL, NE_QUAD_NO_CONV (divergent or slowly
 * convergent). */
ZEM_API void d01ajc(Zem_D01_Fun f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01sjc(Zem_D01_FunComm f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01akc: as d01ajc, for oscillating integrands without singularities: the
 * 61-point Gauss-Kronrod rule and no extrapolation (QUADPACK's QAG with its
 * highest rule).  Arguments and rows as d01ajc, except that
 * NE_QUAD_ROUNDOFF_EXTRAPL and NE_QUAD_NO_CONV cannot occur. */
ZEM_API void d01akc(Zem_D01_Fun f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01skc(Zem_D01_FunComm f, double a, double b, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01alc: as d01ajc, with nbrkpts break points where the integrand has
 * local difficulties (singularities, discontinuities): the range is first
 * split at them (QUADPACK's QAGP).  The break points may come in any order;
 * each must lie in the closed range between a and b.  For b < a the
 * progress record describes the integral from b to a, and result is its
 * negative.
 *   nbrkpts         in   number of break points, >= 0.
 *   brkpts          in   the break points (may be null when nbrkpts = 0).
 *   max_num_subint  in   > nbrkpts.
 * Reports: as d01ajc, and NE_INT_ARG_LT (nbrkpts < 0), NE_2_INT_ARG_LE
 * (max_num_subint <= nbrkpts), NE_QUAD_BRKPTS_INVAL (a break point outside
 * the range). */
ZEM_API void d01alc(Zem_D01_Fun f, double a, double b, int32_t nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, int32_t max_num_subint, double *result,
                    double *abserr, Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01slc(Zem_D01_FunComm f, double a, double b, int32_t nbrkpts, const double brkpts[],
                    double epsabs, double epsrel, int32_t max_num_subint, double *result,
                    double *abserr, Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01amc: the integral of f over [bound, +inf) (boundinf =
 * Zem_UpperSemiInfinite), (-inf, bound] (Zem_LowerSemiInfinite) or
 * (-inf, +inf) (Zem_Infinite, bound unused).  The range is mapped onto
 * (0, 1] by x = bound + (1-t)/t, x = bound - (1-t)/t, or x = +-(1-t)/t with
 * both halves added, and the result integrated as by d01ajc with the
 * 15-point Gauss-Kronrod rule (QUADPACK's QAGI).  The progress record's
 * subintervals are those of t.
 * Reports: as d01ajc, and NE_BAD_PARAM (boundinf not in its set). */
ZEM_API void d01amc(Zem_D01_Fun f, double bound, Zem_QuadBound boundinf, double epsabs,
                    double epsrel, int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01smc(Zem_D01_FunComm f, double bound, Zem_QuadBound boundinf, double epsabs,
                    double epsrel, int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01anc: the integral of g(x) cos(omega x) (wt_func = Zem_Cosine) or
 * g(x) sin(omega x) (Zem_Sine) over [a, b].  Subintervals on which omega
 * times the half-length exceeds 2 are integrated by the modified
 * Clenshaw-Curtis method with Chebyshev moments of the weight (computed
 * once per level of bisection), the others by the 15-point Gauss-Kronrod
 * rule, with extrapolation (QUADPACK's QAWO).  The Clenshaw-Curtis rule
 * evaluates g at the ends of its subintervals, a and b included: g must
 * return a finite value there (0 at an integrable singularity).
 * Reports: as d01ajc, and NE_BAD_PARAM (wt_func). */
ZEM_API void d01anc(Zem_D01_Fun g, double a, double b, double omega, Zem_TrigTransform wt_func,
                    double epsabs, double epsrel, int32_t max_num_subint, double *result,
                    double *abserr, Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01snc(Zem_D01_FunComm g, double a, double b, double omega,
                    Zem_TrigTransform wt_func, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01apc: the integral of g(x) w(x) over [a, b], a < b, with the end-point
 * weight w(x) = (x-a)^alfa (b-x)^beta, times log(x-a) (wt_func =
 * Zem_Alg_loga), log(b-x) (Zem_Alg_logb), both (Zem_Alg_loga_logb) or
 * neither (Zem_Alg).  Subintervals at an end use modified Clenshaw-Curtis
 * with the moments of the weight, the others the 15-point Gauss-Kronrod
 * rule (QUADPACK's QAWS).
 *   max_num_subint  in   >= 2 (the range is halved at once).
 *   alfa, beta      in   > -1.0.
 * Reports: NE_INT_ARG_LT (max_num_subint < 2), NE_2_REAL_ARG_LE (b <= a),
 * NE_REAL_ARG_LE (alfa or beta <= -1.0), NE_BAD_PARAM (wt_func; a null
 * pointer), NE_ALLOC_FAIL, NE_QUAD_MAX_SUBDIV, NE_QUAD_ROUNDOFF_TOL,
 * NE_QUAD_BAD_SUBDIV. */
ZEM_API void d01apc(Zem_D01_Fun g, double a, double b, double alfa, double beta,
                    Zem_QuadWeight wt_func, double epsabs, double epsrel, int32_t max_num_subint,
                    double *result, double *abserr, Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01spc(Zem_D01_FunComm g, double a, double b, double alfa, double beta,
                    Zem_QuadWeight wt_func, double epsabs, double epsrel, int32_t max_num_subint,
                    double *result, double *abserr, Zem_QuadProgress *progress, void *comm,
                    ZemError *fail);

/* d01aqc: the Cauchy principal value of the integral of g(x)/(x-c) over
 * [a, b] (b < a gives the negative of the value over [b, a]), c strictly
 * inside or outside the range but not at an end.  Subintervals containing
 * or near c use modified Clenshaw-Curtis with the moments of 1/(x-c), the
 * others the 15-point Gauss-Kronrod rule; bisection avoids splitting at c
 * (QUADPACK's QAWC).
 * Reports: NE_INT_ARG_LT (max_num_subint < 1), NE_3_REAL_ARG_CONS (c = a or
 * c = b), NE_BAD_PARAM, NE_ALLOC_FAIL, NE_QUAD_MAX_SUBDIV,
 * NE_QUAD_ROUNDOFF_TOL, NE_QUAD_BAD_SUBDIV. */
ZEM_API void d01aqc(Zem_D01_Fun g, double a, double b, double c, double epsabs, double epsrel,
                    int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01sqc(Zem_D01_FunComm g, double a, double b, double c, double epsabs,
                    double epsrel, int32_t max_num_subint, double *result, double *abserr,
                    Zem_QuadProgress *progress, void *comm, ZemError *fail);

/* d01asc: the Fourier integral of g(x) cos(omega x) or g(x) sin(omega x)
 * over [a, +inf) to the absolute accuracy |epsabs|.  The range is cut into
 * intervals of (2 floor(|omega|) + 1) pi / |omega| (an odd number of half
 * periods), each integrated as by d01anc to a tolerance that shrinks by the
 * factor 0.9 from one interval to the next, and the series of their
 * integrals is summed with extrapolation by the epsilon algorithm
 * (QUADPACK's QAWF).  For omega = 0 the cosine integral is that of g over
 * [a, +inf) by d01amc's method (one interval, right end +inf) and the sine
 * integral is 0.  As for d01anc, g must be finite at a.
 *   maxsubint_per_int  in   the largest number of subintervals within one
 *                           interval, >= 1.
 *   maxintervals       in   the largest number of intervals, >= 3.
 *   progress           out  one entry per interval (see Zem_QuadProgress).
 * Reports: NE_INT_ARG_LT (maxsubint_per_int < 1, maxintervals < 3),
 * NE_BAD_PARAM (wt_func; a null pointer), NE_REAL_ARG_EQ (epsabs = 0.0),
 * NE_ALLOC_FAIL, NE_QUAD_MAX_INT (maxintervals reached),
 * NE_QUAD_EXTRAPL_INT (the extrapolation over the intervals does not
 * converge), and for a failure inside an interval (the first one flagged
 * in interval_status decides): NE_QUAD_MAX_SUBDIV_SPEC_INT,
 * NE_QUAD_ROUNDOFF_TOL_SPEC_INT, NE_QUAD_BAD_SUBDIV_INTS,
 * NE_QUAD_NO_CONV_SPEC_INT. */
ZEM_API void d01asc(Zem_D01_Fun g, double a, double omega, Zem_TrigTransform wt_func,
                    int32_t maxintervals, int32_t maxsubint_per_int, double epsabs,
                    double *result, double *abserr, Zem_QuadProgress *progress, ZemError *fail);
ZEM_API void d01ssc(Zem_D01_FunComm g, double a, double omega, Zem_TrigTransform wt_func,
                    int32_t maxintervals, int32_t maxsubint_per_int, double epsabs,
                    double *result, double *abserr, Zem_QuadProgress *progress, void *comm,
                    ZemError *fail);

/* Fixed Gaussian rules of npts points, 1 <= npts <= 1000:
 *   Zem_Legendre  the integral of f over [a, b].
 *   Zem_Rational  the integral of f over [a, +inf) when a + b > 0, or over
 *                 (-inf, a] when a + b < 0: Gauss-Legendre in
 *                 y = (a+b)/(x+b), exact when f(x) (x+b)^2 is a polynomial
 *                 of degree below 2*npts in 1/(x+b).  b != 0, a + b != 0.
 *   Zem_Laguerre  the integral of exp(-b (x-a)) f(x) over [a, +inf) when
 *                 b > 0, over (-inf, a] when b < 0; b != 0.
 *   Zem_Hermite   the integral of exp(-b (x-a)^2) f(x) over (-inf, +inf);
 *                 b > 0.
 * Each is exact when f is a polynomial of degree below 2*npts (Rational: as
 * stated).
 *
 * d01bbc: the weights and abscissae of the rule, with the weight function
 * and the map of the range included, so that sum(weight[i] f(abscis[i]))
 * approximates the integral.
 *   weight, abscis  out  npts entries each.
 * Reports: NE_BAD_PARAM (quadrule; a null pointer), NE_INT_ARG_LT
 * (npts < 1), NE_QUAD_GAUSS_NPTS_RULE (npts > 1000), NE_QUAD_GAUSS_CONS
 * (a, b not valid for the rule), NE_QUAD_GAUSS_LAG_HER_WTS (a weight of the
 * Laguerre or Hermite rule would underflow; the entries are then set, with
 * the underflowing weights zero). */
ZEM_API void d01bbc(Zem_QuadRule quadrule, double a, double b, int32_t npts, double weight[],
                    double abscis[], ZemError *fail);

/* d01bac: applies the rule of d01bbc to f and returns the sum (0.0 after a
 * refusal).  Reports: as d01bbc, and NE_ALLOC_FAIL; the underflow of some
 * weights is reported as by d01bbc after the sum is formed. */
ZEM_API double d01bac(Zem_QuadRule quadrule, double a, double b, int32_t npts, Zem_D01_Fun f,
                      ZemError *fail);

/* d01tac: as d01bac with an integrand that takes all the abscissae in one
 * call and the caller's comm pointer.
 *   dinest  out  the sum.
 * Reports: as d01bac, and NE_USER_STOP (the integrand set *iflag negative;
 * errnum holds the flag and dinest is 0.0). */
ZEM_API void d01tac(Zem_QuadRule quadrule, double a, double b, int32_t npts, Zem_D01_VecFun f,
                    void *comm, double *dinest, ZemError *fail);

ZEM_END_DECLS
#endif
