/* x04: workspace, text helpers and output to files. */
#ifndef ZEM_X04_H
#define ZEM_X04_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* Paths of the results and data files used by reports and test drivers;
 * NULL means standard output / standard input. */
ZEM_API extern char *global_resfile;
ZEM_API extern char *global_datafile;

/* Workspace: allocate, resize (the old block stays on failure), free and
 * null the pointer (harmless on a null pointer). */
ZEM_API void *x04bbc(size_t size);
ZEM_API void *x04bcc(void *pointer, size_t size);
ZEM_API void x04bdc(void **pointer);

/* Changes text to lower case in place. */
ZEM_API void x04bcz(char *text);

/* Appends text to the file at path (opened and closed on each call), or
 * writes it to standard output when path is NULL.  An output failure prints
 * a message on stderr and ends the process with status 1. */
ZEM_API int32_t x04bay(const char *path, const char *text);

/* Lookups between names and numbers: catalogue code by row name, enumerator
 * value by name (both -5438 if unknown), enumerator name by value into out
 * ("unknown_enum_value" if unknown).  out needs 40 bytes. */
ZEM_API int32_t x04mbc(const char *name);
ZEM_API int32_t x04mac(const char *name);
ZEM_API char *x04mcc(int32_t value, char *out);

ZEM_END_DECLS
#endif
