#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace qv {

// A file of the website directory as the window lists it.
struct LocalFile
{
    std::string name;
    std::uintmax_t size = 0;
};

// The files of the directory by name; none when it does not exist.
std::vector<LocalFile> local_website_files(const std::filesystem::path& dir);
// The sum of their sizes.
std::uintmax_t website_size(const std::vector<LocalFile>& files);

// Deletes every file of the directory (making it when missing); folders in it stay. False when that failed.
bool empty_website_directory(const std::filesystem::path& dir);

} // namespace qv
