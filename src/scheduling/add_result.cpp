#include "scheduling/add_result.h"

#include "core/session.h"
#include "scheduling/result_places.h"
#include "scheduling/schedule_board.h"

#include <algorithm>
#include <map>
#include <string>

namespace qv {

namespace {

// The states of a match and of the row its winner goes to, before the result.
using StatesBefore = std::map<std::int64_t, std::string>;
StatesBefore states_before(Database& db, std::int64_t sid)
{
    StatesBefore states;
    for (auto rows = db.query("select s.sid, s.match_state from schedule m join schedule s on s.eid=m.eid and "
                              "(s.sid=m.sid or s.mt=m.mw_ptr or s.mb=m.mw_ptr) where m.sid=?",
             sid);
         rows.step();)
        states[rows.integer(0)] = rows.text(1);
    return states;
}

// Whether an upper list counts the match: its place, a match and not the winner row, the event filter passed.
bool counted(const ScheduleBoard& board, BoardListId which, const MatchRow& row)
{
    return row.cid == (which == BoardListId::clipboard ? -2 : 0) && row.rname != "winner"
        && (board.event_filter() == 0 || board.event_filter() == row.eid);
}

// Whether the match belongs in a list at all: its place, its state ticked, the event filter passed.
bool belongs(ScheduleBoard& board, BoardListId which, const MatchRow& row)
{
    if (!board.shows(which, row))
        return false;
    switch (which) {
    case BoardListId::unscheduled:
        return row.cid == 0;
    case BoardListId::clipboard:
        return row.cid == -2;
    default:
        return board.shown() && board.shown()->scheduledate == row.scheduledate && board.shown()->cid == row.cid;
    }
}

// The unscheduled list stands in order of event and match, and a draw's sids rise with its match numbers: the
// row before which a match's line goes.
int unscheduled_row(const BoardList& list, const MatchRow& row)
{
    for (int at = 0; at < list.size(); ++at) {
        const auto& line = list.line(at);
        const auto eid = std::stoll(line.text.substr(0, line.text.find('\t')));
        if (eid > row.eid || (eid == row.eid && line.sid > row.sid))
            return at;
    }
    return list.size();
}

// WEB_add_score_list1 and WEB_add_score_list4: the line of each row written is patched where it stands, and a row
// that a list gains or loses by its new state is put in or taken out, so that a long list is not read again
// for each result. The clipboard, whose order may be that of adding, reads itself again when it gains a line.
// Under hold_refresh_on_add_result only the lines that stand are patched.
void follow_lists(ScheduleBoard& board, const std::vector<std::int64_t>& sids, const StatesBefore& before, bool hold)
{
    auto& db = board.session().tournament();
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court }) {
        auto& list = board.list(which);
        bool reload = false;
        for (auto sid : sids) {
            MatchRow row;
            if (!read_match_row(db, sid, row))
                continue;
            if (which != BoardListId::court && counted(board, which, row) && before.contains(sid))
                board.recount(which, before.at(sid), row.match_state);
            const auto present = list.find(sid);
            const bool wanted = belongs(board, which, row);
            if (present && wanted)
                board.update_line(which, sid);
            else if (present && !hold)
                list.remove(*present);
            else if (wanted && !hold) {
                if (which == BoardListId::unscheduled)
                    list.insert(unscheduled_row(list, row), board.line_for(which, row));
                else
                    reload = !list.on_hold();
                if (list.on_hold() && which != BoardListId::unscheduled)
                    board.patch_in(which, row);
            }
        }
        if (reload)
            board.reload(which);
    }
}

// The days and courts of the rows written, whose counts the result changed; those rows' prev_match_state catches
// up, as after a draw's save. Matches off the days are counted by LIVE_MATCH_COUNTS_ALL only: numbering their list
// would disturb the clipboard's order.
std::vector<DayCourt> counted_places(Database& db, const std::vector<std::int64_t>& sids)
{
    auto places = match_places(db, sids);
    auto counted = db.query("update schedule set prev_match_state=match_state where sid=?");
    for (auto sid : sids) {
        counted.bind_all(sid);
        counted.step();
        counted.reset();
    }
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
    // The result and the counts it changes are one operation with one commit.
    Transaction transaction(db);
    const auto before = states_before(db, result.sid);
    const auto written = write_result(session, result);
    if (written.empty())
        return AfterResult::refused;
    const auto eid = db.scalar_integer("select eid from schedule where sid=?", result.sid);
    const auto places = counted_places(db, written);
    for (const auto& place : places)
        live_match_counts(db, place.scheduledate, place.cid);
    transaction.commit();

    const bool hold = session.settings().integer("hold_refresh_on_add_result") == 1;
    if (!hold) {
        board.load_dates_courts();
        // The court on show was renumbered: it is read again whole, unless held.
        if (const auto shown = board.shown(); shown && !board.list(BoardListId::court).on_hold())
            if (std::find(places.begin(), places.end(), *shown) != places.end())
                board.refresh_list4();
    }
    follow_lists(board, written, before, hold);

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
