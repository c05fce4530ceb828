// The standard error number that an operation ends with, for tests that expect one.
#pragma once

#include <cstdint>

#include "platform/runtime_error.h"

namespace plotvane::tests {

// 0 when `operation` ends without an error.
template <typename Operation>
std::int32_t RunTimeErrorNumber(Operation operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace plotvane::tests
