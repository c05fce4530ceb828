// The calculus members of clsExp: each runs its operation to the end, on a private expression object.
#include <utility>

#include "engine/calculus_call.h"
#include "engine/clsExp.h"
#include "engine/evaluation_state.h"

namespace plotvane::engine {

using platform::StandardError;

bool clsExp::RunCalculus(functions::Operation operation, std::shared_ptr<clsPreParsedExpression> expression,
                         std::string_view variable, const CalculusNumbers& numbers, double& result) {
  if (!mVarTable || !expression) {
    mState->reader.Raise(StandardError::ObjectNotSet);
    return false;
  }
  const auto made = MakeOperation(operation, mVarTable, *expression, variable, numbers);
  const auto object = MakePrivateObject(*this, std::move(expression));
  Curve curve(*object, variable);
  platform::Value value;
  while (made->NextPoint()) {
    if (StopRequested()) {  // a compiled replay does not ask
      made->TakeFailure(false);
      mState->reader.Raise(StandardError::UserInterrupt);
    } else if (object->EvaluateCurrentPreParsedExpression(value)) {
      made->Take(value.ToNumber().Get());
    } else {
      made->TakeFailure(object->ErrObj().WasOkGraphErr);
    }
    made->TakeBlocks(curve);
  }
  if (made->End() == CalculusEnd::Error) mState->reader.Raise(made->Error());
  if (const auto number = made->Result()) result = *number;
  return made->End() == CalculusEnd::Done;
}

bool clsExp::SigmaSum(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable,
                      double low, double high, double step, double& result) {
  const CalculusNumbers numbers{.from = low, .to = high, .step = step, .start = result};
  return RunCalculus(functions::Operation::SigmaSum, std::move(expression), variable, numbers, result);
}

bool clsExp::Derivative(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable,
                        double x, double h, double& result) {
  const CalculusNumbers numbers{.from = x, .step = h};
  return RunCalculus(functions::Operation::Derivative, std::move(expression), variable, numbers, result);
}

bool clsExp::LIntegral(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable,
                       double a, double b, double width, double& result) {
  const CalculusNumbers numbers{.from = a, .to = b, .step = width};
  return RunCalculus(functions::Operation::LIntegral, std::move(expression), variable, numbers, result);
}

bool clsExp::NDerivative(std::int16_t n, std::shared_ptr<clsPreParsedExpression> expression,
                         std::string_view variable, double x, double h, double& result) {
  const CalculusNumbers numbers{.n = n, .from = x, .step = h};
  return RunCalculus(functions::Operation::NDerivative, std::move(expression), variable, numbers, result);
}

}  // namespace plotvane::engine
