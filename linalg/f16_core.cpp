#include "linalg/f16_core.hpp"

#include <cblas.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <type_traits>

#include "linalg/blas1.hpp"
#include "zem/x04.h"

namespace zem::la::mat {

namespace {

using blas1::magnitude;

// Every storage scheme holds each column j of its part as one run of rows
// [lo, hi), contiguous in memory from p, the address of element (lo, j).
template <class T>
struct Column {
  long lo, hi;
  const T* p;
};

// The row sums of the infinity-norm (and of the symmetric one-norm): for the
// whole height at once, from the heap when it is taller than a stack block,
// so that each column is read in one run; else, or when the heap refuses, or
// when the caller gives a block size, a block of rows at a time on the stack.
constexpr long kRowBlock = 1024;

class RowSums {
 public:
  RowSums(long rows, long block) noexcept {
    if (block <= 0) {
      block = rows;
      if (rows > kRowBlock) heap_ = static_cast<double*>(x04bbc(static_cast<std::size_t>(rows) * sizeof(double)));
    }
    block_ = std::max(1L, heap_ ? rows : std::min(block, kRowBlock));
  }
  ~RowSums() {
    void* p = heap_;
    x04bdc(&p);
  }
  RowSums(const RowSums&) = delete;
  RowSums& operator=(const RowSums&) = delete;
  long block() const noexcept { return block_; }
  double* data() noexcept { return heap_ ? heap_ : stack_; }

 private:
  double stack_[kRowBlock];
  double* heap_ = nullptr;
  long block_;
};

// A maximum that a NaN takes over and keeps.
inline void take_max(double& m, double v) noexcept {
  if (v > m || std::isnan(v)) m = v;
}

template <class T>
double sum_abs(long len, const T* p) noexcept {
  if (len <= 0) return 0.0;
  if constexpr (std::is_same_v<T, double>) {
    return cblas_dasum(static_cast<blasint>(len), p, 1);
  } else {
    double s = 0.0;
    for (long i = 0; i < len; ++i) s += magnitude(p[i]);
    return s;
  }
}

// The largest magnitude of a run, NaN if there is one: four independent
// maxima, and the NaN test apart, so that no comparison waits on another.
template <class T>
double max_abs(long len, const T* p) noexcept {
  double m[4] = {0.0, 0.0, 0.0, 0.0};
  bool nan = false;
  long i = 0;
  for (; i + 4 <= len; i += 4)
    for (int k = 0; k < 4; ++k) {
      const double a = magnitude(p[i + k]);
      m[k] = a > m[k] ? a : m[k];
      nan |= a != a;
    }
  for (; i < len; ++i) {
    const double a = magnitude(p[i]);
    m[0] = a > m[0] ? a : m[0];
    nan |= a != a;
  }
  if (nan) return std::numeric_limits<double>::quiet_NaN();
  return std::max(std::max(m[0], m[1]), std::max(m[2], m[3]));
}

// The Euclidean norm of a run; the BLAS scales it against overflow.
template <class T>
double nrm2(long len, const T* p) noexcept {
  if (len <= 0) return 0.0;
  if constexpr (std::is_same_v<T, double>) return cblas_dnrm2(static_cast<blasint>(len), p, 1);
  else return cblas_dznrm2(static_cast<blasint>(len), p, 1);
}

// The norm of a matrix given by its columns.  `col(j)` gives column j;
// `cols_meeting(r0, r1, &jb, &je)` the columns [jb, je) that hold elements
// of the rows [r0, r1).
template <class T, class Col, class Meet>
double norm_columns(char kind, long m, long n, Col col, Meet cols_meeting, long row_block) noexcept {
  if (m <= 0 || n <= 0) return 0.0;
  double r = 0.0;
  switch (kind) {
    case 'M':
      for (long j = 0; j < n; ++j) {
        const Column<T> c = col(j);
        take_max(r, max_abs(c.hi - c.lo, c.p));
      }
      return r;
    case '1':
      for (long j = 0; j < n; ++j) {
        const Column<T> c = col(j);
        take_max(r, sum_abs(c.hi - c.lo, c.p));
      }
      return r;
    case 'I': {
      RowSums sums(m, row_block);
      double* acc = sums.data();
      for (long r0 = 0; r0 < m; r0 += sums.block()) {
        const long r1 = std::min(m, r0 + sums.block());
        std::fill(acc, acc + (r1 - r0), 0.0);
        long jb, je;
        cols_meeting(r0, r1, &jb, &je);
        for (long j = jb; j < je; ++j) {
          const Column<T> c = col(j);
          const long lo = std::max(c.lo, r0), hi = std::min(c.hi, r1);
          const T* p = c.p + (lo - c.lo);
          double* s = acc + (lo - r0);
          for (long i = 0; i < hi - lo; ++i) s[i] += magnitude(p[i]);
        }
        for (long i = 0; i < r1 - r0; ++i) take_max(r, acc[i]);
      }
      return r;
    }
    default: {  // 'F'
      blas1::ScaledSsq s;
      for (long j = 0; j < n; ++j) {
        const Column<T> c = col(j);
        s.add(nrm2(c.hi - c.lo, c.p));
      }
      return s.value();
    }
  }
}

// The norm of a symmetric or Hermitian matrix of order n given by one
// triangle; column j of the triangle holds the diagonal element (j, j).
template <class T, class Col, class Meet>
double norm_sym_columns(char kind, Sym sym, long n, Col col, Meet cols_meeting, long row_block) noexcept {
  if (n <= 0) return 0.0;
  auto diag_abs = [sym](const T& v) {
    if constexpr (std::is_same_v<T, double>) return std::fabs(v);
    else return sym == Sym::Hermitian ? std::fabs(v.real()) : magnitude(v);
  };
  double r = 0.0;
  switch (kind) {
    case 'M':
      for (long j = 0; j < n; ++j) {
        const Column<T> c = col(j);
        const long d = j - c.lo;
        take_max(r, max_abs(d, c.p));
        take_max(r, diag_abs(c.p[d]));
        take_max(r, max_abs(c.hi - j - 1, c.p + d + 1));
      }
      return r;
    case 'F': {
      blas1::ScaledSsq s;
      for (long j = 0; j < n; ++j) {
        const Column<T> c = col(j);
        const long d = j - c.lo;
        s.add(nrm2(d, c.p), 2.0);
        s.add(nrm2(c.hi - j - 1, c.p + d + 1), 2.0);
        s.add(diag_abs(c.p[d]));
      }
      return s.value();
    }
    default: {  // '1' and 'I' are equal: the largest sum of a row
      // Row k sums column k of the triangle and the elements (k, j), j != k,
      // of the other columns.
      RowSums sums(n, row_block);
      double* acc = sums.data();
      for (long r0 = 0; r0 < n; r0 += sums.block()) {
        const long r1 = std::min(n, r0 + sums.block());
        std::fill(acc, acc + (r1 - r0), 0.0);
        long jb, je;
        cols_meeting(r0, r1, &jb, &je);
        jb = std::min(jb, r0);
        je = std::max(je, r1);
        for (long j = jb; j < je; ++j) {
          const Column<T> c = col(j);
          const long d = j - c.lo;
          // Off the diagonal: the rows of the block before and after j.
          for (long i = std::max(c.lo, r0); i < std::min(j, r1); ++i) acc[i - r0] += magnitude(c.p[i - c.lo]);
          for (long i = std::max(j + 1, r0); i < std::min(c.hi, r1); ++i) acc[i - r0] += magnitude(c.p[i - c.lo]);
          if (j >= r0 && j < r1)
            acc[j - r0] += sum_abs(d, c.p) + diag_abs(c.p[d]) + sum_abs(c.hi - j - 1, c.p + d + 1);
        }
        for (long i = 0; i < r1 - r0; ++i) take_max(r, acc[i]);
      }
      return r;
    }
  }
}

// The rows [lo, hi) of column j of the part of an m by n matrix.
inline void part_rows(Part part, long m, long j, long* lo, long* hi) noexcept {
  *lo = part == Part::Lower ? std::min(j, m) : 0;
  *hi = part == Part::Upper ? std::min(m, j + 1) : m;
}

}  // namespace

template <class T>
double norm_general(char kind, Part part, long m, long n, const T* a, long lda, long row_block) noexcept {
  auto col = [=](long j) {
    long lo, hi;
    part_rows(part, m, j, &lo, &hi);
    return Column<T>{lo, hi, a + lo + j * lda};
  };
  auto meet = [=](long r0, long r1, long* jb, long* je) {
    *jb = part == Part::Upper ? r0 : 0;
    *je = part == Part::Lower ? std::min(n, r1) : n;
  };
  return norm_columns<T>(kind, m, n, col, meet, row_block);
}

template <class T>
double norm_band(char kind, long m, long n, long kl, long ku, const T* a, long lda, long row_block) noexcept {
  auto col = [=](long j) {
    const long lo = std::max(0L, j - ku), hi = std::min(m, j + kl + 1);
    return Column<T>{lo, std::max(lo, hi), a + (ku + lo - j) + j * lda};
  };
  auto meet = [=](long r0, long r1, long* jb, long* je) {
    *jb = std::max(0L, r0 - kl);
    *je = std::min(n, r1 + ku);
  };
  return norm_columns<T>(kind, m, n, col, meet, row_block);
}

template <class T>
double norm_sym(char kind, Sym sym, bool upper, long n, const T* a, long lda, long row_block) noexcept {
  auto col = [=](long j) {
    return upper ? Column<T>{0, j + 1, a + j * lda} : Column<T>{j, n, a + j + j * lda};
  };
  auto meet = [=](long r0, long r1, long* jb, long* je) {
    *jb = upper ? r0 : 0;
    *je = upper ? n : r1;
  };
  return norm_sym_columns<T>(kind, sym, n, col, meet, row_block);
}

template <class T>
double norm_sym_packed(char kind, Sym sym, bool upper, long n, const T* ap, long row_block) noexcept {
  auto col = [=](long j) {
    return upper ? Column<T>{0, j + 1, ap + j * (j + 1) / 2} : Column<T>{j, n, ap + j * (2 * n - j + 1) / 2};
  };
  auto meet = [=](long r0, long r1, long* jb, long* je) {
    *jb = upper ? r0 : 0;
    *je = upper ? n : r1;
  };
  return norm_sym_columns<T>(kind, sym, n, col, meet, row_block);
}

template <class T>
double norm_sym_band(char kind, Sym sym, bool upper, long n, long k, const T* a, long lda, long row_block) noexcept {
  auto col = [=](long j) {
    if (upper) {
      const long lo = std::max(0L, j - k);
      return Column<T>{lo, j + 1, a + (k + lo - j) + j * lda};
    }
    return Column<T>{j, std::min(n, j + k + 1), a + j * lda};
  };
  auto meet = [=](long r0, long r1, long* jb, long* je) {
    *jb = upper ? r0 : std::max(0L, r0 - k);
    *je = upper ? std::min(n, r1 + k) : r1;
  };
  return norm_sym_columns<T>(kind, sym, n, col, meet, row_block);
}

template <class T>
void copy(char trans, Part part, bool unit, long m, long n, const T* a, long lda, T* b, long ldb) noexcept {
  const Part pb = trans == 'N' ? part : other(part);
  if (trans == 'N') {
    for (long j = 0; j < n; ++j) {
      long lo, hi;
      part_rows(pb, m, j, &lo, &hi);
      const T* s = a + j * lda;
      T* d = b + j * ldb;
      if (unit && j >= lo && j < hi) {
        std::copy(s + lo, s + j, d + lo);
        std::copy(s + j + 1, s + hi, d + j + 1);
      } else {
        std::copy(s + lo, s + hi, d + lo);
      }
    }
  } else {
    // B(i,j) = A(j,i), a square tile at a time so that the strided reads of
    // A stay in cache.
    constexpr long kTile = 32;
    const bool conj = trans == 'C';
    for (long j0 = 0; j0 < n; j0 += kTile) {
      const long j1 = std::min(n, j0 + kTile);
      for (long i0 = 0; i0 < m; i0 += kTile) {
        const long i1 = std::min(m, i0 + kTile);
        for (long j = j0; j < j1; ++j) {
          long lo, hi;
          part_rows(pb, m, j, &lo, &hi);
          lo = std::max(lo, i0);
          hi = std::min(hi, i1);
          const T* s = a + j;
          T* d = b + j * ldb;
          for (long i = lo; i < hi; ++i) {
            if (unit && i == j) continue;
            d[i] = conj ? blas1::conj_if(s[i * lda]) : s[i * lda];
          }
        }
      }
    }
  }
  if (unit)
    for (long j = 0; j < std::min(m, n); ++j) b[j + j * ldb] = T(1);
}

template <class T>
void load(Part part, long m, long n, T alpha, T beta, T* a, long lda) noexcept {
  for (long j = 0; j < n; ++j) {
    long lo, hi;
    part_rows(part, m, j, &lo, &hi);
    T* c = a + j * lda;
    std::fill(c + lo, c + hi, alpha);
    if (j >= lo && j < hi) c[j] = beta;
  }
}

#define ZEM_F16_INSTANTIATE(T)                                                                   \
  template double norm_general<T>(char, Part, long, long, const T*, long, long) noexcept;       \
  template double norm_band<T>(char, long, long, long, long, const T*, long, long) noexcept;    \
  template double norm_sym<T>(char, Sym, bool, long, const T*, long, long) noexcept;            \
  template double norm_sym_packed<T>(char, Sym, bool, long, const T*, long) noexcept;           \
  template double norm_sym_band<T>(char, Sym, bool, long, long, const T*, long, long) noexcept; \
  template void copy<T>(char, Part, bool, long, long, const T*, long, T*, long) noexcept;        \
  template void load<T>(Part, long, long, T, T, T*, long) noexcept;
ZEM_F16_INSTANTIATE(double)
ZEM_F16_INSTANTIATE(Complex)
#undef ZEM_F16_INSTANTIATE

// ---- Checks.

bool Checks::uplo(std::int32_t v, bool* upper) noexcept {
  char c;
  if (fr_.letter("uplo", v, uplo_letter, &c)) return true;
  *upper = c == 'U';
  return false;
}

bool Checks::trans(std::int32_t v, char* letter) noexcept { return fr_.letter("trans", v, trans_letter, letter); }

bool Checks::diag(std::int32_t v, bool* unit) noexcept {
  char c;
  if (fr_.letter("diag", v, diag_letter, &c)) return true;
  *unit = c == 'U';
  return false;
}

bool Checks::side(std::int32_t v, bool* left) noexcept {
  char c;
  if (fr_.letter("side", v, side_letter, &c)) return true;
  *left = c == 'L';
  return false;
}

bool Checks::norm(std::int32_t v, char* kind) noexcept {
  return fr_.choose("norm", v, {{Zem_OneNorm, '1'}, {Zem_InfNorm, 'I'}, {Zem_FrobeniusNorm, 'F'}, {Zem_MaxNorm, 'M'}},
                    kind);
}

bool Checks::part(std::int32_t v, Part* out) noexcept {
  char c;
  if (fr_.choose("matrix", v, {{Zem_GeneralMatrix, 'G'}, {Zem_UpperMatrix, 'U'}, {Zem_LowerMatrix, 'L'}}, &c))
    return true;
  *out = static_cast<Part>(c);
  return false;
}

bool Checks::ld(const char* name, long ld, long rows, const char* rows_name, long cols, const char* cols_name,
                int position) noexcept {
  Call& call = fr_.call();
  char text[96];
  if (fr_.row_major()) {
    if (ld < 1) {
      std::snprintf(text, sizeof text, "%s > 0", name);
      call.report(NE_INT, name, ld, static_cast<const char*>(text));
    } else if (ld < std::max(1L, cols)) {
      std::snprintf(text, sizeof text, "%s >= MAX(1,%s)", name, cols_name);
      call.report(NE_INT_2, cols_name, cols, name, ld, static_cast<const char*>(text));
    } else {
      return false;
    }
  } else if (ld < std::max(1L, rows)) {
    std::snprintf(text, sizeof text, "%s >= MAX(1,%s)", name, rows_name);
    call.report(NE_INT_2, name, ld, rows_name, rows, static_cast<const char*>(text));
  } else {
    return false;
  }
  call.set_errnum(-position);
  return true;
}

bool Checks::ld_band(const char* name, long ld, long least, const char* constraint, int position) noexcept {
  if (ld >= least) return false;
  fr_.call().report(NE_INT, name, ld, constraint);
  fr_.call().set_errnum(-position);
  return true;
}

}  // namespace zem::la::mat
