#pragma once

#include <cstdint>

namespace qv {

class ScheduleBoard;

// findmatch: brings a match into view on the board. Off the days it shows the unscheduled list or the clipboard
// with the match's state ticked and its event chosen; on a day it ticks the state of the court list and loads the
// day and court. The line is selected. A match that has gone: the match word and " not found, stale data".
bool findmatch(ScheduleBoard& board, std::int64_t sid);

// "show in draw" (BF_find_match_in_draw): the draw area with the match's event open, its filter widened to the
// event when the list does not hold it, read again when stale, and the match located. A match that has gone:
// the match word and " not found,stale data".
bool BF_find_match_in_draw(ScheduleBoard& board, std::int64_t sid);

} // namespace qv
