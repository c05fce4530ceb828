// Sine, cosine and tangent: Cody and Waite's reduction by whole multiples of pi/2 (in four parts), then
// minimax polynomials for sine and cosine; the tangent is their quotient. Larger arguments go through
// circular_reduction.h.
#pragma once

#include "functions/kernels/pairs.h"
#include "functions/kernels/polynomial.h"

namespace plotvane::functions::kernels {

// (sin r/r - 1)/z and ((cos r - 1)/z + 1/2)/z with z = r², for |r| up to pi/4; errors below 6e-19.
inline constexpr std::array kSineTail{
    -0x1.5555555555555p-3,  0x1.1111111111p-7,     -0x1.a01a019fdfec1p-13, 0x1.71de3a025fa56p-19,
    -0x1.ae63e3b782cdep-26, 0x1.60d7f3e3432d3p-33, -0x1.862a3bb2fdd9fp-41,
};
inline constexpr std::array kCosineTail{
    0x1.5555555555555p-5,   -0x1.6c16c16c168c9p-10, 0x1.a01a019f38p-16,
    -0x1.27e4fa02a1646p-22, 0x1.1eeb57945e1cep-29,  -0x1.90735bc9acae1p-37,
};

// An angle as quadrant · pi/2 + rest, |rest| up to pi/4.
struct ReducedAngle {
  Pair rest;
  std::uint64_t quadrant;  // only the two lowest bits count
};

// The largest angle that ReduceAngle takes: its multiple of pi/2 has 20 bits.
inline constexpr double kLargestPlainAngle = 823549.0;

template <class Tag>
inline ReducedAngle ReduceAngle(double x) noexcept {
  constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
  // pi/2 = a + b + c + d; the first three have 33 bits, so that the products are exact.
  constexpr double kA = 0x1.921fb54400000p+0;
  constexpr double kB = 0x1.0b4611a600000p-34;
  constexpr double kC = 0x1.3198a2e000000p-69;
  constexpr double kD = 0x1.b839a252049c1p-104;
  const double shifted = x * kTwoOverPi + kRoundToWhole;
  const double multiple = shifted - kRoundToWhole;
  const Pair first = Difference<Tag>(x - multiple * kA, multiple * kB);
  const Pair second = Difference<Tag>(first.high, multiple * kC);
  const double low = (first.low + second.low) - multiple * kD;
  return {FastSum<Tag>(second.high, low), Bits<Tag>(shifted)};
}

struct SineAndCosine {
  Pair sine;
  Pair cosine;
};

// Of the rest of an angle, each as a leading part and a correction of up to an eighth of it.
template <class Tag>
inline SineAndCosine CircularCore(Pair rest) noexcept {
  const double r = rest.high;
  const double rHead = Head<Tag>(r);
  const double rTail = r - rHead;
  const double squareHead = rHead * rHead;
  const double squareTail = rTail * (rHead + r);
  const double z = squareHead + squareTail;
  const Pair oneMinus = FastSum<Tag>(1.0, -0.5 * squareHead);
  const double sineLow = r * (z * Polynomial<Tag>(z, kSineTail)) + rest.low * oneMinus.high;
  const double cosineLow =
      (oneMinus.low - 0.5 * squareTail) + (z * z * Polynomial<Tag>(z, kCosineTail) - r * rest.low);
  return {{r, sineLow}, {oneMinus.high, cosineLow}};
}

// All bits set in odd quadrants.
template <class Tag>
inline std::uint64_t OddMask(std::uint64_t quadrant) noexcept {
  return std::uint64_t{0} - (quadrant & 1U);
}

// The sign bit in the second half of the turn, where the sine changes its sign.
template <class Tag>
inline std::uint64_t LowerHalfSign(std::uint64_t quadrant) noexcept {
  return (quadrant << 62U) & kSignBit;
}

template <class Tag>
inline double SineOf(ReducedAngle angle) noexcept {
  const SineAndCosine core = CircularCore<Tag>(angle.rest);
  const double value = Blend<Tag>(OddMask<Tag>(angle.quadrant), core.cosine.high + core.cosine.low,
                                  core.sine.high + core.sine.low);
  return FromBits<Tag>(Bits<Tag>(value) ^ LowerHalfSign<Tag>(angle.quadrant));
}

// The cosine is the sine one quadrant further.
template <class Tag>
inline double CosineOf(ReducedAngle angle) noexcept {
  return SineOf<Tag>({angle.rest, angle.quadrant + 1});
}

template <class Tag>
inline double TangentOf(ReducedAngle angle) noexcept {
  const SineAndCosine core = CircularCore<Tag>(angle.rest);
  const Pair sine = FastSum<Tag>(core.sine.high, core.sine.low);
  const Pair cosine = FastSum<Tag>(core.cosine.high, core.cosine.low);
  // In odd quadrants the tangent is -cos/sin of the rest.
  const std::uint64_t odd = OddMask<Tag>(angle.quadrant);
  const Pair above{Blend<Tag>(odd, -cosine.high, sine.high), Blend<Tag>(odd, -cosine.low, sine.low)};
  const Pair below{Blend<Tag>(odd, sine.high, cosine.high), Blend<Tag>(odd, sine.low, cosine.low)};
  const Pair quotient = Quotient<Tag>(above, below);
  return quotient.high + quotient.low;
}

// Each for angles up to kLargestPlainAngle, else not-a-number.
template <class Tag>
inline double SinFast(double x) noexcept {
  const double result = SineOf<Tag>(ReduceAngle<Tag>(x));
  return Magnitude<Tag>(x) <= kLargestPlainAngle ? result : kNotANumber;
}

template <class Tag>
inline double CosFast(double x) noexcept {
  const double result = CosineOf<Tag>(ReduceAngle<Tag>(x));
  return Magnitude<Tag>(x) <= kLargestPlainAngle ? result : kNotANumber;
}

template <class Tag>
inline double TanFast(double x) noexcept {
  const double result = TangentOf<Tag>(ReduceAngle<Tag>(x));
  return Magnitude<Tag>(x) <= kLargestPlainAngle ? result : kNotANumber;
}

}  // namespace plotvane::functions::kernels
