#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// Whether a remote name counts as a file of the website: trimmed and lower-cased, it is not ".", ".." or the
// host's ".ftpquota", and it has a non-empty part before its first "." and one of at most three characters
// after it. A name such as "data.html" therefore is neither listed nor deleted.
bool file_ok(std::string_view name);

// The sum of the lengths of the directory's files.
std::uint64_t get_dir_size(const std::filesystem::path& dir);

// The names of the directory's files in the order of the list of local files: case-blind by name.
std::vector<std::string> local_file_names(const std::filesystem::path& dir);

} // namespace qv
