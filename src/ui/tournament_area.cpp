#include "ui/tournament_area.h"

#include "core/session.h"
#include "entries/entries.h"
#include "ui/clear_data_dialog.h"
#include "ui/qt_text.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <tuple>

namespace qv {

namespace {

constexpr int id_role = Qt::UserRole;

void fill(QListWidget* list, const std::vector<ListLine>& lines)
{
    list->clear();
    for (const auto& line : lines) {
        auto* item = new QListWidgetItem(qs(line.text), list);
        item->setData(id_role, QVariant::fromValue<qlonglong>(line.id));
    }
}

// The row of the list whose id is given, or -1.
int row_of(QListWidget* list, qlonglong id)
{
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->data(id_role).toLongLong() == id)
            return row;
    return -1;
}

QLabel* add_count(QGridLayout* grid, int row, const char* caption, QWidget* parent)
{
    grid->addWidget(new QLabel(QString::fromLatin1(caption), parent), row, 0);
    auto* number = new QLabel(parent);
    number->setMinimumWidth(40);
    grid->addWidget(number, row, 1);
    return number;
}

} // namespace

TournamentArea::TournamentArea(Session& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_events(new QListWidget(this))
    , m_players_button(new QPushButton(QStringLiteral("players"), this))
    , m_reserve_button(new QPushButton(QStringLiteral("reserve"), this))
    , m_raw_button(new QPushButton(QStringLiteral("raw doubles"), this))
    , m_entries(new QListWidget(this))
    , m_remove_entries(new QPushButton(QStringLiteral("remove"), this))
    , m_players(new QListWidget(this))
    , m_player_events(new QListWidget(this))
    , m_refresh(new QPushButton(QStringLiteral("refresh"), this))
    , m_restart(new QPushButton(QStringLiteral("restart"), this))
    , m_tournament_ops(new QListWidget(this))
    , m_events_ops(new QListWidget(this))
    , m_players_ops(new QListWidget(this))
    , m_event_ops(new QListWidget(this))
{
    setObjectName(QStringLiteral("mainform"));
    m_tournament_ops->setObjectName(QStringLiteral("tournament_operations"));
    for (auto* button : { m_players_button, m_reserve_button, m_raw_button })
        button->setCheckable(true);
    m_players_button->setChecked(true);
    m_entries->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_remove_entries->setObjectName(QStringLiteral("remove_entries"));

    auto* entry_buttons = new QHBoxLayout;
    entry_buttons->addWidget(m_players_button);
    entry_buttons->addWidget(m_reserve_button);
    entry_buttons->addWidget(m_raw_button);

    auto* counts = new QGridLayout;
    m_event_count = add_count(counts, 0, "Total number of events", this);
    m_entry_count = add_count(counts, 1, "Total entries ( including raw doubles)", this);
    m_player_event_count = add_count(counts, 2, "Numer of events player has entered", this);

    auto* events_box = new QGroupBox(QStringLiteral("events"), this);
    auto* events_column = new QVBoxLayout(events_box);
    events_column->addWidget(m_events, 3);
    events_column->addLayout(entry_buttons);
    events_column->addWidget(m_entries, 2);
    events_column->addWidget(m_remove_entries);
    events_column->addLayout(counts);

    auto* players_box = new QGroupBox(QStringLiteral("players"), this);
    auto* players_column = new QVBoxLayout(players_box);
    players_column->addWidget(m_players, 3);
    players_column->addWidget(m_player_events, 1);

    auto* side = new QVBoxLayout;
    side->addWidget(m_refresh);
    side->addWidget(m_restart);
    // The longer lists of operations get the more room.
    const std::tuple<const char*, QListWidget*, int> op_lists[] = { { "tournament", m_tournament_ops, 2 },
        { "events", m_events_ops, 4 }, { "players", m_players_ops, 4 }, { "event", m_event_ops, 1 } };
    for (const auto& [caption, list, stretch] : op_lists) {
        auto* box = new QGroupBox(QString::fromLatin1(caption), this);
        auto* column = new QVBoxLayout(box);
        column->addWidget(list);
        side->addWidget(box, stretch);
        connect(list, &QListWidget::itemClicked, this, &TournamentArea::run_operation);
    }
    // Each line opens a window; the windows register their lines as they come.
    add_operation(OperationList::tournament, QStringLiteral("clear data"), [this] { open_clear_data(); });

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(events_box, 3);
    layout->addWidget(players_box, 3);
    layout->addLayout(side, 2);

    connect(m_events, &QListWidget::currentRowChanged, this, [this] { load_entries(); });
    connect(m_players, &QListWidget::currentRowChanged, this, [this] { load_player_events(); });
    connect(m_players_button, &QPushButton::clicked, this, [this] { show_entries(EntryList::players); });
    connect(m_reserve_button, &QPushButton::clicked, this, [this] { show_entries(EntryList::reserve); });
    connect(m_raw_button, &QPushButton::clicked, this, [this] { show_entries(EntryList::raw_doubles); });
    connect(m_remove_entries, &QPushButton::clicked, this, &TournamentArea::remove_selected_entries);
    connect(m_refresh, &QPushButton::clicked, this, &TournamentArea::refresh);
    connect(m_restart, &QPushButton::clicked, this, [this] { m_session.boot_restart_from_mainform(); });
}

QPushButton* TournamentArea::entry_button(EntryList which) const
{
    switch (which) {
    case EntryList::players:
        return m_players_button;
    case EntryList::reserve:
        return m_reserve_button;
    case EntryList::raw_doubles:
        return m_raw_button;
    }
    return m_players_button;
}

QString TournamentArea::event_count() const
{
    return m_event_count->text();
}
QString TournamentArea::entry_count() const
{
    return m_entry_count->text();
}
QString TournamentArea::player_event_count() const
{
    return m_player_event_count->text();
}

void TournamentArea::init()
{
    for (const auto& worded : m_worded)
        worded.item->setText(worded.caption());
    if (!m_session.has_tournament()) {
        clear();
        return;
    }
    // Keep the user's place across a refresh where the rows still exist.
    const qlonglong event_id = m_events->currentItem() ? m_events->currentItem()->data(id_role).toLongLong() : 0;
    const qlonglong player_id = m_players->currentItem() ? m_players->currentItem()->data(id_role).toLongLong() : 0;

    auto& db = m_session.tournament();
    fill(m_events, loadevents(db));
    fill(m_players, loadplayers(db));
    const auto counts = main_counts(db);
    m_event_count->setText(QString::number(counts.events));
    m_entry_count->setText(QString::number(counts.entries));
    m_events->setCurrentRow(row_of(m_events, event_id));
    m_players->setCurrentRow(row_of(m_players, player_id));
    load_entries();
    load_player_events();
}

void TournamentArea::clear()
{
    for (auto* list : { m_events, m_entries, m_players, m_player_events })
        list->clear();
    for (auto* label : { m_event_count, m_entry_count, m_player_event_count })
        label->clear();
}

void TournamentArea::refresh()
{
    init();
}

void TournamentArea::show_entries(EntryList which)
{
    m_entry_list = which;
    for (EntryList each : { EntryList::players, EntryList::reserve, EntryList::raw_doubles })
        entry_button(each)->setChecked(each == which);
    load_entries();
}

void TournamentArea::load_entries()
{
    m_entries->clear();
    const auto* event = m_events->currentItem();
    // "resolve doubles" is offered for a doubles event only.
    const bool doubles = event && m_session.has_tournament()
        && m_session.tournament().scalar_text(
               "select singdobs from events where eid=?", event->data(id_role).toLongLong())
            == "doubles";
    for (auto* line : m_event_ops->findItems(QStringLiteral("resolve doubles"), Qt::MatchExactly))
        line->setHidden(!doubles);
    if (!event || !m_session.has_tournament())
        return;
    fill(m_entries, load_event_entries(m_session.tournament(), event->data(id_role).toLongLong(), m_entry_list));
}

void TournamentArea::load_player_events()
{
    m_player_events->clear();
    m_player_event_count->clear();
    const auto* player = m_players->currentItem();
    if (!player || !m_session.has_tournament())
        return;
    fill(m_player_events, player_events(m_session.tournament(), to_std(player->text())));
    m_player_event_count->setText(QString::number(m_player_events->count()));
}

int TournamentArea::remove_selected_entries()
{
    const auto eid = selected_event();
    if (eid == 0 || !m_session.has_tournament())
        return 0;
    std::vector<std::int64_t> ids;
    for (const auto* item : m_entries->selectedItems())
        ids.push_back(item->data(id_role).toLongLong());
    // The removal asks the windows to read their lists again itself.
    return remove_entries(m_session, eid, m_entry_list, ids);
}

QListWidget* TournamentArea::operations(OperationList which) const
{
    switch (which) {
    case OperationList::tournament:
        return m_tournament_ops;
    case OperationList::events:
        return m_events_ops;
    case OperationList::players:
        return m_players_ops;
    case OperationList::selected_event:
        return m_event_ops;
    }
    return m_tournament_ops;
}

void TournamentArea::add_operation(OperationList which, const QString& caption, std::function<void()> action)
{
    auto* list = operations(which);
    list->addItem(caption);
    m_actions[list][caption] = std::move(action);
}

void TournamentArea::add_worded_operation(
    OperationList which, std::function<QString()> caption, std::function<void()> action, const QString& before)
{
    auto* list = operations(which);
    const auto found = list->findItems(before, Qt::MatchExactly);
    auto* item = new QListWidgetItem(caption());
    list->insertItem(found.isEmpty() ? list->count() : list->row(found.front()), item);
    m_worded.push_back({ item, std::move(caption), std::move(action) });
}

qlonglong TournamentArea::selected_event() const
{
    return m_events->currentItem() ? m_events->currentItem()->data(id_role).toLongLong() : 0;
}

QString TournamentArea::selected_player() const
{
    return m_players->currentItem() ? m_players->currentItem()->text() : QString();
}

void TournamentArea::run_operation(QListWidgetItem* item)
{
    if (!item || !m_session.has_tournament())
        return;
    for (const auto& worded : m_worded)
        if (worded.item == item) {
            worded.action();
            return;
        }
    const auto& actions = m_actions[item->listWidget()];
    if (auto found = actions.find(item->text()); found != actions.end())
        found->second();
}

ClearDataDialog* TournamentArea::open_clear_data()
{
    if (!m_session.has_tournament())
        return nullptr;
    auto* dialog = new ClearDataDialog(m_session, window());
    dialog->show();
    return dialog;
}

} // namespace qv
