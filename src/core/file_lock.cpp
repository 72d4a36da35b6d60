#include "core/file_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qv {

namespace {

bool same_file(int fd, const std::filesystem::path& file)
{
    struct stat held
    {
    };
    struct stat named
    {
    };
    return ::fstat(fd, &held) == 0 && ::stat(file.c_str(), &named) == 0 && held.st_dev == named.st_dev
        && held.st_ino == named.st_ino;
}

} // namespace

int open_locked(const std::filesystem::path& file, int flags)
{
    const int fd = ::open(file.c_str(), flags | O_CLOEXEC, 0600);
    if (fd < 0)
        return -1;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

FileLock::~FileLock()
{
    release();
}

FileLock::Result FileLock::acquire(const std::filesystem::path& file)
{
    // Compared by name first: opening and closing a second descriptor on a file the database engine holds
    // would drop the engine's own locks on it.
    if (m_fd >= 0 && same_file(m_fd, file))
        return Result::locked;
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return Result::cannot_open;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const bool busy = errno == EWOULDBLOCK;
        ::close(fd);
        return busy ? Result::held_elsewhere : Result::cannot_open;
    }
    adopt(fd);
    return Result::locked;
}

bool FileLock::holds(const std::filesystem::path& file) const
{
    return m_fd >= 0 && same_file(m_fd, file);
}

void FileLock::adopt(int fd)
{
    release();
    m_fd = fd;
}

void FileLock::release()
{
    if (m_fd >= 0) {
        ::close(m_fd);
        m_fd = -1;
    }
}

} // namespace qv
