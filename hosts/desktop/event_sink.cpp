#include "hosts/desktop/event_sink.h"

namespace plotvane::desktop {

namespace {

constexpr DISPID kPlotDone = 1;

}  // namespace

void* EventSink::Find(REFIID iid) {
  return iid == mEvents ? static_cast<IDispatch*>(this) : AutomationObject::Find(iid);
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
  if (member != kPlotDone) return DISP_E_MEMBERNOTFOUND;
  if (mPlotDone) mPlotDone();
  return S_OK;
}

}  // namespace plotvane::desktop
