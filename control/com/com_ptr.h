// ComPtr: one counted reference to a COM object.
//
//   ComPtr<IDispatch> dispatch;
//   if (SUCCEEDED(unknown->QueryInterface(IID_PPV_ARGS(dispatch.Receive())))) … dispatch->Invoke(…) …
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace plotvane::control::com {

template <typename Interface>
class ComPtr {
 public:
  constexpr ComPtr() noexcept = default;
  constexpr ComPtr(std::nullptr_t) noexcept {}  // NOLINT: nothing converts to an empty pointer

  // Shares `object`: one more reference.
  explicit ComPtr(Interface* object) noexcept : mObject(object) {
    if (mObject != nullptr) mObject->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.mObject) {}
  ComPtr(ComPtr&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
  ~ComPtr() { Reset(); }

  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(mObject, other.mObject);
    return *this;
  }

  // Takes over a reference that the caller owns.
  [[nodiscard]] static ComPtr Adopt(Interface* object) noexcept {
    ComPtr pointer;
    pointer.mObject = object;
    return pointer;
  }

  // The interface that `unknown` answers for Interface; empty when there is none.
  [[nodiscard]] static ComPtr From(IUnknown* unknown) noexcept {
    ComPtr pointer;
    if (unknown == nullptr) return pointer;
    void* found = nullptr;
    if (SUCCEEDED(unknown->QueryInterface(__uuidof(Interface), &found)))
      pointer.mObject = static_cast<Interface*>(found);
    return pointer;
  }

  [[nodiscard]] Interface* Get() const noexcept { return mObject; }
  Interface* operator->() const noexcept { return mObject; }
  explicit operator bool() const noexcept { return mObject != nullptr; }

  // Lets go first and releases afterwards: the release may call back and look at this pointer.
  void Reset() noexcept {
    if (Interface* object = std::exchange(mObject, nullptr)) object->Release();
  }

  // Where a call writes a new reference; what was held before is released.
  [[nodiscard]] Interface** Receive() noexcept {
    Reset();
    return &mObject;
  }
  [[nodiscard]] void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }

  // Gives the reference away.
  [[nodiscard]] Interface* Detach() noexcept { return std::exchange(mObject, nullptr); }

  // A further reference for a caller's out argument; null when empty.
  [[nodiscard]] Interface* Share() const noexcept {
    if (mObject != nullptr) mObject->AddRef();
    return mObject;
  }

 private:
  Interface* mObject = nullptr;
};

// Whether two pointers of any interfaces belong to one object.
[[nodiscard]] inline bool SameObject(IUnknown* one, IUnknown* other) noexcept {
  return ComPtr<IUnknown>::From(one).Get() == ComPtr<IUnknown>::From(other).Get();
}

}  // namespace plotvane::control::com
