// What the tests ask of the host program's window, beside real input.
#pragma once

#include <windows.h>

#include <array>

namespace plotvane::test {

inline constexpr wchar_t kHostClass[] = L"FaceHost";
inline constexpr wchar_t kHostTitle[] = L"Face Host";

// Posted: does what stands in HostKey.
inline constexpr UINT kHostKeyMessage = WM_APP;
// Posted with a number: once all input that came before is handled and all is painted, the window's property
// kAtRestProperty is that number.
inline constexpr UINT kComeToRestMessage = WM_APP + 1;
inline constexpr wchar_t kAtRestProperty[] = L"FaceHostAtRest";
// Sent: a number that stands for every pixel of the first control's picture as the control keeps it.
inline constexpr UINT kPictureSumMessage = WM_APP + 2;
// The window answers WM_GETOBJECT for OBJID_NATIVEOM with the automation interface of its first control.

enum class HostKey : WPARAM {
  ShowFormat,
  Plot,
  ToggleToolBar,
  EndFirst,
  EndFirstAfterPlot,
  ChangeSystemColours,   // to the palette of high contrast
  MoveToUnscaledWindow,  // the first control, to a window of 96 dots per inch
};

// A palette of high contrast in which text on buttons and text in windows differ.
inline constexpr COLORREF kHighContrastFace = RGB(0, 0, 96);
inline constexpr COLORREF kHighContrastFaceText = RGB(255, 255, 0);
inline constexpr COLORREF kHighContrastWindow = RGB(0, 0, 0);
inline constexpr COLORREF kHighContrastWindowText = RGB(0, 255, 0);

inline constexpr std::array<INT, 4> kPaletteIndices{COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_WINDOW,
                                                    COLOR_WINDOWTEXT};
inline constexpr std::array<COLORREF, 4> kHighContrast{kHighContrastFace, kHighContrastFaceText,
                                                       kHighContrastWindow, kHighContrastWindowText};

inline void SetHighContrast() {
  ::SetSysColors(static_cast<int>(kHighContrast.size()), kPaletteIndices.data(), kHighContrast.data());
}

}  // namespace plotvane::test
