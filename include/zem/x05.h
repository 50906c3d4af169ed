/* x05: the clock. */
#ifndef ZEM_X05_H
#define ZEM_X05_H
#include "zem/types.h"
ZEM_BEGIN_DECLS
/* Seconds since the epoch; a failing clock aborts (NE_SYSTEM_TIME). */
ZEM_API double x05aac(void);
ZEM_END_DECLS
#endif
