// Curve: the current recorded expression of an expression object as a function of one variable.
//
//   expression.EvaluateThenSavePreParsedExpression("sin(x)/x", unused);
//   Curve curve(expression, "x");
//   if (curve.At(0.5, y)) …
//
// At does what `Change(variable, x)` on the variable table and then EvaluateCurrentPreParsedExpression do,
// with the same results, errors and state of the table and of the error object, but without looking anything
// up by name. With the system's own table and an expression that only reads, a compiled program runs;
// anything else is evaluated exactly as the two calls would.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/clsExp.h"
#include "engine/columns.h"
#include "engine/replay.h"

namespace plotvane::engine {

class Curve {
 public:
  // The expression outlives the curve. Its recorded list, table and modes may change at any time.
  Curve(clsExp& expression, std::string_view variable);

  // True and the value as a number; false after a failure, and `y` is left alone. Standard error 91 is raised
  // as a RunTimeError when the expression has no table; whatever a host's table raises passes through.
  [[nodiscard]] bool At(double x, double& y);

  // At for every x, in this order; stops at the first failure. Returns how many values were stored in `ys`,
  // which is as long as `xs`.
  [[nodiscard]] std::size_t Block(std::span<const double> xs, std::span<double> ys);

  // Announces the values that At will be asked for next, in this order, so that they may be computed in
  // blocks. The plan is dropped at the first value that was not announced and at any change of what the
  // values depend on.
  void Plan(std::span<const double> xs);
  // How many announced values are left.
  [[nodiscard]] std::size_t Planned() const noexcept { return mXs.size() - mNext; }

  // Uses loops of one width instead of the widest one of this processor.
  void SetColumnWidth(ColumnWidth width);

 private:
  [[nodiscard]] bool Prepare();
  // What a plan holds for x; not finite when nothing.
  [[nodiscard]] double FromPlan(double x) noexcept;
  void ComputeBlock();
  [[nodiscard]] std::size_t BlockOfColumns(std::span<const double> xs, std::span<double> ys);
  [[nodiscard]] Columns& ProgramColumns();
  void DropPlan() noexcept;
  [[nodiscard]] bool AtByName(double x, double& y);
  [[nodiscard]] bool EvaluateExactly(double& y);

  clsExp& mExpression;
  std::string mVariable;
  ColumnWidth mWidth = WidestColumns();

  std::shared_ptr<BoundProgram> mBound;
  std::unique_ptr<Columns> mColumns;
  std::uint64_t mColumnsCompilation = 0;  // of mBound, that mColumns belongs to
  const TokenList* mTokens = nullptr;

  std::vector<double> mXs;  // as announced, asked for up to mNext
  std::size_t mNext = 0;
  std::span<const double> mBlock;  // of values for mXs[mBlockBegin], …
  std::size_t mBlockBegin = 0;
  std::uint64_t mBlockChanges = 0;  // the table's count of changes that the block belongs to
};

}  // namespace plotvane::engine
