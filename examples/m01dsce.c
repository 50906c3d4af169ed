/* m01dsce: a table of rivers kept as records (name, length, discharge) is
 * ranked by discharge without moving it (m01dsc), the ranks are inverted
 * into an index vector (m01zac) and the records are put in that order in
 * place (m01esc); finally a binary search (m01fsc) finds the rivers of a
 * given length class in a copy sorted by length. */
#include <stdio.h>
#include <string.h>
#include <zem.h>

typedef struct {
  char name[16];
  double length_km;
  double discharge_m3s;
} River;

static int32_t by_discharge(const void *a, const void *b) {
  double x = ((const River *)a)->discharge_m3s, y = ((const River *)b)->discharge_m3s;
  return x < y ? -1 : x > y ? 1 : 0;
}

static int32_t by_length(const void *a, const void *b) {
  double x = ((const River *)a)->length_km, y = ((const River *)b)->length_km;
  return x < y ? -1 : x > y ? 1 : 0;
}

int main(void) {
  River r[8] = {{"Danube", 2850, 6500},  {"Rhine", 1230, 2900}, {"Volga", 3530, 8060},
                {"Loire", 1006, 840},    {"Elbe", 1094, 870},   {"Dnieper", 2200, 1670},
                {"Vistula", 1047, 1080}, {"Rhone", 813, 1710}};
  int32_t ranks[8];
  River key;
  ZemError fail;
  int i;
  int32_t first, last;
  memset(&fail, 0, sizeof fail);
  printf("m01dsce example results\n\n");
  m01dsc(r, 8, sizeof(River), by_discharge, Zem_Descending, ranks, &fail);
  if (fail.code == 0) m01zac(ranks, 8, &fail);
  if (fail.code == 0) m01esc(r, 8, sizeof(River), sizeof(River), ranks, &fail);
  if (fail.code != 0) {
    printf("Error.\n%s\n", fail.message);
    return 1;
  }
  printf("by mean discharge:\n");
  for (i = 0; i < 8; ++i)
    printf("  %-8s %7.0f m3/s %7.0f km\n", r[i].name, r[i].discharge_m3s, r[i].length_km);

  m01csc(r, 8, sizeof(River), sizeof(River), by_length, Zem_Ascending, &fail);
  if (fail.code != 0) {
    printf("Error from m01csc.\n%s\n", fail.message);
    return 1;
  }
  key.length_km = 1094;
  first = m01fsc(&key, r, 8, sizeof(River), by_length, Zem_Ascending, Zem_First, &fail);
  last = m01fsc(&key, r, 8, sizeof(River), by_length, Zem_Ascending, Zem_Last, &fail);
  printf("\nsorted by length, a river of %.0f km is at positions %ld to %ld: %s\n",
         key.length_km, (long)first, (long)last, first >= 0 ? r[first].name : "none");
  return 0;
}
