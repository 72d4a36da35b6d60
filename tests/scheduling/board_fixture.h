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

    void add_people()
    {
        db->run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype) values
            (1, 'mens singles', 'male', 'singles', 'p', 'ko'), (2, 'mixed doubles', 'mixed', 'doubles', 'p', 'ko'))");
        auto player = db->query(R"(insert into players (pid, player, fname, sname, sex, pval,
            availabilityrestrictions) values (?, ?, ?, ?, ?, 1, ?))");
        auto entry = db->query(R"(insert into evententries (ent_idx, eid, en, player, p1name, partner, sd, reserve,
            seeding) values (?, ?, ?, ?, ?, ?, ?, 0, ?))");
        int pid = 0, ent = 0;
        auto add_player = [&](const std::string& first, const std::string& second, const char* sex,
                              const std::string& restrictions) {
            player.bind_all(++pid, first + " " + second, first, second, sex, restrictions);
            player.step();
            player.reset();
            return first + " " + second;
        };
        const char* firsts[] = { "adam", "bert", "carl", "dirk", "emil", "finn", "gus", "hans" };
        for (int i = 0; i < 8; ++i) {
            const auto name = add_player(firsts[i], "mann", "male", i == 2 ? "not before 10:00" : "");
            entry.bind_all(++ent, 1, "mens singles", name, "", "", "singles", i < 2 ? i + 1 : 0);
            entry.step();
            entry.reset();
        }
        for (int i = 0; i < 4; ++i) {
            const auto first = add_player(std::string("ida") + char('a' + i), "duo", "female", "");
            const auto second = add_player(std::string("jon") + char('a' + i), "duo", "male", i == 1 ? "away" : "");
            entry.bind_all(++ent, 2, "mixed doubles", first + "/" + second, first, second, "doubles", 0);
            entry.step();
            entry.reset();
        }
    }

    void draw_all()
    {
        OpenDraw open;
        SeededDrawRandom random(20260302);
        DrawSaveHooks save_hooks;
        DrawHooks hooks;
        hooks.set_scoreboxes = [](OpenDraw& draw, bool highlight) { set_scoreboxes(draw, highlight); };
        AllDrawsSteps steps;
        steps.close_draw
            = [&](OpenDraw& draw) { return leave_draw(session, draw, LeaveReason::closingdraws, save_hooks); };
        steps.load_draw = [&](OpenDraw& draw, std::int64_t eid) { BF_load_draw(session, draw, eid, save_hooks); };
        steps.save_draw_doing_all_draws = [&](OpenDraw& draw) {
            save_draw(session, draw, save_hooks, SaveRefresh::doing_all_draws);
            return true;
        };
        steps.close_draw_special = [](OpenDraw& draw) {
            draw.clear_tree();
            draw.draw.on_screen = false;
            draw.draw.new_draw = false;
            draw.draw.changes_waiting = false;
        };
        do_all_draws(session, open, random, hooks, steps);
        ASSERT_EQ(db->scalar_integer("select count(*) from schedule where rname <> 'winner'"), 10);
    }

    void make_days(int days, int courts)
    {
        DaysCourtsEditor editor(session);
        editor.init();
        editor.set_days({ 2026, 3, 2 }, { 2026, 3, 1 + days });
        ASSERT_TRUE(editor.generate(std::to_string(courts), editor.days()));
        editor.save();
    }

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
