#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace qv {

class Database;
class DbError;

// A file handed to the program is never trusted. These checks run before anything changes it.

// What the file lacks of the blank tournament file's tables and columns, read from the blank file itself:
// "no table rounds", "table tournament has no column dates"; nullopt when nothing is missing.
std::optional<std::string> missing_schema(Database& db, const std::filesystem::path& blank_file);

// The engine's quick check of every page; false when the file is damaged.
bool passes_quick_check(Database& db);

// Whether this user may write the file, and its folder, where the engine keeps the journal of each change.
// A link is followed to the real file.
enum class WriteAccess { writable, read_only_file, read_only_folder };
WriteAccess write_access(const std::filesystem::path& file);

// What a fault of the engine says of the file: another program holds it locked, or its pages are broken.
enum class FileFault { in_use, damaged, other };
FileFault fault_of(const DbError& fault);

// True when the open file is no longer the one at its path: renamed, moved, deleted or replaced by another
// program since it was opened.
bool has_moved(Database& db);

} // namespace qv
