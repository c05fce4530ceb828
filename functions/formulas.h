// The formulas of the mathematical operations, each written once for any kind of number.
//
// `Real` is Trapped (a number under the error trap) or Plain (a bare double; failures show as non-finite
// results). Both give the same bits. Where a formula loses accuracy (inverse hyperbolic functions from
// logarithms) or has a gap (the inverse sine of -1 divides by zero), that is its definition here and is kept.
#pragma once

namespace plotvane::functions::formulas {

// The system's pi: the double nearest to this 15-digit decimal, not the one nearest to pi. All special cases
// compare against values computed from it.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kHalfPi = kPi / 2;
inline constexpr double kThreeHalvesPi = 4.712388980384685;
inline constexpr double kDegreesPerRadian = 57.29577951308238;
inline constexpr double kRadiansPerDegree = 0.017453292519943278;
static_assert(kThreeHalvesPi == 3.0 / 2.0 * kPi);

// The right angle from the arc tangent, to full precision; the formulas of the inverse functions shift by it.
template <class Real>
Real TwiceArcTanOfOne() {
  return Real(2) * Atan(Real(1));
}

// --- Remainders and rounding

// Keeps the fraction and takes the sign of `number`.
template <class Real>
Real DecimalMod(Real number, Real modulus) {
  return number - modulus * Truncate(number / modulus);
}

template <class Real>
Real GetDecimal(Real x) {
  return x - Truncate(x);
}

// Ties go upward: 2.5 gives 3, -2.5 gives -2.
template <class Real>
Real Round(Real number, Real places) {
  const Real unit = Pow(Real(10), -places);
  return Floor(number / unit + Real(0.5)) * unit;
}

// --- Angles

template <class Real>
Real RadiansOver2PiN(Real x) {
  return DecimalMod(x, Real(2 * kPi));
}

template <class Real>
Real DegreesOver360N(Real x) {
  return DecimalMod(x, Real(360));
}

template <class Real>
Real RadiansToDegrees(Real x) {
  return RadiansOver2PiN(x) * Real(kDegreesPerRadian);
}

template <class Real>
Real DegreesToRadians(Real x) {
  return DegreesOver360N(x) * Real(kRadiansPerDegree);
}

// --- Trigonometric functions: radians in, radians out
//
// Multiples of the right angle have exact values by rule. Where those are 1 or -1 the kernels give them
// anyway.

template <class Real>
Real Sine(Real x) {
  return Choose(Equals(x, kPi), Real(0), Sin(x));
}

template <class Real>
Real Cosine(Real x) {
  const Real atThreeHalves = Choose(Equals(x, kThreeHalvesPi), Real(0), Cos(x));
  return Choose(Equals(x, kHalfPi), Real(0), atThreeHalves);
}

// The misspelt name is the public name.
template <class Real>
Real Tangeant(Real x) {
  const Real atThreeHalves = Choose(Equals(x, kThreeHalvesPi), Real::Undefined(), Tan(x));
  return Choose(Equals(x, kHalfPi), Real::Undefined(), atThreeHalves);
}

// Reciprocals of the plain kernels: the special angles above play no part.
template <class Real>
Real Sec(Real x) {
  return Real(1) / Cos(x);
}

template <class Real>
Real Csc(Real x) {
  return Real(1) / Sin(x);
}

template <class Real>
Real Ctn(Real x) {
  return Real(1) / Tan(x);
}

template <class Real>
Real ArcSin(Real x) {
  const Real general = Atan(x / Sqrt(Real(1) - x * x));
  return Choose(Equals(x, 1), Real(kHalfPi), general);
}

template <class Real>
Real ArcCos(Real x) {
  const Real general = Atan(-x / Sqrt(Real(1) - x * x)) + TwiceArcTanOfOne<Real>();
  return Choose(Equals(x, 1), Real(0), general);
}

template <class Real>
Real ArcSec(Real x) {
  return Atan(x / Sqrt(x * x - Real(1))) + Sign(x - Real(1)) * TwiceArcTanOfOne<Real>();
}

template <class Real>
Real ArcCsc(Real x) {
  return Atan(Real(1) / Sqrt(x * x - Real(1))) + (Sign(x) - Real(1)) * TwiceArcTanOfOne<Real>();
}

template <class Real>
Real ArcTan(Real x) {
  return Choose(Equals(x, 1), Real(kPi / 4), Atan(x));
}

template <class Real>
Real ArcCtn(Real x) {
  return Choose(Equals(x, 1), Real(3.0 / 4.0 * kPi), Atan(x) + TwiceArcTanOfOne<Real>());
}

// --- Hyperbolic functions, from e^x and e^-x

template <class Real>
Real HSin(Real x) {
  return (Exp(x) - Exp(-x)) / Real(2);
}

template <class Real>
Real HCos(Real x) {
  return (Exp(x) + Exp(-x)) / Real(2);
}

template <class Real>
Real HTan(Real x) {
  const Real up = Exp(x);
  const Real down = Exp(-x);
  return (up - down) / (up + down);
}

template <class Real>
Real HSec(Real x) {
  return Real(2) / (Exp(x) + Exp(-x));
}

template <class Real>
Real HCsc(Real x) {
  return Real(2) / (Exp(x) - Exp(-x));
}

template <class Real>
Real HCtn(Real x) {
  const Real up = Exp(x);
  const Real down = Exp(-x);
  return (up + down) / (up - down);
}

template <class Real>
Real HArcSin(Real x) {
  return Log(x + Sqrt(x * x + Real(1)));
}

template <class Real>
Real HArcCos(Real x) {
  return Log(x + Sqrt(x * x - Real(1)));
}

template <class Real>
Real HArcTan(Real x) {
  return Log((Real(1) + x) / (Real(1) - x)) / Real(2);
}

template <class Real>
Real HArcSec(Real x) {
  return Log((Sqrt(Real(1) - x * x) + Real(1)) / x);
}

template <class Real>
Real HArcCsc(Real x) {
  return Log((Sign(x) * Sqrt(x * x + Real(1)) + Real(1)) / x);
}

template <class Real>
Real HArcCtn(Real x) {
  return Log((x + Real(1)) / (x - Real(1))) / Real(2);
}

// --- Logarithms and powers of ten

template <class Real>
Real LogN(Real x, Real base) {
  return Log(x) / Log(base);
}

template <class Real>
Real Log10(Real x) {
  return LogN(x, Real(10));
}

template <class Real>
Real ScientificNotation(Real x, Real exponent) {
  return x * Pow(Real(10), exponent);
}

}  // namespace plotvane::functions::formulas
