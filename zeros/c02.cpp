// The exported routines of the c02 chapter: argument checks, workspace and
// reports around the Laguerre driver (zeros/poly_laguerre) and the
// companion-matrix core (zeros/poly_companion).
#include "zeros/c02.hpp"

#include <type_traits>

#include "frame/workspace.hpp"
#include "zem/c02.h"
#include "zeros/poly_companion.hpp"
#include "zeros/poly_laguerre.hpp"

namespace zem::c02 {

namespace {

using poly::Status;

// Status of the Laguerre driver -> catalogue row, for complex and for real
// coefficients.  The complex routine reports every failure other than
// non-convergence as an overflow.
struct StatusRow {
  Status status;
  int complex_code;
  int real_code;
};
constexpr StatusRow kStatusRows[] = {
    {Status::Ok, NE_NOERROR, NE_NOERROR},
    {Status::NotConverged, NE_POLY_NOT_CONV, NE_POLY_NOT_CONV},
    {Status::Underflow, NE_POLY_OVFLOW, NE_POLY_UNFLOW},
    {Status::Overflow, NE_POLY_OVFLOW, NE_POLY_OVFLOW},
    {Status::AllocFail, NE_POLY_OVFLOW, NE_ALLOC_FAIL},
};

int status_code(Status st, bool real) noexcept {
  for (const StatusRow& row : kStatusRows)
    if (row.status == st) return real ? row.real_code : row.complex_code;
  return NE_INTERNAL_ERROR;
}

// The leading coefficient must not be zero.
bool leading_zero(Call& call, const ZemComplex& a0) noexcept {
  if (a0.re != 0.0 || a0.im != 0.0) return false;
  call.report(NE_COMPLEX_ZERO, "a[0]");
  return true;
}
bool leading_zero(Call& call, double a0) noexcept {
  if (a0 != 0.0) return false;
  call.report(NE_REAL_ARG_EQ, "a[0]", "0.0", "a[0]", a0);
  return true;
}

template <class Coef>
void polynomial_zeros(const char* routine, int32_t n, const Coef* a, int32_t scale, ZemComplex* z,
                      ZemError* fail) noexcept {
  constexpr bool kReal = std::is_same_v<Coef, double>;
  Call call(routine, fail);
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.null("a", a)) return;
  if (leading_zero(call, a[0])) return;
  if (call.null("z", z)) return;

  const double mark = poly::unset_mark();
  auto preset = [&] {
    for (int32_t i = 0; i < n; ++i) z[i] = ZemComplex{mark, mark};
  };
  Status st;
  if constexpr (kReal) {
    // The real driver takes its own workspace.
    preset();
    st = poly::real_zeros(n, a, scale != 0, z);
  } else {
    Workspace<double> work(poly::complex_workspace(n));
    if (!work) {
      call.report_null(NE_ALLOC_FAIL);
      return;
    }
    preset();
    st = poly::complex_zeros(n, a, scale != 0, z, work.get());
  }

  const int code = status_code(st, kReal);
  if (code == NE_NOERROR)
    call.success();
  else
    call.report_null(code);
}

// The message numbers of the companion core and the rows they map to.  The
// leading-coefficient row is filled by the wrapper with its own names.
constexpr core::Message kCompanionRows[] = {
    {99999, NE_REAL, 0, nullptr},          // leading coefficient zero
    {99998, NE_C02_OVERFLOW, 0, nullptr},  // companion matrix overflows
    {99997, NE_C02_NOT_CONV, 0, nullptr},  // Schur form not reached
};

template <int N>
void companion_routine(const char* routine, const char* core_name, const double (&coef)[N + 1],
                       const Leading& lead, double* zeror, double* zeroi, double* errest,
                       ZemError* fail) noexcept {
  Call call(routine, fail);
  if (call.null("zeror", zeror) || call.null("zeroi", zeroi) || call.null("errest", errest)) return;
  char rec[core::kRecordLen] = {};
  const char letter = static_cast<char>(lead.name[0] - 'a' + 'A');
  const int ifail = poly::companion_zeros(N, coef, core_name, letter, zeror, zeroi, errest, 1, rec);
  report_companion(call, ifail, rec, lead);
}

}  // namespace

void report_companion(Call& call, int ifail, const char rec[core::kRecordLen],
                      const Leading& lead) noexcept {
  call.set_errnum(ifail);
  if (ifail == 0) {
    call.report(NE_NOERROR);
    return;
  }
  char values[4][20];
  const core::Message* row = core::read_failure(call, ifail, rec, kCompanionRows, values);
  if (!row) return;
  if (row->code == NE_REAL) call.report(NE_REAL, lead.name, 0.0, lead.constraint);
  else call.report_null(row->code);
}

}  // namespace zem::c02

extern "C" {

ZEM_API void c02afc(int32_t n, const ZemComplex a[], int32_t scale, ZemComplex z[],
                    ZemError* fail) {
  zem::c02::polynomial_zeros("c02afc", n, a, scale, z, fail);
}

ZEM_API void c02agc(int32_t n, const double a[], int32_t scale, ZemComplex z[], ZemError* fail) {
  zem::c02::polynomial_zeros("c02agc", n, a, scale, z, fail);
}

ZEM_API void c02akc(double u, double r, double s, double t, double zeror[], double zeroi[],
                    double errest[], ZemError* fail) {
  const double coef[4] = {u, r, s, t};
  zem::c02::companion_routine<3>("c02akc", "C02AKF", coef, {"u", "u != 0.0"}, zeror, zeroi,
                                 errest, fail);
}

ZEM_API void c02alc(double e, double a, double b, double c, double d, double zeror[],
                    double zeroi[], double errest[], ZemError* fail) {
  const double coef[5] = {e, a, b, c, d};
  zem::c02::companion_routine<4>("c02alc", "C02ALF", coef, {"e", "e != 0.0"}, zeror, zeroi,
                                 errest, fail);
}

}  // extern "C"
