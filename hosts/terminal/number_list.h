// Lists of numbers on the command line, each an expression of the engine: "-2*Pi,2*Pi,-1,1".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace plotvane::terminal {

// The parts of `text` between commas; a comma inside brackets belongs to its part.
[[nodiscard]] std::vector<std::string> SplitAtCommas(std::string_view text);

// Exactly `count` numbers. CLI::ValidationError, naming `option` and the part, when there are more or fewer
// or one of them is no number.
[[nodiscard]] std::vector<double> ReadNumbers(const std::string& option, std::string_view text,
                                              std::size_t count);

}  // namespace plotvane::terminal
