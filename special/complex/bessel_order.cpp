// Bessel functions of real order on the real line, and the sequence
// J_{a+n}(z) of complex argument: s18ecc, s18edc, s18eec, s18efc, s18egc,
// s18ehc, s18ejc, s18ekc, s18gkc.  They run the cores of bessel.hpp and
// keep the real part where the function is real.
#include <cfloat>
#include <cmath>
#include <complex>
#include <vector>

#include "frame/report.hpp"
#include "special/complex/bessel.hpp"
#include "special/complex/driver.hpp"
#include "zem/s.h"

namespace zem::sf::cbessel {
namespace {

constexpr double kPi = 3.14159265358979323846;

// Real part of b * e^shift with gradual underflow; false when it overflows.
bool to_real(Big b, double shift, double& out) noexcept {
  out = 0.0;
  if (b.m.real() == 0.0) return true;
  const double k = std::nearbyint(shift / 0.69314718055994530942);
  const double r = std::fma(-k, 6.93147180369123816490e-01, shift) - k * 1.90821492927058770002e-10;
  const double m = b.m.real() * std::exp(r);
  const double l2 = static_cast<double>(b.p) + k + std::log2(std::fabs(m));
  if (l2 >= 1024.0) return false;
  if (l2 < -1100.0) return true;
  out = std::ldexp(m, static_cast<int>(b.p + static_cast<long>(k)));
  return true;
}

// K_{nu/4}(x) or I_{nu/4}(x) as a Big, x > 0 (x >= 0 for I with nu > 0).
Status quarter(bool want_i, double x, int nu, Big& out) noexcept {
  const double v = std::fabs(nu) / 4.0;
  if (!want_i) return bessel_k(v, x, 1, &out);
  Big iv;
  if (bessel_i(v, x, 1, &iv) != Status::Ok) return Status::NoConvergence;
  if (nu > 0) {
    out = iv;
    return Status::Ok;
  }
  // I_{-v} = I_v + (2/pi) sin(v pi) K_v.
  Big kv;
  if (bessel_k(v, x, 1, &kv) != Status::Ok) return Status::NoConvergence;
  out = big_add(iv, big_mul(kv, 2.0 / kPi * sin_pi(v)));
  return Status::Ok;
}

double quarter_routine(const char* routine, bool want_i, bool scaled, double x, int32_t nu,
                       ZemError* fail) noexcept {
  Call call(routine, fail);
  if (want_i) {
    if (call.real_lt("x", x, 0.0, "0.0")) return 0.0;
  } else if (call.real_le("x", x, 0.0, "0.0")) {
    return 0.0;
  }
  if (call.int_cons(nu < -3 || nu > 3 || nu == 0, "nu", nu, "1 <= abs(nu) <= 3")) return 0.0;
  if (want_i && nu < 0 && x == 0.0) {
    call.report(NE_REAL_INT, "x", x, "nu", static_cast<long>(nu), "x > 0.0 when nu < 0");
    return 0.0;
  }
  Big b;
  if (quarter(want_i, x, nu, b) != Status::Ok) {
    call.report_null(NE_TERMINATION_FAILURE);
    return 0.0;
  }
  double out;
  if (!to_real(b, scaled ? (want_i ? -x : x) : 0.0, out)) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return DBL_MAX;
  }
  call.success();
  return out;
}

bool bad_order(Call& call, double a) noexcept {
  if (a >= 0.0 && a < 1.0) return false;
  call.report(NE_REAL, "a", a, "0.0 <= a < 1.0");
  return true;
}

// Writes the real parts of v[0..count) into out; false on overflow.
bool store(const std::vector<Big>& v, double shift, double out[]) noexcept {
  for (std::size_t k = 0; k < v.size(); ++k)
    if (!to_real(v[k], shift, out[k])) return false;
  return true;
}

void k_family(const char* routine, bool scaled, double x, double a, int32_t nl, double bk[],
              ZemError* fail) noexcept {
  Call call(routine, fail);
  if (call.real_le("x", x, 0.0, "0.0")) return;
  if (bad_order(call, a)) return;
  if (call.int_cons(nl < 0 || nl > 100, "nl", nl, "0 <= nl <= 100")) return;
  if (call.null("bk", bk)) return;
  std::vector<Big> v(static_cast<std::size_t>(nl) + 1);
  if (bessel_k(a, x, nl + 1, v.data()) != Status::Ok) {
    call.report_null(NE_TERMINATION_FAILURE);
    return;
  }
  if (!store(v, scaled ? x : 0.0, bk)) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return;
  }
  call.success();
}

// I_{a+n} or J_{a+n} (nl >= 0), I_{a-n} or J_{a-n} (nl < 0), n = 0..|nl|.
void ij_family(const char* routine, bool want_j, double x, double a, int32_t nl, double b[],
               ZemError* fail) noexcept {
  Call call(routine, fail);
  if (call.real_lt("x", x, 0.0, "0.0")) return;
  if (bad_order(call, a)) return;
  if (call.int_cons(nl < -101 || nl > 101, "nl", nl, "abs(nl) <= 101")) return;
  if (call.null(want_j ? "b" : "b", b)) return;
  const int count = (nl < 0 ? -nl : nl) + 1;
  std::vector<Big> v(static_cast<std::size_t>(count));
  const std::complex<double> z(x, 0.0);
  Status st = Status::Ok;
  if (nl >= 0) {
    st = want_j ? bessel_j(a, z, count, v.data()) : bessel_i(a, z, count, v.data());
  } else {
    // Order a: directly; orders a-n = -(n-a), n >= 1, from the reflection
    // formulae I_{-v} = I_v + (2/pi) sin(v pi) K_v and
    // J_{-v} = cos(v pi) J_v - sin(v pi) Y_v.
    st = want_j ? bessel_j(a, z, 1, v.data()) : bessel_i(a, z, 1, v.data());
    if (st == Status::Ok && count > 1) {
      const double v0 = 1.0 - a;
      const int m = count - 1;
      if (x == 0.0 && a != 0.0) {
        call.report_null(NE_OVERFLOW_LIKELY);
        return;
      }
      std::vector<Big> p(static_cast<std::size_t>(m)), q(static_cast<std::size_t>(m));
      if (x == 0.0) {
        // a = 0: J_{-n}(0) = I_{-n}(0) = 0 for n >= 1.
        for (int k = 1; k < count; ++k) v[static_cast<std::size_t>(k)] = Big{};
      } else {
        st = want_j ? bessel_j(v0, z, m, p.data()) : bessel_i(v0, z, m, p.data());
        if (st == Status::Ok && a != 0.0)
          st = want_j ? bessel_y(v0, z, m, q.data()) : bessel_k(v0, z, m, q.data());
        for (int k = 0; st == Status::Ok && k < m; ++k) {
          const double nu = v0 + k;
          const std::size_t i = static_cast<std::size_t>(k);
          Big r;
          if (a == 0.0) {
            r = big_mul(p[i], want_j ? cos_pi(nu) : 1.0);  // integer order
          } else if (want_j) {
            r = big_add(big_mul(p[i], cos_pi(nu)), big_mul(q[i], -sin_pi(nu)));
          } else {
            r = big_add(p[i], big_mul(q[i], 2.0 / kPi * sin_pi(nu)));
          }
          v[i + 1] = r;
        }
      }
    }
  }
  if (st != Status::Ok) {
    call.report_null(NE_TERMINATION_FAILURE);
    return;
  }
  if (!store(v, 0.0, b)) {
    call.report_null(NE_OVERFLOW_LIKELY);
    return;
  }
  call.success();
}

}  // namespace
}  // namespace zem::sf::cbessel

namespace cb = zem::sf::cbessel;

extern "C" {

ZEM_API double s18ecc(double x, int32_t nu, ZemError* fail) {
  return cb::quarter_routine("s18ecc", false, true, x, nu, fail);
}

ZEM_API double s18edc(double x, int32_t nu, ZemError* fail) {
  return cb::quarter_routine("s18edc", false, false, x, nu, fail);
}

ZEM_API double s18eec(double x, int32_t nu, ZemError* fail) {
  return cb::quarter_routine("s18eec", true, true, x, nu, fail);
}

ZEM_API double s18efc(double x, int32_t nu, ZemError* fail) {
  return cb::quarter_routine("s18efc", true, false, x, nu, fail);
}

ZEM_API void s18egc(double x, double a, int32_t nl, double bk[], ZemError* fail) {
  cb::k_family("s18egc", false, x, a, nl, bk, fail);
}

ZEM_API void s18ehc(double x, double a, int32_t nl, double bk[], ZemError* fail) {
  cb::k_family("s18ehc", true, x, a, nl, bk, fail);
}

ZEM_API void s18ejc(double x, double a, int32_t nl, double bi[], ZemError* fail) {
  cb::ij_family("s18ejc", false, x, a, nl, bi, fail);
}

ZEM_API void s18ekc(double x, double a, int32_t nl, double bj[], ZemError* fail) {
  cb::ij_family("s18ekc", true, x, a, nl, bj, fail);
}

ZEM_API void s18gkc(ZemComplex z, double a, int32_t nl, ZemComplex b[], ZemError* fail) {
  zem::Call call("s18gkc", fail);
  if (cb::bad_order(call, a)) return;
  if (call.int_cons(nl < 0 || nl > 100, "nl", nl, "0 <= nl <= 100")) return;
  if (call.null("b", b)) return;
  const std::complex<double> zc(z.re, z.im);
  const double az = std::abs(zc);
  if (az > cb::kTotalLimit) {
    call.report_null(NE_TOTAL_PRECISION_LOSS);
    return;
  }
  std::vector<cb::Big> v(static_cast<std::size_t>(nl) + 1);
  if (cb::bessel_j(a, zc, nl + 1, v.data()) != cb::Status::Ok) {
    call.report_null(NE_TERMINATION_FAILURE);
    return;
  }
  std::vector<std::complex<double>> out(v.size());
  for (std::size_t k = 0; k < v.size(); ++k)
    if (cb::to_complex(v[k], 0.0, out[k]) == 2) {
      call.report_null(NE_OVERFLOW_LIKELY);
      return;
    }
  for (std::size_t k = 0; k < v.size(); ++k) b[k] = ZemComplex{out[k].real(), out[k].imag()};
  if (az > cb::kPartialLimit) {
    call.report_null(NW_SOME_PRECISION_LOSS);
    return;
  }
  call.success();
}

}  // extern "C"
