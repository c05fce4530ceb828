// DialogWindow: a dialog box of the system whose messages go to an object.
#pragma once

#include <windows.h>

#include <memory>

#include "control/win32/dialog_pump.h"
#include "control/win32/dialog_template.h"
#include "control/win32/tooltips.h"

namespace plotvane::control::win32 {

// Derived classes handle messages in Handle…; the object may live longer than its window. Exceptions end at
// the dialog procedure.
class DialogWindow : public std::enable_shared_from_this<DialogWindow> {
 public:
  DialogWindow() = default;
  virtual ~DialogWindow() { DestroyDialog(); }
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;

  [[nodiscard]] HWND Dialog() const noexcept { return mDialog; }
  [[nodiscard]] HWND Item(int id) const noexcept { return ::GetDlgItem(mDialog, id); }

 protected:
  // Not shown yet, without an owner; its keyboard works without the host's message loop.
  [[nodiscard]] bool CreateModeless(HINSTANCE module, const DialogTemplate& description);
  // Shown until EndModal; its result, or -1 when the system refuses.
  INT_PTR RunModal(HINSTANCE module, HWND owner, const DialogTemplate& description);
  void EndModal(INT_PTR result) noexcept { ::EndDialog(mDialog, result); }
  void DestroyDialog() noexcept;
  void ShowDialog();

  // The controls exist; texts and tooltips may be set.
  virtual void HandleInit(Tooltips& tooltips) = 0;
  // A command of the dialog or a notification of a control.
  virtual void HandleCommand(int id, int notification) = 0;
  // Any other message; 0 leaves it to the system.
  virtual INT_PTR HandleOther(UINT message, WPARAM wParam, LPARAM lParam);
  // The window is gone.
  virtual void HandleDestroyed() {}

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  INT_PTR Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  void Init();

  HWND mDialog = nullptr;
  HINSTANCE mModule = nullptr;
  std::shared_ptr<DialogPump> mPump;
  Tooltips mTooltips;
};

}  // namespace plotvane::control::win32
