// Implements<Interfaces…>: IUnknown for a class with these interfaces.
//
//   class Answer final : public Implements<IDispatch, ISupportErrorInfo> { … };
//   ComPtr<Answer> answer = Make<Answer>(42);
//
// The first interface is the object's identity. An interface that extends another one than IUnknown names it
// in BaseOf, so that asking for either gives the same pointer. The object is born with one reference, counts
// as a live object of the module, and can become part of an outer object: a container may wrap a control in
// an object of its own, to which all three methods of IUnknown then belong.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <unknwn.h>

#include <atomic>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "control/com/com_ptr.h"
#include "control/com/live_objects.h"

namespace plotvane::control::com {

// The interface that Interface extends; IUnknown where nothing else is said.
template <typename Interface>
struct BaseOf {
  using Type = IUnknown;
};
template <>
struct BaseOf<IOleInPlaceObject> {
  using Type = IOleWindow;
};
template <>
struct BaseOf<IOleInPlaceActiveObject> {
  using Type = IOleWindow;
};
template <>
struct BaseOf<IViewObject2> {
  using Type = IViewObject;
};
template <>
struct BaseOf<IViewObjectEx> {
  using Type = IViewObject2;
};
template <>
struct BaseOf<IPersistStreamInit> {
  using Type = IPersist;
};
template <>
struct BaseOf<IPersistStorage> {
  using Type = IPersist;
};
template <>
struct BaseOf<IPersistPropertyBag> {
  using Type = IPersist;
};
template <>
struct BaseOf<IProvideClassInfo2> {
  using Type = IProvideClassInfo;
};

template <typename... Interfaces>
class Implements : public Interfaces... {
 public:
  Implements(const Implements&) = delete;
  Implements& operator=(const Implements&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    return mOuter->QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return mOuter->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() noexcept override { return mOuter->Release(); }

  // Makes the object part of `outer` (not counted: the outer object owns this one). Before any other call.
  void Aggregate(IUnknown* outer) noexcept {
    if (outer != nullptr) mOuter = outer;
  }

  // The object's own IUnknown; the only pointer with which an outer object controls its life.
  [[nodiscard]] IUnknown* Inner() noexcept { return &mInner; }

  // The object's identity as its callers see it.
  [[nodiscard]] IUnknown* Identity() noexcept { return mOuter; }

 protected:
  Implements() noexcept = default;
  virtual ~Implements() = default;

  // Called once when the last reference is gone, before the destructor. The object can still be used, and
  // references taken and released meanwhile do not end it a second time.
  virtual void FinalRelease() noexcept {}

 private:
  using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;

  class InnerUnknown final : public IUnknown {
   public:
    explicit InnerUnknown(Implements& object) noexcept : mObject(object) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
      if (object == nullptr) return E_POINTER;
      *object = ::IsEqualIID(iid, IID_IUnknown) ? this : mObject.Find(iid);
      if (*object == nullptr) return E_NOINTERFACE;
      static_cast<IUnknown*>(*object)->AddRef();
      return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++mObject.mReferences; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
      const ULONG left = --mObject.mReferences;
      if (left == 0) mObject.End();
      return left;
    }

   private:
    Implements& mObject;
  };

  [[nodiscard]] void* Find(REFIID iid) noexcept {
    void* found = nullptr;
    static_cast<void>(((found = FindAs<Interfaces, Interfaces>(iid)) || ...));
    return found;
  }

  // `iid` as Part, which is Interface or what that extends.
  template <typename Interface, typename Part>
  [[nodiscard]] void* FindAs(REFIID iid) noexcept {
    if constexpr (std::is_same_v<Part, IUnknown>) {
      return nullptr;
    } else {
      if (::IsEqualIID(iid, __uuidof(Part))) return static_cast<Part*>(static_cast<Interface*>(this));
      return FindAs<Interface, typename BaseOf<Part>::Type>(iid);
    }
  }

  void End() noexcept {
    constexpr ULONG kEnding = 1U << 30;
    mReferences = kEnding;
    FinalRelease();
    delete this;
  }

  std::atomic<ULONG> mReferences{1};
  InnerUnknown mInner{*this};
  IUnknown* mOuter = &mInner;
  LiveObject mLive;
};

// A new object of Class with one reference.
template <typename Class, typename... Arguments>
[[nodiscard]] ComPtr<Class> Make(Arguments&&... arguments) {
  return ComPtr<Class>::Adopt(new Class(std::forward<Arguments>(arguments)...));
}

}  // namespace plotvane::control::com
