#pragma once

#include <string>
#include <vector>

namespace qv {

class Database;

// The day lists of the documents: each line is the day's key (its first ten characters), a blank and the day's
// state marks; the matches without a day are the line "no day".
std::vector<std::string> days_working_schedule(Database& tournament);
// Days with unfinished or dead matches, "no day" among them when matches without a day have results.
std::vector<std::string> days_results(Database& tournament);
// Days with live, unfinished or dead matches.
std::vector<std::string> days_playertimes(Database& tournament);

// VIP_setlivedays: livedays afresh from the first ten characters of each chosen line.
void VIP_setlivedays(Database& tournament, const std::vector<std::string>& lines);
// setlivedays_idocs: the same, with "no day" standing for the matches without a day.
void setlivedays_idocs(Database& tournament, const std::vector<std::string>& lines);
// VIP_setlivedays_playertimes: the player times page's days; the list holds no "no day".
void VIP_setlivedays_playertimes(Database& tournament, const std::vector<std::string>& lines);

// The days of livedays in the order chosen, the empty day as "unscheduled".
std::vector<std::string> live_days(Database& tournament);
// "days:" and those days, comma-separated.
std::string live_days_line(Database& tournament);

} // namespace qv
