#include "functions/kernels/kernels.h"

#include "functions/kernels/arctangent.h"
#include "functions/kernels/circular.h"
#include "functions/kernels/circular_reduction.h"
#include "functions/kernels/exponential.h"
#include "functions/kernels/logarithm.h"
#include "functions/kernels/power.h"

namespace plotvane::functions::kernels {

namespace {

// Beyond these every result of the exponential is infinite or zero.
constexpr double kCertainOverflow = 710.0;
constexpr double kCertainUnderflow = -746.0;

bool IsFinite(double x) noexcept {
  return x - x == 0;
}
bool IsNaN(double x) noexcept {
  return x != x;
}
bool IsWhole(double x) noexcept {
  return Truncate<Portable>(x) == x;
}
bool IsOdd(double x) noexcept {
  return IsWhole(x) && !IsWhole(x / 2);
}

// Any positive finite number as power and mantissa.
PowerAndMantissa Split(double x) noexcept {
  if (x >= kSmallestNormal) return SplitNormal<Portable>(x);
  PowerAndMantissa split = SplitNormal<Portable>(x * kTwo54);
  split.power -= 54.0;
  return split;
}

double ProductPowerOf(double base, int exponent) noexcept {
  switch (exponent) {
    case 3: return WholePowerFast<Portable, 3>(base);
    case 4: return WholePowerFast<Portable, 4>(base);
    case 5: return WholePowerFast<Portable, 5>(base);
    case 6: return WholePowerFast<Portable, 6>(base);
    case 7: return WholePowerFast<Portable, 7>(base);
    default: return WholePowerFast<Portable, 8>(base);
  }
}

double ExpSpecial(double x) noexcept {
  return IsNaN(x) ? x : ExpOfPair({x, 0.0});
}

double LogSpecial(double x) noexcept {
  if (x > 0) return IsFinite(x) ? LogarithmCore<Portable>(Split(x)) : x;
  return x == 0 ? -kInfinity : kNotANumber;
}

// base^exponent for an infinity on either side.
double PowOfInfinity(double base, double exponent) noexcept {
  const double magnitude = Magnitude<Portable>(base);
  if (!IsFinite(exponent)) {
    if (magnitude == 1) return 1.0;
    return (magnitude > 1) == (exponent > 0) ? kInfinity : 0.0;
  }
  const double result = exponent > 0 ? kInfinity : 0.0;
  return base < 0 && IsOdd(exponent) ? -result : result;
}

double PowSpecial(double base, double exponent) noexcept {
  if (exponent == 0 || base == 1) return 1.0;
  if (IsNaN(base) || IsNaN(exponent)) return kNotANumber;
  if (!IsFinite(base) || !IsFinite(exponent)) return PowOfInfinity(base, exponent);
  if (IsShortDecimal<Portable>(base, exponent)) {
    return 1.0 / kExactPowersOfTen[static_cast<std::size_t>(-exponent) - 1];
  }
  const bool negative = base < 0 && IsOdd(exponent);
  if (base == 0) {
    const double result = exponent > 0 ? 0.0 : kInfinity;
    return IsOdd(exponent) ? WithSign<Portable>(result, base) : result;
  }
  if (base < 0 && !IsWhole(exponent)) return kNotANumber;
  // Exponents beyond this size leave no base but those next to 1 in range, and the product below must not
  // overflow.
  constexpr double kHugeExponent = 0x1p80;
  const double bounded = exponent > kHugeExponent    ? kHugeExponent
                         : exponent < -kHugeExponent ? -kHugeExponent
                                                     : exponent;
  const double power = ExpOfPair(PowerExponent<Portable>(bounded, Split(Magnitude<Portable>(base))));
  return negative ? -power : power;
}

}  // namespace

// Where the result may leave the range of normal numbers the scale is applied in two steps.
double ExpOfPair(Pair x) noexcept {
  if (x.high > kCertainOverflow) return kInfinity;
  if (x.high < kCertainUnderflow) return 0.0;
  ScaledExponential scaled = ExponentialCore<Portable>(x);
  if (scaled.power > 0) {
    scaled.powerBits -= 1;
    return ScaleNormal<Portable>(scaled) * 2.0;
  }
  scaled.powerBits += 54;
  return ScaleNormal<Portable>(scaled) * 0x1p-54;
}

double Exp(double x) noexcept {
  const double result = ExpFast<Portable>(x);
  return result == result ? result : ExpSpecial(x);
}

double Log(double x) noexcept {
  const double result = LogFast<Portable>(x);
  return result == result ? result : LogSpecial(x);
}

// With the bits of PowFast, but only the work that the exponent asks for.
double Pow(double base, double exponent) noexcept {
  if (exponent == 2.0) return base * base;
  if (exponent >= kFirstProductPower && exponent <= kLastProductPower && IsWhole(exponent)) {
    const double product = ProductPowerOf(base, static_cast<int>(exponent));
    return product == product ? product : PowSpecial(base, exponent);
  }
  if (!(base > 0)) return PowSpecial(base, exponent);
  const double result = PowGeneral<Portable>(base, exponent);
  return result == result ? result : PowSpecial(base, exponent);
}

double Sin(double x) noexcept {
  if (Magnitude<Portable>(x) <= kLargestPlainAngle) return SinOfOneQuadrant<Portable>(x, 0);
  return IsFinite(x) ? SineOf<Portable>(ReduceLargeAngle(x)) : kNotANumber;
}

double Cos(double x) noexcept {
  if (Magnitude<Portable>(x) <= kLargestPlainAngle) return SinOfOneQuadrant<Portable>(x, 1);
  return IsFinite(x) ? CosineOf<Portable>(ReduceLargeAngle(x)) : kNotANumber;
}

double Tan(double x) noexcept {
  const double result = TanFast<Portable>(x);
  if (result == result) return result;
  if (!IsFinite(x)) return kNotANumber;
  const ReducedAngle angle = ReduceLargeAngle(x);
  return TangentOf<Portable>(angle.rest, angle.quadrant);
}

double Atan(double x) noexcept {
  const double result = AtanFast<Portable>(x);
  if (result == result || x != x) return result;
  return WithSign<Portable>(kExactHalfPiHigh, x);
}

}  // namespace plotvane::functions::kernels
