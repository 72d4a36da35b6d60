#include "scheduling/day_keys.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(DayKeysTest, FormsOfADayAreLowerCaseWithoutCommas)
{
    const auto day = day_forms({ 2007, 1, 1 });
    EXPECT_EQ(day.fmt1, "01jan07");
    EXPECT_EQ(day.fmt2, "mon01jan07");
    EXPECT_EQ(day.fmt3, "mon01jan");
    EXPECT_EQ(day.fmt4, "01jan");
    EXPECT_EQ(fmt2_dots(day.fmt2), "mon.01.jan.07");
    EXPECT_EQ(day_forms({ 2026, 11, 29 }).fmt2, "sun29nov26");
}

TEST(DayKeysTest, FebruaryOffersTwentyEightDaysButARangeCrossesTheLeapDay)
{
    EXPECT_EQ(get_days_in_month(2), 28);
    EXPECT_EQ(getdays(2).back(), "28");
    EXPECT_EQ(getdays(1).size(), 31u);
    EXPECT_EQ(getdays(4).front(), "01");

    // 28 February to 1 March of a leap year: three days, the 29th among them.
    const auto leap = days_between({ 2028, 2, 28 }, { 2028, 3, 1 });
    ASSERT_EQ(leap.size(), 3u);
    EXPECT_EQ(leap[1].fmt2, "tue29feb28");
    EXPECT_EQ(days_between({ 2027, 2, 28 }, { 2027, 3, 1 }).size(), 2u);

    // An end before the start yields no day; the same day yields one.
    EXPECT_TRUE(days_between({ 2026, 3, 4 }, { 2026, 3, 2 }).empty());
    EXPECT_EQ(days_between({ 2026, 3, 4 }, { 2026, 3, 4 }).size(), 1u);
    // Across a year's end.
    EXPECT_EQ(days_between({ 2026, 12, 31 }, { 2027, 1, 1 }).back().fmt2, "fri01jan27");
}

TEST(DayKeysTest, ChoosersAndTheirWords)
{
    EXPECT_EQ(century_choices().front(), "20");
    EXPECT_EQ(century_choices().back(), "90");
    EXPECT_EQ(year_choices().size(), 100u);
    EXPECT_EQ(year_choices()[7], "07");
    EXPECT_EQ(mmm_to_i("dec"), 12);
    EXPECT_EQ(mmm_to_i("xyz"), 0);
    EXPECT_EQ(i_to_mmm(3), "mar");
    EXPECT_EQ(i_to_mmm(13), "");

    const auto date = set_day_month_year("wed04mar26");
    ASSERT_TRUE(date);
    EXPECT_EQ(date->day, 4);
    EXPECT_EQ(date->month, 3);
    EXPECT_EQ(date->year2, 26);
    EXPECT_FALSE(set_day_month_year("bad"));
    EXPECT_FALSE(set_day_month_year("wedxxmar26"));
}

TEST(DayKeysTest, SmallTextHelpers)
{
    EXPECT_EQ(get_date_end_markers({}), "");
    EXPECT_EQ(get_date_end_markers({ "mon01jan07" }), "mon01jan07-mon01jan07");
    EXPECT_EQ(get_date_end_markers({ "mon01jan07", "tue02jan07", "wed03jan07" }), "mon01jan07-wed03jan07");
    EXPECT_EQ(remove_comma("mon,01jan07"), "mon01jan07");
    EXPECT_EQ(parse_str("a^b^c"), std::make_pair(std::string("a"), std::string("b^c")));
    EXPECT_EQ(parse_str("plain"), std::make_pair(std::string("plain"), std::string()));
}

} // namespace
} // namespace qv
