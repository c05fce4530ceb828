// CallArguments: the arguments of one late-bound call in the order of the parameters.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>
#include <vector>

#include "control/com/variant.h"

namespace plotvane::control::com {

// A late-bound call that cannot be made; its status goes to the caller as it is, with the argument's place.
class BadCall {
 public:
  explicit BadCall(HRESULT status, UINT argument = 0) noexcept : mStatus(status), mArgument(argument) {}
  [[nodiscard]] HRESULT Status() const noexcept { return mStatus; }
  [[nodiscard]] UINT Argument() const noexcept { return mArgument; }

 private:
  HRESULT mStatus;
  UINT mArgument;
};

class CallArguments {
 public:
  // Sorts `given` (which comes last argument first, named ones in front) to `count` parameters; a named
  // argument bears the index of its parameter, the value of a property write stands for the last parameter.
  // BadCall when there are too many, when a name is unknown, or when a parameter is given twice.
  CallArguments(const DISPPARAMS& given, std::size_t count);

  // The argument of a parameter; null when it was left out.
  [[nodiscard]] VARIANT* At(std::size_t parameter) const noexcept { return mArguments[parameter]; }
  // Its place in the caller's list, by which an error names it.
  [[nodiscard]] UINT PlaceOf(std::size_t parameter) const noexcept;

 private:
  VARIANT* mFirst;
  std::vector<VARIANT*> mArguments;
};

// Stores `value` into the variable that a by-reference argument refers to, converted to that variable's type.
// An argument by value takes no result: nothing happens. RunTimeError 13 or 6 when it does not convert.
void WriteBack(VARIANT& argument, const Variant& value);

}  // namespace plotvane::control::com
