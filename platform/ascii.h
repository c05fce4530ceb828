// Characters and letter case, ASCII only: texts are UTF-8, and bytes outside ASCII are left as they are.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace plotvane::platform {

[[nodiscard]] constexpr bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}
[[nodiscard]] constexpr bool IsLetter(char c) noexcept {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// What the platform skips before a number and trims from a text: blanks and tabs, not line ends.
[[nodiscard]] constexpr bool IsBlank(char c) noexcept {
  return c == ' ' || c == '\t';
}

[[nodiscard]] constexpr char LowerCase(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] inline std::string LowerCaseText(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) { return LowerCase(c); });
  return lower;
}

[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept {
  return std::ranges::equal(a, b, [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

// `text` without the blanks and tabs at both ends.
[[nodiscard]] constexpr std::string_view TrimBlanks(std::string_view text) noexcept {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace plotvane::platform
