/* c02alce: where a ray meets a torus, as in ray tracing.  The torus about
 * the z axis with radii R (to the centre of the tube) and r (of the tube) is
 *   (x^2 + y^2 + z^2 + R^2 - r^2)^2 = 4 R^2 (x^2 + y^2),
 * and the points o + t d of a ray with unit direction d give a quartic in
 * the distance t:
 *   t^4 + 4 g t^3 + (2 h + 4 g^2 - 4 R^2 (dx^2 + dy^2)) t^2
 *       + (4 g h - 8 R^2 (ox dx + oy dy)) t + h^2 - 4 R^2 (ox^2 + oy^2),
 * with g = o.d and h = o.o + R^2 - r^2.  Its real zeros are the distances
 * at which the ray enters and leaves the tube. */
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <zem.h>

int main(void) {
  const double big = 2.0, small = 0.5;
  /* Ray origins and (not yet normalised) directions. */
  static const double rays[][6] = {
      {-4.0, 0.0, 0.1, 1.0, 0.0, 0.0},   /* along the x axis, through both sides */
      {-4.0, 1.9, 0.0, 1.0, 0.05, 0.0},  /* grazing the far side of the tube */
      {2.0, 0.0, 3.0, 0.0, 0.1, -1.0},   /* from above, down through the tube */
      {0.0, 0.0, 3.0, 0.1, 0.0, -1.0},   /* from above, through the hole */
  };
  double zr[4], zi[4], errest[4];
  ZemError fail;
  int k, i, j;

  memset(&fail, 0, sizeof fail);
  printf("c02alce example results\n");
  for (k = 0; k < 4; ++k) {
    const double *o = rays[k];
    double d[3], len, g, h, rr = big * big;
    int hits = 0;
    len = sqrt(rays[k][3] * rays[k][3] + rays[k][4] * rays[k][4] + rays[k][5] * rays[k][5]);
    for (i = 0; i < 3; ++i) d[i] = rays[k][3 + i] / len;
    g = o[0] * d[0] + o[1] * d[1] + o[2] * d[2];
    h = o[0] * o[0] + o[1] * o[1] + o[2] * o[2] + rr - small * small;
    c02alc(1.0, 4.0 * g, 2.0 * h + 4.0 * g * g - 4.0 * rr * (d[0] * d[0] + d[1] * d[1]),
           4.0 * g * h - 8.0 * rr * (o[0] * d[0] + o[1] * d[1]),
           h * h - 4.0 * rr * (o[0] * o[0] + o[1] * o[1]), zr, zi, errest, &fail);
    if (fail.code != 0) {
      printf("Error from c02alc.\n%s\n", fail.message);
      return 1;
    }
    /* The real zeros in increasing order. */
    for (i = 0; i < 4; ++i)
      for (j = i + 1; j < 4; ++j)
        if (zr[j] < zr[i]) {
          double s = zr[i];
          zr[i] = zr[j];
          zr[j] = s;
          s = zi[i];
          zi[i] = zi[j];
          zi[j] = s;
        }
    printf("\nRay %d from (%.1f, %.1f, %.1f):\n", k + 1, o[0], o[1], o[2]);
    for (i = 0; i < 4; ++i) {
      if (zi[i] != 0.0 || zr[i] < 0.0) continue;
      printf("  hit at distance %.8f, point (%.6f, %.6f, %.6f)\n", zr[i], o[0] + zr[i] * d[0],
             o[1] + zr[i] * d[1], o[2] + zr[i] * d[2]);
      ++hits;
    }
    if (hits == 0) printf("  no hit\n");
  }
  return 0;
}
