/* s14aace: the gamma function at a few arguments, including the limits
 * where s14aac returns its fixed values with a report. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double xs[] = {1.0, 1.25, 1.5, 1.75, 2.0, 5.0, 10.0, 20.0, 1000.0, -1.5, -2.0};
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("s14aace example results\n\n     x            gamma(x)\n");
  for (i = 0; i < (int)(sizeof xs / sizeof xs[0]); ++i) {
    double y = s14aac(xs[i], &fail);
    if (fail.code != 0)
      printf("%8.2f  %20.12e  (code %d)\n", xs[i], y, (int)fail.code);
    else
      printf("%8.2f  %20.12e\n", xs[i], y);
  }
  return 0;
}
