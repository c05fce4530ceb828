// Captions with mnemonics: "Z&Box" shows ZBox and is reached with Alt+B; "&&" shows one ampersand.
#pragma once

#include <string>
#include <string_view>

namespace plotvane::control {

// The mnemonic of a caption as an upper-case ASCII letter or a digit, '\0' where there is none.
[[nodiscard]] constexpr char MnemonicOf(std::string_view caption) noexcept {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    const char letter = caption[++i];
    if (letter == '&') continue;
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
  }
  return '\0';
}

// The caption as it is seen.
[[nodiscard]] std::string CaptionWithoutMnemonic(std::string_view caption);

}  // namespace plotvane::control
