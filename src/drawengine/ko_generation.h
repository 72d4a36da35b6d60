#pragma once

#include "drawengine/draw_random.h"
#include "drawengine/ko_placing.h"
#include "drawengine/ko_rows.h"
#include "drawengine/open_draw.h"
#include "entries/main_lists.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// What generation hands on to later steps. An empty hook does nothing.
struct DrawHooks
{
    std::function<void(OpenDraw&, bool highlight)> set_scoreboxes; // by the setting draw.ihilightscorebox
    std::function<void(OpenDraw&)> sendbyesthru; // when draw.byes_thru_on_do_draw is 1
    std::function<void(OpenDraw&)> show_draw;
    std::function<void(OpenDraw&)> round_robin; // DODRAW of an "rr" event
};

// get_random(flag): 1 to 3, or 2 to 3 when flag is set.
int get_random(DrawRandom& random, bool flag);

// The two list shuffles: every item taken at random from the one list and appended to the other.
void KO_do_draw_jumble1(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random);
void KO_do_draw_jumble2(std::vector<std::string>& hold, std::vector<std::string>& hold2, DrawRandom& random);

// The country and ar marks of one entry from the register: for a pair the two codes joined by "/", and one
// "." for each person with availability restrictions.
struct EntryMarks
{
    std::string country;
    std::string ar;
};
EntryMarks register_marks(Database& tournament, const std::string& player);

// Fills each entry's country ("a/b" for a pair) and ar marks ("", "." or "..") from the players' register.
void pull_ar_countries(Database& tournament, std::int64_t eid);
// The same, answering each entry's new country and ar marks in the order of the entries that are no reserve.
std::vector<std::pair<std::string, std::string>> refresh_ar_countries(Database& tournament, std::int64_t eid);

// Reads the event's columns into the state record: eid, name, sex, draw type, singles or doubles, points mode,
// draw size, sid range and time stamp.
void load_event_state(Database& tournament, std::int64_t eid, DrawState& draw);

// Places the entries of draw.curr_eid and opens the new draw. False when nothing was placed ("no players", or
// more candidates than a draw can hold); the open draw is then left as it was.
bool KO_do_draw2(Session& session, OpenDraw& draw, DrawRandom& random, const DrawHooks& hooks = {});

// Copies the placed slots (draw_stage2) into the first round of the tree.
void KO_pull_draw_stage2(const std::vector<StageSlot>& stage2, OpenDraw& draw);

// Asks, then removes the open draw from schedule, the event and its entries. False when the user said No or
// Cancel; true at once when no draw is open.
bool RR_KO_delete_draw(Session& session, OpenDraw& draw);

// "do draw" on the chosen event: delete any old draw, then place the new one.
void DODRAW(Session& session, OpenDraw& draw, DrawRandom& random, const DrawHooks& hooks = {});

// The steps of "do all draws" that belong to the draw area and the save.
struct AllDrawsSteps
{
    std::function<bool(OpenDraw&)> close_draw; // false: the user stays in the open draw; empty: always leaves
    // The lines of the event list on show, top to bottom, as the filter left them; empty: every event.
    std::function<std::vector<ListLine>()> event_lines;
    std::function<void(OpenDraw&, std::int64_t eid)> load_draw; // BF_load_draw; empty: load_event_state
    std::function<void()> breathe; // one pass of the event loop
    std::function<bool(OpenDraw&)> save_draw_doing_all_draws;
    std::function<void(OpenDraw&)> close_draw_special;
    std::function<void(OpenDraw&)> save_draw_END_doing_all_draws;
};

// DOALLDRAWS: a draw for every line of the event list without the "*" mark, saved as it goes, then "ok".
void do_all_draws(
    Session& session, OpenDraw& draw, DrawRandom& random, const DrawHooks& hooks, const AllDrawsSteps& steps);

} // namespace qv
