// plotvane: the calculator, the table and the plotter of the command line.
#include <CLI/CLI.hpp>
#include <iostream>

#include "hosts/terminal/calc_command.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/plot_command.h"
#include "hosts/terminal/table_command.h"

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
  int status = 0;
  plotvane::terminal::AddCalcCommand(program, status);
  plotvane::terminal::AddPlotCommand(program, status);
  plotvane::terminal::AddTableCommand(program, status);
  plotvane::terminal::WatchForInterrupts();
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return Explain(program, error);
  } catch (const plotvane::terminal::Interrupted&) {
    return plotvane::terminal::kInterrupted;
  }
  return status;
}
