#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv {

class ScheduleBoard;

// The moves of the board between the unscheduled list, the clipboard and the courts of the days. Each works on
// the selected lines of its list, in list order, one update of schedule per match; lists on hold are patched line
// by line and the others read again. Each returns false when it was refused or moved nothing; refusals are said.

// "down": the selected lines of the upper list on show to the chosen day and court.
bool move_down(ScheduleBoard& board);
bool NET_move_sel_schedule_to_list4(ScheduleBoard& board);
bool NET_move_sel_cb_to_list4(ScheduleBoard& board);

// "up": the selected lines of the court list back to the upper list on show. A match that leaves a day loses
// its time.
bool move_up(ScheduleBoard& board);
bool NET_move_list4_to_schedule(ScheduleBoard& board);
bool NET_move_list4_to_cb(ScheduleBoard& board);
// To a clipboard that is not on display: matchnumber 0.
bool NET_move_list4_to_invisble_cb(ScheduleBoard& board);
// "copy to clipboard" under the court list: to the clipboard, on display or not.
bool copy_court_to_clipboard(ScheduleBoard& board);

// "copy to clipboard" (upper): unscheduled to clipboard, numbered by a running count of the operation.
bool NET_move_sel_schedule_to_cb(ScheduleBoard& board);
// "move back to schedule": clipboard to unscheduled; matchnumber stays.
bool NET_move_sel_cb_to_schedule(ScheduleBoard& board);
// "paste from clipboard" (upper): every clipboard match to the unscheduled list.
void NET_paste_all_cb_to_schedule(ScheduleBoard& board);
// "paste from clipboard" (lower): every clipboard match to the chosen day and court, in table order.
bool NET_move_all_cb_to_list4(ScheduleBoard& board);

// "all unf to cb", "all empty to cb", "all live to cb", "all dead to cb": every match of the state, from every
// day and from the unscheduled list, to the clipboard. Times stay.
void gather_to_cb(ScheduleBoard& board, std::string_view match_state);
// The state of each menu entry: "2.1", "1", "2", "3"; none for another caption.
std::optional<std::string> gather_state(std::string_view caption);

// "move matches to day.court": the selected court lines to another day and court; times stay.
bool WEB_move_from_list4_to(ScheduleBoard& board, const std::string& day, std::optional<std::int64_t> cid);

} // namespace qv
