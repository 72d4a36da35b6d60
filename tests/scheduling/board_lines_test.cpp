#include "scheduling/board_fixture.h"
#include "scheduling/board_lines.h"

namespace qv {
namespace {

MatchRow sample()
{
    MatchRow row;
    row.sid = 17;
    row.eid = 2;
    row.rsname = "1.2";
    row.rname = "semis";
    row.mtfrn = " ida duo ";
    row.mbfrn = "kim lee";
    row.mttag = "ida";
    row.mbtag = "kim";
    row.mtttt = "ida duo";
    row.mbttt = "kim lee";
    row.mtseeding = "1";
    row.mbseeding = "0";
    row.match_state = "2";
    row.nbat = "nb ";
    row.matchtime = "9:5";
    row.mtar = ".";
    row.matchscore = "64 64";
    row.scheduledate = "mon02mar26";
    row.eventname = "mixed doubles";
    row.cid = 3;
    return row;
}

TEST(BoardLinesTest, LineFieldsInTheirOrder)
{
    auto row = sample();
    const AvailabilityLookup none;
    EXPECT_EQ(upper_line_text(row, none), "2\t1.2\tida duo (1)\tkim lee\t.\t64 64\t17,mixed doubles");
    EXPECT_EQ(
        court_line_text(row, none), "2\t1.2\tida duo (1)\tkim lee\tnb 09:05\t.\t64 64\tmon02mar26\t17,mixed doubles");

    // The winner's star, by the handle; the long score before sid and event in the details.
    row.mwtag = "kim";
    row.matchlongscore = "6-4 6-4";
    EXPECT_EQ(line_fields(upper_line_text(row, none))[3], "kim lee*");
    EXPECT_EQ(line_fields(upper_line_text(row, none))[6], "6-4 6-4 17,mixed doubles");
    EXPECT_EQ(getab(row), 'b');

    // An unfinished match wears a hat on both sides.
    row.mwtag.clear();
    row.match_state = "2.1";
    const auto fields = line_fields(upper_line_text(row, none));
    EXPECT_EQ(fields[2], "ida duo (1)^");
    EXPECT_EQ(fields[3], "kim lee^");
    EXPECT_TRUE(has_seed(row));
    row.mtseeding = "";
    EXPECT_FALSE(has_seed(row));
}

TEST(BoardLinesTest, TimeFieldsAndPatches)
{
    EXPECT_EQ(time_field("", ""), "        ");
    EXPECT_EQ(time_field("at ", "14:30"), "at 14:30");
    EXPECT_EQ(format_hhmm("7:00"), "07:00");
    EXPECT_EQ(format_hhmm(""), "");

    const std::string upper = "1\t1.3\tadam mann (1)\tbert mann\t\t\t5,mens singles";
    const auto court = translate_sstring_to_l4s(upper, "tue03mar26");
    EXPECT_EQ(court, "1\t1.3\tadam mann (1)\tbert mann\t        \t\t\ttue03mar26\t5,mens singles");
    EXPECT_EQ(translate_l4s_to_sstring(court), upper);
    EXPECT_EQ(quick_fix_schedule_time(court, "nb ", "10:15"),
        "1\t1.3\tadam mann (1)\tbert mann\tnb 10:15\t\t\ttue03mar26\t5,mens singles");

    // Hats come and go on the player fields only, never on a decided match.
    const auto hatted = quick_fix_schedule_add_hats(court);
    EXPECT_EQ(line_fields(hatted)[2], "adam mann (1)^");
    EXPECT_EQ(line_fields(hatted)[3], "bert mann^");
    EXPECT_EQ(quick_fix_schedule_add_hats(hatted), hatted);
    EXPECT_EQ(quick_fix_schedule_remove_hats(hatted), court);
    const std::string decided = "1\t1.3\tadam mann*\tbert mann\t        \t\t\tday\t5,e";
    EXPECT_EQ(quick_fix_schedule_add_hats(decided), decided);
}

TEST(BoardLinesTest, PositionAndStatusLine)
{
    EXPECT_EQ(display_position(0, 4, 9), 0);
    EXPECT_EQ(display_position(-2, 4, 9), 0);
    EXPECT_EQ(display_position(3, 4, 9), 4);
    EXPECT_EQ(display_position(-1, 0, 9), -9);

    auto row = sample();
    row.matchnumber_live = 2;
    EXPECT_EQ(status_line(row, "game"), "game id=17,position=2,semis ida vs kim");
    row.mbttt = "";
    EXPECT_EQ(status_line(row, "game"), "game id=17,empty match");
}

class AvailabilityTest : public test::BoardFixture
{
};

TEST_F(AvailabilityTest, MarksLookUpThePlayersAndBothPartnersOfATeam)
{
    const AvailabilityLookup lookup(*db);
    EXPECT_EQ(lookup.hasar("carl mann"), "-");
    EXPECT_EQ(lookup.hasar(" CARL Mann "), "-");
    EXPECT_EQ(lookup.hasar("adam mann"), "");
    EXPECT_EQ(lookup.hasarp("idab duo/jonb duo"), "-");
    EXPECT_EQ(lookup.hasarp("idaa duo/jona duo"), "");

    // On the lines: the singles match of carl, the doubles match of jonb's team.
    int marked = 0;
    for (const auto& line : board->list(BoardListId::unscheduled).lines()) {
        const auto sides = column(line.sid, "mtttt || '|' || mbttt");
        const bool restricted
            = sides.find("carl mann") != std::string::npos || sides.find("jonb duo") != std::string::npos;
        EXPECT_EQ(line_fields(line.text)[4].find('-') != std::string::npos, restricted) << line.text;
        marked += restricted;
    }
    EXPECT_EQ(marked, 2);
}

} // namespace
} // namespace qv
