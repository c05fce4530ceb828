#include "hosts/desktop/control_host.h"

#include <string>

#include "hosts/desktop/control_site.h"
#include "hosts/desktop/event_sink.h"
#include "platform/runtime_error.h"

namespace plotvane::desktop {

using Microsoft::WRL::ComPtr;

namespace {

// Makes the classes of a manifest known to this thread, without registration, for as long as it lives; does nothing
// when there is no such manifest.
class ManifestScope {
 public:
  explicit ManifestScope(const std::wstring& manifest) {
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    mContext = ::CreateActCtxW(&description);
    if (mContext != INVALID_HANDLE_VALUE) mActive = ::ActivateActCtx(mContext, &mCookie) != FALSE;
  }
  ~ManifestScope() {
    if (mActive) ::DeactivateActCtx(0, mCookie);
    if (mContext != INVALID_HANDLE_VALUE) ::ReleaseActCtx(mContext);
  }
  ManifestScope(const ManifestScope&) = delete;
  ManifestScope& operator=(const ManifestScope&) = delete;

 private:
  HANDLE mContext = INVALID_HANDLE_VALUE;
  ULONG_PTR mCookie = 0;
  bool mActive = false;
};

std::wstring FileBesideProgram(const wchar_t* name) {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  path.resize(path.rfind(L'\\') + 1);
  return path + name;
}

// The control beside this program is found through its manifest, any other through the registry.
ComPtr<IUnknown> CreateControl() {
  const ManifestScope manifest(FileBesideProgram(L"Plotvane.manifest"));
  ComPtr<IUnknown> control;
  const HRESULT status =
      ::CoCreateInstance(CLSID_Graph, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(control.GetAddressOf()));
  if (SUCCEEDED(status)) return control;
  throw platform::RunTimeError(
      status,
      "The graph control cannot be made. Put Plotvane.ocx and Plotvane.manifest beside this program, or register the "
      "control once: regsvr32 Plotvane.ocx");
}

struct WindowSearch {
  SIZE size;
  HWND found = nullptr;
};

// Ends the search at a window of the wanted size.
BOOL CALLBACK CompareSize(HWND window, LPARAM longer) {
  auto& search = *reinterpret_cast<WindowSearch*>(longer);
  RECT client;
  ::GetClientRect(window, &client);
  if (client.right == search.size.cx && client.bottom == search.size.cy) search.found = window;
  return search.found == nullptr ? TRUE : FALSE;
}

void Check(HRESULT status, const char* what) {
  if (FAILED(status)) throw platform::RunTimeError(status, what);
}

}  // namespace

ControlHost::ControlHost(HWND window, std::function<RECT()> bounds, std::function<void()> plotDone)
    : mWindow(window), mBounds(std::move(bounds)) {
  const ComPtr<IUnknown> control = CreateControl();
  Check(control.As(&mGraph), "The control does not answer to its interface.");
  Check(control.As(&mObject), "The control cannot be shown in a window.");
  mSite.Attach(new ControlSite(window, mBounds));
  mObject->SetClientSite(mSite.Get());
  const RECT place = mBounds();
  Check(mObject->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, mSite.Get(), 0, window, &place),
        "The control cannot be activated.");
  Resize();
  Connect(std::move(plotDone));
}

ControlHost::~ControlHost() {
  if (mEvents) mEvents->Unadvise(mEventCookie);
  if (const ComPtr<IOleObject> object = mObject) {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }
  if (mSite) mSite->Detach();
}

void ControlHost::Connect(std::function<void()> plotDone) {
  ComPtr<IConnectionPointContainer> container;
  if (FAILED(mGraph.As(&container))) return;
  if (FAILED(container->FindConnectionPoint(DIID___Graph, mEvents.GetAddressOf()))) return;
  ComPtr<IDispatch> sink;
  sink.Attach(new EventSink(DIID___Graph, std::move(plotDone)));
  if (FAILED(mEvents->Advise(sink.Get(), &mEventCookie))) mEvents.Reset();
}

void ControlHost::Resize() {
  ComPtr<IOleInPlaceObject> place;
  if (FAILED(mObject.As(&place))) return;
  const RECT bounds = mBounds();
  place->SetObjectRects(&bounds, &bounds);
}

HWND ControlHost::ControlWindow() {
  HWND window = nullptr;
  ComPtr<IOleInPlaceObject> place;
  if (SUCCEEDED(mObject.As(&place))) place->GetWindow(&window);
  return window;
}

bool ControlHost::TranslateKey(MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  const HWND focus = ::GetFocus();
  const HWND inside = ControlWindow();
  if (inside != nullptr && (focus == inside || ::IsChild(inside, focus) != FALSE)) {
    const ComPtr<IOleInPlaceActiveObject> active = mSite->ActiveObject();
    if (active && active->TranslateAccelerator(&message) == S_OK) return true;
  }
  return TranslateMnemonic(message);
}

bool ControlHost::TranslateMnemonic(MSG& message) {
  if (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR) return false;
  ComPtr<IOleControl> control;
  if (FAILED(mObject.As(&control))) return false;
  CONTROLINFO info{};
  info.cb = sizeof info;
  if (control->GetControlInfo(&info) != S_OK || info.cAccel == 0) return false;
  WORD command = 0;
  if (::IsAccelerator(info.hAccel, info.cAccel, &message, &command) == FALSE) return false;
  return SUCCEEDED(control->OnMnemonic(&message));
}

SIZE ControlHost::GraphSize() {
  SIZE size{};
  mGraph->GetGraphWidth(&size.cx);
  mGraph->GetGraphHeight(&size.cy);
  return size;
}

// Where the graph lies in the control's window: the control tells its size, and one window in it has that.
RECT ControlHost::GraphBounds() {
  WindowSearch search{GraphSize()};
  const HWND window = ControlWindow();
  ::EnumChildWindows(window, &CompareSize, reinterpret_cast<LPARAM>(&search));
  RECT bounds;
  ::GetClientRect(search.found != nullptr ? search.found : window, &bounds);
  if (search.found != nullptr) ::MapWindowPoints(search.found, window, reinterpret_cast<POINT*>(&bounds), 2);
  return bounds;
}

// The view interface draws the whole control: into a place so much larger that the graph fills the wanted one, with
// what is around it clipped away.
HRESULT ControlHost::DrawGraph(HDC device, const RECT& place) {
  ComPtr<IViewObject> view;
  if (const HRESULT status = mObject.As(&view); FAILED(status)) return status;
  const RECT graph = GraphBounds();
  RECT control;
  ::GetClientRect(ControlWindow(), &control);
  const auto across = [&](LONG x) {
    return place.left + ::MulDiv(static_cast<int>(x - graph.left), static_cast<int>(place.right - place.left),
                                 static_cast<int>(graph.right - graph.left));
  };
  const auto down = [&](LONG y) {
    return place.top + ::MulDiv(static_cast<int>(y - graph.top), static_cast<int>(place.bottom - place.top),
                                static_cast<int>(graph.bottom - graph.top));
  };
  const RECTL bounds{across(0), down(0), across(control.right), down(control.bottom)};
  const bool metafile = ::GetObjectType(device) == OBJ_ENHMETADC;
  const int state = ::SaveDC(device);
  ::IntersectClipRect(device, static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right),
                      static_cast<int>(place.bottom));
  const HRESULT status = view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, device, &bounds,
                                    metafile ? &bounds : nullptr, nullptr, 0);
  ::RestoreDC(device, state);
  return status;
}

}  // namespace plotvane::desktop
