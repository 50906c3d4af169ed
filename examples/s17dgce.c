/* s17dgce: the Airy functions along rays of the complex plane.  Ai decays
 * like exp(-zeta), zeta = (2/3) z^(3/2), for |arg z| < pi/3 and oscillates
 * on the negative real axis; the scaled form exp(zeta) Ai(z) stays of
 * moderate size where Ai underflows.  The Wronskian Ai Bi' - Ai' Bi = 1/pi
 * checks each line. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double rays[] = {0.0, 1.0471975511965976, 3.14159265358979324}; /* arg z */
  static const double radii[] = {0.5, 2.0, 8.0};
  ZemError fail;
  int i, j;

  memset(&fail, 0, sizeof fail);
  printf("s17dgce example results\n\n");
  printf("        z                      Ai(z)                       e^zeta Ai(z)"
         "               |W - 1/pi|<1e-14\n");
  for (i = 0; i < 3; ++i)
    for (j = 0; j < 3; ++j) {
      ZemComplex z, ai, ais, aip, bi, bip;
      int32_t nz;
      double wr, wi;
      z.re = radii[j] * cos(rays[i]);
      z.im = i == 2 ? 0.0 : radii[j] * sin(rays[i]);
      s17dgc(Zem_Function, z, Zem_UnscaleRes, &ai, &nz, &fail);
      if (fail.code == 0) s17dgc(Zem_Function, z, Zem_ScaleRes, &ais, &nz, &fail);
      if (fail.code == 0) s17dgc(Zem_Deriv, z, Zem_UnscaleRes, &aip, &nz, &fail);
      if (fail.code == 0) s17dhc(Zem_Function, z, Zem_UnscaleRes, &bi, &fail);
      if (fail.code == 0) s17dhc(Zem_Deriv, z, Zem_UnscaleRes, &bip, &fail);
      if (fail.code != 0) {
        printf("Error from s17dgc or s17dhc.\n%s\n", fail.message);
        return 1;
      }
      wr = ai.re * bip.re - ai.im * bip.im - (aip.re * bi.re - aip.im * bi.im);
      wi = ai.re * bip.im + ai.im * bip.re - (aip.re * bi.im + aip.im * bi.re);
      printf(" (%7.3f,%7.3f)  (%12.5e,%12.5e)  (%12.5e,%12.5e)  %s\n", z.re, z.im, ai.re, ai.im,
             ais.re, ais.im, hypot(wr - 1.0 / 3.14159265358979324, wi) < 1e-14 ? "yes" : "no");
    }
  return 0;
}
