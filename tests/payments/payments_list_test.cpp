#include "payments/compile.h"
#include "payments/payment_details.h"
#include "payments/payments_fixture.h"
#include "payments/payments_list.h"
#include "payments/taking_payments.h"

#include <algorithm>

namespace qv {
namespace {

class PaymentsListTest : public test::PaymentsFixture
{
protected:
    void SetUp() override
    {
        PaymentsFixture::SetUp();
        // Bills: al 35, bo 20, cy 27.5, di 12.5, zoé 20; al pays 40, di 12.5, cy 10.
        ASSERT_TRUE(compile(session, 2));
        ASSERT_TRUE(take_payment(session, { 1 }, "40"));
        ASSERT_TRUE(set_paid_in_full(session, { 4 }));
        ASSERT_TRUE(take_payment(session, { 3 }, "10"));
    }

    std::vector<std::string> players(const PaymentsView& view)
    {
        std::vector<std::string> names;
        for (const auto& line : loadpayments(db(), view).lines)
            names.push_back(line.player);
        return names;
    }
};

struct ViewCase
{
    PaymentsView view;
    std::vector<std::string> players;
};

TEST_F(PaymentsListTest, TicksChooseTheStatesAndTheSortListTheOrder)
{
    const ViewCase cases[] = {
        { { true, true, true, PaymentsSort::player, false }, { "al west", "bo dee", "cy fox", "di lane", "zoé ray" } },
        { { true, true, true, PaymentsSort::player, true }, { "zoé ray", "di lane", "cy fox", "bo dee", "al west" } },
        { { true, false, false, PaymentsSort::player, false }, { "di lane" } },
        { { false, true, false, PaymentsSort::player, false }, { "bo dee", "cy fox", "zoé ray" } },
        { { false, false, true, PaymentsSort::player, false }, { "al west" } },
        { { false, false, false, PaymentsSort::player, false }, {} },
        { { true, true, true, PaymentsSort::bill, false }, { "di lane", "bo dee", "zoé ray", "cy fox", "al west" } },
        { { true, true, true, PaymentsSort::paid, true }, { "al west", "di lane", "cy fox", "bo dee", "zoé ray" } },
        { { true, true, true, PaymentsSort::mustpay, false }, { "al west", "di lane", "cy fox", "bo dee", "zoé ray" } },
    };
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(players(cases[i].view), cases[i].players) << "case " << i;
}

TEST_F(PaymentsListTest, APlayerWithoutABillIsLeftOutEvenWhenPaid)
{
    ASSERT_TRUE(take_payment(session, { 5 }, "5"));
    const auto names = players({});
    EXPECT_EQ(std::count(names.begin(), names.end(), "ed ray"), 0);
    EXPECT_EQ(get_sql(PaymentsSort::mustpay, true),
        "select * from players where player_bill <> 0 order by amount_player_must_pay desc, pid");
}

TEST_F(PaymentsListTest, TotalsAddTheLinesShown)
{
    auto list = loadpayments(db(), {});
    EXPECT_DOUBLE_EQ(list.totals.bill, 115);
    EXPECT_DOUBLE_EQ(list.totals.paid, 62.5);
    EXPECT_DOUBLE_EQ(list.totals.mustpay, 52.5);
    list = loadpayments(db(), { false, true, false, PaymentsSort::player, false });
    EXPECT_DOUBLE_EQ(list.totals.bill, 67.5);
    EXPECT_DOUBLE_EQ(list.totals.mustpay, 57.5);
}

TEST_F(PaymentsListTest, OneLineReadAgainAfterAPayment)
{
    ASSERT_TRUE(take_payment(session, { 2 }, "20"));
    const auto line = payment_line(db(), 2);
    ASSERT_TRUE(line);
    EXPECT_EQ(line_fields(*line), (std::vector<std::string> { "20", "20", "0", "pif", "bo dee" }));
    EXPECT_FALSE(payment_line(db(), 99));
}

TEST_F(PaymentsListTest, DetailsOfAPersonMarkWhatTheCriterionBills)
{
    const auto cy = *payment_line(db(), 3);
    EXPECT_EQ(load_data(cy, person_entries(db(), "Cy Fox ", 1), 1),
        (std::vector<std::string> { "payment state for: cy fox", "(2)mixed doubles,15 <", "(3)womens singles,12.5",
            "total player events=2", "total events contributing to player bill=1", "player bill=27.5",
            "amount player has paid=10", "amount player must pay=17.5", "payment criterion=in draw (draw done)" }));
    const auto al = *payment_line(db(), 1);
    const auto lines = load_data(al, person_entries(db(), "al west", 2), 2);
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[4], "total events contributing to player bill=2");
    EXPECT_EQ(lines[6], "amount player has overpaid=5");
    EXPECT_EQ(lines[7], "amount player must pay=-5");
}

TEST_F(PaymentsListTest, TheViewComesFromTheSettings)
{
    auto& settings = session.settings();
    settings.set_disk_var("payments.ob", "0");
    settings.set_disk_var("payments.sort1", "1");
    settings.set_disk_var("payments.sort2", "2");
    auto view = PaymentsView::from_settings(settings);
    EXPECT_TRUE(view.pif && view.neg && !view.ob && view.descending);
    EXPECT_EQ(view.sort, PaymentsSort::mustpay);
    // A damaged order falls back to the order by player.
    settings.set_disk_var("payments.sort2", "7");
    EXPECT_EQ(PaymentsView::from_settings(settings).sort, PaymentsSort::player);
    EXPECT_FALSE(view.shows(""));
}

} // namespace
} // namespace qv
