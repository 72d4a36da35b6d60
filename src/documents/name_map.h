#pragma once

#include "documents/document_lines.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qv {

// A line of the alias page's event list: "all draws" (no eid) or "(" eid ")" and the event's name.
struct NameMapChoice
{
    std::optional<std::int64_t> eid;
    std::string text;
};
// The events with a done draw, after "all draws".
std::vector<NameMapChoice> name_map_choices(Database& tournament);

// The name map of the draws, one event or all: for each person of a first round "full name=first round
// name=sub-round name", each event after a blank line and its name. Byes, wildcards and qualifiers stay out.
Document name_map(const DocumentContext& context, std::optional<std::int64_t> eid);

} // namespace qv
