/* c02afce: whirl modes of a damped two-disk rotor seen from axes that turn
 * with the shaft.  With the complex displacement w = x + i y of each disk,
 * the motion in the turning frame, e^(st) times a mode, obeys
 *   det( M (s + i W)^2 + C (s + i W) + K ) = 0,
 * where W is the speed of the shaft; with lambda = s + i W the determinant
 * of the two-by-two system is a real quartic in lambda, and the shift back
 * to s gives a quartic with complex coefficients.  Each zero s gives the
 * decay rate -Re(s) and the whirl frequency Im(s) of a mode in the turning
 * frame. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <zem.h>

static int by_imaginary_part(const void *p, const void *q) {
  const ZemComplex *a = p, *b = q;
  return (a->im > b->im) - (a->im < b->im);
}

int main(void) {
  /* Disk masses, dampers, stiffness matrix and shaft speed. */
  const double m1 = 1.0, m2 = 2.0, c1 = 0.1, c2 = 0.05;
  const double k11 = 3.0, k22 = 4.0, k12 = -1.0, w = 0.5;
  double q[5];      /* the quartic in lambda, highest power first */
  ZemComplex a[5];  /* the quartic in s */
  ZemComplex z[4];
  ZemError fail;
  int i, j;

  /* (m1 l^2 + c1 l + k11)(m2 l^2 + c2 l + k22) - k12^2 */
  q[0] = m1 * m2;
  q[1] = m1 * c2 + c1 * m2;
  q[2] = m1 * k22 + c1 * c2 + k11 * m2;
  q[3] = c1 * k22 + k11 * c2;
  q[4] = k11 * k22 - k12 * k12;

  /* Taylor shift: the coefficients of q(s + i w) by repeated synthetic
   * division by (lambda - i w). */
  for (i = 0; i <= 4; ++i) {
    a[i].re = q[i];
    a[i].im = 0.0;
  }
  for (i = 0; i < 4; ++i)
    for (j = 1; j <= 4 - i; ++j) {
      /* a[j] += (i w) * a[j-1] */
      const double re = a[j - 1].re, im = a[j - 1].im;
      a[j].re -= w * im;
      a[j].im += w * re;
    }

  memset(&fail, 0, sizeof fail);
  c02afc(4, a, 1, z, &fail);
  if (fail.code != 0) {
    printf("Error from c02afc.\n%s\n", fail.message);
    return 1;
  }
  qsort(z, 4, sizeof z[0], by_imaginary_part);
  printf("c02afce example results\n\n");
  printf("Modes of the rotor at shaft speed %.2f (turning frame)\n\n", w);
  printf("        zero s                     decay rate   whirl frequency\n");
  for (i = 0; i < 4; ++i)
    printf("  (%11.8f, %11.8f)     %11.8f   %11.8f\n", z[i].re, z[i].im, -z[i].re, z[i].im);
  return 0;
}
