#include "platform/random.h"

#include <bit>

namespace plotvane::platform {

namespace {

constexpr std::uint32_t kMultiplier = 0x43FD43FD;
constexpr std::uint32_t kIncrement = 0xC39EC3;
constexpr std::uint32_t kStateMask = 0xFFFFFF;  // 24 bits

}  // namespace

float RandomGenerator::Next() noexcept {
  mState = (mState * kMultiplier + kIncrement) & kStateMask;
  return Last();
}

// A 24-bit state is exact in a 32-bit float.
float RandomGenerator::Last() const noexcept {
  return static_cast<float>(mState) / 0x1p24F;
}

float RandomGenerator::Restart(float seed) noexcept {
  const auto bits = std::bit_cast<std::uint32_t>(seed);
  mState = (bits + (bits >> 24U)) & kStateMask;
  return Next();
}

RandomGenerator& SharedRandomGenerator() noexcept {
  static RandomGenerator generator;
  return generator;
}

}  // namespace plotvane::platform
