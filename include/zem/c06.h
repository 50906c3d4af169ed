/* c06: discrete Fourier transforms.
 *
 * Conventions of every routine here:
 *   - Every transform is scaled by 1/sqrt(n), in both directions, so that
 *     a forward transform followed by a backward one gives back the data.
 *   - The forward transform of x is  X_k = 1/sqrt(n) sum_j x_j exp(-2 pi i j k / n),
 *     the backward transform        x_j = 1/sqrt(n) sum_k X_k exp(+2 pi i j k / n).
 *   - Hermitian layout of length n (the transform of real data): the real
 *     part of X_k at index k for 0 <= k <= n/2 and its imaginary part at
 *     index n - k for 0 < k < (n+1)/2.  X_0, and X_{n/2} for even n, are real;
 *     X_{n-k} is the conjugate of X_k.
 *   - Multiple sequences are stored side by side: term j of sequence p
 *     (p = 0 .. m-1) at x[j*m + p].
 *   - Multidimensional arrays are row-major: the last dimension varies
 *     fastest.
 *
 * The single-sequence routines (c06eac, c06ebc, c06ecc, c06ekc) work in
 * place and allocate nothing.  They accept n whose prime factors are at most
 * 19 and whose prime factors, counted as squares (a prime dividing twice,
 * counted 2) and singles (counted 1), number at most 20: 2^20 is accepted,
 * 2^21 and 23 are not.  The other routines accept any length >= 1.
 *
 * A trigonometric table trig (2n doubles) for the multiple-sequence routines
 * is made by c06gzc; it holds n at trig[n-1] and trig[2n-1], and a table made
 * for another length is refused with NE_C06_NOT_TRIG before any data is
 * changed. */
#ifndef ZEM_C06_H
#define ZEM_C06_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

typedef int32_t Zem_FT_Operation; /* Zem_Convolution, Zem_Correlation */
typedef int32_t Zem_TransformDirection; /* Zem_ForwardTransform, Zem_BackwardTransform */

/* c06eac: forward transform of one real sequence, in place.
 *   n     in      the length, n >= 2.
 *   x     in/out  n values: the data on entry, the transform in the
 *                 Hermitian layout on exit.
 * Reports: NE_INT_ARG_LE (n <= 1), NE_BAD_PARAM (x null),
 * NE_C06_FACTOR_GT (a prime factor of n above 19), NE_C06_TOO_MANY_FACTORS
 * (more than 20 factors). x is unchanged after a report. */
ZEM_API void c06eac(int32_t n, double x[], ZemError *fail);

/* c06ebc: backward transform of one Hermitian sequence to real data, in
 * place: the inverse of c06eac.
 *   n     in      the length, n >= 2.
 *   x     in/out  the Hermitian layout on entry, the n real values on exit.
 * Reports: as c06eac. */
ZEM_API void c06ebc(int32_t n, double x[], ZemError *fail);

/* c06ecc: forward transform of one complex sequence, in place.
 *   n     in      the length, n >= 2.
 *   x, y  in/out  the real and the imaginary parts (n values each) of the
 *                 data on entry and of the transform on exit.
 * A backward transform is the conjugate of the forward transform of the
 * conjugate: c06gcc before and after.
 * Reports: NE_INT_ARG_LE, NE_BAD_PARAM (x or y null), NE_C06_FACTOR_GT,
 * NE_C06_TOO_MANY_FACTORS. */
ZEM_API void c06ecc(int32_t n, double x[], double y[], ZemError *fail);

/* c06ekc: circular convolution or correlation of two real sequences, in
 * place:
 *   Zem_Convolution:  z_k = 1/n sum_{j=0}^{n-1} x_j y_{(k-j) mod n},
 *   Zem_Correlation:  w_k = 1/n sum_{j=0}^{n-1} x_j y_{(k+j) mod n}.
 *   operation  in      Zem_Convolution or Zem_Correlation.
 *   n          in      the length, n >= 2.
 *   x          in/out  the first sequence on entry, the result on exit.
 *   y          in/out  the second sequence on entry, its forward transform
 *                      (Hermitian layout, as c06eac) on exit.
 * Reports: NE_BAD_PARAM (operation not one of the two, x or y null), then
 * as c06eac. */
ZEM_API void c06ekc(Zem_FT_Operation operation, int32_t n, double x[], double y[], ZemError *fail);

/* c06fpc: forward transforms of m real sequences, in place.
 *   m, n  in      the number of sequences (m >= 1) and their length (n >= 1).
 *   x     in/out  m*n values, term j of sequence p at x[j*m + p]; on exit
 *                 each sequence holds its transform in the Hermitian layout.
 *   trig  in      the table of c06gzc for n.
 * Reports: NE_INT_ARG_LT (m < 1, then n < 1: both are tested and the last
 * report stands), NE_BAD_PARAM (x or trig null), NE_C06_NOT_TRIG. */
ZEM_API void c06fpc(int32_t m, int32_t n, double x[], const double trig[], ZemError *fail);

/* c06fqc: backward transforms of m Hermitian sequences to real data, in
 * place: the inverse of c06fpc.  Arguments and reports as c06fpc. */
ZEM_API void c06fqc(int32_t m, int32_t n, double x[], const double trig[], ZemError *fail);

/* c06frc: forward transforms of m complex sequences, in place.
 *   m, n  in      as c06fpc.
 *   x, y  in/out  the real and imaginary parts, m*n values each, term j of
 *                 sequence p at [j*m + p].
 *   trig  in      the table of c06gzc for n.
 * Reports: as c06fpc (x or y null: NE_BAD_PARAM). */
ZEM_API void c06frc(int32_t m, int32_t n, double x[], double y[], const double trig[], ZemError *fail);

/* c06fuc: forward two-dimensional transform of an m by n complex array,
 * scaled by 1/sqrt(m n), in place.
 *   m, n          in      the dimensions, each >= 1.
 *   x, y          in/out  real and imaginary parts, m*n values each; element
 *                         (i, j) at [i*n + j].
 *   trigm, trign  in      the tables of c06gzc for m and for n.
 * Reports: NE_INT_ARG_LT (m, then n), NE_BAD_PARAM (a null array),
 * NE_C06_NOT_TRIG (trigm, then trign). */
ZEM_API void c06fuc(int32_t m, int32_t n, double x[], double y[], const double trigm[],
                    const double trign[], ZemError *fail);

/* c06fpz: the factors that the multiple-sequence routines use for n: trial
 * factors 4, 2, 3, 5, 7, 9, 11, ... each divided out while it divides.
 *   n        in   the length, n >= 1.
 *   factors  out  the factors in the order found, then a 0; at least 32
 *                 elements.  n = 1 gives the single factor 1.
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (factors null). */
ZEM_API void c06fpz(int32_t n, int32_t factors[], ZemError *fail);

/* c06gbc: complex conjugate of one Hermitian sequence: negates the
 * imaginary parts, x[(n+4)/2 - 1] .. x[n-1] (integer division).
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (x null). */
ZEM_API void c06gbc(int32_t n, double x[], ZemError *fail);

/* c06gcc: complex conjugate of one complex sequence: negates y[0 .. n-1],
 * its imaginary parts.
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (y null). */
ZEM_API void c06gcc(int32_t n, double y[], ZemError *fail);

/* c06gqc: complex conjugates of m Hermitian sequences stored side by side.
 * When m*n, formed in 32-bit arithmetic, is not positive, the call
 * succeeds and changes nothing.
 * Reports: NE_INT_ARG_LT (m, then n), NE_BAD_PARAM (x null). */
ZEM_API void c06gqc(int32_t m, int32_t n, double x[], ZemError *fail);

/* c06gsc: expands m Hermitian sequences (as left by c06fpc) into complex
 * form.
 *   x     in   m*n values, the sequences side by side in the Hermitian layout.
 *   u, v  out  m*n values each: the real and imaginary parts of all n terms
 *              of each sequence, side by side.
 * Reports: NE_INT_ARG_LT (m, then n), NE_BAD_PARAM (a null array). */
ZEM_API void c06gsc(int32_t m, int32_t n, const double x[], double u[], double v[], ZemError *fail);

/* c06gzc: makes the trigonometric table of length n for c06fpc, c06fqc,
 * c06frc, c06fuc, c06hac, c06hbc, c06hcc and c06hdc.
 *   n     in   the length, n >= 1.
 *   trig  out  2n doubles.
 * Reports: NE_INT_ARG_LT (n < 1), NE_BAD_PARAM (trig null). */
ZEM_API void c06gzc(int32_t n, double trig[], ZemError *fail);

/* c06hac: discrete sine transforms of m real sequences, in place; the
 * transform is its own inverse.
 *   x^_k = sqrt(2/n) sum_{j=1}^{n-1} x_j sin(pi j k / n),  k = 1 .. n-1.
 *   m, n  in      m >= 1, n >= 1.
 *   x     in/out  m*n values, term j of sequence p at x[j*m + p]; term 0 is
 *                 not used and is 0 on exit.
 *   trig  in      the table of c06gzc for n.
 * Reports: NE_INT_ARG_LT (m, then n), NE_BAD_PARAM (a null array),
 * NE_C06_NOT_TRIG, NE_ALLOC_FAIL. */
ZEM_API void c06hac(int32_t m, int32_t n, double x[], const double trig[], ZemError *fail);

/* c06hbc: discrete cosine transforms of m real sequences of n+1 terms, in
 * place; the transform is its own inverse.
 *   x^_k = sqrt(2/n) [x_0/2 + sum_{j=1}^{n-1} x_j cos(pi j k / n) + (-1)^k x_n/2],
 *   k = 0 .. n.
 *   x     in/out  m*(n+1) values, term j of sequence p at x[j*m + p].
 * Other arguments and reports as c06hac. */
ZEM_API void c06hbc(int32_t m, int32_t n, double x[], const double trig[], ZemError *fail);

/* c06hcc: quarter-wave sine transforms of m real sequences, in place.
 * Terms j = 1 .. n of sequence p at x[(j-1)*m + p].
 *   Zem_ForwardTransform:
 *     x^_k = sqrt(2/n) [sum_{j=1}^{n-1} x_j sin(pi j (2k-1) / 2n) + (-1)^(k-1) x_n/2],
 *   Zem_BackwardTransform (its inverse):
 *     x_j = sqrt(2/n) sum_{k=1}^{n} x^_k sin(pi j (2k-1) / 2n).
 *   direct  in  Zem_ForwardTransform or Zem_BackwardTransform.
 * Other arguments as c06hac; reports NE_BAD_PARAM (direct) first, then as
 * c06hac. */
ZEM_API void c06hcc(Zem_TransformDirection direct, int32_t m, int32_t n, double x[], const double trig[],
                    ZemError *fail);

/* c06hdc: quarter-wave cosine transforms of m real sequences, in place.
 * Terms j = 0 .. n-1 of sequence p at x[j*m + p].
 *   Zem_ForwardTransform:
 *     x^_k = sqrt(2/n) [x_0/2 + sum_{j=1}^{n-1} x_j cos(pi j (2k+1) / 2n)],
 *   Zem_BackwardTransform (its inverse):
 *     x_j = sqrt(2/n) sum_{k=0}^{n-1} x^_k cos(pi j (2k+1) / 2n).
 * Arguments and reports as c06hcc. */
ZEM_API void c06hdc(Zem_TransformDirection direct, int32_t m, int32_t n, double x[], const double trig[],
                    ZemError *fail);

/* c06pfc: complex transforms along one dimension of a multidimensional
 * array, in place.
 *   direct  in      Zem_ForwardTransform or Zem_BackwardTransform.
 *   ndim    in      the number of dimensions, ndim >= 1.
 *   l       in      the dimension to transform, 1 <= l <= ndim.
 *   nd      in      the ndim dimensions, each >= 1.
 *   n       in      the number of elements: the product of nd.
 *   x       in/out  n complex values, row-major.
 * Reports: NE_BAD_PARAM (direct; nd or x null), NE_ALLOC_FAIL, and through
 * the core's record NE_INT (ndim < 1; nd[l-1] with 31 or more prime
 * factors) and NE_INT_2 (l out of range, nd[i-1] < 1, n not the product);
 * errnum holds the core's failure number. */
ZEM_API void c06pfc(Zem_TransformDirection direct, int32_t ndim, int32_t l, const int32_t nd[], int32_t n,
                    ZemComplex x[], ZemError *fail);

/* c06pjc: complex transform of a multidimensional array along all its
 * dimensions, in place.  Arguments as c06pfc without l.
 * Reports: as c06pfc. */
ZEM_API void c06pjc(Zem_TransformDirection direct, int32_t ndim, const int32_t nd[], int32_t n,
                    ZemComplex x[], ZemError *fail);

/* c06pxc: complex transform of an n1 by n2 by n3 array, in place; element
 * (i1, i2, i3) at x[(i1*n2 + i2)*n3 + i3].
 * Reports: NE_BAD_PARAM (direct, x null), NE_ALLOC_FAIL, and through the
 * core's record NE_INT (n1, n2 or n3 below 1, or with 31 or more prime
 * factors). */
ZEM_API void c06pxc(Zem_TransformDirection direct, int32_t n1, int32_t n2, int32_t n3, ZemComplex x[],
                    ZemError *fail);

ZEM_END_DECLS
#endif /* ZEM_C06_H */
