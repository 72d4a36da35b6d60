#pragma once

#include "drawengine/drawconfig.h"

#include <QDialog>

#include <array>
#include <cstdint>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace qv {

class Session;

// "draw config: " and the event's name: the seeds, players and reserves of one event, its open places and its
// draw type. Every operation goes to DrawConfig; the window copies its selections and boxes in before and shows
// the lists again after.
class DrawConfigWindow : public QDialog
{
    Q_OBJECT

public:
    DrawConfigWindow(Session& session, std::int64_t eid, DrawConfigHooks hooks = {}, QWidget* parent = nullptr);

    DrawConfig& config() { return m_config; }
    QListWidget* list(ConfigList which) const { return m_lists.at(index(which)); }
    QLabel* count_label(ConfigList which) const { return m_counts.at(index(which)); }
    QLineEdit* search_box(ConfigList which) const { return m_search.at(index(which)); }
    QLineEdit* box(ConfigBox which) const { return m_boxes.at(static_cast<std::size_t>(which)); }
    QComboBox* type_line() const { return m_type; }
    QLabel* drawsize_label() const { return m_drawsize; }
    QLabel* locked_note() const { return m_locked_note; }
    // Buttons by object name: "seeds_to_players", "players_to_seeds", "players_to_reserves",
    // "reserves_to_players", "seed_up", "seed_down", "remove_entries", "set_wildcards", "clr_wildcards",
    // "set_qualifiers", "clr_qualifiers", "save", "close", and per list ("seeds", "players", "reserves")
    // "<list>_all", "<list>_none", "<list>_search", "<list>_details", "<list>_export".
    QPushButton* button(const QString& name) const;

signals:
    // "player details": the record of this player is wanted.
    void playerDetailsRequested(const QString& player);
    // The configuration was written; the window closes after this.
    void saved(qint64 eid);

public slots:
    void move(ConfigList from, ConfigList to);
    void move_seed(SeedMove direction);
    void select_all(ConfigList which);
    void select_none(ConfigList which);
    void search(ConfigList which);
    void player_details(ConfigList which);
    void export_list(ConfigList which);
    void remove_entries();
    void set_box(ConfigBox which);
    void clear_box(ConfigBox which);
    void choose_type(int index);
    bool save();

private:
    static std::size_t index(ConfigList which) { return static_cast<std::size_t>(which); }
    QWidget* list_column(ConfigList which, const char* heading, const char* name);
    // Every widget Tab stops at, in reading order.
    std::vector<QWidget*> tab_chain() const;
    QWidget* box_row(ConfigBox which, const char* caption, const char* name);
    QPushButton* add_button(const QString& caption, const QString& name);
    // The window's selections and box texts into the configuration, and the configuration back into the window.
    void take_input();
    void show_config();
    void disable_ctls();

    DrawConfig m_config;
    std::array<QListWidget*, 3> m_lists {};
    std::array<QLabel*, 3> m_counts {};
    std::array<QLineEdit*, 3> m_search {};
    std::array<QLineEdit*, 2> m_boxes {};
    QComboBox* m_type = nullptr;
    QLabel* m_drawsize = nullptr;
    QLabel* m_locked_note = nullptr;
};

// Opens the configuration of one event as a window of its own that deletes itself when closed.
DrawConfigWindow* open_drawconfig(
    Session& session, std::int64_t eid, DrawConfigHooks hooks = {}, QWidget* parent = nullptr);

} // namespace qv
