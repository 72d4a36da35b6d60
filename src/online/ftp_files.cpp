#include "online/ftp_files.h"

#include "core/utf8.h"

#include <algorithm>

namespace qv {

namespace {

std::string lowered(std::string_view text)
{
    std::string out(text);
    std::transform(
        out.begin(), out.end(), out.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

} // namespace

bool file_ok(std::string_view name)
{
    const std::string fn = lowered(trim(name));
    if (fn == "." || fn == ".." || fn == ".ftpquota")
        return false;
    const auto dot = fn.find('.');
    if (dot == std::string::npos)
        return false;
    const auto after = fn.size() - dot - 1;
    return dot > 0 && after > 0 && after <= 3;
}

std::uint64_t get_dir_size(const std::filesystem::path& dir)
{
    std::uint64_t total = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(dir, error)) {
        std::error_code failed;
        if (!entry.is_regular_file(failed))
            continue;
        const auto size = entry.file_size(failed);
        if (!failed)
            total += size;
    }
    return total;
}

std::vector<std::string> local_file_names(const std::filesystem::path& dir)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(dir, error)) {
        std::error_code ignored;
        if (entry.is_regular_file(ignored))
            names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const auto la = lowered(a), lb = lowered(b);
        return la != lb ? la < lb : a < b;
    });
    return names;
}

} // namespace qv
