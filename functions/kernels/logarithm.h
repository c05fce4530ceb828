// ln x: the argument as 2^k · m with m around 1, then the series of the inverse hyperbolic tangent as a
// minimax polynomial (the arrangement of terms for small m - 1 is the one of FDLIBM's manual).
#pragma once

#include "functions/kernels/exponential.h"
#include "functions/kernels/pairs.h"
#include "functions/kernels/polynomial.h"

namespace plotvane::functions::kernels {

// (ln((1+s)/(1-s))/s - 2) / z with z = s², for s up to 0.1716; error below 4e-20.
inline constexpr std::array kLogarithmTail{
    0x1.5555555555555p-1, 0x1.9999999999d58p-2, 0x1.249249242f024p-2, 0x1.c71c725c2f358p-3,
    0x1.745cdb85e25fap-3, 0x1.3b215625e561dp-3, 0x1.0f4a5ca05df31p-3, 0x1.1021248200cffp-3,
};

inline constexpr double kSmallestNormal = 0x1p-1022;
inline constexpr double kLargestNumber = 0x1.fffffffffffffp+1023;
inline constexpr double kTwo54 = 0x1p54;  // lifts subnormal arguments into the normal range

// A normal positive x as 2^power · mantissa, mantissa in [sqrt(1/2), sqrt(2)).
struct PowerAndMantissa {
  double power;
  double mantissa;
};

template <class Tag>
inline PowerAndMantissa SplitNormal(double x) noexcept {
  constexpr std::uint64_t kOne = 0x3FF0000000000000U;
  constexpr std::uint64_t kRootOfHalf = 0x3FE6A09E667F3BCDU;
  constexpr std::uint64_t kFraction = 0x000FFFFFFFFFFFFFU;
  constexpr std::uint64_t kTwo52Bits = 0x4330000000000000U;
  const std::uint64_t shifted = Bits<Tag>(x) + (kOne - kRootOfHalf);
  const double power = FromBits<Tag>((shifted >> 52U) | kTwo52Bits) - (kTwo52 + 1023.0);
  return {power, FromBits<Tag>((shifted & kFraction) + kRootOfHalf)};
}

// ln(2^power · mantissa).
template <class Tag>
inline double LogarithmCore(PowerAndMantissa x) noexcept {
  const double f = x.mantissa - 1.0;
  const double s = f / (2.0 + f);
  const double z = s * s;
  // f²/2, cut in two so that the leading part is exact.
  const double fHead = Head<Tag>(f);
  const double halfSquareHead = 0.5 * fHead * fHead;
  const double halfSquareTail = 0.5 * (f - fHead) * (f + fHead);
  const double halfSquare = halfSquareHead + halfSquareTail;
  // ln(1+f) = f - f²/2 + s·(f²/2 + z·tail)
  const double correction = s * (halfSquare + z * Polynomial<Tag>(z, kLogarithmTail)) - halfSquareTail;
  const Pair sum = FastSum<Tag>(x.power * kLn2High, f);
  const Pair leading = FastSum<Tag>(sum.high, -halfSquareHead);
  return leading.high + (leading.low + (sum.low + (x.power * kLn2Low + correction)));
}

// Normal and positive.
template <class Tag>
inline bool IsNormal(double x) noexcept {
  return x >= kSmallestNormal && x <= kLargestNumber;
}

// ln x for normal positive x.
template <class Tag>
inline double LogOfNormal(double x) noexcept {
  return LogarithmCore<Tag>(SplitNormal<Tag>(x));
}

// ln x for normal positive x, else not-a-number.
template <class Tag>
inline double LogFast(double x) noexcept {
  const double result = LogOfNormal<Tag>(x);
  const double bounded = x >= kSmallestNormal ? result : kNotANumber;
  return x <= kLargestNumber ? bounded : kNotANumber;
}

}  // namespace plotvane::functions::kernels
