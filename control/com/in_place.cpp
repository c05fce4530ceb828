// In-place activation: the window in the container's, and the share of the user's attention.
//
// Every call to the site may deactivate, close or release the control. So each step asks afterwards whether
// the activation that it belongs to is still the present one.
#include <utility>

#include "control/com/graph_object.h"
#include "control/com/himetric.h"

namespace plotvane::control::com {

namespace {

// The modifier keys as IOleControlSite::TranslateAccelerator takes them.
constexpr DWORD kShiftHeld = 1;
constexpr DWORD kControlHeld = 2;
constexpr DWORD kAltHeld = 4;

DWORD ModifiersHeld() noexcept {
  return (::GetKeyState(VK_SHIFT) < 0 ? kShiftHeld : 0U) |
         (::GetKeyState(VK_CONTROL) < 0 ? kControlHeld : 0U) | (::GetKeyState(VK_MENU) < 0 ? kAltHeld : 0U);
}

// Runs one call to the container in the host's floating-point state.
template <typename Body>
auto CallHost(Body&& body) {
  const win32::HostFloatingPoint hostState;
  return body();
}

}  // namespace

// ---- Activation ----

HRESULT GraphObject::ActivateInPlace(bool withUserInterface) {
  if (!mSite) return E_UNEXPECTED;
  if (!mInPlaceActive) {
    const HRESULT entered = EnterInPlace();
    if (FAILED(entered)) return entered;
  }
  mWindow->Show(true);
  const auto client = ComPtr<IOleClientSite>(mSite.Get());
  if (withUserInterface) {
    const HRESULT activated = ActivateUserInterface();
    if (FAILED(activated)) return activated;
  }
  if (client) CallHost([&] { client->ShowObject(); });
  return S_OK;
}

HRESULT GraphObject::EnterInPlace() {
  auto site = mSite.As<IOleInPlaceSite>();
  if (!site) return E_NOINTERFACE;
  const unsigned activation = ++mActivation;
  const auto stillWanted = [&] { return activation == mActivation; };

  if (CallHost([&] { return site->CanInPlaceActivate(); }) != S_OK || !stillWanted()) return E_FAIL;
  const HRESULT announced = CallHost([&] { return site->OnInPlaceActivate(); });
  if (FAILED(announced)) return announced;
  mInPlaceActive = stillWanted();
  mInPlaceSite = site;
  if (!mInPlaceActive) {
    // Undone meanwhile by somebody who could not know of the activation yet: take it back.
    mInPlaceSite.Reset();
    CallHost([&] { site->OnInPlaceDeactivate(); });
    return E_ABORT;
  }

  HWND parent = nullptr;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO frameInfo{};
  frameInfo.cb = sizeof frameInfo;
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  HRESULT status = CallHost([&] { return site->GetWindow(&parent); });
  if (SUCCEEDED(status) && stillWanted()) {
    status = CallHost([&] {
      return site->GetWindowContext(frame.Receive(), document.Receive(), &position, &clip, &frameInfo);
    });
  }
  if (!stillWanted()) return E_ABORT;
  if (FAILED(status) || !mWindow->Create(parent, position)) {
    DeactivateInPlace();
    return FAILED(status) ? status : E_FAIL;
  }
  std::swap(mFrame, frame);
  std::swap(mDocument, document);
  return SetObjectRects(&position, &clip);
}

HRESULT GraphObject::ActivateUserInterface() {
  if (mUserInterfaceActive) return S_OK;
  const auto site = mInPlaceSite;
  const auto frame = mFrame;
  const auto document = mDocument;
  if (!site) return E_UNEXPECTED;
  const unsigned activation = mActivation;
  const auto stillWanted = [&] { return activation == mActivation && mUserInterfaceActive; };

  mUserInterfaceActive = true;
  const HRESULT announced = CallHost([&] { return site->OnUIActivate(); });
  if (FAILED(announced)) {
    mUserInterfaceActive = false;
    return announced;
  }
  if (stillWanted() && !mWindow->HasFocus()) mWindow->TakeFocus();
  // The control brings no menu and no tool space of its own.
  if (stillWanted() && frame) {
    CallHost([&] {
      frame->SetActiveObject(this, nullptr);
      frame->SetBorderSpace(nullptr);
    });
  }
  if (stillWanted() && document) {
    CallHost([&] {
      document->SetActiveObject(this, nullptr);
      document->SetBorderSpace(nullptr);
    });
  }
  return stillWanted() ? S_OK : E_ABORT;
}

void GraphObject::DeactivateUserInterface() noexcept {
  if (!std::exchange(mUserInterfaceActive, false)) return;
  const auto site = mInPlaceSite;
  const auto frame = mFrame;
  const auto document = mDocument;
  CallHost([&] {
    if (document) document->SetActiveObject(nullptr, nullptr);
    if (frame) frame->SetActiveObject(nullptr, nullptr);
    if (site) site->OnUIDeactivate(FALSE);
  });
}

void GraphObject::DeactivateInPlace() noexcept {
  ++mActivation;
  DeactivateUserInterface();
  if (!std::exchange(mInPlaceActive, false)) return;
  mWindow->Destroy();
  const auto site = std::exchange(mInPlaceSite, nullptr);
  const auto frame = std::exchange(mFrame, nullptr);
  const auto document = std::exchange(mDocument, nullptr);
  CallHost([&] {
    if (site) site->OnInPlaceDeactivate();
  });
}

// ---- The window's news ----

// A child of the control got the focus by a click or a Tab: the container is told as if it had activated the
// control.
void GraphObject::WindowGotFocus() {
  const win32::OwnFloatingPoint ownState;
  const ComPtr<IUnknown> alive(Identity());
  if (!mInPlaceActive) return;
  if (const auto control = mSite.As<IOleControlSite>()) CallHost([&] { control->OnFocus(TRUE); });
  if (mInPlaceActive && !mUserInterfaceActive) static_cast<void>(ActivateUserInterface());
}

void GraphObject::WindowLostFocus() {
  const win32::OwnFloatingPoint ownState;
  const ComPtr<IUnknown> alive(Identity());
  if (!mInPlaceActive) return;
  if (const auto control = mSite.As<IOleControlSite>()) CallHost([&] { control->OnFocus(FALSE); });
}

// A box of the control is open: the windows of the container that stand beside it are to be out of reach.
void GraphObject::EnableHostWindows(bool enable) {
  const win32::OwnFloatingPoint ownState;
  const ComPtr<IUnknown> alive(Identity());
  if (const auto frame = mFrame) CallHost([&] { frame->EnableModeless(enable ? TRUE : FALSE); });
}

// ---- IOleWindow, IOleInPlaceObject ----

HRESULT GraphObject::GetWindow(HWND* window) noexcept {
  if (window == nullptr) return E_POINTER;
  *window = mInPlaceActive ? mWindow->Handle() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT GraphObject::ContextSensitiveHelp(BOOL) noexcept {
  return E_NOTIMPL;
}

HRESULT GraphObject::InPlaceDeactivate() noexcept {
  return Enter([&] { DeactivateInPlace(); });
}

HRESULT GraphObject::UIDeactivate() noexcept {
  return Enter([&] { DeactivateUserInterface(); });
}

HRESULT GraphObject::SetObjectRects(const RECT* position, const RECT* clip) noexcept {
  if (position == nullptr) return E_POINTER;
  return Enter([&] {
    if (!mInPlaceActive) return;
    mWindow->SetRect(*position);
    ShowPartWithin(*position, clip);
  });
}

// Both rectangles are in the container's pixels, the window's region in the window's own. Containers that do
// not clip give the position itself, nothing, or a rectangle that is empty.
void GraphObject::ShowPartWithin(const RECT& position, const RECT* clip) {
  RECT part{};
  const bool clipped =
      clip != nullptr && ::IntersectRect(&part, &position, clip) && !::EqualRect(&part, &position);
  ::OffsetRect(&part, -position.left, -position.top);
  mWindow->SetClip(clipped ? &part : nullptr);
}

HRESULT GraphObject::ReactivateAndUndo() noexcept {
  return INPLACE_E_NOTUNDOABLE;
}

// ---- IOleInPlaceActiveObject ----

// The container first: it owns the keys that lead from one control to the next.
HRESULT GraphObject::TranslateAccelerator(MSG* message) noexcept {
  if (message == nullptr) return E_POINTER;
  return Enter([&]() -> HRESULT {
    if (const auto control = mSite.As<IOleControlSite>()) {
      const DWORD modifiers = ModifiersHeld();
      if (CallHost([&] { return control->TranslateAccelerator(message, modifiers); }) == S_OK) return S_OK;
    }
    return mInPlaceActive && mWindow->TranslateAccelerator(*message) ? S_OK : S_FALSE;
  });
}

HRESULT GraphObject::OnFrameWindowActivate(BOOL) noexcept {
  return S_OK;
}
HRESULT GraphObject::OnDocWindowActivate(BOOL) noexcept {
  return S_OK;
}
HRESULT GraphObject::ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) noexcept {
  return S_OK;
}
HRESULT GraphObject::EnableModeless(BOOL) noexcept {
  return S_OK;
}

}  // namespace plotvane::control::com
