#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qv {

class Database;
class Session;

// Matches by state: "1" empty, "2" live, "2.1" unfinished, "3" dead. Other states are not counted.
struct StateCounts
{
    std::int64_t empty = 0;
    std::int64_t live = 0;
    std::int64_t unf = 0;
    std::int64_t dead = 0;

    void add(std::string_view match_state);
    void remove(std::string_view match_state);
    std::int64_t total() const { return empty + live + unf + dead; }
    friend bool operator==(const StateCounts&, const StateCounts&) = default;
};

// The marks of a day or court: "+" empty, "?" live, "^" unfinished, "¿" dead, each when its count is above 0.
std::string state_marks(const StateCounts& counts);

// What a dead match's live number becomes in live_match_counts: its old number plus this, so it sorts behind
// every match still to play.
inline constexpr std::int64_t dead_match_offset = 1147483647;

// Renumbers the courts of a day (every day when empty): matchnumber 1, 2, 3 ... on each court over all states,
// matchnumber_live 1, 2, 3 ... over live and unfinished matches and 0 for the others.
void LIVE_MATCH_NUMBERS_DO(Database& tournament, std::string_view day);

// After a result on a day and court: the court renumbered (a dead match's live number is its old number plus
// dead_match_offset), and the counts and marks of the court and of the day written. An empty day counts the
// matches without a day into the no-day row.
void live_match_counts(Database& tournament, std::string_view day, std::int64_t cid);

// Every count and mark of the days and courts afresh. The matches without a day count under the no-day row.
void LIVE_MATCH_COUNTS_ALL(Session& session);

} // namespace qv
