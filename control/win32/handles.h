// Owners for the system's handles: one template, one small trait for each kind.
#pragma once

#include <windows.h>

#include <utility>

namespace plotvane::control::win32 {

// Owns a handle and destroys it as its trait says. Empty when made without one.
template <typename Trait>
class Owned {
 public:
  using Handle = typename Trait::Handle;

  Owned() = default;
  explicit Owned(Handle handle) noexcept : mHandle(handle) {}
  ~Owned() { Reset(); }
  Owned(Owned&& other) noexcept : mHandle(std::exchange(other.mHandle, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.mHandle, nullptr));
    return *this;
  }

  [[nodiscard]] Handle Get() const noexcept { return mHandle; }
  [[nodiscard]] explicit operator bool() const noexcept { return mHandle != nullptr; }
  void Reset(Handle handle = nullptr) noexcept {
    const Handle old = std::exchange(mHandle, handle);
    if (old != nullptr) Trait::Destroy(old);
  }

 private:
  Handle mHandle = nullptr;
};

struct FontTrait {
  using Handle = HFONT;
  static void Destroy(Handle font) noexcept { ::DeleteObject(font); }
};
struct MenuTrait {
  using Handle = HMENU;
  static void Destroy(Handle menu) noexcept { ::DestroyMenu(menu); }
};
struct CursorTrait {
  using Handle = HCURSOR;
  static void Destroy(Handle cursor) noexcept { ::DestroyCursor(cursor); }
};
struct PenTrait {
  using Handle = HPEN;
  static void Destroy(Handle pen) noexcept { ::DeleteObject(pen); }
};
struct BrushTrait {
  using Handle = HBRUSH;
  static void Destroy(Handle brush) noexcept { ::DeleteObject(brush); }
};
struct RegionTrait {
  using Handle = HRGN;
  static void Destroy(Handle region) noexcept { ::DeleteObject(region); }
};
struct BitmapTrait {
  using Handle = HBITMAP;
  static void Destroy(Handle bitmap) noexcept { ::DeleteObject(bitmap); }
};
struct MemoryContextTrait {
  using Handle = HDC;
  static void Destroy(Handle context) noexcept { ::DeleteDC(context); }
};
struct WindowTrait {
  using Handle = HWND;
  static void Destroy(Handle window) noexcept { ::DestroyWindow(window); }
};
struct HookTrait {
  using Handle = HHOOK;
  static void Destroy(Handle hook) noexcept { ::UnhookWindowsHookEx(hook); }
};

using OwnedFont = Owned<FontTrait>;
using OwnedMenu = Owned<MenuTrait>;
using OwnedCursor = Owned<CursorTrait>;
using OwnedPen = Owned<PenTrait>;
using OwnedBrush = Owned<BrushTrait>;
using OwnedRegion = Owned<RegionTrait>;
using OwnedBitmap = Owned<BitmapTrait>;
using OwnedMemoryContext = Owned<MemoryContextTrait>;
using OwnedWindow = Owned<WindowTrait>;
using OwnedHook = Owned<HookTrait>;

// The device context of a window, given back at the end of the scope. The window may be null: the screen's.
class WindowContext {
 public:
  explicit WindowContext(HWND window) noexcept : mWindow(window), mContext(::GetDC(window)) {}
  ~WindowContext() {
    if (mContext != nullptr) ::ReleaseDC(mWindow, mContext);
  }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;
  [[nodiscard]] HDC Get() const noexcept { return mContext; }

 private:
  HWND mWindow;
  HDC mContext;
};

// Painting of a window within WM_PAINT.
class PaintScope {
 public:
  explicit PaintScope(HWND window) noexcept : mWindow(window) { ::BeginPaint(window, &mPaint); }
  ~PaintScope() { ::EndPaint(mWindow, &mPaint); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  [[nodiscard]] HDC Context() const noexcept { return mPaint.hdc; }
  [[nodiscard]] const RECT& Area() const noexcept { return mPaint.rcPaint; }

 private:
  HWND mWindow;
  PAINTSTRUCT mPaint{};
};

// The state of a device context (clipping, modes, selected objects), given back at the end of the scope.
class SavedContext {
 public:
  explicit SavedContext(HDC context) noexcept : mContext(context), mState(::SaveDC(context)) {}
  ~SavedContext() { ::RestoreDC(mContext, mState); }
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;

 private:
  HDC mContext;
  int mState;
};

// Selects an object into a device context for the scope.
class SelectScope {
 public:
  SelectScope(HDC context, HGDIOBJ object) noexcept
      : mContext(context), mOld(::SelectObject(context, object)) {}
  ~SelectScope() { ::SelectObject(mContext, mOld); }
  SelectScope(const SelectScope&) = delete;
  SelectScope& operator=(const SelectScope&) = delete;

 private:
  HDC mContext;
  HGDIOBJ mOld;
};

}  // namespace plotvane::control::win32
