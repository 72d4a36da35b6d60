#include "core/text_rules.h"
#include "core/utf8.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_fixture.h"

#include <gtest/gtest.h>
#include <set>

namespace qv {
namespace {

using test::RrEntry;
using RrDrawTest = test::RrFixture;

TEST(RrPairings, FollowTheOrderOfTheGroup)
{
    EXPECT_EQ(rr_pairings(2), (std::vector<std::pair<int, int>> { { 1, 2 } }));
    const std::vector<std::pair<int, int>> eight { { 1, 2 }, { 1, 3 }, { 1, 4 }, { 1, 5 }, { 1, 6 }, { 1, 7 }, { 1, 8 },
        { 2, 3 }, { 2, 4 }, { 2, 5 }, { 2, 6 }, { 2, 7 }, { 2, 8 }, { 3, 4 }, { 3, 5 }, { 3, 6 }, { 3, 7 }, { 3, 8 },
        { 4, 5 }, { 4, 6 }, { 4, 7 }, { 4, 8 }, { 5, 6 }, { 5, 7 }, { 5, 8 }, { 6, 7 }, { 6, 8 }, { 7, 8 } };
    EXPECT_EQ(rr_pairings(8), eight);
    for (int n = 2; n <= 8; ++n)
        EXPECT_EQ(static_cast<int>(rr_pairings(n).size()), total_matches(n)) << n;
    EXPECT_EQ(total_matches(8), 28);
}

TEST_F(RrDrawTest, TwoPlayersMakeOneMatchAndOneRow)
{
    // Entered in the other order: the numbers follow the names.
    add_event(3, { { "Bob", "Brown" }, { "Al", "Adams" } });
    db->run("insert into schedule (sid, eid) values (40, 9)");

    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    EXPECT_TRUE(talk.said.empty());
    EXPECT_TRUE(draw.new_draw);
    EXPECT_TRUE(draw.on_screen);
    EXPECT_EQ(draw.drawsize, 2);
    ASSERT_EQ(rr.size(), 2);
    EXPECT_EQ(rr.player(1).player, "Al Adams");
    EXPECT_EQ(rr.player(2).player, "Bob Brown");
    ASSERT_EQ(rr.matches.size(), 1u);
    EXPECT_EQ(rr.match(1).top, 1);
    EXPECT_EQ(rr.match(1).bottom, 2);
    EXPECT_EQ(rr.match(1).points1, "0");
    EXPECT_EQ(rr.match(1).points2, "0");
    EXPECT_EQ(rr.match(1).score, "");
    // Nothing reaches schedule before the save.
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where eid = 1"), 0);

    add_draw_stub_RR(*db, draw, rr);
    auto row = db->query("select * from schedule where eid = 1");
    ASSERT_TRUE(row.step());
    EXPECT_EQ(row.integer("sid"), 41);
    EXPECT_EQ(row.integer("ds"), 2);
    EXPECT_EQ(row.integer("rid"), 1);
    EXPECT_EQ(row.integer("match"), 1);
    EXPECT_EQ(row.integer("maxrounds"), 1);
    EXPECT_EQ(row.text("rname"), "match 1/1");
    EXPECT_EQ(row.text("rsname"), "1/1");
    EXPECT_EQ(row.text("mt"), "1");
    EXPECT_EQ(row.text("mb"), "2");
    EXPECT_EQ(row.text("match_state"), "2");
    EXPECT_EQ(row.text("points1"), "0");
    EXPECT_EQ(row.text("points2"), "0");
    EXPECT_EQ(row.integer("matchtime_int"), -1);
    EXPECT_EQ(row.text("drawtype"), "rr");
    EXPECT_EQ(row.text("singdobs"), "singles");
    EXPECT_EQ(row.text("eventname"), "group a");
    EXPECT_EQ(row.text("evtsex"), "male");
    EXPECT_EQ(row.text("mtttt"), "");
    EXPECT_EQ(row.text("matchscore"), "");
    EXPECT_FALSE(row.step());
    EXPECT_EQ(rr.match(1).sid, 41);
    EXPECT_EQ(db->scalar_integer("select min_sid from events where eid = 1"), 41);
    EXPECT_EQ(db->scalar_integer("select max_sid from events where eid = 1"), 41);
}

TEST_F(RrDrawTest, EightPlayersMakeTwentyEightRowsInPairingOrder)
{
    add_event(1, lettered(8));
    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    add_draw_stub_RR(*db, draw, rr);

    const auto pairs = rr_pairings(8);
    int k = 0;
    for (auto row = db->query(R"(select * from schedule where eid = 1 order by sid)"); row.step(); ++k) {
        const auto& [top, bottom] = pairs[static_cast<std::size_t>(k)];
        EXPECT_EQ(row.integer("sid"), k + 1);
        EXPECT_EQ(row.integer("match"), k + 1);
        EXPECT_EQ(row.integer("rid"), k + 1);
        EXPECT_EQ(row.integer("maxrounds"), 28);
        EXPECT_EQ(row.integer("ds"), 8);
        EXPECT_EQ(row.text("rname"), "match " + std::to_string(k + 1) + "/28");
        EXPECT_EQ(row.text("rsname"), std::to_string(k + 1) + "/28");
        EXPECT_EQ(row.text("mt"), std::to_string(top));
        EXPECT_EQ(row.text("mb"), std::to_string(bottom));
        // Mode 1 opens every score as "0/0".
        EXPECT_EQ(rr.match(k + 1).score, "0/0");
    }
    EXPECT_EQ(k, 28);
    EXPECT_EQ(draw.min_sid, 1);
    EXPECT_EQ(draw.max_sid, 29);
}

struct RefusalCase
{
    int players;
    int reserves;
    bool all_draws;
    bool made;
    std::string message;
};

TEST_F(RrDrawTest, GroupsOutsideTwoToEightAreRefused)
{
    const std::string wrong_size = "round robin format is for 2-8 players,edit in draw config";
    const RefusalCase cases[] = {
        { 0, 0, false, false, "no players" },
        { 0, 3, false, false, "no players" },
        { 1, 0, false, false, wrong_size },
        { 9, 0, false, false, wrong_size },
        { 8, 3, false, true, "" },
        // "do all draws" passes over an empty event in silence, but not over a group of the wrong size.
        { 0, 0, true, false, "" },
        { 1, 0, true, false, wrong_size },
        { 9, 0, true, false, wrong_size },
    };
    std::int64_t eid = 1;
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.players) + " players, " + std::to_string(c.reserves) + " reserves"
            + (c.all_draws ? ", all draws" : ""));
        db->run("insert into events (eid, eventname, drawtype, pts) values (?, 'e', 'rr', 2)", eid);
        for (int k = 0; k < c.players + c.reserves; ++k)
            db->run("insert into evententries (eid, player, playerfname, reserve) values (?, ?, ?, ?)", eid,
                "n" + std::to_string(k), "n" + std::to_string(k), k >= c.players);
        DrawState state;
        load_event_state(*db, eid, state);
        state.all_draws = c.all_draws;
        rr.players.push_back({}); // left from an earlier draw
        talk.clear();
        const bool made = RR_do_draw(session, state, rr);
        EXPECT_EQ(made, c.made);
        EXPECT_EQ(talk.last_message(), c.message);
        EXPECT_EQ(rr.size(), made ? c.players : 0);
        EXPECT_EQ(state.new_draw, made);
        ++eid;
    }
}

TEST_F(RrDrawTest, NameFormsAreUniqueInTheTableAndReachTheMatchLines)
{
    // Both surnames are too long for 18 characters with the first names; the initials tell them apart.
    add_event(2, { { "Christopher", "Worthingtonshire" }, { "Catherine", "Worthingtonshire" }, { "Zed", "Ray" } });
    ASSERT_TRUE(RR_do_draw(session, draw, rr));

    EXPECT_EQ(rr.player(1).player, "Catherine Worthingtonshire");
    EXPECT_EQ(rr.player(1).frn, "C.Worthingtonshire");
    // The first row took the initial form; the second finds it taken and falls to the next candidate.
    EXPECT_EQ(rr.player(2).frn, "CWorthingtonshire");
    EXPECT_EQ(rr.player(3).frn, "Zed Ray");
    EXPECT_EQ(rr.player(3).psex, "m");
    std::set<std::string> frns;
    for (const auto& p : rr.players)
        EXPECT_TRUE(frns.insert(name_key(p.frn)).second) << p.frn;

    for (const auto& m : rr.matches) {
        EXPECT_EQ(m.top_names.frn, rr.player(m.top).frn);
        EXPECT_EQ(m.top_names.ttt, rr.player(m.top).player);
        EXPECT_EQ(m.bottom_names.tag, rr.player(m.bottom).tag);
    }
    EXPECT_EQ(rr.match(3).top_names.frn, "CWorthingtonshire");
    EXPECT_EQ(rr.match(3).bottom_names.frn, "Zed Ray");
}

TEST(RrUnique, LooksOnlyAtTheNameColumn)
{
    OpenRoundRobin rr;
    rr.players.push_back({ 1, "Anna Long Surname", "", "", "A.Long", "f", "Long" });
    EXPECT_FALSE(k_isunique_rr(rr, " a.LONG "));
    EXPECT_TRUE(k_isunique_rr(rr, "Anna Long Surname"));
    EXPECT_TRUE(k_isunique_rr(rr, "Long"));
}

TEST_F(RrDrawTest, CountriesArePulledWhenTheSettingAsks)
{
    session.settings().apply_disk_var("refresh_ac_on_do_draw", "1");
    add_event(3, { { "Al", "Adams", false, "old" }, { "Bo", "Berg" } });
    db->run("insert into players (pid, fname, sname, player, country, availabilityrestrictions) values "
            "(1, 'Al', 'Adams', 'Al Adams', 'NZL', 'mornings')");
    ASSERT_TRUE(RR_do_draw(session, draw, rr));
    EXPECT_EQ(rr.player(1).country, "NZL");
    EXPECT_EQ(rr.player(1).ar, ".");
    EXPECT_EQ(rr.player(2).country, "");
}

} // namespace
} // namespace qv
