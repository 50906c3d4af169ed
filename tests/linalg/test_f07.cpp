// Linear equations: each wrapper against LAPACKE on the same data in both
// storage orders (the results must agree to the last bit, since both end in
// the same kernel on the same column-major data), residual identities scaled
// by norm and precision, and the untouched elements outside the stored part.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "f07_test_util.hpp"

namespace {

using namespace f07test;

class BothOrders : public testing::TestWithParam<bool> {
 protected:
  std::mt19937_64 rng{20261121};
  bool rm() const { return GetParam(); }
};

TEST_P(BothOrders, LuFactorisationMatchesLapackeAndReconstructs) {
  ZemError e = record();
  for (auto [m, n] : {std::pair{0, 0}, {1, 1}, {5, 5}, {37, 37}, {40, 25}, {25, 40}}) {
    Mat<double> a = random_matrix<double>(m, n, rm(), rng), ref = a, orig = a;
    std::vector<int32_t> ipiv(std::max(1, std::min(m, n))), ipiv_ref(ipiv.size());
    f07adc(a.order(), m, n, a.data(), a.ld, ipiv.data(), &e);
    ASSERT_EQ(e.code, 0) << e.message;
    LAPACKE_dgetrf(ref.layout(), m, n, ref.data(), ref.ld, ipiv_ref.data());
    EXPECT_EQ(a.a, ref.a) << m << "x" << n;
    EXPECT_EQ(ipiv, ipiv_ref);
    EXPECT_TRUE(a.padding_intact());
    // P L U = A: apply the interchanges to A in order and compare with L U.
    for (int k = 0; k < std::min(m, n); ++k)
      if (ipiv[k] - 1 != k)
        for (int j = 0; j < n; ++j) std::swap(orig(k, j), orig(ipiv[k] - 1, j));
    double err = 0;
    for (int i = 0; i < m; ++i)
      for (int j = 0; j < n; ++j) {
        double s = 0;
        for (int k = 0; k <= std::min({i, j, std::min(m, n) - 1}); ++k)
          s += (k == i ? 1.0 : a(i, k)) * a(k, j);
        err = std::max(err, std::abs(s - orig(i, j)));
      }
    if (m && n) {
      EXPECT_LT(err / (std::max(m, n) * norm1(orig) * kEps), 30.0);
    }
  }
}

TEST_P(BothOrders, SolveConditionRefineInvertAgainstLapacke) {
  ZemError e = record();
  const int n = 30, nrhs = 4;
  Mat<double> a = random_matrix<double>(n, n, rm(), rng), lu = a;
  std::vector<int32_t> ipiv(n);
  f07adc(lu.order(), n, n, lu.data(), lu.ld, ipiv.data(), &e);
  ASSERT_EQ(e.code, 0);
  for (int trans : {Zem_NoTrans, Zem_Trans}) {
    Mat<double> b = random_matrix<double>(n, nrhs, rm(), rng), x = b, ref = b;
    f07aec(x.order(), trans, n, nrhs, lu.data(), lu.ld, ipiv.data(), x.data(), x.ld, &e);
    ASSERT_EQ(e.code, 0);
    LAPACKE_dgetrs(ref.layout(), trans == Zem_NoTrans ? 'N' : 'T', n, nrhs, lu.data(), lu.ld, ipiv.data(),
                   ref.data(), ref.ld);
    EXPECT_EQ(x.a, ref.a);
    EXPECT_LT(solve_residual(a, x, b, trans), 30.0);
    // Refinement keeps the solution and gives honest error bounds.
    std::vector<double> ferr(nrhs), berr(nrhs);
    f07ahc(x.order(), trans, n, nrhs, a.data(), a.ld, lu.data(), lu.ld, ipiv.data(), b.data(), b.ld,
           x.data(), x.ld, ferr.data(), berr.data(), &e);
    ASSERT_EQ(e.code, 0);
    for (int j = 0; j < nrhs; ++j) {
      EXPECT_LT(berr[j], 4 * kEps);
      EXPECT_GT(ferr[j], 0.0);
      EXPECT_LT(ferr[j], 1e-10);
    }
    EXPECT_TRUE(x.padding_intact());
  }
  for (int norm : {Zem_OneNorm, Zem_InfNorm}) {
    double anorm = 0, rcond = -1, rcond_ref = -2;
    for (int i = 0; i < n; ++i) {
      double s = 0;
      for (int j = 0; j < n; ++j) s += std::abs(norm == Zem_OneNorm ? a(j, i) : a(i, j));
      anorm = std::max(anorm, s);
    }
    f07agc(lu.order(), norm, n, lu.data(), lu.ld, anorm, &rcond, &e);
    ASSERT_EQ(e.code, 0);
    LAPACKE_dgecon(lu.layout(), norm == Zem_OneNorm ? '1' : 'I', n, lu.data(), lu.ld, anorm, &rcond_ref);
    EXPECT_EQ(rcond, rcond_ref);
    EXPECT_GT(rcond, 0.0);
    EXPECT_LE(rcond, 1.0);
  }
  Mat<double> inv = lu;
  f07ajc(inv.order(), n, inv.data(), inv.ld, ipiv.data(), &e);
  ASSERT_EQ(e.code, 0);
  double err = 0;
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      double s = i == j ? -1.0 : 0.0;
      for (int k = 0; k < n; ++k) s += a(i, k) * inv(k, j);
      err = std::max(err, std::abs(s));
    }
  EXPECT_LT(err, 1e-11);
}

TEST_P(BothOrders, CholeskyTouchesOnlyItsTriangle) {
  ZemError e = record();
  for (int uplo : {Zem_Upper, Zem_Lower}) {
    const int n = 33, nrhs = 3;
    Mat<double> a = spd_matrix<double>(n, rm(), rng), f = a, ref = a;
    // Poison the triangle that is not referenced: it must survive.
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        if (uplo == Zem_Upper ? i > j : i < j) f(i, j) = ref(i, j) = kSentinel;
    f07fdc(f.order(), uplo, n, f.data(), f.ld, &e);
    ASSERT_EQ(e.code, 0) << e.message;
    LAPACKE_dpotrf(ref.layout(), uplo == Zem_Upper ? 'U' : 'L', n, ref.data(), ref.ld);
    EXPECT_EQ(f.a, ref.a);
    Mat<double> b = random_matrix<double>(n, nrhs, rm(), rng), x = b;
    f07fec(x.order(), uplo, n, nrhs, f.data(), f.ld, x.data(), x.ld, &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_LT(solve_residual(a, x, b), 30.0);
    std::vector<double> ferr(nrhs), berr(nrhs);
    f07fhc(x.order(), uplo, n, nrhs, a.data(), a.ld, f.data(), f.ld, b.data(), b.ld, x.data(), x.ld,
           ferr.data(), berr.data(), &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_LT(berr[0], 4 * kEps);
    double rcond = 0;
    f07fgc(f.order(), uplo, n, f.data(), f.ld, norm1(a), &rcond, &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_GT(rcond, 1e-4);
    Mat<double> inv = f;
    f07fjc(inv.order(), uplo, n, inv.data(), inv.ld, &e);
    ASSERT_EQ(e.code, 0);
    double err = 0;
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j) {
        double s = i == j ? -1.0 : 0.0;
        for (int k = 0; k < n; ++k) {
          const bool stored = uplo == Zem_Upper ? k <= j : k >= j;
          s += a(i, k) * (stored ? inv(k, j) : inv(j, k));
        }
        err = std::max(err, std::abs(s));
        if (uplo == Zem_Upper ? i > j : i < j) {
          EXPECT_EQ(inv(i, j), kSentinel);
        }
      }
    EXPECT_LT(err, 1e-12);
    EXPECT_TRUE(inv.padding_intact());
  }
}

TEST_P(BothOrders, ComplexFamiliesMatchLapacke) {
  ZemError e = record();
  const int n = 21, nrhs = 2;
  Mat<C> a = random_matrix<C>(n, n, rm(), rng), lu = a, ref = a;
  std::vector<int32_t> ipiv(n), ipiv_ref(n);
  f07arc(lu.order(), n, n, reinterpret_cast<ZemComplex*>(lu.data()), lu.ld, ipiv.data(), &e);
  ASSERT_EQ(e.code, 0);
  LAPACKE_zgetrf(ref.layout(), n, n, ref.data(), ref.ld, ipiv_ref.data());
  EXPECT_EQ(lu.a, ref.a);
  for (int trans : {Zem_NoTrans, Zem_ConjTrans}) {
    Mat<C> b = random_matrix<C>(n, nrhs, rm(), rng), x = b, xr = b;
    f07asc(x.order(), trans, n, nrhs, reinterpret_cast<ZemComplex*>(lu.data()), lu.ld, ipiv.data(),
           reinterpret_cast<ZemComplex*>(x.data()), x.ld, &e);
    ASSERT_EQ(e.code, 0);
    LAPACKE_zgetrs(xr.layout(), trans == Zem_NoTrans ? 'N' : 'C', n, nrhs, lu.data(), lu.ld, ipiv.data(),
                   xr.data(), xr.ld);
    EXPECT_EQ(x.a, xr.a);
    std::vector<double> ferr(nrhs), berr(nrhs);
    f07avc(x.order(), trans, n, nrhs, reinterpret_cast<ZemComplex*>(a.data()), a.ld,
           reinterpret_cast<ZemComplex*>(lu.data()), lu.ld, ipiv.data(), reinterpret_cast<ZemComplex*>(b.data()),
           b.ld, reinterpret_cast<ZemComplex*>(x.data()), x.ld, ferr.data(), berr.data(), &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_LT(berr[0], 8 * kEps);
  }
  double rcond = 0;
  f07auc(lu.order(), Zem_OneNorm, n, reinterpret_cast<ZemComplex*>(lu.data()), lu.ld, norm1(a), &rcond, &e);
  ASSERT_EQ(e.code, 0);
  EXPECT_GT(rcond, 0.0);
  Mat<C> inv = lu;
  f07awc(inv.order(), n, reinterpret_cast<ZemComplex*>(inv.data()), inv.ld, ipiv.data(), &e);
  ASSERT_EQ(e.code, 0);
  double err = 0;
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j) {
      C s = i == j ? -1.0 : 0.0;
      for (int k = 0; k < n; ++k) s += a(i, k) * inv(k, j);
      err = std::max(err, std::abs(s));
    }
  EXPECT_LT(err, 1e-11);

  for (int uplo : {Zem_Upper, Zem_Lower}) {
    Mat<C> h = spd_matrix<C>(n, rm(), rng), f = h, fr = h;
    f07frc(f.order(), uplo, n, reinterpret_cast<ZemComplex*>(f.data()), f.ld, &e);
    ASSERT_EQ(e.code, 0);
    LAPACKE_zpotrf(fr.layout(), uplo == Zem_Upper ? 'U' : 'L', n, fr.data(), fr.ld);
    // The stored triangle agrees; LAPACKE also copies the other triangle.
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        if (uplo == Zem_Upper ? i <= j : i >= j) {
          EXPECT_EQ(f(i, j), fr(i, j));
        }
    Mat<C> b = random_matrix<C>(n, nrhs, rm(), rng), x = b;
    f07fsc(x.order(), uplo, n, nrhs, reinterpret_cast<ZemComplex*>(f.data()), f.ld,
           reinterpret_cast<ZemComplex*>(x.data()), x.ld, &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_LT(solve_residual(h, x, b), 30.0);
    std::vector<double> ferr(nrhs), berr(nrhs);
    f07fvc(x.order(), uplo, n, nrhs, reinterpret_cast<ZemComplex*>(h.data()), h.ld,
           reinterpret_cast<ZemComplex*>(f.data()), f.ld, reinterpret_cast<ZemComplex*>(b.data()), b.ld,
           reinterpret_cast<ZemComplex*>(x.data()), x.ld, ferr.data(), berr.data(), &e);
    ASSERT_EQ(e.code, 0);
    f07fuc(f.order(), uplo, n, reinterpret_cast<ZemComplex*>(f.data()), f.ld, norm1(h), &rcond, &e);
    ASSERT_EQ(e.code, 0);
    EXPECT_GT(rcond, 1e-4);
    f07fwc(f.order(), uplo, n, reinterpret_cast<ZemComplex*>(f.data()), f.ld, &e);
    ASSERT_EQ(e.code, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, BothOrders, testing::Values(true, false),
                         [](const testing::TestParamInfo<bool>& p) { return p.param ? "RowMajor" : "ColMajor"; });

TEST(F07Reports, SingularPivotIsAnUntaggedWarningWithInfo) {
  ZemError e = record();
  // Row-major, pda = n, a singular square matrix: the second row is twice the first.
  double a[9] = {1, 2, 3, 2, 4, 6, 1, 0, 1};
  int32_t ipiv[3];
  e.code = 99;
  e.errnum = 55;
  f07adc(Zem_RowMajor, 3, 3, a, 3, ipiv, &e);
  EXPECT_EQ(e.code, NE_SINGULAR);
  EXPECT_EQ(e.errnum, 3);
  EXPECT_EQ(std::string(e.message).rfind("    u(3,3) is exactly zero.\n", 0), 0u);
  // The factors are in a: its last pivot is zero.
  EXPECT_EQ(a[8], 0.0);
  double b[9] = {1, 2, 3, 2, 4, 6, 1, 0, 1};
  e.print = 1;
  testing::internal::CaptureStderr();
  f07adc(Zem_RowMajor, 3, 3, b, 3, ipiv, &e);
  EXPECT_EQ(testing::internal::GetCapturedStderr().rfind("Warning from ZEM routine f07adc:", 0), 0u);
}

TEST(F07Reports, NotPositiveDefiniteGivesTheMinor) {
  ZemError e = record();
  double a[9] = {4, 1, 1, 1, -3, 0, 1, 0, 2};
  f07fdc(Zem_ColMajor, Zem_Lower, 3, a, 3, &e);
  EXPECT_EQ(e.code, NE_NOT_POS_DEF);
  EXPECT_EQ(e.errnum, 2);
  EXPECT_NE(std::string(e.message).find("order 2"), std::string::npos);
}

TEST(F07Reports, EmptyProblemsReturnWithoutReport) {
  ZemError e = record();
  std::strcpy(e.message, "untouched");
  int32_t ipiv[1];
  double a[1] = {0};
  f07adc(Zem_RowMajor, 0, 0, a, 1, ipiv, &e);
  f07adc(Zem_ColMajor, 0, 0, a, 1, ipiv, &e);
  EXPECT_EQ(e.code, 0);
  EXPECT_STREQ(e.message, "untouched");
}

TEST(F07Reports, KernelStyleReportOnStderrForAColumnMajorLeadingDimension) {
  ZemError e = record();  // print is 0, yet the kernel's report is printed
  double a[16] = {};
  int32_t ipiv[4];
  testing::internal::CaptureStderr();
  f07adc(Zem_ColMajor, 4, 4, a, 2, ipiv, &e);
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("F07ADF/DGETRF"), std::string::npos);
  EXPECT_NE(err.find("NE_F06_BAD_PARAM"), std::string::npos);
  EXPECT_EQ(e.code, NE_INT_2);
  EXPECT_EQ(e.errnum, -4);
  EXPECT_NE(std::string(e.message).find("pda >= MAX(1,m)"), std::string::npos);
}

}  // namespace
