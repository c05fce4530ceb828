// LateBound: calls the members of an automation object by name, as a script would.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>

#include "platform/runtime_error.h"
#include "platform/value.h"

namespace plotvane::desktop {

using Microsoft::WRL::ComPtr;

// A VARIANT that clears itself.
class OwnedVariant {
 public:
  OwnedVariant() { ::VariantInit(&mVariant); }
  ~OwnedVariant() { ::VariantClear(&mVariant); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;

  [[nodiscard]] VARIANT& Get() { return mVariant; }
  [[nodiscard]] VARIANT* operator&() { return &mVariant; }

 private:
  VARIANT mVariant;
};

// The other way round for values; a value that no expression can hold becomes empty.
void PutValue(const platform::Value& value, VARIANT& variant);
[[nodiscard]] platform::Value TakeValue(const VARIANT& variant);

// Calls `name` of `object`. `flags`: DISPATCH_METHOD, DISPATCH_PROPERTYGET or both. `arguments` in the order of
// the call. A failure is a platform::RunTimeError with the text that the object gave.
void CallByName(IDispatch& object, const wchar_t* name, WORD flags, std::initializer_list<VARIANT> arguments,
                VARIANT* result);

// A property that holds an object; null when it holds none.
[[nodiscard]] ComPtr<IDispatch> ObjectByName(IDispatch& object, const wchar_t* name);

// A property or a method without arguments that gives a plain value.
[[nodiscard]] platform::Value ValueByName(IDispatch& object, const wchar_t* name);

}  // namespace plotvane::desktop
