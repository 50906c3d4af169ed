#include "zeros/hybrid.hpp"

#include <algorithm>
#include <cmath>

#include "linalg/level1.hpp"
#include "zem/x02.h"

namespace zem::hybrid {

namespace {

using blas1::axpy;
using blas1::dot;
using blas1::nrm2;

// A(i,j) of a row-major matrix with leading dimension ld.
inline double& at(double* a, long ld, long i, long j) noexcept { return a[i * ld + j]; }

// Householder QR factorisation of the n by n matrix a, without pivoting.
// On return the strict upper triangle of a holds that of R, the lower
// triangle with the diagonal the Householder vectors (scaled so that the
// transformation is I - u u'/u_j), rdiag the diagonal of R, acnorm the
// column norms of the input.  wa is a work array of length n.
void qrfac(long n, double* a, long ld, double* rdiag, double* acnorm, double* wa) noexcept {
  for (long j = 0; j < n; ++j) {
    acnorm[j] = nrm2(n, a + j, ld);
    rdiag[j] = acnorm[j];
  }
  for (long j = 0; j < n; ++j) {
    double ajnorm = nrm2(n - j, &at(a, ld, j, j), ld);
    if (ajnorm != 0.0) {
      if (at(a, ld, j, j) < 0.0) ajnorm = -ajnorm;
      for (long i = j; i < n; ++i) at(a, ld, i, j) /= ajnorm;
      at(a, ld, j, j) += 1.0;
      // Apply the transformation to the remaining columns, row by row so
      // that the matrix is read in storage order: s = u' A(j:, j+1:).
      const long rest = n - j - 1;
      if (rest > 0) {
        double* s = wa + j + 1;
        std::fill(s, s + rest, 0.0);
        for (long i = j; i < n; ++i) axpy(rest, at(a, ld, i, j), &at(a, ld, i, j + 1), 1, s, 1);
        const double ujj = at(a, ld, j, j);
        for (long k = 0; k < rest; ++k) s[k] /= ujj;
        for (long i = j; i < n; ++i) axpy(rest, -at(a, ld, i, j), s, 1, &at(a, ld, i, j + 1), 1);
      }
    }
    rdiag[j] = -ajnorm;
  }
}

// Forms the orthogonal matrix Q in q from the Householder vectors that
// qrfac left in its lower triangle.  wa and ws are work arrays of length n.
void qform(long n, double* q, long ld, double* wa, double* ws) noexcept {
  for (long i = 0; i < n; ++i)
    for (long j = i + 1; j < n; ++j) at(q, ld, i, j) = 0.0;
  for (long k = n - 1; k >= 0; --k) {
    for (long i = k; i < n; ++i) {
      wa[i] = at(q, ld, i, k);
      at(q, ld, i, k) = 0.0;
    }
    at(q, ld, k, k) = 1.0;
    if (wa[k] == 0.0) continue;
    const long cols = n - k;
    double* s = ws + k;
    std::fill(s, s + cols, 0.0);
    for (long i = k; i < n; ++i) axpy(cols, wa[i], &at(q, ld, i, k), 1, s, 1);
    for (long j = 0; j < cols; ++j) s[j] /= wa[k];
    for (long i = k; i < n; ++i) axpy(cols, -wa[i], s, 1, &at(q, ld, i, k), 1);
  }
}

// A Givens rotation that annihilates b against a, returned as cos, sin and
// the one number tau from which r1mpyq recovers it.
struct Rotation {
  double cos, sin, tau;
};
inline Rotation givens(double a, double b, double giant) noexcept {
  Rotation g;
  if (std::fabs(a) < std::fabs(b)) {
    const double cotan = a / b;
    g.sin = 0.5 / std::sqrt(0.25 + 0.25 * cotan * cotan);
    g.cos = g.sin * cotan;
    g.tau = (std::fabs(g.cos) * giant > 1.0) ? 1.0 / g.cos : 1.0;
  } else {
    const double tan = b / a;
    g.cos = 0.5 / std::sqrt(0.25 + 0.25 * tan * tan);
    g.sin = g.cos * tan;
    g.tau = g.sin;
  }
  return g;
}
inline void recover(double tau, double& c, double& s) noexcept {
  if (std::fabs(tau) > 1.0) {
    c = 1.0 / tau;
    s = std::sqrt(1.0 - c * c);
  } else {
    s = tau;
    c = std::sqrt(1.0 - s * s);
  }
}

// Given R (packed by rows), u and v, finds an orthogonal Q such that
// (R' + v u') Q is again lower triangular, that is R + u v' = Q' R_new with
// the rows rotated: the rotations are returned in v (the first set) and w
// (the second), and R is overwritten by R_new.  Returns true when a diagonal
// element of R_new is zero.
bool r1updt(long n, double* s, const double* u, double* v, double* w) noexcept {
  const double giant = x02alc();
  std::size_t jj = static_cast<std::size_t>(n) * static_cast<std::size_t>(n + 1) / 2 - 1;
  w[n - 1] = s[jj];
  // Rotate v into a multiple of the last unit vector, spreading a spike
  // into w.
  for (long j = n - 2; j >= 0; --j) {
    jj -= static_cast<std::size_t>(n - j);
    w[j] = 0.0;
    if (v[j] == 0.0) continue;
    const Rotation g = givens(v[n - 1], v[j], giant);
    v[n - 1] = g.sin * v[j] + g.cos * v[n - 1];
    v[j] = g.tau;
    std::size_t l = jj;
    for (long i = j; i < n; ++i, ++l) {
      const double t = g.cos * s[l] - g.sin * w[i];
      w[i] = g.sin * s[l] + g.cos * w[i];
      s[l] = t;
    }
  }
  for (long i = 0; i < n; ++i) w[i] += v[n - 1] * u[i];
  // Eliminate the spike.
  bool sing = false;
  for (long j = 0; j < n - 1; ++j) {
    if (w[j] != 0.0) {
      const Rotation g = givens(s[jj], w[j], giant);
      std::size_t l = jj;
      for (long i = j; i < n; ++i, ++l) {
        const double t = g.cos * s[l] + g.sin * w[i];
        w[i] = -g.sin * s[l] + g.cos * w[i];
        s[l] = t;
      }
      w[j] = g.tau;
    }
    if (s[jj] == 0.0) sing = true;
    jj += static_cast<std::size_t>(n - j);
  }
  s[jj] = w[n - 1];
  if (s[jj] == 0.0) sing = true;
  return sing;
}

// a = a * Q for the m by n matrix a, with Q the product of the rotations
// that r1updt stored in v and w.
void r1mpyq(long m, long n, double* a, long ld, const double* v, const double* w) noexcept {
  double c, s;
  for (long j = n - 2; j >= 0; --j) {
    recover(v[j], c, s);
    for (long i = 0; i < m; ++i) {
      double& aj = at(a, ld, i, j);
      double& an = at(a, ld, i, n - 1);
      const double t = c * aj - s * an;
      an = s * aj + c * an;
      aj = t;
    }
  }
  for (long j = 0; j < n - 1; ++j) {
    recover(w[j], c, s);
    for (long i = 0; i < m; ++i) {
      double& aj = at(a, ld, i, j);
      double& an = at(a, ld, i, n - 1);
      const double t = c * aj + s * an;
      an = -s * aj + c * an;
      aj = t;
    }
  }
}

// The dogleg step: the convex combination x of the Gauss-Newton and the
// scaled gradient directions that minimises |R x - qtb| subject to
// |diag x| <= delta.  wa1 and wa2 are work arrays of length n.
void dogleg(long n, const double* r, const double* diag, const double* qtb, double delta,
            double* x, double* wa1, double* wa2) noexcept {
  const double epsmch = x02ajc();
  // Gauss-Newton direction; a zero diagonal element of R is replaced by a
  // small multiple of the largest element of its column.
  std::copy(qtb, qtb + n, x);
  blas1::tpsv_upper(n, r, x, [&](long j, double rjj) {
    if (rjj != 0.0) return rjj;
    const double t = epsmch * blas1::packed_column_amax(n, r, j);
    return t == 0.0 ? epsmch : t;
  });
  for (long j = 0; j < n; ++j) {
    wa1[j] = 0.0;
    wa2[j] = diag[j] * x[j];
  }
  const double qnorm = nrm2(n, wa2);
  if (qnorm <= delta) return;

  // Scaled gradient direction.
  blas1::tpmv_upper_trans(n, r, qtb, wa1);
  for (long j = 0; j < n; ++j) wa1[j] /= diag[j];
  const double gnorm = nrm2(n, wa1);
  double sgnorm = 0.0;
  double alpha = delta / qnorm;
  if (gnorm != 0.0) {
    // The minimiser of the quadratic along the scaled gradient.
    for (long j = 0; j < n; ++j) wa1[j] = wa1[j] / gnorm / diag[j];
    blas1::tpmv_upper(n, r, wa1, wa2);
    const double t = nrm2(n, wa2);
    sgnorm = gnorm / t / t;
    alpha = 0.0;
    if (sgnorm < delta) {
      // The minimiser along the dogleg.
      const double bnorm = nrm2(n, qtb);
      const double dq = delta / qnorm;
      const double sd = sgnorm / delta;
      double temp = bnorm / gnorm * (bnorm / qnorm) * sd;
      temp = temp - dq * sd * sd + std::sqrt((temp - dq) * (temp - dq) + (1.0 - dq * dq) * (1.0 - sd * sd));
      alpha = dq * (1.0 - sd * sd) / temp;
    }
  }
  const double temp = (1.0 - alpha) * std::min(sgnorm, delta);
  for (long j = 0; j < n; ++j) x[j] = temp * wa1[j] + alpha * x[j];
}

inline int32_t evaluate(const System& sys, long n, const double* x, double* fvec, double* fjac,
                        long ld, int32_t flag) {
  sys.eval(sys.ctx, n, x, fvec, fjac, ld, &flag);
  return flag;
}

}  // namespace

int32_t fdjac(const System& sys, long n, double* x, const double* fvec, double* fjac, long ld,
              long ml, long mu, double epsfcn, double* wa1, double* wa2, long& nfev) noexcept {
  const double eps = std::sqrt(std::max(epsfcn, x02ajc()));
  const long msum = ml + mu + 1;
  if (msum >= n) {
    for (long j = 0; j < n; ++j) {
      const double temp = x[j];
      double h = eps * std::fabs(temp);
      if (h == 0.0) h = eps;
      x[j] = temp + h;
      const int32_t flag = evaluate(sys, n, x, wa1, fjac, ld, 1);
      ++nfev;
      x[j] = temp;
      if (flag < 0) return flag;
      for (long i = 0; i < n; ++i) at(fjac, ld, i, j) = (wa1[i] - fvec[i]) / h;
    }
    return 1;
  }
  // Banded: columns msum apart do not overlap and share one evaluation.
  for (long k = 0; k < msum; ++k) {
    for (long j = k; j < n; j += msum) {
      wa2[j] = x[j];
      double h = eps * std::fabs(wa2[j]);
      if (h == 0.0) h = eps;
      x[j] = wa2[j] + h;
    }
    const int32_t flag = evaluate(sys, n, x, wa1, fjac, ld, 1);
    ++nfev;
    for (long j = k; j < n; j += msum) x[j] = wa2[j];
    if (flag < 0) return flag;
    for (long j = k; j < n; j += msum) {
      double h = eps * std::fabs(wa2[j]);
      if (h == 0.0) h = eps;
      for (long i = 0; i < n; ++i)
        at(fjac, ld, i, j) = (i >= j - mu && i <= j + ml) ? (wa1[i] - fvec[i]) / h : 0.0;
    }
  }
  return 1;
}

int solve(const System& sys, long n, double* x, double* fvec, double* fjac, long ld,
          const Options& opt, const Work& w, Counts& counts) noexcept {
  counts = Counts{};
  if (n <= 0 || ld < n || !(opt.xtol >= 0.0) || opt.maxfev <= 0 || opt.ml < 0 || opt.mu < 0 ||
      !(opt.factor > 0.0))
    return kNotRun;
  double* const diag = w.diag;
  double* const qtf = w.qtf;
  double* const wa1 = w.wa1;
  double* const wa2 = w.wa2;
  double* const wa3 = w.wa3;
  double* const wa4 = w.wa4;
  double* const r = w.r;
  if (opt.mode == 2)
    for (long j = 0; j < n; ++j)
      if (!(diag[j] > 0.0)) return kNotRun;

  const double epsmch = x02ajc();
  int status = kNotRun;
  int32_t iflag = evaluate(sys, n, x, fvec, fjac, ld, 1);
  counts.nfev = 1;
  double fnorm = nrm2(n, fvec);
  long iter = 1, ncsuc = 0, ncfail = 0, nslow1 = 0, nslow2 = 0;
  double xnorm = 0.0, delta = 0.0;

  while (iflag >= 0 && status == kNotRun) {
    // Outer loop: a fresh Jacobian and its QR factorisation.
    bool jeval = true;
    if (sys.analytic_jacobian) {
      iflag = evaluate(sys, n, x, fvec, fjac, ld, 2);
      ++counts.njev;
    } else {
      iflag = fdjac(sys, n, x, fvec, fjac, ld, opt.ml, opt.mu, opt.epsfcn, wa1, wa2, counts.nfev);
    }
    if (iflag < 0) break;
    qrfac(n, fjac, ld, wa1, wa2, wa3);

    if (iter == 1) {
      if (opt.mode != 2)
        for (long j = 0; j < n; ++j) diag[j] = (wa2[j] == 0.0) ? 1.0 : wa2[j];
      for (long j = 0; j < n; ++j) wa3[j] = diag[j] * x[j];
      xnorm = nrm2(n, wa3);
      delta = opt.factor * xnorm;
      if (delta == 0.0) delta = opt.factor;
    }

    // qtf = Q' fvec, with Q still in factored form.
    std::copy(fvec, fvec + n, qtf);
    for (long j = 0; j < n; ++j) {
      const double ujj = at(fjac, ld, j, j);
      if (ujj == 0.0) continue;
      const double sum = dot(n - j, &at(fjac, ld, j, j), ld, qtf + j, 1);
      axpy(n - j, -sum / ujj, &at(fjac, ld, j, j), ld, qtf + j, 1);
    }
    // R into r, by rows.
    for (long i = 0; i < n; ++i) {
      double* row = r + blas1::packed_diag(n, i);
      row[0] = wa1[i];
      for (long j = i + 1; j < n; ++j) row[j - i] = at(fjac, ld, i, j);
    }
    qform(n, fjac, ld, wa1, wa3);
    if (opt.mode != 2)
      for (long j = 0; j < n; ++j) diag[j] = std::max(diag[j], wa2[j]);

    for (;;) {
      // Inner loop: dogleg steps with Broyden updates of the factors.
      if (opt.nprint > 0 && (iter - 1) % opt.nprint == 0) {
        iflag = evaluate(sys, n, x, fvec, fjac, ld, 0);
        if (iflag < 0) break;
      }
      dogleg(n, r, diag, qtf, delta, wa1, wa2, wa3);
      for (long j = 0; j < n; ++j) {
        wa1[j] = -wa1[j];
        wa2[j] = x[j] + wa1[j];
        wa3[j] = diag[j] * wa1[j];
      }
      const double pnorm = nrm2(n, wa3);
      if (iter == 1) delta = std::min(delta, pnorm);

      iflag = evaluate(sys, n, wa2, wa4, fjac, ld, 1);
      ++counts.nfev;
      if (iflag < 0) break;
      const double fnorm1 = nrm2(n, wa4);

      // Actual and predicted reductions of the scaled residual.
      double actred = -1.0;
      if (fnorm1 < fnorm) actred = 1.0 - (fnorm1 / fnorm) * (fnorm1 / fnorm);
      blas1::tpmv_upper(n, r, wa1, wa3);
      for (long i = 0; i < n; ++i) wa3[i] += qtf[i];
      const double temp = nrm2(n, wa3);
      double prered = 1.0;
      if (temp < fnorm) prered = 1.0 - (temp / fnorm) * (temp / fnorm);
      const double ratio = (prered > 0.0) ? actred / prered : 0.0;

      // Step bound.
      if (ratio < 0.1) {
        ncsuc = 0;
        ++ncfail;
        delta *= 0.5;
      } else {
        ncfail = 0;
        ++ncsuc;
        if (ratio >= 0.5 || ncsuc > 1) delta = std::max(delta, 2.0 * pnorm);
        if (std::fabs(ratio - 1.0) <= 0.1) delta = 2.0 * pnorm;
      }

      if (ratio >= 1e-4) {  // successful step
        for (long j = 0; j < n; ++j) {
          x[j] = wa2[j];
          wa2[j] = diag[j] * x[j];
          fvec[j] = wa4[j];
        }
        xnorm = nrm2(n, wa2);
        fnorm = fnorm1;
        ++iter;
      }

      ++nslow1;
      if (actred >= 0.001) nslow1 = 0;
      if (jeval) ++nslow2;
      if (actred >= 0.1) nslow2 = 0;

      if (delta <= opt.xtol * xnorm || fnorm == 0.0 || pnorm == 0.0) {
        status = kSuccess;
        break;
      }
      if (counts.nfev >= opt.maxfev) status = kTooManyEvals;
      if (epsmch * xnorm >= delta) status = kXtolTooSmall;
      if (nslow2 == 5) status = kSlowJacobian;
      if (nslow1 == 10) status = kSlowIterations;
      if (status != kNotRun) break;

      if (ncfail == 2) break;  // recompute the Jacobian

      // Broyden rank-one update of R and Q, and of qtf after a success.
      for (long j = 0; j < n; ++j) wa2[j] = 0.0;
      for (long i = 0; i < n; ++i) axpy(n, wa4[i], &at(fjac, ld, i, 0), 1, wa2, 1);
      for (long j = 0; j < n; ++j) {
        const double sum = wa2[j];
        wa2[j] = (sum - wa3[j]) / pnorm;
        wa1[j] = diag[j] * (diag[j] * wa1[j] / pnorm);
        if (ratio >= 1e-4) qtf[j] = sum;
      }
      r1updt(n, r, wa1, wa2, wa3);
      r1mpyq(n, n, fjac, ld, wa2, wa3);
      r1mpyq(1, n, qtf, n, wa2, wa3);
      jeval = false;
    }
  }

  if (iflag < 0) status = iflag;
  if (opt.nprint > 0) evaluate(sys, n, x, fvec, fjac, ld, 0);
  return status;
}

}  // namespace zem::hybrid
