/* m01cace: the daily maximum temperatures of one month at a weather
 * station, sorted to find the median and the quartiles, then listed from
 * the warmest day down. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  double t[30] = {14.2, 16.8, 15.1, 13.9, 18.4, 21.0, 19.7, 17.3, 12.8, 11.5,
                  13.6, 15.9, 17.8, 20.4, 22.1, 23.5, 21.8, 18.9, 16.2, 14.7,
                  13.3, 15.6, 17.1, 19.2, 20.8, 18.0, 16.5, 15.4, 14.9, 17.6};
  ZemError fail;
  int i;
  memset(&fail, 0, sizeof fail);
  printf("m01cace example results\n\n");
  m01cac(t, 30, Zem_Ascending, &fail);
  if (fail.code != 0) {
    printf("Error from m01cac.\n%s\n", fail.message);
    return 1;
  }
  printf("lowest          %.1f\n", t[0]);
  printf("lower quartile  %.2f\n", 0.25 * t[6] + 0.75 * t[7]);
  printf("median          %.2f\n", 0.5 * (t[14] + t[15]));
  printf("upper quartile  %.2f\n", 0.75 * t[21] + 0.25 * t[22]);
  printf("highest         %.1f\n", t[29]);
  m01cac(t, 30, Zem_Descending, &fail);
  if (fail.code != 0) {
    printf("Error from m01cac.\n%s\n", fail.message);
    return 1;
  }
  printf("\nfrom the warmest day down:\n");
  for (i = 0; i < 30; ++i) printf("%5.1f%s", t[i], i % 10 == 9 ? "\n" : "");
  return 0;
}
