// What this process holds of the system: handles and memory, counted from outside the component.
#pragma once

#include <cstddef>
#include <iosfwd>

namespace plotvane::tests {

// Handles of this process by kind: device contexts, bitmaps, pens and their like; windows, menus, accelerator
// tables, icons and pointers.
struct HandleCount {
  int drawing = 0;
  int windows = 0;
  int menus = 0;
  int acceleratorTables = 0;
  int icons = 0;

  friend bool operator==(const HandleCount&, const HandleCount&) = default;
};

// As text, for failures.
std::ostream& operator<<(std::ostream& out, const HandleCount& count);

// Looks at every place of the system's handle tables: Wine counts no handles itself, but takes the lower 16
// bits of a handle, which are its place, for the handle. Takes about a second.
[[nodiscard]] HandleCount OwnHandles();

// Bytes in use in all heaps of the process.
[[nodiscard]] std::size_t HeapBytes();

}  // namespace plotvane::tests
