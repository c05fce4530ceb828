#include "hosts/terminal/word_order.h"

#include <CLI/CLI.hpp>

namespace plotvane::terminal {

namespace {

const CLI::App* FindCommand(const CLI::App& program, const std::string& name) {
  const auto commands = program.get_subcommands([&name](const CLI::App* command) { return command->check_name(name); });
  return commands.empty() ? nullptr : commands.front();
}

// The option that a word names, nullptr for none: --mode, --mode=octal, -o, -opicture.png.
const CLI::Option* FindOption(const CLI::App& command, const std::string& word) {
  if (word.starts_with("--")) return command.get_option_no_throw(word.substr(0, word.find('=')));
  return word.starts_with('-') ? command.get_option_no_throw(word.substr(0, 2)) : nullptr;
}

// Whether the value of an option is the word behind it.
bool TakesNextWord(const CLI::Option& option, const std::string& word) {
  const bool attached = word.starts_with("--") ? word.find('=') != std::string::npos : word.size() > 2;
  return option.get_items_expected_max() > 0 && !attached;
}

}  // namespace

std::vector<std::string> ExpressionsLast(const CLI::App& program, std::vector<std::string> words) {
  const CLI::App* command = words.empty() ? nullptr : FindCommand(program, words.front());
  if (!command) return words;
  std::vector<std::string> options{words.front()};
  std::vector<std::string> expressions;
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    if (*word == "--") {
      expressions.insert(expressions.end(), word + 1, words.end());
      break;
    }
    const CLI::Option* option = FindOption(*command, *word);
    if (!option && !word->starts_with("--")) {
      expressions.push_back(*word);
      continue;
    }
    options.push_back(*word);
    if (option && TakesNextWord(*option, *word) && word + 1 != words.end()) options.push_back(*++word);
  }
  if (expressions.empty()) return options;
  options.emplace_back("--");
  options.insert(options.end(), expressions.begin(), expressions.end());
  return options;
}

}  // namespace plotvane::terminal
