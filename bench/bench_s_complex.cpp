// Bessel families of real order and ln Gamma of complex argument against
// GSL and Boost.Math: nanoseconds per call on the same arguments, with the
// worst relative difference from mpmath references beside each time.
//   K_{a+n}(x), n = 0..nl   s18egc | gsl_sf_bessel_Knu per order | boost cyl_bessel_k per order
//   J_{a+n}(x), n = 0..nl   s18ekc | gsl_sf_bessel_Jnu per order | boost cyl_bessel_j per order
//   ln Gamma(z)             s14agc | gsl_sf_lngamma_complex_e
//   J_nu(z), complex z      s17dec (no peer: timing only)
#include <benchmark/benchmark.h>

#include <gsl/gsl_errno.h>
#include <gsl/gsl_sf_bessel.h>
#include <gsl/gsl_sf_gamma.h>

#define BOOST_MATH_DOMAIN_ERROR_POLICY ignore_error
#define BOOST_MATH_OVERFLOW_ERROR_POLICY ignore_error
#define BOOST_MATH_UNDERFLOW_ERROR_POLICY ignore_error
#define BOOST_MATH_EVALUATION_ERROR_POLICY ignore_error
#include <boost/math/special_functions/bessel.hpp>

#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/special/sweep.hpp"
#include "zem/s.h"

namespace {

using zem::test::Case;

struct SeqCase {
  double x, a;
  int nl;
  std::vector<double> ref;
};

// The K (routine 0) and nonnegative-order J (routine 3) sequences of the table.
std::vector<SeqCase> sequences(int routine) {
  std::vector<SeqCase> out;
  for (const Case& c : zem::test::load_table("s_c_real.txt")) {
    if (static_cast<int>(c[0]) != routine || c[3] < 0) continue;
    SeqCase s{c[1], c[2], static_cast<int>(c[3]), {}};
    s.ref.assign(c.begin() + 4, c.end());
    out.push_back(s);
  }
  return out;
}

using SeqImpl = void (*)(double x, double a, int nl, double* out);

void zem_k(double x, double a, int nl, double* out) {
  ZemError e{};
  s18egc(x, a, nl, out, &e);
}
void gsl_k(double x, double a, int nl, double* out) {
  for (int n = 0; n <= nl; ++n) {
    gsl_sf_result r;
    out[n] = gsl_sf_bessel_Knu_e(a + n, x, &r) == GSL_SUCCESS ? r.val : NAN;
  }
}
void boost_k(double x, double a, int nl, double* out) {
  for (int n = 0; n <= nl; ++n) out[n] = boost::math::cyl_bessel_k(a + n, x);
}
void zem_j(double x, double a, int nl, double* out) {
  ZemError e{};
  s18ekc(x, a, nl, out, &e);
}
void gsl_j(double x, double a, int nl, double* out) {
  for (int n = 0; n <= nl; ++n) {
    gsl_sf_result r;
    out[n] = gsl_sf_bessel_Jnu_e(a + n, x, &r) == GSL_SUCCESS ? r.val : NAN;
  }
}
void boost_j(double x, double a, int nl, double* out) {
  for (int n = 0; n <= nl; ++n) out[n] = boost::math::cyl_bessel_j(a + n, x);
}

double seq_error(const std::vector<SeqCase>& cs, SeqImpl f, bool oscillating) {
  double worst = 0.0;
  std::vector<double> out(102);
  for (const SeqCase& c : cs) {
    f(c.x, c.a, c.nl, out.data());
    for (std::size_t k = 0; k < c.ref.size(); ++k) {
      // Beyond the turning point J oscillates with amplitude about
      // sqrt(2/(pi x)): near its zeros the error is taken against half that.
      const double order = c.a + static_cast<double>(k);
      const double floor = oscillating && c.x > order ? 0.5 * std::sqrt(2.0 / (3.14159265358979 * c.x)) : DBL_MIN;
      worst = std::max(worst, std::fabs(out[k] - c.ref[k]) / std::max(std::fabs(c.ref[k]), floor));
    }
  }
  return worst;
}

void run_seq(benchmark::State& st, int routine, SeqImpl f) {
  static std::vector<SeqCase> k = sequences(0), j = sequences(3);
  const std::vector<SeqCase>& cs = routine == 0 ? k : j;
  std::vector<double> out(102);
  std::size_t members = 0;
  for (const SeqCase& c : cs) members += static_cast<std::size_t>(c.nl) + 1;
  for (auto _ : st) {
    for (const SeqCase& c : cs) {
      f(c.x, c.a, c.nl, out.data());
      benchmark::DoNotOptimize(out.data());
    }
  }
  // Seconds per member of a sequence.
  st.counters["per_member"] = benchmark::Counter(
      static_cast<double>(members), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  st.counters["worst_rel"] = seq_error(cs, f, routine == 3);
}

struct GammaCase {
  std::complex<double> z, ref;
};
std::vector<GammaCase> gamma_cases() {
  std::vector<GammaCase> out;
  for (const Case& c : zem::test::load_table("s_c_gamma.txt"))
    if (c[0] < 0) out.push_back({{c[1], c[2]}, {c[3], c[4]}});
  return out;
}

std::complex<double> zem_lngamma(std::complex<double> z) {
  ZemError e{};
  const ZemComplex r = s14agc(ZemComplex{z.real(), z.imag()}, &e);
  return {r.re, r.im};
}
std::complex<double> gsl_lngamma(std::complex<double> z) {
  gsl_sf_result lr, arg;
  if (gsl_sf_lngamma_complex_e(z.real(), z.imag(), &lr, &arg) != GSL_SUCCESS) return NAN;
  return {lr.val, arg.val};
}

void run_gamma(benchmark::State& st, std::complex<double> (*f)(std::complex<double>)) {
  static const std::vector<GammaCase> cs = gamma_cases();
  for (auto _ : st)
    for (const GammaCase& c : cs) benchmark::DoNotOptimize(f(c.z));
  st.counters["per_call"] = benchmark::Counter(
      static_cast<double>(cs.size()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  // GSL reduces the imaginary part to (-pi, pi]: the real parts are compared
  // (against 1 where smaller), and the phases through exp(i Im).
  double worst = 0.0;
  for (const GammaCase& c : cs) {
    const std::complex<double> g = f(c.z);
    const double er = std::fabs(g.real() - c.ref.real()) / std::max(1.0, std::fabs(c.ref.real()));
    const double ei = std::abs(std::polar(1.0, g.imag()) - std::polar(1.0, c.ref.imag()));
    worst = std::max(worst, std::max(er, ei));
  }
  st.counters["worst"] = worst;
}

void run_complex_j(benchmark::State& st) {
  std::vector<std::complex<double>> zs;
  for (int i = 0; i < 200; ++i) zs.push_back(std::polar(std::pow(10.0, -1.0 + 3.0 * i / 200.0), -3.0 + 6.0 * ((i * 37) % 200) / 200.0));
  ZemComplex cy[3];
  int32_t nz;
  for (auto _ : st)
    for (const auto& z : zs) {
      ZemError e{};
      s17dec(1.25, ZemComplex{z.real(), z.imag()}, 3, Zem_UnscaleRes, cy, &nz, &e);
      benchmark::DoNotOptimize(cy);
    }
  st.counters["per_call"] = benchmark::Counter(
      static_cast<double>(zs.size()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace

int main(int argc, char** argv) {
  gsl_set_error_handler_off();
  benchmark::RegisterBenchmark("K_seq/zem", run_seq, 0, zem_k);
  benchmark::RegisterBenchmark("K_seq/gsl", run_seq, 0, gsl_k);
  benchmark::RegisterBenchmark("K_seq/boost", run_seq, 0, boost_k);
  benchmark::RegisterBenchmark("J_seq/zem", run_seq, 3, zem_j);
  benchmark::RegisterBenchmark("J_seq/gsl", run_seq, 3, gsl_j);
  benchmark::RegisterBenchmark("J_seq/boost", run_seq, 3, boost_j);
  benchmark::RegisterBenchmark("lngamma_z/zem", run_gamma, zem_lngamma);
  benchmark::RegisterBenchmark("lngamma_z/gsl", run_gamma, gsl_lngamma);
  benchmark::RegisterBenchmark("J_z_seq3/zem", run_complex_j);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
