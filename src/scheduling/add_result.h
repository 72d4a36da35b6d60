#pragma once

#include "drawengine/result_entry.h"

#include <cstdint>
#include <string_view>

namespace qv {

class ScheduleBoard;

// What follows a save in the result window (addres.onsave), by the item data of its choice.
enum class OnSave { beep_confirm = 0, close_confirm = 1, ok_confirm = 2 };
// The choice's caption and back; an unknown caption is "beep confirm".
std::string_view onsave_caption(OnSave onsave);
OnSave onsave_from_caption(std::string_view caption);

// What the window does after BF_add_result.
enum class AfterResult { refused, stay, close };

// The result written (write_result), then the board follows: the days and courts of the rows written are counted
// and renumbered, the rows' lines patched (WEB_add_score_list1, WEB_add_score_list4) and, unless
// hold_refresh_on_add_result is on, the lists and the day and court choosers read again; the draw on show is read
// again, or marked stale. Last the confirmation of onsave: a beep, "ok", or the window closes.
AfterResult BF_add_result(ScheduleBoard& board, const MatchResult& result, OnSave onsave);

} // namespace qv
