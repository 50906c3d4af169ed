/* c05pbce: Chandrasekhar's H-function of radiative transfer,
 *   H(mu) = 1 / (1 - (c/2) mu int_0^1 H(nu)/(mu + nu) dnu),
 * for the albedo c = 0.9, by the midpoint rule on n nodes, with the
 * Jacobian of the discrete equations supplied. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define N 8
static const double albedo = 0.9;

static void hequation(int32_t n, const double h[], double f[], double fjac[], int32_t tdfjac,
                      int32_t *userflag) {
  int32_t i, j;
  for (i = 0; i < n; ++i) {
    const double mi = (i + 0.5) / n;
    double s = 1.0;
    for (j = 0; j < n; ++j) s -= albedo / (2.0 * n) * mi * h[j] / (mi + (j + 0.5) / n);
    if (*userflag == 1) {
      f[i] = h[i] - 1.0 / s;
    } else {
      for (j = 0; j < n; ++j)
        fjac[i * tdfjac + j] = (i == j ? 1.0 : 0.0) -
                               albedo / (2.0 * n) * mi / (mi + (j + 0.5) / n) / (s * s);
    }
  }
}

int main(void) {
  double h[N], f[N], fjac[N * N];
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  for (i = 0; i < N; ++i) h[i] = 1.0;
  c05pbc(N, h, f, fjac, N, hequation, 1e-10, &fail);
  if (fail.code != 0) {
    printf("Error from c05pbc.\n%s\n", fail.message);
    return 1;
  }
  printf("c05pbce example results (c = %.2f)\n\n     mu       H(mu)\n", albedo);
  for (i = 0; i < N; ++i) printf("%8.4f   %.8f\n", (i + 0.5) / N, h[i]);
  return 0;
}
