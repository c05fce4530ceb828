#include "control/com/host_function.h"

#include <array>
#include <limits>
#include <unordered_map>
#include <utility>

#include "platform/runtime_error.h"

namespace plotvane::control::com {

namespace {

using platform::RunTimeError;
using platform::StandardError;

enum Field : std::size_t { kEquation, kEnabled, kDrawStyle, kDrawColor, kQuickRedraw };
constexpr std::array kFields{L"Equation", L"Enabled", L"DrawStyle", L"DrawColor", L"QuickRedraw"};

// The array in a variant, through references to variants and to arrays.
SAFEARRAY& ArrayOf(const VARIANT& value) {
  const VARIANT& present = Dereferenced(value);
  if ((present.vt & VT_ARRAY) == 0) throw RunTimeError(StandardError::TypeMismatch);
  SAFEARRAY* array = (present.vt & VT_BYREF) != 0 ? *present.pparray : present.parray;
  // An array variable without dimensions yet is as good as no element at the asked index.
  if (array == nullptr) throw RunTimeError(StandardError::SubscriptOutOfRange);
  return *array;
}

LONG CountOf(SAFEARRAY& array) {
  if (::SafeArrayGetDim(&array) != 1) throw RunTimeError(StandardError::SubscriptOutOfRange);
  LONG lower = 0;
  LONG upper = 0;
  if (FAILED(::SafeArrayGetLBound(&array, 1, &lower)) || FAILED(::SafeArrayGetUBound(&array, 1, &upper))) {
    throw RunTimeError(StandardError::SubscriptOutOfRange);
  }
  if (upper > std::numeric_limits<std::int16_t>::max()) throw RunTimeError(StandardError::Overflow);
  if (upper < 0 || (upper > 0 && lower > 1)) throw RunTimeError(StandardError::SubscriptOutOfRange);
  return upper;
}

// Holds the array as it is: asking its elements for automation runs the host's code.
class LockedArray {
 public:
  explicit LockedArray(SAFEARRAY& array) : mArray(array) {
    if (FAILED(::SafeArrayLock(&mArray))) throw RunTimeError(StandardError::OutOfMemory);
  }
  ~LockedArray() { ::SafeArrayUnlock(&mArray); }
  LockedArray(const LockedArray&) = delete;
  LockedArray& operator=(const LockedArray&) = delete;

 private:
  SAFEARRAY& mArray;
};

ComPtr<IDispatch> ElementOf(SAFEARRAY& array, VARTYPE type, LONG index) {
  Variant element;
  HRESULT status = E_INVALIDARG;
  if (type == VT_VARIANT) {
    status = ::SafeArrayGetElement(&array, &index, &element.Get());
  } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
    element.Get().vt = type;
    status = ::SafeArrayGetElement(&array, &index, &element.Get().punkVal);
  }
  ComPtr<IDispatch> object = SUCCEEDED(status) ? ObjectOf(element.Get()) : nullptr;
  if (!object) throw RunTimeError(StandardError::ObjectRequired);
  return object;
}

// One adapter for each object, by the object's identity.
class Adapters {
 public:
  explicit Adapters(const HostFunctions& known) {
    for (const auto& function : known) mByIdentity.emplace(IdentityOf(function->Object()), function);
  }

  [[nodiscard]] std::shared_ptr<HostFunction> Of(ComPtr<IDispatch> object) {
    std::shared_ptr<HostFunction>& function = mByIdentity[IdentityOf(object.Get())];
    if (!function) function = std::make_shared<HostFunction>(std::move(object));
    return function;
  }

 private:
  // It stays the object's as long as the adapter holds the object.
  [[nodiscard]] static IUnknown* IdentityOf(IDispatch* object) noexcept {
    return ComPtr<IUnknown>::From(object).Get();
  }

  std::unordered_map<IUnknown*, std::shared_ptr<HostFunction>> mByIdentity;
};

}  // namespace

HostFunction::HostFunction(ComPtr<IDispatch> object) : mObject(std::move(object), kFields) {}

std::string HostFunction::GetEquation() {
  return ToText(mObject.Read(kEquation).Get());
}
bool HostFunction::GetEnabled() {
  return ToBool(mObject.Read(kEnabled).Get());
}
std::int32_t HostFunction::GetDrawStyle() {
  return ToInt32(mObject.Read(kDrawStyle).Get());
}
std::int32_t HostFunction::GetDrawColor() {
  return ToInt32(mObject.Read(kDrawColor).Get());
}
bool HostFunction::GetQuickRedraw() {
  return ToBool(mObject.Read(kQuickRedraw).Get());
}
void HostFunction::SetQuickRedraw(bool valid) {
  mObject.Write(kQuickRedraw, Variant(valid));
}

HostFunctions FunctionsOf(const VARIANT& array, const HostFunctions& known) {
  SAFEARRAY& elements = ArrayOf(array);
  const LONG count = CountOf(elements);
  const LockedArray locked(elements);
  VARTYPE type = VT_EMPTY;
  if (FAILED(::SafeArrayGetVartype(&elements, &type))) type = VT_EMPTY;
  Adapters adapters(known);
  HostFunctions functions;
  for (LONG index = 1; index <= count; ++index) {
    ComPtr<IDispatch> object = ElementOf(elements, type, index);
    functions.push_back(adapters.Of(std::move(object)));
  }
  return functions;
}

}  // namespace plotvane::control::com
