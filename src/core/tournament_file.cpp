#include "core/tournament_file.h"

#include "core/database.h"
#include "core/utf8.h"

#include <fcntl.h>
#include <set>
#include <sqlite3.h>
#include <unistd.h>
#include <vector>

namespace qv {

namespace fs = std::filesystem;

namespace {

struct Table
{
    std::string name;
    std::vector<std::string> columns;
};

std::vector<Table> tables_of(Database& db)
{
    std::vector<Table> tables;
    auto names = db.query("select name from sqlite_master where type='table' and name not like 'sqlite\\_%' escape "
                          "'\\' order by rowid");
    while (names.step())
        tables.push_back({ names.text(0), {} });
    for (auto& table : tables) {
        auto columns = db.query("select name from pragma_table_info(?)", table.name);
        while (columns.step())
            table.columns.push_back(columns.text(0));
    }
    return tables;
}

// Names of tables and columns compare as the engine compares them: case-blind.
std::set<std::string> keys(const std::vector<std::string>& names)
{
    std::set<std::string> out;
    for (const auto& name : names)
        out.insert(lcase(name));
    return out;
}

} // namespace

std::optional<std::string> missing_schema(Database& db, const fs::path& blank_file)
{
    Database blank(blank_file);
    const auto wanted = tables_of(blank);
    std::vector<std::string> table_names;
    const auto present = tables_of(db);
    for (const auto& table : present)
        table_names.push_back(table.name);
    const auto have_tables = keys(table_names);
    for (const auto& table : wanted) {
        if (!have_tables.contains(lcase(table.name)))
            return "no table " + table.name;
    }
    for (const auto& table : wanted) {
        for (const auto& have : present) {
            if (lcase(have.name) != lcase(table.name))
                continue;
            const auto have_columns = keys(have.columns);
            for (const auto& column : table.columns)
                if (!have_columns.contains(lcase(column)))
                    return "table " + table.name + " has no column " + column;
        }
    }
    return std::nullopt;
}

bool passes_quick_check(Database& db)
{
    try {
        auto rows = db.query("pragma quick_check(1)");
        return rows.step() && rows.text(0) == "ok";
    } catch (const DbError& fault) {
        // A file another program holds is not known to be damaged: that is the caller's to tell.
        if (fault_of(fault) == FileFault::in_use)
            throw;
        return false;
    }
}

WriteAccess write_access(const fs::path& file)
{
    std::error_code ec;
    const auto real = fs::canonical(file, ec);
    const auto& target = ec ? file : real;
    // As this process may write: root may write a file whose mode says read only.
    if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        return WriteAccess::read_only_file;
    if (::faccessat(AT_FDCWD, target.parent_path().c_str(), W_OK, AT_EACCESS) != 0)
        return WriteAccess::read_only_folder;
    return WriteAccess::writable;
}

FileFault fault_of(const DbError& fault)
{
    // The engine's own words for SQLITE_BUSY and SQLITE_CORRUPT.
    const std::string_view what = fault.what();
    if (what.find("database is locked") != std::string_view::npos)
        return FileFault::in_use;
    if (what.find("malformed") != std::string_view::npos)
        return FileFault::damaged;
    return FileFault::other;
}

bool has_moved(Database& db)
{
    if (!db.is_open())
        return false;
    int moved = 0;
    if (sqlite3_file_control(db.handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) != SQLITE_OK)
        return false;
    return moved != 0;
}

} // namespace qv
