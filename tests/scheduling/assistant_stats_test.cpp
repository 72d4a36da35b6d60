#include "core/utf8.h"
#include "scheduling/assistant_lists.h"
#include "scheduling/assistant_stats.h"
#include "scheduling/board_fixture.h"

namespace qv::test {
namespace {

class AssistantStatsTest : public BoardFixture
{
protected:
    std::vector<std::string> table(const char* sql)
    {
        std::vector<std::string> out;
        for (auto q = db->query(sql); q.step();) {
            std::string line;
            for (int i = 0; i < q.column_count(); ++i)
                line += (i ? "|" : "") + q.text(i);
            out.push_back(line);
        }
        return out;
    }
};

TEST_F(AssistantStatsTest, RowsExistOnlyWhereCountedAndByesAreLeftOut)
{
    const auto first = first_round(1);
    place({ first[0], first[1] }, day1, 2);
    top_wins(first[0]);
    // A match against a bye counts nowhere.
    db->run("update schedule set mbttt='bye' where sid=?", first_round(2)[0]);

    stats_by_cid(*db, all_days);
    EXPECT_EQ(table(R"(select cid, empty, live, unf, dead, total, cid0, "cid>0" from stats_by_cid order by cid)"),
        (std::vector<std::string> { "0|4|3|0|0|7|7|0", "2|0|1|0|1|2|0|2" }));

    stats_by_event(*db, all_days);
    EXPECT_EQ(table("select eid, eventname, empty, live, dead, total, pct_done from stats_by_event order by rowid"),
        (std::vector<std::string> { "1|mens singles|3|3|1|7|14.2857142857143", "2|mixed doubles|1|1|0|2|0.0",
            "0|tournament|4|4|1|9|11.1111111111111" }));

    stats_by_day(*db, day1);
    EXPECT_EQ(table("select sdate, total from stats_by_day"), (std::vector<std::string> { std::string(day1) + "|2" }));
    stats_by_day(*db, no_day);
    EXPECT_EQ(table("select sdate, total from stats_by_day"), (std::vector<std::string> { "|7" }));
    stats_by_cid(*db, day3);
    EXPECT_TRUE(table("select cid from stats_by_cid").empty());

    const auto shown = show_stats(*db, board->words(), StatsBy::day, all_days);
    EXPECT_EQ(shown.title, "stats by day for all days");
    ASSERT_EQ(shown.lines.size(), 2u);
    EXPECT_EQ(shown.lines[0].substr(0, 7), "no day\t");
}

TEST_F(AssistantStatsTest, PlayerCountsLeaveOutEmptyMatchesAndNonPlayers)
{
    const auto first = first_round(1);
    db->run("update schedule set p1='ann lee', p2='Qualifier 1' where sid=?", first[0]);
    db->run("update schedule set p1='ann lee', p2='bye' where sid=?", first[1]);
    db->run("update schedule set p1='ann lee', p2='wildcard' where sid=?", first[2]);
    top_wins(first[2]);
    db->run("update schedule set p1='ann lee' where sid=?", first_round(1).size() > 3 ? first[3] : first[0]);
    db->run("update schedule set match_state='1', p1='ann lee' where rid=2 and eid=1");
    calc_counts(*db);
    const auto lines = load_player_list(*db, "pn", false);
    auto ann
        = std::find_if(lines.begin(), lines.end(), [](const std::string& l) { return l.rfind("ann lee\t", 0) == 0; });
    ASSERT_NE(ann, lines.end());
    EXPECT_EQ(*ann, "ann lee\t3\t1\t0");
    for (const auto& line : lines) {
        EXPECT_NE(line.rfind("Qualifier", 0), 0u) << line;
        EXPECT_NE(line.rfind("wildcard", 0), 0u) << line;
        EXPECT_NE(line.rfind("bye\t", 0), 0u) << line;
    }
}

TEST_F(AssistantStatsTest, MatchListsFilterAndOrder)
{
    const auto first = first_round(1);
    const auto mixed = first_round(2);
    place({ first[0], first[1] }, day1, 3);
    place({ mixed[0] }, day2, 3);
    const ListStates all;

    ListFilter filter;
    getsql(*db, filter);
    auto lines = load_match_list(*db, ListOrder::mid, true, all);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].sid, mixed[0]);

    filter.eid = 1;
    getsql(*db, filter);
    EXPECT_EQ(load_match_list(*db, ListOrder::mid, false, all).size(), 2u);

    filter = {};
    filter.day = day1;
    filter.cid = 3;
    filter.noday = true;
    getsql(*db, filter);
    lines = load_match_list(*db, ListOrder::day, false, all);
    EXPECT_EQ(lines.size(), 2u + 5u + 2u); // two placed, five of event 1 and two of event 2 without a day
    EXPECT_EQ(line_fields(lines.back().text)[0], day1);

    ListStates live_only { false, true, false, false };
    EXPECT_EQ(load_match_list(*db, ListOrder::day, false, live_only).size(), 5u);

    search_name(*db, trim(column(first[0], "p1")).substr(0, 3), true);
    EXPECT_FALSE(load_match_list(*db, ListOrder::event, false, all).empty());
    EXPECT_EQ(load_players_matches(*db, column(first[0], "p1"), ListOrder::time, false, all).size(), 1u);
    EXPECT_EQ(list_order_from_name("day,time"), ListOrder::day_time);
}

TEST_F(AssistantStatsTest, TheVisualGridDrawsAtMostAThousandBoxes)
{
    const ListStates all;
    auto grid = visual_little_match_boxes(*db, board->words(), all_days, 0, all);
    EXPECT_EQ(grid.message, "no matches with times,visual display irrelevant");
    EXPECT_TRUE(grid.boxes.empty());

    // A thousand and one timed matches on first available.
    db->run("update schedule set scheduledate=?, cid=-1, matchtime='10:00', matchtime_int=600 where rname <> 'winner'",
        day1);
    db->run(R"(with recursive n(i) as (select 1 union all select i + 1 from n where i < 1001 - 10)
        insert into schedule (sid, eid, scheduledate, cid, matchtime, matchtime_int, match_state)
        select 1000 + i, 1, ?, 2, '11:00', 660 + i % 60, '1' from n)",
        day1);
    grid = visual_little_match_boxes(*db, board->words(), day1, 0, all);
    EXPECT_EQ(grid.boxes.size(), visual_box_limit);
    EXPECT_EQ(grid.message, "cannot display >1000 matches");
    EXPECT_EQ(grid.columns.front().second, "first available");
    EXPECT_EQ(grid.first, 600);

    db->run("delete from schedule where sid=1991");
    grid = visual_little_match_boxes(*db, board->words(), day1, 0, all);
    EXPECT_EQ(grid.boxes.size(), visual_box_limit);
    EXPECT_TRUE(grid.message.empty());
}

} // namespace
} // namespace qv::test
