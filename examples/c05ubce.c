/* c05ubce: Chandrasekhar's H-function (see c05pbce) for several albedos c,
 * passed to the equations through comm; each solve starts from the last
 * solution. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define N 8

static void hequation(int32_t n, const double h[], double f[], double fjac[], int32_t tdfjac,
                      int32_t *userflag, void *comm) {
  const double c = *(const double *)comm;
  int32_t i, j;
  for (i = 0; i < n; ++i) {
    const double mi = (i + 0.5) / n;
    double s = 1.0;
    for (j = 0; j < n; ++j) s -= c / (2.0 * n) * mi * h[j] / (mi + (j + 0.5) / n);
    if (*userflag == 1) {
      f[i] = h[i] - 1.0 / s;
    } else {
      for (j = 0; j < n; ++j)
        fjac[i * tdfjac + j] =
            (i == j ? 1.0 : 0.0) - c / (2.0 * n) * mi / (mi + (j + 0.5) / n) / (s * s);
    }
  }
}

int main(void) {
  static const double albedos[] = {0.5, 0.9, 0.99, 0.999};
  double h[N], f[N], fjac[N * N];
  ZemError fail;
  int i, k;
  memset(&fail, 0, sizeof fail);
  for (i = 0; i < N; ++i) h[i] = 1.0;
  printf("c05ubce example results\n\n    c       H(mu_1)      H(mu_8)\n");
  for (k = 0; k < 4; ++k) {
    double c = albedos[k];
    c05ubc(N, h, f, fjac, N, hequation, 1e-10, &c, &fail);
    if (fail.code != 0) {
      printf("Error from c05ubc.\n%s\n", fail.message);
      return 1;
    }
    printf("%7.3f   %.8f   %.8f\n", c, h[0], h[N - 1]);
  }
  return 0;
}
