// Matrix loads, copies and norms for real and complex elements, in every
// storage scheme of the dense chapters, and the argument checks that the
// routines built on them share.
//
// The cores work on column-major arrays.  A row-major array is the
// column-major array of the transpose, so that a routine turns a row-major
// call into a column-major one by exchanging rows and columns, the upper
// and lower triangles, the sub- and super-diagonals of a band, and the
// one- and infinity-norms (see the drivers in f16.cpp).  Every core touches
// only the elements that its storage scheme holds.
#pragma once
#include <complex>
#include <cstdint>

#include "linalg/dense.hpp"

namespace zem::la::mat {

// The part of a matrix that is referenced: all of it, or the upper
// (i <= j) or lower (i >= j) trapezoid.
enum class Part : char { General = 'G', Upper = 'U', Lower = 'L' };
// The symmetry of a matrix given by one triangle.
enum class Sym : char { Symmetric, Hermitian };

inline Part other(Part p) noexcept {
  return p == Part::Upper ? Part::Lower : p == Part::Lower ? Part::Upper : Part::General;
}
// The norm of the transpose: one- and infinity-norms exchange.
inline char transposed_norm(char kind) noexcept { return kind == '1' ? 'I' : kind == 'I' ? '1' : kind; }

// Norm kinds are the letters 'M' (largest magnitude), '1', 'I' and 'F'.
// NaN elements give a NaN norm.  The row sums of an infinity-norm (and of
// a symmetric one-norm) cover row_block rows at a time when it is given,
// the whole height at once otherwise (the results agree to rounding).
template <class T>
double norm_general(char kind, Part part, long m, long n, const T* a, long lda, long row_block = 0) noexcept;
// m by n band matrix, kl sub- and ku super-diagonals: A(i,j) at a[ku + i - j + j*lda].
template <class T>
double norm_band(char kind, long m, long n, long kl, long ku, const T* a, long lda, long row_block = 0) noexcept;
// Symmetric or Hermitian of order n from the triangle `upper` (the
// imaginary parts of a Hermitian diagonal are taken as 0).
template <class T>
double norm_sym(char kind, Sym sym, bool upper, long n, const T* a, long lda, long row_block = 0) noexcept;
// The same, packed column by column.
template <class T>
double norm_sym_packed(char kind, Sym sym, bool upper, long n, const T* ap, long row_block = 0) noexcept;
// The same, band with k diagonals: A(i,j) at a[k + i - j + j*lda] (upper)
// or a[i - j + j*lda] (lower).
template <class T>
double norm_sym_band(char kind, Sym sym, bool upper, long n, long k, const T* a, long lda,
                     long row_block = 0) noexcept;

// B = op(A) over the part of B that op(A) fills, B m by n; trans 'N', 'T' or
// 'C' (conjugate transpose), `part` the part of A.  With `unit` the
// diagonal of A is not read and that of B is set to 1.
template <class T>
void copy(char trans, Part part, bool unit, long m, long n, const T* a, long lda, T* b, long ldb) noexcept;

// The part of the m by n matrix A: alpha off the diagonal, beta on it.
template <class T>
void load(Part part, long m, long n, T alpha, T beta, T* a, long lda) noexcept;

// ---- Argument checks of the routines on these cores, on the dense frame's
// vocabulary.  Each returns true when it reported.  Positions count the
// routine's own arguments from 1; errnum is minus the position.
class Checks {
 public:
  Checks(const char* routine, ZemError* fail) noexcept : fr_(routine, routine, fail) {}

  bool null(const char* name, const void* p) noexcept { return fr_.null(name, p); }
  bool dim(const char* name, long v, int position) noexcept { return fr_.dim(name, v, position); }
  bool nonzero(const char* name, long v, int position) noexcept { return fr_.nonzero(name, v, position); }
  bool order(std::int32_t v) noexcept { return fr_.order(v); }
  bool row_major() const noexcept { return fr_.row_major(); }
  bool uplo(std::int32_t v, bool* upper) noexcept;
  bool trans(std::int32_t v, char* letter) noexcept;
  bool diag(std::int32_t v, bool* unit) noexcept;
  bool side(std::int32_t v, bool* left) noexcept;
  // A matrix norm: one, infinity, Frobenius or max.
  bool norm(std::int32_t v, char* kind) noexcept;
  // Zem_GeneralMatrix, Zem_UpperMatrix or Zem_LowerMatrix.
  bool part(std::int32_t v, Part* out) noexcept;
  // The leading dimension of a full-storage matrix for the order of the
  // call: row-major NE_INT "pda > 0" then NE_INT_2 "pda >= MAX(1,cols)",
  // column-major NE_INT_2 "pda >= MAX(1,rows)".
  bool ld(const char* name, long ld, long rows, const char* rows_name, long cols, const char* cols_name,
          int position) noexcept;
  // The leading dimension of band storage: NE_INT with the constraint text.
  bool ld_band(const char* name, long ld, long least, const char* constraint, int position) noexcept;

 private:
  Frame fr_;
};

}  // namespace zem::la::mat
