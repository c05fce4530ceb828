// clsExp: the calculator object; evaluates text and recorded token lists against a variable table.
//
//   clsExp expression;
//   expression.CreateNewVarTable();
//   Value result;
//   if (expression.Evaluate("2*3 -> x", result)) … result.ToText() …
//   else … expression.ErrObj().CustomErrorDescription …
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/clsPreParsedExpression.h"
#include "engine/clsStdErrObj.h"
#include "platform/value.h"
#include "platform/variable_table.h"

namespace plotvane::engine {

class clsExp {
 public:
  clsExp();
  ~clsExp();
  clsExp(const clsExp&) = delete;
  clsExp& operator=(const clsExp&) = delete;

  // Number modes: "decimal", "fixed", "octal", "hexadecimal", "binary".
  [[nodiscard]] bool SetFixedDecimalPlaces(const platform::Value& newNum);
  [[nodiscard]] std::int16_t GetFixedDecimalPlaces() const noexcept;
  [[nodiscard]] std::string GetFormatMode() const;
  bool SetFormatMode(std::string_view newModeString);

  [[nodiscard]] bool GetRadianMode() const noexcept;
  void SetRadianMode(bool on) noexcept;
  [[nodiscard]] bool GetDegreeMode() const noexcept;
  void SetDegreeMode(bool on) noexcept;

  void PreEvalInitiate();
  void ClearErrors();

  // Each returns true when no error occurred; after a failure the result is cleared and ErrObj() tells why.
  bool EvaluateLineAndFormat(platform::Value& result);
  bool Evaluate(std::string_view text, platform::Value& result);
  bool EvaluateThenSavePreParsedExpression(std::string_view text, platform::Value& result);
  void SetPPE(std::shared_ptr<clsPreParsedExpression> newPPE);
  bool EvaluateCurrentPreParsedExpression(platform::Value& result);
  bool EvaluatePreParsedExpression(std::shared_ptr<clsPreParsedExpression> expression, platform::Value& result);

  // Calculus operations; see engine/calculus.h for the methods.
  bool SigmaSum(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double low,
                double high, double step, double& result);
  bool Derivative(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double x,
                  double h, double& result);
  bool NDerivative(std::int16_t n, std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable,
                   double x, double h, double& result);
  bool LIntegral(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double a,
                 double b, double width, double& result);

  [[nodiscard]] bool GetAcceptNumericResultOnly() const noexcept;
  void SetAcceptNumericResultOnly(bool on) noexcept;

  // A new table that holds the predefined constants.
  void CreateNewVarTable();
  [[nodiscard]] const std::shared_ptr<platform::VariableTable>& GetVarTable() const noexcept;
  void SetVarTable(std::shared_ptr<platform::VariableTable> table) noexcept;

  [[nodiscard]] std::string GetExpression() const;
  void SetExpression(std::string_view text);
  bool EvaluateIt(platform::Value& result);

  [[nodiscard]] clsStdErrObj& ErrObj() noexcept;
};

}  // namespace plotvane::engine
