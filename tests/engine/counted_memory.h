// CountedMemory: what the program asked of the allocation functions of the language, which this replaces.
#pragma once

#include <cstddef>

namespace plotvane::engine::test {

struct MemoryCount {
  std::size_t allocations = 0;
  std::size_t bytes = 0;  // given back or not
};

[[nodiscard]] MemoryCount CountedMemory() noexcept;

}  // namespace plotvane::engine::test
