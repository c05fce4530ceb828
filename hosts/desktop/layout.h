// Sizes of the desktop host's window in pixels at its resolution.
#pragma once

#include <windows.h>

namespace plotvane::desktop {

// The resolution of the screen that the window is on.
struct Scale {
  int dpi = 96;
  // Pixels for a length given in 1/96 inch.
  [[nodiscard]] int operator()(int length) const { return ::MulDiv(length, dpi, 96); }
};

// A child control of `parent`; `style` is added to WS_CHILD | WS_VISIBLE.
[[nodiscard]] inline HWND MakeChild(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, int id,
                                    DWORD extendedStyle = 0) {
  return ::CreateWindowExW(extendedStyle, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ::GetModuleHandleW(nullptr),
                           nullptr);
}

inline void Place(HWND window, const RECT& place) {
  ::SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

inline void SetFont(HWND window, HFONT font) {
  ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

}  // namespace plotvane::desktop
