#include "core/recent_files.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace qv {

namespace {

constexpr std::string_view recent_key = "app.recent_files";
// No Windows path holds it, and hardly any other.
constexpr char separator = '|';

std::string normal_form(const std::string& path)
{
    std::error_code ec;
    auto absolute = std::filesystem::absolute(path, ec);
    return (ec ? std::filesystem::path(path) : absolute).lexically_normal().string();
}

} // namespace

std::vector<std::string> recent_files(const Settings& settings)
{
    std::vector<std::string> files;
    std::string_view rest = settings.text(recent_key);
    while (!rest.empty()) {
        const auto end = rest.find(separator);
        const std::string file(rest.substr(0, end));
        // A damaged or missing row ("0") holds no full paths: such words are no files.
        if (std::filesystem::path(file).is_absolute() && std::find(files.begin(), files.end(), file) == files.end())
            files.push_back(file);
        rest = end == std::string_view::npos ? std::string_view {} : rest.substr(end + 1);
    }
    if (files.size() > recent_files_kept)
        files.resize(recent_files_kept);
    return files;
}

void record_recent_file(Settings& settings, const std::string& path)
{
    const auto file = normal_form(path);
    if (file.find(separator) != std::string::npos)
        return;
    auto files = recent_files(settings);
    files.erase(std::remove(files.begin(), files.end(), file), files.end());
    files.insert(files.begin(), file);
    if (files.size() > recent_files_kept)
        files.resize(recent_files_kept);
    std::string value;
    for (const auto& each : files)
        value += (value.empty() ? "" : std::string(1, separator)) + each;
    if (value != settings.text(recent_key))
        settings.set_disk_var(recent_key, value);
}

} // namespace qv
