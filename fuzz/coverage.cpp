// Hands g++'s coverage callback to libFuzzer, which looks at counters in a section of its own.
#include <array>
#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t kCounters = 1U << 16U;

[[gnu::section("__libfuzzer_extra_counters")]] std::array<std::uint8_t, kCounters> gCounters;

}  // namespace

// Called at every branch of the instrumented code: the place is where it returns to. Its own code is not instrumented,
// or it would call itself for ever.
extern "C" [[gnu::no_sanitize_coverage]] void __sanitizer_cov_trace_pc() {
  const auto place = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0));
  ++gCounters.data()[(place ^ (place >> 16U)) % kCounters];
}

// libFuzzer does not follow comparisons of real numbers.
extern "C" [[gnu::no_sanitize_coverage]] void __sanitizer_cov_trace_cmpd(double /*a*/, double /*b*/) {}
extern "C" [[gnu::no_sanitize_coverage]] void __sanitizer_cov_trace_cmpf(float /*a*/, float /*b*/) {}
