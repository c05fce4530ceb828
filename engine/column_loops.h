// The loops of the column path, for the files that compile them for one instruction set each.
//
// Everything is a template over Kernels, which such a file makes of a type in its own unnamed namespace: its
// loops, and all they inline, are then its own, and no other file can come to run code of a wider instruction
// set.
#pragma once

#include <type_traits>

#include "engine/columns.h"
#include "engine/operation_table.h"
#include "functions/kernels/power.h"
#include "functions/plain.h"

namespace plotvane::engine {

template <class Kernels>
struct ColumnLoops {
  using Real = functions::Plain<Kernels>;

  template <class Operation>
  static void OfAccumulator(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    for (std::size_t i = 0; i < count; ++i) out[i] = Operation::Apply(Real(accumulator[i])).Get();
  }
  template <class Operation>
  static void UniformRight(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    if constexpr (std::is_same_v<Operation, operations::Power>) {
      if (RaiseToSmall(arguments)) return;
    }
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(accumulator[i]), Real(uniform)).Get();
  }
  // Squares and cubes of a whole column without the general power, whose bits they share; false for other
  // exponents.
  static bool RaiseToSmall(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    if (uniform == 2.0) {
      for (std::size_t i = 0; i < count; ++i) out[i] = accumulator[i] * accumulator[i];
      return true;
    }
    if (uniform != 3.0) return false;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = functions::kernels::CubeFast<typename Real::Tag>(accumulator[i]);
    return true;
  }
  template <class Operation>
  static void UniformLeft(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(uniform), Real(accumulator[i])).Get();
  }
  template <class Operation>
  static void ColumnRight(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(accumulator[i]), Real(column[i])).Get();
  }
  template <class Operation>
  static void ColumnLeft(const ColumnArguments& arguments) noexcept {
    const auto [out, accumulator, column, uniform, count] = arguments;
    for (std::size_t i = 0; i < count; ++i)
      out[i] = Operation::Apply(Real(column[i]), Real(accumulator[i])).Get();
  }

  // The maker of operations::Table.
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
