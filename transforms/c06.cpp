// The exported routines of the c06 chapter: argument checks, workspace and
// reports around the transform cores (transforms/transforms.hpp).
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <utility>

#include "frame/core_record.hpp"
#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "transforms/plan.hpp"
#include "transforms/roots.hpp"
#include "transforms/transforms.hpp"
#include "zem/c06.h"

namespace {

using zem::Call;
namespace fft = zem::fft;
namespace core = zem::core;

using Arrays = std::initializer_list<std::pair<const char*, const void*>>;

bool null_array(Call& call, Arrays arrays) {
  for (const auto& a : arrays)
    if (call.null(a.first, a.second)) return true;
  return false;
}

// The length rules of the single-sequence routines.
bool bad_single_length(Call& call, long n) {
  switch (fft::check_single(n)) {
    case fft::SingleStatus::Ok: return false;
    case fft::SingleStatus::PrimeTooLarge: call.report(NE_C06_FACTOR_GT); return true;
    case fft::SingleStatus::TooManyFactors:
      call.report(NE_C06_TOO_MANY_FACTORS, static_cast<long>(fft::kSingleMaxFactors));
      return true;
  }
  return false;
}

// A single-sequence routine: n >= 2, its arrays, the length rules; then the
// transform in place, with no workspace.
template <class Run>
void single(Call& call, int32_t n, Arrays arrays, Run&& run) {
  if (call.int_le("n", n, 1, "1")) return;
  if (null_array(call, arrays)) return;
  if (bad_single_length(call, n)) return;
  run(fft::make_plan(n));
  call.success();
}

// The two counts of a multiple-sequence routine are both tested: a second
// bad count is reported over the first.
bool bad_counts(Call& call, const char* mname, long m, const char* nname, long n) {
  const bool bad_m = call.int_lt(mname, m, 1, "1");
  const bool bad_n = call.int_lt(nname, n, 1, "1");
  return bad_m || bad_n;
}

bool bad_table(Call& call, const double* trig, long n) {
  if (fft::trig_matches(trig, n)) return false;
  call.report(NE_C06_NOT_TRIG);
  return true;
}

// A multiple-sequence routine: the counts, the arrays, the table; then the
// run with `work` doubles of workspace (none taken when zero).
template <class Run>
void multiple(Call& call, int32_t m, int32_t n, Arrays arrays, const double* trig, std::size_t work,
              Run&& run) {
  if (bad_counts(call, "m", m, "n", n)) return;
  if (null_array(call, arrays)) return;
  if (bad_table(call, trig, n)) return;
  if (work == 0) {
    run(nullptr);
  } else {
    zem::Workspace<double> w(work);
    if (!w) {
      call.report_null(NE_ALLOC_FAIL);
      return;
    }
    run(w.get());
  }
  call.success();
}

fft::RBatch side_by_side(double* x, long m) {
  return m == 1 ? fft::RBatch{x, 1, 1, 0} : fft::RBatch{x, m, m, 1};
}

bool bad_direction(Call& call, Zem_TransformDirection direct) {
  return call.enum_in("direct", direct, {Zem_ForwardTransform, Zem_BackwardTransform});
}

// ---------------------------------------------------------------------------
// The multidimensional routines: the core checks the dimensions and writes
// a failure record, which the table of each routine turns into its report.

constexpr core::Message kOneDimTable[] = {
    {99999, NE_INT, 1, "NE_INT:\n    On entry, ndim = %s.\nConstraint: ndim >= 1."},
    {99998, NE_INT_2, 2, "NE_INT_2:\n    On entry, l = %s, ndim = %s.\nConstraint: 1 <= l <= ndim."},
    {99996, NE_INT_2, 2, "NE_INT_2:\n    On entry, nd[i-1] = %s for i = %s.\nConstraint: nd[i-1] >= 1."},
    {99995, NE_INT_2, 2,
     "NE_INT_2:\n    On entry, n = %s and the product of the dimensions nd[i-1] is %s.\n"
     "Constraint: n = the product of nd[i-1], i = 1, 2, ..., ndim."},
    {99993, NE_INT, 1, "NE_INT:\n    nd[l-1] must have < 31 prime factors: nd[l-1] = %s."},
};

constexpr core::Message kAllDimTable[] = {
    {99999, NE_INT, 1, "NE_INT:\n    On entry, ndim = %s.\nConstraint: ndim >= 1."},
    {99997, NE_INT_2, 2, "NE_INT_2:\n    On entry, nd[i-1] = %s for i = %s.\nConstraint: nd[i-1] >= 1."},
    {99996, NE_INT_2, 2,
     "NE_INT_2:\n    On entry, n = %s and the product of the dimensions nd[i-1] is %s.\n"
     "Constraint: n = the product of nd[i-1], i = 1, 2, ..., ndim."},
    {99994, NE_INT_2, 2, "NE_INT_2:\n    nd[i-1] must have < 31 prime factors: nd[i-1] = %s for i = %s."},
};

constexpr core::Message kThreeDimTable[] = {
    {99999, NE_INT, 1, "NE_INT:\n    On entry, n1 = %s.\nConstraint: n1 >= 1."},
    {99998, NE_INT, 1, "NE_INT:\n    On entry, n2 = %s.\nConstraint: n2 >= 1."},
    {99997, NE_INT, 1, "NE_INT:\n    On entry, n3 = %s.\nConstraint: n3 >= 1."},
    {99994, NE_INT, 1, "NE_INT:\n    n1 must have less than 31 prime factors: n1 =%s."},
    {99993, NE_INT, 1, "NE_INT:\n    n2 must have less than 31 prime factors: n2 =%s."},
    {99992, NE_INT, 1, "NE_INT:\n    n3 must have less than 31 prime factors: n3 =%s."},
};

// Takes `work` doubles, runs the core with the failure record, reports.
template <class Core, std::size_t N>
void multidim(Call& call, std::size_t work, const core::Message (&table)[N], Core&& run) {
  zem::Workspace<double> w(work);
  if (!w) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  char rec[core::kRecordLen];
  std::memset(rec, 0, sizeof rec);
  const int ifail = run(w.get(), work, rec);
  if (ifail != 0) {
    core::report_failure(call, ifail, rec, table);
    return;
  }
  call.success();
}

// Product of nd[from .. to-1], or 0 when a dimension is not positive or the
// product passes 2^31 (the core then reports the dimensions).
long product(const int32_t nd[], long from, long to) {
  long p = 1;
  for (long i = from; i < to; ++i) {
    if (nd[i] < 1) return 0;
    p *= nd[i];
    if (p > (1L << 31)) return 0;
  }
  return p;
}

char direction_letter(Zem_TransformDirection direct) { return direct == Zem_BackwardTransform ? 'B' : 'F'; }

}  // namespace

extern "C" {

ZEM_API void c06eac(int32_t n, double x[], ZemError* fail) {
  Call call("c06eac", fail);
  single(call, n, {{"x", x}}, [&](const fft::Plan& plan) {
    fft::real_forward(plan, fft::RBatch{x, 1, 1, n}, nullptr, nullptr);
  });
}

ZEM_API void c06ebc(int32_t n, double x[], ZemError* fail) {
  Call call("c06ebc", fail);
  single(call, n, {{"x", x}}, [&](const fft::Plan& plan) {
    fft::hermitian_backward(plan, fft::RBatch{x, 1, 1, n}, nullptr, nullptr);
  });
}

ZEM_API void c06ecc(int32_t n, double x[], double y[], ZemError* fail) {
  Call call("c06ecc", fail);
  single(call, n, {{"x", x}, {"y", y}}, [&](const fft::Plan& plan) {
    fft::complex_transform(plan, fft::CBatch{x, y, 1, 1, n}, false, nullptr, nullptr);
  });
}

ZEM_API void c06ekc(Zem_FT_Operation operation, int32_t n, double x[], double y[], ZemError* fail) {
  Call call("c06ekc", fail);
  if (call.enum_in("operation", operation, {Zem_Convolution, Zem_Correlation})) return;
  single(call, n, {{"x", x}, {"y", y}}, [&](const fft::Plan& plan) {
    fft::convolve(plan, operation == Zem_Correlation, x, y);
  });
}

ZEM_API void c06fpc(int32_t m, int32_t n, double x[], const double trig[], ZemError* fail) {
  Call call("c06fpc", fail);
  const fft::Plan plan = fft::make_plan(n > 0 ? n : 1);
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, fft::scratch_doubles(plan, m), [&](double* work) {
    fft::real_forward(plan, side_by_side(x, m), trig, work);
  });
}

ZEM_API void c06fqc(int32_t m, int32_t n, double x[], const double trig[], ZemError* fail) {
  Call call("c06fqc", fail);
  const fft::Plan plan = fft::make_plan(n > 0 ? n : 1);
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, fft::scratch_doubles(plan, m), [&](double* work) {
    fft::hermitian_backward(plan, side_by_side(x, m), trig, work);
  });
}

ZEM_API void c06frc(int32_t m, int32_t n, double x[], double y[], const double trig[], ZemError* fail) {
  Call call("c06frc", fail);
  const fft::Plan plan = fft::make_plan(n > 0 ? n : 1);
  multiple(call, m, n, {{"x", x}, {"y", y}, {"trig", trig}}, trig, fft::scratch_doubles(plan, 2 * m),
           [&](double* work) {
             const fft::CBatch b = m == 1 ? fft::CBatch{x, y, 1, 1, 0} : fft::CBatch{x, y, m, m, 1};
             fft::complex_transform(plan, b, false, trig, work);
           });
}

ZEM_API void c06fuc(int32_t m, int32_t n, double x[], double y[], const double trigm[], const double trign[],
                    ZemError* fail) {
  Call call("c06fuc", fail);
  if (bad_counts(call, "m", m, "n", n)) return;
  if (null_array(call, {{"x", x}, {"y", y}, {"trigm", trigm}, {"trign", trign}})) return;
  if (bad_table(call, trigm, m) || bad_table(call, trign, n)) return;
  const fft::Plan pm = fft::make_plan(m), pn = fft::make_plan(n);
  const std::size_t work = std::max(fft::scratch_doubles(pm, 2 * n), fft::scratch_doubles(pn, 2));
  zem::Workspace<double> w(work);
  if (work > 0 && !w) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  // Columns (length m, n of them side by side), then rows (length n).
  const fft::CBatch cols = n == 1 ? fft::CBatch{x, y, 1, 1, 0} : fft::CBatch{x, y, n, n, 1};
  fft::complex_transform(pm, cols, false, trigm, w.get());
  fft::complex_transform(pn, fft::CBatch{x, y, 1, m, n}, false, trign, w.get());
  call.success();
}

ZEM_API void c06fpz(int32_t n, int32_t factors[], ZemError* fail) {
  Call call("c06fpz", fail);
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.null("factors", factors)) return;
  fft::trial_factors(n, factors);
  call.success();
}

ZEM_API void c06gbc(int32_t n, double x[], ZemError* fail) {
  Call call("c06gbc", fail);
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.null("x", x)) return;
  for (long j = (n + 4L) / 2 - 1; j < n; ++j) x[j] = -x[j];
  call.success();
}

ZEM_API void c06gcc(int32_t n, double y[], ZemError* fail) {
  Call call("c06gcc", fail);
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.null("y", y)) return;
  for (long j = 0; j < n; ++j) y[j] = -y[j];
  call.success();
}

ZEM_API void c06gqc(int32_t m, int32_t n, double x[], ZemError* fail) {
  Call call("c06gqc", fail);
  if (bad_counts(call, "m", m, "n", n)) return;
  if (call.null("x", x)) return;
  // The count of values in 32-bit arithmetic: a product that wraps to a
  // non-positive value leaves the data alone.
  const auto total = static_cast<int32_t>(static_cast<uint32_t>(m) * static_cast<uint32_t>(n));
  if (total >= 1)
    for (long j = (n + 4L) / 2 - 1; j < n; ++j)
      for (long p = 0; p < m; ++p) x[j * m + p] = -x[j * m + p];
  call.success();
}

ZEM_API void c06gsc(int32_t m, int32_t n, const double x[], double u[], double v[], ZemError* fail) {
  Call call("c06gsc", fail);
  if (bad_counts(call, "m", m, "n", n)) return;
  if (null_array(call, {{"x", x}, {"u", u}, {"v", v}})) return;
  const long mm = m;
  for (long p = 0; p < mm; ++p) {
    u[p] = x[p];
    v[p] = 0.0;
  }
  for (long k = 1; 2 * k < n; ++k)
    for (long p = 0; p < mm; ++p) {
      const double re = x[k * mm + p], im = x[(n - k) * mm + p];
      u[k * mm + p] = re;
      v[k * mm + p] = im;
      u[(n - k) * mm + p] = re;
      v[(n - k) * mm + p] = -im;
    }
  if (n % 2 == 0 && n > 0)
    for (long p = 0; p < mm; ++p) {
      u[(n / 2) * mm + p] = x[(n / 2) * mm + p];
      v[(n / 2) * mm + p] = 0.0;
    }
  call.success();
}

ZEM_API void c06gzc(int32_t n, double trig[], ZemError* fail) {
  Call call("c06gzc", fail);
  if (call.int_lt("n", n, 1, "1")) return;
  if (call.null("trig", trig)) return;
  fft::fill_trig(fft::make_plan(n), trig);
  call.success();
}

ZEM_API void c06hac(int32_t m, int32_t n, double x[], const double trig[], ZemError* fail) {
  Call call("c06hac", fail);
  const std::size_t work = m > 0 && n > 0 ? fft::trig_work(fft::TrigKind::Sine, m, n) : 1;
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, work, [&](double* w) {
    fft::trig_transform(fft::TrigKind::Sine, false, m, n, x, trig, w);
  });
}

ZEM_API void c06hbc(int32_t m, int32_t n, double x[], const double trig[], ZemError* fail) {
  Call call("c06hbc", fail);
  const std::size_t work = m > 0 && n > 0 ? fft::trig_work(fft::TrigKind::Cosine, m, n) : 1;
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, work, [&](double* w) {
    fft::trig_transform(fft::TrigKind::Cosine, false, m, n, x, trig, w);
  });
}

ZEM_API void c06hcc(Zem_TransformDirection direct, int32_t m, int32_t n, double x[], const double trig[],
                    ZemError* fail) {
  Call call("c06hcc", fail);
  if (bad_direction(call, direct)) return;
  const std::size_t work = m > 0 && n > 0 ? fft::trig_work(fft::TrigKind::QuarterSine, m, n) : 1;
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, work, [&](double* w) {
    fft::trig_transform(fft::TrigKind::QuarterSine, direct == Zem_BackwardTransform, m, n, x, trig, w);
  });
}

ZEM_API void c06hdc(Zem_TransformDirection direct, int32_t m, int32_t n, double x[], const double trig[],
                    ZemError* fail) {
  Call call("c06hdc", fail);
  if (bad_direction(call, direct)) return;
  const std::size_t work = m > 0 && n > 0 ? fft::trig_work(fft::TrigKind::QuarterCosine, m, n) : 1;
  multiple(call, m, n, {{"x", x}, {"trig", trig}}, trig, work, [&](double* w) {
    fft::trig_transform(fft::TrigKind::QuarterCosine, direct == Zem_BackwardTransform, m, n, x, trig, w);
  });
}

ZEM_API void c06pfc(Zem_TransformDirection direct, int32_t ndim, int32_t l, const int32_t nd[], int32_t n,
                    ZemComplex x[], ZemError* fail) {
  Call call("c06pfc", fail);
  if (bad_direction(call, direct)) return;
  if (null_array(call, {{"nd", nd}, {"x", x}})) return;
  std::size_t work = 1;
  if (ndim >= 1 && l >= 1 && l <= ndim && nd[l - 1] >= 1) {
    const long inner = product(nd, l, ndim);
    if (inner > 0) work = fft::dimension_work(nd[l - 1], inner);
  }
  multidim(call, work, kOneDimTable, [&](double* w, std::size_t lwork, char* rec) {
    return fft::core_one_dimension(direction_letter(direct), ndim, l, nd, n, &x[0].re, w, lwork, rec);
  });
}

ZEM_API void c06pjc(Zem_TransformDirection direct, int32_t ndim, const int32_t nd[], int32_t n, ZemComplex x[],
                    ZemError* fail) {
  Call call("c06pjc", fail);
  if (bad_direction(call, direct)) return;
  if (null_array(call, {{"nd", nd}, {"x", x}})) return;
  std::size_t work = 1;
  if (ndim >= 1 && product(nd, 0, ndim) > 0) {
    long inner = product(nd, 0, ndim);
    for (long i = 0; i < ndim; ++i) {
      inner /= nd[i];
      work = std::max(work, fft::dimension_work(nd[i], inner));
    }
  }
  multidim(call, work, kAllDimTable, [&](double* w, std::size_t lwork, char* rec) {
    return fft::core_all_dimensions(direction_letter(direct), ndim, nd, n, &x[0].re, w, lwork, rec);
  });
}

ZEM_API void c06pxc(Zem_TransformDirection direct, int32_t n1, int32_t n2, int32_t n3, ZemComplex x[],
                    ZemError* fail) {
  Call call("c06pxc", fail);
  if (bad_direction(call, direct)) return;
  if (call.null("x", x)) return;
  std::size_t work = 1;
  if (n1 >= 1 && n2 >= 1 && n3 >= 1)
    work = std::max({fft::dimension_work(n1, static_cast<long>(n2) * n3), fft::dimension_work(n2, n3),
                     fft::dimension_work(n3, 1)});
  multidim(call, work, kThreeDimTable, [&](double* w, std::size_t lwork, char* rec) {
    return fft::core_three_dimensions(direction_letter(direct), n1, n2, n3, &x[0].re, w, lwork, rec);
  });
}

}  // extern "C"
