// The catalogue table expanded from catalogue.def, and the lookups between
// names and numbers (catalogue rows and enumerators).
#include "frame/catalogue.hpp"

#include <cstring>
#include "zem/x04.h"

namespace zem {
namespace {

struct Row {
  int code;
  const char* name;
  const char* format;
};

constexpr Row kRows[] = {
#define ZEM_ROW(code, name, text) {code, #name, #name ":\n  " text},
#define ZEM_GAP(code) {code, nullptr, nullptr},
#include "frame/catalogue.def"
#undef ZEM_ROW
#undef ZEM_GAP
};
static_assert(sizeof kRows / sizeof kRows[0] == kCatalogueRows, "catalogue must have 726 rows");

constexpr bool codes_in_order() {
  for (int i = 0; i < kCatalogueRows; ++i)
    if (kRows[i].code != i) return false;
  return true;
}
static_assert(codes_in_order(), "catalogue rows must stand in code order");

constexpr bool same_text(const char* a, const char* b) {
  while (*a && *a == *b) ++a, ++b;
  return *a == *b;
}
static_assert(same_text(kRows[0].format, kNoErrorFormat), "row 0 is the success text");

struct Enumerator {
  const char* name;
  int value;
};

constexpr Enumerator kEnumerators[] = {
#define ZEM_ENUM_ROW_(name, value) {#name, value},
    ZEM_ENUMERATORS(ZEM_ENUM_ROW_)
#undef ZEM_ENUM_ROW_
};
static_assert(sizeof kEnumerators / sizeof kEnumerators[0] == 665, "665 enumerators");

constexpr int kUnknown = -5438;

}  // namespace

const char* catalogue_format(int code) noexcept {
  return code >= 0 && code < kCatalogueRows ? kRows[code].format : nullptr;
}

const char* catalogue_name(int code) noexcept {
  return code >= 0 && code < kCatalogueRows ? kRows[code].name : nullptr;
}

}  // namespace zem

using namespace zem;

extern "C" {

ZEM_API int32_t x04mbc(const char* name) {
  if (!name) return kUnknown;
  for (const Row& r : kRows)
    if (r.name && std::strcmp(r.name, name) == 0) return r.code;
  return kUnknown;
}

ZEM_API int32_t x04mac(const char* name) {
  if (!name) return kUnknown;
  for (const Enumerator& e : kEnumerators)
    if (std::strcmp(e.name, name) == 0) return e.value;
  return kUnknown;
}

ZEM_API char* x04mcc(int32_t value, char* out) {
  if (!out) return out;
  const char* name = "unknown_enum_value";
  for (const Enumerator& e : kEnumerators)
    if (e.value == value) {
      name = e.name;
      break;
    }
  std::strcpy(out, name);
  return out;
}

}  // extern "C"
