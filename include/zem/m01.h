/* m01: sorting, ranking and searching. */
#ifndef ZEM_M01_H
#define ZEM_M01_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

typedef int32_t Zem_SortOrder;   /* Zem_Ascending, Zem_Descending */
typedef int32_t Zem_SearchFinal; /* Zem_First, Zem_Last */

/* Comparison of two records: negative when the record at a goes before the
 * one at b in ascending order, zero when they are equal, positive when it
 * goes after.  It must define a consistent order for the result to be
 * sorted; an inconsistent one gives some permutation of the records but
 * never an access outside them. */
typedef int32_t (*Zem_M01_Compare)(const void *a, const void *b);

/* Conventions of the chapter.
 *   n       the number of elements, 1 <= n <= 268435455 (0xfffffff).
 *   Records of size bytes lie stride bytes apart: record i starts at
 *           (char *)vec + i*stride, so a negative stride runs downwards from
 *           the first record at vec.  |stride| >= size.
 *   Ranks and indices are 0-based: a rank vector gives the position that
 *           each element takes in the sorted order; an index vector (its
 *           inverse) gives, for each position of the sorted order, the
 *           element that belongs there. */

/* m01cac: sorts a vector of doubles in place by quicksort (median of three,
 * partitions that split runs of equal keys evenly, a random pivot swap after
 * lopsided splits, a closing pass of straight insertion).  No workspace.
 *   vec    in/out  the n values; on exit in ascending or descending order.
 *                  With NaNs present the order is unspecified.
 *   n      in   number of values.
 *   order  in   Zem_Ascending or Zem_Descending.
 *   fail   in/out  error record.
 * Reports: NE_BAD_PARAM (order not Zem_Ascending or Zem_Descending; null
 * vec), NE_INT_ARG_LT (n < 1), NE_INT_ARG_GT (n > 268435455). */
ZEM_API void m01cac(double vec[], uint32_t n, Zem_SortOrder order, ZemError *fail);

/* m01csc: sorts n records in place by the same quicksort as m01cac, through
 * a comparison.  Not stable: equal records may change their relative order.
 *   vec      in/out  the records (see the conventions above).
 *   stride   in   distance in bytes between records, |stride| >= size.
 *   size     in   size of a record in bytes, size >= 1.
 *   compare  in   the comparison.
 *   order    in   Zem_Ascending or Zem_Descending.
 * Reports: NE_BAD_PARAM (order; null vec or compare), NE_INT_ARG_LT (n < 1,
 * size < 1), NE_INT_ARG_GT (n too large), NE_2_INT_ARG_LT (|stride| < size). */
ZEM_API void m01csc(void *vec, uint32_t n, int32_t stride, uint32_t size, Zem_M01_Compare compare,
                    Zem_SortOrder order, ZemError *fail);

/* m01ctc: as m01csc, but stable: records that compare equal keep their
 * input order (in either order of sorting).  A merge sort of positions
 * followed by one reorder of the records (n record moves).
 * Reports: as m01csc, and NE_ALLOC_FAIL. */
ZEM_API void m01ctc(void *vec, uint32_t n, int32_t stride, uint32_t size, Zem_M01_Compare compare,
                    Zem_SortOrder order, ZemError *fail);

/* m01cuc: sorts a vector of pointers to NUL-terminated strings into lexical
 * order (bytes compared as unsigned char, as strcmp does) by the quicksort
 * of m01cac.  The pointers move; the strings are not touched.
 *   vec    in/out  n pointers, none null.
 * Reports: NE_BAD_PARAM (order; null vec; a null vec[i], named in the
 * message), NE_INT_ARG_LT, NE_INT_ARG_GT. */
ZEM_API void m01cuc(const char *vec[], uint32_t n, Zem_SortOrder order, ZemError *fail);

/* m01dsc: ranks n records through a comparison, without moving them.
 *   vec      in   the records, read only.
 *   stride   in   distance in bytes between records, stride != 0.
 *   compare  in   the comparison.
 *   order    in   Zem_Ascending or Zem_Descending.
 *   ranks    out  n entries: ranks[i] is the 0-based position of record i
 *                 in the sorted order.  The ranking is stable: equal
 *                 records are ranked in their input order.
 * Reports: NE_BAD_PARAM (order; null vec, compare or ranks), NE_INT_ARG_LT,
 * NE_INT_ARG_GT, NE_INT_ARG_EQ (stride = 0), NE_ALLOC_FAIL. */
ZEM_API void m01dsc(const void *vec, uint32_t n, int32_t stride, Zem_M01_Compare compare,
                    Zem_SortOrder order, int32_t ranks[], ZemError *fail);

/* m01esc: reorders n records in place into the order of an index vector:
 * on exit record j is the record that was at position indices[j].  Each
 * cycle of the permutation is followed once through one held record, so
 * the whole reorder costs n record moves.  To put records into the order of
 * a rank vector from m01dsc, invert it first with m01zac.
 *   vec      in/out  the records.
 *   stride   in   |stride| >= size.
 *   size     in   size >= 1.
 *   indices  in   a permutation of 0..n-1; marked during the call and
 *                 returned unchanged.
 * Reports: NE_INT_ARG_LT, NE_INT_ARG_GT, NE_2_INT_ARG_LT, NE_BAD_PARAM (null
 * vec or indices), NE_BAD_RANK (an index outside [0, n), or an index that
 * occurs twice; vec is not touched), NE_ALLOC_FAIL (records over 256 bytes
 * need a held record from the heap). */
ZEM_API void m01esc(void *vec, uint32_t n, int32_t stride, uint32_t size, int32_t indices[],
                    ZemError *fail);

/* m01fsc: binary search for a key among n records sorted in the given
 * order (by the same comparison; the order is not checked).
 *   key      in   the record searched for.
 *   final    in   which of several records equal to the key is returned:
 *                 Zem_First the one at the lowest position, Zem_Last the
 *                 one at the highest.
 * Returns the 0-based position of that record, or -1 when no record equals
 * the key (and -1 after any report other than success).
 * Reports: NE_BAD_PARAM (order or final not in their sets; null key, vec or
 * compare), NE_INT_ARG_LT, NE_INT_ARG_GT, NE_INT_ARG_EQ (stride = 0). */
ZEM_API int32_t m01fsc(const void *key, const void *vec, uint32_t n, int32_t stride,
                       Zem_M01_Compare compare, Zem_SortOrder order, Zem_SearchFinal final,
                       ZemError *fail);

/* m01zac: inverts a permutation in place, so that a rank vector becomes the
 * index vector of the same order and back.  The first pass checks every
 * entry and marks it with the bit 0x40000000; the second follows the cycles
 * and clears the marks as it inverts.  No workspace.
 *   ranks  in/out  n entries, a permutation of 0..n-1; on exit its inverse.
 * Reports: NE_INT_ARG_LT, NE_INT_ARG_GT, NE_BAD_PARAM (null ranks),
 * NE_BAD_RANK (an entry outside [0, n): the marks set before it stay in
 * the vector; or an entry that occurs twice: the contents are then
 * unspecified but unmarked). */
ZEM_API void m01zac(int32_t ranks[], uint32_t n, ZemError *fail);

/* By-address forms in the style of the core layer.  Positions m1..m2 are
 * 1-based and inclusive, 1 <= m1 <= m2 <= 268435455; ranks are the 0-based
 * positions m1-1..m2-1 of the whole vector.  order is one letter, 'A' or 'D'
 * (either case); order_len is its hidden length and is unused.  ifail is
 * the mode word on entry (0 hard and noisy, -1 soft and noisy, 1 soft and
 * silent; see p01abf_f) and the failure number on exit (0 for success).  A
 * failure writes its explanation through p01abf_f under the routine's
 * upper-case name.
 *
 * m01caf_f: sorts rv[m1-1..m2-1] in place.  Failures: 1 (m1, m2), 2 (order).
 * m01daf_f: ranks rv[m1-1..m2-1] stably into irank[m1-1..m2-1].  Failures:
 *           1, 2, 3 (no workspace).
 * m01eaf_f: moves element i of rv[m1-1..m2-1] to position irank[i].
 *           Failures: 1, 2 (irank is not a permutation of m1-1..m2-1; rv
 *           is not touched).
 * m01zaf_f: inverts the permutation iperm[m1-1..m2-1] of m1-1..m2-1 in
 *           place.  Failures: 1, 2 (an entry out of range), 3 (an entry that
 *           occurs twice).  After failure 2 or 3, iperm is as on entry. */
ZEM_API void m01caf_f(double rv[], const int32_t *m1, const int32_t *m2, const char *order,
                      int32_t *ifail, size_t order_len);
ZEM_API void m01daf_f(const double rv[], const int32_t *m1, const int32_t *m2, const char *order,
                      int32_t irank[], int32_t *ifail, size_t order_len);
ZEM_API void m01eaf_f(double rv[], const int32_t *m1, const int32_t *m2, int32_t irank[],
                      int32_t *ifail);
ZEM_API void m01zaf_f(int32_t iperm[], const int32_t *m1, const int32_t *m2, int32_t *ifail);

ZEM_END_DECLS
#endif
