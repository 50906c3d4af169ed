// Long transforms against FFTW: relative RMS differences below 1e-14 for
// the lengths at the limits of the single-sequence routines and for the
// multiple and multidimensional routines.
#include <fftw3.h>
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <vector>

#include "tests/transforms/c06_direct.hpp"
#include "zem/c06.h"

namespace {

using c06test::random_values;
using C = std::complex<double>;

double rel_rms(const std::vector<C>& got, const std::vector<C>& want) {
  double num = 0, den = 0;
  for (std::size_t i = 0; i < want.size(); ++i) {
    num += std::norm(got[i] - want[i]);
    den += std::norm(want[i]);
  }
  return std::sqrt(num / den);
}

// FFTW's unscaled forward transform of m sequences side by side, scaled.
std::vector<C> fftw_forward(const std::vector<C>& in, int n, int m, int sign = FFTW_FORWARD) {
  std::vector<C> a = in, out(in.size());
  fftw_plan p = fftw_plan_many_dft(1, &n, m, reinterpret_cast<fftw_complex*>(a.data()), nullptr, m, 1,
                                   reinterpret_cast<fftw_complex*>(out.data()), nullptr, m, 1, sign, FFTW_ESTIMATE);
  fftw_execute(p);
  fftw_destroy_plan(p);
  for (auto& z : out) z /= std::sqrt(static_cast<double>(n));
  return out;
}

std::vector<C> random_complex(std::size_t count, unsigned seed) {
  const auto re = random_values(count, seed), im = random_values(count, seed + 1);
  std::vector<C> z(count);
  for (std::size_t i = 0; i < count; ++i) z[i] = {re[i], im[i]};
  return z;
}

constexpr double kTol = 1e-14;

TEST(C06Fftw, SingleComplexAtTheLimits) {
  // 2^20 (ten squares of 2), 19 and 19^2 17 (general passes), 3^7 5,
  // 7 11 13 17 (four middle digits), 2 3 5 7 11 13 17 (seven singles).
  for (int n : {1 << 20, 19, 19 * 19 * 17, 10935, 17017, 510510}) {
    const auto z = random_complex(n, n);
    std::vector<double> x(n), y(n);
    for (int i = 0; i < n; ++i) {
      x[i] = z[i].real();
      y[i] = z[i].imag();
    }
    ZemError fail{};
    c06ecc(n, x.data(), y.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
    std::vector<C> got(n);
    for (int i = 0; i < n; ++i) got[i] = {x[i], y[i]};
    EXPECT_LT(rel_rms(got, fftw_forward(z, n, 1)), kTol) << n;
  }
}

TEST(C06Fftw, SingleRealAtTheLimits) {
  for (int n : {1 << 20, 65536, 19, 10935, 17017, 2 * 2 * 3 * 3 * 5 * 7 * 11 * 13}) {
    const auto x0 = random_values(n, n + 5);
    std::vector<double> x = x0;
    ZemError fail{};
    c06eac(n, x.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
    std::vector<C> in(n), got(n);
    for (int i = 0; i < n; ++i) in[i] = x0[i];
    const auto want = fftw_forward(in, n, 1);
    got[0] = x[0];
    for (int k = 1; 2 * k < n; ++k) {
      got[k] = {x[k], x[n - k]};
      got[n - k] = std::conj(got[k]);
    }
    if (n % 2 == 0) got[n / 2] = x[n / 2];
    EXPECT_LT(rel_rms(got, want), kTol) << n;
    // And back.
    c06ebc(n, x.data(), &fail);
    double err = 0, nrm = 0;
    for (int i = 0; i < n; ++i) {
      err += (x[i] - x0[i]) * (x[i] - x0[i]);
      nrm += x0[i] * x0[i];
    }
    EXPECT_LT(std::sqrt(err / nrm), kTol) << n;
  }
}

TEST(C06Fftw, MultipleSequences) {
  // Complex and real, with lengths whose rows alias in the cache (4096) and
  // with primes beyond the dedicated radices (1031 and 10007, by Bluestein's
  // convolution).
  for (int n : {4096, 1000, 1031, 2 * 10007}) {
    const int m = 7;
    const auto z = random_complex(static_cast<std::size_t>(n) * m, n);
    std::vector<double> x(z.size()), y(z.size()), trig(2 * n);
    for (std::size_t i = 0; i < z.size(); ++i) {
      x[i] = z[i].real();
      y[i] = z[i].imag();
    }
    ZemError fail{};
    c06gzc(n, trig.data(), &fail);
    c06frc(m, n, x.data(), y.data(), trig.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
    std::vector<C> got(z.size());
    for (std::size_t i = 0; i < z.size(); ++i) got[i] = {x[i], y[i]};
    EXPECT_LT(rel_rms(got, fftw_forward(z, n, m)), kTol) << n;

    // Real parts only: c06fpc against the complex transform of real data.
    std::vector<double> r(z.size());
    std::vector<C> rin(z.size());
    for (std::size_t i = 0; i < z.size(); ++i) rin[i] = r[i] = z[i].real();
    c06fpc(m, n, r.data(), trig.data(), &fail);
    ASSERT_EQ(fail.code, 0) << fail.message;
    const auto want = fftw_forward(rin, n, m);
    std::vector<C> rgot(z.size());
    for (int p = 0; p < m; ++p) {
      const auto u = c06test::unpack_hermitian(r.data() + p, n, m);
      for (int k = 0; k < n; ++k) rgot[static_cast<std::size_t>(k) * m + p] = C(static_cast<double>(u[k].real()), static_cast<double>(u[k].imag()));
    }
    EXPECT_LT(rel_rms(rgot, want), kTol) << n;
  }
}

TEST(C06Fftw, ThreeDimensions) {
  const int n1 = 12, n2 = 10, n3 = 64, n = n1 * n2 * n3;
  const auto z = random_complex(n, 99);
  std::vector<C> x = z, want(n), a = z;
  fftw_plan p = fftw_plan_dft_3d(n1, n2, n3, reinterpret_cast<fftw_complex*>(a.data()),
                                 reinterpret_cast<fftw_complex*>(want.data()), FFTW_BACKWARD, FFTW_ESTIMATE);
  fftw_execute(p);
  fftw_destroy_plan(p);
  for (auto& v : want) v /= std::sqrt(static_cast<double>(n));
  ZemError fail{};
  c06pxc(Zem_BackwardTransform, n1, n2, n3, reinterpret_cast<ZemComplex*>(x.data()), &fail);
  ASSERT_EQ(fail.code, 0) << fail.message;
  EXPECT_LT(rel_rms(x, want), kTol);
}

}  // namespace
