/* g05kace: the seed-array generators: the basic generator and one of the
 * Wichmann-Hill generators, each with its whole state in igen and iseed,
 * and Bernoulli draws with g05kec. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  int32_t gens[2] = {0, 17};
  ZemError fail;
  int g, i;
  memset(&fail, 0, sizeof fail);
  printf("g05kace example results\n");
  for (g = 0; g < 2; ++g) {
    int32_t igen = gens[g];
    int32_t iseed[4] = {1762543, 9324783, 42344, 742355};
    int heads = 0;
    g05kbc(&igen, iseed);
    printf("\nigen = %d\n", (int)igen);
    for (i = 0; i < 5; ++i) printf("  %.15f\n", g05kac(igen, iseed));
    for (i = 0; i < 1000; ++i) {
      heads += g05kec(0.25, igen, iseed, &fail);
      if (fail.code != 0) {
        printf("Error from g05kec.\n%s\n", fail.message);
        return 1;
      }
    }
    printf("  g05kec(0.25): %d true in 1000\n", heads);
  }
  return 0;
}
