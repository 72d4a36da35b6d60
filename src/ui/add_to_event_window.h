#pragma once

#include "entries/add_to_event.h"

#include <QDialog>

#include <array>

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace qv {

class Session;

// One list of the window with its "search" box and button and its "load" button.
struct SearchableList
{
    QListWidget* list = nullptr;
    QLineEdit* find = nullptr;
    QPushButton* search = nullptr;
    QPushButton* load = nullptr;
};

// "add players to events" (`addtoevent`): four source tabs (players by filter, the sets read from the draws, the
// players of a folder, the entries of an event by a criterion with "split") above the target events. Each tab's
// button hands its selected lines to add_to_event1, which adds, reports and asks the lists to be read again.
class AddToEventWindow : public QDialog
{
    Q_OBJECT

public:
    enum class Tab { players, sets, folders, events };

    AddToEventWindow(Session& session, QWidget* parent = nullptr);

    QTabWidget* tabs() const { return m_tabs; }
    // The list whose selected lines a tab adds: the players of the filter, of the set, of the folder, or the
    // lines of the event's criterion.
    const SearchableList& source(Tab tab) const { return m_sources.at(index(tab)); }
    QCheckBox* reserve_box(Tab tab) const { return m_reserve.at(index(tab)); }
    QPushButton* add_button(Tab tab) const { return m_add.at(index(tab)); }
    QLabel* players_tag() const { return m_players_tag; }
    QComboBox* sets() const { return m_sets; }
    QListWidget* folders() const { return m_folders; }
    QLabel* folders_tag() const { return m_folders_tag; }
    QListWidget* source_events() const { return m_events; }
    QLabel* events_tag() const { return m_events_tag; }
    QListWidget* criteria() const { return m_criteria; }
    QPushButton* split_button() const { return m_split; }
    QListWidget* split_list() const { return m_split_list; }
    QCheckBox* split_reserve_box() const { return m_split_reserve; }
    QPushButton* split_add_button() const { return m_split_add; }
    const SearchableList& targets() const { return m_targets; }
    QLabel* targets_tag() const { return m_targets_tag; }

public slots:
    // Reads every list again.
    void refresh();
    // The selected lines of the tab into the selected target event.
    AddReport add(Tab tab);
    AddReport add_split();
    // Lists the halves of the selected pair of the events tab.
    void split();
    // The filter windows of the lists with a "set filter..." line.
    QDialog* set_players_filter();
    QDialog* set_folders_filter();
    QDialog* set_events_filter();
    QDialog* set_targets_filter();

private:
    static std::size_t index(Tab tab) { return static_cast<std::size_t>(tab); }
    QWidget* players_tab();
    QWidget* sets_tab();
    QWidget* folders_tab();
    QWidget* events_tab();
    // The reserve tick and the add button under a tab's list.
    void add_buttons(Tab tab, QWidget* page, QBoxLayout* layout);
    SearchableList make_list(QWidget* page, QBoxLayout* layout, bool has_filter_line);

    void load_players();
    void load_set();
    void load_folders();
    void load_folder_players();
    void load_events();
    void load_criteria();
    void load_criterion_lines();
    void load_targets();
    AddReport run(AddRequest request);

    Session& m_session;
    QTabWidget* m_tabs = nullptr;
    std::array<SearchableList, 4> m_sources {};
    std::array<QCheckBox*, 4> m_reserve {};
    std::array<QPushButton*, 4> m_add {};
    QLabel* m_players_tag = nullptr;
    QComboBox* m_sets = nullptr;
    QListWidget* m_folders = nullptr;
    QLabel* m_folders_tag = nullptr;
    QListWidget* m_events = nullptr;
    QLabel* m_events_tag = nullptr;
    QListWidget* m_criteria = nullptr;
    QPushButton* m_split = nullptr;
    QListWidget* m_split_list = nullptr;
    QCheckBox* m_split_reserve = nullptr;
    QPushButton* m_split_add = nullptr;
    SearchableList m_targets;
    QLabel* m_targets_tag = nullptr;
};

// Opens the window, which deletes itself when closed.
AddToEventWindow* open_add_to_event(Session& session, QWidget* parent);

} // namespace qv
