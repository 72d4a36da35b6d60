#include "ui/folders_windows.h"

#include "core/session.h"
#include "entries/filters.h"
#include "entries/folders.h"
#include "ui/id_lists.h"
#include "ui/players_filter_window.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

void fill_folders(QListWidget* list, Session& session)
{
    const auto keep = current_id(list);
    list->clear();
    for (const auto& folder : load_folders(session.tournament()))
        add_id_line(list, folder.nm, folder.fid);
    if (keep)
        select_id(list, *keep);
}

void fill_lines(QListWidget* list, const std::vector<ListLine>& lines)
{
    list->clear();
    for (const auto& line : lines)
        add_id_line(list, line.text, line.id);
}

QPushButton* button(const QString& caption, QWidget* parent)
{
    return new QPushButton(caption, parent);
}

} // namespace

QCheckBox* folders_beep_box(Session& session, QWidget* parent)
{
    auto* box = new QCheckBox(QStringLiteral("beep ok"), parent);
    // Set before connecting, so showing the stored tick writes nothing back.
    box->setChecked(session.settings().integer("folders_beep_ok") == 1);
    QObject::connect(box, &QCheckBox::toggled, box,
        [&session](bool on) { session.settings().set_disk_var("folders_beep_ok", on ? "1" : "0"); });
    return box;
}

// ---- add new folder ----

AddFolderWindow::AddFolderWindow(Session& session, Added on_added, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_on_added(std::move(on_added))
    , m_name(new QLineEdit(this))
    , m_save(button(QStringLiteral("save"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("addnew_folder"));
    setWindowTitle(QStringLiteral("add new folder"));
    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("folder name"), this), 0, 0);
    layout->addWidget(m_name, 0, 1, 1, 2);
    auto* beep_box = folders_beep_box(m_session, this);
    layout->addWidget(beep_box, 1, 0);
    auto* close_button = button(QStringLiteral("close"), this);
    layout->addWidget(m_save, 1, 1);
    layout->addWidget(close_button, 1, 2);
    set_main_button(this, m_save);
    set_tab_chain({ m_name, beep_box, m_save, close_button });
    connect(m_save, &QPushButton::clicked, this, &AddFolderWindow::save);
    connect(close_button, &QPushButton::clicked, this, &QDialog::close);
}

bool AddFolderWindow::save()
{
    const auto fid = addnew_folder(m_session, to_std(m_name->text()));
    if (!fid) {
        m_name->setFocus();
        return false;
    }
    m_name->clear();
    if (m_on_added)
        m_on_added(*fid);
    return true;
}

// ---- folders ----

FoldersWindow::FoldersWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_folders(new QListWidget(this))
    , m_players(new QListWidget(this))
    , m_name(new QLineEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_folders"));
    setWindowTitle(QStringLiteral("folders"));
    m_folders->setSelectionMode(QAbstractItemView::ExtendedSelection);

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("folders"), this), 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("players in folder"), this), 0, 1);
    layout->addWidget(m_folders, 1, 0);
    layout->addWidget(m_players, 1, 1);
    layout->addWidget(m_name, 2, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    auto* add_button = button(QStringLiteral("add new"), this);
    auto* rename_button = button(QStringLiteral("rename"), this);
    auto* delete_button = button(QStringLiteral("delete"), this);
    for (auto* b : { add_button, rename_button, delete_button })
        buttons->addWidget(b);
    buttons->addWidget(folders_beep_box(m_session, this));
    layout->addLayout(buttons, 3, 0, 1, 2);
    // The name box below the lists renames the chosen folder.
    set_main_button(this, rename_button);

    connect(add_button, &QPushButton::clicked, this, &FoldersWindow::add_new);
    connect(rename_button, &QPushButton::clicked, this, &FoldersWindow::rename);
    connect(delete_button, &QPushButton::clicked, this, &FoldersWindow::remove);
    connect(m_folders, &QListWidget::currentRowChanged, this, &FoldersWindow::show_folder);
    refresh();
}

void FoldersWindow::refresh()
{
    fill_folders(m_folders, m_session);
    show_folder();
}

void FoldersWindow::show_folder()
{
    const auto fid = current_id(m_folders);
    m_name->setText(fid ? m_folders->currentItem()->text() : QString());
    if (fid)
        fill_lines(m_players, folder_players(m_session.tournament(), *fid));
    else
        m_players->clear();
}

AddFolderWindow* FoldersWindow::add_new()
{
    auto* window = new AddFolderWindow(
        m_session, [this](std::int64_t) { refresh(); }, this);
    window->show();
    return window;
}

bool FoldersWindow::rename()
{
    if (!rename_folder(m_session, current_id(m_folders), to_std(m_name->text())))
        return false;
    refresh();
    return true;
}

bool FoldersWindow::remove()
{
    if (!delete_folders(m_session, selected_ids(m_folders)))
        return false;
    m_folders->clearSelection();
    refresh();
    return true;
}

// ---- assigning players to folders ----

FoldersAssignWindow::FoldersAssignWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_tag(new QLabel(this))
    , m_filtered(new QListWidget(this))
    , m_folders(new QListWidget(this))
    , m_in_folder(new QListWidget(this))
    , m_move_in(button(QStringLiteral("move in >>"), this))
    , m_move_out(button(QStringLiteral("<< move out"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_folders_assign"));
    setWindowTitle(QStringLiteral("assign players to folders"));
    m_filtered->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_in_folder->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tag->setWordWrap(true);

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("wrt filter"), this), 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("folders"), this), 0, 2);
    layout->addWidget(new QLabel(QStringLiteral("players in folder"), this), 0, 3);
    layout->addWidget(m_tag, 1, 0);
    layout->addWidget(m_filtered, 2, 0);
    auto* moves = new QVBoxLayout;
    moves->addStretch();
    moves->addWidget(m_move_in);
    moves->addWidget(m_move_out);
    moves->addStretch();
    layout->addLayout(moves, 2, 1);
    layout->addWidget(m_folders, 2, 2);
    layout->addWidget(m_in_folder, 2, 3);
    auto* beep_box = folders_beep_box(m_session, this);
    layout->addWidget(beep_box, 3, 0);
    no_main_button(this);
    set_tab_chain({ m_filtered, m_move_in, m_move_out, m_folders, m_in_folder, beep_box });

    connect(m_filtered, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        if (m_filtered->row(item) == 0)
            set_filter();
    });
    connect(m_folders, &QListWidget::currentRowChanged, this, &FoldersAssignWindow::load_folder_players);
    connect(m_move_in, &QPushButton::clicked, this, &FoldersAssignWindow::move_in);
    connect(m_move_out, &QPushButton::clicked, this, &FoldersAssignWindow::move_out);
    refresh();
}

void FoldersAssignWindow::refresh()
{
    load_filtered();
    fill_folders(m_folders, m_session);
    load_folder_players();
}

void FoldersAssignWindow::load_filtered()
{
    const auto filter = load_player_filter(m_session.settings(), filter_keys::players_folders_assign);
    m_tag->setText(qs(disp_tag(filter)));
    m_filtered->clear();
    m_filtered->addItem(qs(set_filter_line));
    for (const auto& p : filtered_players(m_session.tournament(), filter))
        add_id_line(m_filtered, p.player, p.pid);
}

void FoldersAssignWindow::load_folder_players()
{
    if (const auto fid = current_id(m_folders))
        fill_lines(m_in_folder, qv::folder_players(m_session.tournament(), *fid));
    else
        m_in_folder->clear();
}

QDialog* FoldersAssignWindow::set_filter()
{
    auto* window = new PlayersFilterWindow(
        m_session, std::string(filter_keys::players_folders_assign), PlayersFilterKind::with_sources,
        [this](const PlayerFilter&) { load_filtered(); }, this);
    window->show();
    return window;
}

bool FoldersAssignWindow::move_in()
{
    if (!assign_to_folder(m_session, current_id(m_folders), selected_ids(m_filtered)))
        return false;
    // A list by folder shows other players now.
    load_filtered();
    load_folder_players();
    return true;
}

bool FoldersAssignWindow::move_out()
{
    if (!move_out_of_folder(m_session, selected_ids(m_in_folder)))
        return false;
    load_filtered();
    load_folder_players();
    return true;
}

} // namespace qv
