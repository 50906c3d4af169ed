// Direct O(n^2) sums in long double, the reference of the short transforms,
// and the error measure of the c06 tests.
#pragma once
#include <cmath>
#include <complex>
#include <cstdint>
#include <random>
#include <vector>

namespace c06test {

using LC = std::complex<long double>;
constexpr long double kPi = 3.141592653589793238462643383279502884L;

// exp(sign 2 pi i j k / n), the product reduced modulo n first.
inline LC unit(long j, long k, long n, int sign) {
  const long double a = sign * 2 * kPi * static_cast<long double>((j * k) % n) / n;
  return {std::cos(a), std::sin(a)};
}

// X_k = scale * sum_j x_j exp(sign 2 pi i j k / n).
inline std::vector<LC> dft(const std::vector<LC>& x, int sign, long double scale) {
  const long n = static_cast<long>(x.size());
  std::vector<LC> w(n), y(n);
  for (long j = 0; j < n; ++j) w[j] = unit(j, 1, n, sign);
  for (long k = 0; k < n; ++k) {
    LC s = 0;
    for (long j = 0, jk = 0; j < n; ++j, jk = (jk + k) % n) s += x[j] * w[jk];
    y[k] = s * scale;
  }
  return y;
}

// Relative RMS distance between a computed and a reference vector.
template <class A, class B>
double rel_rms(const A& got, const B& want) {
  long double num = 0, den = 0;
  for (std::size_t i = 0; i < want.size(); ++i) {
    num += std::norm(LC(got[i]) - LC(want[i]));
    den += std::norm(LC(want[i]));
  }
  return den == 0 ? static_cast<double>(std::sqrt(num)) : static_cast<double>(std::sqrt(num / den));
}

inline std::vector<double> random_values(std::size_t count, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> u(-1.0, 1.0);
  std::vector<double> v(count);
  for (auto& x : v) x = u(rng);
  return v;
}

// The Hermitian layout of length n as complex terms 0 .. n-1.
inline std::vector<LC> unpack_hermitian(const double* h, long n, long stride = 1) {
  std::vector<LC> y(n);
  y[0] = h[0];
  for (long k = 1; 2 * k < n; ++k) {
    y[k] = LC(h[k * stride], h[(n - k) * stride]);
    y[n - k] = std::conj(y[k]);
  }
  if (n % 2 == 0) y[n / 2] = h[(n / 2) * stride];
  return y;
}

// Accuracy demanded of a transform of length n: a few rounding units,
// growing with log n.
inline double tolerance(long n) { return 4e-16 * (2.0 + std::log2(static_cast<double>(n) + 1.0)); }

}  // namespace c06test
