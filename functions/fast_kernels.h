// FastKernels: the direct way of every kernel, for loops over arrays.
#pragma once

#include "functions/kernels/arctangent.h"
#include "functions/kernels/circular.h"
#include "functions/kernels/exponential.h"
#include "functions/kernels/logarithm.h"
#include "functions/kernels/power.h"

namespace plotvane::functions {

// For Plain<FastKernels<Tag>>: the bits of WholeRangeKernels where an argument allows the direct way, and a
// not-a-number where it does not.
template <class OwnTag>
struct FastKernels {
  using Tag = OwnTag;
  static double Sin(double x) noexcept { return kernels::SinFast<Tag>(x); }
  static double Cos(double x) noexcept { return kernels::CosFast<Tag>(x); }
  static double Tan(double x) noexcept { return kernels::TanFast<Tag>(x); }
  static double Atan(double x) noexcept { return kernels::AtanFast<Tag>(x); }
  static double Exp(double x) noexcept { return kernels::ExpFast<Tag>(x); }
  static double Log(double x) noexcept { return kernels::LogFast<Tag>(x); }
  template <int kExponent>
  static double WholePower(double base) noexcept {
    return kernels::WholePowerFast<Tag, kExponent>(base);
  }
  static double Pow(double base, double exponent) noexcept { return kernels::PowFast<Tag>(base, exponent); }
};

}  // namespace plotvane::functions
