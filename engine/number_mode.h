// Number modes: how the value of a statement is shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "functions/clsMath.h"
#include "platform/outcome.h"
#include "platform/value.h"

namespace plotvane::engine {

// Decimal       the value itself; the caller shows it as text
// Fixed         rounded to so many places, ".##" format: no zero before the point, none at the end
// Octal         "&O" and octal digits of the value as a 32-bit whole number
// Hexadecimal   "&H" and hexadecimal digits of the same
// Binary        "&B" and binary digits of the whole part
enum class NumberMode : std::uint8_t { Decimal, Fixed, Octal, Hexadecimal, Binary };

// The word of a mode ("decimal", …), and the mode of a word in lower case; nothing for any other word.
[[nodiscard]] std::string_view NumberModeWord(NumberMode mode) noexcept;
[[nodiscard]] std::optional<NumberMode> FindNumberMode(std::string_view word) noexcept;

// The shown form of a value. A boolean is its text in fixed mode and -1 or 0 in octal, hexadecimal and binary
// mode. Errors: 13 for a text that is no number, 6 outside the range of the mode, those of rounding.
[[nodiscard]] platform::Outcome<platform::Value> ShownForm(const platform::Value& value, NumberMode mode,
                                                           std::int16_t places, functions::clsMath& math);

}  // namespace plotvane::engine
