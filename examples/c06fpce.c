/* c06fpce: three real sequences of six values transformed together.  The
 * table is made once by c06gzc; c06fpc leaves each transform in the
 * Hermitian layout, c06gsc expands them to complex form, and c06fqc takes
 * them back.  The sequences are a constant, an alternating sequence and
 * one period of a cosine. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define M 3
#define N 6

int main(void) {
  const double pi = 3.14159265358979323846;
  double x[M * N], x0[M * N], u[M * N], v[M * N], trig[2 * N], err = 0.0;
  ZemError fail;
  int j, p;
  memset(&fail, 0, sizeof fail);
  for (j = 0; j < N; ++j) {
    x[j * M + 0] = 1.0;
    x[j * M + 1] = (j % 2) ? -1.0 : 1.0;
    x[j * M + 2] = cos(2.0 * pi * j / N);
  }
  memcpy(x0, x, sizeof x);
  printf("c06fpce example results\n\n");
  c06gzc(N, trig, &fail);
  if (fail.code == 0) c06fpc(M, N, x, trig, &fail);
  if (fail.code == 0) c06gsc(M, N, x, u, v, &fail);
  if (fail.code != 0) {
    printf("Error.\n%s\n", fail.message);
    return 1;
  }
  for (p = 0; p < M; ++p) {
    printf("sequence %d, terms X_0 .. X_5 (real, imaginary)\n", p + 1);
    for (j = 0; j < N; ++j) printf("  %10.6f %10.6f\n", u[j * M + p], v[j * M + p]);
  }
  c06fqc(M, N, x, trig, &fail);
  if (fail.code != 0) {
    printf("Error from c06fqc.\n%s\n", fail.message);
    return 1;
  }
  for (j = 0; j < M * N; ++j) err = fmax(err, fabs(x[j] - x0[j]));
  printf("\nsequences recovered by c06fqc to 1e-14: %s\n", err < 1e-14 ? "yes" : "no");
  return 0;
}
