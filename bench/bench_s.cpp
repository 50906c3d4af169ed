// Special functions of real argument against the C library, GSL and
// Boost.Math: nanoseconds per call over the argument sweeps of the accuracy
// sweeps over each function's working range, every implementation on the
// same arguments, with its worst error over the accuracy table
// (tests/data/s_*.txt) printed beside its time.  "zem" is the exported routine with its error
// record; "core" the C++ core alone, to show what the record costs.
#include <benchmark/benchmark.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf_airy.h>
#include <gsl/gsl_sf_bessel.h>
#include <gsl/gsl_sf_erf.h>
#include <gsl/gsl_sf_gamma.h>

#define BOOST_MATH_DOMAIN_ERROR_POLICY ignore_error
#define BOOST_MATH_POLE_ERROR_POLICY ignore_error
#define BOOST_MATH_OVERFLOW_ERROR_POLICY ignore_error
#define BOOST_MATH_UNDERFLOW_ERROR_POLICY ignore_error
#define BOOST_MATH_EVALUATION_ERROR_POLICY ignore_error
#include <boost/math/special_functions/airy.hpp>
#include <boost/math/special_functions/bessel.hpp>
#include <boost/math/special_functions/erf.hpp>
#include <boost/math/special_functions/gamma.hpp>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "special/real.hpp"
#include "tests/special/sweep.hpp"
#include "zem/s.h"

namespace {

using Impl = std::function<double(double, double)>;  // (x, a) -> value

struct Peer {
  const char* who;
  Impl f;
};

struct Workload {
  const char* name;                 // function
  const char* table;                // tests/data file
  bool two_args;                    // table rows are (a, x, value...)
  double (*floor)(double x);        // values below a quarter of it: absolute error
  std::vector<Peer> peers;          // first is zem, then its core
  std::vector<double> xs, as, ref;  // reference table
  std::vector<double> tx, ta;       // timing sweep
};

double none(double) { return 0.0; }
// Floors as in tests/special/test_s_real.cpp.
double bessel_env(double x) {
  x = std::fabs(x);
  return x < 0.5 ? 0.0 : x < 2.0 ? 0.5 : std::sqrt(2.0 / (3.141592653589793 * x));
}
double airy_env(double x) { return x < -0.8 ? std::pow(-x, -0.25) * 0.5641895835477563 : 0.0; }
double lgamma_floor(double x) { return x < 0 ? 4.0 : 1.0; }  // as in the tests

double worst_error(const Workload& w, const Impl& f) {
  double worst = 0.0;
  for (std::size_t i = 0; i < w.xs.size(); ++i) {
    double got = f(w.xs[i], w.as[i]), want = w.ref[i];
    double fl = w.floor(w.xs[i]);
    double e;
    if (std::fabs(want) >= 0.25 * fl) {
      e = zem::test::ulp_error(got, want);
    } else {
      int ex;
      std::frexp(fl, &ex);
      e = std::fabs(got - want) / std::ldexp(1.0, ex - 53);
    }
    if (!(e <= worst)) worst = e;
  }
  return worst;
}

ZemError g_fail{};

double zem_gammainc(double a, double x) {
  double p, q;
  s14bac(a, x, 0.0, &p, &q, &g_fail);
  return p;
}

std::vector<Workload> make_workloads() {
  namespace bm = boost::math;
  std::vector<Workload> w = {
      {"gamma",
       "s_s14aac.txt",
       false,
       none,
       {{"zem", [](double x, double) { return s14aac(x, &g_fail); }},
        {"core",
         [](double x, double) {
           int st;
           return zem::sf::gamma_poly(x, st);
         }},
        {"libm", [](double x, double) { return std::tgamma(x); }},
        {"gsl", [](double x, double) { return gsl_sf_gamma(x); }},
        {"boost", [](double x, double) { return bm::tgamma(x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"lngamma",
       "s_s14abc.txt",
       false,
       lgamma_floor,
       {{"zem", [](double x, double) { return s14abc(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::lgamma(x); }},
        {"libm", [](double x, double) { return std::lgamma(x); }},
        {"gsl", [](double x, double) { return gsl_sf_lngamma(x); }},
        {"boost", [](double x, double) { return bm::lgamma(x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"erfc",
       "s_s15adc.txt",
       false,
       none,
       {{"zem", [](double x, double) { return s15adc(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::erfc(x); }},
        {"libm", [](double x, double) { return std::erfc(x); }},
        {"gsl", [](double x, double) { return gsl_sf_erfc(x); }},
        {"boost", [](double x, double) { return bm::erfc(x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"J0",
       "s_s17aec.txt",
       false,
       bessel_env,
       {{"zem", [](double x, double) { return s17aec(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::bessel_j0(x); }},
        {"libm", [](double x, double) { return ::j0(x); }},
        {"gsl", [](double x, double) { return gsl_sf_bessel_J0(x); }},
        {"boost", [](double x, double) { return bm::cyl_bessel_j(0, x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"Y1",
       "s_s17adc.txt",
       false,
       bessel_env,
       {{"zem", [](double x, double) { return s17adc(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::bessel_y1(x); }},
        {"libm", [](double x, double) { return ::y1(x); }},
        {"gsl", [](double x, double) { return gsl_sf_bessel_Y1(x); }},
        {"boost", [](double x, double) { return bm::cyl_neumann(1, x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"K0",
       "s_s18acc.txt",
       false,
       none,
       {{"zem", [](double x, double) { return s18acc(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::bessel_k0(x); }},
        {"gsl", [](double x, double) { return gsl_sf_bessel_K0(x); }},
        {"boost", [](double x, double) { return bm::cyl_bessel_k(0, x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"Ai",
       "s_s17agc.txt",
       false,
       airy_env,
       {{"zem", [](double x, double) { return s17agc(x, &g_fail); }},
        {"core", [](double x, double) { return zem::sf::airy_ai(x); }},
        {"gsl", [](double x, double) { return gsl_sf_airy_Ai(x, GSL_PREC_DOUBLE); }},
        {"boost", [](double x, double) { return bm::airy_ai(x); }}},
       {},
       {},
       {},
       {},
       {}},
      {"gammaincP",
       "s_s14bac.txt",
       true,
       none,
       {{"zem", [](double x, double a) { return zem_gammainc(a, x); }},
        {"core",
         [](double x, double a) {
           double p, q;
           zem::sf::incomplete_gamma(a, x, 0.0, p, q);
           return p;
         }},
        {"gsl", [](double x, double a) { return gsl_sf_gamma_inc_P(a, x); }},
        {"boost", [](double x, double a) { return bm::gamma_p(a, x); }}},
       {},
       {},
       {},
       {},
       {}},
  };
  // Accuracy on the whole reference table.
  for (auto& wl : w) {
    for (const auto& c : zem::test::load_table(wl.table)) {
      if (wl.two_args) {
        if (c[2] < 1e-20) continue;  // the far tail
        wl.as.push_back(c[0]);
        wl.xs.push_back(c[1]);
        wl.ref.push_back(c[2]);
      } else {
        wl.as.push_back(0.0);
        wl.xs.push_back(c[0]);
        wl.ref.push_back(c[1]);
      }
    }
  }
  // Timing sweeps over each function's working range, the same arguments
  // for every implementation.
  auto logsweep = [](std::vector<double>& v, double lo, double hi, int n, double sign) {
    for (int i = 0; i < n; ++i) v.push_back(sign * lo * std::pow(hi / lo, (i + 0.5) / n));
  };
  auto linsweep = [](std::vector<double>& v, double lo, double hi, int n) {
    for (int i = 0; i < n; ++i) v.push_back(lo + (hi - lo) * (i + 0.5) / n);
  };
  for (auto& wl : w) {
    std::string n = wl.name;
    auto& tx = wl.tx;
    if (n == "gamma") linsweep(tx, -169.9, 170.0, 2000);
    if (n == "lngamma") {
      logsweep(tx, 1e-3, 1e5, 1500, 1.0);
      linsweep(tx, -99.95, -0.05, 500);
    }
    if (n == "erfc") linsweep(tx, -6.0, 27.0, 2000);
    if (n == "J0") {
      logsweep(tx, 1e-3, 1e4, 1000, 1.0);
      logsweep(tx, 1e-3, 1e4, 1000, -1.0);
    }
    if (n == "Y1") logsweep(tx, 1e-3, 1e4, 2000, 1.0);
    if (n == "K0") logsweep(tx, 1e-3, 700.0, 2000, 1.0);
    if (n == "Ai") {
      logsweep(tx, 1e-3, 1e3, 1000, -1.0);
      logsweep(tx, 1e-3, 100.0, 1000, 1.0);
    }
    wl.ta.assign(tx.size(), 0.0);
    if (n == "gammaincP") {
      for (double a : {0.5, 2.0, 10.0, 50.0, 200.0}) {
        std::vector<double> xs;
        logsweep(xs, 1e-3, 5 * a + 50, 400, 1.0);
        for (double x : xs) {
          tx.push_back(x);
          wl.ta.push_back(a);
        }
      }
    }
  }
  return w;
}

class KeepCpuTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    // With --benchmark_repetitions the fastest repetition counts: the
    // machine may be shared, and other load only ever adds time.
    for (const auto& r : runs) {
      if (r.run_type != Run::RT_Iteration) continue;
      std::string name = r.run_name.function_name;
      auto it = times.find(name);
      double t = r.GetAdjustedCPUTime();
      if (it == times.end() || t < it->second) times[name] = t;
    }
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> times;
};

void run_sweep(benchmark::State& st, const Workload* w, const Impl* f) {
  const std::size_t n = w->tx.size();
  for (auto _ : st) {
    double s = 0.0;
    for (std::size_t i = 0; i < n; ++i) s += (*f)(w->tx[i], w->ta[i]);
    benchmark::DoNotOptimize(s);
  }
  st.SetItemsProcessed(static_cast<int64_t>(st.iterations() * n));
}

}  // namespace

int main(int argc, char** argv) {
  gsl_set_error_handler_off();
  auto workloads = make_workloads();
  for (const auto& w : workloads)
    for (const auto& p : w.peers)
      benchmark::RegisterBenchmark((std::string(w.name) + "/" + p.who).c_str(), run_sweep, &w, &p.f)
          ->Unit(benchmark::kMicrosecond);
  benchmark::Initialize(&argc, argv);
  KeepCpuTimes rep;
  benchmark::RunSpecifiedBenchmarks(&rep);

  std::printf(
      "\nns per call over each timing sweep; ratio = zem / peer (below 1: zem faster);\n"
      "worst error over the reference table in ulps (near zeros: absolute, in ulps\n"
      "of the envelope)\n");
  std::printf("%-10s %-6s %6s %10s %8s %12s\n", "function", "impl", "cases", "ns/call", "ratio",
              "worst ulps");
  for (const auto& w : workloads) {
    const double n = static_cast<double>(w.tx.size());
    auto tz = rep.times.find(std::string(w.name) + "/zem");
    for (const auto& p : w.peers) {
      auto t = rep.times.find(std::string(w.name) + "/" + p.who);
      if (t == rep.times.end() || tz == rep.times.end()) continue;
      double ns = t->second * 1e3 / n;  // times are in microseconds
      std::printf("%-10s %-6s %6zu %10.1f %8.3f %12.3g\n", w.name, p.who, w.tx.size(), ns,
                  tz->second / t->second, worst_error(w, p.f));
    }
  }
  return 0;
}
