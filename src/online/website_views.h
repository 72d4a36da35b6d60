#pragma once

#include "online/website_options.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace qv {

class Session;

// The "view" buttons of the page tabs: the page a tab would make, written into working/ and shown in the text
// window. The path shown, or none after the tab's own refusal.

// The text draw of the chosen event; "select draw" when none is chosen.
std::optional<std::filesystem::path> view_text_draw(
    Session& session, const WebsiteDrawOptions& options, std::optional<std::int64_t> eid);

// The schedule of the current day by court ('c'), time ('t') or event ('e'); "select day " when none is chosen.
std::optional<std::filesystem::path> view_schedule(
    Session& session, const WebsiteScheduleOptions& options, char way, std::optional<std::string> day);

// The player times of the chosen days; "select day " when none is chosen.
std::optional<std::filesystem::path> view_player_times(Session& session, const WebsitePlayerTimesOptions& options);

// The results page of one style ("by event", "by schedule" for all the chosen days, "by day", "by round") over
// the chosen days; "select day " when none is chosen.
std::optional<std::filesystem::path> view_results(
    Session& session, const WebsiteResultsOptions& options, std::string_view style);

} // namespace qv
