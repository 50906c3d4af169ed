// The transform engine's interface, independent of the instruction set.
//
// The engine computes discrete Fourier transforms in place by a
// digit-reversal permutation and decimation-in-time passes: radix 2, 3, 4,
// 5 and 8 butterflies, the general odd radix (its sums unrolled for 7, 11,
// 13, 17 and 19, and Bluestein's convolution above 100), over batches of
// sequences in one of two layouts:
//   * lanes across sequences: element j of sequence c at j*es + c, so that
//     the butterflies run on rows of `count` neighbouring values;
//   * lanes along a sequence: each sequence contiguous (es == 1), and the
//     butterflies of neighbouring k in one pass run side by side.
// The same code is compiled for SSE2 (two lanes) and AVX2 with FMA (four
// lanes); engine() picks the widest that the processor has.
#pragma once
#include <cstddef>

#include "transforms/plan.hpp"

namespace zem::fft {

// count complex sequences of length plan.n; element j of sequence c is at
// complex offset j*es + c*cs.  Split data has its real and imaginary parts
// in re[] and im[]; interleaved data (im == nullptr) holds pairs in re[].
struct CBatch {
  double* re;
  double* im;
  long es;
  long count;
  long cs;
};

// count real sequences; element j of sequence c at a[j*es + c*cs].
struct RBatch {
  double* a;
  long es;
  long count;
  long cs;
};

struct EngineOps {
  // X[k] = scale * sum_j x[j] exp(-+2 pi i j k / n), the sign + when inverse.
  void (*complex)(const Plan& plan, const CBatch& b, bool inverse, const double* trig, double scale,
                  double* scratch);
  // The forward transform of real sequences, left in the Hermitian layout:
  // Re X[k] at element k for k <= n/2, Im X[k] at element n-k for 0 < k < n/2.
  void (*real)(const Plan& plan, const RBatch& b, const double* trig, double scale, double* scratch);
  const char* name;
};

// The ops of the widest instruction set this processor supports.
const EngineOps& engine() noexcept;
const EngineOps& engine_baseline() noexcept;
const EngineOps* engine_avx2() noexcept;  // null when not built or not supported

// Doubles of scratch that a call needs with elements `width` doubles wide
// (1 for real data, 2 for complex data, times the lanes of a batch); zero
// for every length that the single-sequence routines accept.
std::size_t scratch_doubles(const Plan& plan, long width) noexcept;

}  // namespace zem::fft
