// Resolution and font of a window.
#pragma once

#include <windows.h>

#include <string_view>

#include "control/win32/handles.h"

namespace plotvane::control::win32 {

// Dots per inch of the monitor as the window sees it; of the screen for a null window and on older systems.
// The awareness of the process is the host's business and never changed.
[[nodiscard]] int ResolutionOf(HWND window) noexcept;

// The font of all texts of the control: MS Sans Serif of 8 points at that resolution.
[[nodiscard]] OwnedFont MakeFaceFont(int dpi) noexcept;

struct TextSize {
  int width = 0;
  int height = 0;
};
// The size in pixels of one line of text in the font that is selected.
[[nodiscard]] TextSize MeasureText(HDC context, std::string_view text);

}  // namespace plotvane::control::win32
