// Exported Bessel, Hankel and Airy functions of complex argument: the plain
// forms (s17dcc, s17dec, s17dgc, s17dhc, s17dlc, s18dcc, s18dec) and the
// by-address forms of the core layer (s17dcf_f, s17def_f).
#include <complex>
#include <cstdio>
#include <cstring>
#include <vector>

#include "frame/core_record.hpp"
#include "frame/report.hpp"
#include "special/complex/driver.hpp"
#include "zem/p01.h"
#include "zem/s.h"

namespace zem::sf::cbessel {
namespace {

constexpr core::Message kSequenceRows[] = {
    {99999, NW_SOME_PRECISION_LOSS, 2,
     "NW_SOME_PRECISION_LOSS:\n    Results lack precision because abs(z) = %s > %s."},
    {99998, NW_SOME_PRECISION_LOSS, 2,
     "NW_SOME_PRECISION_LOSS:\n    Results lack precision because fnu+n-1 = %s > %s."},
    {99997, NE_TOTAL_PRECISION_LOSS, 2,
     "NE_TOTAL_PRECISION_LOSS:\n    No computation because abs(z) = %s > %s."},
    {99996, NE_TOTAL_PRECISION_LOSS, 2,
     "NE_TOTAL_PRECISION_LOSS:\n    No computation because fnu+n-1 = %s > %s."},
    {99995, NE_OVERFLOW_LIKELY, 0, nullptr},
    {99994, NE_TERMINATION_FAILURE, 0, nullptr},
};

inline std::complex<double> to_cplx(ZemComplex z) noexcept { return {z.re, z.im}; }
inline ZemComplex from_cplx(std::complex<double> c) noexcept { return {c.real(), c.imag()}; }

// The core's result turned into the report.
void finish(Call& call, int ifail, const char rec[core::kRecordLen]) noexcept {
  if (ifail == 0) {
    call.success();
    return;
  }
  core::report_failure(call, ifail, rec, kSequenceRows);
}

// The plain sequence routines: checks in argument order, then the core.
// pole: the function has a pole at z = 0.
// kind: the Hankel function's kind, checked first, or null.
void plain_sequence(const char* routine, const char* core_name, Fn f, bool pole,
                    const int32_t* kind, double fnu, ZemComplex z, int32_t n, int32_t scal,
                    ZemComplex cy[], int32_t* nz, ZemError* fail) noexcept {
  Call call(routine, fail);
  if (kind && call.not_in("m", *kind, {1, 2}, "1, 2")) return;
  if (call.real_lt("fnu", fnu, 0.0, "0.0")) return;
  if (pole && z.re == 0.0 && z.im == 0.0) {
    call.report(NE_COMPLEX_ZERO, "z");
    return;
  }
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.enum_in("scal", scal, {Zem_UnscaleRes, Zem_ScaleRes})) return;
  if (call.null("cy", cy) || call.null("nz", nz)) return;
  std::vector<std::complex<double>> out(static_cast<std::size_t>(n));
  char rec[core::kRecordLen];
  int zeros = 0;
  const int ifail =
      sequence(f, core_name, fnu, to_cplx(z), n, scal == Zem_ScaleRes, out.data(), zeros, rec);
  *nz = zeros;
  if (ifail == 0 || ifail == 3)
    for (int32_t k = 0; k < n; ++k) cy[k] = from_cplx(out[static_cast<std::size_t>(k)]);
  finish(call, ifail, rec);
}

void plain_airy(const char* routine, const char* core_name, bool bi, int32_t deriv, ZemComplex z,
                int32_t scal, ZemComplex* result, int32_t* nz, ZemError* fail) noexcept {
  Call call(routine, fail);
  if (call.enum_in("deriv", deriv, {Zem_Function, Zem_Deriv})) return;
  if (call.enum_in("scal", scal, {Zem_UnscaleRes, Zem_ScaleRes})) return;
  if (call.null(bi ? "bi" : "ai", result)) return;
  if (!bi && call.null("nz", nz)) return;
  std::complex<double> out;
  char rec[core::kRecordLen];
  int zeros = 0;
  const int ifail =
      airy(bi, deriv == Zem_Deriv, core_name, to_cplx(z), scal == Zem_ScaleRes, out, zeros, rec);
  if (nz) *nz = zeros;
  if (ifail == 0 || ifail == 3) *result = from_cplx(out);
  finish(call, ifail, rec);
}

// The by-address form: failure 1 for a bad argument, else the core's
// failure number, explained through p01abf_f.
void address_sequence(const char* upper, Fn f, bool pole, const double* fnu, const ZemComplex* z,
                      const int32_t* n, const char* scale, ZemComplex cy[], int32_t* nz,
                      int32_t* ifail) noexcept {
  char line[core::kRecordLen + 64] = "";
  int ierror = 0;
  char rec[core::kRecordLen];
  if (!fnu || !z || !n || !scale || !cy || !nz) {
    std::snprintf(line, sizeof line, " ** On entry, an argument is a null pointer.");
    ierror = 1;
  } else if (!(*fnu >= 0.0)) {
    std::snprintf(line, sizeof line, " ** On entry, FNU .lt. 0: FNU = %13.5e.", *fnu);
    ierror = 1;
  } else if (pole && z->re == 0.0 && z->im == 0.0) {
    std::snprintf(line, sizeof line, " ** On entry, Z = (0.0, 0.0).");
    ierror = 1;
  } else if (*n < 1) {
    std::snprintf(line, sizeof line, " ** On entry, N .lt. 1: N = %16ld.", static_cast<long>(*n));
    ierror = 1;
  } else if (!(scale[0] == 'U' || scale[0] == 'u' || scale[0] == 'S' || scale[0] == 's')) {
    std::snprintf(line, sizeof line, " ** On entry, SCALE has an illegal value: SCALE = '%c'.",
                  scale[0]);
    ierror = 1;
  } else {
    std::vector<std::complex<double>> out(static_cast<std::size_t>(*n));
    int zeros = 0;
    ierror = sequence(f, upper, *fnu, to_cplx(*z), *n, scale[0] == 'S' || scale[0] == 's',
                      out.data(), zeros, rec);
    *nz = zeros;
    if (ierror == 0 || ierror == 3)
      for (int32_t k = 0; k < *n; ++k) cy[k] = from_cplx(out[static_cast<std::size_t>(k)]);
    if (ierror != 0) std::snprintf(line, sizeof line, "%.200s", rec);
  }
  const int32_t mode = ifail ? *ifail : 0;
  const int32_t err = ierror;
  const int32_t nrec = ierror != 0 ? 1 : 0;
  const int32_t r = p01abf_f(&mode, &err, upper, &nrec, line, std::strlen(upper), std::strlen(line));
  if (ifail) *ifail = r;
}

}  // namespace
}  // namespace zem::sf::cbessel

namespace cb = zem::sf::cbessel;

extern "C" {

ZEM_API void s17dcc(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t* nz, ZemError* fail) {
  cb::plain_sequence("s17dcc", "S17DCF", cb::Fn::Y, true, nullptr, fnu, z, n, scal, cy, nz, fail);
}

ZEM_API void s17dec(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t* nz, ZemError* fail) {
  cb::plain_sequence("s17dec", "S17DEF", cb::Fn::J, false, nullptr, fnu, z, n, scal, cy, nz, fail);
}

ZEM_API void s18dcc(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t* nz, ZemError* fail) {
  cb::plain_sequence("s18dcc", "S18DCF", cb::Fn::K, true, nullptr, fnu, z, n, scal, cy, nz, fail);
}

ZEM_API void s18dec(double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t* nz, ZemError* fail) {
  cb::plain_sequence("s18dec", "S18DEF", cb::Fn::I, false, nullptr, fnu, z, n, scal, cy, nz, fail);
}

ZEM_API void s17dlc(int32_t m, double fnu, ZemComplex z, int32_t n, int32_t scal, ZemComplex cy[],
                    int32_t* nz, ZemError* fail) {
  cb::plain_sequence("s17dlc", "S17DLF", m == 1 ? cb::Fn::H1 : cb::Fn::H2, true, &m, fnu, z, n,
                     scal, cy, nz, fail);
}

ZEM_API void s17dgc(int32_t deriv, ZemComplex z, int32_t scal, ZemComplex* ai, int32_t* nz,
                    ZemError* fail) {
  cb::plain_airy("s17dgc", "S17DGF", false, deriv, z, scal, ai, nz, fail);
}

ZEM_API void s17dhc(int32_t deriv, ZemComplex z, int32_t scal, ZemComplex* bi, ZemError* fail) {
  cb::plain_airy("s17dhc", "S17DHF", true, deriv, z, scal, bi, nullptr, fail);
}

ZEM_API void s17dcf_f(const double* fnu, const ZemComplex* z, const int32_t* n, const char* scale,
                      ZemComplex cy[], int32_t* nz, int32_t* ifail, size_t) {
  cb::address_sequence("S17DCF", cb::Fn::Y, true, fnu, z, n, scale, cy, nz, ifail);
}

ZEM_API void s17def_f(const double* fnu, const ZemComplex* z, const int32_t* n, const char* scale,
                      ZemComplex cy[], int32_t* nz, int32_t* ifail, size_t) {
  cb::address_sequence("S17DEF", cb::Fn::J, false, fnu, z, n, scale, cy, nz, ifail);
}

}  // extern "C"
