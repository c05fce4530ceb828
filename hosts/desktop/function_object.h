// FunctionObject: hands one function of the document to the control as an automation object.
#pragma once

#include <memory>

#include "graph/clsYGraph.h"
#include "hosts/desktop/automation_object.h"

namespace plotvane::desktop {

// Answers by name to the five properties that the control reads (and writes, for QuickRedraw).
class FunctionObject final : public AutomationObject<> {
 public:
  explicit FunctionObject(std::shared_ptr<graph::clsYGraph> function) : mFunction(std::move(function)) {}

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* members) override;
  STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  ~FunctionObject() override = default;
  void Get(DISPID member, VARIANT& value) const;
  [[nodiscard]] HRESULT Put(DISPID member, const VARIANT& value);

  std::shared_ptr<graph::clsYGraph> mFunction;
};

}  // namespace plotvane::desktop
