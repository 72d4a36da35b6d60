#pragma once

#include "entries/main_lists.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Settings;

// Every filtered list begins with this line; choosing it opens the filter window.
inline constexpr std::string_view set_filter_line = "set filter...";

// The settings keys that hold filters. The player keys with a source and an id are repaired at open.
namespace filter_keys {
inline constexpr std::string_view players_import_export = "players_import_export_filter";
inline constexpr std::string_view players_folders_assign = "players_folders_assign_filter";
inline constexpr std::string_view players_delete = "players_delete_filter";
inline constexpr std::string_view players_addtoevent = "players_addtoevent_filter";
inline constexpr std::string_view folders_addtoevent = "folders_addtoevent_filter";
inline constexpr std::string_view admin_events_manage = "admin_events_manage_filter";
inline constexpr std::string_view draw_events = "draw_events_filter";
inline constexpr std::string_view events_addtoevent = "events_addtoevent_filter";
inline constexpr std::string_view targetevents_addtoevent = "targetevents_addtoevent_filter";
} // namespace filter_keys

// ---- Player filter: source^id^male^female^reserves^non-reserve^players^teams^order ----

enum class PlayerSource { all = 1, event = 2, folder = 3 };
enum class PlayerOrder { player, second_name, insertion };

struct PlayerFilter
{
    PlayerSource source = PlayerSource::all;
    std::int64_t id = 0; // the event's eid or the folder's fid, 0 for none
    bool male = true;
    bool female = true;
    bool reserves = true;
    bool non_reserve = true;
    bool players = true;
    bool teams = true;
    PlayerOrder order = PlayerOrder::player;
};

// Reads a stored text. A damaged or missing field takes the value that restricts nothing (source "1", id 0,
// the tick unset, order by player), so a broken setting still lists players.
PlayerFilter parse_player_filter(std::string_view text);
std::string player_filter_text(const PlayerFilter& filter);

// The stored words of the order list: "order by player", "order by second name", "order order of insertion".
std::string_view player_order_word(PlayerOrder order);
const std::vector<std::string>& player_order_words();

// The add-to-event lists have no source of their own: their tag leaves the source out.
enum class FilterScope { with_source, without_source };

// The filter in words: "all players " (or "event id: " / "folder id: " and the id), then "male: ", "female: ",
// "reserve: ", "non-reserve: ", "players: ", "teams: " with 1 or 0, and "order by: " with the order.
std::string disp_tag(const PlayerFilter& filter, FilterScope scope = FilterScope::with_source);

// The statements that give the filtered list. Values the user chose (the event or folder id) are bound to the
// "?" of a statement; the fixed words of the ticks stand in the text.
struct PlayerFilterSql
{
    // Run first, in order, each binding the id to its "?" if it has one: fill the scratch list of names.
    std::vector<std::string> fill_alist;
    // The list itself, binding the id to its "?" if it has one.
    std::string select;
    std::int64_t id = 0;
};

// Builds the statements as the list is built:
// - the order part " order by player", " order by sname" or " order by pid";
// - a tick condition only when exactly one of a pair is ticked: " and sex='male'" / " and sex='female'",
//   " and pval='1'" / " and pval='0'";
// - source "1": "select * from players where " and the conditions, cleaned by filter_where_and, and the order;
//   "select * from players order by player" when there is none, whatever the chosen order;
// - source "3": "select * from players where fid=?" and the conditions;
// - source "2": the event's entries fill alist (p1name and partner of a doubles event, player otherwise) and
//   "select * from players where lower(trim(player)) in ( select nm as player from alist ) " and the conditions.
// The reserve ticks (" and reserve=true" / " and reserve=false") narrow the entries of source "2". The
// register has no reserve flag, so for sources "1" and "3" they do nothing.
PlayerFilterSql player_filter_sql(Database& db, const PlayerFilter& filter);

// "... where  and x" -> "... where x": the first " and " after "where " goes.
std::string filter_where_and(std::string_view sql);

struct FilteredPlayer
{
    std::int64_t pid = 0;
    std::string player;
    std::string fname;
    std::string sname;
    std::string sex;
    int pval = 1; // 1 player, 0 team
    std::int64_t fid = 0;
    std::string country;
    std::string rating;
    std::string ranking;
};

// The players the filter selects, in its order. Uses the scratch table alist for source "2".
std::vector<FilteredPlayer> filtered_players(Database& db, const PlayerFilter& filter);

// ---- Event filter: singles/doubles^sex^type^draw^entries^order, "*" meaning no restriction ----

struct EventFilter
{
    std::string singdobs = "*"; // "*", "singles", "doubles"
    std::string sex = "*"; // "*", "male", "female", "mixed", "neutral"
    std::string type = "*"; // "*", "players only", "teams only", "either"
    std::string draw = "*"; // "*", "draw done", "draw not done"
    std::string entries = "*"; // "*", "has entries", "has no entries"
    std::string order = "event number"; // "event number", "drawdone", "event name"
};

// The choices of the six lists, in list order.
const std::vector<std::string>& event_singdobs_words();
const std::vector<std::string>& event_sex_words();
const std::vector<std::string>& event_type_words();
const std::vector<std::string>& event_draw_words();
const std::vector<std::string>& event_entries_words();
const std::vector<std::string>& event_order_words();

// A field that is not one of its list's words reads as "*" (the order as "event number").
EventFilter parse_event_filter(std::string_view text);
std::string event_filter_text(const EventFilter& filter);

// "singles/doubles: ", "event sex: ", "event type: ", "draw done: ", "has entries: ", "order by: " with the words.
std::string disp_tag(const EventFilter& filter);

// "select * from events where " with " and singdobs='...'", " and sex='...'", " and pte='p|t|e'",
// " and drawdone=true" / " and drawdone=false", cleaned by filter_where_and; "Select * from events " when nothing
// is set; then " order by eid", " order by drawdone" or " order by eventname". The words come from fixed lists.
std::string event_filter_sql(const EventFilter& filter);

// The events the filter selects as list lines: "(" eid ")" eventname, "*" before it when the draw is done.
// "has entries" / "has no entries" is tested row by row: raw doubles entries for a doubles event, entries
// for a singles one.
std::vector<ListLine> filtered_events(Database& db, const EventFilter& filter);

// ---- Stored filters ----

PlayerFilter load_player_filter(Settings& settings, std::string_view key);
void store_player_filter(Settings& settings, std::string_view key, const PlayerFilter& filter);
EventFilter load_event_filter(Settings& settings, std::string_view key);
void store_event_filter(Settings& settings, std::string_view key, const EventFilter& filter);

} // namespace qv
