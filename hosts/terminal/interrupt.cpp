#include "hosts/terminal/interrupt.h"

#include <csignal>

namespace plotvane::terminal {

namespace {

// A signal handler reaches nothing else.
std::atomic<bool> interrupted{false};
std::atomic<int> lastSignal{0};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free);

extern "C" void NoteInterrupt(int signal) {
  // The first request to end is what the program ends with.
  if (!MustEnd()) lastSignal.store(signal, std::memory_order_relaxed);
  interrupted.store(true, std::memory_order_relaxed);
}

}  // namespace

void WatchForInterrupts() {
  struct sigaction action {};
  action.sa_handler = &NoteInterrupt;  // without SA_RESTART, so that a waiting read returns
  ::sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
  struct sigaction before {};
  ::sigaction(SIGHUP, nullptr, &before);
  if (before.sa_handler != SIG_IGN) ::sigaction(SIGHUP, &action, nullptr);
}

const std::atomic<bool>& InterruptFlag() noexcept {
  return interrupted;
}

bool MustEnd() noexcept {
  const int signal = lastSignal.load(std::memory_order_relaxed);
  return signal == SIGTERM || signal == SIGHUP;
}

int InterruptStatus() noexcept {
  return 128 + lastSignal.load(std::memory_order_relaxed);
}

bool TakeInterrupt() noexcept {
  return interrupted.exchange(false, std::memory_order_relaxed);
}

void ThrowIfInterrupted() {
  if (interrupted.load(std::memory_order_relaxed)) throw Interrupted();
}

}  // namespace plotvane::terminal
