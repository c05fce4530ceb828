// Keyboard and focus of the control's window.
#include <cwctype>

#include "control/win32/control_window_implementation.h"
#include "control/win32/wide_text.h"

namespace plotvane::control::win32 {
namespace {

std::optional<Key> KeyOf(WPARAM key) {
  switch (key) {
    case VK_ESCAPE: return Key::Escape;
    case VK_UP: return Key::Up;
    case VK_DOWN: return Key::Down;
    default: return std::nullopt;
  }
}

bool IsShiftDown() {
  return ::GetKeyState(VK_SHIFT) < 0;
}

}  // namespace

// ---- What the host asks ----

void ControlWindowImplementation::TakeFocus() {
  if (Handle() == nullptr) return;
  const bool lastIsThere = mLastFocus != nullptr && IsWithin(mLastFocus) && ::IsWindowVisible(mLastFocus);
  const HWND first = mControls.NextStop(nullptr, false);
  ::SetFocus(lastIsThere ? mLastFocus : (first != nullptr ? first : mSurfaceView.Handle()));
}

// Tab leaves the control behind its last stop: then it is the host's.
bool ControlWindowImplementation::TranslateAccelerator(MSG& message) {
  if (!IsWithin(message.hwnd)) return false;
  switch (message.message) {
    case WM_KEYDOWN:
      if (message.wParam == VK_TAB) return MoveFocus(message.hwnd, IsShiftDown());
      return HandleKey(message.hwnd, message.wParam);
    case WM_SYSCHAR: return PressMnemonic(static_cast<wchar_t>(message.wParam));
    default: return false;
  }
}

bool ControlWindowImplementation::PressMnemonic(wchar_t letter) {
  const auto wanted = std::towupper(letter);
  for (const ToolBarItemText& row : kToolBarItems) {
    const char mnemonic = MnemonicOf(row.caption);
    if (mnemonic == '\0' || static_cast<std::wint_t>(mnemonic) != wanted) continue;
    const HWND button = row.kind == ItemKind::Button ? mControls.Item(row.item) : nullptr;
    if (button != nullptr && ::IsWindowVisible(button)) ::SetFocus(button);
    if (const auto events = Events()) events->ToolBarPressed(row.item);
    return true;
  }
  return false;
}

// ---- What the controls see before they do ----

std::optional<LRESULT> ControlWindowImplementation::Filter(HWND window, UINT message, WPARAM wParam,
                                                           LPARAM lParam) {
  bool used = false;
  switch (message) {
    case WM_SETFOCUS: FocusCame(window); break;
    case WM_KILLFOCUS: FocusWent(reinterpret_cast<HWND>(wParam)); break;
    case WM_KEYDOWN: used = HandleKey(window, wParam) || HandlePlainKey(window, wParam); break;
    case WM_CHAR: used = HandleCharacter(window, wParam); break;
    case WM_SYSCHAR: used = PressMnemonic(static_cast<wchar_t>(wParam)); break;
    case WM_GETDLGCODE:
      if (WantsMessage(reinterpret_cast<const MSG*>(lParam))) return DLGC_WANTMESSAGE;
      break;
    default: break;
  }
  return used ? std::optional<LRESULT>(0) : std::nullopt;
}

bool ControlWindowImplementation::HandleKey(HWND window, WPARAM key) {
  const auto events = Events();
  const auto known = KeyOf(key);
  if (!events || !known) return false;
  const bool inNumber = mControls.ItemOf(window) == ToolBarItem::txtUserCurY;
  return events->KeyPressed(*known, inNumber ? KeyPlace::txtUserCurY : KeyPlace::Control);
}

// A host whose loop only dispatches leaves Tab and Enter to the controls: Tab goes round, Enter presses.
bool ControlWindowImplementation::HandlePlainKey(HWND window, WPARAM key) {
  if (key == VK_TAB) return MoveFocus(window, IsShiftDown()) || MoveFocus(nullptr, IsShiftDown());
  const auto item = mControls.ItemOf(window);
  if (key != VK_RETURN || !item || kToolBarItems.at(IndexOf(*item)).kind != ItemKind::Button) return false;
  if (const auto events = Events()) events->ToolBarPressed(*item);
  return true;
}

// These characters mean nothing to a one-line box, which would answer with a beep.
bool ControlWindowImplementation::HandleCharacter(HWND window, WPARAM character) {
  const bool isControlKey = character == VK_TAB || character == VK_ESCAPE || character == VK_RETURN;
  return isControlKey && window != mSurfaceView.Handle();
}

// In a dialog box of the host Escape means its Cancel button, unless an action is to be ended.
bool ControlWindowImplementation::WantsMessage(const MSG* message) {
  if (message == nullptr || message->message != WM_KEYDOWN || message->wParam != VK_ESCAPE) return false;
  const auto events = Events();
  return events && events->CurrentAction() != Action::None;
}

// The number is ready to be typed over, however the focus came; a click then sets the caret.
void ControlWindowImplementation::FocusCame(HWND window) {
  mLastFocus = window;
  if (window == mControls.Item(ToolBarItem::txtUserCurY)) ::SendMessageW(window, EM_SETSEL, 0, -1);
  if (mHost != nullptr) mHost->GotFocus();
}

void ControlWindowImplementation::FocusWent(HWND to) {
  if (mHost != nullptr && !IsWithin(to)) mHost->LostFocus();
}

bool ControlWindowImplementation::MoveFocus(HWND from, bool backwards) {
  const HWND next = mControls.NextStop(from, backwards);
  if (next == nullptr) return false;
  ::SetFocus(next);
  return true;
}

}  // namespace plotvane::control::win32
