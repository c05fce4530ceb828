#include "engine/number_mode.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/number_text.h"

namespace plotvane::engine {

namespace {

using platform::Outcome;
using platform::Value;

// In the order of the enumeration.
constexpr std::array<std::string_view, 5> kWords{"decimal", "fixed", "octal", "hexadecimal", "binary"};

Outcome<Value> Prefixed(std::string_view prefix, const Outcome<std::string>& digits) {
  if (!digits.Ok()) return digits.Error();
  return Value(std::string(prefix) + digits.Get());
}

Outcome<Value> FixedForm(const Value& value, std::int16_t places, functions::clsMath& math) {
  if (value.IsBoolean()) return Value(value.ToText());
  const functions::Trapped rounded = math.Round(value, static_cast<double>(places));
  if (!rounded.Ok()) return rounded.Error().standard;
  const bool whole = math.GetDecimal(rounded.Get()).Get() == 0;
  return Value(whole ? platform::WholePatternText(rounded.Get())
                     : platform::PointPatternText(rounded.Get(), std::max<int>(places, 0)));
}

}  // namespace

std::string_view NumberModeWord(NumberMode mode) noexcept {
  return kWords[static_cast<std::size_t>(mode)];
}

std::optional<NumberMode> FindNumberMode(std::string_view word) noexcept {
  const auto found = std::ranges::find(kWords, word);
  if (found == kWords.end()) return std::nullopt;
  return static_cast<NumberMode>(found - kWords.begin());
}

Outcome<Value> ShownForm(const Value& value, NumberMode mode, std::int16_t places, functions::clsMath& math) {
  if (mode == NumberMode::Decimal) return value;
  if (mode == NumberMode::Fixed) return FixedForm(value, places, math);
  const Outcome<double> number = value.ToNumber();
  if (!number.Ok()) return number.Error();
  switch (mode) {
    case NumberMode::Octal: return Prefixed("&O", platform::OctText(number.Get()));
    case NumberMode::Hexadecimal: return Prefixed("&H", platform::HexText(number.Get()));
    default: return Prefixed("&B", math.Binary(number.Get()));
  }
}

}  // namespace plotvane::engine
