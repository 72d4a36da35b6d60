#pragma once

#include "scheduling/schedule_board.h"
#include "ui/area_page.h"

#include <QPointer>

#include <array>
#include <memory>

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QToolButton;

namespace qv {

class BoardListView;
class MainWindow;
class TimeChoosers;

// One list of the board on screen: its header, the lines, its four state boxes, hold refresh, its counts and the
// chooser of what can be done with the list as a whole.
struct BoardListPanel
{
    QWidget* widget = nullptr;
    BoardListView* view = nullptr;
    std::array<QCheckBox*, 4> ticks {};
    QCheckBox* hold = nullptr;
    QLabel* counts = nullptr;
    QComboBox* chooser = nullptr;
};

// The work area "schedule": the schedule board. The unscheduled list and the clipboard share the upper place,
// the day and court choosers and the court list the lower one. Every button calls one operation of the board.
class ScheduleBoardArea : public AreaPage
{
    Q_OBJECT

public:
    ScheduleBoardArea(Session& session, MainWindow& main, QWidget* parent = nullptr);
    ~ScheduleBoardArea() override;

    void init() override;
    void clear() override;
    void refresh_lists(Lists which) override;

    ScheduleBoard& board() { return *m_board; }
    BoardListView* view(BoardListId which) const;
    const BoardListPanel& panel(BoardListId which) const { return m_panels[static_cast<std::size_t>(which)]; }
    QPushButton* button(const QString& caption) const;
    QAction* menu_action(const QString& caption) const;
    QMenu* menu() const { return m_menu; }
    QListWidget* day_list() const { return m_day_list; }
    QListWidget* court_list() const { return m_court_list; }
    QLabel* days_label() const { return m_days_label; }
    QLabel* courts_label() const { return m_courts_label; }
    QLabel* court_details() const { return m_court_details; }
    QComboBox* event_filter() const { return m_event_filter; }
    QTabBar* upper_tabs() const { return m_upper_tabs; }
    TimeChoosers* time_choosers() const { return m_times; }
    QComboBox* move_day() const { return m_move_day; }
    QComboBox* move_court() const { return m_move_court; }
    QLabel* status_line() const { return m_status; }
    QLabel* key() const { return m_key; }
    // The list the user worked in last: what "show in draw", "search" and the selection buttons act on.
    BoardListId active_list() const { return m_active; }
    void set_active_list(BoardListId which) { m_active = which; }

public slots:
    // "show in schedule" of the other windows: the board to the front with the match in view (findmatch).
    bool show_match(qint64 sid);
    // A result was saved elsewhere: the counts, choosers and lists as the board holds them now.
    void after_result();
    void show_upper(BoardListId which);
    void choose_day_row(int row);
    void choose_court_row(int row);
    void load_court();
    void down();
    void up();
    void nudge(int step);
    void set_time();
    void grab_time();
    void show_in_draw();
    // "add result": the result window on the chosen match.
    void add_result();
    // "match note": the notes of the chosen match.
    void match_note();
    // "auto schedule": autoschedule_frm on the selected lines of the court list.
    void auto_schedule();
    // "distribute the load": distributeload on the selected lines of the upper list on show.
    void distribute_load();
    void player_details();
    void availability();
    void search();
    void run_menu(const QString& caption);
    void match_counts();
    void open_start_time();
    void open_court_name();

protected:
    void showEvent(QShowEvent* event) override;

private:
    BoardListPanel make_panel(BoardListId which, QWidget* parent);
    void build_upper(QWidget* parent);
    void build_lower(QWidget* parent);
    void build_menu();
    void connect_panel(BoardListId which);
    void connect_main();
    // After any operation: counts, choosers and the court's details as the board holds them now.
    void sync();
    void fill_choosers();
    void fill_move_courts();
    void fill_event_filter();
    void sync_ticks();
    void list_chooser(BoardListId which, const QString& entry);
    void status_of(BoardListId which, qint64 sid);
    // Runs an operation on a button's click and shows the board afterwards.
    void on_click(const QString& caption, std::function<void()> action);

    Session& m_session;
    MainWindow& m_main;
    std::unique_ptr<ScheduleBoard> m_board;
    std::array<BoardListPanel, 3> m_panels;
    BoardListId m_active = BoardListId::unscheduled;
    bool m_connected = false;
    bool m_filling = false;

    QTabBar* m_upper_tabs = nullptr;
    QStackedWidget* m_upper_stack = nullptr;
    QComboBox* m_event_filter = nullptr;
    QToolButton* m_menu_button = nullptr;
    QMenu* m_menu = nullptr;
    QLabel* m_key = nullptr;
    QListWidget* m_day_list = nullptr;
    QListWidget* m_court_list = nullptr;
    QLabel* m_days_label = nullptr;
    QLabel* m_courts_label = nullptr;
    QLabel* m_court_details = nullptr;
    TimeChoosers* m_times = nullptr;
    QComboBox* m_move_day = nullptr;
    QComboBox* m_move_court = nullptr;
    QLabel* m_status = nullptr;
};

} // namespace qv
