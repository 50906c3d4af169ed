// Zeros of a cubic or quartic through the companion matrix.
//
// The monic polynomial x^n + c_1 x^(n-1) + ... + c_n, c_k = coef[k]/coef[0],
// is the characteristic polynomial of the companion matrix H with ones on
// the subdiagonal and -c_n, ..., -c_1 down its last column.  H is balanced
// by diagonal scaling (which leaves the eigenvalues and shrinks the norm),
// reduced to real Schur form T by the Hessenberg QR algorithm, and the
// eigenvalues are read off T.  Left and right eigenvectors of T give the
// reciprocal condition numbers s_i = |y_i^H x_i| / (|x_i| |y_i|) of the
// eigenvalues; since they are invariant under the orthogonal similarity,
// those of T are those of the balanced H.  The QR algorithm computes the
// exact eigenvalues of a matrix within about u |H| of the balanced H, so
// the error of zero i is estimated as u |H|_1 / s_i (u for a zero at the
// origin exactly).
#include "zeros/poly_companion.hpp"

#include <cmath>
#include <cstdio>

#include "linalg/lapack.hpp"
#include "zem/x02.h"

namespace zem::poly {

namespace {

constexpr int kMaxOrder = 4;

// num/den, false when the quotient overflows (or an operand is not finite).
bool guarded_quotient(double num, double den, double& q) noexcept {
  if (!std::isfinite(num) || !std::isfinite(den) || den == 0.0) return false;
  q = num / den;
  return std::isfinite(q);
}

}  // namespace

int companion_zeros(int n, const double* coef, const char* name, char lead, double* zeror,
                    double* zeroi, double* errest, int ifail,
                    char rec[core::kRecordLen]) noexcept {
  core::record_none(rec);
  int failure = kCompanionOk, msgno = 0;
  char line[81] = "";
  const lapack_int order = n;

  double h[kMaxOrder * kMaxOrder] = {};
  if (n < 1 || n > kMaxOrder) {
    failure = kKernelFailure;
  } else if (coef[0] == 0.0) {
    failure = kLeadingZero;
    std::snprintf(line, sizeof line, " ** On entry, %c .eq. 0.0", lead);
  } else {
    for (int i = 0; i + 1 < n; ++i) h[(i + 1) + i * n] = 1.0;
    for (int i = 0; i < n; ++i)
      if (!guarded_quotient(-coef[n - i], coef[0], h[i + (n - 1) * n])) {
        failure = kCompanionOverflow;
        std::snprintf(line, sizeof line,
                      " ** The companion matrix H cannot be formed without overflow.");
        break;
      }
  }

  if (failure == kCompanionOk) {
    lapack_int ilo = 1, ihi = n, info = 0, mfound = 0;
    double scale[kMaxOrder], work[16 * kMaxOrder], dummy[kMaxOrder + 6] = {};
    lapack_int select[kMaxOrder] = {}, iwork[2 * kMaxOrder] = {};
    const lapack_int lwork = 16 * kMaxOrder, one = 1;
    dgebal_("S", &order, h, &order, &ilo, &ihi, scale, &info, 1);
    const double norm = info == 0 ? dlange_("1", &order, &order, h, &order, work, 1) : 0.0;
    if (info == 0)
      dhseqr_("S", "N", &order, &ilo, &ihi, h, &order, zeror, zeroi, dummy, &one, work, &lwork,
              &info, 1, 1);
    if (info > 0) {
      failure = kSchurNoConvergence;
      std::snprintf(line, sizeof line, " ** Failure to converge in F08PEF (SHSEQR/DHSEQR).");
    } else {
      double vl[kMaxOrder * kMaxOrder], vr[kMaxOrder * kMaxOrder], s[kMaxOrder];
      if (info == 0)
        dtrevc_("B", "A", select, &order, h, &order, vl, &order, vr, &order, &order, &mfound, work,
                &info, 1, 1);
      if (info == 0)
        dtrsna_("E", "A", select, &order, h, &order, vl, &order, vr, &order, s, dummy, &order,
                &mfound, dummy, &one, iwork, &info, 1, 1);
      if (info != 0) {
        failure = kKernelFailure;
      } else {
        const double u = x02ajc();
        for (int i = 0; i < n; ++i) {
          double q;
          if (zeror[i] == 0.0 && zeroi[i] == 0.0)
            errest[i] = u;
          else if (guarded_quotient(norm, s[i], q))
            errest[i] = q * u;
          else
            errest[i] = x02alc();
        }
      }
    }
  }

  if (failure == kCompanionOk) return 0;
  msgno = 99999 - (failure - 1);
  core::record_failure(rec, name, failure, msgno, {});
  const char* lines[1] = {line};
  return core::advisory_exit(ifail, failure, name, line[0] ? 1 : 0, lines, core::ExitKind::Core);
}

}  // namespace zem::poly
