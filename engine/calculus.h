// The calculus operations: sums, integrals and derivatives of an expression over one variable of the table.
//
// An operation does not evaluate anything itself: it says where the expression is to be evaluated next and
// takes what came of it, so that the same rules serve every way of evaluating.
//
//   while (operation->NextPoint()) {
//     … evaluate the expression …
//     succeeded ? operation->Take(value) : operation->TakeFailure(tolerated);
//   }
//   if (operation->End() == CalculusEnd::Done) … operation->Result() …
//
// The written recursion of an n-th derivative, kept to the last bit: D(1, x) = (f(x + h) - f(x)) / h, and
// D(n, x) = (D(n - 1, x + h) - D(n - 1, x)) / h, the first of two always evaluated first.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/clsPreParsedExpression.h"
#include "platform/standard_error.h"
#include "platform/variable_table.h"

namespace plotvane::engine {

class Curve;

enum class CalculusEnd : std::uint8_t {
  Running,
  Done,
  Failed,   // no error of its own: a zero step, an n below 1, a loop that stands still, a failed evaluation
  Refused,  // the table refused to store the variable
  Error,    // a run-time error of the operation's own arithmetic, see Error()
};

class CalculusOperation {
 public:
  virtual ~CalculusOperation() = default;

  // Sets the variable to the next place; false when the operation has ended.
  [[nodiscard]] virtual bool NextPoint() = 0;

  // Passes that `curve`, the expression over the variable, computes in blocks, with the same results as one by one;
  // called before NextPoint, after the first one. Operations that evaluate few points leave them all to NextPoint.
  virtual void TakeBlocks(Curve& /*curve*/) {}

  // What the evaluation at that place gave: a value, or a failure that a graph would tolerate or not.
  virtual void Take(double value) = 0;
  virtual void TakeFailure(bool tolerated) = 0;

  [[nodiscard]] CalculusEnd End() const noexcept { return mEnd; }
  [[nodiscard]] platform::StandardError Error() const noexcept { return mError; }

  // The value; nothing when there is none. A sum or integral that failed on its way gives what it had by
  // then.
  [[nodiscard]] virtual std::optional<double> Result() const = 0;

 protected:
  explicit CalculusOperation(CalculusEnd end) noexcept : mEnd(end) {}

  void Finish(CalculusEnd end) noexcept { mEnd = end; }
  void FinishWithError(platform::StandardError error) noexcept;

 private:
  CalculusEnd mEnd;
  platform::StandardError mError = platform::StandardError::None;
};

// The variable that an operation varies. What the table raises passes through.
class VariedVariable {
 public:
  // `table` is not null.
  VariedVariable(std::shared_ptr<platform::VariableTable> table, std::string_view name);

  // Asks the table for the value that Restore gives back.
  void Remember();
  [[nodiscard]] bool Existed() const noexcept { return mExisted; }
  // False when the table refuses.
  [[nodiscard]] bool Set(double value);
  // Back to what it was, when it existed; one that did not keeps the value last given to it. Does nothing as
  // long as nothing was set since Remember.
  void Restore();

 private:
  std::shared_ptr<platform::VariableTable> mTable;
  std::string mName;
  platform::Value mBefore;
  bool mExisted = false;
  bool mWasSet = false;
};

// Adds up the values at low, low + step, … (repeated addition) to `start`. Tolerated failures are skipped.
// The variable is restored at the end, also after a failure.
[[nodiscard]] std::unique_ptr<CalculusOperation> MakeSigmaSum(VariedVariable variable, double low,
                                                              double high, double step, double start);

// Left-endpoint rectangles: the sum over a, a + width, … up to b - width, times width.
[[nodiscard]] std::unique_ptr<CalculusOperation> MakeLIntegral(VariedVariable variable, double a, double b,
                                                               double width);

// Forward difference. Any failed evaluation fails it, and the variable then deliberately keeps the value last
// given to it; it is restored only when all went well.
[[nodiscard]] std::unique_ptr<CalculusOperation> MakeDerivative(VariedVariable variable, double x, double h);

// With `eachPointOnce` the expression is evaluated once at each of the n + 1 different places, from the last
// to the first, with the values, stores and failures of the recursion: right for an expression without side
// effects over a table that nobody watches. Otherwise the recursion is carried out, 2^n evaluations; n above
// 24 is then error 5.
[[nodiscard]] std::unique_ptr<CalculusOperation> MakeNDerivative(VariedVariable variable, std::int16_t n,
                                                                 double x, double h, bool eachPointOnce);

// Whether evaluating the list twice does the same as once: it stores nothing and draws no random numbers. (A
// calculus operation inside it varies its variable, but leaves it in the same state each time.)
[[nodiscard]] bool HasNoSideEffects(const TokenList& tokens);

}  // namespace plotvane::engine
