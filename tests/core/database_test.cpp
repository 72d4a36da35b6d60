#include "core/database.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
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

} // namespace
} // namespace qv
