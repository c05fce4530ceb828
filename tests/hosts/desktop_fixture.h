// What the tests of the desktop host share: the program, a folder, the bytes of files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/hosts/desktop_driver.h"

namespace plotvane::desktop_test {

// The colours that the host gives its functions.
inline constexpr COLORREF kY1 = RGB(0x00, 0x40, 0xC0);
inline constexpr COLORREF kY2 = RGB(0xD0, 0x00, 0x00);
inline constexpr COLORREF kY3 = RGB(0x00, 0x80, 0x00);
inline constexpr COLORREF kY5 = RGB(0x80, 0x00, 0x80);

inline std::wstring Program() {
  wchar_t path[MAX_PATH];
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::filesystem::path tests = path;
  return (tests.parent_path() / PLOTVANE_HOST_FROM_TESTS).lexically_normal().wstring();
}

inline std::string Bytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// While it lives nobody may write a file.
class ReadOnly {
 public:
  explicit ReadOnly(std::filesystem::path file) : mFile(std::move(file)) {
    ::SetFileAttributesW(mFile.c_str(), FILE_ATTRIBUTE_READONLY);
  }
  ~ReadOnly() { ::SetFileAttributesW(mFile.c_str(), FILE_ATTRIBUTE_NORMAL); }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;

 private:
  std::filesystem::path mFile;
};

// With a folder of its own.
class DesktopHost : public testing::Test {
 protected:
  DesktopHost() {
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    mFolder = std::filesystem::path(folder) / ("plotvane-host-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::remove_all(mFolder);
    std::filesystem::create_directory(mFolder);
  }
  ~DesktopHost() override {
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }

  [[nodiscard]] std::filesystem::path Write(const wchar_t* name, const std::string& bytes) const {
    std::ofstream(mFolder / name, std::ios::binary) << bytes;
    return mFolder / name;
  }

  std::filesystem::path mFolder;
};

}  // namespace plotvane::desktop_test
