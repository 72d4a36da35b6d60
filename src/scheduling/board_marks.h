#pragma once

#include "scheduling/schedule_board.h"

namespace qv {

// "mark unfinished matches live" and "mark live matches unfinished" on the selected lines of a list. Only a match
// in state "2.1" (or "2") changes; a held list loses (or gains) the hats of the lines that changed, another list is
// read again. Refused with "select " match.
bool mark_unf_live(ScheduleBoard& board, BoardListId which);
bool mark_live_unf(ScheduleBoard& board, BoardListId which);

} // namespace qv
