#include "scheduling/board_fixture.h"
#include "scheduling/board_moves.h"
#include "scheduling/match_counters.h"
#include "scheduling/result_places.h"

namespace qv {
namespace {

class MatchCountersTest : public test::BoardFixture
{
protected:
    std::vector<std::int64_t> singles;
    std::vector<std::int64_t> doubles;

    void SetUp() override
    {
        BoardFixture::SetUp();
        singles = first_round(1);
        doubles = first_round(2);
    }

    std::string day_counts(const std::string& sdate)
    {
        return db->scalar_text("select ind || '/' || empty_cnt || live_cnt || unf_cnt || dead_cnt || '/' || "
                               "empty_cnt_ind || live_cnt_ind || unf_cnt_ind || dead_cnt_ind from scheduledays "
                               "where sdate=?",
            sdate);
    }
    std::string court_counts(const std::string& sdate, std::int64_t cid)
    {
        return db->scalar_text("select ind || '/' || empty_cnt || live_cnt || unf_cnt || dead_cnt from "
                               "scheduledays_courts where sdate=? and cid=?",
            sdate, cid);
    }
    std::string numbers(std::int64_t sid) { return column(sid, "matchnumber || '/' || matchnumber_live"); }
};

TEST_F(MatchCountersTest, StateMarks)
{
    StateCounts counts;
    EXPECT_EQ(state_marks(counts), "");
    for (auto state : { "1", "2", "2.1", "3", "0", "x" })
        counts.add(state);
    EXPECT_EQ(counts.total(), 4);
    EXPECT_EQ(state_marks(counts), "+?^¿");
    EXPECT_EQ(state_marks({ 0, 2, 0, 1 }), "?¿");
}

TEST_F(MatchCountersTest, LiveNumbersCountOnlyWhatIsStillToPlay)
{
    place({ singles[0], singles[1], singles[2] }, day1, 2);
    place({ doubles[0] }, day1, 3);
    top_wins(singles[1]);
    db->run("update schedule set match_state='2.1' where sid=?", singles[2]);
    LIVE_MATCH_NUMBERS_DO(*db, day1);
    EXPECT_EQ(numbers(singles[0]), "1/1");
    EXPECT_EQ(numbers(singles[1]), "2/0");
    EXPECT_EQ(numbers(singles[2]), "3/2");
    // A new court starts its counters again.
    EXPECT_EQ(numbers(doubles[0]), "1/1");

    // After a result: the dead match sorts behind every other by its old number.
    live_match_counts(*db, day1, 2);
    EXPECT_EQ(numbers(singles[1]), "2/" + std::to_string(2 + dead_match_offset));
    EXPECT_EQ(numbers(singles[2]), "3/3");
    EXPECT_EQ(court_counts(day1, 2), "?^¿/0111");
    // live_match_counts leaves the single marks of LIVE_MATCH_COUNTS_ALL alone.
    EXPECT_EQ(day_counts(day1), "?^¿/0211/");
    EXPECT_EQ(db->scalar_integer("select count(*) from schedule where todo <> 0"), 0);

    // Renumbering every day sets the dead match back to 0.
    LIVE_MATCH_NUMBERS_DO(*db, "");
    EXPECT_EQ(numbers(singles[1]), "2/0");
}

TEST_F(MatchCountersTest, CountsAllAfterEachKindOfMove)
{
    place({ singles[0], singles[1] }, day1, 1);
    place({ doubles[0] }, day2, -1);
    top_wins(singles[0]);
    LIVE_MATCH_COUNTS_ALL(session);
    EXPECT_EQ(day_counts(day1), "?¿/0101/?¿");
    EXPECT_EQ(court_counts(day1, 1), "?¿/0101");
    EXPECT_EQ(court_counts(day2, -1), "?/0100");
    EXPECT_EQ(day_counts(day3), "/0000/");
    // The no-day row counts what has no day: the later rounds (and the two winner rows) are empty matches,
    // the other first-round matches live.
    EXPECT_EQ(db->scalar_text("select empty_cnt || '/' || live_cnt from scheduledays where idx=0"), "6/3");

    // Up to the clipboard, then to another day's court: the counts follow once counted again.
    show(day1, 1);
    board->show_upper(BoardListId::clipboard);
    select(BoardListId::court, { singles[1] });
    ASSERT_TRUE(move_up(*board));
    LIVE_MATCH_COUNTS_ALL(session);
    EXPECT_EQ(day_counts(day1), "¿/0001/¿");
    EXPECT_EQ(court_counts(day1, 1), "¿/0001");

    select(BoardListId::court, { singles[0] });
    ASSERT_TRUE(WEB_move_from_list4_to(*board, day3, 6));
    board->match_counts();
    EXPECT_EQ(day_counts(day1), "/0000/");
    EXPECT_EQ(court_counts(day3, 6), "¿/0001");
    // The day and court lines show their marks.
    board->choose_day(day3);
    EXPECT_EQ(board->days().back().text, std::string(day3) + " ¿");
    EXPECT_EQ(board->courts().back().text, "court 6 ¿");
    EXPECT_EQ(board->days_label(), "(days 3)");
    EXPECT_EQ(board->courts_label(), "(courts 6)");

    // The whole gathered to the clipboard: no day holds anything.
    gather_to_cb(*board, "2");
    LIVE_MATCH_COUNTS_ALL(session);
    EXPECT_EQ(day_counts(day2), "/0000/");
}

TEST_F(MatchCountersTest, ArraysWidenToAFileLargerThanTheSettingsSay)
{
    place({ singles[0] }, day3, 6);
    session.settings().apply_disk_var("imaxdays", "1");
    session.settings().apply_disk_var("imaxcid", "2");
    LIVE_MATCH_COUNTS_ALL(session);
    EXPECT_EQ(court_counts(day3, 6), "?/0100");
}

TEST_F(MatchCountersTest, TheDrawEngineRenumbersAfterASave)
{
    place({ singles[0], singles[1] }, day1, 4);
    show(day1, 4);
    // A result saved in the draw: do_live_match_counts hands the changed places to the board.
    top_wins(singles[0]);
    const auto hooks = board->draw_save_hooks();
    const auto changed = do_live_match_counts(*db, 1, hooks);
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_EQ(changed[0], (DayCourt { day1, 4 }));
    EXPECT_TRUE(board->refresh_pending());
    EXPECT_EQ(numbers(singles[0]), "1/" + std::to_string(1 + dead_match_offset));
    EXPECT_EQ(court_counts(day1, 4), "?¿/0101");
    EXPECT_EQ(board->courts()[6].text, "court 4 ?¿");
    EXPECT_NE(board->list(BoardListId::court).line(0).text.find('*'), std::string::npos);
}

TEST_F(MatchCountersTest, AResultUnderSaveAsUGoNamesTheMatchesItTouches)
{
    place({ singles[0] }, day1, 2);
    OpenDraw open;
    BF_load_draw(session, open, 1);
    ASSERT_TRUE(open.draw.on_screen);
    // A winner sent on from slot 1: its own match and the semi-final it enters.
    const auto sids = changed_matches(open, 1, 1);
    ASSERT_EQ(sids.size(), 2u);
    EXPECT_EQ(sids[0], singles[0]);
    EXPECT_EQ(column(sids[1], "rname"), "semis");
    // A name taken back at level 2 touches the match that fed it as well.
    EXPECT_EQ(changed_matches(open, 2, 1).size(), 3u);
    EXPECT_EQ(match_places(*db, sids), (std::vector<DayCourt> { { day1, 2 }, { "", 0 } }));
    EXPECT_EQ(event_sids(*db, 2).size(), 4u);
}

TEST_F(MatchCountersTest, HeldLinesOfAnEventAreReadAgainAfterItsSave)
{
    place({ singles[0], doubles[0] }, day2, 1);
    show(day2, 1);
    ASSERT_TRUE(board->set_hold(BoardListId::court, true));
    const auto before = board->list(BoardListId::court).line(1).text;
    top_wins(singles[0]);
    top_wins(doubles[0]);
    board->refresh_event(1);
    // The singles line shows its winner; the doubles line waits for its own event.
    EXPECT_NE(board->list(BoardListId::court).line(0).text.find('*'), std::string::npos);
    EXPECT_EQ(board->list(BoardListId::court).line(1).text, before);
    EXPECT_TRUE(board->update_line(BoardListId::court, doubles[0]));
    EXPECT_NE(board->list(BoardListId::court).line(1).text.find("64 64"), std::string::npos);
    EXPECT_FALSE(board->update_line(BoardListId::unscheduled, doubles[0]));
}

} // namespace
} // namespace qv
