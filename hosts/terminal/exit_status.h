// Exit statuses of the program.
#pragma once

namespace plotvane::terminal {

inline constexpr int kAllWell = 0;
inline constexpr int kSomethingFailed = 1;  // an expression, an equation, a file
inline constexpr int kBadUsage = 2;
inline constexpr int kInterrupted = 130;  // by Ctrl-C

}  // namespace plotvane::terminal
