#pragma once

#include "online/website_containers.h"
#include "online/website_draw_pages.h"
#include "online/website_options.h"

#include <vector>

namespace qv {

struct DocumentContext;

// The pages whose bodies are the documents' texts, each wrapped under its title. The day pages read the days
// through livedays, which each of them sets afresh.

// The name map: one page of all events ("file_alias.htm", "alias"), or one page per chosen event with a done
// draw ("file_alias_" and the name's part, "name map for " and the name), the container listing those.
std::vector<NamedPage> alias_pages(
    const DocumentContext& context, const std::vector<DrawnEvent>& events, bool one_page);

// VIP_do_schedules: per chosen day, the schedule by court, by time and by event as they are on.
std::vector<NamedPage> schedule_pages(const DocumentContext& context, const WebsiteScheduleOptions& options);

// The player times of the chosen days, compiled into player_times_website.
NamedPage player_times_page(const DocumentContext& context, const WebsitePlayerTimesOptions& options);

// The results pages of the styles that are on; by schedule with its container and a page for all the chosen
// days and one for each.
std::vector<NamedPage> results_pages(const DocumentContext& context, const WebsiteResultsOptions& options);

} // namespace qv
