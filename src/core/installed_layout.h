#pragma once

#include <filesystem>

namespace qv {

// An installed program lives in <prefix>/bin and finds the init files it came with in
// <prefix>/share/quorvelin/init_files.
std::filesystem::path shared_init_files(const std::filesystem::path& executable_dir);

// The application directory of the program as started: a program with init_files beside it (a build, or a
// folder of its own) keeps the rule of choose_application_directory; an installed program, whose init files are
// shared, works in the user's data directory, whose init files are copied once from the shared ones.
std::filesystem::path choose_installed_application_directory(
    const std::filesystem::path& executable_dir, const std::filesystem::path& user_data_dir);

} // namespace qv
