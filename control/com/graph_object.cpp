#include "control/com/graph_object.h"

#include <olectl.h>

#include <vector>

#include "control/com/enumerator.h"
#include "control/com/himetric.h"
#include "control/com/type_info_invoke.h"
#include "control/com/type_library.h"

namespace plotvane::control::com {

namespace {

constexpr DISPID kPlotDone = 1;

}  // namespace

ComPtr<IUnknown> GraphObject::Create(IUnknown* outer) {
  auto object = Make<GraphObject>();
  object->Aggregate(outer);
  // The first reference is the inner one, whoever the object belongs to.
  return ComPtr<IUnknown>::Adopt(object.Detach()->Inner());
}

GraphObject::GraphObject()
    : mWindow(win32::ControlWindow::Make(ThisModule(), std::make_shared<LiveObject>())),
      mGraph(Graph::Create(mWindow)),
      mEvents(Make<ConnectionPoint>(DIID___Graph, this)),
      mPropertyChanges(Make<ConnectionPoint>(IID_IPropertyNotifySink, this)),
      mExtent(HimetricOf(kDefaultSurfaceSize)) {
  mWindow->Attach(mGraph);
  mWindow->SetHost(&mWindowNews);
  mGraph->SetPlotDone([this] { RaisePlotDone(); });
}

// The host may be anywhere in its own teardown: the window may be gone already, the site may or may not have
// been taken away, and releasing each reference may call back.
void GraphObject::FinalRelease() noexcept {
  const win32::OwnFloatingPoint ownState;
  mGraph->SetPlotDone(nullptr);
  DeactivateInPlace();
  mWindow->SetHost(nullptr);
  mWindow->Destroy();
  mEvents->Disconnect();
  mPropertyChanges->Disconnect();
  mViewSink.Reset();
  mSite.Set(nullptr);
  mGraph.reset();
  mFunctions.clear();
}

// ---- IDispatch ----

ITypeInfo& GraphObject::TypeInfo() {
  if (!mTypeInfo) mTypeInfo = LoadOwnTypeInfo(IID__Graph);
  return *mTypeInfo.Get();
}

ITypeInfo& GraphObject::FunctionTable() {
  if (!mFunctionTable) mFunctionTable = FunctionTableOf(TypeInfo());
  return *mFunctionTable.Get();
}

HRESULT GraphObject::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT GraphObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Enter([&] {
    static_cast<void>(TypeInfo());
    *info = mTypeInfo.Share();
  });
}

HRESULT GraphObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
  if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  return Enter([&] { return TypeInfo().GetIDsOfNames(names, count, ids); });
}

HRESULT GraphObject::Invoke(DISPID id, REFIID iid, LCID, WORD kinds, DISPPARAMS* arguments, VARIANT* result,
                            EXCEPINFO* exception, UINT* badArgument) noexcept {
  if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (arguments == nullptr) return E_INVALIDARG;
  return Enter([&] {
    return InvokeByTypeInfo(FunctionTable(), *this, id, kinds, *arguments, result, exception, badArgument);
  });
}

HRESULT GraphObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
  return ::IsEqualIID(iid, IID__Graph) || ::IsEqualIID(iid, IID_IDispatch) ? S_OK : S_FALSE;
}

// ---- IProvideClassInfo2 ----

HRESULT GraphObject::GetClassInfo(ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return Enter([&] { *info = LoadOwnTypeInfo(CLSID_Graph).Detach(); });
}

HRESULT GraphObject::GetGUID(DWORD kind, GUID* guid) noexcept {
  if (guid == nullptr) return E_POINTER;
  *guid = GUID_NULL;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = DIID___Graph;
  return S_OK;
}

// ---- Connection points and events ----

HRESULT GraphObject::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Enter([&] {
    *points = Enumerate<IEnumConnectionPoints, IConnectionPoint*>(
        {ComPtr<IConnectionPoint>(mEvents.Get()), ComPtr<IConnectionPoint>(mPropertyChanges.Get())});
  });
}

HRESULT GraphObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (::IsEqualIID(iid, DIID___Graph)) *point = mEvents.Share();
  if (::IsEqualIID(iid, IID_IPropertyNotifySink)) *point = mPropertyChanges.Share();
  return *point != nullptr ? S_OK : CONNECT_E_NOCONNECTION;
}

// A handler's own error stays with the host: an event has no caller who could take it.
void GraphObject::RaisePlotDone() {
  const ComPtr<IUnknown> alive(Identity());
  PictureChanged();
  if (mFreezes > 0) {
    ++mHeldEvents;
    return;
  }
  for (const ComPtr<IUnknown>& sink : mEvents->Sinks()) {
    const win32::HostFloatingPoint hostState;
    const auto dispatch = ComPtr<IDispatch>::Adopt(static_cast<IDispatch*>(ComPtr<IUnknown>(sink).Detach()));
    DISPPARAMS none{};
    Variant ignored;
    static_cast<void>(dispatch->Invoke(kPlotDone, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                       ignored.Receive(), nullptr, nullptr));
  }
}

void GraphObject::NotifyWritten(DISPID property) {
  for (const ComPtr<IUnknown>& sink : mPropertyChanges->Sinks()) {
    const win32::HostFloatingPoint hostState;
    if (const auto notify = ComPtr<IPropertyNotifySink>::From(sink.Get())) notify->OnChanged(property);
  }
}

}  // namespace plotvane::control::com
