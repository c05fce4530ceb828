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
  // `outerLevels` levels of evaluation are in progress around every evaluation here.
  Curve(clsExp& expression, std::string_view variable, std::size_t outerLevels = 0);

  // True and the value as a number; false after a failure, and `y` is left alone. Standard error 91 is raised
  // as a RunTimeError when the expression has no table; whatever a host's table raises passes through.
  [[nodiscard]] bool At(double x, double& y) {
    if (!IsSteady()) return AtUnsteadily(x, y);
    mTable->ReplaceNumber(*mRecord, x);
    mSeenChanges = mTable->Changes();
    const double value = mPlanned == 0 ? mProgram->Run(x) : FromPlan(x);
    if (value - value != 0) return AtFault(x, y);
    y = value;
    return true;
  }

  // At for every x, in this order; stops at the first failure. Returns how many values were stored in `ys`,
  // which is as long as `xs` and does not overlap it.
  [[nodiscard]] std::size_t Block(std::span<const double> xs, std::span<double> ys);

  // The same, but stops before the first value that only the exact evaluator can give, too, and at once when
  // there is no program that can run or a stop is requested (clsExp::SetStopFlag).
  [[nodiscard]] std::size_t CompiledBlock(std::span<const double> xs, std::span<double> ys);

  // Announces the values that At will be asked for next, in this order, so that they may be computed in
  // blocks. The plan is dropped at the first value that was not announced.
  void Plan(std::span<const double> xs);
  // How many announced values are left.
  [[nodiscard]] std::size_t Planned() const noexcept { return mPlanned; }

  // Uses loops of one width instead of the widest one of this processor.
  void SetColumnWidth(ColumnWidth width);

 private:
  // Whether everything is as the last evaluation by the program left it.
  [[nodiscard]] bool IsSteady() const noexcept {
    return !mExpression.StopRequested() && mExpression.mEpoch == mSteadyEpoch &&
           &mExpression.mPPE->List() == mTokens && mTable->Changes() == mSeenChanges &&
           mExpression.mErrObj.IsClear() && mExpression.mPPE->IsAtBeginning();
  }
  void StoreVarying(double x) noexcept {
    mTable->SetNumber(*mRecord, x);
    mSeenChanges = mTable->Changes();
  }
  [[nodiscard]] bool AtUnsteadily(double x, double& y);
  [[nodiscard]] bool AtFault(double x, double& y);
  [[nodiscard]] bool AtByName(double x, double& y);
  [[nodiscard]] bool Prepare();
  void Finish() noexcept;

  // What a plan holds for x; not finite when nothing.
  [[nodiscard]] double FromPlan(double x) noexcept;
  void ComputeBlock();
  void DropPlan() noexcept;
  [[nodiscard]] Columns& ProgramColumns();

  clsExp& mExpression;
  std::string mVariable;
  std::size_t mOuterLevels;
  ColumnWidth mWidth = WidestColumns();

  std::shared_ptr<BoundProgram> mBound;
  // Of mBound, as long as IsSteady.
  Program* mProgram = nullptr;
  identifiers::clsVarTable* mTable = nullptr;
  identifiers::clsExNode* mRecord = nullptr;
  std::uint64_t mSeenChanges = 0;  // the table's count of changes that the program's numbers belong to
  std::unique_ptr<Columns> mColumns;
  std::uint64_t mColumnsCompilation = 0;  // of mBound, that mColumns belongs to
  const TokenList* mTokens = nullptr;     // that mBound belongs to
  std::uint64_t mSteadyEpoch = kNeverSteady;
  static constexpr std::uint64_t kNeverSteady = ~std::uint64_t{0};

  std::vector<double> mXs;  // as announced, of which mPlanned are left from mNext on
  std::size_t mPlanned = 0;
  std::size_t mNext = 0;
  std::vector<double> mBlock;  // values for mXs[mBlockBegin], …
  std::size_t mBlockBegin = 0;
  std::uint64_t mBlockRefresh = 0;  // of mBound, that the block belongs to
};

}  // namespace plotvane::engine
