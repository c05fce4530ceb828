// Automation: the control's members from another program, as a script of the user's would reach them.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace plotvane::test {

// Of the first control of a host's window. Members are found by name, at each call anew.
class Automation {
 public:
  explicit Automation(HWND host);
  ~Automation();
  Automation(const Automation&) = delete;
  Automation& operator=(const Automation&) = delete;

  // False where the host's control has no automation interface.
  [[nodiscard]] bool IsThere() const noexcept { return mObject != nullptr; }

  // Not a number when it cannot be read.
  [[nodiscard]] double Number(const wchar_t* property);
  [[nodiscard]] HRESULT SetNumber(const wchar_t* property, double value);
  // The object of a property, which the caller gives back; null when there is none.
  [[nodiscard]] IDispatch* Object(const wchar_t* property);
  // `object` may be null.
  [[nodiscard]] HRESULT SetObject(const wchar_t* property, IDispatch* object);
  [[nodiscard]] HRESULT Call(const wchar_t* method);

 private:
  HRESULT Invoke(const wchar_t* member, WORD kind, VARIANT* argument, VARIANT* result);

  IDispatch* mObject = nullptr;
};

}  // namespace plotvane::test
