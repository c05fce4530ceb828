// The wording of the engine's fifteen custom errors.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plotvane::engine {

// The description of a custom error. `spelling` is the token at which parsing stopped, `poppedBracket` the
// opening bracket last taken from the bracket stack; each is quoted only by the errors that show it. A number
// outside 1 to 15 has the text "There is no description for this error number."
[[nodiscard]] std::string CustomErrorText(std::int32_t number, std::string_view spelling,
                                          std::string_view poppedBracket);

}  // namespace plotvane::engine
