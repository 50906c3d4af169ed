// Reference polynomials of the c02 tests (tests/data/c02_*.txt, written by
// tools/gen_c02_data.py) and the checks shared by the c02 test files.
#pragma once
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace c02test {

using cplx = std::complex<double>;
using lcplx = std::complex<long double>;

inline constexpr double kU = 0x1p-53;

struct Case {
  std::string name;
  bool real = false;
  int n = 0;
  std::vector<cplx> a;        // highest power first
  std::vector<lcplx> zeros;   // reference zeros
  std::vector<double> radius; // rounding radius of each zero
};

inline std::vector<Case> read_cases(const std::string& file) {
  std::ifstream in(std::string(ZEM_TEST_DATA) + "/" + file);
  std::vector<Case> out;
  std::string line;
  Case c;
  while (std::getline(in, line)) {
    std::istringstream s(line);
    std::string tag;
    s >> tag;
    if (tag == "case") {
      std::string kind;
      c = Case{};
      s >> c.name >> kind >> c.n;
      c.real = kind == "real";
    } else if (tag == "a") {
      std::string re, im;
      s >> re >> im;
      c.a.emplace_back(std::strtod(re.c_str(), nullptr), std::strtod(im.c_str(), nullptr));
    } else if (tag == "z") {
      std::string re, im, r;
      s >> re >> im >> r;
      c.zeros.emplace_back(std::strtold(re.c_str(), nullptr), std::strtold(im.c_str(), nullptr));
      c.radius.push_back(std::strtod(r.c_str(), nullptr));
    } else if (tag == "end") {
      out.push_back(c);
    }
  }
  return out;
}

inline const Case& find_case(const std::vector<Case>& cases, const std::string& name) {
  for (const Case& c : cases)
    if (c.name == name) return c;
  ADD_FAILURE() << "no case " << name;
  static const Case none;
  return none;
}

// Matches each reference zero (those with the smallest tolerance first) to
// the nearest computed zero not yet taken, and checks the distance against
// factor * radius plus a few units in the last place of the zero.
inline void expect_zeros_near(const Case& c, const std::vector<cplx>& got, double factor,
                              const std::string& what) {
  ASSERT_EQ(got.size(), c.zeros.size()) << what;
  const std::size_t n = got.size();
  std::vector<std::size_t> order(n);
  for (std::size_t i = 0; i < n; ++i) order[i] = i;
  std::sort(order.begin(), order.end(),
            [&](std::size_t i, std::size_t j) { return c.radius[i] < c.radius[j]; });
  std::vector<bool> taken(n, false);
  for (std::size_t i : order) {
    std::size_t best = n;
    long double dist = INFINITY;
    for (std::size_t j = 0; j < n; ++j) {
      if (taken[j]) continue;
      const long double d = std::abs(lcplx(got[j].real(), got[j].imag()) - c.zeros[i]);
      if (d < dist) {
        dist = d;
        best = j;
      }
    }
    taken[best] = true;
    const double tol = factor * c.radius[i] + 4.0 * kU * static_cast<double>(std::abs(c.zeros[i]));
    EXPECT_LE(static_cast<double>(dist), tol)
        << what << ": reference zero (" << static_cast<double>(c.zeros[i].real()) << ", "
        << static_cast<double>(c.zeros[i].imag()) << ") got (" << got[best].real() << ", "
        << got[best].imag() << ")";
  }
}

// Backward error of a computed zero: |p(z)| / sum |a_j| |z|^(n-j), in long
// double, in units of u.
inline double backward_error(const std::vector<cplx>& a, cplx z) {
  const lcplx x(z.real(), z.imag());
  const long double ax = std::abs(x);
  lcplx p = 0;
  long double s = 0;
  for (const cplx& c : a) {
    p = p * x + lcplx(c.real(), c.imag());
    s = s * ax + std::abs(lcplx(c.real(), c.imag()));
  }
  if (s == 0) return 0.0;
  return static_cast<double>(std::abs(p) / s) / kU;
}

}  // namespace c02test
