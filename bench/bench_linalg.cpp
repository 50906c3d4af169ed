// Dense linear algebra against LAPACKE on OpenBLAS, same data, same
// threads: LU (f07adc), Cholesky (f07fdc) and the divide and conquer
// symmetric eigensolver (f08fcc, eigenvalues and eigenvectors) in both
// storage orders.  Prints the time ratio wrapper / LAPACKE for each size and
// order.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <cblas.h>
#include <lapacke.h>

#include "zem/f06.h"
#include "zem/f07.h"
#include "zem/f08.h"

namespace {

std::vector<double> random_matrix(int n, unsigned seed) {
  std::mt19937_64 rng(seed);
  std::uniform_real_distribution<double> u(-1, 1);
  std::vector<double> a(static_cast<std::size_t>(n) * n);
  for (double& x : a) x = u(rng);
  return a;
}

std::vector<double> spd_matrix(int n) {
  std::vector<double> b = random_matrix(n, 7), a(b.size());
  // A = B^T B + n I, formed plainly once per size.
  for (int i = 0; i < n; ++i)
    for (int j = 0; j <= i; ++j) {
      double s = i == j ? n : 0.0;
      for (int k = 0; k < n; ++k) s += b[k * n + i] * b[k * n + j];
      a[i * n + j] = a[j * n + i] = s;
    }
  return a;
}

template <bool Zem, bool RowMajor>
void BM_getrf(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> a0 = random_matrix(n, 1);
  std::vector<double> a(a0.size());
  std::vector<int32_t> ipiv(n);
  ZemError e{};
  for (auto _ : state) {
    state.PauseTiming();
    a = a0;
    state.ResumeTiming();
    if constexpr (Zem)
      f07adc(RowMajor ? Zem_RowMajor : Zem_ColMajor, n, n, a.data(), n, ipiv.data(), &e);
    else
      LAPACKE_dgetrf(RowMajor ? LAPACK_ROW_MAJOR : LAPACK_COL_MAJOR, n, n, a.data(), n, ipiv.data());
    benchmark::DoNotOptimize(a.data());
  }
}

template <bool Zem, bool RowMajor>
void BM_potrf(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> a0 = spd_matrix(n);
  std::vector<double> a(a0.size());
  ZemError e{};
  for (auto _ : state) {
    state.PauseTiming();
    a = a0;
    state.ResumeTiming();
    if constexpr (Zem)
      f07fdc(RowMajor ? Zem_RowMajor : Zem_ColMajor, Zem_Lower, n, a.data(), n, &e);
    else
      LAPACKE_dpotrf(RowMajor ? LAPACK_ROW_MAJOR : LAPACK_COL_MAJOR, 'L', n, a.data(), n);
    benchmark::DoNotOptimize(a.data());
  }
}

template <bool Zem, bool RowMajor>
void BM_syevd(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  // A random symmetric matrix (the upper triangle of a random one).
  std::vector<double> a0 = random_matrix(n, 3);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < i; ++j) a0[i * n + j] = a0[j * n + i];
  std::vector<double> a(a0.size()), w(n);
  ZemError e{};
  for (auto _ : state) {
    state.PauseTiming();
    a = a0;
    state.ResumeTiming();
    if constexpr (Zem)
      f08fcc(RowMajor ? Zem_RowMajor : Zem_ColMajor, Zem_DoBoth, Zem_Upper, n, a.data(), n, w.data(), &e);
    else
      LAPACKE_dsyevd(RowMajor ? LAPACK_ROW_MAJOR : LAPACK_COL_MAJOR, 'V', 'U', n, a.data(), n, w.data());
    benchmark::DoNotOptimize(a.data());
  }
}

// C = A B + C: f06yac against cblas_dgemm, which it calls in either order
// with no copy, so the ratio shows the cost of the checks alone.
template <bool Zem, bool RowMajor>
void BM_gemm(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> a = random_matrix(n, 3), b = random_matrix(n, 4);
  std::vector<double> c = random_matrix(n, 5);
  ZemError e{};
  for (auto _ : state) {
    if constexpr (Zem)
      f06yac(RowMajor ? Zem_RowMajor : Zem_ColMajor, Zem_NoTrans, Zem_NoTrans, n, n, n, 1.0, a.data(), n,
             b.data(), n, 0.5, c.data(), n, &e);
    else
      cblas_dgemm(RowMajor ? CblasRowMajor : CblasColMajor, CblasNoTrans, CblasNoTrans, n, n, n, 1.0, a.data(),
                  n, b.data(), n, 0.5, c.data(), n);
    benchmark::DoNotOptimize(c.data());
  }
}

#define SIZES ->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond)
BENCHMARK(BM_getrf<true, false>) SIZES;
BENCHMARK(BM_getrf<false, false>) SIZES;
BENCHMARK(BM_getrf<true, true>) SIZES;
BENCHMARK(BM_getrf<false, true>) SIZES;
BENCHMARK(BM_potrf<true, false>) SIZES;
BENCHMARK(BM_potrf<false, false>) SIZES;
BENCHMARK(BM_potrf<true, true>) SIZES;
BENCHMARK(BM_potrf<false, true>) SIZES;
BENCHMARK(BM_syevd<true, false>) SIZES;
BENCHMARK(BM_syevd<false, false>) SIZES;
BENCHMARK(BM_syevd<true, true>) SIZES;
BENCHMARK(BM_syevd<false, true>) SIZES;
BENCHMARK(BM_gemm<true, false>) SIZES;
BENCHMARK(BM_gemm<false, false>) SIZES;
BENCHMARK(BM_gemm<true, true>) SIZES;
BENCHMARK(BM_gemm<false, true>) SIZES;

// Collects each run's time so that the ratios can be printed at the end.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    // With repetitions (--benchmark_repetitions) the median stands for the run.
    for (const Run& r : runs)
      if (r.run_type == Run::RT_Iteration) times_.emplace(r.benchmark_name(), r.GetAdjustedRealTime());
      else if (r.aggregate_name == "median") times_[r.run_name.str()] = r.GetAdjustedRealTime();
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    std::printf("\nwrapper / LAPACKE time ratio (below 1: the wrapper is faster)\n");
    std::printf("%-8s %-10s %8s %8s %8s\n", "kernel", "order", "n=100", "n=500", "n=2000");
    for (const char* k : {"getrf", "potrf", "syevd", "gemm"})
      for (const char* o : {"false", "true"}) {
        std::printf("%-8s %-10s", k, std::string(o) == "true" ? "row-major" : "col-major");
        for (int n : {100, 500, 2000}) {
          const std::string z = std::string("BM_") + k + "<true, " + o + ">/" + std::to_string(n);
          const std::string l = std::string("BM_") + k + "<false, " + o + ">/" + std::to_string(n);
          if (times_.count(z) && times_.count(l)) std::printf(" %8.3f", times_[z] / times_[l]);
          else std::printf(" %8s", "-");
        }
        std::printf("\n");
      }
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
