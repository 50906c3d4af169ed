/* x04: workspace, text helpers, output channels and the matrix printers. */
#ifndef ZEM_X04_H
#define ZEM_X04_H
#include <stdio.h>
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* Paths of the results and data files used by reports and test drivers;
 * NULL means standard output / standard input.  The core layer's unit 6
 * and its advisory messages also go to global_resfile when it is set. */
ZEM_API extern char *global_resfile;
ZEM_API extern char *global_datafile;

/* Workspace: allocate, resize (the old block stays on failure), free and
 * null the pointer (harmless on a null pointer). */
ZEM_API void *x04bbc(size_t size);
ZEM_API void *x04bcc(void *pointer, size_t size);
ZEM_API void x04bdc(void **pointer);

/* Changes text to lower case in place. */
ZEM_API void x04bcz(char *text);

/* ---- Output to files and streams.  These routines take no error record:
 * a failure to open or write ends the process with exit status 1, after a
 * message on the standard error stream. */

/* x04bay: appends text to the file at path (opened in append mode and
 * closed again on each call, so that nothing is lost if the program dies),
 * or writes it to standard output when path is NULL.
 *   path   in   the file, or NULL.
 *   text   in   written as it stands, with no newline added (NULL: nothing).
 * Returns what the close (or, for standard output, the flush) returned.
 * Ends the process on failure with "Unable To Open Output File: <path>",
 * "Unable To Write to the Output File: <path>", "Unable To Write to the
 * stdout" or "Unable To Close the Output File: <path>". */
ZEM_API int32_t x04bay(const char *path, const char *text);

/* x04bax: opens path for reading and returns the stream; NULL gives
 * standard input.  An unopenable file ends the process (status 1) after
 * "Unable To Open Input File: <path>" on the standard error stream. */
ZEM_API FILE *x04bax(const char *path);

/* x04bau: closes a stream from x04bax and returns 0.  Standard input is not
 * closed: the call prints "stdin in MS Windows environment" on the standard
 * error stream and returns 1.  A failed close (or a NULL stream) prints
 * "Unable to close file pointer" there and returns 1. */
ZEM_API int32_t x04bau(FILE *stream);

/* x04bah: writes one record to stream.
 *   stream in   the output stream.
 *   text   in   the record; at most length characters are used, fewer if a
 *               NUL comes first.  Trailing blanks are removed and a newline
 *               is added.
 *   length in   the number of characters of text (<= 0: an empty record).
 *   status out  0, or 1 if the write (or the flush that follows it) failed
 *               or stream is NULL. */
ZEM_API void x04bah(FILE *stream, const char *text, int32_t length, int32_t *status);

/* x04aaf_f: the advisory message unit, by address.  For *iflag 0 it stores
 * the unit number 6 in *nerr; any other flag does nothing. */
ZEM_API void x04aaf_f(const int32_t *iflag, int32_t *nerr);

/* Lookups between names and numbers: catalogue code by row name, enumerator
 * value by name (both -5438 if unknown), enumerator name by value into out
 * ("unknown_enum_value" if unknown).  out needs 40 bytes. */
ZEM_API int32_t x04mbc(const char *name);
ZEM_API int32_t x04mac(const char *name);
ZEM_API char *x04mcc(int32_t value, char *out);

/* ---- Matrix printers.
 *
 * Six pairs, an easy and a full form of each:
 *   x04cac / x04cbc  real matrix, full storage (general or triangular)
 *   x04ccc / x04cdc  real triangular matrix, packed storage
 *   x04cec / x04cfc  real band matrix
 *   x04dac / x04dbc  complex matrix, full storage
 *   x04dcc / x04ddc  complex triangular matrix, packed storage
 *   x04dec / x04dfc  complex band matrix
 * The easy form prints with an automatic format, integer labels on rows and
 * columns, 80 columns and no indent (and, for complex values, the layout
 * Zem_AboveForm).
 *
 * Arguments shared by the family, in this order:
 *   order   in   Zem_RowMajor or Zem_ColMajor: the storage order of a.
 *   matrix  in   Zem_GeneralMatrix, Zem_LowerMatrix or Zem_UpperMatrix.
 *                A triangular type prints only its triangle; the other
 *                positions are left blank.  Packed storage holds a triangle
 *                and so refuses Zem_GeneralMatrix.
 *   diag    in   for a triangular matrix: Zem_NonUnitDiag (the diagonal is
 *                printed from a), Zem_UnitDiag (printed as 1.0, a is not
 *                read there) or Zem_NonRefDiag (left blank).  Not read for
 *                Zem_GeneralMatrix.
 *   m, n    in   rows and columns, m >= 0, n >= 0 (packed storage: the
 *                order n of the square matrix only).  With m or n 0 only the
 *                title is printed, and a may be NULL.
 *   kl, ku  in   band forms: sub- and super-diagonals, kl >= 0, ku >= 0.
 *   a       in   the matrix (layouts below).
 *   pda     in   full storage: the stride between rows (row-major, pda >= n)
 *                or columns (column-major, pda >= m); pda >= 1.
 *   pdab    in   band storage: the stride, pdab >= kl + ku + 1.
 *   form    in   complex full forms: Zem_AboveForm (real parts on one line,
 *                imaginary parts on the line below), Zem_BracketForm
 *                ("(re,im)") or Zem_DirectForm (real and imaginary part side
 *                by side).
 *   format  in   a printf format for one real value (for complex values, for
 *                each part), for example "%8.3f ".  It must hold exactly one
 *                conversion of f, F, e, E, g, G, a or A, with optional flags
 *                (- + blank # 0), a width and a precision of at most three
 *                digits each (no *), and no other conversion than %%.  NULL
 *                or "" chooses the format from the printed values: "%8.4f "
 *                when they are all 0, or below 1 in magnitude and every
 *                nonzero one at least 0.001; "%11.4f " when the largest
 *                magnitude is from 1 up to 9999.99991 with the same lower
 *                limit; "%13.4e " otherwise.  "*" prints in full precision
 *                ("%24.15e ").  The width of the format applied to 1.0 is the
 *                column width.
 *   title   in   printed as the first line when not NULL and not empty.
 *   labrow  in   Zem_NoLabels, Zem_IntegerLabels (1 to m) or
 *                Zem_CharacterLabels (from rlabs).
 *   rlabs   in   m row labels for Zem_CharacterLabels (a NULL entry prints
 *                as an empty label); otherwise not read and may be NULL.
 *   labcol  in   as labrow, for the columns.
 *   clabs   in   n column labels for Zem_CharacterLabels.
 *   ncols   in   the width of the output lines; outside 1..132 it is 80.
 *   indent  in   blanks at the start of every line (the title's too); below
 *                0 or not below ncols it is 0.
 *   outfile in   the output file, opened in append mode and closed at the
 *                end; NULL writes to standard output.
 *   fail    in/out  error record.
 *
 * The output: the title, then the columns in blocks of as many columns as
 * fit in ncols - indent after the row labels; blocks after the first are
 * preceded by a blank line.  Each block has a line of column labels, right
 * aligned over their values (character labels are cut to the column
 * width), then one line per row (two for Zem_AboveForm) headed by the row
 * label, right aligned in the width of the widest one, and a blank.
 * Trailing blanks of a line are not written.
 *
 * Storage of element (i, j), counted from 0:
 *   full, column-major  a[i + j*pda]      full, row-major  a[i*pda + j]
 *   band, column-major  a[ku + i - j + j*pdab]  (column j of the matrix is
 *                       column j of a, the diagonal in row ku)
 *   band, row-major     a[kl + j - i + i*pdab]  (row i of the matrix is row
 *                       i of a, the diagonal in column kl)
 *     only for max(0, j - ku) <= i <= min(m - 1, j + kl).
 *   packed: the triangle is stored by columns (column-major) or by rows
 *   (row-major), each column or row in order, one after another:
 *     upper, column-major  a[j*(j+1)/2 + i]          (i <= j)
 *     lower, column-major  a[j*(2n-j-1)/2 + i]       (i >= j)
 *     upper, row-major     a[i*(2n-i-1)/2 + j]       (i <= j)
 *     lower, row-major     a[i*(i+1)/2 + j]          (i >= j)
 *
 * Reports, checked in this order; fail->errnum holds the status number:
 *   NE_BAD_PARAM        status 1 order, 2 matrix, 3 diag (naming it).
 *   NE_INT_ARG_LT       status 4 m < 0, 5 n < 0, 6 kl < 0, 11 ku < 0.
 *   NE_BAD_PARAM        status 7 pda (pdab), 9 form, 10 labrow (also for
 *                       character labels with rlabs NULL), 12 labcol,
 *                       14 a NULL, 8 format (not a valid format for one real
 *                       value).
 *   NE_NOT_WRITE_FILE   status 17: outfile cannot be opened.
 *   NE_COL_WIDTH        status 13: not even one column fits in
 *                       ncols - indent (nothing is written).
 *   NE_NOT_APPEND_FILE  status 18: a write failed (outfile or stdout).
 *   NE_NOT_CLOSE_FILE   status 19: outfile could not be closed.
 *   NE_ALLOC_FAIL       status 20. */

ZEM_API void x04cac(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const double a[], int32_t pda, const char *title,
                    const char *outfile, ZemError *fail);
ZEM_API void x04cbc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const double a[], int32_t pda, const char *format,
                    const char *title, int32_t labrow, const char *const rlabs[],
                    int32_t labcol, const char *const clabs[], int32_t ncols, int32_t indent,
                    const char *outfile, ZemError *fail);

ZEM_API void x04ccc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const double a[], const char *title, const char *outfile, ZemError *fail);
ZEM_API void x04cdc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const double a[], const char *format, const char *title, int32_t labrow,
                    const char *const rlabs[], int32_t labcol, const char *const clabs[],
                    int32_t ncols, int32_t indent, const char *outfile, ZemError *fail);

ZEM_API void x04cec(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const double a[], int32_t pdab,
                    const char *title, const char *outfile, ZemError *fail);
ZEM_API void x04cfc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const double a[], int32_t pdab,
                    const char *format, const char *title, int32_t labrow,
                    const char *const rlabs[], int32_t labcol, const char *const clabs[],
                    int32_t ncols, int32_t indent, const char *outfile, ZemError *fail);

ZEM_API void x04dac(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const ZemComplex a[], int32_t pda, const char *title,
                    const char *outfile, ZemError *fail);
ZEM_API void x04dbc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, const ZemComplex a[], int32_t pda, int32_t form,
                    const char *format, const char *title, int32_t labrow,
                    const char *const rlabs[], int32_t labcol, const char *const clabs[],
                    int32_t ncols, int32_t indent, const char *outfile, ZemError *fail);

ZEM_API void x04dcc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const ZemComplex a[], const char *title, const char *outfile,
                    ZemError *fail);
ZEM_API void x04ddc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t n,
                    const ZemComplex a[], int32_t form, const char *format, const char *title,
                    int32_t labrow, const char *const rlabs[], int32_t labcol,
                    const char *const clabs[], int32_t ncols, int32_t indent,
                    const char *outfile, ZemError *fail);

ZEM_API void x04dec(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const ZemComplex a[], int32_t pdab,
                    const char *title, const char *outfile, ZemError *fail);
ZEM_API void x04dfc(Zem_OrderType order, Zem_MatrixType matrix, Zem_DiagType diag, int32_t m,
                    int32_t n, int32_t kl, int32_t ku, const ZemComplex a[], int32_t pdab,
                    int32_t form, const char *format, const char *title, int32_t labrow,
                    const char *const rlabs[], int32_t labcol, const char *const clabs[],
                    int32_t ncols, int32_t indent, const char *outfile, ZemError *fail);

ZEM_END_DECLS
#endif
