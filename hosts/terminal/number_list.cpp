#include "hosts/terminal/number_list.h"

#include <CLI/CLI.hpp>

#include "engine/clsExp.h"
#include "platform/value.h"

namespace plotvane::terminal {

std::vector<std::string> SplitAtCommas(std::string_view text) {
  std::vector<std::string> parts(1);
  int depth = 0;
  for (const char c : text) {
    if (std::string_view("([{").find(c) != std::string_view::npos) ++depth;
    if (std::string_view(")]}").find(c) != std::string_view::npos) --depth;
    if (c == ',' && depth == 0) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

std::vector<double> ReadNumbers(const std::string& option, std::string_view text, std::size_t count) {
  const std::vector<std::string> parts = SplitAtCommas(text);
  if (parts.size() != count)
    throw CLI::ValidationError(
        option, "needs " + std::to_string(count) + " numbers, got \"" + std::string(text) + "\"");
  engine::clsExp expression;
  expression.CreateNewVarTable();
  expression.SetAcceptNumericResultOnly(true);
  std::vector<double> numbers;
  for (const std::string& part : parts) {
    platform::Value value;
    const bool evaluated = expression.Evaluate(part, value);
    const platform::Outcome<double> number = value.ToNumber();
    if (!evaluated || !number.Ok()) throw CLI::ValidationError(option, "\"" + part + "\" is not a number");
    numbers.push_back(number.Get());
  }
  return numbers;
}

}  // namespace plotvane::terminal
