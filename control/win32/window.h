// Window: a window of our own class whose messages go to an object.
#pragma once

#include <windows.h>

#include <memory>

namespace plotvane::control::win32 {

// Derived classes handle messages in Handle: one line each, decode and call. The object may live longer than
// its window (a parent destroys its children; a host may even lose the window without a message) and the
// window is destroyed with the object. Exceptions end at the window procedure.
class Window {
 public:
  Window() = default;
  virtual ~Window() { DestroyWindow(); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  // Null without a window.
  [[nodiscard]] HWND Handle() const noexcept;
  void DestroyWindow() noexcept;

 protected:
  struct Creation {
    HINSTANCE module = nullptr;
    const wchar_t* className = nullptr;
    const wchar_t* text = L"";
    DWORD style = 0;
    DWORD extendedStyle = 0;
    RECT rect{};
    HWND parent = nullptr;
    HBRUSH background = nullptr;  // null for a window that paints all of itself
  };
  // A background that follows the system's colour of that index.
  [[nodiscard]] static HBRUSH SystemBackground(int colourIndex) noexcept {
    return reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(colourIndex) + 1);
  }

  // Registers the window class for the module when it is not, then makes the window; false when the system
  // refuses.
  [[nodiscard]] bool CreateWindowOf(const Creation& creation);

  // What keeps the object alive while one of its messages is handled.
  [[nodiscard]] virtual std::shared_ptr<void> KeepAlive() = 0;
  virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  [[nodiscard]] LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  // The object behind a window of our class; null while there is none.
  [[nodiscard]] static Window* Bound(HWND window) noexcept;

  HWND mHandle = nullptr;
  HINSTANCE mModule = nullptr;
  const wchar_t* mClassName = nullptr;
};

// The system's colours have changed: tells the windows inside, of which the system tells none, and has
// everything painted again.
void SpreadSystemColours(HWND window) noexcept;

}  // namespace plotvane::control::win32
