// CalculusCall: a calculus operation that an expression calls, from its argument list to its last evaluation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "engine/calculus.h"
#include "engine/clsExp.h"
#include "engine/curve.h"
#include "functions/catalogue.h"

namespace plotvane::engine {

struct CalculusCall {
  std::shared_ptr<clsPreParsedExpression> expression = std::make_shared<clsPreParsedExpression>();
  std::string variable;
  std::unique_ptr<clsExp> privateObject;  // evaluates `expression`
  std::unique_ptr<CalculusOperation> operation;
  std::unique_ptr<Curve> curve;  // of the private object over the variable
};

// The numbers of a calculus call, by their places in all four forms.
struct CalculusNumbers {
  std::int16_t n = 1;  // of an n-th derivative
  double from = 0;     // low, a or x
  double to = 0;       // high or b
  double step = 0;     // step, width or h
  double start = 0;    // what a sum begins with
};

// The expression object in which an operation of `caller` evaluates: it shares the variable table and has the
// angle mode and the stop flag of the caller, tolerates the errors that a graph tolerates, accepts numeric results only, and
// has `expression` installed for replays.
[[nodiscard]] std::unique_ptr<clsExp> MakePrivateObject(const clsExp& caller,
                                                        std::shared_ptr<clsPreParsedExpression> expression);

// The operation of a call. `table` is not null.
[[nodiscard]] std::unique_ptr<CalculusOperation> MakeOperation(
    functions::Operation operation, const std::shared_ptr<platform::VariableTable>& table,
    const clsPreParsedExpression& expression, std::string_view variable, const CalculusNumbers& numbers);

// What the caller reports after an operation that did not end as Done: its own error, a refused store (custom
// error 9), the error that the private object recorded, or custom error 11 when that recorded none. None when
// it is Done.
[[nodiscard]] functions::ErrorPair ErrorOf(const CalculusOperation& operation, const clsExp& privateObject);

}  // namespace plotvane::engine
