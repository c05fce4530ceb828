// Progress: a note on the terminal while work takes longer than a second.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace plotvane::terminal {

// Writes "working, 3 s (Ctrl-C stops)" to standard error once a second, from the first second on, and takes
// it away again at the end of the work. Does nothing where standard error is no terminal.
class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // One piece of work; the note is gone when it ends.
  class Work {
   public:
    explicit Work(Progress& progress) : mProgress(progress) { mProgress.Begin(); }
    ~Work() { mProgress.End(); }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

   private:
    Progress& mProgress;
  };

 private:
  using Clock = std::chrono::steady_clock;

  void Begin();
  void End();
  void Watch();
  void ShowIfLong();

  std::mutex mMutex;
  std::condition_variable mWake;
  std::optional<Clock::time_point> mBegin;  // of the work in progress
  bool mShown = false;
  bool mOver = false;
  std::thread mWatcher;
};

}  // namespace plotvane::terminal
