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

Curve::Curve(clsExp& expression, std::string_view variable)
    : mExpression(expression), mVariable(platform::LowerCaseText(variable)) {}

void Curve::SetColumnWidth(ColumnWidth width) {
  mWidth = width;
  mColumns.reset();
  mBlock = {};
}

bool Curve::At(double x, double& y) {
  if (!Prepare()) return AtByName(x, y);
  Program& program = mBound->Compiled();
  double value = FromPlan(x);
  if (!mBound->StoreVarying(x)) return AtByName(x, y);
  mBlockChanges = mBound->SeenChanges();
  if (value - value != 0) value = program.Run(x);
  if (value - value != 0) return EvaluateExactly(y);
  mExpression.FinishReplay(program);
  y = value;
  return true;
}

// Finds the program of the current list; false when there is none that can run now.
bool Curve::Prepare() {
  const clsExp& expression = mExpression;
  if (!expression.MayReplayCompiled() || expression.mState->inProgress) return false;
  const functions::AngleMode angleMode = expression.AngleMode();
  if (!mBound || mTokens != &expression.mPPE->List() ||
      !mBound->IsFor(expression.mOwnTable.get(), angleMode)) {
    mBound = expression.mPPE->Compiled(expression.mOwnTable, angleMode, mVariable);
    mTokens = &expression.mPPE->List();
    mColumns.reset();
    mBlock = {};
  }
  return mBound->Refresh();
}

double Curve::FromPlan(double x) noexcept {
  constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
  if (mNext == mXs.size()) return kNothing;
  if (std::bit_cast<std::uint64_t>(mXs[mNext]) != std::bit_cast<std::uint64_t>(x)) {
    DropPlan();
    return kNothing;
  }
  const bool isCurrent = mBlockChanges == mBound->SeenChanges() && mNext - mBlockBegin < mBlock.size();
  if (!isCurrent) ComputeBlock();
  return mBlock[mNext++ - mBlockBegin];
}

void Curve::ComputeBlock() {
  mBlockBegin = mNext;
  mBlock =
      ProgramColumns().Run(std::span<const double>(mXs).subspan(mNext, std::min(Columns::kBlock, Planned())));
}

std::size_t Curve::Block(std::span<const double> xs, std::span<double> ys) {
  std::size_t done = 0;
  while (done < xs.size()) {
    const std::size_t stored = BlockOfColumns(xs.subspan(done), ys.subspan(done));
    done += stored;
    if (stored == 0 && !At(xs[done], ys[done])) break;
    if (stored == 0) ++done;
  }
  return done;
}

// As many leading values as columns give; the state afterwards is that after the last of them.
std::size_t Curve::BlockOfColumns(std::span<const double> xs, std::span<double> ys) {
  if (!Prepare() || !mBound->CanStoreVarying()) return 0;
  const std::size_t count = std::min(xs.size(), Columns::kBlock);
  const std::span<const double> values = ProgramColumns().Run(xs.first(count));
  const std::size_t finite = Columns::AllFinite(values) ? count : Columns::LeadingFinite(values);
  if (finite == 0) return 0;
  std::copy_n(values.begin(), finite, ys.begin());
  mBound->StoreVarying(xs[finite - 1]);
  mExpression.FinishReplay(mBound->Compiled());
  return finite;
}

Columns& Curve::ProgramColumns() {
  if (!mColumns || mColumnsCompilation != mBound->Compilations()) {
    mColumns = std::make_unique<Columns>(mBound->Compiled(), mWidth);
    mColumnsCompilation = mBound->Compilations();
  }
  return *mColumns;
}

void Curve::Plan(std::span<const double> xs) {
  mXs.assign(xs.begin(), xs.end());
  mNext = 0;
  mBlock = {};
}

void Curve::DropPlan() noexcept {
  mXs.clear();
  mNext = 0;
  mBlock = {};
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

// The varying variable is stored already, and the expression only reads.
bool Curve::EvaluateExactly(double& y) {
  Value value;
  if (!mExpression.ReplayExactly(value)) return false;
  y = value.ToNumber().OrThrow();
  return true;
}

}  // namespace plotvane::engine
