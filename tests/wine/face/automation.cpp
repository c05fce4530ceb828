#include "automation.h"

#include <oleacc.h>

#include <limits>

namespace plotvane::test {

Automation::Automation(HWND host) {
  ::OleInitialize(nullptr);
  void* object = nullptr;
  ::AccessibleObjectFromWindow(host, static_cast<DWORD>(OBJID_NATIVEOM), IID_IDispatch, &object);
  mObject = static_cast<IDispatch*>(object);
}

Automation::~Automation() {
  if (mObject != nullptr) mObject->Release();
  ::OleUninitialize();
}

HRESULT Automation::Invoke(const wchar_t* member, WORD kind, VARIANT* argument, VARIANT* result) {
  if (mObject == nullptr) return E_NOINTERFACE;
  auto* name = const_cast<wchar_t*>(member);  // only read
  DISPID id = 0;
  const HRESULT found = mObject->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(found)) return found;
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS arguments{argument, isPut ? &put : nullptr, argument == nullptr ? 0U : 1U, isPut ? 1U : 0U};
  return mObject->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, result, nullptr, nullptr);
}

double Automation::Number(const wchar_t* property) {
  VARIANT value{};
  const HRESULT read = Invoke(property, DISPATCH_PROPERTYGET, nullptr, &value);
  const bool isNumber = SUCCEEDED(read) && SUCCEEDED(::VariantChangeType(&value, &value, 0, VT_R8));
  return isNumber ? V_R8(&value) : std::numeric_limits<double>::quiet_NaN();
}

HRESULT Automation::SetNumber(const wchar_t* property, double value) {
  VARIANT argument{};
  V_VT(&argument) = VT_R8;
  V_R8(&argument) = value;
  return Invoke(property, DISPATCH_PROPERTYPUT, &argument, nullptr);
}

IDispatch* Automation::Object(const wchar_t* property) {
  VARIANT value{};
  if (FAILED(Invoke(property, DISPATCH_PROPERTYGET, nullptr, &value)) || V_VT(&value) != VT_DISPATCH)
    return nullptr;
  return V_DISPATCH(&value);
}

HRESULT Automation::SetObject(const wchar_t* property, IDispatch* object) {
  VARIANT argument{};
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = object;
  return Invoke(property, DISPATCH_PROPERTYPUTREF, &argument, nullptr);
}

HRESULT Automation::Call(const wchar_t* method) {
  return Invoke(method, DISPATCH_METHOD, nullptr, nullptr);
}

}  // namespace plotvane::test
