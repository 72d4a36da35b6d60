#include "ui/online_events_tab.h"

#include "core/database.h"
#include "core/session.h"
#include "core/utf8.h"
#include "entries/events.h"
#include "online/entries_download.h"
#include "online/online_events.h"
#include "online/request_url.h"
#include "ui/id_lists.h"
#include "ui/peek_browse_window.h"
#include "ui/qt_text.h"
#include "ui/tournament_config_window.h"
#include "ui/window_behaviour.h"

#include <QDesktopServices>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QUrl>
#include <QVBoxLayout>

#include <span>

namespace qv {

namespace {

constexpr const char* online_captions[] = { "get selected event entries", "players", "clear players and entries",
    "peek entries", "peek entries refresh data", "download entries don't load", "download entries load",
    "refresh event list", "refresh ew state", "view enter page", "view withdraw page", "open entries", "close entries",
    "open withdrawals", "close withdrawals", "open entries/withdrawals", "close entries/withdrawals", "entries",
    "links online" };
constexpr const char* local_captions[] = { "upload events", "clear online events", "tournament", "event error check" };
constexpr const char* qv5_captions[] = { "load", "browse", "rename", "clear peeks", "search" };

// The pages of the service that the list of operations opens, by caption.
constexpr std::pair<const char*, const char*> page_captions[]
    = { { "players", "players" }, { "view enter page", "enter1_enterpage" },
          { "view withdraw page", "withdraw1_login_page" }, { "entries", "entries" }, { "links online", "links" } };

QListWidget* operations_list(QWidget* parent, const QString& name, std::span<const char* const> captions)
{
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    for (const char* caption : captions)
        list->addItem(QString::fromLatin1(caption));
    // Every line shows, with no scroll bar.
    list->setFixedHeight(list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth() + 4);
    list->setMinimumWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + 8);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

QGroupBox* column_box(QWidget* parent, const QString& title, std::initializer_list<QWidget*> widgets)
{
    auto* box = new QGroupBox(title, parent);
    auto* column = new QVBoxLayout(box);
    for (auto* widget : widgets)
        column->addWidget(widget);
    return box;
}

} // namespace

OnlineEventsTab::OnlineEventsTab(Session& session, QWidget* parent)
    : AreaPage(parent)
    , m_session(session)
    , m_open_url([](const std::string& url) {
        QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(wire_url(url))));
    })
    , m_online_events(new QListWidget(this))
    , m_states(new QLabel(this))
    , m_local_events(new QListWidget(this))
    , m_qv5_files(new QListWidget(this))
    , m_qv5_name(new QLineEdit(this))
{
    setObjectName(QStringLiteral("online events"));
    m_online_operations = operations_list(this, QStringLiteral("online operations"), online_captions);
    m_local_operations = operations_list(this, QStringLiteral("local operations"), local_captions);
    m_qv5_operations = operations_list(this, QStringLiteral("qv5 operations"), qv5_captions);
    m_online_events->setObjectName(QStringLiteral("online events"));
    m_local_events->setObjectName(QStringLiteral("local events"));
    m_qv5_files->setObjectName(QStringLiteral("qv5 files"));
    m_qv5_name->setObjectName(QStringLiteral("qv5 name"));
    m_qv5_name->setPlaceholderText(QStringLiteral("new name or text to search"));
    m_states->setObjectName(QStringLiteral("states"));
    for (auto* list : { m_online_events, m_local_events, m_qv5_files }) {
        list->setMinimumWidth(QFontMetrics(list->font()).averageCharWidth() * 40);
        list->setMinimumHeight(200);
    }
    // An archive name carries the tournament name and the time of the download: room for a usual one whole.
    m_qv5_files->setMinimumWidth(QFontMetrics(m_qv5_files->font()).averageCharWidth() * 48);

    auto* columns = new QHBoxLayout(this);
    auto* online = column_box(this, QStringLiteral("online"), { m_online_operations });
    static_cast<QVBoxLayout*>(online->layout())->addStretch();
    columns->addWidget(online);
    columns->addWidget(column_box(this, QStringLiteral("online events"), { m_states, m_online_events }), 1);
    columns->addWidget(column_box(this, QStringLiteral("local events"), { m_local_events, m_local_operations }), 1);
    columns->addWidget(column_box(this, QStringLiteral("qv5 files"), { m_qv5_files, m_qv5_name, m_qv5_operations }), 1);

    connect(m_online_operations, &QListWidget::itemClicked, this,
        [this](QListWidgetItem* item) { run_online(item->text()); });
    connect(m_local_operations, &QListWidget::itemClicked, this,
        [this](QListWidgetItem* item) { run_local(item->text()); });
    connect(
        m_qv5_operations, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { run_qv5(item->text()); });
    run_on_enter(m_qv5_name, [this] { search_qv5(); });
}

void OnlineEventsTab::init()
{
    load_online_events();
    load_local_events();
    load_qv5_files();
    set_online_labels();
}

void OnlineEventsTab::clear()
{
    m_online_events->clear();
    m_local_events->clear();
    m_qv5_files->clear();
    m_states->clear();
}

void OnlineEventsTab::refresh_lists(Lists which)
{
    if (which == Lists::events)
        load_local_events();
}

void OnlineEventsTab::load_online_events()
{
    m_online_events->clear();
    const auto custid = trim(m_session.settings().text("app.custid"));
    for (const auto& [eid, name] : qv::online_events(m_session.init_db(), custid))
        add_id_line(m_online_events, std::to_string(eid) + " " + name, eid);
}

void OnlineEventsTab::load_local_events()
{
    m_local_events->clear();
    if (!m_session.has_tournament())
        return;
    for (auto e = m_session.tournament().query("select eid, eventname, sex, singdobs from events order by eid");
         e.step();)
        add_id_line(m_local_events,
            e.text("eid") + " " + e.text("eventname") + " (" + e.text("sex") + ", " + e.text("singdobs") + ")",
            e.integer("eid"));
}

void OnlineEventsTab::load_qv5_files()
{
    m_qv5_files->clear();
    for (const auto& name : qv5_archive_files(m_session))
        m_qv5_files->addItem(qs(name));
}

void OnlineEventsTab::set_online_labels()
{
    const auto custid = trim(m_session.settings().text("app.custid"));
    m_states->setText(qs(set_online_entries_wdrawls_text(online_state_words(m_session.init_db(), custid))));
}

void OnlineEventsTab::open_page(std::string_view page)
{
    if (const auto url = online_page_url(m_session, page))
        open_in_browser(m_session, *url, m_open_url);
}

void OnlineEventsTab::peek(bool refresh_only)
{
    if (!down_load_entry_file(m_session, DownloadTarget::peek))
        return;
    load_qv5_files();
    auto* parent = window();
    const auto open = parent->findChildren<PeekBrowseWindow*>();
    if (refresh_only && !open.isEmpty())
        for (auto* w : open)
            w->refresh();
    else
        open_peek_browse(m_session, EntriesTarget::peek, parent);
}

void OnlineEventsTab::run_online(const QString& caption)
{
    const auto text = to_std(caption);
    for (const auto& [shown, page] : page_captions)
        if (text == shown)
            return open_page(page);
    for (const auto& state : state_words())
        if (text == state.caption) {
            set_state(m_session, state.word);
            return set_online_labels();
        }
    if (text == "get selected event entries") {
        const auto eid = current_id(m_online_events);
        if (!eid)
            return m_session.talk().message("select an online event");
        if (const auto url = online_event_entries_url(m_session, *eid))
            open_in_browser(m_session, *url, m_open_url);
    } else if (text == "clear players and entries") {
        clear_players_and_entries(m_session);
    } else if (text == "peek entries" || text == "peek entries refresh data") {
        peek(text == "peek entries refresh data");
    } else if (text == "download entries don't load") {
        down_load_entry_file(m_session, DownloadTarget::keep);
        load_qv5_files();
    } else if (text == "download entries load") {
        down_load_entry_file(m_session, DownloadTarget::load);
        load_qv5_files();
    } else if (text == "refresh event list") {
        refreshevents(m_session);
        load_online_events();
    } else if (text == "refresh ew state") {
        refresh_online_entries_wdrawls_state(m_session);
        set_online_labels();
    }
}

void OnlineEventsTab::run_local(const QString& caption)
{
    const auto text = to_std(caption);
    if (text == "upload events") {
        uploadevents_script_new(m_session);
        load_online_events();
        set_online_labels();
    } else if (text == "clear online events") {
        clear_online_events_script(m_session);
        load_online_events();
        set_online_labels();
    } else if (text == "tournament") {
        show_over_parent(new TournamentConfigWindow(m_session, window()));
    } else if (text == "event error check") {
        check_errors(m_session);
    }
}

std::string OnlineEventsTab::chosen_qv5() const
{
    const auto* item = m_qv5_files->currentItem();
    return item && item->isSelected() ? to_std(item->text()) : std::string();
}

void OnlineEventsTab::search_qv5()
{
    const auto text = m_qv5_name->text().trimmed();
    for (int row = 0; row < m_qv5_files->count(); ++row)
        if (!text.isEmpty() && m_qv5_files->item(row)->text().contains(text, Qt::CaseInsensitive)) {
            m_qv5_files->setCurrentRow(row);
            return;
        }
    m_session.talk().message("not found");
}

void OnlineEventsTab::run_qv5(const QString& caption)
{
    const auto text = to_std(caption);
    if (text == "load") {
        load_archived_entries(m_session, chosen_qv5());
    } else if (text == "browse") {
        if (browse_archived_entries(m_session, chosen_qv5()))
            open_peek_browse(m_session, EntriesTarget::browse, window());
    } else if (text == "rename") {
        if (rename_qv5_file(m_session, chosen_qv5(), to_std(m_qv5_name->text())))
            load_qv5_files();
    } else if (text == "clear peeks") {
        clear_peek_files(m_session);
        load_qv5_files();
    } else if (text == "search") {
        search_qv5();
    }
}

} // namespace qv
