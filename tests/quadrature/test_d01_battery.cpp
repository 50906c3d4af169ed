// The adaptive routines on a battery of integrals with known values
// (tests/data/d01_battery.txt, from tools/d01_refs.py): end-point and
// interior singularities, peaks, a discontinuity, oscillation, infinite
// ranges, weights, principal values and Fourier integrals, each at several
// tolerances.  Every run must succeed with its true error within the
// requested tolerance and an error estimate that is not below the true
// error; the d01s twin must give the same answer with comm passed through;
// the progress record must be consistent.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/quadrature/d01_battery.hpp"
#include "zem/d01.h"
#include "zem/x02.h"
#include "zem/x04.h"

namespace {

using d01test::Case;
using d01test::integrands;
using d01test::load;

// The comm form calls the integrand through the pointer it is given.
struct Comm {
  double (*f)(double);
  long calls = 0;
};
double through_comm(double x, void* comm) {
  auto* c = static_cast<Comm*>(comm);
  ++c->calls;
  return c->f(x);
}

void free_progress(Zem_QuadProgress& qp) {
  for (double** p : {&qp.left, &qp.right, &qp.integral, &qp.error})
    x04bdc(reinterpret_cast<void**>(p));
  x04bdc(reinterpret_cast<void**>(&qp.interval_status));
}

struct Outcome {
  double result = NAN, abserr = NAN;
  Zem_QuadProgress qp{};
  ZemError fail{};
};

// Runs a case with relative tolerance tol (absolute for d01asc), through
// the plain form (comm == nullptr) or the comm form.
void run(const Case& c, double tol, Comm* comm, Outcome& r, int32_t limit = 500) {
  double (*f)(double) = integrands().at(c.name);
  const auto& p = c.p;
  const double ea = 0.0, er = tol;
  if (c.routine == "d01ajc") {
    if (comm)
      d01sjc(through_comm, p[0], p[1], ea, er, limit, &r.result, &r.abserr, &r.qp, comm, &r.fail);
    else
      d01ajc(f, p[0], p[1], ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01akc") {
    if (comm)
      d01skc(through_comm, p[0], p[1], ea, er, limit, &r.result, &r.abserr, &r.qp, comm, &r.fail);
    else
      d01akc(f, p[0], p[1], ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01alc") {
    const int32_t nb = static_cast<int32_t>(p[2]);
    if (comm)
      d01slc(through_comm, p[0], p[1], nb, &p[3], ea, er, limit, &r.result, &r.abserr, &r.qp, comm,
             &r.fail);
    else
      d01alc(f, p[0], p[1], nb, &p[3], ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01amc") {
    const int32_t kinds[] = {0, Zem_UpperSemiInfinite, Zem_LowerSemiInfinite, Zem_Infinite};
    const int32_t k = kinds[static_cast<int>(p[1])];
    if (comm)
      d01smc(through_comm, p[0], k, ea, er, limit, &r.result, &r.abserr, &r.qp, comm, &r.fail);
    else
      d01amc(f, p[0], k, ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01anc") {
    const int32_t w = p[3] == 1 ? Zem_Cosine : Zem_Sine;
    if (comm)
      d01snc(through_comm, p[0], p[1], p[2], w, ea, er, limit, &r.result, &r.abserr, &r.qp, comm,
             &r.fail);
    else
      d01anc(f, p[0], p[1], p[2], w, ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01apc") {
    const int32_t kinds[] = {0, Zem_Alg, Zem_Alg_loga, Zem_Alg_logb, Zem_Alg_loga_logb};
    const int32_t k = kinds[static_cast<int>(p[4])];
    if (comm)
      d01spc(through_comm, p[0], p[1], p[2], p[3], k, ea, er, limit, &r.result, &r.abserr, &r.qp,
             comm, &r.fail);
    else
      d01apc(f, p[0], p[1], p[2], p[3], k, ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01aqc") {
    if (comm)
      d01sqc(through_comm, p[0], p[1], p[2], ea, er, limit, &r.result, &r.abserr, &r.qp, comm,
             &r.fail);
    else
      d01aqc(f, p[0], p[1], p[2], ea, er, limit, &r.result, &r.abserr, &r.qp, &r.fail);
  } else if (c.routine == "d01asc") {
    const int32_t w = p[2] == 1 ? Zem_Cosine : Zem_Sine;
    if (comm)
      d01ssc(through_comm, p[0], p[1], w, 100, limit, tol, &r.result, &r.abserr, &r.qp, comm,
             &r.fail);
    else
      d01asc(f, p[0], p[1], w, 100, limit, tol, &r.result, &r.abserr, &r.qp, &r.fail);
  } else {
    FAIL() << "unknown routine " << c.routine;
  }
}

TEST(D01Battery, EveryIntegralToEveryTolerance) {
  const auto cases = load();
  ASSERT_GE(cases.size(), 25u) << "reference file missing or short";
  const double eps = x02ajc();
  int runs = 0;
  for (const auto& c : cases)
    for (double tol : {1e-4, 1e-7, 1e-10}) {
      SCOPED_TRACE(c.routine + " " + c.name + " tol " + std::to_string(tol));
      ASSERT_TRUE(integrands().count(c.name)) << "no integrand " << c.name;
      Outcome r;
      run(c, tol, nullptr, r);
      EXPECT_EQ(r.fail.code, 0) << r.fail.message;
      const double bound = c.routine == "d01asc" ? tol : tol * std::fabs(c.ref);
      const double truth = std::fabs(r.result - c.ref);
      EXPECT_LE(truth, bound) << "result " << r.result << " reference " << c.ref;
      // The estimate is honest (up to the rounding of the reference).
      EXPECT_GE(r.abserr, truth - 4 * eps * std::fabs(c.ref)) << "abserr " << r.abserr;
      EXPECT_LE(r.abserr, 1.01 * bound);

      // The progress record: counts, intervals sorted by left end, zeros
      // beyond the ones used.
      const Zem_QuadProgress& qp = r.qp;
      EXPECT_GE(qp.subintervals, 1);
      EXPECT_GT(qp.evaluations, 0);
      ASSERT_NE(qp.left, nullptr);
      for (int i = 1; i < qp.subintervals; ++i) EXPECT_LE(qp.left[i - 1], qp.left[i]);
      const int size = c.routine == "d01asc" ? 100 : 500;
      for (int i = qp.subintervals; i < size; ++i) EXPECT_EQ(qp.integral[i], 0.0);
      EXPECT_EQ(qp.interval_status != nullptr, c.routine == "d01asc");

      // The twin with comm: the same numbers, and every evaluation went
      // through comm.
      Comm comm{integrands().at(c.name)};
      Outcome t;
      run(c, tol, &comm, t);
      EXPECT_EQ(t.fail.code, r.fail.code);
      EXPECT_EQ(t.result, r.result);
      EXPECT_EQ(t.abserr, r.abserr);
      EXPECT_EQ(comm.calls, t.qp.evaluations);
      free_progress(r.qp);
      free_progress(t.qp);
      ++runs;
    }
  EXPECT_EQ(runs, 3 * static_cast<int>(cases.size()));
}

}  // namespace
