#include "control/com/variant.h"

#include <new>
#include <utility>

#include "control/com/bstr.h"
#include "control/com/error_info.h"
#include "control/win32/floating_point_state.h"
#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

using platform::RunTimeError;
using platform::StandardError;

void OrThrow(HRESULT result) {
  if (FAILED(result)) throw RunTimeError(StandardErrorOf(result), StandardErrorTextOf(result));
}

// The copying calls do not write to their source, but some headers declare it as if they did.
VARIANT* Source(const VARIANT& value) noexcept {
  return const_cast<VARIANT*>(&value);
}

}  // namespace

Variant::Variant(bool value) noexcept : Variant() {
  mValue.vt = VT_BOOL;
  mValue.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(std::int16_t value) noexcept : Variant() {
  mValue.vt = VT_I2;
  mValue.iVal = value;
}

Variant::Variant(std::int32_t value) noexcept : Variant() {
  mValue.vt = VT_I4;
  mValue.lVal = value;
}

Variant::Variant(double value) noexcept : Variant() {
  mValue.vt = VT_R8;
  mValue.dblVal = value;
}

Variant::Variant(std::string_view text) : Variant() {
  mValue.bstrVal = Bstr(text).Detach();
  mValue.vt = VT_BSTR;
}

Variant::Variant(IDispatch* object) noexcept : Variant() {
  mValue.vt = VT_DISPATCH;
  mValue.pdispVal = object;
  if (object != nullptr) object->AddRef();
}

Variant::Variant(const platform::Value& value) : Variant() {
  switch (value.GetKind()) {
    case platform::Value::Kind::Empty: break;
    case platform::Value::Kind::Boolean: *this = Variant(value.Boolean()); break;
    case platform::Value::Kind::Number: *this = Variant(value.Number()); break;
    case platform::Value::Kind::Text: *this = Variant(std::string_view(value.Text())); break;
  }
}

Variant& Variant::operator=(Variant other) noexcept {
  std::swap(mValue, other.mValue);
  return *this;
}

Variant Variant::Missing() noexcept {
  Variant missing;
  missing.mValue.vt = VT_ERROR;
  missing.mValue.scode = DISP_E_PARAMNOTFOUND;
  return missing;
}

Variant Variant::Resolved(const VARIANT& value) {
  Variant copy;
  OrThrow(::VariantCopyInd(&copy.mValue, Source(Dereferenced(value))));
  return copy;
}

VARIANT* Variant::Receive() noexcept {
  ::VariantClear(&mValue);
  return &mValue;
}

VARIANT Variant::Detach() noexcept {
  const VARIANT value = mValue;
  ::VariantInit(&mValue);
  return value;
}

void Variant::CopyFrom(const VARIANT& value) {
  if (FAILED(::VariantCopy(&mValue, Source(value)))) throw std::bad_alloc();
}

const VARIANT& Dereferenced(const VARIANT& value) noexcept {
  const VARIANT* present = &value;
  while (present->vt == (VT_BYREF | VT_VARIANT)) present = present->pvarVal;
  return *present;
}

bool IsLeftOut(const VARIANT& value) noexcept {
  const VARIANT& present = Dereferenced(value);
  return present.vt == VT_ERROR && present.scode == DISP_E_PARAMNOTFOUND;
}

namespace {

// What an object stands for where a value is wanted: its default property, which the host's code answers.
Variant DefaultPropertyOf(const VARIANT& object) {
  const auto automation = ObjectOf(object);
  if (!automation) throw RunTimeError(StandardError::ObjectNotSet);
  Variant held;
  DISPPARAMS none{};
  EXCEPINFO exception{};
  HRESULT status = S_OK;
  {
    const win32::HostFloatingPoint hostState;
    status =
        automation->Invoke(DISPID_VALUE, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                           &none, held.Receive(), &exception, nullptr);
  }
  if (FAILED(status)) ThrowHostError(status, exception);
  if (IsObject(held.Get())) throw RunTimeError(StandardError::TypeMismatch);
  return held;
}

}  // namespace

Variant ConvertTo(VARTYPE type, const VARIANT& value) {
  Variant source = Variant::Resolved(value);
  if (source.Type() == type) return source;
  if (IsObject(source.Get())) return ConvertTo(type, DefaultPropertyOf(source.Get()).Get());
  Variant converted;
  OrThrow(::VariantChangeTypeEx(&converted.Get(), &source.Get(), LOCALE_INVARIANT, VARIANT_ALPHABOOL, type));
  return converted;
}

bool ToBool(const VARIANT& value) {
  return ConvertTo(VT_BOOL, value).Get().boolVal != VARIANT_FALSE;
}
std::int16_t ToInt16(const VARIANT& value) {
  return ConvertTo(VT_I2, value).Get().iVal;
}
std::int32_t ToInt32(const VARIANT& value) {
  return static_cast<std::int32_t>(ConvertTo(VT_I4, value).Get().lVal);
}
double ToDouble(const VARIANT& value) {
  return ConvertTo(VT_R8, value).Get().dblVal;
}
std::string ToText(const VARIANT& value) {
  return TextOf(ConvertTo(VT_BSTR, value).Get().bstrVal);
}

platform::Value ToValue(const VARIANT& value) {
  const Variant source = Variant::Resolved(value);
  switch (source.Type()) {
    case VT_EMPTY: return platform::Value();
    case VT_BOOL: return platform::Value(source.Get().boolVal != VARIANT_FALSE);
    case VT_BSTR: return platform::Value(TextOf(source.Get().bstrVal));
    case VT_DISPATCH:
    case VT_UNKNOWN: return ToValue(DefaultPropertyOf(source.Get()).Get());
    default: return platform::Value(ToDouble(source.Get()));
  }
}

bool IsObject(const VARIANT& value) noexcept {
  const VARTYPE type = static_cast<VARTYPE>(Dereferenced(value).vt & ~VT_BYREF);
  return type == VT_DISPATCH || type == VT_UNKNOWN;
}

namespace {

// The object variable in `value`: its own, or the one it refers to. Null for all other types.
IUnknown* const* ObjectVariable(const VARIANT& value) noexcept {
  const VARIANT& present = Dereferenced(value);
  if (!IsObject(present)) return nullptr;
  return (present.vt & VT_BYREF) != 0 ? present.ppunkVal : &present.punkVal;
}

}  // namespace

bool HoldsObject(const VARIANT& value) noexcept {
  IUnknown* const* variable = ObjectVariable(value);
  return variable != nullptr && *variable != nullptr;
}

ComPtr<IDispatch> ObjectOf(const VARIANT& value) noexcept {
  IUnknown* const* variable = ObjectVariable(value);
  return ComPtr<IDispatch>::From(variable != nullptr ? *variable : nullptr);
}

}  // namespace plotvane::control::com
