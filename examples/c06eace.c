/* c06eace: the spectrum of a sampled signal and back.
 * Twelve samples of s(t) = 1 + 2 cos(2 pi 2 t / 12) + sin(2 pi 3 t / 12):
 * c06eac gives the transform in the Hermitian layout (real part of X_k at
 * k, imaginary part at n - k), whose nonzero terms are X_0 = sqrt(12),
 * X_2 = 12 / sqrt(12) and X_3 = -6i / sqrt(12); c06ebc recovers the
 * samples. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define N 12

int main(void) {
  const double pi = 3.14159265358979323846;
  double x[N], s[N], err = 0.0;
  ZemError fail;
  int j, k;
  memset(&fail, 0, sizeof fail);
  for (j = 0; j < N; ++j) {
    s[j] = 1.0 + 2.0 * cos(2.0 * pi * 2.0 * j / N) + sin(2.0 * pi * 3.0 * j / N);
    x[j] = s[j];
  }
  printf("c06eace example results\n\n");
  c06eac(N, x, &fail);
  if (fail.code != 0) {
    printf("Error from c06eac.\n%s\n", fail.message);
    return 1;
  }
  printf("  k     Re X_k      Im X_k\n");
  for (k = 0; k <= N / 2; ++k)
    printf("%3d %11.6f %11.6f\n", k, x[k], (k == 0 || 2 * k == N) ? 0.0 : x[N - k]);
  c06ebc(N, x, &fail);
  if (fail.code != 0) {
    printf("Error from c06ebc.\n%s\n", fail.message);
    return 1;
  }
  for (j = 0; j < N; ++j) err = fmax(err, fabs(x[j] - s[j]));
  printf("\nsamples recovered by c06ebc to 1e-14: %s\n", err < 1e-14 ? "yes" : "no");
  return 0;
}
