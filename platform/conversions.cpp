#include "platform/conversions.h"

#include <cmath>
#include <concepts>
#include <limits>

namespace plotvane::platform {

namespace {

// The nearest whole number, halves to even; |value| is below 2^62.
std::int64_t NearestWhole(double value) noexcept {
  const auto truncated = static_cast<std::int64_t>(value);
  const double rest = value - static_cast<double>(truncated);  // exact
  const double distance = std::fabs(rest);
  const bool away = distance > 0.5 || (distance == 0.5 && truncated % 2 != 0);
  if (!away) return truncated;
  return rest > 0 ? truncated + 1 : truncated - 1;
}

template <std::signed_integral Whole>
Outcome<Whole> ToWhole(double value) noexcept {
  constexpr double kLowest = std::numeric_limits<Whole>::min();
  constexpr double kHighest = std::numeric_limits<Whole>::max();
  // Both bounds are exact. The highest number is odd, so half above it rounds out of the range; the lowest is
  // even, so half below it rounds into it. A not-a-number fails the test too.
  if (!(value >= kLowest - 0.5 && value < kHighest + 0.5)) return StandardError::Overflow;
  return static_cast<Whole>(NearestWhole(value));
}

}  // namespace

Outcome<std::int16_t> ToInt16(double value) noexcept {
  return ToWhole<std::int16_t>(value);
}

Outcome<std::int32_t> ToInt32(double value) noexcept {
  return ToWhole<std::int32_t>(value);
}

Outcome<float> ToSingle(double value) noexcept {
  constexpr double kLargest = std::numeric_limits<float>::max();
  constexpr double kFirstTooLarge = 0x1.ffffffp127;  // half way to 2^128, which rounds up to it
  const double size = std::fabs(value);
  if (!(size < kFirstTooLarge)) return StandardError::Overflow;
  if (size > kLargest) return std::copysign(std::numeric_limits<float>::max(), value < 0 ? -1.0F : 1.0F);
  return static_cast<float>(value);
}

std::int16_t ClampToInt16(double value) noexcept {
  constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
  constexpr std::int16_t kHighest = std::numeric_limits<std::int16_t>::max();
  if (std::isnan(value)) return 0;
  if (value <= kLowest) return kLowest;
  if (value >= kHighest) return kHighest;
  return static_cast<std::int16_t>(NearestWhole(value));
}

Outcome<double> Finite(double value) noexcept {
  if (!std::isfinite(value)) return StandardError::Overflow;
  return value;
}

}  // namespace plotvane::platform
