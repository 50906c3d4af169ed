#include <stdio.h>
#include "zem.h"

int main(void) {
  ZemError fail = {0};
  double d1, d2;
  const double a[2] = {3.0, 4.0};
  x03aac(a, 2, a, 2, 2, 1, 1, 0.0, 0.0, &d1, &d2, 1, &fail);
  printf("%g %d\n", d1, (int)fail.code);
  return (d1 == 25.0 && fail.code == 0) ? 0 : 1;
}
