#pragma once

// A tournament played part way, built through the program's own operations: a seeded knock-out of 32 with three
// rounds played, a round robin of five nearly finished, a doubles knock-out of six teams with byes, three days
// with four courts (two named) and the first matches placed on them with times. Used by the export tests and by
// the export check under tools/.
#include "core/session.h"
#include "drawengine/draw_random.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "drawengine/result_entry.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"
#include "scheduling/court_settings.h"
#include "scheduling/days_courts.h"

#include <array>
#include <string>
#include <vector>

namespace qv::sample {

inline void add_people(Database& db)
{
    db.run("update tournament set tournament='riverside spring open', venue='riverside park' where idx=1");
    db.run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype, pts) values
        (1, 'mens singles', 'male', 'singles', 'p', 'ko', 0), (2, 'ladies group', 'female', 'singles', 'p', 'rr', 2),
        (3, 'mixed doubles', 'mixed', 'doubles', 'p', 'ko', 0))");
    static const std::array<const char*, 16> given { "adam", "bert", "carl", "dirk", "emil", "finn", "gus", "hans",
        "ivan", "jack", "karl", "luke", "marc", "nils", "otto", "paul" };
    static const std::array<const char*, 4> countries { "ENG", "FRA", "GER", "ESP" };
    auto player = db.query(R"(insert into players (pid, player, fname, sname, sex, country, pval)
        values (?, ?, ?, ?, ?, ?, 1))");
    auto entry = db.query(R"(insert into evententries (ent_idx, eid, player, p1name, partner, sd, reserve, seeding,
        playerfname, playersname, partnerfname, partnersname, country, psex) values (?, ?, ?, ?, ?, ?, 0, ?, ?, ?, ?, ?, ?, ?))");
    int pid = 0, ent = 0;
    const auto add = [&](const std::string& first, const std::string& second, const char* sex) {
        ++pid;
        player.bind_all(pid, first + " " + second, first, second, sex, countries[pid % 4]);
        player.step();
        player.reset();
        return first + " " + second;
    };
    const auto enter = [&](int eid, const std::string& name, const std::string& one, const std::string& two,
                           const char* sd, int seed, const char* sex) {
        ++ent;
        entry.bind_all(ent, eid, name, one, two, sd, seed, "", "", "", "", countries[ent % 4], sex);
        entry.step();
        entry.reset();
    };
    for (int i = 0; i < 32; ++i) {
        const auto name = add(given[i % 16], i < 16 ? "mann" : "berg", "male");
        enter(1, name, "", "", "singles", i < 8 ? i + 1 : 0, "male");
    }
    for (int i = 0; i < 5; ++i)
        enter(2, add(std::string("lena") + char('a' + i), "ross", "female"), "", "", "singles", 0, "female");
    for (int i = 0; i < 6; ++i) {
        const auto she = add(std::string("mia") + char('a' + i), "duo", "female");
        const auto he = add(std::string("tom") + char('a' + i), "duo", "male");
        enter(3, she + "/" + he, she, he, "doubles", i < 2 ? i + 1 : 0, "mixed");
    }
}

inline void draw_all(Session& session)
{
    OpenDraw open;
    OpenRoundRobin rr;
    SeededDrawRandom random(20260302);
    DrawSaveHooks save_hooks;
    save_hooks.add_draw_stub_RR = [&](OpenDraw& draw) { add_draw_stub_RR(session.tournament(), draw.draw, rr); };
    save_hooks.RR_savecontrols = [&](OpenDraw& draw) { RR_savecontrols(session.tournament(), draw.draw, rr); };
    save_hooks.RR_copy_over = [&](OpenDraw& draw) { RR_copy_over(session.tournament(), draw.draw.curr_eid); };
    DrawHooks hooks;
    hooks.set_scoreboxes = [](OpenDraw& draw, bool highlight) { set_scoreboxes(draw, highlight); };
    hooks.round_robin = [&](OpenDraw& draw) { RR_do_draw(session, draw.draw, rr); };
    AllDrawsSteps steps;
    steps.close_draw = [&](OpenDraw& draw) { return leave_draw(session, draw, LeaveReason::closingdraws, save_hooks); };
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
}

// Three days from Monday 2 March 2026 with four courts each; courts 1 and 2 have names.
inline void make_days(Session& session)
{
    DaysCourtsEditor editor(session);
    editor.init();
    editor.set_days({ 2026, 3, 2 }, { 2026, 3, 4 });
    editor.generate("4", editor.days());
    editor.save();
    const auto first = session.tournament().scalar_text("select sdate from scheduledays where idx=1");
    set_court_name(session, first, 1, "centre court", true);
    set_court_name(session, first, 2, "river court", true);
}

// Matches of an event onto one day's courts in turn, each court's matches 90 minutes apart from 10:00.
inline void place(Database& db, std::int64_t eid, int day, int first_round_only)
{
    const auto sdate = db.scalar_text("select sdate from scheduledays where idx=?", day);
    std::vector<std::int64_t> sids;
    for (auto q = db.query(R"(select sid from schedule where eid=? and rname<>'winner' and match_state<>'0'
             and (rid=1 or ?=0) order by sid)",
             eid, first_round_only);
         q.step();)
        sids.push_back(q.integer(0));
    for (std::size_t i = 0; i < sids.size(); ++i) {
        const int court = static_cast<int>(i % 4) + 1;
        const int number = static_cast<int>(i / 4) + 1;
        const int minutes = 600 + 90 * (number - 1);
        const auto time = (minutes / 60 < 10 ? "0" : "") + std::to_string(minutes / 60) + ":"
            + (minutes % 60 < 10 ? "0" : "") + std::to_string(minutes % 60);
        db.run(R"(update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=?, nbat='at ', matchtime=?,
            matchtime_int=? where sid=?)",
            sdate, day, court, number, time, minutes, sids[i]);
    }
}

// Every live match of the event in sid order gets a result, as long as fewer than `matches` were written; the
// top side wins but for every third match.
inline void play(Session& session, std::int64_t eid, int matches)
{
    static const std::array<const char*, 5> scores { "64 63", "7-6(5) 6-4", "36 64 10-8", "6/2 6/1", "64 2-1 ret" };
    int played = 0;
    for (bool more = true; more && played < matches;) {
        more = false;
        auto& db = session.tournament();
        std::vector<std::int64_t> live;
        for (auto q = db.query(R"(select sid from schedule where eid=? and rname<>'winner' and match_state='2'
                 order by sid)",
                 eid);
             q.step();)
            live.push_back(q.integer(0));
        for (auto sid : live) {
            if (played >= matches)
                break;
            MatchResult result;
            result.sid = sid;
            result.winner = sid % 3 == 0 ? ResultWinner::bottom : ResultWinner::top;
            result.matchscore = scores[sid % scores.size()];
            if (db.scalar_text("select drawtype from schedule where sid=?", sid) == "rr")
                rr_result_mode(2, result);
            if (!write_result(session, result).empty()) {
                ++played;
                more = true;
            }
        }
    }
}

inline void build(Session& session)
{
    auto& db = session.tournament();
    add_people(db);
    draw_all(session);
    make_days(session);
    place(db, 1, 1, 1);
    place(db, 2, 2, 0);
    place(db, 3, 3, 1);
    play(session, 1, 28);
    play(session, 2, 8);
    play(session, 3, 2);
}

} // namespace qv::sample
