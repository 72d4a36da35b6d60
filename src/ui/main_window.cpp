#include "ui/main_window.h"

#include "core/links.h"
#include "core/session.h"
#include "ui/area_page.h"
#include "ui/colors.h"
#include "ui/control_panel.h"
#include "ui/draw_area.h"
#include "ui/drawconfig_window.h"
#include "ui/events_windows.h"
#include "ui/links_window.h"
#include "ui/load_draw_gif_window.h"
#include "ui/players_windows.h"
#include "ui/print_setup_window.h"
#include "ui/qt_text.h"
#include "ui/qt_user_talk.h"
#include "ui/tournament_area.h"
#include "ui/tournament_operations.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace qv {

namespace {

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
    m_no_file_page = new QWidget(m_stack);
    m_stack->addWidget(m_no_file_page);
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
        m_stack->addWidget(page);
    }
    m_stack->setCurrentWidget(m_no_file_page);
    setCentralWidget(m_stack);
    connect_areas();

    build_toolbar();
    build_menus();
    update_title();
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
    register_tournament_operations(*m_tournament, *m_session, hooks);
    connect(m_draw, &DrawArea::playerDetailsRequested, this,
        [this](const QString& player) { open_player_details_by_name(*m_session, player.toStdString(), this); });
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
}

void MainWindow::build_menus()
{
    auto* tournament = menuBar()->addMenu(QStringLiteral("tournament"));
    tournament->addAction(QStringLiteral("new"), this, [this] { m_session->menu_new(); });
    tournament->addAction(QStringLiteral("open"), this, [this] { m_session->menu_open(); });
    tournament->addAction(QStringLiteral("save as..."), this, [this] { m_session->menu_save_as(); });
    tournament->addAction(QStringLiteral("close"), this, [this] { m_session->menu_close(); });
    tournament->addSeparator();
    tournament->addAction(QStringLiteral("exit"), this, [this] { m_session->exit_app(); });

    auto* tools = menuBar()->addMenu(QStringLiteral("tools"));
    tools->addAction(QStringLiteral("load draw gif"), this, [this] {
        if (m_session->booted())
            (new LoadDrawGifWindow(*m_session, this))->show();
    });
    // The two register windows that add one at a time, for a director typing in entries by hand.
    tools->addAction(QStringLiteral("add new player"), this, [this] {
        if (m_session->has_tournament())
            open_add_player(*m_session, this);
    });
    tools->addAction(QStringLiteral("add new event"), this, [this] {
        if (m_session->has_tournament())
            open_add_event(*m_session, this);
    });

    auto* options = menuBar()->addMenu(QStringLiteral("options"));
    options->addAction(QStringLiteral("print config"), this, [this] {
        if (m_session->booted())
            (new PrintSetupWindow(*m_session, this))->show();
    });
    options->addAction(QStringLiteral("control panel"), this, &MainWindow::open_control_panel);
    options->addAction(QStringLiteral("links"), this, &MainWindow::open_links);

    auto* info = menuBar()->addMenu(QStringLiteral("info"));
    info->addAction(QStringLiteral("help"), this, [this] { open_page("help_url", "https://quorvelin.example/help"); });
    info->addAction(
        QStringLiteral("signup"), this, [this] { open_page("signup_url", "https://quorvelin.example/signup"); });
    info->addAction(
        QStringLiteral("homepage"), this, [this] { open_page("homepage_url", "https://quorvelin.example/"); });
    info->addAction(QStringLiteral("developer"), this,
        [this] { m_talk->message("quorvelin is written by the Quorvelin developers", "developer"); });
    info->addAction(QStringLiteral("version"), this,
        [this] { m_talk->message(std::string("quorvelin version ") + Session::version, "version"); });
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
    if (!m_control_panel)
        m_control_panel = new ControlPanel(*m_session, this);
    m_control_panel->show();
    m_control_panel->raise();
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
    m_links->show();
    return m_links;
}

QWidget* MainWindow::current_page() const
{
    return m_stack->currentWidget();
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
    update_title();
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
    m_stack->setCurrentWidget(m_no_file_page);
    update_title();
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
    m_stack->setCurrentWidget(m_pages[index(area)]);
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

void MainWindow::update_title()
{
    QString title = QStringLiteral("quorvelin");
    if (m_session->has_tournament())
        title += QStringLiteral(" - ") + qs(m_session->current_file_name());
    setWindowTitle(title);
}

} // namespace qv
