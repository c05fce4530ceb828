// plotvane: the calculator, the table and the plotter of the command line.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "hosts/terminal/calc_command.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/plot_command.h"
#include "hosts/terminal/table_command.h"
#include "hosts/terminal/word_order.h"

namespace {

// One line on standard error for bad usage; the help goes to standard output.
int Explain(const CLI::App& program, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) return program.exit(error);
  std::cerr << "plotvane: " << error.what() << " (try --help)\n";
  return plotvane::terminal::kBadUsage;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App program("A calculator and plotter of functions.", "plotvane");
  program.require_subcommand(1);
  program.set_version_flag("--version", "plotvane " PLOTVANE_VERSION, "Print the version and exit");
  int status = 0;
  plotvane::terminal::AddCalcCommand(program, status);
  plotvane::terminal::AddPlotCommand(program, status);
  plotvane::terminal::AddTableCommand(program, status);
  plotvane::terminal::WatchForInterrupts();
  try {
    std::vector<std::string> words = plotvane::terminal::ExpressionsLast(program, {argv + 1, argv + argc});
    std::ranges::reverse(words);  // as the parser takes them
    program.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    return Explain(program, error);
  } catch (const plotvane::terminal::Interrupted&) {
    return plotvane::terminal::InterruptStatus();
  }
  return status;
}
