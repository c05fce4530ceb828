// plotvane calc: one result for each expression, from the arguments or from standard input.
#pragma once

namespace CLI {
class App;
}

namespace plotvane::terminal {

// Adds the command; running it sets `status` to the program's exit status.
void AddCalcCommand(CLI::App& program, int& status);

}  // namespace plotvane::terminal
