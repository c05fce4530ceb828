// Where the build puts the element data: beside the programs, above the folders that hold the tests.
#pragma once

#include <filesystem>
#include <string>

#include "platform/paths.h"
#include "platform/program_directory.h"

namespace plotvane::tests {

inline std::string ElementDataDirectory() {
  std::filesystem::path directory = platform::PathFromText(platform::ProgramDirectory());
  while (!std::filesystem::exists(directory / "PTE Names.dat") && directory.has_relative_path()) {
    directory = directory.parent_path();
  }
  return platform::TextFromPath(directory);
}

}  // namespace plotvane::tests
