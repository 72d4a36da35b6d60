#pragma once

#include "drawengine/rr_draw.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

class Database;
class Session;

// The first write of a new round robin, after add_draw_stub_RR: every row of the event takes its match line,
// in the live and in the shadow columns, and is clean. The match lines learn their sids.
void RR_savecontrols(Database& tournament, const DrawState& draw, OpenRoundRobin& rr);

// "save draw" of an existing round robin: the shadow columns of the changed rows over the live ones.
void RR_copy_over(Database& tournament, std::int64_t eid);

// The rollback's statement alone: the live columns over the shadow ones for the changed rows, points included.
void RR_copy_back(Database& tournament, std::int64_t eid);

// "rollback to last save": the live columns over the shadow ones, then the draw is read again. Refused with a
// message under "save as u go"; false, changing nothing, also while the draw is new and has no rows.
bool RR_rollback_draw(Session& session, DrawState& draw, OpenRoundRobin& rr);

// Marks each row of the event as changed when its shadow result differs from the live one.
void RR_set_changed(Database& tournament, std::int64_t eid);

// set_changed_recs: whether a row of the event waits for a save (the save button's look).
bool RR_set_changed_recs(Database& tournament, std::int64_t eid);

// Writes one match line to its row: the shadow columns, and under "save as u go" the live ones as well; then
// the changed marks and the standings. Does nothing while the draw is new. Answers whether changes wait, and
// keeps the answer in draw.changes_waiting.
bool RR_imm_save(Session& session, DrawState& draw, OpenRoundRobin& rr, int match);

// Reads the draw of draw.curr_eid from schedule into the model, the working (shadow) columns as the user left
// them, and makes the standings. With no rows the model is emptied and the draw size becomes 0.
void RR_loadroundsdata(Database& tournament, DrawState& draw, OpenRoundRobin& rr);

// The standings (alist10_rr, points descending, equal points in the table's order) and the grid of wins,
// from the match lines of the model.
void rr_refresh_standings(Database& tournament, OpenRoundRobin& rr);

// Points as the lists show them: "3", "2.5".
std::string rr_points_text(double points);
// The number in a points text; 0 for a blank or a text that is no number.
double rr_points_value(std::string_view text);

// The user's acts on a match line. Each runs the mode's rule and RR_imm_save; a locked box refuses the typing
// (false, nothing changes).
void rr_click_name(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, RrWinner side);
bool rr_type_points(
    Session& session, DrawState& draw, OpenRoundRobin& rr, int match, RrWinner side, std::string_view text);
bool rr_type_score(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, std::string_view text);
// add_ls_rr: the long score window hands back both scores of the line.
void rr_set_long_score(Session& session, DrawState& draw, OpenRoundRobin& rr, int match, std::string_view score,
    std::string_view longscore);

} // namespace qv
