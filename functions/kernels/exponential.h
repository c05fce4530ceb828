// e^x: Cody and Waite's reduction by whole multiples of ln 2, then a minimax polynomial.
#pragma once

#include "functions/kernels/pairs.h"
#include "functions/kernels/polynomial.h"

namespace plotvane::functions::kernels {

inline constexpr double kOneOverLn2 = 0x1.71547652b82fep+0;
// ln 2 in two parts; the first has 42 bits, so that its whole multiples up to 2^11 are exact.
inline constexpr double kLn2High = 0x1.62e42fefa3800p-1;
inline constexpr double kLn2Low = 0x1.ef35793c76730p-45;

// Within these bounds the result of e^x is a normal number.
inline constexpr double kLargestPlainExponent = 708.0;

// (e^r - 1 - r - r²/2) / r³ for |r| <= ln(2)/2; absolute error of r³ times it below 6e-19.
inline constexpr std::array kExponentialTail{
    0x1.555555555555bp-3,  0x1.555555555555ap-5,  0x1.111111110ebfep-7,  0x1.6c16c16c1415dp-10,
    0x1.a01a01b3a338p-13,  0x1.a01a01b1fabe6p-16, 0x1.71ddefc70f78cp-19, 0x1.27e4c2c82696ap-22,
    0x1.af6c7dfb28cb5p-26, 0x1.1f99b37b5eba5p-29,
};

// 2^power · (high + low), with high + low = e^r for a reduced r.
struct ScaledExponential {
  Pair mantissa;            // high in [0.7, 1.5]
  std::uint64_t powerBits;  // whose low bits hold the power in two's complement
  double power;
};

// e^(x.high + x.low) for |x.high| below 2000 and a low part below 2^-10.
template <class Tag>
inline ScaledExponential ExponentialCore(Pair x) noexcept {
  const double shifted = x.high * kOneOverLn2 + kRoundToWhole;
  const double power = shifted - kRoundToWhole;
  // The first difference is exact; r + rest is the reduced argument.
  const double reducedHigh = x.high - power * kLn2High;
  const double reducedLow = x.low - power * kLn2Low;
  const double r = reducedHigh + reducedLow;
  const double rest = (reducedHigh - r) + reducedLow;
  const double tail = rest + r * (rest + r * (0.5 + r * Polynomial<Tag>(r, kExponentialTail)));
  const Pair onePlus = FastSum<Tag>(1.0, r);
  return {{onePlus.high, onePlus.low + tail}, Bits<Tag>(shifted), power};
}

// The scaled value as one double, for results that are normal numbers.
template <class Tag>
inline double ScaleNormal(const ScaledExponential& scaled) noexcept {
  return (scaled.mantissa.high + scaled.mantissa.low) * FromBits<Tag>((scaled.powerBits + 1023U) << 52U);
}

template <class Tag>
inline bool IsPlainExponent(double x) noexcept {
  return Magnitude<Tag>(x) <= kLargestPlainExponent;
}

// e^x for a plain exponent.
template <class Tag>
inline double ExpOfPlain(double x) noexcept {
  return ScaleNormal<Tag>(ExponentialCore<Tag>({x, 0.0}));
}

// e^x where x and the result allow the direct way, else not-a-number.
template <class Tag>
inline double ExpFast(double x) noexcept {
  const double result = ExpOfPlain<Tag>(x);
  return IsPlainExponent<Tag>(x) ? result : kNotANumber;
}

// e^(x.high + x.low) over the whole range, infinities and subnormal results included; the low part below
// 2^-10.
[[nodiscard]] double ExpOfPair(Pair x) noexcept;

}  // namespace plotvane::functions::kernels
