/* c06pxce: the three-dimensional transform of a 2 x 3 x 4 array holding a
 * single plane wave exp(2 pi i (k1 i1/2 + k2 i2/3 + k3 i3/4)) with
 * (k1, k2, k3) = (1, 2, 3): the forward transform has one nonzero term,
 * sqrt(24) at (1, 2, 3); the backward transform restores the wave. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  const double pi = 3.14159265358979323846;
  enum { N1 = 2, N2 = 3, N3 = 4, N = N1 * N2 * N3 };
  ZemComplex x[N], x0[N];
  ZemError fail;
  double err = 0.0;
  int i1, i2, i3, i;
  memset(&fail, 0, sizeof fail);
  for (i1 = 0; i1 < N1; ++i1)
    for (i2 = 0; i2 < N2; ++i2)
      for (i3 = 0; i3 < N3; ++i3) {
        const double a = 2.0 * pi * (1.0 * i1 / N1 + 2.0 * i2 / N2 + 3.0 * i3 / N3);
        i = (i1 * N2 + i2) * N3 + i3;
        x[i].re = cos(a);
        x[i].im = sin(a);
        x0[i] = x[i];
      }
  printf("c06pxce example results\n\n");
  c06pxc(Zem_ForwardTransform, N1, N2, N3, x, &fail);
  if (fail.code != 0) {
    printf("Error from c06pxc.\n%s\n", fail.message);
    return 1;
  }
  printf("terms of the forward transform with modulus above 1e-12:\n");
  for (i = 0; i < N; ++i)
    if (hypot(x[i].re, x[i].im) > 1e-12)
      printf("  (%d, %d, %d)  %.6f %.6f\n", i / (N2 * N3), (i / N3) % N2, i % N3, x[i].re, x[i].im);
  printf("sqrt(24) = %.6f\n", sqrt(24.0));
  c06pxc(Zem_BackwardTransform, N1, N2, N3, x, &fail);
  if (fail.code != 0) {
    printf("Error from c06pxc.\n%s\n", fail.message);
    return 1;
  }
  for (i = 0; i < N; ++i) err = fmax(err, hypot(x[i].re - x0[i].re, x[i].im - x0[i].im));
  printf("wave restored to 1e-14: %s\n", err < 1e-14 ? "yes" : "no");
  return 0;
}
