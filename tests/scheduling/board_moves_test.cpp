#include "scheduling/board_fixture.h"
#include "scheduling/board_moves.h"

namespace qv {
namespace {

class BoardMovesTest : public test::BoardFixture
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

    std::string place_of(std::int64_t sid)
    {
        return column(sid, "scheduledate || '/' || day_idx || '/' || cid || '/' || matchnumber");
    }
    std::string time_of(std::int64_t sid) { return column(sid, "nbat || matchtime || '/' || matchtime_int"); }
    void hold(BoardListId which) { ASSERT_TRUE(board->set_hold(which, true)); }
};

TEST_F(BoardMovesTest, DownRefusesInOrderAndChangesNothing)
{
    EXPECT_FALSE(move_down(*board));
    EXPECT_EQ(talk.last_message(), "select match");
    select(BoardListId::unscheduled, { singles[0] });
    EXPECT_FALSE(move_down(*board));
    EXPECT_EQ(talk.last_message(), "select day");
    board->choose_day(day1);
    EXPECT_FALSE(move_down(*board));
    EXPECT_EQ(talk.last_message(), "select court");
    EXPECT_EQ(place_of(singles[0]), "/0/0/0");
}

TEST_F(BoardMovesTest, DownPlacesNumbersAndKeepsTimes)
{
    db->run("update schedule set nbat='at ', matchtime='11:00', matchtime_int=660 where sid=?", singles[1]);
    const auto before = board->max_matchnumber();
    show(day2, 4);
    select(BoardListId::unscheduled, { singles[0], singles[1], doubles[0] });
    ASSERT_TRUE(move_down(*board));

    // In list order (events by eid, then match), numbered 1..n once the day is renumbered.
    EXPECT_EQ(place_of(singles[0]), std::string(day2) + "/2/4/1");
    EXPECT_EQ(place_of(singles[1]), std::string(day2) + "/2/4/2");
    EXPECT_EQ(place_of(doubles[0]), std::string(day2) + "/2/4/3");
    EXPECT_EQ(number(singles[1], "matchnumber_live"), 2);
    EXPECT_EQ(time_of(singles[1]), "at 11:00/660");
    EXPECT_EQ(board->max_matchnumber(), before + 3);

    // Not on hold: both lists were read again.
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { singles[0], singles[1], doubles[0] }));
    EXPECT_EQ(board->list(BoardListId::unscheduled).find(singles[0]), std::nullopt);
    EXPECT_EQ(line_fields(board->list(BoardListId::court).line(1).text)[4], "at 11:00");
    EXPECT_TRUE(talk.said.empty());
}

TEST_F(BoardMovesTest, UpFreesTheMatchAndItsTimeAndCourtToCourtKeepsIt)
{
    place({ singles[0], singles[1], singles[2] }, day1, 1);
    db->run("update schedule set nbat='nb ', matchtime='09:30', matchtime_int=570 where sid in (?, ?)", singles[0],
        singles[1]);
    show(day1, 1);

    // Court to court: times stay; the same court is no move at all.
    select(BoardListId::court, { singles[1] });
    EXPECT_FALSE(WEB_move_from_list4_to(*board, day1, 1));
    ASSERT_TRUE(WEB_move_from_list4_to(*board, day3, -1));
    // Only the day in hand is renumbered: on its new day the match keeps its running number.
    EXPECT_EQ(place_of(singles[1]), std::string(day3) + "/3/-1/4");
    EXPECT_EQ(time_of(singles[1]), "nb 09:30/570");
    // The day in hand renumbered: what stayed is 1, 2.
    EXPECT_EQ(number(singles[2], "matchnumber"), 2);

    // Up to the unscheduled list: the time goes.
    select(BoardListId::court, { singles[0] });
    ASSERT_TRUE(move_up(*board));
    EXPECT_EQ(place_of(singles[0]), "/0/0/0");
    EXPECT_EQ(time_of(singles[0]), "/-1");
    EXPECT_EQ(number(singles[0], "matchnumber_live"), 0);
    EXPECT_TRUE(board->list(BoardListId::unscheduled).find(singles[0]));

    // Up to the clipboard on show takes the next number; to a hidden clipboard 0.
    board->show_upper(BoardListId::clipboard);
    select(BoardListId::court, { singles[2] });
    ASSERT_TRUE(move_up(*board));
    EXPECT_EQ(number(singles[2], "cid"), -2);
    EXPECT_EQ(number(singles[2], "matchnumber"), board->max_matchnumber());
    board->show_upper(BoardListId::unscheduled);
    show(day3, -1);
    select(BoardListId::court, { singles[1] });
    ASSERT_TRUE(copy_court_to_clipboard(*board));
    EXPECT_EQ(place_of(singles[1]), "/0/-2/0");
    EXPECT_EQ(time_of(singles[1]), "/-1");
}

TEST_F(BoardMovesTest, HeldListsArePatchedLineByLine)
{
    show(day1, 2);
    hold(BoardListId::unscheduled);
    hold(BoardListId::court);
    db->run("update schedule set nbat='at ', matchtime='12:00', matchtime_int=720 where sid=?", singles[3]);
    const auto upper_before = board->list(BoardListId::unscheduled).size();

    select(BoardListId::unscheduled, { singles[3] });
    ASSERT_TRUE(move_down(*board));
    // The line was carried over with eight blanks for its time, though the match keeps its time.
    ASSERT_EQ(board->list(BoardListId::court).size(), 1);
    EXPECT_EQ(line_fields(board->list(BoardListId::court).line(0).text)[4], "        ");
    EXPECT_EQ(line_fields(board->list(BoardListId::court).line(0).text)[7], day1);
    EXPECT_EQ(time_of(singles[3]), "at 12:00/720");
    EXPECT_EQ(board->list(BoardListId::unscheduled).size(), upper_before - 1);

    // A move to a court that is not on display leaves the court list alone.
    choose(day1, 3);
    select(BoardListId::unscheduled, { singles[0] });
    ASSERT_TRUE(move_down(*board));
    EXPECT_EQ(board->list(BoardListId::court).size(), 1);

    // Back up: the line returns to the held list, translated.
    select(BoardListId::court, { singles[3] });
    ASSERT_TRUE(move_up(*board));
    EXPECT_TRUE(board->list(BoardListId::court).empty());
    const auto row = board->list(BoardListId::unscheduled).find(singles[3]);
    ASSERT_TRUE(row);
    EXPECT_EQ(line_fields(board->list(BoardListId::unscheduled).line(*row).text).size(), 7u);

    // A held list that grew too long cannot be held again.
    board->set_hold(BoardListId::clipboard, false);
    std::vector<BoardLine> many(BoardList::hold_limit);
    board->list(BoardListId::clipboard).assign(many);
    EXPECT_FALSE(board->set_hold(BoardListId::clipboard, true));
    EXPECT_EQ(talk.last_message(), "cb is full,cannot hold refresh");
    board->list(BoardListId::court).set_on_hold(false);
    board->list(BoardListId::court).assign(many);
    EXPECT_FALSE(board->set_hold(BoardListId::court, true));
    EXPECT_EQ(talk.last_message(), "list is full,cannot hold refresh");
    many.pop_back();
    board->list(BoardListId::court).assign(many);
    EXPECT_TRUE(board->set_hold(BoardListId::court, true));
    EXPECT_EQ(session.settings().text("schedule_hfr_lower"), "1");
}

TEST_F(BoardMovesTest, ClipboardMovesAndPaste)
{
    select(BoardListId::unscheduled, { singles[0], singles[2], doubles[1] });
    ASSERT_TRUE(NET_move_sel_schedule_to_cb(*board));
    // A running count within the operation.
    EXPECT_EQ(place_of(singles[0]), "/0/-2/1");
    EXPECT_EQ(place_of(singles[2]), "/0/-2/2");
    EXPECT_EQ(place_of(doubles[1]), "/0/-2/3");
    EXPECT_EQ(sids_of(BoardListId::clipboard), (std::vector<std::int64_t> { singles[0], singles[2], doubles[1] }));

    // Back to the schedule: the number stays.
    select(BoardListId::clipboard, { singles[2] });
    ASSERT_TRUE(NET_move_sel_cb_to_schedule(*board));
    EXPECT_EQ(place_of(singles[2]), "/0/0/2");

    // "order by added" lists by number.
    db->run("update schedule set matchnumber=9 where sid=?", singles[0]);
    board->loadcb(ScheduleBoard::CbOrder::by_added);
    EXPECT_EQ(sids_of(BoardListId::clipboard), (std::vector<std::int64_t> { doubles[1], singles[0] }));

    // Paste all: one statement, numbers to 0.
    NET_paste_all_cb_to_schedule(*board);
    EXPECT_EQ(place_of(singles[0]), "/0/0/0");
    EXPECT_EQ(place_of(doubles[1]), "/0/0/0");
    EXPECT_TRUE(board->list(BoardListId::clipboard).empty());

    // Paste on hold goes row by row and patches both lists.
    select(BoardListId::unscheduled, { singles[1] });
    ASSERT_TRUE(NET_move_sel_schedule_to_cb(*board));
    hold(BoardListId::clipboard);
    hold(BoardListId::unscheduled);
    const auto upper = board->list(BoardListId::unscheduled).size();
    NET_paste_all_cb_to_schedule(*board);
    EXPECT_TRUE(board->list(BoardListId::clipboard).empty());
    EXPECT_EQ(board->list(BoardListId::unscheduled).size(), upper + 1);
    EXPECT_EQ(number(singles[1], "cid"), 0);
}

TEST_F(BoardMovesTest, PasteFromTheClipboardToACourt)
{
    EXPECT_FALSE(NET_move_all_cb_to_list4(*board));
    EXPECT_EQ(talk.last_message(), "Select day");
    select(BoardListId::unscheduled, { doubles[0], singles[1] });
    ASSERT_TRUE(NET_move_sel_schedule_to_cb(*board));
    show(day3, 5);
    ASSERT_TRUE(NET_move_all_cb_to_list4(*board));
    EXPECT_EQ(place_of(singles[1]), std::string(day3) + "/3/5/1");
    EXPECT_EQ(place_of(doubles[0]), std::string(day3) + "/3/5/2");
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { singles[1], doubles[0] }));
    EXPECT_TRUE(board->list(BoardListId::clipboard).empty());
}

TEST_F(BoardMovesTest, GatheringAStateTakesItFromEveryDay)
{
    place({ singles[0] }, day1, 1);
    place({ singles[1] }, day2, 6);
    db->run("update schedule set nbat='at ', matchtime='15:00', matchtime_int=900 where sid=?", singles[0]);
    top_wins(singles[0]);
    top_wins(singles[1]);
    top_wins(singles[2]);
    EXPECT_EQ(gather_state("all dead to cb"), "3");
    EXPECT_EQ(gather_state("all unf to cb"), "2.1");
    EXPECT_EQ(gather_state("free all days"), std::nullopt);
    gather_to_cb(*board, "3");
    for (auto sid : { singles[0], singles[1], singles[2] })
        EXPECT_EQ(column(sid, "cid || '/' || scheduledate || '/' || day_idx"), "-2//0");
    // The time stays until a later move.
    EXPECT_EQ(time_of(singles[0]), "at 15:00/900");
    board->set_tick(BoardListId::clipboard, "dead", true);
    EXPECT_EQ(board->list(BoardListId::clipboard).size(), 3);
}

} // namespace
} // namespace qv
