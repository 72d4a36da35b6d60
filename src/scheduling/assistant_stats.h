#pragma once

#include <string>
#include <vector>

namespace qv {

class Database;
struct SportWords;

// The day a statistic covers: "all days", "no day" (the matches without a day) or a day key.
inline constexpr const char* all_days = "all days";
inline constexpr const char* no_day = "no day";

enum class StatsBy { event, day, court };

// A statistics page: its title, the column header and one tab-separated line per row.
struct StatsTable
{
    std::string title;
    std::string header;
    std::vector<std::string> lines;
};

// stats_by_event, stats_by_cid, stats_by_day: the table rebuilt from the matches of the day (no byes, no winner
// rows), a row only where a match was counted, by state and by place. The events get a last "tournament" row with
// the sums and their percentages done and remaining.
void stats_by_event(Database& tournament, const std::string& day);
void stats_by_cid(Database& tournament, const std::string& day);
void stats_by_day(Database& tournament, const std::string& day);
// Rebuilds the table and reads it for display.
StatsTable show_stats(Database& tournament, const SportWords& words, StatsBy by, const std::string& day);

// The key of the statistics' columns, from the sport's words.
std::string stats_key_text(const SportWords& words);

// calc_counts: live, unfinished and dead matches per player name, without byes, wildcards and qualifiers.
void calc_counts(Database& tournament);
// load_player_list: name and the three counts, tab-separated, in the order of one of "pn", "live_cnt", "dead_cnt",
// "unf_cnt".
std::vector<std::string> load_player_list(Database& tournament, const std::string& order_by, bool desc);

} // namespace qv
