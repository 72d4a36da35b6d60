#include "ui/website_page_tabs.h"

#include "core/session.h"
#include "documents/live_days.h"
#include "documents/print_save_draws.h"
#include "online/website_views.h"
#include "ui/id_lists.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

WebsitePageTab::WebsitePageTab(
    Session& session, const QStringList& ticks, const QString& list_caption, Loader loader, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_loader(std::move(loader))
    , m_list(new QListWidget(this))
    , m_buttons(new QVBoxLayout)
{
    auto* options = new QVBoxLayout;
    for (const auto& caption : ticks) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(caption);
        options->addWidget(box);
        m_ticks.push_back(box);
    }
    options->addSpacing(12);
    options->addLayout(m_buttons);
    options->addStretch();

    m_list->setObjectName(list_caption);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* list_box = new QGroupBox(list_caption, this);
    auto* list_column = new QVBoxLayout(list_box);
    list_column->addWidget(m_list);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(list_box, 1);
    layout->addLayout(options);
}

QPushButton* WebsitePageTab::add_view_button(const QString& caption, std::function<void()> action)
{
    auto* made = new QPushButton(caption, this);
    made->setObjectName(caption);
    m_buttons->addWidget(made);
    connect(made, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
    return made;
}

QPushButton* WebsitePageTab::button(const QString& caption) const
{
    return button_with_text(this, caption);
}

QCheckBox* WebsitePageTab::tick(const QString& caption) const
{
    for (auto* box : m_ticks)
        if (box->objectName() == caption)
            return box;
    return nullptr;
}

bool WebsitePageTab::ticked(const QString& caption) const
{
    const auto* box = tick(caption);
    return box && box->isChecked();
}

void WebsitePageTab::set_ticked(const QString& caption, bool on)
{
    if (auto* box = tick(caption))
        box->setChecked(on);
}

void WebsitePageTab::init()
{
    load_list();
}

void WebsitePageTab::clear()
{
    m_list->clear();
}

void WebsitePageTab::refresh_lists(Lists which)
{
    if (which == Lists::events || which == Lists::draw || which == Lists::schedule)
        load_list();
}

void WebsitePageTab::load_list()
{
    const auto keep = chosen_lines();
    m_list->clear();
    if (!m_session.has_tournament())
        return;
    for (const auto& line : m_loader(m_session)) {
        auto* item = add_id_line(m_list, line.text, line.id);
        item->setSelected(std::find(keep.begin(), keep.end(), line.text) != keep.end());
    }
}

std::vector<std::string> WebsitePageTab::chosen_lines() const
{
    std::vector<std::string> lines;
    for (int row = 0; row < m_list->count(); ++row)
        if (m_list->item(row)->isSelected())
            lines.push_back(to_std(m_list->item(row)->text()));
    return lines;
}

std::vector<std::int64_t> WebsitePageTab::chosen_ids() const
{
    return selected_ids(m_list);
}

std::optional<std::int64_t> WebsitePageTab::current_id() const
{
    return qv::current_id(m_list);
}

std::optional<std::string> WebsitePageTab::current_line() const
{
    const auto* item = m_list->currentItem();
    if (!item || !item->isSelected())
        return std::nullopt;
    return to_std(item->text());
}

namespace {

std::vector<WebsitePageTab::Line> day_lines(const std::vector<std::string>& days)
{
    std::vector<WebsitePageTab::Line> lines;
    for (const auto& day : days)
        lines.push_back({ day, 0 });
    return lines;
}

} // namespace

WebsitePageTabs make_website_page_tabs(Session& session, QWidget* parent)
{
    WebsitePageTabs tabs;
    tabs.draws = new WebsitePageTab(
        session,
        { QStringLiteral("from"), QStringLiteral("times"), QStringLiteral("include text draws"),
            QStringLiteral("include next round pointer") },
        QStringLiteral("draws"),
        [](Session& s) {
            std::vector<WebsitePageTab::Line> lines;
            for (const auto& line : events_drawdone_draws(s.tournament()))
                lines.push_back({ line.text, line.eid });
            return lines;
        },
        parent);
    auto* draws = tabs.draws;
    draws->add_view_button(QStringLiteral("view text draw"),
        [&session, draws] { view_text_draw(session, draw_options(*draws), draws->current_id()); });

    tabs.schedules = new WebsitePageTab(
        session,
        { QStringLiteral("from"), QStringLiteral("wqs"), QStringLiteral("schedule by event"),
            QStringLiteral("schedule by time"), QStringLiteral("schedule by court"),
            QStringLiteral("include unfinished match score") },
        QStringLiteral("days"), [](Session& s) { return day_lines(days_working_schedule(s.tournament())); }, parent);
    auto* schedules = tabs.schedules;
    schedules->tick(QStringLiteral("wqs"))->setToolTip(QStringLiteral("wildcard,qualifer,seeding"));
    const std::pair<char, const char*> ways[]
        = { { 'c', "view by court" }, { 't', "view by time" }, { 'e', "view by event" } };
    for (const auto& [way, caption] : ways)
        schedules->add_view_button(QString::fromLatin1(caption), [&session, schedules, way = way] {
            view_schedule(session, schedule_options(*schedules), way, schedules->current_line());
        });

    tabs.player_times = new WebsitePageTab(
        session, { QStringLiteral("include match context") }, QStringLiteral("days"),
        [](Session& s) { return day_lines(days_playertimes(s.tournament())); }, parent);
    auto* times = tabs.player_times;
    times->add_view_button(QStringLiteral("view player times"),
        [&session, times] { view_player_times(session, player_times_options(*times)); });

    tabs.results = new WebsitePageTab(
        session,
        { QStringLiteral("long score"), QStringLiteral("short score"), QStringLiteral("wqs"),
            QStringLiteral("from code"), QStringLiteral("by event"), QStringLiteral("by schedule"),
            QStringLiteral("by day"), QStringLiteral("by round") },
        QStringLiteral("days"), [](Session& s) { return day_lines(days_results(s.tournament())); }, parent);
    auto* results = tabs.results;
    for (const char* style : { "by event", "by schedule", "by day", "by round" })
        results->add_view_button(QStringLiteral("view ") + QString::fromLatin1(style),
            [&session, results, style] { view_results(session, results_options(*results), style); });
    return tabs;
}

WebsiteDrawOptions draw_options(const WebsitePageTab& tab)
{
    WebsiteDrawOptions options;
    options.from = tab.ticked(QStringLiteral("from"));
    options.times = tab.ticked(QStringLiteral("times"));
    options.text_draws = tab.ticked(QStringLiteral("include text draws"));
    options.next_round_pointer = tab.ticked(QStringLiteral("include next round pointer"));
    options.eids = tab.chosen_ids();
    return options;
}

WebsiteScheduleOptions schedule_options(const WebsitePageTab& tab)
{
    WebsiteScheduleOptions options;
    options.from = tab.ticked(QStringLiteral("from"));
    options.wqs = tab.ticked(QStringLiteral("wqs"));
    options.by_event = tab.ticked(QStringLiteral("schedule by event"));
    options.by_time = tab.ticked(QStringLiteral("schedule by time"));
    options.by_court = tab.ticked(QStringLiteral("schedule by court"));
    options.unfinished_score = tab.ticked(QStringLiteral("include unfinished match score"));
    options.days = tab.chosen_lines();
    return options;
}

WebsitePlayerTimesOptions player_times_options(const WebsitePageTab& tab)
{
    return { tab.ticked(QStringLiteral("include match context")), tab.chosen_lines() };
}

WebsiteResultsOptions results_options(const WebsitePageTab& tab)
{
    WebsiteResultsOptions options;
    options.long_score = tab.ticked(QStringLiteral("long score"));
    options.short_score = tab.ticked(QStringLiteral("short score"));
    options.wqs = tab.ticked(QStringLiteral("wqs"));
    options.from = tab.ticked(QStringLiteral("from code"));
    options.by_event = tab.ticked(QStringLiteral("by event"));
    options.by_schedule = tab.ticked(QStringLiteral("by schedule"));
    options.by_day = tab.ticked(QStringLiteral("by day"));
    options.by_round = tab.ticked(QStringLiteral("by round"));
    options.days = tab.chosen_lines();
    return options;
}

} // namespace qv
