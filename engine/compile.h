// Compile: from a recorded token list to a Program.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "engine/clsPreParsedExpression.h"
#include "engine/program.h"

namespace plotvane::engine {

struct CompileOptions {
  functions::AngleMode angleMode = functions::AngleMode::Radians;
  // The varying variable in lower case; empty when there is none.
  std::string_view varying;
  // Whether the program is to take a variable (in lower case) for a truth value; all others it takes for
  // numbers.
  std::function<bool(std::string_view name)> isBoolean;
};

// Null for a list that no program expresses and the exact evaluator keeps: one with an error in it, several
// statements, a store, random numbers, a calculus operation. Time and memory are proportional to the number
// of tokens.
[[nodiscard]] std::unique_ptr<Program> Compile(const TokenList& tokens, const CompileOptions& options);

}  // namespace plotvane::engine
