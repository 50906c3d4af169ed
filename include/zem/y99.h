/* y99: helpers on reports. */
#ifndef ZEM_Y99_H
#define ZEM_Y99_H
#include "zem/types.h"

ZEM_BEGIN_DECLS

/* Shared buffer of y99abc (not thread-safe; copy the text you need). */
ZEM_API extern char y99_buf[512];

/* The row name at the front of a message (the text before its first ':'),
 * in y99_buf.  code 1 reports NE_CODE_NOT_SET and returns NULL; a message
 * with no colon reports NE_ERR_MSG_STRING. */
ZEM_API char *y99abc(int32_t code, const char *message, ZemError *fail);

/* A ready-made handler: for a nonzero code writes "\nError from <routine>.\n"
 * and the message to the file named by global_resfile (stdout if NULL). */
ZEM_API void y99aac(const char *message, int32_t code, const char *routine);

ZEM_END_DECLS
#endif
