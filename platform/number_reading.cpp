// Texts to numbers; the other half of number_text.h is number_text.cpp.
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <system_error>

#include "platform/ascii.h"
#include "platform/conversions.h"
#include "platform/number_text.h"

namespace plotvane::platform {

namespace {

// The parts of a number text; positions count from its front.
struct NumberScan {
  std::size_t begin = 0;  // of the digits or their sign, after blanks
  std::size_t end = 0;    // past the last character that belongs to the number
  bool found = false;
  int magnitude = 0;  // above 0 when the number is 1 or more; only looked at when its size is extreme
};

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

bool IsSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-');
}

bool IsPoint(std::string_view text, std::size_t at) {
  return at < text.size() && text[at] == '.';
}

// Far above any exponent that matters and far below the range of int.
constexpr std::size_t kExponentBound = 100'000'000;

// The digits of a complete exponent that starts at `at`, else 0; `end` is moved past it.
int ScanExponent(std::string_view text, std::size_t at, std::size_t& end) {
  if (at >= text.size() || LowerCase(text[at]) != 'e') return 0;
  const std::size_t digits = IsSign(text, at + 1) ? at + 2 : at + 1;
  const std::size_t last = SkipDigits(text, digits);
  if (last == digits) return 0;
  end = last;
  std::size_t size = 0;
  for (const char c : text.substr(digits, last - digits)) {
    size = std::min(size * 10 + static_cast<std::size_t>(c - '0'), kExponentBound);
  }
  return text[at + 1] == '-' ? -static_cast<int>(size) : static_cast<int>(size);
}

// How many places the first digit that is not zero stands before (1 and up) or after (0 and below) the point.
int FirstPlace(std::string_view digits) {
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_not_of("0."), digits.size());
  const std::size_t distance = std::min(first < point ? point - first : first - point, kExponentBound);
  return first < point ? static_cast<int>(distance) : 1 - static_cast<int>(distance);
}

NumberScan ScanNumber(std::string_view text) {
  NumberScan scan;
  while (scan.begin < text.size() && IsBlank(text[scan.begin])) ++scan.begin;
  const std::size_t whole = IsSign(text, scan.begin) ? scan.begin + 1 : scan.begin;
  std::size_t end = SkipDigits(text, whole);
  std::size_t digits = end - whole;
  if (IsPoint(text, end)) {
    const std::size_t decimals = end + 1;
    end = SkipDigits(text, decimals);
    digits += end - decimals;
  }
  scan.found = digits > 0;
  if (!scan.found) return scan;
  scan.end = end;
  const int exponent = ScanExponent(text, end, scan.end);
  scan.magnitude = FirstPlace(text.substr(whole, end - whole)) + exponent;
  return scan;
}

Outcome<double> ScannedNumber(std::string_view text, const NumberScan& scan) {
  // from_chars knows no plus sign.
  const std::size_t begin = text[scan.begin] == '+' ? scan.begin + 1 : scan.begin;
  double number = 0;
  const auto result = std::from_chars(text.data() + begin, text.data() + scan.end, number);
  const bool extreme = result.ec == std::errc::result_out_of_range;
  const bool large = scan.magnitude > 0;
  if (extreme) return large ? Outcome<double>(StandardError::Overflow) : Outcome<double>(0.0);
  return Finite(number);
}

int HexDigit(char c) {
  const char lower = LowerCase(c);
  if (IsDigit(lower)) return lower - '0';
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

Outcome<double> LeadingNumber(std::string_view text) {
  const NumberScan scan = ScanNumber(text);
  if (!scan.found) return 0.0;
  return ScannedNumber(text, scan);
}

Outcome<double> WholeTextNumber(std::string_view text) {
  const NumberScan scan = ScanNumber(text);
  if (!scan.found || !TrimBlanks(text.substr(scan.end)).empty()) return StandardError::TypeMismatch;
  return ScannedNumber(text, scan);
}

Outcome<double> LeadingHexNumber(std::string_view text) {
  // The leading 60 bits or more as a whole number; what follows counts only for its size, and for whether any
  // of it is not zero, which is all that rounding to the nearest 64-bit float needs.
  constexpr std::uint64_t kFull = std::uint64_t{1} << 60U;
  std::uint64_t leading = 0;
  double scale = 1;
  for (const char c : text) {
    const int digit = HexDigit(c);
    if (digit < 0) break;
    if (leading < kFull) {
      leading = leading * 16 + static_cast<std::uint64_t>(digit);
    } else {
      scale *= 16;
      if (digit != 0) leading |= 1U;
    }
  }
  return Finite(static_cast<double>(leading) * scale);
}

}  // namespace plotvane::platform
