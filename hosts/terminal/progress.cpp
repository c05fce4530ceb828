#include "hosts/terminal/progress.h"

#include <unistd.h>

#include <csignal>
#include <iostream>

namespace plotvane::terminal {

namespace {

constexpr std::chrono::milliseconds kLook{250};

// Signals are for the main thread, which may be waiting for input: a thread inherits what is blocked.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    ::sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &mBefore);
  }
  ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  ::sigset_t mBefore{};
};

}  // namespace

Progress::Progress() {
  if (::isatty(STDERR_FILENO) != 1) return;
  const SignalsBlocked blocked;
  mWatcher = std::thread([this] { Watch(); });
}

Progress::~Progress() {
  if (!mWatcher.joinable()) return;
  {
    const std::lock_guard lock(mMutex);
    mOver = true;
  }
  mWake.notify_one();
  mWatcher.join();
}

// The watcher is not woken: it looks often enough, and a line of input costs no more than this.
void Progress::Begin() {
  if (!mWatcher.joinable()) return;
  const std::lock_guard lock(mMutex);
  mBegin = Clock::now();
}

void Progress::End() {
  if (!mWatcher.joinable()) return;
  const std::lock_guard lock(mMutex);
  mBegin.reset();
  if (mShown) std::cerr << "\r\033[K" << std::flush;
  mShown = false;
}

void Progress::Watch() {
  std::unique_lock lock(mMutex);
  while (!mWake.wait_for(lock, kLook, [this] { return mOver; })) ShowIfLong();
}

void Progress::ShowIfLong() {
  if (!mBegin) return;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - *mBegin).count();
  if (seconds < 1) return;
  mShown = true;
  std::cerr << "\rworking, " << seconds << " s (Ctrl-C stops)" << std::flush;
}

}  // namespace plotvane::terminal
