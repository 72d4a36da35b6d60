#pragma once

#include "entries/main_lists.h"

#include <cstdint>
#include <vector>

namespace qv {

class Session;

// Takes entries of one event out of the tournament area's lists: `ids` are `ent_idx` of the "players" and
// "reserve" lists, or `rdidx` of the "raw doubles" list, as load_event_entries gives them.
//
// Nothing selected: "select player(s)", or "select teams to delete" for raw rows. An entry that stands in a
// drawn event and is not a reserve is in the draw: the whole removal is refused, naming it. Otherwise one
// question, "This will remove the selected players from this event" (entries) or "This will delete these entries
// from the data base." (raw rows); on Yes the rows go in one transaction, and for raw rows the count follows
// (" entries deleted", or "no entries deleted"). A team that goes frees its two people
// in the event's raw rows, so they can be paired again. Ids that are not rows of the event are passed over.
// Returns the number of rows removed.
int remove_entries(Session& session, std::int64_t eid, EntryList which, const std::vector<std::int64_t>& ids);

} // namespace qv
