/* The determinant of the nearly singular matrix
 *     [ n+1   n  ]
 *     [  n   n-1 ]      with n = 94906266,
 * computed as the inner product (n+1)(n-1) - n*n.  The exact value is -1,
 * but the products are about 9.007e15, just above 2^53, so they are not
 * representable and plain double precision cancels to a wrong answer.  The
 * double-length inner product forms each product exactly and gets -1. */
#include <stdio.h>
#include "zem.h"

int main(void) {
  const double n = 94906266.0;
  const double left[2] = {n + 1.0, n};
  const double right[2] = {n - 1.0, -n};
  double d1, d2;
  ZemError fail = {0};

  x03aac(left, 2, right, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, 0, &fail);
  printf("plain double:   det = %.1f\n", d1);
  x03aac(left, 2, right, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, 1, &fail);
  printf("double length:  det = %.1f (low-order word %.1f)\n", d1, d2);

  /* A bad stride is reported through the error record. */
  x03aac(left, 2, right, 2, 2, 0, 1, 0.0, 0.0, &d1, &d2, 1, &fail);
  printf("stepa = 0 gives code %d:\n%s\n", (int)fail.code, fail.message);
  return 0;
}
