#include "control/com/type_info_invoke.h"

#include <oleauto.h>

#include <exception>
#include <vector>

#include "control/com/call_arguments.h"
#include "control/com/error_info.h"
#include "control/com/variant.h"

namespace plotvane::control::com {

namespace {

using platform::RunTimeError;
using platform::StandardError;

constexpr WORD kReads = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr WORD kWrites = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// One member's description, released when done.
class Member {
 public:
  Member(ITypeInfo& info, DISPID id, WORD kinds) : mInfo(info) {
    for (UINT index = 0; SUCCEEDED(mInfo.GetFuncDesc(index, &mFunction)); ++index) {
      if (mFunction->memid == id && Answers(kinds)) return;
      mInfo.ReleaseFuncDesc(mFunction);
    }
    throw BadCall(DISP_E_MEMBERNOTFOUND);
  }
  ~Member() { mInfo.ReleaseFuncDesc(mFunction); }
  Member(const Member&) = delete;
  Member& operator=(const Member&) = delete;

  [[nodiscard]] std::size_t ParameterCount() const noexcept {
    return static_cast<std::size_t>(mFunction->cParams);
  }
  [[nodiscard]] const ELEMDESC& Parameter(std::size_t index) const noexcept {
    return mFunction->lprgelemdescParam[index];
  }
  [[nodiscard]] bool IsResult(std::size_t index) const noexcept {
    return (Parameter(index).paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
  }
  [[nodiscard]] bool IsOptional(std::size_t index) const noexcept {
    return (Parameter(index).paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
  }
  [[nodiscard]] bool HasResult() const noexcept {
    return ParameterCount() > 0 && IsResult(ParameterCount() - 1);
  }
  [[nodiscard]] ULONG_PTR TableOffset() const noexcept { return static_cast<ULONG_PTR>(mFunction->oVft); }

 private:
  // A property is read by a call that says "method" too; an object property is written by put and by putref.
  [[nodiscard]] bool Answers(WORD kinds) const noexcept {
    switch (mFunction->invkind) {
      case INVOKE_FUNC: return (kinds & DISPATCH_METHOD) != 0;
      case INVOKE_PROPERTYGET: return (kinds & kReads) != 0;
      case INVOKE_PROPERTYPUT: return (kinds & DISPATCH_PROPERTYPUT) != 0;
      case INVOKE_PROPERTYPUTREF: return (kinds & kWrites) != 0;
      default: return false;
    }
  }

  ITypeInfo& mInfo;
  FUNCDESC* mFunction = nullptr;
};

struct ParameterType {
  VARTYPE type;
  bool byReference;
};

// The enumerations of the library are 32-bit whole numbers; nothing else in it is of a type of its own.
VARTYPE PlainType(VARTYPE type) noexcept {
  return type == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : type;
}

ParameterType TypeOf(const ELEMDESC& parameter) noexcept {
  const TYPEDESC& type = parameter.tdesc;
  if (type.vt == VT_PTR) return {PlainType(type.lptdesc->vt), true};
  return {PlainType(type.vt), false};
}

Variant ConvertArgument(VARTYPE type, const VARIANT& argument) {
  if (type != VT_DISPATCH) return ConvertTo(type, argument);
  if (!IsObject(argument)) throw RunTimeError(StandardError::ObjectRequired);
  return Variant(ObjectOf(argument).Get());
}

// The storage of one call: what each parameter points at, and what is handed to the function table.
class Frame {
 public:
  Frame(const Member& member, const CallArguments& arguments)
      : mStorage(member.ParameterCount()), mPassed(member.ParameterCount()), mTypes(member.ParameterCount()) {
    for (std::size_t index = 0; index < member.ParameterCount(); ++index) {
      const ParameterType type = TypeOf(member.Parameter(index));
      if (member.IsResult(index)) {
        PassResult(index, type.type);
      } else {
        PassArgument(index, type, arguments.At(index), member.IsOptional(index), arguments.PlaceOf(index));
      }
    }
  }

  HRESULT Call(IDispatch& object, const Member& member) {
    std::vector<VARIANTARG*> pointers;
    for (VARIANT& passed : mPassed) pointers.push_back(&passed);
    VARIANT status;
    ::VariantInit(&status);
    const HRESULT called =
        ::DispCallFunc(&object, member.TableOffset(), CC_STDCALL, VT_ERROR,
                       static_cast<UINT>(pointers.size()), mTypes.data(), pointers.data(), &status);
    return FAILED(called) ? called : status.scode;
  }

  [[nodiscard]] VARIANT TakeResult() { return mStorage.back().Detach(); }

 private:
  void PassResult(std::size_t index, VARTYPE type) {
    Variant& storage = mStorage[index];
    if (type == VT_VARIANT) {
      PassReference(index, VT_VARIANT, storage.Get());
    } else {
      storage.Get().vt = type;
      PassReference(index, type, storage.Get());
    }
  }

  void PassArgument(std::size_t index, ParameterType type, VARIANT* argument, bool optional, UINT place) {
    if (argument == nullptr && !optional) throw BadCall(DISP_E_PARAMNOTOPTIONAL, place);
    if (type.type == VT_VARIANT) {
      // The member sees the caller's own variable, or a value that says "left out".
      if (argument == nullptr) mStorage[index] = Variant::Missing();
      PassReference(index, VT_VARIANT, argument != nullptr ? *argument : mStorage[index].Get());
      return;
    }
    // No member of the library changes what it gets by reference, so a copy serves for all of them.
    mStorage[index] = ConvertArgument(type.type, *argument);
    if (type.byReference) {
      PassReference(index, type.type, mStorage[index].Get());
    } else {
      mPassed[index] = mStorage[index].Get();
      mTypes[index] = type.type;
    }
  }

  void PassReference(std::size_t index, VARTYPE type, VARIANT& target) {
    mTypes[index] = static_cast<VARTYPE>(VT_BYREF | type);
    mPassed[index].vt = mTypes[index];
    mPassed[index].byref =
        type == VT_VARIANT ? static_cast<void*>(&target) : static_cast<void*>(&target.byref);
  }

  std::vector<Variant> mStorage;
  std::vector<VARIANT> mPassed;
  std::vector<VARTYPE> mTypes;
};

HRESULT Failed(HRESULT status, EXCEPINFO* exception) noexcept {
  EXCEPINFO ignored;
  EXCEPINFO& info = exception != nullptr ? *exception : ignored;
  TakeErrorInfo(status, info);
  if (exception == nullptr) {
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
  }
  return DISP_E_EXCEPTION;
}

HRESULT Invoke(ITypeInfo& info, IDispatch& object, DISPID id, WORD kinds, const DISPPARAMS& given,
               VARIANT* result, EXCEPINFO* exception) {
  const Member member(info, id, kinds);
  const CallArguments arguments(given, member.ParameterCount() - (member.HasResult() ? 1 : 0));
  Frame frame(member, arguments);
  const HRESULT status = frame.Call(object, member);
  if (FAILED(status)) return Failed(status, exception);
  if (member.HasResult()) {
    VARIANT value = frame.TakeResult();
    if (result != nullptr)
      *result = value;
    else
      ::VariantClear(&value);
  }
  return S_OK;
}

}  // namespace

HRESULT InvokeByTypeInfo(ITypeInfo& info, IDispatch& object, DISPID id, WORD kinds,
                         const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                         UINT* badArgument) noexcept {
  try {
    if (result != nullptr) ::VariantInit(result);
    return Invoke(info, object, id, kinds, arguments, result, exception);
  } catch (const BadCall& bad) {
    if (badArgument != nullptr) *badArgument = bad.Argument();
    return bad.Status();
  } catch (const HostError& error) {
    return Failed(Report(error), exception);
  } catch (const RunTimeError& error) {
    return Failed(Report(error), exception);
  } catch (const std::exception&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace plotvane::control::com
