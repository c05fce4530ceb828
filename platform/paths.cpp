#include "platform/paths.h"

#include <system_error>

#include "platform/runtime_error.h"

namespace plotvane::platform {

std::filesystem::path PathFromText(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) throw RunTimeError(StandardError::BadFileNumber);
  try {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
  } catch (const std::system_error&) {
    throw RunTimeError(StandardError::BadFileNumber);
  }
}

std::string TextFromPath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

std::string FileInDirectory(std::string_view directory, std::string_view fileName) {
  constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
  std::string text(directory);
  if (text.empty() || text.back() != kSeparator) text.push_back(kSeparator);
  return text.append(fileName);
}

}  // namespace plotvane::platform
