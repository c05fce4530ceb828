// Parse a text and evaluate it once, with an object that exists already.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/measures.h"
#include "bench/peers.h"
#include "bench/recording.h"
#include "bench/workloads.h"

namespace plotvane::bench {

void RegisterParse() {
  constexpr double kX = 1.25;
  for (const Workload& workload : Workloads()) {
    const std::string name = workload.name;
    benchmark::RegisterBenchmark(("muparser_parse/" + name).c_str(), [&workload](benchmark::State& state) {
      MuParserExpression parser(workload.muParser);
      if (!Agree(parser.ParseAndEvaluate(workload.muParser, kX), workload.native(kX))) {
        return state.SkipWithError("wrong answer");
      }
      for ([[maybe_unused]] const auto pass : state) {
        benchmark::DoNotOptimize(parser.ParseAndEvaluate(workload.muParser, kX));
      }
    });
    benchmark::RegisterBenchmark(("evaluate/" + name).c_str(), [&workload](benchmark::State& state) {
      Recording recording(workload);
      platform::Value value;
      const auto evaluate = [&] { return recording.expression.Evaluate(workload.plotvane, value); };
      if (!evaluate() || !Agree(value.ToNumber().Get(), workload.native(kX)))
        return state.SkipWithError("wrong answer");
      for ([[maybe_unused]] const auto pass : state) benchmark::DoNotOptimize(evaluate());
    });
  }
}

}  // namespace plotvane::bench
