#include "engine/operation_choice.h"

#include <array>

namespace plotvane::engine {
namespace {

using operations::List;

constexpr std::size_t kKinds = static_cast<std::size_t>(TokenKind::Unknown) + 1;

// The templates stand before their use: not every compiler instantiates them in time otherwise.
class OperatorTable {
 private:
  template <class Operation>
  constexpr void Add() {
    if constexpr (requires { Operation::kOperator; }) {
      OperatorChoice& choice = mChoices[static_cast<std::size_t>(Operation::kOperator)];
      if constexpr (requires { Operation::kOfTruthValues; }) {
        choice.onTruthValues = operations::kOfTwo<Operation>;
      } else {
        choice.onNumbers = operations::kOfTwo<Operation>;
        choice.givesTruth = requires {
          Operation::kGivesTruth;
        };
      }
    }
  }
  template <class... Operations>
  constexpr void AddAll(List<Operations...> /*list*/) {
    (Add<Operations>(), ...);
  }

 public:
  constexpr OperatorTable() { AddAll(operations::OfTwo{}); }

  [[nodiscard]] constexpr const OperatorChoice& operator[](TokenKind kind) const noexcept {
    return mChoices[static_cast<std::size_t>(kind)];
  }

 private:
  std::array<OperatorChoice, kKinds> mChoices{};
};

constexpr OperatorTable kOperators;

template <class Operation>
void TakeIfOf(functions::Operation function, std::optional<OperationCode>& code) noexcept {
  if constexpr (requires { Operation::kFunction; }) {
    if (Operation::kFunction == function) code = operations::kOfTwo<Operation>;
  }
}

template <class... Operations>
std::optional<OperationCode> FindFunctionOfTwo(functions::Operation function,
                                               List<Operations...> /*list*/) noexcept {
  std::optional<OperationCode> code;
  (TakeIfOf<Operations>(function, code), ...);
  return code;
}

template <class Operation>
void TakeIfPower(double exponent, std::optional<OperationCode>& code) noexcept {
  if constexpr (requires { Operation::kWholeExponent; }) {
    if (Operation::kWholeExponent == exponent) code = operations::kOfOne<Operation>;
  }
}

template <class... Operations>
std::optional<OperationCode> FindWholePower(double exponent, List<Operations...> /*list*/) noexcept {
  std::optional<OperationCode> code;
  (TakeIfPower<Operations>(exponent, code), ...);
  return code;
}

}  // namespace

const OperatorChoice* ChooseForOperator(TokenKind kind) noexcept {
  const OperatorChoice& choice = kOperators[kind];
  return choice.onNumbers ? &choice : nullptr;
}

std::optional<OperationCode> ChooseForFunctionOfTwo(functions::Operation function) noexcept {
  return FindFunctionOfTwo(function, operations::OfTwo{});
}

std::optional<OperationCode> ChooseForWholePower(double exponent) noexcept {
  return FindWholePower(exponent, operations::OfOne{});
}

}  // namespace plotvane::engine
