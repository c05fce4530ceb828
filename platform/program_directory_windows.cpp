// The one file below the control that asks Windows itself: no portable call tells which module code lies in.
// It is compiled for Windows only.
#include "platform/program_directory.h"

#include <windows.h>

#include <filesystem>
#include <string>

#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace plotvane::platform {

namespace {

// The longest path that Windows knows, in UTF-16 units.
constexpr std::size_t kLongestPath = 32768;

// Any object of this module tells the system which module is meant.
const char kPlaceInThisModule = 0;

std::wstring ModulePath() {
  HMODULE module = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (::GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&kPlaceInThisModule), &module) == 0) return {};
  std::wstring path(kLongestPath, L'\0');
  path.resize(::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

}  // namespace

std::string ProgramDirectory() {
  const std::filesystem::path program = ModulePath();
  if (program.empty()) throw RunTimeError(StandardError::PathNotFound);
  return TextFromPath(program.parent_path());
}

}  // namespace plotvane::platform
