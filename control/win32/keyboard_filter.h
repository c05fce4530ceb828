// KeyboardFilter: sees the key and focus messages of the system's own controls before they do.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

namespace plotvane::control::win32 {

class KeyboardFilter {
 public:
  virtual ~KeyboardFilter() = default;
  // The answer to a message that was used up; nothing for all others. Any message may come.
  virtual std::optional<LRESULT> Filter(HWND window, UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // What keeps the filter alive while a message is handled.
  [[nodiscard]] virtual std::shared_ptr<void> KeepOwnerAlive() = 0;
};

// Puts the filter before the control's own window procedure. It leaves with the control's window, or through
// RemoveFilter, whichever comes first; the filter must not be destroyed before.
void InstallFilter(HWND control, KeyboardFilter& filter);
void RemoveFilter(HWND control) noexcept;

}  // namespace plotvane::control::win32
