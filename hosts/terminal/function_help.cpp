#include "hosts/terminal/function_help.h"

#include "functions/catalogue.h"
#include "hosts/terminal/calc_report.h"
#include "platform/ascii.h"

namespace plotvane::terminal {

namespace {

constexpr std::size_t kLineWidth = 78;

std::string Overview() {
  std::string text =
      "Type an expression, such as 2^10 or x=sin(pi/4). Tab completes names, Ctrl-C stops, Ctrl-D ends.\n"
      "help NAME tells what a function does:\n";
  std::string line;
  for (const functions::Function& function : functions::kCatalogue) {
    if (line.size() + function.name.size() >= kLineWidth) {
      text += line + '\n';
      line.clear();
    }
    line.append(" ").append(function.name);
  }
  return text + line + '\n';
}

std::string HelpOn(std::string_view name) {
  const functions::Function* function = functions::FindFunction(name);
  if (!function) return "There is no function \"" + OneLine(name) + "\"; help lists all of them.\n";
  std::string text = functions::CallForm(*function) + "  " + std::string(function->help) + '\n';
  if (function->angle == functions::AngleRule::In) text += "  x is an angle in the current unit\n";
  if (function->angle == functions::AngleRule::Out) text += "  the result is an angle in the current unit\n";
  return text;
}

}  // namespace

std::optional<std::string> HelpFor(std::string_view line) {
  constexpr std::string_view kCommand = "help";
  line = platform::TrimBlanks(line);
  if (!platform::EqualIgnoringCase(line.substr(0, kCommand.size()), kCommand)) return std::nullopt;
  line.remove_prefix(kCommand.size());
  if (line.empty()) return Overview();
  const std::string_view name = platform::TrimBlanks(line);
  if (!platform::IsBlank(line.front()) || !platform::IsLetter(name.front())) return std::nullopt;
  return HelpOn(name);
}

}  // namespace plotvane::terminal
