#include "core/scratch_tables.h"

#include "core/database.h"

#include <array>

namespace qv {

namespace {

constexpr std::array<std::string_view, 30> tournament_scratch { "alist", "alist_int", "alist2", "alist3", "alist4",
    "alist5", "alist6", "alist9_nm_sx", "alist10_rr", "sort_dir", "eids", "draw_stage1", "draw_stage2", "lists_sids",
    "livedays", "player_times_idocs", "player_times_website", "rr_screenscrape", "scheduledays_temp",
    "scheduledays_courts_temp", "stats_by_cid", "stats_by_day", "stats_by_event", "stats_disp", "stats_disp1",
    "time_conflicts_matches_day", "text_box_file_text", "qv4_text_box_file_text", "players_import", "events_import" };

constexpr std::array<std::string_view, 16> peek_browse_scratch { "alist", "alist4", "alist9_nm_sx",
    "browse_evententries", "browse_events", "browse_info", "browse_players", "browse_rawdoublesentries",
    "peek_evententries", "peek_events", "peek_info", "peek_players", "peek_rawdoublesentries", "qv4_single_events",
    "qv4_single_players", "qv4_single_schedule" };

constexpr std::array<std::string_view, 6> clear_data_extra { "folders", "force_draw", "player_match_counts", "schedule",
    "calc_time_conflicts_courts", "calc_time_conflicts_matches" };

} // namespace

std::span<const std::string_view> tournament_scratch_tables()
{
    return tournament_scratch;
}

std::span<const std::string_view> peek_browse_scratch_tables()
{
    return peek_browse_scratch;
}

std::span<const std::string_view> clear_data_tables()
{
    return clear_data_extra;
}

void empty_tables(Database& db, std::span<const std::string_view> tables)
{
    for (auto table : tables)
        db.empty_table(table);
}

} // namespace qv
