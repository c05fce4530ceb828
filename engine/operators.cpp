#include "engine/operators.h"

#include <array>
#include <cstddef>
#include <functional>

#include "functions/arithmetic.h"
#include "functions/formulas.h"
#include "functions/trapped.h"
#include "platform/conversions.h"

namespace plotvane::engine {

namespace {

using functions::ErrorPair;
using functions::Trapped;
using platform::Value;

ErrorPair StoreResult(const Trapped& result, Value& target) {
  if (result.Ok()) target = Value(result.Get());
  return result.Error();
}

template <Trapped (*kOperation)(Trapped, Trapped)>
ErrorPair Arithmetic(Value& left, const Value& right) {
  return StoreResult(kOperation(Trapped(left.ToNumber()), Trapped(right.ToNumber())), left);
}

Trapped Add(Trapped a, Trapped b) {
  return a + b;
}
Trapped Subtract(Trapped a, Trapped b) {
  return a - b;
}
Trapped Multiply(Trapped a, Trapped b) {
  return a * b;
}
Trapped Divide(Trapped a, Trapped b) {
  return a / b;
}
Trapped RaisedTo(Trapped a, Trapped b) {
  return Pow(a, b);
}

ErrorPair Percent(Value& left, const Value&) {
  return StoreResult(Trapped(left.ToNumber()) / Trapped(100.0), left);
}

ErrorPair Factorial(Value& left, const Value&) {
  return StoreResult(functions::Factorial(Trapped(left.ToNumber())), left);
}

// Comparisons are of numbers; booleans count as -1 and 0.
template <class Relation>
ErrorPair Compare(Value& left, const Value& right) {
  const auto a = left.ToNumber();
  if (!a.Ok()) return {a.Error()};
  const auto b = right.ToNumber();
  if (!b.Ok()) return {b.Error()};
  left = Value(Relation()(a.Get(), b.Get()));
  return {};
}

platform::Outcome<std::int32_t> ToBits(const Value& value) {
  const auto number = value.ToNumber();
  if (!number.Ok()) return number.Error();
  return platform::ToInt32(number.Get());
}

// Two booleans give a boolean; otherwise the operation works bit by bit on 32-bit whole numbers. kOperation
// computes on both: the bits of True are all ones.
template <std::int32_t (*kOperation)(std::int32_t, std::int32_t)>
ErrorPair Logical(Value& left, const Value& right) {
  const auto a = ToBits(left);
  if (!a.Ok()) return {a.Error()};
  const auto b = ToBits(right);
  if (!b.Ok()) return {b.Error()};
  const std::int32_t result = kOperation(a.Get(), b.Get());
  left = left.IsBoolean() && right.IsBoolean() ? Value(result != 0) : Value(static_cast<double>(result));
  return {};
}

constexpr std::int32_t And(std::int32_t a, std::int32_t b) {
  return a & b;
}
constexpr std::int32_t Or(std::int32_t a, std::int32_t b) {
  return a | b;
}
constexpr std::int32_t Xor(std::int32_t a, std::int32_t b) {
  return a ^ b;
}
constexpr std::int32_t Eqv(std::int32_t a, std::int32_t b) {
  return ~(a ^ b);
}
constexpr std::int32_t Imp(std::int32_t a, std::int32_t b) {
  return ~a | b;
}

constexpr Operator Binary(TokenKind kind, std::uint8_t threshold, OperatorFunction function) {
  return {kind, OperatorForm::Binary, threshold, static_cast<std::uint8_t>(threshold + 1), function};
}
constexpr Operator Postfix(TokenKind kind, std::uint8_t threshold, OperatorFunction function) {
  return {kind, OperatorForm::Postfix, threshold, 0, function};
}
constexpr Operator Store(TokenKind kind) {
  return {kind, OperatorForm::Store, 1, 0, nullptr};
}

// The uneven levels ("\" and "mod" each on one of their own) are deliberate: 7\2*2 is 7\(2*2).
constexpr std::array kOperators{
    Binary(TokenKind::Exponent, 13, Arithmetic<functions::formulas::ScientificNotation<Trapped>>),
    Postfix(TokenKind::Factorial, 12, Factorial),
    Postfix(TokenKind::Percent, 12, Percent),
    Binary(TokenKind::Power, 12, Arithmetic<RaisedTo>),
    Binary(TokenKind::Times, 10, Arithmetic<Multiply>),
    Binary(TokenKind::Divide, 10, Arithmetic<Divide>),
    Binary(TokenKind::Backslash, 9, Arithmetic<functions::WholeQuotient>),
    Binary(TokenKind::Mod, 8, Arithmetic<functions::WholeRemainder>),
    Binary(TokenKind::Plus, 7, Arithmetic<Add>),
    Binary(TokenKind::Minus, 7, Arithmetic<Subtract>),
    Binary(TokenKind::Equal, 6, Compare<std::equal_to<>>),
    Binary(TokenKind::Less, 6, Compare<std::less<>>),
    Binary(TokenKind::Greater, 6, Compare<std::greater<>>),
    Binary(TokenKind::NotEqual, 6, Compare<std::not_equal_to<>>),
    Binary(TokenKind::LessOrEqual, 6, Compare<std::less_equal<>>),
    Binary(TokenKind::GreaterOrEqual, 6, Compare<std::greater_equal<>>),
    Binary(TokenKind::And, 5, Logical<And>),
    Binary(TokenKind::Or, 4, Logical<Or>),
    Binary(TokenKind::Xor, 3, Logical<Xor>),
    Binary(TokenKind::Eqv, 2, Logical<Eqv>),
    Binary(TokenKind::Imp, 1, Logical<Imp>),
    Store(TokenKind::Arrow),
    Store(TokenKind::FatArrow),
};

constexpr std::size_t kKindCount = static_cast<std::size_t>(TokenKind::Unknown) + 1;

constexpr std::array kOperatorOfKind = [] {
  std::array<const Operator*, kKindCount> operators{};
  for (const Operator& entry : kOperators) operators[static_cast<std::size_t>(entry.kind)] = &entry;
  return operators;
}();

}  // namespace

const Operator* FindOperator(TokenKind kind) noexcept {
  return kOperatorOfKind[static_cast<std::size_t>(kind)];
}

ErrorPair Negate(Value& value) {
  return StoreResult(-Trapped(value.ToNumber()), value);
}

ErrorPair Invert(Value& value) {
  if (value.IsBoolean()) {
    value = Value(!value.Boolean());
    return {};
  }
  const auto bits = ToBits(value);
  if (bits.Ok()) value = Value(static_cast<double>(~bits.Get()));
  return {bits.Error()};
}

}  // namespace plotvane::engine
