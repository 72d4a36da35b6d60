#pragma once

#include "store.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

struct OnlineEvent
{
    std::int64_t eid = 0;
    std::string eventname;
    std::string sex; // one letter: m, f, x, n
    std::string pte;
    std::string fee;
    std::string singdobs;
};

// The events text a client uploads: per event "eid,eventname,sex,pte,fee,singdobs," and "^". A name may hold
// a comma, so the name is whatever stands between the id and the last four fields. Nothing when a record
// is malformed.
std::optional<std::vector<OnlineEvent>> parse_events_text(std::string_view text);

// The account's entries file: the tournament's name, its events, players and entries, one record a line.
std::string qv5_text(Store& store, std::string_view custid);

} // namespace qv::service
