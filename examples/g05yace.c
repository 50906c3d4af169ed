/* g05yace: quasi-Monte Carlo integration in 10 dimensions with Sobol
 * points.  The integrand, Sobol's test function
 *   prod (|4 x_i - 2| + a_i) / (1 + a_i),  a_i = i, i = 1..10,
 * has integral 1 over the unit cube.  The error with Sobol points falls
 * roughly as 1/N, against 1/sqrt(N) for the pseudo-random points of
 * g05cac beside it. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

#define IDIM 10

static double f(const double x[]) {
  double p = 1.0;
  int i;
  for (i = 0; i < IDIM; ++i) p *= (fabs(4.0 * x[i] - 2.0) + (i + 1)) / (i + 2);
  return p;
}

int main(void) {
  static int32_t gf[2013];
  double quasi[IDIM];
  double sum = 0.0, mc = 0.0;
  long n = 0;
  int k;
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  printf("g05yace example results\n\n");
  printf("      points     Sobol estimate    error        g05cac estimate   error\n");
  g05yac(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, IDIM, quasi, gf, &fail);
  if (fail.code != 0) {
    printf("Error from g05yac.\n%s\n", fail.message);
    return 1;
  }
  g05cbc(2026);
  for (k = 10; k <= 18; k += 2) {
    for (; n < (1L << k); ++n) {
      double x[IDIM];
      int i;
      g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Sobol, 0, IDIM, quasi, gf, &fail);
      if (fail.code != 0) {
        printf("Error from g05yac.\n%s\n", fail.message);
        return 1;
      }
      sum += f(quasi);
      for (i = 0; i < IDIM; ++i) x[i] = g05cac();
      mc += f(x);
    }
    printf("%12ld %18.10f %12.3e %18.10f %12.3e\n", n, sum / n, sum / n - 1.0, mc / n,
           mc / n - 1.0);
  }
  return 0;
}
