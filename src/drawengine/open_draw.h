#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// What the draw area knows about the draw it has open.
struct DrawState
{
    std::int64_t curr_eid = 0; // 0 when no event is chosen
    std::string evtsex; // events.sex
    std::string drawtype; // "ko" or "rr"
    std::string timestamp_text; // time of the last save
    std::string singdobs; // "singles" or "doubles"
    int pts = 0;
    int rounds = 0; // tree levels: round_count(drawsize) + 1, the last one the winner line
    int drawsize = 0; // 2 .. 128
    std::string eventname;
    std::int64_t min_sid = 0; // first sid of the draw in schedule
    std::int64_t max_sid = 0; // one past the last sid written by the stub
    bool on_screen = false; // a draw is open (false also while an event without a draw is chosen)
    bool all_draws = false; // "do all draws" runs: its per-event messages stay quiet
    bool new_draw = false; // the open draw has no rows in schedule yet
    bool batch = false; // "byes thru" runs: a filled round two levels on does not stop a send
    bool list1_showing = false; // the first-round replacement list is on show: clicks on names do nothing
    bool changes_waiting = false; // some row of the event has changed = 1: the save button is yellow
    bool force_draw = false; // the open new draw was hand-placed: its save fixes the reserves
};

// The score of the match whose winner goes to a slot: so a slot of level r shows the score of a level r-1 match.
struct ScoreBox
{
    std::string matchscore; // the text on show
    std::string matchlongscore; // the tip
    std::string tag; // "a-b?c": score and time text as the draw area splits them for show
    bool highlighted = false; // draw.ihilightscorebox colouring
};

// One line of the tree. The three name forms are kept apart whatever the level; which of frn and tag is on show
// depends on the level (see OpenDraw::caption).
struct Slot
{
    std::string ttt; // full name: the key form; empty while the slot is empty
    std::string frn; // first-round name, at most 18 characters
    std::string tag; // sub-round handle, at most 13 characters
    std::string seed; // seed number as text, "wc", "q" or empty
    std::string country; // a single code ("" when the entry had none or several)
    std::string ar; // availability marks: "", "." or ".."
    std::string sex; // short sex code: "m", "f", "mm", "mf", "fm", "ff" or ""
    std::int64_t sid = 0; // the schedule row holding this slot as mt or mb; 0 while the draw is new
    ScoreBox score; // used from level 2 on
};

struct SlotAddress
{
    int level = 0;
    int position = 0;
    friend bool operator==(const SlotAddress&, const SlotAddress&) = default;
};

// The draw held in memory while the draw area shows it: the state record and the tree of slots.
// Level 1 has drawsize positions, each further level half as many, the last level (the winner line) one.
class OpenDraw
{
public:
    DrawState draw;

    // An empty tree for the size; draw.drawsize and draw.rounds are set. A size that round_count does not know
    // (0, 256 ...) leaves no levels at all.
    void build_tree(int drawsize);
    // Removes the slots; the state record stays as it is.
    void clear_tree() { m_levels.clear(); }

    int levels() const { return static_cast<int>(m_levels.size()); }
    int positions(int level) const;
    bool has_slot(int level, int position) const;
    // 1-based; std::out_of_range for an address outside the tree.
    Slot& slot(int level, int position);
    const Slot& slot(int level, int position) const;
    Slot& slot(SlotAddress at) { return slot(at.level, at.position); }
    const Slot& slot(SlotAddress at) const { return slot(at.level, at.position); }

    // On show: frn at level 1, tag from level 2. The other one is the second form, and a slot whose second form
    // is empty counts as empty.
    const std::string& caption(int level, int position) const;
    const std::string& second_form(int level, int position) const;
    bool is_empty(int level, int position) const { return second_form(level, position).empty(); }

    // The data field as text: "ar^psex" at level 1, "cty^seed^ar^sex^" from level 2.
    std::string data_field(int level, int position) const;

    // Empties a slot's names and data; its score box stays.
    void clear_slot(int level, int position);

    // The row of schedule that holds a slot as mt or mb: its running match number in the draw (1 is the top
    // match of round 1, drawsize the winner row).
    int match_of(int level, int position) const;
    // Side of the slot in its row: 't' for mt (odd position), 'b' for mb.
    static char side(int position) { return (position & 1) ? 't' : 'b'; }

    // Tree arithmetic.
    static int partner(int position) { return (position & 1) ? position + 1 : position - 1; }
    static int next_position(int position) { return (position + 1) / 2; }
    static SlotAddress mw_target(SlotAddress at) { return { at.level + 1, next_position(at.position) }; }
    static std::string address_text(int level, int position)
    {
        return std::to_string(level) + "." + std::to_string(position);
    }
    // "L.P" as written in mt, mb and mw_ptr; nullopt for anything else.
    static std::optional<SlotAddress> split_mtmb(std::string_view text);

private:
    std::vector<std::vector<Slot>> m_levels;
};

// "cty^seed^ar^sex^" split back into a slot's data; missing parts are empty.
void parse_data_field(std::string_view text, Slot& slot);

} // namespace qv
