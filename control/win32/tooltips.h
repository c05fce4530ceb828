// Tooltips: one tooltip window for the controls of a window.
#pragma once

#include <windows.h>

#include <string_view>

#include "control/win32/handles.h"

namespace plotvane::control::win32 {

class Tooltips {
 public:
  // A window that shows the tooltips of the children of `parent`; it goes with the parent.
  void Create(HINSTANCE module, HWND parent);
  // Also on the edit part of a drop-down list. An empty text adds nothing.
  void Add(HWND control, std::string_view text);

 private:
  HWND mWindow = nullptr;  // destroyed by the system with its owner
};

}  // namespace plotvane::control::win32
