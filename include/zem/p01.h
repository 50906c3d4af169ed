/* p01: error reporting. */
#ifndef ZEM_P01_H
#define ZEM_P01_H
#include "zem/types.h"

ZEM_BEGIN_DECLS

/* The one road of reports.  message is the formatted text, or NULL to take
 * the catalogue row of `code` unformatted; routine is the reporter's short
 * name.  With a nonzero code and (fail NULL or fail->print nonzero) the
 * message goes to stderr under an "Error detected by" or "Warning from"
 * heading.  With a record: fail->code = code, the handler runs (it still sees
 * the previous fail->message), then the message is stored.  With no record a
 * nonzero code prints "...Program Aborted" and aborts the process. */
ZEM_API void p01acc(const char *message, int32_t code, const char *routine, ZemError *fail);

/* Advisory exit of routines in the core style.  ifail is the caller's mode
 * word (0 hard noisy, -1 soft noisy, 1 soft silent, 11 soft noisy, 10 hard
 * noisy, -13 records only), ierror the failure found.  Writes rec (one line,
 * when nrec is nonzero) and the abnormal-exit lines to the results file or
 * standard output, and returns ierror.  It never ends the process: a hard
 * failure only writes its line.  The two lengths are unused. */
ZEM_API int32_t p01abf_f(const int32_t *ifail, const int32_t *ierror, const char *srname,
                         const int32_t *nrec, const char *rec, size_t srname_len, size_t rec_len);

ZEM_END_DECLS
#endif
