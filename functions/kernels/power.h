// Powers: the logarithm to about 68 bits as a pair of doubles, times the exponent, then the exponential of
// the pair.
//
// The logarithm is 2·atanh(s) = 2s + s·(2z/3 + z²·Q(z)) with s = (m-1)/(m+1) and z = s²; the quotient s and
// the term 2z/3 are carried as pairs.
#pragma once

#include "functions/kernels/exponential.h"
#include "functions/kernels/logarithm.h"
#include "functions/kernels/pairs.h"
#include "functions/kernels/polynomial.h"

namespace plotvane::functions::kernels {

// Q(z) above, for s up to 0.1716; z² times it has an error below 4e-21.
inline constexpr std::array kLogarithmFarTail{
    0x1.999999999999ap-2, 0x1.24924924922fbp-2, 0x1.c71c71c74d6acp-3, 0x1.745d173c1370fp-3,
    0x1.3b13aa1eb5f1ep-3, 0x1.111540545fdccp-3, 0x1.e01cc783f929ep-4, 0x1.da841491a7b9ap-4,
};

// ln(2^power · mantissa) as a pair.
template <class Tag>
inline Pair LogarithmPair(PowerAndMantissa x) noexcept {
  constexpr double kTwoThirdsHead = 0x1.555555p-1;
  constexpr double kTwoThirdsTail = 0x1.5555555555555p-27;
  const double f = x.mantissa - 1.0;
  const Pair s = Quotient<Tag>({f, 0.0}, FastSum<Tag>(2.0, f));
  // z, cut in two: zHead has 26 bits.
  const double zHigh = s.high * s.high;
  const double zLow = s.low * (s.high + s.high + s.low);
  const double z = zHigh + zLow;
  const double zHead = Head<Tag>(z);
  const double zTail = (zHigh - zHead) + zLow;
  // t = 2z/3 + z²·Q(z), cut in two: tHead has 26 bits.
  const double third = zHead * kTwoThirdsHead;
  const double far = (zHead * kTwoThirdsTail + zTail * (kTwoThirdsHead + kTwoThirdsTail)) +
                     z * z * Polynomial<Tag>(z, kLogarithmFarTail);
  const double tHead = Head<Tag>(third + far);
  const double tTail = (third - tHead) + far;
  const Pair series = FastSum<Tag>(s.high + s.high, s.high * tHead);
  const double seriesLow = series.low + (s.high * tTail + (s.low + s.low + s.low * (tHead + tTail)));
  const Pair sum = FastSum<Tag>(x.power * kLn2High, series.high);
  return FastSum<Tag>(sum.high, sum.low + (seriesLow + x.power * kLn2Low));
}

// exponent · logarithm as a pair.
template <class Tag>
inline Pair PowerExponent(double exponent, PowerAndMantissa base) noexcept {
  return Product<Tag>({exponent, 0.0}, LogarithmPair<Tag>(base));
}

// 10, 100, … up to the last power of ten that a double holds exactly. 1 divided by one of them is the double
// nearest to the negative power, so that 1e-5 and 0.00001 are one number.
inline constexpr std::array kExactPowersOfTen{1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                              1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16,
                                              1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Whether base^exponent is 1 divided by an exact power of ten.
template <class Tag>
inline bool IsShortDecimal(double base, double exponent) noexcept {
  constexpr double kLongest = -static_cast<double>(kExactPowersOfTen.size());
  const double whole = exponent >= kLongest ? Truncate<Tag>(exponent) : kNotANumber;
  const double negative = exponent < 0.0 ? whole : kNotANumber;
  return (base == 10.0 ? negative : kNotANumber) == exponent;
}

// The whole exponents whose powers are repeated products.
inline constexpr int kFirstProductPower = 3;
inline constexpr int kLastProductPower = 8;

// base^kExponent as a pair, by squaring: its error stays below 2^-75 of the value.
template <class Tag, int kExponent>
inline Pair ProductPower(double base) noexcept {
  if constexpr (kExponent == 2) {
    const double head = Head<Tag>(base);
    return {head * head, (base - head) * (head + base)};
  } else if constexpr (kExponent % 2 == 0) {
    const Pair half = ProductPower<Tag, kExponent / 2>(base);
    return Product<Tag>(half, half);
  } else {
    return Product<Tag>(ProductPower<Tag, kExponent - 1>(base), {base, 0.0});
  }
}

// base^kExponent, 2 or a product power, where no part of the pair leaves the range of normal numbers, else
// not-a-number; a square is the plain product.
template <class Tag, int kExponent>
inline double WholePowerFast(double base) noexcept {
  if constexpr (kExponent == 2) {
    return base * base;
  } else {
    const Pair power = ProductPower<Tag, kExponent>(base);
    const double result = power.high + power.low;
    const double magnitude = Magnitude<Tag>(result);
    const double bounded = magnitude <= 0x1p1000 ? result : kNotANumber;
    return magnitude >= 0x1p-850 ? bounded : kNotANumber;
  }
}

// base^exponent for a normal positive base where the result is a normal number well inside the range, else
// not-a-number. Short decimals are left to the slower path.
template <class Tag>
inline double PowGeneral(double base, double exponent) noexcept {
  const Pair x = PowerExponent<Tag>(exponent, SplitNormal<Tag>(base));
  const double general = ScaleNormal<Tag>(ExponentialCore<Tag>(x));
  const double bounded = Magnitude<Tag>(x.high) <= kLargestPlainExponent ? general : kNotANumber;
  const double aboveZero = base >= kSmallestNormal ? bounded : kNotANumber;
  const double finite = base <= kLargestNumber ? aboveZero : kNotANumber;
  return IsShortDecimal<Tag>(base, exponent) ? kNotANumber : finite;
}

// Squares are plain products; the product powers are left to WholePowerFast, and give not-a-number here; all
// else goes the general way.
template <class Tag>
inline double PowFast(double base, double exponent) noexcept {
  const double general = PowGeneral<Tag>(base, exponent);
  const double square = base * base;
  const double power = exponent == 2.0 ? square : general;
  const double whole = exponent <= kLastProductPower ? Truncate<Tag>(exponent) : kNotANumber;
  const double productPower = exponent >= kFirstProductPower ? whole : kNotANumber;
  return exponent == productPower ? kNotANumber : power;
}

}  // namespace plotvane::functions::kernels
