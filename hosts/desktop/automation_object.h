// AutomationObject: what all automation objects of this host have in common.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>

namespace plotvane::desktop {

// Counts references and has no type information. Made with `new`; the first reference is the maker's, and with the
// last one the object goes. `Others`: the COM interfaces that it implements besides IDispatch.
template <typename... Others>
class AutomationObject : public IDispatch, public Others... {
 public:
  AutomationObject() = default;
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = Find(iid);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mReferences; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --mReferences;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  // An object whose members are known by number only.
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }

 protected:
  virtual ~AutomationObject() = default;

  // The object's interface of that identifier; null for one that it has not.
  [[nodiscard]] virtual void* Find(REFIID iid) {
    return iid == IID_IUnknown || iid == IID_IDispatch ? static_cast<IDispatch*>(this) : nullptr;
  }

 private:
  std::atomic<ULONG> mReferences = 1;
};

}  // namespace plotvane::desktop
