// The engine with two lanes (SSE2, which every x86-64 processor has).
#define ZEM_FFT_ISA sse2
#define ZEM_FFT_WIDTH 2
#include "transforms/engine.hpp"

namespace zem::fft {

const EngineOps& engine_baseline() noexcept {
  static const EngineOps ops{sse2::complex_entry, sse2::real_entry, "sse2"};
  return ops;
}

}  // namespace zem::fft
