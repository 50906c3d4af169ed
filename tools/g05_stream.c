/* Writes the raw 32-bit outputs of one g05 generator to standard output,
 * for a statistical battery reading a binary stream (dieharder -g 200).
 *   g05_stream stored [count]     g05cac after g05cbc(1762543)
 *   g05_stream basic [count]      g05kac with igen 0
 *   g05_stream wh IGEN [count]    g05kac with Wichmann-Hill generator IGEN
 * Each value u becomes floor(u * 2^32).  count 0 (the default) is endless. */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <zem.h>

int main(int argc, char **argv) {
  int32_t igen = 0, iseed[4] = {1762543, 9324783, 42344, 742355};
  int stored = argc > 1 && strcmp(argv[1], "stored") == 0;
  int arg = 2;
  long long count = 0, i;
  uint32_t buf[4096];
  if (argc > 1 && strcmp(argv[1], "wh") == 0 && argc > 2) igen = atoi(argv[arg++]);
  if (argc > arg) count = atoll(argv[arg]);
  g05cbc(1762543);
  g05kbc(&igen, iseed);
  for (i = 0; count == 0 || i < count; i += 4096) {
    int k;
    for (k = 0; k < 4096; ++k) {
      const double u = stored ? g05cac() : g05kac(igen, iseed);
      buf[k] = (uint32_t)(u * 4294967296.0);
    }
    if (fwrite(buf, sizeof buf[0], 4096, stdout) != 4096) return 0;
  }
  return 0;
}
