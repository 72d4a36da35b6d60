#include "ui/qv4_multiple_window.h"

#include "core/file_save.h"
#include "core/session.h"
#include "datafiles/results_analysis.h"
#include "ui/analysis_lists.h"
#include "ui/analysis_text_panel.h"
#include "ui/id_lists.h"
#include "ui/qt_text.h"
#include "ui/qv4_draw_panel.h"
#include "ui/qv4_single_window.h"
#include "ui/window_behaviour.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QVBoxLayout>

namespace qv {

namespace {

QVBoxLayout* titled(QWidget* parent, const char* caption, QWidget* list)
{
    auto* column = new QVBoxLayout;
    column->addWidget(new QLabel(QString::fromLatin1(caption), parent));
    column->addWidget(list, 1);
    return column;
}

} // namespace

Qv4MultipleWindow::Qv4MultipleWindow(Session& session, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_session(session)
    , m_archive(new QListWidget(this))
    , m_build(new QListWidget(this))
    , m_left(new QListWidget(this))
    , m_right(new QListWidget(this))
    , m_events(new QListWidget(this))
    , m_text(new AnalysisTextPanel(session, "qv4_text.txt", this))
    , m_draw(new Qv4DrawPanel(session, "no image to save", this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("qv4_multiple"));
    setWindowTitle(QStringLiteral("multiple results (qv4) files"));
    close_on_escape(this);
    m_archive->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto& store = session.peek_browse_db();

    m_file_actions = new ActionList(
        { { "compile",
              [this] {
                  qv4_compile(m_session, chosen_files());
                  refresh_build();
                  load_players({});
              } },
            { "clear",
                [this] {
                    clear_all(m_session);
                    refresh_build();
                    load_players({});
                } },
            { "file details",
                [this] {
                    const auto files = chosen_files();
                    if (files.empty())
                        m_session.talk().message("select qv4 file");
                    else
                        qv4_file_details(m_session, files.front());
                } },
            { "delete",
                [this] {
                    if (delete_qv4_files(m_session, chosen_files()))
                        refresh_archive();
                } },
            { "import qv4 files...",
                [this] {
                    const auto files = m_session.talk().choose_files(
                        { FileDialogKind::OpenMany, "import qv4 files", "", "qv4.", m_session.dirs().app });
                    if (!files.empty()) {
                        import_qv4_files(m_session, files);
                        refresh_archive();
                    }
                } },
            { "open qv4 single...",
                [this] {
                    auto* single = new Qv4SingleWindow(m_session, parentWidget());
                    show_over_parent(single);
                    const auto files = chosen_files();
                    if (!files.empty())
                        single->open_file(m_session.dirs().qv4_file_archive / files.front());
                } } },
        this);
    m_player_actions
        = new ActionList({ { "players results",
                               [this, &store] {
                                   if (const auto name = player_of(m_left, "select player on left"))
                                       m_text->show_text(load_players_results(store, Qv4Store::multiple, *name));
                               } },
                             { "players opponents",
                                 [this, &store] {
                                     if (const auto name = player_of(m_left, "select player on left"))
                                         m_text->show_text(load_players_opponents(store, *name));
                                 } },
                             { "load all players", [this] { load_players({}); } },
                             { "load male players", [this] { load_players("male"); } },
                             { "load female players", [this] { load_players("female"); } },
                             { "search", [this] { search_analysis_list(m_session, this, m_left); } },
                             { "head to head", [this] { head_to_head(); } },
                             { "save all results txt", [this] { save_all_results(); } } },
            this);
    m_draw_actions = new ActionList({ { "print", [this] { m_draw->print(); } },
                                        { "view draw",
                                            [this] {
                                                if (chosen_draw_event())
                                                    m_draw->show_event(*current_id(m_events));
                                            } },
                                        { "save to images", [this] { m_draw->save_images(); } },
                                        { "alias",
                                            [this, &store] {
                                                if (chosen_draw_event())
                                                    m_text->show_text(show_alias(store, *current_id(m_events)));
                                            } } },
        this);

    connect(m_build, &QListWidget::currentTextChanged, this, [this](const QString& fn) {
        m_events->clear();
        for (const auto& [eid, name] : compiled_events(m_session.peek_browse_db(), to_std(fn)))
            add_id_line(m_events, name, eid);
    });

    // The lists stay narrow: the text and the draws take the room.
    for (auto* list : { m_archive, m_build, m_left, m_right })
        list->setMaximumWidth(200);
    m_file_actions->setMaximumWidth(200);
    auto* files = titled(this, "qv4 archive", m_archive);
    files->addWidget(m_file_actions);
    files->addWidget(new QLabel(QStringLiteral("compiled"), this));
    files->addWidget(m_build);
    auto* players = new QHBoxLayout;
    players->addLayout(titled(this, "left player", m_left));
    players->addLayout(titled(this, "right player", m_right));
    auto* player_column = new QVBoxLayout;
    player_column->addLayout(players, 1);
    player_column->addWidget(m_player_actions);

    auto* draw_page = new QWidget(this);
    auto* draw_side = titled(draw_page, "events of the compiled file", m_events);
    draw_side->addWidget(m_draw_actions);
    auto* draw_row = new QHBoxLayout(draw_page);
    draw_row->addWidget(m_draw, 1);
    draw_row->addLayout(draw_side);
    auto* tabs = new QTabWidget(this);
    tabs->addTab(m_text, QStringLiteral("text"));
    tabs->addTab(draw_page, QStringLiteral("draws"));

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(files);
    layout->addLayout(player_column);
    layout->addWidget(tabs, 1);
    set_tab_chain({ m_archive, m_file_actions, m_build, m_left, m_right, m_player_actions, tabs, m_text->box(),
        m_text->actions() });
    m_archive->setFocus();
    refresh_archive();
    refresh_build();
    load_players({});
    resize(1100, 640);
}

void Qv4MultipleWindow::refresh_archive()
{
    m_archive->clear();
    for (const auto& name : archive_files(m_session))
        m_archive->addItem(qs(name));
}

void Qv4MultipleWindow::refresh_build()
{
    m_build->clear();
    for (const auto& name : load_current_build(m_session.peek_browse_db()))
        m_build->addItem(qs(name));
}

std::vector<std::string> Qv4MultipleWindow::chosen_files() const
{
    std::vector<std::string> names;
    for (int row = 0; row < m_archive->count(); ++row)
        if (m_archive->item(row)->isSelected())
            names.push_back(to_std(m_archive->item(row)->text()));
    return names;
}

void Qv4MultipleWindow::load_players(const std::string& sex)
{
    for (auto* list : { m_left, m_right }) {
        list->clear();
        for (const auto& name : qv::load_players(m_session.peek_browse_db(), Qv4Store::multiple, sex))
            list->addItem(qs(name));
    }
}

std::optional<std::string> Qv4MultipleWindow::player_of(QListWidget* list, const char* refusal)
{
    const auto* item = list->currentItem();
    if (!item || !item->isSelected()) {
        m_session.talk().message(refusal);
        return std::nullopt;
    }
    return to_std(item->text());
}

bool Qv4MultipleWindow::chosen_draw_event()
{
    const auto* file = m_build->currentItem();
    const auto eid = current_id(m_events);
    if (!file || !eid) {
        m_session.talk().message("select event");
        return false;
    }
    load_event_into_single(m_session.peek_browse_db(), to_std(file->text()), *eid);
    return true;
}

void Qv4MultipleWindow::head_to_head()
{
    const auto left = player_of(m_left, "select player on left");
    if (!left)
        return;
    const auto right = player_of(m_right, "select player on right");
    if (!right)
        return;
    const auto met = qv::head_to_head(m_session.peek_browse_db(), *left, *right);
    if (met.lines.empty()) {
        m_session.talk().message("no results found");
        return;
    }
    m_text->show_text(met);
}

void Qv4MultipleWindow::save_all_results()
{
    const auto lines = all_results_lines(m_session.peek_browse_db());
    if (lines.empty()) {
        m_session.talk().message("no data");
        return;
    }
    if (save_text_file_as(m_session, "qv4_results.txt", m_session.dirs().app, lines))
        m_session.talk().message("ok");
}

} // namespace qv
