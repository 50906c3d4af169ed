#include "transforms/transforms.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "frame/core_record.hpp"
#include "transforms/roots.hpp"

namespace zem::fft {

namespace {

constexpr double kSqrtHalf = 0.70710678118654752440084436210485;
constexpr double kSqrt2 = 1.4142135623730950488016887242097;

double inv_sqrt(long n) { return 1.0 / std::sqrt(static_cast<double>(n)); }

// Batch of m real sequences side by side: element j of sequence p at
// a[j*m + p].
RBatch across(double* a, long m) { return m == 1 ? RBatch{a, 1, 1, 0} : RBatch{a, m, m, 1}; }

}  // namespace

void real_forward(const Plan& plan, const RBatch& b, const double* trig, double* scratch) noexcept {
  engine().real(plan, b, trig, inv_sqrt(plan.n), scratch);
}

void hartley_fold(const RBatch& b, long n) noexcept {
  if (b.cs == 1 && b.count > 1) {
    // Sequences side by side: whole rows at once.
    for (long k = 1; 2 * k < n; ++k) {
      double* lo = b.a + k * b.es;
      double* hi = b.a + (n - k) * b.es;
      for (long p = 0; p < b.count; ++p) {
        const double u = lo[p], v = hi[p];
        lo[p] = u - v;
        hi[p] = u + v;
      }
    }
    return;
  }
  for (long c = 0; c < b.count; ++c) {
    double* a = b.a + c * b.cs;
    for (long k = 1; 2 * k < n; ++k) {
      const double u = a[k * b.es], v = a[(n - k) * b.es];
      a[k * b.es] = u - v;
      a[(n - k) * b.es] = u + v;
    }
  }
}

void hermitian_backward(const Plan& plan, const RBatch& b, const double* trig, double* scratch) noexcept {
  // With h the Hartley image of X (h_k = Re X_k - Im X_k), the backward
  // transform of X is the Hartley image of the forward transform of h.
  hartley_fold(b, plan.n);
  real_forward(plan, b, trig, scratch);
  hartley_fold(b, plan.n);
}

void complex_transform(const Plan& plan, const CBatch& b, bool backward, const double* trig,
                       double* scratch) noexcept {
  engine().complex(plan, b, backward, trig, inv_sqrt(plan.n), scratch);
}

void convolve(const Plan& plan, bool correlation, double* x, double* y) noexcept {
  const long n = plan.n;
  real_forward(plan, RBatch{x, 1, 1, n}, nullptr, nullptr);
  real_forward(plan, RBatch{y, 1, 1, n}, nullptr, nullptr);
  // With X, Y the scaled transforms of x and y, the scaled transform of
  // the result is X Y / sqrt(n) (correlation: conj(X) Y / sqrt(n)), which
  // the backward transform then turns into the result.
  const double s = inv_sqrt(n);
  x[0] = x[0] * y[0] * s;
  for (long k = 1; 2 * k < n; ++k) {
    const double ar = x[k], ai = x[n - k], br = y[k], bi = y[n - k];
    if (correlation) {
      x[k] = (ar * br + ai * bi) * s;
      x[n - k] = (ar * bi - ai * br) * s;
    } else {
      x[k] = (ar * br - ai * bi) * s;
      x[n - k] = (ar * bi + ai * br) * s;
    }
  }
  if (n % 2 == 0) x[n / 2] = x[n / 2] * y[n / 2] * s;
  hermitian_backward(plan, RBatch{x, 1, 1, n}, nullptr, nullptr);
}

// ---------------------------------------------------------------------------
// Sine and cosine transforms.

std::size_t trig_work(TrigKind kind, long m, long n) noexcept {
  const bool extended = kind == TrigKind::Sine || kind == TrigKind::Cosine;
  const long len = extended ? 2 * n : n;
  return static_cast<std::size_t>(m) * static_cast<std::size_t>(len) + scratch_doubles(make_plan(len), m) + 1;
}

namespace {

// Sine and cosine transforms of the first kind through the forward real
// transform of the odd or even extension to length 2n.
void first_kind(bool sine, long m, long n, double* x, double* work) {
  const long len = 2 * n;
  const Plan plan = make_plan(len);
  double* y = work;
  double* scratch = work + m * len;
  for (long p = 0; p < m; ++p) {
    y[p] = sine ? 0.0 : x[p];
    y[n * m + p] = sine ? 0.0 : x[n * m + p];
  }
  for (long j = 1; j < n; ++j)
    for (long p = 0; p < m; ++p) {
      const double v = x[j * m + p];
      y[j * m + p] = v;
      y[(len - j) * m + p] = sine ? -v : v;
    }
  // The scale 1/sqrt(2n) of the transform makes the result exactly:
  // sine: x^_k = -Im Y_k (at len - k); cosine: x^_k = Re Y_k (at k).
  real_forward(plan, across(y, m), nullptr, scratch);
  if (sine) {
    for (long p = 0; p < m; ++p) x[p] = 0.0;
    for (long k = 1; k < n; ++k)
      for (long p = 0; p < m; ++p) x[k * m + p] = -y[(len - k) * m + p];
  } else {
    for (long k = 0; k <= n; ++k)
      for (long p = 0; p < m; ++p) x[k * m + p] = y[k * m + p];
  }
}

// exp(+i pi j / 2n) = conj(exp(-2 pi i j / 4n)).
struct QuarterRoots {
  Roots r;
  explicit QuarterRoots(long n) : r(4 * n) {}
  Cplx operator()(long j) const {
    const Cplx w = r(j);
    return {w.re, -w.im};
  }
};

// Quarter-wave cosine, forward (the type-III cosine transform): the
// Hermitian sequence V_j = exp(i pi j / 2n) (x_j - i x_{n-j}) transformed
// backward gives the even terms in its first half and the odd terms,
// reversed, in its second half (Makhoul's ordering), all times sqrt(2).
void quarter_cosine_forward(long m, long n, double* x, const double* trig, double* work) {
  const Plan plan = make_plan(n);
  double* h = work;
  double* scratch = work + m * n;
  const QuarterRoots e(n);
  for (long p = 0; p < m; ++p) h[p] = x[p];
  for (long j = 1; 2 * j < n; ++j) {
    const Cplx c = e(j);
    for (long p = 0; p < m; ++p) {
      const double a = x[j * m + p], b = x[(n - j) * m + p];
      h[j * m + p] = c.re * a + c.im * b;
      h[(n - j) * m + p] = c.im * a - c.re * b;
    }
  }
  if (n % 2 == 0)
    for (long p = 0; p < m; ++p) h[(n / 2) * m + p] = kSqrt2 * x[(n / 2) * m + p];
  hermitian_backward(plan, across(h, m), trig, scratch);
  for (long t = 0; 2 * t < n; ++t)
    for (long p = 0; p < m; ++p) x[2 * t * m + p] = h[t * m + p] * kSqrtHalf;
  for (long t = 0; 2 * t + 1 < n; ++t)
    for (long p = 0; p < m; ++p) x[(2 * t + 1) * m + p] = h[(n - 1 - t) * m + p] * kSqrtHalf;
}

// Quarter-wave cosine, backward (the type-II cosine transform): reorder
// (even terms ascending, odd terms descending), transform forward, and
// rotate term j by exp(-i pi j / 2n), keeping the real part.
void quarter_cosine_backward(long m, long n, double* x, const double* trig, double* work) {
  const Plan plan = make_plan(n);
  double* v = work;
  double* scratch = work + m * n;
  for (long t = 0; 2 * t < n; ++t)
    for (long p = 0; p < m; ++p) v[t * m + p] = x[2 * t * m + p];
  for (long t = 0; 2 * t + 1 < n; ++t)
    for (long p = 0; p < m; ++p) v[(n - 1 - t) * m + p] = x[(2 * t + 1) * m + p];
  real_forward(plan, across(v, m), trig, scratch);
  const QuarterRoots e(n);
  for (long p = 0; p < m; ++p) x[p] = kSqrt2 * v[p];
  for (long j = 1; j < n; ++j) {
    const Cplx c = e(j);
    const bool lower = 2 * j <= n;
    for (long p = 0; p < m; ++p) {
      // Term j of the transform: from the Hermitian layout, or through the
      // conjugate of term n - j.
      const double re = lower ? v[j * m + p] : v[(n - j) * m + p];
      const double im = 2 * j == n ? 0.0 : (lower ? v[(n - j) * m + p] : -v[j * m + p]);
      x[j * m + p] = kSqrt2 * (c.re * re + c.im * im);
    }
  }
}

void reverse_rows(long m, long n, double* x) {
  for (long i = 0, j = n - 1; i < j; ++i, --j)
    for (long p = 0; p < m; ++p) std::swap(x[i * m + p], x[j * m + p]);
}

void negate_odd_rows(long m, long n, double* x) {
  for (long i = 1; i < n; i += 2)
    for (long p = 0; p < m; ++p) x[i * m + p] = -x[i * m + p];
}

}  // namespace

void trig_transform(TrigKind kind, bool backward, long m, long n, double* x, const double* trig,
                    double* work) noexcept {
  switch (kind) {
    case TrigKind::Sine:
      first_kind(true, m, n, x, work);
      break;
    case TrigKind::Cosine:
      first_kind(false, m, n, x, work);
      break;
    case TrigKind::QuarterCosine:
      if (backward) quarter_cosine_backward(m, n, x, trig, work);
      else quarter_cosine_forward(m, n, x, trig, work);
      break;
    case TrigKind::QuarterSine:
      // sin(pi j (2k-1) / 2n) = (-1)^(k-1) cos(pi (n-j) (2k-1) / 2n): the
      // quarter-wave sine transform is the cosine one between a reversal of
      // the terms and a change of sign of every other term.
      if (backward) {
        negate_odd_rows(m, n, x);
        quarter_cosine_backward(m, n, x, trig, work);
        reverse_rows(m, n, x);
      } else {
        reverse_rows(m, n, x);
        quarter_cosine_forward(m, n, x, trig, work);
        negate_odd_rows(m, n, x);
      }
      break;
  }
}

// ---------------------------------------------------------------------------
// Multidimensional cores.

namespace {

constexpr int kMaxPrimeFactors = 31;  // a dimension must have fewer

// One dimension of length nd[d] of the row-major array: the dimensions
// after it are `inner` sequences side by side, those before it `outer`
// such blocks.
void transform_dimension(bool backward, long outer, long len, long inner, double* x, double* work) {
  if (len == 1) return;
  const Plan plan = make_plan(len);
  double* trig = work;  // a table for the length, shared by all blocks
  double* scratch = work + 2 * len;
  fill_trig(plan, trig);
  if (inner == 1) {
    complex_transform(plan, CBatch{x, nullptr, 1, outer, len}, backward, trig, scratch);
    return;
  }
  for (long o = 0; o < outer; ++o)
    complex_transform(plan, CBatch{x + 2 * o * len * inner, nullptr, inner, inner, 1}, backward, trig, scratch);
}

int finish(int ierror, const char* name) {
  // Soft and silent: the exported wrapper reads the record.
  return core::advisory_exit(1, ierror, name, 0, nullptr, core::ExitKind::Core);
}

}  // namespace

std::size_t dimension_work(long len, long inner) noexcept {
  return static_cast<std::size_t>(2 * len) + scratch_doubles(make_plan(len), 2 * inner) + 1;
}

int core_one_dimension(char direct, long ndim, long l, const int32_t nd[], long n, double* x,
                       double* work, std::size_t lwork, char rec[]) noexcept {
  static const char* name = "C06PFF";
  core::record_none(rec);
  auto fail = [&](int msgno, std::initializer_list<core::Field> v) {
    const int ierror = 100000 - msgno;
    core::record_failure(rec, name, ierror, msgno, v);
    return finish(ierror, name);
  };
  if (ndim < 1) return fail(99999, {core::int_field(ndim)});
  if (l < 1 || l > ndim) return fail(99998, {core::int_field(l), core::int_field(ndim)});
  if (direct != 'F' && direct != 'B') return fail(99997, {core::letter_field(direct)});
  long prod = 1;
  for (long i = 0; i < ndim; ++i) {
    if (nd[i] < 1) return fail(99996, {core::int_field(nd[i]), core::int_field(i + 1)});
    prod = prod > (1L << 40) ? prod : prod * nd[i];
  }
  if (prod != n) return fail(99995, {core::int_field(n), core::int_field(prod)});
  long outer = 1, inner = 1;
  for (long i = 0; i < l - 1; ++i) outer *= nd[i];
  for (long i = l; i < ndim; ++i) inner *= nd[i];
  const long len = nd[l - 1];
  if (lwork < dimension_work(len, inner)) return fail(99994, {core::int_field(static_cast<long>(lwork))});
  if (prime_factor_count(len) >= kMaxPrimeFactors) return fail(99993, {core::int_field(len)});
  transform_dimension(direct == 'B', outer, len, inner, x, work);
  return 0;
}

int core_all_dimensions(char direct, long ndim, const int32_t nd[], long n, double* x, double* work,
                        std::size_t lwork, char rec[]) noexcept {
  static const char* name = "C06PJF";
  core::record_none(rec);
  auto fail = [&](int msgno, std::initializer_list<core::Field> v) {
    const int ierror = 100000 - msgno;
    core::record_failure(rec, name, ierror, msgno, v);
    return finish(ierror, name);
  };
  if (ndim < 1) return fail(99999, {core::int_field(ndim)});
  if (direct != 'F' && direct != 'B') return fail(99998, {core::letter_field(direct)});
  long prod = 1;
  for (long i = 0; i < ndim; ++i) {
    if (nd[i] < 1) return fail(99997, {core::int_field(nd[i]), core::int_field(i + 1)});
    prod = prod > (1L << 40) ? prod : prod * nd[i];
  }
  if (prod != n) return fail(99996, {core::int_field(n), core::int_field(prod)});
  std::size_t need = 0;
  long inner = n;
  for (long i = 0; i < ndim; ++i) {
    inner /= nd[i];
    need = std::max(need, dimension_work(nd[i], inner));
  }
  if (lwork < need) return fail(99995, {core::int_field(static_cast<long>(lwork))});
  for (long i = 0; i < ndim; ++i)
    if (prime_factor_count(nd[i]) >= kMaxPrimeFactors)
      return fail(99994, {core::int_field(nd[i]), core::int_field(i + 1)});
  long outer = 1;
  inner = n;
  for (long i = 0; i < ndim; ++i) {
    inner /= nd[i];
    transform_dimension(direct == 'B', outer, nd[i], inner, x, work);
    outer *= nd[i];
  }
  return 0;
}

int core_three_dimensions(char direct, long n1, long n2, long n3, double* x, double* work,
                          std::size_t lwork, char rec[]) noexcept {
  static const char* name = "C06PXF";
  core::record_none(rec);
  auto fail = [&](int msgno, std::initializer_list<core::Field> v) {
    const int ierror = 100000 - msgno;
    core::record_failure(rec, name, ierror, msgno, v);
    return finish(ierror, name);
  };
  if (n1 < 1) return fail(99999, {core::int_field(n1)});
  if (n2 < 1) return fail(99998, {core::int_field(n2)});
  if (n3 < 1) return fail(99997, {core::int_field(n3)});
  if (direct != 'F' && direct != 'B') return fail(99996, {core::letter_field(direct)});
  const std::size_t need =
      std::max({dimension_work(n1, n2 * n3), dimension_work(n2, n3), dimension_work(n3, 1)});
  if (lwork < need) return fail(99995, {core::int_field(static_cast<long>(lwork))});
  if (prime_factor_count(n1) >= kMaxPrimeFactors) return fail(99994, {core::int_field(n1)});
  if (prime_factor_count(n2) >= kMaxPrimeFactors) return fail(99993, {core::int_field(n2)});
  if (prime_factor_count(n3) >= kMaxPrimeFactors) return fail(99992, {core::int_field(n3)});
  const bool backward = direct == 'B';
  transform_dimension(backward, 1, n1, n2 * n3, x, work);
  transform_dimension(backward, n1, n2, n3, x, work);
  transform_dimension(backward, n1 * n2, n3, 1, x, work);
  return 0;
}

}  // namespace zem::fft
