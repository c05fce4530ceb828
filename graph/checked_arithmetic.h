// Real arithmetic whose faults are run-time errors: an infinity or a not-a-number never becomes a value.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/runtime_error.h"

namespace plotvane::graph {

// `value` when finite, else error 6.
inline double Checked(double value) {
  if (!std::isfinite(value)) throw platform::RunTimeError(platform::StandardError::Overflow);
  return value;
}

// Error 11 for a zero divisor, error 6 for a quotient that is too large.
inline double Divide(double dividend, double divisor) {
  if (divisor == 0) throw platform::RunTimeError(platform::StandardError::DivisionByZero);
  return Checked(dividend / divisor);
}

// A 16-bit sum, difference or product, computed in 32 bits by the caller; error 6 when it does not fit.
inline std::int16_t Checked16(std::int32_t value) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (value < Limits::min() || value > Limits::max())
    throw platform::RunTimeError(platform::StandardError::Overflow);
  return static_cast<std::int16_t>(value);
}

}  // namespace plotvane::graph
