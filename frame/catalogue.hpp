// The message catalogue and the enumerator table, as seen from C++.
#pragma once
#include <cstdint>

namespace zem {

inline constexpr int kCatalogueRows = 726;

// The stored format of row 0, which closes every successful call; the
// catalogue checks at compile time that it is the row's text.
inline constexpr char kNoErrorFormat[] = "NE_NOERROR:\n  No error.";

// The stored format "NAME:\n  text" of a row, or nullptr for an unassigned
// or out-of-range code.
const char* catalogue_format(int code) noexcept;
// The row's name ("NE_SINGULAR"), or nullptr.
const char* catalogue_name(int code) noexcept;

}  // namespace zem
