// The platform's uniform random generator: 24-bit linear congruence, one state for the whole process.
#pragma once

#include <cstdint>

namespace plotvane::platform {

class RandomGenerator {
 public:
  // The next value in [0, 1).
  float Next() noexcept;
  // The last value again; the value of the starting state before the first.
  [[nodiscard]] float Last() const noexcept;
  // Restarts from the bits of a negative seed, then gives the next value.
  float Restart(float seed) noexcept;

 private:
  std::uint32_t mState = 0x50000;
};

// The generator that every expression object of the process shares.
[[nodiscard]] RandomGenerator& SharedRandomGenerator() noexcept;

}  // namespace plotvane::platform
