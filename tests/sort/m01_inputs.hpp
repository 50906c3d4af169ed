// Input orders for the sorting tests and benchmarks, including two inputs
// built to make median-of-three quicksort degrade.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace m01test {

enum class Kind { Random, Sorted, Reversed, Equal, OrganPipe, FewDistinct, Sawtooth, Killer, StdKiller };

inline const char* kind_name(Kind k) {
  switch (k) {
    case Kind::Random: return "random";
    case Kind::Sorted: return "sorted";
    case Kind::Reversed: return "reversed";
    case Kind::Equal: return "equal";
    case Kind::OrganPipe: return "organ_pipe";
    case Kind::FewDistinct: return "few_distinct";
    case Kind::Sawtooth: return "sawtooth";
    case Kind::Killer: return "median3_killer";
    case Kind::StdKiller: return "adversary_vs_std_sort";
  }
  return "?";
}

inline constexpr Kind kAllKinds[] = {Kind::Random,      Kind::Sorted,   Kind::Reversed,
                                     Kind::Equal,       Kind::OrganPipe, Kind::FewDistinct,
                                     Kind::Sawtooth,    Kind::Killer,   Kind::StdKiller};

// The input that drives the library's median-of-three quicksort (median of
// the ends and the middle moved next to the left end, scans that stop on
// equal keys) to its worst case when no random swap intervenes: at every
// level the two smallest remaining keys sit at the left end and the middle,
// so that the pivot is the second smallest and the split leaves one element
// on the left.  Built by playing the sort forward, which costs O(n) because
// such a partition moves nothing but the three sampled elements.
inline std::vector<double> median3_killer(std::size_t n) {
  std::vector<std::size_t> item(n);
  std::iota(item.begin(), item.end(), 0);
  std::vector<long> val(n, -1);
  long next = 0;
  std::size_t l = 0;
  const std::size_t r = n ? n - 1 : 0;
  while (n && r - l + 1 > 15) {
    const std::size_t m = l + (r - l) / 2;
    val[item[l]] = next++;
    val[item[m]] = next++;
    std::swap(item[m], item[l + 1]);
    l += 2;
  }
  for (std::size_t p = l; p < n; ++p)
    if (val[item[p]] < 0) val[item[p]] = next++;
  return std::vector<double>(val.begin(), val.end());
}

// McIlroy's adversary ("A killer adversary for quicksort", Software:
// Practice and Experience 29, 1999) played against std::sort: keys are
// decided only when the sort compares them, always so that its pivot is
// nearly the smallest.  The keys it settles on form a fixed input that
// drives std::sort into its fallback.
inline std::vector<double> adversary_vs_std_sort(std::size_t n) {
  const long gas = static_cast<long>(n);
  std::vector<long> val(n, gas);
  long solid = 0;
  std::size_t candidate = n;
  std::vector<std::size_t> ptr(n);
  std::iota(ptr.begin(), ptr.end(), 0);
  std::sort(ptr.begin(), ptr.end(), [&](std::size_t x, std::size_t y) {
    if (val[x] == gas && val[y] == gas) {
      if (x == candidate)
        val[x] = solid++;
      else
        val[y] = solid++;
    }
    if (val[x] == gas)
      candidate = x;
    else if (val[y] == gas)
      candidate = y;
    return val[x] < val[y];
  });
  return std::vector<double>(val.begin(), val.end());
}

inline std::vector<double> make_input(Kind k, std::size_t n, std::uint32_t seed = 7) {
  std::vector<double> v(n);
  std::mt19937 gen(seed);
  switch (k) {
    case Kind::Random: {
      std::uniform_real_distribution<double> u(-1.0, 1.0);
      for (auto& x : v) x = u(gen);
      break;
    }
    case Kind::Sorted:
      for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i);
      break;
    case Kind::Reversed:
      for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(n - i);
      break;
    case Kind::Equal:
      std::fill(v.begin(), v.end(), 3.5);
      break;
    case Kind::OrganPipe:
      for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(std::min(i, n - 1 - i));
      break;
    case Kind::FewDistinct: {
      std::uniform_int_distribution<int> u(0, 4);
      for (auto& x : v) x = u(gen);
      break;
    }
    case Kind::Sawtooth:
      for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i % 97);
      break;
    case Kind::Killer:
      v = median3_killer(n);
      break;
    case Kind::StdKiller:
      v = adversary_vs_std_sort(n);
      break;
  }
  return v;
}

}  // namespace m01test
