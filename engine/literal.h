// The value of a number literal.
#pragma once

#include "engine/token.h"
#include "functions/clsMath.h"

namespace plotvane::engine {

// Errors: custom 1 for a decimal literal with several points or without a digit, custom 6 for based digits
// that are missing or do not fit the base, standard 6 for a number that is too large.
[[nodiscard]] functions::Trapped LiteralValue(const Token& number, functions::clsMath& math);

}  // namespace plotvane::engine
