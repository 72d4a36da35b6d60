#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

namespace qv {

class Database;
class TodsParticipants;
class TodsVenue;

// What a draw definition is made from besides its matches.
struct TodsDrawContext
{
    Database& tournament;
    TodsParticipants& participants;
    const TodsVenue& venue;
    nlohmann::ordered_json entries; // the event's entries
};

// The drawn event's draw as a TODS draw definition: a knock-out as one elimination structure, a round robin as a
// container holding one group. Null when the event has no match rows.
nlohmann::ordered_json tods_draw(TodsDrawContext& context, std::int64_t eid);

} // namespace qv
