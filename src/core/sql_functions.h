#pragma once

struct sqlite3;

namespace qv {

// The program's own SQL functions on a connection. lower() and upper() change the case of every letter of
// Windows-1252, as lcase and ucase do in the program, so that lower(trim(player))=? finds "Émile" for
// "éMILE"; the engine's own change only the ASCII letters.
void register_sql_functions(sqlite3* db);

} // namespace qv
