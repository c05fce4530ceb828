#include "control/win32/dialog_window.h"

#include <utility>

#include "control/win32/floating_point_state.h"
#include "control/win32/window.h"

namespace plotvane::control::win32 {

bool DialogWindow::CreateModeless(HINSTANCE module, const DialogTemplate& description) {
  mModule = module;
  ::CreateDialogIndirectParamW(module, description.Get(), nullptr, &DialogWindow::Procedure,
                               reinterpret_cast<LPARAM>(this));
  if (mDialog == nullptr) return false;
  mPump = DialogPump::OfThisThread();
  mPump->Add(mDialog);
  return true;
}

INT_PTR DialogWindow::RunModal(HINSTANCE module, HWND owner, const DialogTemplate& description) {
  mModule = module;
  const HostFloatingPoint hostState;  // other windows get their messages meanwhile
  return ::DialogBoxIndirectParamW(module, description.Get(), owner, &DialogWindow::Procedure,
                                   reinterpret_cast<LPARAM>(this));
}

// Unbound first: no message reaches the object any more.
void DialogWindow::DestroyDialog() noexcept {
  const HWND dialog = std::exchange(mDialog, nullptr);
  if (dialog == nullptr) return;
  ::SetWindowLongPtrW(dialog, DWLP_USER, 0);
  if (const auto pump = std::exchange(mPump, nullptr)) pump->Remove(dialog);
  ::DestroyWindow(dialog);
}

void DialogWindow::ShowDialog() {
  ::ShowWindow(mDialog, SW_SHOW);
  ::SetForegroundWindow(mDialog);
}

INT_PTR DialogWindow::HandleOther(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return 0;
}

void DialogWindow::Init() {
  mTooltips.Create(mModule, mDialog);
  HandleInit(mTooltips);
}

INT_PTR DialogWindow::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG: return Init(), TRUE;
    case WM_COMMAND: return HandleCommand(LOWORD(wParam), HIWORD(wParam)), TRUE;
    case WM_SYSCOLORCHANGE: SpreadSystemColours(mDialog); return HandleOther(message, wParam, lParam);
    case WM_CLOSE: return HandleCommand(IDCANCEL, BN_CLICKED), TRUE;
    case WM_DESTROY:
      if (const auto pump = std::exchange(mPump, nullptr)) pump->Remove(mDialog);
      mTooltips.Destroy();
      mDialog = nullptr;
      HandleDestroyed();
      return FALSE;
    default: return HandleOther(message, wParam, lParam);
  }
}

INT_PTR CALLBACK DialogWindow::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    reinterpret_cast<DialogWindow*>(lParam)->mDialog = dialog;
  }
  auto* const object = reinterpret_cast<DialogWindow*>(::GetWindowLongPtrW(dialog, DWLP_USER));
  if (object == nullptr || object->mDialog == nullptr) return FALSE;
  const OwnFloatingPoint ownState;
  try {
    const auto keep = object->weak_from_this().lock();
    return object->Dispatch(message, wParam, lParam);
  } catch (...) {
    return FALSE;  // a message has no way to report; gestures report their own errors
  }
}

}  // namespace plotvane::control::win32
