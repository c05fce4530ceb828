// Numbers to texts and back by the platform's rules, whatever the locale of the process.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/outcome.h"

namespace plotvane::platform {

// Up to 15 significant digits, no trailing zeros, exponent form E+15, E-05 below 1E-04 and from 1E+15 on;
// negative zero is "0". `value` is finite.
[[nodiscard]] std::string NumberText(double value);

// The same for 32-bit floats: up to 7 significant digits, exponent form from 1E+07 on.
[[nodiscard]] std::string NumberText(float value);

// The shortest text that reads back as the same number, with exponents written as in NumberText.
[[nodiscard]] std::string ShortestNumberText(double value);

// The number at the front of `text`: blanks and tabs, optional sign, digits with one optional point, optional
// exponent taken only when complete; anything after it is ignored and no number gives 0. Error 6 when too
// large.
[[nodiscard]] Outcome<double> LeadingNumber(std::string_view text);

// The hexadecimal digits at the front of `text` as a non-negative number; 0 when there are none.
[[nodiscard]] Outcome<double> LeadingHexNumber(std::string_view text);

// `text` as a number from end to end, blanks around it allowed; any other text is error 13, too large
// error 6.
[[nodiscard]] Outcome<double> WholeTextNumber(std::string_view text);

// Upper-case hexadecimal (octal) digits of `value` as a 32-bit whole number, halves to even, a negative value
// as its two's complement; error 6 outside -2147483648..2147483647.
[[nodiscard]] Outcome<std::string> HexText(double value);
[[nodiscard]] Outcome<std::string> OctText(double value);

// The format pattern "." followed by `places` times "#": at most that many decimals, none that are zero at
// the end, no zero before the point (.25, -.25). At most 15 significant digits are meaningful. `value` is
// finite.
[[nodiscard]] std::string PointPatternText(double value, int places);

// The format pattern "0": a whole number without a point. `value` is finite.
[[nodiscard]] std::string WholePatternText(double value);

}  // namespace plotvane::platform
