#include "scheduling/board_fixture.h"
#include "scheduling/board_times.h"

namespace qv {
namespace {

class BoardTimesTest : public test::BoardFixture
{
protected:
    std::vector<std::int64_t> sids;

    void SetUp() override
    {
        BoardFixture::SetUp();
        sids = first_round(1);
        place({ sids[0], sids[1], sids[2] }, day1, 1);
        show(day1, 1);
    }

    std::string time_of(std::int64_t sid) { return column(sid, "nbat || matchtime || '/' || matchtime_int"); }
    std::string time_field_of(int row) { return line_fields(board->list(BoardListId::court).line(row).text)[4]; }
};

TEST_F(BoardTimesTest, SetMatchTimeRefusesInOrder)
{
    EXPECT_FALSE(set_match_time(*board, { "at ", "10", "00" }));
    EXPECT_EQ(talk.last_message(), "select match");
    select(BoardListId::court, { sids[0] });
    const struct
    {
        TimeChoice choice;
        const char* refusal;
    } cases[] = {
        { { "at ", "", "" }, "enter hour" },
        { { "", "", "30" }, "enter hour" },
        { { "", "10", "" }, "enter minute" },
        { { "", "10", "30" }, "enter nb/at" },
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(set_match_time(*board, c.choice));
        EXPECT_EQ(talk.last_message(), c.refusal);
    }
    EXPECT_EQ(time_of(sids[0]), "/-1");
}

TEST_F(BoardTimesTest, SetGrabAndClearTimes)
{
    select(BoardListId::court, { sids[0], sids[2] });
    ASSERT_TRUE(set_match_time(*board, { "nb ", "09", "45" }));
    EXPECT_EQ(time_of(sids[0]), "nb 09:45/585");
    EXPECT_EQ(time_of(sids[2]), "nb 09:45/585");
    EXPECT_EQ(time_of(sids[1]), "/-1");
    EXPECT_EQ(time_field_of(0), "nb 09:45");

    select(BoardListId::court, { sids[2] });
    const auto grabbed = grab_match_time(*board);
    ASSERT_TRUE(grabbed);
    EXPECT_EQ(grabbed->nbat, "nb ");
    EXPECT_EQ(grabbed->minute, "45");
    EXPECT_EQ(grabbed->hour, "09");
    EXPECT_EQ(grabbed->minute, "45");

    // All three empty clears; on hold the field becomes eight blanks.
    ASSERT_TRUE(board->set_hold(BoardListId::court, true));
    ASSERT_TRUE(set_match_time(*board, {}));
    EXPECT_EQ(time_of(sids[2]), "/-1");
    EXPECT_EQ(time_field_of(2), "        ");

    // "clear times" on the court: every line, selected or not.
    ASSERT_TRUE(BF_clear_times_court(*board));
    EXPECT_EQ(time_of(sids[0]), "/-1");
    EXPECT_EQ(time_field_of(0), "        ");

    // Without a court on display both clears refuse.
    ScheduleBoard fresh(session);
    fresh.init();
    EXPECT_FALSE(BF_clear_times_selected(fresh));
    EXPECT_EQ(talk.last_message(), "select day");
    fresh.choose_day(day2);
    EXPECT_FALSE(BF_clear_times_court(fresh));
    EXPECT_EQ(talk.last_message(), "select court");
}

TEST_F(BoardTimesTest, OrderByTimePutsTheUntimedFirst)
{
    WEB_updatematchtimecall(*db, sids[0], "at ", "14:00");
    WEB_updatematchtimecall(*db, sids[2], "at ", "10:00");
    ASSERT_TRUE(BF_order_court_by_time(*board));
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { sids[1], sids[2], sids[0] }));
    EXPECT_EQ(number(sids[1], "matchnumber"), 1);
    EXPECT_EQ(number(sids[0], "matchnumber"), 3);
}

TEST_F(BoardTimesTest, NudgeSwapsPlacesTheTimeStaysInItsSlot)
{
    WEB_updatematchtimecall(*db, sids[0], "at ", "10:00");
    WEB_updatematchtimecall(*db, sids[1], "at ", "11:00");
    board->refresh_list4();
    auto& court = board->list(BoardListId::court);

    // The first line up and the last line down do nothing.
    court.select_only(0);
    EXPECT_FALSE(WEB_nudge_match_up(*board));
    court.select_only(2);
    EXPECT_FALSE(WEB_nudge_match_down(*board));

    court.select_only(0);
    ASSERT_TRUE(WEB_nudge_match_down(*board));
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { sids[1], sids[0], sids[2] }));
    EXPECT_EQ(court.current(), 1);
    EXPECT_TRUE(court.line(1).selected);
    // matchtime changed hands, matchtime_int stayed with the match: they disagree until the time is set again.
    EXPECT_EQ(time_of(sids[1]), "at 10:00/660");
    EXPECT_EQ(time_of(sids[0]), "at 11:00/600");
    EXPECT_EQ(number(sids[1], "matchnumber"), 1);
    EXPECT_EQ(time_field_of(0), "at 10:00");

    // On hold the two lines are patched and exchanged.
    ASSERT_TRUE(board->set_hold(BoardListId::court, true));
    ASSERT_TRUE(WEB_nudge_match_up(*board));
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { sids[0], sids[1], sids[2] }));
    EXPECT_EQ(time_field_of(0), "at 10:00");
    EXPECT_EQ(time_field_of(1), "at 11:00");
    EXPECT_EQ(court.current(), 0);

    // A line whose match has gone: the court list's stale message.
    db->run("delete from schedule where sid=?", sids[1]);
    EXPECT_FALSE(WEB_nudge_match_down(*board));
    EXPECT_EQ(talk.last_message(), "match not found,stale data");
}

} // namespace
} // namespace qv
