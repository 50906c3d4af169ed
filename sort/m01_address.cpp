// The by-address forms of the m01 chapter (m01caf_f, m01daf_f, m01eaf_f,
// m01zaf_f): 1-based inclusive positions m1..m2, a one-letter order, and the
// mode word ifail of the core layer, with failures explained through
// p01abf_f.  They share the cores of sort/sort_core.hpp with the plain forms.
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "frame/workspace.hpp"
#include "sort/sort_core.hpp"
#include "zem/m01.h"
#include "zem/p01.h"

namespace {

namespace ms = zem::sort;

std::atomic<std::uint32_t> g_word{ms::kWordStart};

constexpr int kLine = 100;

// Ends a call: the failure (0 for none) goes through the advisory exit with
// the prepared line, and ifail takes what it returns.
void finish(std::int32_t* ifail, int ierror, const char* name, const char* line) {
  const std::int32_t mode = ifail ? *ifail : 0;
  const std::int32_t err = ierror;
  const std::int32_t nrec = ierror != 0 ? 1 : 0;
  const std::int32_t r =
      p01abf_f(&mode, &err, name, &nrec, line, std::strlen(name), std::strlen(line));
  if (ifail) *ifail = r;
}

// Failure 1: the positions m1..m2, and the arrays that must be there.
bool bad_positions(const std::int32_t* m1, const std::int32_t* m2, const void* a, const void* b,
                   char line[kLine]) {
  if (!m1 || !m2 || !a || !b) {
    std::snprintf(line, kLine, " ** On entry, an argument is a null pointer.");
    return true;
  }
  if (*m2 < 1) {
    std::snprintf(line, kLine, " ** On entry, M2 .lt. 1: M2 = %16ld.", static_cast<long>(*m2));
    return true;
  }
  if (*m1 < 1 || *m1 > *m2) {
    std::snprintf(line, kLine, " ** On entry, M1 .lt. 1 or M1 .gt. M2: M1 = %ld, M2 = %ld.",
                  static_cast<long>(*m1), static_cast<long>(*m2));
    return true;
  }
  if (static_cast<std::size_t>(*m2) > ms::kMaxCount) {
    std::snprintf(line, kLine, " ** On entry, M2 .gt. 268435455: M2 = %16ld.",
                  static_cast<long>(*m2));
    return true;
  }
  return false;
}

// Failure 2: the order letter.  Sets *descending.
bool bad_letter(const char* order, bool* descending, char line[kLine]) {
  const char c = order ? order[0] : ' ';
  if (c == 'A' || c == 'a' || c == 'D' || c == 'd') {
    *descending = c == 'D' || c == 'd';
    return false;
  }
  std::snprintf(line, kLine, " ** On entry, ORDER has an illegal value: ORDER = '%c'.",
                order ? order[0] : ' ');
  return true;
}

// The entries p[0..n) hold positions base..base+n-1 of the whole vector;
// shifts them to 0..n-1 and checks that they form a permutation.  Returns 0,
// 2 (out of range) or 3 (repeated); the entries are shifted back on failure.
int to_permutation(std::int32_t* p, std::size_t n, std::int32_t base, char line[kLine]) {
  for (std::size_t i = 0; i < n; ++i) {
    const long v = static_cast<long>(p[i]) - base;
    if (v < 0 || static_cast<std::size_t>(v) >= n) {
      for (std::size_t k = 0; k < i; ++k) p[k] += base;
      std::snprintf(line, kLine, " ** On entry, element %ld is out of range: %ld.",
                    static_cast<long>(i) + base + 1, static_cast<long>(p[i]));
      return 2;
    }
    p[i] = static_cast<std::int32_t>(v);
  }
  const std::size_t rep = ms::first_repeat(p, n);
  if (rep < n) {
    for (std::size_t k = 0; k < n; ++k) p[k] += base;
    std::snprintf(line, kLine, " ** On entry, the value %ld occurs more than once.",
                  static_cast<long>(p[rep]));
    return 3;
  }
  return 0;
}

void shift(std::int32_t* p, std::size_t n, std::int32_t base) {
  for (std::size_t i = 0; i < n; ++i) p[i] += base;
}

}  // namespace

extern "C" {

ZEM_API void m01caf_f(double rv[], const int32_t* m1, const int32_t* m2, const char* order,
                      int32_t* ifail, size_t) {
  char line[kLine] = "";
  bool descending = false;
  int ierror = 0;
  if (bad_positions(m1, m2, rv, rv, line))
    ierror = 1;
  else if (bad_letter(order, &descending, line))
    ierror = 2;
  if (ierror == 0) {
    const std::size_t n = static_cast<std::size_t>(*m2 - *m1 + 1);
    const ms::DoubleSeq s{rv + (*m1 - 1)};
    ms::quicksort(s, n, g_word);
    if (descending) ms::reverse(s, n);
  }
  finish(ifail, ierror, "M01CAF", line);
}

ZEM_API void m01daf_f(const double rv[], const int32_t* m1, const int32_t* m2, const char* order,
                      int32_t irank[], int32_t* ifail, size_t) {
  char line[kLine] = "";
  bool descending = false;
  int ierror = 0;
  if (bad_positions(m1, m2, rv, irank, line))
    ierror = 1;
  else if (bad_letter(order, &descending, line))
    ierror = 2;
  if (ierror == 0) {
    const std::size_t n = static_cast<std::size_t>(*m2 - *m1 + 1);
    const double* v = rv + (*m1 - 1);
    std::int32_t* r = irank + (*m1 - 1);
    zem::Workspace<std::int32_t> tmp(n);
    if (!tmp) {
      std::snprintf(line, kLine, " ** Not enough workspace for N = %ld elements.",
                    static_cast<long>(n));
      ierror = 3;
    } else {
      if (descending)
        ms::sort_positions(r, tmp.get(), n, [v](std::int32_t a, std::int32_t b) { return v[b] < v[a]; });
      else
        ms::sort_positions(r, tmp.get(), n, [v](std::int32_t a, std::int32_t b) { return v[a] < v[b]; });
      for (std::size_t i = 0; i < n; ++i) r[i] |= ms::kMark;
      ms::invert_marked(r, n);
      shift(r, n, *m1 - 1);
    }
  }
  finish(ifail, ierror, "M01DAF", line);
}

ZEM_API void m01eaf_f(double rv[], const int32_t* m1, const int32_t* m2, int32_t irank[],
                      int32_t* ifail) {
  char line[kLine] = "";
  int ierror = 0;
  if (bad_positions(m1, m2, rv, irank, line)) ierror = 1;
  if (ierror == 0) {
    const std::size_t n = static_cast<std::size_t>(*m2 - *m1 + 1);
    std::int32_t* r = irank + (*m1 - 1);
    if (to_permutation(r, n, *m1 - 1, line) != 0) {
      ierror = 2;
    } else {
      ms::DoubleMover mover{rv + (*m1 - 1)};
      ms::scatter(r, n, mover);
      shift(r, n, *m1 - 1);
    }
  }
  finish(ifail, ierror, "M01EAF", line);
}

ZEM_API void m01zaf_f(int32_t iperm[], const int32_t* m1, const int32_t* m2, int32_t* ifail) {
  char line[kLine] = "";
  int ierror = 0;
  if (bad_positions(m1, m2, iperm, iperm, line)) ierror = 1;
  if (ierror == 0) {
    const std::size_t n = static_cast<std::size_t>(*m2 - *m1 + 1);
    std::int32_t* p = iperm + (*m1 - 1);
    ierror = to_permutation(p, n, *m1 - 1, line);
    if (ierror == 0) {
      for (std::size_t i = 0; i < n; ++i) p[i] |= ms::kMark;
      ms::invert_marked(p, n);
      shift(p, n, *m1 - 1);
    }
  }
  finish(ifail, ierror, "M01ZAF", line);
}

}  // extern "C"
