#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qv {

class Database;

// One line of a list on screen and the id it stands for.
struct ListLine
{
    std::string text;
    std::int64_t id = 0;
};

// The tournament area's event list (`loadevents`): a leading "*" marks a draw done, then "(" eid ")" and the name.
std::vector<ListLine> loadevents(Database& db);

enum class EntryList { players, reserve, raw_doubles };

// The entries of one event in one of the three lists; a raw entry whose partner is "preq preq" reads
// "(partner required)" in the partner's place.
std::vector<ListLine> load_event_entries(Database& db, std::int64_t eid, EntryList which);

// The register of players (`loadplayers`): "select * from players order by fname".
std::vector<ListLine> loadplayers(Database& db);

// The events a player has entered: as a player or as half of a pair, and "raw: " before a raw doubles entry.
std::vector<ListLine> player_events(Database& db, const std::string& player);

struct MainCounts
{
    std::int64_t events = 0; // "Total number of events"
    std::int64_t entries = 0; // "Total entries ( including raw doubles)"
};
MainCounts main_counts(Database& db);

} // namespace qv
