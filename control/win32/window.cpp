#include "control/win32/window.h"

#include <utility>

#include "control/win32/floating_point_state.h"

namespace plotvane::control::win32 {

Window* Window::Bound(HWND window) noexcept {
  return reinterpret_cast<Window*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
}

// A handle may have been given to another window since: only one that is bound to this object counts.
HWND Window::Handle() const noexcept {
  const bool ours = mHandle != nullptr && ::IsWindow(mHandle) && Bound(mHandle) == this;
  return ours ? mHandle : nullptr;
}

bool Window::CreateWindowOf(const Creation& creation) {
  DestroyWindow();
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &Window::Procedure;
  windowClass.hInstance = creation.module;
  windowClass.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = creation.background;
  windowClass.lpszClassName = creation.className;
  ::RegisterClassExW(&windowClass);  // refused when it is registered already

  mModule = creation.module;
  mClassName = creation.className;
  const RECT& rect = creation.rect;
  ::CreateWindowExW(creation.extendedStyle, creation.className, creation.text, creation.style, rect.left,
                    rect.top, rect.right - rect.left, rect.bottom - rect.top, creation.parent, nullptr,
                    creation.module, this);
  return Handle() != nullptr;
}

// The class goes with its last window, so that nothing of the library is left behind when it is unloaded; the
// system refuses as long as another window of the class exists.
void Window::DestroyWindow() noexcept {
  const HWND window = Handle();
  mHandle = nullptr;
  if (window != nullptr) {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    ::DestroyWindow(window);
  }
  if (const wchar_t* className = std::exchange(mClassName, nullptr)) ::UnregisterClassW(className, mModule);
}

LRESULT Window::Default(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
  return ::DefWindowProcW(mHandle, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* creating = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creating));
    creating->mHandle = window;
  }
  Window* const object = Bound(window);
  if (object == nullptr) return ::DefWindowProcW(window, message, wParam, lParam);
  const OwnFloatingPoint ownState;
  try {
    const std::shared_ptr<void> keep = object->KeepAlive();
    const LRESULT result = object->HandleMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) object->mHandle = nullptr;
    return result;
  } catch (...) {
    return 0;  // a message has no way to report; gestures report their own errors
  }
}

namespace {

BOOL CALLBACK SendSystemColourChange(HWND window, LPARAM) {
  ::SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  return TRUE;
}

}  // namespace

void SpreadSystemColours(HWND window) noexcept {
  ::EnumChildWindows(window, &SendSystemColourChange, 0);
  ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace plotvane::control::win32
