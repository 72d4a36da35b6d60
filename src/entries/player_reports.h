#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qv {

class Session;

// The three reports of the register. Each writes a Windows-1252 file in working/ and hands it to
// on_file_save; the path is returned, or none when nothing was written (the user has been told why).

// Every player by name with sex, rating, ranking and from code.
std::optional<std::filesystem::path> report_players_rating_ranking(Session& session);

// Every player with the ids of the events entered ("r" before a raw doubles entry) and the events as a legend.
// Fills players.evt_str on the way.
std::optional<std::filesystem::path> report_players_events(Session& session);

// The select of the details export for `count` bound pids, by player.
std::string get_players_text_sql(std::size_t count);

// The details of the given players, one block a person, one field a line after its column name.
std::optional<std::filesystem::path> export_players_text(Session& session, const std::vector<std::int64_t>& pids);

} // namespace qv
