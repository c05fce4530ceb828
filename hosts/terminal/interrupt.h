// Stopping the program's work with Ctrl-C.
#pragma once

#include <atomic>

namespace plotvane::terminal {

// Thrown where work was broken off; main turns it into the exit status. No error: nothing is told.
struct Interrupted {};

// From now on Ctrl-C only sets the flag, and a read that waits for input returns. One for the whole run.
void WatchForInterrupts();

// Set since the last TakeInterrupt. For expression objects (clsExp::SetStopFlag).
[[nodiscard]] const std::atomic<bool>& InterruptFlag() noexcept;

// Clears the flag; whether it was set.
bool TakeInterrupt() noexcept;

// Throws Interrupted when the flag is set.
void ThrowIfInterrupted();

}  // namespace plotvane::terminal
