// ln Gamma and the polygamma functions of complex argument.
#pragma once
#include <complex>

namespace zem::sf::cgamma {

// The analytic continuation of ln Gamma(z) from the positive real axis
// (branch cut on the negative real axis, values from above on it).
std::complex<double> log_gamma(std::complex<double> z) noexcept;
// psi^(k)(z), k = 0..4.
std::complex<double> polygamma(std::complex<double> z, int k) noexcept;

}  // namespace zem::sf::cgamma
