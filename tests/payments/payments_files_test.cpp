#include "payments/compile.h"
#include "payments/money.h"
#include "payments/payments_files.h"
#include "payments/payments_fixture.h"
#include "payments/taking_payments.h"
#include "support/file_bytes.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

using test::read_bytes;

fs::path expected(const char* name)
{
    return fs::path(QV_TEST_DATA_DIR) / "expected" / "payments" / name;
}

class PaymentsFilesTest : public test::PaymentsFixture
{
protected:
    void SetUp() override
    {
        PaymentsFixture::SetUp();
        ASSERT_TRUE(compile(session, 1));
        ASSERT_TRUE(take_payment(session, { 1 }, "40"));
        ASSERT_TRUE(take_payment(session, { 2 }, "12.5"));
        ASSERT_TRUE(set_paid_in_full(session, { 6 }));
        talk.clear();
    }
};

TEST_F(PaymentsFilesTest, TheListFileHoldsTheLinesTotalsAndCurrency)
{
    const auto file = dir.path() / "out" / "payments list.txt";
    fs::create_directories(file.parent_path());
    talk.files.push_back({ file });
    const auto list = loadpayments(db(), {});
    ASSERT_EQ(save_payments_list(session, list), file);
    EXPECT_EQ(talk.said.front().text, "payments.txt");
    EXPECT_EQ(read_bytes(file), read_bytes(expected("payments.txt")));
    // The next dialog opens where this file went.
    EXPECT_EQ(session.settings().text("app.last_dir_opened"), file.parent_path().string());
}

TEST_F(PaymentsFilesTest, TheDetailedFileHoldsEveryPersonOfTheDraws)
{
    const auto file = dir.path() / "detailed.txt";
    talk.files.push_back({ file });
    ASSERT_EQ(make_payments_file(session, 1), file);
    EXPECT_EQ(talk.said.front().text, "payments_detailed.txt");
    EXPECT_EQ(read_bytes(file), read_bytes(expected("payments_detailed.txt")));
}

TEST_F(PaymentsFilesTest, WithoutACurrencyTheFilesSaySo)
{
    db().run("update tournament set currencycode='' where idx=1");
    const auto lines = payments_list_lines(loadpayments(db(), {}), currency_line(db()));
    EXPECT_EQ(lines.back(), "currency not specified");
    EXPECT_EQ(lines.front(), "bill\tpaid\tmustpay\tstate\tplayer");
}

TEST_F(PaymentsFilesTest, ACancelledDialogWritesNothing)
{
    EXPECT_FALSE(make_payments_file(session, 1));
    EXPECT_FALSE(save_payments_list(session, loadpayments(db(), {})));
}

} // namespace
} // namespace qv
