#include "core/match_record.h"
#include "core/session.h"
#include "documents/printroutines.h"
#include "scheduling/autoschedule.h"
#include "scheduling/availability.h"
#include "scheduling/board_files.h"
#include "scheduling/board_find.h"
#include "scheduling/board_frees.h"
#include "scheduling/board_marks.h"
#include "scheduling/board_moves.h"
#include "scheduling/board_times.h"
#include "ui/add_result_window.h"
#include "ui/autoschedule_window.h"
#include "ui/board_list_view.h"
#include "ui/court_windows.h"
#include "ui/distload_window.h"
#include "ui/list_search.h"
#include "ui/pdf_printer.h"
#include "ui/players_windows.h"
#include "ui/qt_text.h"
#include "ui/schedule_board.h"
#include "ui/score_windows.h"
#include "ui/setdatescourts_window.h"
#include "ui/time_choosers.h"
#include "ui/window_behaviour.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>

namespace qv {

void ScheduleBoardArea::on_click(const QString& caption, std::function<void()> action)
{
    auto* target = button(caption);
    if (!target)
        return;
    connect(target, &QPushButton::clicked, this, [this, action = std::move(action)] {
        if (!m_session.has_tournament())
            return;
        action();
        sync();
    });
}

void ScheduleBoardArea::connect_panel(BoardListId which)
{
    auto& panel = m_panels[static_cast<std::size_t>(which)];
    for (std::size_t i = 0; i < panel.ticks.size(); ++i)
        connect(panel.ticks[i], &QCheckBox::toggled, this, [this, which, i](bool on) {
            if (!m_session.has_tournament())
                return;
            m_board->set_tick(which, state_words[i], on);
            sync();
        });
    connect(panel.hold, &QCheckBox::toggled, this, [this, which](bool on) {
        if (m_session.has_tournament())
            m_board->set_hold(which, on);
        sync();
    });
    connect(panel.chooser, &QComboBox::activated, this, [this, which, chooser = panel.chooser](int index) {
        const auto entry = chooser->itemText(index);
        chooser->setCurrentIndex(0);
        list_chooser(which, entry);
    });
    connect(panel.view, &BoardListView::currentSidChanged, this, [this, which](qint64 sid) {
        m_active = which;
        status_of(which, sid);
    });
    connect(panel.view, &QListWidget::itemPressed, this, [this, which] { m_active = which; });

    if (which != BoardListId::court)
        return;
    // Everything else is wired once, with the court list.
    connect(m_upper_tabs, &QTabBar::currentChanged, this,
        [this](int index) { show_upper(index == 1 ? BoardListId::clipboard : BoardListId::unscheduled); });
    connect(m_event_filter, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_session.has_tournament() || m_filling)
            return;
        m_board->set_event_filter(m_event_filter->currentData().toLongLong());
        sync();
    });
    connect(m_day_list, &QListWidget::currentRowChanged, this, &ScheduleBoardArea::choose_day_row);
    connect(m_court_list, &QListWidget::currentRowChanged, this, &ScheduleBoardArea::choose_court_row);
    connect(m_move_day, &QComboBox::currentIndexChanged, this, [this] { fill_move_courts(); });

    auto& board = *m_board;
    on_click(QStringLiteral("refresh schedule"), [&board] { board.refresh_schedule(); });
    on_click(QStringLiteral("upper copy to clipboard"), [&board] { NET_move_sel_schedule_to_cb(board); });
    on_click(QStringLiteral("upper paste from clipboard"), [&board] { NET_paste_all_cb_to_schedule(board); });
    on_click(QStringLiteral("move back to schedule"), [&board] { NET_move_sel_cb_to_schedule(board); });
    on_click(QStringLiteral("order by added"), [&board] { board.loadcb(ScheduleBoard::CbOrder::by_added); });
    on_click(QStringLiteral("upper mark unfinished matches live"), [&board] { mark_unf_live(board, board.upper()); });
    on_click(QStringLiteral("upper mark live matches unfinished"), [&board] { mark_live_unf(board, board.upper()); });
    on_click(QStringLiteral("down"), [this] { down(); });
    on_click(QStringLiteral("up"), [this] { up(); });
    on_click(QStringLiteral("select all"), [this] { m_board->list(m_active).select_all(true); });
    on_click(QStringLiteral("unselect all"), [this] { m_board->list(m_active).select_all(false); });
    on_click(QStringLiteral("select all seeds"), [this] { m_board->list(m_active).select_seeds(true); });
    on_click(QStringLiteral("unselect all seeds"), [this] { m_board->list(m_active).select_seeds(false); });
    on_click(QStringLiteral("show in draw"), [this] { show_in_draw(); });
    on_click(QStringLiteral("add result"), [this] { add_result(); });
    on_click(QStringLiteral("match note"), [this] { match_note(); });
    on_click(QStringLiteral("player details"), [this] { player_details(); });
    on_click(QStringLiteral("availability restrictions"), [this] { availability(); });
    on_click(QStringLiteral("search"), [this] { search(); });
    on_click(QStringLiteral("match counts"), [this] { match_counts(); });
    on_click(QStringLiteral("load court"), [this] { load_court(); });
    on_click(QStringLiteral("start time"), [this] { open_start_time(); });
    on_click(QStringLiteral("name"), [this] { open_court_name(); });
    on_click(QStringLiteral("up 1"), [this] { nudge(-1); });
    on_click(QStringLiteral("down 1"), [this] { nudge(+1); });
    on_click(QStringLiteral("lower copy to clipboard"), [&board] { copy_court_to_clipboard(board); });
    on_click(QStringLiteral("lower paste from clipboard"), [&board] { NET_move_all_cb_to_list4(board); });
    on_click(QStringLiteral("order by time"), [&board] { BF_order_court_by_time(board); });
    on_click(QStringLiteral("clear times"), [&board] { BF_clear_times_selected(board); });
    on_click(QStringLiteral("auto schedule"), [this] { auto_schedule(); });
    on_click(QStringLiteral("upper distribute the load"), [this] { distribute_load(); });
    on_click(
        QStringLiteral("lower mark unfinished matches live"), [&board] { mark_unf_live(board, BoardListId::court); });
    on_click(
        QStringLiteral("lower mark live matches unfinished"), [&board] { mark_live_unf(board, BoardListId::court); });
    on_click(QStringLiteral("set match time"), [this] { set_time(); });
    on_click(QStringLiteral("clear"), [this] { m_times->clear(); });
    on_click(QStringLiteral("grab match time"), [this] { grab_time(); });
    on_click(QStringLiteral("move matches to day.court"), [this] {
        const auto cid = m_move_court->currentIndex() >= 0
            ? std::optional<std::int64_t>(m_move_court->currentData().toLongLong())
            : std::nullopt;
        WEB_move_from_list4_to(*m_board, to_std(m_move_day->currentText()), cid);
    });
}

bool ScheduleBoardArea::show_match(qint64 sid)
{
    if (!m_session.has_tournament())
        return false;
    m_session.ishow(Area::schedule);
    const bool found = findmatch(*m_board, sid);
    if (found) {
        show_upper(m_board->upper());
        m_active
            = m_board->shown() && m_board->list(BoardListId::court).find(sid) ? BoardListId::court : m_board->upper();
    }
    fill_event_filter();
    sync();
    return found;
}

void ScheduleBoardArea::after_result()
{
    if (m_session.has_tournament())
        sync();
}

void ScheduleBoardArea::choose_day_row(int row)
{
    if (m_filling || row < 0 || row >= static_cast<int>(m_board->days().size()))
        return;
    m_board->choose_day(m_board->days()[static_cast<std::size_t>(row)].sdate);
    sync();
}

void ScheduleBoardArea::choose_court_row(int row)
{
    if (m_filling || row < 0 || row >= static_cast<int>(m_board->courts().size()))
        return;
    // Choosing a court shows it at once: "load court" does the same for the chosen pair.
    m_board->choose_court(m_board->courts()[static_cast<std::size_t>(row)].cid);
    m_board->loadcourt();
    m_active = BoardListId::court;
    sync();
}

void ScheduleBoardArea::load_court()
{
    m_board->loadcourt();
}

void ScheduleBoardArea::down()
{
    move_down(*m_board);
}

void ScheduleBoardArea::up()
{
    move_up(*m_board);
}

void ScheduleBoardArea::nudge(int step)
{
    if (step < 0)
        WEB_nudge_match_up(*m_board);
    else
        WEB_nudge_match_down(*m_board);
}

void ScheduleBoardArea::set_time()
{
    set_match_time(*m_board, m_times->choice());
}

void ScheduleBoardArea::grab_time()
{
    if (const auto grabbed = grab_match_time(*m_board))
        m_times->set_grabbed(*grabbed);
}

namespace {

// The match the neighbouring windows open on: the focus line when it is selected, else the first selected.
std::optional<std::int64_t> chosen_sid(const BoardList& list)
{
    if (list.current() >= 0 && list.line(list.current()).selected)
        return list.line(list.current()).sid;
    const auto sids = list.selected_sids();
    if (sids.empty())
        return std::nullopt;
    return sids.front();
}

} // namespace

void ScheduleBoardArea::show_in_draw()
{
    const auto sid = chosen_sid(m_board->list(m_active));
    if (!sid) {
        m_session.talk().message(m_board->select_match_text());
        return;
    }
    BF_find_match_in_draw(*m_board, *sid);
}

void ScheduleBoardArea::add_result()
{
    const auto sid = chosen_sid(m_board->list(m_active));
    if (!sid) {
        m_session.talk().message(m_board->select_match_text());
        return;
    }
    open_addresult(m_session, *this, window(), *sid);
}

void ScheduleBoardArea::auto_schedule()
{
    if (!autoschedule_allowed(*m_board))
        return;
    auto* window = new AutoscheduleWindow(
        m_session, *m_board, [this] { sync(); }, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    show_over_parent(window);
}

void ScheduleBoardArea::distribute_load()
{
    if (!distload_allowed_board(*m_board))
        return;
    const auto caller = m_board->clipboard_shown() ? DistloadCaller::list1_cb : DistloadCaller::list1;
    const auto day = m_board->day();
    auto* window = new DistloadWindow(
        m_session, *m_board, caller, day, m_board->day_idx_of(day), nullptr, [this] { sync(); }, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    show_over_parent(window);
}

void ScheduleBoardArea::match_note()
{
    const auto sid = chosen_sid(m_board->list(m_active));
    if (!sid) {
        m_session.talk().message(m_board->select_match_text());
        return;
    }
    open_matchnote(m_session, *sid, window());
}

void ScheduleBoardArea::player_details()
{
    const auto sid = chosen_sid(m_board->list(m_active));
    if (!sid) {
        m_session.talk().message(m_board->select_match_text());
        return;
    }
    const auto names = match_names(m_session.tournament(), m_session.talk(), *sid);
    if (names.empty())
        return;
    std::string name = names.front();
    if (names.size() > 1) {
        QMenu choose(this);
        for (const auto& each : names)
            choose.addAction(qs(each));
        const auto* picked = choose.exec(QCursor::pos());
        if (!picked)
            return;
        name = to_std(picked->text());
    }
    open_player_details_by_name(m_session, name, window());
}

void ScheduleBoardArea::availability()
{
    const auto sid = chosen_sid(m_board->list(m_active));
    if (!sid) {
        m_session.talk().message(m_board->select_match_text());
        return;
    }
    std::string text;
    for (const auto& line : availability_restrictions(m_session.tournament(), m_session.talk(), *sid))
        text += (text.empty() ? "" : "\n") + line;
    if (!text.empty())
        m_session.talk().message(text, "availability restrictions");
}

void ScheduleBoardArea::search()
{
    bool ok = false;
    const auto text = QInputDialog::getText(this, QStringLiteral("search"), QStringLiteral("search for"), {}, {}, &ok);
    if (!ok || text.trimmed().isEmpty())
        return;
    auto* list = view(m_active);
    const auto row = next_matching_row(list, text.trimmed());
    if (!row) {
        m_session.talk().message("not found");
        return;
    }
    m_board->list(m_active).select_only(*row);
}

void ScheduleBoardArea::match_counts()
{
    if (!m_session.has_tournament())
        return;
    m_board->match_counts();
    sync();
}

void ScheduleBoardArea::open_start_time()
{
    const auto shown = m_board->shown();
    if (!shown) {
        m_session.talk().message(m_board->day().empty() ? std::string("select day") : m_board->select_court_text());
        return;
    }
    auto* window = new SetCourtStartWindow(
        m_session, shown->scheduledate, shown->cid, m_board->court_details().starttime, [this] { sync(); }, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

void ScheduleBoardArea::open_court_name()
{
    const auto shown = m_board->shown();
    if (!shown) {
        m_session.talk().message(m_board->day().empty() ? std::string("select day") : m_board->select_court_text());
        return;
    }
    auto* window = new SetCourtNameWindow(
        m_session, shown->scheduledate, shown->cid, m_board->court_details().courtname,
        [this] {
            // The board reads the day's courts again.
            m_board->load_dates_courts();
            sync();
        },
        this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

void ScheduleBoardArea::run_menu(const QString& caption)
{
    if (!m_session.has_tournament())
        return;
    const auto& words = m_board->words();
    const auto text = to_std(caption);
    if (text == "day-" + words.court + " map")
        day_court_map(*m_board);
    else if (text == "free all days")
        BF_free_all_days2(*m_board);
    else if (text == "free current day")
        BF_free_current_day(*m_board);
    else if (const auto state = gather_state(text))
        gather_to_cb(*m_board, *state);
    else if (text == "clear times " + words.court)
        BF_clear_times_court(*m_board);
    else if (text == "set dates/" + words.courts)
        open_setdatescourts(m_session, window());
    else if (text == "free " + words.court)
        BF_free_court(*m_board);
    else if (text == "key") {
        const bool on = m_session.settings().integer("schedule.key") != 1;
        m_session.settings().set_disk_var("schedule.key", on ? "1" : "0");
        m_key->setVisible(on);
        if (auto* action = menu_action(QStringLiteral("key")))
            action->setChecked(on);
    }
    sync();
}

void ScheduleBoardArea::list_chooser(BoardListId which, const QString& entry)
{
    if (!m_session.has_tournament())
        return;
    if (entry == QStringLiteral("screenscrape"))
        screenscrape_list(*m_board, which);
    else if (entry == QStringLiteral("save to file"))
        save_list_to_file(*m_board, which);
    else if (entry == QStringLiteral("print(l)") || entry == QStringLiteral("print(p)"))
        print_lines(m_session, board_list_text(*m_board, which), entry == QStringLiteral("print(l)") ? "l" : "p",
            std::filesystem::path(board_list_file_name(*m_board, which)).stem().string());
    else if (entry == QStringLiteral("save as PDF(l)") || entry == QStringLiteral("save as PDF(p)")) {
        const std::filesystem::path name = board_list_file_name(*m_board, which);
        save_lines_as_pdf(m_session, board_list_text(*m_board, which),
            entry == QStringLiteral("save as PDF(l)") ? "l" : "p", name.stem().string(), name.stem().string() + ".pdf");
    }
}

void ScheduleBoardArea::status_of(BoardListId which, qint64 sid)
{
    if (sid == 0 || !m_session.has_tournament()) {
        m_status->clear();
        return;
    }
    const auto line = m_board->status(which, sid);
    m_status->setText(line ? qs(*line) : QString());
}

} // namespace qv
