// ControlWindow: the control on a screen: a child window with the toolbar, the surface and the status boxes.
//
//   auto window = win32::ControlWindow::Make(module, lock);
//   auto graph = Graph::Create(window);            // the window is the face of the control
//   window->Attach(graph);
//   window->Create(parent, rect);                  // as often as the host activates the control
//   …
//   window->Destroy();
//
// The object outlives its window: before Create, after Destroy, and after a parent has taken the window away
// (with or without WM_DESTROY), texts, visibility and picture are kept and every call is harmless. It refers
// to the control without keeping it alive; while a message is handled, it does keep it alive.
#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <vector>

#include "control/face.h"

namespace plotvane::control {
class Graph;
}

namespace plotvane::control::win32 {

// Called by the window when the host's side has to act.
class ControlWindowHost {
 public:
  virtual ~ControlWindowHost() = default;
  // A child of the control got the focus: the host should UI-activate the control.
  virtual void GotFocus() = 0;
  virtual void LostFocus() = 0;
  // A message or input box opens (false) or has closed (true): the host's own modeless windows.
  virtual void EnableModeless(bool /*enable*/) {}
};

class ControlWindow : public Face {
 public:
  // `module` is the library's own handle; window classes are registered for it with the first window and
  // unregistered with the last. `moduleLock` is held by the object and by every dialog: as long as one
  // exists, the library must not be unloaded.
  [[nodiscard]] static std::shared_ptr<ControlWindow> Make(HINSTANCE module,
                                                           std::shared_ptr<void> moduleLock = nullptr);
  ~ControlWindow() override = default;

  virtual void Attach(const std::shared_ptr<Graph>& graph) = 0;
  virtual void SetHost(ControlWindowHost* host) noexcept = 0;  // not owned; nullptr to let go

  // The window. Create answers false when the system makes none; the object is then as before.
  [[nodiscard]] virtual bool Create(HWND parent, const RECT& rect) = 0;
  virtual void Destroy() noexcept = 0;
  [[nodiscard]] virtual HWND Handle() const noexcept = 0;  // null without a window
  virtual void SetParent(HWND parent) = 0;
  virtual void SetRect(const RECT& rect) = 0;  // in the parent's client pixels; resizes the control
  virtual void SetClip(const RECT* clip) = 0;  // the part it may show, in its own pixels; null for all
  virtual void Show(bool visible) = 0;

  // ---- Keyboard ----
  // Takes the focus to the control the user worked in last, the first button at first.
  virtual void TakeFocus() = 0;
  [[nodiscard]] virtual bool HasFocus() const noexcept = 0;
  // The keys of the control itself: Tab within the toolbar, Escape, the arrows in txtUserCurY, Alt with a
  // mnemonic. True when the message was used up. The host is to be asked before.
  [[nodiscard]] virtual bool TranslateAccelerator(MSG& message) = 0;
  // The mnemonics as upper-case letters, in toolbar order.
  [[nodiscard]] virtual std::span<const wchar_t> Mnemonics() const noexcept = 0;
  // Presses the control with that mnemonic; false when there is none.
  virtual bool PressMnemonic(wchar_t letter) = 0;

  // ---- Picture ----
  // Draws the control as it stands (toolbar, surface, status boxes) into `rect` of another device context.
  virtual void DrawTo(HDC target, const RECT& rect) = 0;
  // The host's ambient properties changed: colours, font, resolution.
  virtual void RefreshAppearance() = 0;
};

}  // namespace plotvane::control::win32
