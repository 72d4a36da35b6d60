#include "core/session.h"

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

void Session::compact(const fs::path& file) const
{
    if (m_compact_on_close == 1)
        compact_file(file);
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
    m_current_file_name = extract_fn(path);
    if (!open_tournament_file(file))
        return;
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

bool Session::open_tournament_file(const fs::path& file)
{
    // Every open is a compaction: empty the scratch tables, compact, open again.
    try {
        {
            Database db(file);
            require_tournament_tables(db, m_dirs.blank_db());
            Transaction transaction(db);
            empty_tables(db, tournament_scratch_tables());
            transaction.commit();
        }
        compact(file);
        m_tournament = Database(file);
    } catch (const DbError&) {
        m_tournament.close();
        m_current_file_name.clear();
        m_talk.message("not a tournament file:" + file.string());
        return false;
    }
    return true;
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
    if (!m_host.leave_draw())
        return false;
    m_host.unload_all_forms();
    m_current_area.reset();
    const fs::path file(m_current_file_path);
    {
        Transaction transaction(m_tournament);
        empty_tables(m_tournament, tournament_scratch_tables());
        transaction.commit();
    }
    m_tournament.close();
    m_current_file_path.clear();
    m_settings.clear_tournament_cache();
    compact(file);
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
    if (!chosen)
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
    const auto chosen = m_talk.choose_file({ FileDialogKind::SaveAs, "save tournament as..", "saveas.qvd", "qvd.",
        m_settings.text("app.last_dir_opened") });
    if (!chosen)
        return;
    if (!close_current_db())
        return;
    std::error_code ec;
    if (fs::weakly_canonical(*chosen, ec) != fs::weakly_canonical(m_last_file_path, ec))
        fs::copy_file(m_last_file_path, *chosen, fs::copy_options::overwrite_existing, ec);
    if (ec) {
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
