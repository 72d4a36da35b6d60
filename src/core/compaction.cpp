#include "core/compaction.h"

#include "core/database.h"
#include "core/file_lock.h"

#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace qv {

namespace fs = std::filesystem;

namespace {

constexpr const char* temp_extension = ".temp";
constexpr const char* journal_suffix = "-journal";

// A temporary name from the present date and time with ":", " " and "/" left out, then ".temp".
fs::path temporary_name(const fs::path& dir, int attempt)
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    std::tm local {};
    localtime_r(&seconds, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%d%m%Y%H%M%S", &local);
    const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(now.time_since_epoch()).count() % 1000000;
    return dir / (std::string(stamp) + std::to_string(micros) + std::to_string(attempt) + temp_extension);
}

bool is_temp_name(const std::string& name, const std::string& suffix)
{
    if (name.size() <= suffix.size() || name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
        return false;
    for (std::size_t i = 0; i < name.size() - suffix.size(); ++i)
        if (name[i] < '0' || name[i] > '9')
            return false;
    return true;
}

// The temporary file of one compaction: made and locked by this process, removed with its journal unless it
// took the target's place.
class TempFile
{
public:
    static std::optional<TempFile> beside(const fs::path& target)
    {
        for (int attempt = 0; attempt < 10; ++attempt) {
            const auto path = temporary_name(target.parent_path(), attempt);
            const int fd = open_locked(path, O_RDWR | O_CREAT | O_EXCL);
            if (fd < 0)
                continue;
            // A clean-up of stale files between the making and the locking would have taken the name away.
            struct stat held
            {
            };
            struct stat named
            {
            };
            if (::fstat(fd, &held) == 0 && ::stat(path.c_str(), &named) == 0 && held.st_ino == named.st_ino)
                return TempFile(path, fd);
            ::close(fd);
        }
        return std::nullopt;
    }
    TempFile(TempFile&& other) noexcept
        : m_path(std::move(other.m_path))
        , m_fd(std::exchange(other.m_fd, -1))
        , m_placed(other.m_placed)
    {
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    TempFile& operator=(TempFile&&) = delete;
    ~TempFile()
    {
        std::error_code ec;
        if (!m_placed && !m_path.empty())
            fs::remove(m_path, ec);
        if (!m_path.empty())
            fs::remove(m_path.string() + journal_suffix, ec);
        if (m_fd >= 0)
            ::close(m_fd);
    }

    const fs::path& path() const { return m_path; }

    // The mode and owner of the file it replaces; a new file gets the usual mode of new files.
    void take_mode_of(const std::optional<struct stat>& target) const
    {
        if (!target) {
            const mode_t mask = ::umask(0);
            ::umask(mask);
            ::fchmod(m_fd, 0666 & ~mask);
            return;
        }
        ::fchmod(m_fd, target->st_mode & 07777);
        // Only the owner may be given away by a program with the right to; the group, perhaps; else the copy
        // stays this user's, as any file the user writes.
        if (::fchown(m_fd, target->st_uid, target->st_gid) != 0 && ::fchown(m_fd, -1, target->st_gid) != 0)
            return;
    }

    // Written to disk first, then renamed over the target in one step. The lock, if any, moves to the new file.
    bool put_in_place(const fs::path& target, FileLock* lock)
    {
        if (::fsync(m_fd) != 0)
            return false;
        std::error_code ec;
        fs::rename(m_path, target, ec);
        if (ec)
            return false;
        m_placed = true;
        const int dir = ::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (dir >= 0) {
            ::fsync(dir);
            ::close(dir);
        }
        if (lock)
            lock->adopt(std::exchange(m_fd, -1));
        return true;
    }

private:
    TempFile(fs::path path, int fd)
        : m_path(std::move(path))
        , m_fd(fd)
    {
    }

    fs::path m_path;
    int m_fd = -1;
    bool m_placed = false;
};

std::optional<struct stat> stat_of(const fs::path& file)
{
    struct stat st
    {
    };
    if (::stat(file.c_str(), &st) != 0)
        return std::nullopt;
    return st;
}

bool vacuum_into(Database& db, const TempFile& temp)
{
    try {
        db.run("vacuum into ?", temp.path().string());
        return true;
    } catch (const DbError&) {
        return false;
    }
}

} // namespace

bool compact_file(const fs::path& file, FileLock* lock)
{
    std::error_code ec;
    const auto target = fs::canonical(file, ec);
    if (ec || !fs::is_regular_file(target, ec))
        return false;
    const auto mode = stat_of(target);
    auto temp = TempFile::beside(target);
    if (!temp)
        return false;
    try {
        Database db(target);
        if (!vacuum_into(db, *temp))
            return false;
    } catch (const DbError&) {
        return false;
    }
    temp->take_mode_of(mode);
    return temp->put_in_place(target, lock);
}

bool write_copy(Database& db, const fs::path& target)
{
    std::error_code ec;
    const auto real
        = fs::exists(fs::symlink_status(target, ec)) ? fs::canonical(target, ec) : fs::weakly_canonical(target, ec);
    if (ec)
        return false;
    auto temp = TempFile::beside(real);
    if (!temp || !vacuum_into(db, *temp))
        return false;
    temp->take_mode_of(stat_of(real));
    return temp->put_in_place(real, nullptr);
}

void remove_stale_temps(const fs::path& dir)
{
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec)) {
        const auto name = entry.path().filename().string();
        if (is_temp_name(name, temp_extension)) {
            const int fd = open_locked(entry.path(), O_RDONLY | O_NOFOLLOW);
            if (fd < 0)
                continue;
            fs::remove(entry.path(), ec);
            fs::remove(entry.path().string() + journal_suffix, ec);
            ::close(fd);
        } else if (is_temp_name(name, std::string(temp_extension) + journal_suffix)) {
            const auto& journal = entry.path().string();
            if (!fs::exists(journal.substr(0, journal.size() - std::string_view(journal_suffix).size()), ec))
                fs::remove(entry.path(), ec);
        }
    }
}

} // namespace qv
