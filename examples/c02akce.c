/* c02akce: molar volumes of carbon dioxide from the van der Waals
 * equation of state.  In terms of the compressibility factor Z = P V / (R T)
 * the equation is the cubic
 *   Z^3 - (1 + B) Z^2 + A Z - A B = 0,  A = a P / (R T)^2,  B = b P / (R T).
 * Below the critical temperature and near the saturation pressure it has
 * three real zeros: the largest is the vapour, the smallest the liquid, and
 * the middle one has no physical meaning. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  const double R = 8.314462618;         /* J / (mol K) */
  const double a = 0.3640, b = 4.267e-5; /* van der Waals constants of CO2, SI units */
  static const double states[][2] = {{280.0, 4.0e6}, {280.0, 5.0e6}, {280.0, 6.0e6}, {350.0, 10.0e6}};
  double zr[3], zi[3], errest[3];
  ZemError fail;
  int k, i, j;

  memset(&fail, 0, sizeof fail);
  printf("c02akce example results\n");
  for (k = 0; k < 4; ++k) {
    const double t = states[k][0], p = states[k][1];
    const double rt = R * t, A = a * p / (rt * rt), B = b * p / rt;
    c02akc(1.0, -(1.0 + B), A, -A * B, zr, zi, errest, &fail);
    if (fail.code != 0) {
      printf("Error from c02akc.\n%s\n", fail.message);
      return 1;
    }
    /* Sort by real part. */
    for (i = 0; i < 3; ++i)
      for (j = i + 1; j < 3; ++j)
        if (zr[j] < zr[i]) {
          double s = zr[i];
          zr[i] = zr[j];
          zr[j] = s;
          s = zi[i];
          zi[i] = zi[j];
          zi[j] = s;
          s = errest[i];
          errest[i] = errest[j];
          errest[j] = s;
        }
    printf("\nT = %.1f K, P = %.2f MPa\n", t, p * 1e-6);
    printf("        Z                          molar volume (l/mol)   error estimate < 1e-12\n");
    for (i = 0; i < 3; ++i) {
      if (zi[i] == 0.0)
        printf("  (%11.8f, %11.8f)     %12.8f           %s\n", zr[i], zi[i], zr[i] * rt / p * 1e3,
               errest[i] < 1e-12 ? "yes" : "no");
      else
        printf("  (%11.8f, %11.8f)     %12s           %s\n", zr[i], zi[i], "complex",
               errest[i] < 1e-12 ? "yes" : "no");
    }
  }
  return 0;
}
