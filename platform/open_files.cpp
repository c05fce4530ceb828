#include "platform/open_files.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace plotvane::platform {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(StandardError error) {
  throw RunTimeError(error);
}

std::ios_base::openmode StreamMode(FileMode mode) {
  switch (mode) {
    case FileMode::Input: return std::ios_base::in | std::ios_base::binary;
    case FileMode::Output: return std::ios_base::out | std::ios_base::trunc | std::ios_base::binary;
    case FileMode::Append: return std::ios_base::out | std::ios_base::app | std::ios_base::binary;
  }
  return {};
}

// Why a file that is not there could not be opened or made.
StandardError MissingFileError(const fs::path& path, FileMode mode) {
  std::error_code error;
  const fs::path directory = path.parent_path();
  if (!directory.empty() && !fs::is_directory(directory, error)) return StandardError::PathNotFound;
  return mode == FileMode::Input ? StandardError::FileNotFound : StandardError::PathFileAccess;
}

// Why a file that is there could not be opened: refused by its own attributes, else held by somebody.
StandardError ExistingFileError(const fs::file_status& status, FileMode mode) {
  const fs::perms needed = mode == FileMode::Input ? fs::perms::owner_read : fs::perms::owner_write;
  const bool allowed = (status.permissions() & needed) != fs::perms::none;
  return allowed ? StandardError::PermissionDenied : StandardError::PathFileAccess;
}

// The standard error for a failure to open; `number` is the C library's error number, 0 when it gave none.
StandardError OpenError(const fs::path& path, FileMode mode, int number) {
  switch (number) {
    case ENOSPC: return StandardError::DiskFull;
    case EIO: return StandardError::DeviceIoError;
    case EROFS: return StandardError::PermissionDenied;
    case EINVAL:
    case ENAMETOOLONG: return StandardError::BadFileNumber;
    default: break;
  }
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  return fs::exists(status) ? ExistingFileError(status, mode) : MissingFileError(path, mode);
}

StandardError WriteError(int number) {
  return number == ENOSPC || number == EFBIG ? StandardError::DiskFull : StandardError::DeviceIoError;
}

}  // namespace

std::int16_t OpenFiles::FreeNumber() const {
  std::int16_t number = 1;
  for (const auto& [used, file] : mFiles) {
    if (used != number) break;
    ++number;
  }
  if (number > kHighestNumber) Fail(StandardError::BadFileNumber);
  return number;
}

void OpenFiles::Open(std::int16_t number, std::string_view path, FileMode mode) {
  if (number < 1 || number > kHighestNumber) Fail(StandardError::BadFileNumber);
  if (mFiles.contains(number)) Fail(StandardError::FileAlreadyOpen);
  if (path.empty()) Fail(StandardError::PathFileAccess);
  auto file = std::make_unique<File>(PathFromText(path), mode);
  std::error_code error;
  if (fs::is_directory(file->path, error)) Fail(StandardError::PathFileAccess);
  if (IsOpenElsewhere(file->path, mode)) Fail(StandardError::FileAlreadyOpen);
  errno = 0;  // streams keep no reason for a failure, but the C library below them does
  file->stream.open(file->path, StreamMode(mode));
  if (!file->stream.is_open()) Fail(OpenError(file->path, mode, errno));
  mFiles.emplace(number, std::move(file));
}

void OpenFiles::Close(std::int16_t number) {
  const auto found = mFiles.find(number);
  if (found == mFiles.end()) Fail(StandardError::BadFileNumber);
  const std::unique_ptr<File> file = std::move(found->second);
  mFiles.erase(found);
  errno = 0;
  file->stream.close();
  if (file->stream.fail()) Fail(WriteError(errno));
}

void OpenFiles::WriteRecord(std::int16_t number, std::span<const Value> fields) {
  File& file = Find(number);
  if (file.mode == FileMode::Input) Fail(StandardError::BadFileMode);
  const std::string record = RecordText(fields);
  errno = 0;
  file.stream.write(record.data(), static_cast<std::streamsize>(record.size()));
  if (!file.stream) Fail(WriteError(errno));
}

bool OpenFiles::AtEnd(std::int16_t number) {
  return Reader(number).AtEnd();
}

bool OpenFiles::HasRecord(std::int16_t number) {
  return Reader(number).HasRecord();
}

std::vector<Value> OpenFiles::ReadRecord(std::int16_t number, std::size_t count) {
  return Reader(number).ReadRecord(count);
}

std::string OpenFiles::ReadLine(std::int16_t number) {
  return Reader(number).ReadLine();
}

OpenFiles::File& OpenFiles::Find(std::int16_t number) {
  const auto found = mFiles.find(number);
  if (found == mFiles.end()) Fail(StandardError::BadFileNumber);
  return *found->second;
}

RecordReader& OpenFiles::Reader(std::int16_t number) {
  File& file = Find(number);
  if (file.mode != FileMode::Input) Fail(StandardError::BadFileMode);
  return file.reader;
}

bool OpenFiles::IsOpenElsewhere(const fs::path& path, FileMode mode) const {
  return std::ranges::any_of(mFiles, [&](const auto& entry) {
    const File& other = *entry.second;
    const bool writes = mode != FileMode::Input || other.mode != FileMode::Input;
    std::error_code error;
    return writes && fs::is_regular_file(path, error) && fs::equivalent(path, other.path, error);
  });
}

OpenFiles& SharedOpenFiles() {
  static OpenFiles files;
  return files;
}

ScopedFile::ScopedFile(std::string_view path, FileMode mode) : mNumber(SharedOpenFiles().FreeNumber()) {
  SharedOpenFiles().Open(mNumber, path, mode);
}

ScopedFile::~ScopedFile() {
  if (!mOpen) return;
  try {
    Close();
  } catch (const RunTimeError&) {
    // Another failure is on its way to the caller.
  }
}

void ScopedFile::Close() {
  mOpen = false;
  SharedOpenFiles().Close(mNumber);
}

}  // namespace plotvane::platform
