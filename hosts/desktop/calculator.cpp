#include "hosts/desktop/calculator.h"

#include "hosts/desktop/formula_check.h"

namespace plotvane::desktop {

Calculator::Calculator(std::shared_ptr<platform::VariableTable> table) { mExpression.SetVarTable(std::move(table)); }

const Calculator::Line* Calculator::Calculate(std::string_view input) {
  if (input.find_first_not_of(" \t") == std::string_view::npos) return nullptr;
  platform::Value result;
  Line line{std::string(input), {}, false};
  if (mExpression.Evaluate(input, result)) {
    line.answer = result.ToText();
  } else {
    line.failed = true;
    line.answer = ErrorText(mExpression);
  }
  mHistory.push_back(std::move(line));
  mPosition = mHistory.size();
  return &mHistory.back();
}

std::string Calculator::Older() {
  if (mPosition > 0) --mPosition;
  return mHistory.empty() ? std::string() : mHistory[mPosition].input;
}

std::string Calculator::Newer() {
  if (mPosition < mHistory.size()) ++mPosition;
  return mPosition == mHistory.size() ? std::string() : mHistory[mPosition].input;
}

}  // namespace plotvane::desktop
