// RunWithStack: runs a function in a thread whose stack has a given size; it crashes when the stack is too
// small.
#pragma once

#include <cstddef>
#include <functional>

namespace plotvane::engine::test {

void RunWithStack(std::size_t bytes, const std::function<void()>& function);

}  // namespace plotvane::engine::test
