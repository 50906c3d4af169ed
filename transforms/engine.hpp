// The transform engine's templates.  Included once by each instruction-set
// file (engine_sse2.cpp, engine_avx2.cpp), which defines ZEM_FFT_ISA (the
// namespace, so that the two compilations never share a symbol) and
// ZEM_FFT_WIDTH (the lanes of a vector: 2 or 4).
//
// A pass of radix r over spans of p combines r neighbouring sub-transforms
// of length p into one of length L = r p (decimation in time): for each k
// in [0, p) the r values at k + s p, s = 0 .. r-1, are multiplied by the
// twiddles w_L^(s k) and transformed by an r-point DFT whose outputs go
// back to k + q p.  Real data uses the same butterflies on the Hermitian
// layout of each span: k and p - k hold the real and imaginary parts of the
// span's term k, so that a group of the pass reads and writes the positions
// {s p + k, s p + p - k}.
//
// The order of work for one contiguous sequence: the first pass on the
// columns n/r0 apart and the second on rows (both before the permutation,
// with which they commute: see cpass_rows), the permutation, then the
// remaining passes with lanes along the sequence, the shorter spans block
// by block in the cache.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "transforms/engine_api.hpp"
#include "transforms/roots.hpp"

#ifndef ZEM_FFT_ISA
#error "engine.hpp is included by an instruction-set file that names ZEM_FFT_ISA"
#endif

// Butterflies and accessors are forced inline for speed; under the
// sanitizers the compiler chooses, which keeps their instrumented builds
// small.
#if defined(__SANITIZE_ADDRESS__)
#define ZEM_INLINE inline
#else
#define ZEM_INLINE inline __attribute__((always_inline))
#endif

namespace zem::fft::ZEM_FFT_ISA {
namespace {

// ---------------------------------------------------------------------------
// Lanes: a vector of W doubles, with unaligned loads and stores, a lane
// reversal, and the split of interleaved complex pairs.

template <int W>
struct Lanes;

template <>
struct Lanes<1> {
  using T = double;
  static ZEM_INLINE T ld(const double* p) { return *p; }
  static ZEM_INLINE void st(double* p, T v) { *p = v; }
  static ZEM_INLINE T rev(T v) { return v; }
  static ZEM_INLINE T set(double x) { return x; }
  static ZEM_INLINE void deint(const double* p, T& re, T& im) {
    re = p[0];
    im = p[1];
  }
  static ZEM_INLINE void inter(double* p, T re, T im) {
    p[0] = re;
    p[1] = im;
  }
  static ZEM_INLINE T gat(const double* p, ptrdiff_t) { return *p; }
  static ZEM_INLINE void sca(double* p, ptrdiff_t, T v) { *p = v; }
};

template <>
struct Lanes<2> {
  typedef double T __attribute__((vector_size(16)));
  typedef long long I __attribute__((vector_size(16)));
  static ZEM_INLINE T ld(const double* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
  }
  static ZEM_INLINE void st(double* p, T v) { std::memcpy(p, &v, sizeof v); }
  static ZEM_INLINE T rev(T v) { return __builtin_shuffle(v, I{1, 0}); }
  static ZEM_INLINE T set(double x) { return T{x, x}; }
  static ZEM_INLINE void deint(const double* p, T& re, T& im) {
    const T a = ld(p), b = ld(p + 2);
    re = __builtin_shuffle(a, b, I{0, 2});
    im = __builtin_shuffle(a, b, I{1, 3});
  }
  static ZEM_INLINE void inter(double* p, T re, T im) {
    st(p, __builtin_shuffle(re, im, I{0, 2}));
    st(p + 2, __builtin_shuffle(re, im, I{1, 3}));
  }
  static ZEM_INLINE T gat(const double* p, ptrdiff_t ls) { return T{p[0], p[ls]}; }
  static ZEM_INLINE void sca(double* p, ptrdiff_t ls, T v) {
    p[0] = v[0];
    p[ls] = v[1];
  }
};

#if ZEM_FFT_WIDTH >= 4
template <>
struct Lanes<4> {
  typedef double T __attribute__((vector_size(32)));
  typedef long long I __attribute__((vector_size(32)));
  static ZEM_INLINE T ld(const double* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
  }
  static ZEM_INLINE void st(double* p, T v) { std::memcpy(p, &v, sizeof v); }
  static ZEM_INLINE T rev(T v) { return __builtin_shuffle(v, I{3, 2, 1, 0}); }
  static ZEM_INLINE T set(double x) { return T{x, x, x, x}; }
  static ZEM_INLINE void deint(const double* p, T& re, T& im) {
    const T a = ld(p), b = ld(p + 4);
    re = __builtin_shuffle(a, b, I{0, 2, 4, 6});
    im = __builtin_shuffle(a, b, I{1, 3, 5, 7});
  }
  static ZEM_INLINE void inter(double* p, T re, T im) {
    st(p, __builtin_shuffle(re, im, I{0, 4, 1, 5}));
    st(p + 4, __builtin_shuffle(re, im, I{2, 6, 3, 7}));
  }
  static ZEM_INLINE T gat(const double* p, ptrdiff_t ls) { return T{p[0], p[ls], p[2 * ls], p[3 * ls]}; }
  static ZEM_INLINE void sca(double* p, ptrdiff_t ls, T v) {
    p[0] = v[0];
    p[ls] = v[1];
    p[2 * ls] = v[2];
    p[3 * ls] = v[3];
  }
};
#endif

constexpr int kW = ZEM_FFT_WIDTH;

// Everything here has internal linkage: this file is compiled once per
// instruction set, and an inline function with external linkage (a
// standard-library template, a header's member function) compiled with
// wider instructions could otherwise be the copy that the linker keeps for
// all callers.
template <class T>
ZEM_INLINE T mn(T a, T b) {
  return b < a ? b : a;
}
template <class T>
ZEM_INLINE T mx(T a, T b) {
  return a < b ? b : a;
}
template <class T>
ZEM_INLINE void swp(T& a, T& b) {
  T t = a;
  a = b;
  b = t;
}
long span_of(const Plan& plan, int i) {
  long p = 1;
  for (int j = 0; j < i; ++j) p *= plan.dig[j];
  return p;
}
long offset_of(const Plan& plan, int i) {
  long off = 0, p = 1;
  for (int j = 0; j < i; ++j) {
    off += (plan.dig[j] - 1) * p;
    p *= plan.dig[j];
  }
  return off;
}

// Roots of one order L (as Roots in roots.hpp), one at a time or a run of
// them with lanes: exp(-2 pi i j / L) for j = j0, j0 + step, ...
class RootGen {
 public:
  // Orders dividing 8192 are its powers of 2: a shift gives the stride.
  explicit RootGen(int64_t L)
      : t_(root_table()),
        L_(L),
        stride_((L & (L - 1)) == 0 && L <= kRootCount ? kRootCount >> __builtin_ctzll(static_cast<unsigned long long>(L))
                                                       : 0) {}
  ZEM_INLINE Cplx operator()(int64_t j) const {
    if (stride_) {
      const int64_t m = (j * stride_) & (kRootCount - 1);
      return {t_.re[m], t_.im[m]};
    }
    return root(j, L_);
  }

  // As root() in roots.cpp: the nearest table root, rotated by the small
  // remaining angle 2 pi num / (8192 L), num formed exactly (all the
  // products stay below 2^53), its sine and cosine by Taylor sums.
  void fill(int64_t j0, int64_t step, long count, double* re, double* im) const {
    using T = typename Lanes<kW>::T;
    typedef long long I __attribute__((vector_size(sizeof(T))));
    long i = 0;
    if (stride_ == 0) {
      const double Ld = static_cast<double>(L_);
      const double scale = static_cast<double>(kRootCount) / Ld;
      const double angle = 6.283185307179586476925286766559 / (static_cast<double>(kRootCount) * Ld);
      const double round = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to an integer
      T lane;
      for (int l = 0; l < kW; ++l) lane[l] = static_cast<double>(l);
      for (; i + kW <= count; i += kW) {
        const T j = static_cast<double>(j0 + i * step) + lane * static_cast<double>(step);
        const T m = (j * scale + round) - round;
        const T num = j * static_cast<double>(kRootCount) - m * Ld;
        const T d = num * angle, d2 = d * d;
        const T c = 1.0 - d2 * (0.5 - d2 * (1.0 / 24.0));
        const T sn = d * (1.0 - d2 * (1.0 / 6.0 - d2 * (1.0 / 120.0)));
        const I mi = __builtin_convertvector(m, I) & (kRootCount - 1);
        T ar, ai;
        for (int l = 0; l < kW; ++l) {
          ar[l] = t_.re[mi[l]];
          ai[l] = t_.im[mi[l]];
        }
        Lanes<kW>::st(re + i, ar * c + ai * sn);
        Lanes<kW>::st(im + i, ai * c - ar * sn);
      }
    }
    for (; i < count; ++i) {
      const Cplx w = (*this)(j0 + i * step);
      re[i] = w.re;
      im[i] = w.im;
    }
  }

 private:
  const RootTable& t_;
  int64_t L_;
  int64_t stride_;
};

// ---------------------------------------------------------------------------
// Complex values of lanes and the butterflies.  Inv selects the sign of the
// exponent: forward exp(-2 pi i / r), inverse exp(+2 pi i / r).

template <class T>
struct CV {
  T re, im;
};
template <class T>
ZEM_INLINE CV<T> operator+(CV<T> a, CV<T> b) {
  return {a.re + b.re, a.im + b.im};
}
template <class T>
ZEM_INLINE CV<T> operator-(CV<T> a, CV<T> b) {
  return {a.re - b.re, a.im - b.im};
}
template <class T>
ZEM_INLINE CV<T> operator*(CV<T> a, double c) {
  return {a.re * c, a.im * c};
}
// a times -i (forward) or +i (inverse).
template <bool Inv, class T>
ZEM_INLINE CV<T> rot(CV<T> a) {
  if constexpr (Inv) return {-a.im, a.re};
  else return {a.im, -a.re};
}
// a times w (forward) or conj(w) (inverse).
template <bool Inv, class T>
ZEM_INLINE CV<T> cmul(CV<T> a, CV<T> w) {
  if constexpr (Inv) return {a.re * w.re + a.im * w.im, a.im * w.re - a.re * w.im};
  else return {a.re * w.re - a.im * w.im, a.re * w.im + a.im * w.re};
}

constexpr double kS60 = 0.86602540378443864676372317075294;   // sin(pi/3)
constexpr double kC72 = 0.30901699437494742410229341718282;   // cos(2pi/5)
constexpr double kC144 = -0.80901699437494742410229341718282; // cos(4pi/5)
constexpr double kS72 = 0.95105651629515357211643933337938;   // sin(2pi/5)
constexpr double kS144 = 0.58778525229247312916870595463907;  // sin(4pi/5)
constexpr double kH = 0.70710678118654752440084436210485;     // sqrt(1/2)

template <int R, bool Inv, class T>
struct Dft;

template <bool Inv, class T>
struct Dft<2, Inv, T> {
  static ZEM_INLINE void run(CV<T>* z) {
    const CV<T> a = z[0];
    z[0] = a + z[1];
    z[1] = a - z[1];
  }
};

template <bool Inv, class T>
struct Dft<3, Inv, T> {
  static ZEM_INLINE void run(CV<T>* z) {
    const CV<T> t1 = z[1] + z[2];
    const CV<T> t2 = z[0] - t1 * 0.5;
    const CV<T> t3 = rot<Inv>(z[1] - z[2]) * kS60;
    z[0] = z[0] + t1;
    z[1] = t2 + t3;
    z[2] = t2 - t3;
  }
};

template <bool Inv, class T>
struct Dft<4, Inv, T> {
  static ZEM_INLINE void run(CV<T>* z) {
    const CV<T> t0 = z[0] + z[2], t1 = z[0] - z[2];
    const CV<T> t2 = z[1] + z[3], t3 = rot<Inv>(z[1] - z[3]);
    z[0] = t0 + t2;
    z[2] = t0 - t2;
    z[1] = t1 + t3;
    z[3] = t1 - t3;
  }
};

template <bool Inv, class T>
struct Dft<5, Inv, T> {
  static ZEM_INLINE void run(CV<T>* z) {
    const CV<T> t1 = z[1] + z[4], t2 = z[2] + z[3];
    const CV<T> t3 = z[1] - z[4], t4 = z[2] - z[3];
    const CV<T> a1 = z[0] + t1 * kC72 + t2 * kC144;
    const CV<T> a2 = z[0] + t1 * kC144 + t2 * kC72;
    const CV<T> b1 = rot<Inv>(t3 * kS72 + t4 * kS144);
    const CV<T> b2 = rot<Inv>(t3 * kS144 - t4 * kS72);
    z[0] = z[0] + t1 + t2;
    z[1] = a1 + b1;
    z[4] = a1 - b1;
    z[2] = a2 + b2;
    z[3] = a2 - b2;
  }
};

template <bool Inv, class T>
struct Dft<8, Inv, T> {
  static ZEM_INLINE void run(CV<T>* z) {
    CV<T> a[4], b[4];
    for (int s = 0; s < 4; ++s) {
      a[s] = z[s] + z[s + 4];
      b[s] = z[s] - z[s + 4];
    }
    // b[s] times exp(-+i pi s / 4).
    if constexpr (Inv) {
      b[1] = CV<T>{(b[1].re - b[1].im) * kH, (b[1].re + b[1].im) * kH};
      b[3] = CV<T>{(-b[3].re - b[3].im) * kH, (b[3].re - b[3].im) * kH};
    } else {
      b[1] = CV<T>{(b[1].re + b[1].im) * kH, (b[1].im - b[1].re) * kH};
      b[3] = CV<T>{(b[3].im - b[3].re) * kH, (-b[3].re - b[3].im) * kH};
    }
    b[2] = rot<Inv>(b[2]);
    Dft<4, Inv, T>::run(a);
    Dft<4, Inv, T>::run(b);
    for (int q = 0; q < 4; ++q) {
      z[2 * q] = a[q];
      z[2 * q + 1] = b[q];
    }
  }
};

// The general odd radix r: the symmetric sums over s and r - s.  cs[t] and
// sn[t] are cos and sin of 2 pi t / r; tmp holds r - 1 values.
template <bool Inv, class T>
void dft_odd(CV<T>* z, int r, const double* cs, const double* sn, CV<T>* tmp) {
  const int h = (r - 1) / 2;
  CV<T>* u = tmp;
  CV<T>* v = tmp + h;
  const CV<T> x0 = z[0];
  CV<T> sum = x0;
  for (int s = 1; s <= h; ++s) {
    u[s - 1] = z[s] + z[r - s];
    v[s - 1] = z[s] - z[r - s];
    sum = sum + u[s - 1];
  }
  z[0] = sum;
  for (int q = 1; q <= h; ++q) {
    CV<T> a = x0, b = v[0] * sn[q];
    a = a + u[0] * cs[q];
    int idx = q;
    for (int s = 2; s <= h; ++s) {
      idx += q;
      if (idx >= r) idx -= r;
      a = a + u[s - 1] * cs[idx];
      b = b + v[s - 1] * sn[idx];
    }
    const CV<T> ib = rot<Inv>(b);
    z[q] = a + ib;
    z[r - q] = a - ib;
  }
}

// Constants and buffers of a general-radix pass: cs[t], sn[t] are cos and
// sin of 2 pi t / r; z and tmp hold r values of the widest lanes.
struct General {
  int r = 0;
  const double* cs = nullptr;
  const double* sn = nullptr;
  double* z = nullptr;
  double* tmp = nullptr;
  // Bluestein's form of the DFT, for radices above kBluesteinRadix: the
  // chirp b_t = exp(i pi t^2 / r), the transform of the chirp filter over M
  // points divided by M, and a buffer of M points.
  long M = 0;
  Plan mplan;
  const double* chirp = nullptr;  // r real parts, then r imaginary parts
  const double* filt = nullptr;   // M real parts, then M imaginary parts
  double* buf = nullptr;          // M real parts, then M imaginary parts
};

// Radices above this run Bluestein's convolution, O(r log r), rather than
// the direct sums, O(r^2).
constexpr int kBluesteinRadix = 100;

// The power of 2 of Bluestein's convolution for radix r: at least 2r - 1.
long bluestein_points(long r) {
  long m = 1;
  while (m < 2 * r - 1) m *= 2;
  return m;
}

template <bool Inv, bool Il>
void complex_batch(const Plan& plan, const CBatch& b, const double* trig, double scale, double* scratch);

// The DFT of r points (one per lane of z) by Bluestein's identity
// s q = (s^2 + q^2 - (q - s)^2) / 2:
//   X_q = conj(b_q) sum_s (z_s conj(b_s)) b_(q-s),
// a circular convolution of M points done with transforms of M points.
// The inverse is the conjugate of the forward transform of the conjugate.
template <bool Inv, class T>
void dft_bluestein(CV<T>* z, const General* g) {
  constexpr int W = sizeof(T) / sizeof(double);
  const long r = g->r, M = g->M;
  const double *br = g->chirp, *bi = g->chirp + r, *fr = g->filt, *fi = g->filt + M;
  double *ur = g->buf, *ui = g->buf + M;
  for (int l = 0; l < W; ++l) {
    auto lane = [l](const T& v) {
      if constexpr (W == 1) return v;
      else return v[l];
    };
    for (long s = 0; s < r; ++s) {
      const double a = lane(z[s].re), c = Inv ? -lane(z[s].im) : lane(z[s].im);
      ur[s] = a * br[s] + c * bi[s];  // times conj(b_s)
      ui[s] = c * br[s] - a * bi[s];
    }
    for (long s = r; s < M; ++s) ur[s] = ui[s] = 0.0;
    complex_batch<false, false>(g->mplan, CBatch{ur, ui, 1, 1, 0}, nullptr, 1.0, nullptr);
    for (long t = 0; t < M; ++t) {
      const double a = ur[t], c = ui[t];
      ur[t] = a * fr[t] - c * fi[t];
      ui[t] = -(a * fi[t] + c * fr[t]);  // conjugated: the next transform runs backward
    }
    complex_batch<false, false>(g->mplan, CBatch{ur, ui, 1, 1, 0}, nullptr, 1.0, nullptr);
    for (long q = 0; q < r; ++q) {
      const double a = ur[q], c = -ui[q];  // undo the conjugation
      double xr = a * br[q] + c * bi[q], xi = c * br[q] - a * bi[q];
      if (Inv) xi = -xi;
      if constexpr (W == 1) {
        z[q].re = xr;
        z[q].im = xi;
      } else {
        z[q].re[l] = xr;
        z[q].im[l] = xi;
      }
    }
  }
}

// The odd radices with no butterfly of their own but a fixed size: the
// general sums, unrolled.
template <int R>
inline constexpr bool kOddFixed = R == 7 || R == 11 || R == 13 || R == 17 || R == 19;

template <int R, bool Inv, class T>
ZEM_INLINE void dft_odd_fixed(CV<T>* z, const double* cs, const double* sn) {
  constexpr int h = (R - 1) / 2;
  CV<T> u[h], v[h];
  const CV<T> x0 = z[0];
  CV<T> sum = x0;
#pragma GCC unroll 16
  for (int s = 1; s <= h; ++s) {
    u[s - 1] = z[s] + z[R - s];
    v[s - 1] = z[s] - z[R - s];
    sum = sum + u[s - 1];
  }
  z[0] = sum;
#pragma GCC unroll 16
  for (int q = 1; q <= h; ++q) {
    CV<T> a = x0 + u[0] * cs[q];
    CV<T> b = v[0] * sn[q];
#pragma GCC unroll 16
    for (int s = 2; s <= h; ++s) {
      const int idx = (s * q) % R;
      a = a + u[s - 1] * cs[idx];
      b = b + v[s - 1] * sn[idx];
    }
    const CV<T> ib = rot<Inv>(b);
    z[q] = a + ib;
    z[R - q] = a - ib;
  }
}

// One lane (the tails of a pass) runs the fixed odd radices through the
// general code: the unrolled sums are kept for the widest lanes.
template <int R>
inline constexpr int kScalarR = kOddFixed<R> ? 0 : R;

template <int R, bool Inv, class T>
ZEM_INLINE void dft(CV<T>* z, const General* g) {
  if constexpr (R == 0) {
    if (g->M) dft_bluestein<Inv>(z, g);
    else dft_odd<Inv>(z, g->r, g->cs, g->sn, reinterpret_cast<CV<T>*>(g->tmp));
  } else if constexpr (kOddFixed<R>) {
    dft_odd_fixed<R, Inv>(z, g->cs, g->sn);
  }
  else {
    Dft<R, Inv, T>::run(z);
  }
}

// Room for the values of one group: the radix's own array, or the general
// pass's buffer.
template <int R, class T>
struct Group {
  CV<T> local[R == 0 ? 1 : R];
  ZEM_INLINE CV<T>* get(const General* g) {
    if constexpr (R == 0) return reinterpret_cast<CV<T>*>(g->z);
    else return local;
  }
};

using TV = typename Lanes<kW>::T;

// The buffers of one pass.  Radices up to kStackRadix keep them on the
// stack; a larger (general) radix takes them from the caller's scratch.
constexpr long round8(long v) { return (v + 7) / 8 * 8; }

struct PassBuffers {
  static constexpr long kTw = 2048;  // doubles for chunks of twiddles
  // Doubles for radix r: z, tmp, the group's twiddles and the half-span
  // twiddles of the widest lanes; the same twiddles of one lane; cos and sin;
  // a chunk of twiddles (kW values of k for each s); alignment.
  static long need(long r) {
    const long base = 4 * round8(2 * r * kW) + 3 * round8(2 * r) + round8(16 * r) + 8;
    return r > kBluesteinRadix ? base + round8(2 * r) + 4 * bluestein_points(r) : base;
  }
  alignas(64) double stack[4 * round8(2 * kStackRadix * kW) + 3 * round8(2 * kStackRadix) + kTw];
  General gen;
  CV<TV>* w;
  CV<double>* w1;
  CV<TV>* half;
  CV<double>* half1;
  double* tw;
  long chunk;  // k values of a chunk of twiddles (a multiple of 4)
  long ld;     // the chunk's row length in tw (not a power of 2)

  PassBuffers(int r, double* scratch) {
    double* p;
    const long rr = mx(r, 1);
    chunk = 4;
    if (r > kStackRadix) {
      // The caller's scratch, aligned for the widest lanes.
      p = reinterpret_cast<double*>((reinterpret_cast<std::uintptr_t>(scratch) + 63) & ~std::uintptr_t{63});
    } else {
      p = stack;
    }
    const long zl = round8(2 * rr * kW);
    gen.z = p;
    gen.tmp = p + zl;
    w = reinterpret_cast<CV<TV>*>(p + 2 * zl);
    half = reinterpret_cast<CV<TV>*>(p + 3 * zl);
    w1 = reinterpret_cast<CV<double>*>(p + 4 * zl);
    half1 = reinterpret_cast<CV<double>*>(p + 4 * zl + round8(2 * rr));
    double* cosv = p + 4 * zl + 2 * round8(2 * rr);
    tw = cosv + round8(2 * rr);
    if (r <= kStackRadix) {
      // The chunk of twiddles has the rest of the stack buffer.
      // Chunks of 64 k for the dedicated radices; as many as fit otherwise.
      const long room = static_cast<long>(sizeof stack / sizeof(double)) - (tw - stack);
      chunk = r <= 8 ? 64 : mx<long>(4, (room / 2 / mx(1, r - 1) - 4) / 4 * 4);
    }
    ld = chunk + 4;
    if (r > 8 || r == 7) {
      const RootGen roots(r);
      for (int t = 0; t < r; ++t) {
        const Cplx c = roots(t);
        cosv[t] = c.re;
        cosv[r + t] = -c.im;
      }
    }
    gen.r = r;
    gen.cs = cosv;
    gen.sn = cosv + r;
    if (r > kBluesteinRadix) setup_bluestein(r, tw + round8(2 * (r - 1) * ld));
  }

  // The chirp, the transform of its filter, and the buffer, at p.
  void setup_bluestein(long r, double* p) {
    const long M = bluestein_points(r);
    double* chirp = p;
    double* filt = p + round8(2 * r);
    gen.M = M;
    gen.mplan = make_plan(M);
    gen.chirp = chirp;
    gen.filt = filt;
    gen.buf = filt + 2 * M;
    // b_t = exp(i pi t^2 / r) = conj(root(t^2 mod 2r, 2r)).
    const RootGen roots(2 * r);
    for (long t = 0; t < r; ++t) {
      const Cplx c = roots(static_cast<int64_t>((static_cast<unsigned long long>(t) * t) % (2 * r)));
      chirp[t] = c.re;
      chirp[r + t] = -c.im;
    }
    double* fr = filt;
    double* fi = filt + M;
    for (long t = 0; t < M; ++t) fr[t] = fi[t] = 0.0;
    const double inv = 1.0 / static_cast<double>(M);
    for (long t = 0; t < r; ++t) {
      fr[t] = chirp[t] * inv;
      fi[t] = chirp[r + t] * inv;
      if (t > 0) {
        fr[M - t] = fr[t];
        fi[M - t] = fi[t];
      }
    }
    complex_batch<false, false>(gen.mplan, CBatch{fr, fi, 1, 1, 0}, nullptr, 1.0, nullptr);
  }
};

template <class T>
ZEM_INLINE CV<T> splat(Cplx w) {
  return {Lanes<sizeof(T) / sizeof(double)>::set(w.re), Lanes<sizeof(T) / sizeof(double)>::set(w.im)};
}

// ---------------------------------------------------------------------------
// Access to complex data: element j of the lanes that start here, at j*es.

template <int W, bool Il>
struct CAcc {
  using T = typename Lanes<W>::T;
  double* re;
  double* im;
  ptrdiff_t es;
  ZEM_INLINE CV<T> ld(ptrdiff_t j) const {
    CV<T> z;
    if constexpr (Il) {
      Lanes<W>::deint(re + 2 * j * es, z.re, z.im);
    } else {
      z.re = Lanes<W>::ld(re + j * es);
      z.im = Lanes<W>::ld(im + j * es);
    }
    return z;
  }
  ZEM_INLINE void st(ptrdiff_t j, CV<T> z) const {
    if constexpr (Il) {
      Lanes<W>::inter(re + 2 * j * es, z.re, z.im);
    } else {
      Lanes<W>::st(re + j * es, z.re);
      Lanes<W>::st(im + j * es, z.im);
    }
  }
  template <int V>
  ZEM_INLINE CAcc<V, Il> lanes(ptrdiff_t c) const {
    if constexpr (Il) return {re + 2 * c, im, es};
    else return {re + c, im + c, es};
  }
};

// Access to real data.  Rev: lanes run along the sequence, so that the
// mirrored positions p - k are read and written with their lanes reversed
// (j names the position of the first lane).  G: lanes ls elements apart.
template <int W, bool Rev, bool G = false>
struct RAcc {
  using T = typename Lanes<W>::T;
  double* a;
  ptrdiff_t es;
  ptrdiff_t ls = 1;
  ZEM_INLINE T ld(ptrdiff_t j) const {
    if constexpr (G) return Lanes<W>::gat(a + j * es, ls);
    else return Lanes<W>::ld(a + j * es);
  }
  ZEM_INLINE void st(ptrdiff_t j, T v) const {
    if constexpr (G) Lanes<W>::sca(a + j * es, ls, v);
    else Lanes<W>::st(a + j * es, v);
  }
  ZEM_INLINE T ldr(ptrdiff_t j) const {
    if constexpr (Rev) return Lanes<W>::rev(Lanes<W>::ld(a + j - (W - 1)));
    else return ld(j);
  }
  ZEM_INLINE void str(ptrdiff_t j, T v) const {
    if constexpr (Rev) Lanes<W>::st(a + j - (W - 1), Lanes<W>::rev(v));
    else st(j, v);
  }
  template <int V>
  ZEM_INLINE RAcc<V, Rev, G> lanes(ptrdiff_t c) const {
    return {a + (G ? c * ls : c), es, ls};
  }
};

// Split complex data whose real parts are rows rs apart in place and whose
// imaginary parts are rows is apart in a buffer.
template <int W>
struct MAcc {
  using T = typename Lanes<W>::T;
  double* re;
  double* im;
  ptrdiff_t rs, is;
  ZEM_INLINE CV<T> ld(ptrdiff_t j) const { return {Lanes<W>::ld(re + j * rs), Lanes<W>::ld(im + j * is)}; }
  ZEM_INLINE void st(ptrdiff_t j, CV<T> z) const {
    Lanes<W>::st(re + j * rs, z.re);
    Lanes<W>::st(im + j * is, z.im);
  }
  template <int V>
  ZEM_INLINE MAcc<V> lanes(ptrdiff_t c) const {
    return {re + c, im + c, rs, is};
  }
};

// ---------------------------------------------------------------------------
// Twiddles of a pass: from the caller's table, or generated.

// In the table, a pass's twiddles come in chunks of four k: chunk c holds
// k = 4c .. 4c + w - 1 (w = min(4, p - 4c)) for each s in turn, so that the
// twiddles of one group of lanes lie together (see roots.hpp).
ZEM_INLINE long table_index(long off, long p, int r, int s, long k) {
  const long c = k / 4, w = mn<long>(4, p - 4 * c);
  return off + 4 * c * (r - 1) + (s - 1) * w + (k - 4 * c);
}

struct Twiddles {
  const double* trig;  // the table, or null
  long n;              // its length
  long off;            // this pass's offset in it
  long p;
  int r;
  RootGen roots;
  Twiddles(const double* t, long n_, long off_, long p_, int r_)
      : trig(t), n(n_), off(off_), p(p_), r(r_), roots(p_ * r_) {}
  ZEM_INLINE Cplx at(int s, long k) const {
    if (trig) {
      const long i = table_index(off, p, r, s, k);
      return {trig[i], trig[n + i]};
    }
    return roots(static_cast<int64_t>(s) * k);
  }
};

template <int W>
struct PtrTw;

// The twiddles of k = k0 .. k0 + kc - 1 (k0 a multiple of 4): from the
// table, or computed into buf (real parts of s at (s-1)*2ld, imaginary
// parts ld further).
struct TwChunk {
  const Twiddles& tw;
  long k0;
  double* buf;
  long ld;
  TwChunk(const Twiddles& t, int r, long k0_, long kc, double* buf_, long ld_) : tw(t), k0(k0_), buf(buf_), ld(ld_) {
    if (tw.trig) return;
    for (int s = 1; s < r; ++s) {
      double* br = buf + 2 * (s - 1) * ld;
      tw.roots.fill(static_cast<int64_t>(s) * k0, s, kc, br, br + ld);
    }
  }
  // The twiddles of lanes k0 + k .. k0 + k + W - 1 (within one chunk of the
  // table).
  template <int W>
  ZEM_INLINE PtrTw<W> at(long k) const {
    if (tw.trig) {
      const long K = k0 + k, c = K / 4, w = mn<long>(4, tw.p - 4 * c);
      const long i = tw.off + 4 * c * (tw.r - 1) + (K - 4 * c);
      return {tw.trig + i, tw.trig + tw.n + i, w};
    }
    return {buf + k, buf + ld + k, 2 * ld};
  }
};

// ---------------------------------------------------------------------------
// The twiddles of a group, by policy: none (k = 0, and first passes), an
// array of values splatted across the lanes (lanes across sequences), or
// vectors loaded from a chunk (lanes along a sequence, one k per lane).

struct NoTw {};
template <class T>
struct ArrTw {
  const CV<T>* w;
  ZEM_INLINE CV<T> get(int s) const { return w[s - 1]; }
};
template <int W>
struct PtrTw {
  const double* re;
  const double* im;
  long stride;
  ZEM_INLINE CV<typename Lanes<W>::T> get(int s) const {
    return {Lanes<W>::ld(re + (s - 1) * stride), Lanes<W>::ld(im + (s - 1) * stride)};
  }
};
template <class Tw>
inline constexpr bool kTwiddled = !std::is_same_v<Tw, NoTw>;

// ---------------------------------------------------------------------------
// Complex groups and passes.

// One group: the r values at j0 + s*step, twiddled, scaled (Scaled),
// transformed and written back in place.
template <int R, bool Inv, bool Scaled, class A, class Tw>
ZEM_INLINE void cgroup(const A& a, ptrdiff_t j0, ptrdiff_t step, const Tw& tw, double scale, const General* g) {
  using T = typename A::T;
  const int r = R ? R : g->r;
  Group<R, T> grp;
  CV<T>* z = grp.get(g);
  z[0] = a.ld(j0);
  for (int s = 1; s < r; ++s) {
    z[s] = a.ld(j0 + s * step);
    if constexpr (kTwiddled<Tw>) z[s] = cmul<Inv>(z[s], tw.get(s));
  }
  if constexpr (Scaled)
    for (int s = 0; s < r; ++s) z[s] = z[s] * scale;
  dft<R, Inv>(z, g);
  for (int q = 0; q < r; ++q) a.st(j0 + q * step, z[q]);
}

// Rows whose distance in bytes is a multiple of this map to few sets of the
// level-1 cache: the r rows of real and imaginary parts then evict one
// another.  Such groups keep their imaginary parts in a small buffer while
// the real parts stay in place (r rows of one array fit the cache's ways).
// Interleaved data has one row per value and needs no buffer.
constexpr long kAliasStride = 256;  // elements of 8 bytes
constexpr long kBufLanes = 32;      // lanes of a buffered chunk
constexpr long kBufRow = kBufLanes + 8;

template <int R, bool Il>
inline constexpr bool kBuffered = (R == 2 || R == 4 || R == 8) && !Il;

// Copies len doubles.  The runs are short: each value passes through a
// register (the empty asm) so that the compiler keeps the copy inline
// rather than turning it into a call of the library's memmove.
ZEM_INLINE void copy_lanes(double* dst, const double* src, long len) {
  long c = 0;
  for (; c + kW <= len; c += kW) {
    auto v = Lanes<kW>::ld(src + c);
    __asm__("" : "+x"(v));
    Lanes<kW>::st(dst + c, v);
  }
  for (; c < len; ++c) {
    double v = src[c];
    __asm__("" : "+x"(v));
    dst[c] = v;
  }
}

// Copies r rows of len doubles (row s at s*stride) to or from the buffer
// rows (s*kBufRow).
template <bool In>
ZEM_INLINE void copy_rows(double* x, ptrdiff_t stride, int r, long len, double* buf) {
  for (int s = 0; s < r; ++s) {
    if constexpr (In) copy_lanes(buf + s * kBufRow, x + s * stride, len);
    else copy_lanes(x + s * stride, buf + s * kBufRow, len);
  }
}

// Pass (p > 1) with lanes along one contiguous sequence of n elements.
template <int R, bool Inv, bool Il>
void cpass_along(double* re, double* im, long n, long p, int radix, const Twiddles& tw, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const CAcc<kW, Il> aw{re, im, 1};
  const CAcc<1, Il> a1{re, im, 1};
  const long L = p * r;
  const long ch = pb.chunk;
  const bool buffered = kBuffered<R, Il> && p % kAliasStride == 0;
  alignas(64) double bi[kBuffered<R, Il> ? R * kBufRow : 1];
  for (long k0 = 0; k0 < p; k0 += ch) {
    const long kc = mn(ch, p - k0);
    const TwChunk tc(tw, r, k0, kc, pb.tw, pb.ld);
    for (long base = 0; base < n; base += L) {
      if (buffered) {
        for (long b0 = 0; b0 < kc; b0 += kBufLanes) {
          const long len = mn(kBufLanes, kc - b0);  // a multiple of kW: p is
          const ptrdiff_t at = base + k0 + b0;
          const MAcc<kW> ab{re + at, bi, p, kBufRow};
          copy_rows<true>(im + at, p, r, len, bi);
          for (long k = 0; k < len; k += kW)
            cgroup<R, Inv, false>(ab.template lanes<kW>(k), 0, 1, tc.template at<kW>(b0 + k), 1.0, g);
          copy_rows<false>(im + at, p, r, len, bi);
        }
        continue;
      }
      long k = 0;
      for (; k + kW <= kc; k += kW)
        cgroup<R, Inv, false>(aw, base + k0 + k, p, tc.template at<kW>(k), 1.0, g);
      for (; k < kc; ++k)
        cgroup<kScalarR<R>, Inv, false>(a1, base + k0 + k, p, tc.template at<1>(k), 1.0, g);
    }
  }
}

// All groups of k over the blocks and the lanes.  Rows es apart with es a
// multiple of kAliasStride go through the buffer.
template <int R, bool Inv, bool Scaled, bool Il, class Tw4, class Tw1>
ZEM_INLINE void cgroups_across(const CAcc<kW, Il>& a, long n, long L, long k, long p, long lanes,
                               const Tw4& tw4, const Tw1& tw1, double scale, const General* g) {
  if (kBuffered<R, Il> && a.es % kAliasStride == 0 && lanes >= kBufLanes) {
    alignas(64) double bi[kBuffered<R, Il> ? R * kBufRow : 1];
    for (long base = 0; base < n; base += L) {
      for (long c0 = 0; c0 < lanes; c0 += kBufLanes) {
        const long len = mn(kBufLanes, lanes - c0);
        const ptrdiff_t at = (base + k) * a.es + c0;
        const MAcc<kW> ab{a.re + at, bi, p * a.es, kBufRow};
        copy_rows<true>(a.im + at, p * a.es, R, len, bi);
        long c = 0;
        for (; c + kW <= len; c += kW) cgroup<R, Inv, Scaled>(ab.template lanes<kW>(c), 0, 1, tw4, scale, g);
        for (; c < len; ++c) cgroup<kScalarR<R>, Inv, Scaled>(ab.template lanes<1>(c), 0, 1, tw1, scale, g);
        copy_rows<false>(a.im + at, p * a.es, R, len, bi);
      }
    }
    return;
  }
  for (long base = 0; base < n; base += L) {
    long c = 0;
    for (; c + kW <= lanes; c += kW) cgroup<R, Inv, Scaled>(a.template lanes<kW>(c), base + k, p, tw4, scale, g);
    for (; c < lanes; ++c) cgroup<kScalarR<R>, Inv, Scaled>(a.template lanes<1>(c), base + k, p, tw1, scale, g);
  }
}

// Pass with lanes across `lanes` sequences whose rows are es apart.  A
// first pass (p == 1) has no twiddles and applies the scale; the others
// take the twiddles of every k (those of k = 0 are ones).
template <int R, bool Inv, bool Il>
void cpass_across(double* re, double* im, long n, long p, int radix, long es, long lanes,
                  const Twiddles& tw, double scale, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const CAcc<kW, Il> a{re, im, es};
  const long L = p * r;
  if (p == 1) {
    cgroups_across<R, Inv, true>(a, n, L, 0, p, lanes, NoTw{}, NoTw{}, scale, g);
    return;
  }
  for (long k = 0; k < p; ++k) {
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, k);
      pb.w[s - 1] = splat<TV>(c);
      pb.w1[s - 1] = {c.re, c.im};
    }
    cgroups_across<R, Inv, false>(a, n, L, k, p, lanes, ArrTw<TV>{pb.w}, ArrTw<double>{pb.w1}, 1.0, g);
  }
}

// ---------------------------------------------------------------------------
// Real groups and passes, on the Hermitian layout of each span.

// The groups of a real pass address their values as base + s*step: in
// place, step = p and base = the span's start plus k (or plus p - k for the
// mirrored values); in the rows of the first passes (real_seq), step = 1.

// k = 0: the r real values at s p; their DFT goes to 0 (real), to q p and
// (r - q) p (real and imaginary parts of term q), and to (r/2) p for even r.
template <int R, int W, bool Rev, bool G>
ZEM_INLINE void rgroup_zero(const RAcc<W, Rev, G>& a, ptrdiff_t base, long step, double scale,
                            const General* g) {
  using T = typename Lanes<W>::T;
  const int r = R ? R : g->r;
  Group<R, T> grp;
  CV<T>* z = grp.get(g);
  const T zero = Lanes<W>::set(0.0);
  for (int s = 0; s < r; ++s) z[s] = {a.ld(base + s * step) * scale, zero};
  dft<R, false>(z, g);
  a.st(base, z[0].re);
  for (int q = 1; 2 * q < r; ++q) {
    a.st(base + q * step, z[q].re);
    a.st(base + (r - q) * step, z[q].im);
  }
  if (r % 2 == 0) a.st(base + (r / 2) * step, z[r / 2].re);
}

// k = p/2 (even p): the real values at s p + p/2 (base = the span's start
// plus p/2), twiddled by exp(-i pi s / r).
template <int R, int W, bool Rev, bool G, class Tw>
ZEM_INLINE void rgroup_half(const RAcc<W, Rev, G>& a, ptrdiff_t base, long step, const Tw& half,
                            const General* g) {
  using T = typename Lanes<W>::T;
  const int r = R ? R : g->r;
  Group<R, T> grp;
  CV<T>* z = grp.get(g);
  z[0] = {a.ld(base), Lanes<W>::set(0.0)};
  for (int s = 1; s < r; ++s) {
    const T x = a.ld(base + s * step);
    const CV<T> w = half.get(s);
    z[s] = {x * w.re, x * w.im};
  }
  dft<R, false>(z, g);
  for (int q = 0; 2 * q + 1 < r; ++q) {
    a.st(base + q * step, z[q].re);
    a.st(base + (r - 1 - q) * step, z[q].im);
  }
  if (r % 2) a.st(base + ((r - 1) / 2) * step, z[(r - 1) / 2].re);
}

// 0 < k < p/2: term k of each span (real part at lo + s step = s p + k,
// imaginary part at hi + s step = s p + p - k), twiddled and transformed;
// term k + q p of the result goes to k + q p (real part) and its mirror
// (imaginary part) when it lies in the lower half of the span, and
// otherwise through its conjugate, the term L - k - q p.
template <int R, int W, bool Rev, bool G, class Tw>
ZEM_INLINE void rgroup(const RAcc<W, Rev, G>& a, ptrdiff_t lo, ptrdiff_t hi, long step, const Tw& tw,
                       const General* g) {
  using T = typename Lanes<W>::T;
  const int r = R ? R : g->r;
  Group<R, T> grp;
  CV<T>* z = grp.get(g);
  z[0] = {a.ld(lo), a.ldr(hi)};
  for (int s = 1; s < r; ++s) z[s] = cmul<false>(CV<T>{a.ld(lo + s * step), a.ldr(hi + s * step)}, tw.get(s));
  dft<R, false>(z, g);
  for (int q = 0; q < r; ++q) {
    if (2 * q < r) {
      a.st(lo + q * step, z[q].re);
      a.str(hi + (r - 1 - q) * step, z[q].im);
    } else {
      a.str(hi + (r - 1 - q) * step, z[q].re);
      a.st(lo + q * step, -z[q].im);
    }
  }
}

// The groups k = 0 and k = p/2 of every span, over `lanes` lanes.
template <int R, int W, bool Rev, bool G>
void rpass_ends(const RAcc<W, Rev, G>& a, long n, long p, int r, long lanes, const Twiddles& tw, double scale,
                PassBuffers& pb) {
  const General* g = &pb.gen;
  const long L = p * r;
  const bool even = p % 2 == 0;
  if (even)
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, p / 2);
      pb.half[s - 1] = splat<TV>(c);
      pb.half1[s - 1] = {c.re, c.im};
    }
  const long full = W == 1 ? 0 : lanes / W * W;
  for (long base = 0; base < n; base += L) {
    if constexpr (W == kW)
      for (long c = 0; c < full; c += W) {
        const auto ac = a.template lanes<W>(c);
        rgroup_zero<R>(ac, base, p, scale, g);
        if (even) rgroup_half<R>(ac, base + p / 2, p, ArrTw<TV>{pb.half}, g);
      }
    for (long c = full; c < lanes; ++c) {
      const auto ac = a.template lanes<1>(c);
      rgroup_zero<kScalarR<R>>(ac, base, p, scale, g);
      if (even) rgroup_half<kScalarR<R>>(ac, base + p / 2, p, ArrTw<double>{pb.half1}, g);
    }
  }
}

// Real pass (p > 1) with lanes along one contiguous sequence of n elements.
// Groups of lanes start at multiples of kW (k = 1, 2, 3 run alone), so that
// their twiddles lie together in the table.  (The rows of a group and their
// mirrors fall in different cache sets, so no buffer is needed.)
template <int R>
void rpass_along(double* x, long n, long p, int radix, const Twiddles& tw, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const RAcc<kW, true> aw{x, 1};
  const RAcc<1, true> a1{x, 1};
  rpass_ends<R>(a1, n, p, r, 1, tw, 1.0, pb);
  const long L = p * r;
  const long kmax = (p - 1) / 2;  // groups k = 1 .. kmax
  const long ch = pb.chunk;
  for (long k0 = 0; k0 <= kmax; k0 += ch) {
    const long kc = mn(ch, kmax + 1 - k0);
    const TwChunk tc(tw, r, k0, kc, pb.tw, pb.ld);
    for (long base = 0; base < n; base += L) {
      long k = k0 == 0 ? 1 : 0;
      for (; k < kc && (k % kW != 0 || k + kW > kc); ++k) rgroup<kScalarR<R>>(a1, base + k0 + k, base + p - k0 - k, p, tc.template at<1>(k), g);
      for (; k + kW <= kc; k += kW) rgroup<R>(aw, base + k0 + k, base + p - k0 - k, p, tc.template at<kW>(k), g);
      for (; k < kc; ++k) rgroup<kScalarR<R>>(a1, base + k0 + k, base + p - k0 - k, p, tc.template at<1>(k), g);
    }
  }
}

// Real pass with lanes across sequences whose rows are es apart, the lanes
// neighbours or ls apart (G); the scale applies to a first pass (p == 1).
template <int R, bool G>
void rpass_across(double* x, long n, long p, int radix, long es, long lanes, long ls, const Twiddles& tw,
                  double scale, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const RAcc<kW, false, G> a{x, es, ls};
  rpass_ends<R>(a, n, p, r, lanes, tw, scale, pb);
  const long L = p * r;
  for (long k = 1; 2 * k < p; ++k) {
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, k);
      pb.w[s - 1] = splat<TV>(c);
      pb.w1[s - 1] = {c.re, c.im};
    }
    for (long base = 0; base < n; base += L) {
      long c = 0;
      for (; c + kW <= lanes; c += kW) rgroup<R>(a.template lanes<kW>(c), base + k, base + p - k, p, ArrTw<TV>{pb.w}, g);
      for (; c < lanes; ++c) rgroup<kScalarR<R>>(a.template lanes<1>(c), base + k, base + p - k, p, ArrTw<double>{pb.w1}, g);
    }
  }
}

// The second pass, before the permutation.  The permutation P takes the
// element at row rev(i) of column c (rows of n / (r0 r1) elements, i a
// position within one span of r0 r1, rev its digits reversed) to position
// i of the span of column c; so the first two passes can run on the rows,
// where the values of group k of the second pass (positions k + s r0) sit
// in the r1 neighbouring rows k r1 + s, with lanes along the rows.

template <int R, bool Inv, bool Il>
void cpass_rows(double* re, double* im, long p, int radix, long cols, const Twiddles& tw, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const CAcc<kW, Il> a{re, im, cols};
  for (long k = 0; k < p; ++k) {
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, k);
      pb.w[s - 1] = splat<TV>(c);
      pb.w1[s - 1] = {c.re, c.im};
    }
    long c = 0;
    for (; c + kW <= cols; c += kW) cgroup<R, Inv, false>(a.template lanes<kW>(c), k * r, 1, ArrTw<TV>{pb.w}, 1.0, g);
    for (; c < cols; ++c)
      cgroup<kScalarR<R>, Inv, false>(a.template lanes<1>(c), k * r, 1, ArrTw<double>{pb.w1}, 1.0, g);
  }
}

template <int R>
void rpass_rows(double* x, long p, int radix, long cols, const Twiddles& tw, double* scratch) {
  const int r = R ? R : radix;
  PassBuffers pb(r, scratch);
  const General* g = &pb.gen;
  const RAcc<kW, false> a{x, cols};
  const long full = cols / kW * kW;
  // k = 0 (rows s) and k = p/2 (rows (p/2) r + s).
  const bool even = p % 2 == 0;
  if (even)
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, p / 2);
      pb.half[s - 1] = splat<TV>(c);
      pb.half1[s - 1] = {c.re, c.im};
    }
  for (long c = 0; c < full; c += kW) {
    rgroup_zero<R>(a.template lanes<kW>(c), 0, 1, 1.0, g);
    if (even) rgroup_half<R>(a.template lanes<kW>(c), (p / 2) * r, 1, ArrTw<TV>{pb.half}, g);
  }
  for (long c = full; c < cols; ++c) {
    rgroup_zero<kScalarR<R>>(a.template lanes<1>(c), 0, 1, 1.0, g);
    if (even) rgroup_half<kScalarR<R>>(a.template lanes<1>(c), (p / 2) * r, 1, ArrTw<double>{pb.half1}, g);
  }
  for (long k = 1; 2 * k < p; ++k) {
    for (int s = 1; s < r; ++s) {
      const Cplx c = tw.at(s, k);
      pb.w[s - 1] = splat<TV>(c);
      pb.w1[s - 1] = {c.re, c.im};
    }
    long c = 0;
    for (; c + kW <= cols; c += kW) rgroup<R>(a.template lanes<kW>(c), k * r, (p - k) * r, 1, ArrTw<TV>{pb.w}, g);
    for (; c < cols; ++c) rgroup<kScalarR<R>>(a.template lanes<1>(c), k * r, (p - k) * r, 1, ArrTw<double>{pb.w1}, g);
  }
}

// ---------------------------------------------------------------------------
// The digit-reversal permutation.  Element j is w doubles at a + j*es (and
// at b + j*es when a second array is permuted alike).

struct Elems {
  double* a;
  double* b;
  ptrdiff_t es;
  long w;
};

// Counts v = 0, 1, ... in the mixed radix g (least significant digit
// first) and keeps rv, the value of the digits of v read in reverse order.
struct RevCounter {
  const int* g;
  int t;
  long q[kMaxDigits];
  int d[kMaxDigits];
  long rv = 0;
  RevCounter(const int* g_, int t_) : g(g_), t(t_) {
    q[t - 1] = 1;
    for (int i = t - 2; i >= 0; --i) q[i] = q[i + 1] * g[i + 1];
    for (int i = 0; i < t; ++i) d[i] = 0;
  }
  ZEM_INLINE void next() {
    for (int i = 0; i < t; ++i) {
      rv += q[i];
      if (++d[i] < g[i]) return;
      rv -= g[i] * q[i];
      d[i] = 0;
    }
  }
};

// The outer digits.  With the middle taken as one digit the list is a
// palindrome, so that index j = A + S C + S K B (A, B the values of the two
// outer halves, C the middle) and its reversal rho(B) + S C + S K rho'(A)
// form pairs: j is swapped with its partner when B < rho'(A).  The A of a
// tile differ in their top digit, so that their partners rho'(A) are
// neighbouring rows, and the rows B of a tile are visited together.
template <class Swap>
void reverse_pairs(const Plan& plan, Swap&& swap) {
  const int a = plan.nleft;
  if (a == 1) {
    // One digit g on each side: a transpose of g x g for each middle value.
    const long g = plan.dig[0], SK = plan.n / g;
    for (long C = 0; C < SK; C += g)
      for (long A = 1; A < g; ++A)
        for (long B = 0; B < A; ++B) swap(A + C + SK * B, B + C + SK * A);
    return;
  }
  int left[kMaxDigits] = {}, right[kMaxDigits] = {};
  long S = 1, K = 1;
  for (int i = 0; i < a; ++i) {
    left[i] = plan.dig[i];
    right[i] = plan.dig[a - 1 - i];
    S *= plan.dig[i];
  }
  for (int i = a; i < a + plan.nmid; ++i) K *= plan.dig[i];
  const long SK = S * K;
  const long top = left[a - 1];
  const long low = S / top;  // A = A_low + i * low, i < top
  // Short lengths (the data in the cache): rho(B) and rho'(A) looked up,
  // the swaps of one A in a tight loop over B.
  constexpr long kTable = 4096;
  if (plan.n <= 16384) {
    int32_t rho[kTable], rhop[kTable];
    RevCounter cb(right, a), ca(left, a);
    for (long v = 0; v < S; ++v, cb.next(), ca.next()) {
      rho[v] = static_cast<int32_t>(cb.rv);
      rhop[v] = static_cast<int32_t>(ca.rv);
    }
    for (long C = 0; C < SK; C += S)
      for (long A = 0; A < S; ++A) {
        const long t = rhop[A];
        const long partner = SK * t + C, own = A + C;
        for (long B = 0; B < t; ++B) swap(own + SK * B, partner + rho[B]);
      }
    return;
  }
  // Longer: the A of a tile differ in their top digit, so that their
  // partners rho'(A) are neighbouring rows.
  RevCounter ca(left, a > 1 ? a - 1 : 1);
  for (long A0 = 0; A0 < low; ++A0) {
    // rho'(A0 + i low) = i + top * rho_low(A0): the lower digits reversed
    // (radices left[0 .. a-2]) sit above the top digit.
    const long base_t = a > 1 ? top * ca.rv : 0;
    if (a > 1) ca.next();
    for (long i0 = 0; i0 < top; i0 += 64) {
      const long i1 = mn(top, i0 + 64);
      const long tmax = base_t + i1 - 1;
      RevCounter cb(right, a);
      for (long B = 0; B < tmax; ++B, cb.next()) {
        const long rb = cb.rv;
        for (long i = mx(i0, B - base_t + 1); i < i1; ++i) {
          const long own = A0 + i * low + SK * B, partner = rb + SK * (base_t + i);
          for (long C = 0; C < SK; C += S) swap(own + C, partner + C);
        }
      }
    }
  }
}

void reverse_outer(const Plan& plan, const Elems& e) {
  if (plan.nleft == 0) return;
  double* a = e.a;
  double* b = e.b;
  const ptrdiff_t es = e.es;
  const long w = e.w;
  if (w == 1 && es == 1) {
    if (b)
      reverse_pairs(plan, [a, b](long i, long j) {
        swp(a[i], a[j]);
        swp(b[i], b[j]);
      });
    else
      reverse_pairs(plan, [a](long i, long j) { swp(a[i], a[j]); });
    return;
  }
  reverse_pairs(plan, [a, b, es, w](long i, long j) {
    for (long c = 0; c < w; ++c) swp(a[i * es + c], a[j * es + c]);
    if (b)
      for (long c = 0; c < w; ++c) swp(b[i * es + c], b[j * es + c]);
  });
}

// Copies a cell of len doubles.
ZEM_INLINE void copy_cell(double* dst, const double* src, long len) {
  if (len == 1) *dst = *src;
  else copy_lanes(dst, src, len);
}

// Exchanges two adjacent digits of one array (alpha at weight w, beta
// above it): in each block of w alpha beta elements, cell a + alpha b (w
// elements) moves to b + beta a, through a buffer.
void exchange_digits(double* base, ptrdiff_t es, long ew, long n, long w, int alpha, int beta) {
  constexpr long kBuf = 4096;
  alignas(64) double buf[kBuf];
  const long ab = static_cast<long>(alpha) * beta;
  const long block = w * ab;
  if (es == ew) {
    // Contiguous elements: a block is one run, a cell w elements.
    const long cell = w * ew, bd = block * ew;
    if (bd <= kBuf) {
      for (long hi = 0; hi < n; hi += block) {
        double* blk = base + hi * ew;
        std::memcpy(buf, blk, bd * sizeof(double));
        if (cell == 1) {
          // A transpose of single values.
          for (long b = 0; b < beta; ++b) {
            const double* src = buf + alpha * b;
            double* dst = blk + b;
            for (long a = 0; a < alpha; ++a) dst[beta * a] = src[a];
          }
        } else {
          for (long b = 0; b < beta; ++b)
            for (long a = 0; a < alpha; ++a) copy_lanes(blk + (b + beta * a) * cell, buf + (a + alpha * b) * cell, cell);
        }
      }
      return;
    }
    // Long cells: a slice of every cell at a time.
    const long cw = kBuf / ab;
    for (long hi = 0; hi < n; hi += block) {
      double* blk = base + hi * ew;
      for (long c0 = 0; c0 < cell; c0 += cw) {
        const long len = mn(cw, cell - c0);
        for (long m = 0; m < ab; ++m) copy_cell(buf + m * len, blk + m * cell + c0, len);
        for (long b = 0; b < beta; ++b)
          for (long a = 0; a < alpha; ++a)
            copy_cell(blk + (b + beta * a) * cell + c0, buf + (a + alpha * b) * len, len);
      }
    }
    return;
  }
  // Elements with gaps between them: each element of a cell on its own.
  const long cw = mx<long>(1, kBuf / ab);
  for (long hi = 0; hi < n; hi += block)
    for (long lo = 0; lo < w; ++lo) {
      auto at = [&](long m) { return base + (hi + lo + m * w) * es; };
      for (long c0 = 0; c0 < ew; c0 += cw) {
        const long len = mn(cw, ew - c0);
        for (long m = 0; m < ab; ++m) copy_cell(buf + m * len, at(m) + c0, len);
        for (long b = 0; b < beta; ++b)
          for (long a = 0; a < alpha; ++a) copy_cell(at(b + beta * a) + c0, buf + (a + alpha * b) * len, len);
      }
    }
}

// The middle digits: reversed by adjacent exchanges, as in a bubble sort.
void reverse_middle(const Plan& plan, const Elems& e) {
  const int d = plan.nmid;
  if (d < 2) return;
  int lam[kMaxDigits];
  for (int i = 0; i < d; ++i) lam[i] = plan.dig[plan.nleft + d - 1 - i];
  const long S = span_of(plan, plan.nleft);
  for (int end = d - 1; end > 0; --end) {
    long w = S;
    for (int i = 0; i < end; ++i) {
      exchange_digits(e.a, e.es, e.w, plan.n, w, lam[i], lam[i + 1]);
      if (e.b) exchange_digits(e.b, e.es, e.w, plan.n, w, lam[i], lam[i + 1]);
      swp(lam[i], lam[i + 1]);
      w *= lam[i];
    }
  }
}

// The whole reversal through scratch (n*w doubles), for middles whose
// digits are too large to exchange through the buffer.
void reverse_copy(const Plan& plan, double* base, ptrdiff_t es, long ew, double* work) {
  RevCounter c(plan.dig, plan.ndig);
  for (long j = 0; j < plan.n; ++j, c.next()) std::memcpy(work + j * ew, base + c.rv * es, ew * sizeof(double));
  for (long j = 0; j < plan.n; ++j) std::memcpy(base + j * es, work + j * ew, ew * sizeof(double));
}

void reverse(const Plan& plan, const Elems& e, double* scratch) {
  if (plan.ndig < 2) return;
  if (plan.middle_in_place()) {
    reverse_outer(plan, e);
    reverse_middle(plan, e);
  } else {
    reverse_copy(plan, e.a, e.es, e.w, scratch);
    if (e.b) reverse_copy(plan, e.b, e.es, e.w, scratch);
  }
}

// ---------------------------------------------------------------------------
// Drivers.

// Once the first pass and the permutation are done, the passes whose spans
// fit this many elements run block by block, before the longer passes run
// over the whole sequence.
constexpr long kBlockComplex = 16384;
constexpr long kBlockReal = 32768;

template <bool Inv, bool Il>
using CAlong = void (*)(double*, double*, long, long, int, const Twiddles&, double*);
template <bool Inv, bool Il>
using CAcross = void (*)(double*, double*, long, long, int, long, long, const Twiddles&, double, double*);
using RAlong = void (*)(double*, long, long, int, const Twiddles&, double*);
using RAcross = void (*)(double*, long, long, int, long, long, long, const Twiddles&, double, double*);

// The pass of each radix: a dedicated butterfly, or the general one.
template <class F, template <int> class Pick>
F pick(int r) {
  switch (r) {
    case 2: return Pick<2>::f;
    case 3: return Pick<3>::f;
    case 4: return Pick<4>::f;
    case 5: return Pick<5>::f;
    case 7: return Pick<7>::f;
    case 8: return Pick<8>::f;
    case 11: return Pick<11>::f;
    case 13: return Pick<13>::f;
    case 17: return Pick<17>::f;
    case 19: return Pick<19>::f;
    default: return Pick<0>::f;
  }
}
template <bool Inv, bool Il>
struct CA {
  template <int R>
  struct P {
    static constexpr CAlong<Inv, Il> f = cpass_along<R, Inv, Il>;
  };
  template <int R>
  struct Q {
    static constexpr CAcross<Inv, Il> f = cpass_across<R, Inv, Il>;
  };
};
template <int R>
struct RP {
  static constexpr RAlong f = rpass_along<R>;
};
using RRows = void (*)(double*, long, int, long, const Twiddles&, double*);
template <int R>
struct RR {
  static constexpr RRows f = rpass_rows<R>;
};
template <bool Inv, bool Il>
using CRows = void (*)(double*, double*, long, int, long, const Twiddles&, double*);
template <bool Inv, bool Il>
struct CRP {
  template <int R>
  struct P {
    static constexpr CRows<Inv, Il> f = cpass_rows<R, Inv, Il>;
  };
};
template <int R>
struct RQ {
  static constexpr RAcross f = rpass_across<R, false>;
};
template <int R>
struct RQG {
  static constexpr RAcross f = rpass_across<R, true>;
};

Twiddles pass_twiddles(const Plan& plan, int i, const double* trig) {
  return Twiddles(trig, plan.n, offset_of(plan, i), span_of(plan, i), plan.dig[i]);
}

// Passes from `first` on, with lanes along a sequence of n elements.
template <class RunPass>
void run_blocked(const Plan& plan, int first, long limit, RunPass&& run) {
  const long n = plan.n;
  int inner = first;
  while (inner < plan.ndig && span_of(plan, inner + 1) <= limit) ++inner;
  const long block = span_of(plan, inner);
  if (inner - first >= 2 && block < n) {
    for (long b0 = 0; b0 < n; b0 += block)
      for (int i = first; i < inner; ++i) run(i, b0, block);
    first = inner;
  }
  for (int i = first; i < plan.ndig; ++i) run(i, 0, n);
}

// Whether the second pass runs on the rows before the permutation (see
// cpass_rows): when the rows hold a vector of lanes or more and their
// length does not make them alias in the cache.
bool second_on_rows(const Plan& plan) {
  if (plan.ndig < 2) return false;
  const long cols = plan.n / (static_cast<long>(plan.dig[0]) * plan.dig[1]);
  return cols >= kW && cols % kAliasStride != 0;
}

// Real spans this short (or shorter) leave too few k for lanes along the
// sequence: their passes take lanes across neighbouring spans instead.
constexpr long kShortReal = 4 * kW;

template <bool Inv, bool Il>
void complex_seq(const Plan& plan, double* re, double* im, long es, const double* trig, double scale,
                 double* scratch) {
  const long n = plan.n;
  const int r0 = plan.dig[0];
  const Elems elems = Il ? Elems{re, nullptr, 2 * es, 2} : Elems{re, im, es, 1};
  if (es == 1) {
    // The first pass transforms columns n/r0 apart before the permutation
    // (a pass on spans of one commutes with it), with lanes along them.
    const long cols = n / r0;
    pick<CAcross<Inv, Il>, CA<Inv, Il>::template Q>(r0)(re, im, r0, 1, r0, cols, cols,
                                                        pass_twiddles(plan, 0, trig), scale, scratch);
    const bool rows = second_on_rows(plan);
    if (rows)
      pick<CRows<Inv, Il>, CRP<Inv, Il>::template P>(plan.dig[1])(re, im, r0, plan.dig[1], cols / plan.dig[1],
                                                                  pass_twiddles(plan, 1, trig), scratch);
    reverse(plan, elems, scratch);
    run_blocked(plan, rows ? 2 : 1, kBlockComplex, [&](int i, long b0, long len) {
      double* rb = Il ? re + 2 * b0 : re + b0;
      double* ib = Il ? im : im + b0;
      const int r = plan.dig[i];
      pick<CAlong<Inv, Il>, CA<Inv, Il>::template P>(r)(rb, ib, len, span_of(plan, i), r, pass_twiddles(plan, i, trig),
                                                        scratch);
    });
    return;
  }
  // A strided sequence: one lane across.
  reverse(plan, elems, scratch);
  for (int i = 0; i < plan.ndig; ++i)
    pick<CAcross<Inv, Il>, CA<Inv, Il>::template Q>(plan.dig[i])(re, im, n, span_of(plan, i), plan.dig[i], es, 1,
                                                                 pass_twiddles(plan, i, trig),
                                                                 i == 0 ? scale : 1.0, scratch);
}

template <bool Inv, bool Il>
void complex_batch(const Plan& plan, const CBatch& b, const double* trig, double scale, double* scratch) {
  if (b.cs == 1 && b.count > 1) {
    reverse(plan, Il ? Elems{b.re, nullptr, 2 * b.es, 2 * b.count} : Elems{b.re, b.im, b.es, b.count}, scratch);
    for (int i = 0; i < plan.ndig; ++i)
      pick<CAcross<Inv, Il>, CA<Inv, Il>::template Q>(plan.dig[i])(b.re, b.im, plan.n, span_of(plan, i),
                                                                   plan.dig[i], b.es, b.count,
                                                                   pass_twiddles(plan, i, trig),
                                                                   i == 0 ? scale : 1.0, scratch);
    return;
  }
  for (long c = 0; c < b.count; ++c) {
    double* re = Il ? b.re + 2 * c * b.cs : b.re + c * b.cs;
    double* im = Il ? nullptr : b.im + c * b.cs;
    complex_seq<Inv, Il>(plan, re, im, b.es, trig, scale, scratch);
  }
}

void scale_all(const CBatch& b, double scale) {
  if (scale == 1.0) return;
  for (long c = 0; c < b.count; ++c) {
    if (!b.im) {
      b.re[2 * c * b.cs] *= scale;
      b.re[2 * c * b.cs + 1] *= scale;
    } else {
      b.re[c * b.cs] *= scale;
      b.im[c * b.cs] *= scale;
    }
  }
}

// Negates the imaginary parts of a split batch.
void conjugate(long n, const CBatch& b) {
  for (long c = 0; c < b.count; ++c)
    for (long j = 0; j < n; ++j) b.im[j * b.es + c * b.cs] = -b.im[j * b.es + c * b.cs];
}

void complex_entry(const Plan& plan, const CBatch& b, bool inverse, const double* trig, double scale,
                   double* scratch) {
  if (plan.n <= 1) {
    scale_all(b, scale);
    return;
  }
  if (b.im == nullptr) {
    if (inverse) complex_batch<true, true>(plan, b, trig, scale, scratch);
    else complex_batch<false, true>(plan, b, trig, scale, scratch);
    return;
  }
  // Split data runs forward only: the inverse is the conjugate of the
  // forward transform of the conjugate.
  if (inverse) conjugate(plan.n, b);
  complex_batch<false, false>(plan, b, trig, scale, scratch);
  if (inverse) conjugate(plan.n, b);
}

void real_seq(const Plan& plan, double* x, long es, const double* trig, double scale, double* scratch) {
  const long n = plan.n;
  const int r0 = plan.dig[0];
  if (es == 1) {
    const long cols = n / r0;
    pick<RAcross, RQ>(r0)(x, r0, 1, r0, cols, cols, 1, pass_twiddles(plan, 0, trig), scale, scratch);
    const bool rows = second_on_rows(plan);
    if (rows)
      pick<RRows, RR>(plan.dig[1])(x, r0, plan.dig[1], cols / plan.dig[1], pass_twiddles(plan, 1, trig), scratch);
    reverse(plan, Elems{x, nullptr, 1, 1}, scratch);
    run_blocked(plan, rows ? 2 : 1, kBlockReal, [&](int i, long b0, long len) {
      const int r = plan.dig[i];
      const long p = span_of(plan, i), L = p * r;
      if (p <= kShortReal && len / L >= kW)
        pick<RAcross, RQG>(r)(x + b0, L, p, r, 1, len / L, L, pass_twiddles(plan, i, trig), 1.0, scratch);
      else
        pick<RAlong, RP>(r)(x + b0, len, p, r, pass_twiddles(plan, i, trig), scratch);
    });
    return;
  }
  reverse(plan, Elems{x, nullptr, es, 1}, scratch);
  for (int i = 0; i < plan.ndig; ++i)
    pick<RAcross, RQ>(plan.dig[i])(x, n, span_of(plan, i), plan.dig[i], es, 1, 1, pass_twiddles(plan, i, trig),
                                   i == 0 ? scale : 1.0, scratch);
}

void real_entry(const Plan& plan, const RBatch& b, const double* trig, double scale, double* scratch) {
  if (plan.n <= 1) {
    if (scale != 1.0)
      for (long c = 0; c < b.count; ++c) b.a[c * b.cs] *= scale;
    return;
  }
  if (b.cs == 1 && b.count > 1) {
    reverse(plan, Elems{b.a, nullptr, b.es, b.count}, scratch);
    for (int i = 0; i < plan.ndig; ++i)
      pick<RAcross, RQ>(plan.dig[i])(b.a, plan.n, span_of(plan, i), plan.dig[i], b.es, b.count, 1,
                                     pass_twiddles(plan, i, trig), i == 0 ? scale : 1.0, scratch);
    return;
  }
  for (long c = 0; c < b.count; ++c) real_seq(plan, b.a + c * b.cs, b.es, trig, scale, scratch);
}

}  // namespace
}  // namespace zem::fft::ZEM_FFT_ISA
