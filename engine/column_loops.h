// The loops of the column path, for the files that compile them for one instruction set each.
//
// Everything is a template over Kernels, which such a file makes of a type in its own unnamed namespace: its
// loops, and all they inline, are then its own, and no other file can come to run code of a wider instruction
// set.
#pragma once

#include <type_traits>
#include <utility>

#include "engine/columns.h"
#include "engine/operation_table.h"
#include "functions/plain.h"

namespace plotvane::engine {

template <class Kernels>
struct ColumnLoops {
  using Real = functions::Plain<Kernels>;

  template <class Operation>
  static void OfAccumulator(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i) out[i] = Operation::Apply(Real(accumulator[i])).Get();
  }
  template <class Operation>
  static void UniformRight(const ColumnArguments& arguments) noexcept {
    if constexpr (std::is_same_v<Operation, operations::Power>) {
      if (RaiseToWhole(arguments)) return;
    }
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(accumulator[i]), Real(operand.uniform)).Get();
  }
  // Small whole powers of a column without the general power, whose bits they share; false for other
  // exponents.
  static bool RaiseToWhole(const ColumnArguments& arguments) noexcept {
    return RaiseToOneOf(arguments, std::integer_sequence<int, 2, 3, 4, 5, 6, 7, 8>{});
  }
  template <int... kExponents>
  static bool RaiseToOneOf(const ColumnArguments& arguments,
                           std::integer_sequence<int, kExponents...> /*exponents*/) noexcept {
    return (RaiseTo<kExponents>(arguments) || ...);
  }
  template <int kExponent>
  static bool RaiseTo(const ColumnArguments& arguments) noexcept {
    if (arguments.operand.uniform != kExponent) return false;
    OfAccumulator<operations::WholePower<kExponent>>(arguments);
    return true;
  }
  template <class Operation>
  static void UniformLeft(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(operand.uniform), Real(accumulator[i])).Get();
  }
  template <class Operation>
  static void ColumnRight(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(accumulator[i]), Real(operand.column[i])).Get();
  }
  template <class Operation>
  static void ColumnLeft(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(operand.column[i]), Real(accumulator[i])).Get();
  }

  // Two operations on the way through the arrays.
  template <class First, class Second, bool kFirstColumn, bool kSecondColumn>
  static void Pair(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, operand, second, groups] = arguments;
    const std::size_t count = groups * kColumnGroup;
    for (std::size_t i = 0; i < count; ++i) {
      Real between(accumulator[i]);
      if constexpr (operations::kIsOfTwo<First>) {
        between = First::Apply(between, Real(kFirstColumn ? operand.column[i] : operand.uniform));
      } else {
        between = First::Apply(between);
      }
      out[i] = Second::Apply(between, Real(kSecondColumn ? second.column[i] : second.uniform)).Get();
    }
  }

  static bool AllFinite(const double* numbers, std::size_t groups) noexcept {
    const std::size_t count = groups * kColumnGroup;
    std::uint64_t faults = 0;
    for (std::size_t i = 0; i < count; ++i) faults |= numbers[i] - numbers[i] == 0 ? 0U : ~std::uint64_t{0};
    return faults == 0;
  }

  // The maker of operations::Table and operations::PairTable.
  template <class First, class Second>
  static constexpr ColumnPairForms ForPair() {
    ColumnPairForms forms{};
    forms[0] = {Pair<First, Second, false, false>, Pair<First, Second, false, true>};
    if constexpr (operations::kIsOfTwo<First>) {
      forms[1] = {Pair<First, Second, true, false>, Pair<First, Second, true, true>};
    }
    return forms;
  }
  template <class Operation>
  static constexpr ColumnForms ForOne() {
    return {.ofAccumulator = OfAccumulator<Operation>};
  }
  template <class Operation>
  static constexpr ColumnForms ForTwo() {
    return {nullptr, UniformRight<Operation>, UniformLeft<Operation>, ColumnRight<Operation>,
            ColumnLeft<Operation>};
  }
};

}  // namespace plotvane::engine
