// Expressions among the words of the command line.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace plotvane::terminal {

// The words behind the program's name, with those of a command that are no options moved behind "--": an expression
// may begin with a minus sign, such as -x^2. A word with one dash is an option only when the command has it; with
// two dashes it always is, so that a mistyped option is told.
[[nodiscard]] std::vector<std::string> ExpressionsLast(const CLI::App& program, std::vector<std::string> words);

}  // namespace plotvane::terminal
