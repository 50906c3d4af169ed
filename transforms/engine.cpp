// Choice of the engine for this processor, and the scratch a call needs.
#include <algorithm>

#include "transforms/engine_api.hpp"

namespace zem::fft {

const EngineOps& engine_avx2_ops() noexcept;

const EngineOps* engine_avx2() noexcept {
  static const bool ok = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
  return ok ? &engine_avx2_ops() : nullptr;
}

const EngineOps& engine() noexcept {
  static const EngineOps* ops = engine_avx2() ? engine_avx2() : &engine_baseline();
  return *ops;
}

std::size_t scratch_doubles(const Plan& plan, long width) noexcept {
  auto round8 = [](long v) { return (v + 7) / 8 * 8; };
  std::size_t need = 0;
  // A general radix beyond the stack's keeps its buffers here (sized for
  // four lanes, the widest engine).
  if (plan.max_radix > kStackRadix) {
    const long r = plan.max_radix;
    long base = 4 * round8(8 * r) + 3 * round8(2 * r) + round8(16 * r) + 8;
    if (r > 100) {  // Bluestein's convolution: the chirp, its filter and a buffer
      long m = 1;
      while (m < 2 * r - 1) m *= 2;
      base += round8(2 * r) + 4 * m;
    }
    need = static_cast<std::size_t>(base + 16);
  }
  // A middle too large to exchange in place is reversed through a copy.
  if (!plan.middle_in_place())
    need = std::max(need, static_cast<std::size_t>(plan.n) * static_cast<std::size_t>(width));
  return need;
}

}  // namespace zem::fft
