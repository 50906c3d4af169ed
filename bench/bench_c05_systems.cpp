// c05nbc against GSL's scaled hybrid solver (hybrids, the same Powell
// method with a difference Jacobian) on the More-Garbow-Hillstrom systems
// from their standard starts: evaluations per problem and in total, and
// time over the whole set.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_multiroots.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "bench/bench_c05_common.hpp"
#include "tests/zeros/test_c05_problems.hpp"
#include "zem/c05.h"

namespace {

const double kXtol = 1e-10;
const c05test::SystemCase* g_case = nullptr;
long g_evals = 0;

struct Outcome {
  long evals;
  double fnorm;
  bool ok;
};

void zem_f(int32_t n, const double x[], double fvec[], int32_t*) {
  ++g_evals;
  c05test::system_f(g_case->prob, n, x, fvec);
}

int gsl_f(const gsl_vector* x, void* p, gsl_vector* f) {
  ++g_evals;
  auto* c = static_cast<const c05test::SystemCase*>(p);
  c05test::system_f(c->prob, c->n, x->data, f->data);
  return GSL_SUCCESS;
}

double norm(const double* v, int n) {
  double s = 0;
  for (int i = 0; i < n; ++i) s += v[i] * v[i];
  return std::sqrt(s);
}

Outcome run_zem(const c05test::SystemCase& c) {
  std::vector<double> x(c.n), f(c.n);
  c05test::start_point(c.prob, c.n, c.factor, x.data());
  g_case = &c;
  g_evals = 0;
  ZemError fail{};
  c05nbc(c.n, x.data(), f.data(), zem_f, kXtol, &fail);
  return {g_evals, norm(f.data(), c.n), fail.code == 0};
}

Outcome run_gsl(const c05test::SystemCase& c) {
  gsl_multiroot_function F{gsl_f, size_t(c.n), const_cast<c05test::SystemCase*>(&c)};
  gsl_vector* x = gsl_vector_alloc(c.n);
  c05test::start_point(c.prob, c.n, c.factor, x->data);
  gsl_multiroot_fsolver* s = gsl_multiroot_fsolver_alloc(gsl_multiroot_fsolver_hybrids, c.n);
  g_evals = 0;
  gsl_multiroot_fsolver_set(s, &F, x);
  int status = GSL_CONTINUE;
  const long limit = 200L * (c.n + 1);
  while (status == GSL_CONTINUE && g_evals < limit) {
    if (gsl_multiroot_fsolver_iterate(s) != GSL_SUCCESS) break;
    status = gsl_multiroot_test_delta(s->dx, s->x, 0.0, kXtol);
    if (status == GSL_CONTINUE && gsl_multiroot_test_residual(s->f, 0.0) == GSL_SUCCESS)
      status = GSL_SUCCESS;
  }
  Outcome o{g_evals, norm(s->f->data, c.n), status == GSL_SUCCESS};
  gsl_multiroot_fsolver_free(s);
  gsl_vector_free(x);
  return o;
}

std::vector<c05test::SystemCase> cases() {
  std::vector<c05test::SystemCase> out;
  for (const auto& c : c05test::system_cases())
    if (c.factor == 1.0) out.push_back(c);
  return out;
}

void BM_c05nbc(benchmark::State& st) {
  const auto cs = cases();
  for (auto _ : st)
    for (const auto& c : cs) benchmark::DoNotOptimize(run_zem(c));
}
void BM_gsl_hybrids(benchmark::State& st) {
  const auto cs = cases();
  for (auto _ : st)
    for (const auto& c : cs) benchmark::DoNotOptimize(run_gsl(c));
}
BENCHMARK(BM_c05nbc);
BENCHMARK(BM_gsl_hybrids);

}  // namespace

int main(int argc, char** argv) {
  gsl_set_error_handler_off();
  benchmark::Initialize(&argc, argv);
  c05bench::KeepTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);

  std::printf("\n%-28s %3s   %8s %10s   %8s %10s\n", "problem", "n", "c05nbc", "|f|", "GSL", "|f|");
  long tz = 0, tg = 0, bz = 0, bg = 0;
  int solved_z = 0, solved_g = 0;
  for (const auto& c : cases()) {
    const Outcome z = run_zem(c), g = run_gsl(c);
    std::printf("%-28s %3d   %8ld %10.2e   %8ld %10.2e\n", c.name, c.n, z.evals, z.fnorm, g.evals,
                g.fnorm);
    tz += z.evals;
    tg += g.evals;
    solved_z += z.fnorm < 1e-8;
    solved_g += g.fnorm < 1e-8;
    if (z.fnorm < 1e-8 && g.fnorm < 1e-8) {
      bz += z.evals;
      bg += g.evals;
    }
  }
  std::printf("\ntotal evaluations: c05nbc %ld, GSL hybrids %ld, ratio %.3f\n", tz, tg, double(tz) / tg);
  std::printf("on problems both solve (|f| < 1e-8): c05nbc %ld, GSL %ld, ratio %.3f\n", bz, bg,
              double(bz) / bg);
  std::printf("solved to |f| < 1e-8: c05nbc %d, GSL %d of %zu\n", solved_z, solved_g, cases().size());
  if (rep.times.count("BM_c05nbc") && rep.times.count("BM_gsl_hybrids"))
    std::printf("time ratio c05nbc / GSL hybrids: %.3f\n",
                rep.times["BM_c05nbc"] / rep.times["BM_gsl_hybrids"]);
  return 0;
}
