// Report: keeps the fastest repetition of every timed line and prints the table of ratios.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace plotvane::bench {

// One ratio to be shown: what is timed, over its peer. Lines of a measure are named "<line>/<case>"; the
// ratio is the geometric mean over the cases that both have.
struct Measure {
  const char* name;
  const char* text;
  const char* line;
  const char* peer;
  double least;  // the ratio must not be above it
  double aim;
};

// Collects the CPU time per iteration of every repetition and keeps the least: on a machine that others use
// too, the fastest repetition is the one that was disturbed least.
class Report : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

  // False when a line stopped with an error (a wrong answer, a failed evaluation).
  [[nodiscard]] bool Sound() const noexcept { return mSound; }

  // Nanoseconds of a line, per unit of its work; 0 when it was not timed.
  [[nodiscard]] double Nanoseconds(const std::string& name) const;

  void PrintTable(std::ostream& out, const std::vector<Measure>& measures,
                  const std::vector<std::string>& cases) const;
  // One line per measure: name, tab, ratio.
  void PrintTsv(std::ostream& out, const std::vector<Measure>& measures,
                const std::vector<std::string>& cases) const;

 private:
  // The ratio of one case, and of all of them; 0 when nothing was timed.
  [[nodiscard]] double Ratio(const Measure& measure, const std::string& name) const;
  [[nodiscard]] double Mean(const Measure& measure, const std::vector<std::string>& cases) const;

  std::map<std::string, double> mBest;
  bool mSound = true;
};

}  // namespace plotvane::bench
