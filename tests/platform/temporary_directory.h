// A directory of its own for each test that writes files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/paths.h"

namespace plotvane::tests {

class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::random_device random;
    mPath = std::filesystem::temp_directory_path() /
            ("plotvane-" + std::to_string(std::uint64_t{random()} << 32U | random()));
    std::filesystem::create_directories(mPath);
  }
  ~TemporaryDirectory() {
    std::error_code error;
    std::filesystem::remove_all(mPath, error);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  [[nodiscard]] std::string Path() const { return platform::TextFromPath(mPath); }
  [[nodiscard]] std::string File(std::string_view name) const {
    return platform::FileInDirectory(Path(), name);
  }

  // A file with exactly these bytes; gives its path.
  std::string Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(platform::PathFromText(File(name)), std::ios::binary) << bytes;
    return File(name);
  }

  [[nodiscard]] std::string Read(std::string_view name) const {
    std::ifstream stream(platform::PathFromText(File(name)), std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
  }

 private:
  std::filesystem::path mPath;
};

}  // namespace plotvane::tests
