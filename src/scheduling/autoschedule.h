#pragma once

#include "scheduling/time_choice.h"

#include <string>
#include <string_view>

namespace qv {

class ScheduleBoard;

// "auto schedule" on the board: refused with "select " match while no line of the court list is selected.
bool autoschedule_allowed(ScheduleBoard& board);

// What autoschedule_frm was given: the three choosers (their entries and their indexes, for the dl. settings)
// and the text of "allow minutes per match".
struct AutoscheduleRequest
{
    TimeChoice start;
    int nbat_index = 0;
    int hour_index = 0;
    int minute_index = 0;
    std::string minutes;
};

// Why the confirm stopped, so that the window can put the focus back in the minutes box.
enum class AutoscheduleOutcome { done, refused, refused_minutes };

// The confirm of autoschedule_frm: the choosers and the box tested in their order ("enter nb/at", "enter hour",
// "enter minute", "value required", the integer check, "zero invalid in this context", "Max 1440,24 hours"),
// the dl. settings stored, then BF_autoschedule.
AutoscheduleOutcome autoschedule_confirm(ScheduleBoard& board, const AutoscheduleRequest& request);

// The selected lines of the court list, top to bottom, get nb/at and the time, each next one the time plus the
// minutes (never past "24:00"). Unselected lines keep their times; nothing is moved or renumbered. A held list is
// patched line by line, another read again; a match of the draw on show marks the draw stale.
void BF_autoschedule(ScheduleBoard& board, std::string time, int minutes, std::string_view nbat);

} // namespace qv
