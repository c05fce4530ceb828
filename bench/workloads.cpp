#include "bench/workloads.h"

#include <algorithm>
#include <cmath>

#include "bench/native.h"

namespace plotvane::bench {
namespace {

// The same polynomial in Horner's form for every peer: thirty products and thirty sums.
constexpr const char* kPolynomial =
    "(((((((((((((((((((((((((((((0.5*x+1)*x-2)*x+0.25)*x-1)*x+3)*x-0.5)*x+2)*x-1)*x+0.75)*x-3)"
    "*x+1)*x-2)*x+0.25)*x-1)*x+3)*x-0.5)*x+2)*x-1)*x+0.75)*x-3)"
    "*x+1)*x-2)*x+0.25)*x-1)*x+3)*x-0.5)*x+2)*x-1)*x+0.75)*x-3";

constexpr const char* kNested = "((((((((((x+1)*2-x)/3+4)*x-5)/6+x)*7-8)/9+x)*2-3)/4+x)*x)";

constexpr std::array<Workload, kWorkloadCount> kWorkloads = {{
    {"x", "x", "x", "x", native::Identity},
    {"x^2", "x^2", "x^2", "x^2", native::Square},
    {"3*x^3-2*x^2+x-7", "3*x^3-2*x^2+x-7", "3*x^3-2*x^2+x-7", "3*x^3-2*x^2+x-7", native::Cubic},
    {"sin(x)", "sin(x)", "sin(x)", "sin(x)", native::Sine},
    {"sin(x)^2+cos(x)^2", "sin(x)^2+cos(x)^2", "sin(x)^2+cos(x)^2", "sin(x)^2+cos(x)^2", native::Circle},
    {"exp(-x^2/2)/sqr(2*pi)", "exp(-x^2/2)/sqr(2*pi)", "exp(-(x^2)/2)/sqrt(2*_pi)", "exp(-x^2/2)/sqrt(2*pi)",
     native::Gauss},
    {"1/x", "1/x", "1/x", "1/x", native::Reciprocal},
    {"sqr(abs(x))", "sqr(abs(x))", "sqrt(abs(x))", "sqrt(abs(x))", native::RootOfAbs},
    {"abs(x)*ln(abs(x)+1)", "abs(x)*ln(abs(x)+1)", "abs(x)*ln(abs(x)+1)", "abs(x)*log(abs(x)+1)",
     native::AbsLog},
    {"a*x^2+b*x+c", "a*x^2+b*x+c", "a*x^2+b*x+c", "a*x^2+b*x+c", native::Quadratic},
    {"(x>0) and (x<5)", "(x>0) and (x<5)", "-((x>0) && (x<5))", "((x>0) and (x<5)) and -1 or 0",
     native::Between},
    {"ten nested brackets", kNested, kNested, kNested, native::Nested},
    {"60-operator polynomial", kPolynomial, kPolynomial, kPolynomial, native::Polynomial},
    {"tan(x)/(1+x^2)", "tan(x)/(1+x^2)", "tan(x)/(1+x^2)", "tan(x)/(1+x^2)", native::Tangent},
}};

}  // namespace

std::span<const Workload, kWorkloadCount> Workloads() {
  return kWorkloads;
}

std::vector<double> Points() {
  std::vector<double> points(kPointCount);
  const double step = 20.0 / static_cast<double>(kPointCount);
  for (std::size_t i = 0; i < kPointCount; ++i) points[i] = -10.0 + (static_cast<double>(i) + 0.5) * step;
  return points;
}

bool Agree(double left, double right) {
  const double scale = std::max({1.0, std::abs(left), std::abs(right)});
  return std::abs(left - right) <= 1e-9 * scale;
}

}  // namespace plotvane::bench
