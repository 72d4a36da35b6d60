#pragma once

#include "drawengine/ko_rows.h"
#include "drawengine/open_draw.h"

#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;
class Statement;

// The save button's colour while changes wait.
inline constexpr int save_button_changed_colour = 65535;

// A day and court of the schedule board.
struct DayCourt
{
    std::string scheduledate;
    std::int64_t cid = 0;
    friend bool operator==(const DayCourt&, const DayCourt&) = default;
};

// What the schedule board offers a save. Empty hooks do nothing.
struct ScheduleBoardHooks
{
    std::function<std::optional<DayCourt>()> shown; // the day and court on show; nullopt when none
    std::function<void()> mark_for_refresh; // the board reads its lists again when next shown
    std::function<void(std::int64_t eid)> refresh_event; // the board's view of one event after a save
    std::function<void()> refresh; // the whole board, after a new draw
    std::function<void(const std::vector<DayCourt>&)> renumber; // live match order of the days and courts changed
};

// The steps of a save that belong to the windows or to the round-robin draw. Empty hooks do nothing, except
// that `now` defaults to the local clock and an empty validate_rr lets the draw pass.
struct DrawSaveHooks
{
    std::function<void()> cancel_list1; // closes the first-round replacement list
    std::function<void(bool on)> busy; // the wait cursor
    std::function<std::tm()> now;
    std::function<void(OpenDraw&)> show_draw; // after the draw was read again from schedule
    std::function<bool(OpenDraw&)> validate_rr;
    std::function<void(OpenDraw&)> add_draw_stub_RR;
    std::function<void(OpenDraw&)> RR_savecontrols;
    std::function<void(OpenDraw&)> RR_copy_over;
    std::function<void(OpenDraw&)> RR_loadroundsdata;
    std::function<void(OpenDraw&)> force_draw_fix_players;
    ScheduleBoardHooks board;
};

// Whether a save refreshes the lists and the board itself, or leaves that to the end of "do all draws".
enum class SaveRefresh { all, doing_all_draws };

// Why the draw is being left: the answer No treats them differently.
enum class LeaveReason { switchingdraws, closingdraws, switchingforms };
// The session's switch word as a reason; nullopt for any other word.
std::optional<LeaveReason> leave_reason_from_word(std::string_view word);

// The save button: yellow while a row of the event has changed = 1 or the open draw is new.
bool check_for_changes(const OpenDraw& draw);

// "save as u go" (draw.isaveasugo) and "save no prompt" (draw.iautosavechanges) stay as they are while a draw
// is loaded.
bool draw_save_settings_locked(const OpenDraw& draw);
bool is_draw_save_setting(std::string_view key);
// Sets one of the two; refused with "cannot alter this setting while draw is loaded". False when refused.
bool set_draw_save_setting(Session& session, const OpenDraw& draw, std::string_view key, bool on);

// "dddd, mmmm dd, yyyy hh:mm:ss": "Monday, November 23, 2026 11:08:08".
std::string draw_timestamp(const std::tm& when);

// "save draw": a new draw gets its rows and the event its mark; an existing one has its changed rows copied
// from the shadow columns to the live ones. Then the states are recomputed and the draw is read again.
void save_draw(
    Session& session, OpenDraw& draw, const DrawSaveHooks& hooks = {}, SaveRefresh refresh = SaveRefresh::all);
// The refreshes that "do all draws" held back, once at its end.
void save_draw_END_doing_all_draws(Session& session, const DrawSaveHooks& hooks = {});

// Shadow to live for the event's rows with changed = 1; they become clean.
void KO_copy_over(Database& tournament, std::int64_t eid);
// "rollback to last save": live to shadow for the changed rows, then the draw is read again. Refused under
// save as u go. Nothing to do for a draw never saved.
void BF_rollback_draw(Session& session, OpenDraw& draw, const DrawSaveHooks& hooks = {});

// Writes the slot's match row and the row its winner goes to: the shadow columns, and the live ones too under
// save as u go. Nothing while the draw is new.
void KO_imm_save(Session& session, OpenDraw& draw, int level, int position);

// The winner of row sid, with what travels with it, into side next_side ('t' or 'b') of row next_sid, as the row
// now holds it; prefix "i" for the shadow columns, "" for the live ones.
void carry_winner(
    Database& tournament, std::int64_t sid, std::int64_t next_sid, std::string_view prefix, char next_side);

// True when the row's live and shadow columns differ. The row must carry the columns of schedule.
bool diff_vals(const Statement& row);
// Sets the row's changed from diff_vals; returns it.
bool store_changed(Database& tournament, std::int64_t sid);
// Reads whether any row of the event has changed = 1 into draw.changes_waiting; returns it.
bool set_changed_recs(Database& tournament, OpenDraw& draw);

// The question before leaving the open draw. False when the user chose to stay (Cancel).
bool leave_draw(Session& session, OpenDraw& draw, LeaveReason reason, const DrawSaveHooks& hooks = {});

// After a save: the days and courts where a match became dead or stopped being dead. The board is marked for
// a refresh when it shows one of them, and is handed them for renumbering. prev_match_state catches up.
std::vector<DayCourt> do_live_match_counts(
    Database& tournament, std::int64_t eid, const ScheduleBoardHooks& board = {});

// The tree of a "ko" draw from the shadow columns of its rows: the draw as the user last left it.
void KO_loadroundsdata(Database& tournament, OpenDraw& draw);
// Opens the event's draw: its state record, and the tree when the event has rows in schedule.
void BF_load_draw(Session& session, OpenDraw& draw, std::int64_t eid, const DrawSaveHooks& hooks = {});
// Reads the open draw again from schedule. A new draw has no rows and stays as it is in memory.
void BF_refresh_draw(Session& session, OpenDraw& draw, const DrawSaveHooks& hooks = {});

} // namespace qv
