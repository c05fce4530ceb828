#include "bench/native.h"

#include <cmath>
#include <numbers>

namespace plotvane::bench::native {

Coefficients gCoefficients;

double Identity(double x) {
  return x;
}
double Square(double x) {
  return x * x;
}
double Cubic(double x) {
  return 3 * x * x * x - 2 * x * x + x - 7;
}
double Sine(double x) {
  return std::sin(x);
}
double Circle(double x) {
  const double s = std::sin(x);
  const double c = std::cos(x);
  return s * s + c * c;
}
double Gauss(double x) {
  return std::exp(-x * x / 2) / std::sqrt(2 * std::numbers::pi);
}
double Reciprocal(double x) {
  return 1 / x;
}
double RootOfAbs(double x) {
  return std::sqrt(std::abs(x));
}
double AbsLog(double x) {
  return std::abs(x) * std::log(std::abs(x) + 1);
}
double Quadratic(double x) {
  return gCoefficients.a * x * x + gCoefficients.b * x + gCoefficients.c;
}
double Between(double x) {
  return x > 0 && x < 5 ? -1 : 0;
}
double Nested(double x) {
  return ((((((((((x + 1) * 2 - x) / 3 + 4) * x - 5) / 6 + x) * 7 - 8) / 9 + x) * 2 - 3) / 4 + x) * x);
}

double Polynomial(double x) {
  double y = 0.5 * x + 1;
  y = ((((((((y * x - 2) * x + 0.25) * x - 1) * x + 3) * x - 0.5) * x + 2) * x - 1) * x + 0.75) * x - 3;
  y = (((((((((y * x + 1) * x - 2) * x + 0.25) * x - 1) * x + 3) * x - 0.5) * x + 2) * x - 1) * x + 0.75) *
          x -
      3;
  return (((((((((y * x + 1) * x - 2) * x + 0.25) * x - 1) * x + 3) * x - 0.5) * x + 2) * x - 1) * x + 0.75) *
             x -
         3;
}

double Tangent(double x) {
  return std::tan(x) / (1 + x * x);
}

}  // namespace plotvane::bench::native
