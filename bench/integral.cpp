// The integral of 10^7 points: left-endpoint rectangles, the counter grown by repeated addition.
#include <benchmark/benchmark.h>

#include <iomanip>
#include <sstream>
#include <string>

#include "bench/measures.h"
#include "bench/recording.h"
#include "bench/workloads.h"

namespace plotvane::bench {
namespace {

double NativeIntegral(double (*function)(double)) {
  double sum = 0;
  const double last = kIntegralTo - kIntegralWidth;
  for (double t = kIntegralFrom; t <= last; t += kIntegralWidth) sum += function(t);
  return sum * kIntegralWidth;
}

}  // namespace

void RegisterIntegral() {
  for (const Workload& workload : Workloads()) {
    const std::string name = workload.name;
    benchmark::RegisterBenchmark(("native_integral/" + name).c_str(), [&workload](benchmark::State& state) {
      for ([[maybe_unused]] const auto pass : state)
        benchmark::DoNotOptimize(NativeIntegral(workload.native));
    });
    benchmark::RegisterBenchmark(("di/" + name).c_str(), [&workload](benchmark::State& state) {
      Recording recording(workload);
      std::ostringstream call;
      call << "di(" << workload.plotvane << ",x," << kIntegralFrom << "," << kIntegralTo << "," << std::fixed
           << std::setprecision(9) << kIntegralWidth << ")";
      platform::Value value;
      const auto evaluate = [&] { return recording.expression.Evaluate(call.str(), value); };
      if (!evaluate() || !Agree(value.ToNumber().Get(), NativeIntegral(workload.native))) {
        return state.SkipWithError("wrong answer");
      }
      for ([[maybe_unused]] const auto pass : state) benchmark::DoNotOptimize(evaluate());
    });
  }
}

}  // namespace plotvane::bench
