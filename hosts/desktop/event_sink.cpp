#include "hosts/desktop/event_sink.h"

namespace plotvane::desktop {

namespace {

constexpr DISPID kPlotDone = 1;

}  // namespace

HRESULT EventSink::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  if (iid != IID_IUnknown && iid != IID_IDispatch && iid != mEvents) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG EventSink::Release() {
  const ULONG left = --mReferences;
  if (left == 0) delete this;
  return left;
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  if (member != kPlotDone) return DISP_E_MEMBERNOTFOUND;
  if (mPlotDone) mPlotDone();
  return S_OK;
}

}  // namespace plotvane::desktop
