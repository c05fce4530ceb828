// Columns: a program run for whole blocks of values, operation by operation over arrays.
//
// The results equal those of Program::Run to the last bit: both are made from the same operations, and a loop
// over an array does to each element what the single value would meet. Where Program::Run succeeds, a column
// may still hold a number that is not finite (an argument that only the complete form of a kernel takes); the
// caller asks Program::Run for such a point, and the exact evaluator when that fails too.
#pragma once

#include <array>
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

// Loops run over whole groups of so many numbers; arrays are long enough for the last one.
inline constexpr std::size_t kColumnGroup = 4;

// The operand of an operation.
struct ColumnOperand {
  const double* column;  // when it is a column
  double uniform;        // when it is one number
};

// What a loop gets: `out` may be the same array as `accumulator`.
struct ColumnArguments {
  double* out;
  const double* accumulator;
  ColumnOperand operand;
  ColumnOperand second;  // of the second operation of a pair
  std::size_t groups;
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

// The loops of two operations in one, by what their operands are: [the first's is a column][the second's is].
using ColumnPairForms = std::array<std::array<ColumnRun, 2>, 2>;

// All loops for one instruction set.
struct ColumnCode {
  const ColumnForms& (*forms)(OperationCode code) noexcept;
  const ColumnPairForms* (*pairForms)(OperationCode first, OperationCode second) noexcept;
  bool (*allFinite)(const double* numbers, std::size_t groups) noexcept;
};

extern const ColumnCode kSse2Columns;
extern const ColumnCode kAvx2Columns;

// The second part of a program bound to loops and arrays. The program outlives it.
class Columns {
 public:
  static constexpr std::size_t kBlock = 256;

  explicit Columns(Program& program, ColumnWidth width = WidestColumns());

  // Results for at most kBlock values, after RunUniform of the program; the two spans do not overlap. Returns
  // how many leading ones are results: the value after them, if any is left, is one for the exact evaluator.
  [[nodiscard]] std::size_t Run(std::span<const double> xs, std::span<double> ys) noexcept;

 private:
  struct BoundOperand {
    bool isColumn = false;
    std::size_t column = 0;           // number of the array
    const double* uniform = nullptr;  // in the program; null where there is none
  };

  struct Bound {
    ColumnRun run;  // null for a call, a load or a store
    StepForm form;
    BoundOperand operand;
    BoundOperand second;  // of a pair
    std::size_t target;   // number of the array for the result
    const CallPlan* call;
  };

  void Bind(const std::vector<Step>& steps);
  [[nodiscard]] Bound Bind(const Step& step) const;
  [[nodiscard]] bool BindPair(Bound& bound, const Step& first, const Step& second) const;
  [[nodiscard]] BoundOperand Bind(Slot slot) const;
  [[nodiscard]] bool IsColumn(Slot slot) const noexcept;
  [[nodiscard]] double* ColumnAt(std::size_t column) noexcept { return mNumbers.data() + column * kBlock; }
  [[nodiscard]] std::size_t RunGroups(std::span<const double> xs, std::span<double> ys, std::size_t groups,
                                      const double* varying, double* accumulator) noexcept;
  [[nodiscard]] const double* RunSteps(std::size_t groups, const double* varying,
                                       double* accumulator) noexcept;
  [[nodiscard]] std::size_t Mend(std::span<const double> xs, std::span<double> ys) noexcept;
  void RunCalls(const CallPlan& call, std::size_t count, double* results) noexcept;

  Program& mProgram;
  const ColumnCode& mCode;
  std::vector<Bound> mSteps;
  std::vector<std::size_t> mColumnOf;  // by slot; 0 is the varying variable
  std::vector<double> mNumbers;        // the arrays: 0 the varying variable and 1 the accumulator where the
                                       // caller's do not end with a whole group, then the temporaries
};

}  // namespace plotvane::engine
