// FunctionObject: hands one function of the document to the control as an automation object.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <memory>

#include "graph/clsYGraph.h"

namespace plotvane::desktop {

// Answers by name to the five properties that the control reads (and writes, for QuickRedraw). Reference counted;
// made with `new`, the first reference is the maker's.
class FunctionObject final : public IDispatch {
 public:
  explicit FunctionObject(std::shared_ptr<graph::clsYGraph> function) : mFunction(std::move(function)) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++mReferences; }
  STDMETHODIMP_(ULONG) Release() override;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* members) override;
  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~FunctionObject() = default;
  void Get(DISPID member, VARIANT& value) const;
  [[nodiscard]] HRESULT Put(DISPID member, const VARIANT& value);

  std::shared_ptr<graph::clsYGraph> mFunction;
  std::atomic<ULONG> mReferences = 1;
};

}  // namespace plotvane::desktop
