/* s14agce: Coulomb phase shifts sigma_l = arg Gamma(l + 1 + i eta) of a
 * charged particle of Sommerfeld parameter eta, from the imaginary part of
 * ln Gamma (which s14agc keeps continuous, not reduced to (-pi, pi]), and
 * |Gamma(1 + i eta)|^2 = pi eta / sinh(pi eta) from its real part (the
 * Gamow factor 2 pi eta / (exp(2 pi eta) - 1) is exp(-pi eta) times it). */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double etas[] = {0.1, 0.5, 1.0, 3.0, 10.0};
  const double pi = 3.14159265358979324;
  ZemError fail;
  int i, l;

  memset(&fail, 0, sizeof fail);
  printf("s14agce example results\n\n");
  printf("   eta      sigma_0      sigma_1      sigma_2      sigma_3   |G(1+i eta)|^2  closed form\n");
  for (i = 0; i < 5; ++i) {
    double sigma[4], gamow = 0.0;
    for (l = 0; l < 4; ++l) {
      ZemComplex z, lg;
      z.re = l + 1.0;
      z.im = etas[i];
      lg = s14agc(z, &fail);
      if (fail.code != 0) {
        printf("Error from s14agc.\n%s\n", fail.message);
        return 1;
      }
      sigma[l] = lg.im;
      if (l == 0) gamow = exp(2.0 * lg.re);
    }
    printf("  %5.1f  %11.7f  %11.7f  %11.7f  %11.7f  %14.7e  %11.7e\n", etas[i], sigma[0], sigma[1],
           sigma[2], sigma[3], gamow, pi * etas[i] / sinh(pi * etas[i]));
  }
  return 0;
}
