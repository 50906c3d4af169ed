// w(z) = exp(-z^2) erfc(-iz) for complex z.
#pragma once
#include <complex>

namespace zem::sf::faddeeva {

std::complex<double> w(std::complex<double> z) noexcept;

}  // namespace zem::sf::faddeeva
