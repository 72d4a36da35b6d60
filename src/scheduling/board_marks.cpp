#include "scheduling/board_marks.h"

#include "core/session.h"

namespace qv {

namespace {

bool mark(ScheduleBoard& board, BoardListId which, std::string_view to, std::string_view from)
{
    auto& target = board.list(which);
    if (!target.any_selected()) {
        board.session().talk().message(board.select_match_text());
        return false;
    }
    auto& db = board.session().tournament();
    const bool unfinished = to == "2.1";
    Transaction transaction(db);
    {
        BulkChange bulk(target);
        for (int row : target.selected_rows()) {
            const int changed = db.run(
                "update schedule set match_state=? where match_state=? and sid=?", to, from, target.line(row).sid);
            // The hats follow the table: a match in another state keeps its line.
            if (target.on_hold() && changed > 0) {
                const auto& text = target.line(row).text;
                target.set_text(
                    row, unfinished ? quick_fix_schedule_add_hats(text) : quick_fix_schedule_remove_hats(text));
            }
        }
    }
    transaction.commit();
    if (!target.on_hold())
        board.reload(which);
    return true;
}

} // namespace

bool mark_unf_live(ScheduleBoard& board, BoardListId which)
{
    return mark(board, which, "2", "2.1");
}

bool mark_live_unf(ScheduleBoard& board, BoardListId which)
{
    return mark(board, which, "2.1", "2");
}

} // namespace qv
