#include "control/com/site.h"

#include <olectl.h>

#include <exception>

#include "control/win32/floating_point_state.h"

namespace plotvane::control::com {

void Site::Set(IOleClientSite* site) noexcept {
  const win32::HostFloatingPoint hostState;
  // What is let go of is out of the members before it is released.
  ComPtr<IOleClientSite> client(site);
  ComPtr<IDispatch> ambient = ComPtr<IDispatch>::From(site);
  std::swap(mClient, client);
  std::swap(mAmbient, ambient);
}

std::optional<Variant> Site::Ambient(DISPID id) const noexcept {
  const ComPtr<IDispatch> ambient = mAmbient;
  if (!ambient) return std::nullopt;
  Variant value;
  DISPPARAMS none{};
  const win32::HostFloatingPoint hostState;
  const HRESULT status = ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                         value.Receive(), nullptr, nullptr);
  if (FAILED(status)) return std::nullopt;
  return value;
}

bool Site::IsRunning() const noexcept {
  return AmbientFlag(DISPID_AMBIENT_USERMODE, true) && !AmbientFlag(DISPID_AMBIENT_UIDEAD, false);
}

bool Site::AmbientFlag(DISPID id, bool usual) const noexcept {
  const std::optional<Variant> value = Ambient(id);
  if (!value) return usual;
  try {
    return ToBool(value->Get());
  } catch (const std::exception&) {
    return usual;
  }
}

}  // namespace plotvane::control::com
