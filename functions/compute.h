// Compute: from a function of the catalogue and the values of its arguments to its value.
//
// The two rules of a call that every reader of argument lists shares: how many arguments there may be, and
// what becomes of them. How a list is read is the reader's own (engine/evaluator_calls.cpp,
// engine/compile.cpp).
#pragma once

#include <cstddef>
#include <span>

#include "functions/catalogue.h"
#include "functions/trapped.h"
#include "platform/value.h"

namespace plotvane::functions {

// The error of a wrong number of arguments, or none: missing is told before too many.
[[nodiscard]] ErrorPair CheckCount(const Function& function, std::size_t count) noexcept;

// The part of a call that follows the reading of its arguments: count, conversion to numbers, defaults, angle
// conversion, operation. For every function but the calculus operations. Errors: custom 4 and 5 for the
// count, 13 for a text that is no number, then those of the operation.
[[nodiscard]] Trapped Compute(const Function& function, AngleMode mode,
                              std::span<const platform::Value> arguments);

}  // namespace plotvane::functions
