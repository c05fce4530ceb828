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
inline bool IsPlainAngle(double x) noexcept {
  return Magnitude<Tag>(x) <= kLargestPlainAngle;
}

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

// What both series of a rest begin with.
struct CircularSquare {
  double z;      // the square of rest.high
  double tail;   // the part of z that its leading 52 bits lack
  Pair oneLess;  // 1 - z/2 without that tail
};

template <class Tag>
inline CircularSquare SquareOfRest(double r) noexcept {
  const double rHead = Head<Tag>(r);
  const double rTail = r - rHead;
  const double squareHead = rHead * rHead;
  const double squareTail = rTail * (rHead + r);
  return {squareHead + squareTail, squareTail, FastSum<Tag>(1.0, -0.5 * squareHead)};
}

// Sine and cosine of a rest, each as a leading part and a correction of up to an eighth of it.
template <class Tag>
inline Pair SineOfRest(Pair rest, const CircularSquare& square) noexcept {
  const double low =
      rest.high * (square.z * Polynomial<Tag>(square.z, kSineTail)) + rest.low * square.oneLess.high;
  return {rest.high, low};
}

template <class Tag>
inline Pair CosineOfRest(Pair rest, const CircularSquare& square) noexcept {
  const double series = square.z * square.z * Polynomial<Tag>(square.z, kCosineTail);
  return {square.oneLess.high, (square.oneLess.low - 0.5 * square.tail) + (series - rest.high * rest.low)};
}

template <class Tag>
inline double SineCore(Pair rest) noexcept {
  const Pair sine = SineOfRest<Tag>(rest, SquareOfRest<Tag>(rest.high));
  return sine.high + sine.low;
}

template <class Tag>
inline double CosineCore(Pair rest) noexcept {
  const Pair cosine = CosineOfRest<Tag>(rest, SquareOfRest<Tag>(rest.high));
  return cosine.high + cosine.low;
}

struct SineAndCosine {
  Pair sine;
  Pair cosine;
};

template <class Tag>
inline SineAndCosine CircularCore(Pair rest) noexcept {
  const CircularSquare square = SquareOfRest<Tag>(rest.high);
  return {SineOfRest<Tag>(rest, square), CosineOfRest<Tag>(rest, square)};
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

inline constexpr std::array kHalfSigns{1.0, -1.0};

// The sine of an angle moved on by some quadrants, with one polynomial instead of the two of SineOf: on the
// way along a curve the quadrant seldom changes, so a single value does well to branch. The same bits.
template <class Tag>
inline double SinOfOneQuadrant(double x, std::uint64_t quadrants) noexcept {
  const ReducedAngle angle = ReduceAngle<Tag>(x);
  const std::uint64_t quadrant = angle.quadrant + quadrants;
  const double sign = kHalfSigns[(quadrant >> 1U) & 1U];
  return ((quadrant & 1U) != 0 ? CosineCore<Tag>(angle.rest) : SineCore<Tag>(angle.rest)) * sign;
}

template <class Tag>
inline double TangentOf(Pair rest, std::uint64_t quadrant) noexcept {
  const SineAndCosine core = CircularCore<Tag>(rest);
  const Pair sine = FastSum<Tag>(core.sine.high, core.sine.low);
  const Pair cosine = FastSum<Tag>(core.cosine.high, core.cosine.low);
  // In odd quadrants the tangent is -cos/sin of the rest.
  const std::uint64_t odd = OddMask<Tag>(quadrant);
  const Pair above{Blend<Tag>(odd, -cosine.high, sine.high), Blend<Tag>(odd, -cosine.low, sine.low)};
  const Pair below{Blend<Tag>(odd, sine.high, cosine.high), Blend<Tag>(odd, sine.low, cosine.low)};
  const Pair quotient = Quotient<Tag>(above, below);
  return quotient.high + quotient.low;
}

// The tangent of a plain angle, with a branch instead of the blends of TangentOf. The same bits.
template <class Tag>
inline double TanOfOneQuadrant(double x) noexcept {
  const ReducedAngle angle = ReduceAngle<Tag>(x);
  const SineAndCosine core = CircularCore<Tag>(angle.rest);
  const Pair sine = FastSum<Tag>(core.sine.high, core.sine.low);
  const Pair cosine = FastSum<Tag>(core.cosine.high, core.cosine.low);
  const Pair quotient = (angle.quadrant & 1U) != 0 ? Quotient<Tag>({-cosine.high, -cosine.low}, sine)
                                                   : Quotient<Tag>(sine, cosine);
  return quotient.high + quotient.low;
}

// Each for angles up to kLargestPlainAngle, else not-a-number.
template <class Tag>
inline double SinFast(double x) noexcept {
  const double result = SineOf<Tag>(ReduceAngle<Tag>(x));
  return IsPlainAngle<Tag>(x) ? result : kNotANumber;
}

template <class Tag>
inline double CosFast(double x) noexcept {
  const double result = CosineOf<Tag>(ReduceAngle<Tag>(x));
  return IsPlainAngle<Tag>(x) ? result : kNotANumber;
}

template <class Tag>
inline double TanFast(double x) noexcept {
  const ReducedAngle angle = ReduceAngle<Tag>(x);
  const double result = TangentOf<Tag>(angle.rest, angle.quadrant);
  return IsPlainAngle<Tag>(x) ? result : kNotANumber;
}

}  // namespace plotvane::functions::kernels
