#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

namespace qv {

// A fault of the database engine: a broken file, a full disk, a statement the engine refuses.
class DbError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class StatementCache;
struct CachedSql;

// A prepared statement. Values are bound by position; columns are read by name.
// One that came from a database's cache goes back to it, reset and with its bindings cleared, when let go.
class Statement
{
public:
    // A statement of its own, finalized when let go.
    Statement(sqlite3* db, std::string_view sql);
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    template <class... Values> Statement& bind_all(const Values&... values)
    {
        int index = 0;
        (bind(++index, values), ...);
        return *this;
    }

    void bind(int index, std::string_view value);
    void bind(int index, const std::string& value) { bind(index, std::string_view(value)); }
    void bind(int index, const char* value) { bind(index, std::string_view(value)); }
    void bind(int index, std::int64_t value);
    void bind(int index, int value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, long long value) { bind(index, static_cast<std::int64_t>(value)); }
    void bind(int index, bool value) { bind(index, static_cast<std::int64_t>(value ? 1 : 0)); }
    void bind(int index, double value);
    void bind(int index, std::nullptr_t);

    // Advances to the next row; false when there is none (or the statement was not a query).
    bool step();
    void reset();

    // Column reads on the current row. A NULL reads as "" or 0.
    std::string text(std::string_view column) const;
    std::int64_t integer(std::string_view column) const;
    double real(std::string_view column) const;
    bool is_null(std::string_view column) const;
    std::string text(int index) const;
    std::int64_t integer(int index) const;
    int column_count() const;
    std::string column_name(int index) const;
    int column_index(std::string_view column) const;

private:
    friend class StatementCache;
    Statement(sqlite3* db, sqlite3_stmt* stmt, std::shared_ptr<StatementCache> cache, CachedSql* home);
    void let_go() noexcept;

    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_stmt = nullptr;
    std::shared_ptr<StatementCache> m_cache; // empty for a statement of its own
    CachedSql* m_home = nullptr; // the cache's entry for this SQL text
};

// One open database file. Move-only; closes on destruction.
class Database
{
public:
    Database() = default;
    explicit Database(const std::filesystem::path& file);
    // A new, empty database file; an existing file is opened as it is.
    static Database create_empty(const std::filesystem::path& file);
    Database(Database&& other) noexcept;
    Database& operator=(Database&& other) noexcept;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    bool is_open() const { return m_db != nullptr; }
    const std::filesystem::path& path() const { return m_path; }
    void close();

    // Runs SQL text that may hold several statements and no parameters (schemas, fixed statements).
    void exec_script(std::string_view sql);

    // Runs one statement with bound values; returns the number of rows changed.
    template <class... Values> int run(std::string_view sql, const Values&... values)
    {
        Statement statement = prepared(sql);
        statement.bind_all(values...);
        statement.step();
        return changes();
    }

    // The caller steps the statement; letting it go hands it back to the cache. The same text may be in use
    // more than once at a time: each use gets a statement of its own.
    template <class... Values> Statement query(std::string_view sql, const Values&... values)
    {
        Statement statement = prepared(sql);
        statement.bind_all(values...);
        return statement;
    }

    // A single value of the first column of the first row, or the fallback when there is no row or it is NULL.
    template <class... Values> std::string scalar_text(std::string_view sql, const Values&... values)
    {
        auto statement = query(sql, values...);
        return statement.step() ? statement.text(0) : std::string();
    }
    template <class... Values> std::int64_t scalar_integer(std::string_view sql, const Values&... values)
    {
        auto statement = query(sql, values...);
        return statement.step() ? statement.integer(0) : 0;
    }

    // The next id of a table: the column's maximum plus 1, an empty table counting as 0.
    // Table and column are names from the program's own fixed list, never user text.
    std::int64_t next_id(std::string_view table, std::string_view column);
    bool has_table(std::string_view table);
    std::int64_t row_count(std::string_view table);
    void empty_table(std::string_view table);

    int changes() const;
    sqlite3* handle() const { return m_db; }

    // Statements prepared once and kept for reuse, by SQL text; how many texts the cache holds.
    std::size_t cached_statement_count() const;

private:
    Database(const std::filesystem::path& file, int flags);
    std::string_view checked_sql(std::string_view sql) const;
    Statement prepared(std::string_view sql);

    sqlite3* m_db = nullptr;
    std::filesystem::path m_path;
    std::shared_ptr<StatementCache> m_cache;
};

// Rolls back unless committed: a failed user operation leaves the file as it was.
class Transaction
{
public:
    explicit Transaction(Database& db);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void commit();

private:
    Database& m_db;
    bool m_done = false;
};

} // namespace qv
