#include "scheduling/add_result.h"
#include "scheduling/board_fixture.h"
#include "scheduling/board_times.h"

namespace qv::test {
namespace {

class AddResultTest : public BoardFixture
{
protected:
    MatchResult result(std::int64_t sid, ResultWinner winner, std::string score = "64 64")
    {
        MatchResult r;
        r.sid = sid;
        r.winner = winner;
        r.matchscore = std::move(score);
        r.matchlongscore = r.matchscore.empty() ? "" : r.matchscore + " (long)";
        return r;
    }
    AfterResult add(std::int64_t sid, ResultWinner winner, OnSave onsave = OnSave::beep_confirm)
    {
        return BF_add_result(*board, result(sid, winner), onsave);
    }
    std::int64_t sid_of(std::int64_t eid, const std::string& mt)
    {
        return db->scalar_integer("select sid from schedule where eid=? and mt=?", eid, mt);
    }
};

TEST_F(AddResultTest, LoadsidDetailsFollowTheMatchAndItsPlace)
{
    const auto sid = first_round(1).front();
    auto loaded = loadsid(session, sid);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->details,
        (std::vector<std::string> { "day/time=unscheduled", "event id=1", "eventname=mens singles", "drawtype=ko",
            "round=quaters", "match id=" + std::to_string(sid), "court=0" }));
    EXPECT_EQ(loaded->top.substr(0, loaded->mttag.size()), loaded->mttag);
    EXPECT_FALSE(loaded->locked);
    EXPECT_EQ(loaded->following_sid, sid_of(1, "2.1"));

    place({ sid }, day1, 2);
    loaded = loadsid(session, sid);
    EXPECT_EQ(loaded->details.front(), std::string("day=") + day1);
    EXPECT_EQ(loaded->details.back(), "court=2");
    WEB_updatematchtimecall(*db, sid, "nb ", "09:30");
    EXPECT_EQ(loadsid(session, sid)->details.front(), std::string("day/time=") + day1 + "/09:30");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(AddResultTest, TheWinnerRowLoadsNothingAndAMissingSidIsReported)
{
    const auto winner_row = db->scalar_integer("select sid from schedule where eid=1 and rname='winner'");
    EXPECT_FALSE(loadsid(session, winner_row));
    EXPECT_TRUE(talk.said.empty());
    EXPECT_FALSE(loadsid(session, 9999));
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "9999 not found" });
}

TEST_F(AddResultTest, AWinnerGoesOnWithLiveAndShadowColumns)
{
    const auto r1 = first_round(1);
    ASSERT_EQ(add(r1[0], ResultWinner::top), AfterResult::stay);
    EXPECT_EQ(column(r1[0], "mwttt"), column(r1[0], "mtttt"));
    EXPECT_EQ(column(r1[0], "imwtag"), column(r1[0], "mttag"));
    EXPECT_EQ(column(r1[0], "matchscore"), "64 64");
    EXPECT_EQ(column(r1[0], "imatchlongscore"), "64 64 (long)");
    EXPECT_EQ(column(r1[0], "match_state"), "3");
    EXPECT_EQ(number(r1[0], "changed"), 0);

    const auto semi = sid_of(1, "2.1");
    EXPECT_EQ(column(semi, "mtttt"), column(r1[0], "mtttt"));
    EXPECT_EQ(column(semi, "imttag"), column(r1[0], "mttag"));
    EXPECT_EQ(column(semi, "match_state"), "1");
    ASSERT_EQ(add(r1[1], ResultWinner::bottom), AfterResult::stay);
    EXPECT_EQ(column(semi, "mbttt"), column(r1[1], "mbttt"));
    EXPECT_EQ(column(semi, "p3"), column(r1[1], "mbttt"));
    EXPECT_EQ(column(semi, "match_state"), "2");

    // A changed winner replaces the name in the next round; a cleared one empties it.
    ASSERT_EQ(add(r1[1], ResultWinner::top), AfterResult::stay);
    EXPECT_EQ(column(semi, "mbttt"), column(r1[1], "mtttt"));
    ASSERT_EQ(BF_add_result(*board, result(r1[1], ResultWinner::none, "ret"), OnSave::beep_confirm), AfterResult::stay);
    EXPECT_EQ(column(r1[1], "mwttt"), "");
    EXPECT_EQ(column(r1[1], "matchscore"), "ret");
    EXPECT_EQ(column(semi, "mbttt"), "");
    EXPECT_EQ(column(r1[1], "match_state"), "2");
}

TEST_F(AddResultTest, StatesOfTheRowsWrittenFollowTheEventsRules)
{
    const auto r1 = first_round(1);
    const auto semi = sid_of(1, "2.1");
    add(r1[0], ResultWinner::top);
    add(r1[1], ResultWinner::top);
    db->run("update schedule set match_state='2.1' where sid=?", semi);
    add(r1[1], ResultWinner::bottom); // an unfinished match keeps its mark when a side changes
    EXPECT_EQ(column(semi, "match_state"), "2.1");
    add(r1[2], ResultWinner::top);
    BF_add_result(*board, result(r1[3], ResultWinner::none, ""), OnSave::beep_confirm);
    std::vector<std::string> states;
    for (auto q = db->query("select match_state from schedule order by sid"); q.step();)
        states.push_back(q.text(0));
    recompute_match_states(*db, 1);
    std::vector<std::string> recomputed;
    for (auto q = db->query("select match_state from schedule order by sid"); q.step();)
        recomputed.push_back(q.text(0));
    EXPECT_EQ(states, recomputed);
}

TEST_F(AddResultTest, AMatchWhoseNextRoundIsPlayedCannotBeChanged)
{
    const auto r1 = first_round(1);
    add(r1[0], ResultWinner::top);
    add(r1[1], ResultWinner::top);
    add(sid_of(1, "2.1"), ResultWinner::top);
    const auto loaded = loadsid(session, r1[0]);
    EXPECT_TRUE(loaded->locked);
    EXPECT_EQ(loaded->following_sid, sid_of(1, "2.1"));
    EXPECT_EQ(loaded->winner, ResultWinner::top);
    talk.clear();

    EXPECT_EQ(add(r1[0], ResultWinner::bottom), AfterResult::refused);
    EXPECT_EQ(talk.messages(), std::vector<std::string> { "following round played, cannot change winner" });
    EXPECT_EQ(column(r1[0], "mwttt"), column(r1[0], "mtttt"));
    EXPECT_EQ(column(sid_of(1, "2.1"), "mtttt"), column(r1[0], "mtttt"));
}

TEST_F(AddResultTest, TheSaveTestsTheScoresInTheirOrder)
{
    struct Case
    {
        const char* drawtype;
        const char* score;
        const char* longscore;
        const char* points1;
        const char* expected;
    };
    const Case cases[] = {
        { "ko", "6-3\u00BF", "", "0", "short score cannot contain the character \u00BF" },
        { "ko", "6-3~", "6-3 \u00BF", "0", "long score cannot contain the character \u00BF" },
        { "ko", "6-3~", "", "0", "short score cannot contain the character ~" },
        { "ko", "6-3", "64~", "0", "long score cannot contain the character ~" },
        { "ko", "6-3", "6-3 6-4", "2a", "" },
        { "rr", "6-3\u00BF", "", "0", "rr score cannot contain the character \u00BF" },
        { "rr", "6-3", "x~", "0", "rr long score cannot contain the character ~" },
        { "rr", "6-3", "", "2a", "invalid character for double" },
        { "rr", "6-3", "", "2.5", "" },
    };
    for (const auto& c : cases) {
        talk.clear();
        MatchResult r;
        r.matchscore = c.score;
        r.matchlongscore = c.longscore;
        r.points1 = c.points1;
        r.points2 = "1";
        const bool passed = check_result_texts(talk, c.drawtype, r);
        EXPECT_EQ(passed, std::string(c.expected).empty()) << c.score;
        EXPECT_EQ(talk.last_message().substr(0, std::string(c.expected).size()), c.expected) << c.score;
    }
    EXPECT_EQ(filter_text("6-3\u00BF ~"), "6-3 ");
}

TEST_F(AddResultTest, RoundRobinModesMakeScoreOrPoints)
{
    MatchResult r;
    r.points1 = "3";
    r.points2 = "1";
    rr_result_mode(1, r);
    EXPECT_EQ(r.matchscore, "3/1");
    r.points1 = "";
    r.points2 = "";
    rr_result_mode(1, r);
    EXPECT_EQ(r.matchscore, "0/0");
    r.winner = ResultWinner::bottom;
    rr_result_mode(2, r);
    EXPECT_EQ(r.points1 + "," + r.points2, "0,1");
    r.winner = ResultWinner::none;
    rr_result_mode(2, r);
    EXPECT_EQ(r.points1 + "," + r.points2, "0,0");
    r.matchscore = "typed";
    rr_result_mode(3, r);
    EXPECT_EQ(r.matchscore, "typed");
}

TEST_F(AddResultTest, TheBoardFollowsAResult)
{
    const auto r1 = first_round(1);
    place({ r1[0], r1[1] }, day1, 1);
    show(day1, 1);
    add(r1[0], ResultWinner::top);
    const auto court = board->list(BoardListId::court);
    const auto row = court.find(r1[0]);
    ASSERT_TRUE(row);
    EXPECT_NE(court.line(*row).text.find('*'), std::string::npos);
    EXPECT_EQ(
        db->scalar_text("select ind from scheduledays_courts where sdate=? and cid=1", std::string(day1)), "?\u00BF");
    EXPECT_EQ(number(r1[0], "matchnumber_live"), number(r1[0], "matchnumber") + 1147483647);

    // Held: the line is patched in place and the lists are not read again.
    session.settings().set_disk_var("hold_refresh_on_add_result", "1");
    board->list(BoardListId::court).set_selected(0, true);
    add(r1[1], ResultWinner::top);
    EXPECT_TRUE(board->list(BoardListId::court).line(0).selected);
    EXPECT_EQ(
        db->scalar_text("select ind from scheduledays_courts where sdate=? and cid=1", std::string(day1)), "\u00BF");
}

TEST_F(AddResultTest, TheUnscheduledListIsPatchedAsAReloadWouldShowIt)
{
    board->set_tick(BoardListId::unscheduled, "empty", false);
    board->set_tick(BoardListId::unscheduled, "dead", false);
    const auto r1 = first_round(1);
    for (auto sid : { r1[0], r1[1], r1[3], first_round(2)[0], r1[2] })
        add(sid, ResultWinner::top);
    const auto patched = board->list(BoardListId::unscheduled).lines();
    const auto counts = board->counts(BoardListId::unscheduled);
    board->loadschedule();
    const auto& reloaded = board->list(BoardListId::unscheduled).lines();
    ASSERT_EQ(patched.size(), reloaded.size());
    for (std::size_t i = 0; i < patched.size(); ++i) {
        EXPECT_EQ(patched[i].sid, reloaded[i].sid) << i;
        EXPECT_EQ(patched[i].text, reloaded[i].text) << i;
    }
    EXPECT_EQ(counts, board->counts(BoardListId::unscheduled));
    EXPECT_EQ(counts.dead, 5);
}

TEST_F(AddResultTest, TheConfirmationFollowsTheChoice)
{
    const auto r1 = first_round(1);
    EXPECT_EQ(add(r1[0], ResultWinner::top, OnSave::beep_confirm), AfterResult::stay);
    ASSERT_EQ(talk.said.size(), 1u);
    EXPECT_EQ(talk.said.back().kind, "beep");
    EXPECT_EQ(add(r1[1], ResultWinner::top, OnSave::ok_confirm), AfterResult::stay);
    EXPECT_EQ(talk.last_message(), "ok");
    talk.clear();
    EXPECT_EQ(add(r1[2], ResultWinner::top, OnSave::close_confirm), AfterResult::close);
    EXPECT_TRUE(talk.said.empty());
    for (auto onsave : { OnSave::beep_confirm, OnSave::ok_confirm, OnSave::close_confirm })
        EXPECT_EQ(onsave_from_caption(onsave_caption(onsave)), onsave);
}

} // namespace
} // namespace qv::test
