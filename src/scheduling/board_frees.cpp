#include "scheduling/board_frees.h"

#include "core/session.h"
#include "scheduling/days_courts.h"
#include "scheduling/schedule_board.h"

namespace qv {

namespace {

// The freed matches join a held unscheduled list; lists not on hold are read again.
void after_free(ScheduleBoard& board, std::vector<MatchRow> freed)
{
    {
        BulkChange bulk(board.list(BoardListId::unscheduled));
        for (auto& row : freed) {
            row.scheduledate.clear();
            row.day_idx = 0;
            row.cid = 0;
            row.matchnumber = 0;
            board.patch_in(BoardListId::unscheduled, row);
        }
    }
    board.reload_unheld(true, false);
}

} // namespace

bool BF_free_current_day(ScheduleBoard& board)
{
    const auto day = board.day();
    if (day.empty()) {
        board.session().talk().message("select day");
        return false;
    }
    auto& db = board.session().tournament();
    auto freed = read_match_rows(db, "scheduledate=? order by cid,matchnumber", day);
    db.run("update schedule set scheduledate='',nbat='',matchtime='',day_idx=0,cid=0,matchnumber=0,matchtime_int=-1 "
           "where scheduledate=?",
        day);
    board.set_draw_view_stale(true);
    board.list(BoardListId::court).clear();
    after_free(board, std::move(freed));
    return true;
}

bool BF_free_court(ScheduleBoard& board)
{
    const auto day = board.day();
    if (day.empty()) {
        board.session().talk().message("select day");
        return false;
    }
    if (!board.court()) {
        board.session().talk().message(board.select_court_text());
        return false;
    }
    const DayCourt target { day, *board.court() };
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    std::vector<MatchRow> freed;
    for (auto& row : read_match_rows(db, "scheduledate=? order by cid,matchnumber", day))
        if (row.cid == target.cid)
            freed.push_back(std::move(row));
    db.run("update schedule set scheduledate='',nbat='',matchtime='',day_idx=0,cid=0,matchnumber=0,matchtime_int=-1 "
           "where scheduledate=? and cid=?",
        day, target.cid);
    std::vector<std::int64_t> sids;
    for (const auto& row : freed)
        sids.push_back(row.sid);
    board.mark_stale_if_drawn(sids, range);
    if (board.shown() == target)
        board.list(BoardListId::court).clear();
    after_free(board, std::move(freed));
    return true;
}

void BF_free_all_days2(ScheduleBoard& board)
{
    auto& db = board.session().tournament();
    auto freed = read_match_rows(db, "cid <>? and cid <>0 order by day_idx,cid,matchnumber", -2);
    free_all_days_statement(db);
    board.list(BoardListId::court).clear();
    board.set_draw_view_stale(true);
    after_free(board, std::move(freed));
}

} // namespace qv
