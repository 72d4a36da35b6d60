#include "payments/compile.h"
#include "payments/payment_states.h"
#include "payments/payments_fixture.h"
#include "payments/taking_payments.h"

namespace qv {
namespace {

class TakingPaymentsTest : public test::PaymentsFixture
{
protected:
    void SetUp() override
    {
        PaymentsFixture::SetUp();
        ASSERT_TRUE(compile(session, 1)); // al west owes 35, bo dee 20
        talk.clear();
    }
};

TEST_F(TakingPaymentsTest, PaymentsAddUpAndSetTheState)
{
    ASSERT_TRUE(take_payment(session, { 1 }, "20"));
    EXPECT_EQ(state(1), "ob");
    EXPECT_DOUBLE_EQ(mustpay(1), 15);
    ASSERT_TRUE(take_payment(session, { 1 }, " 15 "));
    EXPECT_EQ(state(1), "pif");
    ASSERT_TRUE(take_payment(session, { 1 }, "5.5"));
    EXPECT_EQ(state(1), "op");
    EXPECT_DOUBLE_EQ(mustpay(1), -5.5);
    ASSERT_TRUE(take_payment(session, { 1 }, "-5.5"));
    EXPECT_EQ(state(1), "pif");
    EXPECT_DOUBLE_EQ(paid(1), 35);
    // The other people are left alone.
    EXPECT_DOUBLE_EQ(paid(2), 0);
    EXPECT_TRUE(talk.messages().empty());
}

struct RefusalCase
{
    std::vector<std::int64_t> selected;
    const char* amount;
    const char* message;
};

TEST_F(TakingPaymentsTest, RefusalsChangeNothing)
{
    ASSERT_TRUE(take_payment(session, { 1 }, "10"));
    const RefusalCase cases[] = {
        { {}, "10", "select player account" },
        { { 1, 2 }, "10", "select player account" },
        { { 99 }, "10", "select player account" },
        { { 1 }, "", "value required" },
        { { 1 }, "-10.01", "cannot have less than zero amount paid?" },
        { { 1 }, "1-0", "invalid double value,negative sign must be first character" },
        { { 1 }, "--1", "invalid double value, more than one -" },
        { { 1 }, "1.0.0", "invalid double value, more than one ." },
        { { 1 }, "-", "invalid double value" },
        { { 1 }, "ten", "invalid character for double" },
    };
    for (const auto& c : cases) {
        talk.clear();
        EXPECT_FALSE(take_payment(session, c.selected, c.amount)) << c.amount;
        EXPECT_EQ(talk.last_message(), c.message) << c.amount;
    }
    EXPECT_DOUBLE_EQ(paid(1), 10);
    EXPECT_DOUBLE_EQ(paid(2), 0);
    // Taking back all that was paid is allowed.
    EXPECT_TRUE(take_payment(session, { 1 }, "-10"));
    EXPECT_DOUBLE_EQ(paid(1), 0);
}

TEST_F(TakingPaymentsTest, PaidInFullAndNothingPaidForTheSelected)
{
    ASSERT_TRUE(set_paid_in_full(session, { 1, 2 }));
    EXPECT_DOUBLE_EQ(paid(1), 35);
    EXPECT_DOUBLE_EQ(paid(2), 20);
    EXPECT_EQ(state(1), "pif");
    EXPECT_EQ(state(2), "pif");
    EXPECT_EQ(state(3), "ob");

    ASSERT_TRUE(set_nothing_paid(session, { 2 }));
    EXPECT_DOUBLE_EQ(paid(2), 0);
    EXPECT_DOUBLE_EQ(mustpay(2), 20);
    EXPECT_EQ(state(2), "ob");

    EXPECT_FALSE(set_paid_in_full(session, {}));
    EXPECT_FALSE(set_nothing_paid(session, {}));
    EXPECT_EQ(talk.messages(), (std::vector<std::string> { "select player account", "select player account" }));
}

TEST_F(TakingPaymentsTest, OverpaidIsDecidedOnTheAmountThatMustBePaid)
{
    // Paid beyond the bill: neither of the first two statements holds, the last one does.
    db().run("update players set amount_player_has_paid=50, paid_state='' where pid=2");
    set_paid_states_pid(db(), 2);
    EXPECT_EQ(state(2), "op");
    EXPECT_DOUBLE_EQ(mustpay(2), -30);
    // The whole-table form gives every row its state.
    db().run("update players set paid_state=''");
    set_paid_states(db());
    EXPECT_EQ(
        db().scalar_text("select group_concat(paid_state, ',') from (select paid_state from players order by pid)"),
        "ob,op,ob,pif,pif,ob");
}

} // namespace
} // namespace qv
