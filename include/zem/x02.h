/* x02: machine constants of IEEE double precision. */
#ifndef ZEM_X02_H
#define ZEM_X02_H
#include "zem/types.h"
ZEM_BEGIN_DECLS
ZEM_API double x02ahc(void); /* largest argument of trigonometric routines, 2^64 */
ZEM_API double x02ajc(void); /* rounding unit: next double above 2^-53, so 1+x02ajc() > 1 */
ZEM_API double x02akc(void); /* smallest positive normal value */
ZEM_API double x02amc(void); /* same as x02akc */
ZEM_API double x02anc(void); /* same as x02akc */
ZEM_API double x02alc(void); /* largest finite value */
/* Fills table[0..8]: base, digits, x02ajc, sqrt(x02ajc), x02akc,
 * sqrt(x02akc), 1/x02akc, sqrt(1/x02akc), 0.0. */
ZEM_API void x02zaz(double table[9]);
ZEM_END_DECLS
#endif
