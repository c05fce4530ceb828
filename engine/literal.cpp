#include "engine/literal.h"

#include <algorithm>

#include "platform/ascii.h"
#include "platform/number_text.h"

namespace plotvane::engine {

namespace {

using functions::CustomError;
using functions::Trapped;

Trapped DecimalValue(std::string_view digits) {
  const bool severalPoints = std::ranges::count(digits, '.') > 1;
  const bool digitsOnly =
      std::ranges::all_of(digits, [](char c) { return platform::IsDigit(c) || c == '.'; });
  if (severalPoints || !digitsOnly || std::ranges::none_of(digits, platform::IsDigit))
    return CustomError::Syntax;
  return platform::LeadingNumber(digits);
}

bool IsHexText(std::string_view digits) {
  return std::ranges::all_of(digits, [](char c) { return platform::IsDigit(c) || (c >= 'a' && c <= 'f'); });
}

}  // namespace

Trapped LiteralValue(const Token& number, functions::clsMath& math) {
  if (number.radix == Radix::Decimal) return DecimalValue(number.spelling);
  // The library's conversions take no digits for 0.
  if (number.spelling.empty()) return CustomError::BaseDigits;
  switch (number.radix) {
    case Radix::Binary: return math.StrBinToDec(number.spelling);
    case Radix::Octal: return math.StrOctToDec(number.spelling);
    default: break;
  }
  // Only a damaged literal of a recorded list has anything but hexadecimal digits here.
  return IsHexText(number.spelling) ? math.StrToHex(number.spelling) : Trapped(CustomError::BaseDigits);
}

}  // namespace plotvane::engine
