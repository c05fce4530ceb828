// Focus: exact and special results of the kernels, and the same bits in every build.
#include "functions/kernels/kernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "functions/kernels/bits.h"

namespace plotvane::functions::kernels {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool Same(double a, double b) {
  return (a != a && b != b) || a == b;
}

TEST(Kernels, whole_powers_of_whole_numbers_are_exact) {
  for (int base = -40; base <= 40; ++base) {
    double product = 1;
    for (int exponent = 0; std::abs(product) <= 0x1p53 && exponent < 60; ++exponent, product *= base) {
      EXPECT_EQ(Pow(base, exponent), product) << base << '^' << exponent;
    }
  }
  EXPECT_EQ(Pow(10, -2), 0.01);
  EXPECT_EQ(Pow(10, 22), 1e22);
  EXPECT_EQ(Pow(4, 0.5), 2);
  EXPECT_EQ(Pow(2, -1074), 5e-324);
  EXPECT_EQ(Pow(2, 1023), 0x1p1023);
}

TEST(Kernels, short_negative_powers_of_ten_are_the_nearest_doubles) {
  constexpr double kNearest[] = {1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,  1e-10, 1e-11,
                                 1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18, 1e-19, 1e-20, 1e-21, 1e-22};
  double exponent = 0;
  for (const double nearest : kNearest) EXPECT_EQ(Pow(10, --exponent), nearest) << exponent;
}

TEST(Kernels, squares_are_the_rounded_products) {
  for (const double x : {0.1, -0.3, 1e-160, 1e-170, 1.4e154, 123456789.123}) EXPECT_EQ(Pow(x, 2), x * x) << x;
}

TEST(Kernels, powers_beyond_the_domain_and_the_range) {
  struct Case {
    double base, exponent, expected;
  };
  for (const Case& given : {Case{2, 1024, kInf},
                            {-2, 1025, -kInf},
                            {10, 1e300, kInf},
                            {10, -1e300, 0},
                            {0.5, 1e300, 0},
                            {1 + 1e-15, 1e300, kInf},
                            {0, 3, 0},
                            {0, -1, kInf},
                            {0, 0, 1},
                            {-8, 0, 1},
                            {1, 1e300, 1},
                            {-1, 1e300, 1},
                            {-1, 9007199254740991.0, -1},
                            {-8, 1.0 / 3, kNaN},
                            {-0.5, 0.5, kNaN},
                            {kInf, 2, kInf},
                            {kInf, -1, 0},
                            {-kInf, 3, -kInf},
                            {0.5, kInf, 0},
                            {2, kInf, kInf},
                            {kNaN, 1, kNaN},
                            {2, kNaN, kNaN},
                            {2, -1080, 0},
                            {5e-324, 1, 5e-324},
                            {5e-324, -1, kInf},
                            {1.7976931348623157e308, 1, 1.7976931348623157e308}}) {
    EXPECT_TRUE(Same(Pow(given.base, given.exponent), given.expected))
        << given.base << '^' << given.exponent << " = " << Pow(given.base, given.exponent);
  }
}

TEST(Kernels, other_special_results) {
  struct Case {
    double (*kernel)(double);
    double x, expected;
  };
  for (const Case& given : {Case{Exp, 0, 1},
                            {Exp, 710, kInf},
                            {Exp, -746, 0},
                            {Exp, kInf, kInf},
                            {Exp, -kInf, 0},
                            {Exp, kNaN, kNaN},
                            {Log, 1, 0},
                            {Log, 0, -kInf},
                            {Log, -1, kNaN},
                            {Log, kInf, kInf},
                            {Log, kNaN, kNaN},
                            {Sin, 0, 0},
                            {Cos, 0, 1},
                            {Tan, 0, 0},
                            {Sin, kInf, kNaN},
                            {Cos, -kInf, kNaN},
                            {Tan, kNaN, kNaN},
                            {Atan, 0, 0},
                            {Atan, kInf, 1.5707963267948966},
                            {Atan, -kInf, -1.5707963267948966},
                            {Atan, kNaN, kNaN},
                            {Atan, 1, 0.7853981633974483}}) {
    EXPECT_TRUE(Same(given.kernel(given.x), given.expected)) << given.x << ' ' << given.kernel(given.x);
  }
}

TEST(Kernels, floor_and_truncation_are_exact_everywhere) {
  for (const double x : {0.0, 0.5, 1.0, 1.5, 2.5, 0.9999999999999999, 4503599627370495.5, 4503599627370496.0,
                         4503599627370497.0, 1e300, 5e-324, 2147483647.5}) {
    for (const double signedX : {x, -x}) {
      EXPECT_EQ(Truncate<Portable>(signedX), std::trunc(signedX)) << signedX;
      EXPECT_EQ(Floor<Portable>(signedX), std::floor(signedX)) << signedX;
    }
  }
}

// A fixed sequence of arguments, made without any library function.
class Sequence {
 public:
  // A double with random sign and fraction and an exponent from 2^low to 2^(high-1).
  double Next(int low, int high) {
    const std::uint64_t bits = Step();
    const auto exponents = static_cast<std::uint64_t>(high - low);
    const std::uint64_t exponent = static_cast<std::uint64_t>(low + 1023) + Step() % exponents;
    return FromBits<Portable>((bits & 0x800FFFFFFFFFFFFFU) | (exponent << 52U));
  }

 private:
  std::uint64_t Step() {
    mState = mState * 6364136223846793005U + 1442695040888963407U;
    return mState ^ (mState >> 29U);
  }
  std::uint64_t mState = 1;
};

class Digest {
 public:
  void Add(double x) {
    const std::uint64_t bits = x == x ? Bits<Portable>(x) : 0x7FF8000000000000U;
    mHash = (mHash ^ bits) * 1099511628211U;
    mHash ^= mHash >> 32U;
  }
  [[nodiscard]] std::uint64_t Value() const { return mHash; }

 private:
  std::uint64_t mHash = 14695981039346656037U;
};

constexpr int kArguments = 200'000;

std::uint64_t DigestOf(double (*kernel)(double), int low, int high) {
  Sequence sequence;
  Digest digest;
  for (int i = 0; i < kArguments; ++i)
    digest.Add(kernel(i % 2 == 0 ? sequence.Next(low, high) : sequence.Next(-4, 4)));
  return digest.Value();
}

// The digests were taken from a build whose results were held against the exact values. They are the same for
// every compiler, system and word width.
TEST(Kernels, every_build_gives_the_same_bits) {
  EXPECT_EQ(DigestOf(Exp, -30, 10), 0xB4C32F923EBA60F6U);
  EXPECT_EQ(DigestOf(Log, -1022, 1024), 0x5916208AD4B7CB1AU);
  EXPECT_EQ(DigestOf(Sin, -30, 1024), 0x28CB313964039DD2U);
  EXPECT_EQ(DigestOf(Cos, -30, 1024), 0x92E1DD0DC235970EU);
  EXPECT_EQ(DigestOf(Tan, -30, 1024), 0x57BCF1A9AE7FE3C6U);
  EXPECT_EQ(DigestOf(Atan, -30, 60), 0x8BADF1357D596CADU);
  Sequence sequence;
  Digest powers;
  for (int i = 0; i < kArguments; ++i) {
    const double base = sequence.Next(-20, 20);
    const double exponent = sequence.Next(-6, 7);
    powers.Add(Pow(base, i % 3 == 0 ? Truncate<Portable>(exponent) : exponent));
    powers.Add(Pow(Magnitude<Portable>(base), exponent));
  }
  EXPECT_EQ(powers.Value(), 0xADDF3D79DF6ED78U);
}

}  // namespace
}  // namespace plotvane::functions::kernels
