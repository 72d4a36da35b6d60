#include "scheduling/board_moves.h"

#include "core/session.h"
#include "scheduling/schedule_board.h"

#include <cstdint>
#include <vector>

namespace qv {

namespace {

constexpr std::int64_t cid_clipboard = -2;

bool refuse(ScheduleBoard& board, const std::string& text)
{
    board.session().talk().message(text);
    return false;
}

// The chosen day and court of the choosers; refused with "select day" (or day_text) and "select " court.
std::optional<DayCourt> chosen_target(ScheduleBoard& board, const char* day_text = "select day")
{
    if (board.day().empty()) {
        refuse(board, day_text);
        return std::nullopt;
    }
    if (!board.court()) {
        refuse(board, board.select_court_text());
        return std::nullopt;
    }
    return DayCourt { board.day(), *board.court() };
}

// Walks the selected lines of a list in order. The action gets each line and says whether it leaves the list;
// a line that leaves is taken out of a held list (a list not on hold is read again afterwards).
template <class Action> std::vector<std::int64_t> each_selected(BoardList& from, Action action)
{
    std::vector<std::int64_t> moved;
    BulkChange bulk(from);
    for (int row = 0; row < from.size(); ++row) {
        if (!from.line(row).selected)
            continue;
        const BoardLine line = from.line(row);
        action(line);
        moved.push_back(line.sid);
        if (from.on_hold()) {
            from.remove(row);
            --row;
        }
    }
    return moved;
}

bool to_court(ScheduleBoard& board, BoardListId source)
{
    auto& from = board.list(source);
    if (!from.any_selected())
        return refuse(board, board.select_match_text());
    const auto target = chosen_target(board);
    if (!target)
        return false;
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const auto day_idx = board.day_idx_of(target->scheduledate);
    auto& court = board.list(BoardListId::court);
    const bool patch_court = court.on_hold() && board.shown() == target;

    Transaction transaction(db);
    auto update = db.query("update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=? where sid=?");
    BulkChange court_bulk(court);
    const auto moved = each_selected(from, [&](const BoardLine& line) {
        update.bind_all(target->scheduledate, day_idx, target->cid, board.next_matchnumber(), line.sid);
        update.step();
        update.reset();
        if (patch_court)
            court.append({ line.sid, translate_sstring_to_l4s(line.text, target->scheduledate), line.seeded });
    });
    if (moved.empty())
        return false;
    // The moves and the renumbering are one unit of work.
    LIVE_MATCH_NUMBERS_DO(db, target->scheduledate);
    transaction.commit();
    board.reload_unheld();
    board.mark_stale_if_drawn(moved, range);
    return true;
}

enum class CbNumber { none, next };

bool from_court(ScheduleBoard& board, std::int64_t cid, CbNumber number)
{
    auto& court = board.list(BoardListId::court);
    if (!court.any_selected())
        return refuse(board, board.select_match_text());
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const auto day = board.shown() ? board.shown()->scheduledate : std::string();
    const auto target_list = cid == cid_clipboard ? BoardListId::clipboard : BoardListId::unscheduled;
    auto& target = board.list(target_list);

    Transaction transaction(db);
    auto update = db.query(R"(update schedule set scheduledate='', day_idx=0, cid=?, nbat='', matchtime='',
        matchtime_int=-1, matchnumber_live=0, matchnumber=? where sid=?)");
    BulkChange target_bulk(target);
    const auto moved = each_selected(court, [&](const BoardLine& line) {
        update.bind_all(cid, number == CbNumber::next ? board.next_matchnumber() : std::int64_t { 0 }, line.sid);
        update.step();
        update.reset();
        if (target.on_hold())
            target.append({ line.sid, translate_l4s_to_sstring(line.text), line.seeded });
    });
    if (moved.empty())
        return false;
    LIVE_MATCH_NUMBERS_DO(db, day);
    transaction.commit();
    board.reload_unheld();
    board.mark_stale_if_drawn(moved, range);
    return true;
}

// Between the two upper lists: one update per line, the line carried over to the other list when it is held.
bool between_upper(ScheduleBoard& board, BoardListId source, std::string_view sql, bool running_count)
{
    auto& from = board.list(source);
    if (!from.any_selected())
        return refuse(board, board.select_match_text());
    const auto target_id = source == BoardListId::unscheduled ? BoardListId::clipboard : BoardListId::unscheduled;
    auto& target = board.list(target_id);
    auto& db = board.session().tournament();
    Transaction transaction(db);
    auto update = db.query(sql);
    std::int64_t count = 0;
    BulkChange target_bulk(target);
    const auto moved = each_selected(from, [&](const BoardLine& line) {
        if (running_count)
            update.bind_all(++count, line.sid);
        else
            update.bind_all(line.sid);
        update.step();
        update.reset();
        if (target.on_hold())
            target.append({ line.sid, line.text, line.seeded });
    });
    transaction.commit();
    board.reload_unheld(true, false);
    return !moved.empty();
}

} // namespace

bool move_down(ScheduleBoard& board)
{
    return board.clipboard_shown() ? NET_move_sel_cb_to_list4(board) : NET_move_sel_schedule_to_list4(board);
}

bool NET_move_sel_schedule_to_list4(ScheduleBoard& board)
{
    return to_court(board, BoardListId::unscheduled);
}

bool NET_move_sel_cb_to_list4(ScheduleBoard& board)
{
    return to_court(board, BoardListId::clipboard);
}

bool move_up(ScheduleBoard& board)
{
    return board.clipboard_shown() ? NET_move_list4_to_cb(board) : NET_move_list4_to_schedule(board);
}

bool NET_move_list4_to_schedule(ScheduleBoard& board)
{
    return from_court(board, 0, CbNumber::none);
}

bool NET_move_list4_to_cb(ScheduleBoard& board)
{
    return from_court(board, cid_clipboard, CbNumber::next);
}

bool NET_move_list4_to_invisble_cb(ScheduleBoard& board)
{
    return from_court(board, cid_clipboard, CbNumber::none);
}

bool copy_court_to_clipboard(ScheduleBoard& board)
{
    return board.clipboard_shown() ? NET_move_list4_to_cb(board) : NET_move_list4_to_invisble_cb(board);
}

bool NET_move_sel_schedule_to_cb(ScheduleBoard& board)
{
    return between_upper(
        board, BoardListId::unscheduled, "Update schedule  set cid=-2,matchnumber=? where sid=?", true);
}

bool NET_move_sel_cb_to_schedule(ScheduleBoard& board)
{
    return between_upper(board, BoardListId::clipboard, "Update schedule set cid=0 where sid=?", false);
}

void NET_paste_all_cb_to_schedule(ScheduleBoard& board)
{
    auto& db = board.session().tournament();
    auto& unscheduled = board.list(BoardListId::unscheduled);
    auto& clipboard = board.list(BoardListId::clipboard);
    if (!unscheduled.on_hold() && !clipboard.on_hold()) {
        db.run("Update schedule set cid=0,matchnumber=0 where cid=-2");
    } else {
        Transaction transaction(db);
        auto update = db.query("Update schedule set cid=0,matchnumber=0 where sid=?");
        BulkChange bulk_unscheduled(unscheduled), bulk_clipboard(clipboard);
        for (auto row : read_match_rows(db, "cid=? order by rowid", cid_clipboard)) {
            update.bind_all(row.sid);
            update.step();
            update.reset();
            board.patch_out(BoardListId::clipboard, row.sid);
            row.cid = 0;
            row.matchnumber = 0;
            board.patch_in(BoardListId::unscheduled, row);
        }
        transaction.commit();
    }
    board.reload_unheld(true, false);
}

bool NET_move_all_cb_to_list4(ScheduleBoard& board)
{
    const auto target = chosen_target(board, "Select day");
    if (!target)
        return false;
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const auto day_idx = board.day_idx_of(target->scheduledate);
    auto& court = board.list(BoardListId::court);
    const bool patch_court = court.on_hold() && board.shown() == target;
    std::vector<std::int64_t> moved;

    Transaction transaction(db);
    auto update = db.query("update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=? where sid=?");
    BulkChange bulk_court(court), bulk_clipboard(board.list(BoardListId::clipboard));
    for (auto row : read_match_rows(db, "cid=? order by rowid", cid_clipboard)) {
        row.matchnumber = board.next_matchnumber();
        update.bind_all(target->scheduledate, day_idx, target->cid, row.matchnumber, row.sid);
        update.step();
        update.reset();
        moved.push_back(row.sid);
        board.patch_out(BoardListId::clipboard, row.sid);
        if (patch_court) {
            row.scheduledate = target->scheduledate;
            row.day_idx = day_idx;
            row.cid = target->cid;
            board.patch_in(BoardListId::court, row);
        }
    }
    if (moved.empty())
        return false;
    // The moves and the renumbering are one unit of work.
    LIVE_MATCH_NUMBERS_DO(db, target->scheduledate);
    transaction.commit();
    board.reload_unheld();
    board.mark_stale_if_drawn(moved, range);
    return true;
}

std::optional<std::string> gather_state(std::string_view caption)
{
    if (caption == "all unf to cb")
        return "2.1";
    if (caption == "all empty to cb")
        return "1";
    if (caption == "all live to cb")
        return "2";
    if (caption == "all dead to cb")
        return "3";
    return std::nullopt;
}

void gather_to_cb(ScheduleBoard& board, std::string_view match_state)
{
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    // The rows are read first only for what the held lists and the draw on show must learn.
    auto rows = read_match_rows(db, "match_state=? and cid <>-2", match_state);
    Transaction transaction(db);
    db.run("Update schedule set cid=-2,scheduledate='',day_idx=0 where match_state=?", match_state);
    transaction.commit();

    std::vector<std::int64_t> moved;
    {
        BulkChange bulk_unscheduled(board.list(BoardListId::unscheduled));
        BulkChange bulk_clipboard(board.list(BoardListId::clipboard));
        BulkChange bulk_court(board.list(BoardListId::court));
        for (auto& row : rows) {
            moved.push_back(row.sid);
            board.patch_out(BoardListId::unscheduled, row.sid);
            board.patch_out(BoardListId::court, row.sid);
            row.cid = -2;
            row.scheduledate.clear();
            row.day_idx = 0;
            board.patch_in(BoardListId::clipboard, row);
        }
    }
    board.reload_unheld();
    board.mark_stale_if_drawn(moved, range);
}

bool WEB_move_from_list4_to(ScheduleBoard& board, const std::string& day, std::optional<std::int64_t> cid)
{
    auto& court = board.list(BoardListId::court);
    if (!court.any_selected())
        return refuse(board, board.select_match_text());
    if (day.empty())
        return refuse(board, "select day");
    if (!cid)
        return refuse(board, board.select_court_text());
    const DayCourt target { day, *cid };
    if (board.shown() == target)
        return false;
    auto& db = board.session().tournament();
    const auto range = board.sid_range();
    const auto day_idx = board.day_idx_of(day);
    const auto day_in_hand = board.shown() ? board.shown()->scheduledate : std::string();

    Transaction transaction(db);
    auto update = db.query("update schedule set scheduledate=?, day_idx=?, cid=?, matchnumber=? where sid=?");
    const auto moved = each_selected(court, [&](const BoardLine& line) {
        update.bind_all(day, day_idx, *cid, board.next_matchnumber(), line.sid);
        update.step();
        update.reset();
    });
    if (moved.empty())
        return false;
    // Only the day in hand is renumbered: matches sent to another day keep their running numbers until that day
    // is renumbered in its turn.
    LIVE_MATCH_NUMBERS_DO(db, day_in_hand);
    transaction.commit();
    board.reload_unheld(false, true);
    board.mark_stale_if_drawn(moved, range);
    return true;
}

} // namespace qv
