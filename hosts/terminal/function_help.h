// What the calculator's command "help" tells, from the catalogue of functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plotvane::terminal {

// The answer to a line that is "help" or "help NAME" (in any case), of one or several lines; nothing for any
// other line: "help=5" is an expression.
[[nodiscard]] std::optional<std::string> HelpFor(std::string_view line);

}  // namespace plotvane::terminal
