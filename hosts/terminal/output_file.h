// OutputFile: a file written through the C library, whose failures are the system's own words.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace plotvane::terminal {

// std::system_error where the system refuses: opening, and a full disk at the latest in Close.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);

  // Owned by this object.
  [[nodiscard]] std::FILE* Handle() const noexcept { return mFile.get(); }

  void Write(const std::string& text);

  // Throws when writing has failed so far.
  void Check() const;

  // Writes out what is left. Without it the file is closed quietly.
  void Close();

 private:
  struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, CloseFile> mFile;
};

}  // namespace plotvane::terminal
