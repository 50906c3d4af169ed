// The C++ cores under the c05 chapter: level-1 kernels, the difference
// Jacobian and the options of the hybrid core that the exported routines
// fix (mode, band widths, printing).
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "linalg/level1.hpp"
#include "tests/zeros/test_c05_problems.hpp"
#include "zeros/bracket.hpp"
#include "zeros/hybrid.hpp"

namespace {

namespace b1 = zem::blas1;

TEST(Level1, NormsAgainstNaiveAndScaledData) {
  std::vector<double> x;
  for (int i = 0; i < 37; ++i) x.push_back(std::cos(i * 0.9) * (i % 5 + 1));
  double s = 0;
  for (double v : x) s += v * v;
  EXPECT_NEAR(b1::nrm2(37, x.data()), std::sqrt(s), 1e-15 * std::sqrt(s));
  EXPECT_NEAR(b1::nrm2_3acc(37, x.data()), std::sqrt(s), 1e-15 * std::sqrt(s));
  // Strided access reads every third element.
  double t = 0;
  for (int i = 0; i < 37; i += 3) t += x[i] * x[i];
  EXPECT_NEAR(b1::nrm2(13, x.data(), 3), std::sqrt(t), 1e-15 * std::sqrt(t));
  const double big[2] = {3e300, 4e300}, tiny[2] = {3e-300, 4e-300};
  EXPECT_NEAR(b1::nrm2(2, big), 5e300, 5e285);
  EXPECT_NEAR(b1::nrm2(2, tiny), 5e-300, 5e-315);
  EXPECT_EQ(b1::nrm2(0, big), 0.0);
}

TEST(Level1, PackedTriangleProductsAndSolve) {
  const long n = 5;
  // R(i,j) = 1 + i + 2j for i <= j, packed by rows.
  std::vector<double> r;
  for (long i = 0; i < n; ++i)
    for (long j = i; j < n; ++j) r.push_back(1.0 + i + 2.0 * j);
  std::vector<double> x = {1, -2, 0.5, 3, -1}, y(n), z(n), u(n);
  b1::tpmv_upper(n, r.data(), x.data(), y.data());
  b1::tpmv_upper_trans(n, r.data(), x.data(), z.data());
  for (long i = 0; i < n; ++i) {
    double a = 0, b = 0;
    for (long j = 0; j < n; ++j) {
      if (j >= i) a += (1.0 + i + 2.0 * j) * x[j];
      if (j <= i) b += (1.0 + j + 2.0 * i) * x[j];
    }
    EXPECT_DOUBLE_EQ(y[i], a);
    EXPECT_DOUBLE_EQ(z[i], b);
  }
  // Round trip: solve R u = R x.
  u = y;
  b1::tpsv_upper(n, r.data(), u.data(), [](long, double d) { return d; });
  for (long i = 0; i < n; ++i) EXPECT_NEAR(u[i], x[i], 1e-13);
  EXPECT_EQ(b1::packed_column_amax(n, r.data(), 3), 1.0 + 3 + 6);
  EXPECT_EQ(r[b1::packed_diag(n, 2)], 1.0 + 2 + 4);
}

struct Ctx {
  int prob, n;
  long flag0 = 0, flag1 = 0, flag2 = 0;
};
void eval(void* c, long n, const double* x, double* fvec, double* fjac, long ld, int32_t* flag) {
  auto* p = static_cast<Ctx*>(c);
  if (*flag == 0) ++p->flag0;
  if (*flag == 1) {
    ++p->flag1;
    c05test::system_f(p->prob, int(n), x, fvec);
  }
  if (*flag == 2) {
    ++p->flag2;
    c05test::system_jac(p->prob, int(n), x, fjac, int(ld));
  }
}

struct Arrays {
  explicit Arrays(long n) : store(6 * n + n * (n + 1) / 2, 1.0), fjac(n * n) {
    double* p = store.data();
    w = {p, p + n, p + 2 * n, p + 3 * n, p + 4 * n, p + 5 * n, p + 6 * n};
  }
  std::vector<double> store, fjac;
  zem::hybrid::Work w{};
};

TEST(HybridCore, BandedDifferencesMatchDenseOnABandedSystem) {
  // Broyden banded: 5 sub-diagonals and 1 super-diagonal.
  const long n = 12;
  Ctx ctx{14, int(n)};
  zem::hybrid::System sys{eval, &ctx, false};
  std::vector<double> x(n), f(n), dense(n * n), band(n * n), wa1(n), wa2(n), exact(n * n);
  c05test::start_point(14, int(n), 1.0, x.data());
  c05test::system_f(14, int(n), x.data(), f.data());
  const std::vector<double> x0 = x;
  long nd = 0, nb = 0;
  EXPECT_EQ(zem::hybrid::fdjac(sys, n, x.data(), f.data(), dense.data(), n, n - 1, n - 1, 0.0,
                               wa1.data(), wa2.data(), nd), 1);
  EXPECT_EQ(zem::hybrid::fdjac(sys, n, x.data(), f.data(), band.data(), n, 5, 1, 0.0, wa1.data(),
                               wa2.data(), nb), 1);
  EXPECT_EQ(x, x0);
  EXPECT_EQ(nd, n);
  EXPECT_EQ(nb, 7);
  c05test::system_jac(14, int(n), x.data(), exact.data(), int(n));
  for (long k = 0; k < n * n; ++k) {
    EXPECT_NEAR(dense[k], exact[k], 1e-6 * (1 + std::fabs(exact[k])));
    EXPECT_EQ(band[k], dense[k]);
  }
}

TEST(HybridCore, ScalingModesAndPrintCalls) {
  for (int mode : {1, 2}) {
    for (bool analytic : {false, true}) {
      const long n = 4;
      Ctx ctx{4, int(n)};
      zem::hybrid::System sys{eval, &ctx, analytic};
      Arrays a(n);
      std::vector<double> x(n), f(n);
      c05test::start_point(4, int(n), 1.0, x.data());
      zem::hybrid::Options opt;
      opt.xtol = 1e-10;
      opt.maxfev = 2000;
      opt.mode = mode;
      opt.ml = opt.mu = n - 1;
      opt.nprint = 3;
      zem::hybrid::Counts counts;
      const int st = zem::hybrid::solve(sys, n, x.data(), f.data(), a.fjac.data(), n, opt, a.w, counts);
      EXPECT_EQ(st, zem::hybrid::kSuccess);
      EXPECT_LT(b1::nrm2(n, f.data()), 1e-8);
      EXPECT_EQ(counts.nfev, ctx.flag1);
      EXPECT_EQ(counts.njev, ctx.flag2);
      EXPECT_GE(ctx.flag0, 2);  // the first iteration and the end
      // Q is orthogonal on exit.
      for (long i = 0; i < n; ++i)
        for (long k = 0; k < n; ++k) {
          const double d = b1::dot(n, &a.fjac[i], n, &a.fjac[k], n);
          EXPECT_NEAR(d, i == k ? 1.0 : 0.0, 1e-12);
        }
      if (mode == 1) {
        for (long j = 0; j < n; ++j) EXPECT_GT(a.w.diag[j], 0.0);
      }
    }
  }
}

TEST(HybridCore, RefusedInputMakesNoEvaluation) {
  const long n = 2;
  Ctx ctx{1, 2};
  zem::hybrid::System sys{eval, &ctx, false};
  Arrays a(n);
  std::vector<double> x = {-1.2, 1.0}, f(n);
  zem::hybrid::Options opt;
  opt.maxfev = 100;
  a.w.diag[1] = 0.0;  // mode 2 needs positive scale factors
  zem::hybrid::Counts counts;
  EXPECT_EQ(zem::hybrid::solve(sys, n, x.data(), f.data(), a.fjac.data(), n, opt, a.w, counts),
            zem::hybrid::kNotRun);
  opt.maxfev = 0;
  a.w.diag[1] = 1.0;
  EXPECT_EQ(zem::hybrid::solve(sys, n, x.data(), f.data(), a.fjac.data(), n, opt, a.w, counts),
            zem::hybrid::kNotRun);
  EXPECT_EQ(ctx.flag1, 0);
}

TEST(BracketCore, DriverCountsEvaluations) {
  long nfev = 0;
  double x = 0;
  const auto s = zem::bracket::find_zero(0.0, 2.0, x, [](double t) { return t * t - 2.0; }, 1e-14,
                                         0.0, &nfev);
  EXPECT_EQ(s, zem::bracket::Status::kOk);
  EXPECT_NEAR(x, std::sqrt(2.0), 1e-14);
  EXPECT_GE(nfev, 3);
  EXPECT_LE(nfev, 20);
}

}  // namespace
