// Bessel, Hankel and Airy functions of complex argument and real order.
//
// The cores work on values held as a complex mantissa times 2^p, so that
// results far outside the range of doubles (I of large argument, K of large
// order near zero) keep their digits until the caller decides, with its own
// scaling, whether they overflow or underflow.
//
// Method, for an order nu >= 0 and w in the right half plane:
//   K:  Temme's series (|w| <= 2) or Steed's continued fraction for
//       K_mu, K_mu+1 with |mu| <= 1/2, then forward recurrence in the order
//       (stable for K);
//   I:  the power series where |w|^2/4 <= nu+1 or |w| <= 2; Hankel's
//       expansion for |w| >= 21.8 with 2|w| >= nu^2; otherwise the ratio
//       I_nu+1/I_nu from its continued fraction and the Wronskian
//       I_nu K_nu+1 + I_nu+1 K_nu = 1/w, then backward recurrence.
// Other half planes, J, Y, H and the Airy functions follow by analytic
// continuation and the connection formulae.
#pragma once
#include <complex>
#include <cstdint>
#include <vector>

namespace zem::sf::cbessel {

using cplx = std::complex<double>;

// m * 2^p.
struct Big {
  cplx m{0.0, 0.0};
  long p = 0;
};

Big normalise(Big b) noexcept;
Big big_add(Big a, Big b) noexcept;
inline Big big_mul(Big a, cplx c) noexcept { return normalise({a.m * c, a.p}); }
// log |b| (-inf for zero).
double big_log_abs(Big b) noexcept;

// cos(pi t) and sin(pi t), exact at integers and half-integers.
double cos_pi(double t) noexcept;
double sin_pi(double t) noexcept;
// exp(i pi t).
inline cplx cis_pi(double t) noexcept { return {cos_pi(t), sin_pi(t)}; }

enum class Status { Ok, NoConvergence };

// I_{fnu+k}(z), k = 0..n-1, any z.
Status bessel_i(double fnu, cplx z, int n, Big out[]) noexcept;
// K_{fnu+k}(z), k = 0..n-1, z != 0.
Status bessel_k(double fnu, cplx z, int n, Big out[]) noexcept;
// J_{fnu+k}(z), any z.
Status bessel_j(double fnu, cplx z, int n, Big out[]) noexcept;
// H^(kind)_{fnu+k}(z), kind 1 or 2, z != 0.
Status hankel(int kind, double fnu, cplx z, int n, Big out[]) noexcept;
// Y_{fnu+k}(z), z != 0.
Status bessel_y(double fnu, cplx z, int n, Big out[]) noexcept;
// Ai(z) or Ai'(z) (deriv), Bi(z) or Bi'(z).
Status airy_ai(cplx z, bool deriv, Big& out) noexcept;
Status airy_bi(cplx z, bool deriv, Big& out) noexcept;

// Turns b * exp(shift) into a double complex: returns 0 on success, 1 when
// it underflows (out set to 0), 2 when it overflows.
int to_complex(Big b, double shift, cplx& out) noexcept;

}  // namespace zem::sf::cbessel
