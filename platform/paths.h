// Paths as UTF-8 texts: the form in which the system's interfaces carry them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace plotvane::platform {

// The path that a UTF-8 text names. RunTimeError 52 for a text that cannot be a path (bytes that are not
// UTF-8 where the system needs them to be, an embedded zero byte).
[[nodiscard]] std::filesystem::path PathFromText(std::string_view text);

[[nodiscard]] std::string TextFromPath(const std::filesystem::path& path);

// A directory and the name of a file in it, joined by one of the system's own separators (a backslash on
// Windows, a slash elsewhere).
[[nodiscard]] std::string FileInDirectory(std::string_view directory, std::string_view fileName);

}  // namespace plotvane::platform
