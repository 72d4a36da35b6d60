#include "core/tournament_file.h"

#include "core/database.h"

#include <string>
#include <vector>

namespace qv {

void require_tournament_tables(Database& db, const std::filesystem::path& blank_file)
{
    std::vector<std::string> tables;
    {
        Database blank(blank_file);
        auto rows = blank.query("select name from sqlite_master where type='table'");
        while (rows.step())
            tables.push_back(rows.text(0));
    }
    for (const auto& table : tables) {
        if (!db.has_table(table))
            throw DbError("the file has no table " + table);
    }
}

} // namespace qv
