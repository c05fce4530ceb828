#include "hosts/terminal/equation_check.h"

#include "hosts/terminal/equation.h"

namespace plotvane::terminal {

namespace {

// Enough to find a defined point of most functions; the golden section of the range avoids special points
// such as its middle.
constexpr int kTries = 16;
constexpr double kGoldenSection = 0.6180339887498949;

double PointWithin(double low, double high, int number) {
  const double turns = number * kGoldenSection;
  return low + (high - low) * (turns - static_cast<int>(turns));
}

void CheckEquation(const std::string& text, bool degrees, double low, double high) {
  Equation equation(text, degrees);
  for (int i = 0; i < kTries; ++i) {
    if (equation.At(PointWithin(low, high, i))) return;
    if (equation.FailedByItself()) throw BadEquation(text + ": " + equation.FailureText());
  }
}

}  // namespace

void CheckEquations(const std::vector<std::string>& equations, bool degrees, double low, double high) {
  for (const std::string& text : equations) CheckEquation(text, degrees, low, high);
}

}  // namespace plotvane::terminal
