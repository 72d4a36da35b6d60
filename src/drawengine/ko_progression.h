#pragma once

#include "drawengine/open_draw.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// The buttons of a click on a name, as bits: a click may report both.
inline constexpr int left_button = 1;
inline constexpr int right_button = 2;

// What a click did, so that the window knows what to repaint or open.
enum class ClickOutcome {
    nothing, // no change and nothing said: an empty slot, the winner line, the replacement list on show
    refused, // a message was shown; the draw is as it was
    sent_on, // a player went into the next round
    taken_back, // a slot of a later round was emptied
    first_round_menu, // a right click in round 1: the window opens the first-round menu (r1_rmc)
};

struct ClickResult
{
    ClickOutcome outcome = ClickOutcome::nothing;
    std::vector<SlotAddress> changed; // the slots whose contents changed
};

// The slots one click concerns. The score box of a match sits on the slot its winner goes to, so the clicked
// match's score is next's and the following match's is next_next's.
struct ClickControls
{
    SlotAddress clicked;
    SlotAddress opponent;
    SlotAddress next; // level + 1, the position the winner goes to
    SlotAddress next_next; // level + 2, where next's winner goes
    bool has_next = false; // false on the winner line
    bool has_next_next = false; // false for the final and the winner line
};
ClickControls get_click_ctls(const OpenDraw& draw, int level, int position);

// The match whose score box sits on the slot (level, position), level 2 or more: the match of positions
// 2p-1 and 2p one level down. nullopt for round 1 or an address outside the tree.
struct ScoreBoxMatch
{
    int match = 0; // running match number in the draw
    std::int64_t sid = 0; // its schedule row; 0 while the draw is new
    SlotAddress top;
    SlotAddress bottom;
};
std::optional<ScoreBoxMatch> get_ctr_match(const OpenDraw& draw, int level, int position);

// What the long-score window is handed for the score box at (level, position): the long score and the two
// opponents as the draw shows them.
struct LongScoreRequest
{
    ScoreBoxMatch match;
    std::string matchlongscore;
    std::string top;
    std::string bottom;
};
std::optional<LongScoreRequest> add_ls(const OpenDraw& draw, int level, int position);

// A click on the name at (level, position). Left sends the player on, right takes a later round's name back
// (round 1: the first-round menu). Every change is written at once through KO_imm_save.
ClickResult master_click(Session& session, OpenDraw& draw, int level, int position, int button);

// "byes thru": every named player facing a "bye" goes to round 2, even where later rounds are filled.
// Only for an open "ko" draw of a chosen event. Returns the slots it filled.
std::vector<SlotAddress> sendbyesthru(Session& session, OpenDraw& draw);

// First-round slots whose name, in lower case, is "bye".
int KO_getbyecount(const OpenDraw& draw);

// Colours every score box of levels 2 to rounds: highlighted when the flag (draw.ihilightscorebox) is on.
void set_scoreboxes(OpenDraw& draw, bool highlight);

// A score box's tag "a-b?c" as the box shows it: the score text before the first "?", the time text behind it.
struct ScoreDisplay
{
    std::string score;
    std::string time;
};
ScoreDisplay settsdisplay(const ScoreBox& box);

// A bulk tool over schedule: in every row of the event's round rid the top player wins with fixed scores, and
// goes to the row at mw_ptr. Writes live and shadow columns alike, then recomputes the match states.
void progressdraw(Session& session, std::int64_t eid, int rid);

} // namespace qv
