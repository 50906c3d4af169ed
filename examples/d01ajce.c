/* d01ajce: two integrals over finite ranges.  The perimeter of an ellipse
 * with semi-axes 3 and 2, 4 a E(e) with E the complete elliptic integral
 * of the second kind (a smooth integrand); and the integral of log(x)/sqrt(x)
 * over [0, 1], whose integrand is singular at 0 (exact value -4). */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

static const double e2 = 1.0 - 4.0 / 9.0;

static double ellipse(double t) { return sqrt(1.0 - e2 * sin(t) * sin(t)); }
static double log_sqrt(double x) { return log(x) / sqrt(x); }

static void free_progress(Zem_QuadProgress *qp) {
  x04bdc((void **)&qp->left);
  x04bdc((void **)&qp->right);
  x04bdc((void **)&qp->integral);
  x04bdc((void **)&qp->error);
}

int main(void) {
  const double pi = 3.14159265358979323846;
  double result, abserr;
  Zem_QuadProgress qp;
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  printf("d01ajce example results\n\n");
  d01ajc(ellipse, 0.0, pi / 2.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  if (fail.code != 0) {
    printf("Error from d01ajc.\n%s\n", fail.message);
    return 1;
  }
  printf("perimeter of the ellipse       %.10f\n", 4.0 * 3.0 * result);
  printf("error estimate below 1e-10 * result: %s\n\n", abserr <= 1e-10 * fabs(result) ? "yes" : "no");
  free_progress(&qp);

  d01ajc(log_sqrt, 0.0, 1.0, 0.0, 1e-10, 200, &result, &abserr, &qp, &fail);
  if (fail.code != 0) {
    printf("Error from d01ajc.\n%s\n", fail.message);
    return 1;
  }
  printf("integral of log(x)/sqrt(x)     %.10f\n", result);
  printf("error estimate below 1e-10 * result: %s\n", abserr <= 1e-10 * fabs(result) ? "yes" : "no");
  printf("subintervals sorted by left end: %s\n",
         qp.left[0] == 0.0 && qp.left[qp.subintervals - 1] < 1.0 ? "yes" : "no");
  free_progress(&qp);
  return 0;
}
