/* c05tbce: the temperature profile of a rod with a cubic heat source,
 *   u'' = (u + t + 1)^3 / 2 on (0, 1), u(0) = u(1) = 0,
 * by central differences on n interior points; the mesh size reaches the
 * equations through comm. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

static void rod(int32_t n, const double u[], double f[], int32_t *userflag, void *comm) {
  const double h = *(const double *)comm;
  int32_t k;
  (void)userflag;
  for (k = 0; k < n; ++k) {
    const double v = u[k] + (k + 1) * h + 1.0;
    const double left = k > 0 ? u[k - 1] : 0.0, right = k < n - 1 ? u[k + 1] : 0.0;
    f[k] = 2.0 * u[k] - left - right + h * h * v * v * v / 2.0;
  }
}

int main(void) {
  enum { N = 9 };
  double u[N], f[N], h = 1.0 / (N + 1);
  ZemError fail;
  int k;
  memset(&fail, 0, sizeof fail);
  for (k = 0; k < N; ++k) u[k] = 0.0;
  c05tbc(N, u, f, rod, 1e-10, &h, &fail);
  if (fail.code != 0) {
    printf("Error from c05tbc.\n%s\n", fail.message);
    return 1;
  }
  printf("c05tbce example results\n\n     t        u(t)\n");
  for (k = 0; k < N; ++k) printf("%6.2f   %11.8f\n", (k + 1) * h, u[k]);
  return 0;
}
