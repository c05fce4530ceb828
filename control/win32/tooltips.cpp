#include "control/win32/tooltips.h"

#include <commctrl.h>

#include <string>

#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

constexpr int kWidestTooltip = 400;  // pixels; longer texts are broken into lines

void AddTo(HWND tooltips, HWND control, std::wstring& text) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // known to every version of the controls
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ::GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text.data();
  ::SendMessageW(tooltips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void Tooltips::Create(HINSTANCE module, HWND parent) {
  const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES | ICC_UPDOWN_CLASS};
  ::InitCommonControlsEx(&classes);
  mWindow.Reset(::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"",
                                  WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, parent, nullptr, module, nullptr));
  ::SendMessageW(mWindow.Get(), TTM_SETMAXTIPWIDTH, 0, kWidestTooltip);
}

void Tooltips::Add(HWND control, std::string_view text) {
  if (text.empty() || control == nullptr) return;
  std::wstring wide = ToWide(text);
  AddTo(mWindow.Get(), control, wide);
  COMBOBOXINFO combo{};
  combo.cbSize = sizeof combo;
  wchar_t className[16]{};
  ::GetClassNameW(control, className, 16);
  const bool isCombo = ::lstrcmpiW(className, WC_COMBOBOXW) == 0;
  if (isCombo && ::GetComboBoxInfo(control, &combo) && combo.hwndItem != nullptr)
    AddTo(mWindow.Get(), combo.hwndItem, wide);
}

}  // namespace plotvane::control::win32
