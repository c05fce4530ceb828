// Operations: carries out what the catalogue names, on numbers.
#pragma once

#include <array>

#include "functions/catalogue.h"
#include "functions/trapped.h"

namespace plotvane::functions {

// The arguments of one call, converted; positions that were omitted hold their defaults.
struct NumericArguments {
  std::array<Trapped, kMostArguments> values{0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
  std::size_t count = 0;  // as given in the call
};

// Runs an operation, angle conversions included. Not for the calculus operations.
[[nodiscard]] Trapped Run(Operation operation, AngleMode mode, const NumericArguments& arguments);

}  // namespace plotvane::functions
