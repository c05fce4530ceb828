// FaceControls: the system's controls on the window: buttons, label, number box, spinner, status boxes.
#pragma once

#include <windows.h>

#include <array>
#include <optional>

#include "control/face.h"
#include "control/layout.h"
#include "control/win32/handles.h"
#include "control/win32/keyboard_filter.h"
#include "control/win32/tooltips.h"

namespace plotvane::control::win32 {

// Made with the window and gone with it: every handle may stand for nothing.
class FaceControls {
 public:
  void Create(HINSTANCE module, HWND parent, KeyboardFilter& filter);
  // Lets go of the filter; the windows are left to the system.
  void Forget() noexcept;

  [[nodiscard]] HWND Item(ToolBarItem item) const noexcept { return mItems[IndexOf(item)]; }
  [[nodiscard]] HWND Box(TextBox box) const noexcept;
  // Which item a window or its identifier is.
  [[nodiscard]] std::optional<ToolBarItem> ItemOf(HWND window) const noexcept;
  [[nodiscard]] static std::optional<ToolBarItem> ItemWithId(int id) noexcept;

  void Place(const ControlLayout& layout);
  void SetFont(HFONT font);

  // The item after (before) `from` that is shown and takes the focus; null at the end.
  [[nodiscard]] HWND NextStop(HWND from, bool backwards) const noexcept;

 private:
  std::array<HWND, kToolBarItemCount> mItems{};
  HWND mSimple = nullptr;
  HWND mStatusBar1 = nullptr;
  Tooltips mTooltips;
};

// The captions of the toolbar in this font.
[[nodiscard]] FaceMetrics MeasureFace(HFONT font, int dpi);

}  // namespace plotvane::control::win32
