// Systems of nonlinear equations (c05nbc, c05tbc, c05pbc, c05ubc), the
// Jacobian check (c05zbc, c05zcc) and the guarded norm c05nct.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zeros/test_c05_problems.hpp"
#include "zem/c05.h"

namespace {

ZemError quiet() {
  ZemError e;
  std::memset(&e, 0, sizeof e);
  return e;
}

// The problem being solved, reached through comm or, for the forms without
// comm, through this pointer.
struct Problem {
  int prob = 0;
  int n = 0;
  long nf = 0, nj = 0;
  int stop_at = 0;  // stop (flag -stop_flag) at this evaluation, 0: never
  int32_t stop_flag = -1;
  void* expect_comm = nullptr;
  bool comm_ok = true;
};
thread_local Problem* g_prob = nullptr;

void step_count(Problem* p, int32_t* flag) {
  ++(*flag == 2 ? p->nj : p->nf);
  if (p->stop_at && p->nf + p->nj == p->stop_at) *flag = p->stop_flag;
}

void fun(int32_t n, const double x[], double fvec[], int32_t* flag) {
  c05test::system_f(g_prob->prob, n, x, fvec);
  step_count(g_prob, flag);
}
void fun_comm(int32_t n, const double x[], double fvec[], int32_t* flag, void* comm) {
  auto* p = static_cast<Problem*>(comm);
  p->comm_ok = p->comm_ok && comm == p->expect_comm;
  c05test::system_f(p->prob, n, x, fvec);
  step_count(p, flag);
}
void jac(int32_t n, const double x[], double fvec[], double fjac[], int32_t td, int32_t* flag) {
  if (*flag == 2)
    c05test::system_jac(g_prob->prob, n, x, fjac, td);
  else
    c05test::system_f(g_prob->prob, n, x, fvec);
  step_count(g_prob, flag);
}
void jac_comm(int32_t n, const double x[], double fvec[], double fjac[], int32_t td, int32_t* flag,
              void* comm) {
  auto* p = static_cast<Problem*>(comm);
  p->comm_ok = p->comm_ok && comm == p->expect_comm;
  if (*flag == 2)
    c05test::system_jac(p->prob, n, x, fjac, td);
  else
    c05test::system_f(p->prob, n, x, fvec);
  step_count(p, flag);
}

double norm(const std::vector<double>& v) {
  double s = 0;
  for (double t : v) s += t * t;
  return std::sqrt(s);
}

std::map<std::pair<int, int>, std::vector<double>> references() {
  std::map<std::pair<int, int>, std::vector<double>> out;
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/c05_system_roots.txt");
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream is(line);
    int p, n;
    is >> p >> n;
    std::vector<double> x(n);
    for (auto& v : x) is >> v;
    out[{p, n}] = x;
  }
  return out;
}

enum class Form { kNbc, kTbc, kPbc, kUbc };
const char* form_name(Form f) {
  switch (f) {
    case Form::kNbc: return "c05nbc";
    case Form::kTbc: return "c05tbc";
    case Form::kPbc: return "c05pbc";
    case Form::kUbc: return "c05ubc";
  }
  return "";
}

// One solve by the given routine; fjac is n by n with row length n + 1 so
// that tdfjac > n is exercised.
void solve(Form form, Problem& p, std::vector<double>& x, std::vector<double>& fvec, double xtol,
           ZemError& fail) {
  const int n = p.n;
  fvec.assign(n, NAN);
  std::vector<double> fjac(n * (n + 1), NAN);
  p.expect_comm = &p;
  g_prob = &p;
  switch (form) {
    case Form::kNbc: c05nbc(n, x.data(), fvec.data(), fun, xtol, &fail); break;
    case Form::kTbc: c05tbc(n, x.data(), fvec.data(), fun_comm, xtol, &p, &fail); break;
    case Form::kPbc: c05pbc(n, x.data(), fvec.data(), fjac.data(), n + 1, jac, xtol, &fail); break;
    case Form::kUbc:
      c05ubc(n, x.data(), fvec.data(), fjac.data(), n + 1, jac_comm, xtol, &p, &fail);
      break;
  }
  g_prob = nullptr;
}

// The More-Garbow-Hillstrom systems from 1 and 10 times their standard
// starts, by every form of the solver.  A run that ends well must be at the
// reference zero where one is known, and have a tiny residual otherwise; a
// run that does not must end with a catalogued code, with the residual no
// larger than at the start (only steps that reduce it are taken) and with
// fvec = f(x).
TEST(C05Systems, MoreGarbowHillstromSet) {
  const auto refs = references();
  ASSERT_GE(refs.size(), 10u);
  for (Form form : {Form::kNbc, Form::kTbc, Form::kPbc, Form::kUbc}) {
    long total_f = 0, total_j = 0;
    int successes = 0, runs = 0;
    for (const auto& c : c05test::system_cases()) {
      SCOPED_TRACE(std::string(form_name(form)) + " " + c.name + " n=" + std::to_string(c.n) +
                   " factor=" + std::to_string(c.factor));
      Problem p{c.prob, c.n};
      std::vector<double> x(c.n), f0(c.n), fvec, fx(c.n);
      c05test::start_point(c.prob, c.n, c.factor, x.data());
      c05test::system_f(c.prob, c.n, x.data(), f0.data());
      ZemError fail = quiet();
      solve(form, p, x, fvec, 1e-10, fail);
      ++runs;
      total_f += p.nf;
      total_j += p.nj;
      EXPECT_TRUE(p.comm_ok);
      c05test::system_f(c.prob, c.n, x.data(), fx.data());
      EXPECT_EQ(fx, fvec);
      EXPECT_LE(norm(fvec), norm(f0));
      const bool analytic = form == Form::kPbc || form == Form::kUbc;
      EXPECT_LE(p.nf, (analytic ? 100 : 200) * (c.n + 1) + (analytic ? 0 : c.n));
      if (fail.code != 0) {
        EXPECT_TRUE(fail.code == NE_XTOL_TOO_SMALL || fail.code == NE_NO_IMPROVEMENT ||
                    fail.code == NE_TOO_MANY_FUNC_EVAL)
            << fail.message;
        // Powell's singular system has its zero at the origin with a singular
        // Jacobian there: the method gets close but cannot certify it.
        if (c.prob == 2) {
          EXPECT_LT(norm(x), 1e-3);
        }
        std::printf("%s %s n=%d factor=%g: code %d, |f| = %.3e after %ld evaluations\n",
                    form_name(form), c.name, c.n, c.factor, fail.code, norm(fvec), p.nf);
        continue;
      }
      ++successes;
      auto it = refs.find({c.prob, c.n});
      if (it != refs.end()) {
        std::vector<double> xs = x, rs = it->second;
        if (c.prob == 7) {  // Chebyquad: zeros up to a permutation
          std::sort(xs.begin(), xs.end());
          std::sort(rs.begin(), rs.end());
        }
        double err = 0, scale = 1;
        for (int j = 0; j < c.n; ++j) {
          err = std::max(err, std::fabs(xs[j] - rs[j]));
          scale = std::max(scale, std::fabs(rs[j]));
        }
        EXPECT_LE(err, 1e-8 * scale);
      } else {
        EXPECT_LE(norm(fvec), 1e-8 * std::max(1.0, norm(f0)));
      }
    }
    // All but a few hard starts are solved.
    EXPECT_GE(successes, runs - 8) << form_name(form);
    std::printf("%s: %d of %d solved, %ld evaluations, %ld Jacobians\n", form_name(form),
                successes, runs, total_f, total_j);
  }
}

TEST(C05Systems, DifferenceAndAnalyticJacobiansAgree) {
  for (int prob : {1, 5, 9, 13, 14}) {
    const int n = prob == 1 ? 2 : prob == 5 ? 3 : 10;
    Problem p1{prob, n}, p2{prob, n};
    std::vector<double> x1(n), x2(n), fv;
    c05test::start_point(prob, n, 1.0, x1.data());
    x2 = x1;
    ZemError fail = quiet();
    solve(Form::kNbc, p1, x1, fv, 1e-12, fail);
    EXPECT_EQ(fail.code, 0);
    solve(Form::kPbc, p2, x2, fv, 1e-12, fail);
    EXPECT_EQ(fail.code, 0);
    for (int j = 0; j < n; ++j) EXPECT_NEAR(x1[j], x2[j], 1e-10 * std::max(1.0, std::fabs(x1[j])));
    // Differences cost n evaluations per Jacobian.
    EXPECT_GT(p1.nf, p2.nf);
  }
}

TEST(C05Systems, OneUnknown) {
  auto f = [](int32_t, const double x[], double fvec[], int32_t*) { fvec[0] = x[0] * x[0] - 2.0; };
  double x = 1.0, fv = 0.0;
  ZemError fail = quiet();
  c05nbc(1, &x, &fv, +f, 1e-12, &fail);
  EXPECT_EQ(fail.code, 0) << fail.message;
  EXPECT_NEAR(x, std::sqrt(2.0), 4e-16);
  auto j = [](int32_t, const double x[], double fvec[], double fjac[], int32_t, int32_t* flag) {
    if (*flag == 2)
      fjac[0] = 2.0 * x[0];
    else
      fvec[0] = x[0] * x[0] - 2.0;
  };
  double fj = 0.0;
  x = 1.0;
  c05pbc(1, &x, &fv, &fj, 1, +j, 1e-12, &fail);
  EXPECT_EQ(fail.code, 0) << fail.message;
  EXPECT_NEAR(x, std::sqrt(2.0), 4e-16);
  EXPECT_EQ(std::fabs(fj), 1.0);  // Q of a 1 by 1 factorisation
}

TEST(C05Systems, UserStopOnTheFirstCall) {
  for (Form form : {Form::kNbc, Form::kTbc, Form::kPbc, Form::kUbc}) {
    Problem p{1, 2};
    p.stop_at = 1;
    p.stop_flag = -7;
    std::vector<double> x = {-1.2, 1.0}, fv;
    ZemError fail = quiet();
    solve(form, p, x, fv, 1e-10, fail);
    EXPECT_EQ(fail.code, NE_USER_STOP);
    EXPECT_EQ(fail.errnum, -7);
    EXPECT_STREQ(fail.message,
                 "NE_USER_STOP:\n  User requested termination: the user flag was set to -7.");
    EXPECT_EQ(p.nf + p.nj, 1);
    EXPECT_EQ(x[0], -1.2);
  }
}

TEST(C05Systems, UserStopLaterKeepsAConsistentPoint) {
  // Stops inside a difference Jacobian and inside the inner loop: x is the
  // last accepted point and fvec = f(x).
  for (int at : {2, 6, 9, 14}) {
    for (Form form : {Form::kNbc, Form::kPbc}) {
      Problem p{4, 4};
      p.stop_at = at;
      p.stop_flag = -3;
      std::vector<double> x(4), fv, fx(4);
      c05test::start_point(4, 4, 1.0, x.data());
      ZemError fail = quiet();
      solve(form, p, x, fv, 1e-10, fail);
      EXPECT_EQ(fail.code, NE_USER_STOP);
      EXPECT_EQ(fail.errnum, -3);
      c05test::system_f(4, 4, x.data(), fx.data());
      EXPECT_EQ(fx, fv) << at;
    }
  }
}

TEST(C05Systems, EvaluationLimit) {
  // exp(x) = 0 has no solution; every step makes progress towards -inf.
  auto f = [](int32_t, const double x[], double fvec[], int32_t*) { fvec[0] = std::exp(x[0]); };
  double x = 0.0, fv = 0.0;
  ZemError fail = quiet();
  c05nbc(1, &x, &fv, +f, 1e-10, &fail);
  EXPECT_EQ(fail.code, NE_TOO_MANY_FUNC_EVAL);
  EXPECT_NE(std::strstr(fail.message, "limit of 200*(n+1) calls"), nullptr) << fail.message;
  EXPECT_EQ(fail.errnum, 0);
  auto j = [](int32_t, const double x[], double fvec[], double fjac[], int32_t, int32_t* flag) {
    if (*flag == 2)
      fjac[0] = std::exp(x[0]);
    else
      fvec[0] = std::exp(x[0]);
  };
  double fj = 0;
  x = 0.0;
  c05pbc(1, &x, &fv, &fj, 1, +j, 1e-10, &fail);
  EXPECT_EQ(fail.code, NE_TOO_MANY_FUNC_EVAL);
  EXPECT_NE(std::strstr(fail.message, "limit of 100*(n+1) calls"), nullptr) << fail.message;
}

TEST(C05Systems, NoRealZeroEndsWithoutProgress) {
  // x^2 + 1 = 0 (and Chebyquad with n = 8, which has no zero).
  auto f = [](int32_t, const double x[], double fvec[], int32_t*) { fvec[0] = x[0] * x[0] + 1.0; };
  double x = 3.0, fv = 0.0;
  ZemError fail = quiet();
  c05nbc(1, &x, &fv, +f, 1e-10, &fail);
  EXPECT_TRUE(fail.code == NE_NO_IMPROVEMENT || fail.code == NE_XTOL_TOO_SMALL) << fail.message;
  EXPECT_NEAR(x, 0.0, 1e-3);
  Problem p{7, 8};
  std::vector<double> xs(8), fvs;
  c05test::start_point(7, 8, 1.0, xs.data());
  solve(Form::kNbc, p, xs, fvs, 1e-10, fail);
  EXPECT_TRUE(fail.code == NE_NO_IMPROVEMENT || fail.code == NE_XTOL_TOO_SMALL) << fail.message;
  if (fail.code == NE_NO_IMPROVEMENT) {
    EXPECT_STREQ(fail.message,
                 "NE_NO_IMPROVEMENT:\n  The iteration is not making good progress.\n"
                 "  The final point may be near a local minimum of the norm of the residuals;\n"
                 "  try another starting point.");
  }
}

TEST(C05Systems, ZeroXtolNeedsAnExactZero) {
  Problem p{5, 3};
  std::vector<double> x = {-1.0, 0.0, 0.0}, fv;
  ZemError fail = quiet();
  solve(Form::kNbc, p, x, fv, 0.0, fail);
  EXPECT_TRUE(fail.code == 0 || fail.code == NE_XTOL_TOO_SMALL || fail.code == NE_NO_IMPROVEMENT)
      << fail.message;
  if (fail.code == 0) {
    EXPECT_EQ(norm(fv), 0.0);
  }
  EXPECT_NEAR(x[0], 1.0, 1e-12);
  if (fail.code == NE_XTOL_TOO_SMALL) {
    EXPECT_NE(std::strstr(fail.message, "xtol = 0.00000e+00."), nullptr) << fail.message;
  }
}

TEST(C05Systems, ArgumentErrors) {
  double x[2] = {0, 0}, fv[2], fj[4];
  ZemError fail = quiet();
  c05nbc(0, x, fv, fun, -1.0, &fail);  // n is checked before xtol
  EXPECT_EQ(fail.code, NE_INT_ARG_LE);
  EXPECT_STREQ(fail.message, "NE_INT_ARG_LE:\n  On entry, n must not be less than or equal to 0: n = 0.");
  c05nbc(2, x, fv, fun, -1.0, &fail);
  EXPECT_EQ(fail.code, NE_REAL_ARG_LT);
  EXPECT_STREQ(fail.message, "NE_REAL_ARG_LT:\n  On entry, xtol must not be less than 0.0: xtol = -1.");
  c05pbc(2, x, fv, fj, 1, jac, -1.0, &fail);
  EXPECT_EQ(fail.code, NE_2_INT_ARG_LT);
  EXPECT_STREQ(fail.message,
               "NE_2_INT_ARG_LT:\n  On entry, tdfjac = 1 while n = 2.\n  These arguments must satisfy tdfjac >= n.");
  c05ubc(-3, x, fv, fj, 1, jac_comm, 1e-8, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_INT_ARG_LE);
  c05tbc(2, nullptr, fv, fun_comm, 1e-8, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "argument x "), nullptr);
  c05nbc(2, x, nullptr, fun, 1e-8, &fail);
  EXPECT_NE(std::strstr(fail.message, "argument fvec "), nullptr);
  c05pbc(2, x, fv, nullptr, 2, jac, 1e-8, &fail);
  EXPECT_NE(std::strstr(fail.message, "argument fjac "), nullptr);
  c05ubc(2, x, fv, fj, 2, nullptr, 1e-8, nullptr, &fail);
  EXPECT_NE(std::strstr(fail.message, "argument f "), nullptr);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
}

TEST(C05Systems, HugeOrderFailsToAllocate) {
  double x[1] = {0}, fv[1];
  ZemError fail = quiet();
  c05nbc(2000000000, x, fv, fun, 1e-8, &fail);
  EXPECT_EQ(fail.code, NE_ALLOC_FAIL);
  EXPECT_STREQ(fail.message, "NE_ALLOC_FAIL:\n  Dynamic memory allocation failed.");
}

// ---------------------------------------------------------------- c05zbc

TEST(C05zbc, CorrectJacobiansPassWrongOnesFail) {
  for (const auto& c : c05test::system_cases()) {
    if (c.factor != 1.0) continue;
    SCOPED_TRACE(c.name);
    Problem p{c.prob, c.n};
    std::vector<double> x(c.n), fv(c.n), fj(c.n * (c.n + 2));
    c05test::start_point(c.prob, c.n, 1.0, x.data());
    if (c.prob == 6) x.assign(c.n, 0.5);  // a point where no term vanishes
    ZemError fail = quiet();
    g_prob = &p;
    c05zbc(c.n, x.data(), fv.data(), fj.data(), c.n + 2, jac, &fail);
    g_prob = nullptr;
    EXPECT_EQ(fail.code, 0) << fail.message;
    // The caller's arrays hold f and the Jacobian at x.
    std::vector<double> f0(c.n), j0(c.n * c.n);
    c05test::system_f(c.prob, c.n, x.data(), f0.data());
    c05test::system_jac(c.prob, c.n, x.data(), j0.data(), c.n);
    EXPECT_EQ(fv, f0);
    for (int i = 0; i < c.n; ++i)
      for (int k = 0; k < c.n; ++k) EXPECT_EQ(fj[i * (c.n + 2) + k], j0[i * c.n + k]);
    EXPECT_EQ(p.nj, c.n > 1 ? 3 : 2);
  }
}

// A Jacobian with one wrong element, reached through comm.
struct Wrong {
  int prob, n, row, col;
  double delta;
};
void wrong_jac(int32_t n, const double x[], double fvec[], double fjac[], int32_t td, int32_t* flag,
               void* comm) {
  auto* w = static_cast<Wrong*>(comm);
  if (*flag == 2) {
    c05test::system_jac(w->prob, n, x, fjac, td);
    fjac[w->row * td + w->col] += w->delta;
  } else {
    c05test::system_f(w->prob, n, x, fvec);
  }
}

TEST(C05zcc, WrongElementsAreFound) {
  int found = 0, tried = 0;
  for (int prob : {1, 3, 4, 5, 9, 11, 13, 14}) {
    const int n = (prob == 1 || prob == 3) ? 2 : prob == 5 ? 3 : prob == 4 ? 4 : 10;
    std::vector<double> x(n), fv(n), fj(n * n);
    c05test::start_point(prob, n, 1.0, x.data());
    for (int row = 0; row < n; row += 3) {
      Wrong w{prob, n, row, (row + 1) % n, 1.0 + std::fabs(x[(row + 1) % n])};
      ZemError fail = quiet();
      c05zcc(n, x.data(), fv.data(), fj.data(), n, wrong_jac, &w, &fail);
      ++tried;
      if (fail.code == NE_DERIV_ERRORS) {
        ++found;
        EXPECT_STREQ(fail.message,
                     "NE_DERIV_ERRORS:\n  Large errors were found in the user-supplied derivatives.\n"
                     "  Check the coding of the derivatives.");
      } else {
        // A wrong element can only hide where f_row(x) is zero.
        std::vector<double> f0(n);
        c05test::system_f(prob, n, x.data(), f0.data());
        EXPECT_EQ(f0[row], 0.0) << prob << " " << row;
      }
    }
  }
  EXPECT_GE(found, tried - 2);
}

TEST(C05zbc, ArgumentsAndUserStop) {
  double x[2] = {1, 2}, fv[2], fj[4];
  ZemError fail = quiet();
  c05zbc(0, x, fv, fj, 2, jac, &fail);
  EXPECT_EQ(fail.code, NE_INT_ARG_LT);  // under code 11, with the text of row 12
  EXPECT_STREQ(fail.message, "NE_INT_ARG_LE:\n  On entry, n must not be less than or equal to 0: n = 0.");
  c05zbc(2, x, fv, fj, 1, jac, &fail);
  EXPECT_EQ(fail.code, NE_2_INT_ARG_LT);
  c05zbc(2, x, fv, fj, 2, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  for (int at : {1, 2, 3, 5}) {
    Problem p{1, 2};
    p.stop_at = at;
    p.stop_flag = -11;
    p.expect_comm = &p;
    c05zcc(2, x, fv, fj, 2, jac_comm, &p, &fail);
    EXPECT_EQ(fail.code, NE_USER_STOP);
    EXPECT_EQ(fail.errnum, -11);
    EXPECT_EQ(p.nf + p.nj, at);
    EXPECT_TRUE(p.comm_ok);
  }
  // n = 1: only the second direction is tried.
  Problem p{10, 1};
  g_prob = &p;
  double x1 = 0.3, f1, j1;
  c05zbc(1, &x1, &f1, &j1, 1, jac, &fail);
  EXPECT_EQ(fail.code, 0) << fail.message;
  EXPECT_EQ(p.nj + p.nf, 4);
  g_prob = nullptr;
}

// ---------------------------------------------------------------- c05nct

TEST(C05nct, OrdinaryDataMatchesTheNaiveNorm) {
  std::vector<double> x;
  for (int i = 1; i <= 50; ++i) x.push_back(std::sin(i * 1.7) * std::pow(10.0, (i % 7) - 3));
  double s = 0;
  for (double v : x) s += v * v;
  EXPECT_NEAR(c05nct(50, x.data()), std::sqrt(s), 2e-15 * std::sqrt(s));
  const double t[2] = {3.0, 4.0};
  EXPECT_EQ(c05nct(2, t), 5.0);
  EXPECT_EQ(c05nct(0, t), 0.0);
  EXPECT_EQ(c05nct(-4, nullptr), 0.0);
  EXPECT_TRUE(std::isnan(c05nct(2, nullptr)));
}

TEST(C05nct, NearOverflowAndUnderflow) {
  // Scaled Pythagorean triples: exact answers where the naive sum of
  // squares overflows or underflows.
  for (int e : {1000, 600, 70, -70, -600, -1060}) {
    const double s = std::ldexp(1.0, e);
    const double t[2] = {3.0 * s, 4.0 * s};
    EXPECT_EQ(c05nct(2, t), 5.0 * s) << e;
  }
  // Many equal large elements, just below the overflow of the result.
  std::vector<double> big(100, 1e306);
  EXPECT_NEAR(c05nct(100, big.data()), 1e307, 1e307 * 1e-15);
  // A mixture of the three ranges: the large term dominates.
  const double mix[4] = {1e-200, 2.0, 1e25, 3e-21};
  EXPECT_NEAR(c05nct(4, mix), 1e25, 1e10);
  const double small[3] = {1e-20, 2e-20, 2e-20};
  EXPECT_NEAR(c05nct(3, small), 3e-20, 3e-20 * 1e-15);
  const double mid_small[2] = {3e-10, 4e-20};
  EXPECT_NEAR(c05nct(2, mid_small), 3e-10, 1e-24);
  const double inf[2] = {1.0, INFINITY};
  EXPECT_EQ(c05nct(2, inf), INFINITY);
  const double nan[2] = {1.0, NAN};
  EXPECT_TRUE(std::isnan(c05nct(2, nan)));
}

}  // namespace
