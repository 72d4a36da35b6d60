#include "scheduling/board_times.h"

#include "core/session.h"
#include "core/time_rules.h"
#include "scheduling/schedule_board.h"

#include <vector>

namespace qv {

namespace {

// The court on display; refused with "select day" or "select " court while there is none.
bool court_shown(ScheduleBoard& board)
{
    if (board.shown())
        return true;
    board.session().talk().message(board.day().empty() ? std::string("select day") : board.select_court_text());
    return false;
}

// The time of the given lines of the court list: one update each; a held list is patched, another read again.
void retime(ScheduleBoard& board, const std::vector<int>& rows, std::string_view nbat, std::string_view matchtime)
{
    auto& court = board.list(BoardListId::court);
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    std::vector<std::int64_t> sids;
    Transaction transaction(db);
    {
        BulkChange bulk(court);
        for (int row : rows) {
            const auto sid = court.line(row).sid;
            WEB_updatematchtimecall(db, sid, nbat, matchtime);
            sids.push_back(sid);
            if (court.on_hold())
                court.set_text(row, quick_fix_schedule_time(court.line(row).text, nbat, matchtime));
        }
    }
    transaction.commit();
    if (!court.on_hold())
        board.refresh_list4();
    board.mark_stale_if_drawn(sids, range);
}

bool nudge(ScheduleBoard& board, int step)
{
    auto& court = board.list(BoardListId::court);
    const int row = court.current();
    const int other = row + step;
    if (row < 0 || other < 0 || other >= court.size())
        return false;
    auto& db = board.session().tournament();
    MatchRow a, b;
    if (!read_match_row(db, court.line(row).sid, a) || !read_match_row(db, court.line(other).sid, b)) {
        board.session().talk().message(board.stale_text(BoardListId::court));
        return false;
    }
    const auto range = board.sid_range();
    Transaction transaction(db);
    auto write = db.query("update schedule set matchnumber=?, matchnumber_live=?, nbat=?, matchtime=? where sid=?");
    write.bind_all(b.matchnumber, b.matchnumber_live, b.nbat, b.matchtime, a.sid);
    write.step();
    write.reset();
    write.bind_all(a.matchnumber, a.matchnumber_live, a.nbat, a.matchtime, b.sid);
    write.step();
    transaction.commit();

    if (court.on_hold()) {
        BulkChange bulk(court);
        court.set_text(row, quick_fix_schedule_time(court.line(row).text, b.nbat, b.matchtime));
        court.set_text(other, quick_fix_schedule_time(court.line(other).text, a.nbat, a.matchtime));
        court.swap(row, other);
    } else {
        board.refresh_list4();
        if (const auto found = court.find(a.sid))
            court.select_only(*found);
    }
    board.mark_stale_if_drawn({ a.sid, b.sid }, range);
    return true;
}

} // namespace

void WEB_updatematchtimecall(Database& tournament, std::int64_t sid, std::string_view nbat, std::string_view matchtime)
{
    tournament.run("update schedule set nbat=?,matchtime=?,matchtime_int=? where sid=?", nbat, matchtime,
        time_to_minutes(matchtime), sid);
}

bool set_match_time(ScheduleBoard& board, const TimeChoice& choice)
{
    auto& court = board.list(BoardListId::court);
    if (!court.any_selected()) {
        board.session().talk().message(board.select_match_text());
        return false;
    }
    if (!check_time_choice(board.session().talk(), choice))
        return false;
    retime(board, court.selected_rows(), choice.nbat, choice.time());
    return true;
}

std::optional<GrabbedTime> grab_match_time(ScheduleBoard& board)
{
    const auto sids = board.list(BoardListId::court).selected_sids();
    if (sids.empty()) {
        board.session().talk().message(board.select_match_text());
        return std::nullopt;
    }
    MatchRow row;
    if (!read_match_row(board.session().tournament(), sids.front(), row)) {
        board.session().talk().message(board.stale_text(BoardListId::court));
        return std::nullopt;
    }
    return grab_time(row.nbat, row.matchtime);
}

bool BF_clear_times_selected(ScheduleBoard& board)
{
    if (!court_shown(board))
        return false;
    auto& court = board.list(BoardListId::court);
    if (!court.any_selected()) {
        board.session().talk().message(board.select_match_text());
        return false;
    }
    retime(board, court.selected_rows(), "", "");
    return true;
}

bool BF_clear_times_court(ScheduleBoard& board)
{
    if (!court_shown(board))
        return false;
    auto& court = board.list(BoardListId::court);
    std::vector<int> rows(static_cast<std::size_t>(court.size()));
    for (int row = 0; row < court.size(); ++row)
        rows[static_cast<std::size_t>(row)] = row;
    retime(board, rows, "", "");
    return true;
}

bool BF_order_court_by_time(ScheduleBoard& board)
{
    if (!court_shown(board))
        return false;
    const auto place = *board.shown();
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    std::vector<std::int64_t> sids;
    for (auto rows
         = db.query("select sid from schedule where scheduledate=? and cid=? order by matchtime_int,matchnumber",
             place.scheduledate, place.cid);
         rows.step();)
        sids.push_back(rows.integer(0));
    Transaction transaction(db);
    auto write = db.query("update schedule set matchnumber=? where sid=?");
    std::int64_t number = 0;
    for (auto sid : sids) {
        write.bind_all(++number, sid);
        write.step();
        write.reset();
    }
    LIVE_MATCH_NUMBERS_DO(db, place.scheduledate);
    transaction.commit();
    // The order is new: the list is read again even on hold.
    board.refresh_list4();
    board.mark_stale_if_drawn(sids, range);
    return true;
}

bool WEB_nudge_match_up(ScheduleBoard& board)
{
    return nudge(board, -1);
}

bool WEB_nudge_match_down(ScheduleBoard& board)
{
    return nudge(board, +1);
}

} // namespace qv
