#include "engine/evaluator.h"

#include <utility>

#include "engine/calculus_call.h"
#include "engine/clsExp.h"
#include "engine/evaluation_state.h"
#include "engine/literal.h"
#include "engine/number_mode.h"
#include "functions/trapped.h"

namespace plotvane::engine {

using functions::CustomError;
using functions::ErrorPair;
using platform::StandardError;
using platform::Value;

Evaluator::Evaluator(std::size_t outerLevels) noexcept : mOuterLevels(outerLevels) {}
Evaluator::~Evaluator() = default;

bool Evaluator::EvaluateLine(clsExp& expression, Value& result) {
  return Run(expression, true, result);
}
bool Evaluator::EvaluateStatement(clsExp& expression, Value& result) {
  return Run(expression, false, result);
}

void Evaluator::Abandon() noexcept {
  mLines.clear();
  mLevels.clear();
  mArguments.clear();
}

bool Evaluator::Run(clsExp& expression, bool wholeLine, Value& result) {
  BeginLine(expression, wholeLine);
  while (!mLines.empty()) {
    if (mReader->Failed()) {
      EndLine(false);
    } else if (mLevels.size() == mLines.back().bottom) {
      ContinueLine();
    } else {
      ContinueLevel();
    }
  }
  result = std::move(mValue);
  mValue.Clear();
  return mSucceeded;
}

// --- Lines

void Evaluator::BeginLine(clsExp& expression, bool wholeLine) {
  mExpression = &expression;
  mReader = &expression.mState->reader;
  if (wholeLine) {
    expression.PreEvalInitiate();
    mReader->Next();
  }
  if (expression.StopRequested()) mReader->Raise(StandardError::UserInterrupt);
  mLines.push_back({mExpression, mReader, mLevels.size(), mArguments.size(), wholeLine, 0, Value(), {}});
  BeginLevel(kStatementLevel);
}

// The value of a statement has come.
void Evaluator::ContinueLine() {
  Line& line = mLines.back();
  if (!TakeStatement(line)) return;
  if (!line.wholeLine) return EndLine(true);
  if (ToNextStatement()) return BeginLevel(kStatementLevel);
  if (mReader->Failed()) return;
  if (mReader->Kind() != TokenKind::End) return mReader->Raise(CustomError::Syntax);
  if (line.statements > 1) line.result = Value(std::move(line.joined));
  if (mExpression->mAcceptNumericResultOnly && !line.result.ToNumber().Ok()) {
    return mReader->Raise(CustomError::NotNumeric);
  }
  EndLine(true);
}

// Formats the value by the number mode; but the first statement of a line gives its raw value when numeric
// results only are accepted. False after an error.
bool Evaluator::TakeStatement(Line& line) {
  const bool raw = line.wholeLine && line.statements == 0 && mExpression->mAcceptNumericResultOnly;
  if (!raw) {
    auto shown = ShownForm(mValue, mExpression->mNumberMode, mExpression->mFixedDecimalPlaces,
                           mExpression->mState->math);
    if (!shown.Ok()) {
      mReader->Raise(shown.Error());
      return false;
    }
    mValue = shown.Get();
  }
  switch (line.statements++) {
    case 0: line.result = std::move(mValue); return true;
    case 1: line.joined = line.result.ToText(); break;
    default: break;
  }
  line.joined.append(" : ").append(mValue.ToText());
  return true;
}

// Takes the separators; true when another statement follows them.
bool Evaluator::ToNextStatement() {
  const auto atSeparator = [this] {
    return !mReader->Failed() &&
           (mReader->Kind() == TokenKind::Semicolon || mReader->Kind() == TokenKind::Colon);
  };
  if (!atSeparator()) return false;
  while (atSeparator()) mReader->Next();
  return !mReader->Failed();
}

void Evaluator::EndLine(bool succeeded) {
  Line line = std::move(mLines.back());
  mLines.pop_back();
  mLevels.erase(mLevels.begin() + static_cast<std::ptrdiff_t>(line.bottom), mLevels.end());
  mArguments.resize(line.firstArgument);
  if (!succeeded) {
    mReader->RaiseIfUnreported();
    line.result.Clear();
  }
  mValue = std::move(line.result);
  mSucceeded = succeeded;
  if (mLines.empty()) return;
  mExpression = mLines.back().expression;
  mReader = mLines.back().reader;
}

// --- Levels

void Evaluator::BeginLevel(std::uint8_t level) {
  if (Levels() >= kMostLevels) return mReader->Raise(StandardError::OutOfStackSpace);
  mLevels.emplace_back().level = level;
}

// Reads a level whose value `outer` waits for. `outer` may have moved afterwards.
void Evaluator::BeginLevelAfter(Level& outer, Step step, std::uint8_t level) {
  outer.step = step;
  BeginLevel(level);
}

// At its beginning, or with the value that it waited for in mValue.
void Evaluator::ContinueLevel() {
  Level& level = mLevels.back();
  switch (level.step) {
    case Step::ReadOperand: return ReadOperand(level);
    case Step::Negate:
      level.value = std::move(mValue);
      return ClimbUnless(engine::Negate(level.value), level);
    case Step::Keep: level.value = std::move(mValue); return Climb(level);
    case Step::Invert:
      level.value = std::move(mValue);
      return ClimbUnless(engine::Invert(level.value), level);
    case Step::CloseBracket:
      level.value = std::move(mValue);
      if (mReader->AcceptCloseBracket()) Climb(level);
      return;
    case Step::Assign:
      level.value = std::move(mValue);
      if (Change(level.name, level.value)) Climb(level);
      return;
    case Step::Combine: return ClimbUnless(level.waiting->function(level.value, mValue), level);
    case Step::TakeArgument: AddArgument(level, std::move(mValue)); return AfterArgument(level);
    case Step::TakePass: return TakePass(level);
  }
}

void Evaluator::EndLevel() {
  mValue = std::move(mLevels.back().value);
  mLevels.pop_back();
}

// The operand is in level.value; applies the operators that follow it, as far as this level goes.
void Evaluator::Climb(Level& level) {
  while (!mReader->Failed()) {
    const Operator* found = FindOperator(mReader->Kind());
    if (!found || level.level > found->threshold) return EndLevel();
    mReader->Next();
    if (mReader->Failed()) return;
    switch (found->form) {
      case OperatorForm::Binary:
        level.waiting = found;
        return BeginLevelAfter(level, Step::Combine, found->rightLevel);
      case OperatorForm::Postfix: {
        const ErrorPair error = found->function(level.value, level.value);
        if (!error.None()) return mReader->Raise(error);
        break;
      }
      case OperatorForm::Store: Store(level); break;
    }
  }
}

void Evaluator::ClimbUnless(ErrorPair error, Level& level) {
  if (error.None()) return Climb(level);
  mReader->Raise(error);
}

// The token after the arrow is current.
void Evaluator::Store(Level& level) {
  if (mReader->Kind() != TokenKind::Identifier) return mReader->Raise(CustomError::NoVariableToStore);
  if (Change(mReader->Spelling(), level.value)) mReader->Next();
}

// --- Operands

void Evaluator::ReadOperand(Level& level) {
  switch (mReader->Kind()) {
    case TokenKind::Minus: mReader->Next(); return BeginLevelAfter(level, Step::Negate, kSignLevel);
    case TokenKind::Plus: mReader->Next(); return BeginLevelAfter(level, Step::Keep, kSignLevel);
    case TokenKind::Not: mReader->Next(); return BeginLevelAfter(level, Step::Invert, kNotLevel);
    case TokenKind::Number: return ReadNumber(level);
    case TokenKind::Identifier: return ReadIdentifier(level);
    case TokenKind::Increment:
    case TokenKind::Decrement: return StepBefore(level);
    default: break;
  }
  if (!mReader->AcceptOpenBracket()) return mReader->Raise(CustomError::Syntax);
  BeginLevelAfter(level, Step::CloseBracket, kStatementLevel);
}

void Evaluator::ReadNumber(Level& level) {
  const functions::Trapped number = LiteralValue(mReader->Current(), mExpression->mState->math);
  if (!number.Ok()) return mReader->Raise(number.Error());
  level.value = Value(number.Get());
  mReader->Next();
  Climb(level);
}

// A name is offered to the functions before it is looked up, but "sin=5" stores.
void Evaluator::ReadIdentifier(Level& level) {
  const std::string_view name = mReader->Spelling();
  mReader->Next();
  if (mReader->Failed()) return;
  switch (mReader->Kind()) {
    case TokenKind::Assign:
      mReader->Next();
      level.name = name;
      return BeginLevelAfter(level, Step::Assign, kStatementLevel);
    case TokenKind::Increment:
    case TokenKind::Decrement: return StepAfter(level, name);
    default: break;
  }
  if (const functions::Function* function = functions::FindFunction(name)) return BeginCall(level, *function);
  bool exists = false;
  if (!Lookup(name, level.value, exists)) return;
  if (!exists) return mReader->Raise(CustomError::UndefinedIdentifier);
  Climb(level);
}

namespace {

// The value of a name after "++" or "--".
ErrorPair StepValue(Value& value, TokenKind sign) {
  const TokenKind operation = sign == TokenKind::Increment ? TokenKind::Plus : TokenKind::Minus;
  return FindOperator(operation)->function(value, Value(1.0));
}

}  // namespace

// "++" or "--" before a name: the new value. An unknown name counts as 0.
void Evaluator::StepBefore(Level& level) {
  const TokenKind sign = mReader->Kind();
  mReader->Next();
  if (mReader->Failed()) return;
  if (mReader->Kind() != TokenKind::Identifier) return mReader->Raise(CustomError::Syntax);
  bool exists = false;
  level.value = Value(0.0);
  if (!Lookup(mReader->Spelling(), level.value, exists)) return;
  if (const ErrorPair error = StepValue(level.value, sign); !error.None()) return mReader->Raise(error);
  if (!Change(mReader->Spelling(), level.value)) return;
  mReader->Next();
  Climb(level);
}

// After a name: the value before the change.
void Evaluator::StepAfter(Level& level, std::string_view name) {
  bool exists = false;
  level.value = Value(0.0);
  if (!Lookup(name, level.value, exists)) return;
  Value changed = level.value;
  if (const ErrorPair error = StepValue(changed, mReader->Kind()); !error.None())
    return mReader->Raise(error);
  if (!Change(name, changed)) return;
  mReader->Next();
  Climb(level);
}

// --- The variable table

bool Evaluator::Lookup(std::string_view name, Value& value, bool& exists) {
  // A copy: the table may be replaced while it answers.
  const std::shared_ptr<platform::VariableTable> table = mExpression->mVarTable;
  if (table) {
    exists = table->GetIdValue(name, value);
    return true;
  }
  mReader->Raise(StandardError::ObjectNotSet);
  return false;
}

bool Evaluator::Change(std::string_view name, const Value& value) {
  const std::shared_ptr<platform::VariableTable> table = mExpression->mVarTable;
  if (!table) {
    mReader->Raise(StandardError::ObjectNotSet);
    return false;
  }
  if (table->Change(name, value)) return true;
  mReader->Raise(CustomError::CannotStore);
  return false;
}

}  // namespace plotvane::engine
