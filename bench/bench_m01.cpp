// m01cac against std::sort on 10^6 doubles for each input order, including
// an input built against median-of-three quicksort and one built by
// McIlroy's adversary against std::sort itself: time ratio per order.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "tests/sort/m01_inputs.hpp"
#include "zem/m01.h"

namespace {

constexpr std::size_t kN = 1000000;

// Keeps each benchmark's CPU time per iteration for the ratios: the machine
// may be shared, and CPU time is what the other load disturbs least.
class KeepCpuTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs)
      if (r.run_type == Run::RT_Iteration) times[r.benchmark_name()] = r.GetAdjustedCPUTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};
std::map<m01test::Kind, std::vector<double>> g_inputs;

void BM_m01cac(benchmark::State& st, m01test::Kind k) {
  const auto& in = g_inputs[k];
  std::vector<double> v(in.size());
  for (auto _ : st) {
    st.PauseTiming();
    v = in;
    st.ResumeTiming();
    ZemError fail{};
    m01cac(v.data(), v.size(), Zem_Ascending, &fail);
    benchmark::DoNotOptimize(v.data());
  }
  if (!std::is_sorted(v.begin(), v.end())) st.SkipWithError("not sorted");
}

void BM_std_sort(benchmark::State& st, m01test::Kind k) {
  const auto& in = g_inputs[k];
  std::vector<double> v(in.size());
  for (auto _ : st) {
    st.PauseTiming();
    v = in;
    st.ResumeTiming();
    std::sort(v.begin(), v.end());
    benchmark::DoNotOptimize(v.data());
  }
}

}  // namespace

int main(int argc, char** argv) {
  for (auto k : m01test::kAllKinds) {
    g_inputs[k] = m01test::make_input(k, kN);
    const std::string name = m01test::kind_name(k);
    benchmark::RegisterBenchmark(("m01cac/" + name).c_str(), BM_m01cac, k)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("std_sort/" + name).c_str(), BM_std_sort, k)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  KeepCpuTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);
  std::printf("\n%zu doubles; CPU time ratio m01cac / std::sort (below 1 is faster):\n", kN);
  for (auto k : m01test::kAllKinds) {
    const std::string name = m01test::kind_name(k);
    const auto a = rep.times.find("m01cac/" + name), b = rep.times.find("std_sort/" + name);
    if (a != rep.times.end() && b != rep.times.end())
      std::printf("  %-24s %.3f\n", name.c_str(), a->second / b->second);
  }
  return 0;
}
