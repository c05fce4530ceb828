// clsExp: the calculator object; evaluates text and recorded token lists against a variable table.
//
//   clsExp expression;
//   expression.CreateNewVarTable();
//   Value result;
//   if (expression.Evaluate("2*3 -> x", result)) … result.ToText() …
//   else … expression.ErrObj().CustomErrorDescription …
//
// For many evaluations of one expression, record it once and replay it:
//
//   expression.EvaluateThenSavePreParsedExpression("x^2", result);
//   table->Change("x", Value(3.0));
//   expression.EvaluateCurrentPreParsedExpression(result);   // 9
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/clsPreParsedExpression.h"
#include "engine/clsStdErrObj.h"
#include "engine/number_mode.h"
#include "functions/catalogue.h"
#include "platform/value.h"
#include "platform/variable_table.h"

namespace plotvane::engine {

class Evaluator;
class Program;
struct CalculusNumbers;
struct EvaluationState;

// Errors. Every evaluation returns whether it succeeded; after a failure the result is cleared and ErrObj()
// tells why. Steps that were completed before the failure stay done: "x=7 8" fails and x is 7. The one
// exception that leaves an evaluation is a RunTimeError of the variable table (a host's own table may raise
// errors): it passes through, nothing is recorded for it, and the object is ready for the next evaluation.
//
// The table may call back: an evaluation that is started on this object while another is in progress runs by
// itself and leaves the outer one as it was, but for the error object, which both share.
class clsExp {
 public:
  // Decimal mode, radians, an empty recorded list, no variable table: reading or storing any name is then
  // standard error 91.
  clsExp();
  ~clsExp();
  clsExp(const clsExp&) = delete;
  clsExp& operator=(const clsExp&) = delete;

  // Places shown in fixed mode: -100 to 127 (the lopsided range is deliberate); false and no change outside
  // it, or when `newNum` is not a number. Rounded to a whole number, halves to even.
  bool SetFixedDecimalPlaces(const platform::Value& newNum);
  [[nodiscard]] std::int16_t GetFixedDecimalPlaces() const noexcept;

  // "decimal", "fixed", "octal", "hexadecimal" or "binary", in any case. Any other word sets decimal mode and
  // returns false: deliberately the mode before is not kept.
  bool SetFormatMode(std::string_view newModeString);
  [[nodiscard]] std::string GetFormatMode() const;

  // The angle unit of trigonometric functions: one switch, seen from two sides.
  [[nodiscard]] bool GetRadianMode() const noexcept;
  void SetRadianMode(bool on) noexcept;
  [[nodiscard]] bool GetDegreeMode() const noexcept;
  void SetDegreeMode(bool on) noexcept;

  // Clears the errors and empties the bracket stack; every evaluation begins with it.
  void PreEvalInitiate();
  void ClearErrors();

  // One statement from the current token on, formatted by the number mode.
  bool EvaluateLineAndFormat(platform::Value& result);

  // A whole line of statements. One statement gives its value (a number or a boolean in decimal mode, else
  // the formatted text); several give the text of all, joined by " : ".
  bool Evaluate(std::string_view text, platform::Value& result);

  // Evaluate, and the current recorded list is emptied first and then holds every token read, the end of the
  // input included. An expression of more than 32,767 tokens is standard error 6; recording stops at any
  // error.
  bool EvaluateThenSavePreParsedExpression(std::string_view text, platform::Value& result);

  // Whether the table is the system's own: then nobody outside hears of its use.
  [[nodiscard]] bool HasOwnTable() const noexcept { return mOwnTable != nullptr; }

  // Replays: the recorded tokens are evaluated again with what the variables hold now.
  void SetPPE(std::shared_ptr<clsPreParsedExpression> newPPE);
  [[nodiscard]] const std::shared_ptr<clsPreParsedExpression>& GetPPE() const noexcept;
  bool EvaluateCurrentPreParsedExpression(platform::Value& result);
  bool EvaluatePreParsedExpression(std::shared_ptr<clsPreParsedExpression> expression,
                                   platform::Value& result);

  // Calculus over a recorded expression and one variable of the table; engine/calculus.h has the rules. False
  // without a recorded error for a zero step, an n below 1, a failed evaluation (its error belongs to the
  // private expression object of the operation) and a refused store; an error of the operation's own
  // arithmetic is recorded here. `result` of SigmaSum is added to, it is not cleared.
  bool SigmaSum(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double low,
                double high, double step, double& result);
  bool Derivative(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double x,
                  double h, double& result);
  bool LIntegral(std::shared_ptr<clsPreParsedExpression> expression, std::string_view variable, double a,
                 double b, double width, double& result);
  bool NDerivative(std::int16_t n, std::shared_ptr<clsPreParsedExpression> expression,
                   std::string_view variable, double x, double h, double& result);

  // Off, replays are evaluated exactly and never by a compiled program. Nothing but time depends on it; on by
  // default.
  [[nodiscard]] bool GetCompiledReplay() const noexcept { return mCompiledReplay; }
  void SetCompiledReplay(bool on) noexcept {
    mCompiledReplay = on;
    ++mEpoch;
  }

  // While `*stop` is true every line ends at its beginning with standard error 18. So does each pass of a
  // calculus operation in progress, which then fails as after any error in its expression. The flag may be
  // set from another thread or by a signal handler, is only read here, and outlives its use; null (the
  // default) for none. Replays by compiled programs ask before each value or block of values.
  void SetStopFlag(const std::atomic<bool>* stop) noexcept { mStop = stop ? stop : &kNoStop; }
  [[nodiscard]] const std::atomic<bool>* GetStopFlag() const noexcept {
    return mStop == &kNoStop ? nullptr : mStop;
  }
  [[nodiscard]] bool StopRequested() const noexcept { return mStop->load(std::memory_order_relaxed); }

  // When on, a single statement is not formatted, and a result that is not numeric is custom error 8. A
  // boolean is numeric, as is a text that is a number from end to end.
  [[nodiscard]] bool GetAcceptNumericResultOnly() const noexcept;
  void SetAcceptNumericResultOnly(bool on) noexcept;

  // A new table that holds the predefined constants.
  void CreateNewVarTable();
  [[nodiscard]] const std::shared_ptr<platform::VariableTable>& GetVarTable() const noexcept;
  void SetVarTable(std::shared_ptr<platform::VariableTable> table) noexcept;

  // The stored text and its evaluation; inside a replay EvaluateIt replays again.
  [[nodiscard]] std::string GetExpression() const;
  void SetExpression(std::string_view text);
  bool EvaluateIt(platform::Value& result);

  [[nodiscard]] clsStdErrObj& ErrObj() noexcept;
  [[nodiscard]] const clsStdErrObj& ErrObj() const noexcept;

  // What the error object reads and writes of its owner.
  [[nodiscard]] bool ErrorOccurred() const noexcept;
  [[nodiscard]] bool ErrorAlreadySet() const noexcept;
  void SetErrorFlags(bool errorOccurred, bool errorAlreadySet) noexcept;
  [[nodiscard]] std::string_view e_Spelling() const noexcept;  // the current token's text
  [[nodiscard]] std::string_view PopPar() const noexcept;  // the opening bracket last taken from the stack

 private:
  friend class Curve;
  friend class Evaluator;
  class Run;

  [[nodiscard]] functions::AngleMode AngleMode() const noexcept {
    return mRadianMode ? functions::AngleMode::Radians : functions::AngleMode::Degrees;
  }

  // A replay by the compiled program of the current list. False, and nothing has happened, when that is off
  // or not possible, or when the exact evaluator is needed to find an error. `outerLevels` are in progress
  // around it.
  [[nodiscard]] bool ReplayCompiled(std::size_t outerLevels, platform::Value& result);
  [[nodiscard]] bool MayReplayCompiled() const noexcept;
  bool ReplayExactly(platform::Value& result);
  // Leaves everything as a successful replay of the program's list would.
  void FinishReplay(const Program& program) noexcept;

  bool RunCalculus(functions::Operation operation, std::shared_ptr<clsPreParsedExpression> expression,
                   std::string_view variable, const CalculusNumbers& numbers, double& result);

  clsStdErrObj mErrObj;
  std::unique_ptr<EvaluationState> mState;  // of the evaluation in progress, or of the last one
  std::shared_ptr<clsPreParsedExpression> mPPE;
  std::shared_ptr<platform::VariableTable> mVarTable;
  std::shared_ptr<identifiers::clsVarTable> mOwnTable;  // mVarTable when it is the system's own, else nothing
  std::string mExpression;
  static constexpr std::atomic<bool> kNoStop{false};
  const std::atomic<bool>* mStop = &kNoStop;
  NumberMode mNumberMode = NumberMode::Decimal;
  std::int16_t mFixedDecimalPlaces = 0;
  bool mRadianMode = true;
  bool mAcceptNumericResultOnly = false;
  bool mCompiledReplay = true;
  // Grows with every setting, every exact evaluation and every replay of another program: as long as it is
  // the same, a replay finds this object as the one before left it, but for what is public in the error
  // object and in the list.
  std::uint64_t mEpoch = 0;
};

}  // namespace plotvane::engine
