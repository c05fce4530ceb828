// One call per point over the fixed points.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench/measures.h"
#include "bench/peers.h"
#include "bench/recording.h"
#include "bench/workloads.h"
#include "engine/curve.h"

namespace plotvane::bench {
namespace {

[[noreturn]] void Fail() {
  throw std::runtime_error("evaluation failed");
}

// Times `call(x)` at every point; `call` is copied into the loop, so only what it calls costs.
template <typename Call>
void TimeCalls(benchmark::State& state, const Workload& workload, Call call) {
  const std::vector<double> points = Points();
  for (const double x : points) {
    if (!Agree(call(x), workload.native(x))) return state.SkipWithError("wrong answer");
  }
  for ([[maybe_unused]] const auto pass : state) {
    double sum = 0;
    for (const double x : points) sum += call(x);
    benchmark::DoNotOptimize(sum);
  }
  state.counters["units"] = static_cast<double>(points.size());
}

}  // namespace

void RegisterScalar() {
  for (const Workload& workload : Workloads()) {
    const std::string name = workload.name;
    benchmark::RegisterBenchmark(("native/" + name).c_str(), [&workload](benchmark::State& state) {
      TimeCalls(state, workload, workload.native);
    });
    benchmark::RegisterBenchmark(("muparser/" + name).c_str(), [&workload](benchmark::State& state) {
      MuParserExpression parser(workload.muParser);
      TimeCalls(state, workload, [&parser](double x) { return parser.At(x); });
    });
    benchmark::RegisterBenchmark(("replay/" + name).c_str(), [&workload](benchmark::State& state) {
      Recording recording(workload);
      engine::Curve curve(recording.expression, "x");
      TimeCalls(state, workload, [&curve](double x) {
        double y = 0;
        if (!curve.At(x, y)) Fail();
        return y;
      });
    });
  }
}

}  // namespace plotvane::bench
