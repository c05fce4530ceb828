// The directory that holds the program's own data files.
#pragma once

#include <string>

namespace plotvane::platform {

// The directory of the module that contains this code, as UTF-8 text without a separator at its end: that of
// the program, and on Windows, where the code may live in the .ocx inside a host, that of the .ocx.
// RunTimeError 76 when the system does not tell.
[[nodiscard]] std::string ProgramDirectory();

}  // namespace plotvane::platform
