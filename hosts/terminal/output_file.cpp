#include "hosts/terminal/output_file.h"

#include <cerrno>
#include <system_error>

namespace plotvane::terminal {

namespace {

[[noreturn]] void ThrowSystemError() {
  throw std::system_error(std::error_code(errno != 0 ? errno : EIO, std::generic_category()));
}

}  // namespace

OutputFile::OutputFile(const std::string& path) {
  errno = 0;
  mFile.reset(std::fopen(path.c_str(), "wb"));
  if (!mFile) ThrowSystemError();
}

void OutputFile::Write(const std::string& text) {
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), mFile.get()) != text.size()) ThrowSystemError();
}

void OutputFile::Check() const {
  if (std::ferror(mFile.get()) != 0) ThrowSystemError();
}

void OutputFile::Close() {
  Check();
  errno = 0;
  if (std::fclose(mFile.release()) != 0) ThrowSystemError();
}

}  // namespace plotvane::terminal
