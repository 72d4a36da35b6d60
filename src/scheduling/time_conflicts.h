#pragma once

#include "scheduling/board_list.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// Two times in minutes lie too close: neither is -1 and they are less than the average match time apart.
bool overlap(int t1, int t2, int avg);

// A line of a day list of the conflicts page: the day, its text, its idx.
struct TcDay
{
    std::string sdate;
    std::int64_t idx = 0;
    std::string text;
};

// days_basic_tcs: the days that hold a timed match that is neither dead nor a bye; the line is the day and its
// marks.
std::vector<TcDay> days_basic_tcs(Database& tournament);

// Compute for the days chosen: refused with "select day(s)", "value required", the integer check,
// "zero invalid in this context", "max 1440,24 hours"; then schedule.avgmatchtime is stored and the user asked to
// confirm. The result tables are emptied and filled day by day. False when refused or declined.
bool compute_time_conflicts(Session& session, const std::vector<std::string>& days, const std::string& minutes);

// The result tables emptied, all or for one day.
void kill_all_tcs(Database& tournament);
void kill_all_tcs_for_sdate(Database& tournament, const std::string& day);

// One day's conflicts: every pair of overlapping times of the day, each match at those times entered for its four
// players and its court; after each pair, the players and courts with a single match are let go again, so that
// only those with two matches within one overlapping pair stay, and grow through later pairs.
void BF_time_conflict_sdate1(Database& tournament, const std::string& day, int avg);

enum class TcKind { match, court };

// load_ctc_mtc_days: the days of a result table with their counts, "day(n)".
std::vector<TcDay> load_ctc_mtc_days(Database& tournament, TcKind kind);

// The exact header of the conflict lists.
// clang-format off
inline constexpr std::string_view time_conflicts_header = "day                cid   time              mins    player1                         vs                           player2                                                      details";
// clang-format on

// load_time_conflicts: the heading ("match time conflicts,mon02mar26") and a line per match of each offender,
// the match's sid as item data.
struct TcList
{
    std::string heading;
    std::vector<BoardLine> lines;
};
TcList load_time_conflicts(Database& tournament, const std::string& day, TcKind kind);

} // namespace qv
