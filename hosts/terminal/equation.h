// Equation: a function of x given on the command line, evaluated by the engine.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "engine/clsExp.h"
#include "engine/curve.h"

namespace plotvane::terminal {

// Each equation has an expression object and a table of variables of its own: a store in one is not seen by
// another.
class Equation {
 public:
  Equation(std::string text, bool degrees);

  [[nodiscard]] const std::string& Text() const noexcept { return mText; }

  // The value at x; nothing where it is undefined, and Interrupted after Ctrl-C. Recorded at the first x that
  // allows it, replayed afterwards.
  [[nodiscard]] std::optional<double> At(double x);

  // Announces the next values for At, in this order, so that they may be computed together. The results are
  // the same.
  void Plan(std::span<const double> xs);

  // After a failure: whether its cause is the equation itself (syntax, an unknown name, …) and not the value
  // of x.
  [[nodiscard]] bool FailedByItself();

  // The engine's words for the last failure, in one line.
  [[nodiscard]] std::string FailureText();

 private:
  std::optional<double> Replay(double x);
  std::optional<double> Record(double x);

  std::string mText;
  std::unique_ptr<engine::clsExp> mExpression;
  std::unique_ptr<engine::Curve> mCurve;  // of the recorded expression, when there is one
};

}  // namespace plotvane::terminal
