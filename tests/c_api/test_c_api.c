/* The umbrella header compiles as C99 and the library links from C. */
#include <math.h>
#include <stdio.h>
#include <string.h>

#include "zem.h"

static int failures = 0;
#define CHECK(cond)                                            \
  do {                                                         \
    if (!(cond)) {                                             \
      fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #cond); \
      ++failures;                                              \
    }                                                          \
  } while (0)

static double cubic(double x) { return x * x * x - 2.0 * x - 5.0; }

int main(void) {
  ZemError fail;
  double x = 0.0, d1 = 0.0, d2 = 0.0;
  const double a[3] = {1.0, 2.0, 3.0};
  ZemComplex z[3], p;
  double coeffs[4] = {1.0, -6.0, 11.0, -6.0};
  char name[40];

  memset(&fail, 0, sizeof fail);
  CHECK(x02ajc() > 0.0 && 1.0 + x02ajc() > 1.0);
  x03aac(a, 3, a, 3, 3, 1, 1, 0.0, 0.0, &d1, &d2, 1, &fail);
  CHECK(fail.code == NE_NOERROR && d1 == 14.0);
  p = a02cdc(a02bac(1.0, 2.0), a02bac(3.0, 4.0));
  CHECK(fabs(p.re - 0.44) < 1e-15 && fabs(p.im - 0.08) < 1e-15);
  CHECK(x04mac("Zem_ColMajor") == Zem_ColMajor);
  CHECK(strcmp(x04mcc(Zem_Upper, name), "Zem_Upper") == 0);
  CHECK(x04mbc("NE_ALLOC_FAIL") == NE_ALLOC_FAIL);

  c05adc(2.0, 3.0, &x, cubic, 1e-12, 0.0, &fail);
  CHECK(fail.code == NE_NOERROR && fabs(x - 2.0945514815423265) < 1e-11);

  c02agc(3, coeffs, 1, z, &fail);
  CHECK(fail.code == NE_NOERROR);
  CHECK(fabs(z[0].re + z[1].re + z[2].re - 6.0) < 1e-12);

  c02agc(0, coeffs, 1, z, &fail);
  CHECK(fail.code == NE_INT_ARG_LT);

  if (failures) return 1;
  printf("c_api: all checks passed\n");
  return 0;
}
