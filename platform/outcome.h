// Outcome<T>: a value, or the standard error number that says why there is none.
#pragma once

#include <utility>

#include "platform/runtime_error.h"
#include "platform/standard_error.h"

namespace plotvane::platform {

template <typename T>
class [[nodiscard]] Outcome {
 public:
  Outcome(T value) : mValue(std::move(value)) {}            // NOLINT: a value is an outcome
  Outcome(StandardError error) noexcept : mError(error) {}  // NOLINT: so is an error

  [[nodiscard]] bool Ok() const noexcept { return mError == StandardError::None; }
  [[nodiscard]] StandardError Error() const noexcept { return mError; }

  // The value; a default-made T after a failure.
  [[nodiscard]] const T& Get() const noexcept { return mValue; }

  // The value, or a RunTimeError with the number.
  [[nodiscard]] T OrThrow() const {
    if (!Ok()) throw RunTimeError(mError);
    return mValue;
  }

 private:
  T mValue{};
  StandardError mError = StandardError::None;
};

}  // namespace plotvane::platform
