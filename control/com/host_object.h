// HostObject: an object of the host that is called by the names of its members.
//
// The identifiers behind the names are asked for once, at the first use of each. Objects that do not answer
// names the plain way (classes of some script engines) are asked through IDispatchEx. Every call runs with
// the host's floating-point state, and may do anything to the control and to the adapter that calls. Failures
// come as HostError; a name that the object does not have is error 438.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "control/com/com_ptr.h"
#include "control/com/variant.h"

namespace plotvane::control::com {

class HostObject {
 public:
  using Names = std::span<const wchar_t* const>;

  // The members are known by their places in `names`, which outlives the object.
  HostObject(ComPtr<IDispatch> object, Names names);

  [[nodiscard]] IDispatch* Get() const noexcept;

  // Whether the object knows the member.
  [[nodiscard]] bool Has(std::size_t member) const;
  // The value of a property.
  [[nodiscard]] Variant Read(std::size_t member) const;
  void Write(std::size_t member, const Variant& value) const;
  // Calls a method; an argument by reference is a variant of such a type.
  Variant Call(std::size_t member, std::span<const Variant> arguments) const;

 private:
  struct State;
  std::shared_ptr<State> mState;
};

// A variant that refers to `target`, which outlives it.
[[nodiscard]] Variant ReferenceTo(Variant& target) noexcept;

}  // namespace plotvane::control::com
