// How the members of _Graph take and give their values: one body for every read, one for every write.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "control/com/bstr.h"
#include "control/com/graph_object.h"
#include "platform/runtime_error.h"

namespace plotvane::control::com {

// Values on their way out; each throws rather than give half a value.
inline void Give(double* out, double value) {
  *out = value;
}
inline void Give(float* out, float value) {
  *out = value;
}
inline void Give(short* out, std::int16_t value) {
  *out = value;
}
inline void Give(LONG* out, std::int32_t value) {
  *out = value;
}
inline void Give(VARIANT_BOOL* out, bool value) {
  *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Give(BSTR* out, const std::string& value) {
  *out = Bstr(value).Detach();
}
inline void Give(::GraphCoordStyle* out, std::int32_t value) {
  *out = static_cast<::GraphCoordStyle>(value);
}
inline void Give(::DrawType* out, std::int32_t value) {
  *out = static_cast<::DrawType>(value);
}

// Values on their way in. A boolean is true for every number but 0.
inline double Take(double value) {
  return value;
}
inline float Take(float value) {
  return value;
}
inline bool Take(VARIANT_BOOL value) {
  return value != VARIANT_FALSE;
}
inline std::string Take(BSTR value) {
  return TextOf(value);
}
inline std::int32_t Take(::GraphCoordStyle value) {
  return static_cast<std::int32_t>(value);
}
inline std::int32_t Take(::DrawType value) {
  return static_cast<std::int32_t>(value);
}

// What a by-reference parameter refers to.
template <typename Type>
Type At(Type* pointer) {
  if (pointer == nullptr) throw platform::RunTimeError(E_POINTER, "Invalid pointer");
  return *pointer;
}

template <typename Body>
HRESULT GraphObject::Write(DISPID property, Body&& body) noexcept {
  return Enter([&] {
    body();
    NotifyWritten(property);
  });
}

template <typename Out, typename Body>
HRESULT GraphObject::Read(Out* out, Body&& body) noexcept {
  if (out == nullptr) return E_POINTER;
  *out = Out{};
  return Enter([&] { Give(out, body()); });
}

}  // namespace plotvane::control::com
