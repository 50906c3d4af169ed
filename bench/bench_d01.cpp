// d01ajc against GSL's QAGS (gsl_integration_qags) on the finite-range
// integrals of the test battery (tests/data/d01_battery.txt) at relative
// tolerances 1e-4, 1e-7 and 1e-10, with the same limit of subintervals:
// evaluations and time.  Both sides do the whole work of a call:
// d01ajc allocates its progress arrays (freed here after each call) and
// GSL its workspace; a second GSL run keeps one workspace for all calls.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_integration.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "quadrature/adaptive.hpp"
#include "quadrature/rules.hpp"
#include "tests/quadrature/d01_battery.hpp"
#include "zem/d01.h"
#include "zem/x04.h"

namespace {

constexpr int kLimit = 500;
const double kTols[] = {1e-4, 1e-7, 1e-10};

struct Problem {
  double (*f)(double);
  double a, b, ref;
};
std::vector<Problem> g_problems;
long g_evals = 0;
double (*g_f)(double) = nullptr;

double zem_f(double x) {
  ++g_evals;
  return g_f(x);
}
double gsl_f(double x, void* p) {
  ++g_evals;
  return reinterpret_cast<double (*)(double)>(p)(x);
}

// One pass over the battery; returns the evaluations, the worst relative
// error and the number of calls that did not succeed.
long run_zem(double& worst, int& failed) {
  g_evals = 0;
  worst = 0.0;
  failed = 0;
  for (const auto& p : g_problems)
    for (double tol : kTols) {
      g_f = p.f;
      double r, e;
      Zem_QuadProgress qp;
      ZemError fail{};
      d01ajc(zem_f, p.a, p.b, 0.0, tol, kLimit, &r, &e, &qp, &fail);
      for (double** a : {&qp.left, &qp.right, &qp.integral, &qp.error})
        x04bdc(reinterpret_cast<void**>(a));
      worst = std::fmax(worst, std::fabs(r - p.ref) / std::fabs(p.ref));
      failed += fail.code != 0;
    }
  return g_evals;
}

long run_gsl(double& worst, int& failed, gsl_integration_workspace* keep) {
  g_evals = 0;
  worst = 0.0;
  failed = 0;
  for (const auto& p : g_problems)
    for (double tol : kTols) {
      gsl_function F{gsl_f, reinterpret_cast<void*>(p.f)};
      gsl_integration_workspace* w = keep ? keep : gsl_integration_workspace_alloc(kLimit);
      double r, e;
      const int st = gsl_integration_qags(&F, p.a, p.b, 0.0, tol, kLimit, w, &r, &e);
      if (!keep) gsl_integration_workspace_free(w);
      worst = std::fmax(worst, std::fabs(r - p.ref) / std::fabs(p.ref));
      failed += st != 0;
    }
  return g_evals;
}

// The numerical core of d01ajc alone (the adaptive engine with the 21-point
// rule on arrays kept between calls): what the frame of the exported
// routine adds (allocating, zeroing and sorting the progress arrays) is the
// difference to BM_d01ajc.
void BM_d01ajc_core(benchmark::State& st) {
  std::vector<double> al(kLimit), bl(kLimit), rl(kLimit), el(kLimit);
  std::vector<int32_t> iord(kLimit);
  long evals = 0;
  for (auto _ : st) {
    g_evals = 0;
    for (const auto& p : g_problems)
      for (double tol : kTols) {
        g_f = p.f;
        zem::quad::Subintervals w{al.data(), bl.data(), rl.data(), el.data(), iord.data(), nullptr,
                                  kLimit};
        auto f = [](double x) { return zem_f(x); };
        zem::quad::KronrodRule<decltype(f)> rule{f, zem::quad::kKronrod21};
        const double pts[2] = {p.a, p.b};
        benchmark::DoNotOptimize(zem::quad::extrapolating_adaptive(rule, w, pts, 1, 0.0, tol));
      }
    evals = g_evals;
  }
  st.counters["evaluations"] = double(evals);
}

void BM_d01ajc(benchmark::State& st) {
  double worst;
  int failed;
  long evals = 0;
  for (auto _ : st) evals = run_zem(worst, failed);
  st.counters["evaluations"] = double(evals);
}
void BM_gsl_qags(benchmark::State& st) {
  double worst;
  int failed;
  long evals = 0;
  for (auto _ : st) evals = run_gsl(worst, failed, nullptr);
  st.counters["evaluations"] = double(evals);
}
void BM_gsl_qags_kept_workspace(benchmark::State& st) {
  gsl_integration_workspace* w = gsl_integration_workspace_alloc(kLimit);
  double worst;
  int failed;
  long evals = 0;
  for (auto _ : st) evals = run_gsl(worst, failed, w);
  st.counters["evaluations"] = double(evals);
  gsl_integration_workspace_free(w);
}
BENCHMARK(BM_d01ajc);
BENCHMARK(BM_d01ajc_core);
BENCHMARK(BM_gsl_qags);
BENCHMARK(BM_gsl_qags_kept_workspace);

// Keeps each benchmark's CPU time per iteration for the ratios.
class KeepCpuTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs)
      if (r.run_type == Run::RT_Iteration) times[r.benchmark_name()] = r.GetAdjustedCPUTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

}  // namespace

int main(int argc, char** argv) {
  gsl_set_error_handler_off();
  for (const auto& c : d01test::load())
    if (c.routine == "d01ajc")
      g_problems.push_back({d01test::integrands().at(c.name), c.p[0], c.p[1], c.ref});
  if (g_problems.empty()) {
    std::fprintf(stderr, "no test cases found\n");
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  KeepCpuTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);

  double wz, wg;
  int fz, fg;
  const long ez = run_zem(wz, fz), eg = run_gsl(wg, fg, nullptr);
  std::printf("\n%zu integrals x 3 relative tolerances (1e-4, 1e-7, 1e-10), limit %d\n",
              g_problems.size(), kLimit);
  std::printf("evaluations: d01ajc %ld, GSL qags %ld, ratio %.3f\n", ez, eg, double(ez) / eg);
  std::printf("largest relative error: d01ajc %.2e, GSL qags %.2e\n", wz, wg);
  std::printf("calls not succeeding: d01ajc %d, GSL qags %d\n", fz, fg);
  const auto& t = rep.times;
  if (t.count("BM_d01ajc") && t.count("BM_gsl_qags"))
    std::printf("CPU time ratio d01ajc / GSL qags: %.3f\n", t.at("BM_d01ajc") / t.at("BM_gsl_qags"));
  if (t.count("BM_d01ajc_core") && t.count("BM_gsl_qags_kept_workspace"))
    std::printf("CPU time ratio of the core alone / GSL qags with one workspace: %.3f\n",
                t.at("BM_d01ajc_core") / t.at("BM_gsl_qags_kept_workspace"));
  if (t.count("BM_d01ajc") && t.count("BM_gsl_qags_kept_workspace"))
    std::printf("CPU time ratio d01ajc / GSL qags with one workspace for all calls: %.3f\n",
                t.at("BM_d01ajc") / t.at("BM_gsl_qags_kept_workspace"));
  return 0;
}
