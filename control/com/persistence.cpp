// The persistence interfaces. The control keeps no persisted properties: everything succeeds and nothing is
// read or written. Containers that find no persistence interface at all do not take a control.
#include "control/com/graph_object.h"

namespace plotvane::control::com {

HRESULT GraphObject::GetClassID(CLSID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = CLSID_Graph;
  return S_OK;
}

HRESULT GraphObject::IsDirty() noexcept {
  return S_FALSE;
}

HRESULT GraphObject::InitNew() noexcept {
  return S_OK;
}

HRESULT GraphObject::Load(IStream* stream) noexcept {
  return stream != nullptr ? S_OK : E_POINTER;
}

HRESULT GraphObject::Save(IStream* stream, BOOL) noexcept {
  return stream != nullptr ? S_OK : E_POINTER;
}

HRESULT GraphObject::GetSizeMax(ULARGE_INTEGER* size) noexcept {
  if (size == nullptr) return E_POINTER;
  *size = ULARGE_INTEGER{};
  return S_OK;
}

HRESULT GraphObject::InitNew(IStorage* storage) noexcept {
  return storage != nullptr ? S_OK : E_POINTER;
}

HRESULT GraphObject::Load(IStorage* storage) noexcept {
  return storage != nullptr ? S_OK : E_POINTER;
}

// A storage that is to be loaded again must know the class.
HRESULT GraphObject::Save(IStorage* storage, BOOL) noexcept {
  return storage != nullptr ? ::WriteClassStg(storage, CLSID_Graph) : E_POINTER;
}

HRESULT GraphObject::SaveCompleted(IStorage*) noexcept {
  return S_OK;
}

HRESULT GraphObject::HandsOffStorage() noexcept {
  return S_OK;
}

HRESULT GraphObject::Load(IPropertyBag* bag, IErrorLog*) noexcept {
  return bag != nullptr ? S_OK : E_POINTER;
}

HRESULT GraphObject::Save(IPropertyBag* bag, BOOL, BOOL) noexcept {
  return bag != nullptr ? S_OK : E_POINTER;
}

}  // namespace plotvane::control::com
