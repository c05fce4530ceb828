// The coverage-guided fuzzer of the evaluation gears (clang's libFuzzer); see fuzz/gears.h for what it feeds.
//
// A script may ask for a sum over 10^300 values. Each gets a tenth of a second of processor time; then the
// stop flag ends it, and what does not end then is a finding.
#include <sys/time.h>

#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/gears.h"

namespace {

std::atomic<bool> gStop{false};

void Arm(int microseconds) {
  itimerval timer{};
  timer.it_value.tv_usec = microseconds;
  setitimer(ITIMER_PROF, &timer, nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  std::signal(SIGPROF, [](int) { gStop = true; });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view script(reinterpret_cast<const char*>(data), size);
  gStop = false;
  Arm(100000);
  const std::string difference = plotvane::fuzz::DifferenceBetweenGears(script, &gStop);
  Arm(0);
  if (difference.empty()) return 0;
  std::fprintf(stderr, "%s\n", difference.c_str());
  std::abort();
}
