#pragma once

#include "drawengine/open_draw.h"

namespace qv {

class Database;

// Lays the empty tree of the open draw down in schedule, one row per match and the winner row, and records the
// sid range in events and the state record. The tree's slots learn the sids of their rows.
void add_draw_stub(Database& tournament, OpenDraw& draw);

// The first write of a new "ko" draw, for an event without rows: the stub's rows, each laid down at once with the
// open draw's values in the live and the shadow columns and clean, as the stub followed by the first fill of its
// rows would leave them.
void KO_savecontrols(Database& tournament, OpenDraw& draw);

} // namespace qv
