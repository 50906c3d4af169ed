/* c05zcce: checks the Jacobian of the equilibrium equations of c05nbce
 * (methanation and water-gas shift), with the equilibrium constants passed
 * through comm, before solving them with c05ubc. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

struct constants {
  double k1, k2;
};

static void equilibrium(int32_t n, const double x[], double f[], double fjac[], int32_t tdfjac,
                        int32_t *userflag, void *comm) {
  const struct constants *k = (const struct constants *)comm;
  const double co = 1.0 - x[0] - x[1], h2 = 3.0 - 3.0 * x[0] + x[1];
  const double ch4 = x[0], h2o = x[0] - x[1], co2 = x[1], total = 4.0 - 2.0 * x[0];
  (void)n;
  if (*userflag == 1) {
    f[0] = ch4 * h2o * total * total - k->k1 * co * h2 * h2 * h2;
    f[1] = co2 * h2 - k->k2 * co * h2o;
    return;
  }
  /* d/dx0 and d/dx1 of each law: co' = (-1,-1), h2' = (-3,1), ch4' = (1,0),
   * h2o' = (1,-1), co2' = (0,1), total' = (-2,0). */
  fjac[0] = h2o * total * total + ch4 * total * total + ch4 * h2o * 2.0 * total * (-2.0) -
            k->k1 * (-h2 * h2 * h2 + co * 3.0 * h2 * h2 * (-3.0));
  fjac[1] = -ch4 * total * total - k->k1 * (-h2 * h2 * h2 + co * 3.0 * h2 * h2);
  fjac[tdfjac] = co2 * (-3.0) - k->k2 * (-h2o + co);
  fjac[tdfjac + 1] = h2 + co2 - k->k2 * (-h2o - co);
}

int main(void) {
  struct constants k;
  double x[2] = {0.5, 0.1}, f[2], fjac[4];
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  k.k1 = 5.0;
  k.k2 = 1.5;
  c05zcc(2, x, f, fjac, 2, equilibrium, &k, &fail);
  printf("c05zcce example results\n\n");
  printf("Jacobian check: %s\n", fail.code == 0 ? "consistent" : "errors found");
  if (fail.code != 0) return 1;
  c05ubc(2, x, f, fjac, 2, equilibrium, 1e-10, &k, &fail);
  if (fail.code != 0) {
    printf("Error from c05ubc.\n%s\n", fail.message);
    return 1;
  }
  printf("extents:  methanation %.8f   shift %.8f\n", x[0], x[1]);
  return 0;
}
