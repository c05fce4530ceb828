// SurfaceView: the window of picGraph: shows the picture with the overlay, reports the mouse.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "control/gestures.h"
#include "control/win32/cursors.h"
#include "control/win32/gdi_surface.h"
#include "control/win32/keyboard_filter.h"
#include "control/win32/overlay.h"
#include "control/win32/window.h"

namespace plotvane::control::win32 {

// What the view needs of the window around it.
class SurfaceOwner : public KeyboardFilter {
 public:
  // The control's events; null when the control is gone.
  [[nodiscard]] virtual std::shared_ptr<Gestures> Events() = 0;
};

class SurfaceView : public Window {
 public:
  // The owner outlives the view. Surface and overlay outlive its window.
  explicit SurfaceView(SurfaceOwner& owner);
  ~SurfaceView() override;

  [[nodiscard]] bool Create(HINSTANCE module, HWND parent);
  [[nodiscard]] const std::shared_ptr<GdiSurface>& Surface() const noexcept { return mSurface; }
  [[nodiscard]] Overlay& GetOverlay() noexcept { return mOverlay; }

 protected:
  [[nodiscard]] std::shared_ptr<void> KeepAlive() override { return mOwner.KeepOwnerAlive(); }
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Paint();
  void ButtonDown(MouseButton button, LPARAM position);
  void ButtonUp(MouseButton button, LPARAM position);
  void Move(WPARAM keys, LPARAM position);
  void ShowPointer(graph::PointerKind kind);

  SurfaceOwner& mOwner;
  std::shared_ptr<GdiSurface> mSurface;
  Overlay mOverlay;
  SurfaceCursors mCursors;
  graph::PointerKind mPointer = graph::PointerKind::Arrow;
};

}  // namespace plotvane::control::win32
