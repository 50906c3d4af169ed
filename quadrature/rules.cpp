// Chebyshev expansions and the moments of the weights of the modified
// Clenshaw-Curtis rules (after QUADPACK's dqcheb, dqc25f and dqmomo).
#include "quadrature/rules.hpp"

#include <cmath>
#include <utility>

namespace zem::quad {

const double kCos24[13] = {
    1.0,
    0.991444861373810411145,
    0.965925826289068286750,
    0.923879532511286756128,
    0.866025403784438646764,
    0.793353340291235164580,
    0.707106781186547524401,
    0.608761429008720639416,
    0.5,
    0.382683432365089771728,
    0.258819045102520762349,
    0.130526192220051591548,
    0.0,
};

namespace {

// cos(m pi / 24) for any integer m >= 0, from the table by symmetry.
double cos24(int m) {
  m %= 48;
  if (m <= 12) return kCos24[m];
  if (m <= 24) return -kCos24[24 - m];
  if (m <= 36) return -kCos24[m - 24];
  return kCos24[48 - m];
}

// Solves the tridiagonal system with subdiagonal c[1..n-1], diagonal
// d[0..n-1] and superdiagonal e[0..n-2] for the right-hand side b by
// Gaussian elimination with partial pivoting (LINPACK's dgtsl); b is
// overwritten by the solution.  Returns false on a zero pivot.
bool solve_tridiagonal(int n, double* c, double* d, double* e, double* b) {
  c[0] = d[0];
  if (n == 1) {
    b[0] /= d[0];
    return true;
  }
  d[0] = e[0];
  e[0] = 0.0;
  e[n - 1] = 0.0;
  for (int k = 0; k < n - 1; ++k) {
    const int k1 = k + 1;
    if (std::fabs(c[k1]) >= std::fabs(c[k])) {
      std::swap(c[k1], c[k]);
      std::swap(d[k1], d[k]);
      std::swap(e[k1], e[k]);
      std::swap(b[k1], b[k]);
    }
    if (c[k] == 0.0) return false;
    const double t = -c[k1] / c[k];
    c[k1] = d[k1] + t * d[k];
    d[k1] = e[k1] + t * e[k];
    e[k1] = 0.0;
    b[k1] += t * b[k];
  }
  if (c[n - 1] == 0.0) return false;
  b[n - 1] /= c[n - 1];
  b[n - 2] = (b[n - 2] - d[n - 2] * b[n - 1]) / c[n - 2];
  for (int kb = n - 3; kb >= 0; --kb) b[kb] = (b[kb] - d[kb] * b[kb + 1] - e[kb] * b[kb + 2]) / c[kb];
  return true;
}

}  // namespace

void chebyshev_expand(const double fval[25], double cheb12[13], double cheb24[25]) {
  for (int k = 0; k < 25; ++k) {
    double s = 0.0;
    for (int j = 0; j < 25; ++j) s += fval[j] * cos24(j * k);
    cheb24[k] = s / 12.0;
  }
  cheb24[0] *= 0.5;
  cheb24[24] *= 0.5;
  for (int k = 0; k < 13; ++k) {
    double s = 0.0;
    for (int i = 0; i < 13; ++i) s += fval[2 * i] * cos24(2 * i * k);
    cheb12[k] = s / 6.0;
  }
  cheb12[0] *= 0.5;
  cheb12[12] *= 0.5;
}

void fourier_moments(double par, double moments[25]) {
  constexpr int noeq = 25;
  double v[28], d[25], d1[25], d2[25];
  const double par2 = par * par, par4 = par2 * par2, par22 = par2 + 2.0;
  const double sinpar = std::sin(par), cospar = std::cos(par);

  // Cosine moments.  The three first in closed form; the rest from the
  // three-term recurrence, solved as a boundary-value problem with an
  // asymptotic end value for |par| <= 24 (forward recursion is unstable
  // there) and by forward recursion beyond.
  double ac = 8.0 * cospar, as = 24.0 * par * sinpar;
  v[0] = 2.0 * sinpar / par;
  v[1] = (8.0 * cospar + (2.0 * par2 - 8.0) * sinpar / par) / par2;
  v[2] = (32.0 * (par2 - 12.0) * cospar + (2.0 * ((par2 - 80.0) * par2 + 192.0) * sinpar) / par) /
         par4;
  if (std::fabs(par) <= 24.0) {
    double an = 6.0;
    for (int k = 0; k < noeq - 1; ++k) {
      const double an2 = an * an;
      d[k] = -2.0 * (an2 - 4.0) * (par22 - 2.0 * an2);
      d2[k] = (an - 1.0) * (an - 2.0) * par2;
      d1[k + 1] = (an + 3.0) * (an + 4.0) * par2;
      v[k + 3] = as - (an2 - 4.0) * ac;
      an += 2.0;
    }
    const double an2 = an * an;
    d[noeq - 1] = -2.0 * (an2 - 4.0) * (par22 - 2.0 * an2);
    v[noeq + 2] = as - (an2 - 4.0) * ac;
    v[3] -= 56.0 * par2 * v[2];
    const double ass = par * sinpar;
    const double asap = (((((210.0 * par2 - 1.0) * cospar - (105.0 * par2 - 63.0) * ass) / an2 -
                           (1.0 - 15.0 * par2) * cospar + 15.0 * ass) /
                              an2 -
                          cospar + 3.0 * ass) /
                             an2 -
                         cospar) /
                        an2;
    v[noeq + 2] -= 2.0 * asap * par2 * (an - 1.0) * (an - 2.0);
    solve_tridiagonal(noeq, d1, d, d2, v + 3);
  } else {
    double an = 4.0;
    for (int i = 3; i < 13; ++i) {
      const double an2 = an * an;
      v[i] = ((an2 - 4.0) * (2.0 * (par22 - 2.0 * an2) * v[i - 1] - ac) + as -
              par2 * (an + 1.0) * (an + 2.0) * v[i - 2]) /
             (par2 * (an - 1.0) * (an - 2.0));
      an += 2.0;
    }
  }
  for (int j = 0; j < 13; ++j) moments[2 * j] = v[j];

  // Sine moments.
  v[0] = 2.0 * (sinpar - par * cospar) / par2;
  v[1] = (18.0 - 48.0 / par2) * sinpar / par2 + (-2.0 + 48.0 / par2) * cospar / par;
  ac = -24.0 * par * cospar;
  as = -8.0 * sinpar;
  if (std::fabs(par) <= 24.0) {
    double an = 5.0;
    for (int k = 0; k < noeq - 1; ++k) {
      const double an2 = an * an;
      d[k] = -2.0 * (an2 - 4.0) * (par22 - 2.0 * an2);
      d2[k] = (an - 1.0) * (an - 2.0) * par2;
      d1[k + 1] = (an + 3.0) * (an + 4.0) * par2;
      v[k + 2] = ac + (an2 - 4.0) * as;
      an += 2.0;
    }
    const double an2 = an * an;
    d[noeq - 1] = -2.0 * (an2 - 4.0) * (par22 - 2.0 * an2);
    v[noeq + 1] = ac + (an2 - 4.0) * as;
    v[2] -= 42.0 * par2 * v[1];
    const double ass = par * cospar;
    const double asap = (((((105.0 * par2 - 63.0) * ass + (210.0 * par2 - 1.0) * sinpar) / an2 +
                           (15.0 * par2 - 1.0) * sinpar - 15.0 * ass) /
                              an2 -
                          3.0 * ass - sinpar) /
                             an2 -
                         sinpar) /
                        an2;
    v[noeq + 1] -= 2.0 * asap * par2 * (an - 1.0) * (an - 2.0);
    solve_tridiagonal(noeq, d1, d, d2, v + 2);
  } else {
    double an = 3.0;
    for (int i = 2; i < 12; ++i) {
      const double an2 = an * an;
      v[i] = ((an2 - 4.0) * (2.0 * (par22 - 2.0 * an2) * v[i - 1] + as) + ac -
              par2 * (an + 1.0) * (an + 2.0) * v[i - 2]) /
             (par2 * (an - 1.0) * (an - 2.0));
      an += 2.0;
    }
  }
  for (int j = 0; j < 12; ++j) moments[2 * j + 1] = v[j];
}

void AlgLogMoments::compute(double alfa, double beta) {
  const double alfp1 = alfa + 1.0, betp1 = beta + 1.0;
  const double alfp2 = alfa + 2.0, betp2 = beta + 2.0;
  const double ralf = std::pow(2.0, alfp1), rbet = std::pow(2.0, betp1);
  ri[0] = ralf / alfp1;
  rj[0] = rbet / betp1;
  ri[1] = ri[0] * alfa / alfp2;
  rj[1] = rj[0] * beta / betp2;
  double an = 2.0, anm1 = 1.0;
  for (int i = 2; i < 25; ++i) {
    ri[i] = -(ralf + an * (an - alfp2) * ri[i - 1]) / (anm1 * (an + alfp1));
    rj[i] = -(rbet + an * (an - betp2) * rj[i - 1]) / (anm1 * (an + betp1));
    anm1 = an;
    an += 1.0;
  }
  rg[0] = -ri[0] / alfp1;
  rg[1] = -(ralf + ralf) / (alfp2 * alfp2) - rg[0];
  rh[0] = -rj[0] / betp1;
  rh[1] = -(rbet + rbet) / (betp2 * betp2) - rh[0];
  an = 2.0;
  anm1 = 1.0;
  for (int i = 2; i < 25; ++i) {
    rg[i] = -(an * (an - alfp2) * rg[i - 1] - an * ri[i - 1] + anm1 * ri[i]) / (anm1 * (an + alfp1));
    rh[i] = -(an * (an - betp2) * rh[i - 1] - an * rj[i - 1] + anm1 * rj[i]) / (anm1 * (an + betp1));
    anm1 = an;
    an += 1.0;
  }
  // The moments of (1-t)^beta are those of (1+t)^beta with T_k(-t) =
  // (-1)^k T_k(t).
  for (int i = 1; i < 25; i += 2) {
    rj[i] = -rj[i];
    rh[i] = -rh[i];
  }
}

}  // namespace zem::quad
