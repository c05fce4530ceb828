// The count of what keeps the module loaded: objects, class factory locks, open dialogs and hooks.
#pragma once

namespace plotvane::control::com {

// Everything of this module that a caller may still enter.
[[nodiscard]] long LiveObjectCount() noexcept;

// A member of each object; counts as long as it lives.
class LiveObject {
 public:
  LiveObject() noexcept;
  ~LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
};

// IClassFactory::LockServer.
void LockModule(bool lock) noexcept;

}  // namespace plotvane::control::com
