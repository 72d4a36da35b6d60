#pragma once

#include <string>
#include <vector>

namespace qv {

class Database;
class Session;

// Each reads the tournament's tables, or with a prefix ("peek_", "browse_") their twins of an entries file.

// The events each player is in: a table of the events, then a line per player who is in any, with the event
// ids ("r" before a raw doubles event) in brackets.
std::vector<std::string> entriesbrief(Database& tournament, const std::string& prefix = {});
// The same with the events named, one a line under the player, a doubles entry with its partner.
std::vector<std::string> entriesexpanded(Database& tournament, const std::string& prefix = {});

// The events and their entries as comma-separated sections, doubles as resolved teams or as raw entries.
enum class FormattedDoubles { resolved, raw };
std::vector<std::string> export_formatted_entries(
    Database& tournament, FormattedDoubles doubles, const std::string& prefix = {});

// The dump of the schedule: a head line and a comma-separated line per live, unfinished or dead match; the
// court's head is the configured word for a court.
std::vector<std::string> export_results_txt_file(Database& tournament, const std::string& court_word);

} // namespace qv
