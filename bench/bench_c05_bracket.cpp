// c05adc against GSL's Brent solver on the bracketing test set (Alefeld,
// Potra and Shi's problems and a few simple ones), with the same absolute
// tolerance on the final bracket: evaluations and time.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_roots.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "bench/bench_c05_common.hpp"
#include "tests/zeros/test_c05_problems.hpp"
#include "zem/c05.h"

namespace {

const double kXtol = 1e-12;
std::vector<c05test::ScalarCase> g_cases;
const c05test::ScalarCase* g_case = nullptr;
long g_evals = 0;

double zem_f(double x) {
  ++g_evals;
  return c05test::scalar_f(g_case->fam, g_case->n, x);
}
double gsl_f(double x, void* p) {
  ++g_evals;
  auto* c = static_cast<const c05test::ScalarCase*>(p);
  return c05test::scalar_f(c->fam, c->n, x);
}

// One pass over the set; returns the evaluations and the worst error.
long run_zem(double& worst) {
  long total = 0;
  worst = 0;
  for (const auto& c : g_cases) {
    g_case = &c;
    g_evals = 0;
    ZemError fail{};
    double x = 0;
    c05adc(c.a, c.b, &x, zem_f, kXtol, 0.0, &fail);
    total += g_evals;
    if (c.fam != 13) worst = std::fmax(worst, std::fabs(x - c.root));
  }
  return total;
}

long run_gsl(double& worst, gsl_root_fsolver* s) {
  long total = 0;
  worst = 0;
  for (const auto& c : g_cases) {
    gsl_function F{gsl_f, const_cast<c05test::ScalarCase*>(&c)};
    g_evals = 0;
    gsl_root_fsolver_set(s, &F, c.a, c.b);
    int status = GSL_CONTINUE;
    double x = 0;
    for (int it = 0; it < 1000 && status == GSL_CONTINUE; ++it) {
      if (gsl_root_fsolver_iterate(s) != GSL_SUCCESS) break;
      x = gsl_root_fsolver_root(s);
      status = gsl_root_test_interval(gsl_root_fsolver_x_lower(s), gsl_root_fsolver_x_upper(s),
                                      kXtol, 0.0);
    }
    total += g_evals;
    if (c.fam != 13) worst = std::fmax(worst, std::fabs(x - c.root));
  }
  return total;
}

void BM_c05adc(benchmark::State& st) {
  double worst;
  long evals = 0;
  for (auto _ : st) evals = run_zem(worst);
  st.counters["evaluations"] = double(evals);
}
void BM_gsl_brent(benchmark::State& st) {
  gsl_root_fsolver* s = gsl_root_fsolver_alloc(gsl_root_fsolver_brent);
  double worst;
  long evals = 0;
  for (auto _ : st) evals = run_gsl(worst, s);
  st.counters["evaluations"] = double(evals);
  gsl_root_fsolver_free(s);
}
BENCHMARK(BM_c05adc);
BENCHMARK(BM_gsl_brent);

}  // namespace

int main(int argc, char** argv) {
  gsl_set_error_handler_off();
  g_cases = c05test::load_scalar_cases(std::string(ZEM_TEST_DATA) + "/c05_bracket_roots.txt");
  if (g_cases.empty()) {
    std::fprintf(stderr, "no test cases found\n");
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  c05bench::KeepTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);

  double wz, wg;
  gsl_root_fsolver* s = gsl_root_fsolver_alloc(gsl_root_fsolver_brent);
  const long ez = run_zem(wz), eg = run_gsl(wg, s);
  gsl_root_fsolver_free(s);
  std::printf("\n%zu problems, absolute tolerance %.0e on the bracket\n", g_cases.size(), kXtol);
  std::printf("evaluations: c05adc %ld, GSL brent %ld, ratio %.3f\n", ez, eg, double(ez) / eg);
  std::printf("largest error: c05adc %.2e, GSL brent %.2e\n", wz, wg);
  if (rep.times.count("BM_c05adc") && rep.times.count("BM_gsl_brent"))
    std::printf("time ratio c05adc / GSL brent: %.3f\n",
                rep.times["BM_c05adc"] / rep.times["BM_gsl_brent"]);
  return 0;
}
