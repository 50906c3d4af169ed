/* c05ncte: the length of a vector whose elements are so large (or so
 * small) that the plain sum of squares overflows (or underflows). */
#include <math.h>
#include <stdio.h>
#include <zem.h>

int main(void) {
  double big[6], small[6], plain = 0.0;
  int i;
  for (i = 0; i < 6; ++i) {
    big[i] = (i + 1) * 1e300;
    small[i] = (i + 1) * 1e-300;
    plain += big[i] * big[i];
  }
  printf("c05ncte example results\n\n");
  printf("norm of (1..6)*1e300:   %.6e\n", c05nct(6, big));
  printf("norm of (1..6)*1e-300:  %.6e\n", c05nct(6, small));
  printf("plain sum of squares overflows: %s\n", isinf(plain) ? "yes" : "no");
  printf("norm of (3, 4):         %.6f\n", c05nct(2, (const double[]){3.0, 4.0}));
  return 0;
}
