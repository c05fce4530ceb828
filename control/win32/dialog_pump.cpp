#include "control/win32/dialog_pump.h"

#include <algorithm>

namespace plotvane::control::win32 {
namespace {

// The hook has no other way to its object. Trivial to destroy, so that a thread may end after the library is
// gone.
thread_local DialogPump* pumpOfThisThread = nullptr;

}  // namespace

std::shared_ptr<DialogPump> DialogPump::OfThisThread() {
  if (pumpOfThisThread != nullptr) return pumpOfThisThread->shared_from_this();
  auto pump = std::make_shared<DialogPump>();
  pumpOfThisThread = pump.get();
  return pump;
}

DialogPump::~DialogPump() {
  if (pumpOfThisThread == this) pumpOfThisThread = nullptr;
}

void DialogPump::Add(HWND dialog) {
  mDialogs.push_back(dialog);
  if (!mHook) {
    mHook.Reset(
        ::SetWindowsHookExW(WH_GETMESSAGE, &DialogPump::HookProcedure, nullptr, ::GetCurrentThreadId()));
  }
}

void DialogPump::Remove(HWND dialog) noexcept {
  std::erase(mDialogs, dialog);
  if (mDialogs.empty()) mHook.Reset();
}

bool DialogPump::UseUp(MSG& message) const {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  const auto dialogs = mDialogs;  // a key may close one
  return std::any_of(dialogs.begin(), dialogs.end(), [&](HWND dialog) {
    const bool within = message.hwnd == dialog || ::IsChild(dialog, message.hwnd);
    return within && ::IsDialogMessageW(dialog, &message);
  });
}

LRESULT CALLBACK DialogPump::HookProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
  if (code == HC_ACTION && wParam == PM_REMOVE && pumpOfThisThread != nullptr) {
    try {
      const auto keep = pumpOfThisThread->weak_from_this().lock();
      auto* const message = reinterpret_cast<MSG*>(lParam);
      // What a dialog used up reaches the host's loop as a message that means nothing.
      if (keep && keep->UseUp(*message)) message->message = WM_NULL;
    } catch (...) {  // out of memory: the key goes its usual way
    }
  }
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace plotvane::control::win32
