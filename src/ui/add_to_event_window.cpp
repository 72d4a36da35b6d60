#include "ui/add_to_event_window.h"

#include "core/session.h"
#include "entries/events.h"
#include "entries/filters.h"
#include "entries/folders.h"
#include "ui/events_filter_window.h"
#include "ui/id_lists.h"
#include "ui/list_search.h"
#include "ui/players_filter_window.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr auto add_caption = "add selected player(s) above to selected event below";

// Lists that begin with "set filter..." keep their lines below it.
int first_line(const QListWidget* list)
{
    return list->count() > 0 && list->item(0)->text() == qs(set_filter_line) ? 1 : 0;
}

void begin_filtered(QListWidget* list)
{
    list->clear();
    list->addItem(qs(set_filter_line));
}

std::vector<std::string> selected_texts(const QListWidget* list)
{
    std::vector<std::string> lines;
    for (int row = first_line(list); row < list->count(); ++row)
        if (list->item(row)->isSelected())
            lines.push_back(to_std(list->item(row)->text()));
    return lines;
}

void fill_texts(QListWidget* list, const std::vector<std::string>& lines)
{
    list->clear();
    for (const auto& line : lines)
        list->addItem(qs(line));
}

// Moves to the next line after the current one that holds the text and adds it to the selection, so that a run
// of searches picks several people.
bool search_list(QListWidget* list, const QString& text)
{
    const auto row = next_matching_row(list, text, first_line(list));
    if (!row)
        return false;
    list->setCurrentRow(*row, QItemSelectionModel::Select);
    list->scrollToItem(list->item(*row));
    return true;
}

// The line "set filter..." opens the list's filter window.
template <class Open> void on_filter_line(QListWidget* list, QObject* owner, Open open)
{
    QObject::connect(list, &QListWidget::itemClicked, owner, [list, open](QListWidgetItem* item) {
        if (list->row(item) == 0 && item->text() == qs(set_filter_line))
            open();
    });
}

} // namespace

AddToEventWindow::AddToEventWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_tabs(new QTabWidget(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("addtoevent"));
    setWindowTitle(QStringLiteral("add players to events"));

    auto* layout = new QVBoxLayout(this);
    m_tabs->addTab(players_tab(), QStringLiteral("players"));
    m_tabs->addTab(sets_tab(), QStringLiteral("sets"));
    m_tabs->addTab(folders_tab(), QStringLiteral("folders"));
    m_tabs->addTab(events_tab(), QStringLiteral("events"));
    layout->addWidget(m_tabs, 3);

    layout->addWidget(new QLabel(QStringLiteral("target event"), this));
    m_targets_tag = new QLabel(this);
    m_targets_tag->setWordWrap(true);
    layout->addWidget(m_targets_tag);
    m_targets = make_list(this, layout, true);
    m_targets.list->setSelectionMode(QAbstractItemView::SingleSelection);
    on_filter_line(m_targets.list, this, [this] { set_targets_filter(); });
    connect(m_targets.load, &QPushButton::clicked, this, &AddToEventWindow::load_targets);

    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    layout->addWidget(close_button, 0, Qt::AlignRight);
    connect(close_button, &QPushButton::clicked, this, &QDialog::close);
    // Enter in a search box searches; adding is pressed on purpose.
    no_main_button(this);
    refresh();
}

SearchableList AddToEventWindow::make_list(QWidget* page, QBoxLayout* layout, bool has_filter_line)
{
    SearchableList made;
    made.list = new QListWidget(page);
    made.list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    made.find = new QLineEdit(page);
    made.search = new QPushButton(QStringLiteral("search"), page);
    made.load = new QPushButton(QStringLiteral("load"), page);
    if (has_filter_line)
        begin_filtered(made.list);
    layout->addWidget(made.list, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(made.find);
    row->addWidget(made.search);
    row->addWidget(made.load);
    layout->addLayout(row);
    auto* list = made.list;
    auto* find = made.find;
    const auto search = [list, find] { search_list(list, find->text()); };
    connect(made.search, &QPushButton::clicked, page, search);
    connect(made.find, &QLineEdit::returnPressed, page, search);
    return made;
}

void AddToEventWindow::add_buttons(Tab tab, QWidget* page, QBoxLayout* layout)
{
    auto* row = new QHBoxLayout;
    m_reserve[index(tab)] = new QCheckBox(QStringLiteral("add as reserve"), page);
    m_add[index(tab)] = new QPushButton(QString::fromLatin1(add_caption), page);
    row->addWidget(m_reserve[index(tab)]);
    row->addWidget(m_add[index(tab)]);
    layout->addLayout(row);
    connect(m_add[index(tab)], &QPushButton::clicked, this, [this, tab] { add(tab); });
}

QWidget* AddToEventWindow::players_tab()
{
    auto* page = new QWidget(m_tabs);
    auto* layout = new QVBoxLayout(page);
    m_players_tag = new QLabel(page);
    m_players_tag->setWordWrap(true);
    layout->addWidget(m_players_tag);
    auto& source = m_sources[index(Tab::players)];
    source = make_list(page, layout, true);
    on_filter_line(source.list, this, [this] { set_players_filter(); });
    connect(source.load, &QPushButton::clicked, this, &AddToEventWindow::load_players);
    add_buttons(Tab::players, page, layout);
    return page;
}

QWidget* AddToEventWindow::sets_tab()
{
    auto* page = new QWidget(m_tabs);
    auto* layout = new QVBoxLayout(page);
    m_sets = new QComboBox(page);
    for (const auto& set : player_sets())
        m_sets->addItem(qs(set));
    layout->addWidget(m_sets);
    auto& source = m_sources[index(Tab::sets)];
    source = make_list(page, layout, false);
    // The sets read every draw: they are built when chosen or loaded, not at every refresh.
    connect(m_sets, &QComboBox::activated, this, &AddToEventWindow::load_set);
    connect(source.load, &QPushButton::clicked, this, &AddToEventWindow::load_set);
    add_buttons(Tab::sets, page, layout);
    return page;
}

QWidget* AddToEventWindow::folders_tab()
{
    auto* page = new QWidget(m_tabs);
    auto* layout = new QVBoxLayout(page);
    m_folders_tag = new QLabel(page);
    m_folders_tag->setWordWrap(true);
    layout->addWidget(m_folders_tag);
    auto* lists = new QHBoxLayout;
    m_folders = new QListWidget(page);
    lists->addWidget(m_folders, 1);
    auto* players = new QVBoxLayout;
    auto& source = m_sources[index(Tab::folders)];
    source = make_list(page, players, true);
    lists->addLayout(players, 2);
    layout->addLayout(lists, 1);
    on_filter_line(source.list, this, [this] { set_folders_filter(); });
    connect(m_folders, &QListWidget::currentRowChanged, this, &AddToEventWindow::load_folder_players);
    connect(source.load, &QPushButton::clicked, this, &AddToEventWindow::load_folders);
    add_buttons(Tab::folders, page, layout);
    return page;
}

QWidget* AddToEventWindow::events_tab()
{
    auto* page = new QWidget(m_tabs);
    auto* layout = new QVBoxLayout(page);
    m_events_tag = new QLabel(page);
    m_events_tag->setWordWrap(true);
    layout->addWidget(m_events_tag);

    auto* lists = new QHBoxLayout;
    m_events = new QListWidget(page);
    m_criteria = new QListWidget(page);
    lists->addWidget(m_events, 2);
    lists->addWidget(m_criteria, 1);
    auto* entries = new QVBoxLayout;
    auto& source = m_sources[index(Tab::events)];
    source = make_list(page, entries, false);
    lists->addLayout(entries, 2);
    auto* halves = new QVBoxLayout;
    m_split = new QPushButton(QStringLiteral("split"), page);
    m_split_list = new QListWidget(page);
    m_split_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    halves->addWidget(m_split);
    halves->addWidget(m_split_list, 1);
    m_split_reserve = new QCheckBox(QStringLiteral("add as reserve"), page);
    m_split_add = new QPushButton(QString::fromLatin1(add_caption), page);
    halves->addWidget(m_split_reserve);
    halves->addWidget(m_split_add);
    lists->addLayout(halves, 1);
    layout->addLayout(lists, 1);
    add_buttons(Tab::events, page, layout);

    begin_filtered(m_events);
    on_filter_line(m_events, this, [this] { set_events_filter(); });
    connect(m_events, &QListWidget::currentRowChanged, this, &AddToEventWindow::load_criteria);
    connect(m_criteria, &QListWidget::currentRowChanged, this, &AddToEventWindow::load_criterion_lines);
    connect(source.load, &QPushButton::clicked, this, &AddToEventWindow::load_events);
    connect(m_split, &QPushButton::clicked, this, &AddToEventWindow::split);
    connect(m_split_add, &QPushButton::clicked, this, &AddToEventWindow::add_split);
    return page;
}

void AddToEventWindow::refresh()
{
    load_players();
    load_folders();
    load_events();
    load_targets();
}

void AddToEventWindow::load_players()
{
    // The window's filter has no source of its own: the list is the register's.
    auto filter = load_player_filter(m_session.settings(), filter_keys::players_addtoevent);
    filter.source = PlayerSource::all;
    filter.id = 0;
    m_players_tag->setText(qs(disp_tag(filter, FilterScope::without_source)));
    auto* list = m_sources[index(Tab::players)].list;
    begin_filtered(list);
    for (const auto& line : players_of_filter(m_session.tournament(), filter))
        add_id_line(list, line.text, line.id);
}

void AddToEventWindow::load_set()
{
    auto* list = m_sources[index(Tab::sets)].list;
    list->clear();
    for (const auto& line : players_of_set(m_session.tournament(), to_std(m_sets->currentText())))
        add_id_line(list, line.text, line.id);
}

void AddToEventWindow::load_folders()
{
    const auto keep = current_id(m_folders);
    m_folders->clear();
    for (const auto& folder : qv::load_folders(m_session.tournament()))
        add_id_line(m_folders, folder.nm, folder.fid);
    if (keep)
        select_id(m_folders, *keep);
    load_folder_players();
}

void AddToEventWindow::load_folder_players()
{
    const auto filter = load_player_filter(m_session.settings(), filter_keys::folders_addtoevent);
    m_folders_tag->setText(qs(disp_tag(filter, FilterScope::without_source)));
    auto* list = m_sources[index(Tab::folders)].list;
    begin_filtered(list);
    if (const auto fid = current_id(m_folders))
        for (const auto& line : players_of_folder(m_session.tournament(), *fid, filter))
            add_id_line(list, line.text, line.id);
}

void AddToEventWindow::load_events()
{
    const auto keep = current_id(m_events);
    const auto filter = load_event_filter(m_session.settings(), filter_keys::events_addtoevent);
    m_events_tag->setText(qs(disp_tag(filter)));
    {
        const QSignalBlocker quiet(m_events);
        begin_filtered(m_events);
        for (const auto& line : filtered_events(m_session.tournament(), filter))
            add_id_line(m_events, line.text, line.id);
        if (keep)
            select_id(m_events, *keep);
    }
    load_criteria();
}

void AddToEventWindow::load_criteria()
{
    const auto keep = m_criteria->currentItem() ? m_criteria->currentItem()->text() : QString();
    {
        const QSignalBlocker quiet(m_criteria);
        m_criteria->clear();
        if (const auto eid = current_id(m_events))
            fill_texts(m_criteria, event_criteria(m_session.tournament(), *eid));
        const auto same = m_criteria->findItems(keep, Qt::MatchExactly);
        if (!same.isEmpty())
            m_criteria->setCurrentItem(same.front());
        else if (m_criteria->count() > 0)
            m_criteria->setCurrentRow(0);
    }
    load_criterion_lines();
}

void AddToEventWindow::load_criterion_lines()
{
    auto* list = m_sources[index(Tab::events)].list;
    list->clear();
    m_split_list->clear();
    const auto eid = current_id(m_events);
    if (!eid || !m_criteria->currentItem())
        return;
    fill_texts(list, criterion_lines(m_session.tournament(), *eid, to_std(m_criteria->currentItem()->text())));
}

void AddToEventWindow::load_targets()
{
    const auto keep = current_id(m_targets.list);
    const auto filter = load_event_filter(m_session.settings(), filter_keys::targetevents_addtoevent);
    m_targets_tag->setText(qs(disp_tag(filter)));
    begin_filtered(m_targets.list);
    for (const auto& line : filtered_events(m_session.tournament(), filter))
        add_id_line(m_targets.list, line.text, line.id);
    if (keep)
        select_id(m_targets.list, *keep);
}

void AddToEventWindow::split()
{
    m_split_list->clear();
    const auto* item = m_sources[index(Tab::events)].list->currentItem();
    const auto eid = current_id(m_events);
    if (!item || !item->isSelected() || !eid) {
        m_session.talk().message("select player");
        return;
    }
    const auto event = get_data(m_session.tournament(), *eid);
    fill_texts(m_split_list, split_entry(to_std(item->text()), event && event->is_rr()));
}

AddReport AddToEventWindow::add(Tab tab)
{
    AddRequest request;
    request.lines = selected_texts(m_sources.at(index(tab)).list);
    request.reserve = m_reserve.at(index(tab))->isChecked() ? AsReserve::yes : AsReserve::no;
    switch (tab) {
    case Tab::players:
        request.source = AddSource::players;
        break;
    case Tab::sets:
        request.source = AddSource::sets;
        break;
    case Tab::folders:
        request.source = AddSource::folders;
        break;
    case Tab::events:
        request.source = AddSource::events;
        request.source_eid = current_id(m_events).value_or(0);
        break;
    }
    return run(std::move(request));
}

AddReport AddToEventWindow::add_split()
{
    AddRequest request;
    request.source = AddSource::split;
    request.lines = selected_texts(m_split_list);
    request.reserve = m_split_reserve->isChecked() ? AsReserve::yes : AsReserve::no;
    return run(std::move(request));
}

AddReport AddToEventWindow::run(AddRequest request)
{
    request.target = current_id(m_targets.list);
    const auto report = add_to_event1(m_session, request);
    if (report.ran) {
        // Counts of entries change what the event filters and criteria list.
        load_targets();
        load_events();
    }
    return report;
}

QDialog* AddToEventWindow::set_players_filter()
{
    auto* window = new PlayersFilterWindow(
        m_session, std::string(filter_keys::players_addtoevent), PlayersFilterKind::addtoevent,
        [this](const PlayerFilter&) { load_players(); }, this);
    window->show();
    return window;
}

QDialog* AddToEventWindow::set_folders_filter()
{
    auto* window = new PlayersFilterWindow(
        m_session, std::string(filter_keys::folders_addtoevent), PlayersFilterKind::addtoevent,
        [this](const PlayerFilter&) { load_folder_players(); }, this);
    window->show();
    return window;
}

QDialog* AddToEventWindow::set_events_filter()
{
    auto* window = new EventsFilterWindow(
        m_session, std::string(filter_keys::events_addtoevent), [this](const EventFilter&) { load_events(); }, this);
    window->show();
    return window;
}

QDialog* AddToEventWindow::set_targets_filter()
{
    auto* window = new EventsFilterWindow(
        m_session, std::string(filter_keys::targetevents_addtoevent), [this](const EventFilter&) { load_targets(); },
        this);
    window->show();
    return window;
}

AddToEventWindow* open_add_to_event(Session& session, QWidget* parent)
{
    auto* window = new AddToEventWindow(session, parent);
    window->show();
    return window;
}

} // namespace qv
