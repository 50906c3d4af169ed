// The exported routines of the m01 chapter: argument checks and reports
// around the cores of sort/sort_core.hpp.
#include <atomic>
#include <cstdint>
#include <cstdio>

#include "frame/report.hpp"
#include "frame/workspace.hpp"
#include "sort/sort_core.hpp"
#include "zem/m01.h"

namespace {

using zem::Call;
namespace ms = zem::sort;

// One pivot word per sorting routine (m01cac, m01csc, m01cuc).
std::atomic<std::uint32_t> g_word_vector{ms::kWordStart};
std::atomic<std::uint32_t> g_word_records{ms::kWordStart};
std::atomic<std::uint32_t> g_word_strings{ms::kWordStart};

// ---------------------------------------------------------------------------
// Checks shared by the chapter.

bool bad_order(Call& call, std::int32_t order) {
  return call.enum_in("order", order, {Zem_Ascending, Zem_Descending});
}

// A count must lie in [1, 268435455].
bool bad_count(Call& call, std::size_t n) {
  if (n == 0) {
    call.report(NE_INT_ARG_LT, "n", "1", "n", 0L);
    return true;
  }
  if (n > ms::kMaxCount) {
    call.report(NE_INT_ARG_GT, "n", "268435455", "n", static_cast<long>(n));
    return true;
  }
  return false;
}

unsigned long magnitude(std::ptrdiff_t stride) {
  return stride < 0 ? 0UL - static_cast<unsigned long>(stride) : static_cast<unsigned long>(stride);
}

// Records of `size` bytes, `stride` bytes apart: size >= 1, |stride| >= size.
bool bad_layout(Call& call, std::size_t size, std::ptrdiff_t stride) {
  if (size == 0) {
    call.report(NE_INT_ARG_LT, "size", "1", "size", 0L);
    return true;
  }
  if (magnitude(stride) < size) {
    call.report(NE_2_INT_ARG_LT, "|stride|", static_cast<long>(magnitude(stride)), "size",
                static_cast<long>(size), "|stride|", "size");
    return true;
  }
  return false;
}

// A stride alone (ranking and searching read records without moving them).
bool bad_stride(Call& call, std::ptrdiff_t stride) {
  if (stride != 0) return false;
  call.report(NE_INT_ARG_EQ, "stride", "0", "stride", 0L);
  return true;
}

// A rank or index vector: every entry in [0, n) (row NE_BAD_RANK).
bool bad_range(Call& call, const std::int32_t* p, std::size_t n) {
  if (ms::first_out_of_range(p, n) == n) return false;
  call.report_null(NE_BAD_RANK);
  return true;
}

// A value that occurs twice in what must be a permutation: NE_BAD_RANK with
// the routine's own text.
void report_repeat(Call& call, const char* name, long value) {
  char v[24];
  std::snprintf(v, sizeof v, "%ld", value);
  call.report_own(NE_BAD_RANK,
                  "NE_BAD_RANK:\n    On entry, %s is not a permutation of 0 to n-1: "
                  "the value %s occurs more than once.",
                  name, v);
}

// Ranks of records (stable): ranks[i] is the position record i takes.
// Returns false when the merge buffer cannot be had.
bool rank_records(const ms::RecordSeq& s, std::size_t n, std::int32_t* ranks) {
  auto by_record = [&s](std::int32_t a, std::int32_t b) {
    return s.less(static_cast<std::size_t>(a), static_cast<std::size_t>(b));
  };
  // The merge buffer: on the stack for short vectors, else from the heap.
  std::int32_t local[512];
  if (n <= 512) {
    ms::sort_positions(ranks, local, n, by_record);
  } else {
    zem::Workspace<std::int32_t> tmp(n);
    if (!tmp) return false;
    ms::sort_positions(ranks, tmp.get(), n, by_record);
  }
  // The sorted positions are the inverse of the ranks.
  for (std::size_t i = 0; i < n; ++i) ranks[i] |= ms::kMark;
  ms::invert_marked(ranks, n);
  return true;
}

}  // namespace

extern "C" {

ZEM_API void m01cac(double vec[], uint32_t n, Zem_SortOrder order, ZemError* fail) {
  Call call("m01cac", fail);
  if (bad_order(call, order)) return;
  if (bad_count(call, n)) return;
  if (call.null("vec", vec)) return;
  const ms::DoubleSeq s{vec};
  ms::quicksort(s, n, g_word_vector);
  if (order == Zem_Descending) ms::reverse(s, n);
  call.success();
}

ZEM_API void m01csc(void* vec, uint32_t n, int32_t stride, uint32_t size, Zem_M01_Compare compare,
                    Zem_SortOrder order, ZemError* fail) {
  Call call("m01csc", fail);
  if (bad_order(call, order)) return;
  if (bad_count(call, n)) return;
  if (bad_layout(call, size, stride)) return;
  if (call.null("vec", vec) || call.null("compare", reinterpret_cast<const void*>(compare)))
    return;
  const ms::RecordSeq s{static_cast<unsigned char*>(vec), stride, size, compare, false};
  ms::quicksort(s, n, g_word_records);
  if (order == Zem_Descending) ms::reverse(s, n);
  call.success();
}

ZEM_API void m01ctc(void* vec, uint32_t n, int32_t stride, uint32_t size, Zem_M01_Compare compare,
                    Zem_SortOrder order, ZemError* fail) {
  Call call("m01ctc", fail);
  if (bad_order(call, order)) return;
  if (bad_count(call, n)) return;
  if (bad_layout(call, size, stride)) return;
  if (call.null("vec", vec) || call.null("compare", reinterpret_cast<const void*>(compare)))
    return;
  zem::Workspace<std::int32_t> idx(n);
  zem::Workspace<std::int32_t> tmp(n);
  zem::Workspace<unsigned char> held(size);
  if (!idx || !tmp || !held) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  const ms::RecordSeq s{static_cast<unsigned char*>(vec), stride, size, compare,
                        order == Zem_Descending};
  ms::sort_positions(idx.get(), tmp.get(), n, [&s](std::int32_t a, std::int32_t b) {
    return s.less(static_cast<std::size_t>(a), static_cast<std::size_t>(b));
  });
  ms::RecordMover mover{static_cast<unsigned char*>(vec), stride, size, held.get()};
  ms::gather(idx.get(), n, mover);
  call.success();
}

ZEM_API void m01cuc(const char* vec[], uint32_t n, Zem_SortOrder order, ZemError* fail) {
  Call call("m01cuc", fail);
  if (bad_order(call, order)) return;
  if (bad_count(call, n)) return;
  if (call.null("vec", vec)) return;
  for (size_t i = 0; i < n; ++i)
    if (!vec[i]) {
      char name[32];
      std::snprintf(name, sizeof name, "vec[%zu]", i);
      call.report(NE_BAD_PARAM, name);
      return;
    }
  const ms::StringSeq s{vec, false};
  ms::quicksort(s, n, g_word_strings);
  if (order == Zem_Descending) ms::reverse(s, n);
  call.success();
}

ZEM_API void m01dsc(const void* vec, uint32_t n, int32_t stride, Zem_M01_Compare compare,
                    Zem_SortOrder order, int32_t ranks[], ZemError* fail) {
  Call call("m01dsc", fail);
  if (bad_order(call, order)) return;
  if (bad_count(call, n)) return;
  if (bad_stride(call, stride)) return;
  if (call.null("vec", vec) || call.null("compare", reinterpret_cast<const void*>(compare)) ||
      call.null("ranks", ranks))
    return;
  // The records are only read: size plays no part.
  const ms::RecordSeq s{static_cast<unsigned char*>(const_cast<void*>(vec)), stride, 1, compare,
                        order == Zem_Descending};
  if (!rank_records(s, n, ranks)) {
    call.report_null(NE_ALLOC_FAIL);
    return;
  }
  call.success();
}

ZEM_API void m01esc(void* vec, uint32_t n, int32_t stride, uint32_t size, int32_t indices[],
                    ZemError* fail) {
  Call call("m01esc", fail);
  if (bad_count(call, n)) return;
  if (bad_layout(call, size, stride)) return;
  if (call.null("vec", vec) || call.null("indices", indices)) return;
  if (bad_range(call, indices, n)) return;
  const size_t rep = ms::first_repeat(indices, n);
  if (rep < n) {
    report_repeat(call, "indices", indices[rep]);
    return;
  }
  // One record is held aside while a cycle moves: on the stack when small.
  auto reorder = [&](unsigned char* held) {
    ms::RecordMover mover{static_cast<unsigned char*>(vec), stride, size, held};
    ms::gather(indices, n, mover);
  };
  unsigned char local[256];
  if (size <= sizeof local) {
    reorder(local);
  } else {
    zem::Workspace<unsigned char> big(size);
    if (!big) {
      call.report_null(NE_ALLOC_FAIL);
      return;
    }
    reorder(big.get());
  }
  call.success();
}

ZEM_API int32_t m01fsc(const void* key, const void* vec, uint32_t n, int32_t stride,
                       Zem_M01_Compare compare, Zem_SortOrder order, Zem_SearchFinal final,
                       ZemError* fail) {
  Call call("m01fsc", fail);
  if (bad_order(call, order)) return -1;
  if (call.enum_in("final", final, {Zem_First, Zem_Last})) return -1;
  if (bad_count(call, n)) return -1;
  if (bad_stride(call, stride)) return -1;
  if (call.null("key", key) || call.null("vec", vec) ||
      call.null("compare", reinterpret_cast<const void*>(compare)))
    return -1;
  const ms::RecordSeq s{static_cast<unsigned char*>(const_cast<void*>(vec)), stride, 1, compare,
                        order == Zem_Descending};
  auto before = [&](std::size_t i) { return s.before(s.at(i), key); };
  auto after = [&](std::size_t i) { return s.before(key, s.at(i)); };
  int32_t found = -1;
  if (final == Zem_First) {
    const std::size_t i = ms::bound(n, true, before, after);
    if (i < n && !after(i)) found = static_cast<int32_t>(i);
  } else {
    const std::size_t i = ms::bound(n, false, before, after);
    if (i > 0 && !before(i - 1)) found = static_cast<int32_t>(i - 1);
  }
  call.success();
  return found;
}

ZEM_API void m01zac(int32_t ranks[], uint32_t n, ZemError* fail) {
  Call call("m01zac", fail);
  if (bad_count(call, n)) return;
  if (call.null("ranks", ranks)) return;
  // First pass: each rank below n, marked in place.  A bad rank stops the
  // pass and leaves the marks already set.
  for (size_t i = 0; i < n; ++i) {
    if (ranks[i] < 0 || static_cast<size_t>(ranks[i]) >= n) {
      call.report_null(NE_BAD_RANK);
      return;
    }
    ranks[i] |= ms::kMark;
  }
  if (!ms::invert_marked(ranks, n)) {
    call.report_own(NE_BAD_RANK,
                    "NE_BAD_RANK:\n    On entry, %s is not a permutation of 0 to n-1: "
                    "a rank occurs more than once.",
                    "ranks");
    return;
  }
  call.success();
}

}  // extern "C"
