// Small evaluation helpers shared by the special-function cores:
// polynomials with the highest coefficient first, Chebyshev sums, and
// sin(pi x) with the argument reduced exactly.
#pragma once
#include <cmath>

namespace zem::sf {

// c[0] x^(N-1) + c[1] x^(N-2) + ... + c[N-1] by Horner's rule.
template <int N>
inline double polevl(double x, const double (&c)[N]) {
  double r = c[0];
  for (int i = 1; i < N; ++i) r = r * x + c[i];
  return r;
}

// The same with a leading coefficient 1 that is not stored.
template <int N>
inline double p1evl(double x, const double (&c)[N]) {
  double r = x + c[0];
  for (int i = 1; i < N; ++i) r = r * x + c[i];
  return r;
}

// Chebyshev sum c[0]/2 T_(N-1) + ... in Clenshaw's recurrence, the
// coefficients highest order first, x in [-2, 2] as twice the variable.
template <int N>
inline double chbevl(double x, const double (&c)[N]) {
  double b0 = c[0], b1 = 0.0, b2 = 0.0;
  for (int i = 1; i < N; ++i) {
    b2 = b1;
    b1 = b0;
    b0 = x * b1 - b2 + c[i];
  }
  return 0.5 * (b0 - b2);
}

// sin(pi y): y is reduced to [-1/2, 1/2] exactly first, so that large
// arguments lose nothing; cos(pi y) is sinpi(y + 1/2) for moderate y.
inline double sinpi(double y) {
  double r = std::remainder(y, 2.0);  // exact, in [-1, 1]
  if (r > 0.5) r = 1.0 - r;
  if (r < -0.5) r = -1.0 - r;
  return std::sin(3.141592653589793238462643383279502884 * r);
}

}  // namespace zem::sf
