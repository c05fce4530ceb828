// Numbers and texts of the platform's run-time error catalogue.
#pragma once

#include <cstdint>
#include <string_view>

namespace plotvane::platform {

// A standard error number. Values outside this list occur too (a host may raise any number); they travel as
// the enumeration's underlying value.
enum class StandardError : std::int32_t {
  None = 0,
  InvalidCall = 5,  // square root or logarithm outside its domain, bad argument of a financial function
  Overflow = 6,     // a result too large, a conversion out of range
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,  // index outside an array
  DivisionByZero = 11,      // 0/0, "mod" and "\" by zero, 0 raised to a negative power
  TypeMismatch = 13,        // a text where a number is needed
  UserInterrupt = 18,       // the user had the work stopped
  OutOfStackSpace = 28,     // nesting too deep to go on
  BadFileNumber = 52,
  FileNotFound = 53,
  BadFileMode = 54,
  FileAlreadyOpen = 55,
  DeviceIoError = 57,
  DiskFull = 61,
  InputPastEnd = 62,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  ObjectRequired = 424,
  MemberNotFound = 438,
};

// The platform's message for a standard error number; the general text for a number it does not list.
[[nodiscard]] std::string_view StandardErrorText(std::int32_t number) noexcept;
[[nodiscard]] std::string_view StandardErrorText(StandardError error) noexcept;

}  // namespace plotvane::platform
