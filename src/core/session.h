#pragma once

#include "core/app_dirs.h"
#include "core/database.h"
#include "core/file_lock.h"
#include "core/instance_lock.h"
#include "core/session_host.h"
#include "core/settings.h"
#include "core/time_rules.h"
#include "core/user_talk.h"
#include "core/work_areas.h"

#include <optional>
#include <string>

namespace qv {

// The tournament session: the three open databases, the directories, the settings and the work area shown.
// It owns no tournament logic; every other operation reaches the tables through it.
class Session
{
public:
    Session(const std::filesystem::path& app_dir, UserTalk& talk, SessionHost& host);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    // Start and restart.
    void boot_start_app(const std::string& path);
    void boot_restart_app();
    // The four ways to ask for a restart; each defers it to the main loop so the caller returns first.
    void boot_restart_from_clear_data() { request_restart(); }
    void boot_restart_from_control_panel() { request_restart(); }
    void boot_restart_from_load_file() { request_restart(); }
    void boot_restart_from_mainform() { request_restart(); }

    // The tournament file.
    void opendb(const std::string& path);
    bool close_current_db();
    void exit_app();

    // The menu "tournament".
    void menu_new();
    void menu_open();
    void menu_save_as();
    void menu_close() { close_current_db(); }
    // Opens a file of the recent list as "open" does once a file is chosen.
    void open_recent(const std::string& path);

    // Work areas.
    void ishow(Area area);
    void ishow_no_refresh(Area area);
    // A toolbar click: nothing happens while no tournament is open.
    void toolbar_click(Area area);
    void set_generics();
    // Tells the windows that an operation changed what these lists show.
    void refresh_lists(Lists which) { m_host.refresh_lists(which); }

    bool has_tournament() const { return !m_current_file_path.empty(); }
    Database& tournament() { return m_tournament; }
    Database& init_db() { return m_init; }
    Database& peek_browse_db() { return m_peek_browse; }
    Settings& settings() { return m_settings; }
    UserTalk& talk() { return m_talk; }
    const AppDirs& dirs() const { return m_dirs; }
    StampCounter& stamps() { return m_stamps; }
    // The online requests' counter: it starts at zero with the program and is never reset or saved.
    StampCounter& request_sequences() { return m_request_sequences; }
    // The busy pointer around a request or another long step.
    void busy(bool on) { m_host.busy(on); }

    const std::string& current_file_path() const { return m_current_file_path; }
    const std::string& current_file_name() const { return m_current_file_name; }
    const std::string& last_file_path() const { return m_last_file_path; }
    const std::string& pending_file_path() const { return m_pending_file_path; }
    std::optional<Area> current_area() const { return m_current_area; }
    const std::string& switch_word() const { return m_switch_word; }
    bool booted() const { return m_init.is_open(); }
    static constexpr const char* version = "1.0";

    const std::string& machine_id() const { return m_machine_id; }
    const std::string& os_name() const { return m_os_name; }
    const std::string& os_details() const { return m_os_details; }

    // Compacts a database file when the compact-on-close switch is on; failures are ignored.
    void compact(const std::filesystem::path& file, FileLock* lock = nullptr) const;

    // The open tournament file can be renamed, moved, deleted or replaced by another program while the
    // program runs; then nothing can be written to it, while the open connection still holds the tournament.
    bool file_gone();
    // Called at the start of each operation: the first time the file is found gone, the director is told and
    // offered to save the tournament as a new file. True when the director was told just now.
    bool tell_if_file_gone();
    // What the director reads of a fault of an operation: plain words when the file has gone.
    std::string fault_text(std::string_view what);

private:
    void request_restart();
    void on_timer();
    void start_with_pending();
    void open_side_databases();
    void close_side_databases();
    void set_qv_os_variables();
    void load_all_forms();
    // Nothing when the file opened as the tournament, else why it was refused.
    std::optional<std::string> open_tournament_file(const std::filesystem::path& file);
    // The file may be written by this user and is open in no other program; locks it.
    std::optional<std::string> claim_tournament_file(const std::filesystem::path& file);
    void check_tment_table_for_stub();
    std::string gone_text() const;
    // Writes the tournament, as the open connection holds it, to a file the director chooses.
    std::optional<std::filesystem::path> copy_gone_file();
    void go_on_in(const std::filesystem::path& copy);
    // A file open in another copy of the program is never written over: true, and the director is told.
    bool open_elsewhere(const std::filesystem::path& file);
    bool copy_closed_file(const std::filesystem::path& target);

    UserTalk& m_talk;
    SessionHost& m_host;
    AppDirs m_dirs;
    InstanceLock m_lock;
    FileLock m_file_lock;
    Settings m_settings;
    StampCounter m_stamps;
    StampCounter m_request_sequences;

    Database m_init;
    Database m_peek_browse;
    Database m_tournament;

    std::string m_current_file_path;
    std::string m_current_file_name;
    std::string m_last_file_path;
    std::string m_pending_file_path;
    std::string m_pending_action;
    std::string m_switch_word;
    std::optional<Area> m_current_area;
    int m_compact_on_close = 1;
    // The director has been told that the file has gone; the tournament has been saved elsewhere since.
    bool m_gone_told = false;
    bool m_gone_copy_saved = false;
    std::string m_machine_id;
    std::string m_os_name;
    std::string m_os_details;
};

} // namespace qv
