// Fixed Gaussian rules: Gauss-Legendre, the rational rule built on it,
// Gauss-Laguerre and Gauss-Hermite, mapped onto the caller's range.
#pragma once

namespace zem::quad {

enum class GaussKind { Legendre, Rational, Laguerre, Hermite };

inline constexpr int kMaxGaussPoints = 1000;

// Fills weight[0..n-1] and abscis[0..n-1] (abscissae increasing in the
// rule's own variable) so that sum(weight[i] f(abscis[i])) approximates the
// integral the rule stands for:
//   Legendre  int_a^b f,            Rational  int_a^inf f (a+b > 0) or
//   Laguerre  int exp(-b(x-a)) f,             int_-inf^a f (a+b < 0),
//   Hermite   int exp(-b(x-a)^2) f.
// 1 <= n <= kMaxGaussPoints and the constraints on a, b are the caller's to
// check.  Returns false when some weights underflow; they are then 0.
bool gauss_rule(GaussKind kind, double a, double b, int n, double* weight, double* abscis);

}  // namespace zem::quad
