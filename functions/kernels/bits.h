// Bit-level building blocks of the kernels: no branches, no library calls, only what vectorises with SSE2.
//
// Everything is a template over an unused tag, so that a file compiled for a wider instruction set can
// instantiate its own copies (with a tag of its own unnamed namespace) and never shares code with the rest of
// the program.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace plotvane::functions::kernels {

// The tag of the code that every processor runs.
struct Portable {};

inline constexpr std::uint64_t kSignBit = 0x8000000000000000U;
inline constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

// 1.5 * 2^52: adding it rounds a number below 2^51 to a whole one, whose two's complement then stands in the
// low bits.
inline constexpr double kRoundToWhole = 6755399441055744.0;
inline constexpr double kTwo52 = 4503599627370496.0;

template <class Tag>
inline std::uint64_t Bits(double x) noexcept {
  return std::bit_cast<std::uint64_t>(x);
}

template <class Tag>
inline double FromBits(std::uint64_t bits) noexcept {
  return std::bit_cast<double>(bits);
}

template <class Tag>
inline double Magnitude(double x) noexcept {
  return std::fabs(x);
}

// `magnitude` (not negative) with the sign of `sign`.
template <class Tag>
inline double WithSign(double magnitude, double sign) noexcept {
  return FromBits<Tag>(Bits<Tag>(magnitude) | (Bits<Tag>(sign) & kSignBit));
}

// `x` cut to its leading 26 bits: the product of two such numbers is exact.
template <class Tag>
inline double Head(double x) noexcept {
  return FromBits<Tag>(Bits<Tag>(x) & 0xFFFFFFFFF8000000U);
}

// `chosen` where every bit of `mask` is set, `other` where none is.
template <class Tag>
inline double Blend(std::uint64_t mask, double chosen, double other) noexcept {
  return FromBits<Tag>((Bits<Tag>(chosen) & mask) | (Bits<Tag>(other) & ~mask));
}

// Rounded toward zero; exact for every argument, keeps the sign of zero.
template <class Tag>
inline double Truncate(double x) noexcept {
  const double magnitude = Magnitude<Tag>(x);
  const double nearest = (magnitude + kTwo52) - kTwo52;
  const double below = nearest - 1.0;
  const double whole = nearest > magnitude ? below : nearest;
  return WithSign<Tag>(magnitude < kTwo52 ? whole : magnitude, x);
}

// The greatest whole number not above x.
template <class Tag>
inline double Floor(double x) noexcept {
  const double whole = Truncate<Tag>(x);
  const double below = whole - 1.0;
  return whole > x ? below : whole;
}

}  // namespace plotvane::functions::kernels
