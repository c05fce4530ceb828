#include "control/com/class_factory.h"

#include "control/com/fence.h"
#include "control/com/live_objects.h"

namespace plotvane::control::com {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  // An outer object must ask for the inner IUnknown: any other pointer would lead back to itself.
  if (outer != nullptr && !::IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
  return Fence([&] { return mMake(outer)->QueryInterface(iid, object); });
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
  LockModule(lock != FALSE);
  return S_OK;
}

}  // namespace plotvane::control::com
