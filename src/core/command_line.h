#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// The tournament file named on the command line (as a file manager starts the program on a .qvd file): the
// first argument, after the program's own name, whose name ends in ".qvd" in any case, made absolute against
// the working directory. Other arguments are left alone.
std::optional<std::filesystem::path> tournament_file_argument(
    const std::vector<std::string>& arguments, const std::filesystem::path& working_dir);

} // namespace qv
