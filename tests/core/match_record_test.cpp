#include "core/database.h"
#include "core/match_record.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qv {
namespace {

struct Row
{
    std::int64_t sid;
    std::int64_t eid;
    const char* rname;
    const char* top;
    const char* bottom;
    const char* winner;
    const char* state;
};

class MatchRecordTest : public ::testing::Test
{
protected:
    MatchRecordTest()
        : tournament(app.new_tournament())
    {
    }

    void insert(const Row& r)
    {
        tournament.run("insert into schedule(sid, eid, rname, mtttt, mbttt, mwttt, match_state) values (?,?,?,?,?,?,?)",
            r.sid, r.eid, r.rname, r.top, r.bottom, r.winner, r.state);
    }
    std::string state(std::int64_t sid)
    {
        return tournament.scalar_text("select match_state from schedule where sid = ?", sid);
    }
    void set_winner(std::int64_t sid, const char* winner)
    {
        tournament.run("update schedule set mwttt = ? where sid = ?", winner, sid);
    }

    test::TempAppDir app;
    Database tournament;
};

// Rows of event 1 and the state each must end in.
const Row one_event[] = {
    { 1, 1, "r1", "bye", "smith", "", "1" },
    { 2, 1, "r1", "smith", "bye", "smith", "3" },
    { 3, 1, "r1", "bye", "bye", "", "2" },
    { 4, 1, "r1", "", "jones", "", "2" },
    { 5, 1, "r1", "ann", "bea", "", "1" },
    { 6, 1, "r1", "ann", "bea", "", "2.1" },
    { 7, 1, "r1", "ann", "bea", "ann", "2.1" },
    { 8, 1, "r1", "ann", "bea", "", "3" },
    { 9, 1, "r1", "", "", "", "2" },
    { 10, 1, "winner", "ann", "", "", "1" },
    { 11, 1, "r1", "Bye", "ann", "", "1" },
};
const char* const one_event_expected[] = { "0", "0", "0", "1", "2", "2.1", "3", "2", "1", "1", "0" };

TEST_F(MatchRecordTest, StatesFollowTheNamesForOneEventAndForAll)
{
    for (const bool all : { false, true }) {
        tournament.run("delete from schedule");
        for (const auto& r : one_event)
            insert(r);
        all ? recompute_all_match_states(tournament) : recompute_match_states(tournament, 1);
        for (std::size_t i = 0; i < std::size(one_event); ++i)
            EXPECT_EQ(state(one_event[i].sid), one_event_expected[i]) << "sid " << one_event[i].sid << " all " << all;
    }
}

TEST_F(MatchRecordTest, UnfinishedMatchGetsAWinnerAndLosesIt)
{
    insert({ 1, 1, "final", "ann", "bea", "", "2.1" });
    recompute_match_states(tournament, 1);
    EXPECT_EQ(state(1), "2.1");
    set_winner(1, "bea");
    recompute_match_states(tournament, 1);
    EXPECT_EQ(state(1), "3");
    set_winner(1, "");
    recompute_match_states(tournament, 1);
    EXPECT_EQ(state(1), "2");
}

TEST_F(MatchRecordTest, EventTermBindsOnlyToTheLastOrTerm)
{
    insert({ 1, 1, "r1", "ann", "bea", "", "1" });
    // Rows of event 2 in a state no statement would give, to see which ones are touched.
    const struct
    {
        Row row;
        const char* expected;
    } others[] = {
        { { 20, 2, "r1", "", "cid", "", "9" }, "1" },
        { { 21, 2, "r1", "bye", "cid", "", "9" }, "0" },
        { { 22, 2, "r1", "cid", "", "", "9" }, "9" },
        { { 23, 2, "r1", "cid", "bye", "", "9" }, "9" },
        { { 24, 2, "r1", "cid", "dot", "", "9" }, "9" },
        { { 25, 2, "r1", "cid", "dot", "cid", "9" }, "9" },
    };
    for (const auto& o : others)
        insert(o.row);
    recompute_match_states(tournament, 1);
    EXPECT_EQ(state(1), "2");
    for (const auto& o : others)
        EXPECT_EQ(state(o.row.sid), o.expected) << "sid " << o.row.sid;

    recompute_all_match_states(tournament);
    EXPECT_EQ(state(22), "1");
    EXPECT_EQ(state(23), "0");
    EXPECT_EQ(state(24), "2");
    EXPECT_EQ(state(25), "3");
}

TEST_F(MatchRecordTest, MatchNamesSplitsPairsAndSkipsReservedNames)
{
    insert({ 1, 1, "r1", "smith john/jones bob", "qualifier 1", "", "1" });
    insert({ 2, 1, "r1", "bye", "ann lee", "", "0" });
    insert({ 3, 1, "r1", "Wildcard 2", "lee ann/kay mo", "", "2" });
    insert({ 4, 1, "r1", "", "", "", "1" });
    test::ScriptedTalk talk;
    EXPECT_EQ(match_names(tournament, talk, 1), (std::vector<std::string> { "smith john", "jones bob" }));
    EXPECT_EQ(match_names(tournament, talk, 2), (std::vector<std::string> { "ann lee" }));
    EXPECT_EQ(match_names(tournament, talk, 3), (std::vector<std::string> { "lee ann", "kay mo" }));
    EXPECT_TRUE(match_names(tournament, talk, 4).empty());
    EXPECT_TRUE(talk.said.empty());

    EXPECT_TRUE(match_names(tournament, talk, 99).empty());
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "99 not found,stale data" });
}

TEST(CourtCodeWordsTest, EachMappingKnowsItsOwnCodes)
{
    const struct
    {
        std::int64_t cid;
        const char* paren;
        const char* word;
        const char* court_list;
    } cases[] = {
        { -1, "(fa)", "fa", "fa" },
        { -2, "-2", "cb", "cb" },
        { -3, "(tbc)", "tbc", "tbc" },
        { -4, "-4", "dcb", "dcb" },
        { 0, "0", "0", "0" },
        { 12, "12", "12", "12" },
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cid_paren_word(c.cid), c.paren) << c.cid;
        EXPECT_EQ(cid_word(c.cid), c.word) << c.cid;
        EXPECT_EQ(court_list_cid_word(c.cid), c.court_list) << c.cid;
    }
}

} // namespace
} // namespace qv
