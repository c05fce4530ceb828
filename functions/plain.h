// Plain: the formulas' arithmetic on bare doubles, where any failure shows as a result that is not finite.
#pragma once

#include <cmath>

#include "functions/formulas.h"
#include "functions/kernels/arctangent.h"
#include "functions/kernels/bits.h"
#include "functions/kernels/circular.h"
#include "functions/kernels/exponential.h"
#include "functions/kernels/kernels.h"
#include "functions/kernels/logarithm.h"
#include "functions/kernels/power.h"

namespace plotvane::functions {

// The kernels over their whole range: the direct way where the argument allows it, else the complete kernel.
// An argument that is not finite gives a result that is not.
struct WholeRangeKernels {
  using Tag = kernels::Portable;

  static double Sin(double x) noexcept {
    return kernels::IsPlainAngle<Tag>(x) ? kernels::SinOfOneQuadrant<Tag>(x, 0) : kernels::Sin(x);
  }
  static double Cos(double x) noexcept {
    return kernels::IsPlainAngle<Tag>(x) ? kernels::SinOfOneQuadrant<Tag>(x, 1) : kernels::Cos(x);
  }
  static double Tan(double x) noexcept {
    return kernels::IsPlainAngle<Tag>(x) ? kernels::TanOfOneQuadrant<Tag>(x) : kernels::Tan(x);
  }
  static double Atan(double x) noexcept {
    const double direct = kernels::AtanFast<Tag>(x);
    return direct == direct ? direct : kernels::Atan(Finite(x));
  }
  static double Exp(double x) noexcept {
    return kernels::IsPlainExponent<Tag>(x) ? kernels::ExpOfPlain<Tag>(x) : kernels::Exp(Finite(x));
  }
  static double Log(double x) noexcept {
    return kernels::IsNormal<Tag>(x) ? kernels::LogOfNormal<Tag>(x) : kernels::Log(x);
  }
  static double Pow(double base, double exponent) noexcept { return kernels::Pow(base, exponent); }
  // kExponent from 2 to 8.
  template <int kExponent>
  static double WholePower(double base) noexcept {
    const double power = kernels::WholePowerFast<Tag, kExponent>(base);
    return power == power ? power : kernels::Pow(Finite(base), kExponent);
  }

 private:
  static double Finite(double x) noexcept { return x - x == 0 ? x : kernels::kNotANumber; }
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
  friend Plain Exp(Plain x) noexcept { return Kernels::Exp(x.mValue); }
  friend Plain Sin(Plain x) noexcept { return Kernels::Sin(x.mValue); }
  friend Plain Cos(Plain x) noexcept { return Kernels::Cos(x.mValue); }
  friend Plain Tan(Plain x) noexcept { return Kernels::Tan(x.mValue); }
  friend Plain Atan(Plain x) noexcept { return Kernels::Atan(x.mValue); }
  // The kernel's 1^x and x^0 are 1 for any x, failures too.
  friend Plain Pow(Plain base, Plain exponent) noexcept {
    const double power = Kernels::Pow(base.mValue, exponent.mValue);
    const double withExponent = IsFinite(exponent) ? power : kernels::kNotANumber;
    return IsFinite(base) ? withExponent : kernels::kNotANumber;
  }
  template <int kExponent>
  [[nodiscard]] Plain WholePower() const noexcept {
    return Kernels::template WholePower<kExponent>(mValue);
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

  double mValue;
};

namespace formulas {

// An angle within a turn stays as it is (a negative zero becomes positive), and one within two loses exactly
// one; single values need no division to see that.
template <>
inline Plain<WholeRangeKernels> RadiansOver2PiN(Plain<WholeRangeKernels> x) {
  const double magnitude = kernels::Magnitude<kernels::Portable>(x.Get());
  if (magnitude < 2 * kPi) return x.Get() + 0.0;
  if (magnitude < 4 * kPi) return x.Get() - kernels::WithSign<kernels::Portable>(2 * kPi, x.Get());
  return DecimalMod(x, Plain<WholeRangeKernels>(2 * kPi));
}

}  // namespace formulas
}  // namespace plotvane::functions
