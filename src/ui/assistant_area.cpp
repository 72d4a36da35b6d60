#include "ui/assistant_area.h"

#include "core/file_save.h"
#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "documents/printroutines.h"
#include "scheduling/assistant_stats.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/schedule_board.h"
#include "ui/visual_grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

QPushButton* assistant_button(QBoxLayout* row, QWidget* parent, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(caption);
    row->addWidget(button);
    return button;
}

AssistantArea::AssistantArea(Session& session, MainWindow& main, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_main(main)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("assistant_new"));
    setWindowTitle(QStringLiteral("Birds Eye"));
    m_tabs->addTab(build_stats(), QStringLiteral("statistics"));
    m_tabs->addTab(build_lists(), QStringLiteral("match lists"));
    m_tabs->addTab(build_counts(), QStringLiteral("player counts"));
    m_tabs->addTab(build_conflicts(), QStringLiteral("time conflicts"));
    m_tabs->addTab(build_visual(), QStringLiteral("visual"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tabs);
}

QPushButton* AssistantArea::button(const QString& caption) const
{
    return findChild<QPushButton*>(caption);
}

ScheduleBoardArea* AssistantArea::board_area() const
{
    return qobject_cast<ScheduleBoardArea*>(m_main.area_page(Area::schedule));
}

ScheduleBoard* AssistantArea::board() const
{
    auto* area = board_area();
    return area ? &area->board() : nullptr;
}

QComboBox* AssistantArea::add_output_chooser(QBoxLayout* row, QWidget* page,
    std::function<std::vector<std::string>()> lines, std::function<std::string()> file_name)
{
    auto* chooser = new QComboBox(page);
    chooser->setObjectName(QStringLiteral("output"));
    chooser->addItems({ QStringLiteral("select.."), QStringLiteral("print(l)"), QStringLiteral("print(p)"),
        QStringLiteral("save to file") });
    row->addWidget(chooser);
    connect(chooser, &QComboBox::activated, this, [this, chooser, lines, file_name](int index) {
        chooser->setCurrentIndex(0);
        if (!m_session.has_tournament() || index <= 0)
            return;
        const auto name = file_name();
        if (index == 3) {
            auto& settings = m_session.settings();
            if (const auto chosen = save_text_file_as(m_session, name, settings.text("app.last_dir_opened"), lines()))
                settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
            return;
        }
        print_lines(m_session, lines(), index == 1 ? "l" : "p", std::filesystem::path(name).stem().string());
    });
    return chooser;
}

ListStates AssistantArea::ticks(const char* prefix, const char* suffix) const
{
    const auto& settings = m_session.settings();
    auto on = [&](const char* word) { return settings.integer(std::string(prefix) + word + suffix) == 1; };
    return { on("empty"), on("live"), on("unf"), on("dead") };
}

QWidget* AssistantArea::build_stats()
{
    auto* page = new QWidget(this);
    m_stats_day = new QComboBox(page);
    m_stats_day->setObjectName(QStringLiteral("stats_day"));
    m_stats_day->setMinimumContentsLength(12);
    m_stats = new QPlainTextEdit(page);
    m_stats->setReadOnly(true);
    m_stats->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_stats->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_stats->setTabStopDistance(m_stats->fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 9);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("day"), page));
    row->addWidget(m_stats_day);
    auto* by_event = assistant_button(row, page, QStringLiteral("event"));
    auto* by_day = assistant_button(row, page, QStringLiteral("day"));
    auto* by_court = assistant_button(row, page, QStringLiteral("by court"));
    auto* key = assistant_button(row, page, QStringLiteral("key"));
    add_output_chooser(
        row, page,
        [this] {
            std::vector<std::string> lines;
            for (const auto& line : m_stats->toPlainText().split(QLatin1Char('\n')))
                lines.push_back(to_std(line));
            return lines;
        },
        [] { return std::string("stats.txt"); });
    row->addStretch(1);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(row);
    layout->addWidget(m_stats, 1);
    connect(by_event, &QPushButton::clicked, this, [this] { show_stats_by(static_cast<int>(StatsBy::event)); });
    connect(by_day, &QPushButton::clicked, this, [this] { show_stats_by(static_cast<int>(StatsBy::day)); });
    connect(by_court, &QPushButton::clicked, this, [this] { show_stats_by(static_cast<int>(StatsBy::court)); });
    connect(key, &QPushButton::clicked, this,
        [this] { m_stats->setPlainText(qs(stats_key_text(current_sport_words(m_session)))); });
    return page;
}

QWidget* AssistantArea::build_counts()
{
    auto* page = new QWidget(this);
    m_counts = new QListWidget(page);
    m_counts->setObjectName(QStringLiteral("player_counts"));
    m_counts_order = new QComboBox(page);
    for (const char* column : { "pn", "live_cnt", "dead_cnt", "unf_cnt" })
        m_counts_order->addItem(QString::fromLatin1(column));
    m_counts_desc = new QCheckBox(QStringLiteral("desc"), page);
    auto* row = new QHBoxLayout;
    auto* count = assistant_button(row, page, QStringLiteral("count"));
    row->addWidget(new QLabel(QStringLiteral("order by"), page));
    row->addWidget(m_counts_order);
    row->addWidget(m_counts_desc);
    add_output_chooser(
        row, page,
        [this] {
            std::vector<std::string> lines { "player\tlive\tdead\tunf" };
            for (int i = 0; i < m_counts->count(); ++i)
                lines.push_back(to_std(m_counts->item(i)->text()));
            return lines;
        },
        [] { return std::string("player") + "counts.txt"; });
    row->addStretch(1);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(row);
    layout->addWidget(new QLabel(QStringLiteral("player\tlive\tdead\tunf"), page));
    layout->addWidget(m_counts, 1);
    connect(count, &QPushButton::clicked, this, &AssistantArea::count_players);
    return page;
}

void AssistantArea::init()
{
    auto& settings = m_session.settings();
    m_other_order->setCurrentText(qs(settings.text("player_matches_order_by")));
    m_other_desc->setChecked(settings.text("player_matches_order_by_asc_desc") == "desc");
    m_noday->setChecked(settings.integer("lists_noday") == 1);
    m_include_cb->setChecked(settings.integer("lists_include") == 1);
    m_desc->setChecked(settings.integer("lists_desc") == 1);
    m_hold_list->setChecked(settings.integer("assistant_list4_hfr") == 1);
    m_hold_others->setChecked(settings.integer("assistant_list3_hfr") == 1);
    const auto list_states = ticks("be.", "_top_birdseye");
    const auto visual_states = ticks("visual.", "");
    const std::array<bool, 4> list_on { list_states.empty, list_states.live, list_states.unf, list_states.dead };
    const std::array<bool, 4> visual_on { visual_states.empty, visual_states.live, visual_states.unf,
        visual_states.dead };
    const auto other_states = ticks("om.", "_top_othermatches");
    const std::array<bool, 4> other_on { true, other_states.live, other_states.unf, other_states.dead };
    for (std::size_t i = 0; i < 4; ++i) {
        m_list_ticks[i]->setChecked(list_on[i]);
        m_visual_ticks[i]->setChecked(visual_on[i]);
        if (m_other_ticks[i])
            m_other_ticks[i]->setChecked(other_on[i]);
    }
    m_tc_minutes->setText(QString::number(settings.integer("schedule.avgmatchtime")));
    fill_days();
    load_conflict_days();
}

void AssistantArea::clear()
{
    m_stats->clear();
    m_counts->clear();
    m_matches.clear();
    m_others->clear();
    m_other_player->clear();
    m_tc_list->clear();
    m_tc_days->clear();
    m_tc_match_days->clear();
    m_tc_court_days->clear();
    m_visual->set_grid({});
    // The file is closing: no chooser may read it again on the way out.
    for (auto* box : { m_stats_day, m_list_event, m_list_day, m_list_court, m_move_day, m_move_court, m_visual_day,
             m_visual_event }) {
        const QSignalBlocker quiet(box);
        box->clear();
    }
}

void AssistantArea::fill_days()
{
    auto& db = m_session.tournament();
    // days_basic_stats, days_basic_birdseye and days_basic_visual.
    m_stats_day->clear();
    m_stats_day->addItems({ QString::fromLatin1(all_days), QString::fromLatin1(no_day) });
    m_list_day->clear();
    m_list_day->addItem(QString::fromLatin1(all_days));
    m_move_day->clear();
    for (auto q = db.query("select sdate from scheduledays where sdate <> '' order by idx"); q.step();) {
        m_stats_day->addItem(qs(q.text(0)));
        m_list_day->addItem(qs(q.text(0)));
        m_move_day->addItem(qs(q.text(0)));
    }
    m_visual_day->clear();
    m_visual_day->addItem(QString::fromLatin1(all_days));
    for (auto q = db.query(R"(select sdate from scheduledays where sdate in
             (select distinct scheduledate from schedule where matchtime <> '') order by idx)");
         q.step();)
        m_visual_day->addItem(qs(q.text(0)));
    // The match lists and the visual grid choose among the events with a draw, or all of them.
    for (auto* events : { m_list_event, m_visual_event }) {
        events->clear();
        events->addItem(QStringLiteral("all events"), QVariant::fromValue<qint64>(0));
        for (auto q = db.query("select eid, eventname from events where drawdone = 1 order by eid"); q.step();)
            events->addItem(
                QStringLiteral("(%1) ").arg(q.integer(0)) + qs(q.text(1)), QVariant::fromValue<qint64>(q.integer(0)));
    }
    fill_list_courts();
}

void AssistantArea::show_stats_by(int by)
{
    if (!m_session.has_tournament())
        return;
    const auto table = show_stats(m_session.tournament(), current_sport_words(m_session), static_cast<StatsBy>(by),
        to_std(m_stats_day->currentText()));
    QString text = qs(table.title) + QStringLiteral("\n\n") + qs(table.header) + QLatin1Char('\n');
    for (const auto& line : table.lines)
        text += qs(line) + QLatin1Char('\n');
    m_stats->setPlainText(text);
}

void AssistantArea::count_players()
{
    if (!m_session.has_tournament())
        return;
    auto& db = m_session.tournament();
    const auto order = to_std(m_counts_order->currentText());
    const bool desc = m_counts_desc->isChecked();
    {
        Transaction transaction(db);
        calc_counts(db);
        transaction.commit();
    }
    m_counts->clear();
    for (const auto& line : load_player_list(db, order, desc))
        m_counts->addItem(qs(line));
}

} // namespace qv
