#pragma once

#include "core/time_rules.h"
#include "datafiles/data_lines.h"
#include "entries/players.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Session;

// qv1: the full record of a player, 16 fields; qv2: the short one, 5 fields.
enum class PlayerFormat { qv1, qv2 };
int field_count(PlayerFormat format);
const char* format_word(PlayerFormat format);

// A line of a player file checked field by field, as the record it adds or the first fault.
struct CheckedPlayer
{
    std::optional<PlayerRecord> record;
    LineFault fault;
};
CheckedPlayer process_qv1_line(std::string_view line);
CheckedPlayer process_qv2_line(std::string_view line);

// Imports a qv1 or qv2 file into the register: each good line a new player (names first-capped, put in the folder
// fid, 0 for none, stamped now), each bad line or name already there a block of the feedback file. One unit of
// work; the user is told the outcome. Returns the number imported.
int import_players(Session& session, const std::filesystem::path& file, PlayerFormat format, std::int64_t fid,
    const std::tm& now = local_time_now());

// The same for the file the user picks ("import qv1 file", "import qv2 file"); nothing happens when none is picked.
int import_players_file(Session& session, PlayerFormat format, std::int64_t fid);

// The text of "file formats": the fields of the two player files, in order.
std::vector<std::string> player_file_formats();

// Writes the chosen players, in the order given, to a file the user names ("players.qv1" or "players.qv2").
bool export_players(Session& session, const std::vector<std::int64_t>& pids, PlayerFormat format);

// The text exports of the whole register: name "^" value lines of the players who have the value.
enum class PlayerText { email, emails_only, address, rating_ranking, message, availability };
std::vector<std::string> player_text_lines(Session& session, PlayerText which);
bool export_player_text(Session& session, PlayerText which);

} // namespace qv
