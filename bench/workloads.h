// The fixed input of every measure: fourteen expressions, each in the words of every peer, over one span of
// x.
#pragma once

#include <array>
#include <span>
#include <vector>

namespace plotvane::bench {

// One expression. `native` is the hand-written C++ function of it, compiled apart and never inlined.
struct Workload {
  const char* name;
  const char* plotvane;
  const char* muParser;
  const char* lua;
  double (*native)(double x);
};

inline constexpr std::size_t kWorkloadCount = 14;

[[nodiscard]] std::span<const Workload, kWorkloadCount> Workloads();

// The coefficients that `a*x^2+b*x+c` finds by name in every peer.
struct Coefficients {
  double a = 0.25;
  double b = -1.5;
  double c = 3.0;
};

// The x values of the measures by call and by block: -10 to 10, none of them 0.
inline constexpr std::size_t kPointCount = 4096;
[[nodiscard]] std::vector<double> Points();

// The integral has 10^7 points between two poles of the tangent.
inline constexpr double kIntegralFrom = 2.0;
inline constexpr double kIntegralTo = 4.5;
inline constexpr double kIntegralWidth = 2.5e-7;

// True when both numbers agree to a relative 1e-9 (absolute below 1): peers reduce angles by another pi.
[[nodiscard]] bool Agree(double left, double right);

}  // namespace plotvane::bench
