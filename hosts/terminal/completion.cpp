#include "hosts/terminal/completion.h"

#include <algorithm>

#include "platform/ascii.h"

namespace plotvane::terminal {

namespace {

bool IsNameCharacter(char c) {
  return platform::IsLetter(c) || platform::IsDigit(c) || c == '_';
}

std::size_t SharedLength(std::string_view a, std::string_view b) {
  const auto sameCase = [](char x, char y) { return platform::LowerCase(x) == platform::LowerCase(y); };
  return static_cast<std::size_t>(std::ranges::mismatch(a, b, sameCase).in1 - a.begin());
}

}  // namespace

std::string_view NameAtEnd(std::string_view text) {
  std::size_t begin = text.size();
  while (begin > 0 && IsNameCharacter(text[begin - 1])) --begin;
  const std::string_view name = text.substr(begin);
  return name.empty() || platform::IsDigit(name.front()) ? std::string_view() : name;
}

Completion Complete(std::string_view text, std::span<const std::string> names) {
  const std::string_view begun = NameAtEnd(text);
  Completion completion;
  if (begun.empty()) return completion;
  for (const std::string& name : names) {
    if (SharedLength(begun, name) == begun.size()) completion.choices.push_back(name);
  }
  std::ranges::sort(completion.choices, {}, platform::LowerCaseText);
  if (completion.choices.empty()) return completion;
  const std::string& first = completion.choices.front();
  std::size_t shared = first.size();
  for (const std::string& other : completion.choices) shared = std::min(shared, SharedLength(first, other));
  completion.rest = first.substr(begun.size(), shared - begun.size());
  return completion;
}

}  // namespace plotvane::terminal
