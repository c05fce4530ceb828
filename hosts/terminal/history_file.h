// The lines that were typed in earlier sessions.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace plotvane::terminal {

inline constexpr std::size_t kHistoryLines = 1000;

// plotvane/history in $XDG_STATE_HOME, or in ~/.local/state without that variable (a relative one does not count);
// empty when there is no home either.
[[nodiscard]] std::filesystem::path HistoryPath();

// The lines of the file, oldest first, the last kHistoryLines of them; none when it cannot be read.
[[nodiscard]] std::vector<std::string> LoadHistory(const std::filesystem::path& file);

// Adds `lines` to what the file holds by now, for other sessions may have ended meanwhile, and keeps the last
// kHistoryLines. The file is for its owner alone. A failure is silent: a history is no reason to trouble anybody.
void AppendHistory(const std::filesystem::path& file, const std::vector<std::string>& lines) noexcept;

}  // namespace plotvane::terminal
