#include "linalg/dense.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "zem/p01.h"
#include "zem/x04.h"

namespace zem::la {

void report_kernel_parameter(const char* name, long position) noexcept {
  char text[kMessageLen];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(text, sizeof text, catalogue_format(NE_F06_BAD_PARAM), position);
#pragma GCC diagnostic pop
  ZemError local{};
  local.print = 1;
  p01acc(text, NE_F06_BAD_PARAM, name, &local);
}

char trans_letter(std::int32_t v) noexcept {
  switch (v) {
    case Zem_NoTrans: return 'N';
    case Zem_Trans: return 'T';
    case Zem_ConjTrans: return 'C';
    default: return 0;
  }
}

char uplo_letter(std::int32_t v) noexcept {
  switch (v) {
    case Zem_Upper: return 'U';
    case Zem_Lower: return 'L';
    default: return 0;
  }
}

char diag_letter(std::int32_t v) noexcept {
  switch (v) {
    case Zem_NonUnitDiag: return 'N';
    case Zem_UnitDiag: return 'U';
    default: return 0;
  }
}

char side_letter(std::int32_t v) noexcept {
  switch (v) {
    case Zem_LeftSide: return 'L';
    case Zem_RightSide: return 'R';
    default: return 0;
  }
}

char norm_letter(std::int32_t v) noexcept {
  switch (v) {
    case Zem_OneNorm: return '1';
    case Zem_InfNorm: return 'I';
    default: return 0;
  }
}

Frame::Frame(const char* routine, const char* kernel, ZemError* fail) noexcept
    : call_(routine, fail, Call::Clear::CodeOnly), kernel_(kernel) {}

Frame::~Frame() { x04bdc(&block_); }

void Frame::report_dim(const char* name, long v, const char* constraint, int position) noexcept {
  call_.report(NE_INT, name, v, constraint);
  call_.set_errnum(-position);
}

bool Frame::dim(const char* name, long v, int position) noexcept {
  if (ndims_ < static_cast<int>(sizeof dims_ / sizeof dims_[0])) dims_[ndims_++] = {name, v, position};
  if (v >= 0) return false;
  char constraint[64];
  std::snprintf(constraint, sizeof constraint, "%s >= 0", name);
  report_dim(name, v, constraint, position);
  return true;
}

bool Frame::dim_at_least(const char* name, long v, long bound, const char* constraint,
                         int position) noexcept {
  if (ndims_ < static_cast<int>(sizeof dims_ / sizeof dims_[0])) dims_[ndims_++] = {name, v, position};
  if (v >= bound) return false;
  report_dim(name, v, constraint, position);
  return true;
}

void Frame::report_dim2(const char* name, long v, const char* other, long bound, const char* op,
                        int position) noexcept {
  char constraint[96];
  std::snprintf(constraint, sizeof constraint, "%s %s %s", name, op, other);
  call_.report(NE_INT_2, name, v, other, bound, constraint);
  call_.set_errnum(-position);
}

bool Frame::dim_at_most(const char* name, long v, long bound, const char* bound_name, int position) noexcept {
  if (dim(name, v, position)) return true;
  if (v <= bound) return false;
  report_dim2(name, v, bound_name, bound, "<=", position);
  return true;
}

bool Frame::dim_from(const char* name, long v, long bound, const char* bound_name, int position) noexcept {
  if (dim(name, v, position)) return true;
  if (v >= bound) return false;
  report_dim2(name, v, bound_name, bound, ">=", position);
  return true;
}

void Frame::param(const char* name, int position) noexcept {
  if (nparams_ < static_cast<int>(sizeof params_ / sizeof params_[0])) params_[nparams_++] = {name, position};
}

bool Frame::nonzero(const char* name, long v, int position) noexcept {
  if (v != 0) return false;
  char constraint[64];
  std::snprintf(constraint, sizeof constraint, "%s != 0", name);
  report_dim(name, v, constraint, position);
  return true;
}

bool Frame::letter(const char* name, std::int32_t v, char (*map)(std::int32_t), char* out) noexcept {
  *out = map(v);
  if (*out) return false;
  call_.report(NE_BAD_PARAM, name);
  return true;
}

bool Frame::choose(const char* name, std::int32_t v,
                   std::initializer_list<std::pair<std::int32_t, char>> letters, char* out) noexcept {
  for (const auto& [value, letter] : letters)
    if (value == v) {
      *out = letter;
      return false;
    }
  *out = 0;
  call_.report(NE_BAD_PARAM, name);
  return true;
}

bool Frame::order(std::int32_t order) noexcept {
  if (order == Zem_RowMajor || order == Zem_ColMajor) {
    row_major_ = order == Zem_RowMajor;
    return false;
  }
  call_.report(NE_BAD_PARAM, "order");
  return true;
}

namespace {

bool packed(Storage s) { return s == Storage::PackedUpper || s == Storage::PackedLower; }

// The least leading dimension of the kernel's column-major array.
long kernel_min_ld(const MatrixSpec& s) {
  if (s.storage == Storage::Band) return s.kl + s.ku + s.fill + 1;
  return std::max(1L, s.rows);
}

}  // namespace

int Frame::matrix(const MatrixSpec& desc, const void* a, std::int32_t ld, std::size_t elem) noexcept {
  if (call_.failed() || nslots_ == kMaxMatrices) return -1;
  char text[96];
  if (desc.storage == Storage::Band) {
    if (ld < kernel_min_ld(desc)) {
      if (!row_major_) report_kernel_parameter(kernel_, desc.ld_position);
      call_.report(NE_INT, desc.ld_name, static_cast<long>(ld), desc.band_text);
      if (!row_major_) call_.set_errnum(-desc.ld_position);
      return -1;
    }
  } else if (!packed(desc.storage)) {
    if (row_major_) {
      if (ld < 1) {
        std::snprintf(text, sizeof text, "%s > 0", desc.ld_name);
        call_.report(NE_INT, desc.ld_name, static_cast<long>(ld), text);
        return -1;
      }
      if (ld < std::max(1L, desc.cols)) {
        std::snprintf(text, sizeof text, "%s >= MAX(1,%s)", desc.ld_name, desc.cols_name);
        call_.report(NE_INT_2, desc.cols_name, desc.cols, desc.ld_name, static_cast<long>(ld), text);
        return -1;
      }
    } else if (ld < std::max(1L, desc.rows)) {
      // What the kernel itself would refuse: its report, then the row.
      report_kernel_parameter(kernel_, desc.ld_position);
      std::snprintf(text, sizeof text, "%s >= MAX(1,%s)", desc.ld_name, desc.rows_name);
      call_.report(NE_INT_2, desc.ld_name, static_cast<long>(ld), desc.rows_name, desc.rows, text);
      call_.set_errnum(-desc.ld_position);
      return -1;
    }
  }
  Slot& s = slots_[nslots_];
  s.desc = desc;
  s.user = const_cast<void*>(a);
  s.user_ld = ld;
  s.elem = elem;
  s.kernel = s.user;
  s.kernel_ld = ld;
  s.active = true;
  // A workspace query runs before prepare(): give it the leading dimension
  // that the kernel will see.
  if (row_major_ && !packed(desc.storage)) s.kernel_ld = static_cast<std::int32_t>(kernel_min_ld(desc));
  return nslots_++;
}

int Frame::matrix_if(bool used, const MatrixSpec& desc, const void* a, std::int32_t ld, std::size_t elem) noexcept {
  if (used) return matrix(desc, a, ld, elem);
  if (call_.failed() || nslots_ == kMaxMatrices) return -1;
  if (desc.ld_name && ld < 1) {
    char text[96];
    std::snprintf(text, sizeof text, "%s >= 1", desc.ld_name);
    if (!row_major_) report_kernel_parameter(kernel_, desc.ld_position);
    call_.report(NE_INT, desc.ld_name, static_cast<long>(ld), text);
    if (!row_major_) call_.set_errnum(-desc.ld_position);
    return -1;
  }
  Slot& s = slots_[nslots_];
  s.desc = desc;
  s.user = const_cast<void*>(a);
  s.user_ld = ld;
  s.elem = elem;
  s.kernel = s.user;
  s.kernel_ld = row_major_ ? 1 : ld;
  s.active = false;
  return nslots_++;
}

bool Frame::prepare() noexcept {
  if (call_.failed()) return true;
  if (!row_major_) return false;
  // One block for every temporary, each aligned to 64 bytes.
  std::size_t bytes = 0;
  for (int i = 0; i < nslots_; ++i) {
    Slot& s = slots_[i];
    if (!s.active) continue;
    const MatrixSpec& m = s.desc;
    std::size_t count;
    if (packed(m.storage)) {
      const std::size_t n = static_cast<std::size_t>(std::max(0L, m.rows));
      count = std::max<std::size_t>(1, n * (n + 1) / 2);
      s.kernel_ld = 1;
    } else {
      s.kernel_ld = static_cast<std::int32_t>(kernel_min_ld(m));
      count = static_cast<std::size_t>(s.kernel_ld) * static_cast<std::size_t>(std::max(1L, m.cols));
    }
    s.offset = bytes;
    bytes += (count * s.elem + 63) / 64 * 64;
  }
  if (bytes == 0) return false;  // no matrix, or none that the kernel references
  // One column more than the matrices need: the complex matrix-vector kernel
  // of the system BLAS (OpenBLAS 0.3.21 on AVX-512 processors) reads up to a
  // column beyond the last one of its matrix, which must stay inside the
  // block when the block ends at the end of a mapping.
  std::size_t tail = 64;
  for (int i = 0; i < nslots_; ++i)
    if (slots_[i].active)
      tail = std::max(tail, static_cast<std::size_t>(slots_[i].kernel_ld) * slots_[i].elem + 64);
  block_ = x04bbc(bytes + tail);
  if (!block_) {
    call_.report_null(NE_ALLOC_FAIL);
    return true;
  }
  for (int i = 0; i < nslots_; ++i) {
    Slot& s = slots_[i];
    if (!s.active) continue;
    s.kernel = static_cast<unsigned char*>(block_) + s.offset;
    if (s.desc.intent == Intent::Out) {
      // The kernel writes it; clear it so that no element is left undefined.
      std::size_t count = packed(s.desc.storage)
                              ? std::max<std::size_t>(1, static_cast<std::size_t>(s.desc.rows) *
                                                             static_cast<std::size_t>(s.desc.rows + 1) / 2)
                              : static_cast<std::size_t>(s.kernel_ld) *
                                    static_cast<std::size_t>(std::max(1L, s.desc.cols));
      std::memset(s.kernel, 0, count * s.elem);
      continue;
    }
    if (s.elem == sizeof(double)) copy<double>(s, true);
    else copy<Complex>(s, true);
  }
  return false;
}

// Copies between the caller's row-major array and the kernel's column-major
// temporary, over the elements that the storage scheme holds.  General and
// triangular matrices move in square tiles so that both sides stay in cache.
template <class T>
void Frame::copy(const Slot& s, bool to_kernel) noexcept {
  const MatrixSpec& m = s.desc;
  T* u = static_cast<T*>(s.user);
  T* k = static_cast<T*>(s.kernel);
  const long ul = s.user_ld, kl = s.kernel_ld;
  const long rows = m.rows, cols = m.cols;
  auto move = [to_kernel](T& user, T& kern) {
    if (to_kernel) kern = user;
    else user = kern;
  };
  switch (m.storage) {
    case Storage::General:
    case Storage::Upper:
    case Storage::Lower: {
      constexpr long kTile = 32;
      for (long i0 = 0; i0 < rows; i0 += kTile)
        for (long j0 = 0; j0 < cols; j0 += kTile) {
          const long i1 = std::min(rows, i0 + kTile), j1 = std::min(cols, j0 + kTile);
          if (m.storage == Storage::Upper && i0 > j1 - 1) continue;
          if (m.storage == Storage::Lower && j0 > i1 - 1) continue;
          for (long i = i0; i < i1; ++i) {
            long jb = j0, je = j1;
            if (m.storage == Storage::Upper) jb = std::max(j0, i);
            if (m.storage == Storage::Lower) je = std::min(j1, i + 1);
            for (long j = jb; j < je; ++j) move(u[i * ul + j], k[i + j * kl]);
          }
        }
      break;
    }
    case Storage::Band: {
      const long up = m.ku + m.fill;
      for (long i = 0; i < rows; ++i) {
        const long jb = std::max(0L, i - m.kl), je = std::min(cols - 1, i + up);
        for (long j = jb; j <= je; ++j) move(u[i * ul + m.kl + j - i], k[(up + i - j) + j * kl]);
      }
      break;
    }
    case Storage::PackedUpper: {
      const long n = rows;
      for (long i = 0; i < n; ++i) {
        T* row = u + i * (2 * n - i + 1) / 2 - i;
        for (long j = i; j < n; ++j) move(row[j], k[i + j * (j + 1) / 2]);
      }
      break;
    }
    case Storage::PackedLower: {
      const long n = rows;
      for (long i = 0; i < n; ++i) {
        T* row = u + i * (i + 1) / 2;
        for (long j = 0; j <= i; ++j) move(row[j], k[i - j + j * (2 * n - j + 1) / 2]);
      }
      break;
    }
  }
}

void Frame::finish(long info, const InfoRow& positive) noexcept {
  if (row_major_ && block_) {
    for (int i = 0; i < nslots_; ++i) {
      const Slot& s = slots_[i];
      if (s.desc.intent == Intent::In || !s.active) continue;
      if (s.elem == sizeof(double)) copy<double>(s, false);
      else copy<Complex>(s, false);
    }
  }
  x04bdc(&block_);
  if (info == 0) return;
  if (info > 0) {
    if (positive.text) call_.report_own(positive.code, positive.text, info, info);
    else call_.report_null(positive.code);
    call_.set_errnum(static_cast<int>(info));
    return;
  }
  const int position = static_cast<int>(-info);
  bool done = false;
  for (int i = 0; i < ndims_ && !done; ++i)
    if (dims_[i].position == position) {
      if (dims_[i].value < 0) {
        char constraint[64];
        std::snprintf(constraint, sizeof constraint, "%s >= 0", dims_[i].name);
        call_.report(NE_INT, dims_[i].name, dims_[i].value, constraint);
      } else {
        // A size that the kernel finds inconsistent with the others (mm
        // too small for the selected eigenvectors).
        call_.report(NE_BAD_PARAM, dims_[i].name);
      }
      done = true;
    }
  for (int i = 0; i < nparams_ && !done; ++i)
    if (params_[i].position == position) {
      call_.report(NE_BAD_PARAM, params_[i].name);
      done = true;
    }
  for (int i = 0; i < nslots_ && !done; ++i)
    if (slots_[i].desc.ld_position == position && slots_[i].desc.ld_name) {
      char text[96];
      std::snprintf(text, sizeof text, "%s >= MAX(1,%s)", slots_[i].desc.ld_name, slots_[i].desc.rows_name);
      call_.report(NE_INT_2, slots_[i].desc.ld_name, static_cast<long>(slots_[i].user_ld),
                   slots_[i].desc.rows_name, slots_[i].desc.rows, text);
      done = true;
    }
  if (!done) call_.report_null(NE_INTERNAL_ERROR);
  call_.set_errnum(static_cast<int>(info));
}

}  // namespace zem::la
