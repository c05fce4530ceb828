// EvaluationState: what an expression object needs while it evaluates.
#pragma once

#include "engine/clsExp.h"
#include "engine/evaluator.h"
#include "engine/expression_reader.h"
#include "functions/clsMath.h"

namespace plotvane::engine {

struct EvaluationState {
  explicit EvaluationState(clsExp& owner, std::size_t outerLevels = 0) noexcept
      : reader(owner), evaluator(outerLevels), math(&owner.ErrObj()) {}

  ExpressionReader reader;
  Evaluator evaluator;
  functions::clsMath math;
  bool inProgress = false;
};

}  // namespace plotvane::engine
