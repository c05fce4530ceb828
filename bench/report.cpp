#include "bench/report.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>

namespace plotvane::bench {
namespace {

// "scalar/native/sin(x)/repeats:9" without what the library adds after the case's name.
std::string LineName(const benchmark::BenchmarkReporter::Run& run) {
  return run.run_name.function_name;
}

}  // namespace

bool Report::ReportContext(const Context& /*context*/) {
  return true;
}

void Report::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.error_occurred) {
      std::cerr << LineName(run) << ": " << run.error_message << '\n';
      mSound = false;
      continue;
    }
    if (run.run_type != Run::RT_Iteration) continue;
    const auto units = run.counters.find("units");
    const double perIteration = units == run.counters.end() ? 1.0 : units->second.value;
    const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    const double measured = run.counters.contains("process")
                                ? run.real_accumulated_time / static_cast<double>(run.iterations)
                                : seconds;
    const double nanoseconds = measured * 1e9 / perIteration;
    const auto [place, isNew] = mBest.emplace(LineName(run), nanoseconds);
    if (!isNew) place->second = std::min(place->second, nanoseconds);
  }
}

double Report::Nanoseconds(const std::string& name) const {
  const auto place = mBest.find(name);
  return place == mBest.end() ? 0 : place->second;
}

double Report::Ratio(const Measure& measure, const std::string& name) const {
  const double peer = Nanoseconds(std::string(measure.peer) + "/" + name);
  return peer == 0 ? 0 : Nanoseconds(std::string(measure.line) + "/" + name) / peer;
}

double Report::Mean(const Measure& measure, const std::vector<std::string>& cases) const {
  double sum = 0;
  int count = 0;
  for (const std::string& name : cases) {
    const double ratio = Ratio(measure, name);
    if (ratio == 0) continue;
    sum += std::log(ratio);
    ++count;
  }
  return count == 0 ? 0 : std::exp(sum / count);
}

void Report::PrintTable(std::ostream& out, const std::vector<Measure>& measures,
                        const std::vector<std::string>& cases) const {
  out << std::fixed << std::setprecision(2);
  for (const Measure& measure : measures) {
    const double mean = Mean(measure, cases);
    if (mean == 0) continue;
    out << '\n' << measure.text << " (" << measure.name << ")\n";
    for (const std::string& name : cases) {
      const double ratio = Ratio(measure, name);
      if (ratio == 0) continue;
      out << "  " << std::left << std::setw(26) << name << std::right << std::setw(14)
          << Nanoseconds(std::string(measure.line) + "/" + name) << " ns" << std::setw(14)
          << Nanoseconds(std::string(measure.peer) + "/" + name) << " ns" << std::setw(8) << ratio << '\n';
    }
  }
  out << "\nmeasure                    ratio   at most     aim\n";
  for (const Measure& measure : measures) {
    const double mean = Mean(measure, cases);
    if (mean == 0) continue;
    out << std::left << std::setw(24) << measure.name << std::right << std::setw(8) << std::setprecision(3)
        << mean << std::setw(10) << std::setprecision(2) << measure.least << std::setw(8) << measure.aim
        << (mean <= measure.aim     ? "  aim reached"
            : mean <= measure.least ? "  reached"
                                    : "  MISSED")
        << '\n';
  }
}

void Report::PrintTsv(std::ostream& out, const std::vector<Measure>& measures,
                      const std::vector<std::string>& cases) const {
  for (const Measure& measure : measures) {
    const double mean = Mean(measure, cases);
    if (mean != 0) out << measure.name << '\t' << std::setprecision(4) << mean << '\n';
  }
}

}  // namespace plotvane::bench
