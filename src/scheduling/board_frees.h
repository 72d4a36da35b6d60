#pragma once

namespace qv {

class ScheduleBoard;

// The board's ways of taking matches off the days without a question. A freed match loses its day, court,
// number and time. Each returns false when refused.

// "free current day": every match of the chosen day; refused with "select day". The draw on show is marked stale
// and the court list emptied.
bool BF_free_current_day(ScheduleBoard& board);
// "free " court: every match of the chosen day's chosen court, reserved courts as any other; refused with
// "select day" and "select " court.
bool BF_free_court(ScheduleBoard& board);
// "free all days" and the save of the days: every match but those on the clipboard. The court list is emptied
// and the draw on show marked stale.
void BF_free_all_days2(ScheduleBoard& board);

} // namespace qv
