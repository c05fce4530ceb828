#include "bench/picture_functions.h"

#include <cmath>

namespace plotvane::bench {
namespace {

double Line(double x) {
  return x / 2;
}
double Parabola(double x) {
  return x * x / 10 - 5;
}
double Sine(double x) {
  return 9 * std::sin(x);
}
double Cosine(double x) {
  return 6 * std::cos(2 * x);
}
double Bell(double x) {
  return 8 * std::exp(-x * x / 8);
}
double Root(double x) {
  return 3 * std::sqrt(std::abs(x)) - 5;
}
double Logarithm(double x) {
  return std::abs(x) * std::log(std::abs(x) + 1) / 3 - 8;
}
double Decay(double x) {
  return 8 * std::sin(x) / (1 + std::abs(x) / 4);
}
double Cubic(double x) {
  return x * x * x / 120 - x / 2;
}
double Ringing(double x) {
  return 9 * std::cos(x) * std::exp(-std::abs(x) / 5);
}

constexpr std::array<PictureFunction, 10> kFunctions{{
    {"x/2", "x/2", Line},
    {"x^2/10-5", "x**2/10-5", Parabola},
    {"9*sin(x)", "9*sin(x)", Sine},
    {"6*cos(2*x)", "6*cos(2*x)", Cosine},
    {"8*exp(-x^2/8)", "8*exp(-x**2/8)", Bell},
    {"3*sqr(abs(x))-5", "3*sqrt(abs(x))-5", Root},
    {"abs(x)*ln(abs(x)+1)/3-8", "abs(x)*log(abs(x)+1)/3-8", Logarithm},
    {"8*sin(x)/(1+abs(x)/4)", "8*sin(x)/(1+abs(x)/4)", Decay},
    {"x^3/120-x/2", "x**3/120-x/2", Cubic},
    {"9*cos(x)*exp(-abs(x)/5)", "9*cos(x)*exp(-abs(x)/5)", Ringing},
}};

}  // namespace

const std::array<PictureFunction, 10>& PictureFunctions() {
  return kFunctions;
}

}  // namespace plotvane::bench
