#include "scheduling/add_result.h"

#include "core/session.h"
#include "scheduling/result_places.h"
#include "scheduling/schedule_board.h"

#include <algorithm>

namespace qv {

namespace {

// WEB_add_score_list1 and WEB_add_score_list4: the line of each row written, in each list that holds it.
void patch_lines(ScheduleBoard& board, const std::vector<std::int64_t>& sids)
{
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court })
        for (auto sid : sids)
            board.update_line(which, sid);
}

// The days and courts whose counts the result changed. Matches off the days are counted by LIVE_MATCH_COUNTS_ALL
// only: numbering their list would disturb the clipboard's order.
std::vector<DayCourt> counted_places(Database& db, std::int64_t eid, const std::vector<std::int64_t>& sids)
{
    auto places = match_places(db, sids);
    for (auto& place : do_live_match_counts(db, eid))
        if (std::find(places.begin(), places.end(), place) == places.end())
            places.push_back(std::move(place));
    std::erase_if(places, [](const DayCourt& place) { return place.scheduledate.empty(); });
    return places;
}

} // namespace

std::string_view onsave_caption(OnSave onsave)
{
    switch (onsave) {
    case OnSave::ok_confirm:
        return "ok confirm";
    case OnSave::close_confirm:
        return "close confirm";
    default:
        return "beep confirm";
    }
}

OnSave onsave_from_caption(std::string_view caption)
{
    if (caption == "ok confirm")
        return OnSave::ok_confirm;
    if (caption == "close confirm")
        return OnSave::close_confirm;
    return OnSave::beep_confirm;
}

AfterResult BF_add_result(ScheduleBoard& board, const MatchResult& result, OnSave onsave)
{
    auto& session = board.session();
    auto& db = session.tournament();
    const auto written = write_result(session, result);
    if (written.empty())
        return AfterResult::refused;
    const auto eid = db.scalar_integer("select eid from schedule where sid=?", result.sid);

    const bool hold = session.settings().integer("hold_refresh_on_add_result") == 1;
    const auto places = counted_places(db, eid, written);
    if (hold) {
        for (const auto& place : places)
            live_match_counts(db, place.scheduledate, place.cid);
        patch_lines(board, written);
    } else {
        board.renumber(places);
        patch_lines(board, written);
        board.reload_unheld();
    }

    auto& link = board.draw_link();
    const auto range = board.sid_range();
    board.mark_stale_if_drawn(written, range);
    if (board.draw_view_stale() && link.shown_eid && link.shown_eid() == eid && link.reload_draw) {
        link.reload_draw();
        board.set_draw_view_stale(false);
    }

    switch (onsave) {
    case OnSave::ok_confirm:
        session.talk().message("ok");
        return AfterResult::stay;
    case OnSave::close_confirm:
        return AfterResult::close;
    default:
        session.talk().beep();
        return AfterResult::stay;
    }
}

} // namespace qv
