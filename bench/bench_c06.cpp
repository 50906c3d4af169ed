// c06 transforms against FFTW on the same data, with FFTW plans made
// beforehand with FFTW_ESTIMATE and with FFTW_MEASURE (planning time capped).
//
// Cases: one complex and one real sequence of n = 64, 1000, 1024, 4096,
// 10935 (3^7 5), 17017 (7 11 13 17), 65536 and 2^20; 100 sequences of
// length 1024 side by side.  The c06 side runs in place: the table-free
// single-sequence routines (c06ecc, c06eac) and the routines with a table
// made beforehand by c06gzc (c06frc, c06fpc).  FFTW runs out of place from
// a fixed input (its complex data interleaved, its real transform r2c).
// Printed: CPU-time ratios c06 / FFTW and the rates 5 n log2 n / t
// (complex) and 2.5 n log2 n / t (real) in GFLOP/s.
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "zem/c06.h"

namespace {

class KeepCpuTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs)
      if (r.run_type == Run::RT_Iteration)
        times[r.benchmark_name()] = r.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(r.time_unit);
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

std::vector<double> random_data(std::size_t count, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> u(-1.0, 1.0);
  std::vector<double> v(count);
  for (auto& x : v) x = u(rng);
  return v;
}

// One workload: m sequences of length n, side by side when m > 1.
struct Case {
  std::string name;
  int m, n;
  bool real;
  std::vector<double> re, im;  // the c06 data (in place)
  std::vector<double> trig;
  fftw_complex* in = nullptr;   // FFTW input (complex) ...
  double* rin = nullptr;        // ... or real input
  fftw_complex* out = nullptr;
  fftw_plan estimate = nullptr, measure = nullptr;
};

fftw_plan make_plan(Case& c, unsigned flags) {
  const int n = c.n, m = c.m;
  if (c.real)
    return fftw_plan_many_dft_r2c(1, &n, m, c.rin, nullptr, m, 1, c.out, nullptr, m, 1, flags);
  return fftw_plan_many_dft(1, &n, m, c.in, nullptr, m, 1, c.out, nullptr, m, 1, FFTW_FORWARD, flags);
}

void setup(Case& c) {
  const std::size_t total = static_cast<std::size_t>(c.m) * c.n;
  c.re = random_data(total, 11);
  c.im = random_data(total, 12);
  c.trig.assign(2 * static_cast<std::size_t>(c.n), 0.0);
  ZemError fail{};
  c06gzc(c.n, c.trig.data(), &fail);
  const std::size_t outlen = static_cast<std::size_t>(c.m) * (c.real ? c.n / 2 + 1 : c.n);
  c.out = fftw_alloc_complex(outlen);
  if (c.real) c.rin = fftw_alloc_real(total);
  else c.in = fftw_alloc_complex(total);
  // Plans first (FFTW_MEASURE overwrites the arrays), data after.
  c.estimate = make_plan(c, FFTW_ESTIMATE);
  c.measure = make_plan(c, FFTW_MEASURE);
  for (std::size_t i = 0; i < total; ++i) {
    if (c.real) {
      c.rin[i] = c.re[i];
    } else {
      c.in[i][0] = c.re[i];
      c.in[i][1] = c.im[i];
    }
  }
}

void BM_fftw(benchmark::State& st, Case* c, bool measure) {
  const fftw_plan p = measure ? c->measure : c->estimate;
  for (auto _ : st) {
    fftw_execute(p);
    benchmark::DoNotOptimize(c->out);
  }
}

// c06 in place, repeatedly: the transforms are unitary, so the data stay
// bounded.
void BM_c06_table(benchmark::State& st, Case* c) {
  ZemError fail{};
  for (auto _ : st) {
    if (c->real) c06fpc(c->m, c->n, c->re.data(), c->trig.data(), &fail);
    else c06frc(c->m, c->n, c->re.data(), c->im.data(), c->trig.data(), &fail);
    benchmark::DoNotOptimize(c->re.data());
  }
  if (fail.code != 0) st.SkipWithError(fail.message);
}

void BM_c06_single(benchmark::State& st, Case* c) {
  ZemError fail{};
  for (auto _ : st) {
    if (c->real) c06eac(c->n, c->re.data(), &fail);
    else c06ecc(c->n, c->re.data(), c->im.data(), &fail);
    benchmark::DoNotOptimize(c->re.data());
  }
  if (fail.code != 0) st.SkipWithError(fail.message);
}

}  // namespace

int main(int argc, char** argv) {
  // FFTW_MEASURE may take long for the largest sizes: cap each plan.
  fftw_set_timelimit(2.0);
  std::vector<Case> cases;
  for (bool real : {false, true})
    for (int n : {64, 1000, 1024, 4096, 10935, 17017, 65536, 1 << 20})
      cases.push_back(Case{std::string(real ? "real/" : "complex/") + std::to_string(n), 1, n, real, {}, {}, {}});
  for (bool real : {false, true})
    cases.push_back(Case{std::string(real ? "real/" : "complex/") + "100x1024", 100, 1024, real, {}, {}, {}});
  for (auto& c : cases) setup(c);

  for (auto& c : cases) {
    const auto unit = c.n * static_cast<long>(c.m) >= 65536 ? benchmark::kMillisecond : benchmark::kMicrosecond;
    if (c.m == 1)
      benchmark::RegisterBenchmark((c.name + "/c06_single").c_str(), BM_c06_single, &c)->Unit(unit);
    benchmark::RegisterBenchmark((c.name + "/c06_table").c_str(), BM_c06_table, &c)->Unit(unit);
    benchmark::RegisterBenchmark((c.name + "/fftw_estimate").c_str(), BM_fftw, &c, false)->Unit(unit);
    benchmark::RegisterBenchmark((c.name + "/fftw_measure").c_str(), BM_fftw, &c, true)->Unit(unit);
  }
  benchmark::Initialize(&argc, argv);
  KeepCpuTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);

  auto get = [&](const std::string& k) {
    const auto it = rep.times.find(k);
    return it == rep.times.end() ? 0.0 : it->second;  // seconds
  };
  std::printf("\nCPU-time ratio c06 / FFTW (below 1: c06 faster) and GFLOP/s\n");
  std::printf("%-18s %-7s %9s %9s %8s %8s %8s\n", "case", "c06", "/estimate", "/measure", "GF c06", "GF est",
              "GF meas");
  for (auto& c : cases) {
    const double est = get(c.name + "/fftw_estimate"), mea = get(c.name + "/fftw_measure");
    const double flops = (c.real ? 2.5 : 5.0) * c.m * c.n * std::log2(static_cast<double>(c.n));
    for (const char* kind : {"single", "table"}) {
      const double t = get(c.name + "/c06_" + kind);
      if (t <= 0.0 || est <= 0.0 || mea <= 0.0) continue;
      std::printf("%-18s %-7s %9.3f %9.3f %8.2f %8.2f %8.2f\n", c.name.c_str(), kind, t / est, t / mea,
                  flops / t * 1e-9, flops / est * 1e-9, flops / mea * 1e-9);
    }
  }
  for (auto& c : cases) {
    fftw_destroy_plan(c.estimate);
    fftw_destroy_plan(c.measure);
    fftw_free(c.in);
    fftw_free(c.rin);
    fftw_free(c.out);
  }
  return 0;
}
