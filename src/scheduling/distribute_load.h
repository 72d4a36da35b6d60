#pragma once

#include "scheduling/schedule_board.h"
#include "scheduling/time_choice.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

class BoardList;
class Database;
class ScheduleBoard;
struct SportWords;

// Who opened distributeload: the board's unscheduled list (List1), its clipboard (List1_cb) or the assistant.
enum class DistloadCaller { list1, list1_cb, assistant };

// A court the load can go to: the court word, a blank and the number, with its cid.
struct DistloadCourt
{
    std::int64_t cid = 0;
    std::string text;
};

// load_cids: the courts of the day above 0, so first available, to be confirmed and the day clipboard are never
// offered.
std::vector<DistloadCourt> load_cids(Database& tournament, const SportWords& words, const std::string& day);

// "distribute the load" on the board: refused with "select day", then "select " and the matches word.
bool distload_allowed_board(ScheduleBoard& board);
// "distribute the load" in the assistant: "select " and the matches word, then "select day to distribute matches
// across".
bool distload_allowed_assistant(ScheduleBoard& board, bool any_selected, const std::string& day);

// What the window was given: the courts selected, in list order, the choosers and their indexes, the minutes box
// and "ignore time, just distribute".
struct DistloadRequest
{
    std::vector<DistloadCourt> courts;
    TimeChoice start;
    int nbat_index = 0;
    int hour_index = 0;
    int minute_index = 0;
    std::string minutes;
    bool ignore_time = false;
};

// What the run needs: the day and its idx, the courts in turn, and time, minutes and nb/at (all empty, and minutes
// 0, when the times are ignored).
struct DistloadRun
{
    std::string day;
    std::int64_t idx = 0;
    std::vector<DistloadCourt> courts;
    std::string time;
    int minutes = 0;
    std::string nbat;
};

enum class DistloadOutcome { done, refused, refused_minutes };

// The confirm: the minutes box (an empty one becomes "0" and so meets "zero invalid in this context"), the courts,
// the minute chooser ("Need minute"), the dl. settings stored, then BF_distributetheload. The hour chooser is not
// tested: with a minute alone the time begins with ":" and counts its hour as 0. The box is handed back as the
// window should show it.
DistloadOutcome distload_confirm(ScheduleBoard& board, DistloadCaller caller, const std::string& day, std::int64_t idx,
    DistloadRequest& request, BoardList* assistant_list = nullptr);

// The selected lines of the source go to the courts in turn; each time the turn comes back to the first court the
// time moves on by the minutes (never past "24:00"). Each match takes the next match number; the day is renumbered.
void BF_distributetheload(
    ScheduleBoard& board, DistloadCaller caller, const DistloadRun& run, BoardList* assistant_list = nullptr);
// From the board's upper list: the lines leave it, and a held court list on display takes those of its court.
void BF_distributetheload_schedule(ScheduleBoard& board, BoardListId source, const DistloadRun& run);
// From an assistant list: the lines stay, with their new day, court and time written into them.
void BF_distributetheload_assistant(ScheduleBoard& board, BoardList& source, const DistloadRun& run);

} // namespace qv
