#pragma once

#include "core/match_record.h"
#include "core/session.h"
#include "drawengine/draw_random.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "scheduling/board_moves.h"
#include "scheduling/days_courts.h"
#include "scheduling/schedule_board.h"
#include "support/drawn_tournament.h"
#include "support/fake_host.h"
#include "support/scripted_talk.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace qv::test {

// A tournament with drawn events, days and courts: the ground the board's tests stand on.
// Event 1 "mens singles" is a knock-out of 8 (7 matches, the first round live); event 2 "mixed doubles" a
// knock-out of 4 teams (3 matches). One singles player and one doubles partner have availability restrictions.
// Three days (mon02mar26 .. wed04mar26) with six courts each.
class BoardFixture : public ::testing::Test
{
protected:
    TempAppDir dir;
    ScriptedTalk talk;
    FakeHost host;
    Session session { dir.path(), talk, host };
    Database* db = nullptr;
    std::unique_ptr<ScheduleBoard> board;

    static constexpr const char* day1 = "mon02mar26";
    static constexpr const char* day2 = "tue03mar26";
    static constexpr const char* day3 = "wed04mar26";

    void SetUp() override
    {
        session.boot_start_app(dir.new_tournament().string());
        ASSERT_TRUE(session.has_tournament());
        db = &session.tournament();
        db->exec_script("pragma synchronous=off; pragma journal_mode=memory;");
        session.settings().apply_disk_var("draw.byes_thru_on_do_draw ", "0");
        add_people();
        draw_all();
        make_days(3, 6);
        board = std::make_unique<ScheduleBoard>(session);
        board->init();
        talk.clear();
        host.calls.clear();
    }

    void add_people() { add_drawn_tournament_people(*db); }
    void draw_all() { draw_every_event(session); }
    void make_days(int days, int courts) { make_tournament_days(session, days, courts); }

    // The sids of the event's first-round matches, top to bottom.
    std::vector<std::int64_t> first_round(std::int64_t eid)
    {
        std::vector<std::int64_t> sids;
        for (auto q = db->query("select sid from schedule where eid=? and rid=1 order by \"match\"", eid); q.step();)
            sids.push_back(q.integer(0));
        return sids;
    }

    std::string column(std::int64_t sid, const std::string& name)
    {
        return db->scalar_text("select " + name + " from schedule where sid=?", sid);
    }
    std::int64_t number(std::int64_t sid, const std::string& name)
    {
        return db->scalar_integer("select " + name + " from schedule where sid=?", sid);
    }

    // Selects the lines of these sids in a list, and no others.
    void select(BoardListId which, const std::vector<std::int64_t>& sids)
    {
        auto& list = board->list(which);
        for (int row = 0; row < list.size(); ++row) {
            bool on = false;
            for (auto sid : sids)
                on = on || list.line(row).sid == sid;
            list.set_selected(row, on);
        }
    }
    std::vector<std::int64_t> sids_of(BoardListId which)
    {
        std::vector<std::int64_t> sids;
        for (const auto& line : board->list(which).lines())
            sids.push_back(line.sid);
        return sids;
    }

    void choose(const std::string& day, std::int64_t cid)
    {
        board->choose_day(day);
        board->choose_court(cid);
    }
    // Chooses and shows a court.
    void show(const std::string& day, std::int64_t cid)
    {
        choose(day, cid);
        ASSERT_TRUE(board->loadcourt());
    }
    // Puts matches on a court through "down".
    void place(const std::vector<std::int64_t>& sids, const std::string& day, std::int64_t cid)
    {
        board->show_upper(BoardListId::unscheduled);
        board->loadschedule();
        choose(day, cid);
        select(BoardListId::unscheduled, sids);
        ASSERT_TRUE(NET_move_sel_schedule_to_list4(*board));
    }

    // A result: the top side wins the match.
    void top_wins(std::int64_t sid)
    {
        db->run("update schedule set mwttt=mtttt, mwfrn=mtfrn, mwtag=mttag, matchscore='64 64' where sid=?", sid);
        recompute_all_match_states(*db);
    }
};

} // namespace qv::test
