#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// The entries file (qv5): the tournament's name, its events, players and entries as "^"-ended tokens, each
// record closed by its mark: "%" the name, "'" an event, "/" a player, "\" an entry. The service's greeting
// may stand before the first record.

// Doubles entries as resolved teams or as the raw entries with their partners.
enum class Qv5Doubles { resolved, raw };

// The lines of the file: the name, every event, every player, every entry. An entry whose player is not in
// the register has no line.
// The one letter the entries file and the online service keep for an event's sex ("male" "m", "female" "f",
// "mixed" "x", "neutral" "n"); nothing for a value they do not know.
std::optional<std::string> sex_letter(std::string_view sex);

std::vector<std::string> qv5_lines(Database& tournament, Qv5Doubles doubles);

// Writes the file the user names ("qv5_with_resolved_doubles.qv5" or "qv5_with_raw_doubles.qv5").
bool export_qv5(Session& session, Qv5Doubles doubles);

// The tables an entries file is read into: those of a peek or a browse beside the tournament, or the
// tournament's own.
enum class EntriesTarget { peek, browse, tournament };

// Reads an entries file into the target's tables, emptied first (the tournament as a whole), and completes the
// entries from their players and events. A file that is not text or a record that does not fit loads nothing
// and leaves the tables as they were: "invalid qv5 file,no data loaded". Into the tournament, the file's
// name becomes the tournament's when the setting qv5_load_pull_tname is on. Returns whether it was loaded.
bool load_entries_file(Session& session, const std::filesystem::path& file, EntriesTarget target);

// "load entries (qv5) file": with a tournament open and the user's consent, the chosen file replaces the
// tournament's content and the program restarts on it.
bool load_entries_into_tournament(Session& session);

// The prefix of the target's tables: "peek_", "browse_" or none.
std::string entries_prefix(EntriesTarget target);

} // namespace qv
