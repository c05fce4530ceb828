// plotvane plot: a picture of equations, exactly as the control draws them.
#pragma once

namespace CLI {
class App;
}

namespace plotvane::terminal {

// Adds the command; running it sets `status` to the program's exit status.
void AddPlotCommand(CLI::App& program, int& status);

}  // namespace plotvane::terminal
