#include "functions/kernels/circular_reduction.h"

#include <array>
#include <cstddef>

namespace plotvane::functions::kernels {

namespace {

// The bits of 2/pi after the point, 32 at a time.
constexpr std::array<std::uint32_t, 40> kTwoOverPi{
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB, 0xDEBBC561,
    0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C, 0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484,
    0xE99C7026, 0xB45F7E41, 0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D, 0x7527BAC7, 0xEBE5F17B,
    0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08, 0x56033046, 0xFC7B6BAB, 0xF0CFBC20, 0x9AF4361D,
};

// Limbs of 2/pi that take part: the 53 bits of x, the two bits of the quadrant and at least 160 bits of
// fraction.
constexpr std::size_t kUsedLimbs = 8;
// The product has two limbs more, for x.
constexpr std::size_t kProductLimbs = kUsedLimbs + 2;

// A whole number, lowest limb first.
using Limbs = std::array<std::uint32_t, kProductLimbs>;

constexpr std::uint32_t Low(std::uint64_t x) {
  return static_cast<std::uint32_t>(x & 0xFFFFFFFFU);
}

// mantissa (53 bits) times the used limbs of 2/pi.
Limbs Multiply(std::uint64_t mantissa, std::size_t firstLimb) noexcept {
  Limbs product{};
  const std::array<std::uint64_t, 2> factors{mantissa & 0xFFFFFFFFU, mantissa >> 32U};
  for (std::size_t f = 0; f < factors.size(); ++f) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < kUsedLimbs; ++i) {
      const std::uint64_t limb = kTwoOverPi[firstLimb + kUsedLimbs - 1 - i];
      const std::uint64_t sum = factors[f] * limb + product[f + i] + carry;
      product[f + i] = Low(sum);
      carry = sum >> 32U;
    }
    product[f + kUsedLimbs] = Low(carry);
  }
  return product;
}

// `count` bits further left; bits beyond the top are lost.
Limbs ShiftLeft(const Limbs& x, std::size_t count) noexcept {
  Limbs shifted{};
  const std::size_t whole = count / 32;
  const std::size_t part = count % 32;
  for (std::size_t i = whole; i < kProductLimbs; ++i) {
    const std::uint64_t upper = std::uint64_t{x[i - whole]} << 32U;
    const std::uint64_t lower = i > whole ? x[i - whole - 1] : 0;
    shifted[i] = static_cast<std::uint32_t>(((upper | lower) << part) >> 32U);
  }
  return shifted;
}

// 2^n as a double, for normal results.
double PowerOfTwo(int n) noexcept {
  return FromBits<Portable>(static_cast<std::uint64_t>(n + 1023) << 52U);
}

// A fraction below one half (point above the top limb) as a pair, from the four limbs that follow its leading
// zeros.
Pair ToPair(const Limbs& fraction) noexcept {
  std::size_t top = kProductLimbs - 1;
  while (top > 3 && fraction[top] == 0) --top;
  const auto part = [&](std::size_t below) {
    const std::size_t limb = top - below;
    return fraction[limb] * PowerOfTwo(-32 * static_cast<int>(kProductLimbs - limb));
  };
  const Pair two = FastSum<Portable>(part(0), part(1));
  const Pair three = FastSum<Portable>(two.high, two.low + part(2));
  return FastSum<Portable>(three.high, three.low + part(3));
}

// The fraction's distance to the next whole number.
Limbs Negate(const Limbs& x) noexcept {
  Limbs negated{};
  std::uint64_t carry = 1;
  for (std::size_t i = 0; i < kProductLimbs; ++i) {
    carry += static_cast<std::uint32_t>(~x[i]);
    negated[i] = Low(carry);
    carry >>= 32U;
  }
  return negated;
}

}  // namespace

ReducedAngle ReduceLargeAngle(double x) noexcept {
  constexpr Pair kHalfPi{0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};
  const std::uint64_t bits = Bits<Portable>(x);
  const int exponent = static_cast<int>((bits >> 52U) & 0x7FFU) - 1075;  // |x| = mantissa · 2^exponent
  const std::uint64_t mantissa = (bits & 0x000FFFFFFFFFFFFFU) | 0x0010000000000000U;
  // Limbs whose products are multiples of four turns of a quadrant stay out.
  const std::size_t firstLimb = exponent < 34 ? 0 : static_cast<std::size_t>((exponent - 2) / 32);
  const Limbs product = Multiply(mantissa, firstLimb);
  // The point stands so many bits above the lowest one.
  const std::size_t fractionBits =
      static_cast<std::size_t>(32 * static_cast<int>(firstLimb + kUsedLimbs) - exponent);
  const Limbs quadrantOnTop = ShiftLeft(product, 32 * kProductLimbs - 2 - fractionBits);
  Limbs fraction = ShiftLeft(quadrantOnTop, 2);
  std::uint64_t quadrant = quadrantOnTop.back() >> 30U;
  const bool upperHalf = (fraction.back() >> 31U) != 0;
  if (upperHalf) {
    fraction = Negate(fraction);
    ++quadrant;
  }
  const Pair rest = Product<Portable>(ToPair(fraction), kHalfPi);
  const Pair normalised = FastSum<Portable>(rest.high, rest.low);
  const bool negative = x < 0;
  const double sign = upperHalf != negative ? -1.0 : 1.0;
  return {{sign * normalised.high, sign * normalised.low}, negative ? std::uint64_t{0} - quadrant : quadrant};
}

}  // namespace plotvane::functions::kernels
