// Evaluator: the exact evaluator; parses and evaluates in one pass over the tokens of an expression.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/expression_reader.h"
#include "engine/operators.h"
#include "functions/catalogue.h"
#include "platform/value.h"

namespace plotvane::engine {

class clsExp;
struct CalculusCall;

// line       statement { (";" | ":") statement }                 empty statements are skipped
// statement  level(1)
// level(n)   operand { operator [ level(right of the operator) ] }    while n <= threshold of the operator
// operand    "-" level(11) | "+" level(11) | "not" level(6) | bracket | number | identifier
//            | ("++" | "--") name
// identifier name "=" level(1) | name ("++" | "--") | function list | name
// list       open [ level(1) { "," level(1) } ] close            calculus: some arguments recorded, not
// evaluated
//
// Precedence climbing without recursion: each level that is being read is a frame on a stack of the
// evaluator's own, and so is, beneath the levels it consists of, each line (a calculus operation evaluates
// lines of a private expression object). What the program's stack holds does not depend on the nesting. At
// most kMostLevels levels are in progress inside one another, through brackets, signs, arguments and private
// objects alike; one more is standard error 28.
class Evaluator {
 public:
  static constexpr std::size_t kMostLevels = 1024;

  // `outerLevels` levels are in progress already, in an evaluation outside this one.
  explicit Evaluator(std::size_t outerLevels = 0) noexcept;
  ~Evaluator();
  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  // Evaluates the expression object's tokens, a whole line from the first token (which is read here) or one
  // statement from the current token. False after a failure; the result is then cleared.
  [[nodiscard]] bool EvaluateLine(clsExp& expression, platform::Value& result);
  [[nodiscard]] bool EvaluateStatement(clsExp& expression, platform::Value& result);

  // How many levels are in progress, the outer ones included.
  [[nodiscard]] std::size_t Levels() const noexcept { return mOuterLevels + mLevels.size(); }

  // Drops what is in progress, after an exception of the variable table.
  void Abandon() noexcept;

 private:
  // What a level does when the value it waits for has come.
  enum class Step : std::uint8_t {
    ReadOperand,  // the beginning: waits for nothing
    Negate,
    Keep,
    Invert,
    CloseBracket,
    Assign,
    TakeArgument,
    Combine,   // the right operand of a binary operator
    TakePass,  // one evaluation of a calculus operation
  };

  struct Level {
    std::uint8_t level = kStatementLevel;
    Step step = Step::ReadOperand;
    const Operator* waiting = nullptr;              // Combine: the operator between value and what comes
    platform::Value value;                          // what has been read so far
    std::string_view name;                          // Assign: the target
    const functions::Function* function = nullptr;  // TakeArgument: the function, …
    std::size_t firstArgument = 0;                  // … where its arguments begin in mArguments …
    std::size_t argumentCount = 0;                  // … and how many it has been given
    std::unique_ptr<CalculusCall> calculus;         // what it has been given besides values
  };

  struct Line {
    clsExp* expression;
    ExpressionReader* reader;
    std::size_t bottom;  // how many levels there are beneath it
    std::size_t firstArgument;
    bool wholeLine;              // false for a single statement
    std::size_t statements = 0;  // evaluated so far
    platform::Value result;      // of the first statement …
    std::string joined;          // … and the text of all, when there are several
  };

  bool Run(clsExp& expression, bool wholeLine, platform::Value& result);

  // Lines.
  void BeginLine(clsExp& expression, bool wholeLine);
  void ContinueLine();
  bool TakeStatement(Line& line);
  bool ToNextStatement();
  void EndLine(bool succeeded);

  // Levels.
  void BeginLevel(std::uint8_t level);
  void BeginLevelAfter(Level& outer, Step step, std::uint8_t level);
  void ContinueLevel();
  void EndLevel();
  void ReadOperand(Level& level);
  void Climb(Level& level);
  void Store(Level& level);
  // Raises an error, or climbs on when there is none.
  void ClimbUnless(functions::ErrorPair error, Level& level);

  // Operands.
  void ReadNumber(Level& level);
  void ReadIdentifier(Level& level);
  void StepBefore(Level& level);
  void StepAfter(Level& level, std::string_view name);

  // Calls (evaluator_calls.cpp).
  void BeginCall(Level& level, const functions::Function& function);
  void ReadArgument(Level& level);
  [[nodiscard]] bool RecordExpression(CalculusCall& call);
  [[nodiscard]] bool ReadVariableName(CalculusCall& call);
  void AddArgument(Level& level, platform::Value value);
  void AfterArgument(Level& level);
  void EndCall(Level& level);
  void BeginCalculus(Level& level);
  void NextPass(Level& level);
  void TakePass(Level& level);
  void EndCalculus(Level& level);

  // The variable table of the expression object; each raises its error.
  [[nodiscard]] bool Lookup(std::string_view name, platform::Value& value, bool& exists);
  [[nodiscard]] bool Change(std::string_view name, const platform::Value& value);

  std::size_t mOuterLevels;
  std::vector<Line> mLines;
  std::vector<Level> mLevels;
  std::vector<platform::Value> mArguments;  // of all calls in progress
  platform::Value mValue;                   // of the level or line that ended last
  bool mSucceeded = true;                   // the line that ended last
  clsExp* mExpression = nullptr;            // of the innermost line, …
  ExpressionReader* mReader = nullptr;      // … and its reader
};

}  // namespace plotvane::engine
