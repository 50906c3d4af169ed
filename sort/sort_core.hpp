// The sorting, ranking and searching cores of the m01 chapter.  Everything
// here is written once over a "sequence": an object that compares and swaps
// the elements at two positions.  The sequences of this file are a vector of
// doubles, records of any size at any stride compared through a callback,
// and a vector of C strings.  The cores know nothing of the error record.
#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zem::sort {

// The largest count the chapter accepts, and the bit that marks an entry of
// a rank or index vector during a pass over it.  Counts stay below the mark,
// so a marked entry never looks like a valid rank.
inline constexpr std::size_t kMaxCount = 0xfffffff;
inline constexpr std::int32_t kMark = 0x40000000;
inline constexpr std::int32_t kValue = kMark - 1;

// Segments of at most this many elements are left to the insertion pass.
inline constexpr std::size_t kSmall = 15;

// The generator behind the random pivot swap: one 32-bit word per sorting
// routine, shared by all threads and stepped without a lock.  A race changes
// which element is chosen, never the sorted result; relaxed atomics keep the
// race well defined.
inline std::uint32_t next_word(std::atomic<std::uint32_t>& word) noexcept {
  const std::uint32_t w = word.load(std::memory_order_relaxed) * 0x7ff8a3edu + 0x2aa01d31u;
  word.store(w, std::memory_order_relaxed);
  return w;
}
inline constexpr std::uint32_t kWordStart = 123456789u;

// ---------------------------------------------------------------------------
// Sequences.

// A vector of doubles.  The comparison of doubles is deterministic even with
// NaNs present (every comparison with a NaN is false), which keeps the
// partition's scans inside the segment without explicit bounds.
struct DoubleSeq {
  static constexpr bool kTrusted = true;
  double* v;
  bool less(std::size_t i, std::size_t j) const noexcept { return v[i] < v[j]; }
  void swap(std::size_t i, std::size_t j) const noexcept {
    const double t = v[i];
    v[i] = v[j];
    v[j] = t;
  }
  // The pivot is held by value.
  using Pivot = double;
  Pivot pivot(std::size_t k) const noexcept { return v[k]; }
  bool less_pivot(std::size_t i, Pivot p) const noexcept { return v[i] < p; }
  bool pivot_less(Pivot p, std::size_t j) const noexcept { return p < v[j]; }
  void track(Pivot&, std::size_t, std::size_t) const noexcept {}
};

// Swaps two non-overlapping blocks of `size` bytes.
inline void swap_bytes(unsigned char* a, unsigned char* b, std::size_t size) noexcept {
  unsigned char buf[64];
  while (size >= sizeof buf) {
    std::memcpy(buf, a, sizeof buf);
    std::memcpy(a, b, sizeof buf);
    std::memcpy(b, buf, sizeof buf);
    a += sizeof buf;
    b += sizeof buf;
    size -= sizeof buf;
  }
  std::memcpy(buf, a, size);
  std::memcpy(a, b, size);
  std::memcpy(b, buf, size);
}

// The comparison callback of the records routines: negative when the first
// record goes before the second.
using Compare = std::int32_t (*)(const void*, const void*);

// Records of `size` bytes, `stride` bytes apart (a negative stride runs
// downwards from the first record), ordered by a caller's comparison.  The
// comparison may be inconsistent, so the cores bound every scan.
struct RecordSeq {
  static constexpr bool kTrusted = false;
  unsigned char* base;
  std::ptrdiff_t stride;
  std::size_t size;
  Compare compare;
  bool descending;

  unsigned char* at(std::size_t i) const noexcept {
    return base + static_cast<std::ptrdiff_t>(i) * stride;
  }
  bool before(const void* a, const void* b) const noexcept {
    const std::int32_t c = compare(a, b);
    return descending ? c > 0 : c < 0;
  }
  bool less(std::size_t i, std::size_t j) const noexcept { return before(at(i), at(j)); }
  void swap(std::size_t i, std::size_t j) const noexcept {
    if (i != j) swap_bytes(at(i), at(j), size);
  }
  // The pivot is held by its position, which follows it through swaps, so
  // that no record needs to be copied.
  using Pivot = std::size_t;
  Pivot pivot(std::size_t k) const noexcept { return k; }
  bool less_pivot(std::size_t i, Pivot p) const noexcept { return before(at(i), at(p)); }
  bool pivot_less(Pivot p, std::size_t j) const noexcept { return before(at(p), at(j)); }
  void track(Pivot& p, std::size_t i, std::size_t j) const noexcept {
    if (p == i)
      p = j;
    else if (p == j)
      p = i;
  }
};

// A vector of NUL-terminated strings in lexical order (bytes compared as
// unsigned char); the pointers move, the strings do not.
struct StringSeq {
  static constexpr bool kTrusted = true;
  const char** v;
  bool descending;
  bool before(const char* a, const char* b) const noexcept {
    const int c = std::strcmp(a, b);
    return descending ? c > 0 : c < 0;
  }
  bool less(std::size_t i, std::size_t j) const noexcept { return before(v[i], v[j]); }
  void swap(std::size_t i, std::size_t j) const noexcept {
    const char* t = v[i];
    v[i] = v[j];
    v[j] = t;
  }
  // The pivot string is held by its pointer; the strings never move.
  using Pivot = const char*;
  Pivot pivot(std::size_t k) const noexcept { return v[k]; }
  bool less_pivot(std::size_t i, Pivot p) const noexcept { return before(v[i], p); }
  bool pivot_less(Pivot p, std::size_t j) const noexcept { return before(p, v[j]); }
  void track(Pivot&, std::size_t, std::size_t) const noexcept {}
};

// ---------------------------------------------------------------------------
// Straight insertion over the whole vector: after the quicksort phase every
// element is at most kSmall places from its final position, so the pass
// costs O(n).  The bound on j keeps it inside the vector for any comparison.
template <class Seq>
void insertion_pass(const Seq& s, std::size_t n) noexcept {
  for (std::size_t i = 1; i < n; ++i)
    for (std::size_t j = i; j > 0 && s.less(j, j - 1); --j) s.swap(j, j - 1);
}

// Elements that are plain values are shifted rather than swapped.
template <class T, class Less>
void insertion_shift(T* v, std::size_t n, Less less) noexcept {
  for (std::size_t i = 1; i < n; ++i) {
    const T x = v[i];
    std::size_t j = i;
    for (; j > 0 && less(x, v[j - 1]); --j) v[j] = v[j - 1];
    v[j] = x;
  }
}
inline void insertion_pass(const DoubleSeq& s, std::size_t n) noexcept {
  insertion_shift(s.v, n, [](double a, double b) { return a < b; });
}
inline void insertion_pass(const StringSeq& s, std::size_t n) noexcept {
  insertion_shift(s.v, n, [&s](const char* a, const char* b) { return s.before(a, b); });
}

// ---------------------------------------------------------------------------
// Quicksort with explicit stacks, median of three and a random swap for the
// segments that follow a lopsided split, then one pass of straight
// insertion.  No allocation: the stack is a local array, and the smaller
// piece is always popped first, so that it never holds more than
// log2(n) + 2 segments.  kRandom = false gives the plain median-of-three
// quicksort, the reference against which adverse inputs are built.
template <class Seq, bool kRandom = true>
void quicksort(const Seq& s, std::size_t n, std::atomic<std::uint32_t>& word) noexcept {
  if (n > kSmall) {
    struct Segment {
      std::size_t l, r;
      bool lopsided;
    };
    Segment stack[64];
    int top = 0;
    stack[top++] = {0, n - 1, false};
    while (top > 0) {
      const Segment g = stack[--top];
      const std::size_t l = g.l, r = g.r;
      if (kRandom && g.lopsided) {
        // Bring a random element to the left end and its mirror image to
        // the right end, so that an adverse input cannot keep the median of
        // three at an extreme.
        const std::size_t k = next_word(word) % (r - l + 1);
        s.swap(l, l + k);
        s.swap(r, r - k);
      }
      // Median of three: the median of the ends and the middle goes to the
      // middle, the pivot position; afterwards the element at l is not
      // above the pivot and the one at r not below it.
      const std::size_t m = l + (r - l) / 2;
      if (s.less(m, l)) s.swap(l, m);
      if (s.less(r, m)) {
        s.swap(m, r);
        if (s.less(m, l)) s.swap(l, m);
      }
      typename Seq::Pivot p = s.pivot(m);
      // Two inward scans that stop on keys equal to the pivot, so that runs
      // of equal keys are split evenly.  The ends stop the scans of a
      // consistent comparison and are never swapped; a caller's comparison
      // gets explicit bounds as well.  The pivot is not set aside, so a
      // sorted segment is left as it is.
      std::size_t i = l, j = r;
      for (;;) {
        if constexpr (Seq::kTrusted) {
          do ++i; while (s.less_pivot(i, p));
          do --j; while (s.pivot_less(p, j));
        } else {
          do ++i; while (i < r && s.less_pivot(i, p));
          do --j; while (j > l && s.pivot_less(p, j));
        }
        if (i >= j) break;
        s.swap(i, j);
        s.track(p, i, j);
      }
      // Pieces [l, j] and [j+1, r], both shorter than the segment.
      const std::size_t left = j - l + 1, right = r - j;
      const std::size_t big = left > right ? left : right;
      const std::size_t little = left > right ? right : left;
      const bool lopsided = big > 5 * little + 25;
      const Segment lo{l, j, lopsided}, hi{j + 1, r, lopsided};
      const Segment& larger = left > right ? lo : hi;
      const Segment& smaller = left > right ? hi : lo;
      if (big > kSmall) stack[top++] = larger;
      if (little > kSmall) stack[top++] = smaller;
    }
  }
  insertion_pass(s, n);
}

// Reverses the order of the elements by swaps from both ends.
template <class Seq>
void reverse(const Seq& s, std::size_t n) noexcept {
  if (n < 2) return;
  for (std::size_t i = 0, j = n - 1; i < j; ++i, --j) s.swap(i, j);
}

// ---------------------------------------------------------------------------
// Ranking.  A stable merge sort of the positions 0..n-1 by the records they
// name; equal records keep their input order.  `idx` receives the sorted
// positions and `tmp` (n entries) is the merge buffer.
template <class Before>
void sort_positions(std::int32_t* idx, std::int32_t* tmp, std::size_t n, Before before) noexcept {
  for (std::size_t i = 0; i < n; ++i) idx[i] = static_cast<std::int32_t>(i);
  // Runs of 16 by straight insertion (stable: shift only past a strictly
  // later record).
  constexpr std::size_t kRun = 16;
  for (std::size_t lo = 0; lo < n; lo += kRun) {
    const std::size_t hi = lo + kRun < n ? lo + kRun : n;
    for (std::size_t i = lo + 1; i < hi; ++i) {
      const std::int32_t x = idx[i];
      std::size_t j = i;
      for (; j > lo && before(x, idx[j - 1]); --j) idx[j] = idx[j - 1];
      idx[j] = x;
    }
  }
  std::int32_t* from = idx;
  std::int32_t* to = tmp;
  for (std::size_t width = kRun; width < n; width *= 2) {
    for (std::size_t lo = 0; lo < n; lo += 2 * width) {
      const std::size_t mid = lo + width < n ? lo + width : n;
      const std::size_t hi = lo + 2 * width < n ? lo + 2 * width : n;
      std::size_t a = lo, b = mid, k = lo;
      while (a < mid && b < hi) to[k++] = before(from[b], from[a]) ? from[b++] : from[a++];
      while (a < mid) to[k++] = from[a++];
      while (b < hi) to[k++] = from[b++];
    }
    std::int32_t* t = from;
    from = to;
    to = t;
  }
  if (from != idx) std::memcpy(idx, from, n * sizeof *idx);
}

// ---------------------------------------------------------------------------
// Permutations held as int32 vectors.

// Checks that every entry lies in [0, n).  Returns the position of the first
// entry outside, or n.
inline std::size_t first_out_of_range(const std::int32_t* p, std::size_t n) noexcept {
  for (std::size_t i = 0; i < n; ++i)
    if (p[i] < 0 || static_cast<std::size_t>(p[i]) >= n) return i;
  return n;
}

// Inverts a permutation in place, with the entries already marked (every
// entry of p has kMark set and its value in [0, n)).  Each cycle is walked
// once, and the marks are cleared as the inverse is written: no workspace.
// Returns false when the walk meets an entry whose mark is already clear,
// that is when p is not a permutation (a value occurs twice); the marks left
// are then cleared and the contents of p are unspecified.
inline bool invert_marked(std::int32_t* p, std::size_t n) noexcept {
  for (std::size_t i = 0; i < n; ++i) {
    if (!(p[i] & kMark)) continue;
    // Cycle i -> p[i] -> p[p[i]] -> ... -> i: write q[p[j]] = j along it.
    std::int32_t cur = static_cast<std::int32_t>(i);
    std::int32_t nxt = p[i] & kValue;
    for (;;) {
      const std::int32_t t = p[nxt];
      if (!(t & kMark)) {
        for (std::size_t k = 0; k < n; ++k) p[k] &= kValue;
        return false;
      }
      p[nxt] = cur;
      if (nxt == static_cast<std::int32_t>(i)) break;
      cur = nxt;
      nxt = t & kValue;
    }
  }
  return true;
}

// Checks that p (entries in [0, n)) is a permutation: marks the entry at
// each value reached and clears the marks again.  Returns the position of
// the first entry whose value was already reached, or n.
inline std::size_t first_repeat(std::int32_t* p, std::size_t n) noexcept {
  std::size_t bad = n;
  for (std::size_t i = 0; i < n; ++i) {
    const std::int32_t v = p[i] & kValue;
    if (p[v] & kMark) {
      bad = i;
      break;
    }
    p[v] |= kMark;
  }
  for (std::size_t i = 0; i < n; ++i) p[i] &= kValue;
  return bad;
}

// Moves the elements into the order of a permutation of positions:
// afterwards element j is the one that was at idx[j] (a gather).  Each
// cycle is followed once through one held element, so that the reorder
// costs n moves plus one per cycle.  idx must be a permutation; it is
// marked during the pass and comes back unchanged.  Mover provides
// hold(k) (copy element k aside), move(to, from) and put(k) (the held
// element into k).
template <class Mover>
void gather(std::int32_t* idx, std::size_t n, Mover& m) noexcept {
  for (std::size_t i = 0; i < n; ++i) idx[i] |= kMark;
  for (std::size_t s = 0; s < n; ++s) {
    if (!(idx[s] & kMark)) continue;
    idx[s] &= kValue;
    std::size_t j = s;
    std::size_t k = static_cast<std::size_t>(idx[s]);
    if (k == s) continue;
    m.hold(s);
    while (k != s) {
      m.move(j, k);
      j = k;
      idx[j] &= kValue;
      k = static_cast<std::size_t>(idx[j]);
    }
    m.put(j);
  }
}

// The scatter: afterwards element rank[i] is the one that was at i.  Same
// cycle walk with the held element carried forward.
template <class Mover>
void scatter(std::int32_t* rank, std::size_t n, Mover& m) noexcept {
  for (std::size_t i = 0; i < n; ++i) rank[i] |= kMark;
  for (std::size_t s = 0; s < n; ++s) {
    if (!(rank[s] & kMark)) continue;
    rank[s] &= kValue;
    std::size_t k = static_cast<std::size_t>(rank[s]);
    if (k == s) continue;
    m.hold(s);
    while (k != s) {
      m.exchange(k);  // held <-> element k
      rank[k] &= kValue;
      k = static_cast<std::size_t>(rank[k]);
    }
    m.put(s);
  }
}

// Moves records of `size` bytes at a stride through one held record.
struct RecordMover {
  unsigned char* base;
  std::ptrdiff_t stride;
  std::size_t size;
  unsigned char* held;  // `size` bytes
  unsigned char* at(std::size_t i) const noexcept {
    return base + static_cast<std::ptrdiff_t>(i) * stride;
  }
  // Records of 8 bytes (the double arrays of the quadrature routines) are
  // copied as one word, the others byte-wise.
  void copy(unsigned char* to, const unsigned char* from) const noexcept {
    if (size == 8)
      std::memcpy(to, from, 8);
    else
      std::memcpy(to, from, size);
  }
  void hold(std::size_t k) noexcept { copy(held, at(k)); }
  void move(std::size_t to, std::size_t from) noexcept { copy(at(to), at(from)); }
  void put(std::size_t k) noexcept { copy(at(k), held); }
  void exchange(std::size_t k) noexcept { swap_bytes(held, at(k), size); }
};

struct DoubleMover {
  double* v;
  double held = 0.0;
  void hold(std::size_t k) noexcept { held = v[k]; }
  void move(std::size_t to, std::size_t from) noexcept { v[to] = v[from]; }
  void put(std::size_t k) noexcept { v[k] = held; }
  void exchange(std::size_t k) noexcept {
    const double t = v[k];
    v[k] = held;
    held = t;
  }
};

// ---------------------------------------------------------------------------
// Binary search in a sorted sequence: the first position whose element does
// not go before the key (first = true), or the first one that goes after it
// (first = false).  before(i) says element i goes before the key, after(i)
// that it goes after.
template <class Before, class After>
std::size_t bound(std::size_t n, bool first, Before before, After after) noexcept {
  std::size_t lo = 0, hi = n;
  while (lo < hi) {
    const std::size_t mid = lo + (hi - lo) / 2;
    if (first ? before(mid) : !after(mid))
      lo = mid + 1;
    else
      hi = mid;
  }
  return lo;
}

}  // namespace zem::sort
