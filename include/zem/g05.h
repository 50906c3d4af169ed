/* g05: random numbers. */
#ifndef ZEM_G05_H
#define ZEM_G05_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

ZEM_END_DECLS
#endif /* ZEM_G05_H */
