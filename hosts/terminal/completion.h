// Completion of the name before the cursor.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace plotvane::terminal {

struct Completion {
  std::string rest;  // what can be typed for the user
  std::vector<std::string>
      choices;  // the names that begin so, in order; empty when there is nothing to complete
};

// The letters, digits and "_" at the end of `text`, when they are the beginning of a name.
[[nodiscard]] std::string_view NameAtEnd(std::string_view text);

// Completes the name at the end of `text` to as much as all `names` that begin so share, in any case.
[[nodiscard]] Completion Complete(std::string_view text, std::span<const std::string> names);

}  // namespace plotvane::terminal
