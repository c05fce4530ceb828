// Trapped: a number under the error trap, with the arithmetic of the formulas.
#pragma once

#include <cmath>
#include <limits>

#include "functions/errors.h"
#include "functions/kernels/bits.h"
#include "functions/kernels/kernels.h"
#include "platform/outcome.h"

namespace plotvane::functions {

// A finite number, or the error pair of the first step that failed. Arithmetic passes a failure on, so that a
// formula is written as it reads and checked once at its end:
//
//   error 11  division by zero (0/0 too), 0 raised to a negative power
//   error 5   root or logarithm outside its domain, negative base raised to a broken exponent
//   error 6   any other result that is not finite
class [[nodiscard]] Trapped {
 public:
  Trapped(double value) noexcept : mValue(value) {  // NOLINT: a number is a trapped number
    if (!IsFinite(value)) *this = Trapped(platform::StandardError::Overflow);
  }
  Trapped(platform::StandardError standard) noexcept : mError{standard, CustomError::None} {}  // NOLINT
  Trapped(CustomError custom) noexcept : mError{platform::StandardError::None, custom} {}      // NOLINT
  Trapped(ErrorPair error) noexcept : mError(error) {}                                         // NOLINT
  Trapped(const platform::Outcome<double>& outcome) noexcept                                   // NOLINT
      : Trapped(outcome.Ok() ? Trapped(outcome.Get()) : Trapped(outcome.Error())) {}

  [[nodiscard]] bool Ok() const noexcept { return mError.None(); }
  [[nodiscard]] ErrorPair Error() const noexcept { return mError; }
  // The number; 0 after a failure.
  [[nodiscard]] double Get() const noexcept { return mValue; }

  // `function` applied to the number; its result is an overflow when it is not finite.
  template <class Callable>
  [[nodiscard]] Trapped Map(Callable function) const noexcept {
    return Ok() ? Trapped(function(mValue)) : *this;
  }

  friend Trapped operator-(Trapped a) noexcept {
    return a.Map([](double x) { return -x; });
  }
  friend Trapped operator+(Trapped a, Trapped b) noexcept {
    return BothOk(a, b) ? Trapped(a.mValue + b.mValue) : FirstFailure(a, b);
  }
  friend Trapped operator-(Trapped a, Trapped b) noexcept {
    return BothOk(a, b) ? Trapped(a.mValue - b.mValue) : FirstFailure(a, b);
  }
  friend Trapped operator*(Trapped a, Trapped b) noexcept {
    return BothOk(a, b) ? Trapped(a.mValue * b.mValue) : FirstFailure(a, b);
  }
  friend Trapped operator/(Trapped a, Trapped b) noexcept {
    if (!BothOk(a, b)) return FirstFailure(a, b);
    return b.mValue == 0 ? Trapped(platform::StandardError::DivisionByZero) : Trapped(a.mValue / b.mValue);
  }

  friend Trapped Sqrt(Trapped x) noexcept {
    if (!x.Ok()) return x;
    return x.mValue < 0 ? Trapped(platform::StandardError::InvalidCall) : Trapped(std::sqrt(x.mValue));
  }
  friend Trapped Log(Trapped x) noexcept {
    if (!x.Ok()) return x;
    return x.mValue <= 0 ? Trapped(platform::StandardError::InvalidCall) : Trapped(kernels::Log(x.mValue));
  }
  friend Trapped Exp(Trapped x) noexcept { return x.Map(kernels::Exp); }
  friend Trapped Sin(Trapped x) noexcept { return x.Map(kernels::Sin); }
  friend Trapped Cos(Trapped x) noexcept { return x.Map(kernels::Cos); }
  friend Trapped Tan(Trapped x) noexcept { return x.Map(kernels::Tan); }
  friend Trapped Atan(Trapped x) noexcept { return x.Map(kernels::Atan); }
  friend Trapped Floor(Trapped x) noexcept { return x.Map(kernels::Floor<kernels::Portable>); }
  friend Trapped Truncate(Trapped x) noexcept { return x.Map(kernels::Truncate<kernels::Portable>); }
  friend Trapped Abs(Trapped x) noexcept { return x.Map(kernels::Magnitude<kernels::Portable>); }
  friend Trapped Sign(Trapped x) noexcept {
    return x.Map([](double value) { return value > 0 ? 1.0 : value < 0 ? -1.0 : 0.0; });
  }
  friend Trapped Pow(Trapped base, Trapped exponent) noexcept;

  // False for a failure.
  friend bool Equals(Trapped x, double constant) noexcept { return x.Ok() && x.mValue == constant; }
  friend Trapped Choose(bool condition, Trapped chosen, Trapped other) noexcept {
    return condition ? chosen : other;
  }
  // A value where the function is not defined: custom error 11.
  static Trapped Undefined() noexcept { return CustomError::UndefinedValue; }

 private:
  static bool IsFinite(double value) noexcept { return value - value == 0; }
  static bool BothOk(const Trapped& a, const Trapped& b) noexcept { return a.Ok() && b.Ok(); }
  static Trapped FirstFailure(const Trapped& a, const Trapped& b) noexcept { return a.Ok() ? b : a; }

  double mValue = 0;
  ErrorPair mError;
};

inline Trapped Pow(Trapped base, Trapped exponent) noexcept {
  if (!Trapped::BothOk(base, exponent)) return Trapped::FirstFailure(base, exponent);
  const double b = base.Get();
  const double e = exponent.Get();
  if (b == 0 && e < 0) return platform::StandardError::DivisionByZero;
  const double power = kernels::Pow(b, e);
  return power != power ? Trapped(platform::StandardError::InvalidCall) : Trapped(power);
}

}  // namespace plotvane::functions
