// Zero of a function on a bracket: c05adc, c05sdc and the reverse-
// communication engine c05azc.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "tests/zeros/test_c05_problems.hpp"
#include "zem/c05.h"
#include "zeros/bracket.hpp"

namespace {

struct Counter {
  Counter(int f = 0, int m = 0) : fam(f), n(m) {}
  int fam, n;
  long calls = 0;
  std::vector<double> points;
};
thread_local Counter* g_counter = nullptr;

double counted(double x) {
  ++g_counter->calls;
  g_counter->points.push_back(x);
  return c05test::scalar_f(g_counter->fam, g_counter->n, x);
}

double counted_comm(double x, void* comm) {
  auto* c = static_cast<Counter*>(comm);
  ++c->calls;
  c->points.push_back(x);
  return c05test::scalar_f(c->fam, c->n, x);
}

ZemError quiet() {
  ZemError e;
  std::memset(&e, 0, sizeof e);
  return e;
}

std::vector<c05test::ScalarCase> cases() {
  auto v = c05test::load_scalar_cases(std::string(ZEM_TEST_DATA) + "/c05_bracket_roots.txt");
  EXPECT_GT(v.size(), 100u) << "reference file missing or short";
  return v;
}

// Every case of the test set: the zero within xtol of the reference, and a
// number of evaluations that stays within a small multiple of bisection's.
TEST(C05adc, AlefeldPotraShiSetAgainstReferences) {
  const double xtol = 1e-12;
  long total = 0;
  for (const auto& c : cases()) {
    Counter cnt{c.fam, c.n};
    g_counter = &cnt;
    ZemError fail = quiet();
    double x = NAN;
    c05adc(c.a, c.b, &x, counted, xtol, 0.0, &fail);
    g_counter = nullptr;
    SCOPED_TRACE("family " + std::to_string(c.fam) + " n " + std::to_string(c.n));
    ASSERT_EQ(fail.code, 0) << fail.message;
    EXPECT_STREQ(fail.message, "NE_NOERROR:\n  No error.");
    if (c.fam == 13) {
      // x exp(-1/x^2) underflows to exact zero near its root: any such point
      // is a zero in this arithmetic.
      EXPECT_EQ(c05test::scalar_f(c.fam, c.n, x), 0.0);
    } else {
      EXPECT_LE(std::fabs(x - c.root), xtol + 4e-16 * std::fabs(c.root)) << c.root_text;
    }
    const double halvings = std::ceil(std::log2((c.b - c.a) / xtol));
    EXPECT_LE(cnt.calls, 4 * (long(halvings) + 2));
    total += cnt.calls;
  }
  RecordProperty("total_evaluations", std::to_string(total));
  std::printf("c05adc: %ld evaluations over the test set\n", total);
}

// c05sdc gives the same points as c05adc and hands comm on unchanged.
TEST(C05sdc, SameSearchAsC05adcWithComm) {
  for (const auto& c : cases()) {
    Counter a{c.fam, c.n}, b{c.fam, c.n};
    g_counter = &a;
    ZemError fa = quiet(), fb = quiet();
    double xa = 0, xb = 0;
    c05adc(c.a, c.b, &xa, counted, 1e-10, 0.0, &fa);
    g_counter = nullptr;
    c05sdc(c.a, c.b, &xb, counted_comm, 1e-10, 0.0, &b, &fb);
    EXPECT_EQ(fa.code, fb.code);
    EXPECT_EQ(xa, xb);
    EXPECT_EQ(a.points, b.points);
  }
}

TEST(C05adc, ExactZeroAtAnEndReturnsAtOnce) {
  Counter cnt;
  g_counter = &cnt;
  ZemError fail = quiet();
  double x = 0;
  auto lin = [](double t) { ++g_counter->calls; return t - 1.0; };
  c05adc(1.0, 3.0, &x, +lin, 1e-10, 0.0, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(cnt.calls, 1);
  cnt.calls = 0;
  c05adc(-2.0, 1.0, &x, +lin, 1e-10, 0.0, &fail);
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(cnt.calls, 2);
  g_counter = nullptr;
}

TEST(C05adc, FtolStopsEarlyAtASmallResidual) {
  Counter cnt{16, 0};
  g_counter = &cnt;
  ZemError fail = quiet();
  double x = 0;
  c05adc(0.0, 1.0, &x, counted, 1e-14, 1e-3, &fail);
  const long loose = cnt.calls;
  EXPECT_EQ(fail.code, 0);
  EXPECT_LT(std::fabs(std::cos(x) - x), 1e-3);
  cnt.calls = 0;
  c05adc(0.0, 1.0, &x, counted, 1e-14, 0.0, &fail);
  EXPECT_LT(loose, cnt.calls);
  g_counter = nullptr;
}

TEST(C05adc, InterpolationRunsWhenSignsDiffer) {
  // f(a) = -1, f(b) = 0.5 on a straight line: the first secant step lands
  // on the zero.
  auto line = [](double t) { ++g_counter->calls; return 1.5 * t - 1.0; };
  Counter cnt;
  g_counter = &cnt;
  ZemError fail = quiet();
  double x = 0;
  c05adc(0.0, 1.0, &x, +line, 1e-12, 0.0, &fail);
  g_counter = nullptr;
  EXPECT_EQ(fail.code, 0);
  EXPECT_NEAR(x, 2.0 / 3.0, 1e-15);
  EXPECT_LE(cnt.calls, 4);
}

double cos_minus_x(double t) { return std::cos(t) - t; }
double sq_minus_2(double t) { return t * t - 2.0; }  // no double makes it 0
double pole_at_one(double t) { return 1.0 / (t - 1.0); }

TEST(C05adc, ArgumentErrorsInOrder) {
  ZemError fail = quiet();
  double x = 7.0;
  c05adc(0.0, 0.0, &x, cos_minus_x, 0.0, 0.0, &fail);  // xtol is checked first
  EXPECT_EQ(fail.code, NE_REAL_ARG_LE);
  EXPECT_STREQ(fail.message, "NE_REAL_ARG_LE:\n  On entry, xtol must not be less than or equal to 0.0: xtol = 0.");
  c05adc(0.5, 0.5, &x, cos_minus_x, 1e-8, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_2_REAL_ARG_EQ);
  EXPECT_NE(std::strstr(fail.message, "a = 0.5 while b = 0.5"), nullptr) << fail.message;
  c05adc(0.0, 1.0, nullptr, cos_minus_x, 1e-8, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "argument x "), nullptr);
  c05adc(0.0, 1.0, &x, nullptr, 1e-8, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  EXPECT_NE(std::strstr(fail.message, "argument f "), nullptr);
  EXPECT_EQ(x, 7.0);
  c05adc(0.0, 1.0, &x, cos_minus_x, std::nan(""), 0.0, &fail);
  EXPECT_EQ(fail.code, NE_REAL_ARG_LE);
}

TEST(C05adc, SameSignAtBothEnds) {
  ZemError fail = quiet();
  double x = 0;
  c05adc(1.0, 2.0, &x, cos_minus_x, 1e-8, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_FUNC_END_VAL);
  EXPECT_STREQ(fail.message,
               "NE_FUNC_END_VAL:\n  On entry, f(a) and f(b) have the same sign, with f(a) != 0.0.\n"
               "  The interval does not bracket a zero.");
  EXPECT_EQ(x, 2.0);  // the last point tried
}

TEST(C05adc, PoleGivesProbablePoleWithTheRowText) {
  ZemError fail = quiet();
  double x = 0;
  c05adc(0.0, 3.0, &x, pole_at_one, 1e-10, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_PROBABLE_POLE);
  // Reported with a null message: the slot of the row reaches the reader.
  EXPECT_NE(std::strstr(fail.message, "The interval %s probably contains a pole"), nullptr)
      << fail.message;
  EXPECT_NEAR(x, 1.0, 1e-9);
}

TEST(C05adc, XtolTooSmallForTheArithmetic) {
  ZemError fail = quiet();
  double x = 0;
  c05adc(1.0, 2.0, &x, sq_minus_2, 1e-20, 0.0, &fail);
  EXPECT_EQ(fail.code, NE_XTOL_TOO_SMALL);
  EXPECT_NE(std::strstr(fail.message, "xtol = 1.00000e-20."), nullptr) << fail.message;
  EXPECT_NEAR(x, std::sqrt(2.0), 4.5e-16);
}

TEST(C05adc, NullRecordAbortsOnError) {
  double x = 0;
  EXPECT_DEATH(c05adc(1.0, 2.0, &x, cos_minus_x, 1e-8, 0.0, nullptr), "Program Aborted");
}

TEST(C05adc, NanFromTheFunctionEndsTheSearch) {
  // NaN inside the bracket: the search still ends, with a catalogued code.
  auto f = [](double t) { return (t > 0.3 && t < 0.35) ? std::nan("") : t - 0.5; };
  ZemError fail = quiet();
  double x = 0;
  c05adc(0.0, 1.0, &x, +f, 1e-12, 0.0, &fail);
  EXPECT_TRUE(fail.code == 0 || fail.code == NE_XTOL_TOO_SMALL || fail.code == NE_PROBABLE_POLE)
      << fail.code;
}

// ---------------------------------------------------------------- c05azc

// Runs the reverse-communication loop and returns the points asked for.
std::vector<double> drive(double a, double b, double (*f)(double), double xtol, int ir,
                          ZemError& fail, double& x, double& y, int start) {
  std::vector<double> pts;
  double c[17] = {};
  int32_t ind = start;
  x = a;
  y = b;
  double fx = 0.0;
  if (start == -1) {
    fx = f(a);
    c[0] = f(b);
  }
  for (int guard = 0; guard < 1000; ++guard) {
    c05azc(&x, &y, &fx, xtol, ir, c, &ind, &fail);
    if (ind == 0 || fail.code != 0) break;
    pts.push_back(x);
    fx = f(x);
  }
  return pts;
}

TEST(C05azc, ProtocolFromBothStartsMatchesC05adc) {
  ZemError fail = quiet();
  double x, y;
  drive(0.0, 1.0, cos_minus_x, 1e-12, 1, fail, x, y, 1);
  EXPECT_EQ(fail.code, 0);
  const double root = 0.7390851332151607;
  EXPECT_NEAR(x, root, 1e-12);
  EXPECT_LE(std::fabs(x - y), 1e-12);  // the final bracket
  EXPECT_TRUE((cos_minus_x(x) <= 0) != (cos_minus_x(y) <= 0) || cos_minus_x(x) == 0);

  // Started with both values known, the engine asks for the same points as
  // c05adc (which evaluates a and b itself).
  double xm, ym;
  auto pts = drive(0.0, 1.0, cos_minus_x, 1e-12, 1, fail, xm, ym, -1);
  Counter cnt{16, 0};
  g_counter = &cnt;
  double xa = 0;
  c05adc(0.0, 1.0, &xa, counted, 1e-12, 0.0, &fail);
  g_counter = nullptr;
  ASSERT_GE(cnt.points.size(), 2u);
  std::vector<double> tail(cnt.points.begin() + 2, cnt.points.end());
  EXPECT_EQ(pts, tail);
  EXPECT_EQ(xm, xa);
}

TEST(C05azc, ToleranceModes) {
  // Tolerances on a zero of large magnitude, sqrt(2)*1e6.
  auto big = [](double t) { return t * t - 2.0e12; };
  const double root = 1414213.5623730950488;
  ZemError fail = quiet();
  double x, y;
  drive(0.0, 2.0e6, +big, 1e-10, 2, fail, x, y, 1);
  EXPECT_EQ(fail.code, 0);
  EXPECT_LE(std::fabs(x - y), 1e-10 * std::fabs(x) * (1 + 1e-12));
  drive(0.0, 2.0e6, +big, 1e-10, 0, fail, x, y, 1);
  EXPECT_EQ(fail.code, 0);
  EXPECT_LE(std::fabs(x - root), 1e-10 * root);
  // An absolute 1e-10 at 1e6 is below the spacing of doubles there.
  drive(0.0, 2.0e6, +big, 1e-12, 1, fail, x, y, 1);
  EXPECT_EQ(fail.code, NE_XTOL_TOO_SMALL);
}

TEST(C05azc, BadArguments) {
  ZemError fail = quiet();
  double x = 0, y = 1, fx = 0, c[17] = {};
  int32_t ind = 5;
  c05azc(&x, &y, &fx, 1e-8, 1, c, &ind, &fail);
  EXPECT_EQ(fail.code, NE_ARG_INVALID);
  EXPECT_STREQ(fail.message,
               "NE_ARG_INVALID:\n  On entry, ind = 5.\n  Constraint: ind must be one of -1, 1, 2, 3, 4.");
  EXPECT_EQ(ind, 5);
  ind = 0;
  c05azc(&x, &y, &fx, 1e-8, 1, c, &ind, &fail);
  EXPECT_EQ(fail.code, NE_ARG_INVALID);
  ind = 1;
  c05azc(&x, &y, &fx, -1.0, 1, c, &ind, &fail);
  EXPECT_EQ(fail.code, NE_REAL_ARG_LE);
  EXPECT_EQ(ind, 0);
  ind = 1;
  c05azc(&x, &y, &fx, 1e-8, 3, c, &ind, &fail);
  EXPECT_EQ(fail.code, NE_ARG_INVALID);
  EXPECT_NE(std::strstr(fail.message, "ir must be one of 0, 1, 2"), nullptr);
  EXPECT_EQ(ind, 0);
  ind = 1;
  c05azc(&x, &y, &fx, 1e-8, 1, nullptr, &ind, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
  c05azc(&x, &y, &fx, 1e-8, 1, c, nullptr, &fail);
  EXPECT_EQ(fail.code, NE_BAD_PARAM);
}

TEST(C05azc, SameSignAndExactZeros) {
  ZemError fail = quiet();
  double x, y;
  drive(1.0, 2.0, cos_minus_x, 1e-8, 1, fail, x, y, 1);
  EXPECT_EQ(fail.code, NE_FUNC_END_VAL);
  EXPECT_NE(std::strstr(fail.message, "f(x) and f(y) have the same sign"), nullptr);
  auto lin = [](double t) { return t - 2.0; };
  drive(2.0, 5.0, +lin, 1e-8, 1, fail, x, y, 1);  // f at the first end is 0
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(x, 2.0);
  EXPECT_EQ(y, 2.0);
  drive(0.0, 2.0, +lin, 1e-8, 1, fail, x, y, 1);  // f at the second end is 0
  EXPECT_EQ(fail.code, 0);
  EXPECT_EQ(x, 2.0);
}

TEST(C05azc, PoleIsReportedAndYIsLeft) {
  ZemError fail = quiet();
  double x, y;
  drive(0.0, 3.0, pole_at_one, 1e-10, 1, fail, x, y, 1);
  EXPECT_EQ(fail.code, NE_PROBABLE_POLE);
  EXPECT_NEAR(x, 1.0, 1e-9);
}

}  // namespace
