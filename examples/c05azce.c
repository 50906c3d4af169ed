/* c05azce: the omega constant, the solution of x = exp(-x), found by
 * driving the bracketing engine by reverse communication: the program
 * evaluates the function itself whenever the engine asks for a value. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  double x = 0.0, y = 1.0, fx = 0.0, c[17];
  int32_t ind = 1;
  int evaluations = 0;
  ZemError fail;
  memset(&fail, 0, sizeof fail);
  memset(c, 0, sizeof c);
  for (;;) {
    c05azc(&x, &y, &fx, 1e-10, 0, c, &ind, &fail);
    if (fail.code != 0) {
      printf("Error from c05azc.\n%s\n", fail.message);
      return 1;
    }
    if (ind == 0) break;
    fx = x - exp(-x);
    ++evaluations;
  }
  printf("c05azce example results\n\n");
  printf("zero of x - exp(-x):   %.8f\n", x);
  printf("final bracket:         [%.8f, %.8f]\n", x < y ? x : y, x < y ? y : x);
  printf("function evaluations:  %d\n", evaluations);
  return 0;
}
