#include "hosts/terminal/table_command.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/terminal/equation.h"
#include "hosts/terminal/equation_check.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/number_list.h"
#include "hosts/terminal/progress.h"
#include "platform/number_text.h"
#include "platform/runtime_error.h"

namespace plotvane::terminal {

namespace {

struct TableOptions {
  std::vector<std::string> equations;
  std::string from;
  std::string to;
  std::string step;
  bool degrees = false;
};

constexpr double kRounding = 1e-9;  // of one step: how far rounding may lead off

// The values of x: from + k * step, each computed afresh, up to the end or to it where only rounding differs.
struct Rows {
  double from = 0;
  double to = 0;
  double step = 0;
  std::uint64_t last = 0;  // the highest k

  [[nodiscard]] double X(std::uint64_t k) const {
    const double x = from + static_cast<double>(k) * step;
    return std::abs(x - to) <= kRounding * std::abs(step) ? to : x;
  }
};

Rows MakeRows(const TableOptions& options) {
  const double from = ReadNumbers("--from", options.from, 1)[0];
  const double to = ReadNumbers("--to", options.to, 1)[0];
  const double step = ReadNumbers("--step", options.step, 1)[0];
  if (step == 0) throw CLI::ValidationError("--step", "must not be 0");
  const double steps = (to - from) / step;
  if (steps < 0) throw CLI::ValidationError("--step", "leads away from --to");
  constexpr double kMost = 9007199254740992;  // whole numbers up to here are exact
  if (!(steps < kMost) || from + step == from) throw CLI::ValidationError("--step", "is too small");
  return {from, to, step, static_cast<std::uint64_t>(std::floor(steps + kRounding))};
}

constexpr std::uint64_t kBlock = 256;  // rows whose values are computed together

// The values of x of the rows from k on, as many as a block has.
std::vector<double> Block(const Rows& rows, std::uint64_t k) {
  std::vector<double> xs(std::min(kBlock, rows.last - k + 1));
  for (double& x : xs) x = rows.X(k++);
  return xs;
}

std::string Row(std::vector<Equation>& equations, double x) {
  std::string row = platform::NumberText(x);
  for (Equation& equation : equations) {
    row += '\t';
    if (const std::optional<double> y = equation.At(x)) row += platform::NumberText(*y);
  }
  return row + '\n';
}

int RunTable(const TableOptions& options) {
  const Rows rows = MakeRows(options);
  Progress progress;
  std::optional<Progress::Work> work;
  if (::isatty(STDOUT_FILENO) != 1) work.emplace(progress);  // elsewhere the rows show it
  try {
    CheckEquations(options.equations, options.degrees, rows.from, rows.X(rows.last));
    std::vector<Equation> equations;
    for (const std::string& text : options.equations) equations.emplace_back(text, options.degrees);
    for (std::uint64_t k = 0; k <= rows.last && std::cout; k += kBlock) {
      const std::vector<double> xs = Block(rows, k);
      for (Equation& equation : equations) equation.Plan(xs);
      for (const double x : xs) std::cout << Row(equations, x);
    }
  } catch (const std::runtime_error& error) {
    std::cerr << "plotvane: " << error.what() << '\n';
    return kSomethingFailed;
  }
  return std::cout.flush() ? kAllWell : kSomethingFailed;
}

}  // namespace

void AddTableCommand(CLI::App& program, int& status) {
  const auto options = std::make_shared<TableOptions>();
  CLI::App* command = program.add_subcommand("table", "Write a table of values, separated by tabs");
  command->add_option("equations", options->equations, "Functions of x")->required()->type_name("EQUATION");
  command->add_option("--from", options->from, "First x")->required()->type_name("A");
  command->add_option("--to", options->to, "Last x")->required()->type_name("B");
  command->add_option("--step", options->step, "From one x to the next")->required()->type_name("S");
  command->add_flag("--degrees", options->degrees, "Angles in degrees instead of radians");
  command->callback([options, &status] { status = RunTable(*options); });
}

}  // namespace plotvane::terminal
