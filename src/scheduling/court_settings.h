#pragma once

#include "scheduling/time_choice.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The rows a court's start time goes to, in the order the scope chooser offers them.
enum class StartTimeScope { this_court_this_day, all_courts_all_days, all_courts_this_day, this_court_all_days };

// The scope chooser's texts, built from the court words, in the order of StartTimeScope.
std::vector<std::string> start_time_scopes(std::string_view court_word, std::string_view courts_word);

// setcourt_nm_st: the start time of one court of one day, or of the rows the scope names. All three choosers
// empty clears it; some empty is refused ("enter hour", "enter minute", "enter nb/at"). False when refused.
bool setcourt_nm_st(
    Session& session, std::string_view sdate, std::int64_t cid, const TimeChoice& choice, StartTimeScope scope);

// set_court_name's heading: "first available", "to be confirmed", "day clipboard", or the court word, " number"
// and the number.
std::string court_name_heading(std::int64_t cid, std::string_view court_word);
// The check box "apply to this " court " number on all days".
std::string court_name_all_days_caption(std::string_view court_word);
// set_court_name: the name of one court of one day, or of that court number on every day.
void set_court_name(Session& session, std::string_view sdate, std::int64_t cid, std::string_view name, bool all_days);

// A court's start time and name as the board shows them beside the court list.
struct CourtDetails
{
    std::string starttime;
    std::string courtname;
};
CourtDetails loadcourtstarttime(Session& session, std::string_view sdate, std::int64_t cid);
CourtDetails loadcourtstarttime(Database& tournament, std::string_view sdate, std::int64_t cid);

} // namespace qv
