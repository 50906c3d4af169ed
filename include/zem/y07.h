/* y07: helpers for test drivers that read a data file and write results. */
#ifndef ZEM_Y07_H
#define ZEM_Y07_H
#include <stdio.h>
#include "zem/types.h"
ZEM_BEGIN_DECLS
ZEM_API void y07abc(const char *path);            /* writes ".--.\n": start of a result block */
ZEM_API void y07acc(const char *path);            /* writes ".+-.\n": end of a result block */
ZEM_API void y07adc(FILE *stream);                /* skips to the end of the line */
ZEM_API void y07aec(FILE *stream, const char *path); /* reads a non-blank line (<= 80 chars), copies it to path */
ZEM_END_DECLS
#endif
