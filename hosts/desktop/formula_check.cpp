#include "hosts/desktop/formula_check.h"

#include "platform/value.h"

namespace plotvane::desktop {

using platform::Value;

namespace {

// Puts the value of x back, also when the host's table raises an error on the way.
class KeepX {
 public:
  explicit KeepX(platform::VariableTable& table) : mTable(table), mExisted(table.GetIdValue("x", mValue)) {}
  ~KeepX() {
    try {
      if (mExisted) static_cast<void>(mTable.Change("x", mValue));
    } catch (const platform::RunTimeError&) {
      // The table is gone with its control; there is nothing left to restore.
    }
  }
  KeepX(const KeepX&) = delete;
  KeepX& operator=(const KeepX&) = delete;

 private:
  platform::VariableTable& mTable;
  Value mValue;
  bool mExisted;
};

}  // namespace

std::string ErrorText(engine::clsExp& expression) {
  const engine::clsStdErrObj& error = expression.ErrObj();
  std::string text = error.CustomErrorNum != 0 ? error.CustomErrorDescription : std::string();
  if (error.StandardErrorNum != 0) {
    if (!text.empty()) text += " ";
    text += error.StandardErrorDescription;
  }
  return text;
}

std::string EquationError(engine::clsExp& expression, std::string_view equation, double x) {
  if (equation.empty()) return {};
  const KeepX keep(*expression.GetVarTable());
  static_cast<void>(expression.GetVarTable()->Change("x", Value(x)));

  const bool numericOnly = expression.GetAcceptNumericResultOnly();
  const bool graphMode = expression.ErrObj().GraphMode;
  expression.SetAcceptNumericResultOnly(true);
  expression.ErrObj().GraphMode = true;
  Value ignored;
  const bool fine = expression.Evaluate(equation, ignored) || expression.ErrObj().WasOkGraphErr;
  expression.SetAcceptNumericResultOnly(numericOnly);
  expression.ErrObj().GraphMode = graphMode;
  return fine ? std::string() : ErrorText(expression);
}

}  // namespace plotvane::desktop
