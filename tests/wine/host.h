// The host's side of the Windows tests: the library from outside, objects that answer by name, an event sink
// and a strict container.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Plotvane.h"
#include "control/com/bstr.h"
#include "control/com/com_ptr.h"
#include "control/com/implements.h"
#include "control/com/variant.h"

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

using control::com::Bstr;
using control::com::ComPtr;
using control::com::Implements;
using control::com::Make;
using control::com::Variant;

// COM for the time of a test.
class Apartment {
 public:
  Apartment() { ::OleInitialize(nullptr); }
  ~Apartment() { ::OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

// Plotvane.ocx, loaded from its file without any registration; unloaded at the end.
class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] ComPtr<IClassFactory> Factory() const;
  [[nodiscard]] ComPtr<::_Graph> CreateGraph() const;
  // Whether nothing of the library is in use any more.
  [[nodiscard]] bool CanUnload() const;
  [[nodiscard]] static std::wstring Path();
  [[nodiscard]] HMODULE Module() const noexcept { return mModule; }

 private:
  HMODULE mModule;
};

// Arguments in the caller's order; a by-reference one can be written through.
using Arguments = std::vector<VARIANT*>;

// An automation object whose members are functions of the test.
class NamedObject final : public Implements<IDispatch> {
 public:
  using Member = std::function<Variant(Arguments& arguments, WORD kinds)>;

  // A method or property; ids count from 1 in the order of definition.
  void Define(const std::wstring& name, Member member);
  // A property that keeps a value.
  void DefineField(const std::wstring& name, Variant value);
  [[nodiscard]] Variant& Field(const std::wstring& name);
  // Runs `action` before every call of the member; what it throws is what the member throws.
  void Intercept(const std::wstring& name, std::function<void()> action) {
    mIntercepts[name] = std::move(action);
  }

  int nameLookups = 0;
  std::map<std::wstring, int> calls;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) noexcept override;

 private:
  std::vector<std::pair<std::wstring, Member>> mMembers;
  std::map<std::wstring, Variant> mFields;
  std::map<std::wstring, std::function<void()>> mIntercepts;
};

// What a member throws to fail the way an automation object does.
struct RaisedError {
  HRESULT status;
  std::wstring source;
  std::wstring text;
};

[[nodiscard]] ComPtr<NamedObject> MakeFunction(const char* equation, LONG colour = 255, bool enabled = true);
// A table with GetIdValue and Change over a map of values.
[[nodiscard]] ComPtr<NamedObject> MakeTable();
// A surface that draws nothing and counts its calls.
[[nodiscard]] ComPtr<NamedObject> MakeSurface(int width = 200, int height = 100);

// A zero-based array whose element 0 is empty, as most languages make it.
[[nodiscard]] Variant ArrayOf(const std::vector<IDispatch*>& objects);

// Calls a member by name, as a script does. The status and, after DISP_E_EXCEPTION, the status and text
// inside.
struct CallResult {
  HRESULT status = E_FAIL;
  Variant value;
  HRESULT raised = S_OK;
  std::string source;
  std::string text;
};
CallResult CallByName(IDispatch* object, const wchar_t* name, WORD kinds,
                      std::vector<Variant> arguments = {});

// Counts PlotDone; `action` runs inside it.
class EventSink final : public Implements<IDispatch> {
 public:
  int plotDone = 0;
  std::function<void()> action;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) noexcept override;
};

// Connects a sink to the events; the cookie to disconnect it.
DWORD Connect(IUnknown* object, REFIID events, IUnknown* sink);
void Disconnect(IUnknown* object, REFIID events, DWORD cookie);

// A container that fails the test on every call it does not expect in the present state, and keeps the log of
// calls.
class StrictSite final
    : public Implements<IOleClientSite, IOleInPlaceSite, IOleControlSite, IOleInPlaceFrame, IDispatch> {
 public:
  explicit StrictSite(HWND window) : mWindow(window) {}

  std::vector<std::string> log;
  bool userMode = true;
  bool hasUserMode = true;
  RECT position{0, 0, 400, 300};
  // Runs inside the call of that name.
  std::map<std::string, std::function<void()>> actions;
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
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kinds, DISPPARAMS*, VARIANT* result,
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

template <typename Interface>
ComPtr<Interface> As(IUnknown* object) {
  return ComPtr<Interface>::From(object);
}

}  // namespace plotvane::tests
