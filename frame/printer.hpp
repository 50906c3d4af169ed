// The matrix printers' engine: one layout routine for every storage scheme
// and element type.  The exported x04c/x04d routines build a Request and map
// the returned Status to a report.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "zem/types.h"

namespace zem::printer {

// How a run ended.  The numbers are those that fail->errnum carries.
enum class Status : int {
  Ok = 0,
  Order = 1,
  Matrix = 2,
  Diag = 3,
  M = 4,
  N = 5,
  Kl = 6,
  Ld = 7,
  Format = 8,
  Form = 9,
  LabRow = 10,
  Ku = 11,
  LabCol = 12,
  ColWidth = 13,
  Array = 14,
  Open = 17,
  Write = 18,
  Close = 19,
  Alloc = 20,
  Internal = 21,
};

enum class Storage { Full, Packed, Band };

// Everything a printer call asked for.
struct Request {
  Storage storage = Storage::Full;
  int32_t order = Zem_RowMajor;
  int32_t matrix = Zem_GeneralMatrix;
  int32_t diag = Zem_NonUnitDiag;
  long m = 0, n = 0;
  long kl = 0, ku = 0;          // band storage
  long ld = 1;                  // pda or pdab; not used for packed storage
  bool complex_form = false;    // form is an argument of the call (checked)
  int32_t form = Zem_AboveForm;
  const char* format = nullptr;
  const char* title = nullptr;
  int32_t labrow = Zem_IntegerLabels;
  const char* const* rlabs = nullptr;
  int32_t labcol = Zem_IntegerLabels;
  const char* const* clabs = nullptr;
  int32_t ncols = 80;
  int32_t indent = 0;
  const char* outfile = nullptr;
};

// Prints the matrix a (double or ZemComplex) as the request says.
template <class Elem>
Status print(const Request& r, const Elem* a);

// ---- Pieces of the engine, exposed for tests.

// True when fmt is a printf format for one double: exactly one conversion
// of f F e E g G a A with optional flags "-+ #0", width and precision of at
// most three digits each, an optional 'l', no other conversion than "%%",
// and no control characters.
bool valid_format(const char* fmt) noexcept;

// The automatic choice from the printed values' largest magnitude, their
// smallest nonzero magnitude (infinity when there is none) and whether any
// is not finite.
const char* automatic_format(double largest, double smallest_nonzero, bool nonfinite) noexcept;

// The full-precision format for doubles, "%24.15e ".
std::string full_precision_format();

}  // namespace zem::printer
