/* s: special functions. */
#ifndef ZEM_S_H
#define ZEM_S_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* ---- Functions of real argument ---- */

/* ---- end of functions of real argument ---- */

/* ---- Functions of complex argument and Bessel families of real order ---- */

/* ---- end of complex argument ---- */

/* ---- Elliptic integrals and functions, Legendre functions ---- */

/* ---- end of elliptic and Legendre ---- */

ZEM_END_DECLS
#endif /* ZEM_S_H */
