// DialogPump: the keyboard of the modeless dialogs, whose messages run through a loop of the host that knows
// nothing of them.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "control/win32/handles.h"

namespace plotvane::control::win32 {

// While a dialog of the thread is open, a hook looks at each message that the host's loop takes from the
// queue, and gives those of a dialog to IsDialogMessage: Tab, Enter, Escape and mnemonics work. The hook goes
// with the last dialog.
class DialogPump : public std::enable_shared_from_this<DialogPump> {
 public:
  // The pump of this thread; it lives as long as a dialog holds it.
  [[nodiscard]] static std::shared_ptr<DialogPump> OfThisThread();

  DialogPump() = default;
  ~DialogPump();
  DialogPump(const DialogPump&) = delete;
  DialogPump& operator=(const DialogPump&) = delete;

  void Add(HWND dialog);
  void Remove(HWND dialog) noexcept;

 private:
  static LRESULT CALLBACK HookProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept;
  [[nodiscard]] bool UseUp(MSG& message) const;

  std::vector<HWND> mDialogs;
  OwnedHook mHook;
};

}  // namespace plotvane::control::win32
