#include "core/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace qv {

InstanceLock::~InstanceLock()
{
    release();
}

bool InstanceLock::acquire(const std::filesystem::path& lock_file)
{
    if (m_fd >= 0)
        return true;
    const int fd = ::open(lock_file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        return false;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return false;
    }
    m_fd = fd;
    return true;
}

void InstanceLock::release()
{
    if (m_fd >= 0) {
        ::flock(m_fd, LOCK_UN);
        ::close(m_fd);
        m_fd = -1;
    }
}

} // namespace qv
