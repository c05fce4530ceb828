#include "hosts/terminal/equation.h"

#include <utility>

#include "functions/errors.h"
#include "hosts/terminal/calc_report.h"
#include "hosts/terminal/interrupt.h"
#include "platform/runtime_error.h"
#include "platform/value.h"

namespace plotvane::terminal {

using functions::CustomError;
using platform::Value;

Equation::Equation(std::string text, bool degrees)
    : mText(std::move(text)), mExpression(std::make_unique<engine::clsExp>()) {
  mExpression->CreateNewVarTable();
  mExpression->SetStopFlag(&InterruptFlag());
  mExpression->SetDegreeMode(degrees);
  mExpression->SetAcceptNumericResultOnly(true);
}

std::optional<double> Equation::At(double x) {
  const std::optional<double> y = mCurve ? Replay(x) : Record(x);
  ThrowIfInterrupted();
  return y;
}

std::optional<double> Equation::Replay(double x) {
  double y = 0;
  return mCurve->At(x, y) ? std::optional(y) : std::nullopt;
}

std::optional<double> Equation::Record(double x) {
  if (!mExpression->GetVarTable()->Change("x", Value(x)))
    throw platform::RunTimeError(platform::StandardError::PermissionDenied);
  Value value;
  if (!mExpression->EvaluateThenSavePreParsedExpression(mText, value)) return std::nullopt;
  mCurve = std::make_unique<engine::Curve>(*mExpression, "x");
  const platform::Outcome<double> number = value.ToNumber();
  return number.Ok() ? std::optional(number.Get()) : std::nullopt;
}

void Equation::Plan(std::span<const double> xs) {
  if (mCurve) mCurve->Plan(xs);
}

bool Equation::FailedByItself() {
  switch (static_cast<CustomError>(mExpression->ErrObj().CustomErrorNum)) {
    case CustomError::None:
    case CustomError::UndefinedValue: return false;
    default: return true;
  }
}

std::string Equation::FailureText() {
  const engine::clsStdErrObj& error = mExpression->ErrObj();
  return OneLine(error.CustomErrorNum != 0 ? error.CustomErrorDescription : error.StandardErrorDescription);
}

}  // namespace plotvane::terminal
