/* The matrix printers on a small problem: the LU factorisation, without
 * pivoting, of the second-difference matrix A = tridiag(-1, 2, -1) of
 * order 4 (the discrete Laplacian on four nodes).  A is printed in full and
 * in band storage, the unit lower factor L in full storage and the upper
 * factor U in packed storage.  Then a complex Hermitian tridiagonal matrix
 * is printed in full, packed and band storage in the three layouts of
 * complex values.  A bad format is refused through the error record. */
#include <stdio.h>
#include "zem.h"

#define N 4

static void check(const ZemError *fail) {
  if (fail->code != 0) printf("%s\n", fail->message);
}

int main(void) {
  const char *nodes[N] = {"node a", "node b", "node c", "node d"};
  const char *cols[N] = {"a", "b", "c", "d"};
  double a[N * N] = {0}, l[N * N] = {0}, u[N * (N + 1) / 2];
  double band[3 * N] = {0};
  double det;
  ZemComplex h[3 * 3], hp[6], hb[3 * 3];
  ZemError fail = {0};
  int i, j, k;

  /* A, row-major, and its band form (kl = ku = 1, column-major, pdab 3:
   * row 0 the super-diagonal, row 1 the diagonal, row 2 the sub-diagonal). */
  for (i = 0; i < N; ++i) {
    a[i * N + i] = 2.0;
    if (i > 0) a[i * N + i - 1] = -1.0;
    if (i + 1 < N) a[i * N + i + 1] = -1.0;
  }
  for (j = 0; j < N; ++j)
    for (i = (j > 0 ? j - 1 : 0); i <= (j + 1 < N ? j + 1 : N - 1); ++i)
      band[1 + i - j + j * 3] = a[i * N + j];

  /* Doolittle LU of a tridiagonal matrix: u(i,i) = a(i,i) - l(i,i-1) u(i-1,i),
   * u(i,i+1) = a(i,i+1), l(i+1,i) = a(i+1,i) / u(i,i).  U is stored upper
   * packed row by row (row-major). */
  k = 0;
  for (i = 0; i < N; ++i) {
    double d = a[i * N + i] - (i > 0 ? l[i * N + i - 1] * a[(i - 1) * N + i] : 0.0);
    for (j = i; j < N; ++j) u[k++] = (j == i) ? d : (j == i + 1 ? a[i * N + j] : 0.0);
    if (i + 1 < N) l[(i + 1) * N + i] = a[(i + 1) * N + i] / d;
  }

  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, N, N, a, N, "%5.1f ",
         "A = tridiag(-1, 2, -1)", Zem_CharacterLabels, nodes, Zem_CharacterLabels, cols, 80,
         2, NULL, &fail);
  check(&fail);
  x04cec(Zem_ColMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, N, N, 1, 1, band, 3,
         "A from band storage", NULL, &fail);
  check(&fail);
  x04cbc(Zem_RowMajor, Zem_LowerMatrix, Zem_UnitDiag, N, N, l, N, NULL,
         "L: unit lower triangular (the diagonal is not stored)", Zem_IntegerLabels, NULL,
         Zem_IntegerLabels, NULL, 80, 0, NULL, &fail);
  check(&fail);
  x04ccc(Zem_RowMajor, Zem_UpperMatrix, Zem_NonUnitDiag, N, u,
         "U: upper triangular, packed", NULL, &fail);
  check(&fail);
  for (i = 0, k = 0, det = 1.0; i < N; k += N - i, ++i) det *= u[k];
  printf("det A = product of the diagonal of U = %.6f (n + 1 = %d)\n", det, N + 1);

  /* H(i,i) = 2, H(i,i+1) = -1 + i, H(i+1,i) = -1 - i, order 3. */
  for (i = 0; i < 9; ++i) {
    h[i].re = 0.0;
    h[i].im = 0.0;
  }
  for (i = 0; i < 3; ++i) {
    h[i * 3 + i].re = 2.0;
    if (i + 1 < 3) {
      h[i * 3 + i + 1].re = -1.0;
      h[i * 3 + i + 1].im = 1.0;
      h[(i + 1) * 3 + i].re = -1.0;
      h[(i + 1) * 3 + i].im = -1.0;
    }
  }
  /* Upper triangle packed by columns (column-major), and band storage
   * row-major (kl = ku = 1, pdab 3: column 1 holds the diagonal). */
  k = 0;
  for (j = 0; j < 3; ++j)
    for (i = 0; i <= j; ++i) hp[k++] = h[i * 3 + j];
  for (i = 0; i < 9; ++i) hb[i] = h[0];
  for (i = 0; i < 3; ++i)
    for (j = (i > 0 ? i - 1 : 0); j <= (i + 1 < 3 ? i + 1 : 2); ++j)
      hb[1 + j - i + i * 3] = h[i * 3 + j];

  x04dbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 3, h, 3, Zem_BracketForm,
         "%5.1f", "Hermitian H, bracket form", Zem_CharacterLabels, nodes, Zem_IntegerLabels,
         NULL, 80, 0, NULL, &fail);
  check(&fail);
  x04dcc(Zem_ColMajor, Zem_UpperMatrix, Zem_NonUnitDiag, 3, hp,
         "Upper triangle of H, packed (real parts above imaginary parts)", NULL, &fail);
  check(&fail);
  x04dfc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 3, 1, 1, hb, 3, Zem_DirectForm,
         "%6.1f", "H from band storage, real and imaginary parts side by side",
         Zem_IntegerLabels, NULL, Zem_CharacterLabels, cols, 80, 0, NULL, &fail);
  check(&fail);

  /* A format for an integer cannot print a double: it is refused. */
  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, N, N, a, N, "%d", "not printed",
         Zem_NoLabels, NULL, Zem_NoLabels, NULL, 80, 0, NULL, &fail);
  printf("format \"%%d\" gives code %d:\n%s\n", (int)fail.code, fail.message);
  return 0;
}
