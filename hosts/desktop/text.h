// UTF-8 inside, UTF-16 towards the system.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

namespace plotvane::desktop {

[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::wstring_view wide);

// The whole text of a window.
[[nodiscard]] std::wstring WindowText(HWND window);

}  // namespace plotvane::desktop
