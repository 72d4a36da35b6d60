#include "ui/peek_browse_window.h"

#include "core/database.h"
#include "core/file_save.h"
#include "core/session.h"
#include "datafiles/entries_reports.h"
#include "online/entries_download.h"
#include "ui/id_lists.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace qv {

namespace {

QListWidget* titled_list(QWidget* parent, QHBoxLayout* row, const QString& title)
{
    auto* box = new QGroupBox(title, parent);
    auto* list = new QListWidget(box);
    list->setObjectName(title);
    auto* column = new QVBoxLayout(box);
    column->addWidget(list);
    row->addWidget(box);
    return list;
}

// The entrants of an event of one set of tables: singles players, resolved teams, raw doubles with partners.
QStringList entrants(Database& db, const std::string& prefix, std::int64_t eid)
{
    QStringList lines;
    for (auto e = db.query("select * from " + prefix + "evententries where eid=? order by ent_idx", eid); e.step();)
        lines << qs(e.text("sd") == "singles" ? e.text("player") : e.text("p1name") + " / " + e.text("partner"));
    for (auto r = db.query("select * from " + prefix + "rawdoublesentries where eid=? order by rdidx", eid);
         r.step();) {
        const auto partner
            = r.text("partnername") == "preq preq" ? std::string("(partner required)") : r.text("partnername");
        lines << qs("raw: " + r.text("player") + " / " + partner);
    }
    return lines;
}

} // namespace

PeekBrowseWindow::PeekBrowseWindow(Session& session, EntriesTarget target, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_target(target)
    , m_heading(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("peek_browse"));
    setWindowTitle(target == EntriesTarget::peek ? QStringLiteral("peek entries") : QStringLiteral("browse entries"));

    auto* lists = new QHBoxLayout;
    m_events = titled_list(this, lists, QStringLiteral("events"));
    m_entries = titled_list(this, lists, QStringLiteral("entries"));
    m_players = titled_list(this, lists, QStringLiteral("players"));
    m_tournament_entries = titled_list(this, lists, QStringLiteral("tournament entries"));

    auto* buttons = new QHBoxLayout;
    const auto add_button = [this, buttons](const QString& caption, auto slot) {
        auto* button = new QPushButton(caption, this);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, slot);
        return button;
    };
    auto* refresh_button = add_button(QStringLiteral("refresh"), &PeekBrowseWindow::refresh);
    add_button(QStringLiteral("export entries (brief)"), &PeekBrowseWindow::export_brief);
    add_button(QStringLiteral("export entries (expanded)"), &PeekBrowseWindow::export_expanded);
    add_button(QStringLiteral("export formatted entries"), &PeekBrowseWindow::export_formatted);
    if (target == EntriesTarget::peek)
        add_button(QStringLiteral("withdraw"), &PeekBrowseWindow::withdraw);
    buttons->addStretch();
    add_button(QStringLiteral("close"), &QWidget::close);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_heading);
    layout->addLayout(lists, 1);
    layout->addLayout(buttons);

    connect(m_events, &QListWidget::currentRowChanged, this, &PeekBrowseWindow::load_entries);
    // Enter reads the tables again: the one action that changes nothing.
    refresh_button->setDefault(true);
    for (const auto key : { Qt::Key_Return, Qt::Key_Enter })
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, &PeekBrowseWindow::refresh);
    close_on_escape(this);
    resize(900, 480);
    refresh();
}

std::string PeekBrowseWindow::prefix() const
{
    return entries_prefix(m_target);
}

void PeekBrowseWindow::refresh()
{
    auto& db = m_session.peek_browse_db();
    const auto chosen = current_id(m_events);
    auto info = db.query("select * from " + prefix() + "info");
    m_heading->clear();
    if (info.step())
        m_heading->setText(
            qs(info.text("tname").empty() ? info.text("fn") : info.text("tname") + "  (" + info.text("fn") + ")"));
    m_events->clear();
    for (auto e = db.query("select eid, eventname from " + prefix() + "events order by eid"); e.step();)
        add_id_line(m_events, e.text("eid") + " " + e.text("eventname"), e.integer("eid"));
    m_players->clear();
    for (auto p = db.query("select pid, player, email from " + prefix() + "players order by pid"); p.step();)
        add_id_line(m_players, p.text("player") + " (" + p.text("email") + ")", p.integer("pid"));
    if (chosen)
        select_id(m_events, *chosen);
    else if (m_events->count() > 0)
        m_events->setCurrentRow(0);
    load_entries();
}

void PeekBrowseWindow::load_entries()
{
    m_entries->clear();
    m_tournament_entries->clear();
    const auto* item = m_events->currentItem();
    if (!item)
        return;
    const auto eid = item->data(Qt::UserRole).toLongLong();
    m_entries->addItems(entrants(m_session.peek_browse_db(), prefix(), eid));
    if (m_session.has_tournament())
        m_tournament_entries->addItems(entrants(m_session.tournament(), "", eid));
}

bool PeekBrowseWindow::withdraw()
{
    const auto* item = m_players->currentItem();
    if (!withdraw_peek_player(m_session, item ? item->data(Qt::UserRole).toLongLong() : 0))
        return false;
    refresh();
    return true;
}

void PeekBrowseWindow::export_brief()
{
    save_text_file_as(
        m_session, "entries_brief", m_session.dirs().app, entriesbrief(m_session.peek_browse_db(), prefix()));
}

void PeekBrowseWindow::export_expanded()
{
    save_text_file_as(
        m_session, "entries_expanded", m_session.dirs().app, entriesexpanded(m_session.peek_browse_db(), prefix()));
}

void PeekBrowseWindow::export_formatted()
{
    save_text_file_as(m_session, "export_formatted_entries_with_raw_doubles).txt", m_session.dirs().app,
        export_formatted_entries(m_session.peek_browse_db(), FormattedDoubles::raw, prefix()));
}

PeekBrowseWindow* open_peek_browse(Session& session, EntriesTarget target, QWidget* parent)
{
    for (auto* open : parent->findChildren<PeekBrowseWindow*>())
        if (open->target() == target) {
            open->refresh();
            open->raise();
            return open;
        }
    auto* window = new PeekBrowseWindow(session, target, parent);
    show_over_parent(window);
    return window;
}

PeekBrowseWindow* browse_entries_file(Session& session, QWidget* parent)
{
    const auto file = session.talk().choose_file(
        { FileDialogKind::Open, "browse qv5 file", "", "qv5.", session.settings().text("app.last_dir_opened") });
    if (!file || !load_entries_file(session, *file, EntriesTarget::browse))
        return nullptr;
    return open_peek_browse(session, EntriesTarget::browse, parent);
}

} // namespace qv
