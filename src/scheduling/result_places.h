#pragma once

#include "drawengine/draw_saving.h"

#include <cstdint>
#include <vector>

namespace qv {

class Database;
class OpenDraw;

// The matches a click on a slot of an open knock-out can change: the match that fed the slot, the slot's own match
// and the match its winner goes to. Sids of slots the draw does not have are left out.
std::vector<std::int64_t> changed_matches(const OpenDraw& draw, int level, int position);
// Every match of an event.
std::vector<std::int64_t> event_sids(Database& tournament, std::int64_t eid);
// The days and courts these matches stand on, each once.
std::vector<DayCourt> match_places(Database& tournament, const std::vector<std::int64_t>& sids);

} // namespace qv
