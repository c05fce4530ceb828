// StrictSite: a container that fails the test on every call it does not expect.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/wine/host.h"

namespace plotvane::control::com {

template <>
struct BaseOf<IOleInPlaceSite> {
  using Type = IOleWindow;
};
template <>
struct BaseOf<IOleInPlaceUIWindow> {
  using Type = IOleWindow;
};
template <>
struct BaseOf<IOleInPlaceFrame> {
  using Type = IOleInPlaceUIWindow;
};

}  // namespace plotvane::control::com

namespace plotvane::tests {

// A container that fails the test on every call it does not expect in the present state, and keeps the log of
// calls.
class StrictSite final
    : public Implements<IOleClientSite, IOleInPlaceSite, IOleControlSite, IOleInPlaceFrame, IDispatch> {
 public:
  explicit StrictSite(HWND window) : mWindow(window) {}

  std::vector<std::string> log;
  // The ambient properties that it has, and its answer to the question for others.
  std::map<DISPID, Variant> ambients{{DISPID_AMBIENT_USERMODE, Variant(true)}};
  HRESULT unknownAmbient = DISP_E_MEMBERNOTFOUND;
  RECT position{0, 0, 400, 300};
  // Runs inside the call of that name.
  std::map<std::string, std::function<void()>> actions;
  // The call that fails, if any.
  std::string refused;
  ComPtr<IOleInPlaceActiveObject> activeObject;
  bool inPlace = false;
  bool userInterface = false;

  [[nodiscard]] int Count(const std::string& call) const;

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return Unexpected("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override {
    return Unexpected("GetMoniker");
  }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
  HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return Note("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return Unexpected("OnShowWindow"); }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override {
    return Unexpected("RequestNewObjectLayout");
  }
  // IOleWindow of the site and of the frame
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override {
    return Unexpected("ContextSensitiveHelp");
  }
  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override;
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override;
  HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                             RECT* place, RECT* clip,
                                             OLEINPLACEFRAMEINFO* info) noexcept override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return Unexpected("Scroll"); }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override;
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override;
  HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return Unexpected("DiscardUndoState"); }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return Unexpected("DeactivateAndUndo"); }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(const RECT*) noexcept override {
    return Unexpected("OnPosRectChange");
  }
  // IOleControlSite
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override {
    return Unexpected("OnControlInfoChanged");
  }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override {
    return Unexpected("LockInPlaceActive");
  }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) noexcept override {
    return Unexpected("GetExtendedControl");
  }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override {
    return Unexpected("TransformCoords");
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL focus) noexcept override {
    return Note(focus != FALSE ? "OnFocus" : "OnBlur");
  }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return Unexpected("ShowPropertyFrame"); }
  // IOleInPlaceUIWindow, IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE GetBorder(RECT*) noexcept override { return Unexpected("GetBorder"); }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(const BORDERWIDTHS*) noexcept override {
    return Unexpected("RequestBorderSpace");
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(const BORDERWIDTHS* widths) noexcept override;
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept override;
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) noexcept override {
    return Unexpected("InsertMenus");
  }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return Unexpected("SetMenu"); }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return Unexpected("RemoveMenus"); }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return Unexpected("SetStatusText"); }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return Note("EnableModeless"); }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) noexcept override {
    return Unexpected("frame TranslateAccelerator");
  }
  // IDispatch: the ambient properties
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override {
    return Unexpected("GetTypeInfoCount");
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override {
    return Unexpected("GetTypeInfo");
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return Unexpected("GetIDsOfNames");
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO*, UINT*) noexcept override;

 private:
  HRESULT Note(const char* call) noexcept;
  HRESULT Unexpected(const char* call) noexcept;

  HWND mWindow;
};

// A top-level window to hold the control.
class HostWindow {
 public:
  HostWindow();
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  [[nodiscard]] HWND Get() const noexcept { return mWindow; }
  void Destroy() noexcept;

 private:
  HWND mWindow;
};

// Handles the messages that are waiting.
void PumpMessages();

// The text of a window, of another process too; empty when that process does not answer.
[[nodiscard]] std::wstring TextOfWindow(HWND window);
// The first window with that text within `parent`, at any depth.
[[nodiscard]] HWND ChildWithText(HWND parent, const std::wstring& text);

}  // namespace plotvane::tests
