#pragma once

#include <filesystem>

namespace qv {

// The application directory and the five directories beside the program.
struct AppDirs
{
    std::filesystem::path app;
    std::filesystem::path working;
    std::filesystem::path init_files;
    std::filesystem::path website;
    std::filesystem::path qv4_file_archive;
    std::filesystem::path qv5_file_archive;

    static AppDirs under(const std::filesystem::path& app_dir);

    std::filesystem::path init_db() const { return init_files / "init.qvd"; }
    std::filesystem::path peek_browse_db() const { return init_files / "qv4_peek_browse.qvd"; }
    std::filesystem::path blank_db() const { return init_files / "blank.qvd"; }

    // Creates working, website and the two archives where missing; init_files must already be there.
    void check_directories_exist() const;
    // Nothing in working survives from one run to the next.
    void clean_working() const;
};

// The executable's directory when it is writable and holds init_files, else the user's data directory,
// seeded once with the init files that came with the program.
std::filesystem::path choose_application_directory(
    const std::filesystem::path& executable_dir, const std::filesystem::path& user_data_dir);

} // namespace qv
