#pragma once

#include <filesystem>

namespace qv {

// One tournament file, one program: an advisory lock on the open file itself. A second opener, from this
// program or another copy of it, is refused while the lock is held; the system releases it when the process
// ends, however it ends.
class FileLock
{
public:
    enum class Result { locked, held_elsewhere, cannot_open };

    FileLock() = default;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

    // Locks an existing file (a link is followed). Holding the lock on that very file already counts as locked;
    // a lock on another file is given up once the new one is taken.
    Result acquire(const std::filesystem::path& file);
    // Takes over a descriptor that already holds the lock on a new file (the new file of a compaction, locked
    // before it replaced the old one, so that the path is never unlocked in between).
    void adopt(int fd);
    void release();
    bool held() const { return m_fd >= 0; }
    // True while the locked file is still the one at this path (not renamed, moved, deleted or replaced).
    bool holds(const std::filesystem::path& file) const;

private:
    int m_fd = -1;
};

// Opens a file and takes its lock without waiting; -1 when either fails.
int open_locked(const std::filesystem::path& file, int flags);

} // namespace qv
