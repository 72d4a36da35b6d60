#include "ui/qv4_single_window.h"

#include "core/file_save.h"
#include "core/session.h"
#include "datafiles/results_analysis.h"
#include "ui/analysis_lists.h"
#include "ui/analysis_text_panel.h"
#include "ui/id_lists.h"
#include "ui/list_search.h"
#include "ui/qt_text.h"
#include "ui/qv4_draw_panel.h"
#include "ui/window_behaviour.h"

#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

QVBoxLayout* titled_column(QWidget* parent, const char* caption, QListWidget* list, ActionList* actions)
{
    auto* column = new QVBoxLayout;
    // The lists stay narrow: the text and the draw take the room.
    list->setMaximumWidth(220);
    actions->setMaximumWidth(220);
    column->addWidget(new QLabel(QString::fromLatin1(caption), parent));
    column->addWidget(list, 1);
    column->addWidget(actions);
    return column;
}

} // namespace

void search_analysis_list(Session& session, QWidget* parent, QListWidget* list)
{
    bool ok = false;
    const auto text = QInputDialog::getText(
        parent, QStringLiteral("search"), QStringLiteral("search for"), QLineEdit::Normal, {}, &ok);
    if (!ok || text.isEmpty())
        return;
    if (const auto row = next_matching_row(list, text))
        list->setCurrentRow(*row);
    else
        session.talk().message("not found");
}

Qv4SingleWindow::Qv4SingleWindow(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_status(new QLabel(this))
    , m_players(new QListWidget(this))
    , m_events(new QListWidget(this))
    , m_text(new AnalysisTextPanel(session, "qv4_text.txt", this))
    , m_draw(new Qv4DrawPanel(session, "no image so save", this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("qv4_single"));
    setWindowTitle(QStringLiteral("one result (qv4) file"));
    close_on_escape(this);
    auto& store = session.peek_browse_db();
    const auto on_player = [this](auto query) {
        return [this, query] {
            if (const auto name = chosen_player())
                m_text->show_text(query(*name));
        };
    };
    const auto on_event = [this](auto query) {
        return [this, query] {
            if (const auto eid = chosen_event())
                m_text->show_text(query(*eid));
        };
    };
    m_player_actions = new ActionList(
        { { "players events", on_player([&store](const std::string& n) { return load_players_events(store, n); }) },
            { "players results", on_player([&store](const std::string& n) {
                 return load_players_results(store, Qv4Store::single, n);
             }) },
            { "players male", [this] { show_players("male"); } },
            { "players female", [this] { show_players("female"); } }, { "players all", [this] { show_players({}); } },
            { "search", [this] { search_analysis_list(m_session, this, m_players); } } },
        this);
    m_event_actions = new ActionList(
        { { "all events", [this] { load_all_events(); } },
            { "event entries", on_event([&store](std::int64_t eid) { return event_entries(store, eid); }) },
            { "event results", on_event([&store](std::int64_t eid) { return results_in_general(store, eid); }) },
            { "all results", [this, &store] { m_text->show_text(results_in_general(store, std::nullopt)); } },
            { "view draw",
                [this] {
                    if (const auto eid = chosen_event())
                        m_draw->show_event(*eid);
                } },
            { "alias", on_event([&store](std::int64_t eid) { return show_alias(store, eid); }) },
            { "search", [this] { search_analysis_list(m_session, this, m_events); } },
            { "save formatted results",
                [this, &store] {
                    if (save_text_file_as(m_session, "results.txt", m_session.dirs().app, formatted_results(store)))
                        m_session.talk().message("ok");
                } } },
        this);
    m_draw_actions = new ActionList(
        { { "print", [this] { m_draw->print(); } }, { "save to images", [this] { m_draw->save_images(); } } }, this);

    auto* open = new QPushButton(QStringLiteral("open..."), this);
    connect(open, &QPushButton::clicked, this, [this] { open_file(); });
    auto* top = new QHBoxLayout;
    top->addWidget(open);
    top->addWidget(m_status, 1);

    auto* draw_page = new QWidget(this);
    auto* draw_row = new QHBoxLayout(draw_page);
    draw_row->addWidget(m_draw, 1);
    draw_row->addWidget(m_draw_actions, 0, Qt::AlignTop);
    auto* tabs = new QTabWidget(this);
    tabs->addTab(m_text, QStringLiteral("text"));
    tabs->addTab(draw_page, QStringLiteral("draw"));

    auto* columns = new QHBoxLayout;
    columns->addLayout(titled_column(this, "players", m_players, m_player_actions));
    columns->addLayout(titled_column(this, "events", m_events, m_event_actions));
    columns->addWidget(tabs, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(columns, 1);
    set_tab_chain(
        { open, m_players, m_player_actions, m_events, m_event_actions, tabs, m_text->box(), m_text->actions() });
    m_players->setFocus();
    resize(1000, 600);
}

bool Qv4SingleWindow::open_file()
{
    const auto file
        = m_session.talk().choose_file({ FileDialogKind::Open, "open qv4 file", "", "qv4.", m_session.dirs().app });
    return file && open_file(*file);
}

bool Qv4SingleWindow::open_file(const std::filesystem::path& file)
{
    m_players->clear();
    m_events->clear();
    m_draw->clear();
    const auto opened = open_qv4_single(m_session, file);
    m_status->setText(qs(opened.ok ? file.filename().string() : opened.status));
    m_text->show_text({ "", opened.header });
    if (!opened.ok)
        return false;
    show_players({});
    load_all_events();
    return true;
}

void Qv4SingleWindow::show_players(const std::string& sex)
{
    m_players->clear();
    for (const auto& name : load_players(m_session.peek_browse_db(), Qv4Store::single, sex))
        m_players->addItem(qs(name));
}

void Qv4SingleWindow::load_all_events()
{
    m_events->clear();
    for (auto rows = m_session.peek_browse_db().query("select eid, eventname from qv4_single_events order by eid");
         rows.step();)
        add_id_line(m_events, rows.text(1), rows.integer(0));
}

std::optional<std::int64_t> Qv4SingleWindow::chosen_event()
{
    const auto eid = current_id(m_events);
    if (!eid)
        m_session.talk().message("select event");
    return eid;
}

std::optional<std::string> Qv4SingleWindow::chosen_player()
{
    const auto* item = m_players->currentItem();
    if (!item || !item->isSelected()) {
        m_session.talk().message("select player");
        return std::nullopt;
    }
    return to_std(item->text());
}

} // namespace qv
