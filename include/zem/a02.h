/* a02: complex arithmetic on ZemComplex. */
#ifndef ZEM_A02_H
#define ZEM_A02_H
#include "zem/types.h"
ZEM_BEGIN_DECLS
ZEM_API ZemComplex a02bac(double x, double y);          /* x + iy */
ZEM_API double a02bbc(ZemComplex z);                    /* real part */
ZEM_API double a02bcc(ZemComplex z);                    /* imaginary part */
ZEM_API ZemComplex a02cac(ZemComplex a, ZemComplex b);  /* a + b */
ZEM_API ZemComplex a02cbc(ZemComplex a, ZemComplex b);  /* a - b */
ZEM_API ZemComplex a02ccc(ZemComplex a, ZemComplex b);  /* a * b, plain formula */
ZEM_API ZemComplex a02cdc(ZemComplex a, ZemComplex b);  /* a / b, Smith's rule, no check */
ZEM_API ZemComplex a02cec(ZemComplex a);                /* -a */
ZEM_API ZemComplex a02cfc(ZemComplex a);                /* conjugate */
ZEM_API int32_t a02cgc(ZemComplex a, ZemComplex b);     /* a == b */
ZEM_API int32_t a02chc(ZemComplex a, ZemComplex b);     /* a != b */
ZEM_API double a02dac(ZemComplex z);                    /* argument, atan2(im, re) */
ZEM_API double a02dbc(ZemComplex z);                    /* modulus without overflow */
ZEM_API ZemComplex a02dcc(ZemComplex z);                /* principal square root */
ZEM_API ZemComplex a02ddc(ZemComplex z, int32_t n);     /* z^n by repeated squaring */
ZEM_API ZemComplex a02dec(ZemComplex z, double r);      /* z^r = exp(r log z) */
ZEM_API ZemComplex a02dfc(ZemComplex z, ZemComplex w);  /* z^w = exp(w log z) */
ZEM_API ZemComplex a02dgc(ZemComplex z);                /* principal logarithm */
ZEM_API ZemComplex a02dhc(ZemComplex z);                /* exponential */
ZEM_API ZemComplex a02djc(ZemComplex z);                /* sine */
ZEM_API ZemComplex a02dkc(ZemComplex z);                /* cosine */
ZEM_API ZemComplex a02dlc(ZemComplex z);                /* tangent */
ZEM_API ZemComplex a02eic(ZemComplex z, double r, double unused); /* r * z; last argument ignored */
ZEM_API ZemComplex a02ejc(ZemComplex z, double r);      /* r * z */
ZEM_END_DECLS
#endif
