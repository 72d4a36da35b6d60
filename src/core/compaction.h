#pragma once

#include <filesystem>

namespace qv {

class Database;
class FileLock;

// Compacts a database file: the engine writes a compact copy into a temporary file beside the real file (a link
// is followed, so it stays a link), the copy takes the file's mode and, where permitted, its owner, and is then
// renamed over the real file in one step: a failure or a kill at any moment leaves the original intact.
// With a lock, the new file is locked before it takes the file's place and the lock moves to it.
// The database must not be open elsewhere. Returns false when the compaction did not happen; the caller goes on
// either way.
bool compact_file(const std::filesystem::path& file, FileLock* lock = nullptr);

// Writes a compact copy of an open database to target by the same way through a temporary file, so an existing
// target is replaced whole or not at all. Reads only, so it works when the open file can no longer be written.
bool write_copy(Database& db, const std::filesystem::path& target);

// Removes the temporary files ("NNN.temp" and its "-journal") that a compaction killed before its end left in
// a directory. A compaction still running holds a lock on its temporary file, and that file is left alone.
void remove_stale_temps(const std::filesystem::path& dir);

} // namespace qv
