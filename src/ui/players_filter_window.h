#pragma once

#include "entries/filters.h"

#include <QDialog>

#include <array>
#include <functional>
#include <string>

class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace qv {

class Session;

// The window over a player list's filter: `players_filter` with the three sources, or `players_filter_addtoevent`
// whose lists bring their own source and so show only the ticks and the order.
enum class PlayersFilterKind { with_sources, addtoevent };

// "players filter": reads the filter stored under the calling window's key, and on "set filter" stores the new
// text under that key and hands the filter to the caller, which reads its list again.
class PlayersFilterWindow : public QDialog
{
    Q_OBJECT

public:
    using Stored = std::function<void(const PlayerFilter&)>;

    PlayersFilterWindow(
        Session& session, std::string key, PlayersFilterKind kind, Stored on_stored, QWidget* parent = nullptr);

    QTabWidget* tabs() const { return m_tabs; }
    QListWidget* event_list() const { return m_events; }
    QListWidget* folder_list() const { return m_folders; }
    QCheckBox* all_players() const { return m_all; }
    QCheckBox* use_event() const { return m_use_event; }
    QCheckBox* use_folder() const { return m_use_folder; }
    // male, female, reserves, non-reserve, players, teams.
    QCheckBox* tick(int index) const { return m_ticks.at(static_cast<std::size_t>(index)); }
    QComboBox* order() const { return m_order; }
    QPushButton* store_button() const { return m_store; }

    // The filter the window shows now.
    PlayerFilter filter() const;

public slots:
    // Stores the filter; "select at least 1 source" when no source is ticked.
    bool store();

private:
    void show_filter(const PlayerFilter& filter);
    // Only one source is used: ticking one clears the others.
    void use_only(QCheckBox* source);

    Session& m_session;
    std::string m_key;
    PlayersFilterKind m_kind;
    Stored m_on_stored;
    // What the add-to-event variant keeps of the stored text: it shows no source.
    PlayerFilter m_loaded;

    QTabWidget* m_tabs = nullptr;
    QListWidget* m_events = nullptr;
    QListWidget* m_folders = nullptr;
    QCheckBox* m_all = nullptr;
    QCheckBox* m_use_event = nullptr;
    QCheckBox* m_use_folder = nullptr;
    std::array<QCheckBox*, 6> m_ticks {};
    QComboBox* m_order = nullptr;
    QPushButton* m_store = nullptr;
};

} // namespace qv
