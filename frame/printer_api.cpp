// The exported matrix printers x04cac to x04dfc: each fills a request for
// the one engine and maps the engine's status to a report.
#include <new>

#include "frame/printer.hpp"
#include "frame/report.hpp"
#include "zem/x04.h"

namespace {

using zem::printer::Request;
using zem::printer::Status;
using zem::printer::Storage;

void report(zem::Call& call, Status s, const Request& r) {
  if (s == Status::Ok) {
    call.success();
    return;
  }
  call.set_errnum(static_cast<int>(s));
  const auto bad = [&call](const char* name) { call.report(NE_BAD_PARAM, name); };
  switch (s) {
    case Status::Order: bad("order"); return;
    case Status::Matrix: bad("matrix"); return;
    case Status::Diag: bad("diag"); return;
    case Status::M: call.report(NE_INT_ARG_LT, "m", "0", "m", r.m); return;
    case Status::N: call.report(NE_INT_ARG_LT, "n", "0", "n", r.n); return;
    case Status::Kl: call.report(NE_INT_ARG_LT, "kl", "0", "kl", r.kl); return;
    case Status::Ku: call.report(NE_INT_ARG_LT, "ku", "0", "ku", r.ku); return;
    case Status::Ld: bad(r.storage == Storage::Band ? "pdab" : "pda"); return;
    case Status::Form: bad("form"); return;
    case Status::LabRow: bad("labrow"); return;
    case Status::LabCol: bad("labcol"); return;
    case Status::Array: bad("a"); return;
    case Status::Format: bad("format"); return;
    case Status::ColWidth: call.report(NE_COL_WIDTH, "ncols - indent"); return;
    case Status::Open: call.report(NE_NOT_WRITE_FILE, "outfile"); return;
    case Status::Write: call.report(NE_NOT_APPEND_FILE, r.outfile ? "outfile" : "stdout"); return;
    case Status::Close: call.report(NE_NOT_CLOSE_FILE, "outfile"); return;
    case Status::Alloc: call.report_null(NE_ALLOC_FAIL); return;
    case Status::Ok:
    case Status::Internal: break;
  }
  call.report_null(NE_INTERNAL_ERROR);
}

template <class Elem>
void drive(const char* routine, const Request& r, const Elem* a, ZemError* fail) noexcept {
  zem::Call call(routine, fail);
  Status s = Status::Internal;
  try {
    s = zem::printer::print(r, a);
  } catch (const std::bad_alloc&) {
    s = Status::Alloc;
  } catch (...) {
    s = Status::Internal;
  }
  report(call, s, r);
}

Request shape(Storage storage, int32_t order, int32_t matrix, int32_t diag, long m, long n,
              long ld) {
  Request r;
  r.storage = storage;
  r.order = order;
  r.matrix = matrix;
  r.diag = diag;
  r.m = m;
  r.n = n;
  r.ld = ld;
  return r;
}

Request band(int32_t order, int32_t matrix, int32_t diag, long m, long n, long kl, long ku,
             long pdab) {
  Request r = shape(Storage::Band, order, matrix, diag, m, n, pdab);
  r.kl = kl;
  r.ku = ku;
  return r;
}

// The settings of a full form; the easy forms keep the Request's defaults
// (automatic format, integer labels, 80 columns, no indent).
Request& with(Request& r, const char* format, const char* title, int32_t labrow,
              const char* const* rlabs, int32_t labcol, const char* const* clabs, int32_t ncols,
              int32_t indent, const char* outfile) {
  r.format = format;
  r.title = title;
  r.labrow = labrow;
  r.rlabs = rlabs;
  r.labcol = labcol;
  r.clabs = clabs;
  r.ncols = ncols;
  r.indent = indent;
  r.outfile = outfile;
  return r;
}

Request& easy(Request& r, const char* title, const char* outfile) {
  r.title = title;
  r.outfile = outfile;
  return r;
}

Request& with_form(Request& r, int32_t form) {
  r.complex_form = true;
  r.form = form;
  return r;
}

}  // namespace

extern "C" {

ZEM_API void x04cac(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const double a[], int32_t pda, const char* title,
                    const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Full, order, matrix, diag, m, n, pda);
  drive("x04cac", easy(r, title, outfile), a, fail);
}

ZEM_API void x04cbc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const double a[], int32_t pda, const char* format,
                    const char* title, int32_t labrow, const char* const rlabs[], int32_t labcol,
                    const char* const clabs[], int32_t ncols, int32_t indent, const char* outfile,
                    ZemError* fail) {
  Request r = shape(Storage::Full, order, matrix, diag, m, n, pda);
  drive("x04cbc",
        with(r, format, title, labrow, rlabs, labcol, clabs, ncols, indent, outfile), a, fail);
}

ZEM_API void x04ccc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const double a[], const char* title, const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Packed, order, matrix, diag, n, n, 1);
  drive("x04ccc", easy(r, title, outfile), a, fail);
}

ZEM_API void x04cdc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const double a[], const char* format, const char* title, int32_t labrow,
                    const char* const rlabs[], int32_t labcol, const char* const clabs[],
                    int32_t ncols, int32_t indent, const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Packed, order, matrix, diag, n, n, 1);
  drive("x04cdc",
        with(r, format, title, labrow, rlabs, labcol, clabs, ncols, indent, outfile), a, fail);
}

ZEM_API void x04cec(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const double a[], int32_t pdab,
                    const char* title, const char* outfile, ZemError* fail) {
  Request r = band(order, matrix, diag, m, n, kl, ku, pdab);
  drive("x04cec", easy(r, title, outfile), a, fail);
}

ZEM_API void x04cfc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const double a[], int32_t pdab,
                    const char* format, const char* title, int32_t labrow,
                    const char* const rlabs[], int32_t labcol, const char* const clabs[],
                    int32_t ncols, int32_t indent, const char* outfile, ZemError* fail) {
  Request r = band(order, matrix, diag, m, n, kl, ku, pdab);
  drive("x04cfc",
        with(r, format, title, labrow, rlabs, labcol, clabs, ncols, indent, outfile), a, fail);
}

ZEM_API void x04dac(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const ZemComplex a[], int32_t pda, const char* title,
                    const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Full, order, matrix, diag, m, n, pda);
  drive("x04dac", easy(r, title, outfile), a, fail);
}

ZEM_API void x04dbc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const ZemComplex a[], int32_t pda, int32_t form,
                    const char* format, const char* title, int32_t labrow,
                    const char* const rlabs[], int32_t labcol, const char* const clabs[],
                    int32_t ncols, int32_t indent, const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Full, order, matrix, diag, m, n, pda);
  drive("x04dbc",
        with(with_form(r, form), format, title, labrow, rlabs, labcol, clabs, ncols, indent,
             outfile),
        a, fail);
}

ZEM_API void x04dcc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const ZemComplex a[], const char* title, const char* outfile,
                    ZemError* fail) {
  Request r = shape(Storage::Packed, order, matrix, diag, n, n, 1);
  drive("x04dcc", easy(r, title, outfile), a, fail);
}

ZEM_API void x04ddc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const ZemComplex a[], int32_t form, const char* format, const char* title,
                    int32_t labrow, const char* const rlabs[], int32_t labcol,
                    const char* const clabs[], int32_t ncols, int32_t indent,
                    const char* outfile, ZemError* fail) {
  Request r = shape(Storage::Packed, order, matrix, diag, n, n, 1);
  drive("x04ddc",
        with(with_form(r, form), format, title, labrow, rlabs, labcol, clabs, ncols, indent,
             outfile),
        a, fail);
}

ZEM_API void x04dec(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const ZemComplex a[], int32_t pdab,
                    const char* title, const char* outfile, ZemError* fail) {
  Request r = band(order, matrix, diag, m, n, kl, ku, pdab);
  drive("x04dec", easy(r, title, outfile), a, fail);
}

ZEM_API void x04dfc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const ZemComplex a[], int32_t pdab,
                    int32_t form, const char* format, const char* title, int32_t labrow,
                    const char* const rlabs[], int32_t labcol, const char* const clabs[],
                    int32_t ncols, int32_t indent, const char* outfile, ZemError* fail) {
  Request r = band(order, matrix, diag, m, n, kl, ku, pdab);
  drive("x04dfc",
        with(with_form(r, form), format, title, labrow, rlabs, labcol, clabs, ncols, indent,
             outfile),
        a, fail);
}

}  // extern "C"
