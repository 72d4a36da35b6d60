#include "scheduling/board_files.h"
#include "scheduling/board_find.h"
#include "scheduling/board_fixture.h"
#include "scheduling/board_frees.h"
#include "scheduling/board_marks.h"

#include <fstream>
#include <sstream>

namespace qv {
namespace {

class BoardFindTest : public test::BoardFixture
{
protected:
    std::vector<std::int64_t> sids;
    std::int64_t shown_eid = 0;
    std::vector<std::string> calls;

    void SetUp() override
    {
        BoardFixture::SetUp();
        sids = first_round(1);
        auto& link = board->draw_link();
        link.sid_range = [this]() -> std::optional<SidRange> {
            if (shown_eid == 0)
                return std::nullopt;
            return SidRange { db->scalar_integer("select min_sid from events where eid=?", shown_eid),
                db->scalar_integer("select max_sid from events where eid=?", shown_eid) };
        };
        link.shown_eid = [this] { return shown_eid; };
        link.event_listed = [this](std::int64_t eid) { return eid == 1; };
        link.reload_events = [this] { calls.push_back("reload_events"); };
        link.open_event = [this](std::int64_t eid) {
            calls.push_back("open " + std::to_string(eid));
            shown_eid = eid;
        };
        link.reload_draw = [this] { calls.push_back("reload_draw"); };
        link.locate = [this](const MatchInDraw& m) {
            calls.push_back("locate " + std::to_string(m.rid) + " " + m.mt + " " + m.drawtype);
        };
    }

    std::string read(const std::filesystem::path& file)
    {
        std::ifstream in(file, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
};

TEST_F(BoardFindTest, FindMatchBringsItIntoViewWhereverItIs)
{
    place({ sids[1] }, day2, 3);
    top_wins(sids[2]);
    // A dead match on the clipboard, its state not ticked there.
    board->set_tick(BoardListId::clipboard, "dead", false);
    db->run("update schedule set cid=-2 where sid=?", sids[2]);

    ASSERT_TRUE(findmatch(*board, sids[2]));
    EXPECT_TRUE(board->clipboard_shown());
    EXPECT_TRUE(board->ticks(BoardListId::clipboard).dead);
    EXPECT_EQ(session.settings().integer("schedule.dead_top_cb"), 1);
    EXPECT_EQ(board->event_filter(), 1);
    EXPECT_EQ(board->list(BoardListId::clipboard).selected_sids(), (std::vector<std::int64_t> { sids[2] }));

    ASSERT_TRUE(findmatch(*board, sids[1]));
    EXPECT_EQ(board->shown(), (DayCourt { day2, 3 }));
    EXPECT_EQ(board->day(), day2);
    EXPECT_EQ(board->list(BoardListId::court).selected_sids(), (std::vector<std::int64_t> { sids[1] }));

    EXPECT_FALSE(findmatch(*board, 9999));
    EXPECT_EQ(talk.last_message(), "match not found, stale data");
    // A line of an upper list whose match has gone says so the same way; the court list without the blank.
    EXPECT_FALSE(board->status(BoardListId::unscheduled, 9999));
    EXPECT_EQ(talk.last_message(), "match not found, stale data");
    EXPECT_FALSE(board->status(BoardListId::court, 9999));
    EXPECT_EQ(talk.last_message(), "match not found,stale data");
    EXPECT_EQ(
        board->status(BoardListId::court, sids[1]).value().rfind("match id=" + std::to_string(sids[1]) + ",", 0), 0u);
}

TEST_F(BoardFindTest, ShowInDrawWidensTheFilterReloadsWhenStaleAndLocates)
{
    EXPECT_FALSE(BF_find_match_in_draw(*board, 9999));
    EXPECT_EQ(talk.last_message(), "match not found,stale data");

    // Event 2 is not in the draw's list: its filter is widened to it first.
    const auto doubles = first_round(2);
    ASSERT_TRUE(BF_find_match_in_draw(*board, doubles[1]));
    EXPECT_EQ(session.settings().text("draw_events_filter"), "*^*^*^*^*^event number^2");
    EXPECT_EQ(calls, (std::vector<std::string> { "reload_events", "open 2", "locate 1 1.3 ko" }));

    // On show and not stale: opened again as it is. Stale: read again, and the flag goes.
    calls.clear();
    ASSERT_TRUE(BF_find_match_in_draw(*board, doubles[0]));
    EXPECT_EQ(calls, (std::vector<std::string> { "open 2", "locate 1 1.1 ko" }));
    place({ doubles[0] }, day1, 1);
    EXPECT_TRUE(board->draw_view_stale());
    calls.clear();
    ASSERT_TRUE(BF_find_match_in_draw(*board, doubles[0]));
    EXPECT_EQ(calls, (std::vector<std::string> { "open 2", "reload_draw", "locate 1 1.1 ko" }));
    EXPECT_FALSE(board->draw_view_stale());

    // A move outside the draw on show leaves it alone.
    place({ sids[0] }, day1, 1);
    EXPECT_FALSE(board->draw_view_stale());
}

TEST_F(BoardFindTest, MarksFollowTheTableAndTheHats)
{
    place({ sids[0], sids[1], sids[2] }, day1, 5);
    top_wins(sids[2]);
    show(day1, 5);
    ASSERT_TRUE(board->set_hold(BoardListId::court, true));
    EXPECT_FALSE(mark_live_unf(*board, BoardListId::court));
    EXPECT_EQ(talk.last_message(), "select match");

    select(BoardListId::court, { sids[0], sids[2] });
    ASSERT_TRUE(mark_live_unf(*board, BoardListId::court));
    EXPECT_EQ(column(sids[0], "match_state"), "2.1");
    EXPECT_EQ(column(sids[2], "match_state"), "3");
    auto& court = board->list(BoardListId::court);
    EXPECT_EQ(line_fields(court.line(0).text)[2].back(), '^');
    EXPECT_EQ(line_fields(court.line(2).text)[2].find('^'), std::string::npos);

    ASSERT_TRUE(mark_unf_live(*board, BoardListId::court));
    EXPECT_EQ(column(sids[0], "match_state"), "2");
    EXPECT_EQ(line_fields(court.line(0).text)[2].find('^'), std::string::npos);

    // Not on hold the list is read again and shows the table.
    ASSERT_TRUE(board->set_hold(BoardListId::court, false));
    select(BoardListId::court, { sids[1] });
    ASSERT_TRUE(mark_live_unf(*board, BoardListId::court));
    EXPECT_EQ(line_fields(court.line(1).text)[3].back(), '^');

    // Selecting seeds: the top seed's match only.
    court.select_all(false);
    court.select_seeds(true);
    EXPECT_EQ(court.selected_sids().size(), 1u);
    court.select_all(true);
    EXPECT_EQ(court.selected_sids().size(), 3u);
}

TEST_F(BoardFindTest, FreesTakeMatchesOffWithoutAQuestion)
{
    place({ sids[0], sids[1] }, day1, 1);
    place({ sids[2] }, day1, -3);
    place({ sids[3] }, day2, 2);
    db->run("update schedule set nbat='at ', matchtime='10:00', matchtime_int=600, matchnumber_live=7 where sid=?",
        sids[3]);

    ScheduleBoard fresh(session);
    fresh.init();
    EXPECT_FALSE(BF_free_current_day(fresh));
    EXPECT_EQ(talk.last_message(), "select day");
    fresh.choose_day(day1);
    EXPECT_FALSE(BF_free_court(fresh));
    EXPECT_EQ(talk.last_message(), "select court");

    // A reserved court is freed as any other.
    choose(day1, -3);
    ASSERT_TRUE(BF_free_court(*board));
    EXPECT_EQ(number(sids[2], "cid"), 0);
    EXPECT_EQ(number(sids[0], "cid"), 1);

    board->set_draw_view_stale(false);
    show(day1, 1);
    ASSERT_TRUE(BF_free_current_day(*board));
    EXPECT_EQ(number(sids[0], "cid"), 0);
    EXPECT_TRUE(board->draw_view_stale());
    EXPECT_TRUE(board->list(BoardListId::court).empty());
    EXPECT_TRUE(board->list(BoardListId::unscheduled).find(sids[0]));

    // Free current day leaves matchnumber_live; free all days clears it and the time.
    choose(day2, 2);
    ASSERT_TRUE(BF_free_current_day(*board));
    EXPECT_EQ(column(sids[3], "matchnumber_live || nbat || matchtime || matchtime_int"), "7-1");
    for (const auto& said : talk.said)
        EXPECT_NE(said.kind, "ask");
}

TEST_F(BoardFindTest, DayCourtMapAndListFiles)
{
    db->run("update scheduledays_courts set courtname='centre' where cid=1 and sdate=?", day1);
    db->run("update scheduledays_courts set ind='?' where cid=1 and sdate=?", day1);
    const auto file = day_court_map(*board);
    ASSERT_EQ(file.filename(), "day-court map.txt");
    const auto text = read(file);
    EXPECT_EQ(text.substr(0, 19), "day-court map\r\n\r\nmo");
    EXPECT_NE(text.find("mon02mar26,dcb,day clipboard,\r\n"), std::string::npos);
    EXPECT_NE(text.find("mon02mar26,1,centre,?\r\n"), std::string::npos);
    EXPECT_EQ(talk.said.back().kind, "text");

    // The chooser offers "screenscrape" only while the setting allows it.
    EXPECT_EQ(list_chooser_entries(session),
        (std::vector<std::string> {
            "select..", "print(l)", "print(p)", "save to file", "save as PDF(l)", "save as PDF(p)" }));
    EXPECT_FALSE(screenscrape_list(*board, BoardListId::unscheduled));
    session.settings().apply_disk_var("app.screenscrape", "allow screenscrape");
    EXPECT_EQ(list_chooser_entries(session)[1], "screenscrape");
    const auto scraped = screenscrape_list(*board, BoardListId::unscheduled);
    ASSERT_TRUE(scraped);
    const auto lines = read(*scraped);
    EXPECT_EQ(lines.substr(0, upper_list_header.size()), upper_list_header);
    EXPECT_NE(lines.find("mens singles\r\n"), std::string::npos);

    talk.files.push_back({ dir.path() / "mine.txt" });
    const auto saved = save_list_to_file(*board, BoardListId::clipboard);
    ASSERT_TRUE(saved);
    EXPECT_EQ(read(*saved), std::string(upper_list_header) + "\r\n");
    EXPECT_EQ(board_list_file_name(*board, BoardListId::court), "court.txt");
}

} // namespace
} // namespace qv
