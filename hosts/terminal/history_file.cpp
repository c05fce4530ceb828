#include "hosts/terminal/history_file.h"

#include <sys/stat.h>

#include <cstdlib>
#include <exception>
#include <fstream>

#include "hosts/terminal/output_file.h"
#include "platform/safe_save.h"

namespace plotvane::terminal {

namespace {

namespace fs = std::filesystem;

fs::path AbsolutePathIn(const char* variable) {
  const char* const value = std::getenv(variable);
  fs::path path = value != nullptr ? value : "";
  return path.is_absolute() ? path : fs::path();
}

void KeepTheLast(std::vector<std::string>& lines) {
  if (lines.size() <= kHistoryLines) return;
  lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(kHistoryLines));
}

void MakeFolder(const fs::path& folder) {
  if (folder.empty() || fs::exists(folder)) return;
  MakeFolder(folder.parent_path());
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::owner_all);
}

// What is made meanwhile is for the owner alone from its first moment on.
class PrivateFiles {
 public:
  PrivateFiles() : mBefore(::umask(0077)) {}
  ~PrivateFiles() { ::umask(mBefore); }
  PrivateFiles(const PrivateFiles&) = delete;
  PrivateFiles& operator=(const PrivateFiles&) = delete;

 private:
  ::mode_t mBefore;
};

void Write(const std::string& path, const std::vector<std::string>& lines) {
  OutputFile output(path);
  for (const std::string& line : lines) output.Write(line + '\n');
  output.Close();
}

}  // namespace

fs::path HistoryPath() {
  fs::path folder = AbsolutePathIn("XDG_STATE_HOME");
  if (folder.empty()) {
    folder = AbsolutePathIn("HOME");
    if (folder.empty()) return {};
    folder = folder / ".local" / "state";
  }
  return folder / "plotvane" / "history";
}

std::vector<std::string> LoadHistory(const fs::path& file) {
  std::vector<std::string> lines;
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return lines;
  std::ifstream input(file, std::ios::binary);
  for (std::string line; std::getline(input, line);) {
    if (!line.empty()) lines.push_back(line);
  }
  KeepTheLast(lines);
  return lines;
}

void AppendHistory(const fs::path& file, const std::vector<std::string>& lines) noexcept {
  if (file.empty() || lines.empty()) return;
  try {
    const PrivateFiles onlyMine;
    MakeFolder(file.parent_path());
    std::vector<std::string> all = LoadHistory(file);
    all.insert(all.end(), lines.begin(), lines.end());
    KeepTheLast(all);
    platform::SaveSafely(file.string(), [&all](const std::string& path) { Write(path, all); });
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace plotvane::terminal
