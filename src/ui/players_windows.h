#pragma once

#include "entries/players.h"

#include <QDialog>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace qv {

class Database;
class Session;

// The fields of one player or team on tabs, shared by the register's windows. The option "team" leaves only the
// team name for the name; a locked person (entered in an event) keeps name, sex and type.
class PlayerFieldsBox : public QWidget
{
    Q_OBJECT

public:
    explicit PlayerFieldsBox(QWidget* parent = nullptr);

    // What the boxes hold now. pid, player, timestamp and downloaded stay unset: the windows hold those.
    PlayerRecord record() const;
    void show_record(const PlayerRecord& record);
    void clear();

    void set_locked(bool locked);
    bool locked() const { return m_locked; }
    // Nothing can be typed: a person of the downloaded tables is only looked at.
    void set_read_only(bool read_only);

    // Puts the cursor on the box a refusal names, on its tab, with the offending character selected.
    void point_at(const PlayerRefusal& refusal);
    QWidget* box_of(PlayerField field) const;

    QTabWidget* tabs() const { return m_tabs; }
    QRadioButton* player_option() const { return m_player; }
    QRadioButton* team_option() const { return m_team; }
    QLineEdit* fname() const { return m_fname; }
    QLineEdit* sname() const { return m_sname; }
    QLineEdit* team_name() const { return m_team_name; }
    QComboBox* sex() const { return m_sex; }
    QLineEdit* from_code() const { return m_country; }
    QLabel* lock_label() const { return m_lock_label; }
    // Any other box by its column name ("phone", "club", "notes"...).
    QWidget* box(const QString& column) const;

private:
    void show_kind();

    bool m_locked = false;
    bool m_read_only = false;
    // The sex as stored, so that a row stored in upper case is saved back as it was when the list is untouched.
    QString m_loaded_sex;
    QTabWidget* m_tabs;
    QRadioButton* m_player;
    QRadioButton* m_team;
    QLineEdit* m_fname;
    QLineEdit* m_sname;
    QLineEdit* m_team_name;
    QComboBox* m_sex;
    QLineEdit* m_country;
    QLabel* m_lock_label;
};

// The tick "beep ok" of the register's windows (`players_beep_ok`), written at once when changed.
QCheckBox* players_beep_box(Session& session, QWidget* parent);

// "add new player" (`players_fs_addnew`): the fields and save, clear, close, print. The caller hears of each
// player added.
class AddPlayerWindow : public QDialog
{
    Q_OBJECT

public:
    using Added = std::function<void(std::int64_t pid)>;

    AddPlayerWindow(Session& session, Added on_added = {}, QWidget* parent = nullptr);

    PlayerFieldsBox* fields() const { return m_fields; }
    QPushButton* save_button() const { return m_save; }
    QPushButton* clear_button() const { return m_clear; }

public slots:
    // The new pid, or 0 when the input was refused (the user has been told, the cursor is on the field).
    std::int64_t save();
    void clear();
    void print();

private:
    Session& m_session;
    Added m_on_added;
    PlayerFieldsBox* m_fields;
    QPushButton* m_save;
    QPushButton* m_clear;
};

// "players" (`players_players`): every player by name, the fields of the selected one, search, add new, clear,
// save, delete, the ticks "beep ok" and "no prompt", the details export and the two lists of the register.
class PlayersWindow : public QDialog
{
    Q_OBJECT

public:
    PlayersWindow(Session& session, QWidget* parent = nullptr);
    ~PlayersWindow() override;

    QListWidget* list() const { return m_list; }
    QLineEdit* search_box() const { return m_search; }
    PlayerFieldsBox* fields() const { return m_fields; }
    QCheckBox* no_prompt() const { return m_no_prompt; }
    QLabel* timestamp_label() const { return m_timestamp; }
    QLabel* downloaded_label() const { return m_downloaded; }
    QPushButton* search_button() const { return m_search_button; }
    QPushButton* add_button() const { return m_add; }
    QPushButton* clear_button() const { return m_clear; }
    QPushButton* save_button() const { return m_save; }
    QPushButton* delete_button() const { return m_delete; }
    QPushButton* text_button() const { return m_text; }
    // The pid whose fields show, 0 for none.
    std::int64_t shown_pid() const { return m_pid; }

public slots:
    // Reads the list again, keeping the selected player where he still exists.
    void refresh();
    // Selects the players whose name holds the search text.
    bool search();
    // Adds the fields as a new player.
    bool add_new();
    // Empties the fields and the selection, ready for a new player.
    void clear();
    bool save();
    bool remove();
    bool export_text();
    bool report_rating_ranking();
    bool report_events();

private:
    // Shows the selected player; again: read the row even if it is the one shown.
    void load_selected(bool again);
    void select_pid(std::int64_t pid);

    Session& m_session;
    std::int64_t m_pid = 0;
    QListWidget* m_list;
    QLineEdit* m_search;
    PlayerFieldsBox* m_fields;
    QCheckBox* m_no_prompt;
    QLabel* m_timestamp;
    QLabel* m_downloaded;
    QPushButton* m_search_button;
    QPushButton* m_add;
    QPushButton* m_clear;
    QPushButton* m_save;
    QPushButton* m_delete;
    QPushButton* m_text;
};

// "player details" (`players_fs_small`) on one person. Over the tournament's register the fields can be saved
// (the lock applies); over the downloaded players they are only shown. Opened on a match, the people of the
// match are listed and the chosen one shows.
class PlayerDetailsWindow : public QDialog
{
    Q_OBJECT

public:
    PlayerDetailsWindow(Session& session, PlayerTable table, QWidget* parent = nullptr);

    // False when the person has gone: "player not found" has been said.
    bool show_name(std::string_view name);
    bool show_pid(std::int64_t pid);
    // The people of a match; false when the match has gone (the user has been told) or holds nobody.
    bool show_match(std::int64_t sid);

    QListWidget* names() const { return m_names; }
    PlayerFieldsBox* fields() const { return m_fields; }
    QPushButton* save_button() const { return m_save; }
    QLabel* timestamp_label() const { return m_timestamp; }
    std::int64_t shown_pid() const { return m_pid; }

public slots:
    bool save();

private:
    void show_record(const PlayerRecord& record);
    bool show_found(const std::optional<PlayerRecord>& record);
    Database& source() const;

    Session& m_session;
    PlayerTable m_table;
    std::int64_t m_pid = 0;
    QListWidget* m_names;
    PlayerFieldsBox* m_fields;
    QLabel* m_timestamp;
    QPushButton* m_save;
};

// "players delete" (`players_delete`): the players of its filter (first line "set filter..."), many selected
// and deleted at once; entered players are left and listed in the feedback file.
class PlayersDeleteWindow : public QDialog
{
    Q_OBJECT

public:
    PlayersDeleteWindow(Session& session, QWidget* parent = nullptr);
    ~PlayersDeleteWindow() override;

    QListWidget* list() const { return m_list; }
    QLabel* filter_tag() const { return m_tag; }
    QCheckBox* no_prompt() const { return m_no_prompt; }
    QPushButton* delete_button() const { return m_delete; }

public slots:
    void refresh();
    // Opens "players filter" over this window's filter; storing it reads the list again.
    QDialog* set_filter();
    // The number deleted.
    int remove();

private:
    Session& m_session;
    QLabel* m_tag;
    QListWidget* m_list;
    QCheckBox* m_no_prompt;
    QPushButton* m_delete;
};

// ---- Opening the windows. Each window deletes itself when closed. ----

AddPlayerWindow* open_add_player(Session& session, QWidget* parent);
PlayersWindow* open_players(Session& session, QWidget* parent);
PlayersDeleteWindow* open_players_delete(Session& session, QWidget* parent);
// "player details" by name (`init1`) or pid (`init2`) over the register or the downloaded players, or on the
// people of a match (`init3`). None when the person or match has gone: the user has been told and no window shows.
PlayerDetailsWindow* open_player_details_by_name(
    Session& session, std::string_view name, QWidget* parent, PlayerTable table = PlayerTable::players);
PlayerDetailsWindow* open_player_details_by_pid(
    Session& session, std::int64_t pid, QWidget* parent, PlayerTable table = PlayerTable::players);
PlayerDetailsWindow* open_player_details_by_match(Session& session, std::int64_t sid, QWidget* parent);

// Every open "players" and "players delete" window reads its list again. The register's windows call it after
// their own changes; the host calls it when an operation elsewhere changed the players.
void refresh_players_windows();

} // namespace qv
