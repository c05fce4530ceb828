#include "bench/recording.h"

namespace plotvane::bench {

Recording::Recording(const Workload& workload) {
  using platform::Value;
  expression.CreateNewVarTable();
  expression.SetAcceptNumericResultOnly(true);
  platform::VariableTable& table = *expression.GetVarTable();
  const Coefficients coefficients;
  const bool stored = table.Change("x", Value(1.25)) && table.Change("a", Value(coefficients.a)) &&
                      table.Change("b", Value(coefficients.b)) && table.Change("c", Value(coefficients.c));
  Value unused;
  if (!stored || !expression.EvaluateThenSavePreParsedExpression(workload.plotvane, unused)) {
    throw std::runtime_error(workload.name);
  }
}

}  // namespace plotvane::bench
