/* d01amce: integrals over infinite ranges.  Planck's law: the integral of
 * x^3/(exp(x)-1) over [0, inf) is pi^4/15, which gives the Stefan-Boltzmann
 * constant; the Gaussian integral of exp(-x^2/2) over the whole line is
 * sqrt(2 pi); and the integral of exp(x) x^2 over (-inf, 0] is 2. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

static double planck(double x) { return x > 0.0 ? x * x * x / expm1(x) : 0.0; }
static double gauss(double x) { return exp(-0.5 * x * x); }
static double exp_x2(double x) { return exp(x) * x * x; }

static void free_progress(Zem_QuadProgress *qp) {
  x04bdc((void **)&qp->left);
  x04bdc((void **)&qp->right);
  x04bdc((void **)&qp->integral);
  x04bdc((void **)&qp->error);
}

static int run(const char *what, double (*f)(double), double bound, Zem_QuadBound inf,
               double exact) {
  double result, abserr;
  Zem_QuadProgress qp;
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  d01amc(f, bound, inf, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  if (fail.code != 0) {
    printf("Error from d01amc.\n%s\n", fail.message);
    return 1;
  }
  printf("%-28s %.10f   exact %.10f\n", what, result, exact);
  free_progress(&qp);
  return 0;
}

int main(void) {
  const double pi = 3.14159265358979323846;
  /* sigma = 2 pi^5 k^4 / (15 h^3 c^2) = (pi^4/15) * 2 pi k^4 / (h^3 c^2). */
  const double k = 1.380649e-23, h = 6.62607015e-34, c = 299792458.0;
  double result, abserr;
  Zem_QuadProgress qp;
  ZemError fail;
  printf("d01amce example results\n\n");
  if (run("Planck, [0, inf)", planck, 0.0, Zem_UpperSemiInfinite, pi * pi * pi * pi / 15.0)) return 1;
  if (run("Gauss, (-inf, inf)", gauss, 0.0, Zem_Infinite, sqrt(2.0 * pi))) return 1;
  if (run("exp(x) x^2, (-inf, 0]", exp_x2, 0.0, Zem_LowerSemiInfinite, 2.0)) return 1;
  memset(&fail, 0, sizeof fail);
  d01amc(planck, 0.0, Zem_UpperSemiInfinite, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  if (fail.code != 0) return 1;
  printf("\nStefan-Boltzmann constant %.6e W m^-2 K^-4\n",
         result * 2.0 * pi * k * k * k * k / (h * h * h * c * c));
  free_progress(&qp);
  return 0;
}
