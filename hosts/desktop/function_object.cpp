#include "hosts/desktop/function_object.h"

#include <array>

#include "hosts/desktop/late_bound.h"

namespace plotvane::desktop {

using platform::Value;

namespace {

enum Member : DISPID { kEquation = 1, kEnabled, kDrawStyle, kDrawColor, kQuickRedraw };

// In the order of the numbers above, which start at 1.
constexpr std::array kNames{L"Equation", L"Enabled", L"DrawStyle", L"DrawColor", L"QuickRedraw"};

}  // namespace

HRESULT FunctionObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* members) {
  if (names == nullptr || members == nullptr || count == 0) return E_INVALIDARG;
  for (UINT argument = 0; argument < count; ++argument) members[argument] = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (::lstrcmpiW(names[0], kNames[i]) == 0) members[0] = static_cast<DISPID>(i + 1);
  }
  return members[0] != DISPID_UNKNOWN && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT FunctionObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO*, UINT*) {
  if (member < kEquation || member > kQuickRedraw) return DISP_E_MEMBERNOTFOUND;
  if ((flags & DISPATCH_PROPERTYPUT) != 0) {
    if (arguments == nullptr || arguments->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    return Put(member, arguments->rgvarg[0]);
  }
  if (result == nullptr) return E_POINTER;
  Get(member, *result);
  return S_OK;
}

void FunctionObject::Get(DISPID member, VARIANT& value) const {
  switch (member) {
    case kEquation: PutValue(Value(mFunction->Equation), value); return;
    case kEnabled: PutValue(Value(mFunction->Enabled), value); return;
    case kQuickRedraw: PutValue(Value(mFunction->QuickRedraw), value); return;
    default:
      V_VT(&value) = VT_I4;
      V_I4(&value) = member == kDrawStyle ? mFunction->DrawStyle : mFunction->DrawColor;
      return;
  }
}

// The control writes only whether the drawn path may be replayed; the rest belongs to the document.
HRESULT FunctionObject::Put(DISPID member, const VARIANT& value) {
  if (member != kQuickRedraw) return DISP_E_MEMBERNOTFOUND;
  const platform::Outcome<bool> valid = TakeValue(value).ToBoolean();
  if (!valid.Ok()) return DISP_E_TYPEMISMATCH;
  mFunction->QuickRedraw = valid.Get();
  return S_OK;
}

}  // namespace plotvane::desktop
