/* s17agce: the Airy functions Ai, Bi and their derivatives on both sides
 * of the turning point, with the Wronskian Ai Bi' - Ai' Bi = 1/pi. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double xs[] = {-20.0, -5.0, -1.0, 0.0, 1.0, 5.0, 20.0};
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("s17agce example results\n\n"
         "     x        Ai(x)          Ai'(x)          Bi(x)          Bi'(x)       pi*W\n");
  for (i = 0; i < (int)(sizeof xs / sizeof xs[0]); ++i) {
    double x = xs[i];
    double ai = s17agc(x, &fail), aip = s17ajc(x, &fail);
    double bi = s17ahc(x, &fail), bip = s17akc(x, &fail);
    if (fail.code != 0) return 1;
    printf("%7.1f  %14.6e  %14.6e  %14.6e  %14.6e  %.10f\n", x, ai, aip, bi, bip,
           3.14159265358979 * (ai * bip - aip * bi));
  }
  return 0;
}
