// The failure rows of the quadrature routines, provoked on purpose, the
// edge cases of the frame (one subinterval, a zero-length range, negative
// tolerances), and every argument check.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "zem/d01.h"
#include "zem/x04.h"

namespace {

void free_progress(Zem_QuadProgress& qp) {
  for (double** p : {&qp.left, &qp.right, &qp.integral, &qp.error})
    x04bdc(reinterpret_cast<void**>(p));
  x04bdc(reinterpret_cast<void**>(&qp.interval_status));
}

struct Call {
  double result = NAN, abserr = NAN;
  Zem_QuadProgress qp{};
  ZemError fail{};
  ~Call() { free_progress(qp); }
};

double square(double x) { return x * x; }
double runge(double x) { return 1.0 / (1.0 + 25.0 * x * x); }
double inv_x(double x) { return 1.0 / x; }
double expo(double x) { return std::exp(x); }
double step_third(double x) { return x < 1.0 / 3.0 ? 0.0 : 1.0; }
double wild(double x) { return std::sin(1.0 / x) / x; }
double inv_sqrt(double x) { return x > 0.0 ? 1.0 / std::sqrt(x) : 0.0; }
double one(double) { return 1.0; }
double pow_m15(double x) { return std::pow(x, -1.5); }
double sinc(double x) { return std::sin(x) / x; }
double not_a_number(double x) { return x < 0.25 ? std::nan("") : x; }

// max_num_subint = 1: one rule, no subdivision.  The run ends as
// NE_QUAD_MAX_SUBDIV after 21 evaluations, with the rule's estimate, even
// for an integrand the rule gets right.
TEST(D01Frame, OneSubinterval) {
  Call c;
  d01ajc(runge, -1.0, 1.0, 0.0, 1e-10, 1, &c.result, &c.abserr, &c.qp, &c.fail);
  EXPECT_EQ(c.fail.code, NE_QUAD_MAX_SUBDIV);
  EXPECT_NE(std::string(c.fail.message).find("max_num_subint = 1"), std::string::npos);
  EXPECT_EQ(c.qp.evaluations, 21);
  EXPECT_EQ(c.qp.subintervals, 1);
  EXPECT_EQ(c.qp.left[0], -1.0);
  EXPECT_EQ(c.qp.right[0], 1.0);
  EXPECT_EQ(c.qp.integral[0], c.result);

  Call e;
  d01ajc(square, 0.0, 3.0, 0.0, 1e-12, 1, &e.result, &e.abserr, &e.qp, &e.fail);
  EXPECT_EQ(e.fail.code, NE_QUAD_MAX_SUBDIV);
  EXPECT_NEAR(e.result, 9.0, 1e-13);
  EXPECT_EQ(e.qp.evaluations, 21);
}

TEST(D01Frame, ZeroLengthRangeAndNegativeTolerances) {
  Call z;
  d01ajc(inv_x, 0.5, 0.5, 1e-8, 1e-8, 50, &z.result, &z.abserr, &z.qp, &z.fail);
  EXPECT_EQ(z.fail.code, 0);
  EXPECT_EQ(z.result, 0.0);
  EXPECT_EQ(z.abserr, 0.0);
  EXPECT_EQ(z.qp.subintervals, 1);
  // A singular integrand at a zero-length range is not even evaluated.
  Call s;
  d01ajc(inv_x, 0.0, 0.0, 1e-8, 1e-8, 50, &s.result, &s.abserr, &s.qp, &s.fail);
  EXPECT_EQ(s.fail.code, 0);
  EXPECT_EQ(s.result, 0.0);
  EXPECT_EQ(s.qp.evaluations, 0);
  Call t;
  d01anc(inv_x, 0.0, 0.0, 3.0, Zem_Sine, 1e-8, 1e-8, 50, &t.result, &t.abserr, &t.qp, &t.fail);
  EXPECT_EQ(t.fail.code, 0);
  EXPECT_EQ(t.result, 0.0);

  Call pos, neg;
  d01ajc(runge, -1.0, 1.0, 1e-9, 1e-9, 100, &pos.result, &pos.abserr, &pos.qp, &pos.fail);
  d01ajc(runge, -1.0, 1.0, -1e-9, -1e-9, 100, &neg.result, &neg.abserr, &neg.qp, &neg.fail);
  EXPECT_EQ(neg.fail.code, 0);
  EXPECT_EQ(neg.result, pos.result);
  EXPECT_EQ(neg.qp.evaluations, pos.qp.evaluations);
  EXPECT_NEAR(pos.result, 0.4 * std::atan(5.0), 1e-9);
}

// The failure rows of a run, each with the best estimates left in place.
TEST(D01Frame, FailureRowsOfARun) {
  {  // Too few subintervals for sin(1/x)/x.
    Call c;
    d01ajc(wild, 0.0, 1.0, 0.0, 1e-10, 5, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_EQ(c.fail.code, NE_QUAD_MAX_SUBDIV);
    EXPECT_EQ(c.qp.subintervals, 5);
    EXPECT_TRUE(std::isfinite(c.result));
  }
  {  // A tolerance below the rounding level.
    Call c;
    d01ajc(expo, 0.0, 1.0, 0.0, 1e-17, 50, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_EQ(c.fail.code, NE_QUAD_ROUNDOFF_TOL);
    EXPECT_NE(std::string(c.fail.message).find("epsrel = 1e-17"), std::string::npos)
        << c.fail.message;
    EXPECT_NEAR(c.result, std::exp(1.0) - 1.0, 1e-15);
  }
  {  // A jump at an irrational point: the subintervals around it shrink to
     // the rounding level.
    Call c;
    d01akc(step_third, 0.0, 1.0, 0.0, 1e-15, 1000, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_EQ(c.fail.code, NE_QUAD_BAD_SUBDIV);
    EXPECT_NEAR(c.result, 2.0 / 3.0, 1e-12);
  }
  {  // A divergent integral: x^-1.5 on [0, 1].
    Call c;
    d01ajc(pow_m15, 0.0, 1.0, 0.0, 1e-6, 200, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_EQ(c.fail.code, NE_QUAD_NO_CONV) << c.fail.message;
  }
  {  // The same rows through the other routines' frames.
    Call c;
    d01amc(sinc, 1.0, Zem_UpperSemiInfinite, 0.0, 1e-12, 1, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_EQ(c.fail.code, NE_QUAD_MAX_SUBDIV);
    EXPECT_EQ(c.qp.evaluations, 15);
    Call d;
    d01apc(wild, 0.0, 1.0, 0.0, 0.0, Zem_Alg, 0.0, 1e-10, 2, &d.result, &d.abserr, &d.qp,
           &d.fail);
    EXPECT_EQ(d.fail.code, NE_QUAD_MAX_SUBDIV);
    EXPECT_EQ(d.qp.subintervals, 2);
    Call e;
    d01aqc(wild, 0.1, 1.0, 0.5, 0.0, 1e-10, 3, &e.result, &e.abserr, &e.qp, &e.fail);
    EXPECT_EQ(e.fail.code, NE_QUAD_MAX_SUBDIV);
  }
  {  // An integrand that returns NaN never counts as converged.
    Call c;
    d01akc(not_a_number, 0.0, 1.0, 0.0, 1e-6, 20, &c.result, &c.abserr, &c.qp, &c.fail);
    EXPECT_NE(c.fail.code, 0);
    Call d;
    d01aqc(not_a_number, 0.0, 1.0, 0.5, 0.0, 1e-6, 20, &d.result, &d.abserr, &d.qp, &d.fail);
    EXPECT_NE(d.fail.code, 0);
    Call e;
    d01ajc(not_a_number, 0.0, 1.0, 0.0, 1e-6, 20, &e.result, &e.abserr, &e.qp, &e.fail);
    EXPECT_NE(e.fail.code, 0);
  }
}

// d01asc: too few intervals for a slowly decaying integrand, and too few
// subintervals within each interval.
TEST(D01Frame, FourierIntervalRows) {
  Call c;
  d01asc(inv_sqrt, 0.0, 1.0, Zem_Cosine, 3, 100, 1e-12, &c.result, &c.abserr, &c.qp, &c.fail);
  EXPECT_EQ(c.fail.code, NE_QUAD_MAX_INT) << c.fail.message;
  EXPECT_EQ(c.qp.subintervals, 3);
  EXPECT_NEAR(c.result, std::sqrt(3.14159265358979 / 2.0), 1e-2);
  Call d;
  d01asc(inv_sqrt, 0.0, 1.0, Zem_Cosine, 50, 1, 1e-10, &d.result, &d.abserr, &d.qp, &d.fail);
  EXPECT_EQ(d.fail.code, NE_QUAD_MAX_SUBDIV_SPEC_INT) << d.fail.message;
  EXPECT_EQ(d.qp.interval_status[0], 1);
  // omega = 0: the sine integral is 0, the cosine one that of g.
  Call s;
  d01asc(expo, 0.0, 0.0, Zem_Sine, 10, 10, 1e-8, &s.result, &s.abserr, &s.qp, &s.fail);
  EXPECT_EQ(s.fail.code, 0);
  EXPECT_EQ(s.result, 0.0);
  Call k;
  d01asc(runge, 0.0, 0.0, Zem_Cosine, 10, 100, 1e-10, &k.result, &k.abserr, &k.qp, &k.fail);
  EXPECT_EQ(k.fail.code, 0);
  EXPECT_NEAR(k.result, 3.14159265358979323846 / 10.0, 1e-10);
  EXPECT_TRUE(std::isinf(k.qp.right[0]));
}

struct Check {
  const char* what;
  std::function<void(Zem_QuadProgress*, ZemError*)> call;
  int code;
  const char* text;
};

TEST(D01Frame, EveryArgumentCheck) {
  double r, e;
  const double pts[2] = {0.5, 2.0};
  const std::vector<Check> checks = {
      {"d01ajc limit", [&](auto* q, auto* f) { d01ajc(square, 0, 1, 0, 1e-6, 0, &r, &e, q, f); },
       NE_INT_ARG_LT, "max_num_subint must not be less than 1: max_num_subint = 0"},
      {"d01ajc f", [&](auto* q, auto* f) { d01ajc(nullptr, 0, 1, 0, 1e-6, 10, &r, &e, q, f); },
       NE_BAD_PARAM, "argument f "},
      {"d01ajc result",
       [&](auto* q, auto* f) { d01ajc(square, 0, 1, 0, 1e-6, 10, nullptr, &e, q, f); },
       NE_BAD_PARAM, "argument result"},
      {"d01sjc progress",
       [&](auto*, auto* f) {
         d01sjc([](double x, void*) { return x; }, 0, 1, 0, 1e-6, 10, &r, &e, nullptr, nullptr, f);
       },
       NE_BAD_PARAM, "argument progress"},
      {"d01akc limit", [&](auto* q, auto* f) { d01akc(square, 0, 1, 0, 1e-6, -3, &r, &e, q, f); },
       NE_INT_ARG_LT, "max_num_subint = -3"},
      {"d01alc nbrkpts",
       [&](auto* q, auto* f) { d01alc(square, 0, 1, -1, pts, 0, 1e-6, 10, &r, &e, q, f); },
       NE_INT_ARG_LT, "nbrkpts must not be less than 0"},
      {"d01alc limit",
       [&](auto* q, auto* f) { d01alc(square, 0, 1, 2, pts, 0, 1e-6, 2, &r, &e, q, f); },
       NE_2_INT_ARG_LE, "max_num_subint = 2 while nbrkpts = 2"},
      {"d01alc null brkpts",
       [&](auto* q, auto* f) { d01alc(square, 0, 1, 1, nullptr, 0, 1e-6, 10, &r, &e, q, f); },
       NE_BAD_PARAM, "argument brkpts"},
      {"d01alc outside",
       [&](auto* q, auto* f) { d01alc(square, 0, 1, 2, pts, 0, 1e-6, 10, &r, &e, q, f); },
       NE_QUAD_BRKPTS_INVAL, "break point"},
      {"d01amc boundinf",
       [&](auto* q, auto* f) { d01amc(square, 0, Zem_Sine, 0, 1e-6, 10, &r, &e, q, f); },
       NE_BAD_PARAM, "argument boundinf"},
      {"d01anc wt_func",
       [&](auto* q, auto* f) { d01anc(square, 0, 1, 2, Zem_Alg, 0, 1e-6, 10, &r, &e, q, f); },
       NE_BAD_PARAM, "argument wt_func"},
      {"d01apc limit",
       [&](auto* q, auto* f) { d01apc(square, 0, 1, 0, 0, Zem_Alg, 0, 1e-6, 1, &r, &e, q, f); },
       NE_INT_ARG_LT, "max_num_subint must not be less than 2"},
      {"d01apc b <= a",
       [&](auto* q, auto* f) { d01apc(square, 1, 1, 0, 0, Zem_Alg, 0, 1e-6, 10, &r, &e, q, f); },
       NE_2_REAL_ARG_LE, "b > a"},
      {"d01apc alfa",
       [&](auto* q, auto* f) { d01apc(square, 0, 1, -1, 0, Zem_Alg, 0, 1e-6, 10, &r, &e, q, f); },
       NE_REAL_ARG_LE, "alfa must not be less than or equal to -1.0: alfa = -1"},
      {"d01apc beta",
       [&](auto* q, auto* f) { d01apc(square, 0, 1, 0, -2, Zem_Alg, 0, 1e-6, 10, &r, &e, q, f); },
       NE_REAL_ARG_LE, "beta"},
      {"d01apc wt_func",
       [&](auto* q, auto* f) { d01apc(square, 0, 1, 0, 0, Zem_Sine, 0, 1e-6, 10, &r, &e, q, f); },
       NE_BAD_PARAM, "argument wt_func"},
      {"d01aqc c = a",
       [&](auto* q, auto* f) { d01aqc(square, 0, 1, 0, 0, 1e-6, 10, &r, &e, q, f); },
       NE_3_REAL_ARG_CONS, "c != a and c != b"},
      {"d01asc per interval",
       [&](auto* q, auto* f) { d01asc(square, 0, 1, Zem_Sine, 10, 0, 1e-6, &r, &e, q, f); },
       NE_INT_ARG_LT, "maxsubint_per_int"},
      {"d01asc intervals",
       [&](auto* q, auto* f) { d01asc(square, 0, 1, Zem_Sine, 2, 10, 1e-6, &r, &e, q, f); },
       NE_INT_ARG_LT, "maxintervals must not be less than 3: maxintervals = 2"},
      {"d01asc epsabs",
       [&](auto* q, auto* f) { d01asc(square, 0, 1, Zem_Sine, 10, 10, 0.0, &r, &e, q, f); },
       NE_REAL_ARG_EQ, "epsabs must not be equal to 0.0"},
      {"d01ssc g",
       [&](auto* q, auto* f) { d01ssc(nullptr, 0, 1, Zem_Sine, 10, 10, 1e-6, &r, &e, q, nullptr, f); },
       NE_BAD_PARAM, "argument g"},
  };
  for (const auto& c : checks) {
    Zem_QuadProgress qp;
    std::memset(&qp, 0x5a, sizeof qp);  // stale contents
    ZemError fail{};
    c.call(&qp, &fail);
    EXPECT_EQ(fail.code, c.code) << c.what << ": " << fail.message;
    EXPECT_NE(std::string(fail.message).find(c.text), std::string::npos)
        << c.what << ": " << fail.message;
    // A refused call leaves a cleared record: nothing to free.
    if (std::string(c.what).find("progress") == std::string::npos) {
      EXPECT_EQ(qp.left, nullptr) << c.what;
      EXPECT_EQ(qp.subintervals, 0) << c.what;
    }
  }
}

// The fixed rules: their own checks, and d01bac and d01tac on an integrand.
TEST(D01Fixed, ChecksAndSums) {
  double w[10], x[10];
  const struct {
    int32_t rule;
    double a, b;
    int32_t n;
    int code;
    const char* text;
  } bad[] = {{Zem_Sine, 0, 1, 5, NE_BAD_PARAM, "argument quadrule"},
             {Zem_Legendre, 0, 1, 0, NE_INT_ARG_LT, "npts must not be less than 1"},
             {Zem_Legendre, 0, 1, 1001, NE_QUAD_GAUSS_NPTS_RULE, "not available"},
             {Zem_Rational, 1, 0, 5, NE_QUAD_GAUSS_CONS, "b != 0"},
             {Zem_Rational, 1, -1, 5, NE_QUAD_GAUSS_CONS, "a+b != 0"},
             {Zem_Laguerre, 1, 0, 5, NE_QUAD_GAUSS_CONS, "b != 0"},
             {Zem_Hermite, 1, -2, 5, NE_QUAD_GAUSS_CONS, "b > 0"}};
  for (const auto& c : bad) {
    ZemError fail{};
    d01bbc(c.rule, c.a, c.b, c.n, w, x, &fail);
    EXPECT_EQ(fail.code, c.code) << fail.message;
    EXPECT_NE(std::string(fail.message).find(c.text), std::string::npos) << fail.message;
  }
  ZemError fail{};
  d01bbc(Zem_Legendre, 0, 1, 5, nullptr, x, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);

  // int_0^inf exp(-x) / (1 + x) dx = e E1(1).
  const double e_e1 = 0.5963473623231940743410784993692794;
  fail = ZemError{};
  const double lag = d01bac(Zem_Laguerre, 0.0, 1.0, 40, [](double t) { return 1.0 / (1.0 + t); },
                            &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_NEAR(lag, e_e1, 1e-9);
  // Gauss-Legendre on a smooth integrand.
  EXPECT_NEAR(d01bac(Zem_Legendre, 0.0, 1.0, 20, expo, &fail), std::exp(1.0) - 1.0, 1e-15);
  EXPECT_EQ(d01bac(Zem_Legendre, 0.0, 1.0, 0, expo, &fail), 0.0);
  EXPECT_EQ(fail.code, NE_INT_ARG_LT);

  // d01tac: all abscissae in one call, comm passed through, and a stop.
  struct Data {
    int calls = 0;
    int32_t stop = 0;
  } data;
  auto vec = [](const double xs[], int32_t nx, double fv[], int32_t* iflag, void* comm) {
    auto* d = static_cast<Data*>(comm);
    ++d->calls;
    for (int32_t i = 0; i < nx; ++i) fv[i] = std::exp(xs[i]);
    if (d->stop) *iflag = d->stop;
  };
  double est = -1.0;
  fail = ZemError{};
  d01tac(Zem_Legendre, 0.0, 1.0, 20, vec, &data, &est, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(data.calls, 1);
  EXPECT_NEAR(est, std::exp(1.0) - 1.0, 1e-15);
  data.stop = -7;
  d01tac(Zem_Hermite, 0.0, 1.0, 20, vec, &data, &est, &fail);
  EXPECT_EQ(fail.code, NE_USER_STOP);
  EXPECT_EQ(fail.errnum, -7);
  EXPECT_EQ(est, 0.0);
}

TEST(D01FrameDeathTest, NullRecordAbortsOnRefusal) {
  double r, e;
  Zem_QuadProgress qp;
  EXPECT_DEATH(d01ajc(one, 0, 1, 0, 1e-6, 0, &r, &e, &qp, nullptr), "Program Aborted");
}

}  // namespace
