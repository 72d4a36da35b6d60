#include "scheduling/autoschedule.h"

#include "core/session.h"
#include "core/time_rules.h"
#include "core/utf8.h"
#include "core/validators.h"
#include "scheduling/board_times.h"
#include "scheduling/schedule_board.h"
#include "scheduling/time_choice.h"

#include <vector>

namespace qv {

bool autoschedule_allowed(ScheduleBoard& board)
{
    if (board.list(BoardListId::court).any_selected())
        return true;
    board.session().talk().message(board.select_match_text());
    return false;
}

AutoscheduleOutcome autoschedule_confirm(ScheduleBoard& board, const AutoscheduleRequest& request)
{
    auto& session = board.session();
    auto& talk = session.talk();
    const auto& start = request.start;
    if (start.nbat.empty()) {
        talk.message("enter nb/at");
        return AutoscheduleOutcome::refused;
    }
    if (start.hour.empty()) {
        talk.message("enter hour");
        return AutoscheduleOutcome::refused;
    }
    if (start.minute.empty()) {
        talk.message("enter minute");
        return AutoscheduleOutcome::refused;
    }
    const auto minutes_text = trim(request.minutes);
    if (!report(talk, value_required(minutes_text)) || !report(talk, check_integer(minutes_text)))
        return AutoscheduleOutcome::refused_minutes;
    const auto minutes = minutes_value(minutes_text);
    if (minutes == 0) {
        talk.message("zero invalid in this context");
        return AutoscheduleOutcome::refused_minutes;
    }
    if (minutes > max_minutes) {
        talk.message("Max 1440,24 hours");
        return AutoscheduleOutcome::refused_minutes;
    }

    auto& settings = session.settings();
    settings.set_disk_var("dl.nbat", std::to_string(request.nbat_index));
    settings.set_disk_var("dl.hrs", std::to_string(request.hour_index));
    settings.set_disk_var("dl.mins", std::to_string(request.minute_index));
    settings.set_disk_var("dl.minsadd", std::to_string(minutes));
    BF_autoschedule(board, start.hour + ":" + start.minute, static_cast<int>(minutes), start.nbat);
    return AutoscheduleOutcome::done;
}

void BF_autoschedule(ScheduleBoard& board, std::string time, int minutes, std::string_view nbat)
{
    auto& court = board.list(BoardListId::court);
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const bool hold = court.on_hold();
    std::vector<std::int64_t> sids;
    Transaction transaction(db);
    {
        // A held list is hidden while its lines change.
        std::optional<BulkChange> hidden;
        if (hold)
            hidden.emplace(court);
        for (int row = 0; row < court.size(); ++row) {
            if (!court.line(row).selected)
                continue;
            const auto sid = court.line(row).sid;
            WEB_updatematchtimecall(db, sid, nbat, time);
            if (hold)
                court.set_text(row, quick_fix_schedule_time(court.line(row).text, nbat, time));
            sids.push_back(sid);
            time = add_minutes(time, minutes);
        }
    }
    transaction.commit();
    if (!hold)
        board.refresh_list4();
    board.mark_stale_if_drawn(sids, range);
}

} // namespace qv
