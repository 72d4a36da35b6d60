#include "core/session.h"

#include "core/compaction.h"
#include "core/os_variables.h"
#include "core/recent_files.h"
#include "core/scratch_tables.h"
#include "core/text_rules.h"
#include "core/tournament_file.h"
#include "core/utf8.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

constexpr const char* restart_marker = "boot_restart_app";
constexpr const char* gone_title = "tournament file gone";

std::string damaged(const std::string& path)
{
    return "tournament file is damaged,some of its pages cannot be read:" + path;
}

// A fault of the engine while a file is opened, in the director's words.
std::string refusal_of(const DbError& fault, const std::string& path)
{
    switch (fault_of(fault)) {
    case FileFault::in_use:
        return "tournament file is in use by another program:" + path;
    case FileFault::damaged:
        return damaged(path);
    case FileFault::other:
        break;
    }
    return "not a tournament file:" + path;
}

// The file name without its directory.
std::string extract_fn(const std::string& path)
{
    return fs::path(path).filename().string();
}

} // namespace

Session::Session(const fs::path& app_dir, UserTalk& talk, SessionHost& host)
    : m_talk(talk)
    , m_host(host)
    , m_dirs(AppDirs::under(app_dir))
    , m_settings(talk)
{
}

Session::~Session()
{
    m_settings.detach();
    m_tournament.close();
    m_peek_browse.close();
    m_init.close();
}

void Session::compact(const fs::path& file, FileLock* lock) const
{
    if (m_compact_on_close == 1)
        compact_file(file, lock);
}

void Session::boot_start_app(const std::string& path)
{
    if (!m_lock.acquire(m_dirs.app / "quorvelin.lock")) {
        m_talk.message("another instance of this program is running,only 1 instance allowed");
        m_host.end_process();
        return;
    }
    m_host.busy(true);
    m_compact_on_close = 1;
    set_qv_os_variables();
    m_dirs.check_directories_exist();
    m_dirs.clean_working();
    remove_stale_temps(m_dirs.init_files);
    m_current_file_path.clear();
    open_side_databases();
    m_settings.load_disk_vars();
    if (!trim(path).empty())
        opendb(path);
    else if (m_settings.integer("open_last_db_on_start") == 1)
        opendb(m_settings.text("app.last_db_opened"));
    set_generics();
    m_host.boot_ended();
    m_host.busy(false);
}

void Session::set_qv_os_variables()
{
    const auto os = read_os_variables();
    m_machine_id = machine_safe(os.machine_id);
    m_os_name = os.name;
    m_os_details = machine_safe(os.details);
}

void Session::open_side_databases()
{
    close_side_databases();
    {
        Database init(m_dirs.init_db());
        init.run("delete from sort_dir");
    }
    compact(m_dirs.init_db());
    m_init = Database(m_dirs.init_db());
    {
        Database peek(m_dirs.peek_browse_db());
        Transaction transaction(peek);
        empty_tables(peek, peek_browse_scratch_tables());
        transaction.commit();
    }
    compact(m_dirs.peek_browse_db());
    m_peek_browse = Database(m_dirs.peek_browse_db());
    m_settings.attach(m_init);
}

void Session::close_side_databases()
{
    m_settings.detach();
    m_init.close();
    m_peek_browse.close();
}

void Session::set_generics()
{
    m_host.set_generics(m_settings.text("app.generic_m") + "c", m_settings.text("app.generic_match") + " counts");
}

void Session::opendb(const std::string& path)
{
    if (trim(path).empty() || path == m_current_file_path)
        return;
    if (!close_current_db())
        return;
    const fs::path file(path);
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) {
        m_talk.message("file not found:" + path);
        return;
    }
    if (auto refusal = open_tournament_file(file)) {
        m_tournament.close();
        m_file_lock.release();
        m_talk.message(*refusal);
        return;
    }
    m_current_file_name = extract_fn(path);
    m_current_file_path = path;
    m_settings.set_disk_var("app.last_db_opened", path);
    record_recent_file(m_settings, path);
    repair_stored_filters(m_settings, m_tournament);
    check_tment_table_for_stub();
    m_last_file_path = path;
    m_stamps.reset();
    m_settings.load_tournament_cache(m_tournament);
    load_all_forms();
}

// A file that fails a check is refused before anything changes it: it stays as it was, byte for byte.
std::optional<std::string> Session::open_tournament_file(const fs::path& file)
{
    const auto path = file.string();
    if (auto refusal = claim_tournament_file(file))
        return refusal;
    try {
        {
            Database db(file);
            if (!passes_quick_check(db))
                return damaged(path);
            if (auto missing = missing_schema(db, m_dirs.blank_db()))
                return "not a tournament file," + *missing + ":" + path;
            // Every open is a compaction: empty the scratch tables, compact, open again.
            Transaction transaction(db);
            empty_tables(db, tournament_scratch_tables());
            transaction.commit();
        }
        compact(file, &m_file_lock);
        m_tournament = Database(file);
    } catch (const DbError& fault) {
        return refusal_of(fault, path);
    }
    return std::nullopt;
}

std::optional<std::string> Session::claim_tournament_file(const fs::path& file)
{
    const auto path = file.string();
    switch (write_access(file)) {
    case WriteAccess::read_only_file:
        return "tournament file is read only:" + path;
    case WriteAccess::read_only_folder:
        return "the folder of the tournament file is read only:" + path;
    case WriteAccess::writable:
        break;
    }
    switch (m_file_lock.acquire(file)) {
    case FileLock::Result::held_elsewhere:
        return "tournament file is open in another quorvelin:" + path;
    case FileLock::Result::cannot_open:
        return "tournament file cannot be read:" + path;
    case FileLock::Result::locked:
        break;
    }
    std::error_code ec;
    remove_stale_temps(fs::canonical(file, ec).parent_path());
    return std::nullopt;
}

void Session::check_tment_table_for_stub()
{
    if (m_tournament.row_count("tournament") == 0)
        m_tournament.run("insert into tournament (idx) values (1)");
}

void Session::load_all_forms()
{
    m_host.load_all_forms();
    m_current_area.reset();
    ishow(Area::draw);
}

bool Session::close_current_db()
{
    if (!has_tournament())
        return true;
    const bool gone = file_gone();
    if (gone && !m_gone_copy_saved) {
        const auto answer = m_talk.ask(
            gone_text() + ",save the tournament as a new file before closing?", gone_title, Buttons::YesNoCancel);
        if (answer == Answer::Cancel || (answer == Answer::Yes && !copy_gone_file()))
            return false;
    }
    try {
        if (!m_host.leave_draw())
            return false;
    } catch (const DbError&) {
        // A draw left unsaved cannot be written to a file that has gone: closing must still be possible.
        if (!gone)
            throw;
    }
    m_host.unload_all_forms();
    m_current_area.reset();
    const fs::path file(m_current_file_path);
    if (!gone) {
        try {
            Transaction transaction(m_tournament);
            empty_tables(m_tournament, tournament_scratch_tables());
            transaction.commit();
        } catch (const DbError&) {
            // The next open empties them again; a file that cannot take the change must still close.
        }
    }
    m_tournament.close();
    m_current_file_path.clear();
    m_settings.clear_tournament_cache();
    // Only the file this session opened is compacted, never one that another program put in its place.
    if (!gone && m_file_lock.holds(file))
        compact(file, &m_file_lock);
    m_file_lock.release();
    m_gone_told = false;
    m_gone_copy_saved = false;
    return true;
}

void Session::exit_app()
{
    if (!close_current_db())
        return;
    m_settings.detach();
    m_init.close();
    compact(m_dirs.init_db());
    m_peek_browse.close();
    compact(m_dirs.peek_browse_db());
    m_dirs.clean_working();
    m_lock.release();
    m_host.busy(false);
    m_host.end_process();
}

bool Session::file_gone()
{
    return has_tournament() && has_moved(m_tournament);
}

std::string Session::gone_text() const
{
    return "the tournament file " + m_current_file_path
        + " was moved, renamed, deleted or replaced by another program,changes cannot be saved to it";
}

bool Session::tell_if_file_gone()
{
    if (!file_gone()) {
        // Put back where it was: it takes changes again, and a second loss is told again.
        m_gone_told = false;
        return false;
    }
    if (m_gone_told)
        return false;
    m_gone_told = true;
    if (m_talk.ask(gone_text() + ",save the tournament as a new file?", gone_title, Buttons::YesNo) == Answer::Yes) {
        if (const auto copy = copy_gone_file())
            go_on_in(*copy);
    }
    return true;
}

std::string Session::fault_text(std::string_view what)
{
    if (file_gone())
        return gone_text() + ",use save as to keep the tournament";
    return std::string(what);
}

std::optional<fs::path> Session::copy_gone_file()
{
    const auto chosen = m_talk.choose_file({ FileDialogKind::SaveAs, "save tournament as..", "saveas.qvd", "qvd.",
        m_settings.text("app.last_dir_opened") });
    if (!chosen || open_elsewhere(*chosen))
        return std::nullopt;
    if (!write_copy(m_tournament, *chosen)) {
        m_talk.message("cannot write file:" + chosen->string());
        return std::nullopt;
    }
    m_gone_copy_saved = true;
    m_last_file_path = chosen->string();
    m_settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    return chosen;
}

bool Session::open_elsewhere(const fs::path& file)
{
    std::error_code ec;
    if (!fs::exists(file, ec) || m_file_lock.holds(file))
        return false;
    FileLock probe;
    if (probe.acquire(file) != FileLock::Result::held_elsewhere)
        return false;
    m_talk.message("tournament file is open in another quorvelin:" + file.string());
    return true;
}

// The copy replaces an existing file whole or not at all, and keeps that file's mode and owner.
bool Session::copy_closed_file(const fs::path& target)
{
    std::error_code ec;
    if (fs::weakly_canonical(target, ec) == fs::weakly_canonical(m_last_file_path, ec))
        return true;
    try {
        Database source(m_last_file_path);
        return write_copy(source, target);
    } catch (const DbError&) {
        return false;
    }
}

void Session::go_on_in(const fs::path& copy)
{
    if (!close_current_db())
        return;
    m_pending_file_path = copy.string();
    start_with_pending();
}

void Session::request_restart()
{
    m_pending_action = restart_marker;
    m_host.defer([this] { on_timer(); });
}

void Session::on_timer()
{
    if (m_pending_action != restart_marker)
        return;
    m_pending_action.clear();
    boot_restart_app();
}

void Session::boot_restart_app()
{
    // The restart reopens the last file: a tournament whose file has gone is offered a new file first.
    if (file_gone() && !m_gone_copy_saved
        && m_talk.ask(gone_text() + ",save the tournament as a new file?", gone_title, Buttons::YesNo) == Answer::Yes)
        copy_gone_file();
    m_gone_told = false;
    m_gone_copy_saved = false;
    m_settings.detach();
    m_init.close();
    m_tournament.close();
    m_peek_browse.close();
    m_host.unload_all_forms();
    m_current_area.reset();
    m_current_file_path.clear();
    m_pending_file_path = m_last_file_path;
    start_with_pending();
}

void Session::start_with_pending()
{
    m_host.defer([this] { boot_start_app(m_pending_file_path); });
}

void Session::menu_new()
{
    if (!close_current_db())
        return;
    const auto chosen = m_talk.choose_file({ FileDialogKind::SaveAs, "new tournament", "mytournament.qvd", "qvd.",
        m_settings.text("app.last_dir_opened") });
    if (!chosen || open_elsewhere(*chosen))
        return;
    std::error_code ec;
    fs::copy_file(m_dirs.blank_db(), *chosen, fs::copy_options::overwrite_existing, ec);
    if (ec) {
        m_talk.message("cannot write file:" + chosen->string());
        return;
    }
    m_settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    m_pending_file_path = chosen->string();
    start_with_pending();
}

void Session::menu_open()
{
    if (!close_current_db())
        return;
    const auto chosen = m_talk.choose_file(
        { FileDialogKind::Open, "open tournament file", "", "qvd.", m_settings.text("app.last_dir_opened") });
    if (!chosen)
        return;
    m_settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    m_pending_file_path = chosen->string();
    start_with_pending();
}

void Session::open_recent(const std::string& path)
{
    if (!close_current_db())
        return;
    m_pending_file_path = path;
    start_with_pending();
}

void Session::menu_save_as()
{
    if (!has_tournament())
        return;
    if (file_gone()) {
        if (const auto copy = copy_gone_file())
            go_on_in(*copy);
        return;
    }
    const auto chosen = m_talk.choose_file({ FileDialogKind::SaveAs, "save tournament as..", "saveas.qvd", "qvd.",
        m_settings.text("app.last_dir_opened") });
    if (!chosen || open_elsewhere(*chosen))
        return;
    if (!close_current_db())
        return;
    if (!copy_closed_file(*chosen)) {
        m_talk.message("cannot write file:" + chosen->string());
        return;
    }
    m_settings.set_disk_var("app.last_dir_opened", chosen->parent_path().string());
    m_pending_file_path = chosen->string();
    start_with_pending();
}

void Session::ishow(Area area)
{
    if (m_current_area == Area::draw && area != Area::draw) {
        m_switch_word = "switchingforms";
        m_host.cancel_list1();
        if (!m_host.leave_draw())
            return;
    }
    ishow_no_refresh(area);
}

void Session::ishow_no_refresh(Area area)
{
    const bool footprint = m_settings.integer("app.usefootprint") == 1;
    m_host.show_area(area, switch_markers(m_current_area, area, footprint));
    if (area == Area::draw)
        m_host.refresh_draw_on_entry();
    m_current_area = area;
}

void Session::toolbar_click(Area area)
{
    if (has_tournament())
        ishow(area);
}

} // namespace qv
