#include "functions/growth.h"

#include "functions/kernels/exponential.h"
#include "functions/kernels/kernels.h"
#include "functions/kernels/power.h"

namespace plotvane::functions::growth {

namespace {

using kernels::Pair;
using kernels::Portable;
using platform::StandardError;

// ln(1+r) as a pair, r above -1. The part of r that the sum 1+r cannot hold is a relative change below 2^-53,
// so it adds itself to the logarithm.
Pair LogarithmPairOfOnePlus(double r) {
  const Pair sum = kernels::Difference<Portable>(1.0, -r);
  const Pair logarithm = kernels::LogarithmPair<Portable>(kernels::SplitNormal<Portable>(sum.high));
  return kernels::FastSum<Portable>(logarithm.high, logarithm.low + sum.low / sum.high);
}

// e^x − 1, for a low part within the last place of the high one.
double ExponentialMinusOne(Pair x) {
  constexpr double kHalfLn2 = 0.34657359027997264;
  if (kernels::Magnitude<Portable>(x.high) <= kHalfLn2) {
    const double r = x.high;
    const double tail = 0.5 + r * kernels::Polynomial<Portable>(r, kernels::kExponentialTail);
    return r + (x.low + r * (x.low + r * tail));
  }
  kernels::ScaledExponential scaled = kernels::ExponentialCore<Portable>(x);
  const double whole = kernels::ScaleNormal<Portable>({{1.0, 0.0}, scaled.powerBits, scaled.power});
  const Pair difference = kernels::Difference<Portable>(whole * scaled.mantissa.high, 1.0);
  return difference.high + (difference.low + whole * scaled.mantissa.low);
}

}  // namespace

Trapped LogarithmOfOnePlus(Trapped r) {
  if (!r.Ok()) return r;
  if (r.Get() <= -1) return StandardError::InvalidCall;
  const Pair logarithm = LogarithmPairOfOnePlus(r.Get());
  return logarithm.high + logarithm.low;
}

Growth Compound(double r, double n) {
  if (r <= -1) {
    const Trapped factor = Pow(Trapped(r) + Trapped(1), Trapped(n));
    return {factor, factor - Trapped(1)};
  }
  const Pair product = kernels::Product<Portable>({n, 0.0}, LogarithmPairOfOnePlus(r));
  const Pair exponent = kernels::FastSum<Portable>(product.high, product.low);
  const double factor = kernels::ExpOfPair(exponent);
  // Far from 1 the difference loses nothing.
  if (!(kernels::Magnitude<Portable>(exponent.high) <= kernels::kLargestPlainExponent)) {
    return {factor, factor - 1.0};
  }
  return {factor, ExponentialMinusOne(exponent)};
}

}  // namespace plotvane::functions::growth
