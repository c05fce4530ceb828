// Late-bound calls to a dual interface, driven by its description in the type library.
//
// What real callers pass is taken: arguments by value for parameters by reference and the other way round,
// references to variants that hold references, named arguments, optional arguments left out, property put and
// putref in one call. The arguments are copied and converted, and the member of the function table is called.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace plotvane::control::com {

// Calls the member `id` of `object`, whose function table is described by `table`. The statuses and outputs
// are those of IDispatch::Invoke; a member's own failure is DISP_E_EXCEPTION with its error information in
// `exception`.
HRESULT InvokeByTypeInfo(ITypeInfo& table, IDispatch& object, DISPID id, WORD kinds,
                         const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception,
                         UINT* badArgument) noexcept;

}  // namespace plotvane::control::com
