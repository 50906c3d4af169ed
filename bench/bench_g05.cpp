// Uniform generators against their peers: g05cac (one value per call) and
// the batch read run by run, std::mt19937_64 with
// std::uniform_real_distribution, GSL's mt19937, and the seed-array step
// g05kac with the basic and a Wichmann-Hill generator; Sobol points in 10
// dimensions from g05yac against GSL's qrng_sobol.  Prints the ratios of
// values (points) per second.
#include <benchmark/benchmark.h>
#include <gsl/gsl_qrng.h>
#include <gsl/gsl_rng.h>

#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "stats/quasi.hpp"
#include "stats/random.hpp"
#include "zem/g05.h"

namespace {

constexpr int kDraws = 1 << 20;
constexpr std::int64_t kVector = 10000000;

class KeepCpuTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs)
      if (r.run_type == Run::RT_Iteration) times[r.benchmark_name()] = r.GetAdjustedCPUTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

void BM_g05cac(benchmark::State& st) {
  g05cbc(1);
  for (auto _ : st) {
    double s = 0.0;
    for (int i = 0; i < kDraws; ++i) s += g05cac();
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kDraws);
}

void BM_std_mt19937_64(benchmark::State& st) {
  std::mt19937_64 gen(1);
  std::uniform_real_distribution<double> u(0.0, 1.0);
  for (auto _ : st) {
    double s = 0.0;
    for (int i = 0; i < kDraws; ++i) s += u(gen);
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kDraws);
}

void BM_gsl_mt19937(benchmark::State& st) {
  gsl_rng* r = gsl_rng_alloc(gsl_rng_mt19937);
  for (auto _ : st) {
    double s = 0.0;
    for (int i = 0; i < kDraws; ++i) s += gsl_rng_uniform(r);
    benchmark::DoNotOptimize(s);
  }
  gsl_rng_free(r);
  st.SetItemsProcessed(st.iterations() * kDraws);
}

void BM_g05_batch_vector(benchmark::State& st) {
  std::vector<double> x(kVector);
  g05cbc(1);
  for (auto _ : st) {
    zem::rng::fill_stored(kVector, x.data());
    benchmark::DoNotOptimize(x.data());
  }
  st.SetItemsProcessed(st.iterations() * kVector);
}

void BM_std_vector(benchmark::State& st) {
  std::vector<double> x(kVector);
  std::mt19937_64 gen(1);
  std::uniform_real_distribution<double> u(0.0, 1.0);
  for (auto _ : st) {
    for (auto& v : x) v = u(gen);
    benchmark::DoNotOptimize(x.data());
  }
  st.SetItemsProcessed(st.iterations() * kVector);
}

void BM_g05kac(benchmark::State& st) {
  int32_t igen = static_cast<int32_t>(st.range(0)), iseed[4] = {1762543, 9324783, 42344, 742355};
  g05kbc(&igen, iseed);
  for (auto _ : st) {
    double s = 0.0;
    for (int i = 0; i < kDraws; ++i) s += g05kac(igen, iseed);
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kDraws);
}

constexpr int kPoints = 1 << 16;
constexpr int kDim = 10;

void BM_g05yac_sobol(benchmark::State& st) {
  std::vector<int32_t> gf(2013);
  double x[kDim];
  ZemError fail{};
  for (auto _ : st) {
    g05yac(Zem_QuasiRandom_Init, Zem_QuasiRandom_Sobol, 0, kDim, x, gf.data(), &fail);
    double s = 0.0;
    for (int i = 0; i < kPoints; ++i) {
      g05yac(Zem_QuasiRandom_Cont, Zem_QuasiRandom_Sobol, 0, kDim, x, gf.data(), &fail);
      s += x[kDim - 1];
    }
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kPoints);
}

// The core alone, without the exported frame (error record and report).
void BM_sobol_core(benchmark::State& st) {
  std::vector<int32_t> gf(2013);
  double x[kDim];
  for (auto _ : st) {
    zem::quasi::sobol_init(kDim, 0, gf.data());
    double s = 0.0;
    for (int i = 0; i < kPoints; ++i) {
      zem::quasi::sobol_next(kDim, x, gf.data());
      s += x[kDim - 1];
    }
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kPoints);
}

void BM_gsl_sobol(benchmark::State& st) {
  double x[kDim];
  for (auto _ : st) {
    gsl_qrng* q = gsl_qrng_alloc(gsl_qrng_sobol, kDim);
    double s = 0.0;
    for (int i = 0; i < kPoints; ++i) {
      gsl_qrng_get(q, x);
      s += x[kDim - 1];
    }
    gsl_qrng_free(q);
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(st.iterations() * kPoints);
}

}  // namespace

BENCHMARK(BM_g05cac);
BENCHMARK(BM_std_mt19937_64);
BENCHMARK(BM_gsl_mt19937);
BENCHMARK(BM_g05_batch_vector)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_std_vector)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_g05kac)->Arg(0)->Arg(1);
BENCHMARK(BM_g05yac_sobol);
BENCHMARK(BM_sobol_core);
BENCHMARK(BM_gsl_sobol);

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  KeepCpuTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);
  auto ratio = [&](const char* a, const char* b) {
    const auto x = rep.times.find(a), y = rep.times.find(b);
    if (x == rep.times.end() || y == rep.times.end()) return;
    std::printf("  %-22s / %-22s %.3f\n", a, b, y->second / x->second);
  };
  std::printf("\nSpeed ratios (values or points per second; above 1 is faster):\n");
  ratio("BM_g05cac", "BM_std_mt19937_64");
  ratio("BM_g05cac", "BM_gsl_mt19937");
  ratio("BM_g05_batch_vector", "BM_std_vector");
  ratio("BM_g05kac/0", "BM_std_mt19937_64");
  ratio("BM_g05kac/1", "BM_std_mt19937_64");
  ratio("BM_g05yac_sobol", "BM_gsl_sobol");
  ratio("BM_sobol_core", "BM_gsl_sobol");
  return 0;
}
