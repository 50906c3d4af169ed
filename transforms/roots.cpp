#include "transforms/roots.hpp"

#include <algorithm>
#include <cmath>

namespace zem::fft {

namespace {

constexpr double kTwoPi = 6.283185307179586476925286766559;
constexpr double kQuarterPi = 0.78539816339744830961566084581988;

// exp(-2 pi i m / 8192) with the angle reduced to the first octant, where
// the library sine and cosine are correctly rounded or nearly so.
Cplx exact_root(long m) {
  const long N = kRootCount;
  m &= N - 1;
  const long oct = m / (N / 8), r = m % (N / 8);
  // Angle within the octant, measured from its start (even octants) or
  // from its end (odd octants), in units of pi/4.
  const long num = (oct & 1) ? (N / 8 - r) : r;
  const double t = kQuarterPi * (static_cast<double>(num) / static_cast<double>(N / 8));
  const double s = std::sin(t), c = std::cos(t);
  double cr, sr;  // cos and sin of 2 pi m / N
  switch (oct) {
    case 0: cr = c; sr = s; break;
    case 1: cr = s; sr = c; break;
    case 2: cr = -s; sr = c; break;
    case 3: cr = -c; sr = s; break;
    case 4: cr = -c; sr = -s; break;
    case 5: cr = -s; sr = -c; break;
    case 6: cr = s; sr = -c; break;
    default: cr = c; sr = -s; break;
  }
  return {cr, -sr};
}

RootTable* build_table() {
  static RootTable table;
  for (long m = 0; m < kRootCount; ++m) {
    const Cplx w = exact_root(m);
    table.re[m] = w.re;
    table.im[m] = w.im;
  }
  return &table;
}

}  // namespace

const RootTable& root_table() noexcept {
  static const RootTable* table = build_table();
  return *table;
}

Cplx root(int64_t j, int64_t L) noexcept {
  const RootTable& t = root_table();
  // Nearest table angle m / 8192 to j / L, and the exact remainder
  // j/L - m/8192 = num / (8192 L).
  const int64_t m = static_cast<int64_t>(std::nearbyint(static_cast<double>(j) * kRootCount / static_cast<double>(L)));
  const int64_t num = j * kRootCount - m * L;
  if (num == 0) return {t.re[m & (kRootCount - 1)], t.im[m & (kRootCount - 1)]};
  const double d = kTwoPi * (static_cast<double>(num) / (static_cast<double>(kRootCount) * static_cast<double>(L)));
  const double d2 = d * d;
  const double c = 1.0 - d2 * (0.5 - d2 * (1.0 / 24.0));
  const double s = d * (1.0 - d2 * (1.0 / 6.0 - d2 * (1.0 / 120.0)));
  // exp(-i (a + d)) = exp(-i a) * (cos d - i sin d).
  const double ar = t.re[m & (kRootCount - 1)], ai = t.im[m & (kRootCount - 1)];
  return {ar * c + ai * s, ai * c - ar * s};
}

void fill_trig(const Plan& plan, double* trig) noexcept {
  const long n = plan.n;
  long off = 0, p = 1;
  for (int i = 0; i < plan.ndig; ++i) {
    const int r = plan.dig[i];
    const long L = p * r;
    const Roots w(L);
    for (int s = 1; s < r; ++s)
      for (long k = 0; k < p; ++k) {
        const Cplx z = w(static_cast<int64_t>(s) * k);
        const long c = k / 4, width = std::min<long>(4, p - 4 * c);
        const long i = off + 4 * c * (r - 1) + (s - 1) * width + (k - 4 * c);
        trig[i] = z.re;
        trig[n + i] = z.im;
      }
    off += (r - 1) * p;
    p = L;
  }
  trig[n - 1] = static_cast<double>(n);
  trig[2 * n - 1] = static_cast<double>(n);
}

bool trig_matches(const double* trig, long n) noexcept {
  return trig[n - 1] == static_cast<double>(n) && trig[2 * n - 1] == static_cast<double>(n);
}

}  // namespace zem::fft
