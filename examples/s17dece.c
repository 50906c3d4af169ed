/* s17dece: the skin effect in a round wire.  An alternating current of
 * angular frequency w in a wire of radius R, conductivity sigma and
 * permeability mu has the density
 *   J(r) / J(R) = J_0(k r) / J_0(k R),  k = (1 - i) / delta,
 * with the skin depth delta = sqrt(2 / (w mu sigma)), and the wire's
 * internal impedance per unit length, against its direct-current resistance,
 *   Z / R_dc = (k R / 2) J_0(k R) / J_1(k R).
 * s17dec gives J_0 and J_1 together, as a sequence of orders 0 and 1. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double ratios[] = {0.5, 1.0, 2.0, 5.0, 10.0}; /* R / delta */
  ZemComplex cy[2], edge[2];
  ZemError fail;
  int32_t nz;
  int i, j;

  memset(&fail, 0, sizeof fail);
  printf("s17dece example results\n\n");
  printf("  R/delta   |J(0)/J(R)|  |J(R/2)/J(R)|     Re Z/R_dc    Im Z/R_dc\n");
  for (i = 0; i < 5; ++i) {
    const double q = ratios[i]; /* lengths in units of the skin depth */
    ZemComplex kr = {q, -q};    /* k R = (1 - i) R / delta */
    double mag[2];
    s17dec(0.0, kr, 2, Zem_UnscaleRes, edge, &nz, &fail);
    if (fail.code != 0) {
      printf("Error from s17dec.\n%s\n", fail.message);
      return 1;
    }
    for (j = 0; j < 2; ++j) {
      const double r = j == 0 ? 0.0 : 0.5; /* r / R */
      ZemComplex z;
      double den;
      z.re = kr.re * r;
      z.im = kr.im * r;
      s17dec(0.0, z, 1, Zem_UnscaleRes, cy, &nz, &fail);
      if (fail.code != 0) {
        printf("Error from s17dec.\n%s\n", fail.message);
        return 1;
      }
      den = edge[0].re * edge[0].re + edge[0].im * edge[0].im;
      mag[j] = sqrt((cy[0].re * cy[0].re + cy[0].im * cy[0].im) / den);
    }
    {
      /* (kR/2) J0/J1 */
      const double d = edge[1].re * edge[1].re + edge[1].im * edge[1].im;
      const double qr = (edge[0].re * edge[1].re + edge[0].im * edge[1].im) / d;
      const double qi = (edge[0].im * edge[1].re - edge[0].re * edge[1].im) / d;
      const double zr = 0.5 * (kr.re * qr - kr.im * qi), zi = 0.5 * (kr.re * qi + kr.im * qr);
      printf("  %6.1f    %11.6f  %13.6f  %12.6f %12.6f\n", q, mag[0], mag[1], zr, zi);
    }
  }
  return 0;
}
