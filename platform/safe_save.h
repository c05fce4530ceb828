// Saving over a file so that a failure half way leaves the old file as it was.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace plotvane::platform {

// Calls `write` with the path of a new file beside `path` (UTF-8), then puts that file in the place of
// `path`. When `write` throws, the new file is removed and `path` stays as it was. What is not an ordinary
// file (a device, a pipe) is written directly; a symbolic link keeps pointing at what it points at.
// RunTimeError 75 when the new file cannot take the old one's place, besides what `write` throws.
void SaveSafely(std::string_view path, const std::function<void(const std::string& newPath)>& write);

}  // namespace plotvane::platform
