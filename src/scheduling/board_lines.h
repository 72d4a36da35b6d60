#pragma once

#include "core/database.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qv {

// The columns of a match that the board's lines, its status line and its moves read.
struct MatchRow
{
    std::int64_t sid = 0;
    std::int64_t eid = 0;
    std::string rsname, rname;
    std::string mtfrn, mbfrn, mttag, mbtag, mwtag, mtttt, mbttt;
    std::string mtseeding, mbseeding;
    std::string match_state;
    std::string nbat, matchtime;
    std::int64_t matchtime_int = -1;
    std::string mtar, mbar;
    std::string matchscore, matchlongscore;
    std::string scheduledate;
    std::int64_t day_idx = 0;
    std::int64_t cid = 0;
    std::int64_t matchnumber = 0;
    std::int64_t matchnumber_live = 0;
    std::string eventname, singdobs;

    // The select list that read() expects, in its order: "sid, eid, rsname, ...".
    static const std::string& columns();
    static MatchRow read(const Statement& row);
};

// One match row by sid; false when it has gone.
bool read_match_row(Database& tournament, std::int64_t sid, MatchRow& row);
// The rows that a condition with one value picks: "select <columns> from schedule where " the condition.
template <class Value>
std::vector<MatchRow> read_match_rows(Database& tournament, const std::string& where, const Value& value);

// The exact headers of the lists.
// clang-format off
inline constexpr std::string_view upper_list_header = " eid      rnd      player1                     vs              player2                                     a           score                           details";
inline constexpr std::string_view court_list_header = " eid      rnd      player1                   vs                player2                                     time           a           score                           day                 details";
// clang-format on

// The people of the register who have availability restrictions, read once per list load (hasar, hasarp).
class AvailabilityLookup
{
public:
    AvailabilityLookup() = default;
    explicit AvailabilityLookup(Database& tournament);
    // hasar: "-" when the player (looked up by lcase(trim(player))) has restrictions, else "".
    std::string hasar(std::string_view player) const;
    // hasarp: the same for a pair, both people of "first/second" looked up.
    std::string hasarp(std::string_view team) const;
    // The mark of a match: both sides, and both partners of each side in a doubles event.
    std::string match_mark(const MatchRow& row) const;

private:
    std::unordered_set<std::string> m_names;
};

// A side of the line: the first-round name trimmed, its seed in brackets, "*" on the winner, "^" on both sides of
// an unfinished match.
std::string player_field(const MatchRow& row, bool top);
// getab: 'a' when the winner is the top side, 'b' otherwise; ' ' when there is no winner.
char getab(const MatchRow& row);
// nb/at and time: three characters and five ("nb 09:00", "   09:00", eight blanks for none).
std::string time_field(std::string_view nbat, std::string_view matchtime);
// A time "9:5" as "09:05"; the empty text stays empty.
std::string format_hhmm(std::string_view matchtime);
bool has_seed(const MatchRow& row);

// The lines of the unscheduled list and the clipboard: eid, round, player 1, player 2, availability, score,
// details; and of the court list, with the time after the players and the day after the score.
std::string upper_line_text(const MatchRow& row, const AvailabilityLookup& availability);
std::string court_line_text(const MatchRow& row, const AvailabilityLookup& availability);

// A line of an upper list for the court list (eight blanks for the time, then the day), and back.
std::string translate_sstring_to_l4s(std::string_view upper_line, std::string_view day);
std::string translate_l4s_to_sstring(std::string_view court_line);

// The time field of a court line replaced: the text between the fourth and fifth tab.
std::string quick_fix_schedule_time(std::string_view court_line, std::string_view nbat, std::string_view matchtime);
// The hats of the player fields: removed, or added when neither side holds "*".
std::string quick_fix_schedule_remove_hats(std::string_view line);
std::string quick_fix_schedule_add_hats(std::string_view line);

// The tab-separated fields of a line, and their join.
std::vector<std::string> line_fields(std::string_view line);
std::string join_fields(const std::vector<std::string>& fields);

// The position a match shows: 0 off the days (cid 0 or -2), else matchnumber_live, else -matchnumber.
std::int64_t display_position(std::int64_t cid, std::int64_t matchnumber_live, std::int64_t matchnumber);

// The status line of a selected match, built from the match word.
std::string status_line(const MatchRow& row, std::string_view match_word);

template <class Value>
std::vector<MatchRow> read_match_rows(Database& tournament, const std::string& where, const Value& value)
{
    std::vector<MatchRow> rows;
    for (auto found = tournament.query("select " + MatchRow::columns() + " from schedule where " + where, value);
         found.step();)
        rows.push_back(MatchRow::read(found));
    return rows;
}

} // namespace qv
