// The coverage-guided fuzzer of the evaluation gears (clang's libFuzzer); see fuzz/gears.h for what it feeds.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/gears.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view script(reinterpret_cast<const char*>(data), size);
  const std::string difference = plotvane::fuzz::DifferenceBetweenGears(script);
  if (difference.empty()) return 0;
  std::fprintf(stderr, "%s\n", difference.c_str());
  std::abort();
}
