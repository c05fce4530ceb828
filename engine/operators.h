// The operators of the language: one table of how tightly each binds and what it does.
#pragma once

#include <cstdint>

#include "engine/token.h"
#include "functions/errors.h"
#include "platform/value.h"

namespace plotvane::engine {

// Computes with the left and the right value and leaves the result in `left`; a postfix operation does not
// look at the right one. After an error `left` is as it was.
using OperatorFunction = functions::ErrorPair (*)(platform::Value& left, const platform::Value& right);

enum class OperatorForm : std::uint8_t { Binary, Postfix, Store };

// An operator is applied while the level being read is at most its threshold; the right operand is read at
// `rightLevel`. Every binary operator has rightLevel = threshold + 1: all of them, "^" too, group to the
// left.
struct Operator {
  TokenKind kind;
  OperatorForm form;
  std::uint8_t threshold;
  std::uint8_t rightLevel;    // 0 without a right operand
  OperatorFunction function;  // null for the stores, which need the variable table
};

// Levels at which operands are read: a whole statement or bracket, the operand of a prefix sign, that of
// "not".
inline constexpr std::uint8_t kStatementLevel = 1;
inline constexpr std::uint8_t kSignLevel = 11;
inline constexpr std::uint8_t kNotLevel = 6;

// The operator that a token is after an operand, or null.
[[nodiscard]] const Operator* FindOperator(TokenKind kind) noexcept;

// The operations of the prefix part, in place. "-" makes a number of anything; "not" inverts a boolean as one
// and the bits of a 32-bit whole number otherwise.
[[nodiscard]] functions::ErrorPair Negate(platform::Value& value);
[[nodiscard]] functions::ErrorPair Invert(platform::Value& value);

}  // namespace plotvane::engine
