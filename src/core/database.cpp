#include "core/database.h"

#include "core/sql_functions.h"

#include <sqlite3.h>
#include <string>
#include <unordered_map>
#include <vector>

namespace qv {

namespace {

[[noreturn]] void fail(sqlite3* db, std::string_view what)
{
    std::string message(what);
    if (db)
        message += std::string(": ") + sqlite3_errmsg(db);
    throw DbError(message);
}

sqlite3_stmt* prepare(sqlite3* db, std::string_view sql, unsigned flags)
{
    if (!db)
        throw DbError("no database is open");
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()), flags, &stmt, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt);
        fail(db, "cannot prepare \"" + std::string(sql) + "\"");
    }
    return stmt;
}

struct SqlHash
{
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view> {}(text); }
};

} // namespace

// The statements of one SQL text that wait for their next use, and how many of that text are out with callers.
struct CachedSql
{
    std::vector<sqlite3_stmt*> idle;
    int out = 0;
};

// Prepared statements of one database by SQL text. A statement out with a caller is not in the cache; a second
// use of the same text meanwhile gets a statement of its own, and both come back when let go. The cache lives
// as long as the last statement handed out, so a statement let go after its database closed is finalized here.
class StatementCache : public std::enable_shared_from_this<StatementCache>
{
public:
    explicit StatementCache(sqlite3* db)
        : m_db(db)
    {
    }
    StatementCache(const StatementCache&) = delete;
    StatementCache& operator=(const StatementCache&) = delete;
    ~StatementCache() { close(); }

    Statement acquire(std::string_view sql)
    {
        auto found = m_texts.find(sql);
        if (found == m_texts.end()) {
            // Texts built at run time are few, but nothing bounds them: past the limit, the texts nobody holds go.
            if (m_texts.size() >= max_texts)
                drop_unused();
            found = m_texts.emplace(std::string(sql), CachedSql {}).first;
        }
        auto& entry = found->second;
        sqlite3_stmt* stmt = nullptr;
        if (!entry.idle.empty()) {
            stmt = entry.idle.back();
            entry.idle.pop_back();
        } else {
            stmt = prepare(m_db, sql, SQLITE_PREPARE_PERSISTENT);
        }
        ++entry.out;
        return Statement(m_db, stmt, shared_from_this(), &entry);
    }

    void give_back(sqlite3_stmt* stmt, CachedSql* home) noexcept
    {
        --home->out;
        if (!m_db || home->idle.size() >= max_idle_per_text) {
            sqlite3_finalize(stmt);
            return;
        }
        sqlite3_reset(stmt);
        sqlite3_clear_bindings(stmt);
        home->idle.push_back(stmt);
    }

    // Finalizes every statement that waits; those out with callers are finalized when they come back.
    void close() noexcept
    {
        for (auto& [text, entry] : m_texts)
            for (auto* stmt : entry.idle)
                sqlite3_finalize(stmt);
        for (auto& [text, entry] : m_texts)
            entry.idle.clear();
        m_db = nullptr;
    }

    std::size_t size() const { return m_texts.size(); }

private:
    static constexpr std::size_t max_texts = 400;
    static constexpr std::size_t max_idle_per_text = 4;

    void drop_unused() noexcept
    {
        for (auto it = m_texts.begin(); it != m_texts.end();) {
            if (it->second.out > 0) {
                ++it;
                continue;
            }
            for (auto* stmt : it->second.idle)
                sqlite3_finalize(stmt);
            it = m_texts.erase(it);
        }
    }

    sqlite3* m_db;
    // Nodes of an unordered_map stay put, so a statement out with a caller keeps the address of its entry.
    std::unordered_map<std::string, CachedSql, SqlHash, std::equal_to<>> m_texts;
};

Statement::Statement(sqlite3* db, std::string_view sql)
    : m_db(db)
    , m_stmt(prepare(db, sql, 0))
{
}

Statement::Statement(sqlite3* db, sqlite3_stmt* stmt, std::shared_ptr<StatementCache> cache, CachedSql* home)
    : m_db(db)
    , m_stmt(stmt)
    , m_cache(std::move(cache))
    , m_home(home)
{
}

Statement::Statement(Statement&& other) noexcept
    : m_db(std::exchange(other.m_db, nullptr))
    , m_stmt(std::exchange(other.m_stmt, nullptr))
    , m_cache(std::move(other.m_cache))
    , m_home(std::exchange(other.m_home, nullptr))
{
}

Statement& Statement::operator=(Statement&& other) noexcept
{
    if (this != &other) {
        let_go();
        m_db = std::exchange(other.m_db, nullptr);
        m_stmt = std::exchange(other.m_stmt, nullptr);
        m_cache = std::move(other.m_cache);
        m_home = std::exchange(other.m_home, nullptr);
    }
    return *this;
}

Statement::~Statement()
{
    let_go();
}

void Statement::let_go() noexcept
{
    if (m_stmt && m_cache)
        m_cache->give_back(m_stmt, m_home);
    else
        sqlite3_finalize(m_stmt);
    m_stmt = nullptr;
    m_cache.reset();
    m_home = nullptr;
}

void Statement::bind(int index, std::string_view value)
{
    // Most bound texts of a new draw are empty: the engine can point at a constant rather than copy them.
    const int rc = value.empty()
        ? sqlite3_bind_text(m_stmt, index, "", 0, SQLITE_STATIC)
        : sqlite3_bind_text(m_stmt, index, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
    if (rc != SQLITE_OK)
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
    // The engine's count of its memory takes a global lock on every allocation; nothing here reads it. The
    // setting holds only if made before the engine's first use, and is left alone otherwise.
    static const bool memory_unmetered = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK;
    (void)memory_unmetered;
    // One thread does all the work and a connection is never shared: the engine need not lock it on every call.
    if (sqlite3_open_v2(file.c_str(), &m_db, flags | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
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
    m_cache = std::make_shared<StatementCache>(m_db);
    // A file that is not a database is found out here rather than at the first statement of an operation.
    try {
        exec_script("select count(*) from sqlite_master");
        // A busy tournament file runs to a few megabytes: the engine keeps all of it in memory rather than read
        // the schedule again for each search, and a long operation's changes wait there until its commit.
        exec_script("pragma cache_size = -65536");
    } catch (...) {
        close();
        throw;
    }
}

Database::Database(Database&& other) noexcept
    : m_db(std::exchange(other.m_db, nullptr))
    , m_path(std::move(other.m_path))
    , m_cache(std::move(other.m_cache))
{
}

Database& Database::operator=(Database&& other) noexcept
{
    if (this != &other) {
        close();
        m_db = std::exchange(other.m_db, nullptr);
        m_path = std::move(other.m_path);
        m_cache = std::move(other.m_cache);
    }
    return *this;
}

Database::~Database()
{
    close();
}

// The cached statements go first. A statement still out with a caller keeps the engine's connection until it
// is let go (sqlite3_close_v2), and is finalized then.
void Database::close()
{
    if (m_cache) {
        m_cache->close();
        m_cache.reset();
    }
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
}

Statement Database::prepared(std::string_view sql)
{
    checked_sql(sql);
    return m_cache->acquire(sql);
}

std::size_t Database::cached_statement_count() const
{
    return m_cache ? m_cache->size() : 0;
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
    m_db.run("savepoint user_operation");
}

Transaction::~Transaction()
{
    if (!m_done) {
        try {
            m_db.run("rollback to user_operation");
            m_db.run("release user_operation");
        } catch (...) {
            // The engine rolls back on its own when a statement failed hard; nothing more to undo.
        }
    }
}

void Transaction::commit()
{
    m_db.run("release user_operation");
    m_done = true;
}

} // namespace qv
