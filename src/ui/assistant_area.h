#pragma once

#include "scheduling/assistant_lists.h"
#include "scheduling/board_list.h"
#include "ui/area_page.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

namespace qv {

class BoardListView;
class TimeChoosers;
class MainWindow;
class ScheduleBoard;
class ScheduleBoardArea;
class VisualGridWidget;

// The assistant ("Birds Eye"): statistics by event, day and court, the players' match counts, the match lists
// with their filters (from which the load is distributed), the time conflicts and the visual grid. It reads the
// schedule and, but for distributing the load, leaves the board's own view alone.
class AssistantArea : public AreaPage
{
    Q_OBJECT

public:
    AssistantArea(Session& session, MainWindow& main, QWidget* parent = nullptr);

    void init() override;
    void clear() override;

    QTabWidget* tabs() const { return m_tabs; }
    QPushButton* button(const QString& caption) const;
    QPlainTextEdit* stats_text() const { return m_stats; }
    QComboBox* stats_day() const { return m_stats_day; }
    QListWidget* counts() const { return m_counts; }
    QComboBox* list_event() const { return m_list_event; }
    QComboBox* list_day() const { return m_list_day; }
    QComboBox* list_court() const { return m_list_court; }
    QCheckBox* list_noday() const { return m_noday; }
    QComboBox* list_order() const { return m_order; }
    QComboBox* move_day() const { return m_move_day; }
    QComboBox* move_court() const { return m_move_court; }
    TimeChoosers* times() const { return m_times; }
    QComboBox* other_player() const { return m_other_player; }
    QListWidget* other_matches() const { return m_others; }
    BoardListView* match_list() const { return m_list_view; }
    BoardList& matches() { return m_matches; }
    QListWidget* tc_days() const { return m_tc_days; }
    QLineEdit* tc_minutes() const { return m_tc_minutes; }
    QListWidget* tc_match_days() const { return m_tc_match_days; }
    QLabel* tc_match_label() const { return m_tc_match_label; }
    QCheckBox* hold_list() const { return m_hold_list; }
    QListWidget* tc_court_days() const { return m_tc_court_days; }
    QListWidget* tc_list() const { return m_tc_list; }
    QComboBox* visual_day() const { return m_visual_day; }
    QComboBox* visual_event() const { return m_visual_event; }
    VisualGridWidget* visual() const { return m_visual; }

public slots:
    void show_stats_by(int by);
    void count_players();
    void load_list();
    void search();
    void distribute_load();
    // "show in draw", "show in schedule" and "add result" for the current line, else the first selected one.
    void show_in_draw();
    void show_in_schedule();
    void add_result();
    // "player details" of the people of the chosen match.
    void player_details();
    // After a change made from the lists: each list not on hold is read again.
    void after_change();
    // The moves, marks and times of the selected lines.
    void act_on_selection(const QString& caption);
    void compute_conflicts();
    void show_conflicts(bool courts);
    void purge_conflicts();
    void show_visual();

private:
    QWidget* build_stats();
    QWidget* build_counts();
    QWidget* build_lists();
    QWidget* build_conflicts();
    QWidget* build_visual();
    void fill_days();
    void fill_list_courts();
    void fill_move_courts();
    // The players of the match on the current line, for "other matches".
    void fill_other_players(qint64 sid);
    void load_other_matches();
    void load_conflict_days();
    ListStates ticks(const char* prefix, const char* suffix) const;
    ScheduleBoard* board() const;
    ScheduleBoardArea* board_area() const;
    // The match the line operations act on; "select " match when there is none.
    std::optional<qint64> chosen_sid();
    // The chooser under a page: "print(l)", "print(p)" and "save to file" of the page's lines.
    QComboBox* add_output_chooser(QBoxLayout* row, QWidget* page, std::function<std::vector<std::string>()> lines,
        std::function<std::string()> file_name);
    std::vector<std::string> conflict_lines() const;

    Session& m_session;
    MainWindow& m_main;
    QTabWidget* m_tabs;
    QPlainTextEdit* m_stats = nullptr;
    QComboBox* m_stats_day = nullptr;
    QListWidget* m_counts = nullptr;
    QComboBox* m_counts_order = nullptr;
    QCheckBox* m_counts_desc = nullptr;
    QComboBox* m_list_event = nullptr;
    QComboBox* m_list_type = nullptr;
    QComboBox* m_list_day = nullptr;
    QComboBox* m_list_court = nullptr;
    QCheckBox* m_noday = nullptr;
    QCheckBox* m_include_cb = nullptr;
    QComboBox* m_order = nullptr;
    QCheckBox* m_desc = nullptr;
    // Hold refresh of the match list and of the other matches: held, a change patches the lines; else the list
    // is read again.
    QCheckBox* m_hold_list = nullptr;
    QCheckBox* m_hold_others = nullptr;
    QLineEdit* m_search = nullptr;
    QCheckBox* m_search_equals = nullptr;
    std::array<QCheckBox*, 4> m_list_ticks {};
    BoardList m_matches;
    BoardListView* m_list_view = nullptr;
    TimeChoosers* m_times = nullptr;
    QComboBox* m_move_day = nullptr;
    QComboBox* m_move_court = nullptr;
    QComboBox* m_other_player = nullptr;
    QComboBox* m_other_order = nullptr;
    QCheckBox* m_other_desc = nullptr;
    std::array<QCheckBox*, 4> m_other_ticks {}; // no tick for the empty matches: they always show
    QListWidget* m_others = nullptr;
    QListWidget* m_tc_days = nullptr;
    QLineEdit* m_tc_minutes = nullptr;
    QListWidget* m_tc_match_days = nullptr;
    QListWidget* m_tc_court_days = nullptr;
    QLabel* m_tc_match_label = nullptr;
    QLabel* m_tc_court_label = nullptr;
    QLabel* m_tc_heading = nullptr;
    QListWidget* m_tc_list = nullptr;
    bool m_tc_courts = false;
    QComboBox* m_visual_day = nullptr;
    QComboBox* m_visual_event = nullptr;
    std::array<QCheckBox*, 4> m_visual_ticks {};
    VisualGridWidget* m_visual = nullptr;
    QLabel* m_visual_message = nullptr;
};

} // namespace qv
