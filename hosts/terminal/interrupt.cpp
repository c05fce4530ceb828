#include "hosts/terminal/interrupt.h"

#include <csignal>

namespace plotvane::terminal {

namespace {

// A signal handler reaches nothing else.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void NoteInterrupt(int) {
  interrupted.store(true, std::memory_order_relaxed);
}

}  // namespace

void WatchForInterrupts() {
  struct sigaction action {};
  action.sa_handler = &NoteInterrupt;  // without SA_RESTART, so that a waiting read returns
  ::sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, nullptr);
}

const std::atomic<bool>& InterruptFlag() noexcept {
  return interrupted;
}

bool TakeInterrupt() noexcept {
  return interrupted.exchange(false, std::memory_order_relaxed);
}

void ThrowIfInterrupted() {
  if (interrupted.load(std::memory_order_relaxed)) throw Interrupted();
}

}  // namespace plotvane::terminal
