#include "zeros/bracket.hpp"

#include <algorithm>
#include <cmath>

#include "zem/x02.h"

namespace zem::bracket {

// Layout of the state array c.
namespace {
enum : int {
  kY = 0, kFY = 1,          // the other end of the bracket and f there
  kB = 2, kFB = 3,          // the best point and f there
  kP = 4, kFP = 5,          // the previous point
  kQ = 6, kFQ = 7,          // the point before that
  kD1 = 8, kD2 = 9,         // divided differences of the last inverse-quadratic step
  kStep = 10, kHalf = 11,   // the last step and the last bisection step
  kRootEps = 12, kTiny = 13,
  kFMax = 14,               // largest of the initial |f| values
  kPole = 15,               // pole watch: 0, then 1, then -1
  kCount = 16,              // steps since the last bisection or change of side
};
}  // namespace

Status step(double& x, double& y, double& fx, double xtol, int ir, double* c, int& ind) noexcept {
  const double eps = x02ajc();
  // Weights of |x| and of 1 in the tolerance.
  const double wa = (ir == 1) ? 0.0 : 1.0;
  const double wb = (ir == 2) ? 0.0 : 1.0;

  bool change_side = false;
  switch (ind) {
    case 1:
      c[kB] = x;
      ind = 2;
      return Status::kOk;
    case -1:
    case 2: {
      if (ind == -1) c[kB] = x;
      if (fx == 0.0) {
        y = x;
        ind = 0;
        return Status::kOk;
      }
      c[kFB] = fx;
      c[kFMax] = std::fabs(fx);
      c[kPole] = 0.0;
      x = y;
      y = c[kB];
      c[kFY] = c[kFB];
      c[kP] = x;
      if (ind == 2) {
        ind = 3;
        return Status::kOk;
      }
      fx = c[kY];
      ind = 3;
    }
      [[fallthrough]];
    case 3:
      if (fx == 0.0) {
        y = x;
        ind = 0;
        return Status::kOk;
      }
      if (same_sign(fx, c[kFY])) {
        ind = 0;
        return Status::kSameSign;
      }
      c[kFP] = fx;
      c[kRootEps] = std::sqrt(eps);
      c[kFMax] = std::max(c[kFMax], std::fabs(fx));
      c[kTiny] = x02akc();
      c[kPole] = 0.0;
      change_side = true;
      break;
    default: {  // 4
      if (fx == 0.0) {
        y = x;
        ind = 0;
        return Status::kOk;
      }
      c[kFB] = fx;
      // Two values in a row that grow beyond the initial ones mark a pole.
      if (std::fabs(fx) * c[kRootEps] <= c[kFMax]) {
        c[kPole] = 0.0;
      } else if (c[kPole] == 1.0) {
        c[kPole] = -1.0;
      } else if (c[kPole] == 0.0) {
        c[kPole] = 1.0;
      }
      if ((c[kFY] < 0.0 && fx <= 0.0) || (c[kFY] >= 0.0 && fx >= 0.0)) {
        change_side = true;
      } else {
        double count = std::trunc(c[kCount] + 0.1) + 1.0;
        if (c[kStep] == c[kHalf]) count = 0.0;  // the last step was a bisection
        c[kCount] = count;
      }
      break;
    }
  }
  if (change_side) {
    c[kY] = c[kP];
    c[kFY] = c[kFP];
    c[kCount] = 0.0;
  }

  // Keep the point of smaller |f| as the best point.
  if (std::fabs(c[kFB]) > std::fabs(c[kFY])) {
    if (c[kY] != c[kP]) {
      c[kQ] = c[kP];
      c[kFQ] = c[kFP];
    }
    c[kP] = c[kB];
    c[kFP] = c[kFB];
    x = c[kB] = c[kY];
    c[kFB] = c[kFY];
    c[kY] = c[kP];
    c[kFY] = c[kFP];
  }

  const double s = std::max(wb, wa * std::fabs(c[kB]));
  const double tol = 0.5 * xtol * s;
  const double r = 2.0 * eps * s;
  const double m = 0.5 * (c[kY] - c[kB]);
  c[kHalf] = m;
  const double am = std::fabs(m);
  // A NaN in the bracket cannot be resolved either.
  if (m == 0.0 || (am > tol && am <= r) || std::isnan(m)) {
    ind = 0;
    return Status::kXtolTooSmall;
  }
  if (am <= tol) {
    ind = 0;
    if (c[kPole] < 0.0) return Status::kPole;
    y = c[kY];
    return Status::kOk;
  }

  double h;
  if (c[kCount] >= 2.5) {
    h = m;
  } else {
    const double t = std::copysign(tol, m);
    double p = (c[kB] - c[kP]) * c[kFB];
    double q;
    if (c[kCount] <= 1.5) {
      q = c[kFP] - c[kFB];  // linear step
    } else {
      if (c[kQ] == c[kB] || c[kQ] == c[kP]) {
        ind = 0;
        return Status::kXtolTooSmall;
      }
      c[kD1] = (c[kFQ] - c[kFB]) / (c[kQ] - c[kB]);
      c[kD2] = (c[kFQ] - c[kFP]) / (c[kQ] - c[kP]);
      p *= c[kD2];
      q = c[kD1] * c[kFP] - c[kD2] * c[kFB];
    }
    if (p < 0.0) {
      p = -p;
      q = -q;
    }
    if (std::fabs(p) <= c[kTiny] || p <= q * t) {
      h = t;
    } else if (p < m * q) {
      h = p / q;
    } else {
      h = m;  // also when p or q is not a number
    }
  }
  c[kStep] = h;
  c[kQ] = c[kP];
  c[kFQ] = c[kFP];
  c[kP] = c[kB];
  c[kFP] = c[kFB];
  c[kB] += h;
  x = c[kB];
  y = c[kY];
  ind = 4;
  return Status::kOk;
}

}  // namespace zem::bracket
