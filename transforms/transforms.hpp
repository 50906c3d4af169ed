// The core layer of the c06 chapter: whole transforms built on the engine.
// Nothing here knows the error record; the multidimensional cores report
// through a 200-character failure record (frame/core_record.hpp).
//
// Conventions: every transform is scaled by 1/sqrt(n); forward means
// exp(-2 pi i j k / n) and backward exp(+2 pi i j k / n).  Real data
// transforms to the Hermitian layout: the real part of term k at k for
// 0 <= k <= n/2 and its imaginary part at n - k.
#pragma once
#include <cstddef>
#include <cstdint>

#include "transforms/engine_api.hpp"

namespace zem::fft {

// A batch of `count` real sequences, element j of sequence c at
// a[j*es + c*cs] (RBatch), all of one length n.

// Forward real transform (to the Hermitian layout), scaled by 1/sqrt(n).
void real_forward(const Plan& plan, const RBatch& b, const double* trig, double* scratch) noexcept;
// Backward transform of Hermitian sequences (in the layout above) to real
// ones, scaled by 1/sqrt(n).
void hermitian_backward(const Plan& plan, const RBatch& b, const double* trig, double* scratch) noexcept;
// Complex transform, scaled by 1/sqrt(n).
void complex_transform(const Plan& plan, const CBatch& b, bool backward, const double* trig,
                       double* scratch) noexcept;

// Circular convolution z_k = (1/n) sum_j x_j y_(k-j) or correlation
// w_k = (1/n) sum_j x_j y_(j+k) of one pair of real sequences: the result
// replaces x, the transform of y replaces y.
void convolve(const Plan& plan, bool correlation, double* x, double* y) noexcept;

// The Hermitian-to-Hartley exchange of each pair (k, n-k), 0 < k < n/2:
// (a, b) -> (a - b, a + b).  Applied before and after a forward real
// transform it makes the backward transform.
void hartley_fold(const RBatch& b, long n) noexcept;

// Trigonometric transforms of m sequences (element j of sequence p at
// x[j*m + p]), each its own inverse or paired with its inverse:
//   sine_i      x^_k = sqrt(2/n) sum_{j=1}^{n-1} x_j sin(pi j k / n), k = 1..n-1
//               (n values a sequence, element 0 unused and returned as 0);
//   cosine_i    x^_k = sqrt(2/n) [x_0/2 + sum_{j=1}^{n-1} x_j cos(pi j k / n)
//               + (-1)^k x_n/2], k = 0..n (n+1 values a sequence);
//   quarter-wave cosine, forward
//               x^_k = sqrt(2/n) [x_0/2 + sum_{j=1}^{n-1} x_j cos(pi j (2k+1) / 2n)],
//               backward x_j = sqrt(2/n) sum_{k=0}^{n-1} x^_k cos(pi j (2k+1) / 2n);
//   quarter-wave sine (element i holds term i+1), forward
//               x^_k = sqrt(2/n) [sum_{j=1}^{n-1} x_j sin(pi j (2k-1) / 2n)
//               + (-1)^(k-1) x_n/2], k = 1..n,
//               backward x_j = sqrt(2/n) sum_{k=1}^{n} x^_k sin(pi j (2k-1) / 2n).
// Workspace sizes in doubles: trig_work(kind, m, n).
enum class TrigKind { Sine, Cosine, QuarterSine, QuarterCosine };
std::size_t trig_work(TrigKind kind, long m, long n) noexcept;
void trig_transform(TrigKind kind, bool backward, long m, long n, double* x, const double* trig,
                    double* work) noexcept;

// ---- Multidimensional cores, in the style of the core layer: checks in a
// fixed order, failures written to rec with descending message numbers;
// the result is the failure number (0 on success).  direct is 'F' or 'B'.
// x holds interleaved complex values in row-major order (the last
// dimension varies fastest).

// Doubles of workspace that one dimension of length len with `inner`
// sequences side by side needs.
std::size_t dimension_work(long len, long inner) noexcept;

// Along dimension l (1-based) of the ndim dimensions nd.
int core_one_dimension(char direct, long ndim, long l, const int32_t nd[], long n, double* x,
                       double* work, std::size_t lwork, char rec[]) noexcept;
// Along every dimension.
int core_all_dimensions(char direct, long ndim, const int32_t nd[], long n, double* x, double* work,
                        std::size_t lwork, char rec[]) noexcept;
// Three dimensions n1 x n2 x n3.
int core_three_dimensions(char direct, long n1, long n2, long n3, double* x, double* work,
                          std::size_t lwork, char rec[]) noexcept;

}  // namespace zem::fft
