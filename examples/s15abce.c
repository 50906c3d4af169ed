/* s15abce: the normal distribution function P(x) and its complement Q(x)
 * from the centre to far in the tails, where Q keeps full relative
 * accuracy. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  static const double xs[] = {-3.0, -1.0, 0.0, 0.5, 1.0, 1.96, 3.0, 5.0, 10.0, 20.0};
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("s15abce example results\n\n     x          P(x)                Q(x)\n");
  for (i = 0; i < (int)(sizeof xs / sizeof xs[0]); ++i) {
    double p = s15abc(xs[i], &fail);
    double q;
    if (fail.code != 0) return 1;
    q = s15acc(xs[i], &fail);
    if (fail.code != 0) return 1;
    printf("%7.2f  %18.10e  %18.10e\n", xs[i], p, q);
  }
  return 0;
}
