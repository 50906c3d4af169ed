/* c06ekce: circular convolution and correlation of two sequences of nine
 * values: a pulse of three ones, and a ramp.  The convolution is the
 * running sum of three ramp values, divided by n; the correlation of the
 * ramp with itself peaks at lag 0. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define N 9

static int run(Zem_FT_Operation op, const double *a, const double *b, double *out) {
  double y[N];
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  memcpy(out, a, sizeof y);
  memcpy(y, b, sizeof y);
  c06ekc(op, N, out, y, &fail);
  if (fail.code != 0) {
    printf("Error from c06ekc.\n%s\n", fail.message);
    return 1;
  }
  return 0;
}

int main(void) {
  double pulse[N] = {1, 1, 1, 0, 0, 0, 0, 0, 0}, ramp[N], conv[N], corr[N];
  int k;
  for (k = 0; k < N; ++k) ramp[k] = k + 1;
  printf("c06ekce example results\n\n");
  if (run(Zem_Convolution, pulse, ramp, conv) || run(Zem_Correlation, ramp, ramp, corr)) return 1;
  printf("  k   convolution   correlation\n");
  for (k = 0; k < N; ++k) printf("%3d %13.6f %13.6f\n", k, conv[k], corr[k]);
  return 0;
}
