// The order of identifiers: by their lower-case spellings, character code by character code.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/ascii.h"

namespace plotvane::identifiers {

// Below, at or above 0 when `key`, which is in lower case, comes before, is, or comes after the key of `id`,
// whose letter case does not count (nor does the locale). Nothing is copied.
[[nodiscard]] constexpr int CompareKey(std::string_view key, std::string_view id) noexcept {
  const std::size_t shared = std::min(key.size(), id.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const auto x = static_cast<unsigned char>(key[i]);
    const auto y = static_cast<unsigned char>(platform::LowerCase(id[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  if (key.size() == id.size()) return 0;
  return key.size() < id.size() ? -1 : 1;
}

}  // namespace plotvane::identifiers
