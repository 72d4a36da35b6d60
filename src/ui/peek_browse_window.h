#pragma once

#include "datafiles/entries_file.h"

#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// peek_browse: an entries file read into the peek tables (downloaded) or the browse tables (from a file),
// shown beside the tournament: the file's events, the entries of the chosen event and its players, and the
// tournament's entries in the event of the same id. Exports the file's entries; from a peek a player can be
// withdrawn online.
class PeekBrowseWindow : public QWidget
{
    Q_OBJECT

public:
    PeekBrowseWindow(Session& session, EntriesTarget target, QWidget* parent = nullptr);

    EntriesTarget target() const { return m_target; }
    QListWidget* events() const { return m_events; }
    QListWidget* entries() const { return m_entries; }
    QListWidget* players() const { return m_players; }
    QListWidget* tournament_entries() const { return m_tournament_entries; }
    QLabel* heading() const { return m_heading; }

public slots:
    // Reads the tables again, keeping the chosen event where it still stands.
    void refresh();
    // The chosen player (in the players list) is withdrawn online.
    bool withdraw();
    void export_brief();
    void export_expanded();
    void export_formatted();

private:
    void load_entries();
    std::string prefix() const;

    Session& m_session;
    EntriesTarget m_target;
    QLabel* m_heading;
    QListWidget* m_events;
    QListWidget* m_entries;
    QListWidget* m_players;
    QListWidget* m_tournament_entries;
};

// Opens the window over parent, or brings the one already open for that target up to date.
PeekBrowseWindow* open_peek_browse(Session& session, EntriesTarget target, QWidget* parent);

// "browse entries (qv5) file": the chosen file into the browse tables, then the window on them.
PeekBrowseWindow* browse_entries_file(Session& session, QWidget* parent);

} // namespace qv
