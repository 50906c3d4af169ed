// Elliptic integrals and functions, Legendre functions and the zeta
// function: the cores behind s21, s22 and s23.  They know nothing of the
// error record; a status tells the caller what went wrong.
#pragma once
#include <complex>
#include <cstdint>

namespace zem::sf {

using cplx = std::complex<double>;

// Carlson's symmetric integrals by duplication.  Real forms take
// non-negative x, y, z (at most one zero) and y != 0 for rc, p != 0 for rj;
// a negative y in rc or p in rj gives the Cauchy principal value.  The
// arguments are scaled by a power of four first, so that no finite
// argument overflows or underflows inside the iteration.
double carlson_rc(double x, double y) noexcept;
double carlson_rf(double x, double y, double z) noexcept;
double carlson_rd(double x, double y, double z) noexcept;
double carlson_rj(double x, double y, double z, double p) noexcept;

// Complex forms for arguments in the plane cut along the negative real
// axis.  ok is false when the duplication did not converge.
cplx carlson_rf(cplx x, cplx y, cplx z, bool& ok) noexcept;
cplx carlson_rd(cplx x, cplx y, cplx z, bool& ok) noexcept;

// Jacobian elliptic functions of real argument u and any real parameter m.
void jacobi_sncndn(double u, double m, double& sn, double& cn, double& dn) noexcept;
// Of complex argument, 0 <= m <= 1.
void jacobi_sncndn(cplx z, double m, cplx& sn, cplx& cn, cplx& dn) noexcept;

// Jacobian theta function k (0..4, theta_0 = theta_4) of real x with nome q,
// 0 <= q < 1; see s.h for the definitions.
double jacobi_theta(int k, double x, double q) noexcept;

// The general elliptic integral of the second kind of complex argument,
//   integral from 0 to z of (a + b t^2) / ((1 + t^2) sqrt((1 + t^2)(1 + kc^2 t^2))) dt.
// status: 0 success, 1 infinite (z on a singularity), 2 no convergence.
cplx elliptic_el2(cplx z, double kc, double a, double b, int& status) noexcept;

// Ferrers' associated Legendre functions P_n^m(x), |x| <= 1, with the
// Condon-Shortley phase, for n = |m| .. |m| + nl; normalised (mode 2) to
// unit L2 norm on [-1, 1].  Returns false when a value of mode 1 overflows
// (those values are then +-huge).
bool legendre_p(int mode, double x, int32_t m, int32_t nl, double p[]) noexcept;

// The Riemann zeta function of real argument s != 1.  overflow is set when
// |zeta(s)| exceeds the double range (s below about -260).
double riemann_zeta(double s, bool& overflow) noexcept;

}  // namespace zem::sf
