#pragma once

#include "scheduling/board_list.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
struct SportWords;

// What a match list is made of: an event or all (0), a draw type or "all", "all days" or a day, all courts or one,
// and whether the matches without a day (lists_noday) and the clipboard (lists_include) come too.
struct ListFilter
{
    std::int64_t eid = 0;
    std::string drawtype = "all";
    std::string day = "all days";
    std::optional<std::int64_t> cid;
    bool noday = false;
    bool include_cb = false;
};

// The orders of the lists, as the sort chooser names them.
enum class ListOrder { event, day, court, mid, round, p1, p2, day_time, time };
const std::vector<std::string>& list_order_names(); // "event", "day", "court", "mid", "round", "p1", "p2", ...
std::optional<ListOrder> list_order_from_name(const std::string& name);

// getsql: lists_sids filled with the matches of the filter.
void getsql(Database& tournament, const ListFilter& filter);
// search_name: lists_sids filled with the matches where a player's name contains ("like") or equals the name.
void search_name(Database& tournament, const std::string& name, bool like);

// Which states a list shows (the be. and om. ticks).
struct ListStates
{
    bool empty = true, live = true, unf = true, dead = true;
    bool shows(const std::string& match_state) const;
};

// The matches of lists_sids, no winner rows and no byes, in the order chosen, as assistant lines.
std::vector<BoardLine> load_match_list(Database& tournament, ListOrder order, bool desc, const ListStates& states);
// load_players_matches: every match (no byes) of a player, by name as stored.
std::vector<BoardLine> load_players_matches(
    Database& tournament, const std::string& name, ListOrder order, bool desc, const ListStates& states);

// The visual grid of a day ("all days" for every day) and event (0 for all): a column per court in use, and a box
// per timed match in a shown state. Boxes are few: the 1000th is the last one drawn.
struct VisualBox
{
    std::int64_t sid = 0;
    std::int64_t cid = 0;
    int minutes = 0;
    std::string match_state;
};
struct VisualGrid
{
    std::vector<std::pair<std::int64_t, std::string>> columns; // cid and heading
    std::vector<VisualBox> boxes;
    int first = 0, last = 0; // time range of the boxes, in minutes
    std::string message; // "cannot display >1000 matches", or that no match has a time
};
inline constexpr std::size_t visual_box_limit = 1000;
VisualGrid visual_little_match_boxes(
    Database& tournament, const SportWords& words, const std::string& day, std::int64_t eid, const ListStates& states);

} // namespace qv
