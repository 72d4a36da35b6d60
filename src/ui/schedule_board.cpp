#include "ui/schedule_board.h"

#include "core/match_record.h"
#include "core/session.h"
#include "scheduling/board_files.h"
#include "ui/add_result_window.h"
#include "ui/autoschedule_window.h"
#include "ui/board_list_view.h"
#include "ui/distload_window.h"
#include "ui/qt_text.h"
#include "ui/score_windows.h"
#include "ui/setdatescourts_window.h"
#include "ui/time_choosers.h"
#include "ui/window_behaviour.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace qv {

namespace {

const QStringList upper_words { "eid", "rnd", "player1", "player2", "a", "score", "details" };
const QStringList court_words { "eid", "rnd", "player1", "player2", "time", "a", "score", "day", "details" };

QPushButton* add_button(QBoxLayout* row, QWidget* parent, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(caption);
    button->setAutoDefault(false);
    row->addWidget(button);
    return button;
}

// The key of the board's marks.
QString key_text()
{
    return QStringLiteral("+ empty   ? live   ^ unfinished   \u00bf dead   * winner   - availability restrictions");
}

} // namespace

ScheduleBoardArea::ScheduleBoardArea(Session& session, MainWindow& main, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_main(main)
    , m_board(std::make_unique<ScheduleBoard>(session))
{
    setObjectName(QStringLiteral("schedule"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(3);
    auto* upper = new QWidget(this);
    auto* lower = new QWidget(this);
    build_upper(upper);
    build_lower(lower);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("status_line"));
    layout->addWidget(upper, 1);
    layout->addWidget(lower, 1);
    layout->addWidget(m_status);
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court })
        connect_panel(which);
}

ScheduleBoardArea::~ScheduleBoardArea() = default;

BoardListPanel ScheduleBoardArea::make_panel(BoardListId which, QWidget* parent)
{
    BoardListPanel panel;
    panel.widget = new QWidget(parent);
    const bool court = which == BoardListId::court;
    const auto header = qs(court ? court_list_header : upper_list_header);
    panel.view = new BoardListView(m_board->list(which), header, court ? court_words : upper_words, panel.widget);
    auto* controls = new QHBoxLayout;
    for (std::size_t i = 0; i < state_words.size(); ++i) {
        panel.ticks[i] = new QCheckBox(qs(state_words[i]), panel.widget);
        controls->addWidget(panel.ticks[i]);
    }
    panel.hold = new QCheckBox(QStringLiteral("hold refresh"), panel.widget);
    panel.counts = new QLabel(panel.widget);
    panel.chooser = new QComboBox(panel.widget);
    controls->addWidget(panel.hold);
    controls->addWidget(panel.counts, 1);
    controls->addWidget(panel.chooser);
    auto* column = new QVBoxLayout(panel.widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1);
    column->addLayout(controls);
    column->addWidget(panel.view->header());
    column->addWidget(panel.view, 1);
    return panel;
}

void ScheduleBoardArea::build_upper(QWidget* parent)
{
    m_upper_tabs = new QTabBar(parent);
    m_upper_tabs->addTab(QStringLiteral("schedule"));
    m_upper_tabs->addTab(QStringLiteral("clipboard"));
    m_event_filter = new QComboBox(parent);
    m_event_filter->setObjectName(QStringLiteral("event_filter"));
    m_event_filter->setMinimumWidth(180);
    m_menu_button = new QToolButton(parent);
    m_menu_button->setText(QStringLiteral("menu"));
    m_menu_button->setPopupMode(QToolButton::InstantPopup);
    m_key = new QLabel(key_text(), parent);
    m_key->setObjectName(QStringLiteral("key"));

    auto* top = new QHBoxLayout;
    top->addWidget(m_upper_tabs);
    top->addWidget(m_event_filter);
    top->addWidget(m_menu_button);
    top->addWidget(m_key, 1);

    m_upper_stack = new QStackedWidget(parent);
    m_panels[0] = make_panel(BoardListId::unscheduled, m_upper_stack);
    m_panels[1] = make_panel(BoardListId::clipboard, m_upper_stack);
    m_upper_stack->addWidget(m_panels[0].widget);
    m_upper_stack->addWidget(m_panels[1].widget);

    auto* buttons = new QHBoxLayout;
    for (const char* caption :
        { "refresh schedule", "copy to clipboard", "paste from clipboard", "move back to schedule", "order by added",
            "mark unfinished matches live", "mark live matches unfinished", "distribute the load" })
        add_button(buttons, parent, QString::fromLatin1(caption))->setObjectName(QStringLiteral("upper ") + caption);
    buttons->addStretch(1);

    auto* moves = new QHBoxLayout;
    for (const char* caption : { "down", "up" })
        add_button(moves, parent, QString::fromLatin1(caption))->setMinimumWidth(90);
    moves->addSpacing(20);
    for (const char* caption : { "select all", "unselect all", "select all seeds", "unselect all seeds", "show in draw",
             "availability restrictions", "player details", "add result", "match note", "search", "match counts" })
        add_button(moves, parent, QString::fromLatin1(caption));
    moves->addStretch(1);

    auto* column = new QVBoxLayout(parent);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addLayout(top);
    column->addWidget(m_upper_stack, 1);
    column->addLayout(buttons);
    column->addLayout(moves);
    build_menu();
}

void ScheduleBoardArea::build_lower(QWidget* parent)
{
    m_day_list = new QListWidget(parent);
    m_day_list->setObjectName(QStringLiteral("days"));
    m_court_list = new QListWidget(parent);
    m_court_list->setObjectName(QStringLiteral("courts"));
    m_days_label = new QLabel(parent);
    m_courts_label = new QLabel(parent);
    for (auto* list : { m_day_list, m_court_list })
        list->setMaximumWidth(170);

    auto* choosers = new QVBoxLayout;
    choosers->addWidget(m_days_label);
    choosers->addWidget(m_day_list, 1);
    choosers->addWidget(m_courts_label);
    choosers->addWidget(m_court_list, 1);
    add_button(choosers, parent, QStringLiteral("load court"));

    m_panels[2] = make_panel(BoardListId::court, parent);
    m_court_details = new QLabel(parent);
    m_court_details->setObjectName(QStringLiteral("court_details"));
    auto* details = new QHBoxLayout;
    details->addWidget(m_court_details, 1);
    add_button(details, parent, QStringLiteral("start time"));
    add_button(details, parent, QStringLiteral("name"));

    auto* court_buttons = new QHBoxLayout;
    for (const char* caption : { "up 1", "down 1", "copy to clipboard", "paste from clipboard", "order by time",
             "clear times", "auto schedule", "mark unfinished matches live", "mark live matches unfinished" })
        add_button(court_buttons, parent, QString::fromLatin1(caption))
            ->setObjectName(QStringLiteral("lower ") + caption);
    court_buttons->addStretch(1);

    m_times = new TimeChoosers(parent);
    m_move_day = new QComboBox(parent);
    m_move_day->setObjectName(QStringLiteral("move_day"));
    m_move_court = new QComboBox(parent);
    m_move_court->setObjectName(QStringLiteral("move_court"));
    m_move_day->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_move_day->setMinimumContentsLength(10);
    m_move_court->setMinimumContentsLength(4);
    auto* time_row = new QHBoxLayout;
    time_row->addWidget(m_times);
    for (const char* caption : { "set match time", "clear", "grab match time" })
        add_button(time_row, parent, QString::fromLatin1(caption));
    time_row->addSpacing(20);
    add_button(time_row, parent, QStringLiteral("move matches to day.court"));
    time_row->addWidget(m_move_day);
    time_row->addWidget(m_move_court);
    time_row->addStretch(1);

    auto* court_column = new QVBoxLayout;
    court_column->setSpacing(2);
    court_column->addLayout(details);
    court_column->addWidget(m_panels[2].widget, 1);
    court_column->addLayout(court_buttons);
    court_column->addLayout(time_row);

    auto* row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    row->addLayout(choosers);
    row->addLayout(court_column, 1);
}

void ScheduleBoardArea::build_menu()
{
    m_menu = new QMenu(this);
    m_menu_button->setMenu(m_menu);
}

QPushButton* ScheduleBoardArea::button(const QString& caption) const
{
    // Captions that stand twice are told apart by the list they work on: "upper ..." or "lower ...".
    for (auto* each : findChildren<QPushButton*>())
        if (each->objectName() == caption)
            return each;
    return button_with_text(this, caption);
}

QAction* ScheduleBoardArea::menu_action(const QString& caption) const
{
    for (auto* action : m_menu->actions())
        if (action->text() == caption)
            return action;
    return nullptr;
}

BoardListView* ScheduleBoardArea::view(BoardListId which) const
{
    return m_panels[static_cast<std::size_t>(which)].view;
}

void ScheduleBoardArea::init()
{
    if (!m_session.has_tournament()) {
        clear();
        return;
    }
    connect_main();
    m_board->init();
    const auto& words = m_board->words();
    // The sports words are read at each boot: the captions built from them follow.
    button(QStringLiteral("move matches to day.court"))
        ->setText(qs("move " + words.matches + " to day." + words.court));
    button(QStringLiteral("match counts"))->setText(qs(words.match + " counts"));
    button(QStringLiteral("match note"))->setText(qs(words.match + " note"));
    m_menu->clear();
    for (const auto& caption : { "day-" + words.court + " map", std::string("free all days"),
             std::string("free current day"), std::string("all unf to cb"), std::string("all empty to cb"),
             std::string("all live to cb"), std::string("all dead to cb"), "clear times " + words.court,
             "set dates/" + words.courts, "free " + words.court, std::string("key") }) {
        auto* action = m_menu->addAction(qs(caption));
        connect(action, &QAction::triggered, this, [this, caption] { run_menu(qs(caption)); });
    }
    auto* key_action = menu_action(QStringLiteral("key"));
    key_action->setCheckable(true);
    key_action->setChecked(m_session.settings().integer("schedule.key") == 1);
    m_key->setVisible(key_action->isChecked());
    for (auto& panel : m_panels) {
        panel.chooser->clear();
        for (const auto& entry : list_chooser_entries(m_session))
            panel.chooser->addItem(qs(entry));
    }
    fill_event_filter();
    show_upper(BoardListId::unscheduled);
    m_status->clear();
    sync();
}

void ScheduleBoardArea::clear()
{
    close_setdatescourts();
    // The windows over a match go with the file.
    for (auto* each : window()->findChildren<QDialog*>())
        if (qobject_cast<AddResultWindow*>(each) || qobject_cast<MatchNoteWindow*>(each)
            || qobject_cast<LongScoreWindow*>(each) || qobject_cast<AutoscheduleWindow*>(each)
            || qobject_cast<DistloadWindow*>(each))
            each->close();
    m_board->clear();
    m_event_filter->blockSignals(true);
    m_event_filter->clear();
    m_event_filter->blockSignals(false);
    m_status->clear();
    sync();
}

void ScheduleBoardArea::refresh_lists(Lists which)
{
    if (!m_session.has_tournament())
        return;
    if (which == Lists::schedule) {
        // The days were saved: every match but the clipboard's lost its place.
        m_board->list(BoardListId::court).clear();
        m_board->set_draw_view_stale(true);
        m_board->load_dates_courts();
        m_board->reload_unheld(true, false);
    } else {
        if (which == Lists::events || which == Lists::draw)
            fill_event_filter();
        m_board->reload_unheld();
    }
    sync();
}

void ScheduleBoardArea::showEvent(QShowEvent* event)
{
    AreaPage::showEvent(event);
    if (m_board->refresh_pending() && m_session.has_tournament()) {
        m_board->set_refresh_pending(false);
        m_board->reload_unheld();
        sync();
    }
}

void ScheduleBoardArea::show_upper(BoardListId which)
{
    m_board->show_upper(which);
    m_active = which;
    m_upper_stack->setCurrentIndex(which == BoardListId::clipboard ? 1 : 0);
    m_upper_tabs->blockSignals(true);
    m_upper_tabs->setCurrentIndex(which == BoardListId::clipboard ? 1 : 0);
    m_upper_tabs->blockSignals(false);
    // The clipboard's own buttons.
    button(QStringLiteral("move back to schedule"))->setEnabled(which == BoardListId::clipboard);
    button(QStringLiteral("upper copy to clipboard"))->setEnabled(which == BoardListId::unscheduled);
    button(QStringLiteral("order by added"))->setEnabled(which == BoardListId::clipboard);
}

void ScheduleBoardArea::sync()
{
    m_filling = true;
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court })
        m_panels[static_cast<std::size_t>(which)].counts->setText(qs(m_board->counts_text(which)));
    sync_ticks();
    fill_choosers();
    const auto details = m_board->court_details();
    QString text;
    if (const auto shown = m_board->shown()) {
        text = qs(shown->scheduledate + "  " + m_board->words().court + " " + cid_word(shown->cid));
        // The day clipboard has its own label.
        if (shown->cid == -4)
            text += QStringLiteral("   day_cb");
        if (!details.courtname.empty())
            text += qs("   name=" + details.courtname);
        if (!details.starttime.empty())
            text += qs("   start=" + details.starttime);
    }
    m_court_details->setText(text);
    m_filling = false;
}

void ScheduleBoardArea::sync_ticks()
{
    for (auto which : { BoardListId::unscheduled, BoardListId::clipboard, BoardListId::court }) {
        auto& panel = m_panels[static_cast<std::size_t>(which)];
        const auto ticks = m_board->ticks(which);
        const bool on[] = { ticks.empty, ticks.live, ticks.unf, ticks.dead };
        for (std::size_t i = 0; i < panel.ticks.size(); ++i) {
            panel.ticks[i]->blockSignals(true);
            panel.ticks[i]->setChecked(on[i]);
            panel.ticks[i]->blockSignals(false);
        }
        panel.hold->blockSignals(true);
        panel.hold->setChecked(m_board->list(which).on_hold());
        panel.hold->blockSignals(false);
    }
}

void ScheduleBoardArea::fill_choosers()
{
    const bool filling = m_filling;
    m_filling = true;
    m_day_list->blockSignals(true);
    m_day_list->clear();
    for (const auto& day : m_board->days()) {
        m_day_list->addItem(qs(day.text));
        if (day.sdate == m_board->day())
            m_day_list->setCurrentRow(m_day_list->count() - 1);
    }
    m_day_list->blockSignals(false);
    m_court_list->blockSignals(true);
    m_court_list->clear();
    for (const auto& court : m_board->courts()) {
        m_court_list->addItem(qs(court.text));
        if (m_board->court() == court.cid)
            m_court_list->setCurrentRow(m_court_list->count() - 1);
    }
    m_court_list->blockSignals(false);
    m_days_label->setText(qs(m_board->days_label()));
    m_courts_label->setText(qs(m_board->courts_label()));

    const auto kept = m_move_day->currentText();
    m_move_day->blockSignals(true);
    m_move_day->clear();
    for (const auto& day : m_board->days())
        m_move_day->addItem(qs(day.sdate));
    const int at = m_move_day->findText(kept);
    m_move_day->setCurrentIndex(at >= 0 ? at : (m_move_day->count() > 0 ? 0 : -1));
    m_move_day->blockSignals(false);
    fill_move_courts();
    m_filling = filling;
}

void ScheduleBoardArea::fill_move_courts()
{
    const auto kept = m_move_court->currentData();
    m_move_court->clear();
    const auto day = to_std(m_move_day->currentText());
    if (day.empty())
        return;
    for (auto rows
         = m_session.tournament().query("select cid from scheduledays_courts where sdate=? order by cid", day);
         rows.step();)
        m_move_court->addItem(
            qs(court_list_cid_word(rows.integer(0))), QVariant::fromValue<qlonglong>(rows.integer(0)));
    const int at = m_move_court->findData(kept);
    if (at >= 0)
        m_move_court->setCurrentIndex(at);
}

void ScheduleBoardArea::fill_event_filter()
{
    m_event_filter->blockSignals(true);
    m_event_filter->clear();
    for (const auto& [eid, text] : m_board->event_filter_choices())
        m_event_filter->addItem(qs(text), QVariant::fromValue<qlonglong>(eid));
    const int at = m_event_filter->findData(QVariant::fromValue<qlonglong>(m_board->event_filter()));
    m_event_filter->setCurrentIndex(at >= 0 ? at : 0);
    m_event_filter->blockSignals(false);
}

} // namespace qv
