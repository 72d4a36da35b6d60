#include "core/compaction.h"

#include "core/database.h"

#include <chrono>
#include <ctime>
#include <system_error>

namespace qv {

namespace {

// A temporary name from the present date and time with ":", " " and "/" left out, then ".temp".
std::filesystem::path temporary_name(const std::filesystem::path& file)
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local {};
    localtime_r(&seconds, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%d%m%Y%H%M%S", &local);
    const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(now.time_since_epoch()).count() % 1000000;
    return file.parent_path() / (std::string(stamp) + std::to_string(micros) + ".temp");
}

} // namespace

bool compact_file(const std::filesystem::path& file)
{
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        return false;
    const auto temp = temporary_name(file);
    try {
        Database db(file);
        db.run("vacuum into ?", temp.string());
    } catch (const DbError&) {
        std::filesystem::remove(temp, ec);
        return false;
    }
    // rename() replaces the original in one step: a crash leaves either the old file or the new one.
    std::filesystem::rename(temp, file, ec);
    if (ec) {
        std::filesystem::remove(temp, ec);
        return false;
    }
    return true;
}

} // namespace qv
