#include "ui/players_import_export_window.h"

#include "core/file_save.h"
#include "core/session.h"
#include "datafiles/player_files.h"
#include "entries/filters.h"
#include "entries/folders.h"
#include "ui/id_lists.h"
#include "ui/players_filter_window.h"
#include "ui/qt_text.h"
#include "ui/window_behaviour.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace qv {

namespace {

constexpr const char* menu_lines[] = { "import qv1 file", "import qv2 file", "export players qv1 format",
    "export players qv2 format", "export name and email", "export emails only", "export name and address",
    "export name and rating,ranking", "export name and message", "export name and availability", "file formats" };

std::optional<PlayerText> text_export_of(const QString& caption)
{
    const std::pair<const char*, PlayerText> exports[] = { { "export name and email", PlayerText::email },
        { "export emails only", PlayerText::emails_only }, { "export name and address", PlayerText::address },
        { "export name and rating,ranking", PlayerText::rating_ranking },
        { "export name and message", PlayerText::message },
        { "export name and availability", PlayerText::availability } };
    for (const auto& [line, which] : exports)
        if (caption == QLatin1String(line))
            return which;
    return std::nullopt;
}

} // namespace

PlayersImportExportWindow::PlayersImportExportWindow(Session& session, QWidget* parent)
    : QDialog(parent)
    , m_session(session)
    , m_tag(new QLabel(this))
    , m_list(new QListWidget(this))
    , m_folder(new QComboBox(this))
    , m_menu(new QMenu(QStringLiteral("import/export"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("players_import_export"));
    setWindowTitle(QStringLiteral("players import/export"));
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tag->setWordWrap(true);
    m_folder->setObjectName(QStringLiteral("folder"));
    m_folder->setToolTip(QStringLiteral("the folder imported players go into"));

    for (const char* line : menu_lines) {
        const auto caption = QString::fromLatin1(line);
        m_menu->addAction(caption, this, [this, caption] { run(caption); });
        if (caption == QLatin1String("import qv2 file") || caption == QLatin1String("export players qv2 format")
            || caption == QLatin1String("export name and availability"))
            m_menu->addSeparator();
    }
    auto* bar = new QMenuBar(this);
    bar->addMenu(m_menu);

    auto* folder_label = new QLabel(QStringLiteral("import into &folder"), this);
    folder_label->setBuddy(m_folder);
    auto* close_button = new QPushButton(QStringLiteral("close"), this);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(folder_label);
    bottom->addWidget(m_folder, 1);
    bottom->addWidget(close_button);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(bar);
    layout->addWidget(new QLabel(QStringLiteral("wrt filter"), this));
    layout->addWidget(m_tag);
    layout->addWidget(m_list, 1);
    layout->addLayout(bottom);
    no_main_button(this);
    set_tab_chain({ m_list, m_folder, close_button });

    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        if (m_list->row(item) == 0)
            set_filter();
    });
    connect(close_button, &QPushButton::clicked, this, &QWidget::close);
    fill_folders();
    refresh();
    resize(420, 460);
}

void PlayersImportExportWindow::refresh()
{
    const auto filter = load_player_filter(m_session.settings(), filter_keys::players_import_export);
    m_tag->setText(qs(disp_tag(filter)));
    m_list->clear();
    m_list->addItem(qs(set_filter_line));
    for (const auto& p : filtered_players(m_session.tournament(), filter))
        add_id_line(m_list, p.player, p.pid);
}

void PlayersImportExportWindow::fill_folders()
{
    m_folder->clear();
    m_folder->addItem(QStringLiteral("no folder"), QVariant::fromValue<qlonglong>(0));
    for (const auto& folder : load_folders(m_session.tournament()))
        m_folder->addItem(qs(folder.nm), QVariant::fromValue<qlonglong>(folder.fid));
}

std::int64_t PlayersImportExportWindow::chosen_fid() const
{
    return m_folder->currentData().toLongLong();
}

void PlayersImportExportWindow::set_filter()
{
    auto* window = new PlayersFilterWindow(
        m_session, std::string(filter_keys::players_import_export), PlayersFilterKind::with_sources,
        [this](const PlayerFilter&) { refresh(); }, this);
    window->show();
}

void PlayersImportExportWindow::run(const QString& caption)
{
    if (!m_session.has_tournament())
        return;
    if (caption.startsWith(QLatin1String("import"))) {
        const auto format = caption.contains(QLatin1String("qv1")) ? PlayerFormat::qv1 : PlayerFormat::qv2;
        if (import_players_file(m_session, format, chosen_fid()) > 0)
            refresh();
    } else if (caption.startsWith(QLatin1String("export players"))) {
        const auto format = caption.contains(QLatin1String("qv1")) ? PlayerFormat::qv1 : PlayerFormat::qv2;
        export_players(m_session, selected_ids(m_list), format);
    } else if (const auto which = text_export_of(caption)) {
        export_player_text(m_session, *which);
    } else if (caption == QLatin1String("file formats")) {
        const auto file = m_session.dirs().working / "file_formats.txt";
        if (write_text_file(file, player_file_formats()))
            m_session.talk().show_text(file, "file formats");
    }
}

PlayersImportExportWindow* open_players_import_export(Session& session, QWidget* parent)
{
    if (!session.has_tournament())
        return nullptr;
    auto* window = new PlayersImportExportWindow(session, parent);
    show_over_parent(window);
    return window;
}

} // namespace qv
