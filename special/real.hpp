// Cores of the special functions of real argument.  They take plain doubles,
// know nothing of the error record, and are valid on the ranges stated; the
// exported layer (special/s_real.cpp) checks the arguments and reports.
// Other parts of the library (the complex-argument routines) call them.
#pragma once
#include <cstdint>

namespace zem::sf {

// ---- Gamma function and relatives (special/gamma.cpp)

// The gamma function by the fixed-polynomial method of s14aac.  status: 0
// computed; 1 x > 170; 2 x < -170; 3 x a negative integer; 4 |x| below
// 2.23e-308 (result the signed reciprocal of 2.23e-308).
double gamma_poly(double x, int& status);
// ln |Gamma(x)|, x not 0 or a negative integer, x <= 2.55e305.
double lgamma(double x);
// psi(x) = d/dx ln Gamma(x), x not 0 or a negative integer.
double digamma(double x);
// psi(x) - ln x for x > 0.
double digamma_minus_log(double x);
// The k-th derivative of psi, 0 <= k <= 6, x not 0 or a negative integer.
double polygamma(int k, double x);
// Hurwitz zeta(s, x) = sum_{j>=0} (x+j)^(-s) for s > 1, x > 0 (may overflow
// to inf or underflow to 0).
double hurwitz_zeta(double s, double x);
// Regularised incomplete gamma functions P(a,x), Q(a,x) for a > 0, x >= 0,
// to the relative tolerance tol (at least the machine precision).
// Returns false when the expansion did not converge.
bool incomplete_gamma(double a, double x, double tol, double& p, double& q);

// ---- Error function family (special/erf.cpp)
double erf(double x);
double erfc(double x);
// erfc(zh + zl) for a point given as a double-double (|zl| << |zh|).
double erfc2(double zh, double zl);
// The normal distribution function P(x) and its complement Q(x) = P(-x).
double normal_p(double x);
double normal_q(double x);
// Dawson's integral F(x) = exp(-x^2) int_0^x exp(t^2) dt.
double dawson(double x);

// ---- Bessel functions of order 0 and 1 (special/bessel_real.cpp)
double bessel_j0(double x);
double bessel_j1(double x);
double bessel_y0(double x);   // x > 0
double bessel_y1(double x);   // x > 0
double bessel_i0(double x);   // |x| <= 713.98
double bessel_i1(double x);   // |x| <= 713.98
double bessel_i0e(double x);  // exp(-|x|) I0(x)
double bessel_i1e(double x);  // exp(-|x|) I1(x)
double bessel_k0(double x);   // x > 0
double bessel_k1(double x);   // x > 0
double bessel_k0e(double x);  // exp(x) K0(x), x > 0
double bessel_k1e(double x);  // exp(x) K1(x), x > 0

// ---- Airy functions (special/airy.cpp).  Ai, Ai' for any x (0 beyond
// underflow); Bi, Bi' for x <= 104.
double airy_ai(double x);
double airy_aip(double x);
double airy_bi(double x);
double airy_bip(double x);

// ---- Kelvin functions (special/kelvin.cpp): ber, bei for |x| <= 1000;
// ker, kei for x > 0 (0 beyond their underflow near x = 1054).
double kelvin_ber(double x);
double kelvin_bei(double x);
double kelvin_ker(double x);
double kelvin_kei(double x);

// ---- Integrals (special/expint.cpp)
// E1(x) for x > 0; for x < 0 its real part -Ei(-x) (x >= -716).
double expint_e1(double x);
double sine_integral(double x);
double cosine_integral(double x);  // x > 0
double fresnel_s(double x);
double fresnel_c(double x);

}  // namespace zem::sf
