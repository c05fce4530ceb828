#include "platform/number_text.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>

#include "platform/ascii.h"
#include "platform/conversions.h"

namespace plotvane::platform {

namespace {

// ±0.d1d2d3… × 10^pointAt: the decimal digits of a number without zeros at either end; none for zero.
struct Decimal {
  bool negative = false;
  std::string digits;
  int pointAt = 0;  // how many digits stand before the point; 0 or below: zeros follow the point
};

// Takes apart a text of the form [-]d[.ddd]e±dd.
Decimal TakeApart(std::string_view scientific) {
  Decimal decimal;
  const std::size_t mark = scientific.find('e');
  for (const char c : scientific.substr(0, mark)) {
    if (c == '-') decimal.negative = true;
    if (IsDigit(c)) decimal.digits.push_back(c);
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  if (decimal.digits.empty()) return {};
  const char* first = scientific.data() + mark + 1;
  if (*first == '+') ++first;
  std::from_chars(first, scientific.data() + scientific.size(), decimal.pointAt);
  ++decimal.pointAt;
  return decimal;
}

// Room for any number in scientific form with up to 17 digits.
using ScientificBuffer = std::array<char, 40>;

Decimal SignificantDigits(double value, int count) {
  ScientificBuffer buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific, count - 1)
                       .ptr;
  return TakeApart({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

Decimal ShortestDigits(double value) {
  ScientificBuffer buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific).ptr;
  return TakeApart({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

// The digits with their point where it belongs and `beforePoint` where none stands before it.
std::string FixedText(const Decimal& decimal, std::string_view beforePoint) {
  const int count = static_cast<int>(decimal.digits.size());
  std::string text = decimal.negative ? "-" : "";
  if (decimal.pointAt <= 0) {
    text.append(beforePoint).append(1, '.').append(static_cast<std::size_t>(-decimal.pointAt), '0');
    return text + decimal.digits;
  }
  if (decimal.pointAt >= count) {
    return text.append(decimal.digits).append(static_cast<std::size_t>(decimal.pointAt - count), '0');
  }
  const auto whole = static_cast<std::size_t>(decimal.pointAt);
  return text.append(decimal.digits, 0, whole).append(1, '.').append(decimal.digits, whole);
}

std::string ExponentText(const Decimal& decimal) {
  const int exponent = decimal.pointAt - 1;
  std::string text = decimal.negative ? "-" : "";
  text.append(1, decimal.digits.front());
  if (decimal.digits.size() > 1) text.append(1, '.').append(decimal.digits, 1);
  text.append(exponent < 0 ? "E-" : "E+");
  if (std::abs(exponent) < 10) text.append(1, '0');
  return text + std::to_string(std::abs(exponent));
}

// Exponent form below 1E-04 and from 10^`precision` on.
std::string GeneralText(const Decimal& decimal, int precision) {
  if (decimal.digits.empty()) return "0";
  const int exponent = decimal.pointAt - 1;
  return exponent < -4 || exponent >= precision ? ExponentText(decimal) : FixedText(decimal, "0");
}

// At most `places` (0 or more) decimals, halves away from zero.
void RoundToPlaces(Decimal& decimal, int places) {
  const int keep = decimal.pointAt + places;
  if (keep >= static_cast<int>(decimal.digits.size())) return;
  if (keep < 0) {
    decimal = {};
    return;
  }
  const bool up = decimal.digits[static_cast<std::size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(keep));
  if (up) {
    while (!decimal.digits.empty() && decimal.digits.back() == '9') decimal.digits.pop_back();
    if (decimal.digits.empty()) {  // 0.99… became 1
      decimal.digits = "1";
      ++decimal.pointAt;
      return;
    }
    ++decimal.digits.back();
    return;
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  if (decimal.digits.empty()) decimal = {};
}

constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;

// The parts of a number text; positions count from its front.
struct NumberScan {
  std::size_t begin = 0;  // of the digits or their sign, after blanks
  std::size_t end = 0;    // past the last character that belongs to the number
  bool found = false;
  int magnitude =
      0;  // decimal exponent of the first digit that is not zero; meaningful when the size is extreme
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

Outcome<std::string> BasedText(double value, int base) {
  const Outcome<std::int32_t> whole = ToInt32(value);
  if (!whole.Ok()) return whole.Error();
  std::array<char, 16> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                 static_cast<std::uint32_t>(whole.Get()), base)
                       .ptr;
  std::string text(buffer.data(), end);
  for (char& c : text) c = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

}  // namespace

std::string NumberText(double value) {
  return GeneralText(SignificantDigits(value, kDoubleDigits), kDoubleDigits);
}

std::string NumberText(float value) {
  return GeneralText(SignificantDigits(value, kSingleDigits), kSingleDigits);
}

std::string ShortestNumberText(double value) {
  return GeneralText(ShortestDigits(value), kDoubleDigits);
}

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

Outcome<std::string> HexText(double value) {
  return BasedText(value, 16);
}

Outcome<std::string> OctText(double value) {
  return BasedText(value, 8);
}

std::string PointPatternText(double value, int places) {
  Decimal decimal = SignificantDigits(value, kDoubleDigits);
  RoundToPlaces(decimal, std::max(places, 0));
  return decimal.digits.empty() ? "0" : FixedText(decimal, "");
}

std::string WholePatternText(double value) {
  return PointPatternText(value, 0);
}

}  // namespace plotvane::platform
