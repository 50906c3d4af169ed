// Workspace allocation, lower-casing, and the clock.
#include <cctype>
#include <cstdlib>
#include <ctime>

#include "zem/p01.h"
#include "zem/x04.h"
#include "zem/x05.h"

extern "C" {

ZEM_API void* x04bbc(size_t size) { return std::malloc(size == 0 ? 1 : size); }

ZEM_API void* x04bcc(void* pointer, size_t size) { return std::realloc(pointer, size == 0 ? 1 : size); }

ZEM_API void x04bdc(void** pointer) {
  if (!pointer) return;
  std::free(*pointer);
  *pointer = nullptr;
}

ZEM_API void x04bcz(char* text) {
  if (!text) return;
  for (; *text; ++text) {
    const unsigned char c = static_cast<unsigned char>(*text);
    if (std::isupper(c)) *text = static_cast<char>(std::tolower(c));
  }
}

ZEM_API double x05aac(void) {
  const std::time_t t = std::time(nullptr);
  if (t == static_cast<std::time_t>(-1)) p01acc(nullptr, NE_SYSTEM_TIME, "x05aac", nullptr);
  return static_cast<double>(t);
}

}  // extern "C"
