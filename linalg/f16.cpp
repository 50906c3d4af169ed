// The f16 chapter (extended BLAS) and the f06 matrix helpers on the same
// cores: loads, copies and norms of matrices in every storage scheme, the
// triangular solves with a scalar, and the vector loads.
//
// Each family is one driver, a template over the element type: it checks
// the arguments in order, turns a row-major call into a column-major one on
// the transpose (f16_core.hpp), and runs the core.  The exports only name
// the routine and pass their arguments on.
#include <cblas.h>

#include <algorithm>
#include <cctype>

#include "linalg/blas1.hpp"
#include "linalg/f16_core.hpp"
#include "zem/f06.h"
#include "zem/f16.h"

namespace {

using zem::la::Complex;
using zem::la::mat::Checks;
using zem::la::mat::other;
using zem::la::mat::Part;
using zem::la::mat::Sym;
using zem::la::mat::transposed_norm;

// ZemComplex has the layout of std::complex<double>.
const Complex* in(const ZemComplex* p) { return reinterpret_cast<const Complex*>(p); }
Complex* out(ZemComplex* p) { return reinterpret_cast<Complex*>(p); }
Complex value(ZemComplex v) { return Complex(v.re, v.im); }

// ---- Vectors.

template <class T>
void vector_load(const char* routine, std::int32_t n, T alpha, T* x, std::int32_t incx, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("x", x)) return;
  if (c.dim("n", n, 1) || c.nonzero("incx", incx, 4)) return;
  zem::blas1::fill<T>(n, alpha, x, incx);
}

// ---- Norms.  A row-major matrix is the column-major array of its
// transpose: rows and columns, triangles and band sides exchange, and the
// one- and infinity-norms with them.

// General m by n, or its trapezoid when the routine has a `matrix` argument.
template <class T>
void general_norm(const char* routine, std::int32_t order, std::int32_t norm, const std::int32_t* matrix,
                  std::int32_t m, std::int32_t n, const T* a, std::int32_t pda, double* r, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("r", r)) return;
  const int s = matrix ? 1 : 0;  // positions after `matrix` move by one
  char kind;
  Part part = Part::General;
  if (c.norm(norm, &kind)) return;
  if (matrix && c.part(*matrix, &part)) return;
  if (c.dim("m", m, 3 + s) || c.dim("n", n, 4 + s) || c.order(order)) return;
  if (c.ld("pda", pda, m, "m", n, "n", 6 + s)) return;
  *r = c.row_major() ? zem::la::mat::norm_general(transposed_norm(kind), other(part), n, m, a, pda)
                     : zem::la::mat::norm_general(kind, part, m, n, a, pda);
}

template <class T>
void band_norm(const char* routine, std::int32_t order, std::int32_t norm, std::int32_t m, std::int32_t n,
               std::int32_t kl, std::int32_t ku, const T* a, std::int32_t pda, double* r, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("r", r)) return;
  char kind;
  if (c.norm(norm, &kind)) return;
  if (c.dim("m", m, 3) || c.dim("n", n, 4) || c.dim("kl", kl, 5) || c.dim("ku", ku, 6) || c.order(order)) return;
  if (c.ld_band("pda", pda, static_cast<long>(kl) + ku + 1, "pda >= kl+ku+1", 8)) return;
  *r = c.row_major() ? zem::la::mat::norm_band(transposed_norm(kind), n, m, ku, kl, a, pda)
                     : zem::la::mat::norm_band(kind, m, n, kl, ku, a, pda);
}

// Symmetric or Hermitian in full storage (the triangle uplo is read).
template <class T>
void sym_norm(const char* routine, Sym sym, std::int32_t order, std::int32_t norm, std::int32_t uplo,
              std::int32_t n, const T* a, std::int32_t pda, double* r, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("r", r)) return;
  char kind;
  bool upper;
  if (c.norm(norm, &kind) || c.uplo(uplo, &upper) || c.dim("n", n, 4) || c.order(order)) return;
  if (c.ld("pda", pda, n, "n", n, "n", 6)) return;
  if (c.row_major()) upper = !upper;
  *r = zem::la::mat::norm_sym(kind, sym, upper, n, a, pda);
}

// Packed: the row-major packed upper triangle is the column-major packed
// lower triangle of the transpose, and the other way round.
template <class T>
void sym_packed_norm(const char* routine, Sym sym, std::int32_t order, std::int32_t norm, std::int32_t uplo,
                     std::int32_t n, const T* ap, double* r, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("ap", ap) || c.null("r", r)) return;
  char kind;
  bool upper;
  if (c.norm(norm, &kind) || c.uplo(uplo, &upper) || c.dim("n", n, 4) || c.order(order)) return;
  if (c.row_major()) upper = !upper;
  *r = zem::la::mat::norm_sym_packed(kind, sym, upper, n, ap);
}

template <class T>
void sym_band_norm(const char* routine, Sym sym, std::int32_t order, std::int32_t norm, std::int32_t uplo,
                   std::int32_t n, std::int32_t k, const T* a, std::int32_t pda, double* r, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("r", r)) return;
  char kind;
  bool upper;
  if (c.norm(norm, &kind) || c.uplo(uplo, &upper) || c.dim("n", n, 4) || c.dim("k", k, 5) || c.order(order))
    return;
  if (c.ld_band("pda", pda, static_cast<long>(k) + 1, "pda >= k+1", 7)) return;
  if (c.row_major()) upper = !upper;
  *r = zem::la::mat::norm_sym_band(kind, sym, upper, n, k, a, pda);
}

// ---- Copies and loads.

// The m by n matrix or its trapezoid, without transposition.
template <class T>
void trapezoid_copy(const char* routine, std::int32_t order, std::int32_t matrix, std::int32_t m, std::int32_t n,
                    const T* a, std::int32_t pda, T* b, std::int32_t pdb, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("b", b)) return;
  Part part;
  if (c.part(matrix, &part) || c.dim("m", m, 3) || c.dim("n", n, 4) || c.order(order)) return;
  if (c.ld("pda", pda, m, "m", n, "n", 6) || c.ld("pdb", pdb, m, "m", n, "n", 8)) return;
  if (c.row_major()) zem::la::mat::copy('N', other(part), false, n, m, a, pda, b, pdb);
  else zem::la::mat::copy('N', part, false, m, n, a, pda, b, pdb);
}

// B = op(A), B m by n.
template <class T>
void general_copy(const char* routine, std::int32_t order, std::int32_t trans, std::int32_t m, std::int32_t n,
                  const T* a, std::int32_t pda, T* b, std::int32_t pdb, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("b", b)) return;
  char t;
  if (c.trans(trans, &t) || c.dim("m", m, 3) || c.dim("n", n, 4) || c.order(order)) return;
  // A is m by n, or n by m when transposed.
  const bool same = t == 'N';
  if (c.ld("pda", pda, same ? m : n, same ? "m" : "n", same ? n : m, same ? "n" : "m", 6)) return;
  if (c.ld("pdb", pdb, m, "m", n, "n", 8)) return;
  if (c.row_major()) zem::la::mat::copy(t, Part::General, false, n, m, a, pda, b, pdb);
  else zem::la::mat::copy(t, Part::General, false, m, n, a, pda, b, pdb);
}

template <class T>
void triangle_copy(const char* routine, std::int32_t order, std::int32_t uplo, std::int32_t trans,
                   std::int32_t diag, std::int32_t n, const T* a, std::int32_t pda, T* b, std::int32_t pdb,
                   ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("b", b)) return;
  bool upper, unit;
  char t;
  if (c.uplo(uplo, &upper) || c.trans(trans, &t) || c.diag(diag, &unit) || c.dim("n", n, 5) || c.order(order))
    return;
  if (c.ld("pda", pda, n, "n", n, "n", 7) || c.ld("pdb", pdb, n, "n", n, "n", 9)) return;
  Part part = upper ? Part::Upper : Part::Lower;
  if (c.row_major()) part = other(part);
  zem::la::mat::copy(t, part, unit, n, n, a, pda, b, pdb);
}

// Runs a load after the checks: the part of the m by n matrix.
template <class T>
void load_matrix(const Checks& c, Part part, std::int32_t m, std::int32_t n, T alpha, T beta, T* a,
                 std::int32_t pda) {
  if (c.row_major()) zem::la::mat::load(other(part), n, m, alpha, beta, a, pda);
  else zem::la::mat::load(part, m, n, alpha, beta, a, pda);
}

// f06qhc and f06thc: the matrix or its trapezoid.
template <class T>
void trapezoid_load(const char* routine, std::int32_t order, std::int32_t matrix, std::int32_t m, std::int32_t n,
                    T alpha, T beta, T* a, std::int32_t pda, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a)) return;
  Part part;
  if (c.part(matrix, &part) || c.dim("m", m, 3) || c.dim("n", n, 4) || c.order(order)) return;
  if (c.ld("pda", pda, m, "m", n, "n", 8)) return;
  load_matrix(c, part, m, n, alpha, beta, a, pda);
}

template <class T>
void general_load(const char* routine, std::int32_t order, std::int32_t m, std::int32_t n, T alpha, T beta, T* a,
                  std::int32_t pda, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a)) return;
  if (c.dim("m", m, 2) || c.dim("n", n, 3) || c.order(order)) return;
  if (c.ld("pda", pda, m, "m", n, "n", 7)) return;
  load_matrix(c, Part::General, m, n, alpha, beta, a, pda);
}

template <class T>
void triangle_load(const char* routine, std::int32_t order, std::int32_t uplo, std::int32_t n, T alpha, T beta,
                   T* a, std::int32_t pda, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a)) return;
  bool upper;
  if (c.uplo(uplo, &upper) || c.dim("n", n, 3) || c.order(order)) return;
  if (c.ld("pda", pda, n, "n", n, "n", 7)) return;
  load_matrix(c, upper ? Part::Upper : Part::Lower, n, n, alpha, beta, a, pda);
}

// ---- Triangular solves with a scalar, on the CBLAS kernels.

void trsv_kernel(std::int32_t order, std::int32_t uplo, std::int32_t trans, std::int32_t diag, std::int32_t n,
                 const double* a, std::int32_t pda, double* x, std::int32_t incx) {
  cblas_dtrsv(static_cast<CBLAS_ORDER>(order), static_cast<CBLAS_UPLO>(uplo), static_cast<CBLAS_TRANSPOSE>(trans),
              static_cast<CBLAS_DIAG>(diag), n, a, pda, x, incx);
}
void trsv_kernel(std::int32_t order, std::int32_t uplo, std::int32_t trans, std::int32_t diag, std::int32_t n,
                 const Complex* a, std::int32_t pda, Complex* x, std::int32_t incx) {
  cblas_ztrsv(static_cast<CBLAS_ORDER>(order), static_cast<CBLAS_UPLO>(uplo), static_cast<CBLAS_TRANSPOSE>(trans),
              static_cast<CBLAS_DIAG>(diag), n, a, pda, x, incx);
}

template <class T>
void trsv(const char* routine, std::int32_t order, std::int32_t uplo, std::int32_t trans, std::int32_t diag,
          std::int32_t n, T alpha, const T* a, std::int32_t pda, T* x, std::int32_t incx, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("x", x)) return;
  bool upper, unit;
  char t;
  if (c.uplo(uplo, &upper) || c.trans(trans, &t) || c.diag(diag, &unit) || c.dim("n", n, 5) ||
      c.nonzero("incx", incx, 10) || c.order(order))
    return;
  if (c.ld("pda", pda, n, "n", n, "n", 8)) return;
  if (n == 0) return;
  // alpha op(A)^-1 x = op(A)^-1 (alpha x); alpha = 0 needs no solve.
  if (alpha != T(1)) zem::blas1::scale<T>(n, alpha, x, incx < 0 ? -incx : incx);
  if (alpha == T(0)) return;
  trsv_kernel(order, uplo, trans, diag, n, a, pda, x, incx);
}

void trsm_kernel(std::int32_t order, std::int32_t side, std::int32_t uplo, std::int32_t trans, std::int32_t diag,
                 std::int32_t m, std::int32_t n, double alpha, const double* a, std::int32_t pda, double* b,
                 std::int32_t pdb) {
  cblas_dtrsm(static_cast<CBLAS_ORDER>(order), static_cast<CBLAS_SIDE>(side), static_cast<CBLAS_UPLO>(uplo),
              static_cast<CBLAS_TRANSPOSE>(trans), static_cast<CBLAS_DIAG>(diag), m, n, alpha, a, pda, b, pdb);
}
void trsm_kernel(std::int32_t order, std::int32_t side, std::int32_t uplo, std::int32_t trans, std::int32_t diag,
                 std::int32_t m, std::int32_t n, Complex alpha, const Complex* a, std::int32_t pda, Complex* b,
                 std::int32_t pdb) {
  cblas_ztrsm(static_cast<CBLAS_ORDER>(order), static_cast<CBLAS_SIDE>(side), static_cast<CBLAS_UPLO>(uplo),
              static_cast<CBLAS_TRANSPOSE>(trans), static_cast<CBLAS_DIAG>(diag), m, n, &alpha, a, pda, b, pdb);
}

template <class T>
void trsm(const char* routine, std::int32_t order, std::int32_t side, std::int32_t uplo, std::int32_t trans,
          std::int32_t diag, std::int32_t m, std::int32_t n, T alpha, const T* a, std::int32_t pda, T* b,
          std::int32_t pdb, ZemError* fail) {
  Checks c(routine, fail);
  if (c.null("a", a) || c.null("b", b)) return;
  bool left, upper, unit;
  char t;
  if (c.side(side, &left) || c.uplo(uplo, &upper) || c.trans(trans, &t) || c.diag(diag, &unit) ||
      c.dim("m", m, 6) || c.dim("n", n, 7) || c.order(order))
    return;
  const long k = left ? m : n;
  const char* k_name = left ? "m" : "n";
  if (c.ld("pda", pda, k, k_name, k, k_name, 10) || c.ld("pdb", pdb, m, "m", n, "n", 12)) return;
  if (m == 0 || n == 0) return;
  trsm_kernel(order, side, uplo, trans, diag, m, n, alpha, a, pda, b, pdb);
}

// ---- Kernel forms: column-major, enumerators as letters, no error record;
// a bad argument is reported with its position through the kernel reporter.

bool kernel_bad(const char* kernel, bool bad, int position) {
  if (bad) zem::la::report_kernel_parameter(kernel, position);
  return bad;
}

char upper_letter(const char* p) { return p ? static_cast<char>(std::toupper(static_cast<unsigned char>(*p))) : 0; }

}  // namespace

extern "C" {

// ---- f16 vectors.

ZEM_API void f16dbc(int32_t n, int32_t alpha, int32_t x[], int32_t incx, ZemError* fail) {
  vector_load<std::int32_t>("zem_iload (f16dbc)", n, alpha, x, incx, fail);
}

ZEM_API void f16fbc(int32_t n, double alpha, double x[], int32_t incx, ZemError* fail) {
  vector_load<double>("zem_dload (f16fbc)", n, alpha, x, incx, fail);
}

ZEM_API void f16hbc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx, ZemError* fail) {
  vector_load<Complex>("zem_zload (f16hbc)", n, value(alpha), out(x), incx, fail);
}

ZEM_API void f16ecc(int32_t n, double alpha, const double x[], int32_t incx, double beta, double y[], int32_t incy,
                    ZemError* fail) {
  Checks c("zem_daxpby (f16ecc)", fail);
  if (c.null("x", x) || c.null("y", y)) return;
  if (c.dim("n", n, 1) || c.nonzero("incx", incx, 4) || c.nonzero("incy", incy, 7)) return;
  zem::blas1::axpby(n, alpha, x, incx, beta, y, incy);
}

// ---- f16 triangular solves.

ZEM_API void f16pjc(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, Zem_DiagType diag, int32_t n,
                    double alpha, const double a[], int32_t pda, double x[], int32_t incx, ZemError* fail) {
  trsv("zem_dtrsv (f16pjc)", order, uplo, trans, diag, n, alpha, a, pda, x, incx, fail);
}

ZEM_API void f16sjc(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, Zem_DiagType diag, int32_t n,
                    ZemComplex alpha, const ZemComplex a[], int32_t pda, ZemComplex x[], int32_t incx,
                    ZemError* fail) {
  trsv("zem_ztrsv (f16sjc)", order, uplo, trans, diag, n, value(alpha), in(a), pda, out(x), incx, fail);
}

ZEM_API void f16yjc(Zem_OrderType order, Zem_SideType side, Zem_UploType uplo, Zem_TransType trans,
                    Zem_DiagType diag, int32_t m, int32_t n, double alpha, const double a[], int32_t pda, double b[],
                    int32_t pdb, ZemError* fail) {
  trsm("zem_dtrsm (f16yjc)", order, side, uplo, trans, diag, m, n, alpha, a, pda, b, pdb, fail);
}

ZEM_API void f16zjc(Zem_OrderType order, Zem_SideType side, Zem_UploType uplo, Zem_TransType trans,
                    Zem_DiagType diag, int32_t m, int32_t n, ZemComplex alpha, const ZemComplex a[], int32_t pda,
                    ZemComplex b[], int32_t pdb, ZemError* fail) {
  trsm("zem_ztrsm (f16zjc)", order, side, uplo, trans, diag, m, n, value(alpha), in(a), pda, out(b), pdb, fail);
}

// ---- f16 copies and loads.

ZEM_API void f16qec(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, Zem_DiagType diag, int32_t n,
                    const double a[], int32_t pda, double b[], int32_t pdb, ZemError* fail) {
  triangle_copy("zem_dtr_copy (f16qec)", order, uplo, trans, diag, n, a, pda, b, pdb, fail);
}

ZEM_API void f16tec(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, Zem_DiagType diag, int32_t n,
                    const ZemComplex a[], int32_t pda, ZemComplex b[], int32_t pdb, ZemError* fail) {
  triangle_copy("zem_ztr_copy (f16tec)", order, uplo, trans, diag, n, in(a), pda, out(b), pdb, fail);
}

ZEM_API void f16qfc(Zem_OrderType order, Zem_TransType trans, int32_t m, int32_t n, const double a[], int32_t pda,
                    double b[], int32_t pdb, ZemError* fail) {
  general_copy("zem_dge_copy (f16qfc)", order, trans, m, n, a, pda, b, pdb, fail);
}

ZEM_API void f16tfc(Zem_OrderType order, Zem_TransType trans, int32_t m, int32_t n, const ZemComplex a[],
                    int32_t pda, ZemComplex b[], int32_t pdb, ZemError* fail) {
  general_copy("zem_zge_copy (f16tfc)", order, trans, m, n, in(a), pda, out(b), pdb, fail);
}

ZEM_API void f16qgc(Zem_OrderType order, Zem_UploType uplo, int32_t n, double alpha, double beta, double a[],
                    int32_t pda, ZemError* fail) {
  triangle_load("zem_dtr_load (f16qgc)", order, uplo, n, alpha, beta, a, pda, fail);
}

ZEM_API void f16tgc(Zem_OrderType order, Zem_UploType uplo, int32_t n, ZemComplex alpha, ZemComplex beta,
                    ZemComplex a[], int32_t pda, ZemError* fail) {
  triangle_load("zem_ztr_load (f16tgc)", order, uplo, n, value(alpha), value(beta), out(a), pda, fail);
}

ZEM_API void f16qhc(Zem_OrderType order, int32_t m, int32_t n, double alpha, double beta, double a[], int32_t pda,
                    ZemError* fail) {
  general_load("zem_dge_load (f16qhc)", order, m, n, alpha, beta, a, pda, fail);
}

ZEM_API void f16thc(Zem_OrderType order, int32_t m, int32_t n, ZemComplex alpha, ZemComplex beta, ZemComplex a[],
                    int32_t pda, ZemError* fail) {
  general_load("zem_zge_load (f16thc)", order, m, n, value(alpha), value(beta), out(a), pda, fail);
}

// ---- f16 norms.

ZEM_API void f16rac(Zem_OrderType order, Zem_NormType norm, int32_t m, int32_t n, const double a[], int32_t pda,
                    double* r, ZemError* fail) {
  general_norm("zem_dge_norm (f16rac)", order, norm, nullptr, m, n, a, pda, r, fail);
}

ZEM_API void f16uac(Zem_OrderType order, Zem_NormType norm, int32_t m, int32_t n, const ZemComplex a[], int32_t pda,
                    double* r, ZemError* fail) {
  general_norm("zem_zge_norm (f16uac)", order, norm, nullptr, m, n, in(a), pda, r, fail);
}

ZEM_API void f16rbc(Zem_OrderType order, Zem_NormType norm, int32_t m, int32_t n, int32_t kl, int32_t ku,
                    const double a[], int32_t pda, double* r, ZemError* fail) {
  band_norm("zem_dgb_norm (f16rbc)", order, norm, m, n, kl, ku, a, pda, r, fail);
}

ZEM_API void f16rcc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const double a[],
                    int32_t pda, double* r, ZemError* fail) {
  sym_norm("zem_dsy_norm (f16rcc)", Sym::Symmetric, order, norm, uplo, n, a, pda, r, fail);
}

ZEM_API void f16ucc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const ZemComplex a[],
                    int32_t pda, double* r, ZemError* fail) {
  sym_norm("zem_zhe_norm (f16ucc)", Sym::Hermitian, order, norm, uplo, n, in(a), pda, r, fail);
}

ZEM_API void f16ufc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const ZemComplex a[],
                    int32_t pda, double* r, ZemError* fail) {
  sym_norm("zem_zsy_norm (f16ufc)", Sym::Symmetric, order, norm, uplo, n, in(a), pda, r, fail);
}

ZEM_API void f16rdc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const double ap[],
                    double* r, ZemError* fail) {
  sym_packed_norm("zem_dsp_norm (f16rdc)", Sym::Symmetric, order, norm, uplo, n, ap, r, fail);
}

ZEM_API void f16udc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const ZemComplex ap[],
                    double* r, ZemError* fail) {
  sym_packed_norm("zem_zhp_norm (f16udc)", Sym::Hermitian, order, norm, uplo, n, in(ap), r, fail);
}

ZEM_API void f16ugc(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, const ZemComplex ap[],
                    double* r, ZemError* fail) {
  sym_packed_norm("zem_zsp_norm (f16ugc)", Sym::Symmetric, order, norm, uplo, n, in(ap), r, fail);
}

ZEM_API void f16rec(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, int32_t k,
                    const double a[], int32_t pda, double* r, ZemError* fail) {
  sym_band_norm("zem_dsb_norm (f16rec)", Sym::Symmetric, order, norm, uplo, n, k, a, pda, r, fail);
}

ZEM_API void f16uec(Zem_OrderType order, Zem_NormType norm, Zem_UploType uplo, int32_t n, int32_t k,
                    const ZemComplex a[], int32_t pda, double* r, ZemError* fail) {
  sym_band_norm("zem_zhb_norm (f16uec)", Sym::Hermitian, order, norm, uplo, n, k, in(a), pda, r, fail);
}

// ---- f06 matrix helpers on the same drivers.

ZEM_API void f06qfc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, const double a[], int32_t pda,
                    double b[], int32_t pdb, ZemError* fail) {
  trapezoid_copy("f06qfc", order, matrix, m, n, a, pda, b, pdb, fail);
}

ZEM_API void f06tfc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, const ZemComplex a[],
                    int32_t pda, ZemComplex b[], int32_t pdb, ZemError* fail) {
  trapezoid_copy("f06tfc", order, matrix, m, n, in(a), pda, out(b), pdb, fail);
}

ZEM_API void f06qhc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, double alpha, double beta,
                    double a[], int32_t pda, ZemError* fail) {
  trapezoid_load("f06qhc", order, matrix, m, n, alpha, beta, a, pda, fail);
}

ZEM_API void f06thc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, ZemComplex alpha,
                    ZemComplex beta, ZemComplex a[], int32_t pda, ZemError* fail) {
  trapezoid_load("f06thc", order, matrix, m, n, value(alpha), value(beta), out(a), pda, fail);
}

ZEM_API void f06qgc(Zem_OrderType order, Zem_NormType norm, Zem_MatrixType matrix, int32_t m, int32_t n,
                    const double a[], int32_t pda, double* r, ZemError* fail) {
  general_norm("f06qgc", order, norm, &matrix, m, n, a, pda, r, fail);
}

ZEM_API void f06vgc(Zem_OrderType order, Zem_NormType norm, Zem_MatrixType matrix, int32_t m, int32_t n,
                    const ZemComplex a[], int32_t pda, double* r, ZemError* fail) {
  general_norm("f06vgc", order, norm, &matrix, m, n, in(a), pda, r, fail);
}

ZEM_API void f06rac(Zem_OrderType order, Zem_NormType norm, int32_t m, int32_t n, const double a[], int32_t pda,
                    double* r, ZemError* fail) {
  general_norm("f06rac", order, norm, nullptr, m, n, a, pda, r, fail);
}

// ---- Kernel forms of the matrix helpers.

ZEM_API void f06qff_f(const char* matrix, const int32_t* m, const int32_t* n, const double a[], const int32_t* lda,
                      double b[], const int32_t* ldb) {
  const char* k = "F06QFF/DMCOPY";
  const char p = upper_letter(matrix);
  if (kernel_bad(k, p != 'G' && p != 'U' && p != 'L', 1) || kernel_bad(k, !m || *m < 0, 2) ||
      kernel_bad(k, !n || *n < 0, 3))
    return;
  const bool empty = *m == 0 || *n == 0;
  if (kernel_bad(k, !empty && !a, 4) || kernel_bad(k, !lda || *lda < std::max(1, *m), 5) ||
      kernel_bad(k, !empty && !b, 6) || kernel_bad(k, !ldb || *ldb < std::max(1, *m), 7))
    return;
  if (!empty) zem::la::mat::copy('N', static_cast<Part>(p), false, *m, *n, a, *lda, b, *ldb);
}

ZEM_API double f06uaf(char norm, int32_t m, int32_t n, const ZemComplex a[], int32_t lda) {
  const char* k = "F06UAF/ZLANGE";
  char kind = static_cast<char>(std::toupper(static_cast<unsigned char>(norm)));
  if (kind == 'O') kind = '1';
  if (kind == 'E') kind = 'F';
  const bool empty = m <= 0 || n <= 0;
  if (kernel_bad(k, kind != 'M' && kind != '1' && kind != 'I' && kind != 'F', 1) || kernel_bad(k, m < 0, 2) ||
      kernel_bad(k, n < 0, 3) || kernel_bad(k, !empty && !a, 4) || kernel_bad(k, lda < std::max(1, m), 5))
    return 0.0;
  return zem::la::mat::norm_general(kind, Part::General, m, n, in(a), lda);
}

}  // extern "C"
