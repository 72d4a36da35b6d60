#pragma once

#include "scheduling/time_choice.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace qv {

class Database;
class ScheduleBoard;

// WEB_updatematchtimecall: nb/at, time and its minutes (-1 for none) of one match.
void WEB_updatematchtimecall(Database& tournament, std::int64_t sid, std::string_view nbat, std::string_view matchtime);

// "set match time": the choosers' time on every selected court line, in list order. All three choosers empty
// clears the times. Refused with "select " match, then "enter hour", "enter minute", "enter nb/at".
bool set_match_time(ScheduleBoard& board, const TimeChoice& choice);
// "grab match time": the first selected match's nb/at, hour and minute for the choosers; an entry the choosers
// do not offer stays empty. Refused with "select " match.
std::optional<GrabbedTime> grab_match_time(ScheduleBoard& board);
// "clear times": the selected court lines; "clear times " court (menu): every line of the court on display.
// Refused with "select day" and "select " court while no court is shown.
bool BF_clear_times_selected(ScheduleBoard& board);
bool BF_clear_times_court(ScheduleBoard& board);
// "order by time": the court's matches numbered by time, those without one first.
bool BF_order_court_by_time(ScheduleBoard& board);

// "up 1" and "down 1": the focus line changes place with its neighbour. Number, live number, nb/at and time
// change hands, so the time stays in its slot; matchtime_int stays with the match. Nothing at the list's end.
bool WEB_nudge_match_up(ScheduleBoard& board);
bool WEB_nudge_match_down(ScheduleBoard& board);

} // namespace qv
