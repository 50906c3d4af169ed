// The non-template parts of the adaptive engine: the list of subintervals
// by decreasing error (QUADPACK's dqpsrt) and the epsilon algorithm
// (QUADPACK's dqelg).
#include "quadrature/adaptive.hpp"

#include <cmath>

namespace zem::quad {

void Subintervals::store_halves(double a1, double b1, double area1, double error1, double a2,
                                double b2, double area2, double error2, int lev) {
  const int i = maxerr, k = last;
  if (error2 > error1) {
    alist[i] = a2;
    blist[i] = b2;
    alist[k] = a1;
    blist[k] = b1;
    rlist[i] = area2;
    rlist[k] = area1;
    elist[i] = error2;
    elist[k] = error1;
  } else {
    alist[i] = a1;
    blist[i] = b1;
    alist[k] = a2;
    blist[k] = b2;
    rlist[i] = area1;
    rlist[k] = area2;
    elist[i] = error1;
    elist[k] = error2;
  }
  if (level) level[i] = level[k] = lev;
  ++last;

  // Keep iord in order of decreasing error.  The new error of maxerr moves
  // up or down from its place nrmax, then the error of the new subinterval
  // is inserted below it.  Only the first jupbn places are kept in order:
  // no more bisections than that can follow.
  if (last <= 2) {
    iord[0] = 0;
    iord[1] = 1;
  } else {
    const double emax = elist[maxerr];
    if (nrmax > 0) {
      for (int n = nrmax; n > 0; --n) {
        const int isucc = iord[nrmax - 1];
        if (emax <= elist[isucc]) break;
        iord[nrmax] = isucc;
        --nrmax;
      }
    }
    int jupbn = last;
    if (last > limit / 2 + 2) jupbn = limit + 3 - last;
    const double emin = elist[last - 1];
    // 1-based places as in dqpsrt: place p is iord[p - 1].
    const int jbnd = jupbn - 1;
    int p = nrmax + 2;
    bool inserted = false;
    for (; p <= jbnd; ++p) {
      const int isucc = iord[p - 1];
      if (emax >= elist[isucc]) {
        inserted = true;
        break;
      }
      iord[p - 2] = isucc;
    }
    if (!inserted) {
      iord[jbnd - 1] = maxerr;
      iord[jupbn - 1] = last - 1;
    } else {
      iord[p - 2] = maxerr;
      int q = jbnd;
      bool placed = false;
      for (int j = p; j <= jbnd; ++j) {
        const int isucc = iord[q - 1];
        if (emin < elist[isucc]) {
          iord[q] = last - 1;
          placed = true;
          break;
        }
        iord[q] = isucc;
        --q;
      }
      if (!placed) iord[p - 1] = last - 1;
    }
  }
  maxerr = iord[nrmax];
  errmax = elist[maxerr];
}

void Subintervals::sort_by_error() {
  for (int i = 0; i < last; ++i) iord[i] = i;
  // Selection of the largest remaining error, the later of equal ones.
  for (int i = 0; i + 1 < last; ++i) {
    int ind1 = iord[i], k = i;
    for (int j = i + 1; j < last; ++j) {
      const int ind2 = iord[j];
      if (elist[ind1] > elist[ind2]) continue;
      ind1 = ind2;
      k = j;
    }
    if (ind1 != iord[i]) {
      iord[k] = iord[i];
      iord[i] = ind1;
    }
  }
  nrmax = 0;
  maxerr = iord[0];
  errmax = elist[maxerr];
}

void EpsilonTable::extrapolate(double& result, double& abserr) {
  const double epmach = kRelativeSpacing, oflow = x02alc();
  // 1-based access as in dqelg: element k is tab[k - 1].
  auto e = [this](int k) -> double& { return tab[k - 1]; };
  ++nres;
  abserr = oflow;
  result = e(n);
  if (n < 3) {
    abserr = dmax(abserr, 5.0 * epmach * std::fabs(result));
    return;
  }
  const int limexp = 50;
  e(n + 2) = e(n);
  const int newelm = (n - 1) / 2;
  e(n) = oflow;
  const int num = n;
  int k1 = n;
  for (int i = 1; i <= newelm; ++i) {
    const int k2 = k1 - 1, k3 = k1 - 2;
    double res = e(k1 + 2);
    const double e0 = e(k3), e1 = e(k2), e2 = res;
    const double e1abs = std::fabs(e1);
    const double delta2 = e2 - e1, err2 = std::fabs(delta2);
    const double tol2 = dmax(std::fabs(e2), e1abs) * epmach;
    const double delta3 = e1 - e0, err3 = std::fabs(delta3);
    const double tol3 = dmax(e1abs, std::fabs(e0)) * epmach;
    if (err2 <= tol2 && err3 <= tol3) {
      // e0, e1 and e2 agree to machine accuracy: converged.
      result = res;
      abserr = dmax(err2 + err3, 5.0 * epmach * std::fabs(result));
      return;
    }
    const double e3 = e(k1);
    e(k1) = e1;
    const double delta1 = e1 - e3, err1 = std::fabs(delta1);
    const double tol1 = dmax(e1abs, std::fabs(e3)) * epmach;
    // Two elements very close, or irregular behaviour: drop the part of
    // the table beyond this diagonal.
    if (err1 <= tol1 || err2 <= tol2 || err3 <= tol3) {
      n = i + i - 1;
      break;
    }
    const double ss = 1.0 / delta1 + 1.0 / delta2 - 1.0 / delta3;
    if (std::fabs(ss * e1) <= 1.0e-4) {
      n = i + i - 1;
      break;
    }
    res = e1 + 1.0 / ss;
    e(k1) = res;
    k1 -= 2;
    const double error = err2 + std::fabs(res - e2) + err3;
    if (error <= abserr) {
      abserr = error;
      result = res;
    }
  }
  // Shift the table.
  if (n == limexp) n = 2 * (limexp / 2) - 1;
  int ib = (num % 2 == 0) ? 2 : 1;
  const int ie = newelm + 1;
  for (int i = 1; i <= ie; ++i) {
    e(ib) = e(ib + 2);
    ib += 2;
  }
  if (num != n) {
    int indx = num - n + 1;
    for (int i = 1; i <= n; ++i) {
      e(i) = e(indx);
      ++indx;
    }
  }
  if (nres < 4) {
    res3la[nres - 1] = result;
    abserr = oflow;
  } else {
    abserr = std::fabs(result - res3la[2]) + std::fabs(result - res3la[1]) +
             std::fabs(result - res3la[0]);
    res3la[0] = res3la[1];
    res3la[1] = res3la[2];
    res3la[2] = result;
  }
  abserr = dmax(abserr, 5.0 * epmach * std::fabs(result));
}

}  // namespace zem::quad
