// A small modal box that asks for one line of text.
#pragma once

#include <windows.h>

#include <string>

namespace plotvane::desktop {

// The text entered, or an empty one when the user cancels.
[[nodiscard]] std::wstring Prompt(HWND owner, const std::wstring& title, const std::wstring& question,
                                  const std::wstring& proposal);

}  // namespace plotvane::desktop
