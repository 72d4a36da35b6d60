#pragma once

#include <array>

namespace qv {

class Database;
class Session;

// The five ticks of the clear data window, in the order of their settings cdata_1 to cdata_5.
struct ClearDataTicks
{
    bool players_and_entries = false; // "delete players and entries"
    bool events_and_entries = false; // "delete events and entries"
    bool entries = false; // "delete entries"
    bool days = false; // "delete days"
    bool details = false; // "delete details"
};

ClearDataTicks load_clear_data_ticks(Session& session);

// Asks, clears what is ticked and always the draws, the schedule and the folders, then asks for a restart.
// Returns true when the data were cleared.
bool clear_data(Session& session, const ClearDataTicks& ticks);

// Empties the whole tournament as clear data does with every tick, without asking; the caller's unit of work
// holds it and the caller restarts.
void empty_tournament(Database& db);

} // namespace qv
