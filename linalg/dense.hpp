// The frame of the dense linear-algebra wrappers.
//
// A wrapper (generated from linalg/routines.py by tools/gen_linalg.py)
// registers its arguments with a Frame in the order of its checks:
//
//   zem::la::Frame fr("f07adc", "F07ADF/DGETRF", fail);
//   if (fr.null("a", a) || fr.null("ipiv", ipiv)) return;
//   if (fr.dim("m", m, 1) || fr.dim("n", n, 2)) return;
//   if (fr.order(order)) return;
//   const int h = fr.matrix<double>({...}, a, pda);
//   if (h < 0) return;
//   if (fr.prepare()) return;                    // one temporary block, copies in
//   LAPACK_dgetrf(&m, &n, fr.ptr<double>(h), fr.ld(h), ipiv, &info);
//   fr.finish(info, row);                        // copies out, frees, maps info
//
// The interface is row-major or column-major; the kernels are column-major.
// Column-major calls pass the caller's arrays straight to the kernel.
// Row-major calls copy each matrix, transposing, into one temporary block
// and back, touching only the elements that the storage scheme holds (the
// triangle, the band, the packed triangle), so that the caller's other
// elements are never written.
//
// Storage schemes, element (i, j) of the matrix, 0-based, leading dimension ld:
//   general     col: a[i + j*ld]                 row: a[i*ld + j]
//   band        col: a[(ku+fill) + i - j + j*ld]  row: a[i*ld + kl + j - i]
//               (kl sub-, ku super-diagonals, fill extra super-diagonals of
//               workspace as the LU factorisation of a band matrix needs)
//   packed U    col: a[i + j*(j+1)/2]            row: a[i*(2n-i+1)/2 + j - i]
//   packed L    col: a[i - j + j*(2n-j+1)/2]     row: a[i*(i+1)/2 + j]
#pragma once
#include <complex>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>

#include "frame/report.hpp"

namespace zem::la {

using Complex = std::complex<double>;  // the layout of ZemComplex

enum class Intent : std::uint8_t { In, Out, InOut };
enum class Storage : std::uint8_t { General, Upper, Lower, Band, PackedUpper, PackedLower };

// Reports a bad parameter of a kernel: row 71 with the argument's position,
// on the standard error stream whatever the caller's record says.
void report_kernel_parameter(const char* name, long position) noexcept;

// Translation of the library's enumerators to the kernels' letters.
char trans_letter(std::int32_t v) noexcept;  // N T C, or 0
char uplo_letter(std::int32_t v) noexcept;   // U L
char diag_letter(std::int32_t v) noexcept;   // N U
char side_letter(std::int32_t v) noexcept;   // L R
char norm_letter(std::int32_t v) noexcept;   // 1 I (the norms of condition estimates)

// What a matrix argument is and how it is stored.
struct MatrixSpec {
  const char* name;       // "a"
  const char* ld_name;    // "pda"; null for packed storage
  int ld_position;        // the kernel's argument number of the leading dimension
  long rows, cols;        // logical size
  const char* rows_name;  // the sizes as they read in constraints: "m", "n", "k"
  const char* cols_name;
  Storage storage;
  Intent intent;
  long kl = 0, ku = 0, fill = 0;       // band only
  const char* band_text = nullptr;     // band only: "pdab >= kl+ku+1"
};

// A positive info's report: the catalogue row and the routine's own text
// (filled with info as %ld, once or twice as the text asks).
struct InfoRow {
  int code;
  const char* text;
};

class Frame {
 public:
  Frame(const char* routine, const char* kernel, ZemError* fail) noexcept;
  ~Frame();
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;

  Call& call() noexcept { return call_; }
  bool row_major() const noexcept { return row_major_; }

  // ---- Checks in argument order; each returns true when it reported.
  bool null(const char* name, const void* p) noexcept { return call_.null(name, p); }
  // A dimension below 0: NE_INT "name >= 0", errnum = -position.
  bool dim(const char* name, long v, int position) noexcept;
  // A dimension below a bound given as text ("n >= 1").
  bool dim_at_least(const char* name, long v, long bound, const char* constraint, int position) noexcept;
  // A dimension with an upper bound (dorgqr's k <= n): below 0 NE_INT
  // "k >= 0", above the bound NE_INT_2 "k <= n"; errnum = -position.
  bool dim_at_most(const char* name, long v, long bound, const char* bound_name, int position) noexcept;
  // A dimension with a lower bound (dorglq's n >= m): below 0 NE_INT
  // "n >= 0", below the bound NE_INT_2 "n >= m"; errnum = -position.
  bool dim_from(const char* name, long v, long bound, const char* bound_name, int position) noexcept;
  // An increment of 0: NE_INT "incx != 0", errnum = -position.
  bool nonzero(const char* name, long v, int position) noexcept;
  // An enumerator with its letter; an unknown value gives NE_BAD_PARAM.
  bool letter(const char* name, std::int32_t v, char (*map)(std::int32_t), char* out) noexcept;
  // An enumerator with its letter from the argument's own table of
  // (enumerator, letter) pairs; an unknown value gives NE_BAD_PARAM.
  bool choose(const char* name, std::int32_t v, std::initializer_list<std::pair<std::int32_t, char>> letters,
              char* out) noexcept;
  // Registers an argument that only the kernel checks (ilo, abstol, an
  // array whose contents must be ordered): a negative info at its position
  // is reported as NE_BAD_PARAM naming it.
  void param(const char* name, int position) noexcept;
  // The storage order; an unknown order gives NE_BAD_PARAM "order".
  bool order(std::int32_t order) noexcept;

  // Registers a matrix and checks its leading dimension for the order:
  // row-major "pda >= MAX(1,cols)", column-major "pda >= MAX(1,rows)" (as
  // the kernel itself would refuse it, with its report on stderr).  Returns
  // its handle, or -1 after a report.
  int matrix(const MatrixSpec& desc, const void* a, std::int32_t ld, std::size_t elem) noexcept;
  template <class T>
  int matrix(const MatrixSpec& desc, const T* a, std::int32_t ld) noexcept {
    return matrix(desc, static_cast<const void*>(a), ld, sizeof(T));
  }
  // A matrix that the kernel references only when `used` (eigenvectors
  // under a job argument).  When it is not, the array may be null and the
  // leading dimension need only be >= 1; nothing is copied.
  int matrix_if(bool used, const MatrixSpec& desc, const void* a, std::int32_t ld, std::size_t elem) noexcept;
  template <class T>
  int matrix_if(bool used, const MatrixSpec& desc, const T* a, std::int32_t ld) noexcept {
    return matrix_if(used, desc, static_cast<const void*>(a), ld, sizeof(T));
  }
  // The kernel's array and leading dimension of a registered matrix, valid
  // after prepare().
  template <class T>
  T* ptr(int h) const noexcept {
    return static_cast<T*>(slots_[h].kernel);
  }
  const std::int32_t* ld(int h) const noexcept { return &slots_[h].kernel_ld; }
  bool failed() const noexcept { return call_.failed(); }

  // Takes the temporaries of a row-major call and copies the inputs in.
  // Returns true when it reported (an earlier check, or allocation failure).
  bool prepare() noexcept;

  // Copies the outputs back, frees, and maps the kernel's info: 0 nothing;
  // negative, the argument at that position (or NE_INTERNAL_ERROR);
  // positive, the routine's row.  errnum = info after every report.
  void finish(long info, const InfoRow& positive) noexcept;
  // The same for routines whose info is never positive.
  void finish(long info) noexcept { finish(info, InfoRow{NE_INTERNAL_ERROR, nullptr}); }

 private:
  struct Slot {
    MatrixSpec desc;
    void* user;
    std::int32_t user_ld;
    std::size_t elem;
    void* kernel = nullptr;
    std::int32_t kernel_ld = 1;
    std::size_t offset = 0;  // in the temporary block, in bytes
    bool active = true;      // false: not referenced by the kernel, never copied
  };
  template <class T>
  void copy(const Slot& s, bool to_kernel) noexcept;
  void report_dim(const char* name, long v, const char* constraint, int position) noexcept;
  void report_dim2(const char* name, long v, const char* other, long bound, const char* op, int position) noexcept;

  static constexpr int kMaxMatrices = 8;
  Call call_;
  const char* kernel_;
  bool row_major_ = false;
  Slot slots_[kMaxMatrices];
  int nslots_ = 0;
  void* block_ = nullptr;
  // Kernel positions of the dimensions seen, for negative info.
  struct DimSeen {
    const char* name;
    long value;
    int position;
  };
  DimSeen dims_[12];
  int ndims_ = 0;
  // Kernel positions of the other arguments that only the kernel checks.
  struct ParamSeen {
    const char* name;
    int position;
  };
  ParamSeen params_[12];
  int nparams_ = 0;
};

}  // namespace zem::la
