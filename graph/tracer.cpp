#include "graph/tracer.h"

#include <string>

#include "graph/readout.h"
#include "graph/saved_variable.h"
#include "platform/conversions.h"
#include "platform/number_text.h"

namespace plotvane::graph {

namespace {

using platform::Value;

constexpr std::string_view kInvalidEquationTitle = "Invalid Equation";
constexpr std::string_view kInvalidEquationText =
    "You need to enter a valid number of an enabled Y function with a non-empty function expression";

// Half of a side, halves to even.
std::int16_t HalfOf(std::int16_t side) {
  return platform::ClampToInt16(side / 2.0);
}

}  // namespace

std::int16_t Tracer::UserFunctionNumber() {
  const platform::Outcome<double> number = platform::LeadingNumber(mFrame.UserCurYText());
  return number.Ok() ? platform::ClampToInt16(number.Get()) : std::int16_t{0};
}

// Makes an enabled function that has an equation current; clears the current equation when there is no
// enabled function of that number.
Tracer::Choice Tracer::ChooseFunction() {
  const std::int16_t n = UserFunctionNumber();
  std::string& current = mPlotter.Current().equation;
  if (n < 1 || n > mPlotter.FunctionCount()) {
    current.clear();
    return Choice::NoSuchFunction;
  }
  const std::shared_ptr<YFunction> function = mPlotter.Function(n);
  if (!function->GetEnabled()) {
    current.clear();
    return Choice::NotEnabled;
  }
  const std::string equation = function->GetEquation();
  if (equation.empty()) return Choice::NoExpression;
  current = equation;
  mPlotter.Current().index = n;
  return Choice::Chosen;
}

// Unlike the choice with messages, this one also makes an enabled function without an equation current.
bool Tracer::SelectFunctionFromUserBox() {
  const Choice choice = ChooseFunction();
  if (choice == Choice::NoExpression) {
    mPlotter.Current().equation.clear();
    mPlotter.Current().index = UserFunctionNumber();
  }
  return choice == Choice::Chosen;
}

bool Tracer::ValidateFunctionFromUserBox() {
  const Choice choice = ChooseFunction();
  if (choice == Choice::Chosen) return true;
  RefuseChoice(choice);
  return false;
}

void Tracer::RefuseChoice(Choice choice) {
  switch (choice) {
    case Choice::NoSuchFunction:
      mFrame.SetSimpleText(
          "The number of the function entered does not exist. Enter a valid function number.");
      break;
    case Choice::NotEnabled: mFrame.SetSimpleText("Selected function is not enabled."); break;
    case Choice::NoExpression:
      mFrame.SetSimpleText("Selected function does not contain an expression.");
      break;
    case Choice::Chosen: return;
  }
  mFrame.ShowMessage(kInvalidEquationText, kInvalidEquationTitle, MessageIcon::Exclamation);
  mFrame.FocusUserCurY();
}

bool Tracer::EvaluateCurrentFunctionAt() {
  const std::shared_ptr<platform::VariableTable> table = mExpression.GetVarTable();
  SavedVariable x(table, "x");
  static_cast<void>(table->Change("x", Value(mWindow.CurrentX)));
  const std::string equation = mPlotter.Current().equation;
  Value result;
  const bool evaluated = mExpression.Evaluate(equation, result);
  x.GiveBack();
  const platform::Outcome<double> y = result.ToNumber();
  const bool ok = evaluated && y.Ok();
  if (ok) mWindow.CurrentY = y.Get();
  return ok;
}

bool Tracer::EvaluateAtPixelColumn(float x) {
  mWindow.CurrentPixel = RoundToPixel(x, 0);
  mWindow.CurrentPixelToPoint();
  return EvaluateCurrentFunctionAt();
}

void Tracer::TraceAtPixel(float x) {
  if (mPlotter.Current().equation.empty()) {
    mFrame.ShowTraceMarker(false);
    return;
  }
  const bool defined = EvaluateAtPixelColumn(x);
  if (defined) {
    mWindow.CurrentPointToPixel();
    MoveTraceMarker(mWindow.CurrentPixel);
  }
  mFrame.ShowTraceMarker(defined);
  mFrame.SetStatusBarText(CoordinateText(mWindow.GCStyle, mWindow.CurrentPoint()));
}

void Tracer::MoveTraceMarker(PixelPoint centre) {
  const PixelExtent size = mFrame.TraceMarkerSize();
  const std::int32_t left = centre.x - HalfOf(size.width);
  const std::int32_t top = centre.y - HalfOf(size.height);
  const PixelPoint topLeft{static_cast<std::int16_t>(left), static_cast<std::int16_t>(top)};
  if (topLeft.x == left && topLeft.y == top) mFrame.PlaceTraceMarker(topLeft);
}

}  // namespace plotvane::graph
