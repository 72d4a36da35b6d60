#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace qv {

class Database;
class Session;

// The tournament in the ITF's Tennis Open Data Standard (TODS) as JSON text: the tournament with its dates,
// the participants (persons, pairs and teams), the events with their entries and each drawn event's draw as one
// structure (a round robin as a container of one group) with seeds, positions, byes and matchUps carrying winners,
// scores and their place in the schedule; the courts form one venue. Ids are made from the file's own ids, so
// the same file always gives the same text. court_word names a court that has no name of its own.
std::string tods_json(Database& tournament, const std::string& tournament_id, const std::string& court_word);

// "export TODS (json)": the JSON saved where the user chooses, then what follows any saved file.
std::optional<std::filesystem::path> export_tods(Session& session);

} // namespace qv
