#pragma once

#include "scheduling/time_choice.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qv {

class BoardList;
class ScheduleBoard;

// The moves and marks of the assistant's match lists. Each works on the selected lines in list order, writes
// through the board (its match numbers, its renumbering and its lists) and leaves the lines in the assistant's
// list, read again with the match's new place, time or state. Refusals are said; false when refused.

// "move": to a day and court ("select " match, "select day", "select " court). A match already there is skipped.
bool WEB_move_from_list4_to_SPECIAL(
    ScheduleBoard& board, BoardList& list, const std::string& day, std::optional<std::int64_t> cid);
// "move to no day": back to the unscheduled matches, without day and time.
bool WEB_move_list4_to_list1_SPECIAL(ScheduleBoard& board, BoardList& list);
// "copy to clipboard": to the clipboard with the next match number, without day and time.
bool WEB_move_list4_to_cb_SPECIAL(ScheduleBoard& board, BoardList& list);

// "mark unfinished matches live" and "mark live matches unfinished".
bool assistant_mark_unf_live(ScheduleBoard& board, BoardList& list);
bool assistant_mark_live_unf(ScheduleBoard& board, BoardList& list);

// "set match time": the choosers' time on every selected match; all three empty clears the times.
bool assistant_set_time(ScheduleBoard& board, BoardList& list, const TimeChoice& choice);

} // namespace qv
