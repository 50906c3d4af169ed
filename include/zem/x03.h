/* x03: inner products in extended precision. */
#ifndef ZEM_X03_H
#define ZEM_X03_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* d1 (+ d2) = c1 (+ c2) + sum_{i<n} a[i*stepa]*b[i*stepb].
 * sw == 0: plain double sum into d1, d2 = 0 (c2 unused).
 * sw != 0: double-length (Dekker) accumulation; d1 + d2 is the result.
 * la and lb are the array sizes (informational).  Reports NE_INT_ARG_LE
 * for stepa or stepb below 1. */
ZEM_API void x03aac(const double a[], int32_t la, const double b[], int32_t lb, int32_t n,
                    int32_t stepa, int32_t stepb, double c1, double c2, double *d1, double *d2,
                    int32_t sw, ZemError *fail);
/* The double-length core of x03aac. */
ZEM_API void x03aay(const double a[], const double b[], int32_t n, int32_t stepa, int32_t stepb,
                    double c1, double c2, double *d1, double *d2);

/* Floating-point control: x03aaw sets round-to-nearest and 53-bit precision
 * and stores the resulting control word in *word; x03aax installs *word.
 * The word uses the classic encoding: rounding in mask 0x300 (0 nearest),
 * precision in mask 0x30000 (0x10000 for 53 bits), exception masks in
 * 0x8001F (a set bit masks the exception). */
ZEM_API void x03aaw(uint32_t *word);
ZEM_API void x03aax(const uint32_t *word);
ZEM_API void x03aaw_(uint32_t *word);
ZEM_API void x03aax_(const uint32_t *word);

ZEM_END_DECLS
#endif
