#include "scheduling/assistant_moves.h"

#include "core/session.h"
#include "scheduling/assistant_lines.h"
#include "scheduling/board_times.h"
#include "scheduling/match_counters.h"
#include "scheduling/schedule_board.h"

#include <set>
#include <vector>

namespace qv {

namespace {

bool refuse(ScheduleBoard& board, const std::string& text)
{
    board.session().talk().message(text);
    return false;
}

// The line of each changed match read again; a match that has gone keeps its line.
void reread(ScheduleBoard& board, BoardList& list, const std::vector<std::int64_t>& sids)
{
    auto& db = board.session().tournament();
    AvailabilityLookup availability(db);
    BulkChange bulk(list);
    for (auto sid : sids) {
        MatchRow row;
        const auto at = list.find(sid);
        if (at && read_match_row(db, sid, row))
            list.set_text(*at, assistant_line_text(row, availability));
    }
}

// The selected matches with their current day and court.
struct Selected
{
    std::int64_t sid = 0;
    std::string day;
    std::int64_t cid = 0;
};
std::vector<Selected> selected(ScheduleBoard& board, const BoardList& list)
{
    std::vector<Selected> out;
    auto& db = board.session().tournament();
    auto q = db.query("select scheduledate, cid from schedule where sid=?");
    for (auto sid : list.selected_sids()) {
        q.bind_all(sid);
        if (q.step())
            out.push_back({ sid, q.text(0), q.integer(1) });
        q.reset();
    }
    return out;
}

// Each day that lost or gained a match is numbered again, then the board's lists follow.
void finish(ScheduleBoard& board, BoardList& list, const std::set<std::string>& days,
    const std::vector<std::int64_t>& moved, Transaction& transaction, const std::optional<SidRange>& range)
{
    auto& db = board.session().tournament();
    for (const auto& day : days)
        if (!day.empty())
            LIVE_MATCH_NUMBERS_DO(db, day);
    transaction.commit();
    reread(board, list, moved);
    board.reload_unheld();
    board.mark_stale_if_drawn(moved, range);
}

// Off the days: to the unscheduled matches (cid 0, number 0) or the clipboard (cid -2, the next number).
bool off_the_days(ScheduleBoard& board, BoardList& list, std::int64_t cid)
{
    if (!list.any_selected())
        return refuse(board, board.select_match_text());
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    std::set<std::string> days;
    std::vector<std::int64_t> moved;
    Transaction transaction(db);
    auto update = db.query(R"(update schedule set scheduledate='', day_idx=0, cid=?, nbat='', matchtime='',
        matchtime_int=-1, matchnumber_live=0, matchnumber=? where sid=?)");
    for (const auto& match : selected(board, list)) {
        if (match.cid == cid)
            continue;
        update.bind_all(cid, cid == 0 ? std::int64_t { 0 } : board.next_matchnumber(), match.sid);
        update.step();
        update.reset();
        days.insert(match.day);
        moved.push_back(match.sid);
    }
    finish(board, list, days, moved, transaction, range);
    return !moved.empty();
}

bool mark(ScheduleBoard& board, BoardList& list, std::string_view to, std::string_view from)
{
    if (!list.any_selected())
        return refuse(board, board.select_match_text());
    auto& db = board.session().tournament();
    std::vector<std::int64_t> changed;
    Transaction transaction(db);
    for (auto sid : list.selected_sids())
        if (db.run("update schedule set match_state=? where match_state=? and sid=?", to, from, sid) > 0)
            changed.push_back(sid);
    transaction.commit();
    reread(board, list, changed);
    board.reload_unheld();
    return true;
}

} // namespace

bool WEB_move_from_list4_to_SPECIAL(
    ScheduleBoard& board, BoardList& list, const std::string& day, std::optional<std::int64_t> cid)
{
    if (!list.any_selected())
        return refuse(board, board.select_match_text());
    if (day.empty())
        return refuse(board, "select day");
    if (!cid)
        return refuse(board, board.select_court_text());
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const auto day_idx = board.day_idx_of(day);
    std::set<std::string> days { day };
    std::vector<std::int64_t> moved;
    Transaction transaction(db);
    auto update = db.query("update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=? where sid=?");
    for (const auto& match : selected(board, list)) {
        if (match.day == day && match.cid == *cid)
            continue;
        update.bind_all(day, day_idx, *cid, board.next_matchnumber(), match.sid);
        update.step();
        update.reset();
        days.insert(match.day);
        moved.push_back(match.sid);
    }
    finish(board, list, days, moved, transaction, range);
    return !moved.empty();
}

bool WEB_move_list4_to_list1_SPECIAL(ScheduleBoard& board, BoardList& list)
{
    return off_the_days(board, list, 0);
}

bool WEB_move_list4_to_cb_SPECIAL(ScheduleBoard& board, BoardList& list)
{
    return off_the_days(board, list, -2);
}

bool assistant_mark_unf_live(ScheduleBoard& board, BoardList& list)
{
    return mark(board, list, "2", "2.1");
}

bool assistant_mark_live_unf(ScheduleBoard& board, BoardList& list)
{
    return mark(board, list, "2.1", "2");
}

bool assistant_set_time(ScheduleBoard& board, BoardList& list, const TimeChoice& choice)
{
    if (!list.any_selected())
        return refuse(board, board.select_match_text());
    if (!check_time_choice(board.session().talk(), choice))
        return false;
    auto& db = board.session().tournament();
    const auto sids = list.selected_sids();
    Transaction transaction(db);
    for (auto sid : sids)
        WEB_updatematchtimecall(db, sid, choice.all_empty() ? std::string() : choice.nbat, choice.time());
    transaction.commit();
    reread(board, list, sids);
    board.reload_unheld();
    return true;
}

} // namespace qv
