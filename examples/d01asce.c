/* d01asce: Fourier integrals over [0, inf).  The cosine transform of the
 * Lorentzian, the integral of cos(w x)/(1+x^2), is (pi/2) exp(-w): the
 * characteristic function of the Cauchy distribution.  The sine transform
 * of exp(-x), the integral of exp(-x) sin(w x), is w/(1+w^2). */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

static double lorentz(double x) { return 1.0 / (1.0 + x * x); }
static double decay(double x) { return exp(-x); }

static void free_progress(Zem_QuadProgress *qp) {
  x04bdc((void **)&qp->left);
  x04bdc((void **)&qp->right);
  x04bdc((void **)&qp->integral);
  x04bdc((void **)&qp->error);
  x04bdc((void **)&qp->interval_status);
}

int main(void) {
  static const double w[] = {0.5, 1.0, 2.0, 5.0};
  const double pi = 3.14159265358979323846;
  double result, abserr;
  Zem_QuadProgress qp;
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("d01asce example results\n\n     w    cosine transform      exact        sine transform       exact\n");
  for (i = 0; i < 4; ++i) {
    double c, s;
    d01asc(lorentz, 0.0, w[i], Zem_Cosine, 100, 200, 1e-9, &result, &abserr, &qp, &fail);
    if (fail.code != 0) {
      printf("Error from d01asc.\n%s\n", fail.message);
      return 1;
    }
    c = result;
    free_progress(&qp);
    d01asc(decay, 0.0, w[i], Zem_Sine, 100, 200, 1e-9, &result, &abserr, &qp, &fail);
    if (fail.code != 0) {
      printf("Error from d01asc.\n%s\n", fail.message);
      return 1;
    }
    s = result;
    free_progress(&qp);
    printf("%6.2f   %.8f   %.8f   %.8f   %.8f\n", w[i], c, 0.5 * pi * exp(-w[i]), s,
           w[i] / (1.0 + w[i] * w[i]));
  }
  return 0;
}
