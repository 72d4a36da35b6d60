#include "core/session.h"
#include "ui/add_result_window.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/main_window.h"
#include "ui/rr_draw_view.h"
#include "ui/schedule_board.h"

#include <QListWidget>
#include <QTableWidget>
#include <QToolButton>

namespace qv {

namespace {

// The locator of the draw area: the slot of a knock-out's match, or the line of a round robin's, brought into view.
void locate_in_draw(DrawArea& draw, const MatchInDraw& match)
{
    if (match.drawtype == "rr") {
        auto* lines = draw.rr_view()->match_list();
        const int row = static_cast<int>(match.rid) - 1;
        if (row >= 0 && row < lines->rowCount()) {
            lines->selectRow(row);
            lines->scrollToItem(lines->item(row, 0));
        }
        return;
    }
    const auto at = OpenDraw::split_mtmb(match.mt);
    if (!at)
        return;
    if (auto* item = draw.view()->slot_item(at->level, at->position)) {
        draw.view()->centerOn(item);
        draw.view()->setFocus();
    }
}

} // namespace

void ScheduleBoardArea::connect_main()
{
    // The draw area and the toolbar stand only once the main window is built: they are wired at the first open.
    if (m_connected)
        return;
    m_connected = true;
    auto* draw = m_main.draw_area();

    auto hooks = m_board->draw_save_hooks();
    // What the draw's saves change on the board shows at once.
    hooks.renumber = [this, renumber = hooks.renumber](const std::vector<DayCourt>& changed) {
        renumber(changed);
        sync();
    };
    hooks.refresh_event = [this, refresh_event = hooks.refresh_event](std::int64_t eid) {
        refresh_event(eid);
        sync();
    };
    hooks.refresh = [this, refresh = hooks.refresh] {
        fill_event_filter();
        refresh();
        sync();
    };
    draw->set_board_hooks(hooks);

    auto& link = m_board->draw_link();
    link.sid_range = [draw]() -> std::optional<SidRange> {
        const auto& state = draw->open_draw().draw;
        if (!state.on_screen || state.curr_eid == 0)
            return std::nullopt;
        return SidRange { state.min_sid, state.max_sid };
    };
    link.shown_eid = [draw]() -> std::int64_t {
        const auto& state = draw->open_draw().draw;
        return state.on_screen ? state.curr_eid : 0;
    };
    link.event_listed = [draw](std::int64_t eid) {
        for (int row = 0; row < draw->events()->count(); ++row)
            if (draw->events()->item(row)->data(Qt::UserRole).toLongLong() == eid)
                return true;
        return false;
    };
    link.reload_events = [draw] { draw->reload_events(); };
    link.open_event = [this, draw](std::int64_t eid) {
        m_session.ishow(Area::draw);
        if (m_session.current_area() == Area::draw)
            draw->choose_event(eid);
    };
    link.reload_draw = [draw] { draw->refresh_on_entry(); };
    link.locate = [draw](const MatchInDraw& match) { locate_in_draw(*draw, match); };

    connect(draw, &DrawArea::resultRequested, this,
        [this](qint64 sid) { open_addresult(m_session, *this, window(), sid); });
    connect(m_main.match_count_button(), &QToolButton::clicked, this, &ScheduleBoardArea::match_counts);
}

} // namespace qv
