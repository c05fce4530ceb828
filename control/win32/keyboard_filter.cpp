#include "control/win32/keyboard_filter.h"

#include "control/win32/floating_point_state.h"

namespace plotvane::control::win32 {
namespace {

constexpr wchar_t kFilterProperty[] = L"PlotvaneKeyboardFilter";
constexpr wchar_t kProcedureProperty[] = L"PlotvaneOwnProcedure";

WNDPROC OwnProcedure(HWND control) noexcept {
  return reinterpret_cast<WNDPROC>(reinterpret_cast<void*>(::GetPropW(control, kProcedureProperty)));
}

LRESULT CALLBACK FilterProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  const WNDPROC own = OwnProcedure(control);
  auto* const filter = static_cast<KeyboardFilter*>(::GetPropW(control, kFilterProperty));
  if (own == nullptr) return ::DefWindowProcW(control, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    RemoveFilter(control);
    return ::CallWindowProcW(own, control, message, wParam, lParam);
  }
  const OwnFloatingPoint ownState;
  try {
    const auto keep = filter == nullptr ? nullptr : filter->KeepOwnerAlive();
    const auto answer = filter == nullptr ? std::nullopt : filter->Filter(control, message, wParam, lParam);
    if (answer) return *answer;
    return ::CallWindowProcW(own, control, message, wParam, lParam);
  } catch (...) {
    return 0;
  }
}

}  // namespace

void InstallFilter(HWND control, KeyboardFilter& filter) {
  const LONG_PTR own = ::GetWindowLongPtrW(control, GWLP_WNDPROC);
  ::SetPropW(control, kFilterProperty, &filter);
  ::SetPropW(control, kProcedureProperty, reinterpret_cast<HANDLE>(own));
  ::SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&FilterProcedure));
}

void RemoveFilter(HWND control) noexcept {
  const WNDPROC own = OwnProcedure(control);
  if (own == nullptr) return;
  ::SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
  ::RemovePropW(control, kFilterProperty);
  ::RemovePropW(control, kProcedureProperty);
}

}  // namespace plotvane::control::win32
