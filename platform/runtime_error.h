// RunTimeError: how a run-time error leaves an operation that has no status of its own (graph, control,
// files).
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/standard_error.h"

namespace plotvane::platform {

// Carries a standard error number and its text. Thrown by operations of the graph, the control and the record
// files; never by the expression engine, which reports through its error object. It never leaves a COM
// method, a window procedure or a callback: those edges turn it into a status.
class RunTimeError : public std::runtime_error {
 public:
  explicit RunTimeError(StandardError error)
      : RunTimeError(static_cast<std::int32_t>(error), std::string(StandardErrorText(error))) {}
  RunTimeError(std::int32_t number, const std::string& text) : std::runtime_error(text), mNumber(number) {}

  // The standard error number, see platform/standard_error.h.
  [[nodiscard]] std::int32_t Number() const noexcept { return mNumber; }

 private:
  std::int32_t mNumber;
};

}  // namespace plotvane::platform
