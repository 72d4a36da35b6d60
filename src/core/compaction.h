#pragma once

#include <filesystem>

namespace qv {

// Compacts a database file into a temporary file in the same directory and renames it over the original,
// so a failure at any step leaves the original intact. The database must not be open elsewhere.
// Returns false when the compaction did not happen; the caller goes on either way.
bool compact_file(const std::filesystem::path& file);

} // namespace qv
