#include "core/time_rules.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(TimeRules, TimeToMinutes)
{
    EXPECT_EQ(time_to_minutes(""), -1);
    EXPECT_EQ(time_to_minutes("  "), -1);
    EXPECT_EQ(time_to_minutes("00:00"), 0);
    EXPECT_EQ(time_to_minutes("09:05"), 545);
    EXPECT_EQ(time_to_minutes("25:30"), 1530);
    EXPECT_EQ(time_to_minutes("7"), 420);
}

TEST(TimeRules, AddMinutes)
{
    const struct
    {
        const char* time;
        int add;
        const char* result;
    } cases[] = {
        { "10:00", 30, "10:30" },
        { "10:00", 20, "10:20" }, // 10.3333333333333 hours
        { "10:50", 10, "11:00" }, // a whole hour has no point
        { "09:00", 5, "09:05" }, // both parts padded
        { "00:00", 1, "00:01" },
        { "0:0", 0, "00:00" },
        { "10:59", 0, "10:59" },
        { "23:10", 50, "24:00" },
        { "23:50", 20, "24:00" }, // 24.1666 hours saturates
        { "23:59", 2, "24:00" },
        { "25:30", 0, "24:00" }, // a late-side time read back is past 24 as well
        { "12:45", -50, "11:55" },
    };
    for (const auto& c : cases)
        EXPECT_EQ(add_minutes(c.time, c.add), c.result) << c.time << " + " << c.add;
}

TEST(TimeRules, EveryMinuteOfTheDayComesBackExactly)
{
    // The minutes go through a decimal fraction; rounding must bring each of them back.
    for (int m = 0; m < 24 * 60; ++m) {
        char expected[8];
        std::snprintf(expected, sizeof expected, "%02d:%02d", m / 60, m % 60);
        ASSERT_EQ(add_minutes("00:00", m), expected) << m;
    }
}

TEST(TimeRules, RoundDescription)
{
    const std::pair<const char*, const char*> cases[] = {
        { "1.7", "(r1,round of 128,ds=128)," },
        { "5.7", "(r5,round of 8,ds=128,quaters)," },
        { "6.7", "(r6,round of 4,ds=128,semis)," },
        { "7.7", "(r7,round of 2,ds=128,final)," },
        { "4.5", "(r4,round of 4,ds=32,semis)," },
        { "2.2", "(r2,round of 2,ds=4,final)," },
        { "1.2", "(r1,round of 4,ds=4,semis)," },
        { "1.1", "(r1,round of 2,ds=2,final)," },
        { "8.7", "()," },
        { "1.8", "()," },
        { "", "()," },
        { "3/6", "(rr,game 3 of 6)," },
    };
    for (auto [key, phrase] : cases)
        EXPECT_EQ(round_description(key, "game"), phrase) << key;
}

TEST(TimeRules, RoundWord)
{
    EXPECT_EQ(round_word("winner"), "winner");
    EXPECT_EQ(round_word("final"), "in final");
    EXPECT_EQ(round_word("semis"), "in semis");
    EXPECT_EQ(round_word("quaters"), "in quaters");
    EXPECT_EQ(round_word("r2"), "in round2");
}

std::tm sample(int year, int month, int day, int hour, int minute, int second)
{
    std::tm when {};
    when.tm_year = year - 1900;
    when.tm_mon = month - 1;
    when.tm_mday = day;
    when.tm_hour = hour;
    when.tm_min = minute;
    when.tm_sec = second;
    return when;
}

TEST(TimeRules, StampsAreUniqueAndRestartAfterReset)
{
    StampCounter stamps;
    auto when = sample(2007, 1, 5, 14, 3, 9);
    EXPECT_EQ(stamps.stamp_at(when), "050120071403091");
    EXPECT_EQ(stamps.stamp_at(when), "050120071403092");
    stamps.reset();
    EXPECT_EQ(stamps.stamp_at(when), "050120071403091");
    EXPECT_NE(stamps.stamp_now(), stamps.stamp_now());
}

TEST(TimeRules, DateFormats)
{
    auto afternoon = sample(2007, 3, 5, 14, 7, 9);
    EXPECT_EQ(date_time_long(afternoon), "05-Mar-2007 14:07:09");
    EXPECT_EQ(date_time_ampm(afternoon), "05-Mar-2007 02:07 PM");
    EXPECT_EQ(date_time_minutes(afternoon), "05-Mar-2007 14:07");
    EXPECT_EQ(date_time_short_year(afternoon), "05-Mar-07 14:07:09");
    EXPECT_EQ(export_stamp(afternoon), "07-03-05 14:07:09");

    EXPECT_EQ(date_time_ampm(sample(2010, 12, 31, 0, 5, 0)), "31-Dec-2010 12:05 AM");
    EXPECT_EQ(date_time_ampm(sample(2010, 12, 31, 12, 0, 0)), "31-Dec-2010 12:00 PM");
}

} // namespace
} // namespace qv
