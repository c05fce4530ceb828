// Columns: a program run for whole blocks of values, operation by operation over arrays.
//
// The results equal those of Program::Run to the last bit: both are made from the same operations, and a loop
// over an array does to each element what the single value would meet. Where Program::Run succeeds, a column
// may still hold a number that is not finite (an argument that only the complete form of a kernel takes); the
// caller asks Program::Run for such a point, and the exact evaluator when that fails too.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "engine/program.h"

namespace plotvane::engine {

// The instruction sets that the loops are compiled for. Every processor this system runs on has the first.
enum class ColumnWidth { Sse2, Avx2 };

// The widest that this processor has.
[[nodiscard]] ColumnWidth WidestColumns() noexcept;

// What a loop gets: `out` may be the same array as `accumulator`.
struct ColumnArguments {
  double* out;
  const double* accumulator;
  const double* column;  // the operand, when it is a column
  double uniform;        // the operand, when it is one number
  std::size_t count;
};

using ColumnRun = void (*)(const ColumnArguments&) noexcept;

// The loops of one operation.
struct ColumnForms {
  ColumnRun ofAccumulator = nullptr;
  ColumnRun uniformRight = nullptr;
  ColumnRun uniformLeft = nullptr;
  ColumnRun columnRight = nullptr;
  ColumnRun columnLeft = nullptr;
};

[[nodiscard]] const ColumnForms& Sse2Forms(OperationCode code) noexcept;
[[nodiscard]] const ColumnForms& Avx2Forms(OperationCode code) noexcept;

// The second part of a program bound to loops and arrays. The program outlives it.
class Columns {
 public:
  static constexpr std::size_t kBlock = 256;

  explicit Columns(const Program& program, ColumnWidth width = WidestColumns());

  // Results for at most kBlock values; the program's RunUniform has run. The view is valid until the next
  // call.
  [[nodiscard]] std::span<const double> Run(std::span<const double> xs) noexcept;

  // True when all numbers are finite; how many are before the first that is not.
  [[nodiscard]] static bool AllFinite(std::span<const double> numbers) noexcept;
  [[nodiscard]] static std::size_t LeadingFinite(std::span<const double> numbers) noexcept;

 private:
  struct Bound {
    ColumnRun run;  // null for a call, a load or a store
    StepForm form;
    bool operandIsColumn;
    const double* uniform;  // in the program
    std::size_t column;     // number of the array
    const CallPlan* call;
  };

  [[nodiscard]] Bound Bind(const Step& step, ColumnWidth width) const;
  [[nodiscard]] const double* ColumnAt(std::size_t column, std::span<const double> xs) const noexcept;
  void RunCalls(const CallPlan& call, std::size_t count) noexcept;

  const Program& mProgram;
  std::vector<Bound> mSteps;
  std::vector<std::size_t> mColumnOf;  // by slot; 0 is the varying variable
  std::vector<double> mNumbers;        // the accumulator, then the arrays 1, 2, …
};

}  // namespace plotvane::engine
