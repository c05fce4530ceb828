// A type library as text, one line for each thing that a host could bind to.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace plotvane::tests {

// Places in function tables are counted in entries, so that the text is the same for 32 and 64 bits.
[[nodiscard]] std::string DumpTypeLibrary(ITypeLib& library);

}  // namespace plotvane::tests
