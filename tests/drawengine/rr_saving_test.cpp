#include "drawengine/rr_fixture.h"
#include "drawengine/rr_saving.h"
#include "drawengine/rr_scoring.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

using test::RrEntry;
using RrSavingTest = test::RrFixture;

std::int64_t changed_rows(Database& db)
{
    return db.scalar_integer("select count(*) from schedule where eid = 1 and changed = 1");
}

TEST_F(RrSavingTest, FirstSaveWritesLiveAndShadowAlike)
{
    add_event(3, { { "Al", "Adams", false, "NZL", "female" }, { "Bo/Cy", "", false, "", "male.female" } });
    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    rr.match(1).points1 = "4";
    rr_toggle_winner(rr.match(1), RrWinner::top);
    add_draw_stub_RR(*db, draw, rr);
    RR_savecontrols(*db, draw, rr);

    const std::pair<std::string, std::string> expected[] = {
        { "mtttt", "Al Adams" },
        { "mtfrn", "Al Adams" },
        { "mbttt", "Bo/Cy" },
        { "mwttt", "Al Adams" },
        { "mt_country", "NZL" },
        { "mtsex", "f" },
        { "mbsex", "mf" },
        { "p1", "Al Adams" },
        { "p2", "" },
        { "p3", "Bo" },
        { "p4", "Cy" },
        { "points1", "4" },
        { "points2", "0" },
    };
    for (const auto& [column, value] : expected) {
        EXPECT_EQ(cell(column, 1), value) << column;
        EXPECT_EQ(cell("i" + column, 1), value) << "i" << column;
    }
    EXPECT_EQ(changed_rows(*db), 0);
}

TEST_F(RrSavingTest, WorkGoesToTheShadowUntilTheSave)
{
    saved_draw(2, lettered(3));

    rr_click_name(session, draw, rr, 2, RrWinner::bottom);
    EXPECT_EQ(rr.match(2).points1, "0");
    EXPECT_EQ(rr.match(2).points2, "1");
    EXPECT_EQ(cell("imwttt", 2), "Player C");
    EXPECT_EQ(cell("imwfrn", 2), "Player C");
    EXPECT_EQ(cell("ipoints2", 2), "1");
    EXPECT_EQ(cell("mwttt", 2), "");
    EXPECT_EQ(cell("points2", 2), "0");
    EXPECT_EQ(cell("changed", 2), "1");
    EXPECT_EQ(changed_rows(*db), 1);
    EXPECT_TRUE(RR_set_changed_recs(*db, 1));

    RR_copy_over(*db, 1);
    EXPECT_EQ(cell("mwttt", 2), "Player C");
    EXPECT_EQ(cell("points2", 2), "1");
    EXPECT_EQ(changed_rows(*db), 0);
    EXPECT_FALSE(RR_set_changed_recs(*db, 1));

    // Taken off again after the save: a change to roll back.
    rr_click_name(session, draw, rr, 2, RrWinner::bottom);
    EXPECT_EQ(cell("imwttt", 2), "");
    EXPECT_EQ(changed_rows(*db), 1);
    ASSERT_TRUE(RR_rollback_draw(session, draw, rr));
    EXPECT_EQ(changed_rows(*db), 0);
    EXPECT_EQ(cell("imwttt", 2), "Player C");
    EXPECT_EQ(cell("ipoints2", 2), "1");
    EXPECT_EQ(rr.match(2).winner, RrWinner::bottom);
    EXPECT_EQ(rr.match(2).points2, "1");
}

TEST_F(RrSavingTest, ChangedLooksAtTheResultColumnsOnly)
{
    saved_draw(3, lettered(3));
    const std::pair<const char*, bool> columns[] = {
        { "matchscore", true },
        { "matchlongscore", true },
        { "points1", true },
        { "points2", true },
        { "mwttt", true },
        { "mwfrn", true },
        { "mwtag", true },
        // The sides are not results: a difference there marks nothing.
        { "mtttt", false },
        { "mbfrn", false },
        { "mttag", false },
        { "mt_country", false },
        { "p1", false },
    };
    for (const auto& [column, marks] : columns) {
        SCOPED_TRACE(column);
        const std::string live(column);
        db->run(R"(update schedule set changed = 1 where eid = 1 and "match" = 1)");
        db->run("update schedule set i" + live + R"( = 'other' where eid = 1 and "match" = 2)");
        RR_set_changed(*db, 1);
        // The first statement clears every row of the event, so a stale mark does not survive.
        EXPECT_EQ(cell("changed", 1), "0");
        EXPECT_EQ(cell("changed", 2), marks ? "1" : "0");
        db->run("update schedule set i" + live + " = " + live + R"( where eid = 1 and "match" = 2)");
    }
}

TEST_F(RrSavingTest, AChangeUndoneByHandIsNoChange)
{
    saved_draw(3, lettered(2));
    ASSERT_TRUE(rr_type_points(session, draw, rr, 1, RrWinner::top, "5"));
    EXPECT_EQ(changed_rows(*db), 1);
    ASSERT_TRUE(rr_type_points(session, draw, rr, 1, RrWinner::top, ""));
    EXPECT_EQ(rr.match(1).points1, "0");
    EXPECT_EQ(changed_rows(*db), 0);
}

TEST_F(RrSavingTest, LockedBoxesRefuseTyping)
{
    saved_draw(1, lettered(2));
    EXPECT_FALSE(rr_type_score(session, draw, rr, 1, "6-0"));
    EXPECT_EQ(rr.match(1).score, "0/0");
    ASSERT_TRUE(rr_type_points(session, draw, rr, 1, RrWinner::top, "3"));
    ASSERT_TRUE(rr_type_points(session, draw, rr, 1, RrWinner::bottom, "1x"));
    EXPECT_EQ(rr.match(1).score, "3/1");
    EXPECT_EQ(cell("imatchscore", 1), "3/1");
    EXPECT_EQ(cell("ipoints2", 1), "1");

    draw.pts = 2;
    EXPECT_FALSE(rr_type_points(session, draw, rr, 1, RrWinner::top, "9"));
    EXPECT_EQ(rr.match(1).points1, "3");
    ASSERT_TRUE(rr_type_score(session, draw, rr, 1, " 6-0~ "));
    EXPECT_EQ(cell("imatchscore", 1), "6-0");
}

TEST_F(RrSavingTest, SaveAsYouGoWritesBothAndCannotRollBack)
{
    saved_draw(2, lettered(2));
    session.settings().apply_disk_var("draw.isaveasugo", "1");
    rr_click_name(session, draw, rr, 1, RrWinner::top);
    EXPECT_EQ(cell("mwttt", 1), "Player A");
    EXPECT_EQ(cell("imwttt", 1), "Player A");
    EXPECT_EQ(cell("points1", 1), "1");
    EXPECT_EQ(cell("match_state", 1), "3");
    EXPECT_EQ(changed_rows(*db), 0);

    EXPECT_FALSE(RR_rollback_draw(session, draw, rr));
    EXPECT_EQ(
        talk.last_message(), "Cannot roll back as you are in 'save as u go mode', all changes are therefore immediate");
}

TEST_F(RrSavingTest, ANewDrawWritesNothingUntilItIsSaved)
{
    add_event(2, lettered(2));
    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    add_draw_stub_RR(*db, draw, rr);
    rr_click_name(session, draw, rr, 1, RrWinner::bottom);
    EXPECT_EQ(rr.match(1).points2, "1");
    EXPECT_EQ(cell("imwttt", 1), "");
    EXPECT_EQ(cell("ipoints2", 1), "");
    ASSERT_EQ(rr.standings.size(), 2u);
    EXPECT_EQ(rr.standings[0].nm, "Player B");
    EXPECT_FALSE(RR_rollback_draw(session, draw, rr));
}

TEST_F(RrSavingTest, StandingsByPointsWithTiesInTableOrder)
{
    saved_draw(3, lettered(4));
    // (1,2) (1,3) (1,4) (2,3) (2,4) (3,4)
    const std::tuple<int, const char*, const char*, RrWinner> results[] = {
        { 1, "1", "2", RrWinner::bottom },
        { 2, "0", "3", RrWinner::bottom },
        { 4, "2", "1", RrWinner::top },
        { 6, "0.5", "0", RrWinner::top },
    };
    for (const auto& [match, p1, p2, winner] : results) {
        ASSERT_TRUE(rr_type_points(session, draw, rr, match, RrWinner::top, p1));
        ASSERT_TRUE(rr_type_points(session, draw, rr, match, RrWinner::bottom, p2));
        rr_click_name(session, draw, rr, match, winner);
    }
    // A 1, B 2+2=4, C 3+1+0.5=4.5, D 0; D's 4 in match 5 ties D with B, who stands higher in the table.
    ASSERT_TRUE(rr_type_points(session, draw, rr, 5, RrWinner::bottom, "4"));

    std::vector<std::pair<std::string, double>> got;
    for (const auto& s : rr.standings)
        got.emplace_back(s.nm, s.points);
    const std::vector<std::pair<std::string, double>> expected { { "Player C", 4.5 }, { "Player B", 4 },
        { "Player D", 4 }, { "Player A", 1 } };
    EXPECT_EQ(got, expected);
    EXPECT_EQ(rr.standings[0].number, 3);
    EXPECT_EQ(db->scalar_integer("select count(*) from alist10_rr"), 4);

    EXPECT_EQ(rr.cell(2, 1), RrCell::win);
    EXPECT_EQ(rr.cell(1, 2), RrCell::loss);
    EXPECT_EQ(rr.cell(3, 4), RrCell::win);
    EXPECT_EQ(rr.cell(2, 4), RrCell::none);
    EXPECT_EQ(rr.wins(2), 2);
    EXPECT_EQ(rr.wins(3), 2);
    EXPECT_EQ(rr.wins(1), 0);
    EXPECT_EQ(rr_points_text(4.5), "4.5");
    EXPECT_EQ(rr_points_text(4), "4");
    // Sums of typed tenths show as typed, not with the binary remainder.
    EXPECT_EQ(rr_points_text(0.1 + 0.2), "0.3");
    EXPECT_EQ(rr_points_text(10.5), "10.5");
}

TEST_F(RrSavingTest, LoadingReadsTheDrawBack)
{
    saved_draw(2, lettered(3));
    rr_click_name(session, draw, rr, 3, RrWinner::top);
    RR_copy_over(*db, 1);

    OpenRoundRobin loaded;
    DrawState state;
    load_event_state(*db, 1, state);
    RR_loadroundsdata(*db, state, loaded);
    EXPECT_EQ(state.drawsize, 3);
    EXPECT_EQ(state.min_sid, 1);
    EXPECT_EQ(state.max_sid, 3);
    ASSERT_EQ(loaded.size(), 3);
    ASSERT_EQ(loaded.matches.size(), 3u);
    for (int k = 1; k <= 3; ++k) {
        EXPECT_EQ(loaded.match(k).top, rr.match(k).top);
        EXPECT_EQ(loaded.match(k).bottom, rr.match(k).bottom);
        EXPECT_EQ(loaded.match(k).winner, rr.match(k).winner);
        EXPECT_EQ(loaded.match(k).points1, rr.match(k).points1);
        EXPECT_EQ(loaded.match(k).sid, k);
    }
    EXPECT_EQ(loaded.player(2).player, "Player B");
    EXPECT_EQ(loaded.player(2).psex, "m");
    EXPECT_EQ(loaded.standings.front().nm, "Player B");

    db->run("delete from schedule where eid = 1");
    RR_loadroundsdata(*db, state, loaded);
    EXPECT_EQ(state.drawsize, 0);
    EXPECT_TRUE(loaded.empty());
}

} // namespace
} // namespace qv
