// Lines of input for the calculator: standard input, or a terminal with a prompt, editing and history.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plotvane::terminal {

class LineInput {
 public:
  virtual ~LineInput() = default;

  // The next line without its end (LF, or CR LF), whatever bytes are in it; nothing at the end of the input.
  [[nodiscard]] virtual std::optional<std::string> Next() = 0;

  // Whether a user types the lines. Ctrl-C then drops the line that is being typed.
  [[nodiscard]] virtual bool IsTerminal() const noexcept = 0;
};

// Standard input. When it is a terminal: a prompt, line editing, the history of this and earlier sessions, and completion
// (Tab) of what `names` gives at that time.
[[nodiscard]] std::unique_ptr<LineInput> OpenLineInput(std::function<std::vector<std::string>()> names);

}  // namespace plotvane::terminal
