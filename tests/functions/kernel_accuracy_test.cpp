// Focus: every kernel is within one unit in the last place of the exact value, over its whole range.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>

#include "functions/kernels/bits.h"
#include "functions/kernels/kernels.h"
#include "tests/functions/reference.h"

namespace plotvane::functions {
namespace {

using kernels::Portable;

constexpr int kPointsPerSet = 20'000;
constexpr double kAllowed = 1.0;

class Points {
 public:
  double Uniform(double low, double high) {
    return low + (high - low) * (static_cast<double>(mGenerator() >> 11U) * 0x1p-53);
  }
  // Uniform in its logarithm, from 2^low to 2^high.
  double Logarithmic(double low, double high) { return std::exp2(Uniform(low, high)); }
  // Any finite double, each bit pattern as likely as the others.
  double Any() {
    while (true) {
      const double x = kernels::FromBits<Portable>(mGenerator());
      if (std::isfinite(x)) return x;
    }
  }
  double AnyPositive() { return std::abs(Any()); }
  // The doubles next to a whole multiple of pi/2.
  double NearRightAngle() {
    double x = static_cast<double>(mGenerator() % 2'000'000) * 1.5707963267948966;
    for (auto steps = mGenerator() % 4; steps > 0; --steps) x = std::nextafter(x, 1e300);
    return x;
  }

 private:
  std::mt19937_64 mGenerator{20'000};
};

// The worst error of one function over all its sets; printed at the end.
class Worst {
 public:
  explicit Worst(const char* name) : mName(name) {}
  ~Worst() { std::printf("%-5s worst error %.4f units at %a %a\n", mName, mError, mX, mY); }
  Worst(const Worst&) = delete;
  Worst& operator=(const Worst&) = delete;

  void Add(double error, double x, double y = 0) {
    // A not-a-number counts as the worst.
    if (error <= mError) return;
    mError = error;
    mX = x;
    mY = y;
  }
  [[nodiscard]] double Error() const { return mError; }

 private:
  const char* mName;
  double mError = 0;
  double mX = 0;
  double mY = 0;
};

template <class Kernel>
class OfOne {
 public:
  OfOne(const char* name, Kernel kernel, reference::OfOne exact)
      : mWorst(name), mKernel(kernel), mExact(exact) {}

  void At(double x) { mWorst.Add(reference::ErrorOf(mKernel(x), mExact, x), x); }
  template <class Generate>
  void Set(Generate generate) {
    for (int i = 0; i < kPointsPerSet; ++i) At(generate());
  }
  void Grid(double low, double high) {
    for (int i = 0; i <= kPointsPerSet; ++i) At(low + (high - low) * i / kPointsPerSet);
  }
  [[nodiscard]] double Error() const { return mWorst.Error(); }

 private:
  Worst mWorst;
  Kernel mKernel;
  reference::OfOne mExact;
};

TEST(KernelAccuracy, exponential) {
  Points points;
  OfOne test("exp", kernels::Exp, mpfr_exp);
  test.Grid(-745.1, 709.78);
  test.Grid(-1, 1);
  test.Set([&] { return points.Uniform(-745.13, -708); });
  test.Set([&] { return points.Uniform(-745.13, 709.78); });
  test.Set([&] { return points.Uniform(-2, 2); });
  test.Set([&] { return std::copysign(points.Logarithmic(-1074, 0), points.Uniform(-1, 1)); });
  for (const double x : {709.782712893384, -745.1332191019411, -708.3964185322641, -744.4400719213812,
                         0x1.0p-53, -0x1.0p-54, 0x1.62e42fefa39efp-2, 0x1.62e42fefa39f0p-2}) {
    test.At(x);
  }
  EXPECT_LE(test.Error(), kAllowed);
}

TEST(KernelAccuracy, logarithm) {
  Points points;
  OfOne test("log", kernels::Log, mpfr_log);
  test.Grid(0.25, 4);
  test.Set([&] { return points.AnyPositive(); });
  test.Set([&] { return points.Uniform(0.5, 2); });
  test.Set([&] { return points.Uniform(0.69, 0.72); });
  test.Set([&] { return 1 + points.Logarithmic(-52, -1); });
  test.Set([&] { return 1 - points.Logarithmic(-53, -1); });
  test.Set([&] { return points.Logarithmic(-1074, -1020); });
  for (const double x : {5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 0x1.6a09e667f3bcdp-1,
                         0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bcdp0, 1.0000000000000002, 0.9999999999999999}) {
    test.At(x);
  }
  EXPECT_LE(test.Error(), kAllowed);
}

template <class Test>
void AddAngles(Test& test, Points& points) {
  test.Grid(-0.8, 0.8);
  test.Grid(-10, 10);
  test.Grid(-900'000, 900'000);
  test.Set([&] { return points.Uniform(-7, 7); });
  test.Set([&] { return points.Any(); });
  test.Set([&] { return points.NearRightAngle(); });
  test.Set([&] { return points.Logarithmic(-1074, 0); });
  test.Set([&] { return points.Logarithmic(10, 30); });
  // The double closest to a multiple of pi/2 of all, the bound of the direct reduction, and the ends of the
  // range.
  for (const double x :
       {6381956970095103.0 * 0x1p797, 823549.0, 823549.0000000001, -823550.0, 5e-324, 1.7976931348623157e308,
        1e22, 3.141592653589793, 1.5707963267948966, 0.7853981633974483, 0.7853981633974484}) {
    test.At(x);
    test.At(-x);
  }
}

TEST(KernelAccuracy, sine) {
  Points points;
  OfOne test("sin", kernels::Sin, mpfr_sin);
  AddAngles(test, points);
  EXPECT_LE(test.Error(), kAllowed);
}

TEST(KernelAccuracy, cosine) {
  Points points;
  OfOne test("cos", kernels::Cos, mpfr_cos);
  AddAngles(test, points);
  EXPECT_LE(test.Error(), kAllowed);
}

TEST(KernelAccuracy, tangent) {
  Points points;
  OfOne test("tan", kernels::Tan, mpfr_tan);
  AddAngles(test, points);
  EXPECT_LE(test.Error(), kAllowed);
}

TEST(KernelAccuracy, arc_tangent) {
  Points points;
  OfOne test("atan", kernels::Atan, mpfr_atan);
  test.Grid(-3, 3);
  test.Set([&] { return points.Any(); });
  test.Set([&] { return points.Uniform(0.41, 0.43); });
  test.Set([&] { return points.Uniform(2.4, 2.43); });
  test.Set([&] { return points.Logarithmic(-1074, -1); });
  test.Set([&] { return points.Logarithmic(-10, 70); });
  for (const double x : {0.41421356237309503, 0.4142135623730951, 2.414213562373095, 2.4142135623730954, 1.0,
                         5e-324, 1.7976931348623157e308}) {
    test.At(x);
  }
  EXPECT_LE(test.Error(), kAllowed);
}

TEST(KernelAccuracy, power) {
  Points points;
  Worst worst("pow");
  const auto at = [&](double x, double y) {
    const double power = kernels::Pow(x, y);
    if (std::isinf(power)) return;  // the range is tested by its own test
    worst.Add(reference::ErrorOf(power, mpfr_pow, x, y), x, y);
  };
  const auto set = [&](auto base, auto scaledLogarithm) {
    for (int i = 0; i < kPointsPerSet; ++i) {
      const double x = base();
      at(x, scaledLogarithm() / std::log(x));
    }
  };
  const auto anyResult = [&] { return points.Uniform(-745, 709.7); };
  set([&] { return points.AnyPositive(); }, anyResult);
  set([&] { return points.Uniform(0.7, 1.42); }, anyResult);
  set([&] { return points.Uniform(1.39, 1.4143); }, [&] { return points.Uniform(600, 709.7); });
  set([&] { return points.Uniform(0.7071, 0.72); }, [&] { return points.Uniform(600, 709.7); });
  set([&] { return 1 + points.Logarithmic(-52, -1); }, anyResult);
  set([&] { return 1 - points.Logarithmic(-53, -1); }, anyResult);
  set([&] { return points.Logarithmic(-1074, 1000); }, [&] { return points.Uniform(-745, -708); });
  set([&] { return points.AnyPositive(); }, [&] { return points.Logarithmic(-60, 0); });
  for (int i = 0; i < kPointsPerSet; ++i) {
    at(points.Uniform(0, 10), points.Uniform(-10, 10));
    at(points.Uniform(-20, 20), std::floor(points.Uniform(-30, 30)));
    at(points.Uniform(-100, 100), 2);
    at(points.Uniform(-100, 100), 3);
    at(points.Logarithmic(-340, 340), 3);
    at(points.Uniform(0, 100), 0.5);
  }
  EXPECT_LE(worst.Error(), kAllowed);
}

}  // namespace
}  // namespace plotvane::functions
