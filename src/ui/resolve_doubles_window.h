#pragma once

#include "entries/doubles_resolution.h"

#include <QDialog>

#include <cstdint>
#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;

namespace qv {

class Session;

// "resolve doubles": the event's raw rows in two columns with one scroll, the people coloured by state and sex,
// the resolved teams, and the actions that turn the one into the other. A click on a name fills a team label;
// with Ctrl or Shift it only selects rows for a "resolve" row by row.
class ResolveDoublesWindow : public QDialog
{
    Q_OBJECT

public:
    ResolveDoublesWindow(Session& session, std::int64_t eid, QWidget* parent = nullptr);

    QListWidget* left_col() const { return m_left; }
    QListWidget* right_col() const { return m_right; }
    QListWidget* resolved() const { return m_resolved; }
    QListWidget* actions() const { return m_actions; }
    QLabel* label1() const { return m_label1; }
    QLabel* label2() const { return m_label2; }
    QLabel* totals() const { return m_totals; }
    QCheckBox* auto_complete() const { return m_auto; }
    QGroupBox* key() const { return m_key; }
    bool showing_resolved() const;

    // One line of the action list.
    void run_action(const QString& action);
    // A plain click on the name of row `row` in one of the columns.
    void name_clicked(QListWidget* column, int row);
    // The lists and labels read again (set_upper_lower).
    void set_upper_lower();
    // Positions the columns on the first name holding the text; false when none does.
    bool search_for(const QString& text);

private:
    void show_labels();
    void mirror_selection(QListWidget* from, QListWidget* to);
    void resolve();
    void restore();
    void remove();
    void open_search();
    void player_details();

    Session& m_session;
    std::int64_t m_eid;
    std::vector<RawRow> m_rows;
    TeamLabels m_labels;
    QListWidget* m_left;
    QListWidget* m_right;
    QListWidget* m_resolved;
    QListWidget* m_actions;
    QStackedWidget* m_pages;
    QGroupBox* m_resolved_box;
    QLabel* m_label1;
    QLabel* m_label2;
    QLabel* m_totals;
    QCheckBox* m_auto;
    QGroupBox* m_key;
    bool m_mirroring = false;
};

// "resolve doubles" from the tournament area: the window for a doubles event.
ResolveDoublesWindow* open_resolve_doubles(Session& session, std::int64_t eid, QWidget* parent);

} // namespace qv
