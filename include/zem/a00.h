/* a00: implementation banner. */
#ifndef ZEM_A00_H
#define ZEM_A00_H
#include "zem/types.h"
ZEM_BEGIN_DECLS
/* Prints the banner (platform, implementation code, compilers, build time,
 * release) on standard output. */
ZEM_API void a00aac(void);
/* Appends the same lines to the file at path (stdout if NULL). */
ZEM_API void a00abc(const char *path);
ZEM_END_DECLS
#endif
