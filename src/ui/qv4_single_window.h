#pragma once

#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

class QLabel;
class QListWidget;

namespace qv {

class ActionList;
class AnalysisTextPanel;
class Qv4DrawPanel;
class Session;

// "one result (qv4) file": a results file's players, events, results and draws, read into the analysis store.
// Needs no open tournament and no account.
class Qv4SingleWindow : public QWidget
{
    Q_OBJECT

public:
    Qv4SingleWindow(Session& session, QWidget* parent = nullptr);

    // "open...": the file the user picks, or the one given.
    bool open_file();
    bool open_file(const std::filesystem::path& file);

    QListWidget* players() const { return m_players; }
    QListWidget* events() const { return m_events; }
    QLabel* status() const { return m_status; }
    AnalysisTextPanel* text() const { return m_text; }
    Qv4DrawPanel* draw() const { return m_draw; }
    ActionList* player_actions() const { return m_player_actions; }
    ActionList* event_actions() const { return m_event_actions; }
    ActionList* draw_actions() const { return m_draw_actions; }

private:
    void show_players(const std::string& sex);
    void load_all_events();
    std::optional<std::int64_t> chosen_event();
    std::optional<std::string> chosen_player();

    Session& m_session;
    QLabel* m_status;
    QListWidget* m_players;
    QListWidget* m_events;
    AnalysisTextPanel* m_text;
    Qv4DrawPanel* m_draw;
    ActionList* m_player_actions;
    ActionList* m_event_actions;
    ActionList* m_draw_actions;
};

// "search" on a list of an analysis window: the next line holding the typed text becomes the current one.
void search_analysis_list(Session& session, QWidget* parent, QListWidget* list);

} // namespace qv
