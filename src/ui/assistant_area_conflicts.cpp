#include "core/session.h"
#include "core/sports_vocabulary.h"
#include "scheduling/time_conflicts.h"
#include "ui/assistant_area.h"
#include "ui/qt_text.h"
#include "ui/visual_grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace qv {

QPushButton* assistant_button(QBoxLayout* row, QWidget* parent, const QString& caption);

namespace {

constexpr std::array<const char*, 4> tick_words { "empty", "live", "unf", "dead" };

// The days of a list; with any, the first is chosen and the list's label is coloured to draw the eye, and an
// empty list gives its label the window's colour again.
void fill_day_list(QListWidget* list, const std::vector<TcDay>& days, QLabel* label = nullptr)
{
    list->clear();
    for (const auto& day : days) {
        auto* item = new QListWidgetItem(qs(day.text), list);
        item->setData(Qt::UserRole, qs(day.sdate));
    }
    if (list->count() > 0)
        list->setCurrentRow(0);
    if (label) {
        label->setAutoFillBackground(list->count() > 0);
        label->setStyleSheet(list->count() > 0 ? QStringLiteral("background-color: #ffd27f") : QString());
    }
}

} // namespace

QWidget* AssistantArea::build_conflicts()
{
    auto* page = new QWidget(this);
    m_tc_days = new QListWidget(page);
    m_tc_days->setObjectName(QStringLiteral("tc_days"));
    m_tc_days->setSelectionMode(QAbstractItemView::MultiSelection);
    m_tc_minutes = new QLineEdit(page);
    m_tc_minutes->setObjectName(QStringLiteral("tc_minutes"));
    m_tc_minutes->setMaximumWidth(60);
    m_tc_match_days = new QListWidget(page);
    m_tc_match_days->setObjectName(QStringLiteral("tc_match_days"));
    m_tc_court_days = new QListWidget(page);
    m_tc_court_days->setObjectName(QStringLiteral("tc_court_days"));
    m_tc_heading = new QLabel(page);
    m_tc_list = new QListWidget(page);
    m_tc_list->setObjectName(QStringLiteral("tc_list"));
    m_tc_list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    for (auto* list : { m_tc_days, m_tc_match_days, m_tc_court_days })
        list->setMaximumWidth(170);

    auto* left = new QVBoxLayout;
    left->addWidget(new QLabel(QStringLiteral("days"), page));
    left->addWidget(m_tc_days, 1);
    auto* minutes_row = new QHBoxLayout;
    minutes_row->addWidget(new QLabel(QStringLiteral("average minutes"), page));
    minutes_row->addWidget(m_tc_minutes);
    left->addLayout(minutes_row);
    auto* compute_row = new QHBoxLayout;
    auto* compute = assistant_button(compute_row, page, QStringLiteral("compute"));
    auto* purge = assistant_button(compute_row, page, QStringLiteral("purge"));
    left->addLayout(compute_row);
    m_tc_match_label = new QLabel(QStringLiteral("match time conflicts"), page);
    left->addWidget(m_tc_match_label);
    left->addWidget(m_tc_match_days, 1);
    auto* match_row = new QHBoxLayout;
    auto* by_match = assistant_button(match_row, page, QStringLiteral("match"));
    left->addLayout(match_row);
    m_tc_court_label = new QLabel(QStringLiteral("court time conflicts"), page);
    left->addWidget(m_tc_court_label);
    left->addWidget(m_tc_court_days, 1);
    auto* court_row = new QHBoxLayout;
    auto* by_court = assistant_button(court_row, page, QStringLiteral("court"));
    left->addLayout(court_row);
    auto* output_row = new QHBoxLayout;
    add_output_chooser(
        output_row, page, [this] { return conflict_lines(); },
        [this] { return std::string(m_tc_courts ? "court" : "match") + "_time_conflicts.txt"; });
    left->addLayout(output_row);

    auto* right = new QVBoxLayout;
    right->addWidget(m_tc_heading);
    auto* header = new QLabel(qs(time_conflicts_header), page);
    header->setFont(m_tc_list->font());
    right->addWidget(header);
    right->addWidget(m_tc_list, 1);
    auto* layout = new QHBoxLayout(page);
    layout->addLayout(left);
    layout->addLayout(right, 1);

    connect(compute, &QPushButton::clicked, this, &AssistantArea::compute_conflicts);
    connect(purge, &QPushButton::clicked, this, &AssistantArea::purge_conflicts);
    connect(by_match, &QPushButton::clicked, this, [this] { show_conflicts(false); });
    connect(by_court, &QPushButton::clicked, this, [this] { show_conflicts(true); });
    return page;
}

void AssistantArea::load_conflict_days()
{
    auto& db = m_session.tournament();
    fill_day_list(m_tc_days, days_basic_tcs(db));
    m_tc_days->clearSelection();
    fill_day_list(m_tc_match_days, load_ctc_mtc_days(db, TcKind::match), m_tc_match_label);
    fill_day_list(m_tc_court_days, load_ctc_mtc_days(db, TcKind::court), m_tc_court_label);
}

void AssistantArea::compute_conflicts()
{
    if (!m_session.has_tournament())
        return;
    std::vector<std::string> days;
    for (int row = 0; row < m_tc_days->count(); ++row)
        if (m_tc_days->item(row)->isSelected())
            days.push_back(to_std(m_tc_days->item(row)->text()));
    if (!compute_time_conflicts(m_session, days, to_std(m_tc_minutes->text())))
        return;
    auto& db = m_session.tournament();
    fill_day_list(m_tc_match_days, load_ctc_mtc_days(db, TcKind::match), m_tc_match_label);
    fill_day_list(m_tc_court_days, load_ctc_mtc_days(db, TcKind::court), m_tc_court_label);
}

std::vector<std::string> AssistantArea::conflict_lines() const
{
    std::vector<std::string> lines { std::string(m_tc_courts ? "court" : "match") + " time conflicts",
        to_std(m_tc_heading->text()), std::string(time_conflicts_header) };
    for (int row = 0; row < m_tc_list->count(); ++row)
        lines.push_back(to_std(m_tc_list->item(row)->text()));
    return lines;
}

void AssistantArea::show_conflicts(bool courts)
{
    if (!m_session.has_tournament())
        return;
    auto* days = courts ? m_tc_court_days : m_tc_match_days;
    auto* day = days->currentItem();
    if (!day) {
        m_session.talk().message("select day");
        return;
    }
    const auto list = load_time_conflicts(
        m_session.tournament(), to_std(day->data(Qt::UserRole).toString()), courts ? TcKind::court : TcKind::match);
    m_tc_courts = courts;
    m_tc_heading->setText(qs(list.heading));
    m_tc_list->clear();
    for (const auto& line : list.lines) {
        auto* item = new QListWidgetItem(qs(line.text), m_tc_list);
        item->setData(Qt::UserRole, QVariant::fromValue<qint64>(line.sid));
    }
}

void AssistantArea::purge_conflicts()
{
    if (!m_session.has_tournament())
        return;
    auto& db = m_session.tournament();
    {
        Transaction transaction(db);
        kill_all_tcs(db);
        transaction.commit();
    }
    fill_day_list(m_tc_match_days, {}, m_tc_match_label);
    fill_day_list(m_tc_court_days, {}, m_tc_court_label);
    m_tc_list->clear();
    m_session.talk().message("purged");
}

QWidget* AssistantArea::build_visual()
{
    auto* page = new QWidget(this);
    m_visual_day = new QComboBox(page);
    m_visual_day->setObjectName(QStringLiteral("visual_day"));
    m_visual_day->setMinimumContentsLength(10);
    m_visual_event = new QComboBox(page);
    m_visual_event->setObjectName(QStringLiteral("visual_event"));
    m_visual_event->setMinimumContentsLength(16);
    auto* row = new QHBoxLayout;
    row->addWidget(m_visual_day);
    row->addWidget(m_visual_event);
    for (std::size_t i = 0; i < tick_words.size(); ++i) {
        m_visual_ticks[i] = new QCheckBox(QString::fromLatin1(tick_words[i]), page);
        row->addWidget(m_visual_ticks[i]);
        connect(m_visual_ticks[i], &QCheckBox::toggled, this, [this, i](bool on) {
            if (m_session.has_tournament())
                m_session.settings().set_disk_var(std::string("visual.") + tick_words[i], on ? "1" : "0");
        });
    }
    auto* show = assistant_button(row, page, QStringLiteral("show"));
    m_visual_message = new QLabel(page);
    m_visual_message->setObjectName(QStringLiteral("visual_message"));
    row->addWidget(m_visual_message);
    row->addStretch(1);
    m_visual = new VisualGridWidget(page);
    auto* scroll = new QScrollArea(page);
    scroll->setWidget(m_visual);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(row);
    layout->addWidget(scroll, 1);
    connect(show, &QPushButton::clicked, this, &AssistantArea::show_visual);
    return page;
}

void AssistantArea::show_visual()
{
    if (!m_session.has_tournament())
        return;
    // The day list may have gained days since the area was filled.
    const auto day = m_visual_day->currentText();
    auto grid = visual_little_match_boxes(m_session.tournament(), current_sport_words(m_session),
        day.isEmpty() ? std::string("all days") : to_std(day), m_visual_event->currentData().toLongLong(),
        ticks("visual.", ""));
    m_visual_message->setText(qs(grid.message));
    if (!grid.message.empty() && !grid.boxes.empty())
        m_session.talk().message(grid.message);
    m_visual->set_grid(std::move(grid));
}

} // namespace qv
