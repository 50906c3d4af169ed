/* c05sdce: the eccentric anomaly E of an orbit from Kepler's equation
 *   E - e sin E = M
 * for an eccentricity of 0.9 and several mean anomalies M; e and M reach
 * the function through comm. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

struct orbit {
  double e, m;
};

static double kepler(double E, void *comm) {
  const struct orbit *o = (const struct orbit *)comm;
  return E - o->e * sin(E) - o->m;
}

int main(void) {
  const double pi = 3.14159265358979323846;
  struct orbit o;
  ZemError fail;
  int k;
  memset(&fail, 0, sizeof fail);
  o.e = 0.9;
  printf("c05sdce example results\n\n      M            E        E - e sin E\n");
  for (k = 1; k <= 5; ++k) {
    double E = 0.0;
    o.m = k * pi / 6.0;
    c05sdc(0.0, pi, &E, kepler, 1e-13, 0.0, &o, &fail);
    if (fail.code != 0) {
      printf("Error from c05sdc.\n%s\n", fail.message);
      return 1;
    }
    printf("%10.6f   %10.8f   %10.6f\n", o.m, E, E - o.e * sin(E));
  }
  return 0;
}
