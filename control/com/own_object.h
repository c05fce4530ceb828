// OwnObject: how this module recognises its own automation objects when a host hands them back.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include "control/com/com_ptr.h"

namespace plotvane::control::com {

// Answered only by automation objects of the control. Another module in the same process may be another
// version of this one, so the answer names the module, and only an object of the same module is used
// directly.
struct OwnObject : public IUnknown {
  [[nodiscard]] virtual const void* STDMETHODCALLTYPE ModuleTag() noexcept = 0;
};

// The address that stands for this module.
[[nodiscard]] const void* ThisModuleTag() noexcept;

// The object of type Class behind a host's pointer; empty when it is none, or one of another module.
template <typename Class>
[[nodiscard]] ComPtr<Class> OwnObjectOf(IUnknown* object) noexcept {
  const auto own = ComPtr<OwnObject>::From(object);
  if (!own || own->ModuleTag() != ThisModuleTag()) return nullptr;
  return ComPtr<Class>(dynamic_cast<Class*>(own.Get()));
}

}  // namespace plotvane::control::com

__CRT_UUID_DECL(plotvane::control::com::OwnObject, 0x5d8e7ff3, 0x7a1c, 0x4f0e, 0x93, 0x0d, 0x51, 0xc6, 0x2e,
                0xb8, 0x04, 0x9d)
