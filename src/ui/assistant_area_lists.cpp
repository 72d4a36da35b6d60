#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "core/utf8.h"
#include "scheduling/assistant_lines.h"
#include "scheduling/assistant_moves.h"
#include "scheduling/board_find.h"
#include "scheduling/distribute_load.h"
#include "scheduling/schedule_board.h"
#include "ui/add_result_window.h"
#include "ui/assistant_area.h"
#include "ui/board_list_view.h"
#include "ui/distload_window.h"
#include "ui/players_windows.h"
#include "ui/qt_text.h"
#include "ui/schedule_board.h"
#include "ui/time_choosers.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace qv {

QPushButton* assistant_button(QBoxLayout* row, QWidget* parent, const QString& caption);

namespace {

const QStringList list_words { "day", "cid", "mid", "eid", "rnd", "p1", "p2", "time", "a", "score", "details" };
constexpr std::array<const char*, 4> tick_words { "empty", "live", "unf", "dead" };

// A court as the board's chooser shows it: the court word and the number, or fa, tbc, dcb.
QString court_label(const std::string& court_word, std::int64_t cid)
{
    const char* reserved = cid == -1 ? "fa" : cid == -3 ? "tbc" : cid == -4 ? "dcb" : nullptr;
    return qs(court_word + " " + (reserved ? std::string(reserved) : std::to_string(cid)));
}

} // namespace

QWidget* AssistantArea::build_lists()
{
    auto* page = new QWidget(this);
    m_list_event = new QComboBox(page);
    m_list_event->setObjectName(QStringLiteral("list_event"));
    m_list_type = new QComboBox(page);
    m_list_type->addItems({ QStringLiteral("all"), QStringLiteral("ko"), QStringLiteral("rr") });
    m_list_day = new QComboBox(page);
    m_list_day->setObjectName(QStringLiteral("list_day"));
    m_list_day->setMinimumContentsLength(10);
    m_list_court = new QComboBox(page);
    m_list_court->setObjectName(QStringLiteral("list_court"));
    m_noday = new QCheckBox(QStringLiteral("no day"), page);
    m_include_cb = new QCheckBox(QStringLiteral("include clipboard"), page);
    m_order = new QComboBox(page);
    for (const auto& name : list_order_names())
        m_order->addItem(qs(name));
    m_desc = new QCheckBox(QStringLiteral("desc"), page);
    auto* filters = new QHBoxLayout;
    for (QWidget* each :
        std::initializer_list<QWidget*> { m_list_event, m_list_type, m_list_day, m_list_court, m_noday, m_include_cb })
        filters->addWidget(each);
    for (std::size_t i = 0; i < tick_words.size(); ++i) {
        m_list_ticks[i] = new QCheckBox(QString::fromLatin1(tick_words[i]), page);
        filters->addWidget(m_list_ticks[i]);
        connect(m_list_ticks[i], &QCheckBox::toggled, this, [this, i](bool on) {
            if (m_session.has_tournament())
                m_session.settings().set_disk_var(std::string("be.") + tick_words[i] + "_top_birdseye", on ? "1" : "0");
        });
    }
    filters->addWidget(new QLabel(QStringLiteral("order by"), page));
    filters->addWidget(m_order);
    filters->addWidget(m_desc);
    m_hold_list = new QCheckBox(QStringLiteral("hold refresh"), page);
    filters->addWidget(m_hold_list);
    auto* load = assistant_button(filters, page, QStringLiteral("load"));
    filters->addStretch(1);

    m_list_view = new BoardListView(m_matches, qs(assistant_list_header), list_words, page);
    m_list_view->setObjectName(QStringLiteral("match_list"));
    m_search = new QLineEdit(page);
    m_search->setObjectName(QStringLiteral("search_name"));
    m_search_equals = new QCheckBox(QStringLiteral("equals"), page);
    auto* actions = new QHBoxLayout;
    actions->addWidget(m_search);
    actions->addWidget(m_search_equals);
    auto* search_button = assistant_button(actions, page, QStringLiteral("search"));
    actions->addSpacing(20);
    auto* all = assistant_button(actions, page, QStringLiteral("select all"));
    auto* none = assistant_button(actions, page, QStringLiteral("unselect all"));
    auto* seeds = assistant_button(actions, page, QStringLiteral("select all seeds"));
    auto* no_seeds = assistant_button(actions, page, QStringLiteral("unselect all seeds"));
    auto* distribute = assistant_button(actions, page, QStringLiteral("distribute the load"));
    auto* in_draw = assistant_button(actions, page, QStringLiteral("show in draw"));
    auto* in_schedule = assistant_button(actions, page, QStringLiteral("show in schedule"));
    auto* result = assistant_button(actions, page, QStringLiteral("add result"));
    auto* details = assistant_button(actions, page, QStringLiteral("player details"));
    add_output_chooser(
        actions, page,
        [this] {
            std::vector<std::string> lines { std::string(assistant_list_header) };
            for (const auto& line : m_matches.lines())
                lines.push_back(line.text);
            return lines;
        },
        [] { return std::string("matchlists.txt"); });
    actions->addStretch(1);

    m_times = new TimeChoosers(page);
    m_move_day = new QComboBox(page);
    m_move_day->setObjectName(QStringLiteral("move_day"));
    m_move_day->setMinimumContentsLength(10);
    m_move_court = new QComboBox(page);
    m_move_court->setObjectName(QStringLiteral("move_court"));
    m_move_court->setMinimumContentsLength(8);
    auto* changes = new QHBoxLayout;
    changes->addWidget(m_times);
    std::vector<QPushButton*> change_buttons { assistant_button(changes, page, QStringLiteral("set match time")) };
    changes->addSpacing(20);
    changes->addWidget(m_move_day);
    changes->addWidget(m_move_court);
    for (const char* caption : { "move", "move to no day", "copy to clipboard", "mark unfinished matches live",
             "mark live matches unfinished" })
        change_buttons.push_back(assistant_button(changes, page, QString::fromLatin1(caption)));
    changes->addStretch(1);

    m_other_player = new QComboBox(page);
    m_other_player->setObjectName(QStringLiteral("other_player"));
    m_other_player->setMinimumContentsLength(18);
    m_other_order = new QComboBox(page);
    for (const auto& name : list_order_names())
        m_other_order->addItem(qs(name));
    m_other_desc = new QCheckBox(QStringLiteral("desc"), page);
    m_others = new QListWidget(page);
    m_others->setObjectName(QStringLiteral("other_matches"));
    m_others->setFont(m_list_view->font());
    auto* other_row = new QHBoxLayout;
    other_row->addWidget(new QLabel(QStringLiteral("other matches of"), page));
    other_row->addWidget(m_other_player);
    for (std::size_t i = 1; i < tick_words.size(); ++i) {
        m_other_ticks[i] = new QCheckBox(QString::fromLatin1(tick_words[i]), page);
        other_row->addWidget(m_other_ticks[i]);
        connect(m_other_ticks[i], &QCheckBox::toggled, this, [this, i](bool on) {
            if (!m_session.has_tournament())
                return;
            m_session.settings().set_disk_var(std::string("om.") + tick_words[i] + "_top_othermatches", on ? "1" : "0");
            load_other_matches();
        });
    }
    other_row->addWidget(m_other_order);
    other_row->addWidget(m_other_desc);
    m_hold_others = new QCheckBox(QStringLiteral("hold refresh"), page);
    other_row->addWidget(m_hold_others);
    other_row->addStretch(1);

    auto* layout = new QVBoxLayout(page);
    layout->addLayout(filters);
    layout->addWidget(m_list_view->header());
    layout->addWidget(m_list_view, 3);
    layout->addLayout(actions);
    layout->addLayout(changes);
    layout->addLayout(other_row);
    layout->addWidget(m_others, 1);
    connect(m_list_view, &BoardListView::currentSidChanged, this, &AssistantArea::fill_other_players);
    connect(m_other_player, &QComboBox::currentIndexChanged, this, [this] { load_other_matches(); });
    connect(m_other_order, &QComboBox::currentIndexChanged, this, [this] {
        if (m_session.has_tournament())
            m_session.settings().set_disk_var("player_matches_order_by", to_std(m_other_order->currentText()));
        load_other_matches();
    });
    connect(m_other_desc, &QCheckBox::toggled, this, [this](bool on) {
        if (m_session.has_tournament())
            m_session.settings().set_disk_var("player_matches_order_by_asc_desc", on ? "desc" : "asc");
        load_other_matches();
    });
    for (auto [box, key] :
        { std::pair { m_hold_list, "assistant_list4_hfr" }, std::pair { m_hold_others, "assistant_list3_hfr" } })
        connect(box, &QCheckBox::toggled, this, [this, key](bool on) {
            if (m_session.has_tournament())
                m_session.settings().set_disk_var(key, on ? "1" : "0");
        });
    for (auto* each : change_buttons)
        connect(each, &QPushButton::clicked, this, [this, each] { act_on_selection(each->text()); });
    connect(m_move_day, &QComboBox::currentIndexChanged, this, [this] { fill_move_courts(); });

    connect(m_list_day, &QComboBox::currentIndexChanged, this, [this] { fill_list_courts(); });
    connect(load, &QPushButton::clicked, this, &AssistantArea::load_list);
    connect(search_button, &QPushButton::clicked, this, &AssistantArea::search);
    run_on_enter(m_search, [this] { search(); });
    connect(all, &QPushButton::clicked, this, [this] { m_matches.select_all(true); });
    connect(none, &QPushButton::clicked, this, [this] { m_matches.select_all(false); });
    connect(seeds, &QPushButton::clicked, this, [this] { m_matches.select_seeds(true); });
    connect(no_seeds, &QPushButton::clicked, this, [this] { m_matches.select_seeds(false); });
    connect(distribute, &QPushButton::clicked, this, &AssistantArea::distribute_load);
    connect(in_draw, &QPushButton::clicked, this, &AssistantArea::show_in_draw);
    connect(in_schedule, &QPushButton::clicked, this, &AssistantArea::show_in_schedule);
    connect(result, &QPushButton::clicked, this, &AssistantArea::add_result);
    connect(details, &QPushButton::clicked, this, &AssistantArea::player_details);
    return page;
}

void AssistantArea::fill_list_courts()
{
    m_list_court->clear();
    m_list_court->addItem(QStringLiteral("all courts"));
    if (!m_session.has_tournament())
        return;
    const auto day = to_std(m_list_day->currentText());
    const auto& words = current_sport_words(m_session);
    auto q = day == "all days" || day.empty()
        ? m_session.tournament().query("select distinct cid from scheduledays_courts where sdate <> '' order by cid")
        : m_session.tournament().query("select cid from scheduledays_courts where sdate=? order by cid", day);
    while (q.step())
        m_list_court->addItem(court_label(words.court, q.integer(0)), QVariant::fromValue(q.integer(0)));
}

std::optional<qint64> AssistantArea::chosen_sid()
{
    if (m_matches.current() >= 0)
        return m_matches.line(m_matches.current()).sid;
    const auto sids = m_matches.selected_sids();
    if (!sids.empty())
        return sids.front();
    m_session.talk().message("select " + current_sport_words(m_session).match);
    return std::nullopt;
}

void AssistantArea::show_in_draw()
{
    if (!m_session.has_tournament() || !board())
        return;
    if (const auto sid = chosen_sid())
        BF_find_match_in_draw(*board(), *sid);
}

void AssistantArea::show_in_schedule()
{
    if (!m_session.has_tournament() || !board_area())
        return;
    if (const auto sid = chosen_sid())
        board_area()->show_match(*sid);
}

void AssistantArea::add_result()
{
    if (!m_session.has_tournament() || !board_area())
        return;
    if (const auto sid = chosen_sid())
        open_addresult(m_session, *board_area(), window(), *sid);
}

void AssistantArea::player_details()
{
    if (!m_session.has_tournament())
        return;
    if (const auto sid = chosen_sid())
        open_player_details_by_match(m_session, *sid, window());
}

void AssistantArea::fill_move_courts()
{
    m_move_court->clear();
    if (!m_session.has_tournament() || m_move_day->currentText().isEmpty())
        return;
    const auto& words = current_sport_words(m_session);
    for (auto q = m_session.tournament().query(
             "select cid from scheduledays_courts where sdate=? order by cid", to_std(m_move_day->currentText()));
         q.step();)
        m_move_court->addItem(court_label(words.court, q.integer(0)), QVariant::fromValue(q.integer(0)));
}

void AssistantArea::act_on_selection(const QString& caption)
{
    auto* schedule = board();
    if (!m_session.has_tournament() || !schedule)
        return;
    if (caption == QStringLiteral("set match time")) {
        assistant_set_time(*schedule, m_matches, m_times->choice());
    } else if (caption == QStringLiteral("move")) {
        const auto cid = m_move_court->currentIndex() >= 0
            ? std::optional<std::int64_t>(m_move_court->currentData().toLongLong())
            : std::nullopt;
        WEB_move_from_list4_to_SPECIAL(*schedule, m_matches, to_std(m_move_day->currentText()), cid);
    } else if (caption == QStringLiteral("move to no day")) {
        WEB_move_list4_to_list1_SPECIAL(*schedule, m_matches);
    } else if (caption == QStringLiteral("copy to clipboard")) {
        WEB_move_list4_to_cb_SPECIAL(*schedule, m_matches);
    } else if (caption == QStringLiteral("mark unfinished matches live")) {
        assistant_mark_unf_live(*schedule, m_matches);
    } else if (caption == QStringLiteral("mark live matches unfinished")) {
        assistant_mark_live_unf(*schedule, m_matches);
    }
    after_change();
}

void AssistantArea::after_change()
{
    if (!m_session.has_tournament())
        return;
    if (!m_hold_list->isChecked())
        load_list();
    if (!m_hold_others->isChecked())
        load_other_matches();
}

void AssistantArea::fill_other_players(qint64 sid)
{
    const QSignalBlocker quiet(m_other_player);
    m_other_player->clear();
    if (m_session.has_tournament() && sid > 0)
        for (auto q = m_session.tournament().query("select p1, p2, p3, p4 from schedule where sid=?", sid); q.step();)
            for (int i = 0; i < 4; ++i)
                if (!trim(q.text(i)).empty())
                    m_other_player->addItem(qs(q.text(i)));
    load_other_matches();
}

void AssistantArea::load_other_matches()
{
    m_others->clear();
    if (!m_session.has_tournament() || m_other_player->currentText().isEmpty())
        return;
    const auto order = list_order_from_name(to_std(m_other_order->currentText())).value_or(ListOrder::day_time);
    const ListStates states { true, m_other_ticks[1]->isChecked(), m_other_ticks[2]->isChecked(),
        m_other_ticks[3]->isChecked() };
    for (const auto& line : load_players_matches(
             m_session.tournament(), to_std(m_other_player->currentText()), order, m_other_desc->isChecked(), states))
        m_others->addItem(qs(line.text));
}

void AssistantArea::load_list()
{
    if (!m_session.has_tournament())
        return;
    auto& settings = m_session.settings();
    settings.set_disk_var("lists_noday", m_noday->isChecked() ? "1" : "0");
    settings.set_disk_var("lists_include", m_include_cb->isChecked() ? "1" : "0");
    settings.set_disk_var("lists_desc", m_desc->isChecked() ? "1" : "0");
    ListFilter filter;
    filter.eid = m_list_event->currentData().toLongLong();
    filter.drawtype = to_std(m_list_type->currentText());
    filter.day = to_std(m_list_day->currentText());
    if (m_list_court->currentIndex() > 0)
        filter.cid = m_list_court->currentData().toLongLong();
    filter.noday = m_noday->isChecked();
    filter.include_cb = m_include_cb->isChecked();
    auto& db = m_session.tournament();
    {
        Transaction transaction(db);
        getsql(db, filter);
        transaction.commit();
    }
    const auto order = list_order_from_name(to_std(m_order->currentText())).value_or(ListOrder::event);
    m_matches.assign(load_match_list(db, order, m_desc->isChecked(), ticks("be.", "_top_birdseye")));
}

void AssistantArea::search()
{
    if (!m_session.has_tournament() || m_search->text().trimmed().isEmpty())
        return;
    auto& db = m_session.tournament();
    {
        Transaction transaction(db);
        search_name(db, to_std(m_search->text()), !m_search_equals->isChecked());
        transaction.commit();
    }
    const auto order = list_order_from_name(to_std(m_order->currentText())).value_or(ListOrder::event);
    m_matches.assign(load_match_list(db, order, m_desc->isChecked(), ticks("be.", "_top_birdseye")));
}

void AssistantArea::distribute_load()
{
    auto* schedule = board();
    if (!m_session.has_tournament() || !schedule)
        return;
    // The day of the list's filter is the day the matches go to.
    const auto day = m_list_day->currentIndex() > 0 ? to_std(m_list_day->currentText()) : std::string();
    if (!distload_allowed_assistant(*schedule, m_matches.any_selected(), day))
        return;
    auto* window = new DistloadWindow(
        m_session, *schedule, DistloadCaller::assistant, day, schedule->day_idx_of(day), &m_matches, nullptr, this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // The lists not on hold are read again once the window has done its work; not while the area itself goes.
    connect(window, &QObject::destroyed, this, [self = QPointer<AssistantArea>(this)] {
        if (self)
            self->after_change();
    });
    show_over_parent(window);
}

} // namespace qv
