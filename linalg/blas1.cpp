// The f06 level-1 and scalar helpers, the kernel reporter f06aaz, and the
// kernel forms (column-major, letters for enumerators, arguments by value
// or by address) of DDOT, DSCAL, DGEMV and DTPMV.
//
// The helpers have no error record: like the kernels, they report a bad
// argument through f06aaz with its position and return without doing
// anything else.  Increments follow the reference BLAS (blas1.hpp), with
// one rule of their own: a vector that the routine writes needs a nonzero
// increment, while a vector that it only reads may have increment 0 (n
// copies of one element).  The work goes to CBLAS wherever CBLAS defines
// the result for the increments given; the loops of blas1.hpp take the
// rest.
#include <cblas.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <complex>
#include <limits>

#define lapack_complex_double std::complex<double>
#define lapack_complex_float std::complex<float>
#include <lapack.h>

#include "linalg/blas1.hpp"
#include "linalg/dense.hpp"
#include "zem/f06.h"

namespace {

using zem::blas1::Complex;
namespace b1 = zem::blas1;

// The checks of a helper, each reporting through the kernel reporter.
class Kernel {
 public:
  explicit Kernel(const char* name) noexcept : name_(name) {}
  // A condition that makes argument `position` bad.
  bool bad(bool condition, int position) const noexcept {
    if (condition) zem::la::report_kernel_parameter(name_, position);
    return condition;
  }
  bool n(long n) const noexcept { return bad(n < 0, 1); }
  // An array that the call references (n > 0) must not be null.
  bool array(const void* p, long n, int position) const noexcept { return bad(n > 0 && !p, position); }
  // A vector that the call writes.
  bool written(long inc, int position) const noexcept { return bad(inc == 0, position); }

 private:
  const char* name_;
};

const Complex* in(const ZemComplex* p) { return reinterpret_cast<const Complex*>(p); }
Complex* out(ZemComplex* p) { return reinterpret_cast<Complex*>(p); }
ZemComplex to_c(Complex v) { return ZemComplex{v.real(), v.imag()}; }

// The norm, sum of magnitudes and largest element do not depend on the
// order of the elements: a negative increment reads the same elements as
// its absolute value (CBLAS itself returns 0 for it).
long forward(long inc) { return inc < 0 ? -inc : inc; }

}  // namespace

extern "C" {

// ---- The kernel reporter.

ZEM_API void f06aaz(const char* name, int32_t number) { zem::la::report_kernel_parameter(name, number); }

ZEM_API void f06aaz_d(const char* name, const int32_t* number) {
  zem::la::report_kernel_parameter(name, number ? *number : 0);
}

// ---- Scalars.

ZEM_API void f06bcc(double t, double* c, double* s) {
  const Kernel k("f06bcc/rotation");
  if (k.bad(!c, 2) || k.bad(!s, 3)) return;
  // 1/hypot(1, t) neither overflows nor loses c for large |t|.
  if (std::isinf(t)) {
    *c = 0.0;
    *s = std::copysign(1.0, t);
    return;
  }
  const double r = std::hypot(1.0, t);
  *c = 1.0 / r;
  *s = t / r;
}

ZEM_API double f06bmc(double scale, double ssq) {
  const Kernel k("f06bmc/dnorm");
  if (k.bad(scale < 0.0, 1) || k.bad(ssq < 0.0, 2)) return std::numeric_limits<double>::quiet_NaN();
  if (scale == 0.0) return 0.0;
  return scale * std::sqrt(ssq);
}

ZEM_API double f06bnc(double a, double b) { return std::hypot(a, b); }

// ---- Integer vectors.

ZEM_API void f06dbc(int32_t n, int32_t alpha, int32_t x[], int32_t incx) {
  const Kernel k("f06dbc/iload");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4)) return;
  b1::fill<int32_t>(n, alpha, x, incx);
}

ZEM_API void f06dfc(int32_t n, const int32_t x[], int32_t incx, int32_t y[], int32_t incy) {
  const Kernel k("f06dfc/icopy");
  if (k.n(n) || k.array(x, n, 2) || k.array(y, n, 4) || k.written(incy, 5)) return;
  b1::each2(n, x, incx, y, incy, [](const int32_t& a, int32_t& b) { b = a; });
}

// ---- Real vectors.

ZEM_API double f06eac(int32_t n, const double x[], int32_t incx, const double y[], int32_t incy) {
  const Kernel k("f06eac/ddot");
  if (k.n(n) || k.array(x, n, 2) || k.array(y, n, 4) || n == 0) return 0.0;
  if (incx == 0 || incy == 0) return b1::dot_any<false>(n, x, incx, y, incy);
  return cblas_ddot(n, x, incx, y, incy);
}

ZEM_API double f06eaf_f(const int32_t* n, const double x[], const int32_t* incx, const double y[],
                        const int32_t* incy) {
  const Kernel k("F06EAF/DDOT");
  if (k.bad(!n, 1) || k.bad(!incx, 3) || k.bad(!incy, 5)) return 0.0;
  if (k.n(*n) || k.array(x, *n, 2) || k.array(y, *n, 4) || *n == 0) return 0.0;
  if (*incx == 0 || *incy == 0) return b1::dot_any<false>(*n, x, *incx, y, *incy);
  return cblas_ddot(*n, x, *incx, y, *incy);
}

ZEM_API void f06ecc(int32_t n, double alpha, const double x[], int32_t incx, double y[], int32_t incy) {
  const Kernel k("f06ecc/daxpy");
  if (k.n(n) || k.array(x, n, 3) || k.array(y, n, 5) || k.written(incy, 6) || n == 0) return;
  if (incx == 0) b1::each2(n, x, incx, y, incy, [alpha](const double& a, double& b) { b += alpha * a; });
  else cblas_daxpy(n, alpha, x, incx, y, incy);
}

ZEM_API void f06edc(int32_t n, double alpha, double x[], int32_t incx) {
  const Kernel k("f06edc/dscal");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4) || n == 0) return;
  // alpha = 0 clears x whatever it held, whichever BLAS is underneath.
  if (alpha == 0.0) b1::fill(n, 0.0, x, incx);
  else cblas_dscal(n, alpha, x, static_cast<blasint>(forward(incx)));
}

ZEM_API void f06edf_f(const int32_t* n, const double* alpha, double x[], const int32_t* incx) {
  const Kernel k("F06EDF/DSCAL");
  if (k.bad(!n, 1) || k.bad(!alpha, 2) || k.bad(!incx, 4)) return;
  if (k.n(*n) || k.array(x, *n, 3) || k.written(*incx, 4) || *n == 0) return;
  if (*alpha == 0.0) b1::fill(*n, 0.0, x, *incx);
  else cblas_dscal(*n, *alpha, x, static_cast<blasint>(forward(*incx)));
}

ZEM_API void f06efc(int32_t n, const double x[], int32_t incx, double y[], int32_t incy) {
  const Kernel k("f06efc/dcopy");
  if (k.n(n) || k.array(x, n, 2) || k.array(y, n, 4) || k.written(incy, 5) || n == 0) return;
  if (incx == 0) b1::fill(n, *x, y, incy);
  else cblas_dcopy(n, x, incx, y, incy);
}

ZEM_API void f06egc(int32_t n, double x[], int32_t incx, double y[], int32_t incy) {
  const Kernel k("f06egc/dswap");
  if (k.n(n) || k.array(x, n, 2) || k.written(incx, 3) || k.array(y, n, 4) || k.written(incy, 5) || n == 0) return;
  cblas_dswap(n, x, incx, y, incy);
}

ZEM_API double f06ejc(int32_t n, const double x[], int32_t incx) {
  const Kernel k("f06ejc/dnrm2");
  if (k.n(n) || k.array(x, n, 2) || n == 0) return 0.0;
  if (incx == 0) return std::sqrt(static_cast<double>(n)) * std::fabs(x[0]);
  return cblas_dnrm2(n, x, static_cast<blasint>(forward(incx)));
}

ZEM_API double f06ekc(int32_t n, const double x[], int32_t incx) {
  const Kernel k("f06ekc/dasum");
  if (k.n(n) || k.array(x, n, 2) || n == 0) return 0.0;
  if (incx == 0) return static_cast<double>(n) * std::fabs(x[0]);
  return cblas_dasum(n, x, static_cast<blasint>(forward(incx)));
}

ZEM_API void f06epc(int32_t n, double x[], int32_t incx, double y[], int32_t incy, double c, double s) {
  const Kernel k("f06epc/drot");
  if (k.n(n) || k.array(x, n, 2) || k.written(incx, 3) || k.array(y, n, 4) || k.written(incy, 5) || n == 0) return;
  cblas_drot(n, x, incx, y, incy, c, s);
}

ZEM_API void f06fbc(int32_t n, double alpha, double x[], int32_t incx) {
  const Kernel k("f06fbc/dload");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4)) return;
  b1::fill(n, alpha, x, incx);
}

ZEM_API void f06fdc(int32_t n, double alpha, const double x[], int32_t incx, double y[], int32_t incy) {
  const Kernel k("f06fdc/dscopy");
  if (k.n(n) || k.array(x, n, 3) || k.array(y, n, 5) || k.written(incy, 6)) return;
  b1::scale_copy(n, alpha, x, incx, y, incy);
}

ZEM_API void f06fgc(int32_t n, double x[], int32_t incx) {
  const Kernel k("f06fgc/dneg");
  if (k.n(n) || k.array(x, n, 2) || k.written(incx, 3)) return;
  // A sign flip, exact for every value (-0, infinities and NaNs included).
  x = b1::first(x, n, incx);
  for (long i = 0; i < n; ++i) x[i * incx] = -x[i * incx];
}

ZEM_API void f06fjc(int32_t n, const double x[], int32_t incx, double* scale, double* sumsq) {
  const Kernel k("f06fjc/dssq");
  if (k.n(n) || k.array(x, n, 2) || k.bad(!scale || *scale < 0.0, 4) || k.bad(!sumsq || *sumsq < 0.0, 5)) return;
  // The norm of x from the BLAS, folded into the pair.
  b1::ScaledSsq s{*scale, *sumsq};
  s.add(f06ejc(n, x, incx));
  *scale = s.scale;
  *sumsq = s.ssq;
}

ZEM_API void f06frc(int32_t n, double* alpha, double x[], int32_t incx, double* tau) {
  const Kernel k("f06frc/dlarfg");
  if (k.n(n) || k.bad(!alpha, 2) || k.array(x, n - 1, 3) || k.bad(n > 1 && incx == 0, 4) || k.bad(!tau, 5)) return;
  if (n <= 1) {
    *tau = 0.0;
    return;
  }
  // The reflection depends on the elements of x, not on their order.
  const lapack_int len = n, inc = static_cast<lapack_int>(forward(incx));
  LAPACK_dlarfg(&len, alpha, x, &inc, tau);
}

// ---- Complex vectors.

ZEM_API ZemComplex f06gbc(int32_t n, const ZemComplex x[], int32_t incx, const ZemComplex y[], int32_t incy) {
  const Kernel k("f06gbc/zdotc");
  if (k.n(n) || k.array(x, n, 2) || k.array(y, n, 4) || n == 0) return ZemComplex{0.0, 0.0};
  if (incx == 0 || incy == 0) return to_c(b1::dot_any<true>(n, in(x), incx, in(y), incy));
  Complex r;
  cblas_zdotc_sub(n, x, incx, y, incy, &r);
  return to_c(r);
}

ZEM_API void f06gcc(int32_t n, ZemComplex alpha, const ZemComplex x[], int32_t incx, ZemComplex y[], int32_t incy) {
  const Kernel k("f06gcc/zaxpy");
  if (k.n(n) || k.array(x, n, 3) || k.array(y, n, 5) || k.written(incy, 6) || n == 0) return;
  const Complex a(alpha.re, alpha.im);
  if (incx == 0) b1::each2(n, in(x), incx, out(y), incy, [a](const Complex& u, Complex& v) { v += a * u; });
  else cblas_zaxpy(n, &a, x, incx, y, incy);
}

ZEM_API void f06gdc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx) {
  const Kernel k("f06gdc/zscal");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4) || n == 0) return;
  const Complex a(alpha.re, alpha.im);
  if (a == 0.0) b1::fill(n, Complex(0.0), out(x), incx);
  else cblas_zscal(n, &a, x, static_cast<blasint>(forward(incx)));
}

ZEM_API void f06gfc(int32_t n, const ZemComplex x[], int32_t incx, ZemComplex y[], int32_t incy) {
  const Kernel k("f06gfc/zcopy");
  if (k.n(n) || k.array(x, n, 2) || k.array(y, n, 4) || k.written(incy, 5) || n == 0) return;
  if (incx == 0) b1::fill(n, *in(x), out(y), incy);
  else cblas_zcopy(n, x, incx, y, incy);
}

ZEM_API void f06ggc(int32_t n, ZemComplex x[], int32_t incx, ZemComplex y[], int32_t incy) {
  const Kernel k("f06ggc/zswap");
  if (k.n(n) || k.array(x, n, 2) || k.written(incx, 3) || k.array(y, n, 4) || k.written(incy, 5) || n == 0) return;
  cblas_zswap(n, x, incx, y, incy);
}

ZEM_API void f06hbc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx) {
  const Kernel k("f06hbc/zload");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4)) return;
  b1::fill(n, Complex(alpha.re, alpha.im), out(x), incx);
}

ZEM_API void f06jdc(int32_t n, double alpha, ZemComplex x[], int32_t incx) {
  const Kernel k("f06jdc/zdscal");
  if (k.n(n) || k.array(x, n, 3) || k.written(incx, 4) || n == 0) return;
  if (alpha == 0.0) b1::fill(n, Complex(0.0), out(x), incx);
  else cblas_zdscal(n, alpha, x, static_cast<blasint>(forward(incx)));
}

ZEM_API double f06jjc(int32_t n, const ZemComplex x[], int32_t incx) {
  const Kernel k("f06jjc/dznrm2");
  if (k.n(n) || k.array(x, n, 2) || n == 0) return 0.0;
  if (incx == 0) return std::sqrt(static_cast<double>(n)) * b1::magnitude(*in(x));
  return cblas_dznrm2(n, x, static_cast<blasint>(forward(incx)));
}

ZEM_API double f06jkc(int32_t n, const ZemComplex x[], int32_t incx) {
  const Kernel k("f06jkc/dzasum");
  if (k.n(n) || k.array(x, n, 2) || n == 0) return 0.0;
  if (incx == 0) return static_cast<double>(n) * b1::abs1(*in(x));
  return cblas_dzasum(n, x, static_cast<blasint>(forward(incx)));
}

ZEM_API int32_t f06jlc(int32_t n, const double x[], int32_t incx) {
  const Kernel k("f06jlc/idamax");
  if (k.n(n) || k.array(x, n, 2)) return -1;
  return static_cast<int32_t>(b1::amax_index(n, x, incx));
}

ZEM_API int32_t f06jmc(int32_t n, const ZemComplex x[], int32_t incx) {
  const Kernel k("f06jmc/izamax");
  if (k.n(n) || k.array(x, n, 2)) return -1;
  return static_cast<int32_t>(b1::amax_index(n, in(x), incx));
}

// ---- Kernel forms of DGEMV and DTPMV, column-major, checked in the
// kernels' argument order.

ZEM_API void f06paf_f(const char* trans, const int32_t* m, const int32_t* n, const double* alpha, const double a[],
                      const int32_t* lda, const double x[], const int32_t* incx, const double* beta, double y[],
                      const int32_t* incy) {
  const Kernel k("F06PAF/DGEMV");
  const char t = trans ? static_cast<char>(std::toupper(static_cast<unsigned char>(*trans))) : 0;
  if (k.bad(t != 'N' && t != 'T' && t != 'C', 1) || k.bad(!m || *m < 0, 2) || k.bad(!n || *n < 0, 3) ||
      k.bad(!alpha, 4) || k.bad(!lda || *lda < std::max(1, *m), 6) || k.bad(!incx || *incx == 0, 8) ||
      k.bad(!beta, 9) || k.bad(!incy || *incy == 0, 11))
    return;
  const bool notrans = t == 'N';
  const long lx = notrans ? *n : *m, ly = notrans ? *m : *n;
  if (k.array(a, long(*m) * *n, 5) || k.array(x, lx, 7) || k.array(y, ly, 10)) return;
  if (*m == 0 || *n == 0) {
    // y = beta y: no product to add.
    if (ly > 0 && *beta != 1.0) {
      if (*beta == 0.0) b1::fill(ly, 0.0, y, *incy);
      else b1::scale(ly, *beta, y, *incy);
    }
    return;
  }
  cblas_dgemv(CblasColMajor, notrans ? CblasNoTrans : CblasTrans, *m, *n, *alpha, a, *lda, x, *incx, *beta, y,
              *incy);
}

ZEM_API void f06phf(char uplo, char trans, char diag, int32_t n, const double ap[], double x[], int32_t incx) {
  const Kernel k("F06PHF/DTPMV");
  auto up = [](char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); };
  const char u = up(uplo), t = up(trans), d = up(diag);
  if (k.bad(u != 'U' && u != 'L', 1) || k.bad(t != 'N' && t != 'T' && t != 'C', 2) ||
      k.bad(d != 'N' && d != 'U', 3) || k.bad(n < 0, 4) || k.array(ap, n, 5) ||
      k.array(x, n, 6) || k.written(incx, 7) || n == 0)
    return;
  cblas_dtpmv(CblasColMajor, u == 'U' ? CblasUpper : CblasLower, t == 'N' ? CblasNoTrans : CblasTrans,
              d == 'U' ? CblasUnit : CblasNonUnit, n, ap, x, incx);
}

ZEM_API void f06phf_f(const char* uplo, const char* trans, const char* diag, const int32_t* n, const double ap[],
                      double x[], const int32_t* incx) {
  const Kernel k("F06PHF/DTPMV");
  if (k.bad(!uplo, 1) || k.bad(!trans, 2) || k.bad(!diag, 3) || k.bad(!n, 4) || k.bad(!incx, 7)) return;
  f06phf(*uplo, *trans, *diag, *n, ap, x, *incx);
}

}  // extern "C"
