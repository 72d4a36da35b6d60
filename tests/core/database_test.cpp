#include "core/database.h"
#include "support/temp_app_dir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdexcept>

namespace qv {
namespace {

class TransactionTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    Database db = Database::create_empty(dir.path() / "t.qvd");

    void SetUp() override { db.exec_script("create table t (v integer)"); }
    std::int64_t rows() { return db.scalar_integer("select count(*) from t"); }
};

TEST_F(TransactionTest, AnUncommittedOperationLeavesTheFileAsItWas)
{
    {
        Transaction transaction(db);
        db.run("insert into t values (1)");
    }
    EXPECT_EQ(rows(), 0);
    try {
        Transaction transaction(db);
        db.run("insert into t values (1)");
        db.run("insert into no_such_table values (1)");
        transaction.commit();
    } catch (const std::exception&) {
    }
    EXPECT_EQ(rows(), 0);
    // The file takes work again after a failure.
    Transaction transaction(db);
    db.run("insert into t values (2)");
    transaction.commit();
    EXPECT_EQ(rows(), 1);
}

TEST_F(TransactionTest, OperationsInsideAnOperationHoldTogether)
{
    {
        Transaction outer(db);
        {
            Transaction inner(db);
            db.run("insert into t values (1)");
            inner.commit();
        }
        {
            Transaction dropped(db);
            db.run("insert into t values (2)");
        }
        EXPECT_EQ(rows(), 1);
        // The outer operation fails: what the inner one committed goes with it.
    }
    EXPECT_EQ(rows(), 0);

    {
        Transaction outer(db);
        Transaction inner(db);
        db.run("insert into t values (3)");
        inner.commit();
        outer.commit();
    }
    EXPECT_EQ(rows(), 1);
}

class StatementCacheTest : public ::testing::Test
{
protected:
    test::TempAppDir dir;
    Database db = Database::create_empty(dir.path() / "c.qvd");

    void SetUp() override { db.exec_script("create table t (v integer); insert into t values (1), (2), (3);"); }

    // The statements the engine holds for the connection, whoever holds them.
    int prepared_on_connection()
    {
        int count = 0;
        for (auto* stmt = sqlite3_next_stmt(db.handle(), nullptr); stmt; stmt = sqlite3_next_stmt(db.handle(), stmt))
            ++count;
        return count;
    }

    // Open handles of this process on the file: the engine's connection keeps one while it lives.
    int handles_on(const std::filesystem::path& file)
    {
        int count = 0;
        for (const auto& fd : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code ec;
            if (std::filesystem::read_symlink(fd.path(), ec) == file)
                ++count;
        }
        return count;
    }
};

TEST_F(StatementCacheTest, ATextIsPreparedOnceAndReused)
{
    for (int k = 0; k < 50; ++k) {
        db.run("update t set v = v + ? where v = ?", 10, 1000);
        EXPECT_EQ(db.scalar_integer("select count(*) from t where v > ?", 1), 2);
    }
    EXPECT_EQ(db.cached_statement_count(), 2u);
    EXPECT_EQ(prepared_on_connection(), 2);
}

TEST_F(StatementCacheTest, TheSameTextInUseTwiceAtOnceGetsTwoStatements)
{
    const std::string each_row = "select v from t where v >= ? order by v";
    std::vector<std::string> seen;
    for (auto outer = db.query(each_row, 1); outer.step();) {
        const auto v = outer.integer("v");
        // The same text again while the outer one is half way: its own rows, and the outer rows go on.
        auto inner = db.query(each_row, v);
        std::string rest;
        while (inner.step())
            rest += std::to_string(inner.integer(0));
        seen.push_back(std::to_string(v) + ":" + rest);
        EXPECT_EQ(db.scalar_integer("select count(*) from t where v >= ?", v), 4 - v);
    }
    EXPECT_EQ(seen, (std::vector<std::string> { "1:123", "2:23", "3:3" }));
    EXPECT_EQ(db.cached_statement_count(), 2u);
    // Both statements of the text came back and wait for the next use.
    EXPECT_EQ(prepared_on_connection(), 3);
}

TEST_F(StatementCacheTest, AStatementComesBackResetAndWithoutBindings)
{
    {
        auto half = db.query("select v from t where v >= ? order by v", 2);
        ASSERT_TRUE(half.step());
        EXPECT_EQ(half.integer(0), 2);
    }
    // Let go half way: the next use starts at the first row, with nothing bound (a NULL matches no row).
    auto again = db.query("select v from t where v >= ? order by v");
    EXPECT_FALSE(again.step());
    auto bound = db.query("select v from t where v >= ? order by v", 1);
    ASSERT_TRUE(bound.step());
    EXPECT_EQ(bound.integer(0), 1);

    // A reset statement holds no read open: the table can change under the cache, columns and all.
    db.exec_script("alter table t add column w text not null default 'x'");
    auto all = db.query("select * from t order by v");
    ASSERT_TRUE(all.step());
    EXPECT_EQ(all.column_count(), 2);
    EXPECT_EQ(all.text("w"), "x");
}

TEST_F(StatementCacheTest, CloseFinalizesEvenAStatementStillHeld)
{
    const auto file = dir.path() / "c.qvd";
    db.scalar_integer("select count(*) from t");
    {
        auto held = db.query("select v from t order by v");
        ASSERT_TRUE(held.step());
        EXPECT_EQ(handles_on(file), 1);
        db.close();
        EXPECT_EQ(db.cached_statement_count(), 0u);
        EXPECT_THROW(db.query("select v from t"), DbError);
        // The held statement still reads, and keeps the file open until it is let go.
        ASSERT_TRUE(held.step());
        EXPECT_EQ(held.integer(0), 2);
        EXPECT_EQ(handles_on(file), 1);
    }
    EXPECT_EQ(handles_on(file), 0);
}

TEST_F(StatementCacheTest, AMovedDatabaseTakesItsCacheAlong)
{
    auto held = db.query("select v from t order by v");
    Database moved = std::move(db);
    EXPECT_THROW(db.run("delete from t"), DbError);
    EXPECT_EQ(db.cached_statement_count(), 0u);
    ASSERT_TRUE(held.step());
    {
        auto let_go = std::move(held);
    }
    EXPECT_EQ(moved.scalar_integer("select count(*) from t"), 3);
    EXPECT_EQ(moved.cached_statement_count(), 2u);
    moved = Database::create_empty(dir.path() / "other.qvd");
    EXPECT_EQ(handles_on(dir.path() / "c.qvd"), 0);
}

} // namespace
} // namespace qv
