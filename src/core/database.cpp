#include "core/database.h"

#include "core/sql_functions.h"

#include <sqlite3.h>

namespace qv {

namespace {

[[noreturn]] void fail(sqlite3* db, std::string_view what)
{
    std::string message(what);
    if (db)
        message += std::string(": ") + sqlite3_errmsg(db);
    throw DbError(message);
}

} // namespace

Statement::Statement(sqlite3* db, std::string_view sql)
    : m_db(db)
{
    if (!db)
        throw DbError("no database is open");
    if (sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &m_stmt, nullptr) != SQLITE_OK)
        fail(db, "cannot prepare \"" + std::string(sql) + "\"");
}

Statement::Statement(Statement&& other) noexcept
    : m_db(std::exchange(other.m_db, nullptr))
    , m_stmt(std::exchange(other.m_stmt, nullptr))
{
}

Statement& Statement::operator=(Statement&& other) noexcept
{
    if (this != &other) {
        sqlite3_finalize(m_stmt);
        m_db = std::exchange(other.m_db, nullptr);
        m_stmt = std::exchange(other.m_stmt, nullptr);
    }
    return *this;
}

Statement::~Statement()
{
    sqlite3_finalize(m_stmt);
}

void Statement::bind(int index, std::string_view value)
{
    if (sqlite3_bind_text(m_stmt, index, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        fail(m_db, "cannot bind a value");
}

void Statement::bind(int index, std::int64_t value)
{
    if (sqlite3_bind_int64(m_stmt, index, value) != SQLITE_OK)
        fail(m_db, "cannot bind a value");
}

void Statement::bind(int index, double value)
{
    if (sqlite3_bind_double(m_stmt, index, value) != SQLITE_OK)
        fail(m_db, "cannot bind a value");
}

void Statement::bind(int index, std::nullptr_t)
{
    if (sqlite3_bind_null(m_stmt, index) != SQLITE_OK)
        fail(m_db, "cannot bind a value");
}

bool Statement::step()
{
    const int rc = sqlite3_step(m_stmt);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    fail(m_db, "cannot run \"" + std::string(sqlite3_sql(m_stmt)) + "\"");
}

void Statement::reset()
{
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
}

int Statement::column_count() const
{
    return sqlite3_column_count(m_stmt);
}

std::string Statement::column_name(int index) const
{
    return sqlite3_column_name(m_stmt, index);
}

int Statement::column_index(std::string_view column) const
{
    const int count = sqlite3_column_count(m_stmt);
    for (int i = 0; i < count; ++i) {
        if (sqlite3_strnicmp(sqlite3_column_name(m_stmt, i), column.data(), static_cast<int>(column.size())) == 0
            && sqlite3_column_name(m_stmt, i)[column.size()] == '\0')
            return i;
    }
    throw DbError("no column named " + std::string(column) + " in \"" + sqlite3_sql(m_stmt) + "\"");
}

std::string Statement::text(int index) const
{
    const auto* value = sqlite3_column_text(m_stmt, index);
    if (!value)
        return {};
    return std::string(reinterpret_cast<const char*>(value), sqlite3_column_bytes(m_stmt, index));
}

std::int64_t Statement::integer(int index) const
{
    return sqlite3_column_int64(m_stmt, index);
}

std::string Statement::text(std::string_view column) const
{
    return text(column_index(column));
}

std::int64_t Statement::integer(std::string_view column) const
{
    return integer(column_index(column));
}

double Statement::real(std::string_view column) const
{
    return sqlite3_column_double(m_stmt, column_index(column));
}

bool Statement::is_null(std::string_view column) const
{
    return sqlite3_column_type(m_stmt, column_index(column)) == SQLITE_NULL;
}

// The file must exist: a missing tournament or init file is the caller's message, never a new empty file.
Database::Database(const std::filesystem::path& file)
    : Database(file, SQLITE_OPEN_READWRITE)
{
}

Database Database::create_empty(const std::filesystem::path& file)
{
    return Database(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

Database::Database(const std::filesystem::path& file, int flags)
    : m_path(file)
{
    if (sqlite3_open_v2(file.c_str(), &m_db, flags, nullptr) != SQLITE_OK) {
        std::string message = "cannot open " + file.string();
        if (m_db)
            message += std::string(": ") + sqlite3_errmsg(m_db);
        sqlite3_close(m_db);
        m_db = nullptr;
        throw DbError(message);
    }
    sqlite3_busy_timeout(m_db, 2000);
    sqlite3_extended_result_codes(m_db, 1);
    register_sql_functions(m_db);
    // A file that is not a database is found out here rather than at the first statement of an operation.
    try {
        exec_script("select count(*) from sqlite_master");
    } catch (...) {
        close();
        throw;
    }
}

Database::Database(Database&& other) noexcept
    : m_db(std::exchange(other.m_db, nullptr))
    , m_path(std::move(other.m_path))
{
}

Database& Database::operator=(Database&& other) noexcept
{
    if (this != &other) {
        close();
        m_db = std::exchange(other.m_db, nullptr);
        m_path = std::move(other.m_path);
    }
    return *this;
}

Database::~Database()
{
    close();
}

void Database::close()
{
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
}

std::string_view Database::checked_sql(std::string_view sql) const
{
    if (!m_db)
        throw DbError("no database is open");
    return sql;
}

void Database::exec_script(std::string_view sql)
{
    const std::string text(checked_sql(sql));
    char* error = nullptr;
    if (sqlite3_exec(m_db, text.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::string message = error ? error : "unknown error";
        sqlite3_free(error);
        throw DbError("cannot run \"" + text.substr(0, 200) + "\": " + message);
    }
}

std::int64_t Database::next_id(std::string_view table, std::string_view column)
{
    return scalar_integer("select coalesce(max(" + std::string(column) + "),0) from " + std::string(table)) + 1;
}

bool Database::has_table(std::string_view table)
{
    return scalar_integer("select count(*) from sqlite_master where type='table' and name=? collate nocase", table) > 0;
}

std::int64_t Database::row_count(std::string_view table)
{
    return scalar_integer("select count(*) from " + std::string(table));
}

void Database::empty_table(std::string_view table)
{
    run("delete from " + std::string(table));
}

int Database::changes() const
{
    return sqlite3_changes(m_db);
}

// A savepoint rather than BEGIN: outside a transaction it opens one, inside it nests, so an operation that runs
// other operations (do all draws, the results window) stays one unit of work.
Transaction::Transaction(Database& db)
    : m_db(db)
{
    m_db.exec_script("savepoint user_operation");
}

Transaction::~Transaction()
{
    if (!m_done) {
        try {
            m_db.exec_script("rollback to user_operation; release user_operation");
        } catch (...) {
            // The engine rolls back on its own when a statement failed hard; nothing more to undo.
        }
    }
}

void Transaction::commit()
{
    m_db.exec_script("release user_operation");
    m_done = true;
}

} // namespace qv
