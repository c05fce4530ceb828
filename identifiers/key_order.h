// The order of identifiers: by their lower-case spellings, character code by character code.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/ascii.h"

namespace plotvane::identifiers {

// Below, at or above 0 when `a` comes before, is the same key as, or comes after `b`. Letter case (of ASCII)
// does not count, the locale neither; nothing is copied.
[[nodiscard]] constexpr int CompareKeys(std::string_view a, std::string_view b) noexcept {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const auto x = static_cast<unsigned char>(platform::LowerCase(a[i]));
    const auto y = static_cast<unsigned char>(platform::LowerCase(b[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace plotvane::identifiers
