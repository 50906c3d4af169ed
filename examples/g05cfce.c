/* g05cfce: the stored-state generator of this thread: seed it, draw, save
 * the state in the middle of a batch, draw on, restore, and draw the same
 * values again. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  int32_t istate[9];
  double xstate[4];
  double after[5];
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("g05cfce example results\n\n");
  g05cbc(1762543);
  printf("After g05cbc(1762543):\n");
  for (i = 0; i < 5; ++i) printf("  %.15f\n", g05cac());
  g05cfc(istate, xstate);
  printf("State saved; the next values:\n");
  for (i = 0; i < 5; ++i) {
    after[i] = g05cac();
    printf("  %.15f\n", after[i]);
  }
  g05cgc(istate, xstate, &fail);
  if (fail.code != 0) {
    printf("Error from g05cgc.\n%s\n", fail.message);
    return 1;
  }
  printf("State restored; the same values again:\n");
  for (i = 0; i < 5; ++i) {
    const double v = g05cac();
    printf("  %.15f  %s\n", v, v == after[i] ? "same" : "DIFFERENT");
  }
  g05cxc();
  printf("After g05cxc, the first value of a fresh thread: %.15f\n", g05cac());
  return 0;
}
