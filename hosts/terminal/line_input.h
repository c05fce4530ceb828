// Lines of input for the calculator: standard input, or a terminal with a prompt, editing and history.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace plotvane::terminal {

class LineInput {
 public:
  virtual ~LineInput() = default;

  // The next line without its end (LF, or CR LF), whatever bytes are in it; nothing at the end of the input.
  [[nodiscard]] virtual std::optional<std::string> Next() = 0;
};

// Standard input, with a prompt when it is a terminal.
[[nodiscard]] std::unique_ptr<LineInput> OpenLineInput();

}  // namespace plotvane::terminal
