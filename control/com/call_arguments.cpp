#include "control/com/call_arguments.h"

#include <cstring>
#include <utility>

#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

std::size_t SizeOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE: return 8;
    case VT_BSTR: return sizeof(BSTR);
    default: throw platform::RunTimeError(platform::StandardError::TypeMismatch);
  }
}

}  // namespace

CallArguments::CallArguments(const DISPPARAMS& given, std::size_t count)
    : mFirst(given.rgvarg), mArguments(count, nullptr) {
  if (given.cArgs > count) throw BadCall(DISP_E_BADPARAMCOUNT);
  for (UINT place = 0; place < given.cArgs; ++place) {
    std::size_t parameter = given.cArgs - 1 - place;
    if (place < given.cNamedArgs) {
      const DISPID name = given.rgdispidNamedArgs[place];
      if (name == DISPID_PROPERTYPUT) {
        parameter = count - 1;
      } else if (name >= 0 && static_cast<std::size_t>(name) < count) {
        parameter = static_cast<std::size_t>(name);
      } else {
        throw BadCall(DISP_E_PARAMNOTFOUND, place);
      }
    }
    if (mArguments[parameter] != nullptr) throw BadCall(DISP_E_BADPARAMCOUNT);
    VARIANT& argument = given.rgvarg[place];
    if (!IsLeftOut(argument)) mArguments[parameter] = &argument;
  }
}

UINT CallArguments::PlaceOf(std::size_t parameter) const noexcept {
  return mArguments[parameter] == nullptr ? 0 : static_cast<UINT>(mArguments[parameter] - mFirst);
}

void WriteBack(VARIANT& argument, const Variant& value) {
  if ((argument.vt & VT_BYREF) == 0) return;
  VARIANT* target = &argument;
  while (target->vt == (VT_BYREF | VT_VARIANT)) target = target->pvarVal;
  if ((target->vt & VT_BYREF) == 0) {
    Variant copy(value);
    ::VariantClear(target);
    *target = copy.Detach();
    return;
  }
  const auto type = static_cast<VARTYPE>(target->vt & ~VT_BYREF);
  const std::size_t size = SizeOf(type);
  Variant converted = ConvertTo(type, value.Get());
  if (type == VT_BSTR) {
    ::SysFreeString(std::exchange(*target->pbstrVal, std::exchange(converted.Get().bstrVal, nullptr)));
  } else {
    std::memcpy(target->byref, &converted.Get().bVal, size);
  }
}

}  // namespace plotvane::control::com
