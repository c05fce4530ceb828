// The type library that lies in this module, whatever the registry says, and the module itself.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "control/com/com_ptr.h"

namespace plotvane::control::com {

// This library's own handle, not that of the host's program.
[[nodiscard]] HINSTANCE ThisModule() noexcept;
// The path of this library's file.
[[nodiscard]] std::wstring ThisModulePath();

// The library from this module's resources; RunTimeError with the system's status when it cannot be loaded.
[[nodiscard]] ComPtr<ITypeLib> LoadOwnTypeLibrary();
// The description of one of its interfaces or classes.
[[nodiscard]] ComPtr<ITypeInfo> LoadOwnTypeInfo(REFGUID guid);
// The function table of a dual interface, whose plain description shows it as late-bound callers see it:
// without the statuses and the results at the end of the parameters.
[[nodiscard]] ComPtr<ITypeInfo> FunctionTableOf(ITypeInfo& dual);

}  // namespace plotvane::control::com
