#pragma once

#include "core/database.h"
#include "core/session.h"
#include "drawengine/draw_saving.h"
#include "drawengine/ko_generation.h"
#include "drawengine/ko_progression.h"
#include "drawengine/rr_draw.h"
#include "drawengine/rr_saving.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace qv::test {

// Draws saved as the draw area saves them, made by slot rather than by chance, so pictures and texts of them can
// be compared with what is expected.

inline std::string slot_player(int k)
{
    return "player " + std::to_string(k);
}
inline std::string slot_tag(int k)
{
    return "plr" + std::to_string(k);
}

inline void add_draw_event(
    Database& db, std::int64_t eid, const std::string& name, const std::string& drawtype, int pts = 0)
{
    db.run(R"(insert into events (eid, eventname, sex, singdobs, drawtype, pts, timestamp_text)
        values (?, ?, 'male', 'singles', ?, ?, 'Monday, June 14, 2027 10:00:00'))",
        eid, name, drawtype, pts);
}

// A knock-out draw: player k in slot k, seeds 1 and 2 on the first two slots, countries NZL and AUS in turn, byes
// at the foot; the top player wins each match of the first `played` rounds.
inline void save_ko_draw(
    Session& session, std::int64_t eid, const std::string& name, int drawsize, int entrants, int played = 0)
{
    auto& db = session.tournament();
    add_draw_event(db, eid, name, "ko");
    OpenDraw open;
    load_event_state(db, eid, open.draw);
    open.build_tree(drawsize);
    for (int k = 1; k <= drawsize; ++k) {
        auto& slot = open.slot(1, k);
        const bool bye = k > entrants;
        slot.ttt = bye ? "bye" : slot_player(k);
        slot.frn = slot.ttt;
        slot.tag = bye ? "bye" : slot_tag(k);
        slot.seed = k <= 2 ? std::to_string(k) : "";
        slot.country = bye ? "" : (k % 2 ? "NZL" : "AUS");
        slot.sex = "m";
    }
    KO_savecontrols(db, open); // a new draw: its rows laid down with their values
    db.run("update events set drawdone=true, drawsize=? where eid=?", drawsize, eid);
    for (int rid = 1; rid <= played; ++rid)
        progressdraw(session, eid, rid);
}

// A round robin of n players "player A" .. in the scoring mode; the top player wins the first `played` matches
// 6-3, with points 1 and 0.
inline void save_rr_draw(Session& session, std::int64_t eid, const std::string& name, int n, int pts, int played)
{
    auto& db = session.tournament();
    add_draw_event(db, eid, name, "rr", pts);
    auto next = db.next_id("evententries", "ent_idx");
    for (int k = 0; k < n; ++k) {
        const std::string letter(1, static_cast<char>('A' + k));
        db.run(R"(insert into evententries (ent_idx, eid, player, playerfname, playersname, reserve, psex)
            values (?, ?, ?, 'player', ?, 0, 'male'))",
            next++, eid, "player " + letter, letter);
    }
    DrawState draw;
    OpenRoundRobin rr;
    load_event_state(db, eid, draw);
    if (!RR_do_draw(session, draw, rr))
        throw std::runtime_error("no round robin made");
    add_draw_stub_RR(db, draw, rr);
    RR_savecontrols(db, draw, rr);
    db.run("update events set drawdone=true, drawsize=? where eid=?", n, eid);
    db.run(R"(update schedule set mwttt=mtttt, mwfrn=mtfrn, mwtag=mttag, points1='1', points2='0',
        matchscore='6-3', match_state='3' where eid=? and "match" <= ?)",
        eid, played);
}

} // namespace qv::test
