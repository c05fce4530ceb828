// Every system but Windows, see program_directory_windows.cpp.
#include "platform/program_directory.h"

#include <filesystem>
#include <system_error>

#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace plotvane::platform {

std::string ProgramDirectory() {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) throw RunTimeError(StandardError::PathNotFound);
  return TextFromPath(program.parent_path());
}

}  // namespace plotvane::platform
