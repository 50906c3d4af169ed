// The core-layer drivers of the Bessel and Airy routines of complex argument:
// the precision limits, the scaling, the conversion to doubles and the
// failure record.  Shared by the plain and the by-address exports.
//
// Failure numbers (ifail):
//   2  overflow: no results;
//   3  the arguments pass the first precision limit: results stand, with
//      reduced accuracy;
//   4  the arguments pass the second limit: no computation;
//   5  a continued fraction or recurrence did not terminate.
// The record's message numbers: 99999 abs(z) and 99998 fnu+n-1 past the
// first limit, 99997 and 99996 past the second, 99995 overflow, 99994
// termination.  The records of the first four carry the value and the limit.
#pragma once
#include <complex>
#include <cstdint>

#include "frame/core_record.hpp"

namespace zem::sf::cbessel {

enum class Fn { I, J, K, Y, H1, H2 };

// The precision limits of the sequences: 2^30 - 1/2, and its square root.
inline constexpr double kTotalLimit = 1073741823.5;
inline constexpr double kPartialLimit = 32767.999992370605;
// Of the Airy functions: kTotalLimit^(2/3) and its square root.
double airy_total_limit() noexcept;
double airy_partial_limit() noexcept;

// f_{fnu+k}(z), k = 0..n-1, into cy; nz counts the members set to zero
// because they underflow.  scaled asks for the scaled functions: e^-|Re z| I,
// e^-|Im z| J and Y, e^z K, e^-iz H1, e^iz H2.  Arguments must be valid
// (fnu >= 0, n >= 1, z != 0 where f has a pole).  Returns ifail.
int sequence(Fn f, const char* name, double fnu, std::complex<double> z, int n, bool scaled,
             std::complex<double> cy[], int& nz, char rec[core::kRecordLen]) noexcept;

// Ai(z), Ai'(z) (bi false) or Bi(z), Bi'(z); scaled: e^zeta Ai,
// e^-|Re zeta| Bi with zeta = 2/3 z^{3/2}.
int airy(bool bi, bool deriv, const char* name, std::complex<double> z, bool scaled,
         std::complex<double>& out, int& nz, char rec[core::kRecordLen]) noexcept;

}  // namespace zem::sf::cbessel
