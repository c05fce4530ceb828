// Exit statuses of the program.
#pragma once

namespace plotvane::terminal {

inline constexpr int kAllWell = 0;
inline constexpr int kSomethingFailed = 1;  // an expression, an equation, a file
inline constexpr int kBadUsage = 2;
// Stopped by a signal: InterruptStatus(), which is 130 after Ctrl-C.

}  // namespace plotvane::terminal
