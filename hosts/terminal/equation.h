// Equation: a function of x given on the command line, evaluated by the engine.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/clsExp.h"

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

  // After a failure: whether its cause is the equation itself (syntax, an unknown name, …) and not the value
  // of x.
  [[nodiscard]] bool FailedByItself();

  // The engine's words for the last failure, in one line.
  [[nodiscard]] std::string FailureText();

 private:
  std::string mText;
  std::unique_ptr<engine::clsExp> mExpression;
  bool mRecorded = false;
};

}  // namespace plotvane::terminal
