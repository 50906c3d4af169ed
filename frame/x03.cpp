// Inner products in double and double-length precision, and the control
// word pair that fixes round-to-nearest and 53-bit precision around them.
//
// This file is compiled with -ffp-contract=off and without fast-math, and
// x86-64 evaluates doubles in SSE registers, so every operation of the
// double-length accumulation rounds to double as its error terms require.
#include <cfenv>
#include <cmath>

#include "frame/report.hpp"
#include "zem/x03.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define ZEM_X87 1
#endif

namespace {

// Classic control-word encoding.
constexpr unsigned kRoundMask = 0x300, kRoundNear = 0x000, kRoundDown = 0x100, kRoundUp = 0x200,
                   kRoundZero = 0x300;
constexpr unsigned kPrecMask = 0x30000, kPrec64 = 0x00000, kPrec53 = 0x10000, kPrec24 = 0x20000;
constexpr unsigned kExcMask = 0x8001F;
constexpr unsigned kEmInexact = 0x01, kEmUnderflow = 0x02, kEmOverflow = 0x04, kEmZeroDiv = 0x08,
                   kEmInvalid = 0x10, kEmDenormal = 0x80000;

unsigned read_word() {
  unsigned w = 0;
  switch (std::fegetround()) {
    case FE_DOWNWARD: w |= kRoundDown; break;
    case FE_UPWARD: w |= kRoundUp; break;
    case FE_TOWARDZERO: w |= kRoundZero; break;
    default: w |= kRoundNear; break;
  }
#ifdef ZEM_X87
  unsigned short cw;
  __asm__ volatile("fnstcw %0" : "=m"(cw));
  switch ((cw >> 8) & 3) {
    case 0: w |= kPrec24; break;
    case 2: w |= kPrec53; break;
    case 3: w |= kPrec64; break;
    default: w |= kPrec53; break;
  }
  // x87 exception masks: a set bit masks, as in the classic word.
  if (cw & 0x01) w |= kEmInvalid;
  if (cw & 0x02) w |= kEmDenormal;
  if (cw & 0x04) w |= kEmZeroDiv;
  if (cw & 0x08) w |= kEmOverflow;
  if (cw & 0x10) w |= kEmUnderflow;
  if (cw & 0x20) w |= kEmInexact;
#else
  w |= kPrec53 | kExcMask;
#endif
  return w;
}

void write_word(unsigned w) {
  switch (w & kRoundMask) {
    case kRoundDown: std::fesetround(FE_DOWNWARD); break;
    case kRoundUp: std::fesetround(FE_UPWARD); break;
    case kRoundZero: std::fesetround(FE_TOWARDZERO); break;
    default: std::fesetround(FE_TONEAREST); break;
  }
#ifdef ZEM_X87
  unsigned short cw;
  __asm__ volatile("fnstcw %0" : "=m"(cw));
  cw &= static_cast<unsigned short>(~0x0300u);
  switch (w & kPrecMask) {
    case kPrec24: break;
    case kPrec64: cw |= 0x0300; break;
    default: cw |= 0x0200; break;
  }
  __asm__ volatile("fldcw %0" : : "m"(cw));
#endif
}

void set_near_53(unsigned* word) {
  unsigned w = read_word();
  w = (w & ~(kRoundMask | kPrecMask)) | kRoundNear | kPrec53;
  write_word(w);
  if (word) *word = read_word();
}

}  // namespace

extern "C" {

ZEM_API void x03aaw(uint32_t* word) {
  unsigned w;
  set_near_53(&w);
  if (word) *word = w;
}

ZEM_API void x03aax(const uint32_t* word) {
  if (word) write_word(*word);
}

ZEM_API void x03aaw_(uint32_t* word) { x03aaw(word); }
ZEM_API void x03aax_(const uint32_t* word) { x03aax(word); }

ZEM_API void x03aay(const double a[], const double b[], int32_t n, int32_t stepa, int32_t stepb,
                    double c1, double c2, double* d1, double* d2) {
  uint32_t word;
  x03aaw(&word);
  const double split = 134217729.0;  // 2^27 + 1
  double s = c1 + c2;
  double e = c1 - s + c2;
  for (int32_t i = 0; i < n; ++i) {
    const double x = a[static_cast<long>(i) * stepa];
    const double y = b[static_cast<long>(i) * stepb];
    double t = x * split;
    const double xh = t + (x - t);
    const double xl = x - xh;
    t = y * split;
    const double yh = t + (y - t);
    const double yl = y - yh;
    const double p = x * y;
    double r = xh * yh - p;
    r = r + yl * xh;
    r = r + yh * xl;
    r = r + yl * xl;
    t = p + s;
    double rr;
    if (std::fabs(s) >= std::fabs(p)) rr = s - t + p + r + e;
    else rr = r + (p - t + s + e);
    s = rr + t;
    e = t - s + rr;
  }
  const double r1 = e + s;
  if (d1) *d1 = r1;
  if (d2) *d2 = s - r1 + e;
  x03aax(&word);
}

ZEM_API void x03aac(const double a[], int32_t, const double b[], int32_t, int32_t n, int32_t stepa,
                    int32_t stepb, double c1, double c2, double* d1, double* d2, int32_t sw,
                    ZemError* fail) {
  zem::Call call("x03aac", fail);
  if (call.int_le("stepa", stepa, 0, "0")) return;
  if (call.int_le("stepb", stepb, 0, "0")) return;
  if (n > 0 && (call.null("a", a) || call.null("b", b))) return;
  if (call.null("d1", d1) || call.null("d2", d2)) return;
  if (!sw) {
    double sum = c1;
    for (int32_t i = 0; i < n; ++i)
      sum += a[static_cast<long>(i) * stepa] * b[static_cast<long>(i) * stepb];
    *d1 = sum;
    *d2 = 0.0;
  } else {
    x03aay(a, b, n, stepa, stepb, c1, c2, d1, d2);
  }
  call.success();
}

}  // extern "C"
