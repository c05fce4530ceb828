// Stopping the program's work: Ctrl-C, or the system asks the program to end.
#pragma once

#include <atomic>

namespace plotvane::terminal {

// Thrown where work was broken off; main turns it into the exit status. No error: nothing is told.
struct Interrupted {};

// From now on Ctrl-C, a request to end (SIGTERM) and a terminal that goes away (SIGHUP, unless it is ignored) only
// set the flag, and a read that waits for input returns. One for the whole run.
void WatchForInterrupts();

// Set since the last TakeInterrupt. For expression objects (clsExp::SetStopFlag).
[[nodiscard]] const std::atomic<bool>& InterruptFlag() noexcept;

// Clears the flag; whether it was set.
bool TakeInterrupt() noexcept;

// Throws Interrupted when the flag is set.
void ThrowIfInterrupted();

// Whether the program was asked to end, which no prompt outlives.
[[nodiscard]] bool MustEnd() noexcept;

// 128 and the number of the last signal that set the flag.
[[nodiscard]] int InterruptStatus() noexcept;

}  // namespace plotvane::terminal
