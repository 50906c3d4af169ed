// The engine with four lanes, compiled for AVX2 and FMA; used only when
// the processor has both (engine.cpp).
#define ZEM_FFT_ISA avx2
#define ZEM_FFT_WIDTH 4
#include "transforms/engine.hpp"

namespace zem::fft {

const EngineOps& engine_avx2_ops() noexcept {
  static const EngineOps ops{avx2::complex_entry, avx2::real_entry, "avx2"};
  return ops;
}

}  // namespace zem::fft
