#pragma once

#include <filesystem>

namespace qv {

// One running program per application directory: an advisory lock on a file beside the program,
// released by the system when the process ends, however it ends.
class InstanceLock
{
public:
    InstanceLock() = default;
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
    ~InstanceLock();

    // True when this process holds the lock (already or now).
    bool acquire(const std::filesystem::path& lock_file);
    void release();

private:
    int m_fd = -1;
};

} // namespace qv
