#include "online/website_files.h"

#include <algorithm>

namespace qv {

namespace fs = std::filesystem;

std::vector<LocalFile> local_website_files(const fs::path& dir)
{
    std::vector<LocalFile> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(dir, error))
        if (entry.is_regular_file())
            files.push_back({ entry.path().filename().string(), entry.file_size() });
    std::sort(files.begin(), files.end(), [](const LocalFile& a, const LocalFile& b) { return a.name < b.name; });
    return files;
}

std::uintmax_t website_size(const std::vector<LocalFile>& files)
{
    std::uintmax_t total = 0;
    for (const auto& file : files)
        total += file.size;
    return total;
}

bool empty_website_directory(const fs::path& dir)
{
    std::error_code error;
    fs::create_directories(dir, error);
    for (fs::directory_iterator entry(dir, error), end; !error && entry != end; entry.increment(error))
        if (entry->is_regular_file())
            fs::remove(entry->path(), error);
    return !error;
}

} // namespace qv
