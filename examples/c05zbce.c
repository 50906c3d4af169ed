/* c05zbce: checks a hand-coded Jacobian of the discrete H-equation (see
 * c05pbce) before it is used: once as coded, and once with the sign slip
 * that is easy to make in the derivative of 1/s. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define N 6
static double sign = 1.0;

static void hequation(int32_t n, const double h[], double f[], double fjac[], int32_t tdfjac,
                      int32_t *userflag) {
  int32_t i, j;
  for (i = 0; i < n; ++i) {
    const double mi = (i + 0.5) / n;
    double s = 1.0;
    for (j = 0; j < n; ++j) s -= 0.9 / (2.0 * n) * mi * h[j] / (mi + (j + 0.5) / n);
    if (*userflag == 1) {
      f[i] = h[i] - 1.0 / s;
    } else {
      for (j = 0; j < n; ++j)
        fjac[i * tdfjac + j] =
            (i == j ? 1.0 : 0.0) - sign * 0.9 / (2.0 * n) * mi / (mi + (j + 0.5) / n) / (s * s);
    }
  }
}

int main(void) {
  double h[N], f[N], fjac[N * N];
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  for (i = 0; i < N; ++i) h[i] = 1.0 + 0.1 * i;
  printf("c05zbce example results\n\n");
  c05zbc(N, h, f, fjac, N, hequation, &fail);
  printf("Jacobian as coded:   %s\n", fail.code == 0 ? "consistent" : "errors found");
  sign = -1.0;
  c05zbc(N, h, f, fjac, N, hequation, &fail);
  printf("with a sign slip:    %s\n", fail.code == 0 ? "consistent" : "errors found");
  printf("\n%s\n", fail.message);
  return 0;
}
