/* x01: mathematical constants. */
#ifndef ZEM_X01_H
#define ZEM_X01_H
#include "zem/types.h"
ZEM_BEGIN_DECLS
/* pi; the argument is a dummy and is ignored. */
ZEM_API double x01aaf_f(const double *dummy);
ZEM_END_DECLS
#endif
