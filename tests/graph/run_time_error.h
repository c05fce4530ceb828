// The number of the run-time error that an operation ends with.
#pragma once

#include <cstdint>

#include "platform/runtime_error.h"

namespace plotvane::graph::test {

// 0 when the operation succeeds.
template <typename Operation>
std::int32_t ErrorOf(Operation operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace plotvane::graph::test
