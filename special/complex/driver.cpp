#include "special/complex/driver.hpp"

#include <cmath>
#include <vector>

#include "special/complex/bessel.hpp"

namespace zem::sf::cbessel {
namespace {

// e^c times b.
Big times_exp(Big b, cplx c) noexcept {
  const double k = std::nearbyint(c.real() / 0.69314718055994530942);
  const double r = std::fma(-k, 6.93147180369123816490e-01, c.real()) - k * 1.90821492927058770002e-10;
  const cplx f = std::exp(r) * cplx(std::cos(c.imag()), std::sin(c.imag()));
  return normalise({b.m * f, b.p + static_cast<long>(k)});
}

}  // namespace

double airy_total_limit() noexcept { return std::cbrt(kTotalLimit * kTotalLimit); }
double airy_partial_limit() noexcept { return std::sqrt(airy_total_limit()); }

int sequence(Fn f, const char* name, double fnu, cplx z, int n, bool scaled, cplx cy[], int& nz,
             char rec[core::kRecordLen]) noexcept {
  core::record_none(rec);
  nz = 0;
  const double az = std::abs(z);
  const double top = fnu + static_cast<double>(n) - 1.0;
  if (az > kTotalLimit) {
    core::record_failure(rec, name, 4, 99997, {core::real_field(az), core::real_field(kTotalLimit)});
    return 4;
  }
  if (top > kTotalLimit) {
    core::record_failure(rec, name, 4, 99996, {core::real_field(top), core::real_field(kTotalLimit)});
    return 4;
  }
  std::vector<Big> v(static_cast<std::size_t>(n));
  Status st = Status::Ok;
  cplx scale = 0.0;  // the results are multiplied by e^scale
  switch (f) {
    case Fn::I:
      st = bessel_i(fnu, z, n, v.data());
      if (scaled) scale = -std::fabs(z.real());
      break;
    case Fn::J:
      st = bessel_j(fnu, z, n, v.data());
      if (scaled) scale = -std::fabs(z.imag());
      break;
    case Fn::K:
      st = bessel_k(fnu, z, n, v.data());
      if (scaled) scale = z;
      break;
    case Fn::Y:
      st = bessel_y(fnu, z, n, v.data());
      if (scaled) scale = -std::fabs(z.imag());
      break;
    case Fn::H1:
      st = hankel(1, fnu, z, n, v.data());
      if (scaled) scale = cplx(z.imag(), -z.real());
      break;
    case Fn::H2:
      st = hankel(2, fnu, z, n, v.data());
      if (scaled) scale = cplx(-z.imag(), z.real());
      break;
  }
  if (st != Status::Ok) {
    core::record_failure(rec, name, 5, 99994, {});
    return 5;
  }
  // On the positive real axis I, J, K and Y are real.
  const bool real = z.imag() == 0.0 && z.real() >= 0.0 && f != Fn::H1 && f != Fn::H2;
  for (int k = 0; k < n; ++k) {
    const int r = to_complex(times_exp(v[static_cast<std::size_t>(k)], scale), 0.0, cy[k]);
    if (real) cy[k] = cy[k].real();
    if (r == 2) {
      for (int j = 0; j < n; ++j) cy[j] = 0.0;
      nz = 0;
      core::record_failure(rec, name, 2, 99995, {});
      return 2;
    }
    if (r == 1) ++nz;
  }
  if (az > kPartialLimit) {
    core::record_failure(rec, name, 3, 99999, {core::real_field(az), core::real_field(kPartialLimit)});
    return 3;
  }
  if (top > kPartialLimit) {
    core::record_failure(rec, name, 3, 99998, {core::real_field(top), core::real_field(kPartialLimit)});
    return 3;
  }
  return 0;
}

int airy(bool bi, bool deriv, const char* name, cplx z, bool scaled, cplx& out, int& nz,
         char rec[core::kRecordLen]) noexcept {
  core::record_none(rec);
  nz = 0;
  out = 0.0;
  const double az = std::abs(z);
  const double total = airy_total_limit(), partial = airy_partial_limit();
  if (az > total) {
    core::record_failure(rec, name, 4, 99997, {core::real_field(az), core::real_field(total)});
    return 4;
  }
  Big v;
  const Status st = bi ? airy_bi(z, deriv, v) : airy_ai(z, deriv, v);
  if (st != Status::Ok) {
    core::record_failure(rec, name, 5, 99994, {});
    return 5;
  }
  cplx scale = 0.0;
  if (scaled) {
    const cplx zeta = (2.0 / 3.0) * z * std::sqrt(z);
    scale = bi ? cplx(-std::fabs(zeta.real()), 0.0) : zeta;
  }
  const int r = to_complex(times_exp(v, scale), 0.0, out);
  if (z.imag() == 0.0 && !(scaled && !bi && z.real() < 0.0)) out = out.real();  // real on the real axis
  if (r == 2) {
    out = 0.0;
    core::record_failure(rec, name, 2, 99995, {});
    return 2;
  }
  if (r == 1) nz = 1;
  if (az > partial) {
    core::record_failure(rec, name, 3, 99999, {core::real_field(az), core::real_field(partial)});
    return 3;
  }
  return 0;
}

}  // namespace zem::sf::cbessel
