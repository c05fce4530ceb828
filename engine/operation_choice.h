// Which operations carry out the operators and functions of the language, read off the list in
// engine/operations.h.
#pragma once

#include <optional>

#include "engine/operation_table.h"
#include "engine/token.h"
#include "functions/catalogue.h"

namespace plotvane::engine {

// What a binary operator does with numbers, with two truth values, and whether its result is a truth value.
struct OperatorChoice {
  std::optional<OperationCode> onNumbers;
  std::optional<OperationCode> onTruthValues;  // when it does something else with them, and gives one
  bool givesTruth = false;                     // whatever the operands are
};

// Null for a token that is no binary operator.
[[nodiscard]] const OperatorChoice* ChooseForOperator(TokenKind kind) noexcept;

// The operation of a function of two numbers, if there is one.
[[nodiscard]] std::optional<OperationCode> ChooseForFunctionOfTwo(functions::Operation function) noexcept;

// The power of a whole exponent as an operation of one number, if there is one.
[[nodiscard]] std::optional<OperationCode> ChooseForWholePower(double exponent) noexcept;

}  // namespace plotvane::engine
