// Calculator: an expression object with its own table, whose reports are single texts that fit in a column.
#pragma once

#include <string>
#include <string_view>

#include "engine/clsExp.h"
#include "platform/value.h"

namespace plotvane::engine::test {

// The recorded error: "error 11: Division by zero", "error *2: Expected a match to …" for a custom one,
// "error 0:" when nothing was recorded.
inline std::string ErrorReport(const clsStdErrObj& error) {
  if (error.StandardErrorNum != 0 && error.CustomErrorNum == 0) {
    return "error " + std::to_string(error.StandardErrorNum) + ": " + error.StandardErrorDescription;
  }
  if (error.CustomErrorNum == 0) return "error 0:";
  return "error *" + std::to_string(error.CustomErrorNum) + ": " + error.CustomErrorDescription;
}

struct Calculator {
  Calculator() { expression.CreateNewVarTable(); }

  clsExp expression;

  // What evaluating the line gives: the result's text, or the error.
  std::string Report(std::string_view line) {
    platform::Value result("left over");
    return Outcome(expression.Evaluate(line, result), result);
  }

  // The same through a recording and its replay; both must agree, unless stores make them differ.
  std::string Record(std::string_view line) {
    platform::Value result("left over");
    return Outcome(expression.EvaluateThenSavePreParsedExpression(line, result), result);
  }
  std::string Replay() {
    platform::Value result("left over");
    return Outcome(expression.EvaluateCurrentPreParsedExpression(result), result);
  }

 private:
  std::string Outcome(bool succeeded, const platform::Value& result) const {
    if (succeeded) return result.ToText();
    return result.IsEmpty() ? ErrorReport(expression.ErrObj()) : "result not cleared: " + result.ToText();
  }
};

// One line of a column of cases.
struct Case {
  std::string_view line;
  std::string_view expected;
};

}  // namespace plotvane::engine::test
