// Variant: an owned automation value, and its conversions to the values of the system.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "control/com/com_ptr.h"
#include "platform/value.h"

namespace plotvane::control::com {

class Variant {
 public:
  Variant() noexcept { ::VariantInit(&mValue); }
  explicit Variant(bool value) noexcept;
  explicit Variant(std::int16_t value) noexcept;
  explicit Variant(std::int32_t value) noexcept;
  explicit Variant(double value) noexcept;
  explicit Variant(std::string_view text);
  explicit Variant(const char* text) : Variant(std::string_view(text)) {}
  // Shares `object`, which may be null: then it holds an object variable that is not set.
  explicit Variant(IDispatch* object) noexcept;
  explicit Variant(const platform::Value& value);
  // A deep copy; what `other` refers to is not copied but referred to as well.
  Variant(const Variant& other) : Variant() { CopyFrom(other.mValue); }
  Variant(Variant&& other) noexcept : mValue(other.mValue) { ::VariantInit(&other.mValue); }
  Variant& operator=(Variant other) noexcept;
  ~Variant() { ::VariantClear(&mValue); }

  // The argument that a caller left out.
  [[nodiscard]] static Variant Missing() noexcept;
  // A copy of `value` with all references followed.
  [[nodiscard]] static Variant Resolved(const VARIANT& value);

  [[nodiscard]] const VARIANT& Get() const noexcept { return mValue; }
  [[nodiscard]] VARIANT& Get() noexcept { return mValue; }
  [[nodiscard]] VARTYPE Type() const noexcept { return mValue.vt; }

  // Where a call writes a new value.
  [[nodiscard]] VARIANT* Receive() noexcept;
  // Gives the value away, as an out argument wants it.
  [[nodiscard]] VARIANT Detach() noexcept;

 private:
  void CopyFrom(const VARIANT& value);

  VARIANT mValue;
};

// `value` itself, or what it refers to when it is a reference to another value (through any number of them).
// A reference to anything but a value is returned as it is.
[[nodiscard]] const VARIANT& Dereferenced(const VARIANT& value) noexcept;

// Whether `value` (references followed) stands for an argument that a caller left out.
[[nodiscard]] bool IsLeftOut(const VARIANT& value) noexcept;

// Conversions by the rules of automation, in the invariant locale whatever the thread's is. References are
// followed and an object stands for its default property. RunTimeError 13 when there is no conversion, 6 when
// the number is too large.
[[nodiscard]] Variant ConvertTo(VARTYPE type, const VARIANT& value);
[[nodiscard]] bool ToBool(const VARIANT& value);
[[nodiscard]] std::int16_t ToInt16(const VARIANT& value);
[[nodiscard]] std::int32_t ToInt32(const VARIANT& value);
[[nodiscard]] double ToDouble(const VARIANT& value);
[[nodiscard]] std::string ToText(const VARIANT& value);

// What an identifier can hold: empty, boolean and text as they are, every kind of number and a date as a
// number. RunTimeError 13 for anything else (null, arrays, errors, objects without a default property).
[[nodiscard]] platform::Value ToValue(const VARIANT& value);

// Whether `value` (references followed) is of an object type, set or not.
[[nodiscard]] bool IsObject(const VARIANT& value) noexcept;
// The same, and it is set.
[[nodiscard]] bool HoldsObject(const VARIANT& value) noexcept;
// The object in `value`, references followed; empty when it holds none or one that cannot be automated.
[[nodiscard]] ComPtr<IDispatch> ObjectOf(const VARIANT& value) noexcept;

}  // namespace plotvane::control::com
