// The evaluator's reading of argument lists, and its calls of functions and calculus operations.
#include <span>
#include <utility>

#include "engine/calculus_call.h"
#include "engine/clsExp.h"
#include "engine/evaluation_state.h"
#include "engine/evaluator.h"
#include "functions/compute.h"
#include "platform/conversions.h"

namespace plotvane::engine {

using functions::CalculusArgument;
using functions::CustomError;
using functions::ErrorPair;
using platform::StandardError;
using platform::Value;

void Evaluator::BeginCall(Level& level, const functions::Function& function) {
  if (!mReader->AcceptOpenBracket()) return mReader->Raise(CustomError::OpenBracketExpected);
  if (mReader->Failed()) return;
  level.function = &function;
  level.firstArgument = mArguments.size();
  level.argumentCount = 0;
  if (function.IsCalculus()) level.calculus = std::make_unique<CalculusCall>();
  if (mReader->IsCloseBracket()) return EndCall(level);
  ReadArgument(level);
}

void Evaluator::ReadArgument(Level& level) {
  const auto kind = level.calculus ? functions::CalculusArgumentAt(*level.function, level.argumentCount)
                                   : CalculusArgument::Value;
  switch (kind) {
    case CalculusArgument::Value: return BeginLevelAfter(level, Step::TakeArgument, kStatementLevel);
    case CalculusArgument::Expression:
      if (!RecordExpression(*level.calculus)) return;
      break;
    case CalculusArgument::Variable:
      if (!ReadVariableName(*level.calculus)) return;
      break;
  }
  AddArgument(level, Value());
  AfterArgument(level);
}

// Records the tokens up to the comma or the bracket that ends the argument, and the end of input after them.
// Brackets are only counted: a wrong partner among them is found when the list is evaluated.
bool Evaluator::RecordExpression(CalculusCall& call) {
  std::size_t depth = 0;
  while (mReader->Kind() != TokenKind::End) {
    if (depth == 0 && (mReader->Kind() == TokenKind::Comma || mReader->IsCloseBracket())) break;
    if (mReader->IsOpenBracket()) ++depth;
    if (mReader->IsCloseBracket()) --depth;
    if (!call.expression->Append(mReader->Current())) {
      mReader->Raise(StandardError::Overflow);
      return false;
    }
    mReader->Next();
    if (mReader->Failed()) return false;
  }
  if (call.expression->NumberOfTokens() == 0) {
    mReader->Raise(CustomError::Syntax);
  } else if (!call.expression->Append(Token{})) {
    mReader->Raise(StandardError::Overflow);
  }
  return !mReader->Failed();
}

bool Evaluator::ReadVariableName(CalculusCall& call) {
  if (mReader->Kind() != TokenKind::Identifier) {
    mReader->Raise(CustomError::VariableExpected);
    return false;
  }
  call.variable = mReader->Spelling();
  mReader->Next();
  return !mReader->Failed();
}

// Arguments beyond what any function takes are only counted.
void Evaluator::AddArgument(Level& level, Value value) {
  if (level.argumentCount++ < functions::kMostArguments) mArguments.push_back(std::move(value));
}

void Evaluator::AfterArgument(Level& level) {
  if (mReader->IsCloseBracket()) return EndCall(level);
  if (mReader->Kind() != TokenKind::Comma) return mReader->Raise(CustomError::CloseBracketExpected);
  mReader->Next();
  if (!mReader->Failed()) ReadArgument(level);
}

void Evaluator::EndCall(Level& level) {
  if (!mReader->AcceptCloseBracket() || mReader->Failed()) return;
  const ErrorPair wrongCount = functions::CheckCount(*level.function, level.argumentCount);
  if (!wrongCount.None()) return mReader->Raise(wrongCount);
  if (level.calculus) return BeginCalculus(level);
  const auto arguments = std::span(mArguments).subspan(level.firstArgument);
  const functions::Trapped result = functions::Compute(*level.function, mExpression->AngleMode(), arguments);
  mArguments.resize(level.firstArgument);
  if (result.Ok()) level.value = Value(result.Get());
  ClimbUnless(result.Error(), level);
}

// --- Calculus

namespace {

bool HasRange(const functions::Function& function) {
  return function.operation == functions::Operation::SigmaSum ||
         function.operation == functions::Operation::LIntegral;
}

// The arguments that are values, in the order of the list, as numbers.
platform::Outcome<std::vector<double>> ValueArguments(const functions::Function& function,
                                                      std::span<const Value> arguments) {
  std::vector<double> values;
  for (std::size_t position = 0; position < arguments.size(); ++position) {
    if (functions::CalculusArgumentAt(function, position) != CalculusArgument::Value) continue;
    const auto number = arguments[position].ToNumber();
    if (!number.Ok()) return number.Error();
    values.push_back(number.Get());
  }
  return values;
}

// [n,] from [, to] [, step]
platform::Outcome<CalculusNumbers> NumbersOf(const functions::Function& function,
                                             std::span<const Value> arguments) {
  const auto values = ValueArguments(function, arguments);
  if (!values.Ok()) return values.Error();
  auto next = values.Get().begin();
  CalculusNumbers numbers;
  if (function.operation == functions::Operation::NDerivative) {
    const auto n = platform::ToInt16(*next++);
    if (!n.Ok()) return n.Error();
    numbers.n = n.Get();
  }
  numbers.from = *next++;
  if (HasRange(function)) numbers.to = *next++;
  numbers.step = next == values.Get().end() ? functions::DefaultStep(function) : *next;
  return numbers;
}

}  // namespace

void Evaluator::BeginCalculus(Level& level) {
  const auto numbers = NumbersOf(*level.function, std::span(mArguments).subspan(level.firstArgument));
  mArguments.resize(level.firstArgument);
  if (!numbers.Ok()) return mReader->Raise(numbers.Error());
  if (!mExpression->mVarTable) return mReader->Raise(StandardError::ObjectNotSet);
  CalculusCall& call = *level.calculus;
  call.privateObject = MakePrivateObject(*mExpression, call.expression);
  call.operation = MakeOperation(level.function->operation, mExpression->mVarTable, *call.expression,
                                 call.variable, numbers.Get());
  call.curve = std::make_unique<Curve>(*call.privateObject, call.variable, Levels());
  level.step = Step::TakePass;
  NextPass(level);
}

// One more evaluation of the recorded expression, as a line of the private object, or the end.
void Evaluator::NextPass(Level& level) {
  CalculusCall& call = *level.calculus;
  call.operation->TakeBlocks(*call.curve);
  if (!call.operation->NextPoint()) return EndCalculus(level);
  clsExp& object = *call.privateObject;
  object.mState->reader.StartReplay(call.expression->Tokens());
  BeginLine(object, true);
}

void Evaluator::TakePass(Level& level) {
  CalculusCall& call = *level.calculus;
  if (mSucceeded) {
    call.operation->Take(mValue.ToNumber().Get());
  } else {
    call.operation->TakeFailure(call.privateObject->ErrObj().WasOkGraphErr);
  }
  NextPass(level);
}

void Evaluator::EndCalculus(Level& level) {
  const std::unique_ptr<CalculusCall> call = std::move(level.calculus);
  const ErrorPair error = ErrorOf(*call->operation, *call->privateObject);
  if (error.None()) {
    level.value = Value(call->operation->Result().value_or(0.0));
    return Climb(level);
  }
  const clsExp& object = *call->privateObject;
  mReader->RaiseQuoting(error, object.e_Spelling(), object.PopPar());
}

}  // namespace plotvane::engine
