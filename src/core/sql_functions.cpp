#include "core/sql_functions.h"

#include "core/utf8.h"

#include <sqlite3.h>
#include <string>

namespace qv {

namespace {

template <std::string (*Change)(std::string_view)> void change_case(sqlite3_context* context, int, sqlite3_value** argv)
{
    const auto* text = sqlite3_value_text(argv[0]);
    if (!text) {
        sqlite3_result_null(context);
        return;
    }
    const auto changed = Change(std::string_view(reinterpret_cast<const char*>(text), sqlite3_value_bytes(argv[0])));
    sqlite3_result_text(context, changed.data(), static_cast<int>(changed.size()), SQLITE_TRANSIENT);
}

} // namespace

void register_sql_functions(sqlite3* db)
{
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function(db, "lower", 1, flags, nullptr, change_case<lcase>, nullptr, nullptr);
    sqlite3_create_function(db, "upper", 1, flags, nullptr, change_case<ucase>, nullptr, nullptr);
}

} // namespace qv
