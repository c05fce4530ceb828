// The benchmark program: registers every timed line, lets Google Benchmark run them in random order, and
// prints the ratios. Usage: plotvane_bench PLOTVANE [--tsv] [--benchmark_…]
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "bench/measures.h"
#include "bench/report.h"
#include "bench/workloads.h"

namespace {

using plotvane::bench::Measure;

const std::vector<Measure> kMeasures = {
    {"scalar_native", "one call per point, checked, to hand-written C++", "replay", "native", 3.0, 2.2},
    {"scalar_muparser", "one call per point, checked, to muParser", "replay", "muparser", 0.6, 0.4},
    {"columns_native_avx2", "columns, AVX2, to hand-written C++ called per point", "avx2", "native", 0.65,
     0.35},
    {"columns_luajit", "columns to LuaJIT's own loop", "columns", "luajit", 0.5, 0.3},
    {"columns_native_sse2", "columns, SSE2 only, to hand-written C++ called per point", "sse2", "native", 1.0,
     0.6},
    {"parse_muparser", "parse and evaluate once, to muParser", "evaluate", "muparser_parse", 0.1, 0.05},
    {"integral_native", "integral of 10^7 points through di, to a hand-written loop", "di", "native_integral",
     1.0, 0.5},
    {"surface_minimum", "ten functions into the 1920x1080 surface, to a plain loop", "plot", "plain_plot",
     2.0, 1.2},
    {"png_gnuplot", "the picture as PNG, whole process, to gnuplot", "plotvane_png", "gnuplot_png", 0.6, 0.4},
};

// Many short repetitions in random order: a disturbance hits a few repetitions of every line alike.
std::vector<std::string> Defaults() {
  return {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=15",
          "--benchmark_min_time=0.01"};
}

std::vector<std::string> Cases() {
  std::vector<std::string> cases;
  for (const plotvane::bench::Workload& workload : plotvane::bench::Workloads())
    cases.emplace_back(workload.name);
  cases.emplace_back("picture");
  return cases;
}

}  // namespace

int main(int count, char** arguments) {
  bool tsv = false;
  std::vector<std::string> words{arguments[0]};
  std::string plotvane;
  for (const std::string& word : Defaults()) words.push_back(word);
  for (int i = 1; i < count; ++i) {
    const std::string word = arguments[i];
    if (word == "--tsv")
      tsv = true;
    else if (!word.starts_with("--"))
      plotvane = word;
    else
      words.push_back(word);
  }
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  int wordCount = static_cast<int>(pointers.size());
  benchmark::Initialize(&wordCount, pointers.data());
  if (benchmark::ReportUnrecognizedArguments(wordCount, pointers.data())) return 2;

  plotvane::bench::RegisterScalar();
  plotvane::bench::RegisterColumns();
  plotvane::bench::RegisterParse();
  plotvane::bench::RegisterIntegral();
  plotvane::bench::RegisterSurface();
  if (!plotvane.empty()) plotvane::bench::RegisterPicture(plotvane);

  plotvane::bench::Report report;
  benchmark::RunSpecifiedBenchmarks(&report);
  if (tsv)
    report.PrintTsv(std::cout, kMeasures, Cases());
  else
    report.PrintTable(std::cout, kMeasures, Cases());
  return report.Sound() ? 0 : 1;
}
