// The battery of integrals of the quadrature tests and benchmarks: the
// integrands by name, as tools/d01_refs.py defines them, and the cases of
// tests/data/d01_battery.txt.
#pragma once
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace d01test {

// The integrands, as tools/d01_refs.py defines them.
inline const std::map<std::string, double (*)(double)>& integrands() {
  static const std::map<std::string, double (*)(double)> m = {
      {"log_over_sqrt", [](double x) { return std::log(x) / std::sqrt(x); }},
      {"x2.6_log", [](double x) { return std::pow(x, 2.6) * std::log(1.0 / x); }},
      {"x^-0.9", [](double x) { return std::pow(x, -0.9); }},
      {"sqrt_log", [](double x) { return std::sqrt(x) * std::log(x); }},
      {"lorentz_peak", [](double x) { return 1.0 / (1e-4 + (x - 0.3) * (x - 0.3)); }},
      {"gauss_peak", [](double x) { return std::exp(-1e4 * (x - 0.4) * (x - 0.4)); }},
      {"abs_power_interior", [](double x) { return std::pow(std::fabs(x - 0.33), -0.4); }},
      {"log_abs_interior", [](double x) { return std::log(std::fabs(x - 0.7)); }},
      {"step", [](double x) { return x < 0.5 ? 1.0 : x * x; }},
      {"exp_cos", [](double x) { return std::exp(x) * std::cos(x); }},
      {"cos_100sin", [](double x) { return std::cos(100.0 * std::sin(x)); }},
      {"reversed_lorentz", [](double x) { return 1.0 / (1.0 + x * x); }},
      {"x_sin30_cos50", [](double x) { return x * std::sin(30.0 * x) * std::cos(50.0 * x); }},
      {"x3_log_poly",
       [](double x) { return x * x * x * std::log(std::fabs((x * x - 1.0) * (x * x - 2.0))); }},
      {"signed_exp", [](double x) { return (x < 0.5 ? -1.0 : 1.0) * std::exp(x); }},
      {"log_over_1_100x2", [](double x) { return std::log(x) / (1.0 + 100.0 * x * x); }},
      {"exp_x2", [](double x) { return std::exp(x) * x * x; }},
      {"lorentz_inf", [](double x) { return 1.0 / (1.0 + x * x); }},
      {"inv_sqrt_1px", [](double x) { return 1.0 / ((1.0 + x) * std::sqrt(x)); }},
      {"gauss_cos", [](double x) { return std::exp(-x * x) * std::cos(2.0 * x); }},
      // The Clenshaw-Curtis rules of d01anc and d01asc evaluate the ends
      // of the range: integrable singularities there take the value 0.
      {"log_sin10pi", [](double x) { return x > 0.0 ? std::log(x) : 0.0; }},
      {"expm_cos", [](double x) { return std::exp(-x); }},
      {"x_sin_neg", [](double x) { return x; }},
      {"cos_chebyshev", [](double x) { return std::cos(x); }},
      {"inv_1plog2_sq",
       [](double x) {
         const double l = std::log(x);
         return 1.0 / ((1.0 + l * l) * (1.0 + l * l));
       }},
      {"exp_logb", [](double x) { return std::exp(x); }},
      {"one_loga_logb", [](double) { return 1.0; }},
      {"cubic_pv", [](double x) { return 1.0 / (5.0 * x * x * x + 6.0); }},
      {"exp_pv", [](double x) { return std::exp(x); }},
      {"outside_pv", [](double) { return 1.0; }},
      {"reversed_pv", [](double x) { return std::exp(x); }},
      {"inv_sqrt_cos", [](double x) { return x > 0.0 ? 1.0 / std::sqrt(x) : 0.0; }},
      {"sin2_over_1px", [](double x) { return 1.0 / (1.0 + x); }},
      {"cos_exp_decay", [](double x) { return std::exp(-x / 4.0); }},
  };
  return m;
}

struct Case {
  std::string name, routine;
  std::vector<double> p;
  double ref;
};

inline std::vector<Case> load() {
  std::vector<Case> v;
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/d01_battery.txt");
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream s(line);
    Case c;
    int np = 0;
    s >> c.name >> c.routine >> np;
    c.p.resize(np);
    for (auto& x : c.p) s >> x;
    s >> c.ref;
    v.push_back(c);
  }
  return v;
}

}  // namespace d01test
