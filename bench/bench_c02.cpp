// c02agc against the eigenvalues of the companion matrix by LAPACK (dgebal
// and dhseqr, the road of dgeev for a matrix that is already Hessenberg) on
// random real polynomials of degree 10 to 200.  Prints the time ratio per
// degree, and the accuracy of both on fixed polynomials whose zeros were
// computed with mpmath (tests/data/c02_bench_zeros.txt): the largest
// relative error of a zero, and the largest backward error
// |p(z)| / sum |a_j| |z|^(n-j) in units of u.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "linalg/lapack.hpp"
#include "zem/c02.h"

namespace {

using cplx = std::complex<double>;
using lcplx = std::complex<long double>;

const int kDegrees[] = {10, 20, 50, 100, 200};

std::vector<double> random_polynomial(int n, unsigned seed) {
  std::mt19937_64 g(seed);
  std::uniform_real_distribution<double> u(-1.0, 1.0);
  std::vector<double> a(n + 1);
  for (double& v : a) v = u(g);
  return a;
}

std::vector<cplx> zeros_c02agc(const std::vector<double>& a) {
  const int n = static_cast<int>(a.size()) - 1;
  std::vector<ZemComplex> z(n);
  ZemError fail{};
  c02agc(n, a.data(), 1, z.data(), &fail);
  std::vector<cplx> out;
  if (fail.code != 0) return out;
  for (const ZemComplex& v : z) out.emplace_back(v.re, v.im);
  return out;
}

// The companion matrix, balanced, and its eigenvalues by the Hessenberg QR
// algorithm.  h and work are the caller's, of n*n and n doubles at least.
std::vector<cplx> zeros_lapack(const std::vector<double>& a, std::vector<double>& h,
                               std::vector<double>& work) {
  const lapack_int n = static_cast<lapack_int>(a.size()) - 1, one = 1;
  std::fill(h.begin(), h.end(), 0.0);
  for (lapack_int i = 0; i + 1 < n; ++i) h[(i + 1) + i * n] = 1.0;
  for (lapack_int i = 0; i < n; ++i) h[i + (n - 1) * n] = -a[n - i] / a[0];
  std::vector<double> scale(n), wr(n), wi(n);
  lapack_int ilo = 0, ihi = 0, info = 0;
  dgebal_("B", &n, h.data(), &n, &ilo, &ihi, scale.data(), &info, 1);
  const lapack_int lwork = static_cast<lapack_int>(work.size());
  double z = 0.0;
  dhseqr_("E", "N", &n, &ilo, &ihi, h.data(), &n, wr.data(), wi.data(), &z, &one, work.data(),
          &lwork, &info, 1, 1);
  std::vector<cplx> out;
  if (info != 0) return out;
  for (lapack_int i = 0; i < n; ++i) out.emplace_back(wr[i], wi[i]);
  return out;
}

void BM_c02agc(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> a = random_polynomial(n, 1000u + n);
  for (auto _ : state) benchmark::DoNotOptimize(zeros_c02agc(a));
}

void BM_lapack_companion(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const std::vector<double> a = random_polynomial(n, 1000u + n);
  std::vector<double> h(static_cast<std::size_t>(n) * n), work(64 * static_cast<std::size_t>(n));
  for (auto _ : state) benchmark::DoNotOptimize(zeros_lapack(a, h, work));
}

BENCHMARK(BM_c02agc)->Arg(10)->Arg(20)->Arg(50)->Arg(100)->Arg(200);
BENCHMARK(BM_lapack_companion)->Arg(10)->Arg(20)->Arg(50)->Arg(100)->Arg(200);

// Records the time of each run next to the console output.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& r : runs) times[r.benchmark_name()] = r.GetAdjustedRealTime();
  }
  std::map<std::string, double> times;
};

struct Reference {
  std::vector<double> a;
  std::vector<lcplx> zeros;
};

std::map<int, Reference> read_references() {
  std::map<int, Reference> out;
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/c02_bench_zeros.txt");
  std::string line;
  Reference cur;
  int n = 0;
  while (std::getline(in, line)) {
    std::istringstream s(line);
    std::string tag, x, y;
    s >> tag;
    if (tag == "case") {
      std::string name, kind;
      s >> name >> kind >> n;
      cur = Reference{};
    } else if (tag == "a") {
      s >> x;
      cur.a.push_back(std::strtod(x.c_str(), nullptr));
    } else if (tag == "z") {
      s >> x >> y;
      cur.zeros.emplace_back(std::strtold(x.c_str(), nullptr), std::strtold(y.c_str(), nullptr));
    } else if (tag == "end") {
      out[n] = cur;
    }
  }
  return out;
}

// Largest relative error (each reference zero against the nearest computed
// zero not yet taken) and largest backward error in units of u.
void accuracy(const Reference& ref, const std::vector<cplx>& z, double& rel, double& back) {
  rel = back = 0.0;
  if (z.size() != ref.zeros.size()) {
    rel = back = INFINITY;
    return;
  }
  std::vector<bool> taken(z.size(), false);
  for (const lcplx& r : ref.zeros) {
    std::size_t best = 0;
    long double dist = INFINITY;
    for (std::size_t j = 0; j < z.size(); ++j) {
      const long double d = std::abs(lcplx(z[j].real(), z[j].imag()) - r);
      if (!taken[j] && d < dist) {
        dist = d;
        best = j;
      }
    }
    taken[best] = true;
    rel = std::max(rel, static_cast<double>(dist / std::abs(r)));
  }
  for (const cplx& x : z) {
    const lcplx lx(x.real(), x.imag());
    lcplx p = 0;
    long double s = 0;
    for (double c : ref.a) {
      p = p * lx + static_cast<long double>(c);
      s = s * std::abs(lx) + std::fabs(static_cast<long double>(c));
    }
    back = std::max(back, static_cast<double>(std::abs(p) / s) / 0x1p-53);
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);

  std::printf("\nc02agc versus LAPACK companion eigenvalues (dgebal + dhseqr)\n");
  std::printf("%6s %14s %14s %10s\n", "degree", "c02agc (ns)", "LAPACK (ns)", "ratio");
  for (int n : kDegrees) {
    char ours[64], peer[64];
    std::snprintf(ours, sizeof ours, "BM_c02agc/%d", n);
    std::snprintf(peer, sizeof peer, "BM_lapack_companion/%d", n);
    const auto a = reporter.times.find(ours);
    const auto b = reporter.times.find(peer);
    if (a == reporter.times.end() || b == reporter.times.end()) continue;
    std::printf("%6d %14.0f %14.0f %10.3f\n", n, a->second, b->second, a->second / b->second);
  }

  const std::map<int, Reference> refs = read_references();
  std::printf("\naccuracy against mpmath zeros (max relative error; max backward error / u)\n");
  std::printf("%6s %12s %12s %12s %12s\n", "degree", "c02agc rel", "LAPACK rel", "c02agc back",
              "LAPACK back");
  for (const auto& [n, ref] : refs) {
    std::vector<double> h(static_cast<std::size_t>(n) * n), work(64 * static_cast<std::size_t>(n));
    double rel1, back1, rel2, back2;
    accuracy(ref, zeros_c02agc(ref.a), rel1, back1);
    accuracy(ref, zeros_lapack(ref.a, h, work), rel2, back2);
    std::printf("%6d %12.3e %12.3e %12.1f %12.1f\n", n, rel1, rel2, back1, back2);
  }
  benchmark::Shutdown();
  return 0;
}
