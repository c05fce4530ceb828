#include "platform/safe_save.h"

#include <filesystem>
#include <system_error>

#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace plotvane::platform {

namespace {

namespace fs = std::filesystem;

fs::path BehindLinks(const fs::path& path) {
  std::error_code error;
  fs::path target = fs::canonical(path, error);
  return error ? path : target;
}

fs::path UnusedBeside(const fs::path& target) {
  std::error_code error;
  fs::path unused = target;
  do unused += ".new";
  while (fs::exists(unused, error));
  return unused;
}

// The file that is being written; removed unless it takes the place of the old one.
class NewFile {
 public:
  explicit NewFile(fs::path target) : mTarget(std::move(target)), mPath(UnusedBeside(mTarget)) {}
  ~NewFile() {
    std::error_code error;
    if (!mPlaced) fs::remove(mPath, error);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  [[nodiscard]] std::string PathText() const { return TextFromPath(mPath); }

  void TakePlace(const fs::file_status& old) {
    std::error_code error;
    if (fs::exists(old)) fs::permissions(mPath, old.permissions(), error);
    fs::rename(mPath, mTarget, error);
    if (error) throw RunTimeError(StandardError::PathFileAccess);
    mPlaced = true;
  }

 private:
  fs::path mTarget;
  fs::path mPath;
  bool mPlaced = false;
};

}  // namespace

void SaveSafely(std::string_view path, const std::function<void(const std::string& newPath)>& write) {
  const fs::path target = BehindLinks(PathFromText(path));
  std::error_code error;
  const fs::file_status old = fs::status(target, error);
  if (fs::exists(old) && !fs::is_regular_file(old)) return write(std::string(path));
  if (fs::exists(old) && (old.permissions() & fs::perms::owner_write) == fs::perms::none) {
    throw RunTimeError(StandardError::PathFileAccess);
  }
  NewFile file(target);
  write(file.PathText());
  file.TakePlace(old);
}

}  // namespace plotvane::platform
