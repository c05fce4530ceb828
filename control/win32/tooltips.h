// Tooltips: one tooltip window for the controls of a window.
#pragma once

#include <windows.h>

#include <string_view>

#include "control/win32/handles.h"

namespace plotvane::control::win32 {

class Tooltips {
 public:
  // A window that shows the tooltips of the children of `parent`. The system would keep it as long as the
  // top-level window that a child belongs to, so whoever made it destroys it with the parent.
  void Create(HINSTANCE module, HWND parent);
  void Destroy() noexcept { mWindow.Reset(); }
  // Also on the edit part of a drop-down list. An empty text adds nothing.
  void Add(HWND control, std::string_view text);

 private:
  OwnedWindow mWindow;
};

}  // namespace plotvane::control::win32
