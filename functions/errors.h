// The errors of an expression: standard and custom numbers, and who is told of them.
#pragma once

#include <cstdint>

#include "platform/standard_error.h"

namespace plotvane::functions {

// The one operation through which clsMath reports its own errors; implemented by clsStdErrObj.
class ErrorSink {
 public:
  virtual ~ErrorSink() = default;
  // Records an error: a standard number and a custom number, either may be 0.
  virtual void GEP(std::int32_t standardErrNum, std::int32_t customErrNum) = 0;
};

// The engine's custom error numbers; texts are engine/error_catalogue.
enum class CustomError : std::int32_t {
  None = 0,
  Syntax = 1,
  BracketMismatch = 2,
  UndefinedFunction = 3,
  MissingArguments = 4,
  TooManyArguments = 5,
  BaseDigits = 6,
  BaseSpecification = 7,
  NotNumeric = 8,
  CannotStore = 9,
  NoVariableToStore = 10,
  UndefinedValue = 11,
  UndefinedIdentifier = 12,
  VariableExpected = 13,
  OpenBracketExpected = 14,
  CloseBracketExpected = 15,
};

// A standard and a custom error number; both None means that nothing failed.
struct ErrorPair {
  platform::StandardError standard = platform::StandardError::None;
  CustomError custom = CustomError::None;

  [[nodiscard]] constexpr bool None() const noexcept {
    return standard == platform::StandardError::None && custom == CustomError::None;
  }
  friend constexpr bool operator==(const ErrorPair&, const ErrorPair&) = default;
};

}  // namespace plotvane::functions
