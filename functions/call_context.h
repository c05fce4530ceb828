// CallContext and ErrorSink: what the function library needs from an expression object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/standard_error.h"
#include "platform/value.h"

namespace plotvane::functions {

// The one operation through which clsMath reports its own errors; implemented by clsStdErrObj.
class ErrorSink {
 public:
  virtual ~ErrorSink() = default;
  // Records an error: a standard number and a custom number, either may be 0.
  virtual void GEP(std::int32_t standardErrNum, std::int32_t customErrNum) = 0;
};

// The engine's custom error numbers; texts are engine/error_catalogue.
enum class CustomError : std::int32_t {
  None = 0,
  Syntax = 1,
  BracketMismatch = 2,
  UndefinedFunction = 3,
  MissingArguments = 4,
  TooManyArguments = 5,
  BaseDigits = 6,
  BaseSpecification = 7,
  NotNumeric = 8,
  CannotStore = 9,
  NoVariableToStore = 10,
  UndefinedValue = 11,
  UndefinedIdentifier = 12,
  VariableExpected = 13,
  OpenBracketExpected = 14,
  CloseBracketExpected = 15,
};

// A standard and a custom error number; both None means that nothing failed.
struct ErrorPair {
  platform::StandardError standard = platform::StandardError::None;
  CustomError custom = CustomError::None;

  [[nodiscard]] constexpr bool None() const noexcept {
    return standard == platform::StandardError::None && custom == CustomError::None;
  }
  friend constexpr bool operator==(const ErrorPair&, const ErrorPair&) = default;
};

// An argument that was recorded instead of evaluated. Opaque here; the engine's token list derives from it
// and the engine alone looks inside.
class RecordedArgument {
 public:
  virtual ~RecordedArgument() = default;
};

enum class AngleMode { Radians, Degrees };

enum class CalculusOperation { LIntegral, Derivative, NDerivative, SigmaSum };

// A calculus call whose list was read and checked, ready for the expression object's operation.
struct CalculusCall {
  CalculusOperation operation = CalculusOperation::SigmaSum;
  std::int16_t n = 1;                            // order of NDerivative; 1 for the others
  std::shared_ptr<RecordedArgument> expression;  // never null
  std::string variable;                          // as spelled
  double from = 0;                               // low, a, or the place x of a derivative
  double to = 0;                                 // high or b; unused by derivatives
  double step = 0;                               // step, width or h; the default when it was omitted
};

// What follows an argument that was read.
enum class ArgumentEnd {
  Comma,   // one more argument follows; the comma is taken
  Closed,  // the closing bracket was taken
  Failed,  // neither, or the wrong bracket: an error was raised
};

// The expression object as dispatch sees it: a cursor over one bracketed argument list, the angle mode, the
// calculus operations, and the raising of errors. Dispatch owns the rules (which argument is read how,
// counts, defaults, conversions); the context owns the token stream. An operation that returns false, null or
// Failed has raised its error.
//
//   OpenArguments, then until AtEmptyList or Closed: one of ReadValue, RecordExpression, ReadName, then
//   EndArgument
class CallContext {
 public:
  virtual ~CallContext() = default;

  // Takes the opening bracket after the name; custom error 14 when there is none.
  [[nodiscard]] virtual bool OpenArguments() = 0;
  // Directly after OpenArguments: true when the list is empty; the partner closing bracket is then taken. A
  // wrong closing bracket raises custom error 2 and counts as not empty (the next step then fails at once).
  [[nodiscard]] virtual bool AtEmptyList() = 0;
  // One argument as a value: a full expression read at level 1.
  [[nodiscard]] virtual bool ReadValue(platform::Value& value) = 0;
  // One argument recorded up to the comma or bracket that ends it, at the depth of this list; an empty one is
  // custom error 1.
  [[nodiscard]] virtual std::shared_ptr<RecordedArgument> RecordExpression() = 0;
  // One argument that must be a single identifier; custom error 13 otherwise.
  [[nodiscard]] virtual bool ReadName(std::string& name) = 0;
  // The token after an argument; custom error 15 when it is neither comma nor closing bracket, 2 for the
  // wrong one.
  [[nodiscard]] virtual ArgumentEnd EndArgument() = 0;

  [[nodiscard]] virtual AngleMode GetAngleMode() const = 0;

  // Runs the calculus operation; false after it has reported the failure.
  [[nodiscard]] virtual bool RunCalculus(const CalculusCall& call, double& result) = 0;

  virtual void Raise(ErrorPair error) = 0;
};

}  // namespace plotvane::functions
