// AutomationObject: an object that answers late-bound calls by name from a table of its members.
//
//   class Counter final : public AutomationObject<Counter> {
//    public:
//     static constexpr std::array kMembers{
//         Member<Counter>{L"Add", 1, DISPATCH_METHOD, {L"Step"}, 0, &Counter::Add}, …
//   };
//
// Names are compared without regard to case, in any locale; parameters can be named too.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <cstddef>

#include "control/com/call_arguments.h"
#include "control/com/fence.h"
#include "control/com/implements.h"
#include "control/com/variant.h"

namespace plotvane::control::com {

inline constexpr std::size_t kMostParameters = 5;

// The arguments of one call, as a member reads and writes them.
class Call {
 public:
  explicit Call(const CallArguments& arguments) noexcept : mArguments(arguments) {}

  [[nodiscard]] bool Has(std::size_t parameter) const noexcept { return mArguments.At(parameter) != nullptr; }
  // Only for a parameter that the caller gave.
  [[nodiscard]] const VARIANT& operator[](std::size_t parameter) const noexcept {
    return *mArguments.At(parameter);
  }
  // Gives the value of a by-reference parameter to the caller's variable.
  void Write(std::size_t parameter, const Variant& value) const {
    if (Has(parameter)) WriteBack(*mArguments.At(parameter), value);
  }

 private:
  const CallArguments& mArguments;
};

template <typename Class>
struct Member {
  const wchar_t* name;
  DISPID id;
  WORD
      kinds;  // one of DISPATCH_METHOD, DISPATCH_PROPERTYGET, or DISPATCH_PROPERTYPUT with or without …PUTREF
  std::array<const wchar_t*, kMostParameters> parameters;  // null after the last
  std::size_t required;                                    // the others may be left out
  Variant (Class::*perform)(const Call& call);

  [[nodiscard]] constexpr std::size_t ParameterCount() const noexcept {
    std::size_t count = 0;
    while (count < kMostParameters && parameters[count] != nullptr) ++count;
    return count;
  }
};

[[nodiscard]] inline bool SameName(const wchar_t* one, const wchar_t* other) noexcept {
  return ::CompareStringOrdinal(one, -1, other, -1, TRUE) == CSTR_EQUAL;
}

// Fills the caller's `exception` from what `body` threw; DISP_E_EXCEPTION, or the status of a call that was
// not made.
template <typename Body>
HRESULT FenceInvoke(EXCEPINFO* exception, UINT* badArgument, Body&& body) noexcept {
  const HRESULT status = Fence([&]() -> HRESULT {
    try {
      body();
      return S_OK;
    } catch (const BadCall& bad) {
      if (badArgument != nullptr) *badArgument = bad.Argument();
      return bad.Status();
    }
  });
  if (SUCCEEDED(status) || HRESULT_FACILITY(status) == FACILITY_DISPATCH) return status;
  EXCEPINFO info;
  TakeErrorInfo(status, info);
  if (exception != nullptr) {
    *exception = info;
  } else {
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
  }
  return DISP_E_EXCEPTION;
}

template <typename Class, typename... More>
class AutomationObject : public Implements<IDispatch, More...> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override {
    if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (UINT index = 0; index < count; ++index) ids[index] = DISPID_UNKNOWN;
    const Member<Class>* member = FindName(names[0]);
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = member->id;
    HRESULT status = S_OK;
    for (UINT index = 1; index < count; ++index) {
      ids[index] = FindParameter(*member, names[index]);
      if (ids[index] == DISPID_UNKNOWN) status = DISP_E_UNKNOWNNAME;
    }
    return status;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD kinds, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* badArgument) noexcept override {
    if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_INVALIDARG;
    if (result != nullptr) ::VariantInit(result);
    const ComPtr<IDispatch> alive(this);
    return FenceInvoke(exception, badArgument, [&] {
      const Member<Class>* member = FindMember(id, kinds);
      if (member == nullptr) throw BadCall(DISP_E_MEMBERNOTFOUND);
      const CallArguments sorted(*arguments, member->ParameterCount());
      for (std::size_t index = 0; index < member->required; ++index) {
        if (sorted.At(index) == nullptr) throw BadCall(DISP_E_PARAMNOTOPTIONAL);
      }
      Variant value = (static_cast<Class*>(this)->*member->perform)(Call(sorted));
      if (result != nullptr) *result = value.Detach();
    });
  }

 private:
  [[nodiscard]] static const Member<Class>* FindName(const wchar_t* name) noexcept {
    for (const Member<Class>& member : Class::kMembers) {
      if (SameName(member.name, name)) return &member;
    }
    return nullptr;
  }

  [[nodiscard]] static DISPID FindParameter(const Member<Class>& member, const wchar_t* name) noexcept {
    for (std::size_t index = 0; index < member.ParameterCount(); ++index) {
      if (SameName(member.parameters[index], name)) return static_cast<DISPID>(index);
    }
    return DISPID_UNKNOWN;
  }

  [[nodiscard]] static const Member<Class>* FindMember(DISPID id, WORD kinds) noexcept {
    // Scripts read a property with the kind of a method added.
    const WORD wanted =
        (kinds & DISPATCH_METHOD) != 0 ? static_cast<WORD>(kinds | DISPATCH_PROPERTYGET) : kinds;
    for (const Member<Class>& member : Class::kMembers) {
      if (member.id == id && (member.kinds & wanted) != 0) return &member;
    }
    return nullptr;
  }
};

}  // namespace plotvane::control::com
