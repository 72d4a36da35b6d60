#pragma once

#include "core/session.h"
#include "drawengine/draw_random.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "scheduling/days_courts.h"

#include <gtest/gtest.h>
#include <string>

namespace qv::test {

// A tournament with drawn events: event 1 "mens singles" is a knock-out of 8 (two seeds, "carl mann" with
// availability restrictions), event 2 "mixed doubles" a knock-out of 4 teams ("jonb duo" with restrictions).
inline void add_drawn_tournament_people(Database& db)
{
    db.run(R"(insert into events (eid, eventname, sex, singdobs, pte, drawtype) values
        (1, 'mens singles', 'male', 'singles', 'p', 'ko'), (2, 'mixed doubles', 'mixed', 'doubles', 'p', 'ko'))");
    auto player = db.query(R"(insert into players (pid, player, fname, sname, sex, pval,
        availabilityrestrictions) values (?, ?, ?, ?, ?, 1, ?))");
    auto entry = db.query(R"(insert into evententries (ent_idx, eid, en, player, p1name, partner, sd, reserve,
        seeding, playerfname, playersname, partnerfname, partnersname) values (?, ?, ?, ?, ?, ?, ?, 0, ?, ?, ?, ?, ?))");
    int pid = 0, ent = 0;
    auto add_player
        = [&](const std::string& first, const std::string& second, const char* sex, const std::string& restrictions) {
              player.bind_all(++pid, first + " " + second, first, second, sex, restrictions);
              player.step();
              player.reset();
              return first + " " + second;
          };
    const char* firsts[] = { "adam", "bert", "carl", "dirk", "emil", "finn", "gus", "hans" };
    for (int i = 0; i < 8; ++i) {
        const auto name = add_player(firsts[i], "mann", "male", i == 2 ? "not before 10:00" : "");
        entry.bind_all(++ent, 1, "mens singles", name, "", "", "singles", i < 2 ? i + 1 : 0, firsts[i], "mann", "", "");
        entry.step();
        entry.reset();
    }
    for (int i = 0; i < 4; ++i) {
        const auto she = std::string("ida") + char('a' + i);
        const auto he = std::string("jon") + char('a' + i);
        const auto first = add_player(she, "duo", "female", "");
        const auto second = add_player(he, "duo", "male", i == 1 ? "away" : "");
        entry.bind_all(
            ++ent, 2, "mixed doubles", first + "/" + second, first, second, "doubles", 0, she, "duo", he, "duo");
        entry.step();
        entry.reset();
    }
}

inline void draw_every_event(Session& session)
{
    OpenDraw open;
    SeededDrawRandom random(20260302);
    DrawSaveHooks save_hooks;
    DrawHooks hooks;
    hooks.set_scoreboxes = [](OpenDraw& draw, bool highlight) { set_scoreboxes(draw, highlight); };
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
    ASSERT_EQ(session.tournament().scalar_integer("select count(*) from schedule where rname <> 'winner'"), 10);
}

inline void make_tournament_days(Session& session, int days, int courts)
{
    DaysCourtsEditor editor(session);
    editor.init();
    editor.set_days({ 2026, 3, 2 }, { 2026, 3, 1 + days });
    EXPECT_TRUE(editor.generate(std::to_string(courts), editor.days()));
    editor.save();
}

} // namespace qv::test
