// Numbers to texts; the other half of number_text.h is number_reading.cpp.
#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>

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
