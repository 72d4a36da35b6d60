#pragma once

#include "documents/document_lines.h"
#include "documents/document_options.h"

#include <string_view>

namespace qv {

class Statement;

// The scratch table a compilation fills: the documents window's or the website's. Both have the same columns.
enum class PlayerTimesTable { idocs, website };

// Where a match is to be played for a player: nbat and the time when either is set; otherwise the match letter
// and the display position (matchnumber negated while the live number is 0), the court letter and the court's
// number, "(fa)" or "(tbc)".
std::string player_times_location(const Statement& row, const DocumentContext& context);

// VIP_compile_player_times_idocs and VIP_compile_player_times_website: one row for each person of each match of
// the days in livedays that the options keep, on a court, first available or to be confirmed. Empty positions,
// byes, wildcards and qualifiers get no row.
void VIP_compile_player_times(
    const DocumentContext& context, const PlayerTimesOptions& options, PlayerTimesTable table);
void VIP_compile_player_times_idocs(const DocumentContext& context, const PlayerTimesOptions& options);
void VIP_compile_player_times_website(const DocumentContext& context, const PlayerTimesOptions& options);

// The legend of the player times, in the sports words.
std::string player_times_legend(const DocumentContext& context);

// VIP_text_player_times_idocs and VIP_text_player_times_website: the compiled rows, player by player.
Document VIP_text_player_times(const DocumentContext& context, PlayerTimesTable table);
Document VIP_text_player_times_idocs(const DocumentContext& context);
Document VIP_text_player_times_website(const DocumentContext& context);
// VIP_text_player_times_idocs_pn: one player's compiled rows, headed "times for " and the name.
Document VIP_text_player_times_idocs_pn(const DocumentContext& context, std::string_view player);

// The player search: the live and unfinished matches of one person on any day, in order of day.
Document player_search_times(const DocumentContext& context, std::string_view player);

} // namespace qv
