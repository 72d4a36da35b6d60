#pragma once

#include <QWidget>

#include <optional>
#include <string>

class QListWidget;

namespace qv {

class ActionList;
class AnalysisTextPanel;
class Qv4DrawPanel;
class Session;

// "multiple results (qv4) files": the archive of results files, a compiled set of them, and the questions across
// tournaments: a player's results and opponents, head to head, every result. Needs no open tournament.
class Qv4MultipleWindow : public QWidget
{
    Q_OBJECT

public:
    Qv4MultipleWindow(Session& session, QWidget* parent = nullptr);

    QListWidget* archive() const { return m_archive; }
    QListWidget* build() const { return m_build; }
    QListWidget* left_players() const { return m_left; }
    QListWidget* right_players() const { return m_right; }
    QListWidget* draw_events() const { return m_events; }
    AnalysisTextPanel* text() const { return m_text; }
    Qv4DrawPanel* draw() const { return m_draw; }
    ActionList* file_actions() const { return m_file_actions; }
    ActionList* player_actions() const { return m_player_actions; }
    ActionList* draw_actions() const { return m_draw_actions; }

public slots:
    void refresh_archive();

private:
    std::vector<std::string> chosen_files() const;
    void refresh_build();
    void load_players(const std::string& sex);
    std::optional<std::string> player_of(QListWidget* list, const char* refusal);
    bool chosen_draw_event();
    void head_to_head();
    void save_all_results();

    Session& m_session;
    QListWidget* m_archive;
    QListWidget* m_build;
    QListWidget* m_left;
    QListWidget* m_right;
    QListWidget* m_events;
    AnalysisTextPanel* m_text;
    Qv4DrawPanel* m_draw;
    ActionList* m_file_actions;
    ActionList* m_player_actions;
    ActionList* m_draw_actions;
};

} // namespace qv
