#include "hosts/desktop/late_bound.h"

#include <algorithm>
#include <vector>

#include "hosts/desktop/text.h"

namespace plotvane::desktop {

namespace {

// The three texts of an EXCEPINFO belong to whoever receives them.
class OwnedException {
 public:
  ~OwnedException() {
    ::SysFreeString(mInfo.bstrSource);
    ::SysFreeString(mInfo.bstrDescription);
    ::SysFreeString(mInfo.bstrHelpFile);
  }
  [[nodiscard]] EXCEPINFO* Out() { return &mInfo; }
  [[nodiscard]] std::string Description() {
    if (mInfo.pfnDeferredFillIn != nullptr) mInfo.pfnDeferredFillIn(&mInfo);
    if (mInfo.bstrDescription == nullptr) return {};
    return ToUtf8({mInfo.bstrDescription, ::SysStringLen(mInfo.bstrDescription)});
  }

 private:
  EXCEPINFO mInfo{};
};

DISPID FindMember(IDispatch& object, const wchar_t* name) {
  std::wstring copy(name);
  LPOLESTR names[] = {copy.data()};
  DISPID member = DISPID_UNKNOWN;
  if (FAILED(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member))) {
    throw platform::RunTimeError(platform::StandardError::MemberNotFound);
  }
  return member;
}

}  // namespace

void PutValue(const platform::Value& value, VARIANT& variant) {
  switch (value.GetKind()) {
    case platform::Value::Kind::Empty: V_VT(&variant) = VT_EMPTY; return;
    case platform::Value::Kind::Boolean:
      V_VT(&variant) = VT_BOOL;
      V_BOOL(&variant) = value.Boolean() ? VARIANT_TRUE : VARIANT_FALSE;
      return;
    case platform::Value::Kind::Number:
      V_VT(&variant) = VT_R8;
      V_R8(&variant) = value.Number();
      return;
    case platform::Value::Kind::Text: {
      const std::wstring text = ToWide(value.Text());
      V_VT(&variant) = VT_BSTR;
      V_BSTR(&variant) = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
      return;
    }
  }
}

platform::Value TakeValue(const VARIANT& variant) {
  switch (V_VT(&variant)) {
    case VT_BOOL: return platform::Value(V_BOOL(&variant) != VARIANT_FALSE);
    case VT_BSTR: return platform::Value(ToUtf8({V_BSTR(&variant), ::SysStringLen(V_BSTR(&variant))}));
    case VT_EMPTY:
    case VT_NULL: return {};
    default: break;
  }
  OwnedVariant source;
  OwnedVariant number;
  if (FAILED(::VariantCopyInd(&source, const_cast<VARIANT*>(&variant)))) return {};
  if (FAILED(::VariantChangeType(&number, &source, 0, VT_R8))) return {};
  return platform::Value(V_R8(&number.Get()));
}

void CallByName(IDispatch& object, const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                VARIANT* result) {
  const DISPID member = FindMember(object, name);
  std::vector<VARIANT> reversed(arguments);  // automation wants the last argument first
  std::ranges::reverse(reversed);
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  OwnedException exception;
  const HRESULT status = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                       exception.Out(), nullptr);
  if (FAILED(status)) throw platform::RunTimeError(status, exception.Description());
}

ComPtr<IDispatch> ObjectByName(IDispatch& object, const wchar_t* name) {
  OwnedVariant result;
  CallByName(object, name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result);
  if (V_VT(&result.Get()) != VT_DISPATCH) return nullptr;
  return V_DISPATCH(&result.Get());
}

platform::Value ValueByName(IDispatch& object, const wchar_t* name) {
  OwnedVariant result;
  CallByName(object, name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &result);
  return TakeValue(result.Get());
}

}  // namespace plotvane::desktop
