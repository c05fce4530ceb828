// Dispatch: from a function's name and its bracketed argument list to its value.
#pragma once

#include <span>
#include <string_view>

#include "functions/call_context.h"
#include "functions/catalogue.h"
#include "functions/trapped.h"
#include "platform/value.h"

namespace plotvane::functions {

// Offers a name to the built-in functions, with the context's cursor at the token after the name. True when a
// value was produced. False otherwise: with `notAFunction` set when the name is not built in (nothing was
// read, no error was raised), else after the error was raised; `value` is then left alone.
[[nodiscard]] bool Dispatch(std::string_view name, CallContext& context, platform::Value& value,
                            bool& notAFunction);

// The same for a function already found.
[[nodiscard]] bool Call(const Function& function, CallContext& context, platform::Value& value);

// The part of a call that follows the reading of its arguments: count, conversion to numbers, angle
// conversion, operation. For every function but the calculus operations. Errors: custom 4 and 5 for the
// count, 13 for a text that is no number, then those of the operation.
[[nodiscard]] Trapped Compute(const Function& function, AngleMode mode,
                              std::span<const platform::Value> arguments);

// The error of a wrong number of arguments, or none: missing is told before too many.
[[nodiscard]] ErrorPair CheckCount(const Function& function, std::size_t count) noexcept;

}  // namespace plotvane::functions
