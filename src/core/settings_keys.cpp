#include "core/settings_keys.h"

#include <array>

namespace qv {

namespace {

constexpr SettingKind Text = SettingKind::Text;
constexpr SettingKind Integer = SettingKind::Integer;

constexpr BootSettingKey boot_keys[] = {
    { "default_domain", Text },
    { "include_next_round_pointers", Integer },
    { "qv5_load_pull_tname", Integer },
    { "qv6_export_include_prompts", Integer },
    { "store_peek_qv5", Integer },
    { "open_last_db_on_start", Integer },
    { "help_url", Text },
    { "signup_url", Text },
    { "homepage_url", Text },
    { "double_click_auto_scroll", Integer },
    { "hold_refresh_on_add_result", Integer },
    { "entries_online", Text },
    { "entries_make", Text },
    { "players_online", Text },
    { "players_make", Text },
    { "alias_page", Text },
    { "alias_pages", Text },
    { "assistant_list4_hfr", Text },
    { "assistant_list3_hfr", Text },
    { "schedule_hfr_upper", Text },
    { "cb_hfr_upper", Text },
    { "schedule_hfr_lower", Text },
    { "payments_hfr", Text },
    { "on_file_save", Integer },
    { "force_draw_ignore_seeding", Integer },
    { "refresh_ac_on_do_draw", Integer },
    { "match_counts_color", Text },
    { "default_draw_type", Integer },
    { "colors_textcolor", Text },
    { "colors_backcolor", Text },
    { "current_marker_color", Text },
    { "footprint_color", Text },
    { "ko_score_highlite_color", Text },
    { "resolve_autocomplete", Text },
    { "folders_beep_ok", Integer },
    { "website_explicit", Integer },
    { "imaxdays", Integer },
    { "imaxcid", Integer },
    { "players_beep_ok", Integer },
    { "events_beep_ok", Integer },
    { "player_matches_order_by", Text },
    { "player_matches_order_by_asc_desc", Text },
    { "k_player_matches_order_by_asc_desc", Text },
    { "k_player_matches_order_by", Text },
    { "players_addtoevent_filter", Text },
    { "folders_addtoevent_filter", Text },
    { "events_addtoevent_filter", Text },
    { "targetevents_addtoevent_filter", Text },
    { "admin_events_manage_filter", Text },
    { "draw_events_filter", Text },
    { "players_import_export_filter", Text },
    { "players_folders_assign_filter", Text },
    { "players_delete_filter", Text },
    { "idocs_xtime", Integer },
    { "idocs_unf_top", Integer },
    { "idocs_live_top", Integer },
    { "idocs_dead_top", Integer },
    { "lists_include", Integer },
    { "lists_noday", Integer },
    { "lists_desc", Integer },
    { "admin_events_delete_no_prompt", Integer },
    { "evt.checkerror", Text },
    { "pdetails_tab", Integer },
    { "payments.pif", Integer },
    { "payments.ob", Integer },
    { "payments.neg", Integer },
    { "payments.opt", Integer },
    { "payments.sort1", Integer },
    { "payments.sort2", Integer },
    { "schedule.empty_top", Integer },
    { "schedule.live_top", Integer },
    { "schedule.unf_top", Integer },
    { "schedule.dead_top", Integer },
    { "schedule.empty_top_cb", Integer },
    { "schedule.live_top_cb", Integer },
    { "schedule.unf_top_cb", Integer },
    { "schedule.dead_top_cb", Integer },
    { "schedule.empty_bottom", Integer },
    { "schedule.live_bottom", Integer },
    { "schedule.unf_bottom", Integer },
    { "schedule.dead_bottom", Integer },
    { "schedule.key", Integer },
    { "schedule.tcm", Integer },
    { "schedule.avgmatchtime", Integer },
    { "ca.check1", Integer },
    { "ca.check2", Integer },
    { "ca.check3", Integer },
    { "ca.check4", Integer },
    { "ca.check5", Integer },
    { "ca.check6", Integer },
    { "ca.check7", Integer },
    { "ca.check8", Integer },
    { "ca.check9", Integer },
    { "ca.check10", Integer },
    { "ca.check11", Integer },
    { "ca.check12", Integer },
    { "ca.check13", Integer },
    { "ca.check14", Integer },
    { "ca.check15", Integer },
    { "ca.check16", Integer },
    { "ca.check17", Integer },
    { "ca.check18", Integer },
    { "ca.check19", Integer },
    { "ca.check20", Integer },
    { "ca.check21", Integer },
    { "ca.check22", Integer },
    { "ca.check23", Integer },
    { "ca.check24", Integer },
    { "ca.check25", Integer },
    { "ca.check26", Integer },
    { "ca.check27", Integer },
    { "ca.check28", Integer },
    { "ca.check31", Integer },
    { "ca.check32", Integer },
    { "ca.check33", Integer },
    { "idocs.empty_bottom", Integer },
    { "idocs.live_bottom", Integer },
    { "idocs.unf_bottom", Integer },
    { "idocs.dead_bottom", Integer },
    { "idocs.check1", Integer },
    { "idocs.check2", Integer },
    { "idocs.check3", Integer },
    { "idocs.check4", Integer },
    { "idocs.check5", Integer },
    { "idocs.check7", Integer },
    { "idocs.check8", Integer },
    { "idocs.check9", Integer },
    { "idocs.check10", Integer },
    { "idocs.check11", Integer },
    { "idocs.check12", Integer },
    { "idocs.check13", Integer },
    { "idocs.check14", Integer },
    { "idocs.check15", Integer },
    { "idocs.check16", Integer },
    { "idocs_results_style", Text },
    { "draw.imatch_handle_state", Integer },
    { "draw.isplit128", Integer },
    { "draw.byes_thru_on_do_draw", Integer },
    { "draw.itimesonimage", Integer },
    { "draw.icc", Integer },
    { "draw.ihilightscorebox", Integer },
    { "draw.iautosavechanges", Integer },
    { "draw.isaveasugo", Integer },
    { "psd.check1", Integer },
    { "psd.check2", Integer },
    { "psd.check3", Integer },
    { "app.generic_c", Text },
    { "app.generic_m", Text },
    { "app.generic_match", Text },
    { "app.generic_court", Text },
    { "app.generic_courts", Text },
    { "app.generic_matches", Text },
    { "app.text_left", Text },
    { "app.text_top", Text },
    { "app.admin_lines", Text },
    { "app.screenscrape", Text },
    { "app.draw_order_by", Text },
    { "app.ftp_website_url", Text },
    { "app.custid", Text },
    { "app.password", Text },
    { "app.servlet", Text },
    { "app.last_dir_opened", Text },
    { "app.last_db_opened", Text },
    { "app.ftp_timeout", Text },
    { "app.usefootprint", Integer },
    { "app.fillrrvoids", Integer },
    { "app.recent_files", Text },
    { "cdata_1", Integer },
    { "cdata_2", Integer },
    { "cdata_3", Integer },
    { "cdata_4", Integer },
    { "cdata_5", Integer },
    { "be.empty_top_birdseye", Integer },
    { "be.live_top_birdseye", Integer },
    { "be.unf_top_birdseye", Integer },
    { "be.dead_top_birdseye", Integer },
    { "visual.empty", Integer },
    { "visual.live", Integer },
    { "visual.unf", Integer },
    { "visual.dead", Integer },
    { "om.dead_top_othermatches", Integer },
    { "om.live_top_othermatches", Integer },
    { "om.unf_top_othermatches", Integer },
    { "tc.tcmins", Integer },
    { "dl.nbat", Integer },
    { "dl.hrs", Integer },
    { "dl.mins", Integer },
    { "dl.minsadd", Integer },
    { "dl.check1", Integer },
    { "addres.close_on_sid_sis", Integer },
    { "addres.onsave", Integer },
};

constexpr std::string_view byes_thru_key = "draw.byes_thru_on_do_draw";

// The byes-thru key is compared with a trailing blank, so writing the row leaves the variable alone until the
// next boot reads the row straight into it. The installed base relies on this timing; keep it.
constexpr std::string_view byes_thru_compared = "draw.byes_thru_on_do_draw ";

constexpr std::size_t boot_key_count = std::size(boot_keys);

constexpr auto build_applied_keys()
{
    std::array<AppliedSettingKey, boot_key_count + 2> keys {};
    std::size_t i = 0;
    for (const auto& boot : boot_keys) {
        const auto compared = boot.key == byes_thru_key ? byes_thru_compared : boot.key;
        keys[i++] = { compared, boot.key, boot.kind };
    }
    // Known to apply_disk_var but never read at boot: they start empty in every session.
    keys[i++] = { "schedule.filter_bottom", "schedule.filter_bottom", Text };
    keys[i++] = { "schedule.cnts", "schedule.cnts", Text };
    return keys;
}

constexpr auto applied_keys = build_applied_keys();

} // namespace

std::span<const BootSettingKey> boot_setting_keys()
{
    return boot_keys;
}

std::span<const AppliedSettingKey> applied_setting_keys()
{
    return applied_keys;
}

const AppliedSettingKey* find_applied_setting_key(std::string_view key)
{
    for (const auto& entry : applied_keys)
        if (entry.compared == key)
            return &entry;
    return nullptr;
}

} // namespace qv
