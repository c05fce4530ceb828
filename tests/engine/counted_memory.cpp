#include "tests/engine/counted_memory.h"

#include <cstdlib>
#include <new>

namespace {

plotvane::engine::test::MemoryCount gCount;

}  // namespace

namespace plotvane::engine::test {

MemoryCount CountedMemory() noexcept {
  return gCount;
}

}  // namespace plotvane::engine::test

void* operator new(std::size_t size) {
  ++gCount.allocations;
  gCount.bytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return ::operator new(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
