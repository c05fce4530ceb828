#include "engine/clsExp.h"

#include <utility>

#include "engine/calculus_call.h"
#include "engine/evaluation_state.h"
#include "engine/replay.h"
#include "identifiers/clsVarTable.h"
#include "platform/ascii.h"
#include "platform/conversions.h"
#include "platform/runtime_error.h"

namespace plotvane::engine {

using platform::StandardError;
using platform::Value;

// Unlike all other nesting, an evaluation inside an evaluation (the variable table called back) stands on the
// program's stack, together with what the host put there: it counts as so many levels.
constexpr std::size_t kLevelsOfCallBack = 32;

// An evaluation in progress. One that begins inside another has a state of its own, whose nesting counts on
// from the outer one's.
class clsExp::Run {
 public:
  explicit Run(clsExp& expression) : mExpression(expression) {
    ++mExpression.mEpoch;
    EvaluationState& state = *mExpression.mState;
    if (state.inProgress) {
      mOuter = std::make_unique<EvaluationState>(mExpression, state.evaluator.Levels() + kLevelsOfCallBack);
      std::swap(mOuter, mExpression.mState);
    }
    mExpression.mState->inProgress = true;
  }
  ~Run() {
    EvaluationState& state = *mExpression.mState;
    state.inProgress = false;
    state.reader.End();
    state.evaluator.Abandon();
    if (mOuter) mExpression.mState = std::move(mOuter);
  }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  [[nodiscard]] ExpressionReader& Reader() noexcept { return mExpression.mState->reader; }

  bool Line(Value& result) { return mExpression.mState->evaluator.EvaluateLine(mExpression, result); }
  bool Statement(Value& result) {
    return mExpression.mState->evaluator.EvaluateStatement(mExpression, result);
  }

 private:
  clsExp& mExpression;
  std::unique_ptr<EvaluationState> mOuter;
};

clsExp::clsExp() : mState(std::make_unique<EvaluationState>(*this)) {
  static_cast<void>(SetFormatMode("decimal"));
  SetRadianMode(true);
  mPPE = std::make_shared<clsPreParsedExpression>();
  mErrObj.ExpObj = this;
}

clsExp::~clsExp() = default;

// --- Modes

bool clsExp::SetFixedDecimalPlaces(const Value& newNum) {
  ++mEpoch;
  const auto number = newNum.ToNumber();
  if (!number.Ok() || number.Get() > 127 || number.Get() < -100) return false;
  mFixedDecimalPlaces = platform::ToInt16(number.Get()).Get();
  return true;
}

std::int16_t clsExp::GetFixedDecimalPlaces() const noexcept {
  return mFixedDecimalPlaces;
}

bool clsExp::SetFormatMode(std::string_view newModeString) {
  ++mEpoch;
  const auto mode = FindNumberMode(platform::LowerCaseText(newModeString));
  mNumberMode = mode.value_or(NumberMode::Decimal);
  return mode.has_value();
}

std::string clsExp::GetFormatMode() const {
  return std::string(NumberModeWord(mNumberMode));
}

bool clsExp::GetRadianMode() const noexcept {
  return mRadianMode;
}
void clsExp::SetRadianMode(bool on) noexcept {
  ++mEpoch;
  mRadianMode = on;
}
bool clsExp::GetDegreeMode() const noexcept {
  return !mRadianMode;
}
void clsExp::SetDegreeMode(bool on) noexcept {
  ++mEpoch;
  mRadianMode = !on;
}

bool clsExp::GetAcceptNumericResultOnly() const noexcept {
  return mAcceptNumericResultOnly;
}
void clsExp::SetAcceptNumericResultOnly(bool on) noexcept {
  if (mAcceptNumericResultOnly != on) ++mEpoch;
  mAcceptNumericResultOnly = on;
}

// --- Evaluation

void clsExp::PreEvalInitiate() {
  ++mEpoch;
  ClearErrors();
  mState->reader.ForgetErrorNumbers();
  mState->reader.ForgetBrackets();
}

void clsExp::ClearErrors() {
  mErrObj.ClearLastErrors();
}

bool clsExp::EvaluateLineAndFormat(Value& result) {
  return Run(*this).Statement(result);
}

bool clsExp::Evaluate(std::string_view text, Value& result) {
  Run run(*this);
  run.Reader().StartText(text);
  return run.Line(result);
}

bool clsExp::EvaluateThenSavePreParsedExpression(std::string_view text, Value& result) {
  Run run(*this);
  if (!mPPE) mPPE = std::make_shared<clsPreParsedExpression>();
  mPPE->RemoveAll();
  run.Reader().StartText(text, mPPE);
  return run.Line(result);
}

void clsExp::SetPPE(std::shared_ptr<clsPreParsedExpression> newPPE) {
  ++mEpoch;
  mPPE = std::move(newPPE);
}

const std::shared_ptr<clsPreParsedExpression>& clsExp::GetPPE() const noexcept {
  return mPPE;
}

bool clsExp::EvaluateCurrentPreParsedExpression(Value& result) {
  return (!mState->inProgress && ReplayCompiled(0, result)) || ReplayExactly(result);
}

bool clsExp::ReplayExactly(Value& result) {
  Run run(*this);
  if (!mPPE) mPPE = std::make_shared<clsPreParsedExpression>();
  mPPE->SetNextToBeginning();
  run.Reader().StartReplay(mPPE->Tokens());
  return run.Line(result);
}

// A boolean passes as it is in decimal mode and where numeric results only are accepted; so does a number.
bool clsExp::MayReplayCompiled() const noexcept {
  return mCompiledReplay && mOwnTable && mPPE && !StopRequested() &&
         (mAcceptNumericResultOnly || mNumberMode == NumberMode::Decimal);
}

bool clsExp::ReplayCompiled(std::size_t outerLevels, Value& result) {
  if (!MayReplayCompiled()) return false;
  BoundProgram& bound = *mPPE->Compiled(mOwnTable, AngleMode(), {});
  if (!bound.Refresh()) return false;
  Program& program = bound.Compiled();
  if (outerLevels + program.Depth() > Evaluator::kMostLevels) return false;
  const double value = program.Run(0);
  if (value - value != 0) return false;
  FinishReplay(program);
  result = program.IsBoolean() ? Value(value != 0) : Value(value);
  return true;
}

void clsExp::FinishReplay(const Program& program) noexcept {
  mPPE->SetNextToBeginning();
  mErrObj.ClearLastErrors();
  mState->reader.FinishReplay(program.LastBracket());
}

bool clsExp::EvaluatePreParsedExpression(std::shared_ptr<clsPreParsedExpression> expression, Value& result) {
  SetPPE(std::move(expression));
  return EvaluateCurrentPreParsedExpression(result);
}

std::string clsExp::GetExpression() const {
  return mExpression;
}
void clsExp::SetExpression(std::string_view text) {
  mExpression = text;
}

bool clsExp::EvaluateIt(Value& result) {
  return mState->reader.Replaying() ? EvaluateCurrentPreParsedExpression(result)
                                    : Evaluate(mExpression, result);
}

// --- Variable table

void clsExp::CreateNewVarTable() {
  SetVarTable(std::make_shared<identifiers::clsVarTable>());
}
const std::shared_ptr<platform::VariableTable>& clsExp::GetVarTable() const noexcept {
  return mVarTable;
}
void clsExp::SetVarTable(std::shared_ptr<platform::VariableTable> table) noexcept {
  ++mEpoch;
  mOwnTable = std::dynamic_pointer_cast<identifiers::clsVarTable>(table);
  mVarTable = std::move(table);
}

// --- Errors

clsStdErrObj& clsExp::ErrObj() noexcept {
  return mErrObj;
}
const clsStdErrObj& clsExp::ErrObj() const noexcept {
  return mErrObj;
}
bool clsExp::ErrorOccurred() const noexcept {
  return mState->reader.Failed();
}
bool clsExp::ErrorAlreadySet() const noexcept {
  return mState->reader.ErrorAlreadySet();
}
void clsExp::SetErrorFlags(bool errorOccurred, bool errorAlreadySet) noexcept {
  ++mEpoch;
  mState->reader.SetErrorFlags(errorOccurred, errorAlreadySet);
}
std::string_view clsExp::e_Spelling() const noexcept {
  return mState->reader.Spelling();
}
std::string_view clsExp::PopPar() const noexcept {
  return mState->reader.PoppedBracket();
}

}  // namespace plotvane::engine
