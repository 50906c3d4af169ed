/* Prints the implementation banner and the machine constants of this build. */
#include <stdio.h>
#include "zem.h"

int main(void) {
  double t[9];
  a00aac();
  x02zaz(t);
  printf("# the lines above are build data\n");
  printf("Machine constants\n");
  printf("  rounding unit      x02ajc = %.16e\n", x02ajc());
  printf("  smallest normal    x02akc = %.16e\n", x02akc());
  printf("  largest finite     x02alc = %.16e\n", x02alc());
  printf("  trig argument max  x02ahc = %.16e\n", x02ahc());
  printf("  base %.0f, %.0f digits\n", t[0], t[1]);
  return 0;
}
