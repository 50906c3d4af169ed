/* c05adce: the Darcy friction factor of turbulent pipe flow from the
 * Colebrook equation
 *   1/sqrt(f) = -2 log10(eps/(3.7 D) + 2.51/(Re sqrt(f)))
 * for a few Reynolds numbers, with the relative roughness 1e-4. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

static double reynolds;

static double colebrook(double f) {
  return 1.0 / sqrt(f) + 2.0 * log10(1e-4 / 3.7 + 2.51 / (reynolds * sqrt(f)));
}

int main(void) {
  static const double re[] = {4e3, 1e4, 1e5, 1e6, 1e7};
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("c05adce example results\n\n   Reynolds    friction factor\n");
  for (i = 0; i < 5; ++i) {
    double f = 0.0;
    reynolds = re[i];
    c05adc(0.005, 0.1, &f, colebrook, 1e-12, 0.0, &fail);
    if (fail.code != 0) {
      printf("Error from c05adc.\n%s\n", fail.message);
      return 1;
    }
    printf("%11.3e    %.8f\n", re[i], f);
  }
  return 0;
}
