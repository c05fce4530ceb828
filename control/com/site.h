// Site: what the control knows of the place that its container gave it.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <optional>

#include "control/com/com_ptr.h"
#include "control/com/variant.h"

namespace plotvane::control::com {

// Containers implement different parts of this: what a site does not answer is taken for its usual value.
// Every call goes to the host's code, which may do anything to the control meanwhile, and runs in the host's
// floating-point state.
class Site {
 public:
  // Null for a control without a container.
  void Set(IOleClientSite* site) noexcept;

  [[nodiscard]] IOleClientSite* Get() const noexcept { return mClient.Get(); }
  explicit operator bool() const noexcept { return static_cast<bool>(mClient); }

  template <typename Interface>
  [[nodiscard]] ComPtr<Interface> As() const noexcept {
    return ComPtr<Interface>::From(ComPtr<IOleClientSite>(mClient).Get());
  }

  // An ambient property; nothing when the container does not have it.
  [[nodiscard]] std::optional<Variant> Ambient(DISPID id) const noexcept;
  // Whether the user is to work with the control: false in a designer, and while a running form is halted.
  [[nodiscard]] bool IsRunning() const noexcept;

 private:
  [[nodiscard]] bool AmbientFlag(DISPID id, bool usual) const noexcept;

  ComPtr<IOleClientSite> mClient;
  ComPtr<IDispatch> mAmbient;
};

}  // namespace plotvane::control::com
