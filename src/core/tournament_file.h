#pragma once

#include <filesystem>

namespace qv {

class Database;

// A file handed to the program is never trusted: it is a tournament file only if it holds every table of the
// blank tournament file. Throws DbError naming the first table that is missing.
void require_tournament_tables(Database& db, const std::filesystem::path& blank_file);

} // namespace qv
