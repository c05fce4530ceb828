#include "engine/curve.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

#include "engine/evaluation_state.h"
#include "platform/ascii.h"
#include "platform/runtime_error.h"

namespace plotvane::engine {

using platform::Value;

Curve::Curve(clsExp& expression, std::string_view variable, std::size_t outerLevels)
    : mExpression(expression), mVariable(platform::LowerCaseText(variable)), mOuterLevels(outerLevels) {}

// Once through everything that IsSteady skips.
bool Curve::AtUnsteadily(double x, double& y) {
  if (!Prepare()) return AtByName(x, y);
  const double value = mPlanned == 0 ? mProgram->Run(x) : FromPlan(x);
  StoreVarying(x);
  if (value - value != 0) return AtFault(x, y);
  Finish();
  y = value;
  return true;
}

// The columns may lack what the program itself computes; failing that, the exact evaluator has the word. The
// variable is stored already, and the expression only reads.
bool Curve::AtFault(double x, double& y) {
  const double value = mProgram->Run(x);
  if (value - value == 0) {
    Finish();
    y = value;
    return true;
  }
  Value exact;
  if (!mExpression.ReplayExactly(exact)) return false;
  y = exact.ToNumber().OrThrow();
  return true;
}

// The two calls that At stands for.
bool Curve::AtByName(double x, double& y) {
  DropPlan();
  const std::shared_ptr<platform::VariableTable> table = mExpression.GetVarTable();
  if (!table) throw platform::RunTimeError(platform::StandardError::ObjectNotSet);
  static_cast<void>(table->Change(mVariable, Value(x)));
  Value value;
  if (!mExpression.EvaluateCurrentPreParsedExpression(value)) return false;
  const auto number = value.ToNumber();
  if (!number.Ok()) return false;
  y = number.Get();
  return true;
}

// Finds the program of the current list; false when there is none that can run now.
bool Curve::Prepare() {
  mSteadyEpoch = kNeverSteady;
  const clsExp& expression = mExpression;
  if (!expression.MayReplayCompiled() || expression.mState->inProgress) return false;
  const functions::AngleMode angleMode = expression.AngleMode();
  if (!mBound || mTokens != &expression.mPPE->List() ||
      !mBound->IsFor(expression.mOwnTable.get(), angleMode)) {
    mBound = expression.mPPE->Compiled(expression.mOwnTable, angleMode, mVariable);
    mTokens = &expression.mPPE->List();
    mTable = nullptr;
    mColumns.reset();
    mBlock.clear();
  }
  // Stores of its own leave the program's numbers as they are.
  if (mTable == &mBound->Table() && mTable->Changes() == mSeenChanges) mBound->NoteOwnStores();
  mTable = &mBound->Table();
  mRecord = nullptr;
  if (!mBound->Refresh()) return false;
  mSeenChanges = mTable->Changes();
  mProgram = &mBound->Compiled();
  mRecord = mBound->VaryingRecord();
  return mRecord && mOuterLevels + mProgram->Depth() <= Evaluator::kMostLevels;
}

void Curve::Finish() noexcept {
  mExpression.FinishReplay(*mProgram);
  mSteadyEpoch = mExpression.mEpoch;
}

std::size_t Curve::Block(std::span<const double> xs, std::span<double> ys) {
  std::size_t done = 0;
  while (done < xs.size()) {
    done += CompiledBlock(xs.subspan(done), ys.subspan(done));
    if (done == xs.size() || !At(xs[done], ys[done])) break;
    ++done;
  }
  return done;
}

std::size_t Curve::CompiledBlock(std::span<const double> xs, std::span<double> ys) {
  std::size_t done = 0;
  if (!Prepare()) return done;
  while (done < xs.size()) {
    const std::size_t count = std::min(xs.size() - done, Columns::kBlock);
    const std::size_t stored = ProgramColumns().Run(xs.subspan(done, count), ys.subspan(done, count));
    done += stored;
    if (stored < count) break;
  }
  if (done == 0) return done;
  StoreVarying(xs[done - 1]);
  Finish();
  return done;
}

Columns& Curve::ProgramColumns() {
  if (!mColumns || mColumnsCompilation != mBound->Compilations()) {
    mColumns = std::make_unique<Columns>(mBound->Compiled(), mWidth);
    mColumnsCompilation = mBound->Compilations();
  }
  return *mColumns;
}

void Curve::SetColumnWidth(ColumnWidth width) {
  mWidth = width;
  mColumns.reset();
  mBlock.clear();
}

void Curve::Plan(std::span<const double> xs) {
  mXs.assign(xs.begin(), xs.end());
  mPlanned = xs.size();
  mNext = 0;
  mBlock.clear();
}

void Curve::DropPlan() noexcept {
  mPlanned = 0;
  mBlock.clear();
}

double Curve::FromPlan(double x) noexcept {
  if (std::bit_cast<std::uint64_t>(mXs[mNext]) != std::bit_cast<std::uint64_t>(x)) {
    DropPlan();
    return std::numeric_limits<double>::quiet_NaN();
  }
  const bool isCurrent = mBlockRefresh == mBound->Refreshments() && mNext - mBlockBegin < mBlock.size();
  if (!isCurrent) ComputeBlock();
  --mPlanned;
  return mBlock[mNext++ - mBlockBegin];
}

// Numbers after the first that the loops cannot give may be missing: At asks the program for each of them.
void Curve::ComputeBlock() {
  const auto xs = std::span<const double>(mXs).subspan(mNext, std::min(Columns::kBlock, mPlanned));
  mBlockBegin = mNext;
  mBlockRefresh = mBound->Refreshments();
  mBlock.resize(xs.size());
  static_cast<void>(ProgramColumns().Run(xs, mBlock));
}

}  // namespace plotvane::engine
