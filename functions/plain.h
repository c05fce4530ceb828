// Plain: the formulas' arithmetic on bare doubles, where any failure shows as a result that is not finite.
#pragma once

#include <cmath>

#include "functions/kernels/bits.h"
#include "functions/kernels/kernels.h"

namespace plotvane::functions {

// The kernels over their whole range.
struct WholeRangeKernels {
  using Tag = kernels::Portable;
  static double Sin(double x) noexcept { return kernels::Sin(x); }
  static double Cos(double x) noexcept { return kernels::Cos(x); }
  static double Tan(double x) noexcept { return kernels::Tan(x); }
  static double Atan(double x) noexcept { return kernels::Atan(x); }
  static double Exp(double x) noexcept { return kernels::Exp(x); }
  static double Log(double x) noexcept { return kernels::Log(x); }
  static double Pow(double base, double exponent) noexcept { return kernels::Pow(base, exponent); }
};

// One double. Where Trapped fails, a Plain is (or ends as) an infinity or a not-a-number; where Trapped
// succeeds, the bits are the same. What would forget an overflow (a division by an infinity, the sign of one,
// its arc tangent, e raised to a negative one) gives a not-a-number here. No branches, so that loops over
// formulas vectorise.
template <class Kernels>
class Plain {
 public:
  using Tag = typename Kernels::Tag;

  Plain(double value) noexcept : mValue(value) {}  // NOLINT: a number is a plain number

  [[nodiscard]] double Get() const noexcept { return mValue; }

  friend Plain operator-(Plain a) noexcept { return -a.mValue; }
  friend Plain operator+(Plain a, Plain b) noexcept { return a.mValue + b.mValue; }
  friend Plain operator-(Plain a, Plain b) noexcept { return a.mValue - b.mValue; }
  friend Plain operator*(Plain a, Plain b) noexcept { return a.mValue * b.mValue; }
  friend Plain operator/(Plain a, Plain b) noexcept {
    const double quotient = a.mValue / b.mValue;
    return b.mValue - b.mValue == 0 ? quotient : kernels::kNotANumber;
  }

  friend Plain Sqrt(Plain x) noexcept { return std::sqrt(x.mValue); }
  friend Plain Log(Plain x) noexcept { return Kernels::Log(x.mValue); }
  friend Plain Exp(Plain x) noexcept { return Kernels::Exp(Finite(x)); }
  friend Plain Sin(Plain x) noexcept { return Kernels::Sin(x.mValue); }
  friend Plain Cos(Plain x) noexcept { return Kernels::Cos(x.mValue); }
  friend Plain Tan(Plain x) noexcept { return Kernels::Tan(x.mValue); }
  friend Plain Atan(Plain x) noexcept { return Kernels::Atan(Finite(x)); }
  // The kernel's 1^x and x^0 are 1 for any x, failures too.
  friend Plain Pow(Plain base, Plain exponent) noexcept {
    const double power = Kernels::Pow(Finite(base), Finite(exponent));
    const double withExponent = IsFinite(exponent) ? power : kernels::kNotANumber;
    return IsFinite(base) ? withExponent : kernels::kNotANumber;
  }
  friend Plain Floor(Plain x) noexcept { return kernels::Floor<typename Kernels::Tag>(x.mValue); }
  friend Plain Truncate(Plain x) noexcept { return kernels::Truncate<typename Kernels::Tag>(x.mValue); }
  friend Plain Abs(Plain x) noexcept { return kernels::Magnitude<typename Kernels::Tag>(x.mValue); }
  friend Plain Sign(Plain x) noexcept {
    const double negative = x.mValue < 0 ? -1.0 : 0.0;
    const double sign = x.mValue > 0 ? 1.0 : negative;
    return sign + (x.mValue - x.mValue);
  }
  friend bool Equals(Plain x, double constant) noexcept { return x.mValue == constant; }
  friend Plain Choose(bool condition, Plain chosen, Plain other) noexcept {
    return condition ? chosen.mValue : other.mValue;
  }
  static Plain Undefined() noexcept { return kernels::kNotANumber; }

 private:
  static bool IsFinite(Plain x) noexcept { return x.mValue - x.mValue == 0; }

  // Kernels with a finite limit must not see an overflow.
  static double Finite(Plain x) noexcept { return IsFinite(x) ? x.mValue : kernels::kNotANumber; }

  double mValue;
};

}  // namespace plotvane::functions
