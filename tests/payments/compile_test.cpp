#include "payments/compile.h"
#include "payments/money.h"
#include "payments/payments_fixture.h"
#include "payments/taking_payments.h"

namespace qv {
namespace {

using CompileTest = test::PaymentsFixture;

struct BillCase
{
    int option;
    // Bills of pids 1 to 6: al west, bo dee, cy fox, di lane, ed ray (reserve), zoé ray.
    double bills[6];
    std::int64_t numevents[6];
};

TEST_F(CompileTest, EachCriterionBillsItsEntriesAndEachDoublesPartnerInFull)
{
    const BillCase cases[] = {
        { 1, { 35, 20, 15, 0, 0, 20 }, { 2, 1, 1, 0, 0, 1 } },
        { 2, { 35, 20, 27.5, 12.5, 0, 20 }, { 2, 1, 2, 1, 0, 1 } },
        { 3, { 35, 20, 27.5, 12.5, 20, 20 }, { 2, 1, 2, 1, 1, 1 } },
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("option " + std::to_string(c.option));
        ASSERT_TRUE(compile(session, c.option));
        for (std::int64_t pid = 1; pid <= 6; ++pid) {
            EXPECT_DOUBLE_EQ(bill(pid), c.bills[pid - 1]) << "pid " << pid;
            EXPECT_EQ(numevents(pid), c.numevents[pid - 1]) << "pid " << pid;
            EXPECT_DOUBLE_EQ(mustpay(pid), c.bills[pid - 1]) << "pid " << pid;
        }
        EXPECT_EQ(state(1), "ob");
    }
    // Nobody owes nothing: a bill of 0 with nothing paid is paid in full.
    EXPECT_EQ(state(5), "ob");
    ASSERT_TRUE(compile(session, 1));
    EXPECT_EQ(state(5), "pif");
}

TEST_F(CompileTest, EntriesTakeThePresentFeeAndDrawFlagOfTheirEvent)
{
    db().run("update events set fee='30', drawdone=0 where eid=1");
    db().run("update events set drawdone=1 where eid=3");
    ASSERT_TRUE(compile(session, 1));
    EXPECT_EQ(db().scalar_text("select eventfee from evententries where ent_idx=1"), "30");
    EXPECT_EQ(db().scalar_integer("select count(*) from evententries where drawdone=1"), 3);
    EXPECT_DOUBLE_EQ(bill(1), 15);
    EXPECT_DOUBLE_EQ(bill(3), 27.5);
    EXPECT_DOUBLE_EQ(bill(2), 0);
}

TEST_F(CompileTest, RerunKeepsWhatWasPaidAndALowerBillTurnsOverpaidAtOnce)
{
    ASSERT_TRUE(compile(session, 1));
    ASSERT_TRUE(take_payment(session, { 1 }, "35"));
    ASSERT_TRUE(take_payment(session, { 2 }, "5"));
    ASSERT_TRUE(compile(session, 1));
    EXPECT_DOUBLE_EQ(paid(1), 35);
    EXPECT_EQ(state(1), "pif");
    EXPECT_EQ(state(2), "ob");
    EXPECT_DOUBLE_EQ(mustpay(2), 15);

    db().run("update events set fee='10' where eid=1");
    ASSERT_TRUE(compile(session, 1));
    EXPECT_DOUBLE_EQ(bill(1), 25);
    EXPECT_DOUBLE_EQ(paid(1), 35);
    EXPECT_DOUBLE_EQ(mustpay(1), -10);
    EXPECT_EQ(state(1), "op");
}

TEST_F(CompileTest, FeesThatAddUpToAPaymentCompareEqual)
{
    db().run("update events set fee='0.1' where eid=1");
    db().run("update events set fee='0.2' where eid=2");
    ASSERT_TRUE(compile(session, 1));
    ASSERT_TRUE(take_payment(session, { 1 }, "0.3"));
    EXPECT_EQ(state(1), "pif");
    EXPECT_DOUBLE_EQ(mustpay(1), 0);
}

TEST_F(CompileTest, NoEntryMeetingTheCriterionLeavesNoBillsAndSaysSo)
{
    ASSERT_TRUE(compile(session, 1));
    db().run("update events set drawdone=0");
    EXPECT_FALSE(compile(session, 1));
    EXPECT_EQ(talk.last_message(), "no players meet compile criteria of in draw (draw done)");
    EXPECT_EQ(db().scalar_integer("select count(*) from players where player_bill <> 0 or paid_state <> ''"), 0);
}

TEST_F(CompileTest, AFeeThatIsNoNumberChangesNothing)
{
    ASSERT_TRUE(compile(session, 1));
    db().run("update events set fee='ten' where eid=2");
    EXPECT_FALSE(compile(session, 1));
    EXPECT_EQ(talk.last_message(), "mixed doubles,event fee is not a number,cannot compile payments");
    EXPECT_DOUBLE_EQ(bill(1), 35);
    EXPECT_EQ(db().scalar_text("select eventfee from evententries where ent_idx=5"), "15");

    // An empty fee is no fee.
    db().run("update events set fee='' where eid=2");
    ASSERT_TRUE(compile(session, 1));
    EXPECT_DOUBLE_EQ(bill(1), 20);
}

TEST_F(CompileTest, TheRunningLabelCountsTheEntries)
{
    ASSERT_TRUE(compile(session, 3));
    ASSERT_FALSE(talk.said.empty());
    EXPECT_EQ(talk.said.back().kind, "progress");
    EXPECT_EQ(talk.said.back().text, "7/7");
}

TEST(CompileCriteria, TextsAndTheStoredChoice)
{
    ASSERT_EQ(compile_criteria().size(), 3u);
    EXPECT_EQ(compile_criterion(2).text, "is a player (non-reserve,draw not done/draw done)");
    EXPECT_EQ(compile_criterion(3).text, "is entered into the event");
    EXPECT_EQ(compile_criterion(0).option, 1);
    EXPECT_EQ(compile_criterion(9).text, "in draw (draw done)");
}

TEST(Money, AmountsAndFees)
{
    EXPECT_EQ(amount_of("12.5"), 12.5);
    EXPECT_EQ(amount_of(" -3 "), -3.0);
    EXPECT_EQ(amount_of(".5"), 0.5);
    EXPECT_EQ(amount_of("5."), 5.0);
    for (const char* bad : { "", "-", ".", "1-2", "1.2.3", "1,5", "abc", "+4" })
        EXPECT_FALSE(amount_of(bad)) << bad;
    EXPECT_EQ(fee_amount("  "), 0.0);
    EXPECT_EQ(fee_amount("15"), 15.0);
    EXPECT_FALSE(fee_amount("15 eur"));
}

} // namespace
} // namespace qv
