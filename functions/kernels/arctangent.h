// The arc tangent: |x| is moved next to 0 by a turn of 0, pi/4 or pi/2, then a minimax polynomial.
#pragma once

#include "functions/kernels/pairs.h"
#include "functions/kernels/polynomial.h"

namespace plotvane::functions::kernels {

// (atan t/t - 1)/z with z = t², for |t| up to tan(pi/8); z times it has an error below 7e-20.
inline constexpr std::array kArcTangentTail{
    -0x1.5555555555555p-2, 0x1.9999999999814p-3, -0x1.2492492481c18p-3, 0x1.c71c71bca3fbap-4,
    -0x1.745d156772709p-4, 0x1.3b137c1a7a837p-4, -0x1.110d2ec76b2ebp-4, 0x1.e17f3b163e13dp-5,
    -0x1.abcc4f4200982p-5, 0x1.7217519d74e14p-5, -0x1.14c00b06fc33bp-5, 0x1.fb8fa126fbd99p-7,
};

inline constexpr double kExactHalfPiHigh = 0x1.921fb54442d18p+0;
inline constexpr double kExactHalfPiLow = 0x1.1a62633145c07p-54;

// atan x for finite x, else not-a-number.
template <class Tag>
inline double AtanFast(double x) noexcept {
  constexpr double kTanEighthPi = 0.41421356237309503;
  constexpr double kTanThreeEighthsPi = 2.414213562373095;
  const double magnitude = Magnitude<Tag>(x);
  // atan x = turn + atan((x - 1)/(x + 1)) around 1, = turn + atan(-1/x) above.
  const bool middle = magnitude > kTanEighthPi;
  const bool far = magnitude > kTanThreeEighthsPi;
  const double less = magnitude - 1.0;
  const double more = magnitude + 1.0;
  const double lessLow = magnitude - (less + 1.0);
  const double moreLow = magnitude - (more - 1.0);
  const double nearAbove = middle ? less : magnitude;
  const double nearBelow = middle ? more : 1.0;
  const double nearAboveLow = middle ? lessLow : 0.0;
  const double nearBelowLow = middle ? moreLow : 0.0;
  const double nearTurn = middle ? kExactHalfPiHigh / 2 : 0.0;
  const double nearTurnLow = middle ? kExactHalfPiLow / 2 : 0.0;
  const Pair above{far ? -1.0 : nearAbove, far ? 0.0 : nearAboveLow};
  const Pair below{far ? magnitude : nearBelow, far ? 0.0 : nearBelowLow};
  const double turn = far ? kExactHalfPiHigh : nearTurn;
  const double turnLow = far ? kExactHalfPiLow : nearTurnLow;

  const Pair quotient = Quotient<Tag>(above, below);
  const Pair t = FastSum<Tag>(quotient.high, quotient.low);
  const double z = t.high * t.high;
  const double tail = t.low - t.low * z + t.high * (z * Polynomial<Tag>(z, kArcTangentTail));
  const Pair leading = FastSum<Tag>(turn, t.high);
  return WithSign<Tag>(leading.high + (leading.low + (turnLow + tail)), x);
}

}  // namespace plotvane::functions::kernels
