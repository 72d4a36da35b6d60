#pragma once

#include "core/settings.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qv {

// The tournament files opened last, newest first, as the setting app.recent_files keeps them.
constexpr std::size_t recent_files_kept = 8;

std::vector<std::string> recent_files(const Settings& settings);

// Puts the file first. A file stands once in the list, and the oldest falls off beyond the number kept. A path
// that holds the list's separator cannot be kept and leaves the list as it was.
void record_recent_file(Settings& settings, const std::string& path);

} // namespace qv
