// plotvane table: the values of equations at regular steps of x, tab-separated.
#pragma once

namespace CLI {
class App;
}

namespace plotvane::terminal {

// Adds the command; running it sets `status` to the program's exit status.
void AddTableCommand(CLI::App& program, int& status);

}  // namespace plotvane::terminal
