#include "control/com/host_object.h"

#include <dispex.h>
#include <oleauto.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "control/com/bstr.h"
#include "control/com/error_info.h"
#include "control/win32/floating_point_state.h"

namespace plotvane::control::com {

// Kept by whoever is inside a call: the call may make the control let go of the adapter.
struct HostObject::State {
  State(ComPtr<IDispatch> dispatch, Names memberNames)
      : object(std::move(dispatch)), names(memberNames), ids(memberNames.size()) {}
  ~State() {
    const win32::HostFloatingPoint hostState;
    extended.Reset();
    object.Reset();
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  [[nodiscard]] DISPID IdOf(std::size_t member);
  Variant Invoke(std::size_t member, WORD kinds, DISPPARAMS& arguments);

  ComPtr<IDispatch> object;
  ComPtr<IDispatchEx> extended;  // only when names have to be looked up through it
  Names names;
  std::vector<std::optional<DISPID>> ids;

 private:
  [[nodiscard]] HRESULT LookUp(const wchar_t* name, DISPID& id);
};

HRESULT HostObject::State::LookUp(const wchar_t* name, DISPID& id) {
  const win32::HostFloatingPoint hostState;
  auto text = const_cast<LPOLESTR>(name);  // the interface forgot the const
  HRESULT status = object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  if (status != E_NOTIMPL) return status;
  extended = ComPtr<IDispatchEx>::From(object.Get());
  if (!extended) return status;
  return extended->GetDispID(Bstr(std::wstring_view(name)).Get(), fdexNameCaseInsensitive, &id);
}

DISPID HostObject::State::IdOf(std::size_t member) {
  if (!ids[member]) {
    DISPID id = DISPID_UNKNOWN;
    const HRESULT status = LookUp(names[member], id);
    EXCEPINFO nothing{};
    if (FAILED(status)) ThrowHostError(status, nothing);
    ids[member] = id;
  }
  return *ids[member];
}

Variant HostObject::State::Invoke(std::size_t member, WORD kinds, DISPPARAMS& arguments) {
  const DISPID id = IdOf(member);
  Variant result;
  EXCEPINFO exception{};
  HRESULT status = S_OK;
  {
    VARIANT* wanted =
        (kinds & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0 ? result.Receive() : nullptr;
    const win32::HostFloatingPoint hostState;
    status = extended
                 ? extended->InvokeEx(id, LOCALE_USER_DEFAULT, kinds, &arguments, wanted, &exception, nullptr)
                 : object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kinds, &arguments, wanted, &exception,
                                  nullptr);
  }
  if (FAILED(status)) ThrowHostError(status, exception);
  return result;
}

namespace {

bool IsMissingMember(const HostError& error) {
  return error.Number() == static_cast<std::int32_t>(platform::StandardError::MemberNotFound);
}

}  // namespace

HostObject::HostObject(ComPtr<IDispatch> object, Names names)
    : mState(std::make_shared<State>(std::move(object), names)) {}

IDispatch* HostObject::Get() const noexcept {
  return mState->object.Get();
}

bool HostObject::Has(std::size_t member) const {
  const auto state = mState;
  try {
    static_cast<void>(state->IdOf(member));
    return true;
  } catch (const HostError&) {
    return false;
  }
}

Variant HostObject::Read(std::size_t member) const {
  const auto state = mState;
  DISPPARAMS none{};
  // A property first: some script engines would call a value as if it were a method when they hear of one. An
  // object that has a method without parameters in its place is as good.
  try {
    return state->Invoke(member, DISPATCH_PROPERTYGET, none);
  } catch (const HostError& error) {
    if (!IsMissingMember(error)) throw;
  }
  return state->Invoke(member, DISPATCH_METHOD, none);
}

void HostObject::Write(std::size_t member, const Variant& value) const {
  const auto state = mState;
  Variant copy(value);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{&copy.Get(), &put, 1, 1};
  state->Invoke(member, DISPATCH_PROPERTYPUT, arguments);
}

Variant HostObject::Call(std::size_t member, std::span<const Variant> arguments) const {
  const auto state = mState;
  // The last argument comes first. The copies are shallow: the caller's variants own what they hold.
  std::vector<VARIANT> reversed;
  for (const Variant& argument : arguments) reversed.push_back(argument.Get());
  std::reverse(reversed.begin(), reversed.end());
  DISPPARAMS given{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return state->Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, given);
}

Variant ReferenceTo(Variant& target) noexcept {
  Variant reference;
  reference.Get().vt = VT_BYREF | VT_VARIANT;
  reference.Get().pvarVal = &target.Get();
  return reference;
}

}  // namespace plotvane::control::com
