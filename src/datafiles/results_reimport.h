#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// The results re-import file (qv6): one line per match, eight fields each followed by a comma: match id, the two
// names, the result flag (0 no winner, 1 player 1, 2 player 2), short score, long score and the two points.

// The lines of the live and unfinished matches, a match with a place holder on either side left out. With
// prompts, the flag and every empty score or points field say what belongs there.
std::vector<std::string> qv6_lines(Database& tournament, bool prompts);

// "export qv6": the user names the file ("results template"); the setting qv6_export_include_prompts chooses
// the prompts.
bool export_qv6_file(Session& session);

// The checks of the fields, each "ok" or its fault; the field is trimmed before.
std::string qv6_sid_1_validate(std::string_view text);
std::string qv6_mtttt_2_validate(std::string_view text);
std::string qv6_mbttt_3_validate(std::string_view text);
std::string qv6_wl_4_validate(std::string_view text);
std::string qv6_score_5_validate(std::string_view text);
std::string qv6_longscore_6_validate(std::string_view text);
std::string qv6_points1_7_validate(std::string_view text);
std::string qv6_points2_8_validate(std::string_view text);

// Imports a qv6 file in one unit of work: each good line's result is written as the result window writes it,
// each bad line is noted in the feedback file and the next is taken. The user is told the outcome. Returns the
// number imported.
int import_qv6_file(Session& session, const std::filesystem::path& file);

} // namespace qv
