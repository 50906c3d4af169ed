// Zeros of a real cubic or quartic as the eigenvalues of its companion
// matrix, with an error estimate for each zero.  A routine of the core
// layer: it takes the mode word ifail, writes a failure into the caller's
// 200-character record and ends through the core's advisory exit.
#pragma once
#include "frame/core_record.hpp"

namespace zem::poly {

// The core's failure numbers and the message numbers of its record.
enum CompanionFailure : int {
  kCompanionOk = 0,
  kLeadingZero = 1,      // message 99999
  kCompanionOverflow = 2,  // message 99998
  kSchurNoConvergence = 3,  // message 99997
  kKernelFailure = 4,     // message 99996: a kernel refused its arguments
};

// Zeros of coef[0] x^n + coef[1] x^(n-1) + ... + coef[n] for n = 3 or 4.
//   name       the core routine's name in the record ("C02AKF").
//   lead       the leading coefficient's letter in the advisory record.
//   zeror, zeroi  out: real and imaginary parts of the n zeros.
//   errest     out: estimated absolute error of each zero.
//   ifail      mode word of the core layer (1: soft and silent).
//   rec        out: "NONE" or the failure record.
// Returns the failure number.
int companion_zeros(int n, const double* coef, const char* name, char lead, double* zeror,
                    double* zeroi, double* errest, int ifail,
                    char rec[core::kRecordLen]) noexcept;

}  // namespace zem::poly
