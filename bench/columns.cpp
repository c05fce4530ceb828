// Blocks: all points in one call.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "bench/measures.h"
#include "bench/peers.h"
#include "bench/recording.h"
#include "bench/workloads.h"
#include "engine/curve.h"

namespace plotvane::bench {
namespace {

// Times `block(xs, ys)` over all points.
template <typename Block>
void TimeBlock(benchmark::State& state, const Workload& workload, Block block) {
  const std::vector<double> xs = Points();
  std::vector<double> ys(xs.size());
  block(std::span<const double>(xs), std::span<double>(ys));
  for (std::size_t i = 0; i < xs.size(); ++i) {
    if (!Agree(ys[i], workload.native(xs[i]))) return state.SkipWithError("wrong answer");
  }
  for ([[maybe_unused]] const auto pass : state) {
    block(std::span<const double>(xs), std::span<double>(ys));
    benchmark::ClobberMemory();
  }
  state.counters["units"] = static_cast<double>(xs.size());
}

// The same call per point as in the measure of single values, but announced, so that blocks are computed.
void RegisterOwn(const std::string& name, const Workload& workload, engine::ColumnWidth width) {
  benchmark::RegisterBenchmark(name.c_str(), [&workload, width](benchmark::State& state) {
    Recording recording(workload);
    engine::Curve curve(recording.expression, "x");
    curve.SetColumnWidth(width);
    TimeBlock(state, workload, [&curve](std::span<const double> xs, std::span<double> ys) {
      if (curve.Block(xs, ys) != xs.size()) throw std::runtime_error("evaluation failed");
    });
  });
}

}  // namespace

void RegisterColumns() {
  for (const Workload& workload : Workloads()) {
    const std::string name = workload.name;
    benchmark::RegisterBenchmark(("luajit/" + name).c_str(), [&workload](benchmark::State& state) {
      LuaJitExpression lua(workload.lua);
      TimeBlock(state, workload,
                [&lua](std::span<const double> xs, std::span<double> ys) { lua.Block(xs, ys); });
    });
    RegisterOwn("sse2/" + name, workload, engine::ColumnWidth::Sse2);
    RegisterOwn("columns/" + name, workload, engine::WidestColumns());
    if (engine::WidestColumns() == engine::ColumnWidth::Avx2) {
      RegisterOwn("avx2/" + name, workload, engine::ColumnWidth::Avx2);
    }
  }
}

}  // namespace plotvane::bench
