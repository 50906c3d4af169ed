// Accuracy sweeps of the special functions against reference tables.
//
// A table is a text file under tests/data: one case per line, numbers
// separated by blanks (arguments first, then the reference values), lines
// starting with '#' ignored.  The references are computed offline with
// mpmath at 50 digits and written with 17 significant digits, so that each
// is the double nearest to the true value.
//
// A Sweep collects the worst error of one routine over its table and
// prints one line of the accuracy table:
//   SWEEP <routine> <cases> <worst error> <unit> at <argument>
#pragma once
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace zem::test {

using Case = std::vector<double>;

inline std::vector<Case> load_table(const std::string& file) {
  std::vector<Case> rows;
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/" + file);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream ss(line);
    Case c;
    std::string tok;
    // strtod reads inf, nan and hexadecimal forms that operator>> does not.
    while (ss >> tok) c.push_back(std::strtod(tok.c_str(), nullptr));
    if (!c.empty()) rows.push_back(std::move(c));
  }
  return rows;
}

// Error of got in units of the spacing of doubles at want (for want == 0,
// the spacing at the smallest normal number).
inline double ulp_error(double got, double want) {
  if (got == want) return 0.0;
  if (std::isnan(got) || std::isnan(want)) return std::numeric_limits<double>::infinity();
  double a = std::fabs(want);
  if (a < std::numeric_limits<double>::min()) a = std::numeric_limits<double>::min();
  int e;
  std::frexp(a, &e);
  double ulp = std::ldexp(1.0, e - 53);
  return std::fabs(got - want) / ulp;
}

// Relative error, or absolute error where |want| < floor (near zeros of the
// function, where a relative error means nothing).
inline double rel_error(double got, double want, double floor = 0.0) {
  if (got == want) return 0.0;
  if (std::isnan(got) || std::isnan(want)) return std::numeric_limits<double>::infinity();
  double d = std::fabs(got - want);
  double a = std::fabs(want);
  return a < floor || a == 0.0 ? d : d / a;
}

struct Sweep {
  std::string name;
  const char* unit;  // "ulp" or "rel"
  std::size_t cases = 0;
  double worst = 0.0;
  double at = 0.0;
  Sweep(std::string n, const char* u) : name(std::move(n)), unit(u) {}
  void add(double err, double arg) {
    ++cases;
    if (!(err <= worst)) {  // NaN errors count as worst
      worst = err;
      at = arg;
    }
  }
  void print() const {
    std::printf("SWEEP %-8s %6zu %10.3g %s at %.17g\n", name.c_str(), cases, worst, unit, at);
  }
};

}  // namespace zem::test
