#include "ui/main_window.h"

#include "core/links.h"
#include "core/recent_files.h"
#include "core/session.h"
#include "datafiles/entries_file.h"
#include "datafiles/event_files.h"
#include "online/entries_download.h"
#include "ui/add_result_window.h"
#include "ui/add_to_event_window.h"
#include "ui/area_page.h"
#include "ui/colors.h"
#include "ui/control_panel.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/events_windows.h"
#include "ui/links_window.h"
#include "ui/load_draw_gif_window.h"
#include "ui/peek_browse_window.h"
#include "ui/players_import_export_window.h"
#include "ui/players_windows.h"
#include "ui/print_setup_window.h"
#include "ui/qt_text.h"
#include "ui/qt_user_talk.h"
#include "ui/qv4_multiple_window.h"
#include "ui/qv4_single_window.h"
#include "ui/schedule_board.h"
#include "ui/start_page.h"
#include "ui/toolbar_windows.h"
#include "ui/tournament_area.h"
#include "ui/tournament_operations.h"
#include "ui/window_behaviour.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace qv {

namespace {

// An area's window scrolls rather than widening the main window beyond a small screen.
QWidget* holder_of(QWidget* page)
{
    if (!qobject_cast<AreaPage*>(page))
        return page;
    auto* holder = new QScrollArea;
    holder->setFrameShape(QFrame::NoFrame);
    holder->setWidgetResizable(true);
    holder->setWidget(page);
    return holder;
}

// The areas are initialised in this order, so that the draw area, last, finds the others ready.
constexpr std::array<Area, 8> boot_order { Area::payments, Area::assistant_new, Area::idocuments, Area::config_admin,
    Area::prints, Area::mainform, Area::schedule, Area::draw };
constexpr std::array<Area, 8> teardown_order { Area::payments, Area::mainform, Area::draw, Area::schedule,
    Area::assistant_new, Area::idocuments, Area::config_admin, Area::prints };

// The pages behind "help", "signup" and "homepage" when the installation names none.
std::string page_address(const std::string& setting, const char* fallback)
{
    return setting.empty() || setting == "0" ? std::string(fallback) : setting;
}

// The strip beneath a toolbar button: grey, the colour of the area shown or the footprint of the one just left.
class MarkerStrip : public QWidget
{
public:
    using QWidget::QWidget;
    void set_color(const QColor& color)
    {
        m_color = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), m_color); }

private:
    QColor m_color = regular_grey();
};

} // namespace

MainWindow::MainWindow(const std::filesystem::path& app_dir, UserTalk* talk, QWidget* parent)
    : QMainWindow(parent)
{
    setObjectName(QStringLiteral("quorvelin"));
    if (talk) {
        m_talk = talk;
    } else {
        m_own_talk = std::make_unique<QtUserTalk>(this, statusBar());
        m_talk = m_own_talk.get();
    }
    m_session = std::make_unique<Session>(app_dir, *m_talk, *this);

    m_stack = new QStackedWidget(this);
    m_start = new StartPage(m_stack);
    m_stack->addWidget(m_start);
    for (Area area : toolbar_order) {
        QWidget* page = nullptr;
        if (area == Area::mainform) {
            m_tournament = new TournamentArea(*m_session, m_stack);
            page = m_tournament;
        } else if (area == Area::draw) {
            m_draw = new DrawArea(*m_session, m_stack);
            page = m_draw;
        } else if (auto* area_page = make_area_page(area, *m_session, *this, m_stack)) {
            m_area_pages[index(area)] = area_page;
            page = area_page;
        } else {
            // An area whose window has not come shows its title.
            auto* title = new QLabel(qs(area_caption(area)), m_stack);
            title->setAlignment(Qt::AlignCenter);
            title->setObjectName(qs(area_name(area)));
            page = title;
        }
        m_pages[index(area)] = page;
        m_shown[index(area)] = holder_of(page);
        m_stack->addWidget(m_shown[index(area)]);
    }
    setCentralWidget(m_stack);
    connect_areas();

    build_toolbar();
    build_menus();
    show_start_page();
    statusBar()->show();
}

MainWindow::~MainWindow()
{
    if (m_busy)
        QApplication::restoreOverrideCursor();
}

void MainWindow::connect_areas()
{
    TournamentOperationHooks hooks;
    hooks.show_draw = [this](std::int64_t eid) {
        m_session->ishow(Area::draw);
        if (m_session->current_area() == Area::draw)
            m_draw->choose_event(eid);
    };
    hooks.select_draw = [this] { m_session->ishow(Area::draw); };
    hooks.drawconfig_hooks = [this] { return m_draw->drawconfig_hooks(); };
    hooks.open_addresult = [this] {
        if (auto* board = findChild<ScheduleBoardArea*>())
            open_addresult(*m_session, *board, this);
    };
    register_tournament_operations(*m_tournament, *m_session, hooks);
    connect(m_draw, &DrawArea::playerDetailsRequested, this,
        [this](const QString& player) { open_player_details_by_name(*m_session, player.toStdString(), this); });
    connect(m_start, &StartPage::newRequested, this, [this] { m_session->menu_new(); });
    connect(m_start, &StartPage::openRequested, this, [this] { m_session->menu_open(); });
    connect(m_start, &StartPage::recentChosen, this,
        [this](const QString& path) { m_session->open_recent(path.toStdString()); });
}

bool MainWindow::leave_draw()
{
    return m_draw->leave_draw();
}

void MainWindow::refresh_draw_on_entry()
{
    m_draw->refresh_on_entry();
}

void MainWindow::build_toolbar()
{
    auto* toolbar = addToolBar(QStringLiteral("areas"));
    toolbar->setObjectName(QStringLiteral("areas"));
    toolbar->setMovable(false);
    for (Area area : toolbar_order) {
        auto* cell = new QWidget(toolbar);
        auto* column = new QVBoxLayout(cell);
        column->setContentsMargins(1, 1, 1, 1);
        column->setSpacing(2);
        auto* button = new QToolButton(cell);
        button->setText(qs(area_caption(area)));
        button->setMinimumWidth(80);
        auto* strip = new MarkerStrip(cell);
        strip->setFixedHeight(6);
        column->addWidget(button);
        column->addWidget(strip);
        toolbar->addWidget(cell);
        m_buttons[index(area)] = button;
        m_strips[index(area)] = strip;
        paint_marker(area, regular_grey());
        connect(button, &QToolButton::clicked, this, [this, area] { m_session->toolbar_click(area); });
    }
    toolbar->addSeparator();
    // The schedule board answers this button with its match counts when it comes.
    m_match_counts = new QToolButton(toolbar);
    m_match_counts->setObjectName(QStringLiteral("match_counts"));
    toolbar->addWidget(m_match_counts);

    auto small_window_button = [this, toolbar](const char* caption, const CommandTable& table, auto open) {
        auto* button = new QToolButton(toolbar);
        button->setText(QString::fromLatin1(caption));
        button->setObjectName(QString::fromLatin1(caption));
        connect(button, &QToolButton::clicked, this, open);
        // A button whose window has nothing yet is left out.
        toolbar->addWidget(button)->setVisible(!standing_commands(table).empty());
        return button;
    };
    m_tools = small_window_button("tools", tools_commands(), &MainWindow::open_tools);
    m_feederapps = small_window_button("feederapps", feederapps_commands(), &MainWindow::open_feederapps);
}

std::function<void()> MainWindow::when_open(std::function<void()> open)
{
    // The small window may have stayed open while the file closed: its lines do nothing then.
    return [this, open = std::move(open)] {
        if (m_session->has_tournament())
            open();
    };
}

CommandTable MainWindow::tools_commands()
{
    // The register's windows that add one at a time, for a director typing entries in by hand, and the links.
    return {
        { QStringLiteral("add new player"), when_open([this] { open_add_player(*m_session, this); }), true },
        { QStringLiteral("add new event"), when_open([this] { open_add_event(*m_session, this); }), true },
        { QStringLiteral("add to event"), when_open([this] { open_add_to_event(*m_session, this); }), true },
        {},
        { QStringLiteral("links"), [this] { open_links(); } },
    };
}

CommandTable MainWindow::feederapps_commands()
{
    // The ways data come in, each shown once its window stands.
    return {
        { QStringLiteral("players import/export"), when_open([this] { open_players_import_export(*m_session, this); }),
            true },
        { QStringLiteral("import events"), when_open([this] { import_events_file(*m_session); }), true },
        { QStringLiteral("load entries (qv5) file"), when_open([this] { load_entries_into_tournament(*m_session); }),
            true },
        { QStringLiteral("download entries load"),
            when_open([this] { down_load_entry_file(*m_session, DownloadTarget::load); }), true },
    };
}

ToolbarWindow* MainWindow::open_tools()
{
    return open_toolbar_window(QStringLiteral("tools"), tools_commands());
}

ToolbarWindow* MainWindow::open_feederapps()
{
    return open_toolbar_window(QStringLiteral("feederapps"), feederapps_commands());
}

ToolbarWindow* MainWindow::open_toolbar_window(const QString& title, const CommandTable& table)
{
    if (m_toolbar_window)
        m_toolbar_window->close();
    m_toolbar_window = new ToolbarWindow(title, table, m_session->has_tournament(), this);
    show_over_parent(m_toolbar_window);
    return m_toolbar_window;
}

void MainWindow::build_menus()
{
    // Every line in the order the menus show it; a line without an action waits for its window.
    const CommandTable tournament {
        { QStringLiteral("&new"), [this] { m_session->menu_new(); }, false, QKeySequence(QStringLiteral("Ctrl+N")) },
        { QStringLiteral("&open"), [this] { m_session->menu_open(); }, false, QKeySequence(QStringLiteral("Ctrl+O")) },
        { QStringLiteral("&save as..."), [this] { m_session->menu_save_as(); }, true },
        { QStringLiteral("&close"), [this] { m_session->menu_close(); }, true },
        {},
        // Without a file it says so itself.
        { QStringLiteral("&load entries (qv5) file"), [this] { load_entries_into_tournament(*m_session); } },
        { QStringLiteral("&browse entries (qv5) file"), [this] { browse_entries_file(*m_session, this); } },
        {},
        { QStringLiteral("e&xit"), [this] { m_session->exit_app(); }, false, QKeySequence(QStringLiteral("Ctrl+Q")) },
    };
    const CommandTable tools {
        { QStringLiteral("load draw &gif"), [this] { show_over_parent(new LoadDrawGifWindow(*m_session, this)); } },
        { QStringLiteral("&one result (qv4) file"),
            [this] { show_over_parent(new Qv4SingleWindow(*m_session, this)); } },
        { QStringLiteral("&multiple results (qv4) files"),
            [this] { show_over_parent(new Qv4MultipleWindow(*m_session, this)); } },
    };
    const CommandTable options {
        { QStringLiteral("&print config"), [this] { show_over_parent(new PrintSetupWindow(*m_session, this)); } },
        { QStringLiteral("&control panel"), [this] { open_control_panel(); } },
    };
    const CommandTable info {
        { QStringLiteral("&help"), [this] { open_page("help_url", "https://quorvelin.example/help"); } },
        { QStringLiteral("&signup"), [this] { open_page("signup_url", "https://quorvelin.example/signup"); } },
        { QStringLiteral("home&page"), [this] { open_page("homepage_url", "https://quorvelin.example/"); } },
        { QStringLiteral("&developer"),
            [this] { m_talk->message("quorvelin is written by the Quorvelin developers", "developer"); } },
        { QStringLiteral("&version"),
            [this] { m_talk->message(std::string("quorvelin version ") + Session::version, "version"); } },
    };
    const auto tournament_open = [this] { return m_session->has_tournament(); };
    add_command_menu(menuBar(), QStringLiteral("&tournament"), tournament, tournament_open);
    add_command_menu(menuBar(), QStringLiteral("t&ools"), tools, tournament_open);
    add_command_menu(menuBar(), QStringLiteral("o&ptions"), options, tournament_open);
    add_command_menu(menuBar(), QStringLiteral("&info"), info, tournament_open);

    auto* refresh = new QAction(QStringLiteral("refresh"), this);
    refresh->setObjectName(QStringLiteral("refresh"));
    refresh->setShortcut(QKeySequence(Qt::Key_F5));
    connect(refresh, &QAction::triggered, this, &MainWindow::refresh_current_area);
    addAction(refresh);
}

void MainWindow::refresh_current_area()
{
    const auto area = m_session->current_area();
    if (!m_session->has_tournament() || !area)
        return;
    if (*area == Area::mainform) {
        m_tournament->refresh();
    } else if (*area == Area::draw) {
        m_draw->reload_events();
        m_draw->refresh_on_entry();
    } else if (auto* page = m_area_pages[index(*area)]) {
        for (Lists which : { Lists::players, Lists::events, Lists::entries, Lists::folders, Lists::draw })
            page->refresh_lists(which);
    }
}

void MainWindow::open_page(const char* setting, const char* fallback)
{
    const auto address = page_address(m_session->settings().text(setting), fallback);
    QDesktopServices::openUrl(QUrl(qs(address)));
}

ControlPanel* MainWindow::open_control_panel()
{
    if (!m_session->booted())
        return nullptr;
    if (m_control_panel) {
        m_control_panel->show();
        m_control_panel->raise();
        return m_control_panel;
    }
    m_control_panel = new ControlPanel(*m_session, this);
    close_on_escape(m_control_panel);
    show_over_parent(m_control_panel);
    return m_control_panel;
}

LinksWindow* MainWindow::open_links()
{
    if (!m_session->booted())
        return nullptr;
    if (m_links)
        m_links->close();
    auto& settings = m_session->settings();
    m_links = new LinksWindow(tournament_links(settings.text("app.servlet"), settings.text("app.custid")), this);
    show_over_parent(m_links);
    return m_links;
}

QWidget* MainWindow::current_page() const
{
    auto* shown = m_stack->currentWidget();
    if (auto* holder = qobject_cast<QScrollArea*>(shown))
        return holder->widget();
    return shown;
}

void MainWindow::load_all_forms()
{
    for (Area area : boot_order) {
        if (area == Area::mainform)
            m_tournament->init();
        else if (area == Area::draw)
            m_draw->init();
        else if (auto* page = m_area_pages[index(area)])
            page->init();
    }
    for (Area area : toolbar_order)
        m_buttons[index(area)]->setEnabled(true);
    update_title(true);
    emit formsLoaded();
}

void MainWindow::unload_all_forms()
{
    for (Area area : teardown_order) {
        if (area == Area::mainform)
            m_tournament->clear();
        else if (area == Area::draw)
            m_draw->clear();
        else if (auto* page = m_area_pages[index(area)])
            page->clear();
    }
    for (Area area : toolbar_order)
        paint_marker(area, regular_grey());
    show_start_page();
}

void MainWindow::boot_ended()
{
    if (!m_session->has_tournament())
        show_start_page();
}

void MainWindow::show_start_page()
{
    // The settings hold the list only once the boot has read them.
    m_start->show_recent(m_session->booted() ? recent_files(m_session->settings()) : std::vector<std::string> {});
    m_stack->setCurrentWidget(m_start);
    // The toolbar's areas need a tournament: grey says so before a click does nothing.
    for (Area area : toolbar_order)
        m_buttons[index(area)]->setEnabled(false);
    update_title(false);
}

void MainWindow::refresh_lists(Lists which)
{
    if (!m_session->has_tournament())
        return;
    // The tournament area shows players, events and entries alike: any change reads it again.
    m_tournament->refresh();
    if (which == Lists::events || which == Lists::draw)
        m_draw->reload_events();
    if (which == Lists::players)
        refresh_players_windows();
    for (auto* page : m_area_pages)
        if (page)
            page->refresh_lists(which);
}

void MainWindow::show_area(Area area, const Markers& markers)
{
    auto& settings = m_session->settings();
    const QColor current = color_from_setting(settings.text("current_marker_color"));
    const QColor footprint = color_from_setting(settings.text("footprint_color"));
    for (Area each : marker_order) {
        switch (markers[index(each)]) {
        case Marker::regular_grey:
            paint_marker(each, regular_grey());
            break;
        case Marker::ifootprint_color:
            paint_marker(each, footprint);
            break;
        case Marker::icurrent_marker_color:
            paint_marker(each, current);
            break;
        }
    }
    m_stack->setCurrentWidget(m_shown[index(area)]);
}

void MainWindow::paint_marker(Area area, const QColor& color)
{
    m_marker_colors[index(area)] = color;
    static_cast<MarkerStrip*>(m_strips[index(area)])->set_color(color);
}

void MainWindow::set_generics(const std::string& caption, const std::string& tooltip)
{
    m_match_counts->setText(qs(caption));
    m_match_counts->setToolTip(qs(tooltip));
}

void MainWindow::busy(bool on)
{
    if (on == m_busy)
        return;
    m_busy = on;
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void MainWindow::defer(std::function<void()> action)
{
    QTimer::singleShot(0, this, [this, action = std::move(action)] { run_or_end(action); });
}

bool MainWindow::run_or_end(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& fault) {
        busy(false);
        m_talk->message(std::string("quorvelin cannot go on:") + fault.what(), "quorvelin");
        end_process();
        return false;
    }
}

void MainWindow::end_process()
{
    if (m_ended)
        return;
    m_ended = true;
    busy(false);
    close();
    emit processEnded();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_ended)
        m_session->exit_app();
    // The session stays when the draw area would not be left.
    if (m_ended)
        event->accept();
    else
        event->ignore();
}

void MainWindow::update_title(bool file_open)
{
    QString title = QStringLiteral("quorvelin");
    if (file_open)
        title += QStringLiteral(" - ") + qs(m_session->current_file_name());
    setWindowTitle(title);
}

} // namespace qv
