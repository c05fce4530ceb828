#include "functions/kernels/kernels.h"

#include <cmath>

namespace plotvane::functions::kernels {

double Sin(double x) noexcept {
  return std::sin(x);
}
double Cos(double x) noexcept {
  return std::cos(x);
}
double Tan(double x) noexcept {
  return std::tan(x);
}
double Atan(double x) noexcept {
  return std::atan(x);
}
double Exp(double x) noexcept {
  return std::exp(x);
}
double Log(double x) noexcept {
  return std::log(x);
}
double Pow(double base, double exponent) noexcept {
  return std::pow(base, exponent);
}

}  // namespace plotvane::functions::kernels
