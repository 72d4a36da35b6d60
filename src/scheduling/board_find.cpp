#include "scheduling/board_find.h"

#include "core/session.h"
#include "entries/filters.h"
#include "scheduling/schedule_board.h"

namespace qv {

namespace {

// The check box word of a state; none for a bye.
std::optional<std::string_view> state_word(std::string_view match_state)
{
    for (std::size_t i = 0; i < state_values.size(); ++i)
        if (state_values[i] == match_state)
            return state_words[i];
    return std::nullopt;
}

void tick_state(ScheduleBoard& board, BoardListId which, std::string_view match_state)
{
    const auto word = state_word(match_state);
    if (word && !board.ticks(which).shows(match_state))
        board.set_tick(which, *word, true);
}

void select_sid(BoardList& list, std::int64_t sid)
{
    if (const auto row = list.find(sid))
        list.select_only(*row);
}

} // namespace

bool findmatch(ScheduleBoard& board, std::int64_t sid)
{
    MatchRow row;
    if (!read_match_row(board.session().tournament(), sid, row)) {
        board.session().talk().message(board.stale_text(BoardListId::unscheduled));
        return false;
    }
    if (row.cid == 0 || row.cid == -2) {
        const auto which = row.cid == 0 ? BoardListId::unscheduled : BoardListId::clipboard;
        tick_state(board, which, row.match_state);
        board.show_upper(which);
        board.set_event_filter(row.eid);
        select_sid(board.list(which), sid);
        return true;
    }
    tick_state(board, BoardListId::court, row.match_state);
    board.load_day_court(row.scheduledate, row.cid);
    select_sid(board.list(BoardListId::court), sid);
    return true;
}

bool BF_find_match_in_draw(ScheduleBoard& board, std::int64_t sid)
{
    auto& session = board.session();
    auto found
        = session.tournament().query("select eid, mtttt, mbttt, rid, drawtype, mt, mb from schedule where sid=?", sid);
    if (!found.step()) {
        session.talk().message(board.stale_text(BoardListId::court));
        return false;
    }
    const MatchInDraw match { sid, found.integer(0), found.integer(3), found.text(4), found.text(5), found.text(6) };
    auto& link = board.draw_link();
    const bool on_show = link.shown_eid && link.shown_eid() == match.eid;
    // BF_find_match_in_draw_filter: the draw's own list must hold the event before it can be opened.
    if (!on_show && link.event_listed && !link.event_listed(match.eid)) {
        session.settings().set_disk_var(
            filter_keys::draw_events, "*^*^*^*^*^event number^" + std::to_string(match.eid));
        if (link.reload_events)
            link.reload_events();
    }
    if (link.open_event)
        link.open_event(match.eid);
    if (on_show && board.draw_view_stale() && link.reload_draw)
        link.reload_draw();
    board.set_draw_view_stale(false);
    if (link.locate)
        link.locate(match);
    return true;
}

} // namespace qv
