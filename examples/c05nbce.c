/* c05nbce: equilibrium of methanation and water-gas shift,
 *   CO + 3 H2 <=> CH4 + H2O   (K1 P^2 = 5.0)
 *   CO + H2O  <=> CO2 + H2    (K2 = 1.5)
 * starting from 1 mol CO and 3 mol H2.  The unknowns are the extents of
 * the two reactions; the equations are the two mass-action laws written
 * without divisions. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

static void equilibrium(int32_t n, const double x[], double f[], int32_t *userflag) {
  const double co = 1.0 - x[0] - x[1], h2 = 3.0 - 3.0 * x[0] + x[1];
  const double ch4 = x[0], h2o = x[0] - x[1], co2 = x[1], total = 4.0 - 2.0 * x[0];
  (void)n;
  (void)userflag;
  f[0] = ch4 * h2o * total * total - 5.0 * co * h2 * h2 * h2;
  f[1] = co2 * h2 - 1.5 * co * h2o;
}

int main(void) {
  double x[2] = {0.5, 0.1}, f[2];
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  c05nbc(2, x, f, equilibrium, 1e-10, &fail);
  if (fail.code != 0) {
    printf("Error from c05nbc.\n%s\n", fail.message);
    return 1;
  }
  {
    const double total = 4.0 - 2.0 * x[0];
    printf("c05nbce example results\n\n");
    printf("extents:  methanation %.8f   shift %.8f\n\n", x[0], x[1]);
    printf("mole fractions\n");
    printf("  CO   %.6f\n  H2   %.6f\n  CH4  %.6f\n  H2O  %.6f\n  CO2  %.6f\n",
           (1.0 - x[0] - x[1]) / total, (3.0 - 3.0 * x[0] + x[1]) / total, x[0] / total,
           (x[0] - x[1]) / total, x[1] / total);
    printf("\nresidual norm below 1e-8: %s\n", c05nct(2, f) < 1e-8 ? "yes" : "no");
  }
  return 0;
}
