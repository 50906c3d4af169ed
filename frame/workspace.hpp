// Workspace taken with x04bbc and given back with x04bdc on every path.
#pragma once
#include <cstddef>
#include <limits>
#include "zem/x04.h"

namespace zem {

template <class T>
class Workspace {
 public:
  // Takes max(count, 1) elements; on overflow or exhaustion get() is null.
  explicit Workspace(std::size_t count) noexcept {
    if (count == 0) count = 1;
    if (count <= std::numeric_limits<std::size_t>::max() / sizeof(T))
      p_ = static_cast<T*>(x04bbc(count * sizeof(T)));
  }
  ~Workspace() { x04bdc(reinterpret_cast<void**>(&p_)); }
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  explicit operator bool() const noexcept { return p_ != nullptr; }
  T* get() const noexcept { return p_; }
  T& operator[](std::size_t i) const noexcept { return p_[i]; }

 private:
  T* p_ = nullptr;
};

}  // namespace zem
