/* c02agce: closed-loop poles of a unity-feedback control loop.  The plant
 *   G(s) = K / (s (s + 1) (s + 2) (s + 5) (s + 10))
 * closes to the characteristic polynomial
 *   s (s + 1) (s + 2) (s + 5) (s + 10) + K = 0.
 * The loop is stable when every pole lies in the left half-plane; the
 * program prints the poles for three gains. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <zem.h>

static int by_real_part(const void *p, const void *q) {
  const ZemComplex *a = p, *b = q;
  if (a->re != b->re) return (a->re > b->re) - (a->re < b->re);
  return (a->im > b->im) - (a->im < b->im);
}

int main(void) {
  static const double open_loop_poles[] = {0.0, -1.0, -2.0, -5.0, -10.0};
  static const double gains[] = {10.0, 100.0, 400.0};
  double a[6];
  ZemComplex z[5];
  ZemError fail;
  int g, i, j;

  memset(&fail, 0, sizeof fail);
  printf("c02agce example results\n");
  for (g = 0; g < 3; ++g) {
    int stable = 1;
    /* The product of the factors (s - p), highest power first. */
    a[0] = 1.0;
    for (i = 1; i <= 5; ++i) a[i] = 0.0;
    for (i = 0; i < 5; ++i)
      for (j = i + 1; j >= 1; --j) a[j] -= open_loop_poles[i] * a[j - 1];
    a[5] += gains[g];

    c02agc(5, a, 1, z, &fail);
    if (fail.code != 0) {
      printf("Error from c02agc.\n%s\n", fail.message);
      return 1;
    }
    qsort(z, 5, sizeof z[0], by_real_part);
    printf("\nGain K = %.1f, closed-loop poles:\n", gains[g]);
    for (i = 0; i < 5; ++i) {
      printf("  (%12.8f, %12.8f)\n", z[i].re, z[i].im);
      if (z[i].re >= 0.0) stable = 0;
    }
    printf("The loop is %s.\n", stable ? "stable" : "unstable");
  }
  return 0;
}
