#pragma once

#include "entries/main_lists.h"

#include <QWidget>

#include <functional>
#include <map>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace qv {

class ClearDataDialog;
class Session;

// The tournament area ("mainform"): events and their entries, the register of players and a player's events,
// and the operations of the tournament. Lists are pictures of the tables, read again on refresh.
// The four lists of operations beside the main lists: the tournament's, the events', the players', and those of
// the selected event.
enum class OperationList { tournament, events, players, selected_event };

class TournamentArea : public QWidget
{
    Q_OBJECT

public:
    TournamentArea(Session& session, QWidget* parent = nullptr);

    // Reads every list from the open tournament file.
    void init();
    // Empties every list: the file is closing.
    void clear();

    QListWidget* events() const { return m_events; }
    QListWidget* entries() const { return m_entries; }
    QListWidget* players() const { return m_players; }
    QListWidget* player_events_list() const { return m_player_events; }
    QListWidget* tournament_operations() const { return m_tournament_ops; }
    QListWidget* operations(OperationList which) const;
    // Adds a line to a list of operations; a click on it runs the action.
    void add_operation(OperationList which, const QString& caption, std::function<void()> action);
    // An operation whose caption is built from the sports words: it stands before the line `before` and takes its
    // caption afresh at each init, when the words may have changed.
    void add_worded_operation(
        OperationList which, std::function<QString()> caption, std::function<void()> action, const QString& before);
    // The selected event's id, 0 when none is selected; the selected player's name, empty when none.
    qlonglong selected_event() const;
    QString selected_player() const;
    QPushButton* entry_button(EntryList which) const;
    QPushButton* refresh_button() const { return m_refresh; }
    QPushButton* remove_entries_button() const { return m_remove_entries; }
    QPushButton* restart_button() const { return m_restart; }
    QString event_count() const;
    QString entry_count() const;
    QString player_event_count() const;

public slots:
    void refresh();
    void show_entries(EntryList which);
    ClearDataDialog* open_clear_data();
    // Takes the selected lines of the shown entries list out of the selected event, after the question.
    int remove_selected_entries();

private:
    void load_entries();
    void load_player_events();
    void run_operation(QListWidgetItem* item);

    Session& m_session;
    EntryList m_entry_list = EntryList::players;

    QListWidget* m_events;
    QPushButton* m_players_button;
    QPushButton* m_reserve_button;
    QPushButton* m_raw_button;
    QListWidget* m_entries;
    QPushButton* m_remove_entries;
    QLabel* m_event_count;
    QLabel* m_entry_count;
    QLabel* m_player_event_count;
    QListWidget* m_players;
    QListWidget* m_player_events;
    QPushButton* m_refresh;
    QPushButton* m_restart;
    QListWidget* m_tournament_ops;
    QListWidget* m_events_ops;
    QListWidget* m_players_ops;
    QListWidget* m_event_ops;
    std::map<QListWidget*, std::map<QString, std::function<void()>>> m_actions;
    struct WordedOperation
    {
        QListWidgetItem* item;
        std::function<QString()> caption;
        std::function<void()> action;
    };
    std::vector<WordedOperation> m_worded;
};

} // namespace qv
