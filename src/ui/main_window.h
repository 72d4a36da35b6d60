#pragma once

#include "core/session_host.h"
#include "core/user_talk.h"
#include "ui/command_table.h"

#include <QColor>
#include <QMainWindow>
#include <QPointer>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>

class QStackedWidget;
class QToolButton;

namespace qv {

class AreaPage;
class ControlPanel;
class LinksWindow;
class Session;
class DrawArea;
class StartPage;
class ToolbarWindow;
class TournamentArea;

// The main window: the toolbar of work areas with their marker strips, the areas themselves and the menus.
// It is the session's host and owns the session.
class MainWindow : public QMainWindow, public SessionHost
{
    Q_OBJECT

public:
    // talk: how the session speaks to the user; none means this window's own message boxes and dialogs.
    explicit MainWindow(const std::filesystem::path& app_dir, UserTalk* talk = nullptr, QWidget* parent = nullptr);
    ~MainWindow() override;

    Session& session() { return *m_session; }
    UserTalk& talk() { return *m_talk; }

    void load_all_forms() override;
    void unload_all_forms() override;
    bool leave_draw() override;
    // The replacement list of the draw comes with the replacing of draw positions.
    void cancel_list1() override { }
    void refresh_draw_on_entry() override;
    void refresh_lists(Lists which) override;
    void show_area(Area area, const Markers& markers) override;
    void set_generics(const std::string& caption, const std::string& tooltip) override;
    void busy(bool on) override;
    void boot_ended() override;
    void defer(std::function<void()> action) override;
    void end_process() override;

    // Runs a boot or restart. A fault of the machine there leaves nothing to work on: one message, then the end.
    bool run_or_end(const std::function<void()>& action);

    bool process_ended() const { return m_ended; }
    QToolButton* area_button(Area area) const { return m_buttons.at(index(area)); }
    QToolButton* match_count_button() const { return m_match_counts; }
    // "tools" and "feederapps": each shows while its window has a line that stands.
    QToolButton* tools_button() const { return m_tools; }
    QToolButton* feederapps_button() const { return m_feederapps; }
    // The work area while no tournament is open.
    StartPage* start_page() const { return m_start; }
    QColor marker_color(Area area) const { return m_marker_colors.at(index(area)); }
    QWidget* area_page(Area area) const { return m_pages.at(index(area)); }
    QWidget* current_page() const;
    TournamentArea* tournament_area() const { return m_tournament; }
    DrawArea* draw_area() const { return m_draw; }

public slots:
    ControlPanel* open_control_panel();
    LinksWindow* open_links();
    ToolbarWindow* open_tools();
    ToolbarWindow* open_feederapps();
    // F5: the area on show reads the tournament file again.
    void refresh_current_area();

signals:
    // The areas have read the tournament file just opened, at start or after a restart.
    void formsLoaded();
    // The session ended the process; the application leaves its loop.
    void processEnded();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    static std::size_t index(Area area) { return static_cast<std::size_t>(area); }
    // The tournament area's operations and the draw area's requests.
    void connect_areas();
    void build_toolbar();
    void build_menus();
    // The lines of the toolbar's two small windows, in order.
    CommandTable tools_commands();
    // A line of a small window that runs only while a tournament is open.
    std::function<void()> when_open(std::function<void()> open);
    CommandTable feederapps_commands();
    ToolbarWindow* open_toolbar_window(const QString& title, const CommandTable& table);
    void paint_marker(Area area, const QColor& color);
    // The title names the open file, and only while one is open.
    void update_title(bool file_open);
    // No tournament: the start page with the files opened last, and the area buttons greyed.
    void show_start_page();
    void open_page(const char* setting, const char* fallback);

    std::unique_ptr<UserTalk> m_own_talk;
    UserTalk* m_talk = nullptr;
    std::unique_ptr<Session> m_session;

    QStackedWidget* m_stack = nullptr;
    StartPage* m_start = nullptr;
    TournamentArea* m_tournament = nullptr;
    DrawArea* m_draw = nullptr;
    std::array<QWidget*, 8> m_pages {};
    // What the stack shows for each area: the page, or the scroll area that holds it.
    std::array<QWidget*, 8> m_shown {};
    // The windows of the areas other than the tournament and draw areas, where they stand.
    std::array<AreaPage*, 8> m_area_pages {};
    std::array<QToolButton*, 8> m_buttons {};
    std::array<QWidget*, 8> m_strips {};
    std::array<QColor, 8> m_marker_colors {};
    QToolButton* m_match_counts = nullptr;
    QToolButton* m_tools = nullptr;
    QToolButton* m_feederapps = nullptr;
    QPointer<ControlPanel> m_control_panel;
    QPointer<LinksWindow> m_links;
    QPointer<ToolbarWindow> m_toolbar_window;

    bool m_busy = false;
    bool m_ended = false;
};

} // namespace qv
