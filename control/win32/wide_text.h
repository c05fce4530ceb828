// Texts at the edge to the system: UTF-8 inside, UTF-16 outside.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace plotvane::control::win32 {

// What is not valid in one form becomes the replacement character in the other.
[[nodiscard]] std::wstring ToWide(std::string_view text);
[[nodiscard]] std::string FromWide(std::wstring_view text);

[[nodiscard]] std::string WindowText(HWND window);
// Sets the text only when it differs, so that boxes do not flicker.
void SetWindowTextTo(HWND window, std::string_view text);

}  // namespace plotvane::control::win32
