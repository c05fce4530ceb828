#include "engine/calculus_call.h"

#include <utility>

#include "identifiers/clsVarTable.h"

namespace plotvane::engine {

namespace {

// Nobody sees how often the system's own table is asked; a host's table is called exactly as the rules say.
bool IsOwnTable(const platform::VariableTable& table) {
  return dynamic_cast<const identifiers::clsVarTable*>(&table) != nullptr;
}

}  // namespace

std::unique_ptr<clsExp> MakePrivateObject(const clsExp& caller,
                                          std::shared_ptr<clsPreParsedExpression> expression) {
  auto object = std::make_unique<clsExp>();
  object->SetVarTable(caller.GetVarTable());
  object->SetRadianMode(caller.GetRadianMode());
  object->SetStopFlag(caller.GetStopFlag());
  object->ErrObj().GraphMode = true;
  object->SetAcceptNumericResultOnly(true);
  object->SetCompiledReplay(caller.GetCompiledReplay());
  object->SetPPE(std::move(expression));
  return object;
}

std::unique_ptr<CalculusOperation> MakeOperation(functions::Operation operation,
                                                 const std::shared_ptr<platform::VariableTable>& table,
                                                 const clsPreParsedExpression& expression,
                                                 std::string_view variable, const CalculusNumbers& numbers) {
  VariedVariable varied(table, variable);
  const auto& [n, from, to, step, start] = numbers;
  switch (operation) {
    case functions::Operation::SigmaSum: return MakeSigmaSum(std::move(varied), from, to, step, start);
    case functions::Operation::LIntegral: return MakeLIntegral(std::move(varied), from, to, step);
    case functions::Operation::Derivative: return MakeDerivative(std::move(varied), from, step);
    default:
      return MakeNDerivative(std::move(varied), n, from, step,
                             IsOwnTable(*table) && HasNoSideEffects(*expression.Tokens()));
  }
}

functions::ErrorPair ErrorOf(const CalculusOperation& operation, const clsExp& privateObject) {
  using functions::CustomError;
  using platform::StandardError;
  switch (operation.End()) {
    case CalculusEnd::Running:
    case CalculusEnd::Done: return {};
    case CalculusEnd::Refused: return {StandardError::None, CustomError::CannotStore};
    case CalculusEnd::Error: return {operation.Error(), CustomError::None};
    case CalculusEnd::Failed: break;
  }
  const clsStdErrObj& recorded = privateObject.ErrObj();
  if (recorded.StandardErrorNum == 0 && recorded.CustomErrorNum == 0) {
    return {StandardError::None, CustomError::UndefinedValue};
  }
  return {static_cast<StandardError>(recorded.StandardErrorNum),
          static_cast<CustomError>(recorded.CustomErrorNum)};
}

}  // namespace plotvane::engine
