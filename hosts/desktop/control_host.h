// ControlHost: makes the graph control, shows it in a window and lets go of it again.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <functional>

#include "Plotvane.h"  // made from the interface description

namespace plotvane::desktop {

class ControlHost {
 public:
  // Activates the control as a child of `window` within `bounds` (asked for when needed). `plotDone` follows each
  // plot. Throws platform::RunTimeError with a text for the user when the control cannot be made.
  ControlHost(HWND window, std::function<RECT()> bounds, std::function<void()> plotDone);
  ~ControlHost();
  ControlHost(const ControlHost&) = delete;
  ControlHost& operator=(const ControlHost&) = delete;

  // The control's automation interface.
  [[nodiscard]] _Graph& Graph() { return *mGraph.Get(); }

  // Fits the control into the bounds again, after they changed.
  void Resize();

  // Offers a key message to the control: first to whatever is active in it, then as one of its mnemonics. True when
  // the control took it.
  bool TranslateKey(MSG& message);

  // Of the graph alone, in pixels.
  [[nodiscard]] SIZE GraphSize();
  // Draws the graph, without the toolbar and the status boxes around it, into any device context so that it fills
  // `place` (in the context's logical units).
  [[nodiscard]] HRESULT DrawGraph(HDC device, const RECT& place);

 private:
  void Connect(std::function<void()> plotDone);
  bool TranslateMnemonic(MSG& message);
  [[nodiscard]] HWND ControlWindow();
  [[nodiscard]] RECT GraphBounds();

  HWND mWindow;
  std::function<RECT()> mBounds;
  Microsoft::WRL::ComPtr<class ControlSite> mSite;
  Microsoft::WRL::ComPtr<_Graph> mGraph;
  Microsoft::WRL::ComPtr<IOleObject> mObject;
  Microsoft::WRL::ComPtr<IConnectionPoint> mEvents;
  DWORD mEventCookie = 0;
};

}  // namespace plotvane::desktop
