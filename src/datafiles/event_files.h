#pragma once

#include "datafiles/data_lines.h"
#include "entries/events.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace qv {

class Database;
class Session;

// A line of an event file (qv3: name, singles or doubles, sex, player type, fee) checked field by field against the
// tournament's events: the event it adds or the first fault.
struct CheckedEvent
{
    std::optional<EventRecord> record;
    LineFault fault;
};
CheckedEvent process_qv3_line(Database& db, std::string_view line);

// Imports a qv3 file: each good line a new knock-out event, each bad line a block of the feedback file. One unit
// of work; the user is told the outcome. Returns the number imported.
int import_events(Session& session, const std::filesystem::path& file);
// The same for the file the user picks in "open qv3 event file"; nothing happens when none is picked.
int import_events_file(Session& session);

// Writes the chosen events to a file the user names ("events.qv3").
bool export_events(Session& session, const std::vector<std::int64_t>& eids);

} // namespace qv
