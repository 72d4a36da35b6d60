#include "scheduling/assistant_lines.h"
#include "scheduling/board_fixture.h"
#include "scheduling/distribute_load.h"

namespace qv::test {
namespace {

class DistributeLoadTest : public BoardFixture
{
protected:
    std::vector<std::int64_t> sids;

    void SetUp() override
    {
        BoardFixture::SetUp();
        sids = first_round(1);
        for (auto sid : first_round(2))
            sids.push_back(sid);
        sids.resize(5);
        board->show_upper(BoardListId::unscheduled);
        board->loadschedule();
        board->choose_day(day2);
        talk.clear();
    }
    DistloadRequest request(std::vector<std::int64_t> cids, std::string nbat, std::string hour, std::string minute,
        std::string minutes, bool ignore = false)
    {
        DistloadRequest r;
        for (auto cid : cids)
            r.courts.push_back({ cid, "court " + std::to_string(cid) });
        r.start = { std::move(nbat), std::move(hour), std::move(minute) };
        r.nbat_index = 1;
        r.hour_index = 11;
        r.minute_index = 1;
        r.minutes = std::move(minutes);
        r.ignore_time = ignore;
        return r;
    }
    DistloadOutcome run(DistloadRequest&& r, BoardList* assistant = nullptr) { return run(r, assistant); }
    DistloadOutcome run(DistloadRequest& r, BoardList* assistant = nullptr)
    {
        return distload_confirm(*board, assistant ? DistloadCaller::assistant : DistloadCaller::list1, day2,
            board->day_idx_of(day2), r, assistant);
    }
    // Court, nb/at and time of a match: "2 nb 10:00/600".
    std::string place_of(std::int64_t sid)
    {
        return std::to_string(number(sid, "cid")) + " " + column(sid, "nbat") + column(sid, "matchtime") + "/"
            + std::to_string(number(sid, "matchtime_int"));
    }
    std::vector<std::string> places()
    {
        std::vector<std::string> out;
        for (auto sid : sids)
            out.push_back(place_of(sid));
        return out;
    }
};

TEST_F(DistributeLoadTest, FiveMatchesOnTwoCourtsFillTheCourtsRowByRow)
{
    select(BoardListId::unscheduled, sids);
    ASSERT_TRUE(distload_allowed_board(*board));
    EXPECT_EQ(run(request({ 2, 5 }, "nb ", "10", "00", "60")), DistloadOutcome::done);
    EXPECT_EQ(places(),
        (std::vector<std::string> {
            "2 nb 10:00/600", "5 nb 10:00/600", "2 nb 11:00/660", "5 nb 11:00/660", "2 nb 12:00/720" }));
    for (auto sid : sids) {
        EXPECT_EQ(column(sid, "scheduledate"), day2);
        EXPECT_EQ(number(sid, "day_idx"), board->day_idx_of(day2));
        EXPECT_FALSE(board->list(BoardListId::unscheduled).find(sid));
    }
    // Each match took the next number, and the courts are numbered live in their order.
    EXPECT_LT(number(sids[0], "matchnumber"), number(sids[2], "matchnumber"));
    EXPECT_EQ(number(sids[0], "matchnumber_live"), 1);
    EXPECT_EQ(number(sids[4], "matchnumber_live"), 3);
    EXPECT_EQ(session.settings().get_disk_var("dl.minsadd"), "60");
    EXPECT_EQ(session.settings().get_disk_var("dl.check1"), "0");
}

TEST_F(DistributeLoadTest, TimesSaturateAtTheEndOfTheDayAndAMinuteAloneIsEnough)
{
    select(BoardListId::unscheduled, sids);
    EXPECT_EQ(run(request({ 3 }, "at ", "23", "00", "45")), DistloadOutcome::done);
    EXPECT_EQ(places(),
        (std::vector<std::string> {
            "3 at 23:00/1380", "3 at 23:45/1425", "3 at 24:00/1440", "3 at 24:00/1440", "3 at 24:00/1440" }));

    // The hour chooser is not asked for: the time begins with ":" and its hour counts as none.
    board->loadschedule();
    const auto more = first_round(2).back();
    select(BoardListId::unscheduled, { more });
    EXPECT_EQ(run(request({ 1 }, "", "", "30", "15")), DistloadOutcome::done);
    EXPECT_EQ(place_of(more), "1 :30/30");
}

TEST_F(DistributeLoadTest, IgnoringTimeClearsTheTimesAMatchHad)
{
    db->run("update schedule set nbat='nb ', matchtime='09:00', matchtime_int=540 where sid=?", sids[0]);
    board->loadschedule();
    const auto minutes_before = session.settings().get_disk_var("dl.minsadd");
    select(BoardListId::unscheduled, sids);
    EXPECT_EQ(run(request({ 1, 2, 3 }, "nb ", "10", "00", "x", true)), DistloadOutcome::done);
    EXPECT_EQ(places(), (std::vector<std::string> { "1 /-1", "2 /-1", "3 /-1", "1 /-1", "2 /-1" }));
    EXPECT_EQ(session.settings().get_disk_var("dl.check1"), "1");
    EXPECT_EQ(session.settings().get_disk_var("dl.minsadd"), minutes_before);
}

TEST_F(DistributeLoadTest, RefusalsInTheirOrderWriteNothing)
{
    struct Case
    {
        DistloadRequest request;
        const char* message;
        DistloadOutcome outcome;
        const char* box_after;
    };
    const Case cases[] = {
        { request({ 1 }, "nb ", "10", "00", "  "), "zero invalid in this context", DistloadOutcome::refused_minutes,
            "0" },
        { request({ 1 }, "nb ", "10", "00", "6o"), "invalid character for integer", DistloadOutcome::refused_minutes,
            "6o" },
        { request({ 1 }, "nb ", "10", "00", "1441"), "Max 1440,24 hours", DistloadOutcome::refused_minutes, "1441" },
        { request({}, "nb ", "10", "00", "60"), "select courts", DistloadOutcome::refused, "60" },
        { request({ 1 }, "", "", "", "60"), "Need minute", DistloadOutcome::refused, "60" },
    };
    select(BoardListId::unscheduled, sids);
    for (auto c : cases) {
        talk.clear();
        EXPECT_EQ(run(c.request), c.outcome) << c.message;
        EXPECT_EQ(talk.messages(), std::vector<std::string> { c.message });
        EXPECT_EQ(c.request.minutes, c.box_after);
    }
    EXPECT_EQ(place_of(sids[0]), "0 /-1");

    // Opening: a day first, then a selection.
    talk.clear();
    board->choose_day("");
    EXPECT_FALSE(distload_allowed_board(*board));
    board->choose_day(day2);
    select(BoardListId::unscheduled, {});
    EXPECT_FALSE(distload_allowed_board(*board));
    EXPECT_FALSE(distload_allowed_assistant(*board, false, ""));
    EXPECT_FALSE(distload_allowed_assistant(*board, true, ""));
    EXPECT_EQ(talk.messages(),
        (std::vector<std::string> {
            "select day", "select matches", "select matches", "select day to distribute matches across" }));
}

TEST_F(DistributeLoadTest, OnlyRealCourtsAreOffered)
{
    db->run("insert into scheduledays_courts (sdate, cid) values (?, -1), (?, -3), (?, -4)", day2, day2, day2);
    const auto courts = load_cids(*db, board->words(), day2);
    ASSERT_EQ(courts.size(), 6u);
    EXPECT_EQ(courts.front().cid, 1);
    EXPECT_EQ(courts.front().text, "court 1");
}

TEST_F(DistributeLoadTest, FromTheClipboardAHeldCourtOnDisplayTakesItsLines)
{
    select(BoardListId::unscheduled, sids);
    ASSERT_TRUE(NET_move_sel_schedule_to_cb(*board));
    board->show_upper(BoardListId::clipboard);
    board->loadcb();
    show(day2, 4);
    board->set_hold(BoardListId::court, true);
    select(BoardListId::clipboard, { sids[1], sids[2], sids[3] });
    DistloadRun r { day2, board->day_idx_of(day2), { { 4, "court 4" }, { 6, "court 6" } }, "10:00", 30, "nb " };
    BF_distributetheload(*board, DistloadCaller::list1_cb, r);
    EXPECT_EQ(sids_of(BoardListId::court), (std::vector<std::int64_t> { sids[1], sids[3] }));
    EXPECT_NE(board->list(BoardListId::court).line(1).text.find("nb 10:30"), std::string::npos);
    EXPECT_EQ(place_of(sids[2]), "6 nb 10:00/600");
    EXPECT_EQ(sids_of(BoardListId::clipboard), (std::vector<std::int64_t> { sids[0], sids[4] }));
}

TEST_F(DistributeLoadTest, FromAnAssistantListTheLinesStayWithTheirNewPlace)
{
    place({ sids[0] }, day1, 2);
    BoardList list;
    AvailabilityLookup availability(*db);
    for (auto sid : sids) {
        MatchRow row;
        ASSERT_TRUE(read_match_row(*db, sid, row));
        list.append({ sid, assistant_line_text(row, availability) });
    }
    list.select_all(true);
    list.set_selected(4, false);
    EXPECT_EQ(run(request({ 1, 2 }, "at ", "09", "00", "90"), &list), DistloadOutcome::done);
    ASSERT_EQ(list.size(), 5);
    EXPECT_EQ(place_of(sids[0]), "1 at 09:00/540");
    EXPECT_EQ(column(sids[0], "scheduledate"), day2);
    EXPECT_EQ(place_of(sids[3]), "2 at 10:30/630");
    EXPECT_EQ(place_of(sids[4]), "0 /-1");
    const auto fields = line_fields(list.line(3).text);
    EXPECT_EQ(fields[0], day2);
    EXPECT_EQ(fields[1], "2");
    EXPECT_EQ(fields[7], "at 10:30");
}

} // namespace
} // namespace qv::test
