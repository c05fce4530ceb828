// Conversions between numbers of different widths, and the counted loop over real numbers.
#pragma once

#include <cstdint>

#include "platform/outcome.h"

namespace plotvane::platform {

// To a whole number of 16 or 32 bits, halves to even; error 6 outside its range and for what is not finite.
[[nodiscard]] Outcome<std::int16_t> ToInt16(double value) noexcept;
[[nodiscard]] Outcome<std::int32_t> ToInt32(double value) noexcept;

// To a 32-bit float; error 6 when too large.
[[nodiscard]] Outcome<float> ToSingle(double value) noexcept;

// The nearest whole number that fits 16 bits, halves to even, values beyond clamped, 0 for a
// not-a-number; for pixel positions.
[[nodiscard]] std::int16_t ClampToInt16(double value) noexcept;

// The result of an arithmetic step: `value` when finite, else error 6 (11 and 5 are told apart by the caller,
// who knows the operation).
[[nodiscard]] Outcome<double> Finite(double value) noexcept;

// A counted loop over real numbers: starts at `low`, grows by repeated addition of `step`, ends after `high`
// (inclusive, by the sign of the step). After the loop Counter() is the first value past the end.
//
//   for (CountedLoop loop(low, high, step); loop.Running(); loop.Advance()) { … loop.Counter() … }
//   if (loop.StoodStill()) …
class CountedLoop {
 public:
  constexpr CountedLoop(double low, double high, double step) noexcept
      : mCounter(low), mHigh(high), mStep(step) {}

  // False past the end, and when the step no longer changed the counter.
  [[nodiscard]] constexpr bool Running() const noexcept {
    return !mStoodStill && (mStep >= 0 ? mCounter <= mHigh : mCounter >= mHigh);
  }
  constexpr void Advance() noexcept {
    const double next = mCounter + mStep;
    mStoodStill = next == mCounter;
    mCounter = next;
  }
  [[nodiscard]] constexpr double Counter() const noexcept { return mCounter; }
  // True when the loop ended because adding the step left the counter as it was: it would never have ended.
  [[nodiscard]] constexpr bool StoodStill() const noexcept { return mStoodStill; }

 private:
  double mCounter;
  double mHigh;
  double mStep;
  bool mStoodStill = false;
};

}  // namespace plotvane::platform
