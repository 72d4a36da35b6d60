#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace qv {

class Session;

// The notes of a match: one per player (p1 .. p4, shown beside the player in the player times) and the general
// note (shown beside the match in the schedule).
struct MatchNotes
{
    std::int64_t sid = 0;
    std::array<std::string, 4> players; // p1 .. p4; empty where the match has no such player
    std::array<std::string, 4> notes; // p1_matchnote .. p4_matchnote
    std::string general; // mg_matchnote
};

// matchnote's init: the players and notes of the row. A sid that has gone is reported (" not found,stale data").
std::optional<MatchNotes> read_match_notes(Session& session, std::int64_t sid);
// "save": each note trimmed to its column.
void save_match_notes(Session& session, const MatchNotes& notes);

} // namespace qv
